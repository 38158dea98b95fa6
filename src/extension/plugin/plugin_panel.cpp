// Panels of controls for native plug-ins in plain C.
#include "controls/forms/edits.h"
#include "controls/forms/event_off.h"
#include "controls/forms/panels.h"
#include "controls/numeric/vcl_dbl_edit.h"
#include "extension/plugin/plugin_text_priv.h"
#include "extension/plugin/vxk_plugin.h"

#include "platform/toolkit/controls/button.h"
#include "platform/toolkit/controls/check_box.h"
#include "platform/toolkit/controls/combo_box.h"
#include "platform/toolkit/controls/scroll_box.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <set>
#include <utility>
#include <vector>

namespace {
constexpr int c_margin = 10;
constexpr int c_gap = 6;
constexpr int c_widest_entry = 320;
constexpr int c_least_button = 75;
constexpr int c_frame = 26; // what a box or a button takes beside its text

/// What plug-ins hold may end with its window: handles are known by this list, and those that are not in it
/// are void.
template <class T>
std::set<T const *> &living()
{
    static auto &all = *new std::set<T const *>;
    return all;
}

template <class T>
bool lives(T const *handle)
{
    return living<T>().contains(handle);
}
} // namespace

struct vxk_control
{
    vxk_control(vxk_event event, void *data) : f_event(event), f_data(data)
    {
        living<vxk_control>().insert(this);
    }
    vxk_control(vxk_control const &) = delete;
    vxk_control &operator=(vxk_control const &) = delete;
    ~vxk_control() { living<vxk_control>().erase(this); }

    void on_event(TObject * /*sender*/)
    {
        // An edit of a number tells of each entry that is done, the same again too.
        if (number && std::exchange(f_last_number, number->get_value()) == number->get_value())
            return;
        if (f_event && !f_quiet)
            f_event(f_data, this);
    }
    /// Runs `act` with nothing told.
    template <class F>
    void set(F const &act)
    {
        f_quiet = true;
        act();
        f_quiet = false;
        if (number)
            f_last_number = number->get_value();
    }

    TLabel *label = nullptr; ///< the caption before the control, where it has none of its own
    TControl *control = nullptr;
    TEdit *edit = nullptr; ///< these are the control as what it is, the others null
    Tvx_vcl_dbl_edit *number = nullptr;
    TCheckBox *check = nullptr;
    TComboBox *choice = nullptr;
    TButton *button = nullptr;
    TLabel *text = nullptr;
    bool visible = true;

private:
    vxk_event f_event;
    void *f_data;
    double f_last_number = 0;
    bool f_quiet = false;
};

struct vxk_panel : public Tvx_panel
{
    vxk_panel() : Tvx_panel(nullptr)
    {
        living<vxk_panel>().insert(this);
        SetAlign(alClient);
        f_box = new TScrollBox(this);
        f_box->SetBorderStyle(bsNone);
        f_box->SetParent(this);
        f_box->SetAlign(alClient);
    }
    vxk_panel(vxk_panel const &) = delete;
    vxk_panel &operator=(vxk_panel const &) = delete;
    ~vxk_panel() override { living<vxk_panel>().erase(this); }

    template <class Control>
    vxk_control *add(Control *vxk_control::*field, char const *caption, vxk_event event, void *data)
    {
        auto row = std::make_unique<vxk_control>(event, data);
        auto *const control = new Control(this);
        row.get()->*field = control;
        row->control = control;
        auto const text = vx::plugin::text_of(caption);
        if constexpr (std::is_base_of_v<TCustomEdit, Control> ||
                      std::is_base_of_v<TCustomComboBox, Control>) {
            row->label = new TLabel(this);
            row->label->SetCaption(text);
            row->label->SetParent(f_box);
            control->SetParent(f_box);
            row->label->SetFocusControl(control);
        } else {
            control->SetParent(f_box);
            control->SetCaption(text);
        }
        f_rows.push_back(std::move(row));
        return f_rows.back().get();
    }

