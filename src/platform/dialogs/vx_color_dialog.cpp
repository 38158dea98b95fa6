#include "captions/dialogs.h"

#include "platform/base/flag_scope.h"
#include "platform/basic/vx_res.h"
#include "platform/dialogs/detail/color_field.h"
#include "platform/dialogs/detail/common_form.h"
#include "platform/dialogs/dlg_table_priv.h"
#include "platform/dialogs/vx_dlgs.h"
#include "platform/toolkit/controls/edit.h"
#include "platform/toolkit/controls/label.h"
#include "platform/toolkit/controls/paint_box.h"
#include "platform/toolkit/controls/spin_edit.h"
#include "platform/toolkit/graphics/canvas.h"

#include <array>
#include <charconv>
#include <cmath>
#include <string>
#include <string_view>

namespace vx::dialogs {
namespace {
constexpr int c_square_width = 220;
constexpr int c_square_height = 190;
constexpr int c_strip_width = 22;
constexpr int c_swatch_height = 110;
constexpr int c_column_width = 204; ///< of the numbers
constexpr int c_spin_width = 66;
constexpr int c_sample_height = 44;
constexpr int c_row_height = 30;
constexpr int c_buttons_height = 50;
constexpr int c_full_circle = 360;
constexpr int c_percent = 100;

int percent(double share)
{
    return static_cast<int>(std::lround(share * c_percent));
}

/// "#RRGGBB", with "AA" behind it where opacity counts.
UnicodeString code_of(Tvx_color color, bool alpha)
{
    constexpr wchar_t digits[] = L"0123456789ABCDEF";
    std::wstring text = L"#";
    for (int const part : {color.r, color.g, color.b, color.a}) {
        text += digits[part >> 4];
        text += digits[part & 15];
    }
    return text.substr(0, alpha ? 9 : 7);
}

/// Three, six or eight hexadecimal digits, with or without "#". Three stand for six: each twice. The last two
/// of eight are the opacity.
bool read_code(UnicodeString const &text, Tvx_color &color)
{
    std::string code = text.to_utf8();
    std::erase(code, ' ');
    if (code.starts_with('#'))
        code.erase(0, 1);
    if (code.size() == 3)
        code = {code[0], code[0], code[1], code[1], code[2], code[2]};
    bool const with_alpha = code.size() == 8;
    if (code.size() != 6 && !with_alpha)
        return false;
    unsigned value = 0;
    auto const result = std::from_chars(code.data(), code.data() + code.size(), value, 16);
    if (result.ec != std::errc() || result.ptr != code.data() + code.size())
        return false;
    unsigned const rgb = with_alpha ? value >> 8 : value;
    color =
        vx_clr_init_rgba(static_cast<int>(rgb >> 16 & 255), static_cast<int>(rgb >> 8 & 255),
                         static_cast<int>(rgb & 255), with_alpha ? static_cast<int>(value & 255) : color.a);
    return true;
}

class color_form final : public common_form
{
public:
    color_form(Tvx_color color, bool alpha);

    [[nodiscard]] Tvx_color get_color() const { return f_color; }

private:
    TSpinEdit *add_spin(int caption, int row, int max);
    void on_square_pick(TObject *sender);
    void on_hue_pick(TObject *sender);
    void on_opacity_pick(TObject *sender);
    void on_swatch_pick(TObject *sender);
    void on_hsv_change(TObject *sender);
    void on_rgb_change(TObject *sender);
    void on_opacity_change(TObject *sender);
    void on_code_change(TObject *sender);
    void on_code_exit(TObject *sender);
    void on_sample_paint(TObject *sender);

    void set_hsv(hsv const &value, TObject *from);
    void set_color(Tvx_color color, TObject *from);
    void colour_chosen();
    void show(TObject *from);
    static bool is_number(TSpinEdit const *spin);
    void show_number(TSpinEdit *spin, int value, TObject *from);

