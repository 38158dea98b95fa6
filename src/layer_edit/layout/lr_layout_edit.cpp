#include "layer_edit/layout/lr_layout_edit.h"

#include "captions/layer_edit.h"

#include "platform/basic/vx_res.h"

namespace {
constexpr wchar_t c_extension_category[] = L"vxk/layer/layout";
}

Tvx_lr_layout_edit::Tvx_lr_layout_edit(TComponent *owner) : Tvx_lr2d_edit(owner)
{
    f_show_style_tab = false;
}

Tvx_lr_layout_edit::Tvx_lr_layout_edit(TComponent *owner, vx::lr2d_edit_parts const &parts)
    : Tvx_lr2d_edit(owner, parts)
{
    f_show_style_tab = false;
}

void Tvx_lr_layout_edit::load_res()
{
    Tvx_lr2d_edit::load_res();
    if (f_style_ts)
        f_style_ts->SetCaption(vx_res_get_wstr(c_caption_layout_style_tab));
}

std::wstring Tvx_lr_layout_edit::get_extension_category() const
{
    return c_extension_category;
}
