#include "platform/toolkit/controls/combo_box.h"

#include "platform/base/flag_scope.h"
#include "platform/toolkit/bridge/detail/control_link.h"
#include "platform/toolkit/bridge/detail/line_limit.h"
#include "platform/toolkit/bridge/qt_events.h"
#include "platform/toolkit/bridge/qt_values.h"
#include "platform/toolkit/bridge/qt_widgets.h"
#include "platform/toolkit/controls/detail/edit_port.h"
#include "platform/toolkit/controls/detail/item_strings.h"
#include "platform/toolkit/graphics/canvas.h"

#include <QtCore/QAbstractItemModel>
#include <QtCore/QModelIndex>
#include <QtCore/QStringList>
#include <QtGui/QPaintEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QCompleter>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QListView>
#include <QtWidgets/QStyle>
#include <QtWidgets/QStyleOptionComboBox>
#include <QtWidgets/QStyleOptionViewItem>
#include <QtWidgets/QStylePainter>
#include <QtWidgets/QStyledItemDelegate>

#include <algorithm>

namespace {
constexpr int c_text_inset = 2;
} // namespace

/// Tells when its list opens and closes, and lets the control draw the chosen item.
class TCustomComboBox::box : public QComboBox
{
public:
    using QComboBox::QComboBox;

    TCustomComboBox *owner = nullptr;
    bool opening = false;

    [[nodiscard]] QListView *list();
    /// The list opens below the box, as long as `DropDownCount` says. A style that would rather lay it over
    /// the box measures every text for that, which takes long for thousands of them.
    void initStyleOption(QStyleOptionComboBox *option) const override
    {
        QComboBox::initStyleOption(option);
        if (opening)
            option->editable = true;
    }
    void showPopup() override
    {
        vx_event_scope const scope;
        // A list that the window system has closed tells nothing.
        if (owner && owner->f_dropped && !view()->isVisible())
            owner->f_dropped = false;
        if (owner && !owner->IsDestroying() && !owner->f_dropped) {
            owner->f_dropped = true;
            vx_guarded([this] { owner->DropDown(); });
            if (!owner)
                return;
        }
        vx::flag_scope const opens(opening);
        QComboBox::showPopup();
    }
    void hidePopup() override
    {
        QComboBox::hidePopup();
        vx_event_scope const scope;
        if (owner && !owner->IsDestroying() && owner->f_dropped) {
            owner->f_dropped = false;
            vx_guarded([this] { owner->CloseUp(); });
        }
    }

protected:
    void paintEvent(QPaintEvent *event) override
    {
        if (!owner || !owner->owner_drawn())
            return QComboBox::paintEvent(event);
        QStylePainter painter(this);
        QStyleOptionComboBox option;
        initStyleOption(&option);
        painter.drawComplexControl(QStyle::CC_ComboBox, option);
        if (currentIndex() < 0)
            return;
        QRect const field =
            style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this);
        TOwnerDrawState state{odComboBoxEdit};
        if (hasFocus())
            state.Include(odFocused);
        if (!isEnabled())
            state.Include(odDisabled);
        painter.setClipRect(field);
        vx_guarded([&] { owner->draw(&painter, currentIndex(), vx_rect(field), state); });
    }
};

class TCustomComboBox::delegate final : public QStyledItemDelegate
{
public:
    explicit delegate(TCustomComboBox *owner) : f_owner(owner) {}

    /// The box has ended; its widget may live to the end of the event.
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
        vx_guarded([&] { f_owner->draw(painter, index.row(), vx_rect(option.rect), state); });
    }
    QSize sizeHint(QStyleOptionViewItem const &option, QModelIndex const &index) const override
    {
        QSize size = QStyledItemDelegate::sizeHint(option, index);
        if (!f_owner || !f_owner->owner_drawn())
            return size;
        int height = f_owner->f_item_height;
        if (f_owner->f_style == csOwnerDrawVariable)
            f_owner->MeasureItem(index.row(), height);
        size.setHeight(std::max(height, 1));
        return size;
    }

private:
    TCustomComboBox *f_owner;
};

