#include "controls/tree_view/virtual_tree_view.h"

#include "controls/tree_view/vcl_text_adapter.h"

#include "platform/base/flag_scope.h"
#include "platform/toolkit/graphics/canvas.h"

#include <memory>
#include <vector>

namespace {
constexpr int c_root = -1;
constexpr int c_header_height = 18;
constexpr int c_header_font_height = -11;
constexpr TColor c_selection_color = 0x0000FFFF;
constexpr TColor c_invalid_color = 0x000000FF;
constexpr wchar_t c_enter = L'\r';

/// The model is being told something; it may end the view by that.
class busy_scope
{
public:
    busy_scope(TControl const &view, int &count) : f_life(view.Life()), f_count(count) { ++f_count; }
    busy_scope(busy_scope const &) = delete;
    busy_scope &operator=(busy_scope const &) = delete;
    ~busy_scope()
    {
        if (!is_over())
            --f_count;
    }
    [[nodiscard]] bool is_over() const { return f_life.expired(); }

private:
    std::weak_ptr<void const> f_life;
    int &f_count;
};

Tvx_model_index root_index()
{
    return Tvx_abstract_item_model::index(c_root, c_root, c_root, nullptr);
}
} // namespace

Tvx_virtual_tree_view::Tvx_virtual_tree_view(TComponent *owner)
    : TCustomPanel(owner), f_tree(new TVirtualStringTree(this)), f_images(new TImageList(this))
{
    SetBevelOuter(bvNone);
    f_tree->SetParent(this);
    f_tree->SetAlign(alClient);
    f_tree->SetImages(f_images);
    f_tree->SetSelectionColor(c_selection_color);
    f_tree->SetHeaderHeight(c_header_height);
    f_tree->SetShowHint(true);
    TFont font;
    font.SetName("Tahoma");
    font.SetHeight(c_header_font_height);
    font.SetColor(clWindowText);
    f_tree->SetHeaderFont(&font);

    using view = Tvx_virtual_tree_view;
    f_tree->OnInitNode = make_closure<&view::on_init_node>(this);
    f_tree->OnFreeNode = make_closure<&view::on_free_node>(this);
    f_tree->OnInitChildren = make_closure<&view::on_init_children>(this);
    f_tree->OnGetText = make_closure<&view::on_get_text>(this);
    f_tree->OnGetHint = make_closure<&view::on_get_hint>(this);
    f_tree->OnGetImageIndex = make_closure<&view::on_get_image_index>(this);
    f_tree->OnBeforeCellPaint = make_closure<&view::on_before_cell_paint>(this);
    f_tree->OnPaintText = make_closure<&view::on_paint_text>(this);
    f_tree->OnChange = make_closure<&view::on_selection_change>(this);
    f_tree->OnColumnClick = make_closure<&view::on_column_click>(this);
    f_tree->OnHeaderClick = make_closure<&view::on_header_click>(this);
    f_tree->OnFocusChanging = make_closure<&view::on_focus_changing>(this);
    f_tree->OnFocusChanged = make_closure<&view::on_focus_changed>(this);
    f_tree->OnEditing = make_closure<&view::on_editing>(this);
    f_tree->OnNewText = make_closure<&view::on_new_text>(this);
    f_tree->OnKeyPress = make_closure<&view::on_key_press>(this);
    f_tree->OnMouseDown = make_closure<&view::on_mouse_down>(this);
    f_tree->OnMouseUp = make_closure<&view::on_mouse_up>(this);
    f_tree->OnDragAllowed = make_closure<&view::on_drag_allowed>(this);
    f_tree->OnNodeDragOver = make_closure<&view::on_drag_over>(this);
    f_tree->OnNodeDragDrop = make_closure<&view::on_drag_drop>(this);
    f_tree->OnEndDrag = make_closure<&view::on_end_drag>(this);
}

Tvx_virtual_tree_view::~Tvx_virtual_tree_view() = default;

Tvx_model_index Tvx_virtual_tree_view::index_of(PVirtualNode node, int column) const
{
    return Tvx_abstract_item_model::index(f_tree->GetNodeLevel(node), f_tree->GetNodeIndex(node), column,
                                          &f_tree->GetNodeData(node));
}

// ---- what is shown

