#include "controls/prop/figure_dialog_form.h"
#include "cpx_form.h"
#include "support/paint_counter.h"

#include "platform/styles/vx_cpx_style.h"

#include <cmath>
#include <functional>

namespace input = vx::user_input;

namespace {
using layer_edits = cpx_form;

using getter = double (*)(void const *);

/// A row with a number: what is typed, and what it makes of the layer's value.
struct number_row
{
    char const *name;
    Tvx_size_panel *panel;
    getter get;
    int decimals; ///< below 0: any
};

std::vector<number_row> number_rows(Tvx_cpx_basic_edit *edit)
{
    if (auto *e = dynamic_cast<Tvx_cpx_pnt_symb_edit *>(edit))
        return {{"size", e->get_size(), &vx_pnt_symb_lr_get_size, 2},
                {"dx", e->get_dx(), &vx_pnt_symb_lr_get_dx, -1},
                {"dy", e->get_dy(), &vx_pnt_symb_lr_get_dy, -1},
                {"angle", e->get_angle(), &vx_pnt_symb_lr_get_angle, -1}};
    if (auto *e = dynamic_cast<Tvx_cpx_pnt_figr_edit *>(edit))
        return {{"size x", e->get_size_x(), &vx_pnt_figr_lr_get_size_x, 2},
                {"size y", e->get_size_y(), &vx_pnt_figr_lr_get_size_y, 2},
                {"dx", e->get_dx(), &vx_pnt_figr_lr_get_dx, 2},
                {"dy", e->get_dy(), &vx_pnt_figr_lr_get_dy, 2},
                {"angle", e->get_angle(), &vx_pnt_figr_lr_get_angle, 1},
                {"line width", e->get_line_width(), &vx_pnt_figr_lr_get_line_width, 2}};
    if (auto *e = dynamic_cast<Tvx_cpx_pln_line_edit *>(edit))
        return {{"width", e->get_width(), &vx_pln_line_lr_get_width, 2},
                {"delta", e->get_delta(), &vx_pln_line_lr_get_delta, 2}};
    if (auto *e = dynamic_cast<Tvx_cpx_pln_tplt_edit *>(edit))
        return {{"width", e->get_width(), &vx_pln_tplt_lr_get_width, 2},
                {"dash", e->get_dash(), &vx_pln_tplt_lr_get_dash, 2},
                {"gap", e->get_gap(), &vx_pln_tplt_lr_get_gap, 2},
                {"shift", e->get_shift(), &vx_pln_tplt_lr_get_shift, 2},
                {"delta", e->get_delta(), &vx_pln_tplt_lr_get_delta, 2}};
    if (auto *e = dynamic_cast<Tvx_cpx_pgn_htch_edit *>(edit))
        return {{"delta", e->get_delta(), &vx_pgn_htch_lr_get_delta, 2},
                {"angle", e->get_angle(), &vx_pgn_htch_lr_get_angle, 1},
                {"shift", e->get_shift(), &vx_pgn_htch_lr_get_shift, 2}};
    if (auto *e = dynamic_cast<Tvx_cpx_pgn_spot_edit *>(edit))
        return {{"dx", e->get_dx(), &vx_pgn_spot_lr_get_dx, 2},
                {"dy", e->get_dy(), &vx_pgn_spot_lr_get_dy, 2},
                {"x0", e->get_x0(), &vx_pgn_spot_lr_get_x0, 2},
                {"y0", e->get_y0(), &vx_pgn_spot_lr_get_y0, 2},
                {"point size", e->get_point_size(), &vx_pgn_spot_lr_get_point_size, 2}};
    return {};
}

/// From the top, those of the parent that are seen.
std::vector<TControl *> seen_rows(TWinControl *parent)
{
    std::vector<TControl *> rows;
    for (int i = 0; i < parent->GetControlCount(); ++i)
        if (parent->GetControls(i)->GetShowing())
            rows.push_back(parent->GetControls(i));
    std::ranges::sort(rows, {}, &TControl::GetTop);
    return rows;
}

void expect_closed_up(std::vector<TControl *> const &rows, char const *what)
{
    for (std::size_t i = 1; i < rows.size(); ++i)
        EXPECT_EQ(rows[i]->GetTop(), rows[i - 1]->GetBoundsRect().Bottom + 6) << what << ", row " << i;
}
} // namespace

