#pragma once

#include "platform/toolkit/core/win_control.h"

#include <memory>
#include <vector>

class TCanvas;
class TCustomImageList;
class TVirtualStringTree;

struct TVirtualNodeList;

/// A node of a virtual tree: the tree's own, and its alone to write to. It keeps its address while it lives.
struct TVirtualNode
{
    TVirtualNode *parent = nullptr;    ///< of a top node the root, which is nobody's
    TVirtualNodeList *below = nullptr; ///< once they have been asked about
    void *data = nullptr;              ///< the program's word
    int index = 0;                     ///< among all siblings, from 0
    int row = -1;                      ///< among those that are shown
    bool is_asked = false;
    bool is_selected = false;
    bool is_hidden = false;
    bool has_children = false;
};
using PVirtualNode = TVirtualNode *;

enum TVTImageKind
{
    ikNormal,
    ikSelected
};
/// Where in the tree something is dropped, seen from the node under the mouse.
enum TDropMode
{
    dmNowhere,
    dmAbove,
    dmOnNode,
    dmBelow
};
/// What a drop does.
inline constexpr int DROPEFFECT_NONE = 0, DROPEFFECT_MOVE = 2;

/// A column of the header. It belongs to its tree.
class VX_API TVirtualTreeColumn : public TPersistent
{
public:
    [[nodiscard]] UnicodeString const &GetText() const { return f_text; }
    void SetText(UnicodeString const &text);
    /// In pixels; the column that fills the tree takes what the others leave.
    [[nodiscard]] int GetWidth() const;
    void SetWidth(int width);
    /// Of the tree's images, -1 for none.
    [[nodiscard]] int GetImageIndex() const { return f_image_index; }
    void SetImageIndex(int index);
    [[nodiscard]] bool GetDraggable() const { return f_draggable; }
    void SetDraggable(bool value) { f_draggable = value; }
    [[nodiscard]] bool GetResizable() const { return f_resizable; }
    void SetResizable(bool value);
    /// Pixels between the column's edge and what it shows.
    [[nodiscard]] int GetMargin() const { return f_margin; }
    void SetMargin(int value);
    /// Pixels between picture and text.
    [[nodiscard]] int GetSpacing() const { return f_spacing; }
    void SetSpacing(int value) { f_spacing = value; }

private:
    friend class TVirtualStringTree;
    TVirtualTreeColumn(TVirtualStringTree *tree, int index) : f_tree(tree), f_index(index) {}

    TVirtualStringTree *f_tree;
    int f_index;
    UnicodeString f_text;
    int f_width = 100;
    int f_image_index = -1;
    int f_margin = 4;
    int f_spacing = 4;
    bool f_draggable = true;
    bool f_resizable = true;
};

/// A tree of lines in columns that holds no texts: it asks for each when it shows it. A node has one word of
/// the program (`GetNodeData`) and what the tree itself needs: place, parent, whether it is selected, hidden,
/// has children. `OnInitNode` runs when a node comes to be, which is when the children of its parent are
/// first shown or walked over; `OnInitChildren` when its own children are.
///
/// The user selects several nodes as long as they have one parent; the cell with the focus shows it. A double
/// click edits, and while something is dragged the tree scrolls at its edges and opens branches. A press that
/// `OnFocusChanging` refuses changes neither focus nor selection; its release in the same cell runs
/// `OnColumnClick` like any other. Nothing that the program does fires `OnChange`, `OnFocusChanging`,
/// `OnFocusChanged`; the user's actions do. `OnMouseDown` runs before a press selects, `OnMouseUp` before the
/// click is told.
class VX_API TVirtualStringTree : public TWinControl
{
public:
    explicit TVirtualStringTree(TComponent *owner);
    ~TVirtualStringTree() override;

