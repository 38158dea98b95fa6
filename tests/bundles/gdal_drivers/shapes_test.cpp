#include "extension/vxk_extension.h"
#include "source.h"
#include "support/temp_dir.h"
#include "writing.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <optional>
#include <random>
#include <sqlite3.h>

using namespace vx_test;

namespace {
using namespace vx::codes::plain;
using part = std::vector<std::pair<double, double>>;

/// Parts sorted: rings come in the order of the file, or of what lies in what.
struct shape
{
    int kind = geom_none;
    std::vector<part> parts;
    bool operator==(shape const &) const = default;
};
std::ostream &operator<<(std::ostream &out, shape const &s)
{
    out << s.kind;
    for (part const &p : s.parts) {
        out << " (";
        for (auto const &[x, y] : p)
            out << x << ' ' << y << ", ";
        out << ')';
    }
    return out;
}

int flat(int type)
{
    return type > geom_point_z - geom_point ? type - (geom_point_z - geom_point) : type;
}

shape made(int kind, std::vector<part> parts)
{
    // A point is a multipoint of one; what is no number, and what has no vertices, is nothing.
    for (part &p : parts)
        std::erase_if(p, [](auto const &v) { return !std::isfinite(v.first) || !std::isfinite(v.second); });
    std::erase_if(parts, [](part const &p) { return p.empty(); });
    std::sort(parts.begin(), parts.end());
    if (parts.empty())
        return {};
    return {kind == geom_multipoint ? geom_point : kind, parts};
}

/// Shapes by their records, as features have them.
class feature_keeper final : public vx::feature_visitor_impl
{
public:
    std::map<std::size_t, shape> shapes;

    void visit(vx::feature item) override
    {
        int kind = flat(item.geom_type());
        vertex_list const list(vx_ov_d2_create());
        std::vector<part> parts;
        Tvx_vtx_d2 at;
        if (kind == geom_point && item.get_point(&at))
            parts = {{{at.x, at.y}}};
        else if (kind == geom_multipoint ? item.get_multipoint(list.get()) : item.get_polypoint(list.get()))
            for (std::size_t p = 0; p < vx_ov_d2_get_size(list.get()); ++p) {
                Tvx_pv_d2 const *const from = vx_ov_d2_get_pv_ptr(list.get(), p);
                parts.emplace_back();
                for (std::size_t v = 0; v < vx_pv_d2_get_size(from); ++v)
                    parts.back().emplace_back(vx_pv_d2_get_data(from)[v].x, vx_pv_d2_get_data(from)[v].y);
            }
        // A run says of which kind the parts are, and that there are others.
        if (item.geom_type() == geom_unknown && !parts.empty())
            kind = vx_ov_d2_get_vector_type(list.get()) == c_vector_polygon ? -geom_polygon : -geom_polyline;
        shapes[shapes.size()] = made(kind, parts);
        item.detach();
    }
};

class shape_keeper final : public vx::shape_visitor_impl, public vx::shape_reading_visitor_impl
{
public:
    std::map<std::size_t, shape> shapes;
    vx::shape_reading reading;

    void visit(vx::shape_reading item) override { reading = item; }
    void visit_points(unsigned long long count, double const *places,
                      unsigned long long const *records) override
    {
        for (std::size_t i = 0; i < count; ++i)
            keep(records ? records[i] : shapes.size(),
                 made(geom_point, {{{places[2 * i], places[2 * i + 1]}}}));
    }
    void visit_shapes(unsigned long long count, int const *kinds, unsigned const *part_counts,
                      unsigned const *vertex_counts, double const *places,
                      unsigned long long const *records) override
    {
        for (std::size_t i = 0; i < count; ++i) {
            std::vector<part> parts(part_counts[i]);
            for (part &p : parts)
                for (unsigned left = *vertex_counts++; left > 0; --left, places += 2)
                    p.emplace_back(places[0], places[1]);
            keep(records ? records[i] : shapes.size(), made(kinds[i], parts));
        }
    }
    /// The state at the end.
    int read_all()
    {
        int state = reading_goes_on;
        while (state == reading_goes_on)
            state = reading.next(0, vx::shape_visitor(*this));
        reading.detach();
        return state;
    }

private:
    void keep(std::size_t record, shape s)
    {
        EXPECT_TRUE(shapes.emplace(record, std::move(s)).second) << "record " << record << " came twice";
    }
};

vx::shape_source shapes_of(source const &from)
{
    return vx::shape_source(
        vx_shape_source_interface_specialize(vx_data_source_interface_generalize(from.data)));
}

std::map<std::size_t, shape> walked(source const &from)
{
    feature_keeper keeper;
    (void)from.forward.reset_reading();
    while (from.forward.with_next_feature(keeper)) {
    }
    return keeper.shapes;
}

/// Empty when a reading is not offered.
std::optional<std::map<std::size_t, shape>> read(source const &from, Tvx_box_d2 *window = nullptr)
{
    shape_keeper keeper;
    if (!shapes_of(from).read_shapes(window, vx::shape_reading_visitor(keeper)))
        return std::nullopt;
    keeper.read_all();
    return keeper.shapes;
}

void expect_like_features(source const &s)
{
    auto const shapes = read(s);
    ASSERT_TRUE(shapes);
    EXPECT_EQ(walked(s), *shapes);
}

/// A geometry in its binary form, as GeoPackage has it.
class wkb
{
public:
    std::vector<unsigned char> bytes{'G', 'P', 0, 1, 0, 0, 0, 0};

