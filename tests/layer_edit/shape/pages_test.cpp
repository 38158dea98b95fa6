#include "shape_fixture.h"
#include "style_manager/scales/rng_edit_btn.h"
#include "style_manager/scales/val_edit_btn.h"
#include "support/memory_source.h"

#include "platform/base/text_codec.h"
#include "platform/toolkit/controls/button.h"
#include "platform/toolkit/controls/check_box.h"
#include "platform/toolkit/controls/combo_box.h"
#include "platform/toolkit/core/strings.h"

#include <functional>

// What the pages are fed with, and what they edit.

namespace {
constexpr Tvx_color c_red = vx_clr_init_rgb(230, 20, 30);

class towns : public shape_fixture
{
protected:
    towns()
    {
        table.fields = {{L"NAME", 1}, {L"ANGLE", 2}, {L"COUNT", 3}, {L"PICTURE", 8}, {L"BIG", 4}};
        for (int i = 0; i < 1500; ++i)
            table.features.push_back(
                {{L"t" + std::to_wstring(1000 + i % 1400), i * 1.5, i, std::monostate(), 1LL << 60},
                 1,
                 {{{double(i % 40), double(i / 40)}}}});
        table.features[7].cells[1] = std::monostate();
        layer.reset(vx_shp_lr2d_create("shp_pnt_lr2d", L"towns:"));
    }

    vx_test::memory_table table;
    vx_test::memory_driver driver{L"towns:", table};
};

/// A column takes longer than is waited for in silence; the user stops that at the third question.
class slow_towns : public towns
{
protected:
    slow_towns()
    {
        table.delay_us = 50;
        dialogs.progress_start = [](void *self, HWND, int, wchar_t const *caption) -> void * {
            of(self).shown.emplace_back(caption);
            of(self).asked = 0;
            return nullptr;
        };
        dialogs.progress_set = [](void *, void *, int percent, wchar_t const *) { EXPECT_LE(percent, 100); };
        dialogs.progress_finish = [](void *, void *) {};
        dialogs.progress_is_stopped = [](void *self, void *) {
            if (auto const act = of(self).meanwhile)
                act();
            return of(self).stops && ++of(self).asked == 3;
        };
        vx_dlg_set_table(&dialogs);
    }
    static slow_towns &of(void *self)
    {
        return static_cast<slow_towns &>(*static_cast<shape_fixture *>(self));
    }

    std::vector<std::wstring> shown;
    std::function<void()> meanwhile;
    bool stops = false;
    int asked = 0;
};

class managers : public shape_fixture
{
protected:
    void SetUp() override { open(L"nc.shp"); }
    [[nodiscard]] void *list() const { return vx_shp_lr2d_get_style_mngr_list_ptr(copy()); }
};
} // namespace

TEST_F(slow_towns, a_reading_that_is_given_up_changes_nothing)
{
    edit();
    int reports = 0;
    page()->on_changed =
        closure<void(TObject *)>([](void *count, TObject *) { ++*static_cast<int *>(count); }, &reports);
    void *const mngr = vx_shp_lr2d_get_stl_mngr_ptr(copy());
    struct
    {
        int mode;
        wchar_t const *field; // one after the other
        bool is_stopped;
        unsigned size; // of the scale, afterwards
    } const choices[] = {{1, L"NAME", true, 0},  {1, L"NAME", false, 1400}, {1, L"COUNT", true, 1400},
                         {2, L"ANGLE", true, 0}, {2, L"ANGLE", false, 10},  {2, L"COUNT", true, 10}};
    std::wstring field;
    for (auto const &choice : choices) {
        SCOPED_TRACE(vx::text::wide_to_utf8(choice.field));
        bool const is_range = choice.mode == 2;
        ASSERT_TRUE(choose_mode(choice.mode));
        auto *const prp =
            is_range ? mngr_edit()->get_rng_edit()->get_prp_scale() : val_edit()->get_prp_scale();
        auto const name_of = is_range ? &vx_stl_mngr_get_rng_prop_name_w : &vx_stl_mngr_get_val_prop_name_w;
        std::wstring expected;
        name_of(mngr, Tvx_std_wstring_adapter(expected));
        if (!choice.is_stopped)
            expected = choice.field;
        stops = choice.is_stopped;
        reports = 0;
        shown.clear();
        ASSERT_TRUE(input::choose_item(prp->get_combo_box(), choice.field));
        EXPECT_EQ(shown, std::vector{L"Reading the values of \"" + std::wstring(choice.field) + L"\""});
        name_of(mngr, Tvx_std_wstring_adapter(field));
        EXPECT_EQ(field, expected);
        EXPECT_EQ(prp->get_prop_name(), expected);
        EXPECT_EQ(is_range ? vx_rng_scale_get_size(vx_stl_mngr_get_rng_scale_ptr(mngr))
                           : vx_val_scale_get_size(vx_stl_mngr_get_val_scale_ptr(mngr)),
                  choice.size);
        EXPECT_EQ(reports, choice.is_stopped ? 0 : 1);
    }
    EXPECT_EQ(text_at(scale_of(copy()), 1399), L"t2399") << "read to the end where it was stopped";
}

