#include "shape_fixture.h"
#include "support/tab_round.h"

#include "platform/toolkit/core/strings.h"

// From the host's call to Apply, by mouse and keyboard.

namespace {
enum : int
{
    mark,
    text,
    caption,
    visible,
    style,
};
constexpr Tvx_color c_red = vx_clr_init_rgb(230, 20, 30);
constexpr Tvx_color c_blue = vx_clr_init_rgb(20, 30, 230);
constexpr Tvx_color c_nothing = vx_clr_init_rgb(255, 255, 255);

struct example
{
    wchar_t const *file;
    wchar_t const *field;
    unsigned one, another; ///< objects that stand alone on the map
};
void PrintTo(example const &e, std::ostream *out)
{
    *out << std::string(e.file, e.file + wcslen(e.file));
}

/// The colour of a thin line is mixed with what lies behind it.
bool is_near(Tvx_color a, Tvx_color b)
{
    auto const apart = [](int x, int y) { return std::abs(x - y) > 100; };
    return !apart(a.r, b.r) && !apart(a.g, b.g) && !apart(a.b, b.b);
}

class style_tab : public shape_fixture, public testing::WithParamInterface<example>
{
protected:
    void SetUp() override { open(GetParam().file); }
    /// The object of a value that stands alone on the map, whatever is drawn beside it.
    [[nodiscard]] unsigned object_of(std::wstring const &value)
    {
        auto const all = cells(GetParam().field);
        auto const found = std::ranges::find(all, value);
        EXPECT_NE(found, all.end());
        return static_cast<unsigned>(found - all.begin());
    }
    [[nodiscard]] std::string marks(void *scale)
    {
        std::string result;
        for (unsigned i = 0; i < 8; ++i)
            result += vx_val_scale_get_marked(scale, i) ? 'x' : '.';
        return result;
    }
};
} // namespace

TEST_P(style_tab, unique_values_from_the_choice_of_a_field_to_the_map)
{
    map const before(layer.get());
    ASSERT_TRUE(choose_mode(1));
    ASSERT_TRUE(choose_field(GetParam().field));
    void *const scale = scale_of(copy());
    // Every value once, in order, and as caption too.
    auto all = cells(GetParam().field);
    std::set<std::wstring> const values(all.begin(), all.end());
    ASSERT_EQ(vx_val_scale_get_size(scale), values.size());
    unsigned entry = 0;
    for (std::wstring const &value : values) {
        EXPECT_EQ(text_at(scale, entry), value);
        EXPECT_EQ(caption_at(scale, entry++), value);
    }
    auto const value = [&](unsigned i) { return *std::next(values.begin(), i); };

    // A caption, in its cell.
    ASSERT_TRUE(click(val_edit(), caption, 2));
    ASSERT_TRUE(input::press(VK_F2));
    ASSERT_TRUE(input::press('A', {ssCtrl}));
    ASSERT_TRUE(input::type(L"Второй\n"));
    EXPECT_EQ(caption_at(scale, 1), L"Второй");
    EXPECT_EQ(text_at(scale, 1), value(1));

    ASSERT_TRUE(click(val_edit(), mark, 1));
    ASSERT_TRUE(click(val_edit(), mark, 3, {ssShift}));
    ASSERT_TRUE(click(val_edit(), mark, 2, {ssCtrl}));
    EXPECT_EQ(marks(scale), "x.x.....");
    ASSERT_TRUE(click(val_edit(), visible, 4));
    ASSERT_TRUE(change_color(c_red, [&] { return click(val_edit(), style, 5); }));
    ASSERT_TRUE(input::drag_cell(val_edit()->get_grid(), mark, 5, mark, 7));
    EXPECT_EQ(text_at(scale, 6), value(4));
    // The marked ones go, and a new one comes in before the current row.
    ASSERT_TRUE(input::click(val_edit()->get_del_btn()));
    EXPECT_EQ(text_at(scale, 0), value(1));
    EXPECT_EQ(text_at(scale, 4), value(4));
    ASSERT_TRUE(click(val_edit(), text, 1));
    ASSERT_TRUE(input::click(val_edit()->get_ins_btn()));
    EXPECT_EQ(text_at(scale, 0), L"");
    EXPECT_EQ(vx_val_scale_get_size(scale), values.size() - 1);
    // What is not listed is drawn by the other row.
    auto *const other = val_edit()->get_other_panel();
    if (!vx_scale_prm_get_visible(vx_val_scale_get_other_prm_ptr(scale))) {
        ASSERT_TRUE(input::click(other->get_use_panel(), 8, 10));
    }
    ASSERT_TRUE(change_color(c_blue, [&] { return input::click(other->get_style_btn()); }));

    // Until Apply the host has what it had.
    Tvx_pnt_d2 const changed = place_of(object_of(value(4))), hidden = place_of(object_of(value(3))),
                     unlisted = place_of(object_of(value(0)));
    map const untouched(layer.get());
    for (auto const place : {changed, hidden, unlisted})
        EXPECT_EQ(untouched.at(place), before.at(place));
    EXPECT_EQ(applied, 0);
    apply();
    EXPECT_EQ(applied, 1);
    map const now(layer.get());
    EXPECT_TRUE(is_near(now.at(changed), c_red));
    EXPECT_EQ(now.at(hidden), c_nothing);
    EXPECT_TRUE(is_near(now.at(unlisted), c_blue));
    // A new window shows what was applied.
    edit();
    EXPECT_EQ(val_edit()->get_prp_scale()->get_combo_box()->GetText(), GetParam().field);
    EXPECT_EQ(caption_at(val_edit()->get_grid()->get_scale(), 1), L"Второй");
}