class TCustomComboBox::strings final : public vx_item_strings
{
public:
    explicit strings(TCustomComboBox *owner) : vx_item_strings(owner, owner->f_sorted), f_owner(owner) {}

protected:
    void insert_row(int index, UnicodeString const &text) override
    {
        QComboBox *combo = f_owner->native();
        bool const none = combo->currentIndex() < 0;
        QString const typed = combo->currentText();
        combo->insertItem(index, vx_qt_string(text));
        // The widget chooses the first item that comes.
        if (none)
            combo->setCurrentIndex(-1);
        if (f_owner->has_edit())
            combo->setEditText(typed);
    }
    void remove_row(int index) override
    {
        QComboBox *combo = f_owner->native();
        QString const typed = combo->currentText();
        if (combo->currentIndex() == index)
            combo->setCurrentIndex(-1);
        combo->removeItem(index);
        if (f_owner->has_edit())
            combo->setEditText(typed);
    }
    void remove_all_rows() override { f_owner->native()->clear(); }
    void changed() override { f_owner->remember(); }

private:
    TCustomComboBox *f_owner;
};

TCustomComboBox::TCustomComboBox(TComponent *owner)
    : TWinControl(owner, vx_make_widget<box>()), f_items(std::make_unique<strings>(this))
{
    ControlStyle.Exclude(csClickEvents);
    ControlStyle.Exclude(csSetCaption);
    SetTabStop(true);
    SetBounds(0, 0, 145, 23);
    native()->owner = this;
    native()->setInsertPolicy(QComboBox::NoInsert);
    native()->setMaxVisibleItems(8);
    vx_connect(this, native(), &QComboBox::activated, [this](int index) { user_chose(index); });
}

TCustomComboBox::~TCustomComboBox()
{
    if (box *widget = native()) {
        widget->owner = nullptr;
        if (f_delegate)
            f_delegate->forget();
    }
}

void TCustomComboBox::CreateWnd()
{
    TWinControl::CreateWnd();
    make_edit();
}

/// The edit of a new box is made when it is first needed: most boxes become lists without one, and an edit
/// and its completer cost as much as ten other controls.
void TCustomComboBox::make_edit() const
{
    box *const widget = native();
    if ((f_style != csDropDown && f_style != csSimple) || widget->isEditable())
        return;
    int const index = widget->currentIndex();
    widget->setEditable(true);
    widget->setCurrentIndex(index);
    auto *const self = const_cast<TCustomComboBox *>(this);
    vx_connect(self, widget->lineEdit(), &QLineEdit::textEdited,
               [self](QString const &) { self->user_typed(); });
}

/// The list, which is made when it first drops down.
QListView *TCustomComboBox::box::list()
{
    auto *const made = static_cast<QListView *>(view());
    if (!owner->f_delegate) {
        owner->f_delegate = new delegate(owner);
        owner->f_delegate->setParent(this);
        setItemDelegate(owner->f_delegate);
        made->setTextElideMode(Qt::ElideRight);
    }
    made->setUniformItemSizes(owner->f_style != csOwnerDrawVariable);
    return made;
}

TCustomComboBox::box *TCustomComboBox::native() const
{
    return vx_qt_as<box>(this);
}

TStrings *TCustomComboBox::GetItems() const
{
    return f_items.get();
}

bool TCustomComboBox::owner_drawn() const
{
    return f_style == csOwnerDrawFixed || f_style == csOwnerDrawVariable;
}

bool TCustomComboBox::has_edit() const
{
    make_edit();
    return native()->isEditable();
}

void TCustomComboBox::remember()
{
    f_last_index = native()->currentIndex();
    f_last_text = GetText();
}

void TCustomComboBox::user_chose(int index)
{
    // The same item again is no change; nor is an item whose text was typed before.
    UnicodeString const text = GetText();
    bool const changed =
        has_edit() ? !(text == f_last_text) && text == f_items->GetStrings(index) : index != f_last_index;
    remember();
    if (!changed)
        return Reselect();
    auto const life = Life();
    Click();
    if (!life.expired())
        Select();
}

void TCustomComboBox::user_typed()
{
    remember();
    Change();
}

void TCustomComboBox::Select()
{
    if (OnSelect)
        OnSelect(this);
    else
        Change();
}

void TCustomComboBox::Change()
{
    OnChange(this);
}

