#include "data/vxk_data.h"
#include "support/temp_dir.h"

#include "platform/base/text_codec.h"
#include "platform/basic/vx_histogram.h"
#include "platform/layers/layer_keys.h"
#include "platform/layers/vx_lr2d.h"

#include <array>
#include <gtest/gtest.h>
#include <limits>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {
using layer_ptr = vx::owned<Ivx_layer, &vx_lr2d_destroy>;
constexpr double c_none = std::numeric_limits<double>::quiet_NaN();

/// Two properties over 2,000 objects: "depth", with the caption "Depth, m", and "temp".
std::wstring make_file(vx_test::temp_dir const &dir, char const *name, bool has_statistics)
{
    auto const path = vx::text::utf8_to_wide((dir / name).string());
    Tvx_tos4_grid grid;
    grid.count[0] = 2000;
    vx::owned<Ivx_tos4_writer, &vx_tos4_writer_destroy> const writer(
        vx_tos4_writer_create_w(path.c_str(), &grid, L""));
    vx_tos4_writer_set_statistics(writer.get(), has_statistics);
    std::vector<double> depth(2000), temp(2000);
    for (std::size_t i = 0; i < 2000; ++i) {
        depth[i] = i % 4 == 3 ? c_none : static_cast<double>(i % 4) / 10;
        temp[i] = static_cast<double>(i) - 500;
    }
    EXPECT_TRUE(vx_tos4_writer_add_prop_w(writer.get(), L"depth", L"Depth, m") &&
                vx_tos4_writer_append(writer.get(), depth.data(), depth.size()) &&
                vx_tos4_writer_add_prop_w(writer.get(), L"temp", L"") &&
                vx_tos4_writer_append(writer.get(), temp.data(), temp.size()) &&
                vx_tos4_writer_finish(writer.get()));
    return path;
}

/// Everything that editors ask, as one text.
std::string told_by(Tvx_data_source &source)
{
    std::string all;
    if (!source.on_data_open(nullptr))
        return "closed";
    all += std::to_string(source.on_data_get_no(nullptr)) + ":";
    for (unsigned i = 0; i < source.on_data_get_np(nullptr); ++i) {
        bool usable = false, numeric = false;
        all += std::string(" ") + source.on_data_get_prop(nullptr, i, usable, numeric);
        all += std::string(usable ? "+" : "-") + (numeric ? "n" : "t") +
               source.on_data_get_capt_prop(nullptr, i) + "=";
        for (unsigned const obj : {1U, 3U}) {
            bool is_text = true, is_number = true;
            std::string const text = source.on_data_get_str(nullptr, i, obj, is_text);
            double const number = source.on_data_get_val(nullptr, i, obj, is_number);
            all +=
                (is_text ? text : "none" + text) + "/" + (is_number ? std::to_string(number) : "none") + " ";
        }
    }
    source.on_data_close(nullptr);
    return all;
}

std::string stat_text(Tvx_tos_prop_work &work, unsigned prop)
{
    double min = 0, max = 0, average = 0, stddev = 0;
    bool ok = true;
    if (!work.on_data_get_stat(nullptr, prop, min, max, average, stddev, ok))
        return ok ? "?" : "false";
    return ok ? std::to_string(min) + " " + std::to_string(max) + " " + std::to_string(average) : "no values";
}

class named_work : public Tvx_tos_prop_work
{
public:
    explicit named_work(std::wstring name) : f_source(std::move(name))
    {
        on_get_tos_filename = make_closure<&named_work::give_name>(this);
    }

private:
    void give_name(Ivx_string_adp *out) { vx_string_adp_feed(out, f_source.c_str()); }
    std::wstring f_source;
};
} // namespace

