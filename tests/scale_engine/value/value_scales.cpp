#include "scale_engine/real_files.h"
#include "scale_engine/scale_fixture.h"
#include "scale_engine/value/detail/kept_texts.h"
#include "scale_engine/vxk_task.h"
#include "support/memory_source.h"

#include "platform/data/vx_attr_data.h"

#include <gtest/gtest.h>
#include <limits>
#include <random>

namespace {
using namespace scale_fixture;
using namespace vx::task;
using vx::data::connection;
using owned_data = vx::owned<Ivx_attr_data, &vx_attr_data_release>;
using text_set = std::set<std::wstring>;
using text_map = std::map<std::wstring, std::wstring>;

/// A table in memory, as an entity and as a data set. Cells are texts and numbers; "-" is a cell without a
/// value.
using rows_list = std::vector<std::vector<std::wstring>>;
struct table
{
    vx_test::memory_table memory;
    vx_test::memory_driver driver{L"memory:", memory};
    owned_data data;

    explicit table(std::vector<std::vector<std::wstring>> const &rows,
                   std::vector<double> const &numbers = {})
    {
        memory.fields = {{L"key", 1}, {L"caption", 1}, {L"number", 2}};
        for (std::size_t i = 0; i < rows.size(); ++i) {
            vx_test::memory_feature feature;
            for (auto const &text : rows[i])
                feature.cells.push_back(text == L"-" ? vx_test::cell() : vx_test::cell(text));
            feature.cells.resize(2);
            feature.cells.push_back(i < numbers.size() ? vx_test::cell(numbers[i]) : vx_test::cell());
            memory.features.push_back(feature);
        }
        data.reset(vx_attr_data_create(L"memory:a"));
    }
    [[nodiscard]] Ivx_entity *entity() const { return vx_attr_data_safe_upcast(data.get()); }
    [[nodiscard]] static vx::data::connection connection() { return vx::data::connection(L"memory:a"); }
};

template <class Container, class Source>
Container texts(Source const &source, std::uint64_t limit, wchar_t const *field = L"key")
{
    Container out{L"old"};
    EXPECT_TRUE(value_scale_build_text_cache(field, limit).execute(source, out));
    return out;
}

template <class Container, class Source>
Container captions(Source const &source, std::uint64_t limit, wchar_t const *caption = L"caption")
{
    Container out{{L"old", L"old"}};
    EXPECT_TRUE(value_scale_build_cache(L"key", caption, limit).execute(source, out));
    return out;
}

TEST(value_caches, different_texts_of_a_table)
{
    table const t(rows_list{{L"c", L"1"},
                            {L"b", L"2"},
                            {L" b\t", L"3"},
                            {L"-", L"4"},
                            {L"", L"5"},
                            {L"a", L"-"},
                            {L"d", L" 6 "}});
    auto const entity = t.entity();
    EXPECT_EQ((text_set{L"", L"a", L"b", L"c", L"d"}), texts<text_set>(entity, 100));
    EXPECT_EQ((std::unordered_set<std::wstring>{L"", L"a", L"b", L"c", L"d"}),
              texts<std::unordered_set<std::wstring>>(entity, 100));
    EXPECT_EQ((text_set{L"", L"b", L"c"}), texts<text_set>(entity, 3)) << "the first three met";
    EXPECT_EQ((text_set{L"c"}), texts<text_set>(entity, 0));
    text_map const all{{L"c", L"1"}, {L"b", L"2"}, {L"", L"5"}, {L"a", L""}, {L"d", L"6"}};
    EXPECT_EQ(all, captions<text_map>(entity, 100));
    EXPECT_EQ((std::unordered_map<std::wstring, std::wstring>{all.begin(), all.end()}),
              (captions<std::unordered_map<std::wstring, std::wstring>>(entity, 100)));
    EXPECT_EQ((text_map{{L"c", L"1"}, {L"b", L"2"}}), captions<text_map>(entity, 2));
    EXPECT_EQ((text_map{{L"b", L"b"}, {L"c", L"c"}}), captions<text_map>(entity, 2, L"no such"));

    text_set none{L"old"};
    EXPECT_FALSE(value_scale_build_text_cache(L"no such", 9).execute(entity, none));
    EXPECT_TRUE(none.empty());
    EXPECT_FALSE(value_scale_build_text_cache(L"key", 9).execute(static_cast<Ivx_entity *>(nullptr), none));
    text_map no_map{{L"old", L""}};
    EXPECT_FALSE(value_scale_build_cache(L"no such", L"key", 9).execute(entity, no_map));
    EXPECT_TRUE(no_map.empty());
}

TEST(value_caches, different_numbers_of_a_table)
{
    double const nan = std::numeric_limits<double>::quiet_NaN();
    table const t(rows_list{{}, {}, {}, {}, {}, {}}, {2.5, nan, 1, 2.5, -0.0});
    std::set<double> numbers;
    EXPECT_TRUE(value_scale_build_text_cache(L"number", 9).execute(t.entity(), numbers));
    EXPECT_EQ((std::set<double>{0, 1, 2.5}), numbers);
    std::unordered_set<int> whole;
    EXPECT_TRUE(value_scale_build_text_cache(L"number", 2).execute(t.entity(), whole));
    EXPECT_EQ(2U, whole.size());
    std::map<double, double> pairs;
    EXPECT_TRUE(value_scale_build_cache(L"number", L"number", 9).execute(t.entity(), pairs));
    EXPECT_EQ((std::map<double, double>{{0, 0}, {1, 1}, {2.5, 2.5}}), pairs);
}

TEST(value_caches, different_texts_of_a_data_set)
{
    table t(rows_list{{L"c", L"1"}, {L"b ", L""}, {L"-", L"4"}, {L"b", L"2"}, {L"a", L"3"}});
    auto const source = t.connection();
    EXPECT_EQ((text_set{L"a", L"b", L"b ", L"c"}), texts<text_set>(source, 100)) << "not trimmed";
    EXPECT_EQ(2U, texts<text_set>(source, 2).size());
    EXPECT_EQ((text_set{L"c"}), texts<text_set>(source, 0));
    EXPECT_EQ(4U, texts<text_set>(source, 1ULL << 32).size());
    EXPECT_EQ((text_map{{L"a", L"3"}, {L"b", L"2"}, {L"c", L"1"}}), captions<text_map>(source, 100))
        << "a value without caption is left out";
    EXPECT_EQ((text_map{{L"a", L"a"}, {L"b", L"b"}, {L"c", L"c"}}),
              captions<text_map>(source, 100, L"no such"));
    t.memory.features[1].cells[1] = std::wstring(L"2 ");
    t.memory.features[3].cells[1] = std::wstring(L"other");
    EXPECT_EQ(L"other", captions<text_map>(source, 100)[L"b"]) << "\"b\" comes before \"b \"";
    text_set none{L"old"};
    EXPECT_FALSE(value_scale_build_text_cache(L"no such", 9).execute(source, none));
    EXPECT_TRUE(none.empty());
    EXPECT_FALSE(value_scale_build_text_cache(L"key", 9).execute(connection(L"/no/such.shp"), none));
    EXPECT_EQ(0, t.memory.opened);
}

TEST(value_caches, many_texts_are_told_apart)
{
    std::mt19937 random(1);
    // The last kind is what a damaged text may hold: it compares below all others.
    for (unsigned const strange : {0x61U, 0x7eU, 0x10000U, 0xffff'fff0U}) {
        detail::kept_texts kept;
        text_set wanted;
        for (int i = 0; i < 10'000; ++i) {
            std::wstring text = L"common";
            text.append(random() % 3, L'x');
            for (auto n = random() % 6; n > 0; --n)
                text += static_cast<wchar_t>(random() % 3 ? L'a' + random() % 4 : strange + random() % 4);
            ASSERT_EQ(wanted.insert(text).second, kept.add(text));
        }
        wanted.insert(std::wstring(100'000, L'l'));
        kept.add(std::wstring(100'000, L'l'));
        text_set sorted;
        kept.move_to(sorted);
        EXPECT_EQ(wanted, sorted);
    }
    text_set none;
    detail::kept_texts().move_to(none);
    EXPECT_TRUE(none.empty());
}

TEST(value_rebuild, from_tables_and_data_sets)
{
    table const t(rows_list{{L" c", L"1"}, {L"b", L" 2"}, {L"a", L"3"}});
    scales s;
    fill_values(s.val, {{L"old", L"old"}});
    value_scale_rebuild(L"key", 9).execute(s.val, t.entity());
    EXPECT_EQ((text_list{L"a", L"b", L"c"}), texts_of(s.val));
    EXPECT_EQ((text_list{L"a", L"b", L"c"}), value_captions_of(s.val));
    value_scale_rebuild(L"key", L"caption", 2).execute(s.val, t.entity());
    EXPECT_EQ((text_list{L"b", L"c"}), texts_of(s.val));
    EXPECT_EQ((text_list{L"2", L"1"}), value_captions_of(s.val));
    value_scale_rebuild(L"key", L"caption", 9).execute(s.val, t.connection());
    EXPECT_EQ((text_list{L"a", L"b", L"c"}), texts_of(s.val));
    EXPECT_EQ((text_list{L"3", L"2", L"1"}), value_captions_of(s.val));
    value_scale_rebuild(L"key", 9).execute(s.val, t.connection());
    EXPECT_EQ((text_list{L"c", L"a", L"b"}), value_captions_of(s.val)) << "by the texts with their blanks";
    value_scale_rebuild(L"no such", 9).execute(s.val, t.entity());
    EXPECT_EQ(0U, vx_val_scale_get_size(s.val));
}

TEST(value_default, is_made_saved_and_found_again)
{
    vx_test::temp_dir const dir;
    auto const world = real_files::shapefile(dir, "world");
    for (auto const &file : {world, real_files::geopackage(dir, world)}) {
        scales s;
        value_scale_default const task(connection(file), L"continent", c_palette_different);
        ASSERT_TRUE(task.execute(s.mngr.get(), 100));
        auto const found = texts_of(s.val);
        EXPECT_EQ((text_list{L"Africa", L"Antarctica", L"Asia", L"Europe", L"North America", L"Oceania",
                             L"Seven seas (open ocean)", L"South America"}),
                  found);
        EXPECT_EQ(c_stl_mngr_mode_value, vx_stl_mngr_get_mode(s.mngr.get()));
        EXPECT_EQ(L"continent", scale_text(&vx_stl_mngr_get_val_prop_name_w, s.mngr.get()));
        Tvx_color colors[8];
        vx_clr_arrays_generate(c_palette_different, 8, colors);
        EXPECT_EQ(colors[7], color_of(value_prms(s.val)[7]));
        auto const name = std::filesystem::path(file).stem().string() + ".continent._vl";
        EXPECT_TRUE(std::filesystem::exists(dir / name));
        scales other;
        EXPECT_TRUE(
            value_scale_default(connection(file), L"continent", c_palette_red).execute(other.mngr.get(), 2));
        EXPECT_TRUE(vx_val_scale_equal(s.val, other.val));
    }
    int const before = dir.count();
    table const t(rows_list{{L"a"}});
    scales s;
    connection const hidden(
        L"*memory:a",
        [](wchar_t const *, bool read_only, void *, t_vx_data_source_interface *result) {
            vx::data::datasource_open(L"memory:a", read_only, nullptr, result);
        },
        nullptr);
    EXPECT_FALSE(value_scale_default(hidden, L"key", c_palette_red).execute(s.mngr.get(), 5));
    EXPECT_EQ((text_list{L"a"}), texts_of(s.val));
    EXPECT_EQ(before, dir.count());
}

TEST(value_entries, come_and_go_with_a_cache)
{
    scales s;
    fill_values(s.val, {{L" a ", L"A"}, {L"b", L"B"}, {L"a", L"again"}});
    std::unordered_map<std::wstring, std::wstring> cache{{L"a", L"x"}, {L"c", L"x"}};
    for (int i = 0; i < 2; ++i) {
        value_scale_append_fresh::execute(s.val, cache);
        EXPECT_EQ((text_list{L" a ", L"b", L"a", L"c"}), texts_of(s.val));
        EXPECT_EQ((text_list{L"A", L"B", L"again", L"c"}), value_captions_of(s.val));
    }
    value_scale_remove_absent::execute(s.val, cache);
    EXPECT_EQ((text_list{L" a ", L"a", L"c"}), texts_of(s.val));
    cache.clear();
    value_scale_remove_absent::execute(s.val, cache);
    EXPECT_EQ(0U, vx_val_scale_get_size(s.val));

    EXPECT_EQ(0U, value_scale_append_value::execute(s.val));
    EXPECT_EQ(1U, value_scale_append_value::execute(s.val));
    vx_val_scale_set_text_w(s.val, 1, L"last");
    vx_val_scale_set_active_idx(s.val, 0);
    EXPECT_EQ(1U, value_scale_append_value::execute(s.val));
    EXPECT_EQ((text_list{L"", L"", L"last"}), texts_of(s.val));
    vx_val_scale_set_active_idx(s.val, 2);
    EXPECT_EQ(3U, value_scale_append_value::execute(s.val));
}

TEST(value_captions, from_texts_and_tables)
{
    scales s;
    fill_values(s.val, {{L" b ", L"B"}, {L"z", L"Z"}});
    table const t(rows_list{{L"a", L"1"}, {L"b", L"2"}});
    value_scale_modify_caption(L"key", L"caption").execute(s.val, t.entity());
    EXPECT_EQ((text_list{L"2", L"Z"}), value_captions_of(s.val));
    value_scale_modify_caption(L"no such", L"caption").execute(s.val, t.entity());
    value_scale_modify_caption().execute(s.val, t.entity());
    EXPECT_EQ((text_list{L"2", L"Z"}), value_captions_of(s.val));
    value_scale_modify_caption(L"key", L"no such").execute(s.val, t.entity());
    EXPECT_EQ((text_list{L"b", L"Z"}), value_captions_of(s.val));
    text_map ready{{L"z", L"ready"}};
    value_scale_modify_caption().execute(s.val, ready);
    EXPECT_EQ((text_list{L"b", L"ready"}), value_captions_of(s.val));
    value_scale_update_caption::text(s.val);
    EXPECT_EQ((text_list{L" b ", L"z"}), value_captions_of(s.val));
}

TEST(value_styles, colors_one_style_and_inversion)
{
    scales s;
    value_scale_make_colors::execute(s.val, c_palette_red, false);
    vx_val_scale_set_size(s.val, 5);
    auto const prms = value_prms(s.val);
    number_by_color(prms);
    for (unsigned const i : {1U, 3U, 4U})
        vx_val_scale_set_marked(s.val, i, true);
    value_scale_invert::execute(s.val, true, false);
    EXPECT_EQ((std::vector{0, 4, 2, 3, 1, 5}), numbers_by_color(prms));
    value_scale_invert::execute(s.val, false, false);
    EXPECT_EQ((std::vector{1, 3, 2, 4, 0, 5}), numbers_by_color(prms));

    Tvx_color wanted[5];
    vx_clr_arrays_generate(c_palette_green, 3, wanted);
    value_scale_make_colors::execute(s.val, c_palette_green, true, false, false);
    EXPECT_EQ(wanted[1], color_of(prms[3]));
    EXPECT_EQ(1, color_of(prms[0]).r);
    vx_clr_arrays_generate_ex(c_palette_green, 5, wanted, true);
    value_scale_make_colors::execute(s.val, c_palette_green, true);
    for (std::size_t i = 0; i < 5; ++i)
        EXPECT_EQ(wanted[i], color_of(prms[i]));
    EXPECT_EQ(5, color_of(prms[5]).r) << "the other entry";

    vx::owned<void, &vx_pnt_style_destroy> const style(vx_pnt_style_create());
    vx_pnt_style_assign(style.get(),
                        vx_stl_prm_get_pnt_style_ptr(vx_scale_prm_get_stl_prm_ptr(prms[2]), false));
    value_scale_assign_style::execute_pnt(s.val, style.get());
    value_scale_assign_style::execute_pln(s.val, style.get());
    for (void *const prm : prms)
        EXPECT_EQ(wanted[2], color_of(prm));
}
} // namespace
