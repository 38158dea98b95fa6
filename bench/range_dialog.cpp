// The range builder dialog on 1,000,000 objects, from the call to its picture on the screen and its end,
// against reading the column into the layer's table, walking over it as often as the statistics take, and
// opening the same widgets put together in plain Qt. Measured in turn in one run, by the processor's time;
// the least counts.

#include "builder_dialog.h"
#include "sample_table.h"
#include "scale_builders/range/rng_type_dlg.h"

#include "platform/base/owned.h"
#include "platform/base/text_codec.h"
#include "platform/styles/vxk_styles.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QFrame>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <cmath>

using namespace vx_bench;

namespace {
using owned_mngr = vx::owned<void, &vx_stl_mngr_destroy>;
constexpr wchar_t const *c_field = L"number1m";

void open_own(table &t)
{
    owned_mngr const mngr(vx_stl_mngr_create("pnt_style"));
    vx_stl_mngr_set_rng_prop_name_w(mngr.get(), c_field);
    close_when_shown();
    if (vx_rng_type_dlg(0, 0, mngr.get(), make_closure<&table::open>(&t), make_closure<&table::close>(&t),
                        make_closure<&table::np>(&t), make_closure<&table::no>(&t),
                        make_closure<&table::prop>(&t), {}, make_closure<&table::str>(&t),
                        make_closure<&table::val>(&t)))
        std::abort();
}

void add_patterns(QVBoxLayout *column)
{
    auto *const box = add_row<QComboBox>(column, "Round to");
    for (int i = 0; i < 21; ++i)
        box->addItem(QString(i, QLatin1Char('d')));
}

/// A panel for a kind of classification; the first one shows.
QVBoxLayout *add_panel(QVBoxLayout *column, bool shown)
{
    auto *const panel = new QWidget;
    panel->setVisible(shown);
    column->addWidget(panel);
    return new QVBoxLayout(panel);
}

void show_widgets(double const (&numbers)[4])
{
    QDialog window;
    window.resize(600, 350);
    auto *const all = new QVBoxLayout(&window);
    auto *const halves = new QHBoxLayout;
    all->addLayout(halves);
    auto *const left = new QVBoxLayout;
    halves->addLayout(left);
    auto *const kinds = add_row<QComboBox>(add_group(left, "Classification"), "Kind");
    for (char const *kind : {"Equal", "Deviation", "Logarithmic", "Spacing"})
        kinds->addItem(QString::fromUtf8(kind));
    auto *const statistics = add_group(left, "Values of the field");
    for (double const number : numbers)
        add_row<QLabel>(statistics, "Minimum")->setText(QString::number(number));
    auto *const parameters = add_group(halves, "Parameters");
    int const edits[] = {4, 3, 1, 0, 3};
    for (int const &count : edits) {
        auto *const column = add_panel(parameters, &count == edits);
        for (int i = 0; i < count; ++i)
            add_row<QLineEdit>(column, "Step")->setText(QStringLiteral("10"));
        add_patterns(column);
        if (count > 1)
            continue;
        add_row<QComboBox>(column, "Choice")->addItems({"1", "2", "5"});
        if (count == 1)
            continue;
        column->addWidget(new QCheckBox(QStringLiteral("Both sides")));
        add_row<QLabel>(column, "Rows");
        for (int i = 0; i < 3; ++i)
            add_row<QPushButton>(column, "Colour");
    }
    auto *const buttons = new QHBoxLayout;
    all->addLayout(buttons);
    for (char const *caption : {"Apply", "Cancel", "Help", "Save", "Load"}) {
        auto *const button = new QPushButton(QString::fromUtf8(caption));
        buttons->addWidget(button);
        button->setVisible(caption[0] == 'A' || caption[0] == 'C');
    }
    close_when_shown();
    window.exec();
}

void open_plain(table &t)
{
    auto const field = static_cast<unsigned>(vx_attr_files_get_field_index_w(t.files.get(), c_field));
    unsigned const count = vx_attr_files_get_no(t.files.get());
    double least = 1e300, most = -1e300, sum = 0, squares = 0;
    unsigned defined = 0;
    for (unsigned i = 0; i < count; ++i) {
        bool known = false;
        double const value = vx_attr_files_get_dbl(t.files.get(), field, i, &known);
        if (!known)
            continue;
        ++defined;
        sum += value;
        least = std::min(least, value);
        most = std::max(most, value);
    }
    double const mean = sum / defined;
    for (unsigned i = 0; i < count; ++i) {
        bool known = false;
        double const value = vx_attr_files_get_dbl(t.files.get(), field, i, &known);
        if (known)
            squares += (value - mean) * (value - mean);
    }
    show_widgets({least, most, mean, std::sqrt(squares / defined)});
}

void compare_format(char const *driver, char const *file)
{
    std::string const path = sample_file(driver, file);
    if (path.empty())
        return;
    std::wstring const source = vx::text::utf8_to_wide(path);
    pair_of_times least;
    auto const lower = [](two_times &target, two_times const &times) {
        target.wall = std::min(target.wall, times.wall);
        target.processor = std::min(target.processor, times.processor);
    };
    for (int i = 0; i < 9; ++i) {
        table for_plain(source), for_own(source);
        lower(least.plain, measure([&] { open_plain(for_plain); }));
        lower(least.own, measure([&] { open_own(for_own); }));
    }
    print((std::string("1,000,000 objects, ") + driver).c_str(), least, 1.3);
}
} // namespace

int main(int argc, char **argv)
{
    QApplication const application(argc, argv);
    GDALAllRegister();
    compare_format("GPKG", "points.gpkg");
    compare_format("ESRI Shapefile", "points.shp");
}
