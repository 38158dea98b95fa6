#include "data/vector/memory_driver.h"
#include "data/vector/transacted_feature.h"
#include "data/vector/vector_datasource.h"
#include "extension/binding/dict_visitor.h"
#include "extension/binding/histogram_visitor.h"

#include "platform/base/owned.h"
#include "platform/basic/vx_stat.h"

#include <gtest/gtest.h>

using namespace vx::data;

namespace {
/// How a driver hands out its features.
enum class manner
{
    once,
    twice,    ///< the second is the one that counts
    never,    ///< says yes and brings nothing
    as_null,  ///< brings a null handle
    half_null ///< brings a table without an object
};

struct counted_feature final : vx::feature_impl
{
    int detached = 0;
    double value = 0;
    void detach() override { ++detached; }
    double get_numeric(int, bool *not_null) override
    {
        *not_null = true;
        return value;
    }
};

struct odd_source : memory_driver::source
{
    manner way = manner::once;
    std::vector<std::unique_ptr<counted_feature>> given;
    std::size_t left = 3;

    bool reset_reading() override
    {
        left = 3;
        return true;
    }
    bool with_next_feature(vx::feature_visitor visitor) override
    {
        if (left == 0)
            return false;
        --left;
        if (way == manner::as_null)
            visitor.visit({});
        if (way == manner::half_null)
            visitor.visit(t_vx_feature_interface{vx::feature_impl::family_table(), nullptr});
        for (int i = 0; i < (way == manner::once ? 1 : way == manner::twice ? 2 : 0); ++i) {
            given.push_back(std::make_unique<counted_feature>());
            given.back()->value = static_cast<double>(given.size());
            visitor.visit(static_cast<vx::feature>(*given.back()));
        }
        return true;
    }
};

/// A source that has no more than its handle: every slot has its default.
struct bare_source final
    : vx::polymorphic<vx::data_source_impl, vx::vector_source_impl, vx::feature_forward_request_impl,
                      vx::feature_random_request_impl, vx::stat_source_impl>
{
};
} // namespace

TEST(odd_drivers, features_that_come_otherwise)
{
    struct
    {
        manner way;
        std::vector<double> values;
    } const cases[] = {{manner::once, {1, 2, 3}},
                       {manner::twice, {2, 4, 6}},
                       {manner::never, {}},
                       {manner::as_null, {}},
                       {manner::half_null, {}}};
    for (auto const &c : cases) {
        SCOPED_TRACE(static_cast<int>(c.way));
        odd_source s;
        s.way = c.way;
        {
            vector_datasource d;
            ASSERT_TRUE(d.from_handle(s.handle()));
            std::vector<double> values;
            EXPECT_TRUE(d.field_values(0, values));
            EXPECT_EQ(values, c.values);
            EXPECT_EQ(d.field_quantity(0), c.values.size());
            vector_feature f;
            EXPECT_FALSE(d.fetch_feature(1, f)) << "there is no random access";
        }
        for (auto const &feature : s.given)
            EXPECT_EQ(feature->detached, 1);
    }
}

TEST(odd_drivers, slots_that_are_not_answered)
{
    bare_source s;
    vector_datasource d;
    ASSERT_TRUE(d.from_handle(static_cast<vx::data_source_impl &>(s)));
    Tvx_box_d2 box{1, 2, 3, 4};
    EXPECT_FALSE(d.extent(box, force_compute));
    EXPECT_EQ(box, (Tvx_box_d2{1, 2, 3, 4}));
    EXPECT_EQ(d.field_count(), 0u);
    EXPECT_EQ(d.field_name(0), L"");
    EXPECT_EQ(d.field_index(L"x"), c_no_field);
    EXPECT_EQ(d.field_unique_name(L"x"), L"x");
    EXPECT_EQ(d.field_maximum(0), 0);
    EXPECT_EQ(d.field_stdev(0), 0);
    EXPECT_EQ(d.field_distinct(0), 0u);
    std::set<double> values{7};
    EXPECT_TRUE(d.field_unique_values(0, c_no_limit, values));
    EXPECT_TRUE(values.empty()) << "the walk found nothing";
    field_dict dict;
    EXPECT_FALSE(d.field_dict(0, dict));
    vx::owned<Tvx_stat_data, &vx_stat_destroy> const stat(vx_stat_create());
    EXPECT_FALSE(d.field_histogram(0, stat.get()));
    EXPECT_FALSE(d.set_index_filter(0, 1) || d.moveto_feature(0) || d.reset_reading() ||
                 d.start_transaction() || d.reorder_fields({}));
    transacted_feature f;
    EXPECT_FALSE(d.fetch_next_feature(f) || d.fetch_feature(0, f) || d.create_feature(0, f));
    EXPECT_FALSE(f.valid() || f.write_null(0) || f.set_empty());
    EXPECT_EQ(f.geom_type(), geom_type::none);
}

TEST(odd_drivers, half_null_handles)
{
    bare_source s;
    t_vx_data_source_interface const whole = static_cast<vx::data_source_impl &>(s);
    for (t_vx_data_source_interface const h :
         {t_vx_data_source_interface{whole.table, nullptr}, t_vx_data_source_interface{nullptr, whole.self},
          t_vx_data_source_interface{}}) {
        generic_datasource d;
        vector_datasource v;
        EXPECT_FALSE(d.from_handle(h) || v.from_handle(h) || v.from_generic(d));
        EXPECT_FALSE(d.is_open() || d.field_has_statistics(0));
        EXPECT_EQ(d.field_minimum(0), 0);
        EXPECT_EQ(d.error_message(), L"");
        std::vector<std::wstring> values{L"kept"};
        EXPECT_FALSE(d.field_values(0, values));
        d.close();
    }
}
