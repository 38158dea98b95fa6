#include "host/map_layouts.h"

#include "host/captions.h"
#include "host/layout_elements.h"
#include "host/layout_window.h"
#include "host/map_canvas.h"
#include "host/map_window.h"

#include "platform/base/string_adp.h"
#include "platform/layers/vx_prj.h"

#include <QInputDialog>
#include <QMessageBox>
#include <QPushButton>

#include <algorithm>

namespace {
/// Of the data, left free at their edges.
constexpr double c_margin_part = 0.01;
} // namespace

Tvx_map_layouts::Tvx_map_layouts(Tvx_map_window &window)
    : f_map(window), f_sync(window.layers(), window.scene_name())
{
    clear();
    connect(&window.layers(), &Tvx_layer_list::picture_changed, this, &Tvx_map_layouts::refresh_windows);
    connect(&window.layers(), &Tvx_layer_list::layer_renamed, this, &Tvx_map_layouts::refresh_windows);
}

Tvx_map_layouts::~Tvx_map_layouts()
{
    // Their views look at the scenes, which end with this.
    for (Tvx_layout_window *const window : std::as_const(f_windows))
        delete window;
    f_windows.clear();
    clear();
}

Ivx_scns_2d *Tvx_map_layouts::list() const
{
    return vx_prj_get_layouts_data_ptr(vx_prj_get_instance());
}

int Tvx_map_layouts::count() const
{
    return vx_scns_2d_get_count(list());
}

QString Tvx_map_layouts::name_at(int index) const
{
    std::wstring name;
    if (Ivx_scn_2d const *const layout = vx_scns_2d_get_scn(list(), index))
        vx_scn_2d_get_wcaption(layout, Tvx_std_wstring_adapter(name));
    return QString::fromStdWString(name);
}

int Tvx_map_layouts::index_of(QString const &name) const
{
    for (int i = 0; i < count(); ++i)
        if (name_at(i) == name)
            return i;
    return -1;
}

int Tvx_map_layouts::index_of(Ivx_scn_2d const *layout) const
{
    for (int i = 0; i < count(); ++i)
        if (vx_scns_2d_get_scn(list(), i) == layout)
            return i;
    return -1;
}

Tvx_layout_window *Tvx_map_layouts::add()
{
    f_sync.refresh();
    QString const title = f_map.scene_name();
    QString name = title;
    for (int number = 2; index_of(name) >= 0; ++number)
        name = QStringLiteral("%1 %2").arg(title).arg(number);
    Ivx_scn_2d *const layout = vx_scns_2d_add(list(), name.toStdWString().c_str());
    vx_layout_make_page(layout, f_sync.scene(), shown_box(),
                        f_map.scene_path().isEmpty() && f_map.layers().count() > 0 ? f_map.layers().name_at(0)
                                                                                   : title);
    emit changed();
    return open(count() - 1);
}

Tvx_box_d2 Tvx_map_layouts::shown_box() const
{
    if (f_map.layers().count() == 0)
        return {};
    Tvx_box_d2 const view = f_map.canvas().view().box();
    // Land round the data is not worth the paper.
    Tvx_box_d2 data = f_map.layers().extent();
    double const x = data.width() * c_margin_part;
    double const y = data.height() * c_margin_part;
    data = {std::max(view.min_x, data.min_x - x), std::max(view.min_y, data.min_y - y),
            std::min(view.max_x, data.max_x + x), std::min(view.max_y, data.max_y + y)};
    return data.is_empty() || data.width() <= 0 || data.height() <= 0 ? view : data;
}

Tvx_layout_window *Tvx_map_layouts::open(int index)
{
    Ivx_scn_2d *const layout = vx_scns_2d_get_scn(list(), index);
    if (!layout)
        return nullptr;
    Tvx_layout_window *&window = f_windows[layout];
    if (!window) {
        window = new Tvx_layout_window(*this, layout);
        connect(window, &Tvx_layout_window::changed, this, &Tvx_map_layouts::changed);
        window->update_title();
    }
    window->show();
    window->raise();
    window->activateWindow();
    return window;
}