    // ---- columns
    [[nodiscard]] int GetColumnCount() const { return static_cast<int>(f_columns.size()); }
    /// Null outside.
    [[nodiscard]] TVirtualTreeColumn *GetColumn(int index) const;
    TVirtualTreeColumn *AddColumn();
    void ClearColumns();
    /// The column that fills the tree's width; -1, as at first, for none.
    [[nodiscard]] int GetAutoSizeIndex() const { return f_auto_size; }
    void SetAutoSizeIndex(int index);
    void SetHeaderHeight(int height);
    void SetHeaderFont(TFont const *font);

    // ---- look
    [[nodiscard]] TCustomImageList *GetImages() const { return f_images; }
    /// For nodes and header; not owned.
    void SetImages(TCustomImageList *images);
    /// Ground of selected nodes.
    void SetSelectionColor(TColor color);

    // ---- nodes
    [[nodiscard]] int GetRootNodeCount() const;
    /// More or fewer top nodes, at the end; those that stay keep what they are. Between `BeginUpdate` and
    /// `EndUpdate` it takes effect with `ReinitNodes`, or at the end.
    void SetRootNodeCount(int count);
    /// The first top node, null in an empty tree.
    [[nodiscard]] PVirtualNode GetFirst();
    /// The node after this one in depth first order, through closed branches too, whose nodes come to be by
    /// that.
    [[nodiscard]] PVirtualNode GetNext(PVirtualNode node);
    /// Each node with its level, in the order of `GetNext`; `act` may not change the tree.
    void IterateNodes(closure<void(PVirtualNode node, int level)> const &act);
    /// Null for a top node.
    [[nodiscard]] PVirtualNode GetNodeParent(PVirtualNode node) const;
    /// 0 for a top node.
    [[nodiscard]] int GetNodeLevel(PVirtualNode node) const;
    /// Among all its siblings, from 0.
    [[nodiscard]] int GetNodeIndex(PVirtualNode node) const { return node->index; }
    /// The program's word of the node.
    [[nodiscard]] void *&GetNodeData(PVirtualNode node) const { return node->data; }
    /// A child from 0; null outside. Those that have not been asked for come to be.
    [[nodiscard]] PVirtualNode GetChild(PVirtualNode parent, int index);
    [[nodiscard]] bool GetSelected(PVirtualNode node) const { return node->is_selected; }
    void SetSelected(PVirtualNode node, bool selected);
    [[nodiscard]] bool GetIsVisible(PVirtualNode node) const;
    void SetIsVisible(PVirtualNode node, bool visible);
    [[nodiscard]] bool GetHasChildren(PVirtualNode node) const;
    void SetHasChildren(PVirtualNode node, bool value);
    [[nodiscard]] bool GetExpanded(PVirtualNode node) const;
    void SetExpanded(PVirtualNode node, bool expanded);
    /// In the order of the tree, of what has been asked for.
    [[nodiscard]] std::vector<PVirtualNode> GetSelectedNodes() const;
    /// Null for none.
    [[nodiscard]] PVirtualNode GetFocusedNode() const;
    void SetFocusedNode(PVirtualNode node);
    [[nodiscard]] int GetFocusedColumn() const;
    /// Asks anew about all nodes that have been asked about and are still there; what was open stays open.
    void ReinitNodes();
    /// Between these, which nest, nothing is painted and the scroll position stays.
    void BeginUpdate();
    void EndUpdate();

    void ScrollIntoView(PVirtualNode node, bool center);
    void InvalidateNode(PVirtualNode node);
    void InvalidateColumn(int column);
    /// Null where there is none.
    [[nodiscard]] PVirtualNode GetNodeAt(int x, int y) const;
    /// The place of the cell in the client area; empty when it is out of sight.
    [[nodiscard]] TRect GetDisplayRect(PVirtualNode node, int column) const;
    /// False where `OnEditing` refuses.
    bool EditNode(PVirtualNode node, int column);
    [[nodiscard]] bool IsEditing() const;
    /// The node that something is being dragged over or dropped on.
    [[nodiscard]] PVirtualNode GetDropTargetNode() const { return f_drop_target; }

