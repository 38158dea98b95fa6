#include "captions/attr_dialogs.h"

#include "platform/base/flag_scope.h"
#include "platform/base/string_adp.h"
#include "platform/base/strutil.h"
#include "platform/basic/vx_res.h"
#include "platform/dialogs/detail/common_form.h"
#include "platform/dialogs/detail/filter_table.h"
#include "platform/dialogs/dlg_table_priv.h"
#include "platform/dialogs/vx_dlgs.h"
#include "platform/toolkit/controls/bevel.h"
#include "platform/toolkit/controls/button.h"
#include "platform/toolkit/controls/check_box.h"
#include "platform/toolkit/controls/combo_box.h"
#include "platform/toolkit/controls/label.h"
#include "platform/toolkit/controls/panel.h"
#include "platform/toolkit/controls/scroll_box.h"
#include "platform/toolkit/core/screen.h"
#include "platform/toolkit/core/strings.h"
#include "platform/toolkit/core/timer.h"

#include <algorithm>
#include <array>
#include <vector>

namespace vx::dialogs {
namespace {
constexpr int c_width = 700;
constexpr int c_height = 420;
constexpr int c_line_height = 30;
constexpr int c_group_gap = 9; ///< above a condition that begins another alternative
constexpr int c_head_height = 18;
constexpr int c_list_height = 216;
constexpr int c_text_height = 36;
constexpr std::size_t c_most_lines = 100;
constexpr std::chrono::milliseconds c_counting_piece{15};

/// Left edges and widths of what stands in a line.
struct column
{
    int left, width;
};
constexpr column c_in_force{4, 20}, c_join{28, 66}, c_field{98, 158}, c_relation{260, 138}, c_value{402, 176},
    c_case{586, 40}, c_remove{626, 26};

/// In the order in which they are offered; the captions stand in the same order.
constexpr std::array c_relations{
    c_calc_filter_rel_equal,      c_calc_filter_rel_is_close,     c_calc_filter_rel_not_equal,
    c_calc_filter_rel_less,       c_calc_filter_rel_less_eq,      c_calc_filter_rel_greater,
    c_calc_filter_rel_greater_eq, c_calc_filter_rel_begins_with,  c_calc_filter_rel_ends_with,
    c_calc_filter_rel_contains,   c_calc_filter_rel_not_contains, c_calc_filter_rel_is_null,
    c_calc_filter_rel_not_null};

/// A condition as the filter holds it; `logic` joins it to the next one.
struct condition
{
    int in_force = 1;
    std::wstring field, relation = c_calc_filter_rel_equal, value, logic = c_calc_filter_logic_empty;
    int match_case = 1;

    [[nodiscard]] bool has_value() const
    {
        return relation != c_calc_filter_rel_is_null && relation != c_calc_filter_rel_not_null;
    }
};

std::vector<condition> read_conditions(void const *filter)
{
    std::vector<condition> conditions(vx_calc_filter_get_size(filter));
    for (unsigned i = 0; i < conditions.size(); ++i) {
        condition &c = conditions[i];
        Tvx_std_wstring_adapter field(c.field), relation(c.relation), value(c.value), logic(c.logic);
        vx_calc_filter_get(filter, i, &c.in_force, field, relation, value, logic, &c.match_case);
    }
    return conditions;
}

void write_conditions(void *filter, std::vector<condition> const &conditions)
{
    vx_calc_filter_clear(filter);
    for (condition const &c : conditions)
        vx_calc_filter_add(filter, c.in_force, c.field.c_str(), c.relation.c_str(), c.value.c_str(),
                           c.logic.c_str(), c.match_case);
}

/// A caption of several lines.
std::vector<UnicodeString> caption_lines(int caption)
{
    std::vector<UnicodeString> lines;
    for (auto &line : strutil::split_any(std::wstring(vx_res_get_wstr(caption)), L"\n"))
        lines.emplace_back(std::move(line));
    return lines;
}

class filter_form final : public common_form
{
public:
    filter_form(void const *filter, Ivx_entity *data);