void Tvx_virtual_tree_view::set_model(Tvx_abstract_item_model *model)
{
    if (model == f_model)
        return;
    f_model = model;
    // The former model's press is not the new one's.
    f_pressed = false;
    if (f_model_busy > 0 || !model)
        return;
    vx::flag_scope const filling(f_filling);
    f_images->Clear();
    model->load_images(f_images);
    f_tree->ClearColumns();
    int const count = model->column_count();
    for (int i = 0; i < count; ++i)
        f_tree->AddColumn();
    f_tree->SetAutoSizeIndex(0);
    for (int i = 0; i < count; ++i) {
        load_header(i);
        TVirtualTreeColumn *const column = f_tree->GetColumn(i);
        column->SetImageIndex(model->header_image(i));
        column->SetWidth(model->header_size(i));
        int const flags = model->header_flags(i);
        column->SetDraggable((flags & c_header_draggable) != 0);
        column->SetResizable((flags & c_header_resizable) != 0);
        if (flags & c_header_no_margins) {
            column->SetSpacing(0);
            column->SetMargin(0);
        }
    }
}

void Tvx_virtual_tree_view::load_header(int column)
{
    Tvx_vcl_text_adapter<TVirtualTreeColumn> adapter(f_tree->GetColumn(column));
    f_model->header_caption(column, adapter);
}

void Tvx_virtual_tree_view::load_res()
{
    for (int i = 0; f_model && i < f_tree->GetColumnCount(); ++i)
        load_header(i);
}

void Tvx_virtual_tree_view::update_tree()
{
    if (f_model_busy > 0)
        return;
    vx::flag_scope const filling(f_filling);
    f_tree->BeginUpdate();
    f_tree->SetRootNodeCount(f_model ? f_model->child_count(root_index()) : 0);
    f_tree->SetFocusedNode(nullptr);
    f_tree->ReinitNodes();
    f_tree->EndUpdate();
}

void Tvx_virtual_tree_view::update_controls()
{
    SetVisible(true);
    if (f_model_busy > 0)
        return;
    update_tree();
    vx::flag_scope const filling(f_filling);
    if (PVirtualNode const node = f_tree->GetFocusedNode())
        f_tree->ScrollIntoView(node, true);
}

void Tvx_virtual_tree_view::on_init_node(TObject *, PVirtualNode parent, PVirtualNode node)
{
    if (!f_model)
        return;
    Tvx_model_index index = index_of(node);
    f_model->init_index(index, parent ? index_of(parent) : root_index());
    f_tree->GetNodeData(node) = index.data;
    if (f_model->has_children(index))
        f_tree->SetHasChildren(node, true);
    f_tree->SetSelected(node, f_model->selected(index));
    f_tree->SetIsVisible(node, f_model->visible(index));
    if (f_model->active(index))
        f_tree->SetFocusedNode(node);
}

void Tvx_virtual_tree_view::on_free_node(TObject *, PVirtualNode node)
{
    std::erase(f_saved_selection, node);
    if (f_last_focus == node)
        f_last_focus = nullptr;
}

void Tvx_virtual_tree_view::on_init_children(TObject *, PVirtualNode node, int &count)
{
    if (f_model)
        count = f_model->child_count(index_of(node));
}

void Tvx_virtual_tree_view::on_get_text(TObject *, PVirtualNode node, int column, UnicodeString &text)
{
    Tvx_unicode_string_adapter adapter(text);
    if (f_model)
        f_model->item_caption(index_of(node, column), adapter);
}

void Tvx_virtual_tree_view::on_get_hint(TObject *, PVirtualNode node, int column, UnicodeString &text)
{
    Tvx_unicode_string_adapter adapter(text);
    if (f_model)
        f_model->item_hint(index_of(node, column), adapter);
}

void Tvx_virtual_tree_view::on_get_image_index(TObject *, PVirtualNode node, TVTImageKind, int column,
                                               int &index)
{
    if (f_model)
        index = f_model->item_image(index_of(node, column));
}

void Tvx_virtual_tree_view::on_before_cell_paint(TObject *, TCanvas *canvas, PVirtualNode node, int column,
                                                 TRect const &cell)
{
    if (!f_model || column != 0 || f_model->valid(index_of(node, column)) == 0)
        return;
    canvas->GetBrush()->SetColor(c_invalid_color);
    canvas->FillRect(cell);
}

void Tvx_virtual_tree_view::on_paint_text(TObject *, TCanvas *canvas, PVirtualNode node, int column)
{
    if (f_model && column == 0 && f_model->distinguish(index_of(node, column)))
        canvas->GetFont()->SetStyle(canvas->GetFont()->GetStyle() << fsItalic);
}

// ---- what the user does

void Tvx_virtual_tree_view::tell_selection(PVirtualNode node, int level)
{
    f_model->select({level, node->index, 0, node->data}, node->is_selected);
}

void Tvx_virtual_tree_view::on_selection_change(TObject *, PVirtualNode)
{
    if (f_filling || !f_model)
        return;
    busy_scope const busy(*this, f_model_busy);
    f_model->begin_update();
    f_tree->IterateNodes(make_closure<&Tvx_virtual_tree_view::tell_selection>(this));
    f_model->end_update();
}

