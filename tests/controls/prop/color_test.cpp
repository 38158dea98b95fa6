#include "controls/vxk_prop_edit.h"
#include "prop_form.h"

#include "platform/base/owned.h"
#include "platform/toolkit/controls/shape.h"
#include "platform/toolkit/core/screen.h"
#include "platform/toolkit/graphics/bitmap.h"
#include "platform/toolkit/graphics/canvas.h"
#include "platform/toolkit/graphics/image_list.h"

namespace input = vx::user_input;

namespace {
class colors : public prop_form
{
protected:
    /// A square of one colour on the form, to be picked.
    TShape *add_square(TColor color)
    {
        auto *square = add<TShape>(40);
        square->GetPen()->SetColor(color);
        square->GetBrush()->SetColor(color);
        input::wait_idle();
        return square;
    }
    static TPoint middle(TControl *control)
    {
        return control->ClientToScreen({control->GetWidth() / 2, control->GetHeight() / 2});
    }
    void pick_at(TPoint at)
    {
        input::on_next_modal([at](input::modal_window const &window) {
            TPoint const point = window.form()->ScreenToClient(at);
            input::click(window.form(), point.X, point.Y);
        });
    }
};

using dib = vx::owned<Ivx_dib, &vx_dib_destroy>;
} // namespace

TEST_F(colors, the_dialog_opens_below_the_sample)
{
    auto *panel = add<Tvx_clr_vsb_panel>(20);
    panel->set_text(L"Fill");
    panel->on_changed = recorder();
    Tvx_clr_panel &color = *panel->get_clr_panel();
    EXPECT_EQ(color.get_color(), Tvx_color{});
    EXPECT_EQ(color.get_format(), c_color_format_rgba);
    EXPECT_EQ(color.GetWidth(), 40);
    panel->set_color(vx_clr_init_rgb(9, 9, 9));
    EXPECT_EQ(taken_events(), 0);

    ASSERT_TRUE(input::click(color.get_button()));
    EXPECT_EQ(taken_events(), 1);
    EXPECT_EQ(last_sender, panel);
    EXPECT_EQ(panel->get_color(), next_color);
    EXPECT_EQ(asked_format, 1);
    TControl const *const sample = color.get_sample();
    EXPECT_EQ(asked_at, sample->ClientToScreen({0, sample->GetHeight()}));

    accepts = false;
    panel->set_format(c_color_format_rgb);
    ASSERT_TRUE(input::click(color.get_sample()));
    EXPECT_EQ(asked_format, 0);
    EXPECT_EQ(taken_dialogs(), 2);
    EXPECT_EQ(taken_events(), 0);
    EXPECT_EQ(panel->get_color(), next_color);
    ASSERT_TRUE(input::click(color.get_sample(), mbRight));
    EXPECT_EQ(taken_dialogs(), 0);
    ASSERT_TRUE(input::tab_to(color.get_button()));
    input::press(VK_SPACE);
    EXPECT_EQ(taken_dialogs(), 1);
    EXPECT_TRUE(color.get_button()->GetAccessibleName().Pos(L"Fill") > 0);
}

TEST_F(colors, the_built_in_dialog_answers_too)
{
    vx_dlg_set_table(nullptr);
    auto *panel = add<Tvx_clr_panel>(20);
    panel->on_changed = recorder();
    Tvx_color const color = vx_clr_init_rgba(10, 20, 30, 40);
    panel->set_color(color);
    input::on_next_modal([](input::modal_window const &window) { window.accept(); });
    ASSERT_TRUE(input::click(panel->get_button()));
    EXPECT_EQ(panel->get_color(), color);
    EXPECT_EQ(taken_events(), 1);
    input::on_next_modal([](input::modal_window const &window) { window.reject(); });
    ASSERT_TRUE(input::click(panel->get_button()));
    EXPECT_EQ(taken_events(), 0);
}

