#include "controls/vxk_prop_edit.h"
#include "prop_form.h"

#include "platform/toolkit/graphics/bitmap.h"
#include "platform/toolkit/graphics/canvas.h"
#include "platform/toolkit/graphics/picture.h"

#include <set>

namespace input = vx::user_input;

namespace {
class fonts : public prop_form
{
protected:
    void TearDown() override
    {
        vx_fnt_type_set_current_font(nullptr);
        prop_form::TearDown();
    }
};
using figures = prop_form;

/// The colours of a picture, row by row.
std::vector<TColor> pixels(TBitmap *bitmap)
{
    std::vector<TColor> all;
    for (int y = 0; y < bitmap->GetHeight(); ++y)
        for (int x = 0; x < bitmap->GetWidth(); ++x)
            all.push_back(bitmap->GetCanvas()->GetPixel(x, y));
    return all;
}

/// Runs a figure dialog, with `act` inside it.
template <class F>
bool run(int *figure, F act)
{
    input::on_next_modal([&](input::modal_window const &window) {
        act(*dynamic_cast<Tvx_basic_figure_dialog_form *>(window.form()), window);
    });
    return vx_figure_dialog(nullptr, 200, 200, figure);
}
} // namespace

TEST_F(fonts, chosen_in_the_dialog_or_taken_over)
{
    auto *panel = add<Tvx_fnt_panel>();
    panel->set_caption(L"Font of labels");
    panel->on_changed = recorder();
    vx_fnt_type font;
    font.set_wname(L"DejaVu Sans Mono");
    font.bold = true;
    panel->set_font(&font);
    EXPECT_EQ(panel->get_edit()->GetText(), L"DejaVu Sans Mono");
    EXPECT_TRUE(panel->get_edit()->GetReadOnly());
    EXPECT_EQ(taken_events(), 0);

    ASSERT_TRUE(input::click(panel->get_button()));
    EXPECT_EQ(asked_at, panel->get_button()->ClientToScreen({0, panel->get_button()->GetHeight()}));
    EXPECT_EQ(panel->get_edit()->GetText(), L"DejaVu Serif");
    EXPECT_EQ(taken_events(), 1);
    vx_fnt_type out;
    panel->get_font(&out);
    EXPECT_EQ(out, *panel->get_font());
    EXPECT_TRUE(out.bold);
    accepts = false;
    ASSERT_TRUE(input::tab_to(panel->get_button()));
    input::press(VK_SPACE);
    EXPECT_EQ(taken_dialogs(), 2);
    EXPECT_EQ(taken_events(), 0);

    vx_fnt_type_set_current_font(nullptr);
    ASSERT_TRUE(input::click(panel->get_current_btn()));
    EXPECT_EQ(taken_events(), 0) << "there is no current font";
    vx_fnt_type_set_current_font(&font);
    ASSERT_TRUE(input::click(panel->get_current_btn()));
    EXPECT_EQ(taken_events(), 1);
    EXPECT_EQ(*panel->get_font(), font);
    EXPECT_EQ(panel->get_edit()->GetText(), L"DejaVu Sans Mono");

    int const width = panel->GetWidth();
    int const edit = panel->get_edit()->GetWidth();
    EXPECT_EQ(panel->get_capt_width(), 65);
    panel->set_capt_width(100);
    EXPECT_EQ(panel->GetWidth(), width + 35);
    EXPECT_EQ(panel->get_edit()->GetWidth(), edit);
    EXPECT_EQ(panel->get_edit()->GetAccessibleName(), L"Font of labels");
}