    void take(void *filter) const { write_conditions(filter, f_conditions); }

private:
    /// The controls of one condition. Lines are made as they are needed and stay: which condition one shows
    /// is its number.
    struct line
    {
        TPanel *panel;
        TBevel *bevel;
        TCheckBox *in_force;
        TComboBox *join, *field, *relation, *value;
        TCheckBox *match_case;
        TButton *remove;
    };

    void add_line();
    void show_lines();
    void show_line(line &line, std::size_t number);
    void show_result();
    void changed();
    [[nodiscard]] UnicodeString note() const;
    [[nodiscard]] bool is_complete() const;
    [[nodiscard]] static std::size_t number_of(TObject *sender);
    [[nodiscard]] std::vector<UnicodeString> used(std::wstring condition::*text) const;

    void on_line_change(TObject *sender);
    void on_values(TObject *sender);
    void on_add(TObject *sender);
    void on_remove(TObject *sender);
    void on_timer(TObject *sender);

    filter_table f_table;
    match_counter f_counter{f_table};
    vx::owned<void, &vx_calc_filter_destroy> f_filter{vx_calc_filter_create()};
    std::vector<condition> f_conditions;
    std::vector<line> f_lines;
    std::vector<UnicodeString> f_fields;
    std::vector<UnicodeString> f_relation_texts = caption_lines(c_flt_relations);
    std::vector<UnicodeString> f_logic_texts = caption_lines(c_flt_logic);
    bool f_showing = false;
    TScrollBox *f_list;
    TButton *f_add;
    TLabel *f_text;
    TLabel *f_note;
    TLabel *f_count;
    TTimer *f_timer;
};

filter_form::filter_form(void const *filter, Ivx_entity *data)
    : common_form(c_flt_title, c_width, c_height), f_table(data), f_conditions(read_conditions(filter))
{
    for (filter_table::field const &field : f_table.get_fields())
        f_fields.emplace_back(field.name);
    if (f_conditions.empty())
        f_conditions.emplace_back().field = f_fields.empty() ? std::wstring() : f_fields.front().str();
    add_label(c_flt_field, c_edge + c_field.left + 2, c_edge, nullptr);
    add_label(c_flt_relation, c_edge + c_relation.left + 2, c_edge, nullptr);
    add_label(c_flt_value, c_edge + c_value.left + 2, c_edge, nullptr);
    f_list = new TScrollBox(this);
    f_list->SetParent(this);
    f_list->SetBounds(c_edge, c_edge + c_head_height, c_width - 2 * c_edge, c_list_height);
    f_list->SetAccessibleName(vx_res_get_wstr(c_flt_conditions));
    int top = c_edge + c_head_height + c_list_height + c_gap;
    f_add = new TButton(this);
    f_add->SetParent(this);
    f_add->SetCaption(vx_res_get_wstr(c_flt_add));
    f_add->SetBounds(c_edge, top, 180, 26);
    f_add->OnClick = make_closure<&filter_form::on_add>(this);
    auto const add_text = [&](int left, int at, int width, int height) {
        auto *const text = new TLabel(this);
        text->SetParent(this);
        text->SetAutoSize(false);
        text->SetShowAccelChar(false);
        text->SetWordWrap(true);
        text->SetBounds(left, at, width, height);
        return text;
    };
    f_count = add_text(c_edge + 180 + c_edge, top, c_width - 180 - 3 * c_edge, 26);
    f_count->SetLayout(tlCenter);
    f_count->SetAlignment(taRightJustify);
    top += 26 + c_gap;
    f_text = add_text(c_edge, top, c_width - 2 * c_edge, c_text_height);
    top += c_text_height + c_gap;
    f_note = add_text(c_edge, top, c_width - 4 * c_edge - 180, c_text_height);
    add_buttons();
    f_timer = new TTimer(this);
    f_timer->SetEnabled(false);
    f_timer->SetInterval(1);
    f_timer->OnTimer = make_closure<&filter_form::on_timer>(this);
    show_lines();
    changed();
}

void filter_form::add_line()
{
    auto const number = static_cast<TTag>(f_lines.size());
    line line{};
    line.panel = new TPanel(this);
    line.panel->SetParent(f_list);
    line.panel->SetBevelOuter(bvNone);
    line.panel->SetHeight(c_line_height);
    line.bevel = new TBevel(this);
    line.bevel->SetParent(f_list);
    line.bevel->SetShape(bsTopLine);
    auto const put = [&](auto *control, column at, int name) {
        control->SetParent(line.panel);
        control->SetBounds(at.left, (c_line_height - c_edit_height) / 2, at.width, c_edit_height);
        control->SetTag(number);
        control->SetAccessibleName(vx_res_get_wstr(name));
        return control;
    };
    line.in_force = put(new TCheckBox(this), c_in_force, c_flt_in_force);
    line.in_force->SetHint(vx_res_get_wstr(c_flt_in_force));
    line.in_force->SetShowHint(true);
    auto const changes = make_closure<&filter_form::on_line_change>(this);
    line.in_force->OnClick = changes;
    auto const put_box = [&](column at, int name, TComboBoxStyle style,
                             std::vector<UnicodeString> const &texts) {
        auto *const box = put(new TComboBox(this), at, name);
        box->SetStyle(style);
        box->SetAutoComplete(false);
        box->SetItemTexts(texts);
        box->OnChange = changes;
        return box;
    };
    line.join = put_box(c_join, c_flt_join, csDropDownList, f_logic_texts);
    // Without a table at hand names have to be typed.
    line.field = put_box(c_field, c_flt_field, f_fields.empty() ? csDropDown : csDropDownList,
                         f_fields.empty() ? used(&condition::field) : f_fields);
    line.relation = put_box(c_relation, c_flt_relation, csDropDownList, f_relation_texts);
    line.relation->SetDropDownCount(static_cast<int>(c_relations.size()));
    line.value = put_box(c_value, c_flt_value, csDropDown, {});
    line.value->SetDropDownCount(16);
    line.value->OnDropDown = make_closure<&filter_form::on_values>(this);
    line.match_case = put(new TCheckBox(this), c_case, c_flt_case_hint);
    line.match_case->SetCaption(vx_res_get_wstr(c_flt_case));
    line.match_case->SetHint(vx_res_get_wstr(c_flt_case_hint));
    line.match_case->SetShowHint(true);
    line.match_case->OnClick = changes;
    line.remove = put(new TButton(this), c_remove, c_flt_remove);
    line.remove->SetCaption(L"\u00d7");
    line.remove->SetHint(vx_res_get_wstr(c_flt_remove));
    line.remove->SetShowHint(true);
    line.remove->OnClick = make_closure<&filter_form::on_remove>(this);
    f_lines.push_back(line);
}

void filter_form::show_lines()
{
    vx::flag_scope const showing(f_showing);
    std::size_t const count = std::min(f_conditions.size(), c_most_lines);
    while (f_lines.size() < count)
        add_line();
    int const scrolled = f_list->GetVertPosition();
    int top = -scrolled;
    for (std::size_t i = 0; i < f_lines.size(); ++i) {
        line &line = f_lines[i];
        bool const shown = i < count;
        bool const begins = shown && i > 0 && f_conditions[i - 1].logic == c_calc_filter_logic_or;
        line.panel->SetVisible(shown);
        line.bevel->SetVisible(begins);
        if (!shown)
            continue;
        if (begins) {
            line.bevel->SetBounds(c_in_force.left, top + c_group_gap / 2, c_remove.left + c_remove.width, 2);
            top += c_group_gap;
        }
        line.panel->SetBounds(0, top, c_remove.left + c_remove.width + 4, c_line_height);
        top += c_line_height;
        show_line(line, i);
    }
}

void filter_form::show_line(line &line, std::size_t number)
{
    condition const &c = f_conditions[number];
    line.in_force->SetChecked(c.in_force != 0);
    line.join->SetVisible(number > 0);
    line.join->SetItemIndex(number > 0 && f_conditions[number - 1].logic == c_calc_filter_logic_or ? 1 : 0);
    if (!f_fields.empty()) {
        // A name that the table lacks stands behind its fields.
        auto *const names = line.field->GetItems();
        while (names->GetCount() > static_cast<int>(f_fields.size()))
            names->Delete(names->GetCount() - 1);
        filter_table::field const *const known = f_table.find(c.field);
        if (!known && !c.field.empty())
            names->Add(c.field);
        line.field->SetItemIndex(names->IndexOf(known ? known->name : c.field));
    } else if (line.field->GetText() != UnicodeString(c.field)) {
        line.field->SetText(c.field);
    }
    line.relation->SetItemIndex(static_cast<int>(
        std::ranges::find(c_relations, c.relation, [](wchar_t const *r) { return std::wstring(r); }) -
        c_relations.begin()));
    if (line.value->GetText() != UnicodeString(c.value))
        line.value->SetText(c.value);
    line.value->SetEnabled(c.has_value());
    line.match_case->SetChecked(c.match_case != 0);
    line.match_case->SetEnabled(c.has_value());
}

std::size_t filter_form::number_of(TObject *sender)
{
    return static_cast<std::size_t>(static_cast<TComponent *>(sender)->GetTag());
}

bool filter_form::is_complete() const
{
    return std::ranges::none_of(f_conditions, [](condition const &c) { return c.field.empty(); });
}

/// What the user should know, the most important first.
UnicodeString filter_form::note() const
{
    if (!f_table.is_open())
        return vx_res_get_wstr(c_flt_no_data);
    if (!is_complete())
        return vx_res_get_wstr(c_flt_choose_field);
    for (condition const &c : f_conditions) {
        filter_table::field const *const field = f_table.find(c.field);
        if (!field)
            return vx_res_format_w(c_flt_no_field, c.field);
        bool const by_number =
            c.relation == c_calc_filter_rel_equal || c.relation == c_calc_filter_rel_is_close ||
            c.relation == c_calc_filter_rel_not_equal || c.relation == c_calc_filter_rel_less ||
            c.relation == c_calc_filter_rel_less_eq || c.relation == c_calc_filter_rel_greater ||
            c.relation == c_calc_filter_rel_greater_eq;
        wchar_t *end = nullptr;
        strutil::to_double(c.value.c_str(), &end);
        if (field->numeric && by_number && !c.value.empty() && *end != 0)
            return vx_res_format_w(c_flt_no_number, c.value);
    }
    if (f_conditions.size() > c_most_lines)
        return vx_res_format_w(c_flt_more, std::to_wstring(f_conditions.size() - c_most_lines));
    return {};
}

/// Counting begins anew with each change.
void filter_form::changed()
{
    write_conditions(f_filter.get(), f_conditions);
    std::wstring text;
    vx_calc_filter_pretty_print(f_filter.get(), Tvx_std_wstring_adapter(text));
    f_text->SetText(text);
    f_text->SetHint(text);
    f_text->SetShowHint(true);
    f_note->SetText(note());
    f_add->SetEnabled(f_conditions.size() < c_most_lines);
    set_ok_enabled(is_complete());
    f_counter.start(f_filter.get());
    f_timer->SetEnabled(f_table.is_open());
    show_result();
}

void filter_form::show_result()
{
    if (!f_table.is_open())
        return f_count->SetText({});
    if (std::ranges::none_of(f_conditions, [](condition const &c) { return c.in_force != 0; }))
        return f_count->SetText(vx_res_get_wstr(c_flt_nothing));
    auto const matches = std::to_wstring(f_counter.get_matches());
    if (f_timer->GetEnabled())
        f_count->SetText(vx_res_format_w(c_flt_counting, matches));
    else
        f_count->SetText(vx_res_format_w(c_flt_count, {matches, std::to_wstring(f_table.get_size())}));
}

void filter_form::on_timer(TObject * /*sender*/)
{
    if (f_counter.step(c_counting_piece))
        f_timer->SetEnabled(false);
    show_result();
}

void filter_form::on_line_change(TObject *sender)
{
    std::size_t const i = number_of(sender);
    if (f_showing || i >= f_conditions.size())
        return;
    condition &c = f_conditions[i];
    line const &line = f_lines[i];
    c.in_force = line.in_force->GetChecked() ? 1 : 0;
    if (sender == line.join && i > 0)
        f_conditions[i - 1].logic =
            line.join->GetItemIndex() == 1 ? c_calc_filter_logic_or : c_calc_filter_logic_and;
    if (sender == line.field)
        c.field = line.field->GetText().str();
    if (sender == line.relation)
        c.relation = c_relations[static_cast<std::size_t>(std::max(line.relation->GetItemIndex(), 0))];
    if (sender == line.value)
        c.value = line.value->GetText().str();
    c.match_case = line.match_case->GetChecked() ? 1 : 0;
    show_lines();
    changed();
}

/// The different texts of the conditions: what can be offered where there is no table.
std::vector<UnicodeString> filter_form::used(std::wstring condition::*text) const
{
    std::vector<UnicodeString> texts;
    for (condition const &c : f_conditions)
        if (!(c.*text).empty() && std::ranges::find(texts, UnicodeString(c.*text)) == texts.end())
            texts.emplace_back(c.*text);
    return texts;
}

void filter_form::on_values(TObject *sender)
{
    auto *const box = static_cast<TComboBox *>(sender);
    UnicodeString const typed = box->GetText();
    std::vector<UnicodeString> texts;
    {
        vx_wait_cursor const waiting;
        for (auto &text : f_table.values(f_conditions[number_of(sender)].field, typed.str()))
            texts.emplace_back(std::move(text));
    }
    if (!f_table.is_open())
        texts = used(&condition::value);
    if (texts.size() >= filter_table::c_most_values)
        f_note->SetText(vx_res_format_w(c_flt_values, std::to_wstring(texts.size())));
    vx::flag_scope const showing(f_showing);
    box->SetItemTexts(texts);
    box->SetText(typed);
}

void filter_form::on_add(TObject * /*sender*/)
{
    condition fresh;
    if (!f_conditions.empty()) {
        fresh.field = f_conditions.back().field;
        f_conditions.back().logic = c_calc_filter_logic_and;
    } else if (!f_fields.empty()) {
        fresh.field = f_fields.front().str();
    }
    f_conditions.push_back(std::move(fresh));
    show_lines();
    changed();
    line const &line = f_lines[f_conditions.size() - 1];
    f_list->ScrollInView(line.panel);
    line.field->SetFocus();
}

void filter_form::on_remove(TObject *sender)
{
    std::size_t const i = number_of(sender);
    if (i >= f_conditions.size())
        return;
    // What joined it to the one before goes with it.
    if (i > 0)
        f_conditions[i - 1].logic = f_conditions[i].logic;
    f_conditions.erase(f_conditions.begin() + static_cast<std::ptrdiff_t>(i));
    if (f_conditions.empty())
        f_add->SetFocus();
    else if (i == f_conditions.size())
        f_lines[i - 1].remove->SetFocus();
    show_lines();
    changed();
}
} // namespace
} // namespace vx::dialogs

bool vx_attr_filter_dialog(void *filter, Ivx_entity *data)
{
    if (!filter)
        return false;
    if (auto const &table = vx::dialogs::table(); table.attr_filter)
        return table.attr_filter(table.user, vx::dialogs::owner_window(nullptr), filter, data);
    vx::dialogs::filter_form form(filter, data);
    if (!form.run(nullptr, 0, 0))
        return false;
    form.take(filter);
    return true;
}