    template <class T>
    wkb &add(T value, bool is_big = false)
    {
        unsigned char raw[sizeof(T)];
        std::memcpy(raw, &value, sizeof(T));
        if (is_big)
            std::reverse(raw, raw + sizeof(T));
        bytes.insert(bytes.end(), raw, raw + sizeof(T));
        return *this;
    }
    wkb &head(unsigned type) { return add<char>(1).add<unsigned>(type); }
    wkb &vertices(std::initializer_list<double> numbers, std::size_t each = 2)
    {
        add<unsigned>(static_cast<unsigned>(numbers.size() / each));
        for (double const number : numbers)
            add(number);
        return *this;
    }
};
} // namespace

TEST(shapes_in_runs, are_those_of_the_features)
{
    for (char const *name : {"nc.shp", "world.shp", "streets.shp", "naturalearth_cities.shp"}) {
        SCOPED_TRACE(name);
        expect_like_features(source(example(name)));
    }
    source const whole(example("nc.shp"));
    Tvx_box_d2 window{-80, 35, -79, 36};
    std::map<std::size_t, shape> expected;
    for (auto const &[record, s] : walked(whole)) {
        Tvx_box_d2 box;
        for (part const &p : s.parts)
            for (auto const &[x, y] : p)
                box.add(x, y);
        if (box.intersects(window))
            expected.emplace(record, s);
    }
    EXPECT_GT(expected.size(), 3u);
    EXPECT_EQ(expected, read(whole, &window));
    EXPECT_FALSE(read(source(example("naturalearth_cities.shp")), &window)) << "all points are read as fast";
    (void)whole.forward.set_attribute_filter(L"FID < 3");
    EXPECT_FALSE(read(whole)) << "features tell what a filter lets pass";
}

