#include "platform/toolkit/controls/tree_view.h"

#include "platform/base/flag_scope.h"
#include "platform/toolkit/bridge/detail/control_link.h"
#include "platform/toolkit/bridge/qt_graphics.h"
#include "platform/toolkit/bridge/qt_values.h"
#include "platform/toolkit/bridge/qt_widgets.h"
#include "platform/toolkit/graphics/bitmap.h"
#include "platform/toolkit/graphics/image_list.h"

#include <QtCore/QVariant>
#include <QtGui/QIcon>
#include <QtGui/QPixmap>
#include <QtWidgets/QAbstractItemDelegate>
#include <QtWidgets/QAbstractItemView>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QTreeWidget>
#include <QtWidgets/QTreeWidgetItem>
#include <QtWidgets/QTreeWidgetItemIterator>

#include <algorithm>
#include <utility>

namespace {
constexpr int c_node_role = Qt::UserRole;

QTreeWidgetItem *native_of(void *item)
{
    return static_cast<QTreeWidgetItem *>(item);
}

QTreeWidget *tree_of(TControl const *view)
{
    return vx_qt_as<QTreeWidget>(view);
}

TTreeNode *node_of(QTreeWidgetItem const *item)
{
    return item ? reinterpret_cast<TTreeNode *>(item->data(0, c_node_role).toULongLong()) : nullptr;
}
} // namespace

TTreeNode::TTreeNode(TCustomTreeView *view, TTreeNode *parent, void *native)
    : f_view(view), f_parent(parent), f_native(native)
{
}

TTreeNode::~TTreeNode() = default;

void TTreeNode::end(std::unique_ptr<TTreeNode> node, std::weak_ptr<void const> const &life)
{
    TCustomTreeView *const view = node->f_view;
    if (!life.expired() && !view->IsDestroying())
        view->OnDeletion(view, node.get());
    for (auto &child : std::exchange(node->f_nodes, {}))
        end(std::move(child), life);
    // At the end of the tree the items go with its widget, which may still be at work in the event.
    if (!life.expired() && !view->f_ending)
        delete native_of(node->f_native);
}

void TTreeNode::Delete()
{
    auto &level = f_view->level(f_parent);
    auto const at =
        std::find_if(level.begin(), level.end(), [this](auto const &n) { return n.get() == this; });
    // Out of the list first: a handler that looks at the tree does not meet a node that ends.
    auto ending = std::move(*at);
    level.erase(at);
    end(std::move(ending), f_view->Life());
}

void TTreeNode::DeleteChildren()
{
    auto const life = f_view->Life();
    while (!life.expired() && !f_nodes.empty())
        f_nodes.back()->Delete();
}

UnicodeString TTreeNode::GetText() const
{
    return vx_unicode_string(native_of(f_native)->text(0));
}

void TTreeNode::SetText(UnicodeString const &text)
{
    vx::flag_scope const quiet(f_view->f_quiet);
    native_of(f_native)->setText(0, vx_qt_string(text));
}

void TTreeNode::SetImageIndex(int index)
{
    f_image_index = index;
    apply_image();
}

void TTreeNode::apply_image()
{
    vx::flag_scope const quiet(f_view->f_quiet);
    TBitmap picture;
    bool const found = f_view->f_images && f_view->f_images->GetBitmap(f_image_index, &picture);
    native_of(f_native)->setIcon(0, found ? QIcon(QPixmap::fromImage(vx_qt_image(picture))) : QIcon());
    for (auto const &node : f_nodes)
        node->apply_image();
}

TTreeNode *TTreeNode::GetItem(int index) const
{
    return index >= 0 && index < GetCount() ? f_nodes[static_cast<std::size_t>(index)].get() : nullptr;
}

int TTreeNode::GetIndex() const
{
    auto const &level = f_view->level(f_parent);
    auto const at =
        std::find_if(level.begin(), level.end(), [this](auto const &n) { return n.get() == this; });
    return at == level.end() ? -1 : static_cast<int>(at - level.begin());
}