TEST_F(fonts, a_character)
{
    auto *panel = add<Tvx_chrmap_panel>();
    panel->on_changed = recorder();
    panel->set_symbol(L'&');
    EXPECT_EQ(panel->get_symbol_label()->GetCaption(), L"&");
    for (unsigned const none : {0u, 7u, 0xD800u, 0x110000u}) {
        panel->set_symbol(none);
        EXPECT_EQ(panel->get_symbol_label()->GetCaption(), L"");
        EXPECT_EQ(panel->get_symbol(), none);
    }
    panel->set_symbol(0x1F30D);
    EXPECT_EQ(panel->get_symbol_label()->GetCaption(), std::wstring(1, wchar_t(0x1F30D)));
    EXPECT_EQ(taken_events(), 0);
    next_symbol = 0x2302;
    ASSERT_TRUE(input::click(panel->get_symbol_label()));
    EXPECT_EQ(asked_symbol, 0x1F30D);
    EXPECT_EQ(panel->get_symbol(), 0x2302u);
    EXPECT_EQ(panel->get_symbol_label()->GetCaption(), L"\u2302");
    EXPECT_EQ(panel->get_symbol_label()->GetFont()->GetName(), L"DejaVu Serif");
    EXPECT_EQ(panel->get_symbol_label()->GetFont()->GetHeight(), 20);
    EXPECT_EQ(taken_events(), 1);
    EXPECT_EQ(last_sender, panel);
    accepts = false;
    ASSERT_TRUE(input::click(panel->get_button()));
    EXPECT_EQ(taken_dialogs(), 2);
    EXPECT_EQ(taken_events(), 0);
}

TEST_F(figures, chosen_by_mouse_and_by_key)
{
    int figure = 12; // place 7
    EXPECT_TRUE(run(&figure, [](Tvx_basic_figure_dialog_form &dialog, auto const &) {
        EXPECT_EQ(dialog.get_grid()->GetCol(), 7);
        EXPECT_EQ(dialog.get_grid()->GetRow(), 0);
        input::double_click_cell(dialog.get_grid(), 3, 2); // place 23
    }));
    EXPECT_EQ(figure, 8);
    EXPECT_TRUE(run(&figure, [](Tvx_basic_figure_dialog_form &dialog, input::modal_window const &window) {
        EXPECT_TRUE(dialog.get_grid()->Focused());
        input::press(VK_UP);
        window.press_button(L"Apply");
    }));
    EXPECT_EQ(figure, 18); // place 13
    EXPECT_FALSE(run(&figure, [](Tvx_basic_figure_dialog_form &dialog, auto const &) {
        input::click_cell(dialog.get_grid(), 0, 0);
        input::press(VK_ESCAPE);
    }));
    EXPECT_EQ(figure, 18);
    EXPECT_FALSE(run(&figure, [](Tvx_basic_figure_dialog_form &dialog, input::modal_window const &window) {
        input::click_cell(dialog.get_grid(), 6, 2); // behind the last figure
        window.press_button(L"Apply");
        EXPECT_TRUE(dialog.GetShowing());
        window.press_button(L"Cancel");
    }));
    EXPECT_EQ(figure, 18);
    EXPECT_FALSE(vx_figure_dialog(nullptr, 0, 0, nullptr));
}

TEST_F(figures, a_panel_shows_and_asks)
{
    auto *panel = add<Tvx_figure_panel>();
    auto *of_layer = add<Tvx_lr_figure_panel>();
    panel->on_change = recorder();
    of_layer->on_change = recorder();
    TBitmap *const sample = panel->get_image()->GetPicture()->GetBitmap();
    std::vector<TColor> const first = pixels(sample);
    EXPECT_GT(std::set<TColor>(first.begin(), first.end()).size(), 1u) << "something is drawn";
    panel->set_figure(13);
    EXPECT_NE(pixels(sample), first);
    of_layer->set_lr_figure(4);
    EXPECT_EQ(taken_events(), 0);

    input::on_next_modal([](input::modal_window const &window) {
        auto *dialog = dynamic_cast<Tvx_lr_figure_dialog_form *>(window.form());
        ASSERT_NE(dialog, nullptr);
        EXPECT_EQ(dialog->get_grid()->GetCol(), 4);
        input::press(VK_RIGHT);
        window.press_button(L"Apply");
    });
    ASSERT_TRUE(input::click(of_layer->get_button()));
    EXPECT_EQ(of_layer->get_lr_figure(), 5);
    EXPECT_EQ(taken_events(), 1);
    EXPECT_EQ(last_sender, of_layer);
    input::on_next_modal([](input::modal_window const &window) { window.press_button(L"Cancel"); });
    ASSERT_TRUE(input::click(panel->get_image()));
    EXPECT_EQ(panel->get_figure(), 13);
    EXPECT_EQ(taken_events(), 0);
}
