#include "layer_edit/page_set/page_table.h"

#include "extension/plugin/lr_2d_edit_plugin_module.h"
#include "extension/service/lr2d_edit_extensions.h"
#include "layer_edit/page_set/style_plugin_page_priv.h"
#include "layer_edit/shape/shp_lr2d_edit.h"
#include "layer_edit/text/dtld_lr2d_edit.h"
#include "layer_edit/text/tld_lr2d_edit.h"
#include "layer_edit/text/txt_mngr_lr2d_edit.h"
#include "raster_property/property/tos_2crd_lr2d_edit.h"
#include "raster_property/property/tos_grid_lr2d_edit.h"
#include "raster_property/property/tos_slice_lr2d_edit.h"
#include "raster_property/raster/rtr_id_lr2d_edit.h"

namespace vx {
namespace {
template <class Page>
Tvx_basic_lr2d_edit *make(TComponent *owner)
{
    return new Page(owner);
}

constexpr lr2d_page_factory c_pages[] = {
    {lr2d_page::rtr, &make<Tvx_rtr_id_lr2d_edit>},
    {lr2d_page::shp_pnt, &make<style_plugin_page<Tvx_shp_pnt_lr2d_edit>>},
    {lr2d_page::shp_pln, &make<style_plugin_page<Tvx_shp_pln_lr2d_edit>>},
    {lr2d_page::shp_pgn, &make<style_plugin_page<Tvx_shp_pgn_lr2d_edit>>},
    {lr2d_page::tld, &make<Tvx_tld_lr2d_edit>},
    {lr2d_page::dtld, &make<Tvx_dtld_lr2d_edit>},
    {lr2d_page::txt_pnt, &make<Tvx_txt_pnt_mngr_lr2d_edit>},
    {lr2d_page::txt_pln, &make<Tvx_txt_pln_mngr_lr2d_edit>},
    {lr2d_page::txt_pgn, &make<Tvx_txt_pgn_mngr_lr2d_edit>},
    {lr2d_page::txt_tos_2crd, &make<Tvx_txt_tos_2crd_mngr_lr2d_edit>},
    {lr2d_page::tos_grid, &make<Tvx_tos_grid_lr2d_edit>},
    {lr2d_page::tos_slice, &make<Tvx_tos_slice_lr2d_edit>},
    {lr2d_page::tos_2crd, &make<style_plugin_page<Tvx_tos_2crd_lr2d_edit>>},
};
} // namespace

lr2d_edit_parts const &lr2d_edit_parts_of_library()
{
    static constexpr lr2d_edit_parts parts = {
        .pages = c_pages,
        .load_plugins = &vx_lr2d_page_plugins_load,
        .make_custom_pages = &Tvx_lr2d_edit_extensions::make,
    };
    return parts;
}
} // namespace vx