int TTreeNode::GetLevel() const
{
    int level = 0;
    for (TTreeNode const *node = f_parent; node; node = node->f_parent)
        ++level;
    return level;
}

bool TTreeNode::HasAsParent(TTreeNode const *node) const
{
    for (TTreeNode const *above = f_parent; above; above = above->f_parent)
        if (above == node)
            return true;
    return false;
}

bool TTreeNode::GetExpanded() const
{
    return native_of(f_native)->isExpanded();
}

void TTreeNode::SetExpanded(bool expanded)
{
    native_of(f_native)->setExpanded(expanded);
}

void TTreeNode::Expand(bool recurse)
{
    SetExpanded(true);
    if (!recurse)
        return;
    for (int i = 0; i < GetCount(); ++i)
        GetItem(i)->Expand(true);
}

bool TTreeNode::GetSelected() const
{
    return f_view->GetSelected() == this;
}

void TTreeNode::MakeVisible()
{
    tree_of(f_view)->scrollToItem(native_of(f_native));
}

TTreeNode *TTreeNodes::insert(TTreeNode *parent, int index, UnicodeString const &text)
{
    vx::flag_scope const quiet(f_view->f_quiet);
    auto *native = new QTreeWidgetItem;
    native->setText(0, vx_qt_string(text));
    native->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable |
                     (f_view->f_read_only ? Qt::NoItemFlags : Qt::ItemIsEditable));
    auto owned = std::unique_ptr<TTreeNode>(new TTreeNode(f_view, parent, native));
    TTreeNode *node = owned.get();
    native->setData(0, c_node_role, QVariant::fromValue(reinterpret_cast<qulonglong>(node)));
    auto &level = f_view->level(parent);
    level.insert(level.begin() + index, std::move(owned));
    if (parent)
        native_of(parent->f_native)->insertChild(index, native);
    else
        tree_of(f_view)->insertTopLevelItem(index, native);
    return node;
}

TTreeNode *TTreeNodes::AddChild(TTreeNode *parent, UnicodeString const &text)
{
    return insert(parent, parent ? parent->GetCount() : GetRootCount(), text);
}

TTreeNode *TTreeNodes::AddChildFirst(TTreeNode *parent, UnicodeString const &text)
{
    return insert(parent, 0, text);
}

TTreeNode *TTreeNodes::Add(TTreeNode *sibling, UnicodeString const &text)
{
    return AddChild(sibling ? sibling->GetParent() : nullptr, text);
}

void TTreeNodes::Clear()
{
    auto const life = f_view->Life();
    while (!life.expired() && GetRootCount() > 0)
        GetRoot(GetRootCount() - 1)->Delete();
}

int TTreeNodes::GetRootCount() const
{
    return static_cast<int>(f_view->f_roots.size());
}

TTreeNode *TTreeNodes::GetRoot(int index) const
{
    return index >= 0 && index < GetRootCount() ? f_view->f_roots[static_cast<std::size_t>(index)].get()
                                                : nullptr;
}

void TTreeNodes::BeginUpdate()
{
    if (f_update_count++ == 0)
        tree_of(f_view)->setUpdatesEnabled(false);
}

void TTreeNodes::EndUpdate()
{
    if (--f_update_count == 0)
        tree_of(f_view)->setUpdatesEnabled(true);
}