void Tvx_virtual_tree_view::on_column_click(TObject *, int column, TShiftState)
{
    PVirtualNode const node = f_last_focus ? f_last_focus : f_tree->GetFocusedNode();
    if (!f_model || !node)
        return;
    auto const life = Life();
    Tvx_model_index const index = index_of(node, column);
    if (!f_model->item_click(index) || life.expired())
        return;
    f_tree->Invalidate();
    call_changed();
}

void Tvx_virtual_tree_view::on_header_click(TObject *, int column)
{
    auto const life = Life();
    if (!f_model || !f_model->headr_click(column) || life.expired())
        return;
    f_tree->InvalidateColumn(column);
    call_changed();
}

void Tvx_virtual_tree_view::on_focus_changing(TObject *, PVirtualNode, PVirtualNode new_node, int,
                                              int new_column, bool &allowed)
{
    if (f_filling || !f_model)
        return;
    allowed = new_column == 0;
    if (!allowed) {
        busy_scope const busy(*this, f_model_busy);
        f_tree->BeginUpdate();
        for (PVirtualNode const node : f_saved_selection)
            f_tree->SetSelected(node, true);
        f_tree->EndUpdate();
    }
    f_last_focus = new_node;
}

void Tvx_virtual_tree_view::on_focus_changed(TObject *, PVirtualNode node, int column)
{
    if (f_filling || !f_model || !node || column != 0)
        return;
    busy_scope const busy(*this, f_model_busy);
    f_model->set_active(index_of(node));
    if (busy.is_over())
        return;
    call_active_changed();
    if (!busy.is_over())
        f_last_focus = nullptr;
}

void Tvx_virtual_tree_view::on_editing(TObject *, PVirtualNode node, int column, bool &allowed)
{
    allowed = f_model && f_model->editable(index_of(node, column));
}

void Tvx_virtual_tree_view::on_new_text(TObject *, PVirtualNode node, int column, UnicodeString const &text)
{
    if (!f_model)
        return;
    busy_scope const busy(*this, f_model_busy);
    f_model->new_caption(index_of(node, column), text.c_str());
}

void Tvx_virtual_tree_view::on_key_press(TObject *, wchar_t &key)
{
    PVirtualNode const node = f_tree->GetFocusedNode();
    if (f_model && key == c_enter && node && !f_tree->IsEditing() &&
        f_tree->EditNode(node, f_tree->GetFocusedColumn()))
        key = 0;
}

void Tvx_virtual_tree_view::on_mouse_down(TObject *, TMouseButton button, TShiftState, int, int)
{
    if (!f_model || button != mbLeft)
        return;
    auto const life = Life();
    end_press();
    if (life.expired())
        return;
    f_last_focus = nullptr;
    f_saved_selection = f_tree->GetSelectedNodes();
    f_pressed = true;
    f_model->begin_update();
}

void Tvx_virtual_tree_view::on_mouse_up(TObject *, TMouseButton button, TShiftState, int, int)
{
    if (button == mbLeft)
        end_press();
}

/// A press ends by its release, at the end of the drag that it became, or with the next one.
void Tvx_virtual_tree_view::end_press()
{
    if (!f_model || !f_pressed)
        return;
    f_pressed = false;
    busy_scope const busy(*this, f_model_busy);
    f_model->end_update();
    if (!busy.is_over())
        f_saved_selection.clear();
}

void Tvx_virtual_tree_view::on_drag_allowed(TObject *, PVirtualNode node, int column, bool &allowed)
{
    allowed = f_model && f_model->moveable(index_of(node, column));
}

void Tvx_virtual_tree_view::on_drag_over(TObject *, TObject *source, TDragState, TPoint const &point,
                                         TDropMode, int &effect, bool &accept)
{
    effect = DROPEFFECT_MOVE;
    PVirtualNode const to = f_tree->GetNodeAt(point.X, point.Y);
    PVirtualNode const from = f_tree->GetFocusedNode();
    // What comes from elsewhere is no item of the model.
    accept = f_model && source == f_tree && to && from && f_model->moveable(index_of(from), index_of(to));
}

void Tvx_virtual_tree_view::on_drag_drop(TObject *, TObject *, TPoint const &, int &effect, TDropMode mode)
{
    effect = DROPEFFECT_NONE;
    PVirtualNode const target = f_tree->GetDropTargetNode();
    if (!f_model || !target)
        return;
    Tvx_model_index place = index_of(target);
    if (mode == dmOnNode || mode == dmBelow)
        ++place.row;
    auto const life = Life();
    if (!f_model->move_marked(place) || life.expired())
        return;
    update_tree();
    call_changed();
}

void Tvx_virtual_tree_view::on_end_drag(TObject *, TObject *, int, int)
{
    end_press();
}
