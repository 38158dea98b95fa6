#include "host/layer_editor.h"

#include "controls/forms/apply_form.h"
#include "exports/vxk_lr2d_edit_form_api.h"
#include "host/captions.h"
#include "host/layer_classes.h"
#include "host/layer_info.h"
#include "host/layer_list.h"
#include "host/layer_style.h"
#include "layer_edit/form/lr2d_edit_form.h"
#include "layer_edit/page_set/lr2d_edit.h"

#include "platform/base/string_adp.h"

#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

#include <array>
#include <utility>

namespace {
/// Those of a map.
class map_layers : public Tvx_edited_layers
{
public:
    explicit map_layers(Tvx_layer_list &layers) : f_layers(layers) {}

    [[nodiscard]] Ivx_layer *find(int id) const override { return f_layers.layer_at(f_layers.row_of(id)); }
    bool replace(int id, layer_ptr layer) override { return f_layers.replace(id, std::move(layer)); }
    [[nodiscard]] bool are_alike(Ivx_layer *copy, Ivx_layer *unchanged) const override
    {
        return vx_layer_has_style_of(copy, unchanged);
    }
    [[nodiscard]] Tvx_lr2d_edit_form *create_form() const override { return vx_lr2d_edt_form_create(); }
    void destroy_form(Tvx_lr2d_edit_form *form) const override { vx_lr2d_edt_form_destroy(form); }

private:
    Tvx_layer_list &f_layers;
};

[[nodiscard]] TPageControl *pages_of(Tvx_lr2d_edit_form const *form)
{
    Tvx_lr2d_edit *const edit = form ? form->get_lr2d_edit() : nullptr;
    return edit ? edit->get_pages() : nullptr;
}

/// Null when none is seen.
[[nodiscard]] TTabSheet *first_tab(TPageControl *pages)
{
    for (int i = 0; pages && i < pages->GetPageCount(); ++i)
        if (pages->GetPages(i)->GetTabVisible())
            return pages->GetPages(i);
    return nullptr;
}
} // namespace

Tvx_layer_editor::Tvx_layer_editor(Tvx_layer_list &layers, QWidget *window)
    : Tvx_layer_editor(std::make_unique<map_layers>(layers), window)
{
    connect(&layers, &Tvx_layer_list::layer_removed, this, &Tvx_layer_editor::forget);
}

Tvx_layer_editor::Tvx_layer_editor(std::unique_ptr<Tvx_edited_layers> layers, QWidget *window)
    : QObject(window), f_layers(std::move(layers)), f_window(window)
{
}

Tvx_layer_editor::~Tvx_layer_editor()
{
    close();
}

void Tvx_layer_editor::open(int id, QPoint where)
{
    if (!f_layers->find(id))
        return;
    bool const fresh = !is_showing();
    ensure_window();
    if (fresh)
        show_layer(id);
    else
        follow(id);
    vx_lr2d_edt_form_show_pos(f_form, where.x(), where.y());
}

void Tvx_layer_editor::follow(int id)
{
    f_wanted = id;
    if (!is_showing() || id == f_layer_id)
        return;
    if (!has_changes())
        return show_layer(id);
    // In the middle of a click, or of the layer's own removal, is no time to ask.
    if (!std::exchange(f_asks, true))
        QTimer::singleShot(0, this, &Tvx_layer_editor::ask_to_follow);
}

void Tvx_layer_editor::ask_to_follow()
{
    bool const goes = !is_showing() || f_wanted == f_layer_id || may_lose_changes();
    f_asks = false;
    if (!goes)
        emit stayed(f_layer_id);
    else if (is_showing() && f_wanted != f_layer_id)
        show_layer(f_wanted);
}

bool Tvx_layer_editor::has_changes() const
{
    Ivx_layer *const copy = is_showing() ? vx_lr2d_edt_form_get_lr2d_ptr(f_form) : nullptr;
    return copy && f_unchanged && !f_layers->are_alike(copy, f_unchanged.get());
}

