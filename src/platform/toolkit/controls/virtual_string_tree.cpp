#include "platform/toolkit/controls/virtual_string_tree.h"

#include "platform/base/flag_scope.h"
#include "platform/toolkit/bridge/detail/control_link.h"
#include "platform/toolkit/bridge/detail/drag_session.h"
#include "platform/toolkit/bridge/qt_events.h"
#include "platform/toolkit/bridge/qt_graphics.h"
#include "platform/toolkit/bridge/qt_values.h"
#include "platform/toolkit/bridge/qt_widgets.h"
#include "platform/toolkit/graphics/bitmap.h"
#include "platform/toolkit/graphics/canvas.h"
#include "platform/toolkit/graphics/image_list.h"

#include <QtCore/QAbstractItemModel>
#include <QtCore/QBasicTimer>
#include <QtCore/QElapsedTimer>
#include <QtCore/QItemSelectionModel>
#include <QtCore/QPersistentModelIndex>
#include <QtCore/QPointer>
#include <QtGui/QFocusEvent>
#include <QtGui/QIcon>
#include <QtGui/QKeyEvent>
#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>
#include <QtGui/QPixmap>
#include <QtGui/QTextDocument>
#include <QtWidgets/QApplication>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QStyle>
#include <QtWidgets/QStyleOptionFocusRect>
#include <QtWidgets/QStyledItemDelegate>
#include <QtWidgets/QTreeView>

#include <algorithm>
#include <unordered_set>
#include <utility>

namespace {
constexpr int c_line_height = 18;
constexpr int c_header_height = 18;
constexpr int c_most_header_height = 100;
constexpr int c_least_column = 10;
/// Near an edge of the tree a drag scrolls, a line each tick; a closed branch it opens after a while.
constexpr int c_scroll_zone = 12;
constexpr int c_drag_tick = 80;         ///< milliseconds
constexpr int c_drag_open_delay = 1000; ///< milliseconds
} // namespace

/// Children of one node. They stand in a few blocks, mostly one, that never move.
struct TVirtualNodeList
{
    TVirtualNodeList() = default;
    TVirtualNodeList(TVirtualNodeList const &) = delete;
    TVirtualNodeList &operator=(TVirtualNodeList const &) = delete;
    ~TVirtualNodeList()
    {
        for_each([](TVirtualNode &node) { delete node.below; });
    }

    [[nodiscard]] int count() const { return f_count; }
    [[nodiscard]] TVirtualNode &at(int index)
    {
        auto block = f_blocks.begin();
        for (; index >= block->size; ++block)
            index -= block->size;
        return block->nodes[static_cast<std::size_t>(index)];
    }
    template <class Act>
    void for_each(Act act)
    {
        int left = f_count;
        for (block const &b : f_blocks)
            for (int i = 0; i < b.size && left > 0; ++i, --left)
                act(b.nodes[static_cast<std::size_t>(i)]);
    }
    void grow(TVirtualNode *parent, int count)
    {
        int room = 0;
        for (block const &b : f_blocks)
            room += b.size;
        if (count > room) {
            // Later ones come in ever larger blocks, so that there are few to look through.
            int const size = std::max(count - room, room);
            f_blocks.push_back({std::make_unique<TVirtualNode[]>(static_cast<std::size_t>(size)), size});
        }
        for (; f_count < count; ++f_count) {
            TVirtualNode &node = at(f_count);
            node = TVirtualNode();
            node.parent = parent;
            node.index = f_count;
        }
        is_whole = false;
    }
    /// The last one, whose children are gone.
    void pop() { --f_count; }

    [[nodiscard]] int shown_count() const { return has_hidden ? static_cast<int>(f_shown.size()) : f_count; }
    [[nodiscard]] TVirtualNode &at_row(int row)
    {
        return has_hidden ? *f_shown[static_cast<std::size_t>(row)] : at(row);
    }
    /// Gives those that are shown their rows.
    void place()
    {
        has_hidden = false;
        for_each([this](TVirtualNode const &node) { has_hidden = has_hidden || node.is_hidden; });
        f_shown.clear();
        int row = 0;
        for_each([&](TVirtualNode &node) {
            node.row = node.is_hidden ? -1 : row++;
            if (has_hidden && !node.is_hidden)
                f_shown.push_back(&node);
        });
    }

    bool has_hidden = false;
    bool is_whole = false; ///< each has been asked about

private:
    struct block
    {
        std::unique_ptr<TVirtualNode[]> nodes;
        int size;
    };
    std::vector<block> f_blocks;
    int f_count = 0;
    std::vector<TVirtualNode *> f_shown; ///< empty while all are
};

/// The nodes as Qt sees them: those that are hidden are not there.
class TVirtualStringTree::nodes final : public QAbstractItemModel
{
public:
    explicit nodes(TVirtualStringTree *owner) : f_owner(owner)
    {
        f_root.below = new TVirtualNodeList;
        f_root.below->is_whole = true;
        f_root.has_children = true;
        f_root.index = -1;
    }
    ~nodes() override { delete f_root.below; }
    nodes(nodes const &) = delete;
    nodes &operator=(nodes const &) = delete;
    /// The tree has ended; its widget may live to the end of the event.
    void forget() { f_owner = nullptr; }

    [[nodiscard]] TVirtualNode *root() { return &f_root; }
    [[nodiscard]] TVirtualNode *focused() const { return f_focused; }
    void set_focused(TVirtualNode *node, int column)
    {
        f_focused = node;
        f_focused_column = column;
    }
    [[nodiscard]] int focused_column() const { return f_focused_column; }
    [[nodiscard]] TVirtualNode *node(QModelIndex const &index) const
    {
        return index.isValid() ? static_cast<TVirtualNode *>(index.internalPointer()) : nullptr;
    }
    [[nodiscard]] QModelIndex index_of(TVirtualNode const *node, int column = 0) const
    {
        return node && node != &f_root && node->row >= 0 ? createIndex(node->row, column, node)
                                                         : QModelIndex();
    }

