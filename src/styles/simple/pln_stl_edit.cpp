#include "styles/simple/pln_stl_edit.h"

#include "captions/simple.h"
#include "styles/libraries/vxk_lib_styles.h"

#include "platform/storage/vx_xml_data.h"
#include "platform/styles/vx_style.h"
#include "platform/styles/vx_style_keys.h"

Tvx_pln_stl_edit::Tvx_pln_stl_edit(TComponent *owner)
    : Tvx_paged_style_edit(owner, {{&vx_pln_style_create, &vx_pln_style_destroy, &vx_pln_style_assign},
                                   c_pln_style_ext,
                                   c_smp_pln_files,
                                   &vx_xml_save_style_load_style_pln_file,
                                   &vx_xml_save_style_save_style_pln_file,
                                   &vxk_lib_styles_get_pln}),
      f_bpln_edit(add_page<Tvx_bpln_edit>({L"bpln_ts", c_smp_tab_line, &vx_pln_style_get_bpln_style_ptr,
                                           &vx_pln_style_get_pln_visible, &vx_pln_style_set_pln_visible})),
      f_bpnt_edit(add_page<Tvx_bpnt_edit>({L"bpnt_ts", c_smp_tab_vertices, &vx_pln_style_get_bpnt_style_ptr,
                                           &vx_pln_style_get_pnt_visible, &vx_pln_style_set_pnt_visible})),
      f_bend_edit(add_page<Tvx_bpnt_edit>({L"bend_ts", c_smp_tab_end, &vx_pln_style_get_bend_style_ptr,
                                           &vx_pln_style_get_end_visible, &vx_pln_style_set_end_visible})),
      f_bbeg_edit(add_page<Tvx_bpnt_edit>({L"bbeg_ts", c_smp_tab_begin, &vx_pln_style_get_bbeg_style_ptr,
                                           &vx_pln_style_get_beg_visible, &vx_pln_style_set_beg_visible}))
{
}
