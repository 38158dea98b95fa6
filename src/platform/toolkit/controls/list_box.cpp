#include "platform/toolkit/controls/list_box.h"

#include "platform/toolkit/bridge/detail/control_link.h"
#include "platform/toolkit/bridge/qt_events.h"
#include "platform/toolkit/bridge/qt_values.h"
#include "platform/toolkit/bridge/qt_widgets.h"
#include "platform/toolkit/controls/detail/item_strings.h"
#include "platform/toolkit/graphics/canvas.h"

#include <QtCore/QAbstractListModel>
#include <QtCore/QItemSelectionModel>
#include <QtCore/QModelIndex>
#include <QtCore/QString>
#include <QtCore/QVariant>
#include <QtGui/QKeyEvent>
#include <QtGui/QMouseEvent>
#include <QtGui/QPaintEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QAbstractItemView>
#include <QtWidgets/QFrame>
#include <QtWidgets/QListView>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QStyle>
#include <QtWidgets/QStyleOptionFocusRect>
#include <QtWidgets/QStyleOptionViewItem>
#include <QtWidgets/QStyledItemDelegate>

#include <algorithm>
#include <iterator>
#include <stdexcept>
#include <vector>

namespace {
constexpr int c_text_inset = 2;
/// Of a longer list the width is that of the text of the most characters.
constexpr int c_most_measured = 1000;
constexpr int c_most_sampled = 256;
} // namespace

/// The lines, of which the view asks for those that it shows. Lines that come at the end while a list is
/// being updated are told of together.
class TCustomListBox::lines final : public QAbstractListModel
{
public:
    struct line
    {
        QString text;
        TObject *object = nullptr;
        Qt::CheckState check = Qt::Unchecked;
        bool is_enabled = true;
    };

    explicit lines(TCustomListBox *owner) : f_owner(owner) {}
    /// The list has ended; its widget may live to the end of the event.
    void forget() { f_owner = nullptr; }

    [[nodiscard]] int count() const
    {
        return f_is_virtual ? f_virtual_count : static_cast<int>(f_lines.size());
    }
    [[nodiscard]] UnicodeString text(int row) const
    {
        if (!f_is_virtual)
            return vx_unicode_string(at(row).text);
        if (row < 0 || row >= count())
            throw std::out_of_range("item");
        UnicodeString text;
        f_owner->OnData(f_owner, row, text);
        return text;
    }
    /// From now on lines have no texts of their own.
    void set_virtual(bool is_virtual)
    {
        if (is_virtual == f_is_virtual)
            return;
        clear();
        f_is_virtual = is_virtual;
    }
    void set_virtual_count(int count)
    {
        beginResetModel();
        f_told = f_virtual_count = std::max(count, 0);
        endResetModel();
    }
    /// Throws for a line that is not there.
    [[nodiscard]] line const &at(int row) const
    {
        if (row < 0 || row >= count() || f_is_virtual)
            throw std::out_of_range("item");
        return f_lines[static_cast<std::size_t>(row)];
    }
    template <class Change>
    void change(int row, Change act)
    {
        static_cast<void>(at(row));
        act(f_lines[static_cast<std::size_t>(row)]);
        if (row < f_told)
            emit dataChanged(index(row), index(row));
    }
    void insert(int row, QString const &text, bool is_updating)
    {
        if (f_is_virtual)
            throw std::logic_error("a virtual list has no items of its own");
        if (row == count() && is_updating) {
            f_lines.push_back({text});
            return;
        }
        tell();
        beginInsertRows({}, row, row);
        f_lines.insert(std::next(f_lines.begin(), row), line{text});
        ++f_told;
        endInsertRows();
    }
    void remove(int row)
    {
        if (f_is_virtual)
            throw std::logic_error("a virtual list has no items of its own");
        tell();
        beginRemoveRows({}, row, row);
        f_lines.erase(std::next(f_lines.begin(), row));
        --f_told;
        endRemoveRows();
    }
    void clear()
    {
        beginResetModel();
        f_lines.clear();
        f_told = f_virtual_count = 0;
        endResetModel();
    }
    /// The view learns of all lines.
    void tell()
    {
        if (f_told == count())
            return;
        beginInsertRows({}, f_told, count() - 1);
        f_told = count();
        endInsertRows();
    }
    /// A line that is as wide as any, or nearly so.
    [[nodiscard]] std::vector<int> widest() const
    {
        std::vector<int> rows;
        if (f_is_virtual || count() <= c_most_measured) {
            // Of a long virtual list some, from the first to the last.
            int const step = f_is_virtual ? f_told / c_most_sampled + 1 : 1;
            for (int row = 0; row < f_told; row += step)
                rows.push_back(row);
        } else {
            auto const longest =
                std::ranges::max_element(f_lines, {}, [](line const &l) { return l.text.size(); });
            rows.push_back(static_cast<int>(longest - f_lines.begin()));
        }
        return rows;
    }

