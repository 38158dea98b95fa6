#pragma once

#include "controls/tree_view/abstract_item_model.h"

#include "platform/toolkit/controls/panel.h"
#include "platform/toolkit/controls/virtual_string_tree.h"
#include "platform/toolkit/graphics/image_list.h"

#include <vector>

/// Shows a model in a tree and tells it what the user does. It keeps nothing but the model's word of each
/// node and which branches are open; the model stays its owner's and outlives its being shown here.
///
/// A column other than the first is a row of buttons: a press there moves neither focus nor selection, the
/// click goes to `item_click`. While the model is told something it may ask the view to update, which then
/// does nothing: the tree shows already what the user did. Where the model has changed more, it updates
/// afterwards.
class VX_API Tvx_virtual_tree_view : public TCustomPanel
{
public:
    explicit Tvx_virtual_tree_view(TComponent *owner);
    ~Tvx_virtual_tree_view() override;

    [[nodiscard]] Tvx_abstract_item_model *get_model() const { return f_model; }
    /// Takes over columns and pictures; `update_controls` shows the items. Null lets go of the model.
    void set_model(Tvx_abstract_item_model *model);
    /// Shows the panel, brings the tree up to date and the focus into its middle.
    void update_controls();
    /// Asks the model about the items anew. What the user opened stays open as far as it is there.
    void update_tree();
    void load_res();
    void call_changed() { on_changed(this); }
    void call_active_changed() { on_active_changed(this); }

    /// The control that shows the items, the view's own.
    [[nodiscard]] TVirtualStringTree *get_tree() const { return f_tree; }

    /// The model said that a click or a move has changed something.
    TNotifyEvent on_changed;
    /// The user has moved the focus.
    TNotifyEvent on_active_changed;

private:
    [[nodiscard]] Tvx_model_index index_of(PVirtualNode node, int column = 0) const;
    void load_header(int column);
    void tell_selection(PVirtualNode node, int level);
    void end_press();

    void on_init_node(TObject *sender, PVirtualNode parent, PVirtualNode node);
    void on_free_node(TObject *sender, PVirtualNode node);
    void on_init_children(TObject *sender, PVirtualNode node, int &count);
    void on_get_text(TObject *sender, PVirtualNode node, int column, UnicodeString &text);
    void on_get_hint(TObject *sender, PVirtualNode node, int column, UnicodeString &text);
    void on_get_image_index(TObject *sender, PVirtualNode node, TVTImageKind kind, int column, int &index);
    void on_before_cell_paint(TObject *sender, TCanvas *canvas, PVirtualNode node, int column,
                              TRect const &cell);
    void on_paint_text(TObject *sender, TCanvas *canvas, PVirtualNode node, int column);
    void on_selection_change(TObject *sender, PVirtualNode node);
    void on_column_click(TObject *sender, int column, TShiftState shift);
    void on_header_click(TObject *sender, int column);
    void on_focus_changing(TObject *sender, PVirtualNode old_node, PVirtualNode new_node, int old_column,
                           int new_column, bool &allowed);
    void on_focus_changed(TObject *sender, PVirtualNode node, int column);
    void on_editing(TObject *sender, PVirtualNode node, int column, bool &allowed);
    void on_new_text(TObject *sender, PVirtualNode node, int column, UnicodeString const &text);
    void on_key_press(TObject *sender, wchar_t &key);
    void on_mouse_down(TObject *sender, TMouseButton button, TShiftState shift, int x, int y);
    void on_mouse_up(TObject *sender, TMouseButton button, TShiftState shift, int x, int y);
    void on_drag_allowed(TObject *sender, PVirtualNode node, int column, bool &allowed);
    void on_drag_over(TObject *sender, TObject *source, TDragState state, TPoint const &point, TDropMode mode,
                      int &effect, bool &accept);
    void on_drag_drop(TObject *sender, TObject *source, TPoint const &point, int &effect, TDropMode mode);
    void on_end_drag(TObject *sender, TObject *target, int x, int y);

    TVirtualStringTree *f_tree;
    TImageList *f_images;
    PVirtualNode f_last_focus = nullptr;
    std::vector<PVirtualNode> f_saved_selection;
    bool f_filling = false;
    int f_model_busy = 0;
    bool f_pressed = false; ///< the model was told of a press and not yet of its end
    Tvx_abstract_item_model *f_model = nullptr;
};