TEST(shapes_in_runs, of_shapefiles_with_everything_in_them)
{
    temp_dir folder;
    vertex_list const list(vx_ov_d2_create());
    auto const fill = [&](std::vector<part> const &parts) {
        vx_ov_d2_clear(list.get());
        vx_ov_d2_set_size(list.get(), parts.size());
        for (std::size_t p = 0; p < parts.size(); ++p) {
            Tvx_pv_d2 *const to = vx_ov_d2_get_pv_ptr(list.get(), p);
            vx_pv_d2_set_size(to, parts[p].size());
            for (std::size_t v = 0; v < parts[p].size(); ++v) {
                Tvx_vtx_d2 const vertex{parts[p][v].first, parts[p][v].second};
                vx_pv_d2_set_vtx(to, v, &vertex);
            }
        }
    };
    part const ring{{0, 0}, {0, 9}, {9, 9}, {9, 0}, {0, 0}};
    part const hole{{1, 1}, {2, 1}, {2, 2}, {1, 1}};
    part const island{{20, 0}, {20, 5}, {25, 5}, {20, 0}};
    part great; // is read in several steps
    for (int i = 0; i <= 150'000; ++i)
        great.emplace_back(100 + std::cos(i % 150'000 * 4e-5), std::sin(i % 150'000 * -4e-5));
    for (int const type : {geom_point, geom_multipoint, geom_polyline, geom_polygon}) {
        SCOPED_TRACE(type);
        auto const path = (folder.path() / ("made" + std::to_string(type) + ".shp")).wstring();
        {
            source s(path, driver_shapefile);
            definition columns({{L"name", field_string}});
            ASSERT_TRUE(s.table.create_vector(L"made", type, 0, columns));
            for (int i = 0; i < 9; ++i)
                ASSERT_TRUE(add(s, [&](vx::feature f) {
                    if (i % 4 == 3)
                        return; // without a shape
                    // The format library adds points one by one, in a time that grows by the square.
                    fill(i == 4  ? std::vector<part>{island, type == geom_multipoint ? hole : great}
                         : i % 2 ? std::vector<part>{hole, ring, island}
                                 : std::vector<part>{ring});
                    Tvx_vtx_d2 at{i * 1.5, -2.0 * i};
                    if (type == geom_point)
                        f.set_point(&at);
                    else if (type == geom_multipoint)
                        f.set_multipoint(list.get());
                    else if (type == geom_polyline)
                        f.set_polyline(list.get());
                    else
                        f.set_polygon(list.get());
                }));
            ASSERT_TRUE(s.table.flush_changes());
        }
        expect_like_features(source(path));
        {
            source s(path, false);
            ASSERT_TRUE(s.table.delete_feature(2) && s.table.delete_feature(5));
            ASSERT_TRUE(s.table.flush_changes());
            EXPECT_FALSE(read(s)) << "what is being changed may not be in the file yet";
        }
        source const gaps(path);
        if (type == geom_polyline) { // a great record whose end is missing
            auto const cut = folder.path() / "cut.shp";
            for (char const *ending : {".shp", ".shx", ".dbf"})
                std::filesystem::copy(std::filesystem::path(path).replace_extension(ending),
                                      std::filesystem::path(cut).replace_extension(ending));
            std::filesystem::resize_file(cut, 1'500'000);
            source const s(cut.wstring());
            auto const found = read(s);
            ASSERT_TRUE(found);
            EXPECT_EQ(walked(s), *found);
        }
        EXPECT_EQ(7u, gaps.table.feature_count(true));
        expect_like_features(gaps);
    }
}

TEST(shapes_in_runs, of_damaged_shapefiles)
{
    temp_dir folder;
    std::mt19937 random(7);
    auto const copy = [&](char const *ending) {
        std::filesystem::copy(std::string(VX_EXAMPLE_DATA "/nc") + ending,
                              folder.path() / ("nc" + std::string(ending)),
                              std::filesystem::copy_options::overwrite_existing);
        return folder.path() / ("nc" + std::string(ending));
    };
    for (int round = 0; round < 60; ++round) {
        SCOPED_TRACE(round);
        copy(".dbf");
        auto const shapes = copy(".shp");
        auto const index = copy(".shx");
        for (int change = 0; change < 4; ++change) {
            auto const &file = round % 3 ? shapes : index;
            std::fstream bytes(file, std::ios::in | std::ios::out | std::ios::binary);
            bytes.seekp(static_cast<long>(100 + random() % (std::filesystem::file_size(file) - 100)));
            bytes.put(static_cast<char>(random()));
        }
        if (round % 7 == 6)
            std::filesystem::resize_file(shapes, 100 + random() % 4000);
        source const s((folder.path() / "nc.shp").wstring());
        if (!s.is_open())
            continue;
        auto const found = read(s);
        if (found) {
            EXPECT_EQ(walked(s), *found);
        }
    }
}

TEST(shapes_in_runs, of_geopackages_with_everything_in_them)
{
    temp_dir folder;
    auto const path = folder.path() / "made.gpkg";
    {
        source s(path.wstring(), driver_geopackage);
        definition columns({{L"name", field_string}});
        ASSERT_TRUE(s.table.create_vector(L"made", geom_unknown, 0, columns));
        for (int i = 0; i < 40; ++i)
            ASSERT_TRUE(add(s, [&](vx::feature f) {
                Tvx_vtx_d2 at{i * 1.0, i * 2.0};
                f.set_point(&at);
            }));
        ASSERT_TRUE(s.table.flush_changes());
    }
    auto const box = [](double x0, double y0, double x1, double y1) { return Tvx_box_d2{x0, y0, x1, y1}; };
    {
        source const s(path.wstring());
        expect_like_features(s);
        Tvx_box_d2 window = box(9.5, 0, 12.5, 100);
        auto const part_of_it = read(s, &window);
        ASSERT_TRUE(part_of_it);
        EXPECT_EQ(3u, part_of_it->size());
        EXPECT_EQ(walked(s).at(11), part_of_it->at(11)) << "by the numbers of the records";
    }
    std::vector<wkb> forms;
    forms.emplace_back().head(2).vertices({0, 0, 1, 2, 3, 4});
    forms.emplace_back().head(1002).vertices({0, 0, 9, 1, 2, 9}, 3);
    forms.emplace_back().head(3003).add(1u).vertices({0, 0, 7, 8, 4, 0, 7, 8, 4, 4, 7, 8, 0, 0, 7, 8}, 4);
    forms.emplace_back().head(2001).add(5.0).add(6.0).add(7.0);
    forms.emplace_back()
        .head(6)
        .add(2u)
        .head(3)
        .add(1u)
        .vertices({0, 0, 4, 0, 4, 4, 0, 0})
        .head(3)
        .add(1u)
        .vertices({9, 9, 9, 8, 8, 8, 9, 9});
    forms.emplace_back().head(5).add(2u).head(2).vertices({0, 0, 1, 1}).head(2).vertices({});
    forms.emplace_back().head(4).add(2u).head(1).add(1.0).add(2.0).head(1).add(3.0).add(4.0);
    forms.emplace_back()
        .add<char>(0)
        .add(2u, true)
        .add(2u, true)
        .add(1.0, true)
        .add(2.0, true)
        .add(3.0, true)
        .add(4.0, true);
    forms.emplace_back().head(0x80000002).vertices({0, 0, 9, 1, 2, 9}, 3);
    forms.emplace_back().head(7).add(1u).head(1).add(1.0).add(2.0); // a collection
    forms.emplace_back().head(7).add(2u).head(1).add(1.0).add(2.0).head(2).vertices({3, 4, 5, 6});
    forms.emplace_back().head(7).add(0u);
    forms.emplace_back().head(8).vertices({0, 0, 1, 1, 2, 0}); // an arc
    forms.emplace_back().head(3).add(0u);
    forms.emplace_back().head(2).add(1000000u).add(1.0);       // cut off
    forms.emplace_back().head(6).add(1u).head(2).vertices({}); // not of its kind
    forms.emplace_back().head(1).add(std::nan("")).add(std::nan(""));
    forms.emplace_back().bytes = {'X', 'Y'};
    forms.emplace_back().bytes[3] = 0x11; // said to be empty
    forms.emplace_back().bytes[3] = 0x0b; // no such box
    sqlite3 *base = nullptr;
    ASSERT_EQ(SQLITE_OK, sqlite3_open(path.c_str(), &base));
    // The functions that keep the index belong to who wrote the file.
    std::string drop;
    sqlite3_exec(
        base,
        "SELECT 'DROP TRIGGER \"' || name || '\";' FROM sqlite_master WHERE type = 'trigger' AND name LIKE "
        "'rtree_%'",
        [](void *all, int, char **row, char **) {
            *static_cast<std::string *>(all) += row[0];
            return 0;
        },
        &drop, nullptr);
    ASSERT_EQ(SQLITE_OK, sqlite3_exec(base, drop.c_str(), nullptr, nullptr, nullptr));
    for (std::size_t i = 0; i < forms.size(); ++i) {
        sqlite3_stmt *change = nullptr;
        sqlite3_prepare_v2(base, "UPDATE made SET geom = ?1 WHERE fid = ?2", -1, &change, nullptr);
        sqlite3_bind_blob(change, 1, forms[i].bytes.data(), static_cast<int>(forms[i].bytes.size()),
                          SQLITE_STATIC);
        sqlite3_bind_int64(change, 2, static_cast<long long>(i + 1));
        EXPECT_EQ(SQLITE_DONE, sqlite3_step(change));
        sqlite3_finalize(change);
    }
    sqlite3_exec(base, "UPDATE made SET geom = NULL WHERE fid = 30", nullptr, nullptr, nullptr);
    sqlite3_close(base);
    {
        source const s(path.wstring());
        expect_like_features(s);
        EXPECT_EQ(3u, walked(s).at(0).parts.at(0).size());
    }
    ASSERT_EQ(SQLITE_OK, sqlite3_open(path.c_str(), &base));
    sqlite3_exec(base, "DELETE FROM made WHERE fid IN (20, 31)", nullptr, nullptr, nullptr);
    sqlite3_close(base);
    source const gaps(path.wstring());
    expect_like_features(gaps);
    Tvx_box_d2 window = box(32.5, 0, 35.5, 100);
    EXPECT_FALSE(read(gaps, &window)) << "the index knows identifiers, not records";
}
