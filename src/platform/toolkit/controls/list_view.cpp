#include "platform/toolkit/controls/list_view.h"

#include "platform/base/flag_scope.h"
#include "platform/toolkit/bridge/detail/control_link.h"
#include "platform/toolkit/bridge/qt_graphics.h"
#include "platform/toolkit/bridge/qt_values.h"
#include "platform/toolkit/bridge/qt_widgets.h"
#include "platform/toolkit/graphics/bitmap.h"
#include "platform/toolkit/graphics/image_list.h"

#include <QtCore/QItemSelectionModel>
#include <QtCore/QVariant>
#include <QtGui/QIcon>
#include <QtGui/QPixmap>
#include <QtWidgets/QAbstractItemView>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QTreeWidget>
#include <QtWidgets/QTreeWidgetItem>

#include <algorithm>

namespace {
constexpr int c_default_column_width = 50;

QTreeWidgetItem *native_of(void *item)
{
    return static_cast<QTreeWidgetItem *>(item);
}

QTreeWidget *tree_of(TControl const *view)
{
    return vx_qt_as<QTreeWidget>(view);
}
} // namespace

TListItem::TListItem(TCustomListView *view, void *native) : f_view(view), f_native(native)
{
    f_sub_items.OnChange = make_closure<&TListItem::on_sub_items_change>(this);
}

TListItem::~TListItem() = default;

void TListItem::Delete()
{
    f_view->f_items.Delete(GetIndex());
}

int TListItem::GetIndex() const
{
    return tree_of(f_view)->indexOfTopLevelItem(native_of(f_native));
}

UnicodeString TListItem::GetCaption() const
{
    return vx_unicode_string(native_of(f_native)->text(0));
}

void TListItem::SetCaption(UnicodeString const &caption)
{
    vx::flag_scope const quiet(f_view->f_quiet);
    native_of(f_native)->setText(0, vx_qt_string(caption));
}

void TListItem::on_sub_items_change(TObject *)
{
    vx::flag_scope const quiet(f_view->f_quiet);
    QTreeWidgetItem *item = native_of(f_native);
    int const columns = std::max(item->columnCount(), f_sub_items.GetCount() + 1);
    for (int i = 1; i < columns; ++i)
        item->setText(i,
                      i <= f_sub_items.GetCount() ? vx_qt_string(f_sub_items.GetStrings(i - 1)) : QString());
}

void TListItem::SetImageIndex(int index)
{
    f_image_index = index;
    apply_image();
}

void TListItem::apply_image()
{
    vx::flag_scope const quiet(f_view->f_quiet);
    TBitmap picture;
    bool const found = f_view->f_images && f_view->f_images->GetBitmap(f_image_index, &picture);
    native_of(f_native)->setIcon(0, found ? QIcon(QPixmap::fromImage(vx_qt_image(picture))) : QIcon());
}

bool TListItem::GetChecked() const
{
    return native_of(f_native)->checkState(0) == Qt::Checked;
}

void TListItem::SetChecked(bool checked)
{
    vx::flag_scope const quiet(f_view->f_quiet);
    native_of(f_native)->setCheckState(0, checked ? Qt::Checked : Qt::Unchecked);
}

bool TListItem::GetSelected() const
{
    return native_of(f_native)->isSelected();
}

void TListItem::SetSelected(bool selected)
{
    native_of(f_native)->setSelected(selected);
}

void TListItem::MakeVisible()
{
    tree_of(f_view)->scrollToItem(native_of(f_native));
}

TListItem *TListItems::Insert(int index)
{
    index = std::clamp(index, 0, GetCount());
    vx::flag_scope const quiet(f_view->f_quiet);
    auto *native = new QTreeWidgetItem;
    native->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren |
                     (f_view->f_checkboxes ? Qt::ItemIsUserCheckable : Qt::NoItemFlags));
    if (f_view->f_checkboxes)
        native->setCheckState(0, Qt::Unchecked);
    auto &lines = f_view->f_lines;
    auto line = std::unique_ptr<TListItem>(new TListItem(f_view, native));
    TListItem *item = line.get();
    lines.insert(lines.begin() + index, std::move(line));
    tree_of(f_view)->insertTopLevelItem(index, native);
    return item;
}

