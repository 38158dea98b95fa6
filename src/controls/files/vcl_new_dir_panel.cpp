#include "controls/files/vcl_new_dir_panel.h"

#include "platform/toolkit/core/new_on.h"

namespace {
constexpr int c_row_height = 22;
constexpr int c_row_gap = 4;
constexpr int c_caption_width = 130;
} // namespace

void Tvx_vcl_new_dir_panel::create()
{
    Tvx_vcl_panel::create();
    SetHeight(2 * c_row_height + c_row_gap);
    f_dir = vx_new_on<Tvx_vcl_dir_panel>(this, this);
    f_dir->create();
    f_dir->SetHeight(c_row_height);
    f_dir->SetAlign(alTop);
    f_sub_dir = vx_new_on<Tvx_vcl_text_edit_panel>(this, this);
    f_sub_dir->create();
    f_sub_dir->set_caption_width(c_caption_width);
    f_sub_dir->SetHeight(c_row_height);
    f_sub_dir->SetAlign(alBottom);
}

void Tvx_vcl_new_dir_panel::load_rc()
{
    f_dir->load_rc();
    f_sub_dir->load_rc();
}
