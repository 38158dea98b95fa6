#include "dialogs_fixture.h"

#include "platform/basic/vx_fnt_type.h"
#include "platform/dialogs/detail/color_field.h"
#include "platform/dialogs/vx_dlgs.h"
#include "platform/toolkit/controls/button.h"
#include "platform/toolkit/controls/check_box.h"
#include "platform/toolkit/controls/combo_box.h"
#include "platform/toolkit/controls/edit.h"
#include "platform/toolkit/controls/list_box.h"
#include "platform/toolkit/controls/spin_edit.h"
#include "platform/toolkit/core/strings.h"
#include "platform/toolkit/grids/draw_grid.h"

namespace {
using vx::dialogs::hsv;
using vx::dialogs::to_color;
using vx::dialogs::to_hsv;

bool accept_color(Tvx_color *color, int format = 1)
{
    return vx_color_dialog(nullptr, 0, 0, color, format);
}

// ---- place and end, by the example of one of them

TEST_F(dialogs_test, place_of_a_dialog)
{
    struct
    {
        int x, y;
    } const points[] = {{0, 0}, {300, 200}, {1900, 200}, {300, 1070}, {1900, 1070}, {5, 5}};
    for (auto const &[x, y] : points) {
        SCOPED_TRACE(std::to_string(x) + "," + std::to_string(y));
        Tvx_color color = {1, 2, 3, 255};
        TRect at;
        on_next_modal([&](modal_window const &w) {
            at = w.form()->GetBoundsRect();
            w.reject();
        });
        EXPECT_FALSE(vx_color_dialog(nullptr, x, y, &color, 1));
        if (x == 0 && y == 0) {
            EXPECT_NEAR(at.CenterPoint().X, 960, 2);
            EXPECT_NEAR(at.CenterPoint().Y, 540, 2);
            continue;
        }
        EXPECT_EQ(at.Left, x + at.Width() > 1920 ? x - at.Width() : x);
        EXPECT_EQ(at.Top, y + at.Height() > 1080 ? y - at.Height() : y);
    }
}

TEST_F(dialogs_test, cancel_and_null_change_nothing)
{
    Tvx_color color = {1, 2, 3, 77};
    vx_fnt_type font;
    font.set_wname(L"DejaVu Serif");
    vx_fnt_type const former = font;
    int symbol = 65;
    auto const change_and_cancel = [](modal_window const &w) {
        if (auto *edit = find<TEdit>(w.form(), nullptr))
            enter_text(edit, L"sans");
        w.press_button(L"Cancel");
    };
    on_next_modal(change_and_cancel);
    EXPECT_FALSE(vx_font_dialog(nullptr, 0, 0, &font));
    on_next_modal(change_and_cancel);
    EXPECT_FALSE(vx_charmap_dialog(nullptr, 0, 0, &font, &symbol));
    on_next_modal([](modal_window const &w) {
        enter_text(find<TEdit>(w.form(), L"Code"), L"#FFFFFF");
        close(w.form());
    });
    EXPECT_FALSE(accept_color(&color));
    EXPECT_EQ(color, (Tvx_color{1, 2, 3, 77}));
    EXPECT_EQ(font, former);
    EXPECT_EQ(symbol, 65);
    // No window opens for these.
    EXPECT_FALSE(vx_color_dialog(nullptr, 0, 0, nullptr, 1));
    EXPECT_FALSE(vx_font_dialog(nullptr, 0, 0, nullptr));
    EXPECT_FALSE(vx_charmap_dialog(nullptr, 0, 0, nullptr, &symbol));
    EXPECT_FALSE(vx_charmap_dialog(nullptr, 0, 0, &font, nullptr));
}

// ---- colour

TEST_F(dialogs_test, color_by_its_edits)
{
    struct
    {
        wchar_t const *edit;
        wchar_t const *text;
        Tvx_color expected;
    } const cases[] = {
        // From 51, 102, 153 with an opacity of 100 of 255.
        {L"Code", L"#0A141E", {10, 20, 30, 100}},    {L"Code", L"f80", {255, 136, 0, 100}},
        {L"Code", L"01020304", {1, 2, 3, 4}},        {L"Code", L"zzzzzz", {51, 102, 153, 100}},
        {L"Red", L"200", {200, 102, 153, 100}},      {L"Green", L"0", {51, 0, 153, 100}},
        {L"Blue", L"255", {51, 102, 255, 100}},      {L"Hue", L"120", {51, 153, 51, 100}},
        {L"Saturation", L"100", {0, 77, 153, 100}},  {L"Brightness", L"100", {85, 170, 255, 100}},
        {L"Opacity, %", L"50", {51, 102, 153, 128}},
    };
    for (auto const &[name, text, expected] : cases) {
        SCOPED_TRACE(UnicodeString(text).to_utf8());
        Tvx_color color = {51, 102, 153, 100};
        on_next_modal([&, name = name, text = text](modal_window const &w) {
            auto *edit = find<TCustomEdit>(w.form(), name);
            ASSERT_TRUE(edit);
            EXPECT_TRUE(enter_text(edit, text));
            w.accept();
        });
        EXPECT_TRUE(accept_color(&color));
        EXPECT_EQ(color, expected) << +color.r << ' ' << +color.g << ' ' << +color.b << ' ' << +color.a;
    }
}

TEST_F(dialogs_test, color_by_mouse_and_keys)
{
    struct
    {
        char const *what;
        Tvx_color start;
        void (*act)(TForm *form);
        Tvx_color expected;
    } const cases[] = {
        {"the top right corner of the square is the pure hue",
         {51, 102, 153, 255},
         [](TForm *f) {
             auto *square = find<TCustomControl>(f, L"Saturation and brightness");
             EXPECT_TRUE(drag(square, 20, 20, square->GetClientWidth() + 50, -50));
         },
         {0, 128, 255, 255}},
        {"two tenths of the saturation less",
         {255, 0, 0, 255},
         [](TForm *f) {
             EXPECT_TRUE(tab_to(find<TCustomControl>(f, L"Saturation and brightness")));
             press_times(VK_LEFT, 2, {ssCtrl});
         },
         {255, 51, 51, 255}},
        {"hues upwards",
         {255, 0, 0, 255},
         [](TForm *f) {
             EXPECT_TRUE(tab_to(find<TCustomControl>(f, L"Hue")));
             press_times(VK_UP, 2, {ssCtrl});
         },
         {204, 255, 0, 255}},
        {"the bottom of the opacities",
         {9, 8, 7, 255},
         [](TForm *f) {
             auto *strip = find<TCustomControl>(f, L"Opacity");
             EXPECT_TRUE(click(strip, 5, strip->GetClientHeight() - 1));
         },
         {9, 8, 7, 0}},
        {"a ready-made colour leaves the opacity",
         {9, 8, 7, 33},
         [](TForm *f) {
             EXPECT_TRUE(tab_to(find<TCustomControl>(f, L"Ready-made colours")));
             press(VK_DOWN);
             press(VK_SPACE);
         },
         {255, 0, 0, 33}},
        {"a colour chosen where there was none is seen",
         {0, 0, 0, 0},
         [](TForm *f) { EXPECT_TRUE(enter_text(find<TEdit>(f, L"Code"), L"#00F")); },
         {0, 0, 255, 255}},
    };
    for (auto const &[what, start, act, expected] : cases) {
        SCOPED_TRACE(what);
        Tvx_color color = start;
        on_next_modal([act = act](modal_window const &w) {
            act(dynamic_cast<TForm *>(w.form()));
            w.press_button(L"OK");
        });
        EXPECT_TRUE(accept_color(&color));
        EXPECT_EQ(color, expected) << +color.r << ' ' << +color.g << ' ' << +color.b << ' ' << +color.a;
    }
}

TEST_F(dialogs_test, color_without_opacity)
{
    Tvx_color color = {1, 2, 3, 0};
    on_next_modal([](modal_window const &w) {
        EXPECT_FALSE(find<TCustomEdit>(w.form(), L"Opacity, %"));
        EXPECT_EQ(find<TEdit>(w.form(), L"Code")->GetText(), L"#010203");
        enter_text(find<TEdit>(w.form(), L"Code"), L"#11223344");
        w.press_button(L"OK");
    });
    EXPECT_TRUE(accept_color(&color, 0));
    EXPECT_EQ(color, (Tvx_color{0x11, 0x22, 0x33, 255}));
}

// ---- font

TEST_F(dialogs_test, font_by_name_and_style)
{
    vx_fnt_type font;
    font.set_wname(L"DejaVu Sans");
    font.charset = 204;
    font.italic = true;
    auto const choose = [](wchar_t const *text, wchar_t const *check) {
        return [=](modal_window const &w) {
            EXPECT_TRUE(!text || enter_text(find<TEdit>(w.form(), nullptr), text));
            EXPECT_TRUE(click(find<TCheckBox>(w.form(), check), 8, 10));
            w.accept();
        };
    };
    // The same family keeps its character set.
    on_next_modal(choose(nullptr, L"Bold"));
    EXPECT_TRUE(vx_font_dialog(nullptr, 0, 0, &font));
    EXPECT_TRUE(font.bold && font.italic && !font.underline);
    EXPECT_EQ(font.charset, 204);
    on_next_modal(choose(L"sERIF", L"Italic"));
    EXPECT_TRUE(vx_font_dialog(nullptr, 0, 0, &font));
    EXPECT_STREQ(font.wname(), L"DejaVu Serif");
    EXPECT_EQ(font.charset, 1);
    EXPECT_TRUE(font.bold && !font.italic);
    EXPECT_EQ(*vx_fnt_type_get_current_font_ptr(), font);
    // A name that no family has leaves the one there was.
    on_next_modal(choose(L"no such family", L"Strike out"));
    EXPECT_TRUE(vx_font_dialog(nullptr, 0, 0, &font));
    EXPECT_STREQ(font.wname(), L"DejaVu Serif");
    EXPECT_TRUE(font.strikeout);
}

TEST_F(dialogs_test, font_that_is_not_installed_stays)
{
    vx_fnt_type font;
    font.set_wname(L"Cartographer's Own");
    on_next_modal([](modal_window const &w) { w.accept(); });
    EXPECT_TRUE(vx_font_dialog(nullptr, 0, 0, &font));
    EXPECT_STREQ(font.wname(), L"Cartographer's Own");
}

// ---- characters

TEST_F(dialogs_test, character_by_code_name_and_itself)
{
    struct
    {
        wchar_t const *text;
        int expected; ///< -1: nothing found, so nothing can be accepted
    } const cases[] = {
        {L"U+2302", 0x2302},
        {L"0x2302", 0x2302},
        {L"2302", 0x2302},
        {L"house", 0x2302},
        {L" small sharp ", 0xDF},
        {L"ETH latin capital letter", 0xD0},
        {L"Ж", 0x416},
        {L"&", '&'},
        {L"7", '7'},
        {L"   ", 0x41},
        {L"U+10FFFFFFF", -1},
        {L"no such name", -1},
        {L"black face", 0x263B},
    };
    for (auto const &[text, expected] : cases) {
        SCOPED_TRACE(UnicodeString(text).to_utf8());
        vx_fnt_type font;
        font.set_wname(L"DejaVu Sans");
        int symbol = 0x41;
        on_next_modal([text = text, expected = expected](modal_window const &w) {
            EXPECT_TRUE(enter_text(find<TEdit>(w.form(), nullptr), text));
            EXPECT_EQ(w.press_button(L"OK"), expected >= 0);
            if (expected < 0)
                w.reject();
        });
        EXPECT_EQ(vx_charmap_dialog(nullptr, 0, 0, &font, &symbol), expected >= 0);
        EXPECT_EQ(symbol, expected >= 0 ? expected : 0x41);
    }
}

TEST_F(dialogs_test, a_symbol_that_the_font_lacks_stays_until_another_is_chosen)
{
    for (int const lacking : {0xE123, 0x1F9FF, 0x3042}) {
        vx_fnt_type font;
        font.set_wname(L"DejaVu Sans");
        int symbol = lacking;
        on_next_modal([](modal_window const &w) { EXPECT_TRUE(w.press_button(L"OK")); });
        EXPECT_TRUE(vx_charmap_dialog(nullptr, 0, 0, &font, &symbol));
        EXPECT_EQ(symbol, lacking);
    }
}

TEST_F(dialogs_test, character_from_the_table)
{
    vx_fnt_type font;
    font.set_wname(L"DejaVu Sans");
    int symbol = 'A'; // the first row begins with the space, so "A" is the second of the third row
    on_next_modal([](modal_window const &w) {
        auto *grid = find<TDrawGrid>(w.form(), nullptr);
        EXPECT_EQ(grid->GetCol(), 1);
        EXPECT_EQ(grid->GetRow(), 2);
        EXPECT_TRUE(tab_to(grid));
        press(VK_RIGHT);
        EXPECT_TRUE(choose_item(find<TComboBox>(w.form(), nullptr), L"DejaVu Serif"));
        w.accept();
    });
    EXPECT_TRUE(vx_charmap_dialog(nullptr, 0, 0, &font, &symbol));
    EXPECT_EQ(symbol, 'B');
    EXPECT_STREQ(font.wname(), L"DejaVu Serif");
    on_next_modal([](modal_window const &w) {
        EXPECT_TRUE(double_click_cell(find<TDrawGrid>(w.form(), nullptr), 4, 2));
    });
    EXPECT_TRUE(vx_charmap_dialog(nullptr, 0, 0, &font, &symbol));
    EXPECT_EQ(symbol, 'D');
}
} // namespace
