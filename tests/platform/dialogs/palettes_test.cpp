#include "dialogs_fixture.h"

#include "platform/base/owned.h"
#include "platform/base/string_adp.h"
#include "platform/basic/vx_palette.h"
#include "platform/basic/vx_res.h"
#include "platform/dialogs/vx_dlgs.h"
#include "platform/toolkit/controls/button.h"
#include "platform/toolkit/controls/edit.h"
#include "platform/toolkit/controls/list_box.h"
#include "platform/toolkit/core/key_codes.h"
#include "platform/toolkit/core/strings.h"

#include <cstdlib>
#include <functional>

namespace {
using owned_palettes = vx::owned<void, &vx_clr_palettes_destroy>;

class palettes_dialog : public dialogs_test
{
protected:
    palettes_dialog()
    {
        table.user = this;
        table.color = [](void *self, HWND, int, int, Tvx_color *color, int) {
            auto &test = *static_cast<palettes_dialog *>(self);
            test.asked = *color;
            *color = test.chosen;
            return test.chosen.a != 0;
        };
        vx_dlg_set_table(&table);
    }
    void add(wchar_t const *name, std::vector<Tvx_color> const &colors)
    {
        void *const palette = vx_clr_palettes_add(palettes.get());
        vx_clr_palette_set_wcaption(palette, name);
        vx_clr_palette_set_size(palette, static_cast<unsigned>(colors.size()));
        for (unsigned i = 0; i < colors.size(); ++i)
            vx_clr_palette_set_color(palette, i, colors[i]);
    }
    bool run(std::function<void(TCustomForm *)> act, wchar_t const *button = L"OK")
    {
        on_next_modal([=](modal_window const &w) {
            act(w.form());
            if (char const *const directory = std::getenv("VX_SHOTS"))
                (void)w.save_shot(UnicodeString(directory) + L"/palettes.png");
            EXPECT_TRUE(w.press_button(button));
        });
        return vx_clr_palettes_dialog(palettes.get(), 0);
    }
    static bool push(TCustomForm *form, wchar_t const *name) { return click(find<TButton>(form, name)); }
    static TListBox *list(TCustomForm *form) { return find<TListBox>(form, L"Palettes"); }
    static TListBox *colors(TCustomForm *form) { return find<TListBox>(form, L"Colours"); }
    /// "name:r.r.r|" of each, by the reds of the colours.
    std::wstring all() const
    {
        std::wstring result, name;
        Tvx_std_wstring_adapter adapter(name);
        for (unsigned i = 0; i < vx_clr_palettes_get_size(palettes.get()); ++i) {
            void *const palette = vx_clr_palettes_get_palette(palettes.get(), i);
            name.clear();
            vx_clr_palette_get_wcaption(palette, adapter);
            result += name + L":";
            for (unsigned k = 0; k < vx_clr_palette_get_size(palette); ++k)
                result += (k > 0 ? L"." : L"") + std::to_wstring(vx_clr_palette_get_color(palette, k).r);
            result += L"|";
        }
        return result;
    }

    owned_palettes palettes{vx_clr_palettes_create()};
    vx_dlg_table table;
    Tvx_color asked{}, chosen = vx_clr_init_rgb(99, 0, 0);
};

Tvx_color red(int value)
{
    return vx_clr_init_rgb(value, 0, 0);
}
} // namespace