    [[nodiscard]] int rowCount(QModelIndex const &parent = {}) const override
    {
        return parent.isValid() ? 0 : f_told;
    }
    [[nodiscard]] QVariant data(QModelIndex const &index, int role) const override
    {
        if (!index.isValid())
            return {};
        if (role == Qt::DisplayRole && f_is_virtual) {
            QString shown;
            if (f_owner && !f_owner->IsDestroying())
                vx_guarded([&] { shown = vx_qt_string(text(index.row())); });
            return shown;
        }
        if (f_is_virtual)
            return {};
        line const &l = at(index.row());
        if (role == Qt::DisplayRole || role == Qt::EditRole)
            return l.text;
        if (role == Qt::CheckStateRole && f_owner && f_owner->HasChecks())
            return l.check;
        return {};
    }
    [[nodiscard]] Qt::ItemFlags flags(QModelIndex const &index) const override
    {
        if (!index.isValid())
            return {};
        Qt::ItemFlags flags = Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
        flags.setFlag(Qt::ItemIsEnabled, f_is_virtual || at(index.row()).is_enabled);
        flags.setFlag(Qt::ItemIsUserCheckable, !f_is_virtual && f_owner && f_owner->HasChecks());
        return flags;
    }
    /// The user has turned a check mark.
    bool setData(QModelIndex const &index, QVariant const &value, int role) override
    {
        if (!index.isValid() || role != Qt::CheckStateRole)
            return false;
        change(index.row(), [&](line &l) { l.check = static_cast<Qt::CheckState>(value.toInt()); });
        if (!f_owner || f_owner->IsDestroying())
            return true;
        vx_guarded([&] {
            vx_event_scope const scope;
            f_owner->CheckClicked(index.row());
        });
        return true;
    }

private:
    TCustomListBox *f_owner;
    std::vector<line> f_lines;
    int f_told = 0; ///< lines that the view knows
    bool f_is_virtual = false;
    int f_virtual_count = 0;
};

/// Tells of what the user does, once for each action.
class TCustomListBox::view final : public QListView
{
public:
    TCustomListBox *owner = nullptr;

    [[nodiscard]] QList<int> chosen() const
    {
        QList<int> rows;
        for (QModelIndex const &index : selectionModel()->selectedIndexes())
            rows.append(index.row());
        std::sort(rows.begin(), rows.end());
        return rows;
    }
    [[nodiscard]] int current_row() const { return currentIndex().row(); }
    void set_current(int row, QItemSelectionModel::SelectionFlags command)
    {
        selectionModel()->setCurrentIndex(row < 0 ? QModelIndex() : model()->index(row, 0), command);
    }

protected:
    void paintEvent(QPaintEvent *event) override
    {
        QListView::paintEvent(event);
        if (model()->rowCount() > 0 || !hasFocus())
            return;
        // There is no item to show that the keys go here.
        QStyleOptionFocusRect frame;
        frame.initFrom(this);
        frame.rect = viewport()->rect();
        QPainter painter(viewport());
        style()->drawPrimitive(QStyle::PE_FrameFocusRect, &frame, &painter, this);
    }
    void mousePressEvent(QMouseEvent *event) override
    {
        f_pressed = event->button() == Qt::LeftButton && indexAt(event->pos()).isValid();
        QListView::mousePressEvent(event);
    }
    void mouseReleaseEvent(QMouseEvent *event) override
    {
        QListView::mouseReleaseEvent(event);
        if (event->button() != Qt::LeftButton || !f_pressed)
            return;
        f_pressed = false;
        tell();
    }
    void keyPressEvent(QKeyEvent *event) override
    {
        QList<int> const before = chosen();
        int const row = current_row();
        QListView::keyPressEvent(event);
        if (before != chosen() || row != current_row())
            tell();
    }

private:
    void tell()
    {
        if (!owner || owner->IsDestroying())
            return;
        vx_guarded([this] {
            vx_event_scope const scope;
            owner->Click();
        });
    }

