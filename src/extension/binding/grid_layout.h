#pragma once

// Made by tools/generate_binding.py from families.def; not to be edited.
// clang-format off

#include "extension/binding/button.h"
#include "extension/binding/checkbox.h"
#include "extension/binding/element_view.h"
#include "extension/binding/elements_families.h"
#include "extension/binding/grids_families.h"
#include "extension/binding/interface.h"
#include "extension/binding/label.h"
#include "extension/binding/multiline_output.h"
#include "extension/binding/output.h"
#include "extension/binding/scenes_families.h"
#include "extension/binding/shell_families.h"
#include "extension/binding/string_visitor.h"

VX_BINDING_HANDLE(grid_layout)
VX_BINDING_HANDLE(element_visitor)
VX_BINDING_HANDLE(groupbox)
VX_BINDING_HANDLE(scroll_layout)
struct vx_grid_layout_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
    int (*column_count)(void const* table, void* self);
    int (*row_count)(void const* table, void* self);
    bool (*column_visible)(void const* table, void* self, int column);
    bool (*row_visible)(void const* table, void* self, int row);
    bool (*column_avid)(void const* table, void* self, int column);
    bool (*row_avid)(void const* table, void* self, int row);
    void (*with_element)(void const* table, void* self, int column, int row,
        t_vx_element_visitor_interface visitor);
    void (*reattach)(void const* table, void* self, t_vx_element_view_interface view);
};

struct vx_element_visitor_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
    void (*visit_grid_layout)(void const* table, void* self, t_vx_grid_layout_interface element);
    void (*visit_tab_layout)(void const* table, void* self, t_vx_tab_layout_interface element);
    void (*visit_split_layout)(void const* table, void* self, t_vx_split_layout_interface element);
    void (*visit_stack_layout)(void const* table, void* self, t_vx_stack_layout_interface element);
    void (*visit_v_scroll_layout)(void const* table, void* self, t_vx_scroll_layout_interface element);
    void (*visit_h_scroll_layout)(void const* table, void* self, t_vx_scroll_layout_interface element);
    void (*visit_input)(void const* table, void* self, t_vx_input_interface element);
    void (*visit_multiline_input)(void const* table, void* self, t_vx_multiline_input_interface element);
    void (*visit_rich_input)(void const* table, void* self, t_vx_rich_input_interface element);
    void (*visit_integer_input)(void const* table, void* self, t_vx_integer_input_interface element);
    void (*visit_integer_output)(void const* table, void* self, t_vx_integer_output_interface element);
    void (*visit_floating_input)(void const* table, void* self, t_vx_floating_input_interface element);
    void (*visit_floating_output)(void const* table, void* self, t_vx_floating_output_interface element);
    void (*visit_output)(void const* table, void* self, t_vx_output_interface element);
    void (*visit_multiline_output)(void const* table, void* self, t_vx_multiline_output_interface element);
    void (*visit_assisted_input)(void const* table, void* self, t_vx_assisted_input_interface element);
    void (*visit_button)(void const* table, void* self, t_vx_button_interface element);
    void (*visit_label)(void const* table, void* self, t_vx_label_interface element);
    void (*visit_outline)(void const* table, void* self, t_vx_outline_interface element);
    void (*visit_list)(void const* table, void* self, t_vx_list_interface element);
    void (*visit_grid)(void const* table, void* self, t_vx_grid_interface element);
    void (*visit_checkbox)(void const* table, void* self, t_vx_checkbox_interface element);
    void (*visit_radiobutton)(void const* table, void* self, t_vx_radiobutton_interface element);
    void (*visit_dropdown)(void const* table, void* self, t_vx_dropdown_interface element);
    void (*visit_groupbox)(void const* table, void* self, t_vx_groupbox_interface element);
    void (*visit_toolbar)(void const* table, void* self, t_vx_toolbar_interface element);
    void (*visit_statusbar)(void const* table, void* self, t_vx_statusbar_interface element);
    void (*visit_buttoned_output)(void const* table, void* self, t_vx_buttoned_output_interface element);
    void (*visit_checkbox_list)(void const* table, void* self, t_vx_checkbox_list_interface element);
    void (*visit_slider)(void const* table, void* self, t_vx_slider_interface element);
    void (*visit_canvas)(void const* table, void* self, t_vx_canvas_interface element);
    void (*visit_image)(void const* table, void* self, t_vx_image_interface element);
    void (*visit_histogram)(void const* table, void* self, t_vx_histogram_interface element);
    void (*visit_gauge)(void const* table, void* self, t_vx_gauge_interface element);
    void (*visit_viewer_2d_panel)(void const* table, void* self, t_vx_viewer_2d_panel_interface element);
};

