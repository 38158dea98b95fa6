#include "support/memory_source.h"

#include "platform/base/owned.h"
#include "platform/base/string_adp.h"
#include "platform/base/text_codec.h"
#include "platform/calculator/vx_calc_filter.h"
#include "platform/data/vx_attr_data.h"
#include "platform/render/vx_scale_rows.h"
#include "platform/styles/vxk_styles.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <map>
#include <random>
#include <string>
#include <vector>

/// A value scale of all values of a field and the rule scale made from it put every object in the same row:
/// the first entry with its text, and an object without a value in the other row.
namespace {
using namespace vx_test;
using attr_data = vx::owned<Ivx_attr_data, &vx_attr_data_release>;
using attr_files = vx::owned<Ivx_attr_files, &vx_attr_files_close>;
using owned_mngr = vx::owned<void, &vx_stl_mngr_destroy>;
using owned_filter = vx::owned<void, &vx_calc_filter_destroy>;
using list = std::vector<unsigned>;

void add_entry(void *mngr, std::wstring const &field, std::wstring const &text)
{
    void *values = vx_stl_mngr_get_val_scale_ptr(mngr);
    void *rules = vx_stl_mngr_get_rule_scale_ptr(mngr);
    vx_val_scale_set_text_w(values, vx_val_scale_add(values) - 1, text.c_str());
    owned_filter const filter(vx_calc_filter_create());
    vx_calc_filter_add(filter.get(), 1, field.c_str(), c_calc_filter_rel_equal, text.c_str(),
                       c_calc_filter_logic_empty, 1);
    std::wstring rule;
    vx_calc_filter_to_str(filter.get(), Tvx_std_wstring_adapter(rule));
    vx_val_scale_set_text_w(rules, vx_val_scale_add(rules) - 1, rule.c_str());
}

list counts(void *mngr, Ivx_attr_data *data, unsigned mode)
{
    vx_stl_mngr_set_mode(mngr, mode);
    list rows(vx_scale_rows_get_count(mngr));
    EXPECT_TRUE(vx_scale_rows_count_objects(mngr, data, rows.data(), static_cast<unsigned>(rows.size())));
    return rows;
}

/// `blank` adds an entry of the empty text, which nothing without a value may fall in.
void compare(Ivx_attr_data *data, unsigned field, bool blank)
{
    attr_files const files(vx_attr_files_open(data, 1, 0));
    ASSERT_TRUE(files);
    std::wstring const name = vx_attr_files_get_field_name_w(files.get(), field);
    SCOPED_TRACE(vx::text::wide_to_utf8(name));
    owned_mngr const mngr(vx_stl_mngr_create(c_pnt_style));
    vx_stl_mngr_set_val_prop_name_w(mngr.get(), name.c_str());
    if (blank)
        add_entry(mngr.get(), name, L"");
    std::map<std::wstring, unsigned> known; // by text: place in `expected`
    list expected(blank ? 1 : 0);
    unsigned without = 0;
    for (unsigned i = 0; i < vx_attr_files_get_no(files.get()); ++i) {
        bool has = false;
        std::wstring const text = vx_attr_files_get_wstr(files.get(), field, i, &has);
        if (!has) {
            ++without;
            continue;
        }
        auto const [at, is_new] = known.emplace(text, static_cast<unsigned>(expected.size()));
        if (is_new) {
            add_entry(mngr.get(), name, text);
            expected.push_back(0);
        }
        ++expected[at->second];
    }
    expected.push_back(without);
    EXPECT_EQ(counts(mngr.get(), data, c_stl_mngr_mode_value), expected);
    EXPECT_EQ(counts(mngr.get(), data, c_stl_mngr_mode_rule), expected);
}

TEST(scale_equivalence, every_field_of_every_example_file)
{
    for (char const *file : {"nc.shp", "world.shp", "streets.shp", "naturalearth_cities.shp"}) {
        SCOPED_TRACE(file);
        attr_data const data(vx_attr_data_create(vx::text::utf8_to_wide(VX_EXAMPLE_DATA "/")
                                                     .append(file, file + std::string(file).size())
                                                     .c_str()));
        attr_files const files(vx_attr_files_open(data.get(), 1, 0));
        ASSERT_TRUE(files);
        ASSERT_GT(vx_attr_files_get_np(files.get()), 0u);
        for (unsigned field = 0; field < vx_attr_files_get_np(files.get()); ++field)
            for (bool const blank : {false, true})
                compare(data.get(), field, blank);
    }
}

TEST(scale_equivalence, numbers_at_the_ends_of_their_types)
{
    memory_table table;
    memory_driver const driver(L"numbers:", table);
    table.fields = {{L"REAL", 2}, {L"BIG", 4}, {L"WHOLE", 3}, {L"TEXT", 1}};
    using real = std::numeric_limits<double>;
    using big = std::numeric_limits<long long>;
    std::vector<double> reals = {0.1,
                                 1.0 / 3,
                                 2.0 / 3,
                                 0.3,
                                 1e22,
                                 1e23,
                                 real::max(),
                                 real::min(),
                                 -real::max(),
                                 real::infinity(),
                                 123456789.123456789,
                                 1e-300};
    std::vector<long long> bigs = {0, -1, big::max(), big::max() - 1, big::min(), big::min() + 1};
    for (long long const step : {0, 1, 2, 3})
        for (long long const sign : {1, -1})
            bigs.push_back(sign * ((1LL << 53) + step));
    std::mt19937_64 random(11);
    for (int i = 0; i < 400; ++i) {
        reals.push_back(std::ldexp(static_cast<double>(random()), static_cast<int>(random() % 600) - 300));
        // A neighbour that tables show alike, mostly.
        reals.push_back(std::nextafter(reals.back(), 0));
        bigs.push_back(static_cast<long long>(random()));
        bigs.push_back(bigs.back() ^ 1);
    }
    wchar_t const *const texts[] = {L"7", L"007", L"7.0", L"x", L"\xA0x", L"nan", L"inf"};
    for (std::size_t i = 0; i < reals.size(); ++i) {
        memory_feature f;
        f.geom_type = 1;
        f.parts = {{{0, 0}}};
        f.cells = {cell(reals[i]), cell(bigs[i % bigs.size()]), cell(static_cast<int>(random())),
                   cell(std::wstring(texts[i % std::size(texts)]))};
        if (i % 17 == 0)
            f.cells[i / 17 % 4] = cell();
        table.features.push_back(f);
    }
    attr_data const data(vx_attr_data_create(L"numbers:"));
    for (unsigned field = 0; field < table.fields.size(); ++field)
        for (bool const blank : {false, true})
            compare(data.get(), field, blank);
}

TEST(scale_equivalence, whole_numbers_are_in_order_to_the_last_digit)
{
    memory_table table;
    memory_driver const driver(L"numbers:", table);
    table.fields = {{L"BIG", 4}};
    constexpr long long c_first = (1LL << 53) - 1;
    for (int i = 0; i < 4; ++i)
        table.features.push_back({{cell(c_first + i)}, 1, {{{0, 0}}}});
    attr_data const data(vx_attr_data_create(L"numbers:"));
    owned_mngr const mngr(vx_stl_mngr_create(c_pnt_style));
    void *rules = vx_stl_mngr_get_rule_scale_ptr(mngr.get());
    for (auto const *rule :
         {L"BIG LESS 9007199254740992", L"BIG LESS EQUAL 9007199254740992", L"BIG GREATER 9007199254740993"})
        vx_val_scale_set_text_w(rules, vx_val_scale_add(rules) - 1, rule);
    EXPECT_EQ(counts(mngr.get(), data.get(), c_stl_mngr_mode_rule), (list{1, 1, 1, 1}));
}
} // namespace
