// The attribute table of 1,000,000 records beside a table that holds all cells in memory, as anybody would
// begin it: opening, looking about, and sorting. The longest time for which the window was not served while a
// column was sorted is printed beside it.

#include "host/attribute_table.h"

#include "host/record_model.h"
#include "sample_table.h"

#include "platform/base/owned.h"
#include "platform/base/text_codec.h"
#include "platform/layers/vx_lr2d.h"
#include "platform/layers/vx_shp_lr2d.h"
#include "platform/winapi/collation.h"

#include <QAbstractTableModel>
#include <QApplication>
#include <QElapsedTimer>
#include <QHeaderView>
#include <QTableView>

#include <numeric>

using namespace vx_bench;

namespace {
using owned_layer = vx::owned<Ivx_layer, &vx_lr2d_destroy>;
constexpr int c_pages = 50;

/// All cells as texts.
class plain_model : public QAbstractTableModel
{
public:
    explicit plain_model(std::string const &file)
    {
        std::unique_ptr<GDALDataset> const set(GDALDataset::Open(file.c_str(), GDAL_OF_VECTOR));
        auto *const layer = set->GetLayer(0);
        for (auto const &feature : *layer)
            for (int field = 0; field < c_fields; ++field)
                cells[field].push_back(feature->IsFieldSetAndNotNull(field)
                                           ? QString::fromUtf8(feature->GetFieldAsString(field))
                                           : QString());
    }
    int rowCount(QModelIndex const &parent) const override { return parent.isValid() ? 0 : c_records; }
    int columnCount(QModelIndex const &parent) const override { return parent.isValid() ? 0 : c_fields; }
    QVariant data(QModelIndex const &index, int role) const override
    {
        return role == Qt::DisplayRole ? QVariant(cells[index.column()][std::size_t(index.row())])
                                       : QVariant();
    }

    std::vector<QString> cells[c_fields];
};

QTableView *show(QTableView *view)
{
    view->resize(900, 500);
    view->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    view->show();
    QApplication::processEvents();
    return view;
}

/// Pages here and there, painted.
void look_about(QTableView *view)
{
    for (int page = 0; page < c_pages; ++page) {
        view->scrollTo(view->model()->index(shuffled(page * 7919), 0), QAbstractItemView::PositionAtTop);
        view->viewport()->repaint();
    }
}

void measure_sort(char const *what, Tvx_record_model &model, int column, plain_model const &plain,
                  double bound)
{
    qint64 longest = 0, asked = 0;
    auto const times = compare(
        [&] {
            std::vector<unsigned> order(c_records);
            std::iota(order.begin(), order.end(), 0u);
            if (column == c_number_1000000) {
                std::vector<double> keys;
                for (QString const &cell : plain.cells[column])
                    keys.push_back(cell.toDouble());
                std::ranges::stable_sort(order, {}, [&](unsigned i) { return keys[i]; });
            } else {
                std::vector<std::wstring> keys;
                for (QString const &cell : plain.cells[column])
                    keys.push_back(cell.toStdWString());
                std::ranges::stable_sort(
                    order, [&](unsigned a, unsigned b) { return vx_compare_text(keys[a], keys[b]) < 0; });
            }
            return order;
        },
        [&] {
            QElapsedTimer since;
            since.start();
            bool first = true;
            (void)model.sort_by(column, Qt::AscendingOrder, [&] {
                // The column itself is read in one piece, which the window announces.
                if (!std::exchange(first, false))
                    longest = std::max(longest, since.elapsed());
                ++asked;
                since.restart();
                return true;
            });
        },
        column == c_text_1000000 ? 1 : 3); // the plain way takes half a minute
    print(what, times, bound);
    std::printf("    asked %lld times, every %lld ms at the longest\n", static_cast<long long>(asked),
                static_cast<long long>(longest));
}

void measure_format(char const *driver, char const *file_name)
{
    std::string const file = sample_file(driver, file_name);
    owned_layer const layer(vx_shp_lr2d_open(vx::text::utf8_to_wide(file).c_str(), nullptr));
    if (!layer)
        std::abort();
    std::printf("%s\n", driver);
    print("opening",
          compare(
              [&] {
                  plain_model model(file);
                  QTableView view;
                  view.setModel(&model);
                  show(&view);
              },
              [&] {
                  Tvx_attribute_table table(layer.get());
                  table.resize(900, 500);
                  table.show();
                  QApplication::processEvents();
              },
              2),
          0.05);
    plain_model model(file);
    QTableView plain;
    plain.setModel(&model);
    show(&plain);
    Tvx_attribute_table table(layer.get());
    table.resize(900, 500);
    table.show();
    QApplication::processEvents();
    print("50 pages here and there", compare([&] { look_about(&plain); }, [&] { look_about(table.view()); }),
          3);
    measure_sort("sorted by 2,000 texts", table.model(), c_text_2000, model, 0.5);
    measure_sort("sorted by 1,000,000 texts", table.model(), c_text_1000000, model, 0.5);
    measure_sort("sorted by numbers", table.model(), c_number_1000000, model, 2);
}
} // namespace

int main(int argc, char **argv)
{
    QApplication const application(argc, argv);
    GDALAllRegister();
    measure_format("GPKG", "points.gpkg");
    measure_format("ESRI Shapefile", "points.shp");
}
