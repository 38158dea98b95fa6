// The editor of unique values: from the choice of a field to the painted grid, against what reading the
// values and building the entries cost alone; and a grid of 100,000 entries against one of 100, for painting,
// scrolling and marking. Measured in turn in one run, by the processor's time; the least counts.

#include "code_file.h"
#include "data/source/generic_datasource.h"
#include "page_window.h"

#include "platform/base/owned.h"
#include "platform/base/text_codec.h"
#include "platform/data/vx_attr_data.h"
#include "platform/dialogs/vx_dlg_table.h"

#include <set>

using namespace vx_bench;

namespace {
using owned_data = vx::owned<Ivx_attr_data, &vx_attr_data_release>;
using owned_table = vx::owned<Ivx_attr_files, &vx_attr_files_close>;
using value_window = page_window<c_stl_mngr_mode_value>;
using owned_mngr = vx::owned<void, &vx_stl_mngr_destroy>;

void build_plain(std::wstring const &source, wchar_t const *field, void *mngr)
{
    owned_data const data(vx_attr_data_create(source.c_str()));
    owned_table const table(vx_attr_files_open(data.get(), 1, 0));
    auto const column = static_cast<unsigned>(vx_attr_files_get_field_index_w(table.get(), field));
    std::set<std::wstring> values;
    for (unsigned i = 0, count = vx_attr_files_get_no(table.get()); i < count; ++i) {
        bool known = false;
        wchar_t const *const text = vx_attr_files_get_wstr(table.get(), column, i, &known);
        if (known)
            values.insert(text);
    }
    void *const scale = vx_stl_mngr_get_val_scale_ptr(mngr);
    vx_val_scale_set_size(scale, static_cast<unsigned>(values.size()));
    unsigned entry = 0;
    for (std::wstring const &value : values) {
        vx_val_scale_set_text_w(scale, entry, value.c_str());
        vx_val_scale_set_caption_w(scale, entry++, value.c_str());
    }
}

void compare_codes()
{
    std::wstring const source = vx::text::utf8_to_wide(code_file());
    auto const plain = [&] {
        owned_mngr mngr(vx_stl_mngr_create("pnt_style"));
        build_plain(source, L"code", mngr.get());
        return mngr;
    };
    pair_of_times least;
    for (int i = 0; i < 9; ++i) {
        two_times const a = measure(plain);
        value_window window(owned_layer(vx_shp_lr2d_create("shp_pnt_lr2d", source.c_str())));
        two_times const b = measure([&] { window.choose(L"code"); });
        if (window.entries() != c_codes)
            std::abort();
        least.plain.processor = std::min(least.plain.processor, a.processor);
        least.own.processor = std::min(least.own.processor, b.processor);
        least.plain.wall = std::min(least.plain.wall, a.wall);
        least.own.wall = std::min(least.own.wall, b.wall);
    }
    print("42,049 codes, to the painted grid", least, 1.5);
}

void compare_classes(char const *driver, char const *file)
{
    std::string const path = sample_file(driver, file);
    if (path.empty())
        return;
    std::wstring const source = vx::text::utf8_to_wide(path);
    pair_of_times least;
    for (int i = 0; i < 5; ++i) {
        two_times const a = measure([&] {
            vx::data::generic_datasource data;
            std::set<std::wstring> values;
            if (!data.open(source, vx::data::access_read) ||
                !data.field_unique_values(c_text_2000, vx::data::c_no_limit, values))
                std::abort();
            return values;
        });
        value_window window(owned_layer(vx_shp_lr2d_create("shp_pnt_lr2d", source.c_str())));
        two_times const b = measure([&] { window.choose(L"text2000"); });
        if (window.entries() != 2000)
            std::abort();
        least.plain.processor = std::min(least.plain.processor, a.processor);
        least.own.processor = std::min(least.own.processor, b.processor);
        least.plain.wall = std::min(least.plain.wall, a.wall);
        least.own.wall = std::min(least.own.wall, b.wall);
    }
    print((std::string("2,000 of 1,000,000, ") + driver).c_str(), least, 2);
}

owned_layer layer_with(unsigned entries)
{
    owned_layer layer(vx_shp_lr2d_create("shp_pnt_lr2d", L""));
    void *const scale = vx_stl_mngr_get_val_scale_ptr(vx_shp_lr2d_get_stl_mngr_ptr(layer.get()));
    vx_val_scale_set_size(scale, entries);
    for (unsigned i = 0; i < entries; ++i) {
        std::wstring const text = std::to_wstring(10000 + i);
        vx_val_scale_set_text_w(scale, i, text.c_str());
        vx_val_scale_set_caption_w(scale, i, text.c_str());
    }
    return layer;
}

void compare_lengths()
{
    value_window few(layer_with(100)), many(layer_with(100'000));
    auto const repeat = [](value_window &window, auto act) {
        return [&window, act] {
            for (int i = 0; i < 50; ++i)
                act(window, i);
        };
    };
    auto const run = [&](char const *what, double bound, auto act) {
        print(what, compare(repeat(few, act), repeat(many, act), 9), bound);
    };
    run("50 repaints, 100,000 against 100", 1.2, [](value_window &window, int) { window.paint(); });
    run("50 marks, 100,000 against 100", 1.5, [](value_window &window, int i) {
        window.click_mark(1 + i % 10);
        window.paint();
    });
    // Back and forth over the last 2,000 that were shown, against as many repaints of what stands there.
    auto const page = [](value_window &window, int i) {
        window.grid()->SetTopRow(1 + 20 * (i % 100));
        window.grid()->Update();
    };
    for (int i = 0; i < 100; ++i)
        page(many, i);
    print("50 pages of samples at hand, against repaints",
          compare(repeat(many, [](value_window &window, int) { window.paint(); }), repeat(many, page), 9), 2);
}
} // namespace

int main(int argc, char **argv)
{
    QApplication const application(argc, argv);
    GDALAllRegister();
    vx_dlg_table dialogs;
    dialogs.yesno = [](void *, HWND, wchar_t const *) { return true; };
    vx_dlg_set_table(&dialogs);
    compare_codes();
    compare_classes("GPKG", "points.gpkg");
    compare_classes("ESRI Shapefile", "points.shp");
    compare_lengths();
}