TEST(editor_source, each_kind_of_layer_has_its_strategy)
{
    auto &all = Tvx_data_source_strategy_mngr::instance();
    for (char const *const key : {c_lr_key_shp_pnt, c_lr_key_shp_pln, c_lr_key_shp_pgn, c_lr_key_tos_2crd,
                                  c_lr_key_tos_grid, c_lr_key_tos_slice})
        EXPECT_TRUE(all.has_strategy(key)) << key;
    for (char const *const key : {c_lr_key_rtr, c_lr_key_tos_grid_1d, "", static_cast<char const *>(nullptr)})
        EXPECT_FALSE(all.has_strategy(key) || all.create_strategy(key) || all.detach(key));
    EXPECT_TRUE(all.attach(
        "own", [] { return static_cast<Tvx_data_source_strategy *>(new Tvx_attr_source_strategy); }));
    EXPECT_FALSE(all.attach("own", [] { return static_cast<Tvx_data_source_strategy *>(nullptr); }))
        << "the first one stays";
    Tvx_data_source source;
    EXPECT_TRUE(source.initialize("own"));
    EXPECT_TRUE(all.detach("own"));
    EXPECT_FALSE(source.initialize("own"));
    EXPECT_FALSE(source.is_valid());

    // Without a strategy there is nothing.
    EXPECT_EQ(told_by(source), "closed");
    source.set_filename(L"x");
    EXPECT_STREQ(source.get_filename(), L"");
    bool defined = true, ok = true;
    double number = 0;
    EXPECT_EQ(source.on_data_get_val(nullptr, 0, 0, defined), 0);
    EXPECT_STREQ(source.on_data_get_str(nullptr, 0, 0, ok), "");
    EXPECT_FALSE(defined || ok);
    EXPECT_FALSE(source.on_data_get_stat(nullptr, 0, number, number, number, number, ok = true) || ok);
    EXPECT_EQ(source.on_data_get_np(nullptr) + source.on_data_get_no(nullptr), 0U);
}

TEST(editor_source, tables_of_vector_layers_answer)
{
    vx_test::temp_dir const dir;
    vx_test::write_file(
        dir / "t.geojson",
        R"({"type":"FeatureCollection","features":[)"
        R"({"type":"Feature","properties":{"n":0,"t":"a"},"geometry":{"type":"Point","coordinates":[0,0]}},)"
        R"({"type":"Feature","properties":{"n":7,"t":"b"},"geometry":null},)"
        R"({"type":"Feature","properties":{"n":8,"t":"c"},"geometry":null},)"
        R"({"type":"Feature","properties":{"n":null,"t":null},"geometry":null}]})");
    Tvx_data_source source;
    ASSERT_TRUE(source.initialize(c_lr_key_shp_pnt));
    EXPECT_EQ(told_by(source), "closed");
    {
        layer_ptr const layer(vx_lr2d_create(c_lr_key_shp_pnt));
        vx_lr2d_set_wfilename(layer.get(), vx::text::utf8_to_wide((dir / "t.geojson").string()).c_str());
        source.set_data_ptr(vx_lr2d_get_data_ptr(layer.get()));
        EXPECT_EQ(source.get_data_ptr(), vx_lr2d_get_data_ptr(layer.get()));
    }
    EXPECT_EQ(told_by(source), "4: n+nn=7/7.000000 none/none  t+tt=b/none none/none ");
    vx::owned<Ivx_tos_data, &vx_tos_data_release> const other(vx_tos_data_create(L"x"));
    source.set_data_ptr(vx_tos_data_safe_upcast(other.get()));
    EXPECT_EQ(source.get_data_ptr(), nullptr) << "data of another kind";
    EXPECT_EQ(told_by(source), "closed");
}

TEST(editor_source, property_files_answer)
{
    vx_test::temp_dir const dir;
    auto const a = make_file(dir, "a.tos4", true), b = make_file(dir, "b.tos4", true);
    Tvx_data_source source;
    ASSERT_TRUE(source.initialize(c_lr_key_tos_grid));
    EXPECT_EQ(told_by(source), "closed");
    layer_ptr const layer(vx_lr2d_create(c_lr_key_tos_slice));
    vx_lr2d_set_wfilename(layer.get(), a.c_str());
    source.set_data_ptr(vx_lr2d_get_data_ptr(layer.get()));
    EXPECT_EQ(source.get_filename(), a);
    EXPECT_EQ(told_by(source),
              "2000: depth+nDepth, m=0.1/0.100000 none/none  temp+ntemp=-499/-499.000000 -497/-497.000000 ");
    source.set_filename(b.c_str());
    EXPECT_EQ(source.get_data_ptr(), nullptr);
    EXPECT_EQ(source.get_filename(), b);
    // Without an open file, and without leaving one open.
    std::wstring name;
    source.on_data_get_prop_file_name(nullptr, 1, Tvx_std_wstring_adapter(name));
    EXPECT_EQ(name, b.substr(0, b.size() - 5) + L".temp.tos4");
    EXPECT_EQ(source.on_data_get_np(nullptr), 0U);
    source.set_filename(L"/no/such/file.tos4");
    EXPECT_EQ(told_by(source), "closed");
}

