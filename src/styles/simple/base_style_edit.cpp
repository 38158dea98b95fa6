#include "styles/simple/base_style_edit.h"

#include "styles/simple/simple_captions.h"

#include "platform/basic/vx_res.h"

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

Tvx_base_style_edit::Tvx_base_style_edit(TComponent *owner) : Tvx_style_edit(owner)
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

void Tvx_base_style_edit::show_unit(Tvx_size_panel *panel)
{
    panel->set_end_caption_width(c_unit_width);
    panel->set_end_caption_visible(true);
}

void Tvx_base_style_edit::add_cpx_rows()
{
    f_cpx_panel = add_row<Tvx_cpx_stl_panel>();
    f_cpx_panel->on_click = make_closure<&Tvx_base_style_edit::on_edt_cpx_click>(this);
    // At the bottom, so that the switch does not move away from under the pointer that turns it.
    auto *flat = new Tvx_panel(this);
    flat->SetParent(this);
    flat->SetHeight(c_row_height);
    set_margins(flat);
    flat->SetAlign(alBottom);
    f_use_cpx = new Tvx_bool_panel(this);
    f_use_cpx->SetParent(flat);
    f_use_cpx->SetAlign(alClient);
    f_use_cpx->on_changed = make_closure<&Tvx_base_style_edit::on_use_cpx_changed>(this);
}

void Tvx_base_style_edit::load_res()
{
    f_cpx_panel->set_caption(vx_res_get_wstr(c_smp_complex_style));
    f_cpx_panel->load_res();
    f_use_cpx->set_caption(vx_res_get_wstr(c_smp_use_complex));
}

void Tvx_base_style_edit::show_rows(std::initializer_list<row> rows, bool complex)
{
    f_use_cpx->set_flag(complex);
    DisableAlign();
    int top = 0;
    auto const put = [&top](row const &r) {
        r.control->SetVisible(r.visible);
        r.control->SetTop(top);
        top += r.control->GetHeight();
    };
    for (row const &r : rows)
        put(r);
    put({f_cpx_panel, complex});
    EnableAlign();
}

void Tvx_base_style_edit::on_use_cpx_changed(TObject * /*sender*/)
{
    set_use_complex(f_use_cpx->get_flag());
    update_controls();
    call_changed();
}

void Tvx_base_style_edit::on_edt_cpx_click(TObject * /*sender*/)
{
    if (edit_complex())
        call_changed();
}