TEST_F(colors, taken_from_the_screen)
{
    TShape *square = add_square(RGB(12, 130, 240));
    Tvx_color color = vx_clr_init_rgba(5, 6, 7, 8);
    pick_at(middle(square));
    EXPECT_TRUE(vx_color_pick(color));
    EXPECT_EQ(color, vx_clr_init_rgb(12, 130, 240));

    color = vx_clr_init_rgba(5, 6, 7, 8);
    input::on_next_modal([](input::modal_window const &) { input::press(VK_ESCAPE); });
    EXPECT_FALSE(vx_color_pick(color));
    EXPECT_EQ(color, vx_clr_init_rgba(5, 6, 7, 8));

    auto *panel = add<Tvx_clr_vsb_pick_panel>(20);
    panel->on_changed = recorder();
    EXPECT_EQ(panel->get_picker_btn()->GetWidth(), 20);
    panel->set_text(L"Ground");
    for (TControl *button : {static_cast<TControl *>(panel->get_picker_btn()),
                             static_cast<TControl *>(panel->get_visible_ctrl()),
                             static_cast<TControl *>(panel->get_clr_panel()->get_button())})
        EXPECT_EQ(button->GetAccessibleName().Pos(L"Ground"), 1);
    EXPECT_GT(panel->get_picker_btn()->GetLeft(), panel->get_clr_panel()->GetLeft());
    pick_at(middle(square));
    ASSERT_TRUE(input::click(panel->get_picker_btn()));
    EXPECT_EQ(panel->get_color(), vx_clr_init_rgb(12, 130, 240));
    EXPECT_EQ(taken_events(), 1);
    EXPECT_EQ(last_sender, panel);
    input::on_next_modal([](input::modal_window const &) { input::press(VK_ESCAPE); });
    ASSERT_TRUE(input::click(panel->get_picker_btn()));
    EXPECT_EQ(taken_events(), 0);
}

TEST_F(colors, taken_from_the_screen_by_keys)
{
    TShape *square = add_square(RGB(200, 100, 50));
    TPoint const at = middle(square);
    Tvx_color color;
    input::on_next_modal([at](input::modal_window const &) {
        Screen->SetCursorPos({at.X - 11, at.Y + 2});
        input::press(VK_RIGHT, {ssCtrl});
        input::press(VK_RIGHT);
        input::press_times(VK_UP, 2);
        EXPECT_EQ(Screen->GetCursorPos(), at);
        input::press(VK_RETURN);
    });
    EXPECT_TRUE(vx_color_pick(color));
    EXPECT_EQ(color, vx_clr_init_rgb(200, 100, 50));
}

TEST(color_convert, bytes_and_numbers)
{
    unsigned char r = 0;
    unsigned char g = 0;
    unsigned char b = 0;
    clr_2_rgb(0x00332211, r, g, b);
    EXPECT_EQ(r, 0x11);
    EXPECT_EQ(g, 0x22);
    EXPECT_EQ(b, 0x33);
    TColor color = 0;
    rgb_2_clr(0x11, 0x22, 0x33, color);
    EXPECT_EQ(color, 0x00332211);
    EXPECT_EQ(clr2rgb(0x00332211), vx_clr_init_rgba(0x11, 0x22, 0x33, 255));
    EXPECT_EQ(rgb2clr(vx_clr_init_rgba(0x11, 0x22, 0x33, 9)), 0x00332211);
    EXPECT_EQ(mouse_btn_2_vx(mbLeft), 0);
    EXPECT_EQ(mouse_btn_2_vx(mbRight), 1);
    EXPECT_EQ(mouse_btn_2_vx(mbMiddle), 2);
    EXPECT_EQ(shift_state_2_vx({}), 0);
    EXPECT_EQ(shift_state_2_vx({ssShift, ssCtrl, ssDouble}), 1 + 4 + 64);
    vx_fnt_type font;
    font.set_wname(L"DejaVu Serif");
    font.charset = RUSSIAN_CHARSET;
    font.bold = font.strikeout = true;
    TFont target;
    int const size = target.GetSize();
    fnt_type_2_font(&font, &target, 0);
    EXPECT_EQ(target.GetName(), L"DejaVu Serif");
    EXPECT_EQ(target.GetCharset(), RUSSIAN_CHARSET);
    EXPECT_EQ(target.GetStyle(), (TFontStyles{fsBold, fsStrikeOut}));
    EXPECT_EQ(target.GetSize(), size);
    fnt_type_2_font(&font, &target, 20);
    EXPECT_EQ(target.GetSize(), 20);
}