    /// The children of a node, made and asked about where they have not been yet.
    [[nodiscard]] TVirtualNodeList &below(TVirtualNode &of)
    {
        if (!of.below) {
            of.below = new TVirtualNodeList;
            resize(of, asked_count(of));
        }
        TVirtualNodeList &kids = *of.below;
        if (!kids.is_whole) {
            // Asking may lead back here.
            kids.is_whole = true;
            for (int i = 0; i < kids.count(); ++i)
                if (!kids.at(i).is_asked)
                    ask(kids.at(i));
            kids.place();
        }
        return kids;
    }
    void set_root_count(int count) { resize(f_root, count); }
    /// Everything again that was asked before, and what has come since.
    void ask_again(TVirtualNode &of)
    {
        if (&of != &f_root)
            resize(of, asked_count(of));
        TVirtualNodeList &kids = *of.below;
        kids.is_whole = true;
        for (int i = 0; i < kids.count(); ++i) {
            TVirtualNode &node = kids.at(i);
            ask(node);
            if (!node.has_children && node.below)
                drop_below(node);
            else if (node.below)
                ask_again(node);
        }
        kids.place();
    }
    [[nodiscard]] TVirtualNode *next(TVirtualNode *node)
    {
        if (node->has_children && below(*node).count() > 0)
            return &node->below->at(0);
        for (; node->parent; node = node->parent) {
            TVirtualNodeList &siblings = below(*node->parent);
            if (node->index + 1 < siblings.count())
                return &siblings.at(node->index + 1);
        }
        return nullptr;
    }
    void each(TVirtualNode &of, int level, closure<void(PVirtualNode, int)> const &act)
    {
        below(of).for_each([&](TVirtualNode &node) {
            act(&node, level);
            if (node.has_children)
                each(node, level + 1, act);
        });
    }
    /// Runs what moves or ends nodes; what Qt holds of the others is moved along.
    template <class Change>
    void change(Change act)
    {
        emit layoutAboutToBeChanged();
        QModelIndexList const from = persistentIndexList();
        f_held.clear();
        for (QModelIndex const &index : from)
            f_held.insert(node(index));
        vx_guarded(act);
        QModelIndexList to;
        to.reserve(from.size());
        for (QModelIndex const &index : from)
            to.append(f_held.contains(node(index)) ? index_of(node(index), index.column()) : QModelIndex());
        f_held.clear();
        changePersistentIndexList(from, to);
        emit layoutChanged();
    }
    [[nodiscard]] bool is_asking() const { return f_asking > 0; }

    [[nodiscard]] QModelIndex index(int row, int column, QModelIndex const &parent) const override
    {
        TVirtualNode *const of = parent.isValid() ? node(parent) : const_cast<TVirtualNode *>(&f_root);
        if (row < 0 || column < 0 || !of->below || row >= of->below->shown_count())
            return {};
        return createIndex(row, column, &of->below->at_row(row));
    }
    [[nodiscard]] QModelIndex parent(QModelIndex const &index) const override
    {
        return index.isValid() ? index_of(node(index)->parent) : QModelIndex();
    }
    [[nodiscard]] int rowCount(QModelIndex const &parent) const override
    {
        if (parent.column() > 0 || !f_owner)
            return 0;
        auto *const self = const_cast<nodes *>(this);
        TVirtualNode *const of = parent.isValid() ? node(parent) : self->root();
        if (!of->has_children)
            return 0;
        int count = 0;
        vx_guarded([&] { count = self->below(*of).shown_count(); });
        return count;
    }
    [[nodiscard]] bool hasChildren(QModelIndex const &parent) const override
    {
        if (!parent.isValid())
            return rowCount(parent) > 0;
        TVirtualNode const *const of = node(parent);
        return parent.column() == 0 && of->has_children && (!of->below || of->below->shown_count() > 0);
    }
    [[nodiscard]] int columnCount(QModelIndex const &) const override
    {
        return f_owner ? std::max(f_owner->GetColumnCount(), 1) : 1;
    }
    [[nodiscard]] Qt::ItemFlags flags(QModelIndex const &index) const override
    {
        return index.isValid() ? Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsEditable
                               : Qt::NoItemFlags;
    }
    [[nodiscard]] QVariant data(QModelIndex const &index, int role) const override
    {
        bool const hint = role == Qt::ToolTipRole && f_owner && f_owner->GetShowHint();
        if (!index.isValid() || !f_owner || f_owner->IsDestroying() ||
            (!hint && role != Qt::DisplayRole && role != Qt::EditRole))
            return {};
        auto const &asked = hint ? f_owner->OnGetHint : f_owner->OnGetText;
        UnicodeString text;
        vx_guarded([&] { asked(f_owner, node(index), index.column(), text); });
        QString const shown = vx_qt_string(text);
        // A hint is a text too, whatever is in it.
        return hint && Qt::mightBeRichText(shown) ? Qt::convertFromPlainText(shown) : shown;
    }
    bool setData(QModelIndex const &index, QVariant const &value, int role) override
    {
        if (!index.isValid() || role != Qt::EditRole || !f_owner || f_owner->IsDestroying())
            return false;
        vx_guarded([&] {
            vx_event_scope const scope;
            f_owner->OnNewText(f_owner, node(index), index.column(), vx_unicode_string(value.toString()));
        });
        return true;
    }
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation, int role) const override
    {
        TVirtualTreeColumn const *const column = f_owner ? f_owner->GetColumn(section) : nullptr;
        if (!column)
            return {};
        if (role == Qt::DisplayRole)
            return vx_qt_string(column->GetText());
        if (role == Qt::TextAlignmentRole)
            return static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter);
        TBitmap picture;
        if (role == Qt::DecorationRole && f_owner->f_images &&
            f_owner->f_images->GetBitmap(column->GetImageIndex(), &picture))
            return QIcon(QPixmap::fromImage(vx_qt_image(picture)));
        return {};
    }
    /// For what changes the columns.
    void add_column(int count)
    {
        bool const shows = count > 1;
        if (shows)
            beginInsertColumns({}, count - 1, count - 1);
        f_owner->f_columns.emplace_back(new TVirtualTreeColumn(f_owner, count - 1));
        if (shows)
            endInsertColumns();
    }
    void clear_columns()
    {
        int const count = f_owner->GetColumnCount();
        if (count > 1)
            beginRemoveColumns({}, 1, count - 1);
        f_owner->f_columns.clear();
        if (count > 1)
            endRemoveColumns();
    }

