#include "style_manager/scales/name_menu.h"

#include "captions/scale_menus.h"
#include "scale_engine/range/range_scale_sort.h"
#include "scale_engine/value/value_scale_sort.h"
#include "style_manager/api/style_mode.h"
#include "style_manager/scales/detail/scale_rows.h"

#include "platform/basic/vx_res.h"
#include "platform/styles/vx_stl_mngr.h"
#include "platform/toolkit/core/screen.h"

namespace {
enum : TTag
{
    c_str_ascending = 1,
    c_str_descending,
    c_num_ascending,
    c_num_descending,
};

namespace task = vx::task;
} // namespace

void Tvx_name_menu::create()
{
    auto const click = make_closure<&Tvx_name_menu::on_item_click>(this);
    f_sort_str = add_item(nullptr, L"Sort str", 0, {});
    add_item(f_sort_str, L"Sort str ascending", c_str_ascending, click);
    add_item(f_sort_str, L"Sort str descending", c_str_descending, click);
    f_sort_num = add_item(nullptr, L"Sort num", 0, {});
    add_item(f_sort_num, L"Sort num ascending", c_num_ascending, click);
    add_item(f_sort_num, L"Sort num descending", c_num_descending, click);
}

void Tvx_name_menu::load_res()
{
    f_sort_str->SetCaption(vx_res_get_wstr(c_menu_sort_texts));
    f_sort_num->SetCaption(vx_res_get_wstr(c_menu_sort_numbers));
    for (auto *const sort : {f_sort_str, f_sort_num}) {
        sort->GetItems(0)->SetCaption(vx_res_get_wstr(c_menu_ascending));
        sort->GetItems(1)->SetCaption(vx_res_get_wstr(c_menu_descending));
    }
}

void Tvx_name_menu::update_controls()
{
    Tvx_style_mode const mode = vx_stl_mngr_get_mode(get_stl_mngr());
    if (mode == c_style_mode_value || mode == c_style_mode_range)
        f_sort_str->SetVisible(mode == c_style_mode_value || f_caption_flag);
}

void Tvx_name_menu::on_item_click(TObject *sender)
{
    Tvx_scale_rows const rows(get_stl_mngr());
    if (!rows.has_scale())
        return;
    TTag const tag = static_cast<TMenuItem *>(sender)->GetTag();
    auto const as = tag >= c_num_ascending ? task::scale_sortas::numbers : task::scale_sortas::strings;
    auto const order = tag == c_str_descending || tag == c_num_descending ? task::scale_sortord::descending
                                                                          : task::scale_sortord::ascending;
    {
        vx_wait_cursor const waiting;
        if (rows.is_range())
            task::range_scale_sort(f_caption_flag  ? task::scale_sortby::caption
                                   : f_is_min_flag ? task::scale_sortby::minimum
                                                   : task::scale_sortby::maximum,
                                   f_caption_flag ? as : task::scale_sortas::numbers, order)
                .execute(rows.get_scale());
        else
            task::value_scale_sort(f_caption_flag ? task::scale_sortby::caption : task::scale_sortby::text,
                                   as, order)
                .execute(rows.get_scale());
    }
    call_changed();
}