struct vx_groupbox_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
    void (*with_caption)(void const* table, void* self, t_vx_string_visitor_interface visitor);
    void (*with_element)(void const* table, void* self, t_vx_element_visitor_interface visitor);
    void (*reattach)(void const* table, void* self, t_vx_element_view_interface view);
};

struct vx_scroll_layout_interface_table
{
    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);
    bool (*visible)(void const* table, void* self);
    void (*with_element)(void const* table, void* self, t_vx_element_visitor_interface visitor);
    void (*reattach)(void const* table, void* self, t_vx_element_view_interface view);
};

VX_BINDING_FUNCTIONS(grid_layout, 91)
VX_LOCAL inline int vxk_framework_grid_layout_column_count(t_vx_grid_layout_interface h)
{
    return h.table && h.self ? h.table->column_count(h.table, h.self) : 0;
}
VX_LOCAL inline int vxk_framework_grid_layout_row_count(t_vx_grid_layout_interface h)
{
    return h.table && h.self ? h.table->row_count(h.table, h.self) : 0;
}
VX_LOCAL inline bool vxk_framework_grid_layout_column_visible(t_vx_grid_layout_interface h, int column)
{
    return h.table && h.self ? h.table->column_visible(h.table, h.self, column) : true;
}
VX_LOCAL inline bool vxk_framework_grid_layout_row_visible(t_vx_grid_layout_interface h, int row)
{
    return h.table && h.self ? h.table->row_visible(h.table, h.self, row) : true;
}
VX_LOCAL inline bool vxk_framework_grid_layout_column_avid(t_vx_grid_layout_interface h, int column)
{
    return h.table && h.self ? h.table->column_avid(h.table, h.self, column) : false;
}
VX_LOCAL inline bool vxk_framework_grid_layout_row_avid(t_vx_grid_layout_interface h, int row)
{
    return h.table && h.self ? h.table->row_avid(h.table, h.self, row) : false;
}
VX_LOCAL inline void vxk_framework_grid_layout_with_element(
    t_vx_grid_layout_interface h, int column, int row, t_vx_element_visitor_interface visitor)
{
    if (h.table && h.self)
        h.table->with_element(h.table, h.self, column, row, visitor);
}
VX_LOCAL inline void vxk_framework_grid_layout_reattach(
    t_vx_grid_layout_interface h, t_vx_element_view_interface view)
{
    if (h.table && h.self)
        h.table->reattach(h.table, h.self, view);
}