private:
    [[nodiscard]] int asked_count(TVirtualNode &of)
    {
        int count = 0;
        ++f_asking;
        vx_guarded([&] { f_owner->OnInitChildren(f_owner, &of, count); });
        --f_asking;
        return std::max(count, 0);
    }
    void ask(TVirtualNode &node)
    {
        node.is_asked = true;
        node.has_children = node.is_selected = node.is_hidden = false;
        ++f_asking;
        vx_guarded(
            [&] { f_owner->OnInitNode(f_owner, node.parent == &f_root ? nullptr : node.parent, &node); });
        --f_asking;
    }
    void resize(TVirtualNode &of, int count)
    {
        TVirtualNodeList &kids = *of.below;
        while (kids.count() > std::max(count, 0)) {
            TVirtualNode &last = kids.at(kids.count() - 1);
            drop_below(last);
            forget_node(&last);
            kids.pop();
        }
        if (kids.count() < count)
            kids.grow(&of, count);
        kids.place();
    }
    void drop_below(TVirtualNode &of)
    {
        if (!of.below)
            return;
        of.below->for_each([this](TVirtualNode &node) {
            drop_below(node);
            forget_node(&node);
        });
        delete std::exchange(of.below, nullptr);
    }
    void forget_node(TVirtualNode *node)
    {
        f_held.erase(node);
        if (node == f_focused)
            f_focused = nullptr;
        if (!f_owner)
            return;
        if (node == f_owner->f_drop_target)
            f_owner->f_drop_target = nullptr;
        f_owner->OnFreeNode(f_owner, node);
    }

    TVirtualStringTree *f_owner;
    TVirtualNode f_root;
    TVirtualNode *f_focused = nullptr;
    int f_focused_column = 0;
    int f_asking = 0;
    std::unordered_set<TVirtualNode *> f_held; ///< while nodes change: those that Qt has something of
};

/// Several nodes are selected only if they have one parent: that of the node that was chosen first.
class TVirtualStringTree::selection final : public QItemSelectionModel
{
public:
    using QItemSelectionModel::QItemSelectionModel;

    void select(QItemSelection const &chosen, SelectionFlags command) override
    {
        if (is_free || chosen.isEmpty() || !(command & (Select | Toggle)))
            return QItemSelectionModel::select(chosen, command);
        bool const one = chosen.size() == 1 && chosen.front().height() == 1;
        if ((one && (command & Clear)) || !hasSelection())
            f_parent = one ? chosen.front().parent() : currentIndex().parent();
        QItemSelection kept;
        for (QItemSelectionRange const &range : chosen)
            if (range.parent() == f_parent)
                kept.append(range);
        if (!kept.isEmpty())
            QItemSelectionModel::select(kept, command);
    }
    using QItemSelectionModel::select;

    bool is_free = false; ///< what the program selects

private:
    QPersistentModelIndex f_parent;
};

class TVirtualStringTree::header final : public QHeaderView
{
public:
    explicit header(QWidget *parent) : QHeaderView(Qt::Horizontal, parent) {}
    TVirtualStringTree *owner = nullptr;

protected:
    void mousePressEvent(QMouseEvent *event) override
    {
        TVirtualTreeColumn const *const column =
            owner ? owner->GetColumn(logicalIndexAt(event->position().toPoint())) : nullptr;
        setSectionsMovable(column && column->GetDraggable());
        setFirstSectionMovable(true);
        QHeaderView::mousePressEvent(event);
    }
};

class TVirtualStringTree::view final : public QTreeView
{
public:
    TVirtualStringTree *owner = nullptr;

    using QTreeView::doItemsLayout;
    using QTreeView::scheduleDelayedItemsLayout;
    using QTreeView::setHeader;
    [[nodiscard]] bool is_editing() const { return state() == EditingState; }
    bool start_edit(QModelIndex const &index)
    {
        return edit(index, QAbstractItemView::AllEditTriggers, nullptr);
    }
    [[nodiscard]] nodes *model_nodes() const { return static_cast<nodes *>(model()); }