    bool f_pressed = false;
};

class TCustomListBox::delegate final : public QStyledItemDelegate
{
public:
    explicit delegate(TCustomListBox *owner) : f_owner(owner) {}

    /// The list has ended; its widget may live to the end of the event.
    void forget() { f_owner = nullptr; }

    void paint(QPainter *painter, QStyleOptionViewItem const &option, QModelIndex const &index) const override
    {
        if (!f_owner || !f_owner->owner_drawn())
            return QStyledItemDelegate::paint(painter, option, index);
        TOwnerDrawState state;
        if (option.state & QStyle::State_Selected)
            state.Include(odSelected);
        if (option.state & QStyle::State_HasFocus)
            state.Include(odFocused);
        if (!(option.state & QStyle::State_Enabled))
            state.Include(odDisabled);
        QRect box = option.rect;
        if (f_owner->HasChecks()) {
            // The mark stands before what the program draws.
            QStyleOptionViewItem mark = option;
            initStyleOption(&mark, index);
            QStyle const *style = mark.widget->style();
            QRect const at = style->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &mark, mark.widget);
            mark.rect = at;
            mark.state |= mark.checkState == Qt::Checked            ? QStyle::State_On
                          : mark.checkState == Qt::PartiallyChecked ? QStyle::State_NoChange
                                                                    : QStyle::State_Off;
            style->drawPrimitive(QStyle::PE_IndicatorItemViewItemCheck, &mark, painter, mark.widget);
            box.setLeft(at.right() + 1 + c_text_inset);
        }
        vx_guarded([&] { f_owner->draw(painter, index.row(), vx_rect(box), state); });
    }
    QSize sizeHint(QStyleOptionViewItem const &option, QModelIndex const &index) const override
    {
        QSize size = QStyledItemDelegate::sizeHint(option, index);
        if (f_owner && f_owner->f_style != lbOwnerDrawVariable)
            for (int const row : f_owner->f_lines->widest())
                size = size.expandedTo(
                    QStyledItemDelegate::sizeHint(option, index.model()->index(row, index.column())));
        if (!f_owner || !f_owner->owner_drawn())
            return size;
        int height = f_owner->f_item_height;
        if (f_owner->f_style == lbOwnerDrawVariable)
            f_owner->MeasureItem(index.row(), height);
        size.setHeight(std::max(height, 1));
        return size;
    }

private:
    TCustomListBox *f_owner;
};

class TCustomListBox::strings final : public vx_item_strings
{
public:
    explicit strings(TCustomListBox *owner) : vx_item_strings(owner, owner->f_sorted), f_owner(owner) {}

    [[nodiscard]] int GetCount() const override { return f_owner->f_lines->count(); }
    [[nodiscard]] UnicodeString GetStrings(int index) const override { return f_owner->f_lines->text(index); }
    void SetStrings(int index, UnicodeString const &text) override
    {
        f_owner->f_lines->change(index, [&](lines::line &l) { l.text = vx_qt_string(text); });
    }
    [[nodiscard]] TObject *GetObjects(int index) const override { return f_owner->f_lines->at(index).object; }
    void SetObjects(int index, TObject *object) override
    {
        f_owner->f_lines->change(index, [&](lines::line &l) { l.object = object; });
    }

protected:
    void insert_row(int index, UnicodeString const &text) override
    {
        f_owner->f_lines->insert(index, vx_qt_string(text), IsUpdating());
    }
    void remove_row(int index) override
    {
        view *list = f_owner->native();
        bool const was_current = list->current_row() == index;
        f_owner->f_lines->remove(index);
        // The widget goes on to a neighbour.
        if (was_current) {
            list->set_current(-1, QItemSelectionModel::NoUpdate);
            if (!f_owner->f_multi_select)
                list->clearSelection();
        }
    }
    void remove_all_rows() override { f_owner->f_lines->clear(); }
    void SetUpdateState(bool updating) override
    {
        if (!updating)
            f_owner->f_lines->tell();
        f_owner->native()->setUpdatesEnabled(!updating);
    }

private:
    TCustomListBox *f_owner;
};