TEST_P(style_tab, a_rule_made_in_its_dialog_draws_the_map)
{
    auto const all = cells(GetParam().field);
    unsigned const one = GetParam().one, another = GetParam().another;
    std::wstring const wanted = all[one];
    ASSERT_TRUE(choose_mode(3));
    ASSERT_FALSE(val_edit()->GetShowing());
    auto const make = [&](wchar_t const *relation, UnicodeString const &value) {
        input::on_next_modal([=](input::modal_window const &window) {
            using dialog_reader::find;
            EXPECT_TRUE(input::choose_item(find<TComboBox>(window.form(), L"Field"), GetParam().field));
            EXPECT_TRUE(input::choose_item(find<TComboBox>(window.form(), L"Relation"), relation));
            EXPECT_TRUE(input::choose_item(find<TComboBox>(window.form(), L"Value"), value));
            window.press_button(L"OK");
        });
    };
    make(L"equals", wanted);
    ASSERT_TRUE(input::click(rule_edit()->get_ins_btn()));
    void *const scale = scale_of(copy(), true);
    ASSERT_EQ(vx_val_scale_get_size(scale), 1u);
    EXPECT_EQ(text_at(scale, 0), L"\"" + std::wstring(GetParam().field) + L"\" EQUAL \"" + wanted + L"\"");
    EXPECT_TRUE(caption_at(scale, 0).starts_with(std::wstring(GetParam().field) + L" = "));
    ASSERT_TRUE(change_color(c_red, [&] { return click(rule_edit(), style, 1); }));
    // Another rule is put before it and given up; the first is edited by a double click.
    input::on_next_modal([](input::modal_window const &window) { window.reject(); });
    ASSERT_TRUE(input::click(rule_edit()->get_ins_btn()));
    EXPECT_EQ(vx_val_scale_get_size(scale), 1u);
    apply();
    map const first(layer.get());
    EXPECT_TRUE(is_near(first.at(place_of(one)), c_red));
    EXPECT_FALSE(is_near(first.at(place_of(another)), c_red));
    make(L"differs from", wanted);
    ASSERT_TRUE(input::double_click_cell(rule_edit()->get_grid(), text, 1));
    apply();
    map const second(layer.get());
    EXPECT_FALSE(is_near(second.at(place_of(one)), c_red));
    EXPECT_TRUE(is_near(second.at(place_of(another)), c_red));
}

TEST_P(style_tab, tab_goes_through_the_window_in_reading_order)
{
    TCustomForm *const form = record->get_form();
    for (int mode = 0; mode < 4; ++mode) {
        SCOPED_TRACE(mode);
        ASSERT_TRUE(choose_mode(mode));
        if (mode == 1) {
            ASSERT_TRUE(choose_field(GetParam().field));
        }
        mngr_edit()->get_mode_edit()->get_combo_box()->SetFocus();
        auto stops = vx_test::round(form, true);
        // A round begins anywhere.
        std::ranges::rotate(stops, std::ranges::min_element(stops, {}, [](vx_test::stop const &s) {
                                return std::pair(s.place().top(), s.place().left());
                            }));
        vx_test::expect_reading_order(stops);
        auto const visited = vx_test::controls_of(stops);
        EXPECT_EQ(visited.size(), stops.size());
        for (TWinControl *const control : vx_test::focusable(form))
            EXPECT_TRUE(visited.contains(control))
                << "Tab does not reach \"" << control->GetAccessibleName().to_utf8() << "\", a "
                << typeid(*control).name();
    }
}

INSTANTIATE_TEST_SUITE_P(examples, style_tab,
                         testing::Values(example{L"nc.shp", L"NAME", 3, 5},
                                         example{L"streets.shp", L"ID", 3, 5},
                                         example{L"naturalearth_cities.shp", L"name", 56, 176}));