void TCustomComboBox::DropDown()
{
    auto const life = Life();
    OnDropDown(this);
    if (life.expired())
        return;
    native()->list()->setMinimumWidth(f_drop_down_width > 0 ? f_drop_down_width : text_width());
}

/// Room for the text of the most characters: that is the longest one, or nearly so, and the only one to
/// measure.
int TCustomComboBox::text_width() const
{
    QAbstractItemModel const *const model = native()->model();
    int const column = native()->modelColumn();
    qsizetype most = 0;
    QModelIndex longest;
    for (int row = 0; row < native()->count(); ++row) {
        QModelIndex const index = model->index(row, column);
        qsizetype const length = index.data().toString().size();
        if (length > most) {
            most = length;
            longest = index;
        }
    }
    if (!longest.isValid())
        return 0;
    int const room = native()->list()->sizeHintForIndex(longest).width() +
                     native()->style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, native());
    return std::min(room, native()->screen()->availableGeometry().width() / 2);
}

void TCustomComboBox::CloseUp()
{
    OnCloseUp(this);
}

void TCustomComboBox::SetItems(TStrings const *items)
{
    f_items->Assign(items);
}

void TCustomComboBox::SetItemTexts(std::span<UnicodeString const> texts)
{
    QStringList list;
    list.reserve(static_cast<qsizetype>(texts.size()));
    for (UnicodeString const &text : texts)
        list.append(vx_qt_string(text));
    box *const widget = native();
    QString const typed = widget->currentText();
    widget->clear();
    widget->addItems(list);
    widget->setCurrentIndex(-1);
    if (has_edit())
        widget->setEditText(typed);
    remember();
}

void TCustomComboBox::AddItem(UnicodeString const &text, TObject *object)
{
    f_items->AddObject(text, object);
}

void TCustomComboBox::Clear()
{
    f_items->Clear();
    if (has_edit())
        SetText(UnicodeString());
}

int TCustomComboBox::GetItemIndex() const
{
    int const index = native()->currentIndex();
    // Where there is no edit yet nothing was typed.
    if (!native()->isEditable() && (index >= 0 || native()->count() == 0))
        return index;
    // A text that was typed stands for the item that says the same.
    if (has_edit() && (index < 0 || native()->itemText(index) != native()->currentText()))
        return native()->findText(native()->currentText(), Qt::MatchFixedString | Qt::MatchCaseSensitive);
    return index;
}

void TCustomComboBox::SetItemIndex(int index)
{
    if (index < -1 || index >= f_items->GetCount())
        index = -1;
    native()->setCurrentIndex(index);
    // An unchanged number does not bring the text of the item back by itself.
    if (has_edit())
        native()->setEditText(index < 0 ? QString() : native()->itemText(index));
    remember();
}

UnicodeString TCustomComboBox::GetText() const
{
    return vx_unicode_string(native()->currentText());
}

void TCustomComboBox::SetText(UnicodeString const &text)
{
    if (!has_edit())
        return SetItemIndex(f_items->IndexOf(text));
    native()->setEditText(vx_qt_string(text));
    remember();
}

void TCustomComboBox::SetStyle(TComboBoxStyle style)
{
    f_style = style;
    box *widget = native();
    if (style != csDropDown && style != csSimple && widget->isEditable()) {
        int const index = widget->currentIndex();
        // The edit hands its focus on to the box; at its end, which comes later, it would take it from there.
        widget->lineEdit()->setFocusProxy(nullptr);
        widget->setEditable(false);
        widget->setCurrentIndex(index);
    }
    if (HandleAllocated())
        make_edit();
    remember();
    Invalidate();
}

int TCustomComboBox::GetDropDownCount() const
{
    return native()->maxVisibleItems();
}

void TCustomComboBox::SetDropDownCount(int count)
{
    native()->setMaxVisibleItems(std::max(count, 1));
}

bool TCustomComboBox::GetDroppedDown() const
{
    return f_dropped;
}

void TCustomComboBox::SetDroppedDown(bool down)
{
    if (down == f_dropped)
        return;
    if (down)
        native()->showPopup();
    else
        native()->hidePopup();
}

