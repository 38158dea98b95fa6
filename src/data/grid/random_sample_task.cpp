#include "data/grid/random_sample_task.h"

#include "extension/binding/floatings_visitor.h"
#include "extension/binding/question_source.h"

#include <algorithm>
#include <cmath>
#include <exception>
#include <random>

namespace vx::data {
namespace {
class numbers_receiver final : public vx::floatings_visitor_impl
{
public:
    explicit numbers_receiver(std::vector<double> &numbers) : f_numbers(numbers) {}
    void visit(unsigned long long count, double *values) override
    {
        f_numbers.insert(f_numbers.end(), values, values + count);
    }

private:
    std::vector<double> &f_numbers;
};

/// Below this a source that has no quick access to single features is read as a whole.
constexpr std::uint64_t c_read_whole_below = 1001;

/// A few draws more than wanted make up for cells without a value.
std::vector<std::uint64_t> twice_as_many(std::uint64_t wanted, std::uint64_t count)
{
    std::vector<std::uint64_t> indices;
    if (count > 0)
        indices = make_random_indicies(2 * wanted, 0, count - 1);
    std::sort(indices.begin(), indices.end());
    return indices;
}
} // namespace

std::vector<std::uint64_t> make_random_indicies(std::uint64_t count, std::uint64_t low, std::uint64_t high)
{
    std::vector<std::uint64_t> indices;
    if (low > high)
        return indices;
    std::random_device device;
    std::mt19937 generator(device());
    std::uniform_int_distribution<std::uint64_t> uniform(low, high);
    indices.reserve(count);
    for (std::uint64_t i = 0; i < count; ++i)
        indices.push_back(uniform(generator));
    return indices;
}

std::vector<double> random_sample_task::execute(generic_datasource &source, std::wstring const &field) const
{
    vector_datasource features;
    if (features.from_generic(source))
        return execute(features, field);
    grid_datasource grid;
    return grid.from_generic(source) ? execute(grid, field) : std::vector<double>();
}

std::vector<double> random_sample_task::execute(vector_datasource &source, std::wstring const &name) const
{
    field_index_type const field = source.field_index(name);
    if (std::vector<double> sample; field != c_no_field && draw_by_source(source, field, sample))
        return sample;
    std::uint64_t const total = field == c_no_field ? 0 : source.feature_count(force_none);
    if (total == 0)
        return {};
    bool const is_known = total != c_no_limit;
    if (is_known && source.has_capability(c_caps_fast_index))
        return draw_by_index(source, field, total);
    return is_known && total < c_read_whole_below ? draw_from_all(source, field)
                                                  : draw_in_order(source, field);
}

bool random_sample_task::draw_by_source(vector_datasource const &source, field_index_type field,
                                        std::vector<double> &sample) const
{
    vx::question_source const questions(
        vx_question_source_interface_specialize(vx_data_source_interface_generalize(source.handle())));
    numbers_receiver receiver(sample);
    if (!questions.with_sample(static_cast<int>(field), f_size, f_minval, f_maxval, receiver))
        return false;
    std::erase_if(sample, [&](double value) { return !is_taken(value); });
    return true;
}

std::vector<double> random_sample_task::draw_by_index(vector_datasource &source, field_index_type field,
                                                      std::uint64_t total) const
{
    std::uint64_t const quantity = source.field_quantity(field);
    if (quantity == 0)
        return {};
    vector_feature feature;
    std::vector<double> values;
    auto const take = [&](std::uint64_t index) {
        bool not_null = false;
        if (!source.fetch_feature(static_cast<long long>(index), feature))
            return;
        double const value = feature.read_numeric(field, not_null);
        if (not_null && is_taken(value))
            values.push_back(value);
    };
    std::uint64_t const wanted = std::min(f_size, total);
    // More draws the more features are without a value.
    double const draws =
        std::floor(static_cast<double>(total) / static_cast<double>(quantity) * static_cast<double>(wanted));
    if (draws <= static_cast<double>(total)) {
        auto indices = make_random_indicies(static_cast<std::uint64_t>(draws), 0, total - 1);
        std::sort(indices.begin(), indices.end());
        std::for_each(indices.begin(), indices.end(), take);
        return values;
    }
    // Hardly any feature has a value: the same chances come cheaper by reading each feature once and drawing
    // how many of so many draws would have met one that is taken.
    for (std::uint64_t i = 0; i < total; ++i)
        take(i);
    if (values.empty())
        return {};
    std::random_device device;
    std::mt19937 generator(device());
    std::binomial_distribution<long long> hits(
        static_cast<long long>(std::min(draws, 1e18)),
        std::min(1.0, static_cast<double>(values.size()) / static_cast<double>(total)));
    auto const count = std::min(static_cast<std::uint64_t>(hits(generator)), 2 * wanted);
    auto indices = make_random_indicies(count, 0, values.size() - 1);
    std::sort(indices.begin(), indices.end());
    std::vector<double> sample;
    for (std::uint64_t const index : indices)
        sample.push_back(values[index]);
    return sample;
}

std::vector<double> random_sample_task::draw_from_all(vector_datasource &source, field_index_type field) const
{
    std::vector<double> values;
    source.field_values(field, values);
    std::erase_if(values, [&](double value) { return !is_taken(value); });
    std::vector<double> sample;
    if (values.empty())
        return sample;
    for (std::uint64_t const index :
         make_random_indicies(std::min<std::uint64_t>(f_size, values.size()), 0, values.size() - 1))
        sample.push_back(values[index]);
    return sample;
}

std::vector<double> random_sample_task::draw_in_order(vector_datasource &source, field_index_type field) const
{
    std::uint64_t const quantity = source.field_quantity(field);
    auto const indices = twice_as_many(std::min(f_size, quantity), quantity);
    std::vector<double> sample;
    vector_feature feature;
    source.reset_reading();
    auto next = indices.begin();
    for (std::uint64_t i = 0; next != indices.end() && source.fetch_next_feature(feature); ++i) {
        if (*next != i)
            continue;
        bool not_null = false;
        double const value = feature.read_numeric(field, not_null);
        if (not_null && is_taken(value))
            sample.push_back(value);
        next = std::upper_bound(next, indices.end(), i);
    }
    return sample;
}

std::vector<double> random_sample_task::execute(grid_datasource &source, std::wstring const &name) const
{
    field_index_type const field = source.field_index(name);
    std::uint64_t const cells = field == c_no_field ? 0 : source.obj_count();
    grid_block block;
    if (cells == 0 || !source.fetch_block(field, block))
        return {};
    no_data_test const test = block.nodata(data_type::float64).test();
    std::vector<double> sample;
    auto const take = [&](double value) { return test.counts(value) && is_taken(value); };
    if (cells <= f_size) {
        try {
            sample.resize(cells);
        } catch (std::exception const &) { // no memory for it
            return {};
        }
        if (!block.read(0, cells, sample.data(), data_type::float64).done())
            return {};
        std::erase_if(sample, [&](double value) { return !take(value); });
        return sample;
    }
    for (std::uint64_t const index : twice_as_many(std::min(f_size, cells), cells)) {
        double value = 0;
        if (!block.read(index, 1, &value, data_type::float64).done())
            break;
        if (take(value))
            sample.push_back(value);
    }
    return sample;
}
} // namespace vx::data