    closure<void(TObject *sender, PVirtualNode parent, PVirtualNode node)> OnInitNode;
    /// The node ends; it may not be asked for anything.
    closure<void(TObject *sender, PVirtualNode node)> OnFreeNode;
    closure<void(TObject *sender, PVirtualNode node, int &count)> OnInitChildren;
    closure<void(TObject *sender, PVirtualNode node, int column, UnicodeString &text)> OnGetText;
    closure<void(TObject *sender, PVirtualNode node, int column, UnicodeString &text)> OnGetHint;
    closure<void(TObject *sender, PVirtualNode node, TVTImageKind kind, int column, int &index)>
        OnGetImageIndex;
    /// Paints below what the cell shows, and above the ground of a selected node.
    closure<void(TObject *sender, TCanvas *canvas, PVirtualNode node, int column, TRect const &cell)>
        OnBeforeCellPaint;
    /// May change the canvas's font for the cell's text.
    closure<void(TObject *sender, TCanvas *canvas, PVirtualNode node, int column)> OnPaintText;
    closure<void(TObject *sender, PVirtualNode node)> OnChange;
    closure<void(TObject *sender, int column, TShiftState shift)> OnColumnClick;
    closure<void(TObject *sender, int column)> OnHeaderClick;
    closure<void(TObject *sender, PVirtualNode old_node, PVirtualNode new_node, int old_column,
                 int new_column, bool &allowed)>
        OnFocusChanging;
    closure<void(TObject *sender, PVirtualNode node, int column)> OnFocusChanged;
    closure<void(TObject *sender, PVirtualNode node, int column, bool &allowed)> OnEditing;
    closure<void(TObject *sender, PVirtualNode node, int column, UnicodeString const &text)> OnNewText;
    closure<void(TObject *sender, PVirtualNode node, int column, bool &allowed)> OnDragAllowed;
    closure<void(TObject *sender, TObject *source, TDragState state, TPoint const &point, TDropMode mode,
                 int &effect, bool &accept)>
        OnNodeDragOver;
    closure<void(TObject *sender, TObject *source, TPoint const &point, int &effect, TDropMode mode)>
        OnNodeDragDrop;

protected:
    void Notification(TComponent *component, TOperation operation) override;
    void MouseDown(TMouseButton button, TShiftState shift, int x, int y) override;
    void MouseUp(TMouseButton button, TShiftState shift, int x, int y) override;
    void DragOver(TObject *source, int x, int y, TDragState state, bool &accept) override;
    void DragDrop(TObject *source, int x, int y) override;
    void DoEndDrag(TObject *target, int x, int y) override;
    [[nodiscard]] bool WantsKey(Word key, TShiftState shift) const override;

private:
    class nodes;
    class selection;
    class view;
    class header;
    class drawer;
    friend class TVirtualTreeColumn;

    [[nodiscard]] view *native() const;
    void images_changed(TObject *sender);
    [[nodiscard]] bool may_focus(PVirtualNode node, int column);
    [[nodiscard]] TDropMode drop_place(int x, int y, PVirtualNode &node) const;
    void fire_mouse(bool down, TMouseButton button, TShiftState shift, TPoint const &at);
    void column_changed(int index);
    void resize_root(int count);
    void show_drop(PVirtualNode node, TDropMode mode);

    std::vector<std::unique_ptr<TVirtualTreeColumn>> f_columns;
    nodes *f_nodes; ///< the widget's
    std::unique_ptr<TCanvas> f_canvas;
    TCustomImageList *f_images = nullptr;
    PVirtualNode f_drop_target = nullptr;
    TDropMode f_drop_mode = dmNowhere;
    int f_auto_size = -1;
    int f_update_count = 0;
    int f_pending_count = -1; ///< of top nodes, during an update
    bool f_quiet = false;
};
