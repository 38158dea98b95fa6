#include "layer_edit/form/lr2d_edit_form.h"

#include "captions/layer_edit.h"
#include "controls/forms/apply_form.h"
#include "controls/forms/dock_grip.h"
#include "layer_edit/page_set/lr2d_edit.h"

#include "platform/base/flag_scope.h"
#include "platform/base/string_adp.h"
#include "platform/basic/vx_res.h"
#include "platform/layers/vx_lr2d.h"
#include "platform/toolkit/core/new_on.h"
#include "platform/toolkit/core/screen.h"

#include <algorithm>
#include <utility>

namespace {
/// Help number of the edit form.
constexpr int c_help_edit_form = 23;
/// Size of an own form at its first showing: room for a style editor without scrolling.
constexpr int c_form_width = 480;
constexpr int c_form_height = 600;
/// What the title bar takes of the screen.
constexpr int c_title_room = 40;

/// `format` with its first "%s" replaced by `name` and "%%" by "%". Other marks stay as they are: the format
/// is a text of the catalogue, the name one of the user.
std::wstring format_name(std::wstring const &format, std::wstring const &name)
{
    std::wstring result;
    bool placed = false;
    for (std::size_t i = 0; i < format.size(); ++i) {
        wchar_t const next = format[i] == L'%' && i + 1 < format.size() ? format[i + 1] : L'\0';
        if (next == L's' && !placed) {
            result += name;
            placed = true;
            ++i;
            continue;
        }
        result += format[i];
        if (next == L'%')
            ++i;
    }
    return result;
}

/// A record's own window. Esc closes it where nothing in it takes the key; docked, it stays.
class edit_window final : public Tvx_apply_and_leave_form
{
public:
    using Tvx_apply_and_leave_form::Tvx_apply_and_leave_form;

protected:
    bool DialogKey(Word key, TShiftState shift) override
    {
        if (Tvx_apply_and_leave_form::DialogKey(key, shift))
            return true;
        if (key != VK_ESCAPE || shift.Contains(ssCtrl) || shift.Contains(ssAlt) || GetHostDockSite())
            return false;
        Close();
        return true;
    }
};
} // namespace

/// Clears the record's pointers when form or page set end by other hands, such as the end of the window in
/// which the form is docked.
class Tvx_lr2d_edit_form::end_watch : public TComponent
{
public:
    explicit end_watch(Tvx_lr2d_edit_form &record) : TComponent(nullptr), f_record(record) {}

protected:
    void Notification(TComponent *component, TOperation operation) override
    {
        TComponent::Notification(component, operation);
        if (operation != opRemove)
            return;
        if (component == f_record.f_form)
            f_record.f_form = nullptr;
        if (component == f_record.f_lr2d_edit)
            f_record.f_lr2d_edit = nullptr;
    }

private:
    Tvx_lr2d_edit_form &f_record;
};

Tvx_lr2d_edit_form::Tvx_lr2d_edit_form() : Tvx_lr2d_edit_form(static_cast<TComponent *>(nullptr))
{
}

Tvx_lr2d_edit_form::Tvx_lr2d_edit_form(TComponent *owner) : f_watch(std::make_unique<end_watch>(*this))
{
    auto form = std::make_unique<edit_window>(owner);
    form->SetDragKind(dkDock);
    form->SetDragMode(dmAutomatic);
    // The frame of the window needs room too.
    TRect const area = Screen->GetWorkAreaRect();
    form->SetWidth(std::min(c_form_width, area.Width()));
    form->SetHeight(std::min(c_form_height, area.Height() - c_title_room));
    auto *grip = vx_new_on<Tvx_dock_grip>(form.get(), form.get());
    grip->SetAlign(alTop);
    take_form(form.get());
    f_owns_form = true;
    form.release();
}

Tvx_lr2d_edit_form::Tvx_lr2d_edit_form(Tvx_apply_form *form) : f_watch(std::make_unique<end_watch>(*this))
{
    if (form)
        take_form(form);
}

Tvx_lr2d_edit_form::~Tvx_lr2d_edit_form()
{
    delete std::exchange(f_lr2d_edit, nullptr);
    if (!f_form)
        return;
    if (f_owns_form) {
        delete std::exchange(f_form, nullptr);
        return;
    }
    // The host's form lives on and must not apply into a record that has gone.
    if (f_form->get_on_apply() == make_closure<&Tvx_lr2d_edit_form::on_self_apply>(this))
        f_form->set_on_apply({});
}

void Tvx_lr2d_edit_form::take_form(Tvx_apply_form *form)
{
    form->SetHelpContext(vx_help_mngr_find_help_id(c_help_edit_form));
    form->FreeNotification(f_watch.get());
    f_form = form;
}

