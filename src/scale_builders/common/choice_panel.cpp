#include "scale_builders/common/choice_panel.h"

#include "scale_builders/common/detail/rows.h"

#include "platform/basic/vx_res.h"

namespace {
constexpr int c_caption_width = 100;
}

void Tvx_vcl_choice_panel::create()
{
    Tvx_vcl_panel::create();
    f_group = vx::builders::add_group(this);
    f_box = vx::builders::add_row<Tvx_vcl_select_box_panel>(f_group);
    f_box->set_caption_width(c_caption_width);
    for (auto const &choice : choices())
        f_box->add_item(choice.text, static_cast<unsigned>(choice.id));
    f_box->set_on_change(make_closure<&Tvx_vcl_choice_panel::on_box_change>(this));
}

void Tvx_vcl_choice_panel::load_rc()
{
    f_group->SetText(vx_res_get_wstr(group_caption()));
    f_box->set_caption(vx_res_get_wstr(box_caption()));
    int place = 0;
    for (auto const &choice : choices())
        f_box->set_item_captions(place++, vx_res_get_wstr(choice.caption));
}
