#include "host/layer_panel.h"

#include "host/captions.h"
#include "host/layer_list.h"

#include <QAction>
#include <QKeyEvent>
#include <QListView>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionViewItem>
#include <QToolButton>
#include <QVBoxLayout>

#include <functional>

/// The list; says what to do while it is empty, and takes a quick second click on a check box for what it is.
class Tvx_layer_list_view : public QListView
{
public:
    using QListView::QListView;

    [[nodiscard]] QRect sample_rect(QModelIndex const &index) const
    {
        return part_rect(index, QStyle::SE_ItemViewItemDecoration);
    }

    /// Gets what a double click on a sample is about.
    std::function<void(QModelIndex const &)> on_sample_double_click;

protected:
    void keyPressEvent(QKeyEvent *event) override
    {
        bool const enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
        if (enter && event->modifiers() == Qt::NoModifier && currentIndex().isValid())
            emit doubleClicked(currentIndex());
        else
            QListView::keyPressEvent(event);
    }

    void mouseDoubleClickEvent(QMouseEvent *event) override
    {
        QModelIndex const index = indexAt(event->pos());
        if (index.isValid() && check_box_rect(index).contains(event->pos()))
            QListView::mousePressEvent(event);
        else if (index.isValid() && event->button() == Qt::LeftButton &&
                 sample_rect(index).contains(event->pos()))
            on_sample_double_click(index);
        else
            QListView::mouseDoubleClickEvent(event);
    }

    void paintEvent(QPaintEvent *event) override
    {
        QListView::paintEvent(event);
        if (model() && model()->rowCount() > 0)
            return;
        QPainter painter(viewport());
        painter.setPen(palette().color(QPalette::PlaceholderText));
        painter.drawText(viewport()->rect().adjusted(12, 12, -12, -12), Qt::AlignCenter | Qt::TextWordWrap,
                         vx_host_caption(c_cap_layers_empty));
    }

private:
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
    f_view->setSpacing(1);
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

    connect(f_view->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this] { emit selection_changed(selected_id()); });
    connect(&layers, &QAbstractItemModel::rowsMoved, this, [this] { emit selection_changed(selected_id()); });
    connect(&layers, &QAbstractItemModel::rowsRemoved, this,
            [this] { emit selection_changed(selected_id()); });
    connect(f_view, &QListView::doubleClicked, this,
            [this](QModelIndex const &index) { emit activated(f_layers.id_at(index.row())); });
    f_view->on_sample_double_click = [this](QModelIndex const &index) {
        emit sample_activated(f_layers.id_at(index.row()));
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
    return f_view->currentIndex().isValid() ? f_view->currentIndex().row() : -1;
}

int Tvx_layer_panel::selected_id() const
{
    return f_layers.id_at(selected_row());
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

QListView *Tvx_layer_panel::view() const
{
    return f_view;
}
