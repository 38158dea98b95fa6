#include "dialogs_fixture.h"
#include "support/memory_source.h"
#include "support/temp_dir.h"

#include "platform/base/owned.h"
#include "platform/data/vx_file_tos4.h"
#include "platform/dialogs/vx_dlgs.h"
#include "platform/styles/vx_stl_mngr.h"
#include "platform/toolkit/controls/button.h"
#include "platform/toolkit/controls/check_box.h"
#include "platform/toolkit/controls/combo_box.h"
#include "platform/toolkit/controls/radio_button.h"
#include "platform/toolkit/controls/radio_group.h"
#include "platform/toolkit/core/strings.h"

#include <cstdlib>
#include <functional>

namespace {
using owned_mngr = vx::owned<void, &vx_stl_mngr_destroy>;

class rotation_dialog : public dialogs_test
{
protected:
    rotation_dialog()
    {
        roads.fields = {{L"NAME", 1}, {L"ANGLE", 2}, {L"LANES", 3}};
        roads.features.push_back({{std::wstring(L"A1"), 30.0, 2}, 1, {{{0, 0}}}});
    }
    bool run(void *mngr, std::function<void(TCustomForm *)> act, wchar_t const *button = L"OK",
             wchar_t const *source = L"roads:")
    {
        on_next_modal([=](modal_window const &w) {
            act(w.form());
            if (char const *const directory = std::getenv("VX_SHOTS"))
                (void)w.save_shot(UnicodeString(directory) + L"/rotation.png");
            EXPECT_TRUE(w.press_button(button));
        });
        return vx_style_advansed_setting_dialog(mngr, source);
    }
    static std::wstring field_of(void *mngr)
    {
        std::wstring name;
        vx_stl_mngr_get_rotate_prop_name_w(mngr, Tvx_std_wstring_adapter(name));
        return name;
    }

    vx_test::memory_table roads;
    vx_test::memory_driver driver{L"roads:", roads};
};
} // namespace

TEST_F(rotation_dialog, offers_what_the_styles_of_the_manager_can_turn)
{
    struct
    {
        char const *type;
        std::vector<std::pair<wchar_t const *, bool (*)(void const *)>> checks;
    } const cases[] = {
        {"pnt_style", {{L"Turn the symbols", &vx_stl_mngr_get_rotate_flag}}},
        {"pln_style", {{L"Turn the symbols on the lines", &vx_stl_mngr_get_rotate_flag}}},
        {"pgn_style",
         {{L"Turn the spots", &vx_stl_mngr_get_rotate_spot_flag},
          {L"Turn the hatches", &vx_stl_mngr_get_rotate_hatch_flag}}},
    };
    for (auto const &c : cases) {
        SCOPED_TRACE(c.type);
        owned_mngr const mngr(vx_stl_mngr_create(c.type));
        EXPECT_TRUE(run(mngr.get(), [&](TCustomForm *form) {
            auto *const field = find<TComboBox>(form, nullptr);
            EXPECT_FALSE(field->GetEnabled());
            for (auto const &[caption, get] : c.checks)
                ASSERT_TRUE(click(find<TCheckBox>(form, caption), 8, 10));
            EXPECT_FALSE(find<TButton>(form, L"OK")->GetEnabled()) << "by which field?";
            EXPECT_EQ(field->GetItems()->GetCount(), 2) << "numeric ones";
            ASSERT_TRUE(choose_item(field, L"ANGLE"));
        }));
        for (auto const &[caption, get] : c.checks)
            EXPECT_TRUE(get(mngr.get()));
        EXPECT_EQ(field_of(mngr.get()), L"ANGLE");
    }
    owned_mngr const text(vx_stl_mngr_create("txt_pnt_style"));
    EXPECT_FALSE(vx_style_advansed_setting_dialog(text.get(), L"roads:"));
    EXPECT_FALSE(vx_style_advansed_setting_dialog(nullptr, L"roads:"));
}

TEST_F(rotation_dialog, keeps_what_is_not_changed_and_everything_at_cancel)
{
    owned_mngr const mngr(vx_stl_mngr_create("pnt_style"));
    vx_stl_mngr_set_rotate_flag(mngr.get(), true);
    vx_stl_mngr_set_rotate_prop_name(mngr.get(), "GONE");
    // A field that the table lacks stays, as it does without a table.
    for (wchar_t const *source : {L"roads:", L"/no/such/file.shp", L""})
        for (int start = 0; start < 4; ++start)
            for (int const dir : {0, 1}) {
                vx_stl_mngr_set_rotate_start(mngr.get(), start);
                vx_stl_mngr_set_rotate_dir(mngr.get(), dir);
                EXPECT_TRUE(run(
                    mngr.get(), [](TCustomForm *) {}, L"OK", source));
                EXPECT_EQ(vx_stl_mngr_get_rotate_start(mngr.get()), start);
                EXPECT_EQ(vx_stl_mngr_get_rotate_dir(mngr.get()), dir);
                EXPECT_EQ(field_of(mngr.get()), L"GONE");
                EXPECT_TRUE(vx_stl_mngr_get_rotate_flag(mngr.get()));
            }
    vx_stl_mngr_set_rotate_start(mngr.get(), 1);
    vx_stl_mngr_set_rotate_dir(mngr.get(), 0);
    auto const change = [](TCustomForm *form) {
        ASSERT_TRUE(choose_item(find<TComboBox>(form, nullptr), L"LANES"));
        ASSERT_TRUE(click(find<TRadioButton>(form, L"down (south)"), 8, 8));
        ASSERT_TRUE(click(find<TRadioButton>(form, L"clockwise"), 8, 8));
    };
    EXPECT_FALSE(run(mngr.get(), change, L"Cancel"));
    EXPECT_EQ(vx_stl_mngr_get_rotate_start(mngr.get()), 1);
    EXPECT_EQ(field_of(mngr.get()), L"GONE");
    EXPECT_TRUE(run(mngr.get(), change));
    EXPECT_EQ(vx_stl_mngr_get_rotate_start(mngr.get()), 3);
    EXPECT_EQ(vx_stl_mngr_get_rotate_dir(mngr.get()), 1);
    EXPECT_EQ(field_of(mngr.get()), L"LANES");
}

TEST_F(rotation_dialog, offers_the_properties_of_a_property_file)
{
    vx_test::temp_dir const folder;
    auto const file = (folder / "points.tos4").wstring();
    Tvx_tos4_grid grid;
    grid.count[0] = 1;
    vx::owned<Ivx_tos4_writer, &vx_tos4_writer_destroy> const writer(
        vx_tos4_writer_create_w(file.c_str(), &grid, L""));
    double const value = 5;
    for (wchar_t const *const name : {L"X", L"Y", L"azimuth"})
        ASSERT_TRUE(vx_tos4_writer_add_prop_w(writer.get(), name, L"") &&
                    vx_tos4_writer_append(writer.get(), &value, 1));
    ASSERT_TRUE(vx_tos4_writer_finish(writer.get()));
    owned_mngr const mngr(vx_stl_mngr_create("pnt_style"));
    EXPECT_TRUE(run(
        mngr.get(),
        [](TCustomForm *form) {
            ASSERT_TRUE(click(find<TCheckBox>(form, L"Turn the symbols"), 8, 10));
            auto *const field = find<TComboBox>(form, nullptr);
            EXPECT_EQ(field->GetItems()->GetCount(), 3);
            ASSERT_TRUE(choose_item(field, L"azimuth"));
        },
        L"OK", file.c_str()));
    EXPECT_EQ(field_of(mngr.get()), L"azimuth");
}