    Tvx_color f_former;
    Tvx_color f_color;
    hsv f_hsv;
    bool f_alpha;
    bool f_opacity_touched = false;
    bool f_showing = false;
    color_square *f_square;
    color_strip *f_hue_strip;
    color_strip *f_opacity_strip = nullptr;
    color_swatches *f_swatches;
    TPaintBox *f_sample;
    std::array<TSpinEdit *, 3> f_hsv_edits;
    std::array<TSpinEdit *, 3> f_rgb_edits;
    TSpinEdit *f_opacity_edit = nullptr;
    TEdit *f_code_edit;
};

int left_width(bool alpha)
{
    return c_square_width + (common_form::c_gap + c_strip_width) * (alpha ? 2 : 1);
}

color_form::color_form(Tvx_color color, bool alpha)
    : common_form(c_dlg_color, 3 * c_edge + left_width(alpha) + c_column_width,
                  2 * c_edge + c_square_height + c_gap + c_swatch_height + c_buttons_height),
      f_former(color), f_color(color), f_hsv(to_hsv(color, {})), f_alpha(alpha)
{
    auto const put = [this](TControl *control, int left, int top, int width, int height, int name) {
        control->SetParent(this);
        control->SetBounds(left, top, width, height);
        control->SetAccessibleName(vx_res_get_wstr(name));
    };
    f_square = new color_square(this);
    put(f_square, c_edge, c_edge, c_square_width, c_square_height, c_dlg_color_field);
    f_square->on_pick = make_closure<&color_form::on_square_pick>(this);
    int strip_left = c_edge + c_square_width + c_gap;
    f_hue_strip = new color_strip(this, false);
    put(f_hue_strip, strip_left, c_edge, c_strip_width, c_square_height, c_dlg_hue_strip);
    f_hue_strip->on_pick = make_closure<&color_form::on_hue_pick>(this);
    strip_left += c_strip_width + c_gap;
    if (f_alpha) {
        f_opacity_strip = new color_strip(this, true);
        put(f_opacity_strip, strip_left, c_edge, c_strip_width, c_square_height, c_dlg_opacity_strip);
        f_opacity_strip->on_pick = make_closure<&color_form::on_opacity_pick>(this);
    }
    f_swatches = new color_swatches(this);
    put(f_swatches, c_edge, c_edge + c_square_height + c_gap, left_width(f_alpha), c_swatch_height,
        c_dlg_swatches);
    f_swatches->on_pick = make_closure<&color_form::on_swatch_pick>(this);

    f_sample = new TPaintBox(this);
    put(f_sample, GetClientWidth() - c_edge - c_column_width, c_edge, c_column_width, c_sample_height,
        c_dlg_sample);
    f_sample->OnPaint = make_closure<&color_form::on_sample_paint>(this);

    int row = 0;
    f_hsv_edits = {add_spin(c_dlg_hue, row, c_full_circle), add_spin(c_dlg_saturation, row + 1, c_percent),
                   add_spin(c_dlg_value, row + 2, c_percent)};
    row += 3;
    f_rgb_edits = {add_spin(c_dlg_red, row, 255), add_spin(c_dlg_green, row + 1, 255),
                   add_spin(c_dlg_blue, row + 2, 255)};
    row += 3;
    for (auto *spin : f_hsv_edits)
        spin->OnChange = make_closure<&color_form::on_hsv_change>(this);
    for (auto *spin : f_rgb_edits)
        spin->OnChange = make_closure<&color_form::on_rgb_change>(this);
    if (f_alpha) {
        f_opacity_edit = add_spin(c_dlg_opacity, row++, c_percent);
        f_opacity_edit->OnChange = make_closure<&color_form::on_opacity_change>(this);
    }
    f_code_edit = new TEdit(this);
    int const right = GetClientWidth() - c_edge;
    int const top = c_edge + c_sample_height + c_gap + row * c_row_height;
    constexpr int code_width = 96;
    put(f_code_edit, right - code_width, top, code_width, c_edit_height, c_dlg_code);
    add_label(c_dlg_code, right - c_column_width, top + 4, f_code_edit);
    f_code_edit->OnChange = make_closure<&color_form::on_code_change>(this);
    f_code_edit->OnExit = make_closure<&color_form::on_code_exit>(this);
    add_buttons();
    show(nullptr);
}

TSpinEdit *color_form::add_spin(int caption, int row, int max)
{
    auto *spin = new TSpinEdit(this);
    spin->SetParent(this);
    int const right = GetClientWidth() - c_edge;
    int const top = c_edge + c_sample_height + c_gap + row * c_row_height;
    spin->SetMinValue(0);
    spin->SetMaxValue(max);
    spin->SetBounds(right - c_spin_width, top, c_spin_width, c_edit_height);
    add_label(caption, right - c_column_width, top + 4, spin);
    return spin;
}

void color_form::on_square_pick(TObject *sender)
{
    set_hsv(f_square->get_value(), sender);
}

void color_form::on_hue_pick(TObject *sender)
{
    set_hsv({f_hue_strip->get_value(), f_hsv.s, f_hsv.v}, sender);
}

void color_form::on_opacity_pick(TObject *sender)
{
    f_opacity_touched = true;
    f_color.a = static_cast<std::uint8_t>(std::lround(f_opacity_strip->get_value() * 255.0));
    show(sender);
}

void color_form::on_swatch_pick(TObject *sender)
{
    Tvx_color color = f_swatches->get_color();
    // The ready-made colours leave the opacity as it is; a colour that was chosen before comes back whole.
    if (!f_alpha || color.a == 255)
        color.a = f_color.a;
    set_color(color, sender);
}

void color_form::on_hsv_change(TObject *sender)
{
    auto const *spin = static_cast<TSpinEdit *>(sender);
    if (f_showing || !is_number(spin))
        return;
    hsv value = f_hsv;
    if (spin == f_hsv_edits[0])
        value.h = static_cast<double>(spin->GetValue()) / c_full_circle;
    else
        (spin == f_hsv_edits[1] ? value.s : value.v) = static_cast<double>(spin->GetValue()) / c_percent;
    set_hsv(value, sender);
}

void color_form::on_rgb_change(TObject *sender)
{
    if (f_showing || !is_number(static_cast<TSpinEdit *>(sender)))
        return;
    set_color(vx_clr_init_rgba(f_rgb_edits[0]->GetValue(), f_rgb_edits[1]->GetValue(),
                               f_rgb_edits[2]->GetValue(), f_color.a),
              sender);
}

void color_form::on_opacity_change(TObject *sender)
{
    if (f_showing || !is_number(f_opacity_edit))
        return;
    f_opacity_touched = true;
    f_color.a = static_cast<std::uint8_t>((f_opacity_edit->GetValue() * 255 + c_percent / 2) / c_percent);
    show(sender);
}

void color_form::on_code_change(TObject *sender)
{
    Tvx_color color = f_color;
    if (f_showing || !read_code(f_code_edit->GetText(), color))
        return;
    if (!f_alpha)
        color.a = 255;
    f_opacity_touched = f_opacity_touched || color.a != f_color.a;
    set_color(color, sender);
}

/// What is left there in the end is the code of the colour.
void color_form::on_code_exit(TObject *)
{
    show(nullptr);
}

void color_form::on_sample_paint(TObject *)
{
    auto *canvas = f_sample->GetCanvas();
    TRect const rect = Rect(0, 0, f_sample->GetWidth(), f_sample->GetHeight());
    int const middle = rect.Width() / 2;
    fill_checked(canvas, Rect(0, 0, middle, rect.Bottom), f_former);
    fill_checked(canvas, Rect(middle, 0, rect.Right, rect.Bottom), f_color);
    canvas->GetBrush()->SetColor(clBtnShadow);
    canvas->FrameRect(rect);
}

void color_form::set_hsv(hsv const &value, TObject *from)
{
    f_hsv = value;
    auto const alpha = f_color.a;
    f_color = to_color(value);
    f_color.a = alpha;
    colour_chosen();
    show(from);
}

void color_form::set_color(Tvx_color color, TObject *from)
{
    f_color = color;
    f_hsv = to_hsv(color, f_hsv);
    colour_chosen();
    show(from);
}

/// Who chooses a colour where there was none wants to see it.
void color_form::colour_chosen()
{
    if (f_color.a == 0 && !f_opacity_touched)
        f_color.a = 255;
}

bool color_form::is_number(TSpinEdit const *spin)
{
    return !spin->GetText().IsEmpty();
}

void color_form::show_number(TSpinEdit *spin, int value, TObject *from)
{
    if (spin != from)
        spin->SetValue(value);
}

/// Shows the colour everywhere but where it comes from: there the user may still be typing.
void color_form::show(TObject *from)
{
    vx::flag_scope const showing(f_showing);
    f_square->set_value(f_hsv);
    f_hue_strip->set_value(f_hsv.h, f_color);
    show_number(f_hsv_edits[0], static_cast<int>(std::lround(f_hsv.h * c_full_circle)), from);
    show_number(f_hsv_edits[1], percent(f_hsv.s), from);
    show_number(f_hsv_edits[2], percent(f_hsv.v), from);
    show_number(f_rgb_edits[0], f_color.r, from);
    show_number(f_rgb_edits[1], f_color.g, from);
    show_number(f_rgb_edits[2], f_color.b, from);
    if (f_alpha) {
        f_opacity_strip->set_value(f_color.a / 255.0, f_color);
        show_number(f_opacity_edit, percent(f_color.a / 255.0), from);
    }
    if (f_code_edit != from)
        f_code_edit->SetText(code_of(f_color, f_alpha));
    f_sample->Invalidate();
}
} // namespace
} // namespace vx::dialogs

bool vx_color_dialog(HWND parent, int x, int y, Tvx_color *color, int format)
{
    if (!color)
        return false;
    if (auto const &table = vx::dialogs::table(); table.color)
        return table.color(table.user, vx::dialogs::owner_window(parent), x, y, color, format);
    bool const alpha = format != c_color_format_rgb;
    Tvx_color start = *color;
    if (!alpha)
        start.a = 255;
    vx::dialogs::color_form form(start, alpha);
    if (!form.run(parent, x, y))
        return false;
    *color = form.get_color();
    vx::dialogs::color_swatches::remember(*color);
    return true;
}