TCustomTreeView::TCustomTreeView(TComponent *owner) : TWinControl(owner, vx_make_widget<QTreeWidget>())
{
    ControlStyle.Exclude(csSetCaption);
    SetTabStop(true);
    SetBounds(0, 0, 121, 97);
    QTreeWidget *tree = tree_of(this);
    tree->setHeaderHidden(true);
    tree->setEditTriggers(QAbstractItemView::EditKeyPressed | QAbstractItemView::SelectedClicked);
    // The item that the focus lies on may be one that nobody selected.
    vx_connect(this, tree, &QTreeWidget::itemSelectionChanged, [this] { OnChange(this, GetSelected()); });
    vx_connect(this, tree, &QTreeWidget::itemExpanded, [this](QTreeWidgetItem *item) {
        bool allow = true;
        auto const life = Life();
        OnExpanding(this, node_of(item), allow);
        if (!allow && !life.expired()) {
            vx::flag_scope const quiet(f_quiet);
            item->setExpanded(false);
        }
    });
    vx_connect(this, tree, &QTreeWidget::itemCollapsed, [this](QTreeWidgetItem *item) {
        if (!f_quiet)
            OnCollapsed(this, node_of(item));
    });
    vx_connect(this, tree, &QTreeWidget::itemChanged, [this](QTreeWidgetItem *item, int) {
        TTreeNode *node = node_of(item);
        if (f_quiet || !node)
            return;
        UnicodeString text = node->GetText();
        auto const life = Life();
        OnEdited(this, node, text);
        // The handler may have taken the node away.
        if (!life.expired() && node_of(tree_of(this)->currentItem()) == node)
            node->SetText(text);
    });
}

TCustomTreeView::~TCustomTreeView()
{
    if (f_images)
        f_images->UnRegisterChanges(make_closure<&TCustomTreeView::images_changed>(this));
    f_ending = true;
    // A text that is being edited goes with the tree: nobody commits it once more.
    if (QTreeWidget const *const tree = tree_of(this))
        tree->itemDelegate()->blockSignals(true);
    for (auto &node : std::exchange(f_roots, {}))
        TTreeNode::end(std::move(node), Life());
}

std::vector<std::unique_ptr<TTreeNode>> &TCustomTreeView::level(TTreeNode *parent)
{
    return parent ? parent->f_nodes : f_roots;
}

TTreeNode *TCustomTreeView::GetSelected() const
{
    auto const items = tree_of(this)->selectedItems();
    return items.isEmpty() ? nullptr : node_of(items.front());
}

void TCustomTreeView::SetSelected(TTreeNode *node)
{
    tree_of(this)->setCurrentItem(node ? native_of(node->f_native) : nullptr);
}

void TCustomTreeView::SetImages(TCustomImageList *images)
{
    if (f_images == images)
        return;
    if (f_images) {
        f_images->UnRegisterChanges(make_closure<&TCustomTreeView::images_changed>(this));
        f_images->RemoveFreeNotification(this);
    }
    f_images = images;
    if (images) {
        images->RegisterChanges(make_closure<&TCustomTreeView::images_changed>(this));
        images->FreeNotification(this);
    }
    images_changed(images);
}

void TCustomTreeView::images_changed(TObject *)
{
    if (f_images)
        tree_of(this)->setIconSize(QSize(f_images->GetWidth(), f_images->GetHeight()));
    for (auto const &node : f_roots)
        node->apply_image();
}

void TCustomTreeView::SetReadOnly(bool value)
{
    f_read_only = value;
    vx::flag_scope const quiet(f_quiet);
    for (QTreeWidgetItemIterator at(tree_of(this)); *at; ++at)
        (*at)->setFlags((*at)->flags().setFlag(Qt::ItemIsEditable, !value));
}

void TCustomTreeView::SetHasChildren(TTreeNode *node, bool value)
{
    if (node)
        native_of(node->f_native)
            ->setChildIndicatorPolicy(value ? QTreeWidgetItem::ShowIndicator
                                            : QTreeWidgetItem::DontShowIndicatorWhenChildless);
}

TTreeNode *TCustomTreeView::GetNodeAt(int x, int y) const
{
    QTreeWidget const *tree = tree_of(this);
    return node_of(tree->itemAt(tree->viewport()->mapFrom(tree, QPoint(x, y))));
}

void TCustomTreeView::FullExpand()
{
    tree_of(this)->expandAll();
}

void TCustomTreeView::FullCollapse()
{
    tree_of(this)->collapseAll();
}

void TCustomTreeView::Notification(TComponent *component, TOperation operation)
{
    TWinControl::Notification(component, operation);
    if (operation == opRemove && component == f_images) {
        f_images = nullptr;
        images_changed(nullptr);
    }
}