Tvx_layout_window *Tvx_map_layouts::window_at(int index) const
{
    return f_windows.value(vx_scns_2d_get_scn(list(), index));
}

void Tvx_map_layouts::rename(int index, QWidget *parent)
{
    Ivx_scn_2d *const layout = vx_scns_2d_get_scn(list(), index);
    bool given = false;
    QString const name =
        QInputDialog::getText(parent, vx_layout_caption(c_lay_rename_title),
                              vx_layout_caption(c_lay_rename_text), QLineEdit::Normal, name_at(index), &given)
            .trimmed();
    if (!given || name.isEmpty() || index_of(layout) < 0 || name == name_at(index_of(layout)))
        return;
    QString free = name;
    for (int number = 2; index_of(free) >= 0; ++number)
        free = QStringLiteral("%1 %2").arg(name).arg(number);
    vx_scn_2d_set_wcaption(layout, free.toStdWString().c_str());
    update_name();
    emit changed();
}

void Tvx_map_layouts::remove(int index, QWidget *parent)
{
    Ivx_scn_2d *const layout = vx_scns_2d_get_scn(list(), index);
    QMessageBox box(QMessageBox::Question, vx_host_caption(c_cap_application),
                    vx_layout_caption(c_lay_delete_question).arg(name_at(index)), QMessageBox::NoButton,
                    parent);
    box.setTextFormat(Qt::PlainText);
    QPushButton *const erase =
        box.addButton(vx_layout_caption(c_lay_delete_yes), QMessageBox::DestructiveRole);
    QPushButton *const cancel = box.addButton(vx_host_caption(c_cap_cancel), QMessageBox::RejectRole);
    erase->setObjectName(QStringLiteral("delete"));
    box.setDefaultButton(cancel);
    box.setEscapeButton(cancel);
    box.exec();
    if (box.clickedButton() != erase || index_of(layout) < 0)
        return;
    forget_window(layout);
    vx_scns_2d_erase(list(), index_of(layout));
    emit changed();
}

void Tvx_map_layouts::forget_window(Ivx_scn_2d *layout)
{
    if (Tvx_layout_window *const window = f_windows.take(layout)) {
        // It may be in the middle of drawing.
        window->detach();
        window->deleteLater();
    }
}

void Tvx_map_layouts::clear()
{
    while (count() > 0) {
        forget_window(vx_scns_2d_get_scn(list(), count() - 1));
        vx_scns_2d_erase(list(), count() - 1);
    }
    f_sync.forget_other_scenes();
}

void Tvx_map_layouts::take(Ivx_scns_2d const &loaded, Ivx_scns_2d const &other_scenes,
                           QString const &map_name)
{
    clear();
    if (!map_name.isEmpty())
        f_sync.set_name(map_name);
    vx_layouts_copy(loaded, *list());
    f_sync.take_other_scenes(other_scenes);
    update_name();
}

bool Tvx_map_layouts::may_lose_changes()
{
    for (Tvx_layout_window *const window : std::as_const(f_windows))
        if (!window->may_lose_changes())
            return false;
    return true;
}

void Tvx_map_layouts::update_name()
{
    std::vector<Tvx_layout_sync::renaming> const all = f_sync.set_name(f_map.scene_name());
    for (Tvx_layout_window *const window : std::as_const(f_windows)) {
        window->update_title();
        for (Tvx_layout_sync::renaming const &one : all)
            window->rename_scene(one.from, one.to);
        if (!all.empty())
            window->refresh();
    }
}

void Tvx_map_layouts::close_windows()
{
    for (Tvx_layout_window *const window : std::as_const(f_windows)) {
        window->end_editing();
        window->hide();
    }
}

void Tvx_map_layouts::refresh_windows()
{
    for (Tvx_layout_window *const window : std::as_const(f_windows))
        window->refresh();
}