VX_BINDING_FUNCTIONS(element_visitor, 92)
VX_LOCAL inline void vxk_framework_element_visitor_visit_grid_layout(
    t_vx_element_visitor_interface h, t_vx_grid_layout_interface element)
{
    if (h.table && h.self)
        h.table->visit_grid_layout(h.table, h.self, element);
}
VX_LOCAL inline void vxk_framework_element_visitor_visit_tab_layout(
    t_vx_element_visitor_interface h, t_vx_tab_layout_interface element)
{
    if (h.table && h.self)
        h.table->visit_tab_layout(h.table, h.self, element);
}
VX_LOCAL inline void vxk_framework_element_visitor_visit_split_layout(
    t_vx_element_visitor_interface h, t_vx_split_layout_interface element)
{
    if (h.table && h.self)
        h.table->visit_split_layout(h.table, h.self, element);
}
VX_LOCAL inline void vxk_framework_element_visitor_visit_stack_layout(
    t_vx_element_visitor_interface h, t_vx_stack_layout_interface element)
{
    if (h.table && h.self)
        h.table->visit_stack_layout(h.table, h.self, element);
}
VX_LOCAL inline void vxk_framework_element_visitor_visit_v_scroll_layout(
    t_vx_element_visitor_interface h, t_vx_scroll_layout_interface element)
{
    if (h.table && h.self)
        h.table->visit_v_scroll_layout(h.table, h.self, element);
}
VX_LOCAL inline void vxk_framework_element_visitor_visit_h_scroll_layout(
    t_vx_element_visitor_interface h, t_vx_scroll_layout_interface element)
{
    if (h.table && h.self)
        h.table->visit_h_scroll_layout(h.table, h.self, element);
}
VX_LOCAL inline void vxk_framework_element_visitor_visit_input(
    t_vx_element_visitor_interface h, t_vx_input_interface element)
{
    if (h.table && h.self)
        h.table->visit_input(h.table, h.self, element);
}
VX_LOCAL inline void vxk_framework_element_visitor_visit_multiline_input(
    t_vx_element_visitor_interface h, t_vx_multiline_input_interface element)
{
    if (h.table && h.self)
        h.table->visit_multiline_input(h.table, h.self, element);
}
VX_LOCAL inline void vxk_framework_element_visitor_visit_rich_input(
    t_vx_element_visitor_interface h, t_vx_rich_input_interface element)
{
    if (h.table && h.self)
        h.table->visit_rich_input(h.table, h.self, element);
}
VX_LOCAL inline void vxk_framework_element_visitor_visit_integer_input(
    t_vx_element_visitor_interface h, t_vx_integer_input_interface element)
{
    if (h.table && h.self)
        h.table->visit_integer_input(h.table, h.self, element);
}
VX_LOCAL inline void vxk_framework_element_visitor_visit_integer_output(
    t_vx_element_visitor_interface h, t_vx_integer_output_interface element)
{
    if (h.table && h.self)
        h.table->visit_integer_output(h.table, h.self, element);
}
VX_LOCAL inline void vxk_framework_element_visitor_visit_floating_input(
    t_vx_element_visitor_interface h, t_vx_floating_input_interface element)
{
    if (h.table && h.self)
        h.table->visit_floating_input(h.table, h.self, element);
}
VX_LOCAL inline void vxk_framework_element_visitor_visit_floating_output(
    t_vx_element_visitor_interface h, t_vx_floating_output_interface element)
{
    if (h.table && h.self)
        h.table->visit_floating_output(h.table, h.self, element);
}
VX_LOCAL inline void vxk_framework_element_visitor_visit_output(
    t_vx_element_visitor_interface h, t_vx_output_interface element)
{
    if (h.table && h.self)
        h.table->visit_output(h.table, h.self, element);
}
VX_LOCAL inline void vxk_framework_element_visitor_visit_multiline_output(
    t_vx_element_visitor_interface h, t_vx_multiline_output_interface element)
{
    if (h.table && h.self)
        h.table->visit_multiline_output(h.table, h.self, element);
}
VX_LOCAL inline void vxk_framework_element_visitor_visit_assisted_input(
    t_vx_element_visitor_interface h, t_vx_assisted_input_interface element)
{
    if (h.table && h.self)
        h.table->visit_assisted_input(h.table, h.self, element);
}
VX_LOCAL inline void vxk_framework_element_visitor_visit_button(
    t_vx_element_visitor_interface h, t_vx_button_interface element)
{
    if (h.table && h.self)
        h.table->visit_button(h.table, h.self, element);
}
VX_LOCAL inline void vxk_framework_element_visitor_visit_label(
    t_vx_element_visitor_interface h, t_vx_label_interface element)
{
    if (h.table && h.self)
        h.table->visit_label(h.table, h.self, element);
}
VX_LOCAL inline void vxk_framework_element_visitor_visit_outline(
    t_vx_element_visitor_interface h, t_vx_outline_interface element)
{
    if (h.table && h.self)
        h.table->visit_outline(h.table, h.self, element);
}
VX_LOCAL inline void vxk_framework_element_visitor_visit_list(
    t_vx_element_visitor_interface h, t_vx_list_interface element)
{
    if (h.table && h.self)
        h.table->visit_list(h.table, h.self, element);
}
VX_LOCAL inline void vxk_framework_element_visitor_visit_grid(
    t_vx_element_visitor_interface h, t_vx_grid_interface element)
{
    if (h.table && h.self)
        h.table->visit_grid(h.table, h.self, element);
}
VX_LOCAL inline void vxk_framework_element_visitor_visit_checkbox(
    t_vx_element_visitor_interface h, t_vx_checkbox_interface element)
{
    if (h.table && h.self)
        h.table->visit_checkbox(h.table, h.self, element);
}
VX_LOCAL inline void vxk_framework_element_visitor_visit_radiobutton(
    t_vx_element_visitor_interface h, t_vx_radiobutton_interface element)
{
    if (h.table && h.self)
        h.table->visit_radiobutton(h.table, h.self, element);
}
VX_LOCAL inline void vxk_framework_element_visitor_visit_dropdown(
    t_vx_element_visitor_interface h, t_vx_dropdown_interface element)
{
    if (h.table && h.self)
        h.table->visit_dropdown(h.table, h.self, element);
}
VX_LOCAL inline void vxk_framework_element_visitor_visit_groupbox(
    t_vx_element_visitor_interface h, t_vx_groupbox_interface element)
{
    if (h.table && h.self)
        h.table->visit_groupbox(h.table, h.self, element);
}
VX_LOCAL inline void vxk_framework_element_visitor_visit_toolbar(
    t_vx_element_visitor_interface h, t_vx_toolbar_interface element)
{
    if (h.table && h.self)
        h.table->visit_toolbar(h.table, h.self, element);
}
VX_LOCAL inline void vxk_framework_element_visitor_visit_statusbar(
    t_vx_element_visitor_interface h, t_vx_statusbar_interface element)
{
    if (h.table && h.self)
        h.table->visit_statusbar(h.table, h.self, element);
}
VX_LOCAL inline void vxk_framework_element_visitor_visit_buttoned_output(
    t_vx_element_visitor_interface h, t_vx_buttoned_output_interface element)
{
    if (h.table && h.self)
        h.table->visit_buttoned_output(h.table, h.self, element);
}
VX_LOCAL inline void vxk_framework_element_visitor_visit_checkbox_list(
    t_vx_element_visitor_interface h, t_vx_checkbox_list_interface element)
{
    if (h.table && h.self)
        h.table->visit_checkbox_list(h.table, h.self, element);
}
VX_LOCAL inline void vxk_framework_element_visitor_visit_slider(
    t_vx_element_visitor_interface h, t_vx_slider_interface element)
{
    if (h.table && h.self)
        h.table->visit_slider(h.table, h.self, element);
}
VX_LOCAL inline void vxk_framework_element_visitor_visit_canvas(
    t_vx_element_visitor_interface h, t_vx_canvas_interface element)
{
    if (h.table && h.self)
        h.table->visit_canvas(h.table, h.self, element);
}
VX_LOCAL inline void vxk_framework_element_visitor_visit_image(
    t_vx_element_visitor_interface h, t_vx_image_interface element)
{
    if (h.table && h.self)
        h.table->visit_image(h.table, h.self, element);
}
VX_LOCAL inline void vxk_framework_element_visitor_visit_histogram(
    t_vx_element_visitor_interface h, t_vx_histogram_interface element)
{
    if (h.table && h.self)
        h.table->visit_histogram(h.table, h.self, element);
}
VX_LOCAL inline void vxk_framework_element_visitor_visit_gauge(
    t_vx_element_visitor_interface h, t_vx_gauge_interface element)
{
    if (h.table && h.self)
        h.table->visit_gauge(h.table, h.self, element);
}
VX_LOCAL inline void vxk_framework_element_visitor_visit_viewer_2d_panel(
    t_vx_element_visitor_interface h, t_vx_viewer_2d_panel_interface element)
{
    if (h.table && h.self)
        h.table->visit_viewer_2d_panel(h.table, h.self, element);
}