    void place()
    {
        if (f_placing)
            return;
        f_placing = true;
        // A scroll bar that comes takes room from the controls.
        for (int i = 0; i < 2; ++i) {
            int const width = f_box->GetClientWidth();
            place_in(width);
            if (f_box->GetClientWidth() == width)
                break;
        }
        f_placing = false;
    }

    void set_enabled(bool enabled)
    {
        for (auto const &row : f_rows) {
            row->control->SetEnabled(enabled);
            if (row->label)
                row->label->SetEnabled(enabled);
        }
    }

protected:
    void Resize() override
    {
        Tvx_panel::Resize();
        place();
    }

private:
    void place_in(int width)
    {
        int captions = 0;
        for (auto const &row : f_rows)
            if (row->label && row->visible)
                captions = std::max(captions, row->label->GetWidth() + 2 * c_gap);
        int const room = std::max(0, width - 2 * c_margin);
        captions = std::min(captions, room / 2);
        int top = c_margin - f_box->GetVertPosition();
        for (auto const &row : f_rows) {
            if (!row->visible)
                continue;
            auto *const control = row->control;
            int height = control->GetHeight();
            if (row->label) {
                int const entry = std::min(room - captions, c_widest_entry);
                control->SetBounds(c_margin + captions, top, entry, height);
                row->label->SetLeft(c_margin);
                row->label->SetTop(top + (height - row->label->GetHeight()) / 2);
            } else if (row->button || row->check) {
                // As wide as it can be clicked.
                int const least = row->button ? c_least_button : 0;
                control->SetBounds(c_margin, top, std::min(room, std::max(least, text_width(*control))),
                                   height);
            } else {
                control->SetBounds(c_margin, top, room, height);
                height = control->GetHeight(); // texts break into lines
            }
            top += height + c_gap;
        }
    }

    int text_width(TControl const &control)
    {
        TLabel measure(nullptr);
        measure.SetVisible(false);
        measure.SetParent(this);
        measure.SetCaption(control.GetCaption());
        return measure.GetWidth() + c_frame;
    }

    TScrollBox *f_box = nullptr;
    std::vector<std::unique_ptr<vxk_control>> f_rows;
    bool f_placing = false;
};

namespace {
/// The new control, placed; null without a panel.
template <class Control, class Make>
vxk_control *add(vxk_panel *panel, Control *vxk_control::*field, char const *caption, vxk_event event,
                 void *data, Make const &make)
{
    if (!lives(panel))
        return nullptr;
    auto *const row = panel->add(field, caption, event, data);
    make(*row, *(row->*field));
    panel->place();
    return row;
}

/// After a text that takes another width or height.
void place_again(vxk_control const &row)
{
    for (auto *parent = row.control->GetParent(); parent; parent = parent->GetParent())
        if (auto *const panel = dynamic_cast<vxk_panel *>(parent))
            return panel->place();
}
} // namespace

vxk_panel *vxk_panel_create(void)
{
    return new vxk_panel;
}

void vxk_panel_destroy(vxk_panel *panel)
{
    if (lives(panel))
        delete panel;
}

void vxk_panel_set_parent(vxk_panel *panel, vxk_window window)
{
    if (!lives(panel))
        return;
    panel->SetParent(FindControl(static_cast<HWND>(window)));
    panel->place();
}

void vxk_panel_set_enabled(vxk_panel *panel, bool enabled)
{
    if (lives(panel))
        panel->set_enabled(enabled);
}

vxk_control *vxk_panel_add_text(vxk_panel *panel, char const *text)
{
    return add(panel, &vxk_control::text, text, nullptr, nullptr, [](vxk_control & /*row*/, TLabel &label) {
        label.SetShowAccelChar(false);
        label.SetWordWrap(true);
    });
}

vxk_control *vxk_panel_add_edit(vxk_panel *panel, char const *caption, vxk_event changed, void *data)
{
    return add(panel, &vxk_control::edit, caption, changed, data, [](vxk_control &row, TEdit &edit) {
        edit.OnChange = make_closure<&vxk_control::on_event>(&row);
    });
}