    /// Selection and focus as the nodes have them.
    void take_over()
    {
        auto *const chosen = static_cast<selection *>(selectionModel());
        vx::flag_scope const quiet(owner->f_quiet), free(chosen->is_free);
        QItemSelection all;
        collect(*model_nodes()->root(), all);
        chosen->select(all, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
        chosen->setCurrentIndex(
            model_nodes()->index_of(model_nodes()->focused(), model_nodes()->focused_column()),
            QItemSelectionModel::NoUpdate);
        is_stale = false;
    }
    bool is_stale = false; ///< nodes came that are selected or have the focus
    void settle()
    {
        if (is_stale && owner)
            take_over();
    }
    /// Something is dragged over the tree; nothing any more.
    void drag_at(QPoint at)
    {
        QModelIndex const now = indexAt(at).siblingAtColumn(0);
        if (now != f_drag_over || !f_drag_timer.isActive())
            f_drag_since.start();
        f_drag_over = now;
        f_drag_at = at;
        if (!f_drag_timer.isActive())
            f_drag_timer.start(c_drag_tick, this);
    }
    void drag_gone()
    {
        f_drag_timer.stop();
        f_drag_over = QPersistentModelIndex();
    }
    /// A branch that the user opens shows as much of itself as there is room for.
    void branch_opened(QModelIndex const &index)
    {
        if (!f_by_user)
            return;
        if (int const count = model()->rowCount(index); count > 0)
            scrollTo(model()->index(count - 1, 0, index));
        scrollTo(index);
    }

protected:
    void timerEvent(QTimerEvent *event) override
    {
        if (event->timerId() != f_drag_timer.timerId())
            return QTreeView::timerEvent(event);
        if (!owner || !vx_drag_session::source())
            return drag_gone();
        QScrollBar *const bar = verticalScrollBar();
        int const before = bar->value();
        if (f_drag_at.y() < c_scroll_zone)
            bar->setValue(before - 1);
        else if (f_drag_at.y() >= viewport()->height() - c_scroll_zone)
            bar->setValue(before + 1);
        bool const opens = f_drag_over.isValid() && f_drag_since.hasExpired(c_drag_open_delay) &&
                           model()->hasChildren(f_drag_over) && !isExpanded(f_drag_over);
        if (opens) {
            vx::flag_scope const by_user(f_by_user);
            expand(f_drag_over);
            executeDelayedItemsLayout();
        }
        if (opens || bar->value() != before)
            vx_guarded([] { vx_drag_session::again(); });
    }
    void keyPressEvent(QKeyEvent *event) override
    {
        QPointer<view> const alive(this);
        f_by_user = true;
        QTreeView::keyPressEvent(event);
        if (alive)
            f_by_user = false;
    }
    /// Lines between the cells and between the branches.
    void drawRow(QPainter *painter, QStyleOptionViewItem const &option,
                 QModelIndex const &index) const override
    {
        QTreeView::drawRow(painter, option, index);
        QRect const row = option.rect;
        painter->save();
        painter->setPen(palette().color(QPalette::Button));
        int right = row.left();
        for (int i = 0; i < header()->count(); ++i) {
            int const edge = columnViewportPosition(i) + columnWidth(i) - 1;
            painter->drawLine(edge, row.top(), edge, row.bottom());
            right = std::max(right, edge);
        }
        painter->drawLine(row.left(), row.bottom(), right, row.bottom());
        painter->restore();
    }
    void drawBranches(QPainter *painter, QRect const &rect, QModelIndex const &index) const override
    {
        int const indent = indentation(), middle = rect.center().y();
        int const forth = isRightToLeft() ? -1 : 1;
        int x = (isRightToLeft() ? rect.left() : rect.right()) - forth * indent / 2;
        painter->save();
        painter->setPen(QPen(palette().color(QPalette::Mid), 1, Qt::DotLine));
        painter->drawLine(x, middle, x + forth * indent / 2, middle);
        for (QModelIndex at = index; at.isValid(); at = at.parent(), x -= forth * indent) {
            bool const is_first = at.row() == 0 && !at.parent().isValid();
            bool const is_last = !at.siblingAtRow(at.row() + 1).isValid();
            int const from = at == index && is_first ? middle : rect.top();
            int const to = at == index && is_last ? middle : rect.bottom();
            if (at == index || !is_last)
                painter->drawLine(x, from, x, to);
        }
        painter->restore();
        QTreeView::drawBranches(painter, rect, index);
    }
    void paintEvent(QPaintEvent *event) override
    {
        settle();
        QTreeView::paintEvent(event);
        if (hasFocus() && !currentIndex().isValid()) {
            // There is no item to show that the keys go here.
            QStyleOptionFocusRect frame;
            frame.initFrom(this);
            frame.rect = viewport()->rect();
            QPainter painter(viewport());
            style()->drawPrimitive(QStyle::PE_FrameFocusRect, &frame, &painter, this);
        }
        if (!owner || !owner->f_drop_target || owner->f_drop_mode == dmNowhere)
            return;
        QRect cell = visualRect(model_nodes()->index_of(owner->f_drop_target));
        cell.setRight(viewport()->width() - 1);
        QPainter painter(viewport());
        painter.setPen(QPen(palette().color(QPalette::WindowText), 2));
        if (owner->f_drop_mode == dmOnNode)
            painter.drawRect(cell.adjusted(1, 1, -1, -1));
        else
            painter.drawLine(cell.left(), owner->f_drop_mode == dmAbove ? cell.top() : cell.bottom(),
                             cell.right(), owner->f_drop_mode == dmAbove ? cell.top() : cell.bottom());
    }
    void focusInEvent(QFocusEvent *event) override
    {
        if (!owner)
            return QTreeView::focusInEvent(event);
        // Qt would give the first item the focus, of its own accord.
        {
            vx::flag_scope const quiet(owner->f_quiet);
            QTreeView::focusInEvent(event);
        }
        take_over();
    }
    void mousePressEvent(QMouseEvent *event) override { press(*event, false); }
    void mouseDoubleClickEvent(QMouseEvent *event) override { press(*event, true); }
    void mouseMoveEvent(QMouseEvent *event) override
    {
        // Nothing is selected by drawing the mouse over it: a node that is drawn away is dragged. A press
        // that was refused is a button's, however unsteady the hand.
        if (!(event->buttons() & Qt::LeftButton)) {
            QTreeView::mouseMoveEvent(event);
            return;
        }
        QPoint const at = event->position().toPoint();
        if (!owner || f_is_refused || f_is_still || !f_pressed.isValid() ||
            (at - f_pressed_at).manhattanLength() < QApplication::startDragDistance())
            return;
        f_is_still = true;
        QModelIndex const pressed = f_pressed;
        QPointer<view> const alive(this);
        vx_guarded([&] {
            vx_event_scope const scope;
            bool allowed = false;
            owner->OnDragAllowed(owner, model_nodes()->node(pressed), pressed.column(), allowed);
            if (!allowed || !alive || !owner)
                return;
            f_pressed = QPersistentModelIndex();
            owner->BeginDrag(true);
        });
    }
    void mouseReleaseEvent(QMouseEvent *event) override
    {
        bool const left = event->button() == Qt::LeftButton;
        QModelIndex const pressed =
            left ? QModelIndex(std::exchange(f_pressed, QPersistentModelIndex())) : QModelIndex();
        QPersistentModelIndex const clicked =
            pressed.isValid() && indexAt(event->position().toPoint()) == pressed ? pressed : QModelIndex();
        if (!tell(*event, false))
            return;
        if (!f_is_refused)
            QTreeView::mouseReleaseEvent(event);
        f_is_refused = false;
        if (!owner || !clicked.isValid())
            return;
        vx_guarded([&] {
            vx_event_scope const scope;
            owner->OnColumnClick(owner, clicked.column(), vx_shift_state(event->modifiers()));
        });
    }
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers keys) override
    {
        settle();
        QModelIndex const to = QTreeView::moveCursor(action, keys);
        bool allowed = true;
        if (owner && to.isValid() && to != currentIndex())
            vx_guarded([&] { allowed = owner->may_focus(model_nodes()->node(to), to.column()); });
        return allowed ? to : currentIndex();
    }
    bool edit(QModelIndex const &index, EditTrigger trigger, QEvent *event) override
    {
        bool allowed = true;
        bool const would_edit = trigger == AllEditTriggers || (trigger & editTriggers());
        if (owner && index.isValid() && would_edit) {
            allowed = false;
            vx_guarded([&] { owner->OnEditing(owner, model_nodes()->node(index), index.column(), allowed); });
        }
        return allowed && QTreeView::edit(index, trigger, event);
    }

private:
    static bool is_run_end(TVirtualNodeList &kids, int row, int count)
    {
        return row + 1 == count || !kids.at_row(row + 1).is_selected;
    }
    void collect(TVirtualNode &of, QItemSelection &all) const
    {
        if (!of.below)
            return;
        int const count = of.below->shown_count();
        int const last = model()->columnCount() - 1;
        for (int row = 0, first = -1; row < count; ++row) {
            TVirtualNode &node = of.below->at_row(row);
            if (node.is_selected) {
                first = first < 0 ? row : first;
                if (is_run_end(*of.below, row, count)) {
                    all.append(QItemSelectionRange(model_nodes()->index_of(&of.below->at_row(first)),
                                                   model_nodes()->index_of(&node, last)));
                    first = -1;
                }
            }
            collect(node, all);
        }
    }
    /// On the mark that opens and closes a branch.
    [[nodiscard]] bool is_on_mark(QModelIndex const &index, QPoint at) const
    {
        if (index.column() != 0 || !model()->hasChildren(index))
            return false;
        QRect const cell = visualRect(index);
        return isRightToLeft() ? at.x() > cell.right() : at.x() < cell.left();
    }
    /// False if the handler freed the tree.
    bool tell(QMouseEvent const &event, bool down)
    {
        QPointer<view> const alive(this);
        if (owner)
            vx_guarded([&] {
                TMouseButton const button = event.button() == Qt::RightButton    ? mbRight
                                            : event.button() == Qt::MiddleButton ? mbMiddle
                                                                                 : mbLeft;
                TPoint const at = vx_point(mapFromGlobal(event.globalPosition().toPoint()));
                owner->fire_mouse(down, button, vx_shift_state(event.modifiers(), event.buttons()), at);
            });
        return alive && owner;
    }
    void press(QMouseEvent &event, bool twice)
    {
        QPoint const at = event.position().toPoint();
        bool const left = event.button() == Qt::LeftButton;
        settle();
        f_pressed = QPersistentModelIndex();
        f_is_refused = f_is_still = false;
        if (!tell(event, true))
            return;
        QPersistentModelIndex const under = indexAt(at);
        bool const on_mark = under.isValid() && is_on_mark(under, at);
        if (under.isValid() && !on_mark) {
            bool allowed = true;
            vx_guarded([&] { allowed = owner->may_focus(model_nodes()->node(under), under.column()); });
            if (!owner || !under.isValid())
                return;
            if (left)
                f_pressed = under;
            f_pressed_at = at;
            if (!allowed) {
                f_is_refused = true;
                return;
            }
        }
        QPointer<view> const alive(this);
        f_by_user = true;
        if (twice && !on_mark)
            QTreeView::mouseDoubleClickEvent(&event);
        else
            QTreeView::mousePressEvent(&event);
        if (alive)
            f_by_user = false;
    }

