#include "controls/numeric/capt_edit_panel.h"
#include "controls/numeric/fast_int_panel.h"
#include "controls/numeric/size_updown_panels.h"
#include "controls/numeric/vcl_edit_panels.h"
#include "controls/numeric/vcl_ratio_panel.h"
#include "controls/numeric/vcl_show_panels.h"
#include "host/gallery/gallery_page.h"

#include <limits>

namespace {
constexpr int c_left = 16;
constexpr int c_right = 350;
constexpr int c_width = 300;

/// Puts controls below one another.
struct column
{
    TWinControl *page;
    int left;
    int top = 16;

    template <class T>
    T *place(T *control)
    {
        control->SetParent(page);
        control->SetBounds(left, top, c_width, control->GetHeight());
        top += control->GetHeight() + 8;
        return control;
    }
    template <class T>
    T *add()
    {
        return place(new T(page));
    }
    /// For those that are built late.
    template <class T>
    T *add_vcl(wchar_t const *caption)
    {
        auto *panel = place(new T(page));
        panel->create();
        panel->load_rc();
        if constexpr (requires { panel->set_caption(caption); })
            panel->set_caption(caption);
        return panel;
    }
};

void fill_edits(column c)
{
    auto *count = c.add_vcl<Tvx_vcl_int_edit_panel>(L"Count of ranges");
    count->set_value(10);
    auto *step = c.add_vcl<Tvx_vcl_dbl_edit_panel>(L"Step");
    step->set_value(0.125);
    step->set_data_width(100);
    step->set_end_caption(L"km");
    step->set_end_caption_visible(true);
    auto *wide = c.add_vcl<Tvx_vcl_dbl_edit_panel>(L"Minimum");
    wide->set_caption_width(100);
    wide->set_value(-1.5e-12);
    auto *locked = c.add_vcl<Tvx_vcl_dbl_edit_panel>(L"Cannot be changed");
    locked->set_value(42);
    locked->set_edit_enabled(false);
    auto *off = c.add_vcl<Tvx_vcl_int_edit_panel>(L"Disabled");
    off->get_edit()->SetEnabled(false);
    auto *spin = c.add_vcl<Tvx_vcl_spin_edit_panel>(L"Spin edit");
    spin->set_max(100);
    spin->set_value(7);
    auto *text = c.add_vcl<Tvx_vcl_text_edit_panel>(L"Text");
    text->set_data_width(160);
    text->set_text(L"Rivers and lakes");
    c.add_vcl<Tvx_vcl_int_show_panel>(L"N all")->set_value(123456);
    auto *shown = c.add_vcl<Tvx_vcl_dbl_show_panel>(L"Maximum");
    shown->set_data_width(110);
    shown->set_value(1.25e15);
    auto *ratio = c.add_vcl<Tvx_vcl_ratio_panel>(L"");
    ratio->set_lft_caption(L"Equal steps");
    ratio->set_rgt_caption(L"Equal counts");
    ratio->set_value(35);
}

void fill_sizes(column c)
{
    auto *size = c.add<Tvx_size_panel>();
    size->set_text(L"Size");
    size->set_precision(1);
    size->set_size(2.5);
    size->set_end_caption(L"mm");
    size->set_end_caption_visible(true);
    auto *scale = c.add<Tvx_size_panel>();
    scale->set_text(L"Scale, to hundreds");
    scale->set_text_width(130);
    scale->set_precision(0);
    scale->set_precision_both_way(2);
    scale->set_size(123456);
    auto *free = c.add<Tvx_size_panel>();
    free->set_text(L"Any number, zeros trimmed");
    free->set_trim_trailing_zeros(true);
    free->set_size(0.75);
    auto *above = c.add<Tvx_size_panel>();
    above->set_text(L"Label above");
    above->set_top_location(1);
    above->set_edt_ctrl_width(120);
    above->set_end_caption(L"m");
    above->set_end_caption_visible(true);
    above->set_size(1);
    c.top += above->GetHeight() - 20;
    auto *bare = c.add<Tvx_size_panel>();
    bare->set_has_label(false);
    bare->set_size(std::numeric_limits<double>::quiet_NaN());
    bare->get_edit()->SetTextHint(L"empty, without a label");
    bare->get_edit()->SetAccessibleName(L"Size without a label");
    auto *red = c.add<Tvx_size_panel>();
    red->set_text(L"Coloured");
    red->set_edit_color(clYellow);
    red->set_font_color(clMaroon);
    red->set_size(3);
    auto *off = c.add<Tvx_size_panel>();
    off->set_text(L"Disabled");
    off->set_size(3);
    off->set_enabled(false);
    auto *tied = c.add<Tvx_size_updown_panel>();
    tied->set_text(L"With buttons");
    tied->set_position(5);
    tied->set_end_caption(L"%");
    tied->set_end_caption_visible(true);
    auto *counting = c.add<Tvx_edit_val_updown_panel>();
    counting->set_text(L"With buttons that count");
    counting->set_precision(1);
    counting->set_position(20);
    auto *opacity = c.add<Tvx_fast_int_panel>();
    opacity->set_caption(L"Opacity");
    opacity->set_caption_width(120);
    opacity->set_min(-1);
    opacity->set_max(99);
    opacity->set_position(64);
    opacity->update_controls();
    auto *name = c.add<Tvx_capt_edit_panel>();
    name->set_capt(L"Name");
    name->set_capt_width(120);
    name->set_text(L"Contour lines");
}

void fill(TWinControl *page)
{
    fill_edits({page, c_left});
    fill_sizes({page, c_right});
}

gallery_page const g_numbers(20, L"Numbers", &fill);
} // namespace
