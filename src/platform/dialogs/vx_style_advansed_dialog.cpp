#include "captions/attr_dialogs.h"

#include "platform/base/string_adp.h"
#include "platform/base/strutil.h"
#include "platform/base/text_codec.h"
#include "platform/basic/vx_res.h"
#include "platform/data/vx_file_tos4.h"
#include "platform/dialogs/detail/common_form.h"
#include "platform/dialogs/detail/filter_table.h"
#include "platform/dialogs/dlg_table_priv.h"
#include "platform/dialogs/vx_dlgs.h"
#include "platform/styles/vx_stl_mngr.h"
#include "platform/styles/vx_stl_mngr_life.h"
#include "platform/styles/vx_style_keys.h"
#include "platform/toolkit/controls/check_box.h"
#include "platform/toolkit/controls/combo_box.h"
#include "platform/toolkit/controls/label.h"
#include "platform/toolkit/controls/paint_box.h"
#include "platform/toolkit/controls/radio_group.h"
#include "platform/toolkit/core/screen.h"
#include "platform/toolkit/core/strings.h"
#include "platform/toolkit/graphics/canvas.h"
#include "platform/toolkit/graphics/font.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

namespace vx::dialogs {
namespace {
constexpr int c_width = 460;
constexpr int c_row = 26;
constexpr int c_zero_height = 112;
constexpr int c_direction_height = 70;
constexpr int c_dial = 190;

/// Zero positions in the order of the choice: north, east, south, west.
constexpr std::array c_zero_places{1, 0, 3, 2};

/// One thing that can be turned.
struct turned
{
    int caption;
    bool (*get)(void const *mngr);
    void (*set)(void *mngr, bool on);
};
constexpr turned c_point_symbols{c_adv_symbols, &vx_stl_mngr_get_rotate_flag, &vx_stl_mngr_set_rotate_flag};
constexpr turned c_line_symbols{c_adv_line_symbols, &vx_stl_mngr_get_rotate_flag,
                                &vx_stl_mngr_set_rotate_flag};
constexpr turned c_spots{c_adv_spots, &vx_stl_mngr_get_rotate_spot_flag, &vx_stl_mngr_set_rotate_spot_flag};
constexpr turned c_hatches{c_adv_hatches, &vx_stl_mngr_get_rotate_hatch_flag,
                           &vx_stl_mngr_set_rotate_hatch_flag};

/// What the styles of a manager have to turn; empty for those that do not turn.
std::vector<turned> turned_of(void const *mngr)
{
    char const *const type = vx_stl_mngr_get_style_type(mngr);
    std::string_view const key = type ? type : "";
    if (key == c_pnt_style)
        return {c_point_symbols};
    if (key == c_pln_style)
        return {c_line_symbols};
    if (key == c_pgn_style)
        return {c_spots, c_hatches};
    return {};
}

/// The data that a file name or connection string stands for; null for an empty one.
class named_data
{
public:
    explicit named_data(wchar_t const *source)
        : f_data(source && *source ? vx_attr_data_create(source) : nullptr)
    {
    }
    [[nodiscard]] Ivx_entity *get() const { return vx_attr_data_safe_upcast(f_data.get()); }

private:
    vx::owned<Ivx_attr_data, &vx_attr_data_release> f_data;
};

/// The numeric fields of a table, or the properties of a property file.
struct numeric_fields
{
    /// `field` is the one in force; it is named as the table writes it.
    numeric_fields(wchar_t const *source, std::wstring field) : chosen(std::move(field))
    {
        if (source && vx_tos4_is_file_w(source))
            read_properties(source);
        else
            read_table(source);
    }
    void read_properties(wchar_t const *source)
    {
        vx::owned<Ivx_tos4_file, &vx_tos4_file_close> const file(vx_tos4_file_open_w(source, true));
        is_known = file != nullptr;
        for (unsigned i = 0; i < vx_tos4_get_prop_count(file.get()); ++i) {
            std::wstring name;
            vx_tos4_get_prop_name_w(file.get(), i, Tvx_std_wstring_adapter(name));
            names.emplace_back(name);
        }
    }
    void read_table(wchar_t const *source)
    {
        named_data const data(source);
        filter_table const table(data.get());
        is_known = table.is_open();
        for (filter_table::field const &field : table.get_fields())
            if (field.numeric)
                names.emplace_back(field.name);
        if (filter_table::field const *const known = table.find(chosen))
            chosen = known->name;
    }

