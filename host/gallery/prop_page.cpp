#include "controls/prop/bool_panel.h"
#include "controls/prop/chrmap_panel.h"
#include "controls/prop/clr_vsb_panel.h"
#include "controls/prop/dbf_show.h"
#include "controls/prop/figure_panel.h"
#include "controls/prop/file_panel.h"
#include "controls/prop/fnt_panel.h"
#include "controls/prop/histogram_panel.h"
#include "controls/prop/prop_edit.h"
#include "host/gallery/gallery_page.h"

#include "platform/basic/vx_histogram.h"

#include <array>
#include <cmath>

// The controls that choose a property, a colour, a file, a font, a figure, and those that show a table and a
// histogram.

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
    T *add(int height = 0)
    {
        auto *control = new T(page);
        control->SetParent(page);
        control->SetBounds(left, top, c_width, height > 0 ? height : control->GetHeight());
        top += control->GetHeight() + 8;
        return control;
    }
};

constexpr std::array c_fields{L"NAME", L"POPULATION", L"AREA_KM2", L"FOUNDED"};

bool open_fields(void *, TObject *)
{
    return true;
}
void close_fields(void *, TObject *)
{
}
unsigned count_fields(void *, TObject *)
{
    return static_cast<unsigned>(c_fields.size());
}
wchar_t const *get_field(void *, TObject *, unsigned field, bool &usable, bool &numeric)
{
    usable = true;
    numeric = field > 0;
    return c_fields.at(field);
}

Tvx_prop_edit *add_prop_edit(column &c, wchar_t const *caption)
{
    auto *edit = c.add<Tvx_prop_edit>(24);
    edit->create();
    edit->set_caption(caption);
    edit->set_on_data_open({&open_fields, nullptr});
    edit->set_on_data_close({&close_fields, nullptr});
    edit->set_on_data_get_np({&count_fields, nullptr});
    edit->set_on_data_get_wprop({&get_field, nullptr});
    edit->set_prop_name(L"POPULATION");
    edit->update_controls();
    return edit;
}

void fill_properties(column &c)
{
    add_prop_edit(c, L"Property");
    add_prop_edit(c, L"Greyed")->set_grayed(true);
    add_prop_edit(c, L"Disabled")->set_enabled(false);
    auto *above = add_prop_edit(c, L"Label above");
    above->set_top_location(1);
    c.top += 24;
}

void fill_choices(column &c)
{
    c.add<Tvx_bool_panel>(20)->set_caption(L"Symbol in place of a figure");
    auto *flag = c.add<Tvx_bool_panel>(20);
    flag->set_caption(L"Complex style");
    flag->set_flag(true);
    auto *figure = c.add<Tvx_figure_panel>();
    figure->set_caption(L"Figure");
    figure->set_figure(13);
    auto *lr_figure = c.add<Tvx_lr_figure_panel>();
    lr_figure->set_caption(L"Figure of a style layer");
    lr_figure->set_lr_figure(4);
    auto *symbol = c.add<Tvx_chrmap_panel>();
    symbol->set_caption(L"Character");
    symbol->set_symbol(0x2302);
    auto *color = c.add<Tvx_clr_vsb_panel>();
    color->set_text(L"Colour and visibility");
    color->set_color(vx_clr_init_rgb(40, 120, 200));
    auto *translucent = c.add<Tvx_clr_vsb_panel>();
    translucent->set_text(L"Translucent, hidden");
    translucent->set_color(vx_clr_init_rgba(220, 60, 20, 110));
    translucent->set_visible(false);
    auto *plain = c.add<Tvx_clr_vsb_panel>();
    plain->set_text(L"Without the eye");
    plain->set_can_visible(false);
    plain->set_color(vx_clr_init_rgb(30, 140, 60));
    auto *picked = c.add<Tvx_clr_vsb_pick_panel>();
    picked->set_text(L"From the screen");
    picked->set_color(vx_clr_init_rgb(250, 210, 40));
    auto *off = c.add<Tvx_clr_vsb_panel>();
    off->set_text(L"Disabled");
    off->set_color(vx_clr_init_rgb(200, 40, 40));
    off->set_enabled(false);
    auto *no_figure = c.add<Tvx_figure_panel>();
    no_figure->set_caption(L"Disabled");
    no_figure->set_figure(13);
    no_figure->SetEnabled(false);
    auto *font = c.add<Tvx_fnt_panel>(24);
    font->set_caption(L"Font");
}

void fill_files(column &c)
{
    auto *file = c.add<Tvx_file_panel>();
    file->set_caption(L"Table");
    file->set_wfilename(L"/home/maps/rivers and lakes.dbf");
    auto *name = c.add<Tvx_file_panel>();
    name->set_caption(L"Without path");
    name->set_wfilename(L"/home/maps/rivers and lakes.dbf");
    name->set_type_visual_file_name(1);
    name->set_pop_menu(true);
    auto *off = c.add<Tvx_file_panel>();
    off->set_caption(L"Disabled");
    off->set_wfilename(L"/home/maps/roads.dbf");
    off->set_enabled(false);
    auto *above = c.add<Tvx_file_panel>(40);
    above->set_caption(L"Label above");
    above->set_wfilename(L"/home/maps/settlements.dbf");
    above->set_top_location(1);
}

void fill_page(TWinControl *page)
{
    column left{page, c_left};
    column right{page, c_right};
    fill_properties(left);
    fill_files(left);
    fill_choices(right);
}

/// A normal distribution; lives as long as the program.
Tvx_histogramm_data const *sample_histogram()
{
    static Tvx_histogramm_data const *const sample = [] {
        constexpr unsigned count = 40;
        Tvx_histogramm_data *histogram = vx_histogramm_create();
        vx_histogramm_set_params(histogram, count, 0.0, 255.0);
        for (unsigned i = 0; i < count; ++i)
            vx_histogramm_set(histogram, i, 1000.0 * std::exp(-std::pow((i - 16.0) / 7.0, 2)));
        return histogram;
    }();
    return sample;
}

void fill_views(TWinControl *page)
{
    column left{page, c_left};
    auto *histogram = left.add<Tvx_histogram_panel>(300);
    histogram->SetWidth(c_width + 80);
    histogram->create();
    histogram->set_histogramm(sample_histogram());
    histogram->set_val1(60);
    histogram->set_val2(150);
    histogram->update_controls();
    column right{page, c_right + 80};
    auto *table = right.add<Tvx_dbf_show_panel>(300);
    table->SetWidth(240);
    table->show(L"" VX_EXAMPLE_DATA "/nc.dbf", false);
}

gallery_page const g_page(30, L"Properties", &fill_page);
gallery_page const g_views_page(31, L"Tables and histograms", &fill_views);
} // namespace