TEST(image_convert, pictures_go_there_and_back)
{
    TBitmap bitmap(3, 2);
    vx_bmp_fill_color(&bitmap, clFuchsia);
    bitmap.GetCanvas()->SetPixel(1, 0, RGB(1, 2, 3));
    dib const picture(vx_dib_create(9, 9));
    bmp_2_dib(&bitmap, picture.get());
    EXPECT_EQ(vx_dib_get_width(picture.get()), 3);
    EXPECT_EQ(vx_dib_get_height(picture.get()), 2);
    EXPECT_EQ(vx_dib_get_pixel(picture.get(), 1, 0), vx_clr_init_rgb(1, 2, 3));
    EXPECT_EQ(vx_dib_get_pixel(picture.get(), 2, 1), vx_clr_init_rgb(255, 0, 255));
    bmp_2_dib_transparent(&bitmap, picture.get(), clFuchsia);
    EXPECT_EQ(vx_dib_get_pixel(picture.get(), 2, 1), Tvx_color{});
    vx_dib_set_pixel(picture.get(), 0, 0, vx_clr_init_rgba(200, 100, 50, 128));

    TBitmap back;
    dib_2_bmp(picture.get(), &back);
    dib const again(vx_dib_create(1, 1));
    bmp_2_dib(&back, again.get());
    EXPECT_EQ(vx_dib_get_pixel(again.get(), 1, 0), vx_clr_init_rgb(1, 2, 3));
    EXPECT_EQ(vx_dib_get_pixel(again.get(), 2, 1), Tvx_color{});
    Tvx_color const half = vx_dib_get_pixel(again.get(), 0, 0);
    EXPECT_EQ(half.a, 128);
    EXPECT_NEAR(half.r, 200, 2);
    EXPECT_NEAR(half.b, 50, 2);

    icon_2_dib_transparent(&back, again.get(), clLime);
    EXPECT_EQ(vx_dib_get_pixel(again.get(), 2, 1), Tvx_color{}) << "nothing but the ground was there";
    EXPECT_EQ(vx_dib_get_pixel(again.get(), 1, 0), vx_clr_init_rgb(1, 2, 3));
    dib_2_bmp(nullptr, &back);
    EXPECT_TRUE(back.GetEmpty());
}

TEST_F(colors, samples_have_four_edges_and_fade_while_they_are_disabled)
{
    auto *ground = add<Tvx_panel>(120);
    ground->SetColor(clWhite);
    int top = 4;
    auto const place = [&](auto *panel) {
        panel->SetParent(ground);
        panel->SetBounds(4, top, 200, 20);
        top += 30;
        return panel;
    };
    auto *color = place(new Tvx_clr_panel(&form));
    color->set_color(vx_clr_init_rgb(0, 0, 0));
    auto *figure = place(new Tvx_figure_panel(&form));
    auto *symbol = place(new Tvx_chrmap_panel(&form));
    input::wait_idle();
    TBitmap shot;
    auto const at = [&shot](TControl *control, int x, int y) {
        TPoint const point = control->ClientToScreen({x, y});
        return shot.GetCanvas()->GetPixel(point.X, point.Y);
    };
    Screen->Grab(shot);
    for (TWinControl *frame : {figure->get_image()->GetParent(), symbol->get_symbol_label()->GetParent()})
        for (auto const &[x, y] : {std::pair(10, 0), {10, 19}, {0, 10}, {19, 10}})
            EXPECT_EQ(at(frame, x, y), ColorToRGB(clBtnShadow)) << x << ", " << y;
    EXPECT_EQ(at(color->get_sample(), 9, 9), clBlack);
    EXPECT_EQ(at(figure->get_image(), 9, 9), clBlack);
    // With the panel itself, and with anything on which it stands.
    for (bool const whole : {false, true}) {
        color->set_enabled(whole);
        figure->SetEnabled(whole);
        ground->SetEnabled(!whole);
        input::wait_idle();
        Screen->Grab(shot);
        for (TControl *sample : {color->get_sample(), static_cast<TControl *>(figure->get_image())})
            EXPECT_GT(at(sample, 9, 9) & 0xFF, 100);
    }
    ground->SetEnabled(true);
    input::wait_idle();
    Screen->Grab(shot);
    EXPECT_EQ(at(color->get_sample(), 9, 9), clBlack);
}
