#pragma once

#include "controls/tree_view/abstract_item_action.h"
#include "controls/tree_view/model_index.h"

#include "platform/base/basic_obj.h"
#include "platform/base/string_adp.h"

#include <memory>

class TCustomImageList;

/// Flags of a column's header; the others are kept for models.
enum Tvx_header_flag : int
{
    c_header_draggable = 2,
    c_header_resizable = 8,
    c_header_no_margins = 16
};

/// What a tree shows: a hierarchy of items in columns. The model holds all truth about its items, which of
/// them are selected, have the focus, are seen, may be edited and moved among it; a view asks, and tells what
/// the user did. Texts go through string adapters, so a model hands out no buffers.
///
/// The order of the virtual operations is fixed.
class VX_API Tvx_abstract_item_model : public Tvx_basic_obj
{
public:
    Tvx_abstract_item_model() = default;
    Tvx_abstract_item_model(Tvx_abstract_item_model const &) = delete;
    Tvx_abstract_item_model &operator=(Tvx_abstract_item_model const &) = delete;
    ~Tvx_abstract_item_model() override;

    /// Gives a new node its word: sets `index.data` by its place and its parent, the root's index for a top
    /// item.
    virtual void init_index(Tvx_model_index &index, Tvx_model_index const &parent);
    /// Fills the view's empty list of pictures.
    virtual void load_images(TCustomImageList *images);
    virtual int column_count();
    virtual bool has_children(Tvx_model_index const &index);
    /// Of the root's index: the top items.
    virtual int child_count(Tvx_model_index const &index) = 0;
    virtual bool selected(Tvx_model_index const &index);
    virtual void select(Tvx_model_index const &index, bool on);
    /// Whether the item has the focus.
    virtual bool active(Tvx_model_index const &index);
    virtual void set_active(Tvx_model_index const &index);
    virtual void header_caption(int column, Ivx_string_adp *caption);
    /// Number of a picture, -1 for none.
    virtual int header_image(int column);
    virtual int header_flags(int column);
    /// In pixels.
    virtual int header_size(int column);
    /// True: the column is painted anew and the change reported.
    virtual bool headr_click(int column);
    virtual void item_caption(Tvx_model_index const &index, Ivx_string_adp *caption);
    virtual int item_image(Tvx_model_index const &index);
    /// A click in the cell of the index. True: the item is painted anew and the change reported.
    virtual bool item_click(Tvx_model_index const &index);
    virtual void item_hint(Tvx_model_index const &index, Ivx_string_adp *hint);
    virtual bool editable(Tvx_model_index const &index);
    /// The text that was entered in place.
    virtual void new_caption(Tvx_model_index const &index, wchar_t const *text);
    /// May the item be dragged?
    virtual bool moveable(Tvx_model_index const &index);
    /// May it be dropped there?
    virtual bool moveable(Tvx_model_index const &from, Tvx_model_index const &to);
    virtual bool move(Tvx_model_index const &from, Tvx_model_index const &to);
    /// Moves all selected items to the place `to`: its row is one of 0 to the number of siblings, its level
    /// and its word are those of the item dropped on. True: something moved.
    virtual bool move_marked(Tvx_model_index const &to);
    /// Other than 0 paints the cell red.
    virtual int valid(Tvx_model_index const &index);
    virtual bool visible(Tvx_model_index const &index);
    /// Shown in italics.
    virtual bool distinguish(Tvx_model_index const &index);
    /// Between these, which nest, items are selected and given the focus.
    virtual void begin_update();
    virtual void end_update();
    /// Runs the action, if there is one.
    virtual void call_item_action(Tvx_model_index const &index);

    /// Ends the action that the model held and keeps this one, which may be null.
    void set_item_action(Tvx_abstract_item_action *action);

    /// `data` points at the node's word; null gives none.
    [[nodiscard]] static Tvx_model_index index(int level, int row, int column, void *const *data)
    {
        return {level, row, column, data ? *data : nullptr};
    }

private:
    std::unique_ptr<Tvx_abstract_item_action> f_item_action;
};