    std::vector<UnicodeString> names;
    std::wstring chosen;
    bool is_known = false;
};

class advanced_form final : public common_form
{
public:
    advanced_form(void const *mngr, std::vector<turned> const &what, numeric_fields const &fields);

    void take(void *mngr) const;

private:
    TRadioGroup *add_choice(int caption, int items, int chosen, int top, int height);
    void on_change(TObject *sender);
    void on_paint_dial(TObject *sender);
    void draw_needle(double degrees, bool zero, UnicodeString const &text);
    [[nodiscard]] bool is_on() const;
    /// Of a value, mathematically: from east, counter-clockwise.
    [[nodiscard]] double angle_of(double value) const;

    std::vector<turned> f_what;
    std::vector<TCheckBox *> f_checks;
    TComboBox *f_field;
    TRadioGroup *f_zero;
    TRadioGroup *f_direction;
    TPaintBox *f_dial;
};

int height_for(std::size_t checks)
{
    return common_form::c_edge + static_cast<int>(checks) * c_row + 20 + common_form::c_edit_height + c_row +
           c_zero_height + c_direction_height + 3 * common_form::c_gap + 26 + common_form::c_edge;
}

advanced_form::advanced_form(void const *mngr, std::vector<turned> const &what, numeric_fields const &fields)
    : common_form(c_adv_title, c_width, height_for(what.size())), f_what(what)
{
    int top = c_edge;
    for (turned const &t : what) {
        auto *const check = new TCheckBox(this);
        check->SetParent(this);
        check->SetCaption(vx_res_get_wstr(t.caption));
        check->SetBounds(c_edge, top, c_width - 2 * c_edge, 20);
        check->SetChecked(t.get(mngr));
        check->OnClick = make_closure<&advanced_form::on_change>(this);
        f_checks.push_back(check);
        top += c_row;
    }
    std::vector<UnicodeString> names = fields.names;
    UnicodeString const chosen = fields.chosen;
    if (!chosen.IsEmpty() && std::ranges::find(names, chosen) == names.end())
        names.push_back(chosen);
    f_field = new TComboBox(this);
    f_field->SetParent(this);
    // Without a table at hand the name has to be typed.
    f_field->SetStyle(fields.is_known ? csDropDownList : csDropDown);
    f_field->SetBounds(c_edge, top + 20, c_width - 2 * c_edge, c_edit_height);
    f_field->SetItemTexts(names);
    f_field->SetText(chosen);
    f_field->OnChange = make_closure<&advanced_form::on_change>(this);
    add_label(c_adv_field, c_edge, top, f_field);
    top += 20 + c_edit_height;
    if (!fields.is_known)
        add_label(c_adv_no_table, c_edge, top + 4, nullptr);
    top += c_row;
    auto const place = std::ranges::find(c_zero_places, vx_stl_mngr_get_rotate_start(mngr));
    f_zero =
        add_choice(c_adv_zero, c_adv_zero_places,
                   static_cast<int>(place - c_zero_places.begin()) % static_cast<int>(c_zero_places.size()),
                   top, c_zero_height);
    f_dial = new TPaintBox(this);
    f_dial->SetParent(this);
    f_dial->SetBounds(c_width - c_edge - c_dial, top, c_dial, c_dial);
    f_dial->OnPaint = make_closure<&advanced_form::on_paint_dial>(this);
    top += c_zero_height + c_gap;
    f_direction = add_choice(c_adv_direction, c_adv_directions, vx_stl_mngr_get_rotate_dir(mngr) != 0 ? 0 : 1,
                             top, c_direction_height);
    add_buttons();
    f_zero->OnClick = f_direction->OnClick = make_closure<&advanced_form::on_change>(this);
    on_change(nullptr);
}

TRadioGroup *advanced_form::add_choice(int caption, int items, int chosen, int top, int height)
{
    auto *const group = new TRadioGroup(this);
    group->SetParent(this);
    group->SetCaption(vx_res_get_wstr(caption));
    group->SetBounds(c_edge, top, c_width - c_dial - 3 * c_edge, height);
    for (auto &item : strutil::split_any(std::wstring(vx_res_get_wstr(items)), L"\n"))
        group->GetItems()->Add(std::move(item));
    group->SetItemIndex(chosen);
    return group;
}

bool advanced_form::is_on() const
{
    return std::ranges::any_of(f_checks, &TCheckBox::GetChecked);
}

void advanced_form::on_change(TObject * /*sender*/)
{
    bool const on = is_on();
    f_field->SetEnabled(on);
    f_zero->SetEnabled(on);
    f_direction->SetEnabled(on);
    set_ok_enabled(!on || !f_field->GetText().IsEmpty());
    f_dial->Invalidate();
}

double advanced_form::angle_of(double value) const
{
    int const start = c_zero_places[static_cast<std::size_t>(std::max(f_zero->GetItemIndex(), 0))];
    return start * 90.0 + (f_direction->GetItemIndex() == 0 ? -value : value);
}

void advanced_form::on_paint_dial(TObject * /*sender*/)
{
    auto *const canvas = f_dial->GetCanvas();
    canvas->GetBrush()->SetStyle(bsClear);
    canvas->GetPen()->SetColor(clBtnShadow);
    canvas->GetPen()->SetWidth(1);
    constexpr int rim = 34;
    canvas->Ellipse(rim, rim, c_dial - rim, c_dial - rim);
    for (double const value : {90.0, 45.0, 0.0})
        draw_needle(angle_of(value), value == 0, std::to_wstring(static_cast<int>(value)) + L"\u00b0");
    canvas->GetBrush()->SetStyle(bsSolid);
}

void advanced_form::draw_needle(double degrees, bool zero, UnicodeString const &text)
{
    auto *const canvas = f_dial->GetCanvas();
    auto const at = [&](double length, double turn) {
        double const a = (degrees + turn) * std::numbers::pi / 180;
        return TPoint{static_cast<int>(std::lround(c_dial / 2.0 + length * std::cos(a))),
                      static_cast<int>(std::lround(c_dial / 2.0 - length * std::sin(a)))};
    };
    TColor const color = !is_on() ? clGrayText : zero ? clHighlight : clWindowText;
    canvas->GetPen()->SetColor(color);
    canvas->GetPen()->SetWidth(zero ? 3 : 1);
    TPoint const tip = at(58, 0);
    canvas->MoveTo(c_dial / 2, c_dial / 2);
    canvas->LineTo(tip.X, tip.Y);
    for (double const side : {-9.0, 9.0}) {
        TPoint const barb = at(46, side);
        canvas->MoveTo(tip.X, tip.Y);
        canvas->LineTo(barb.X, barb.Y);
    }
    canvas->GetFont()->SetColor(color);
    auto const size = canvas->TextExtent(text);
    TPoint const middle = at(77, 0);
    canvas->TextOut(middle.X - size.cx / 2, middle.Y - size.cy / 2, text);
}

void advanced_form::take(void *mngr) const
{
    for (std::size_t i = 0; i < f_what.size(); ++i)
        f_what[i].set(mngr, f_checks[i]->GetChecked());
    vx_stl_mngr_set_rotate_prop_name(mngr, vx::text::to_bytes(f_field->GetText().str()).c_str());
    vx_stl_mngr_set_rotate_start(
        mngr, c_zero_places[static_cast<std::size_t>(std::max(f_zero->GetItemIndex(), 0))]);
    vx_stl_mngr_set_rotate_dir(mngr, f_direction->GetItemIndex() == 0 ? 1 : 0);
}
} // namespace
} // namespace vx::dialogs

bool vx_style_advansed_setting_dialog(void *mngr, wchar_t const *file_name)
{
    using namespace vx::dialogs;
    auto const what = turned_of(mngr);
    if (what.empty())
        return false;
    if (auto const &own = table(); own.style_advanced)
        return own.style_advanced(own.user, owner_window(nullptr), mngr, file_name ? file_name : L"");
    std::wstring field;
    vx_stl_mngr_get_rotate_prop_name_w(mngr, Tvx_std_wstring_adapter(field));
    std::optional<numeric_fields> fields;
    {
        vx_wait_cursor const waiting;
        fields.emplace(file_name, std::move(field));
    }
    advanced_form form(mngr, what, *fields);
    auto const life = vx_stl_mngr_life(mngr);
    if (!form.run(nullptr, 0, 0) || life.expired())
        return false;
    form.take(mngr);
    return true;
}
