#include "host/identify_panel.h"

#include "host/captions.h"
#include "host/layer_list.h"

#include "platform/base/flag_scope.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {
constexpr int c_place_role = Qt::UserRole;
constexpr int c_least_most_width = 190; ///< that names may have of the panel
} // namespace

Tvx_identify_panel::Tvx_identify_panel(Tvx_layer_list const &layers, QWidget *parent)
    : QWidget(parent), f_layers(layers), f_tree(new QTreeWidget(this)), f_more(new QLabel(this)),
      f_zoom(new QPushButton(vx_map_caption(c_map_zoom_to_object), this)),
      f_table(new QPushButton(vx_map_caption(c_map_show_in_table), this))
{
    setObjectName(QStringLiteral("identify"));
    f_tree->setObjectName(QStringLiteral("objects"));
    f_tree->setAccessibleName(vx_map_caption(c_map_identify_title));
    f_tree->setHeaderLabels({vx_map_caption(c_map_attribute), vx_map_caption(c_map_value)});
    f_tree->setIconSize({32, 20});
    f_tree->setUniformRowHeights(true);
    f_tree->setAlternatingRowColors(true);
    f_tree->header()->setStretchLastSection(true);
    f_more->setText(vx_map_caption(c_map_identify_more));
    f_more->setWordWrap(true);
    auto *const copy = new QAction(vx_map_caption(c_map_copy_value), this);
    copy->setShortcut(QKeySequence::Copy);
    copy->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    connect(copy, &QAction::triggered, this, &Tvx_identify_panel::copy_value);
    f_tree->addAction(copy);
    f_tree->setContextMenuPolicy(Qt::ActionsContextMenu);

    auto *const buttons = new QHBoxLayout;
    buttons->addWidget(f_zoom);
    buttons->addWidget(f_table);
    buttons->addStretch();
    auto *const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 2);
    column->setSpacing(2);
    column->addWidget(f_tree);
    column->addWidget(f_more);
    column->addLayout(buttons);
    f_more->hide();
    f_zoom->setEnabled(false);
    f_table->setEnabled(false);

    connect(f_tree, &QTreeWidget::currentItemChanged, this, &Tvx_identify_panel::on_current_changed);
    connect(f_zoom, &QPushButton::clicked, this, [this] {
        if (auto const *object = current())
            emit zoom_wanted(object->layer_id, object->record);
    });
    connect(f_table, &QPushButton::clicked, this, [this] {
        if (auto const *object = current())
            emit table_wanted(object->layer_id, object->record);
    });
}

void Tvx_identify_panel::show_objects(std::vector<Tvx_found_object> objects, bool is_all)
{
    {
        vx::flag_scope const filling(f_filling);
        f_objects = std::move(objects);
        f_tree->clear();
        for (int place = 0; place < int(f_objects.size()); ++place)
            add_object(place);
        if (QTreeWidgetItem *const first = f_tree->topLevelItem(0)) {
            first->setExpanded(true);
            f_tree->setCurrentItem(first);
        }
        f_tree->setColumnWidth(0, name_width());
        f_more->setVisible(!is_all);
    }
    enable_buttons();
}

void Tvx_identify_panel::enable_buttons()
{
    auto const *const object = current();
    f_zoom->setEnabled(object && object->has_record);
    f_table->setEnabled(object && object->has_record);
}

int Tvx_identify_panel::name_width() const
{
    int width = 60;
    for (int i = 0; i < f_tree->topLevelItemCount(); ++i)
        for (int line = 0; line < f_tree->topLevelItem(i)->childCount(); ++line)
            width = std::max(width,
                             fontMetrics().horizontalAdvance(f_tree->topLevelItem(i)->child(line)->text(0)));
    // The panel has its width only when it has been shown.
    int const most = std::max(c_least_most_width, f_tree->width() * 3 / 5);
    return std::min(width + 2 * f_tree->indentation() + 12, most);
}

void Tvx_identify_panel::add_object(int place)
{
    Tvx_object_info const info = vx_map_object_info(f_layers, f_objects[std::size_t(place)]);
    auto *const object = new QTreeWidgetItem(f_tree, {info.layer + ": " + info.title, info.title});
    object->setFirstColumnSpanned(true);
    object->setData(0, c_place_role, place);
    object->setIcon(0, info.symbol);
    QFont strong = font();
    strong.setBold(true);
    object->setFont(0, strong);
    object->setToolTip(0, object->text(0));
    auto const add_line = [&](QString const &name, QString const &value) {
        auto *const line = new QTreeWidgetItem(object, {name, value});
        line->setToolTip(1, value);
        return line;
    };
    add_line(vx_map_caption(c_map_drawn_by), info.drawn_by);
    for (auto const &[name, value] : info.attributes) {
        QTreeWidgetItem *const line = add_line(name, value.isNull() ? vx_map_caption(c_map_no_value) : value);
        if (value.isNull())
            line->setForeground(1, palette().brush(QPalette::PlaceholderText));
    }
}

void Tvx_identify_panel::forget_layer(int id)
{
    if (std::ranges::none_of(f_objects, [id](auto const &o) { return o.layer_id == id; }))
        return;
    show_objects({}, true);
}

Tvx_found_object const *Tvx_identify_panel::current() const
{
    QTreeWidgetItem *item = f_tree->currentItem();
    while (item && item->parent())
        item = item->parent();
    auto const place = item ? item->data(0, c_place_role).toUInt() : unsigned(f_objects.size());
    return place < f_objects.size() ? &f_objects[place] : nullptr;
}

void Tvx_identify_panel::on_current_changed()
{
    if (f_filling)
        return;
    enable_buttons();
    if (auto const *object = current(); object && object->has_record)
        emit object_chosen(object->layer_id, object->record);
    else if (object)
        emit cell_chosen();
}

void Tvx_identify_panel::copy_value()
{
    if (QTreeWidgetItem const *const item = f_tree->currentItem())
        QGuiApplication::clipboard()->setText(item->text(1));
}

void Tvx_identify_panel::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape)
        emit close_wanted();
    else
        QWidget::keyPressEvent(event);
}