TEST_F(palettes_dialog, makes_renames_orders_and_deletes_palettes)
{
    EXPECT_TRUE(run([&](TCustomForm *form) {
        EXPECT_FALSE(find<TEdit>(form, nullptr)->GetEnabled()) << "there is none yet";
        EXPECT_FALSE(push(form, L"Delete the palette"));
        ASSERT_TRUE(push(form, L"Add a palette"));
        ASSERT_TRUE(type(L"Soil")); // the name waits to be typed
        ASSERT_TRUE(push(form, L"Add a palette"));
        ASSERT_TRUE(push(form, L"Add a palette"));
        EXPECT_EQ(list(form)->GetItems()->GetStrings(2), L"New palette 2");
        ASSERT_TRUE(push(form, L"Move the palette up"));
        ASSERT_TRUE(push(form, L"Move the palette up"));
        EXPECT_FALSE(push(form, L"Move the palette up")) << "it is the first";
        ASSERT_TRUE(click_item(list(form), 1));
        ASSERT_TRUE(push(form, L"Add a copy of the palette"));
        ASSERT_TRUE(click_item(list(form), 3));
        ASSERT_TRUE(push(form, L"Delete the palette"));
    }));
    EXPECT_EQ(all(), L"New palette 2:255.16|Soil:255.16|Soil (copy):255.16|");
    EXPECT_TRUE(run([&](TCustomForm *form) {
        // Without a name nobody would find it again.
        ASSERT_TRUE(enter_text(find<TEdit>(form, nullptr), L"   "));
        ASSERT_TRUE(click_item(list(form), 1));
        EXPECT_EQ(find<TEdit>(form, nullptr)->GetText(), L"Soil");
    }));
    EXPECT_EQ(all(), L"New palette:255.16|Soil:255.16|Soil (copy):255.16|");
}

TEST_F(palettes_dialog, edits_the_colours_of_a_palette)
{
    add(L"a", {red(1), red(2)});
    add(L"b", {red(7)});
    EXPECT_TRUE(run([&](TCustomForm *form) {
        ASSERT_TRUE(push(form, L"Add a colour")); // behind the current one
        EXPECT_EQ(asked, red(1));
        chosen = red(50);
        ASSERT_TRUE(click_item(colors(form), 2));
        ASSERT_TRUE(push(form, L"Change the colour"));
        EXPECT_EQ(asked, red(2));
        chosen.a = 0; // given up
        ASSERT_TRUE(push(form, L"Add a colour"));
        ASSERT_TRUE(push(form, L"Change the colour"));
        EXPECT_EQ(colors(form)->GetItems()->GetCount(), 3);
        ASSERT_TRUE(push(form, L"Move the colour up"));
        EXPECT_EQ(colors(form)->GetItemIndex(), 1);
        ASSERT_TRUE(click_item(colors(form), 0));
        ASSERT_TRUE(push(form, L"Move the colour down"));
        ASSERT_TRUE(click_item(list(form), 1));
        EXPECT_FALSE(push(form, L"Delete the colour")) << "a palette has one at least";
        ASSERT_TRUE(click_item(list(form), 0));
        ASSERT_TRUE(click_item(colors(form), 2));
        ASSERT_TRUE(push(form, L"Delete the colour"));
    }));
    EXPECT_EQ(all(), L"a:50.1|b:7|");
}

TEST_F(palettes_dialog, leaves_the_list_alone_when_it_is_given_up)
{
    add(L"a", {red(1), red(2)});
    EXPECT_FALSE(run(
        [&](TCustomForm *form) {
            ASSERT_TRUE(push(form, L"Add a colour"));
            ASSERT_TRUE(push(form, L"Add a palette"));
            ASSERT_TRUE(enter_text(find<TEdit>(form, nullptr), L"other"));
        },
        L"Cancel"));
    EXPECT_EQ(all(), L"a:1.2|");
    EXPECT_FALSE(vx_clr_palettes_dialog(nullptr, 0));
    // A host may have its own, and is told the title by its number.
    table.clr_palettes = [](void *, HWND, void *list, wchar_t const *title) {
        EXPECT_STREQ(title, vx_res_get_wstr(670));
        vx_clr_palettes_clear(list);
        return true;
    };
    vx_dlg_set_table(&table);
    EXPECT_TRUE(vx_clr_palettes_dialog(palettes.get(), -670));
    EXPECT_EQ(all(), L"");
}
