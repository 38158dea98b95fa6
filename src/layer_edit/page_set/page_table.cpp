#include "layer_edit/page_set/page_table.h"

namespace vx {
lr2d_edit_parts const &lr2d_edit_parts_of_library()
{
    // One line for each page: {lr2d_page::rtr, &make<Tvx_rtr_id_lr2d_edit>}.
    static constexpr lr2d_edit_parts parts = {};
    return parts;
}
} // namespace vx
