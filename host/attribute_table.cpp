#include "host/attribute_table.h"

#include "host/captions.h"
#include "host/record_model.h"

#include "platform/base/flag_scope.h"
#include "platform/base/string_adp.h"
#include "platform/layers/vx_shp_lr2d.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>

namespace {
constexpr int c_least_column = 48;
constexpr int c_most_column = 260;
constexpr int c_measured_rows = 60;
/// Rows that are copied as text; more are no use to anybody and would fill the memory.
constexpr int c_most_copied = 100'000;
/// A column of more may take longer to read than a window can be left alone.
constexpr int c_many_rows = 200'000;
} // namespace

Tvx_attribute_table::Tvx_attribute_table(Ivx_layer *layer, QWidget *parent)
    : QWidget(parent, Qt::Window), f_model(new Tvx_record_model(vx_shp_lr2d_get_attr_data_ptr(layer), this)),
      f_view(new QTableView(this)), f_state(new QLabel(this)),
      f_zoom(new QPushButton(vx_map_caption(c_map_zoom_to_selected), this)),
      f_clear(new QPushButton(vx_map_caption(c_map_clear_selection), this))
{
    setObjectName(QStringLiteral("attribute_table"));
    f_view->setObjectName(QStringLiteral("records"));
    f_view->setAccessibleName(vx_map_caption(c_map_table_grid));
    f_view->setModel(f_model);
    f_view->setSelectionBehavior(QAbstractItemView::SelectRows);
    f_view->setSelectionMode(QAbstractItemView::ExtendedSelection);
    f_view->setAlternatingRowColors(true);
    f_view->setWordWrap(false);
    f_view->setTabKeyNavigation(false);
    f_view->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    f_view->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    f_view->verticalHeader()->setDefaultSectionSize(f_view->fontMetrics().height() + 6);
    f_view->verticalHeader()->setDefaultAlignment(Qt::AlignRight | Qt::AlignVCenter);
    // Widths by the first rows: nothing else is read. Those that are seen would be all, as long as none is.
    f_view->horizontalHeader()->setResizeContentsPrecision(c_measured_rows);
    f_view->horizontalHeader()->setSortIndicatorShown(true);
    f_view->horizontalHeader()->setSortIndicatorClearable(true);
    f_view->horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
    f_view->horizontalHeader()->setSectionsClickable(true);
    f_view->horizontalHeader()->setHighlightSections(false);

    auto *const copy = new QAction(vx_map_caption(c_map_copy_value), this);
    copy->setShortcut(QKeySequence::Copy);
    copy->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    connect(copy, &QAction::triggered, this, &Tvx_attribute_table::copy_rows);
    f_view->addAction(copy);
    f_view->setContextMenuPolicy(Qt::ActionsContextMenu);

    auto *const line = new QHBoxLayout;
    line->setContentsMargins(4, 0, 4, 0);
    line->addWidget(f_state, 1);
    line->addWidget(f_zoom);
    line->addWidget(f_clear);
    auto *const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 2);
    column->setSpacing(2);
    column->addWidget(f_view);
    column->addLayout(line);
    f_view->resizeColumnsToContents();
    for (int i = 0; i < f_model->columnCount(); ++i)
        f_view->setColumnWidth(i, std::clamp(f_view->columnWidth(i) + 8, c_least_column, c_most_column));

    connect(f_view->horizontalHeader(), &QHeaderView::sortIndicatorChanged, this, &Tvx_attribute_table::sort);
    connect(f_view->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &Tvx_attribute_table::on_selection_changed);
    connect(f_view->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this](QModelIndex const &current) {
                if (!f_filling && current.isValid())
                    emit record_chosen(f_model->record_of(current.row()));
            });
    connect(f_zoom, &QPushButton::clicked, this, &Tvx_attribute_table::zoom_wanted);
    connect(f_clear, &QPushButton::clicked, f_view, &QTableView::clearSelection);
    update_state();
}

