#include "scale_engine/real_files.h"
#include "scale_engine/scale_fixture.h"
#include "scale_engine/vxk_task.h"

#include "platform/data/vx_attr_data.h"
#include "platform/render/vx_scale_rows.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace {
using namespace scale_fixture;
using namespace vx::task;
using vx::data::connection;
using owned_filter = vx::owned<void, &vx_calc_filter_destroy>;
using owned_data = vx::owned<Ivx_attr_data, &vx_attr_data_release>;

/// The row of the scale in force that draws each object; the other entry is the last row.
std::vector<unsigned> rows_of(void *mngr, Ivx_attr_data *data, unsigned mode)
{
    vx_stl_mngr_set_mode(mngr, mode);
    vx::owned<Ivx_scale_rows, &vx_scale_rows_close> const scale(vx_scale_rows_open(mngr, data));
    vx::owned<Ivx_attr_files, &vx_attr_files_close> const table(vx_attr_files_open(data, 1, 0));
    std::vector<unsigned> rows(vx_attr_files_get_no(table.get()));
    for (unsigned record = 0; record < rows.size(); ++record)
        rows[record] = vx_scale_rows_find(scale.get(), record);
    return rows;
}

TEST(rules, are_appended_and_edited)
{
    scales s;
    owned_filter const filter(vx_calc_filter_create());
    vx_calc_filter_add(filter.get(), 1, L"A", c_calc_filter_rel_less, L"5", c_calc_filter_logic_empty, 1);
    EXPECT_EQ(0, rule_scale_append_rule::execute(filter.get(), s.rule));
    EXPECT_EQ(1, rule_scale_append_rule::execute(filter.get(), s.rule));
    EXPECT_EQ((text_list{L"A < 5", L"A < 5"}), value_captions_of(s.rule));
    vx_val_scale_set_caption_w(s.rule, 1, L"last");
    vx_val_scale_set_active_idx(s.rule, 0);
    EXPECT_EQ(1, rule_scale_append_rule::execute(filter.get(), s.rule));
    EXPECT_EQ((text_list{L"A < 5", L"A < 5", L"last"}), value_captions_of(s.rule));
    vx_val_scale_set_active_idx(s.rule, 2);
    EXPECT_EQ(3, rule_scale_append_rule::execute(filter.get(), s.rule));

    vx_calc_filter_clear(filter.get());
    vx_val_scale_set_text_w(s.rule, 0, L"");
    rule_scale_edit_rule::init(filter.get(), s.rule, 0);
    EXPECT_EQ(0U, vx_calc_filter_get_size(filter.get()));
    rule_scale_edit_rule::init(filter.get(), s.rule, 1);
    EXPECT_EQ(1U, vx_calc_filter_get_size(filter.get()));
    vx_val_scale_set_text_w(s.rule, 2, L"");
    rule_scale_edit_rule::execute(filter.get(), s.rule, 2);
    EXPECT_EQ(texts_of(s.rule)[1], texts_of(s.rule)[2]);
    EXPECT_EQ(L"last", value_captions_of(s.rule)[2]);
}

TEST(rules, select_what_the_scale_draws)
{
    vx_test::temp_dir const dir;
    auto const world = real_files::shapefile(dir, "world");
    auto const county = real_files::shapefile(dir, "nc");
    for (auto const &file : {world, county, real_files::geopackage(dir, world)}) {
        owned_data const data(vx_attr_data_create(file.c_str()));
        vx::data::generic_datasource source;
        ASSERT_TRUE(source.open(file, vx::data::access_read));
        for (vx::data::field_index_type i = 0; i < source.field_count(); ++i) {
            scales s;
            auto const field = source.field_name(i);
            value_scale_default const values(connection(file), field, c_palette_rainbow);
            values.init_scale(s.mngr.get());
            values.make_default_scale(s.mngr.get(), 150); // not all where there are more
            ASSERT_TRUE(rule_scale_build_values::build(s.mngr.get()));
            auto const drawn = rows_of(s.mngr.get(), data.get(), c_stl_mngr_mode_value);
            EXPECT_LT(*std::min_element(drawn.begin(), drawn.end()), vx_val_scale_get_size(s.val));
            EXPECT_EQ(drawn, rows_of(s.mngr.get(), data.get(), c_stl_mngr_mode_rule))
                << std::string(file.begin(), file.end()) << ' ' << std::string(field.begin(), field.end());

            if (!vx::data::fieldtype_isnumber(source.field_type(i)))
                continue;
            vx_stl_mngr_set_rng_prop_name_w(s.mngr.get(), field.c_str());
            double const low = source.field_minimum(i);
            double const high = source.field_maximum(i);
            for (int const digits : {-30, -2, 1}) {
                // Bounds inside the span, so that the end entries draw something too.
                double const margin = (high - low) / 8;
                range_scale_classify_equal_ranges(6, low + margin, high - margin, digits).execute(s.rng);
                ASSERT_TRUE(rule_scale_build_ranges::build(s.mngr.get()));
                EXPECT_EQ(rows_of(s.mngr.get(), data.get(), c_stl_mngr_mode_range),
                          rows_of(s.mngr.get(), data.get(), c_stl_mngr_mode_rule))
                    << std::string(field.begin(), field.end()) << ' ' << digits;
            }
        }
    }
}
} // namespace
