#include "controls/forms/bottom_panel.h"
#include "controls/forms/caption_panels.h"
#include "controls/forms/vcl_bottom_buttons.h"
#include "controls/forms/vcl_progress_panel.h"
#include "controls/forms/vcl_select_box.h"
#include "host/gallery/gallery_page.h"

// The parts that forms are made of: strips of buttons, captioned panels, progress.

namespace {
constexpr int c_left = 16;
constexpr int c_width = 480;
constexpr int c_gap = 12;

struct column
{
    TWinControl *page;
    int top = 16;

    template <class T>
    T *place(int height)
    {
        auto *control = new T(page);
        control->SetParent(page);
        control->SetBounds(c_left, top, c_width, height);
        top += height + c_gap;
        return control;
    }
    template <class T>
    T *place_vcl(int height)
    {
        T *control = place<T>(height);
        control->create();
        control->load_rc();
        return control;
    }
};

void fill(TWinControl *page)
{
    column c{page};
    auto *text = c.place<Tvx_string_panel>(24);
    text->set_caption(L"&Title");
    text->set_string(L"Rivers and lakes");
    auto *box = c.place_vcl<Tvx_vcl_select_box_panel>(24);
    box->set_caption(L"&Projection");
    box->set_data_width(200);
    for (unsigned i = 0; i < 3; ++i)
        box->add_item(UnicodeString(L"Zone ") + UnicodeString(static_cast<int>(i) + 34), i);
    auto *progress = c.place_vcl<Tvx_vcl_progress_panel>(50);
    progress->set_caption(L"rivers.shp");
    progress->set_progress(40);
    auto *strip = c.place<Tvx_bottom_panel>(Tvx_bottom_panel::c_height);
    strip->load_res();
    strip->get_help_btn()->SetVisible(true);
    auto *buttons = c.place_vcl<Tvx_vcl_bottom_buttons>(30);
    buttons->set_help_visible(true);
    buttons->set_save_visible(true);
    buttons->set_load_visible(true);
}

gallery_page const g_forms(19, L"Parts of forms", &fill);
} // namespace