bool Tvx_attribute_table::is_open() const
{
    return f_model->is_open();
}

bool Tvx_attribute_table::is_of_other_data(Ivx_layer *layer) const
{
    return vx_shp_lr2d_get_attr_data_ptr(layer) != f_model->source();
}

void Tvx_attribute_table::select_records(std::vector<unsigned> const &records)
{
    vx::flag_scope const filling(f_filling);
    std::vector<int> rows;
    for (unsigned const record : records)
        if (int const row = f_model->row_of(record); row >= 0)
            rows.push_back(row);
    std::ranges::sort(rows);
    QItemSelection selection;
    int const last_column = f_model->columnCount() - 1;
    for (std::size_t i = 0, next; i < rows.size(); i = next) {
        for (next = i + 1; next < rows.size() && rows[next] == rows[next - 1] + 1; ++next) {
        }
        selection.append({f_model->index(rows[i], 0), f_model->index(rows[next - 1], last_column)});
    }
    f_view->selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
    if (!rows.empty()) {
        QModelIndex const first = f_model->index(rows.front(), 0);
        f_view->selectionModel()->setCurrentIndex(first, QItemSelectionModel::NoUpdate);
        f_view->scrollTo(first);
    }
    update_state();
}

std::vector<unsigned> Tvx_attribute_table::selected_records() const
{
    std::vector<unsigned> records;
    for (QItemSelectionRange const &range : f_view->selectionModel()->selection())
        for (int row = range.top(); row <= range.bottom(); ++row)
            records.push_back(f_model->record_of(row));
    std::ranges::sort(records);
    return records;
}

void Tvx_attribute_table::sort(int column, Qt::SortOrder order)
{
    if (column == f_sorted_column && order == f_sorted_order)
        return;
    std::vector<unsigned> const selected = selected_records();
    bool done = true;
    {
        vx::flag_scope const filling(f_filling);
        auto const work = [&](std::function<bool()> const &goes_on) {
            done = f_model->sort_by(column, order, goes_on);
        };
        if (f_wait)
            f_wait(column >= 0 && f_model->rowCount() > c_many_rows, work);
        else
            work({});
    }
    if (!done) // it stays as it was
        return f_view->horizontalHeader()->setSortIndicator(f_sorted_column, f_sorted_order);
    f_sorted_column = column;
    f_sorted_order = order;
    select_records(selected);
}

void Tvx_attribute_table::on_selection_changed()
{
    if (f_filling)
        return;
    update_state();
    emit selection_changed();
}

void Tvx_attribute_table::update_state()
{
    qint64 selected = 0;
    for (QItemSelectionRange const &range : f_view->selectionModel()->selection())
        selected += range.height();
    f_state->setText(vx_map_caption(c_map_table_state).arg(f_model->rowCount()).arg(selected));
    f_zoom->setEnabled(selected > 0);
    f_clear->setEnabled(selected > 0);
}

void Tvx_attribute_table::copy_rows()
{
    QStringList lines;
    auto const cells = [this](auto get) {
        QStringList texts;
        for (int i = 0; i < f_model->columnCount(); ++i)
            texts += get(i);
        return texts.join('\t');
    };
    lines += cells([&](int i) { return f_model->headerData(i, Qt::Horizontal, Qt::DisplayRole).toString(); });
    for (QItemSelectionRange const &range : f_view->selectionModel()->selection())
        for (int row = range.top(); row <= range.bottom() && lines.size() <= c_most_copied; ++row)
            lines += cells([&](int i) {
                // A cell is one cell wherever it is pasted.
                return f_model->data(f_model->index(row, i), Qt::DisplayRole).toString().simplified();
            });
    if (lines.size() > 1)
        QApplication::clipboard()->setText(lines.join('\n') + '\n');
}

void Tvx_attribute_table::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape)
        emit close_wanted();
    else
        QWidget::keyPressEvent(event);
}