    QPersistentModelIndex f_pressed;
    QPoint f_pressed_at;
    bool f_is_refused = false;
    bool f_is_still = false; ///< the pressed node may not be dragged
    bool f_by_user = false;
    QBasicTimer f_drag_timer;
    QPersistentModelIndex f_drag_over;
    QPoint f_drag_at;
    QElapsedTimer f_drag_since; ///< it is over that node
};

/// Draws a cell: what the program paints below, picture, text in the font that it chose.
class TVirtualStringTree::drawer final : public QStyledItemDelegate
{
public:
    explicit drawer(TVirtualStringTree *owner) : f_owner(owner) {}
    void forget() { f_owner = nullptr; }

    void paint(QPainter *painter, QStyleOptionViewItem const &option, QModelIndex const &index) const override
    {
        if (!f_owner || f_owner->IsDestroying())
            return;
        TVirtualNode *const node = f_owner->f_nodes->node(index);
        QStyle const *const style = option.widget->style();
        QPalette::ColorGroup const group =
            option.state & QStyle::State_Enabled ? QPalette::Active : QPalette::Disabled;
        // The cell that takes the focus shows the selection; the others are no part of it.
        bool const lit = node->is_selected && index.column() == f_owner->f_nodes->focused_column();
        if (lit)
            painter->fillRect(option.rect, option.palette.color(group, QPalette::Highlight));
        TVirtualTreeColumn const *const column = f_owner->GetColumn(index.column());
        int const margin = column ? column->GetMargin() : 4, spacing = column ? column->GetSpacing() : 4;
        QRect room = option.rect.adjusted(margin, 0, -margin, 0);
        QFont font = option.font;
        vx_guarded([&] {
            TCanvas &canvas = *f_owner->f_canvas;
            canvas.Attach(vx_native(painter));
            canvas.SetFont(f_owner->GetFont());
            f_owner->OnBeforeCellPaint(f_owner, &canvas, node, index.column(), vx_rect(option.rect));
            int image = -1;
            f_owner->OnGetImageIndex(f_owner, node, node->is_selected ? ikSelected : ikNormal, index.column(),
                                     image);
            if (f_owner->f_images && image >= 0 && image < f_owner->f_images->GetCount()) {
                int const width = f_owner->f_images->GetWidth(), height = f_owner->f_images->GetHeight();
                f_owner->f_images->Draw(&canvas, room.left(), room.center().y() + 1 - height / 2, image,
                                        f_owner->GetEnabled());
                room.setLeft(room.left() + width + spacing);
            }
            f_owner->OnPaintText(f_owner, &canvas, node, index.column());
            font = vx_qt_font(*canvas.GetFont());
            canvas.Detach();
        });
        painter->save();
        painter->setFont(font);
        painter->setPen(option.palette.color(group, lit ? QPalette::HighlightedText : QPalette::Text));
        QString const text =
            painter->fontMetrics().elidedText(index.data().toString(), Qt::ElideRight, room.width());
        painter->drawText(room, Qt::AlignVCenter | Qt::AlignLeading | Qt::TextSingleLine, text);
        painter->restore();
        if (option.state & QStyle::State_HasFocus) {
            QStyleOptionFocusRect frame;
            frame.QStyleOption::operator=(option);
            frame.backgroundColor = option.palette.color(group, QPalette::Highlight);
            style->drawPrimitive(QStyle::PE_FrameFocusRect, &frame, painter, option.widget);
        }
    }
    QSize sizeHint(QStyleOptionViewItem const &option, QModelIndex const &) const override
    {
        int const image = f_owner && f_owner->f_images ? f_owner->f_images->GetHeight() + 2 : 0;
        return {c_least_column, std::max({c_line_height, option.fontMetrics.height() + 2, image})};
    }