void TListItems::Delete(int index)
{
    if (index < 0 || index >= GetCount())
        return;
    auto &lines = f_view->f_lines;
    auto const line = std::move(lines[static_cast<std::size_t>(index)]);
    lines.erase(lines.begin() + index);
    // A line that goes is not told of.
    std::erase(f_view->f_was_selected, line.get());
    delete native_of(line->f_native);
}

void TListItems::Clear()
{
    f_view->f_was_selected.clear();
    f_view->f_lines.clear();
    tree_of(f_view)->clear();
}

int TListItems::GetCount() const
{
    return static_cast<int>(f_view->f_lines.size());
}

TListItem *TListItems::GetItem(int index) const
{
    return index >= 0 && index < GetCount() ? f_view->f_lines[static_cast<std::size_t>(index)].get()
                                            : nullptr;
}

int TListItems::IndexOf(TListItem const *item) const
{
    for (int i = 0; i < GetCount(); ++i)
        if (GetItem(i) == item)
            return i;
    return -1;
}

void TListItems::BeginUpdate()
{
    if (f_update_count++ == 0)
        tree_of(f_view)->setUpdatesEnabled(false);
}

void TListItems::EndUpdate()
{
    if (--f_update_count == 0)
        tree_of(f_view)->setUpdatesEnabled(true);
}

TCustomListView::TCustomListView(TComponent *owner) : TWinControl(owner, vx_make_widget<QTreeWidget>())
{
    ControlStyle.Exclude(csSetCaption);
    SetTabStop(true);
    SetBounds(0, 0, 250, 150);
    QTreeWidget *tree = tree_of(this);
    tree->setRootIsDecorated(false);
    tree->setUniformRowHeights(true);
    tree->setHeaderLabels({QString()});
    tree->setEditTriggers(QAbstractItemView::NoEditTriggers);
    tree->header()->setSectionsClickable(true);
    tree->header()->setStretchLastSection(false);
    vx_connect(this, tree, &QTreeWidget::itemSelectionChanged, [this] { selection_changed(); });
    vx_connect(this, tree->header(), &QHeaderView::sectionClicked,
               [this](int column) { OnColumnClick(this, column); });
    vx_connect(this, tree, &QTreeWidget::itemChanged, [this](QTreeWidgetItem *item, int) {
        TListItem *line = f_items.GetItem(tree_of(this)->indexOfTopLevelItem(item));
        if (!f_quiet && line)
            OnItemChecked(this, line);
    });
}

TCustomListView::~TCustomListView()
{
    if (f_images)
        f_images->UnRegisterChanges(make_closure<&TCustomListView::images_changed>(this));
}

std::vector<TListItem *> TCustomListView::selected_items() const
{
    std::vector<TListItem *> items;
    for (auto const &line : f_lines)
        if (line->GetSelected())
            items.push_back(line.get());
    return items;
}

void TCustomListView::selection_changed()
{
    auto const now = selected_items();
    auto const before = f_was_selected;
    if (now == before)
        return;
    f_was_selected = now;
    auto const contains = [](auto const &list, TListItem *item) {
        return std::find(list.begin(), list.end(), item) != list.end();
    };
    auto const life = Life();
    for (TListItem *item : before)
        if (!life.expired() && !contains(now, item) && f_items.IndexOf(item) >= 0)
            OnSelectItem(this, item, false);
    for (TListItem *item : now)
        if (!life.expired() && !contains(before, item) && f_items.IndexOf(item) >= 0)
            OnSelectItem(this, item, true);
    if (!life.expired())
        OnChange(this);
}

