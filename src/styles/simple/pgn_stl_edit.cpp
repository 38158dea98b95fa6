#include "styles/simple/pgn_stl_edit.h"

#include "captions/simple.h"
#include "styles/libraries/vxk_lib_styles.h"

#include "platform/storage/vx_xml_data.h"
#include "platform/styles/vx_style.h"
#include "platform/styles/vx_style_keys.h"

Tvx_pgn_stl_edit::Tvx_pgn_stl_edit(TComponent *owner)
    : Tvx_paged_style_edit(owner, {{&vx_pgn_style_create, &vx_pgn_style_destroy, &vx_pgn_style_assign},
                                   c_pgn_style_ext,
                                   c_smp_pgn_files,
                                   &vx_xml_save_style_load_style_pgn_file,
                                   &vx_xml_save_style_save_style_pgn_file,
                                   &vxk_lib_styles_get_pgn}),
      f_bpgn_edit(add_page<Tvx_bpgn_edit>({L"bpgn_ts", c_smp_tab_fill, &vx_pgn_style_get_bpgn_style_ptr,
                                           &vx_pgn_style_get_pgn_visible, &vx_pgn_style_set_pgn_visible})),
      f_bpln_edit(add_page<Tvx_bpln_edit>({L"bpln_ts", c_smp_tab_outline, &vx_pgn_style_get_bpln_style_ptr,
                                           &vx_pgn_style_get_pln_visible, &vx_pgn_style_set_pln_visible})),
      f_bpnt_edit(add_page<Tvx_bpnt_edit>({L"bpnt_ts", c_smp_tab_vertices, &vx_pgn_style_get_bpnt_style_ptr,
                                           &vx_pgn_style_get_pnt_visible, &vx_pgn_style_set_pnt_visible}))
{
}