    /// Enter ends the entry at once: the key comes by twice, and what Qt does later it would do twice.
    bool eventFilter(QObject *object, QEvent *event) override
    {
        auto const *const key = event->type() == QEvent::KeyPress ? static_cast<QKeyEvent *>(event) : nullptr;
        if (!key || (key->key() != Qt::Key_Return && key->key() != Qt::Key_Enter))
            return QStyledItemDelegate::eventFilter(object, event);
        QPointer<QWidget> const editor(static_cast<QWidget *>(object));
        emit commitData(editor);
        if (editor)
            emit closeEditor(editor);
        return true;
    }

private:
    TVirtualStringTree *f_owner;
};

// ---- columns

void TVirtualTreeColumn::SetText(UnicodeString const &text)
{
    f_text = text;
    f_tree->column_changed(f_index);
}

int TVirtualTreeColumn::GetWidth() const
{
    return f_tree->native()->header()->sectionSize(f_index);
}

void TVirtualTreeColumn::SetWidth(int width)
{
    f_width = std::max(width, 0);
    f_tree->column_changed(f_index);
}

void TVirtualTreeColumn::SetImageIndex(int index)
{
    f_image_index = index;
    f_tree->column_changed(f_index);
}

void TVirtualTreeColumn::SetResizable(bool value)
{
    f_resizable = value;
    f_tree->column_changed(f_index);
}

void TVirtualTreeColumn::SetMargin(int value)
{
    f_margin = std::max(value, 0);
    f_tree->InvalidateColumn(f_index);
}

TVirtualTreeColumn *TVirtualStringTree::GetColumn(int index) const
{
    return index >= 0 && index < GetColumnCount() ? f_columns[static_cast<std::size_t>(index)].get()
                                                  : nullptr;
}

TVirtualTreeColumn *TVirtualStringTree::AddColumn()
{
    f_nodes->add_column(GetColumnCount() + 1);
    native()->header()->setVisible(true);
    column_changed(GetColumnCount() - 1);
    return f_columns.back().get();
}

void TVirtualStringTree::ClearColumns()
{
    f_nodes->clear_columns();
    native()->header()->setVisible(false);
}

void TVirtualStringTree::column_changed(int index)
{
    TVirtualTreeColumn const &column = *f_columns[static_cast<std::size_t>(index)];
    QHeaderView *const head = native()->header();
    bool const fills = index == f_auto_size;
    head->setSectionResizeMode(index, fills                ? QHeaderView::Stretch
                                      : column.f_resizable ? QHeaderView::Interactive
                                                           : QHeaderView::Fixed);
    if (!fills)
        head->resizeSection(index, column.f_width);
    emit f_nodes->headerDataChanged(Qt::Horizontal, index, index);
}

void TVirtualStringTree::SetAutoSizeIndex(int index)
{
    int const before = std::exchange(f_auto_size, index);
    for (int const changed : {before, index})
        if (GetColumn(changed))
            column_changed(changed);
}

void TVirtualStringTree::SetHeaderHeight(int height)
{
    native()->header()->setFixedHeight(std::clamp(height, 0, c_most_header_height));
}

void TVirtualStringTree::SetHeaderFont(TFont const *font)
{
    QHeaderView *const head = native()->header();
    head->setFont(vx_qt_font(*font));
    QPalette colors = head->palette();
    colors.setColor(QPalette::ButtonText, vx_qt_color(font->GetColor()));
    head->setPalette(colors);
}

// ---- the tree

TVirtualStringTree::TVirtualStringTree(TComponent *owner)
    : TWinControl(owner, vx_make_widget<view>()), f_nodes(new nodes(this)),
      f_canvas(std::make_unique<TCanvas>())
{
    ControlStyle.Exclude(csSetCaption);
    SetTabStop(true);
    SetBounds(0, 0, 200, 100);
    view *const tree = native();
    tree->owner = this;
    auto *const head = new header(tree);
    head->owner = this;
    tree->setHeader(head);
    head->setMinimumSectionSize(c_least_column);
    head->setStretchLastSection(false);
    head->setSectionsClickable(true);
    head->setVisible(false);
    SetHeaderHeight(c_header_height);
    f_nodes->setParent(tree);
    tree->setModel(f_nodes);
    auto *const chosen = new selection(f_nodes, tree);
    tree->setSelectionModel(chosen);
    auto *const draws = new drawer(this);
    draws->setParent(tree);
    tree->setItemDelegate(draws);
    tree->setUniformRowHeights(true);
    tree->setAllColumnsShowFocus(false);
    tree->setTreePosition(0);
    tree->setExpandsOnDoubleClick(false);
    tree->setSelectionMode(QAbstractItemView::ExtendedSelection);
    tree->setSelectionBehavior(QAbstractItemView::SelectRows);
    tree->setEditTriggers(QAbstractItemView::EditKeyPressed | QAbstractItemView::DoubleClicked);
    tree->setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
    vx_connect(this, tree, &QTreeView::expanded,
               [tree](QModelIndex const &branch) { tree->branch_opened(branch); });
    vx_connect(this, head, &QHeaderView::sectionClicked, [this](int column) { OnHeaderClick(this, column); });
    vx_connect(this, chosen, &QItemSelectionModel::currentChanged,
               [this](QModelIndex const &now, QModelIndex const &) {
                   if (f_quiet)
                       return;
                   f_nodes->set_focused(f_nodes->node(now), std::max(now.column(), 0));
                   OnFocusChanged(this, f_nodes->focused(), f_nodes->focused_column());
               });
    vx_connect(this, chosen, &QItemSelectionModel::selectionChanged,
               [this](QItemSelection const &more, QItemSelection const &less) {
                   if (f_quiet)
                       return;
                   for (bool const on : {false, true})
                       for (QItemSelectionRange const &range : on ? more : less)
                           for (int row = range.top(); row <= range.bottom(); ++row)
                               f_nodes->node(f_nodes->index(row, 0, range.parent()))->is_selected = on;
                   native()->viewport()->update();
                   OnChange(this, f_nodes->focused());
               });
}