TCustomListBox::TCustomListBox(TComponent *owner)
    : TWinControl(owner, vx_make_widget<view>()), f_lines(new lines(this)),
      f_items(std::make_unique<strings>(this)), f_canvas(std::make_unique<TCanvas>())
{
    ControlStyle.Exclude(csClickEvents);
    ControlStyle.Exclude(csSetCaption);
    SetTabStop(true);
    SetBounds(0, 0, 121, 97);
    view *widget = native();
    widget->owner = this;
    widget->setEditTriggers(QAbstractItemView::NoEditTriggers);
    auto *drawer = new delegate(this);
    drawer->setParent(widget);
    widget->setItemDelegate(drawer);
    f_lines->setParent(widget);
    widget->setModel(f_lines);
    widget->setUniformItemSizes(true);
    apply_mode();
}

TCustomListBox::~TCustomListBox()
{
    if (view *widget = native()) {
        widget->owner = nullptr;
        f_lines->forget();
        static_cast<delegate *>(widget->itemDelegate())->forget();
    }
}

TCustomListBox::view *TCustomListBox::native() const
{
    return vx_qt_as<view>(this);
}

/// What the view knows of lines is asked through this, for those that it has not been told of.
bool TCustomListBox::is_there(int index) const
{
    f_lines->tell();
    return index >= 0 && index < f_lines->count();
}

TStrings *TCustomListBox::GetItems() const
{
    return f_items.get();
}

bool TCustomListBox::owner_drawn() const
{
    return f_style == lbOwnerDrawFixed || f_style == lbOwnerDrawVariable;
}

void TCustomListBox::apply_mode()
{
    native()->setSelectionMode(!f_multi_select     ? QAbstractItemView::SingleSelection
                               : f_extended_select ? QAbstractItemView::ExtendedSelection
                                                   : QAbstractItemView::MultiSelection);
}

void TCustomListBox::SetItems(TStrings const *items)
{
    f_items->Assign(items);
}

void TCustomListBox::AddItem(UnicodeString const &text, TObject *object)
{
    f_items->AddObject(text, object);
}

void TCustomListBox::Clear()
{
    f_items->Clear();
}

int TCustomListBox::GetItemIndex() const
{
    int const row = native()->current_row();
    if (f_multi_select)
        return row;
    // A list that merely got the focus has a current item that nobody chose.
    return row >= 0 && native()->selectionModel()->isSelected(native()->currentIndex()) ? row : -1;
}

void TCustomListBox::SetItemIndex(int index)
{
    if (!is_there(index)) {
        native()->set_current(-1, QItemSelectionModel::NoUpdate);
        if (!f_multi_select)
            native()->clearSelection();
        return;
    }
    native()->set_current(index, f_multi_select ? QItemSelectionModel::NoUpdate
                                                : QItemSelectionModel::ClearAndSelect);
}

void TCustomListBox::SetMultiSelect(bool multi)
{
    f_multi_select = multi;
    apply_mode();
}

void TCustomListBox::SetExtendedSelect(bool extended)
{
    f_extended_select = extended;
    apply_mode();
}

bool TCustomListBox::GetSelected(int index) const
{
    return is_there(index) && native()->selectionModel()->isSelected(f_lines->index(index));
}

void TCustomListBox::SetSelected(int index, bool selected)
{
    if (!is_there(index))
        return;
    if (f_multi_select)
        native()->selectionModel()->select(f_lines->index(index), selected ? QItemSelectionModel::Select
                                                                           : QItemSelectionModel::Deselect);
    else if (selected || GetItemIndex() == index)
        SetItemIndex(selected ? index : -1);
}

int TCustomListBox::GetSelCount() const
{
    return static_cast<int>(native()->chosen().size());
}

void TCustomListBox::SelectAll()
{
    if (f_multi_select)
        native()->selectAll();
}

void TCustomListBox::ClearSelection()
{
    native()->clearSelection();
}

void TCustomListBox::DeleteSelected()
{
    QList<int> const rows = native()->chosen();
    for (auto row = rows.rbegin(); row != rows.rend(); ++row)
        f_items->Delete(*row);
}

