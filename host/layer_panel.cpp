#include "host/layer_panel.h"

#include "host/captions.h"
#include "host/layer_list.h"

#include <QAction>
#include <QDropEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionViewItem>
#include <QToolButton>
#include <QTreeView>
#include <QVBoxLayout>

#include <functional>

namespace {
constexpr int c_shown_classes = 24;
} // namespace

/// The list; says what to do while it is empty, and takes a quick second click on a check box for what it is.
class Tvx_layer_list_view : public QTreeView
{
public:
    using QTreeView::QTreeView;

    [[nodiscard]] QRect sample_rect(QModelIndex const &index) const
    {
        return part_rect(index, QStyle::SE_ItemViewItemDecoration);
    }

    /// Lets the user type in the line, unless the hand is at something else, such as a drag.
    void begin_edit(QModelIndex const &index) { edit(index, AllEditTriggers, nullptr); }
    [[nodiscard]] bool is_editing() const { return state() == EditingState; }

    /// Gets what a double click on a sample is about.
    std::function<void(QModelIndex const &)> on_sample_double_click;

protected:
    void keyPressEvent(QKeyEvent *event) override
    {
        bool const enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
        // The key that ends a name comes here too.
        if (enter && state() == EditingState)
            return;
        if (enter && event->modifiers() == Qt::NoModifier && currentIndex().isValid())
            emit doubleClicked(currentIndex());
        else
            QTreeView::keyPressEvent(event);
    }

    void dragMoveEvent(QDragMoveEvent *event) override
    {
        QTreeView::dragMoveEvent(event);
        // Beside the classes of a layer is a place below it.
        if (event->source() == this)
            event->acceptProposedAction();
    }

    /// A layer is moved by the model in one step, rather than taken out and put in.
    void dropEvent(QDropEvent *event) override
    {
        auto *const layers = static_cast<Tvx_layer_list *>(model());
        int const from = layers->layer_row_of(currentIndex());
        if (event->source() != this || from < 0)
            return;
        int to = drop_row(event->position().toPoint());
        if (to > from)
            --to;
        // Nothing is left to take away for the one who dragged it.
        event->setDropAction(Qt::CopyAction);
        event->accept();
        layers->move(from, to);
        setState(NoState);
        viewport()->update();
    }

    void mouseDoubleClickEvent(QMouseEvent *event) override
    {
        QModelIndex const index = indexAt(event->pos());
        if (index.isValid() && check_box_rect(index).contains(event->pos()))
            QTreeView::mousePressEvent(event);
        else if (index.isValid() && event->button() == Qt::LeftButton &&
                 sample_rect(index).contains(event->pos()))
            on_sample_double_click(index);
        else
            QTreeView::mouseDoubleClickEvent(event);
    }

    void paintEvent(QPaintEvent *event) override
    {
        QTreeView::paintEvent(event);
        if (model() && model()->rowCount() > 0)
            return;
        QPainter painter(viewport());
        painter.setPen(palette().color(QPalette::PlaceholderText));
        painter.drawText(viewport()->rect().adjusted(12, 12, -12, -12), Qt::AlignCenter | Qt::TextWordWrap,
                         vx_host_caption(c_cap_layers_empty));
    }

private:
    /// Row before which a layer that is let go at the point comes to stand.
    [[nodiscard]] int drop_row(QPoint at) const
    {
        auto *const layers = static_cast<Tvx_layer_list const *>(model());
        QModelIndex const index = indexAt(at);
        if (!index.isValid())
            return layers->count();
        int const row = layers->layer_row_of(index);
        bool const is_below = index.parent().isValid() || at.y() > visualRect(index).center().y();
        return is_below ? row + 1 : row;
    }

    [[nodiscard]] QRect check_box_rect(QModelIndex const &index) const
    {
        return part_rect(index, QStyle::SE_ItemViewItemCheckIndicator);
    }

    [[nodiscard]] QRect part_rect(QModelIndex const &index, QStyle::SubElement part) const
    {
        QStyleOptionViewItem option;
        initViewItemOption(&option);
        option.rect = visualRect(index);
        option.features |= QStyleOptionViewItem::HasCheckIndicator | QStyleOptionViewItem::HasDecoration;
        return style()->subElementRect(part, &option, this);
    }
};