TEST(editor_source, one_property_is_open_at_a_time)
{
    vx_test::temp_dir const dir;
    named_work work(make_file(dir, "a.tos4", true));
    bool defined = true;
    EXPECT_EQ(work.on_data_get_val(nullptr, 0, 0, defined), 0);
    EXPECT_TRUE(defined) << "without a file it is not touched";
    ASSERT_TRUE(work.on_data_open(nullptr));
    bool usable = false, numeric = false;
    EXPECT_STREQ(work.on_data_get_wprop(nullptr, 0, usable, numeric), L"depth");
    EXPECT_TRUE(usable && numeric);
    EXPECT_STREQ(work.on_data_get_capt_wprop(nullptr, 0), L"Depth, m");
    for (unsigned i = 0; i < 50; ++i) {
        unsigned const prop = i / 3 % 2;
        double const value = work.on_data_get_val(nullptr, prop, 4 * i + 1, defined);
        EXPECT_TRUE(defined);
        EXPECT_EQ(value, prop == 0 ? 0.1 : 4.0 * i - 499);
    }
    EXPECT_EQ(work.on_data_get_val(nullptr, 2, 0, defined), 0);
    EXPECT_FALSE(defined) << "no such property";
    vx::owned<Tvx_histogramm_data, &vx_histogramm_destroy> const histogram(vx_histogramm_create());
    ASSERT_TRUE(work.on_data_get_histogramm(nullptr, 1, histogram.get()));
    EXPECT_EQ(vx_histogramm_get_bnd_min(histogram.get(), 0), -500);
    EXPECT_EQ(vx_histogramm_get_bnd_max(histogram.get(), 255), 1499);
    double cells = 0;
    for (unsigned i = 0; i < 256; ++i)
        cells += vx_histogramm_get(histogram.get(), i);
    EXPECT_EQ(cells, 2000);
    EXPECT_FALSE(work.on_data_get_histogramm(nullptr, 2, histogram.get()));
    EXPECT_EQ(stat_text(work, 0), "0.000000 0.200000 0.100000");
}

TEST(editor_source, statistics_that_are_not_there_are_written)
{
    vx_test::temp_dir const dir;
    auto const path = make_file(dir, "a.tos4", false);
    named_work work(path);
    EXPECT_EQ(stat_text(work, 1), "false") << "nothing is open";
    ASSERT_TRUE(work.on_data_open(nullptr));
    // A histogram is worked out without that.
    vx::owned<Tvx_histogramm_data, &vx_histogramm_destroy> const histogram(vx_histogramm_create());
    EXPECT_TRUE(work.on_data_get_histogramm(nullptr, 0, histogram.get()));
    EXPECT_TRUE(work.is_read_only());
    EXPECT_EQ(stat_text(work, 1), "-500.000000 1499.000000 499.500000");
    EXPECT_FALSE(work.is_read_only()) << "until it is opened again";
    bool defined = false;
    EXPECT_EQ(work.on_data_get_val(nullptr, 1, 7, defined), -493);
    ASSERT_TRUE(work.on_data_open(nullptr));
    EXPECT_TRUE(work.is_read_only());
    EXPECT_EQ(stat_text(work, 1), "-500.000000 1499.000000 499.500000");
    EXPECT_TRUE(work.is_read_only()) << "they are in the file now";
    work.on_data_close(nullptr);
    EXPECT_EQ(work.on_data_get_np(nullptr), 0U);
}

TEST(editor_source, without_a_right_to_write_there_are_no_statistics)
{
    vx_test::temp_dir const dir;
    auto const path = make_file(dir, "a.tos4", false);
    chmod((dir / "a.tos4").c_str(), 0444);
    pid_t const child = fork();
    if (child == 0) {
        constexpr uid_t c_nobody = 65534; // root may write everywhere
        bool good = geteuid() != 0 || setuid(c_nobody) == 0;
        named_work work(path);
        good = good && work.on_data_open(nullptr) && stat_text(work, 1) == "false" &&
               work.on_data_get_np(nullptr) == 0;
        _exit(good ? 0 : 1);
    }
    int status = 1;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
}