void TCustomListBox::SetStyle(TListBoxStyle style)
{
    f_style = style;
    f_lines->set_virtual(style == lbVirtual);
    native()->setUniformItemSizes(style != lbOwnerDrawVariable);
    native()->doItemsLayout();
}

void TCustomListBox::SetCount(int count)
{
    if (f_style == lbVirtual)
        f_lines->set_virtual_count(count);
}

int TCustomListBox::GetCount() const
{
    return f_lines->count();
}

void TCustomListBox::SetItemHeight(int height)
{
    f_item_height = std::max(height, 1);
    native()->doItemsLayout();
}

void TCustomListBox::SetSorted(bool sorted)
{
    f_sorted = sorted;
    if (sorted)
        f_items->Sort();
}

int TCustomListBox::GetTopIndex() const
{
    QModelIndex const first = native()->indexAt(QPoint(1, 1));
    return first.isValid() ? first.row() : 0;
}

void TCustomListBox::SetTopIndex(int index)
{
    if (is_there(index))
        native()->scrollTo(f_lines->index(index), QAbstractItemView::PositionAtTop);
}

int TCustomListBox::ItemAtPos(TPoint const &pos, bool existing) const
{
    QPoint const at = native()->viewport()->mapFrom(native(), vx_qt_point(pos));
    QModelIndex const index = native()->indexAt(at);
    if (index.isValid())
        return index.row();
    return existing ? -1 : f_items->GetCount();
}

TRect TCustomListBox::ItemRect(int index) const
{
    if (!is_there(index))
        return {};
    QRect const at = native()->visualRect(f_lines->index(index));
    return vx_rect(at.translated(native()->viewport()->pos()));
}

void TCustomListBox::SetBorderStyle(TBorderStyle style)
{
    f_border_style = style == bsNone ? bsNone : bsSingle;
    native()->setFrameShape(f_border_style == bsNone ? QFrame::NoFrame : QFrame::StyledPanel);
}

TCheckBoxState TCustomListBox::GetLineCheck(int index) const
{
    Qt::CheckState const state = is_there(index) ? f_lines->at(index).check : Qt::Unchecked;
    return state == Qt::Checked ? cbChecked : state == Qt::PartiallyChecked ? cbGrayed : cbUnchecked;
}

void TCustomListBox::SetLineCheck(int index, TCheckBoxState state)
{
    if (is_there(index))
        f_lines->change(index, [state](lines::line &l) {
            l.check = state == cbChecked  ? Qt::Checked
                      : state == cbGrayed ? Qt::PartiallyChecked
                                          : Qt::Unchecked;
        });
}

bool TCustomListBox::GetLineEnabled(int index) const
{
    return is_there(index) && f_lines->at(index).is_enabled;
}

void TCustomListBox::SetLineEnabled(int index, bool enabled)
{
    if (is_there(index))
        f_lines->change(index, [enabled](lines::line &l) { l.is_enabled = enabled; });
}

void TCustomListBox::draw(void *painter, int index, TRect const &rect, TOwnerDrawState const &state)
{
    f_canvas->Attach(static_cast<vx_native_painter *>(painter));
    bool const selected = state.Contains(odSelected);
    f_canvas->SetFont(GetFont());
    f_canvas->GetBrush()->SetColor(selected ? clHighlight : clWindow);
    if (selected)
        f_canvas->GetFont()->SetColor(clHighlightText);
    else if (state.Contains(odDisabled))
        f_canvas->GetFont()->SetColor(clGrayText);
    f_canvas->FillRect(rect);
    DrawItem(index, rect, state);
    if (state.Contains(odFocused))
        f_canvas->DrawFocusRect(rect);
    f_canvas->Detach();
}

void TCustomListBox::DrawItem(int index, TRect const &rect, TOwnerDrawState const &state)
{
    if (OnDrawItem)
        return OnDrawItem(this, index, rect, state);
    UnicodeString const text = f_items->GetStrings(index);
    f_canvas->TextRect(rect, rect.Left + c_text_inset,
                       (rect.Top + rect.Bottom - f_canvas->TextHeight(text)) / 2, text);
}

void TCustomListBox::MeasureItem(int index, int &height)
{
    OnMeasureItem(this, index, height);
}
