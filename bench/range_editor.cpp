// The editor of ranges: ten ranges over 1,000,000 objects, from the choice of a field to the painted grid,
// against reading the column into the layer's table and walking it by a plain loop; the same with the objects
// of a row counted; and a grid of 10,000 ranges against one of 100. Measured in turn in one run, by the
// processor's time; the least counts.

#include "page_window.h"

#include "platform/base/text_codec.h"
#include "platform/data/vx_attr_data.h"

using namespace vx_bench;

namespace {
using range_window = page_window<c_stl_mngr_mode_range>;
using owned_table = vx::owned<Ivx_attr_files, &vx_attr_files_close>;

/// Least and greatest value of a field.
void walk(Ivx_attr_data *data, wchar_t const *field)
{
    owned_table const table(vx_attr_files_open(data, 1, 0));
    auto const column = static_cast<unsigned>(vx_attr_files_get_field_index_w(table.get(), field));
    double least = 1e300, greatest = -1e300;
    for (unsigned i = 0, count = vx_attr_files_get_no(table.get()); i < count; ++i) {
        bool known = false;
        double const value = vx_attr_files_get_dbl(table.get(), column, i, &known);
        if (known) {
            least = std::min(least, value);
            greatest = std::max(greatest, value);
        }
    }
    if (!(least < greatest))
        std::abort();
}

void compare_default(char const *driver, char const *file, wchar_t const *field)
{
    std::string const path = sample_file(driver, file);
    if (path.empty())
        return;
    std::wstring const source = vx::text::utf8_to_wide(path);
    pair_of_times least, counted;
    auto const lower = [](two_times &target, two_times const &times) {
        target.wall = std::min(target.wall, times.wall);
        target.processor = std::min(target.processor, times.processor);
    };
    for (int i = 0; i < 7; ++i) {
        // Both find the data set open and its fields listed, as the window leaves it when it is shown.
        owned_layer const layer(vx_shp_lr2d_create("shp_pnt_lr2d", source.c_str()));
        auto *const data = vx_shp_lr2d_get_attr_data_ptr(layer.get());
        owned_table(vx_attr_files_open(data, 1, 0)).reset();
        lower(least.plain, measure([&] { walk(data, field); }));
        range_window window(owned_layer(vx_shp_lr2d_create("shp_pnt_lr2d", source.c_str())));
        lower(least.own, measure([&] { window.choose(field); }));
        if (window.entries() != 10)
            std::abort();
        lower(counted.own, measure([&] { window.click_cell(3, 5); }));
    }
    counted.plain = least.plain;
    print((std::string(driver) + ", " + vx::text::to_bytes(field)).c_str(), least, 1.2);
    print("  first count of a row", counted, 1.5);
}

owned_layer layer_with(unsigned ranges)
{
    owned_layer layer(vx_shp_lr2d_create("shp_pnt_lr2d", L""));
    void *const scale = vx_stl_mngr_get_rng_scale_ptr(vx_shp_lr2d_get_stl_mngr_ptr(layer.get()));
    vx_rng_scale_set_size(scale, ranges);
    for (unsigned i = 0; i < ranges; ++i) {
        vx_rng_scale_set_min(scale, i, i);
        vx_rng_scale_set_max(scale, i, i + 1.0);
        vx_rng_scale_set_default_caption(scale, i);
    }
    vx_rng_scale_set_min_value(scale, 0);
    vx_rng_scale_set_max_value(scale, ranges);
    return layer;
}

void compare_lengths()
{
    range_window few(layer_with(100)), many(layer_with(10'000));
    auto const repeat = [](range_window &window, auto act) {
        return [&window, act] {
            for (int i = 0; i < 50; ++i)
                act(window, i);
        };
    };
    auto const run = [&](char const *what, double bound, auto act) {
        print(what, compare(repeat(few, act), repeat(many, act), 9), bound);
    };
    run("50 repaints, 10,000 against 100", 1.2, [](range_window &window, int) { window.paint(); });
    run("50 marks", 1.5, [](range_window &window, int i) {
        window.click_mark(1 + i % 10);
        window.paint();
    });
    run("50 rows entered", 1.5, [](range_window &window, int i) {
        window.click_cell(3, 1 + i % 10);
        window.paint();
    });
}
} // namespace

int main(int argc, char **argv)
{
    QApplication const application(argc, argv);
    GDALAllRegister();
    for (wchar_t const *const field : {L"number", L"whole"}) {
        compare_default("GPKG", "points.gpkg", field);
        compare_default("ESRI Shapefile", "points.shp", field);
    }
    compare_lengths();
}