TEST_F(slow_towns, may_go_while_they_are_being_read)
{
    for (int const what : {0, 1, 2, 3}) {
        SCOPED_TRACE(what);
        table.opens = 0;
        layer.reset(vx_shp_lr2d_create("shp_pnt_lr2d", L"towns:"));
        edit();
        ASSERT_TRUE(choose_mode(1));
        meanwhile = [&] {
            meanwhile = nullptr;
            switch (what) {
            case 0:
                EXPECT_FALSE(page()->on_data_open(nullptr)) << "the table is in use";
                break;
            case 1:
                vx_lr2d_edt_form_set_lr2d(record.get(), nullptr);
                break;
            case 2:
                vx_lr2d_edt_form_set_lr2d(record.get(), layer.get());
                break;
            default:
                record.reset();
            }
        };
        EXPECT_TRUE(choose_field(L"NAME"));
        EXPECT_FALSE(meanwhile);
        EXPECT_EQ(record && copy() ? vx_val_scale_get_size(scale_of(copy())) : 0, what == 0 ? 1400u : 0u);
    }
    layer.reset();
    EXPECT_EQ(table.opened, 0);
}

TEST_F(slow_towns, may_go_while_a_builder_reads_them)
{
    for (bool const is_range : {false, true})
        for (int const what : {0, 1, 2}) {
            SCOPED_TRACE(2 * what + is_range);
            layer.reset(vx_shp_lr2d_create("shp_pnt_lr2d", L"towns:"));
            edit();
            ASSERT_TRUE(choose_mode(is_range ? 2 : 1));
            auto *const prp =
                is_range ? mngr_edit()->get_rng_edit()->get_prp_scale() : val_edit()->get_prp_scale();
            ASSERT_TRUE(input::choose_item(prp->get_combo_box(), is_range ? L"ANGLE" : L"NAME"));
            meanwhile = [&] {
                meanwhile = nullptr;
                if (what == 0)
                    vx_lr2d_edt_form_set_lr2d(record.get(), nullptr);
                else if (what == 1)
                    vx_lr2d_edt_form_set_lr2d(record.get(), layer.get());
                else
                    record.reset();
            };
            // No dialog comes up over what is no longer there.
            TWinControl *const button =
                is_range ? static_cast<TWinControl *>(mngr_edit()->get_rng_edit()->get_build_btn())
                         : val_edit()->get_build_btn();
            EXPECT_TRUE(input::click(button));
            EXPECT_FALSE(meanwhile);
        }
}

TEST_F(managers, of_a_layer_draw_in_turn_and_come_and_go_by_the_strip)
{
    auto *const strip = page()->get_list_edit();
    Tvx_pnt_d2 const ashe = place_of(0), other = place_of(50);
    ASSERT_TRUE(input::click(strip->get_add_btn()));
    EXPECT_EQ(strip->get_combo_box()->GetText(), L"2");
    EXPECT_EQ(mngr_edit()->get_stl_mngr(), vx_stl_mngr_list_get_mngr(list(), 1));
    // The second draws one county alone.
    std::wstring const name = cells(L"NAME")[0];
    ASSERT_TRUE(choose_mode(1));
    ASSERT_TRUE(choose_field(L"NAME"));
    void *const scale = scale_of(copy());
    int row = 1;
    while (text_at(scale, static_cast<unsigned>(row) - 1) != name)
        ++row;
    ASSERT_TRUE(change_color(c_red, [&] { return click(val_edit(), 4, row); }));
    ASSERT_TRUE(click(val_edit(), 0, 1));
    ASSERT_TRUE(click(val_edit(), 0, row - 1, {ssShift}));
    ASSERT_TRUE(input::click(val_edit()->get_del_btn()));
    EXPECT_EQ(text_at(scale, 0), name);
    ASSERT_TRUE(click(val_edit(), 0, 2));
    val_edit()->get_grid()->SetTopRow(val_edit()->get_grid()->GetRowCount() - 3);
    ASSERT_TRUE(click(val_edit(), 0, val_edit()->get_grid()->GetRowCount() - 1, {ssShift}));
    ASSERT_TRUE(input::click(val_edit()->get_del_btn()));
    ASSERT_EQ(vx_val_scale_get_size(scale), 1u);
    if (vx_scale_prm_get_visible(vx_val_scale_get_other_prm_ptr(scale))) {
        ASSERT_TRUE(input::click(val_edit()->get_other_panel()->get_use_panel(), 8, 10));
    }
    map const before(layer.get());
    apply();
    map const both(layer.get());
    EXPECT_EQ(both.at(ashe), c_red);
    EXPECT_EQ(both.at(other), before.at(other)) << "the first manager draws below";

    // The first is chosen again: its mode is its own.
    ASSERT_TRUE(input::choose_item(strip->get_combo_box(), 0));
    EXPECT_TRUE(mngr_edit()->get_smp_edit()->GetShowing());
    ASSERT_TRUE(input::choose_item(strip->get_combo_box(), 1));
    EXPECT_TRUE(val_edit()->GetShowing());
    ASSERT_TRUE(input::click(strip->get_del_btn()));
    EXPECT_EQ(mngr_edit()->get_stl_mngr(), vx_stl_mngr_list_get_mngr(list(), 0));
    EXPECT_FALSE(strip->get_del_btn()->GetEnabled()) << "one is always left";
    apply();
    EXPECT_EQ(map(layer.get()).at(ashe), before.at(ashe));
}

TEST_F(managers, show_the_style_of_selected_objects_where_the_layer_has_one)
{
    EXPECT_EQ(val_edit()->get_grid()->GetColCount(), 5);
    vx_lr_set_own_selected_style_flag(layer.get(), true);
    vx_lr2d_edt_form_set_lr2d(record.get(), layer.get());
    EXPECT_EQ(val_edit()->get_grid()->GetColCount(), 6);
}
