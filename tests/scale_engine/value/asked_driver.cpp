#include "data/source/generic_datasource.h"
#include "data/vector/memory_driver.h"
#include "extension/binding/feature_random_request.h"
#include "scale_engine/scale_fixture.h"
#include "scale_engine/vxk_task.h"

#include <gtest/gtest.h>

/// What tasks ask of a driver that knows its data: questions that it answers at once, and never a walk.
namespace {
using namespace scale_fixture;
using namespace vx::task;

/// A table of a million objects with the numbers 0 to 99 in turn, of which every other object has one.
class informed_source final
    : public vx::polymorphic<vx::data_source_impl, vx::vector_source_impl, vx::feature_forward_request_impl,
                             vx::feature_random_request_impl, vx::stat_source_impl>
{
public:
    static constexpr unsigned long long c_count = 1'000'000;
    std::string questions; ///< of statistics and values, in their order
    int limit = 0;         ///< of the last question for different values
    int features = 0;      ///< that were fetched
    bool walked = false;

    [[nodiscard]] vx::data::connection connection()
    {
        return {[](wchar_t const *, bool, void *context, t_vx_data_source_interface *result) {
                    *result = static_cast<vx::data_source_impl &>(*static_cast<informed_source *>(context));
                },
                this};
    }

    bool has_capability(int caps) override { return caps == vx::data::c_caps_fast_index; }
    int field_count() override { return 1; }
    void field_name(int, vx::string_visitor visitor) override { visitor.visit(L"x"); }
    int field_type(int) override { return static_cast<int>(vx::data::field_type::numeric); }
    unsigned long long feature_count(bool) override { return c_count; }
    bool reset_reading() override { return walked = true; }
    bool with_next_feature(vx::feature_visitor) override
    {
        walked = true;
        return false;
    }
    bool with_feature(long long index, vx::feature_visitor visitor) override
    {
        ++features;
        f_cells[0] = index % 2 ? memory_driver::cell() : static_cast<double>(index / 2 % 100);
        visitor.visit(f_feature);
        return true;
    }
    bool minimum(int, double *value) override { return answer("minimum ", value, 0.0); }
    bool maximum(int, double *value) override { return answer("maximum ", value, 99.0); }
    bool count_nonnull(int, long long *value) override { return answer("count ", value, 500'000LL); }
    bool with_unique_strings(int, int most, vx::string_visitor visitor) override
    {
        questions += "values ";
        limit = most;
        visitor.visit(L"0");
        visitor.visit(L"1");
        return true;
    }

private:
    std::vector<memory_driver::cell> f_cells = std::vector<memory_driver::cell>(1);
    memory_driver::feature_object f_feature{f_cells}; // whichever was fetched last

    template <class T>
    bool answer(char const *question, T *target, T value)
    {
        questions += question;
        *target = value;
        return true;
    }
};

TEST(asked_driver, answers_span_and_values)
{
    informed_source source;
    scales s;
    EXPECT_TRUE(range_scale_reset(source.connection(), L"x").execute(s.rng, 3));
    EXPECT_EQ("minimum maximum ", source.questions);
    EXPECT_EQ((bounds_list{{0, 33}, {33, 66}, {66, 99}}), bounds_of(s.rng));

    source.questions.clear();
    value_scale_rebuild(L"x", 150).execute(s.val, source.connection());
    EXPECT_EQ("values ", source.questions);
    EXPECT_EQ(150, source.limit);
    EXPECT_EQ((text_list{L"0", L"1"}), texts_of(s.val));
    value_scale_rebuild(L"x", vx::data::c_no_limit).execute(s.val, source.connection());
    EXPECT_EQ(-1, source.limit);
    EXPECT_FALSE(source.walked);
    EXPECT_EQ(0, source.features);
}

TEST(asked_driver, gives_a_sample_without_a_walk)
{
    informed_source source;
    std::vector<double> values;
    ASSERT_TRUE(
        range_scale_classify_natural_breaks(L"x", 5, 0, 99, 0).load_values(source.connection(), values));
    EXPECT_FALSE(source.walked);
    EXPECT_EQ(6000, source.features) << "twice as many as wanted, since every other object has no value";
    // 6000 draws of which half meet a value, with a deviation of 38.7; 5 of them are one run in a million.
    EXPECT_NEAR(3000, static_cast<double>(values.size()), 5 * 38.7);
    EXPECT_EQ(source.questions.find_first_not_of("count "), std::string::npos);
}
} // namespace