int TCustomListView::AddColumn(UnicodeString const &caption, int width)
{
    QTreeWidget *tree = tree_of(this);
    // The column that is there from the start gets its text first.
    bool const first = tree->columnCount() == 1 && tree->headerItem()->text(0).isEmpty();
    int const column = first ? 0 : tree->columnCount();
    if (!first)
        tree->setColumnCount(column + 1);
    SetColumnCaption(column, caption);
    SetColumnWidth(column, width > 0 ? width : c_default_column_width);
    return column;
}

int TCustomListView::GetColumnCount() const
{
    return tree_of(this)->columnCount();
}

void TCustomListView::SetColumnCaption(int column, UnicodeString const &caption)
{
    tree_of(this)->headerItem()->setText(column, vx_qt_string(caption));
}

int TCustomListView::GetColumnWidth(int column) const
{
    return tree_of(this)->columnWidth(column);
}

void TCustomListView::SetColumnWidth(int column, int width)
{
    tree_of(this)->setColumnWidth(column, width);
}

bool TCustomListView::GetShowColumnHeaders() const
{
    return !tree_of(this)->isHeaderHidden();
}

void TCustomListView::SetShowColumnHeaders(bool show)
{
    tree_of(this)->setHeaderHidden(!show);
}

TListItem *TCustomListView::GetSelected() const
{
    auto const items = selected_items();
    if (items.empty())
        return nullptr;
    TListItem *current = f_items.GetItem(tree_of(this)->indexOfTopLevelItem(tree_of(this)->currentItem()));
    return current && current->GetSelected() ? current : items.front();
}

void TCustomListView::SetSelected(TListItem *item)
{
    if (!item)
        return ClearSelection();
    if (f_items.IndexOf(item) >= 0)
        tree_of(this)->setCurrentItem(native_of(item->f_native), 0,
                                      QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

int TCustomListView::GetItemIndex() const
{
    TListItem const *item = GetSelected();
    return item ? item->GetIndex() : -1;
}

void TCustomListView::SetItemIndex(int index)
{
    SetSelected(f_items.GetItem(index));
}

int TCustomListView::GetSelCount() const
{
    return static_cast<int>(selected_items().size());
}

void TCustomListView::ClearSelection()
{
    tree_of(this)->clearSelection();
}

bool TCustomListView::GetMultiSelect() const
{
    return tree_of(this)->selectionMode() == QAbstractItemView::ExtendedSelection;
}

void TCustomListView::SetMultiSelect(bool multi)
{
    tree_of(this)->setSelectionMode(multi ? QAbstractItemView::ExtendedSelection
                                          : QAbstractItemView::SingleSelection);
}

void TCustomListView::SetCheckboxes(bool value)
{
    if (f_checkboxes == value)
        return;
    f_checkboxes = value;
    vx::flag_scope const quiet(f_quiet);
    for (auto const &line : f_lines) {
        QTreeWidgetItem *item = native_of(line->f_native);
        item->setFlags(item->flags().setFlag(Qt::ItemIsUserCheckable, value));
        item->setData(0, Qt::CheckStateRole, value ? QVariant(Qt::Unchecked) : QVariant());
    }
}

void TCustomListView::SetSmallImages(TCustomImageList *images)
{
    if (f_images == images)
        return;
    if (f_images) {
        f_images->UnRegisterChanges(make_closure<&TCustomListView::images_changed>(this));
        f_images->RemoveFreeNotification(this);
    }
    f_images = images;
    if (images) {
        images->RegisterChanges(make_closure<&TCustomListView::images_changed>(this));
        images->FreeNotification(this);
    }
    images_changed(images);
}

void TCustomListView::images_changed(TObject *)
{
    if (f_images)
        tree_of(this)->setIconSize(QSize(f_images->GetWidth(), f_images->GetHeight()));
    for (auto const &line : f_lines)
        line->apply_image();
}

void TCustomListView::Notification(TComponent *component, TOperation operation)
{
    TWinControl::Notification(component, operation);
    if (operation == opRemove && component == f_images) {
        f_images = nullptr;
        images_changed(nullptr);
    }
}
