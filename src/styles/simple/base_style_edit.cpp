#include "styles/simple/base_style_edit.h"

#include "captions/simple.h"

#include "platform/basic/vx_res.h"
#include "platform/toolkit/core/new_on.h"

namespace {
constexpr int c_row_height = 20;
constexpr int c_side_margin = 6;
constexpr int c_row_margin = 3;
constexpr int c_unit_width = 20;

void set_margins(TControl *control)
{
    control->SetAlignWithMargins(true);
    control->GetMargins()->SetBounds(c_side_margin, c_row_margin, c_side_margin, c_row_margin);
}
} // namespace

Tvx_base_style_edit::Tvx_base_style_edit(TComponent *owner, base_style const &style)
    : Tvx_style_edit(owner, style.type), f_functions(style)
{
}

void Tvx_base_style_edit::place_row(TControl *control)
{
    auto *windowed = static_cast<TWinControl *>(control);
    windowed->SetParent(this);
    windowed->SetBounds(0, f_rows_bottom, GetClientWidth(), c_row_height);
    set_margins(windowed);
    windowed->SetAlign(alTop);
    f_rows_bottom += c_row_height + 2 * c_row_margin;
}

void Tvx_base_style_edit::add_common_rows()
{
    f_color = add_row<Tvx_clr_vsb_panel>();
    f_color->set_can_visible(false);
    f_color->on_changed = make_closure<&Tvx_base_style_edit::on_color_changed>(this);
    if (f_functions.get_size) {
        f_size = add_row<Tvx_size_panel>();
        f_size->set_precision(f_functions.size_decimals);
        f_size->set_min(0);
        // Room for the unit; the panel gives a wider text what it needs.
        f_size->set_end_caption_width(c_unit_width);
        f_size->set_end_caption_visible(true);
        f_size->on_changed = make_closure<&Tvx_base_style_edit::on_size_changed>(this);
    }
    f_cpx_panel = new Tvx_cpx_stl_panel(this);
    place_row(f_cpx_panel);
    f_cpx_panel->on_click = make_closure<&Tvx_base_style_edit::on_edt_cpx_click>(this);
    // At the bottom, so that the switch does not move away from under the pointer that turns it.
    auto *flat = vx_new_on<Tvx_panel>(this, this);
    flat->SetHeight(c_row_height);
    set_margins(flat);
    flat->SetAlign(alBottom);
    f_use_cpx = vx_new_on<Tvx_bool_panel>(flat, this);
    f_use_cpx->SetAlign(alClient);
    f_use_cpx->on_changed = make_closure<&Tvx_base_style_edit::on_use_cpx_changed>(this);
}

void Tvx_base_style_edit::load_res()
{
    f_color->load_res();
    f_color->set_text(vx_res_get_wstr(c_smp_color));
    if (f_size) {
        f_size->set_text(vx_res_get_wstr(f_functions.size_caption));
        f_size->set_end_caption(vx_res_get_wstr(c_smp_mm));
    }
    f_cpx_panel->set_caption(vx_res_get_wstr(c_smp_complex_style));
    f_cpx_panel->load_res();
    f_use_cpx->set_caption(vx_res_get_wstr(c_smp_use_complex));
}

void Tvx_base_style_edit::update_controls()
{
    f_color->set_color(f_functions.get_color(get_style()));
    if (f_size)
        f_size->set_size(f_functions.get_size(get_style()));
    show_rows();
}

/// Shows and hides the rows and closes them up; the complex row is the last.
void Tvx_base_style_edit::show_rows()
{
    void const *const style = get_style();
    bool const complex = f_functions.get_use_complex(style);
    f_use_cpx->set_flag(complex);
    DisableAlign();
    int top = 0;
    auto const put = [&top](TControl *control, bool visible) {
        control->SetVisible(visible);
        control->SetTop(top);
        top += control->GetHeight();
    };
    for (row const &r : f_rows)
        put(r.control, !complex && (!r.shown || r.shown(style)));
    put(f_cpx_panel, complex);
    EnableAlign();
}

void Tvx_base_style_edit::on_color_changed(TObject * /*sender*/)
{
    f_functions.set_color(get_style(), f_color->get_color());
    call_changed();
}

void Tvx_base_style_edit::on_size_changed(TObject * /*sender*/)
{
    f_functions.set_size(get_style(), f_size->get_size());
    call_changed();
}

void Tvx_base_style_edit::on_use_cpx_changed(TObject * /*sender*/)
{
    f_functions.set_use_complex(get_style(), f_use_cpx->get_flag());
    update_controls();
    call_changed();
}

void Tvx_base_style_edit::on_edt_cpx_click(TObject * /*sender*/)
{
    if (f_functions.edit_complex(f_functions.get_complex(get_style())))
        call_changed();
}
