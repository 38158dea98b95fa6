#include "platform/toolkit/controls/list_box.h"

#include "platform/toolkit/bridge/detail/control_link.h"
#include "platform/toolkit/bridge/qt_events.h"
#include "platform/toolkit/bridge/qt_values.h"
#include "platform/toolkit/bridge/qt_widgets.h"
#include "platform/toolkit/controls/detail/item_strings.h"
#include "platform/toolkit/graphics/canvas.h"

#include <QtCore/QItemSelectionModel>
#include <QtCore/QModelIndex>
#include <QtGui/QKeyEvent>
#include <QtGui/QMouseEvent>
#include <QtGui/QPaintEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QAbstractItemView>
#include <QtWidgets/QFrame>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QListWidgetItem>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QStyle>
#include <QtWidgets/QStyleOptionFocusRect>
#include <QtWidgets/QStyleOptionViewItem>
#include <QtWidgets/QStyledItemDelegate>

#include <algorithm>

namespace {
constexpr int c_text_inset = 2;
} // namespace

/// Tells of what the user does, once for each action.
class TCustomListBox::view final : public QListWidget
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

protected:
    void paintEvent(QPaintEvent *event) override
    {
        QListWidget::paintEvent(event);
        if (count() > 0 || !hasFocus())
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
        QListWidget::mousePressEvent(event);
    }
    void mouseReleaseEvent(QMouseEvent *event) override
    {
        QListWidget::mouseReleaseEvent(event);
        if (event->button() != Qt::LeftButton || !f_pressed)
            return;
        f_pressed = false;
        tell();
    }
    void keyPressEvent(QKeyEvent *event) override
    {
        QList<int> const before = chosen();
        int const row = currentRow();
        QListWidget::keyPressEvent(event);
        if (before != chosen() || row != currentRow())
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

protected:
    void insert_row(int index, UnicodeString const &text) override
    {
        auto *line = new QListWidgetItem(vx_qt_string(text));
        line->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
        if (f_owner->HasChecks()) {
            line->setFlags(line->flags() | Qt::ItemIsUserCheckable);
            line->setCheckState(Qt::Unchecked);
        }
        f_owner->native()->insertItem(index, line);
    }
    void remove_row(int index) override
    {
        view *list = f_owner->native();
        bool const was_current = list->currentRow() == index;
        delete list->item(index);
        // The widget goes on to a neighbour.
        if (was_current) {
            list->setCurrentRow(-1);
            if (!f_owner->f_multi_select)
                list->clearSelection();
        }
    }
    void remove_all_rows() override { f_owner->native()->clear(); }
    void SetUpdateState(bool updating) override { f_owner->native()->setUpdatesEnabled(!updating); }

private:
    TCustomListBox *f_owner;
};

TCustomListBox::TCustomListBox(TComponent *owner)
    : TWinControl(owner, vx_make_widget<view>()), f_items(std::make_unique<strings>(this)),
      f_canvas(std::make_unique<TCanvas>())
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
    vx_connect(this, widget, &QListWidget::itemChanged, [this](QListWidgetItem *item) {
        if (!f_items->is_changing())
            CheckClicked(native()->row(item));
    });
    apply_mode();
}

TCustomListBox::~TCustomListBox()
{
    if (view *widget = native()) {
        widget->owner = nullptr;
        static_cast<delegate *>(widget->itemDelegate())->forget();
    }
}

TCustomListBox::view *TCustomListBox::native() const
{
    return vx_qt_as<view>(this);
}

TStrings *TCustomListBox::GetItems() const
{
    return f_items.get();
}

bool TCustomListBox::owner_drawn() const
{
    return f_style != lbStandard;
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
    int const row = native()->currentRow();
    if (f_multi_select)
        return row;
    // A list that merely got the focus has a current item that nobody chose.
    QListWidgetItem const *item = row >= 0 ? native()->item(row) : nullptr;
    return item && item->isSelected() ? row : -1;
}

void TCustomListBox::SetItemIndex(int index)
{
    if (index < 0 || index >= f_items->GetCount()) {
        native()->setCurrentRow(-1);
        if (!f_multi_select)
            native()->clearSelection();
        return;
    }
    native()->setCurrentRow(index, f_multi_select ? QItemSelectionModel::NoUpdate
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
    return index >= 0 && index < f_items->GetCount() && native()->item(index)->isSelected();
}

void TCustomListBox::SetSelected(int index, bool selected)
{
    if (index < 0 || index >= f_items->GetCount())
        return;
    if (f_multi_select)
        native()->item(index)->setSelected(selected);
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
    native()->doItemsLayout();
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
    if (index >= 0 && index < f_items->GetCount())
        native()->scrollToItem(native()->item(index), QAbstractItemView::PositionAtTop);
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
    if (index < 0 || index >= f_items->GetCount())
        return {};
    QRect const at = native()->visualItemRect(native()->item(index));
    return vx_rect(at.translated(native()->viewport()->pos()));
}

void TCustomListBox::SetBorderStyle(TBorderStyle style)
{
    f_border_style = style == bsNone ? bsNone : bsSingle;
    native()->setFrameShape(f_border_style == bsNone ? QFrame::NoFrame : QFrame::StyledPanel);
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