TEST_F(layer_edits, numbers_go_to_the_layer_with_their_decimals)
{
    struct
    {
        kind style;
        char const *key;
        std::size_t rows;
    } const cases[] = {{points, c_pnt_symb_style_lr, 4}, {points, c_pnt_figr_style_lr, 6},
                       {lines, c_pln_line_style_lr, 2},  {lines, c_pln_tplt_style_lr, 5},
                       {areas, c_pgn_htch_style_lr, 3},  {areas, c_pgn_spot_style_lr, 5}};
    for (auto const &c : cases) {
        show(c.style, {c.key});
        if (c.key == c_pnt_figr_style_lr) {
            vx_pnt_figr_lr_set_lr_figure(layer(), 3); // with angle and line width
            panel->update_controls();
            input::wait_idle();
        }
        Tvx_cpx_basic_edit *const edit = edit_of(c.key);
        ASSERT_EQ(shown_edit(), edit) << c.key;
        auto const rows = number_rows(edit);
        ASSERT_EQ(rows.size(), c.rows) << c.key;
        for (number_row const &row : rows) {
            SCOPED_TRACE(std::string(c.key) + " " + row.name);
            ASSERT_TRUE(input::enter_text(row.panel->get_edit(), L"1.2573"));
            double const unit = std::pow(10, row.decimals);
            EXPECT_DOUBLE_EQ(row.get(layer()), row.decimals < 0 ? 1.2573 : std::floor(1.2573 * unit) / unit);
            ASSERT_TRUE(input::enter_text(row.panel->get_edit(), L"-3"));
            EXPECT_EQ(row.get(layer()), -3) << "there is no least value";
            ASSERT_TRUE(input::enter_text(row.panel->get_edit(), L"123456"));
            EXPECT_EQ(row.get(layer()), 123456);
            EXPECT_FALSE(row.panel->get_text().IsEmpty());
            bool const is_angle = std::string(row.name) == "angle";
            EXPECT_EQ(row.panel->get_end_caption(), is_angle ? L"°" : L"mm");
            EXPECT_TRUE(row.panel->get_end_caption_visible());
            EXPECT_EQ(row.panel->get_edit()->GetBoundsRect().Right,
                      rows[0].panel->get_edit()->GetBoundsRect().Right)
                << "edits stand in one column";
        }
    }
}

TEST_F(layer_edits, a_changed_number_repaints_the_two_samples_once)
{
    show(areas, {c_pgn_fill_style_lr, c_pgn_htch_style_lr});
    ASSERT_TRUE(choose(list(), 1));
    auto *const hatch = edit<Tvx_cpx_pgn_htch_edit>();
    ASSERT_NE(hatch, nullptr);
    ASSERT_TRUE(input::enter_text(hatch->get_delta()->get_edit(), L"4"));
    paint_counter const painted;
    ASSERT_TRUE(input::type(L"5"));
    EXPECT_EQ(vx_pgn_htch_lr_get_delta(layer(1)), 45);
    EXPECT_EQ(painted.of(panel->get_layers_panel()->get_draw()->get_paint()), 1);
    EXPECT_EQ(painted.of(panel->get_layer_panel()->get_draw()->get_paint()), 1);
    EXPECT_EQ(painted.of(hatch->get_angle()->get_edit()), 0) << "the editor itself is left alone";
}

TEST_F(layer_edits, colours_flags_and_choices_go_to_the_layer)
{
    auto const choose_color = [&](Tvx_clr_vsb_panel *row, Tvx_color (*get)(void const *)) {
        ASSERT_TRUE(input::click(row->get_clr_panel()->get_button()));
        EXPECT_EQ(get(layer()), next_color);
        EXPECT_FALSE(row->get_can_visible());
    };
    show(points, {c_pnt_symb_style_lr});
    auto *const symbol = edit<Tvx_cpx_pnt_symb_edit>();
    choose_color(symbol->get_color(), &vx_pnt_symb_lr_get_color);
    next_symbol = 0x416;
    ASSERT_TRUE(input::click(symbol->get_symbol()->get_button()));
    EXPECT_EQ(vx_pnt_symb_lr_get_symbol(layer()), 0x416u);
    EXPECT_EQ(std::wstring(vx_fnt_type_get_wname_ptr(vx_pnt_symb_lr_get_fnt_type_ptr(layer()))),
              L"DejaVu Serif");
    show(points, {c_pnt_figr_style_lr});
    choose_color(edit<Tvx_cpx_pnt_figr_edit>()->get_color(), &vx_pnt_figr_lr_get_color);
    show(lines, {c_pln_line_style_lr});
    choose_color(edit<Tvx_cpx_pln_line_edit>()->get_color(), &vx_pln_line_lr_get_color);
    show(lines, {c_pln_tplt_style_lr});
    choose_color(edit<Tvx_cpx_pln_tplt_edit>()->get_color(), &vx_pln_tplt_lr_get_color);
    show(areas, {c_pgn_fill_style_lr});
    choose_color(edit<Tvx_cpx_pgn_fill_edit>()->get_color(), &vx_pgn_fill_lr_get_color);

    show(areas, {c_pgn_spot_style_lr});
    auto *const spots = edit<Tvx_cpx_pgn_spot_edit>();
    choose_color(spots->get_point_clr(), &vx_pgn_spot_lr_get_point_clr);
    ASSERT_TRUE(input::choose_item(spots->get_spot_type()->get_combo(), 1));
    EXPECT_EQ(vx_pgn_spot_lr_get_spot_type(layer()), 1);
    paint_counter const painted;
    ASSERT_TRUE(input::choose_item(spots->get_spot_type()->get_combo(), 1));
    EXPECT_EQ(painted.of(panel->get_layers_panel()->get_draw()->get_paint()), 0) << "the same choice again";
    ASSERT_TRUE(input::click_tab(spots->get_pages(), 1));
    struct
    {
        Tvx_check_box *box;
        bool (*get)(void const *);
    } const flags[] = {{spots->get_random_x(), &vx_pgn_spot_lr_get_random_x},
                       {spots->get_random_y(), &vx_pgn_spot_lr_get_random_y},
                       {spots->get_random_angle(), &vx_pgn_spot_lr_get_random_angle}};
    for (auto const &flag : flags) {
        ASSERT_TRUE(input::click(flag.box, 8, 10));
        EXPECT_TRUE(flag.get(layer()));
        ASSERT_TRUE(input::click(flag.box, 8, 10));
        EXPECT_FALSE(flag.get(layer()));
    }
}