VX_BINDING_FUNCTIONS(groupbox, 92)
VX_LOCAL inline void vxk_framework_groupbox_with_caption(
    t_vx_groupbox_interface h, t_vx_string_visitor_interface visitor)
{
    if (h.table && h.self)
        h.table->with_caption(h.table, h.self, visitor);
}
VX_LOCAL inline void vxk_framework_groupbox_with_element(
    t_vx_groupbox_interface h, t_vx_element_visitor_interface visitor)
{
    if (h.table && h.self)
        h.table->with_element(h.table, h.self, visitor);
}
VX_LOCAL inline void vxk_framework_groupbox_reattach(
    t_vx_groupbox_interface h, t_vx_element_view_interface view)
{
    if (h.table && h.self)
        h.table->reattach(h.table, h.self, view);
}

VX_BINDING_FUNCTIONS(scroll_layout, 37)
VX_LOCAL inline bool vxk_framework_scroll_layout_visible(t_vx_scroll_layout_interface h)
{
    return h.table && h.self ? h.table->visible(h.table, h.self) : true;
}
VX_LOCAL inline void vxk_framework_scroll_layout_with_element(
    t_vx_scroll_layout_interface h, t_vx_element_visitor_interface visitor)
{
    if (h.table && h.self)
        h.table->with_element(h.table, h.self, visitor);
}
VX_LOCAL inline void vxk_framework_scroll_layout_reattach(
    t_vx_scroll_layout_interface h, t_vx_element_view_interface view)
{
    if (h.table && h.self)
        h.table->reattach(h.table, h.self, view);
}