void TCustomComboBox::SetSorted(bool sorted)
{
    f_sorted = sorted;
    if (sorted)
        f_items->Sort();
}

void TCustomComboBox::SetItemHeight(int height)
{
    f_item_height = std::max(height, 1);
}

void TCustomComboBox::SetDropDownWidth(int width)
{
    f_drop_down_width = width;
}

bool TCustomComboBox::GetAutoComplete() const
{
    return has_edit() && native()->completer();
}

void TCustomComboBox::SetAutoComplete(bool value)
{
    if (!has_edit() || value == GetAutoComplete())
        return;
    if (!value)
        return native()->setCompleter(nullptr);
    auto *completer = new QCompleter(native()->model(), native());
    completer->setCompletionMode(QCompleter::InlineCompletion);
    completer->setCaseSensitivity(Qt::CaseInsensitive);
    native()->setCompleter(completer);
}

int TCustomComboBox::GetMaxLength() const
{
    auto const *limit = has_edit() ? vx_line_limit::of(native()->lineEdit()) : nullptr;
    return limit ? limit->get() : 0;
}

void TCustomComboBox::SetMaxLength(int length)
{
    if (!has_edit())
        return;
    auto *limit = vx_line_limit::of(native()->lineEdit());
    if (!limit)
        limit = new vx_line_limit(native()->lineEdit());
    limit->set(length);
}

int TCustomComboBox::GetSelStart() const
{
    if (!has_edit())
        return 0;
    QLineEdit const *edit = native()->lineEdit();
    return vx_place(edit->text(), edit->hasSelectedText() ? edit->selectionStart() : edit->cursorPosition());
}

void TCustomComboBox::SetSelStart(int position)
{
    if (has_edit())
        vx_select_in_line(native()->lineEdit(), position, 0);
}

int TCustomComboBox::GetSelLength() const
{
    QString const text = has_edit() ? native()->lineEdit()->selectedText() : QString();
    return vx_place(text, text.size());
}

void TCustomComboBox::SetSelLength(int length)
{
    if (has_edit())
        vx_select_in_line(native()->lineEdit(), GetSelStart(), length);
}

void TCustomComboBox::SelectAll()
{
    if (has_edit())
        native()->lineEdit()->selectAll();
}

TCanvas *TCustomComboBox::GetCanvas() const
{
    if (!f_canvas)
        f_canvas = std::make_unique<TCanvas>();
    return f_canvas.get();
}

void TCustomComboBox::draw(void *painter, int index, TRect const &rect, TOwnerDrawState const &state)
{
    GetCanvas()->Attach(static_cast<vx_native_painter *>(painter));
    bool const selected = state.Contains(odSelected);
    f_canvas->SetFont(GetFont());
    f_canvas->GetBrush()->SetColor(selected                         ? clHighlight
                                   : state.Contains(odComboBoxEdit) ? clNone
                                                                    : clWindow);
    if (state.Contains(odComboBoxEdit))
        f_canvas->GetBrush()->SetStyle(bsClear);
    if (selected)
        f_canvas->GetFont()->SetColor(clHighlightText);
    else if (state.Contains(odDisabled))
        f_canvas->GetFont()->SetColor(clGrayText);
    f_canvas->FillRect(rect);
    DrawItem(index, rect, state);
    if (state.Contains(odFocused) && state.Contains(odComboBoxEdit))
        f_canvas->DrawFocusRect(rect);
    f_canvas->Detach();
}

void TCustomComboBox::DrawItem(int index, TRect const &rect, TOwnerDrawState const &state)
{
    if (OnDrawItem)
        return OnDrawItem(this, index, rect, state);
    UnicodeString const text = f_items->GetStrings(index);
    f_canvas->TextRect(rect, rect.Left + c_text_inset,
                       (rect.Top + rect.Bottom - f_canvas->TextHeight(text)) / 2, text);
}

void TCustomComboBox::MeasureItem(int index, int &height)
{
    OnMeasureItem(this, index, height);
}

bool TCustomComboBox::WantsKey(Word key, TShiftState shift) const
{
    // The open list takes these; the closed box leaves them to the form.
    return (f_dropped && (key == VK_RETURN || key == VK_ESCAPE)) || TWinControl::WantsKey(key, shift);
}