TVirtualStringTree::~TVirtualStringTree()
{
    SetImages(nullptr);
    if (view *const tree = native()) {
        static_cast<header *>(tree->header())->owner = nullptr;
        static_cast<drawer *>(tree->itemDelegate())->forget();
        tree->itemDelegate()->blockSignals(true);
        tree->owner = nullptr;
        f_nodes->forget();
    }
}

TVirtualStringTree::view *TVirtualStringTree::native() const
{
    return vx_qt_as<view>(this);
}

void TVirtualStringTree::SetImages(TCustomImageList *images)
{
    if (f_images == images)
        return;
    if (f_images) {
        f_images->UnRegisterChanges(make_closure<&TVirtualStringTree::images_changed>(this));
        f_images->RemoveFreeNotification(this);
    }
    f_images = images;
    if (images) {
        images->RegisterChanges(make_closure<&TVirtualStringTree::images_changed>(this));
        images->FreeNotification(this);
    }
    images_changed(images);
}

void TVirtualStringTree::images_changed(TObject *)
{
    if (IsDestroying())
        return;
    native()->scheduleDelayedItemsLayout();
    native()->header()->viewport()->update();
}

void TVirtualStringTree::Notification(TComponent *component, TOperation operation)
{
    TWinControl::Notification(component, operation);
    if (operation == opRemove && component == f_images) {
        f_images = nullptr;
        images_changed(nullptr);
    }
}

void TVirtualStringTree::SetSelectionColor(TColor color)
{
    QPalette colors = native()->palette();
    QColor const ground = vx_qt_color(color);
    colors.setColor(QPalette::Highlight, ground);
    colors.setColor(QPalette::HighlightedText, ground.lightness() > 127 ? Qt::black : Qt::white);
    native()->setPalette(colors);
}

// ---- nodes

int TVirtualStringTree::GetRootNodeCount() const
{
    return f_pending_count >= 0 ? f_pending_count : f_nodes->root()->below->count();
}

void TVirtualStringTree::SetRootNodeCount(int count)
{
    count = std::max(count, 0);
    if (count == GetRootNodeCount())
        return;
    if (f_update_count > 0)
        f_pending_count = count;
    else
        resize_root(count);
}

void TVirtualStringTree::resize_root(int count)
{
    native()->selectionModel()->reset();
    f_nodes->change([&] { f_nodes->set_root_count(count); });
    native()->is_stale = true;
}

void TVirtualStringTree::ReinitNodes()
{
    int const top = native()->verticalScrollBar()->value();
    native()->selectionModel()->reset();
    f_nodes->change([&] {
        f_nodes->set_root_count(GetRootNodeCount());
        f_pending_count = -1;
        f_nodes->ask_again(*f_nodes->root());
    });
    native()->doItemsLayout();
    native()->verticalScrollBar()->setValue(top);
    native()->take_over();
    native()->viewport()->update();
}

PVirtualNode TVirtualStringTree::GetFirst()
{
    return GetChild(nullptr, 0);
}

PVirtualNode TVirtualStringTree::GetNext(PVirtualNode node)
{
    return f_nodes->next(node);
}

void TVirtualStringTree::IterateNodes(closure<void(PVirtualNode node, int level)> const &act)
{
    f_nodes->each(*f_nodes->root(), 0, act);
}

PVirtualNode TVirtualStringTree::GetNodeParent(PVirtualNode node) const
{
    return node->parent == f_nodes->root() ? nullptr : node->parent;
}

int TVirtualStringTree::GetNodeLevel(PVirtualNode node) const
{
    int level = -1;
    for (; node->parent; node = node->parent)
        ++level;
    return level;
}

PVirtualNode TVirtualStringTree::GetChild(PVirtualNode parent, int index)
{
    TVirtualNode *const of = parent ? parent : f_nodes->root();
    if (!of->has_children || index < 0)
        return nullptr;
    TVirtualNodeList &kids = f_nodes->below(*of);
    return index < kids.count() ? &kids.at(index) : nullptr;
}

void TVirtualStringTree::SetSelected(PVirtualNode node, bool selected)
{
    if (std::exchange(node->is_selected, selected) == selected)
        return;
    native()->is_stale = true;
    native()->viewport()->update();
}

bool TVirtualStringTree::GetIsVisible(PVirtualNode node) const
{
    return !node->is_hidden;
}

void TVirtualStringTree::SetIsVisible(PVirtualNode node, bool visible)
{
    if (node->is_hidden == !visible)
        return;
    if (f_nodes->is_asking()) {
        node->is_hidden = !visible;
        return;
    }
    native()->selectionModel()->reset();
    f_nodes->change([&] {
        node->is_hidden = !visible;
        node->parent->below->place();
    });
    native()->is_stale = true;
}

bool TVirtualStringTree::GetHasChildren(PVirtualNode node) const
{
    return node->has_children;
}

void TVirtualStringTree::SetHasChildren(PVirtualNode node, bool value)
{
    if (std::exchange(node->has_children, value) != value && !f_nodes->is_asking())
        native()->scheduleDelayedItemsLayout();
}

bool TVirtualStringTree::GetExpanded(PVirtualNode node) const
{
    return native()->isExpanded(f_nodes->index_of(node));
}

void TVirtualStringTree::SetExpanded(PVirtualNode node, bool expanded)
{
    native()->setExpanded(f_nodes->index_of(node), expanded);
}