namespace vx
{
class VX_API grid_layout;
class VX_API element_visitor;
class VX_API groupbox;
class VX_API scroll_layout;

/// Elements in columns and rows, both from 0; cells may be empty.
class VX_API grid_layout : public binding::wrapper<t_vx_grid_layout_interface>
{
public:
    using wrapper::wrapper;
    VX_LOCAL int column_count() const;
    VX_LOCAL int row_count() const;
    VX_LOCAL bool column_visible(int column) const;
    VX_LOCAL bool row_visible(int row) const;
    /// Takes a share of the room that is left over.
    VX_LOCAL bool column_avid(int column) const;
    VX_LOCAL bool row_avid(int row) const;
    VX_LOCAL void with_element(int column, int row, vx::element_visitor visitor) const;
    VX_LOCAL void reattach(vx::element_view view) const;
};

/// Receives a form element by kind.
class VX_API element_visitor : public binding::wrapper<t_vx_element_visitor_interface>
{
public:
    using wrapper::wrapper;
    VX_LOCAL void visit_grid_layout(vx::grid_layout element) const;
    VX_LOCAL void visit_tab_layout(vx::tab_layout element) const;
    VX_LOCAL void visit_split_layout(vx::split_layout element) const;
    VX_LOCAL void visit_stack_layout(vx::stack_layout element) const;
    VX_LOCAL void visit_v_scroll_layout(vx::scroll_layout element) const;
    VX_LOCAL void visit_h_scroll_layout(vx::scroll_layout element) const;
    VX_LOCAL void visit_input(vx::input element) const;
    VX_LOCAL void visit_multiline_input(vx::multiline_input element) const;
    VX_LOCAL void visit_rich_input(vx::rich_input element) const;
    VX_LOCAL void visit_integer_input(vx::integer_input element) const;
    VX_LOCAL void visit_integer_output(vx::integer_output element) const;
    VX_LOCAL void visit_floating_input(vx::floating_input element) const;
    VX_LOCAL void visit_floating_output(vx::floating_output element) const;
    VX_LOCAL void visit_output(vx::output element) const;
    VX_LOCAL void visit_multiline_output(vx::multiline_output element) const;
    VX_LOCAL void visit_assisted_input(vx::assisted_input element) const;
    VX_LOCAL void visit_button(vx::button element) const;
    VX_LOCAL void visit_label(vx::label element) const;
    VX_LOCAL void visit_outline(vx::outline element) const;
    VX_LOCAL void visit_list(vx::list element) const;
    VX_LOCAL void visit_grid(vx::grid element) const;
    VX_LOCAL void visit_checkbox(vx::checkbox element) const;
    VX_LOCAL void visit_radiobutton(vx::radiobutton element) const;
    VX_LOCAL void visit_dropdown(vx::dropdown element) const;
    VX_LOCAL void visit_groupbox(vx::groupbox element) const;
    VX_LOCAL void visit_toolbar(vx::toolbar element) const;
    VX_LOCAL void visit_statusbar(vx::statusbar element) const;
    VX_LOCAL void visit_buttoned_output(vx::buttoned_output element) const;
    VX_LOCAL void visit_checkbox_list(vx::checkbox_list element) const;
    VX_LOCAL void visit_slider(vx::slider element) const;
    VX_LOCAL void visit_canvas(vx::canvas element) const;
    VX_LOCAL void visit_image(vx::image element) const;
    VX_LOCAL void visit_histogram(vx::histogram element) const;
    VX_LOCAL void visit_gauge(vx::gauge element) const;
    VX_LOCAL void visit_viewer_2d_panel(vx::viewer_2d_panel element) const;
};

/// A frame with a caption round an element.
class VX_API groupbox : public binding::wrapper<t_vx_groupbox_interface>
{
public:
    using wrapper::wrapper;
    VX_LOCAL void with_caption(vx::string_visitor visitor) const;
    VX_LOCAL void with_element(vx::element_visitor visitor) const;
    VX_LOCAL void reattach(vx::element_view view) const;
};

/// An element that may be larger than the room for it.
class VX_API scroll_layout : public binding::wrapper<t_vx_scroll_layout_interface>
{
public:
    using wrapper::wrapper;
    VX_LOCAL bool visible() const;
    VX_LOCAL void with_element(vx::element_visitor visitor) const;
    VX_LOCAL void reattach(vx::element_view view) const;
};

inline int grid_layout::column_count() const
{ return vxk_framework_grid_layout_column_count(f_handle); }
inline int grid_layout::row_count() const
{ return vxk_framework_grid_layout_row_count(f_handle); }
inline bool grid_layout::column_visible(int column) const
{ return vxk_framework_grid_layout_column_visible(f_handle, column); }
inline bool grid_layout::row_visible(int row) const
{ return vxk_framework_grid_layout_row_visible(f_handle, row); }
inline bool grid_layout::column_avid(int column) const
{ return vxk_framework_grid_layout_column_avid(f_handle, column); }
inline bool grid_layout::row_avid(int row) const
{ return vxk_framework_grid_layout_row_avid(f_handle, row); }
inline void grid_layout::with_element(int column, int row, vx::element_visitor visitor) const
{ vxk_framework_grid_layout_with_element(f_handle, column, row, visitor); }
inline void grid_layout::reattach(vx::element_view view) const
{ vxk_framework_grid_layout_reattach(f_handle, view); }

inline void element_visitor::visit_grid_layout(vx::grid_layout element) const
{ vxk_framework_element_visitor_visit_grid_layout(f_handle, element); }
inline void element_visitor::visit_tab_layout(vx::tab_layout element) const
{ vxk_framework_element_visitor_visit_tab_layout(f_handle, element); }
inline void element_visitor::visit_split_layout(vx::split_layout element) const
{ vxk_framework_element_visitor_visit_split_layout(f_handle, element); }
inline void element_visitor::visit_stack_layout(vx::stack_layout element) const
{ vxk_framework_element_visitor_visit_stack_layout(f_handle, element); }
inline void element_visitor::visit_v_scroll_layout(vx::scroll_layout element) const
{ vxk_framework_element_visitor_visit_v_scroll_layout(f_handle, element); }
inline void element_visitor::visit_h_scroll_layout(vx::scroll_layout element) const
{ vxk_framework_element_visitor_visit_h_scroll_layout(f_handle, element); }
inline void element_visitor::visit_input(vx::input element) const
{ vxk_framework_element_visitor_visit_input(f_handle, element); }
inline void element_visitor::visit_multiline_input(vx::multiline_input element) const
{ vxk_framework_element_visitor_visit_multiline_input(f_handle, element); }
inline void element_visitor::visit_rich_input(vx::rich_input element) const
{ vxk_framework_element_visitor_visit_rich_input(f_handle, element); }
inline void element_visitor::visit_integer_input(vx::integer_input element) const
{ vxk_framework_element_visitor_visit_integer_input(f_handle, element); }
inline void element_visitor::visit_integer_output(vx::integer_output element) const
{ vxk_framework_element_visitor_visit_integer_output(f_handle, element); }
inline void element_visitor::visit_floating_input(vx::floating_input element) const
{ vxk_framework_element_visitor_visit_floating_input(f_handle, element); }
inline void element_visitor::visit_floating_output(vx::floating_output element) const
{ vxk_framework_element_visitor_visit_floating_output(f_handle, element); }
inline void element_visitor::visit_output(vx::output element) const
{ vxk_framework_element_visitor_visit_output(f_handle, element); }
inline void element_visitor::visit_multiline_output(vx::multiline_output element) const
{ vxk_framework_element_visitor_visit_multiline_output(f_handle, element); }
inline void element_visitor::visit_assisted_input(vx::assisted_input element) const
{ vxk_framework_element_visitor_visit_assisted_input(f_handle, element); }
inline void element_visitor::visit_button(vx::button element) const
{ vxk_framework_element_visitor_visit_button(f_handle, element); }
inline void element_visitor::visit_label(vx::label element) const
{ vxk_framework_element_visitor_visit_label(f_handle, element); }
inline void element_visitor::visit_outline(vx::outline element) const
{ vxk_framework_element_visitor_visit_outline(f_handle, element); }
inline void element_visitor::visit_list(vx::list element) const
{ vxk_framework_element_visitor_visit_list(f_handle, element); }
inline void element_visitor::visit_grid(vx::grid element) const
{ vxk_framework_element_visitor_visit_grid(f_handle, element); }
inline void element_visitor::visit_checkbox(vx::checkbox element) const
{ vxk_framework_element_visitor_visit_checkbox(f_handle, element); }
inline void element_visitor::visit_radiobutton(vx::radiobutton element) const
{ vxk_framework_element_visitor_visit_radiobutton(f_handle, element); }
inline void element_visitor::visit_dropdown(vx::dropdown element) const
{ vxk_framework_element_visitor_visit_dropdown(f_handle, element); }
inline void element_visitor::visit_groupbox(vx::groupbox element) const
{ vxk_framework_element_visitor_visit_groupbox(f_handle, element); }
inline void element_visitor::visit_toolbar(vx::toolbar element) const
{ vxk_framework_element_visitor_visit_toolbar(f_handle, element); }
inline void element_visitor::visit_statusbar(vx::statusbar element) const
{ vxk_framework_element_visitor_visit_statusbar(f_handle, element); }
inline void element_visitor::visit_buttoned_output(vx::buttoned_output element) const
{ vxk_framework_element_visitor_visit_buttoned_output(f_handle, element); }
inline void element_visitor::visit_checkbox_list(vx::checkbox_list element) const
{ vxk_framework_element_visitor_visit_checkbox_list(f_handle, element); }
inline void element_visitor::visit_slider(vx::slider element) const
{ vxk_framework_element_visitor_visit_slider(f_handle, element); }
inline void element_visitor::visit_canvas(vx::canvas element) const
{ vxk_framework_element_visitor_visit_canvas(f_handle, element); }
inline void element_visitor::visit_image(vx::image element) const
{ vxk_framework_element_visitor_visit_image(f_handle, element); }
inline void element_visitor::visit_histogram(vx::histogram element) const
{ vxk_framework_element_visitor_visit_histogram(f_handle, element); }
inline void element_visitor::visit_gauge(vx::gauge element) const
{ vxk_framework_element_visitor_visit_gauge(f_handle, element); }
inline void element_visitor::visit_viewer_2d_panel(vx::viewer_2d_panel element) const
{ vxk_framework_element_visitor_visit_viewer_2d_panel(f_handle, element); }

inline void groupbox::with_caption(vx::string_visitor visitor) const
{ vxk_framework_groupbox_with_caption(f_handle, visitor); }
inline void groupbox::with_element(vx::element_visitor visitor) const
{ vxk_framework_groupbox_with_element(f_handle, visitor); }
inline void groupbox::reattach(vx::element_view view) const
{ vxk_framework_groupbox_reattach(f_handle, view); }

inline bool scroll_layout::visible() const
{ return vxk_framework_scroll_layout_visible(f_handle); }
inline void scroll_layout::with_element(vx::element_visitor visitor) const
{ vxk_framework_scroll_layout_with_element(f_handle, visitor); }
inline void scroll_layout::reattach(vx::element_view view) const
{ vxk_framework_scroll_layout_reattach(f_handle, view); }

class VX_API grid_layout_impl
    : public binding::implementation<grid_layout_impl, vx::grid_layout>
{
public:
    virtual int column_count() { return 0; }
    virtual int row_count() { return 0; }
    virtual bool column_visible(int) { return true; }
    virtual bool row_visible(int) { return true; }
    virtual bool column_avid(int) { return false; }
    virtual bool row_avid(int) { return false; }
    virtual void with_element(int, int, vx::element_visitor) {}
    virtual void reattach(vx::element_view) {}
    VX_LOCAL static char const* interface_name() { return vx_grid_layout_interface_name; }
    VX_LOCAL static vx_grid_layout_interface_table const* family_table();
protected:
    ~grid_layout_impl() = default;
};
VX_LOCAL inline constexpr vx_grid_layout_interface_table grid_layout_family_table{
    &binding::generalize_slot<grid_layout_impl>,
    &binding::slot<&grid_layout_impl::column_count>::call,
    &binding::slot<&grid_layout_impl::row_count>::call,
    &binding::slot<&grid_layout_impl::column_visible>::call,
    &binding::slot<&grid_layout_impl::row_visible>::call,
    &binding::slot<&grid_layout_impl::column_avid>::call,
    &binding::slot<&grid_layout_impl::row_avid>::call,
    &binding::slot<&grid_layout_impl::with_element>::call,
    &binding::slot<&grid_layout_impl::reattach>::call,
};
inline vx_grid_layout_interface_table const* grid_layout_impl::family_table()
{ return &grid_layout_family_table; }

class VX_API element_visitor_impl
    : public binding::implementation<element_visitor_impl, vx::element_visitor>
{
public:
    virtual void visit_grid_layout(vx::grid_layout) {}
    virtual void visit_tab_layout(vx::tab_layout) {}
    virtual void visit_split_layout(vx::split_layout) {}
    virtual void visit_stack_layout(vx::stack_layout) {}
    virtual void visit_v_scroll_layout(vx::scroll_layout) {}
    virtual void visit_h_scroll_layout(vx::scroll_layout) {}
    virtual void visit_input(vx::input) {}
    virtual void visit_multiline_input(vx::multiline_input) {}
    virtual void visit_rich_input(vx::rich_input) {}
    virtual void visit_integer_input(vx::integer_input) {}
    virtual void visit_integer_output(vx::integer_output) {}
    virtual void visit_floating_input(vx::floating_input) {}
    virtual void visit_floating_output(vx::floating_output) {}
    virtual void visit_output(vx::output) {}
    virtual void visit_multiline_output(vx::multiline_output) {}
    virtual void visit_assisted_input(vx::assisted_input) {}
    virtual void visit_button(vx::button) {}
    virtual void visit_label(vx::label) {}
    virtual void visit_outline(vx::outline) {}
    virtual void visit_list(vx::list) {}
    virtual void visit_grid(vx::grid) {}
    virtual void visit_checkbox(vx::checkbox) {}
    virtual void visit_radiobutton(vx::radiobutton) {}
    virtual void visit_dropdown(vx::dropdown) {}
    virtual void visit_groupbox(vx::groupbox) {}
    virtual void visit_toolbar(vx::toolbar) {}
    virtual void visit_statusbar(vx::statusbar) {}
    virtual void visit_buttoned_output(vx::buttoned_output) {}
    virtual void visit_checkbox_list(vx::checkbox_list) {}
    virtual void visit_slider(vx::slider) {}
    virtual void visit_canvas(vx::canvas) {}
    virtual void visit_image(vx::image) {}
    virtual void visit_histogram(vx::histogram) {}
    virtual void visit_gauge(vx::gauge) {}
    virtual void visit_viewer_2d_panel(vx::viewer_2d_panel) {}
    VX_LOCAL static char const* interface_name() { return vx_element_visitor_interface_name; }
    VX_LOCAL static vx_element_visitor_interface_table const* family_table();
protected:
    ~element_visitor_impl() = default;
};
VX_LOCAL inline constexpr vx_element_visitor_interface_table element_visitor_family_table{
    &binding::generalize_slot<element_visitor_impl>,
    &binding::slot<&element_visitor_impl::visit_grid_layout>::call,
    &binding::slot<&element_visitor_impl::visit_tab_layout>::call,
    &binding::slot<&element_visitor_impl::visit_split_layout>::call,
    &binding::slot<&element_visitor_impl::visit_stack_layout>::call,
    &binding::slot<&element_visitor_impl::visit_v_scroll_layout>::call,
    &binding::slot<&element_visitor_impl::visit_h_scroll_layout>::call,
    &binding::slot<&element_visitor_impl::visit_input>::call,
    &binding::slot<&element_visitor_impl::visit_multiline_input>::call,
    &binding::slot<&element_visitor_impl::visit_rich_input>::call,
    &binding::slot<&element_visitor_impl::visit_integer_input>::call,
    &binding::slot<&element_visitor_impl::visit_integer_output>::call,
    &binding::slot<&element_visitor_impl::visit_floating_input>::call,
    &binding::slot<&element_visitor_impl::visit_floating_output>::call,
    &binding::slot<&element_visitor_impl::visit_output>::call,
    &binding::slot<&element_visitor_impl::visit_multiline_output>::call,
    &binding::slot<&element_visitor_impl::visit_assisted_input>::call,
    &binding::slot<&element_visitor_impl::visit_button>::call,
    &binding::slot<&element_visitor_impl::visit_label>::call,
    &binding::slot<&element_visitor_impl::visit_outline>::call,
    &binding::slot<&element_visitor_impl::visit_list>::call,
    &binding::slot<&element_visitor_impl::visit_grid>::call,
    &binding::slot<&element_visitor_impl::visit_checkbox>::call,
    &binding::slot<&element_visitor_impl::visit_radiobutton>::call,
    &binding::slot<&element_visitor_impl::visit_dropdown>::call,
    &binding::slot<&element_visitor_impl::visit_groupbox>::call,
    &binding::slot<&element_visitor_impl::visit_toolbar>::call,
    &binding::slot<&element_visitor_impl::visit_statusbar>::call,
    &binding::slot<&element_visitor_impl::visit_buttoned_output>::call,
    &binding::slot<&element_visitor_impl::visit_checkbox_list>::call,
    &binding::slot<&element_visitor_impl::visit_slider>::call,
    &binding::slot<&element_visitor_impl::visit_canvas>::call,
    &binding::slot<&element_visitor_impl::visit_image>::call,
    &binding::slot<&element_visitor_impl::visit_histogram>::call,
    &binding::slot<&element_visitor_impl::visit_gauge>::call,
    &binding::slot<&element_visitor_impl::visit_viewer_2d_panel>::call,
};
inline vx_element_visitor_interface_table const* element_visitor_impl::family_table()
{ return &element_visitor_family_table; }

class VX_API groupbox_impl
    : public binding::implementation<groupbox_impl, vx::groupbox>
{
public:
    virtual void with_caption(vx::string_visitor) {}
    virtual void with_element(vx::element_visitor) {}
    virtual void reattach(vx::element_view) {}
    VX_LOCAL static char const* interface_name() { return vx_groupbox_interface_name; }
    VX_LOCAL static vx_groupbox_interface_table const* family_table();
protected:
    ~groupbox_impl() = default;
};
VX_LOCAL inline constexpr vx_groupbox_interface_table groupbox_family_table{
    &binding::generalize_slot<groupbox_impl>,
    &binding::slot<&groupbox_impl::with_caption>::call,
    &binding::slot<&groupbox_impl::with_element>::call,
    &binding::slot<&groupbox_impl::reattach>::call,
};
inline vx_groupbox_interface_table const* groupbox_impl::family_table()
{ return &groupbox_family_table; }

class VX_API scroll_layout_impl
    : public binding::implementation<scroll_layout_impl, vx::scroll_layout>
{
public:
    virtual bool visible() { return true; }
    virtual void with_element(vx::element_visitor) {}
    virtual void reattach(vx::element_view) {}
    VX_LOCAL static char const* interface_name() { return vx_scroll_layout_interface_name; }
    VX_LOCAL static vx_scroll_layout_interface_table const* family_table();
protected:
    ~scroll_layout_impl() = default;
};
VX_LOCAL inline constexpr vx_scroll_layout_interface_table scroll_layout_family_table{
    &binding::generalize_slot<scroll_layout_impl>,
    &binding::slot<&scroll_layout_impl::visible>::call,
    &binding::slot<&scroll_layout_impl::with_element>::call,
    &binding::slot<&scroll_layout_impl::reattach>::call,
};
inline vx_scroll_layout_interface_table const* scroll_layout_impl::family_table()
{ return &scroll_layout_family_table; }

}