Tvx_lr2d_edit *Tvx_lr2d_edit_form::create_lr2d_edit()
{
    return new Tvx_lr2d_edit(nullptr);
}

void Tvx_lr2d_edit_form::create()
{
    if (!f_form || f_lr2d_edit)
        return;
    f_form->SetDoubleBuffered(true);
    // A page that cannot be made leaves the record without a page set, not with half of one.
    std::unique_ptr<Tvx_lr2d_edit> page_set(create_lr2d_edit());
    f_lr2d_edit = page_set.get();
    f_lr2d_edit->FreeNotification(f_watch.get());
    f_lr2d_edit->SetParent(f_form);
    f_lr2d_edit->create();
    page_set.release();
    f_lr2d_edit->SetAlign(alClient);
    // The window opens in its pages, not on Apply.
    f_lr2d_edit->SetTabOrder(0);
    f_lr2d_edit->SetDoubleBuffered(true);
    f_lr2d_edit->on_changed = make_closure<&Tvx_lr2d_edit_form::on_lr2d_edit_changed>(this);
    f_form->set_on_apply(make_closure<&Tvx_lr2d_edit_form::on_self_apply>(this));
    f_form->get_cancel_btn()->SetVisible(false);
    load_res();
    update_controls();
}

void Tvx_lr2d_edit_form::load_res()
{
    if (f_form)
        f_form->load_res();
    f_caption = vx_res_get_wstr(c_caption_edit_form_title);
    if (f_lr2d_edit)
        f_lr2d_edit->load_res();
}

void Tvx_lr2d_edit_form::update_controls()
{
    if (f_in_apply)
        return;
    update_caption();
    if (f_lr2d_edit)
        f_lr2d_edit->update_controls();
}

void Tvx_lr2d_edit_form::update_caption()
{
    if (!f_form || !f_owns_form)
        return;
    std::wstring name;
    if (auto *layer = get_lr2d())
        vx_lr2d_get_wcaption(layer, Tvx_std_wstring_adapter(name));
    f_form->SetCaption(format_name(f_caption, name));
}

Ivx_layer *Tvx_lr2d_edit_form::get_lr2d() const
{
    return f_lr2d_edit ? f_lr2d_edit->get_lr2d() : nullptr;
}

void Tvx_lr2d_edit_form::set_lr2d(Ivx_layer *layer)
{
    if (f_lr2d_edit)
        f_lr2d_edit->set_lr2d(layer);
}

void Tvx_lr2d_edit_form::set_callback(void *data, void (*callback)(void *))
{
    f_callback_data = data;
    f_callback = callback;
}

void Tvx_lr2d_edit_form::on_self_apply(TObject * /*sender*/)
{
    if (f_lr2d_edit)
        f_lr2d_edit->save_current_scl();
    {
        vx::flag_scope const in_apply(f_in_apply);
        call_callback();
    }
    update_controls();
}

void Tvx_lr2d_edit_form::on_lr2d_edit_changed(TObject * /*sender*/)
{
    if (f_lr2d_edit && f_lr2d_edit->get_notify_host())
        call_callback();
}

void Tvx_lr2d_edit_form::call_callback()
{
    if (f_callback)
        f_callback(f_callback_data);
}

void Tvx_lr2d_edit_form::show()
{
    if (f_form)
        f_form->Show();
}

void Tvx_lr2d_edit_form::hide()
{
    if (f_form)
        f_form->Hide();
}

void Tvx_lr2d_edit_form::dock(TWinControl *site)
{
    if (f_form)
        f_form->ManualDock(site, nullptr, alBottom);
}

bool Tvx_lr2d_edit_form::showing() const
{
    return f_form && f_form->GetShowing();
}

void Tvx_lr2d_edit_form::show_apply(int x, int y)
{
    if (f_form)
        f_form->show_apply(x, y);
}

int Tvx_lr2d_edit_form::left() const
{
    return f_form ? f_form->GetLeft() : 0;
}

void Tvx_lr2d_edit_form::left(int value)
{
    if (f_form)
        f_form->SetLeft(value);
}

int Tvx_lr2d_edit_form::top() const
{
    return f_form ? f_form->GetTop() : 0;
}

void Tvx_lr2d_edit_form::top(int value)
{
    if (f_form)
        f_form->SetTop(value);
}

int Tvx_lr2d_edit_form::width() const
{
    return f_form ? f_form->GetWidth() : 0;
}

void Tvx_lr2d_edit_form::width(int value)
{
    if (f_form)
        f_form->SetWidth(value);
}

int Tvx_lr2d_edit_form::height() const
{
    return f_form ? f_form->GetHeight() : 0;
}

void Tvx_lr2d_edit_form::height(int value)
{
    if (f_form)
        f_form->SetHeight(value);
}
