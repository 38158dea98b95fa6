#pragma once

#include "platform/toolkit/core/win_control.h"

#include <memory>
#include <vector>

class TCustomImageList;
class TCustomTreeView;

/// A line of a tree. It belongs to its view and ends with its parent.
class VX_API TTreeNode : public TPersistent
{
public:
    ~TTreeNode() override;

    /// Ends the node and all below it.
    void Delete();
    void DeleteChildren();
    [[nodiscard]] UnicodeString GetText() const;
    void SetText(UnicodeString const &text);
    [[nodiscard]] void *GetData() const { return f_data; }
    void SetData(void *data) { f_data = data; }
    [[nodiscard]] int GetImageIndex() const { return f_image_index; }
    void SetImageIndex(int index);
    [[nodiscard]] TTreeNode *GetParent() const { return f_parent; }
    [[nodiscard]] int GetCount() const { return static_cast<int>(f_nodes.size()); }
    /// Child from 0; null outside.
    [[nodiscard]] TTreeNode *GetItem(int index) const;
    [[nodiscard]] int GetIndex() const;
    /// 0 for a node of the first level.
    [[nodiscard]] int GetLevel() const;
    [[nodiscard]] bool HasAsParent(TTreeNode const *node) const;
    [[nodiscard]] bool GetExpanded() const;
    void SetExpanded(bool expanded);
    void Expand(bool recurse);
    [[nodiscard]] bool GetSelected() const;
    void MakeVisible();

private:
    friend class TCustomTreeView;
    friend class TTreeNodes;

    TTreeNode(TCustomTreeView *view, TTreeNode *parent, void *native);
    void apply_image();
    /// Tells of the end of the node and of those below it, whose handler may free the tree.
    static void end(std::unique_ptr<TTreeNode> node, std::weak_ptr<void const> const &life);

    TCustomTreeView *f_view;
    TTreeNode *f_parent;
    void *f_native;
    std::vector<std::unique_ptr<TTreeNode>> f_nodes;
    void *f_data = nullptr;
    int f_image_index = -1;
};

/// The nodes of a tree.
class VX_API TTreeNodes : public TPersistent
{
public:
    explicit TTreeNodes(TCustomTreeView *view) : f_view(view) {}

    /// At the end of the children of `parent`; of the first level for null.
    TTreeNode *AddChild(TTreeNode *parent, UnicodeString const &text);
    TTreeNode *AddChildFirst(TTreeNode *parent, UnicodeString const &text);
    /// At the end of the level that `sibling` is on.
    TTreeNode *Add(TTreeNode *sibling, UnicodeString const &text);
    void Clear();
    /// Of the first level.
    [[nodiscard]] int GetRootCount() const;
    [[nodiscard]] TTreeNode *GetRoot(int index) const;
    [[nodiscard]] TTreeNode *GetFirstNode() const { return GetRoot(0); }
    void BeginUpdate();
    void EndUpdate();

private:
    TTreeNode *insert(TTreeNode *parent, int index, UnicodeString const &text);

    TCustomTreeView *f_view;
    int f_update_count = 0;
};

/// A tree of lines, 121 by 97. `OnChange` runs when another node is selected, by whatever way; `OnExpanding`
/// may refuse, and is the place to make children late.
class VX_API TCustomTreeView : public TWinControl
{
public:
    explicit TCustomTreeView(TComponent *owner);
    ~TCustomTreeView() override;

    [[nodiscard]] TTreeNodes *GetItems() { return &f_items; }
    [[nodiscard]] TTreeNode *GetSelected() const;
    void SetSelected(TTreeNode *node);
    [[nodiscard]] TCustomImageList *GetImages() const { return f_images; }
    void SetImages(TCustomImageList *images);
    [[nodiscard]] bool GetReadOnly() const { return f_read_only; }
    /// False: the user can edit the texts.
    void SetReadOnly(bool value);
    /// A node that is given children at `OnExpanding` shows its button with this.
    void SetHasChildren(TTreeNode *node, bool value);
    [[nodiscard]] TTreeNode *GetNodeAt(int x, int y) const;
    void FullExpand();
    void FullCollapse();

    closure<void(TObject *sender, TTreeNode *node)> OnChange;
    closure<void(TObject *sender, TTreeNode *node, bool &allow)> OnExpanding;
    closure<void(TObject *sender, TTreeNode *node)> OnCollapsed;
    closure<void(TObject *sender, TTreeNode *node)> OnDeletion;
    closure<void(TObject *sender, TTreeNode *node, UnicodeString &text)> OnEdited;

protected:
    void Notification(TComponent *component, TOperation operation) override;

private:
    friend class TTreeNode;
    friend class TTreeNodes;

    void images_changed(TObject *sender);
    [[nodiscard]] std::vector<std::unique_ptr<TTreeNode>> &level(TTreeNode *parent);

    TTreeNodes f_items{this};
    std::vector<std::unique_ptr<TTreeNode>> f_roots;
    TCustomImageList *f_images = nullptr;
    bool f_read_only = true;
    bool f_quiet = false;
    bool f_ending = false;
};

class VX_API TTreeView : public TCustomTreeView
{
public:
    using TCustomTreeView::TCustomTreeView;
};
