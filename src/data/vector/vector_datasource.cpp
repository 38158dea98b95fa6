#include "data/vector/vector_datasource.h"

#include "extension/binding/floatings_visitor.h"
#include "extension/binding/question_source.h"
#include "extension/binding/string_visitors.h"

#include <algorithm>
#include <cmath>

namespace vx::data {
namespace {
/// Hands the visited feature on, and knows whether there was one.
class noticing_visitor final : public vx::feature_visitor_impl
{
public:
    explicit noticing_visitor(vector_feature &target) : f_target(target) {}
    void visit(vx::feature handle) override
    {
        f_target.init(handle);
        f_was_called = static_cast<bool>(handle);
    }
    [[nodiscard]] bool was_called() const { return f_was_called; }

private:
    vector_feature &f_target;
    bool f_was_called = false;
};

/// Walks all features from the first; ends early when `visit` gives false.
template <class Visit>
void walk(vector_datasource &source, Visit visit)
{
    vector_feature feature;
    source.reset_reading();
    while (source.fetch_next_feature(feature))
        if (!visit(feature))
            return;
}

/// Walks the cells of a field that are not null. `read` is one of the reads of `vector_feature`.
template <class Value, class Visit>
void walk_cells(vector_datasource &source, field_index_type field,
                Value (vector_feature::*read)(std::uint64_t, bool &) const, Visit visit)
{
    walk(source, [&](vector_feature const &feature) {
        bool not_null = false;
        Value value = (feature.*read)(field, not_null);
        return !not_null || visit(std::move(value));
    });
}

/// The numbers of a field. What is not a number is passed over like a null cell: it has no place in an order
/// and would spoil every sum.
template <class Visit>
void walk_numbers(vector_datasource &source, field_index_type field, Visit visit)
{
    walk_cells(source, field, &vector_feature::read_numeric,
               [&](double value) { return std::isnan(value) || visit(value); });
}

/// What answers questions about the features instead of a walk; a null handle of most sources.
vx::question_source questions_of(vector_datasource const &source)
{
    return vx::question_source(
        vx_question_source_interface_specialize(vx_data_source_interface_generalize(source.handle())));
}

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

/// Receives rows of texts one by one. The first row of a key counts.
class rows_receiver final : public vx::string_visitor_impl
{
public:
    rows_receiver(std::size_t width, std::map<std::wstring, std::vector<std::wstring>> &rows)
        : f_width(width), f_rows(rows)
    {
    }
    void visit(wchar_t const *text) override
    {
        f_row.emplace_back(text ? text : L"");
        if (f_row.size() < f_width)
            return;
        std::wstring key = std::move(f_row.front());
        f_row.erase(f_row.begin());
        f_rows.emplace(std::move(key), std::move(f_row));
        f_row.clear();
    }

private:
    std::size_t f_width;
    std::map<std::wstring, std::vector<std::wstring>> &f_rows;
    std::vector<std::wstring> f_row;
};

using read_text = std::wstring (vector_feature::*)(std::uint64_t, bool &) const;

/// Puts what is handed to it into the set until the limit is reached, which is looked at behind each value.
template <class Value>
auto insert_up_to(std::uint64_t limit, std::set<Value> &values)
{
    return [limit, &values](Value value) {
        values.insert(std::move(value));
        return values.size() < limit;
    };
}
} // namespace

vector_datasource::~vector_datasource() = default;

bool vector_datasource::take_vector_handles()
{
    t_vx_interface const object = vx_data_source_interface_generalize(f_source);
    f_vector = vx_vector_source_interface_specialize(object);
    f_forward = vx_feature_forward_request_interface_specialize(object);
    f_random = vx_feature_random_request_interface_specialize(object);
    return f_vector && f_forward;
}

bool vector_datasource::open_data(std::wstring const & /*source*/, access_mode /*mode*/)
{
    return take_vector_handles();
}

void vector_datasource::close_data()
{
    f_vector = {};
    f_forward = {};
    f_random = {};
}

bool vector_datasource::from_generic(generic_datasource const &source)
{
    return from_handle(source.handle());
}

bool vector_datasource::from_generic(vx::data_source source)
{
    return from_handle(source.handle());
}

bool vector_datasource::from_handle(t_vx_data_source_interface handle)
{
    return generic_datasource::from_handle(handle) && take_vector_handles();
}

bool vector_datasource::compute_stat_common(field_index_type field, statistic &stat)
{
    double minimum = std::numeric_limits<double>::max();
    double maximum = std::numeric_limits<double>::lowest();
    long double sum = 0; // has room for the sum of any numbers
    std::uint64_t quantity = 0;
    walk_numbers(*this, field, [&](double value) {
        minimum = std::min(minimum, value);
        maximum = std::max(maximum, value);
        sum += value;
        ++quantity;
        return true;
    });
    stat.minimum = quantity ? minimum : 0;
    stat.maximum = quantity ? maximum : 0;
    stat.average = quantity ? static_cast<double>(sum / static_cast<long double>(quantity)) : 0;
    stat.quantity = quantity;
    stat.common_done = true;
    return true;
}

bool vector_datasource::compute_stat_stdev(field_index_type field, statistic &stat)
{
    long double squares = 0;
    walk_numbers(*this, field, [&](double value) {
        long double const away = static_cast<long double>(value) - stat.average;
        squares += away * away;
        return true;
    });
    stat.stdev = stat.quantity >= 2
                     ? static_cast<double>(std::sqrt(squares / static_cast<long double>(stat.quantity - 1)))
                     : 0;
    stat.stdev_done = true;
    return true;
}

bool vector_datasource::compute_stat_distinct(field_index_type field, statistic &stat)
{
    std::set<std::wstring> values;
    stat.distinct_done = fetch_unique_values(field, c_no_limit, values);
    stat.distinct = values.size();
    return stat.distinct_done;
}

bool vector_datasource::fetch_values(field_index_type field, std::vector<std::wstring> &values)
{
    values.clear();
    vx::stdwstring_list_visitor receiver(values);
    if (questions_of(*this).with_texts(interface_index(field), receiver))
        return true;
    values.clear();
    walk_cells(*this, field, static_cast<read_text>(&vector_feature::read_string), [&](std::wstring value) {
        values.push_back(std::move(value));
        return true;
    });
    return true;
}

bool vector_datasource::fetch_values(field_index_type field, std::vector<double> &values)
{
    values.clear();
    numbers_receiver receiver(values);
    if (questions_of(*this).with_numbers(interface_index(field), receiver))
        return true;
    values.clear();
    walk_numbers(*this, field, [&](double value) {
        values.push_back(value);
        return true;
    });
    return true;
}

bool vector_datasource::fetch_unique_values(field_index_type field, std::uint64_t limit,
                                            std::set<std::wstring> &values)
{
    values.clear();
    walk_cells(*this, field, static_cast<read_text>(&vector_feature::read_string),
               insert_up_to(limit, values));
    return true;
}

bool vector_datasource::fetch_unique_values(field_index_type field, std::uint64_t limit,
                                            std::set<double> &values)
{
    values.clear();
    walk_numbers(*this, field, insert_up_to(limit, values));
    return true;
}

bool vector_datasource::fetch_unique_values(field_index_type key, std::vector<field_index_type> const &fields,
                                            std::uint64_t limit,
                                            std::map<std::wstring, std::vector<std::wstring>> &values)
{
    values.clear();
    std::vector<int> others(fields.size());
    std::transform(fields.begin(), fields.end(), others.begin(), interface_index);
    rows_receiver receiver(fields.size() + 1, values);
    if (questions_of(*this).with_first_features(interface_index(key), others.data(),
                                                static_cast<int>(others.size()), limit, receiver))
        return true;
    values.clear();
    walk(*this, [&](vector_feature const &feature) {
        bool not_null = false;
        std::wstring name = feature.read_string(key, not_null);
        if (!not_null || values.contains(name))
            return true;
        std::vector<std::wstring> row;
        row.reserve(fields.size());
        for (auto const field : fields) {
            std::wstring cell = feature.read_string(field, not_null);
            row.push_back(not_null ? std::move(cell) : std::wstring());
        }
        values.emplace(std::move(name), std::move(row));
        return values.size() < limit;
    });
    return true;
}

bool vector_datasource::select_source(std::wstring const &name)
{
    return f_vector.select_vector(name.c_str());
}

bool vector_datasource::create_vector(std::wstring const &name, vector_definition &definition,
                                      vx::data::geom_type type, long long flags)
{
    return f_vector.create_vector(name.c_str(), static_cast<int>(type), flags, definition);
}

bool vector_datasource::create_vector(std::wstring const &name, options const &o,
                                      vector_definition &definition, vx::data::geom_type type,
                                      long long flags)
{
    return create_vector(o.alter_source(name), definition, type, flags);
}

vector_definition vector_datasource::fetch_definition() const
{
    vector_definition out;
    for (field_index_type i = 0; i < field_count(); ++i)
        out.append(field_name(i), field_type(i), field_width(i), field_precision(i), field_nullable(i),
                   field_default(i));
    return out;
}

int vector_datasource::field_width(field_index_type i) const
{
    return f_vector.field_width(interface_index(i));
}

int vector_datasource::field_precision(field_index_type i) const
{
    return f_vector.field_precision(interface_index(i));
}

vx::data::geom_type vector_datasource::geom_type() const
{
    return static_cast<vx::data::geom_type>(f_vector.geom_type());
}

std::wstring vector_datasource::fid_field_name() const
{
    return visited_text([&](auto &v) { f_vector.fid_field_name(v); });
}

std::uint64_t vector_datasource::feature_count(force_type force) const
{
    return f_vector.feature_count(force == force_compute);
}

int vector_datasource::geom_field_count() const
{
    return f_vector.geom_field_count();
}

std::wstring vector_datasource::geom_field_name(int i) const
{
    return visited_text([&](auto &v) { f_vector.geom_field_name(i, v); });
}

vx::data::geom_type vector_datasource::geom_field_type(int i) const
{
    return static_cast<vx::data::geom_type>(f_vector.geom_field_type(i));
}

std::wstring vector_datasource::geom_field_proj(int i) const
{
    return visited_text([&](auto &v) { f_vector.geom_field_proj4(i, v); });
}

bool vector_datasource::create_field(vector_definition &definition)
{
    return f_vector.create_field(definition);
}

bool vector_datasource::alter_field(field_index_type i, vector_definition &definition)
{
    return f_vector.alter_field(interface_index(i), definition);
}

bool vector_datasource::remove_field(field_index_type i)
{
    return f_vector.delete_field(interface_index(i));
}

bool vector_datasource::remove_field(std::wstring const &name)
{
    int index = -1;
    return f_source.field_index(name.c_str(), &index) && index >= 0 && f_vector.delete_field(index);
}

bool vector_datasource::reorder_fields(std::vector<field_index_type> const &order)
{
    // The driver is not told the length of the list, and may read as many entries as it says to have fields.
    int const count = f_source.field_count();
    if (count < 0 || order.size() != static_cast<std::size_t>(count))
        return false;
    std::vector<int> numbers(order.size());
    std::transform(order.begin(), order.end(), numbers.begin(), interface_index);
    return f_vector.reorder_fields(numbers.data());
}

bool vector_datasource::set_spatial_fitler(Tvx_box_d2 const &box)
{
    Tvx_box_d2 copy = box;
    return f_forward.set_spatial_filter(&copy);
}

bool vector_datasource::set_attribute_filter(std::wstring const &filter)
{
    return f_forward.set_attribute_filter(filter.c_str());
}

bool vector_datasource::set_index_filter(long long first, long long last)
{
    std::wstring const fid = fid_field_name();
    if (fid.empty())
        return false;
    return set_attribute_filter(fid + L" >= 0 LIMIT " + std::to_wstring(last - first) + L" OFFSET " +
                                std::to_wstring(first));
}

bool vector_datasource::reset_reading()
{
    return f_forward.reset_reading();
}

bool vector_datasource::moveto_feature(long long i)
{
    return f_random.moveto_index(i);
}

// A driver that says yes and brings nothing would have the former feature counted twice, or for ever.

bool vector_datasource::fetch_next_feature(vector_feature &feature)
{
    noticing_visitor visitor(feature);
    return f_forward.with_next_feature(visitor) && visitor.was_called();
}

bool vector_datasource::fetch_feature(long long fid, vector_feature &feature)
{
    noticing_visitor visitor(feature);
    return f_random.with_feature(fid, visitor) && visitor.was_called();
}

bool vector_datasource::create_feature(long long fid, vector_feature &feature)
{
    vector_feature_visitor visitor(feature);
    return f_vector.create_feature(fid, visitor);
}

bool vector_datasource::delete_feature(long long fid)
{
    return f_vector.delete_feature(fid);
}

bool vector_datasource::start_transaction()
{
    return f_vector.transaction_start();
}

bool vector_datasource::commit_transaction()
{
    return f_vector.transaction_commit();
}

bool vector_datasource::rollback_transaction()
{
    return f_vector.transaction_rollback();
}
} // namespace vx::data