TEST_F(layer_edits, rows_that_do_not_count_are_hidden_and_the_others_close_up)
{
    show(points, {c_pnt_figr_style_lr});
    auto *const figure = edit<Tvx_cpx_pnt_figr_edit>();
    for (int code = 0; code < 26; ++code) {
        bool const by_dialog = code < 4;
        if (by_dialog) {
            input::on_next_modal([code](input::modal_window const &window) {
                auto *dialog = dynamic_cast<Tvx_basic_figure_dialog_form *>(window.form());
                input::click_cell(dialog->get_grid(), code, 0);
                input::click(dialog->get_apply_btn());
            });
            ASSERT_TRUE(input::click(figure->get_figure()->get_button()));
        } else {
            vx_pnt_figr_lr_set_lr_figure(layer(), code);
            panel->update_controls();
            input::wait_idle();
        }
        EXPECT_EQ(vx_pnt_figr_lr_get_lr_figure(layer()), code);
        static constexpr int filled[] = {0, 2, 4, 7, 9, 11, 13, 15, 17, 19, 21, 23};
        EXPECT_EQ(figure->get_angle()->GetShowing(), code > 1) << code;
        EXPECT_NE(figure->get_line_width()->GetShowing(), std::ranges::count(filled, code) > 0) << code;
        expect_closed_up(seen_rows(figure), "figure");
    }

    show(areas, {c_pgn_spot_style_lr});
    auto *const spots = edit<Tvx_cpx_pgn_spot_edit>();
    TWinControl *const page = spots->get_dx()->GetParent();
    TControl *const flag = spots->get_use_cpx_pnt();
    std::vector<TControl *> const plain{
        spots->get_dx(),        spots->get_dy(),        spots->get_x0(), spots->get_y0(), flag,
        spots->get_point_clr(), spots->get_point_size()};
    std::vector<TControl *> complex(plain.begin(), plain.begin() + 5);
    complex.push_back(spots->get_point_style());
    EXPECT_EQ(seen_rows(page), plain);
    int const place = spots->get_point_clr()->GetTop();
    for (bool const use : {true, false, true}) {
        ASSERT_TRUE(input::click(spots->get_use_cpx_pnt(), 8, 10));
        EXPECT_EQ(vx_pgn_spot_lr_get_use_cpx_pnt(layer()), use);
        EXPECT_EQ(seen_rows(page), use ? complex : plain);
        expect_closed_up(seen_rows(page), "spots");
    }
    EXPECT_EQ(spots->get_point_style()->GetTop(), place) << "the button takes the place of the colour";
}

/// What files and programs may put into a style, shown and edited.
TEST_F(layer_edits, values_of_strangers_are_shown_and_kept)
{
    show(areas, {c_pgn_htch_style_lr, c_pgn_spot_style_lr});
    for (double const value : {0.0, -7.5, std::nan(""), 1e300, -1e300, 1e-300}) {
        vx_pgn_htch_lr_set_delta(layer(0), value);
        double const set = vx_pgn_htch_lr_get_delta(layer(0)); // what is no number is refused
        vx_pgn_htch_lr_set_shift(layer(0), value);
        vx_pgn_spot_lr_set_dx(layer(1), value);
        vx_pgn_spot_lr_set_point_size(layer(1), value);
        for (int const row : {1, 0}) {
            ASSERT_TRUE(choose(list(), row));
            panel->update_controls();
            input::wait_idle();
        }
        EXPECT_EQ(vx_pgn_htch_lr_get_delta(layer(0)), set) << "showing a value changes nothing";
    }
    show(lines, {c_pln_cart_style_lr, c_pln_line_style_lr});
    EXPECT_EQ(shown_edit(), nullptr) << "nothing edits this layer";
    ASSERT_TRUE(choose(list(), 1));
    EXPECT_NE(edit<Tvx_cpx_pln_line_edit>(), nullptr);
    show(lines, {});
    EXPECT_EQ(shown_edit(), nullptr);
    EXPECT_EQ(list()->get_active_lr(), nullptr);
}