bool Tvx_layer_editor::may_lose_changes(int id)
{
    if ((id >= 0 && id != f_layer_id) || !has_changes())
        return true;
    QMessageBox box(QMessageBox::Question, vx_host_caption(c_cap_application),
                    vx_map_caption(c_map_apply_question).arg(vx_layer_name(f_layers->find(f_layer_id))),
                    QMessageBox::NoButton, f_window);
    box.setTextFormat(Qt::PlainText);
    QPushButton *const apply = box.addButton(vx_map_caption(c_map_apply_yes), QMessageBox::AcceptRole);
    QPushButton *const lose = box.addButton(vx_map_caption(c_map_apply_no), QMessageBox::DestructiveRole);
    QPushButton *const cancel = box.addButton(vx_host_caption(c_cap_cancel), QMessageBox::RejectRole);
    apply->setObjectName(QStringLiteral("apply"));
    lose->setObjectName(QStringLiteral("lose"));
    cancel->setObjectName(QStringLiteral("cancel"));
    box.setDefaultButton(apply);
    box.setEscapeButton(cancel);
    box.exec();
    if (box.clickedButton() == apply)
        on_apply();
    return box.clickedButton() == apply || box.clickedButton() == lose;
}

void Tvx_layer_editor::refresh(int id)
{
    if (f_form && id == f_layer_id)
        show_layer(id);
}

void Tvx_layer_editor::take(int id, taker const &take)
{
    if (!f_form || id != f_layer_id)
        return;
    Ivx_layer *const layer = f_layers->find(id);
    for (Ivx_layer *const copy : std::array{vx_lr2d_edt_form_get_lr2d_ptr(f_form), f_unchanged.get()})
        take(copy, f_unchanged.get(), layer);
    update();
}

void Tvx_layer_editor::take_class(int id, int place)
{
    take(id, [place](Ivx_layer *copy, Ivx_layer *, Ivx_layer *layer) {
        vx_layer_class_take_visible(copy, layer, unsigned(place));
    });
}

void Tvx_layer_editor::take_name(int id)
{
    take(id, [](Ivx_layer *copy, Ivx_layer *, Ivx_layer *layer) {
        std::wstring name;
        vx_lr2d_get_wcaption(layer, Tvx_std_wstring_adapter(name));
        vx_lr2d_set_wcaption(copy, name.c_str());
    });
}

void Tvx_layer_editor::update()
{
    if (!f_form)
        return;
    f_layers->become_current();
    vx_lr2d_edt_form_update(f_form);
    // Without a layer no name follows what leads to it.
    if (Tvx_apply_form *const form = f_form->get_form(); form && f_layer_id < 0) {
        QString title = QString::fromStdWString(form->GetCaption()).trimmed();
        while (title.endsWith(':'))
            title.chop(1);
        form->SetCaption(title.toStdWString());
    }
}

void Tvx_layer_editor::close()
{
    // The handle is forgotten first: ending the window runs events that may ask about it.
    Tvx_lr2d_edit_form *const form = std::exchange(f_form, nullptr);
    f_layer_id = -1;
    if (form)
        f_layers->destroy_form(form);
}

bool Tvx_layer_editor::is_showing() const
{
    return f_form && vx_lr2d_edt_form_get_showing(f_form);
}

void Tvx_layer_editor::ensure_window()
{
    if (f_form)
        return;
    f_form = f_layers->create_form();
    vx_lr2d_edt_form_create_all(f_form);
    vx_lr2d_edt_form_set_callback(f_form, this,
                                  [](void *self) { static_cast<Tvx_layer_editor *>(self)->on_apply(); });
}

void Tvx_layer_editor::show_layer(int id)
{
    Ivx_layer *const layer = f_layers->find(id);
    TPageControl *const pages = pages_of(f_form);
    if (f_layer_id >= 0 && pages)
        f_at_first_tab = pages->GetActivePage() == first_tab(pages);
    f_layer_id = layer ? id : -1;
    f_layers->become_current();
    vx_lr2d_edt_form_set_lr2d(f_form, layer);
    if (char const *const kind = vx_lr2d_get_lr_type(layer); layer && f_kind != kind) {
        f_kind = kind;
        if (TTabSheet *const first = first_tab(pages);
            first && f_at_first_tab && f_layers->has_own_tab_first())
            pages->SetActivePage(first);
    }
    // The title follows the layer at an update only.
    update();
    f_unchanged.reset(vx_lr2d_clone(vx_lr2d_edt_form_get_lr2d_ptr(f_form)));
}

void Tvx_layer_editor::forget(int id)
{
    if (f_form && id == f_layer_id)
        show_layer(-1);
}

void Tvx_layer_editor::on_apply()
{
    Ivx_layer const *const copy = vx_lr2d_edt_form_get_lr2d_ptr(f_form);
    if (!copy || f_layer_id < 0)
        return;
    f_layers->become_current(); // the form is refreshed behind this
    f_unchanged.reset(vx_lr2d_clone(copy));
    if (f_layers->replace(f_layer_id, Tvx_edited_layers::layer_ptr(vx_lr2d_clone(copy))))
        emit applied(f_layer_id);
}