std::vector<PVirtualNode> TVirtualStringTree::GetSelectedNodes() const
{
    std::vector<PVirtualNode> chosen;
    auto const walk = [&](auto const &self, TVirtualNode &of) -> void {
        if (!of.below)
            return;
        of.below->for_each([&](TVirtualNode &node) {
            if (node.is_selected)
                chosen.push_back(&node);
            self(self, node);
        });
    };
    walk(walk, *f_nodes->root());
    return chosen;
}

PVirtualNode TVirtualStringTree::GetFocusedNode() const
{
    return f_nodes->focused();
}

int TVirtualStringTree::GetFocusedColumn() const
{
    return f_nodes->focused_column();
}

void TVirtualStringTree::SetFocusedNode(PVirtualNode node)
{
    f_nodes->set_focused(node, 0);
    native()->is_stale = true;
    native()->viewport()->update();
}

void TVirtualStringTree::BeginUpdate()
{
    if (f_update_count++ == 0)
        native()->setUpdatesEnabled(false);
}

void TVirtualStringTree::EndUpdate()
{
    if (--f_update_count > 0)
        return;
    if (f_pending_count >= 0)
        resize_root(std::exchange(f_pending_count, -1));
    native()->setUpdatesEnabled(true);
}

// ---- what is seen

void TVirtualStringTree::ScrollIntoView(PVirtualNode node, bool center)
{
    native()->scrollTo(f_nodes->index_of(node),
                       center ? QAbstractItemView::PositionAtCenter : QAbstractItemView::EnsureVisible);
}

void TVirtualStringTree::InvalidateNode(PVirtualNode node)
{
    QRect line = native()->visualRect(f_nodes->index_of(node));
    line.setLeft(0);
    line.setRight(native()->viewport()->width());
    native()->viewport()->update(line);
}

void TVirtualStringTree::InvalidateColumn(int column)
{
    native()->viewport()->update(QRect(native()->columnViewportPosition(column), 0,
                                       native()->columnWidth(column), native()->viewport()->height()));
}

PVirtualNode TVirtualStringTree::GetNodeAt(int x, int y) const
{
    view *const tree = native();
    return f_nodes->node(tree->indexAt(tree->viewport()->mapFrom(tree, QPoint(x, y))));
}

TRect TVirtualStringTree::GetDisplayRect(PVirtualNode node, int column) const
{
    view *const tree = native();
    QRect const cell = tree->visualRect(f_nodes->index_of(node, column));
    if (!cell.isValid() || !cell.intersects(tree->viewport()->rect()))
        return {};
    return vx_rect(QRect(tree->viewport()->mapTo(tree, cell.topLeft()), cell.size()));
}

bool TVirtualStringTree::EditNode(PVirtualNode node, int column)
{
    ScrollIntoView(node, false);
    return native()->start_edit(f_nodes->index_of(node, column));
}

bool TVirtualStringTree::IsEditing() const
{
    return native()->is_editing();
}

// ---- the user

bool TVirtualStringTree::may_focus(PVirtualNode node, int column)
{
    bool allowed = true;
    if (node != f_nodes->focused() || column != f_nodes->focused_column())
        OnFocusChanging(this, f_nodes->focused(), node, f_nodes->focused_column(), column, allowed);
    return allowed;
}

/// The widget tells these before it works on them; the events themselves come too late.
void TVirtualStringTree::fire_mouse(bool down, TMouseButton button, TShiftState shift, TPoint const &at)
{
    vx_event_scope const scope;
    if (down)
        TWinControl::MouseDown(button, shift, at.X, at.Y);
    else
        TWinControl::MouseUp(button, shift, at.X, at.Y);
}

void TVirtualStringTree::MouseDown(TMouseButton, TShiftState, int, int)
{
}

void TVirtualStringTree::MouseUp(TMouseButton, TShiftState, int, int)
{
}

bool TVirtualStringTree::WantsKey(Word key, TShiftState shift) const
{
    return (IsEditing() && (key == VK_RETURN || key == VK_ESCAPE)) || TWinControl::WantsKey(key, shift);
}

TDropMode TVirtualStringTree::drop_place(int x, int y, PVirtualNode &node) const
{
    node = GetNodeAt(x, y);
    if (!node)
        return dmNowhere;
    TRect const cell = GetDisplayRect(node, 0);
    int const quarter = cell.Height() / 4;
    return y < cell.Top + quarter ? dmAbove : y >= cell.Bottom - quarter ? dmBelow : dmOnNode;
}

void TVirtualStringTree::show_drop(PVirtualNode node, TDropMode mode)
{
    f_drop_target = node;
    f_drop_mode = mode;
    native()->viewport()->update();
}

void TVirtualStringTree::DragOver(TObject *source, int x, int y, TDragState state, bool &accept)
{
    PVirtualNode node = nullptr;
    TDropMode const mode = state == dsDragLeave ? dmNowhere : drop_place(x, y, node);
    int effect = DROPEFFECT_NONE;
    accept = false;
    show_drop(node, mode);
    auto const life = Life();
    OnNodeDragOver(this, source, state, {x, y}, mode, effect, accept);
    if (life.expired())
        return;
    accept = accept && state != dsDragLeave;
    if (!accept)
        show_drop(nullptr, dmNowhere);
    view *const tree = native();
    if (state == dsDragLeave)
        tree->drag_gone();
    else
        tree->drag_at(tree->viewport()->mapFrom(tree, QPoint(x, y)));
}

void TVirtualStringTree::DragDrop(TObject *source, int x, int y)
{
    vx_event_scope const scope;
    PVirtualNode node = nullptr;
    TDropMode const mode = drop_place(x, y, node);
    show_drop(node, mode);
    int effect = DROPEFFECT_MOVE;
    auto const life = Life();
    OnNodeDragDrop(this, source, {x, y}, effect, mode);
    if (!life.expired())
        show_drop(nullptr, dmNowhere);
}

void TVirtualStringTree::DoEndDrag(TObject *target, int x, int y)
{
    show_drop(nullptr, dmNowhere);
    native()->drag_gone();
    TWinControl::DoEndDrag(target, x, y);
}