vxk_control *vxk_panel_add_number(vxk_panel *panel, char const *caption, double min, double max, bool whole,
                                  vxk_event changed, void *data)
{
    return add(
        panel, &vxk_control::number, caption, changed, data, [&](vxk_control &row, Tvx_vcl_dbl_edit &edit) {
            edit.set_min(min);
            edit.set_use_min(std::isfinite(min));
            edit.set_max(max);
            edit.set_use_max(std::isfinite(max));
            edit.set_precision(whole ? 0 : 2);
            row.set([&] {
                edit.set_value(std::isfinite(min) && min > 0 ? min : std::isfinite(max) && max < 0 ? max : 0);
            });
            edit.on_change = make_closure<&vxk_control::on_event>(&row);
        });
}

vxk_control *vxk_panel_add_check(vxk_panel *panel, char const *caption, vxk_event changed, void *data)
{
    return add(panel, &vxk_control::check, caption, changed, data, [](vxk_control &row, TCheckBox &check) {
        check.OnClick = make_closure<&vxk_control::on_event>(&row);
    });
}

vxk_control *vxk_panel_add_choice(vxk_panel *panel, char const *caption, vxk_event changed, void *data)
{
    return add(panel, &vxk_control::choice, caption, changed, data, [](vxk_control &row, TComboBox &choice) {
        choice.SetStyle(csDropDownList);
        choice.OnSelect = make_closure<&vxk_control::on_event>(&row);
    });
}

vxk_control *vxk_panel_add_button(vxk_panel *panel, char const *caption, vxk_event clicked, void *data)
{
    return add(panel, &vxk_control::button, caption, clicked, data, [](vxk_control &row, TButton &button) {
        button.OnClick = make_closure<&vxk_control::on_event>(&row);
    });
}

void vxk_control_set_text(vxk_control *control, char const *text)
{
    if (!lives(control))
        return;
    control->set([&] { control->control->SetText(vx::plugin::text_of(text)); });
    if (!control->label)
        place_again(*control);
}

std::size_t vxk_control_get_text(vxk_control *control, char *buffer, std::size_t size)
{
    auto const text = lives(control) ? control->control->GetText().to_utf8() : std::string();
    return vx::plugin::hand_out(std::string_view(text), buffer, size);
}

void vxk_control_set_number(vxk_control *control, double value)
{
    if (lives(control) && control->number)
        control->set([&] { control->number->set_value(value); });
}

double vxk_control_get_number(vxk_control *control)
{
    return lives(control) && control->number ? control->number->get_value() : 0;
}

void vxk_control_set_checked(vxk_control *control, bool checked)
{
    if (lives(control) && control->check)
        control->set([&] { control->check->SetChecked(checked); });
}

bool vxk_control_get_checked(vxk_control *control)
{
    return lives(control) && control->check && control->check->GetChecked();
}

void vxk_control_set_items(vxk_control *control, char const *const *items, int count)
{
    if (!lives(control) || !control->choice)
        return;
    std::vector<UnicodeString> texts;
    for (int i = 0; items && i < count; ++i)
        texts.emplace_back(vx::plugin::text_of(items[i]));
    control->set([&] { control->choice->SetItemTexts(texts); });
}

void vxk_control_set_index(vxk_control *control, int index)
{
    if (lives(control) && control->choice)
        control->set([&] { control->choice->SetItemIndex(index); });
}

int vxk_control_get_index(vxk_control *control)
{
    return lives(control) && control->choice ? control->choice->GetItemIndex() : -1;
}

void vxk_control_set_hint(vxk_control *control, char const *text)
{
    if (!lives(control))
        return;
    control->control->SetHint(vx::plugin::text_of(text));
    control->control->SetShowHint(true);
}

void vxk_control_set_enabled(vxk_control *control, bool enabled)
{
    if (!lives(control))
        return;
    control->control->SetEnabled(enabled);
    if (control->label)
        control->label->SetEnabled(enabled);
}

void vxk_control_set_visible(vxk_control *control, bool visible)
{
    if (!lives(control))
        return;
    control->visible = visible;
    control->control->SetVisible(visible);
    if (control->label)
        control->label->SetVisible(visible);
    place_again(*control);
}