Tvx_layer_panel::Tvx_layer_panel(Tvx_layer_list &layers, QWidget *parent)
    : QWidget(parent), f_layers(layers), f_view(new Tvx_layer_list_view(this)), f_buttons(new QHBoxLayout)
{
    f_view->setObjectName(QStringLiteral("layers"));
    f_view->setAccessibleName(vx_host_caption(c_cap_layers));
    f_view->setModel(&layers);
    f_view->setSelectionMode(QAbstractItemView::SingleSelection);
    f_view->setDragDropMode(QAbstractItemView::InternalMove);
    f_view->setDefaultDropAction(Qt::MoveAction);
    f_view->setDropIndicatorShown(true);
    f_view->setIconSize({32, 20});
    f_view->setHeaderHidden(true);
    f_view->setUniformRowHeights(true);
    f_view->setExpandsOnDoubleClick(false);
    f_view->setIndentation(16);
    f_view->setTextElideMode(Qt::ElideMiddle);
    f_view->setEditTriggers(QAbstractItemView::NoEditTriggers);
    f_view->setContextMenuPolicy(Qt::ActionsContextMenu);

    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(2);
    column->addWidget(f_view);
    f_buttons->setContentsMargins(2, 0, 2, 2);
    f_buttons->setSpacing(1);
    column->addLayout(f_buttons);

    // A few classes are seen at once, many when they are asked for.
    connect(&layers, &QAbstractItemModel::rowsInserted, this,
            [this](QModelIndex const &parent, int, int last) {
                if (parent.isValid())
                    f_view->setExpanded(parent, last < c_shown_classes);
            });
    connect(f_view->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this] { emit selection_changed(selected_id()); });
    connect(&layers, &QAbstractItemModel::rowsMoved, this, [this] { emit selection_changed(selected_id()); });
    connect(&layers, &QAbstractItemModel::rowsRemoved, this,
            [this] { emit selection_changed(selected_id()); });
    connect(f_view, &QTreeView::doubleClicked, this, [this](QModelIndex const &index) {
        emit activated(f_layers.id_at(f_layers.layer_row_of(index)));
    });
    f_view->on_sample_double_click = [this](QModelIndex const &index) {
        emit sample_activated(f_layers.id_at(f_layers.layer_row_of(index)));
    };
}

void Tvx_layer_panel::set_commands(QList<QAction *> const &menu, QList<QAction *> const &buttons)
{
    for (QAction *action : menu) {
        if (!action) {
            action = new QAction(this);
            action->setSeparator(true);
        }
        f_view->addAction(action);
    }
    for (QAction *action : buttons) {
        auto *button = new QToolButton(this);
        button->setDefaultAction(action);
        button->setAutoRaise(true);
        button->setIconSize({18, 18});
        button->setFocusPolicy(Qt::TabFocus);
        button->setAccessibleName(action->iconText());
        f_buttons->addWidget(button);
    }
    f_buttons->addStretch();
}

int Tvx_layer_panel::selected_row() const
{
    return f_layers.layer_row_of(f_view->currentIndex());
}

int Tvx_layer_panel::selected_id() const
{
    return f_layers.id_at(selected_row());
}

int Tvx_layer_panel::selected_class() const
{
    QModelIndex const index = f_view->currentIndex();
    return index.parent().isValid() ? index.row() : -1;
}

void Tvx_layer_panel::select_id(int id)
{
    f_view->setCurrentIndex(f_layers.index(f_layers.row_of(id)));
}

QPoint Tvx_layer_panel::sample_corner(int id) const
{
    QRect const sample = f_view->sample_rect(f_layers.index(f_layers.row_of(id)));
    return f_view->viewport()->mapToGlobal(QPoint(sample.left(), sample.bottom() + 1));
}

void Tvx_layer_panel::edit_name()
{
    if (selected_row() < 0 || f_view->is_editing() || !f_view->isVisible())
        return;
    QModelIndex const layer = f_layers.index(selected_row());
    f_view->setCurrentIndex(layer);
    f_view->setFocus();
    f_view->begin_edit(layer);
}

QTreeView *Tvx_layer_panel::view() const
{
    return f_view;
}
