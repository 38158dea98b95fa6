#include "platform/dialogs/detail/filter_table.h"

#include "platform/base/strutil.h"
#include "platform/dialogs/column_reading.h"
#include "platform/winapi/case_map.h"
#include "platform/winapi/collation.h"

#include <algorithm>
#include <cmath>
#include <unordered_set>

namespace vx::dialogs {
namespace {
bool is_offered(int type)
{
    return type > c_attr_unknown && type < c_attr_binary;
}
bool is_numeric(int type)
{
    return type == c_attr_integer || type == c_attr_numeric || type == c_attr_bigint;
}
} // namespace

filter_table::filter_table(Ivx_entity *data)
    : f_files(vx_attr_files_open(vx_attr_data_safe_downcast(data), 1, 0))
{
    for (unsigned i = 0, count = vx_attr_files_get_np(f_files.get()); i < count; ++i)
        if (int const type = vx_attr_files_get_field_type(f_files.get(), i); is_offered(type))
            f_fields.push_back({vx_attr_files_get_field_name_w(f_files.get(), i), i, is_numeric(type)});
}

filter_table::field const *filter_table::find(std::wstring const &name) const
{
    if (!f_files || name.empty())
        return nullptr;
    int const index = vx_attr_files_get_field_index_w(f_files.get(), name.c_str());
    auto const found = std::ranges::find(f_fields, static_cast<unsigned>(index), &field::index);
    return index < 0 || found == f_fields.end() ? nullptr : &*found;
}

std::vector<std::wstring> filter_table::values(std::wstring const &name, std::wstring const &beginning)
{
    field const *const wanted = find(name);
    if (!wanted)
        return {};
    auto found = f_values.find(wanted->index);
    if (found == f_values.end() && !vx_attr_files_read_column(f_files.get(), wanted->index))
        return {};
    if (found == f_values.end())
        found = f_values.emplace(wanted->index, read(*wanted, nullptr, c_most_values + 1)).first;
    if (found->second.size() <= c_most_values)
        return found->second;
    return read(*wanted, &beginning, c_most_values);
}

std::vector<std::wstring> filter_table::read(field const &field, std::wstring const *beginning,
                                             std::size_t most) const
{
    std::wstring const start = beginning ? vx_lower_w(*beginning) : std::wstring();
    std::unordered_set<std::wstring> values;
    std::vector<bool> seen; // of the texts that the table numbers
    for (unsigned i = 0, count = get_size(); i < count && values.size() < most; ++i) {
        if (int const number = vx_attr_files_get_text_number(f_files.get(), field.index, i); number >= 0) {
            auto const place = static_cast<std::size_t>(number);
            if (place >= seen.size())
                seen.resize(place + place / 2 + 16);
            if (seen[place])
                continue;
            seen[place] = true;
        }
        bool known = false;
        std::wstring text = vx_attr_files_get_wstr(f_files.get(), field.index, i, &known);
        if (known && (start.empty() || vx_lower_w(text).starts_with(start)))
            values.insert(std::move(text));
    }
    std::vector<std::wstring> sorted(values.begin(), values.end());
    std::ranges::sort(sorted, [&](std::wstring const &a, std::wstring const &b) {
        if (field.numeric) {
            double const x = strutil::to_double(a.c_str(), nullptr),
                         y = strutil::to_double(b.c_str(), nullptr);
            if (std::isnan(x) != std::isnan(y))
                return std::isnan(y);
            if (x < y || y < x)
                return x < y;
        }
        int const order = vx_compare_text(a, b);
        return order != 0 ? order < 0 : a < b;
    });
    return sorted;
}

void match_counter::start(void const *filter)
{
    f_prepared.reset(vx_calc_filter_prepare(filter, f_row));
    f_next = f_matches = 0;
}

bool match_counter::step(std::chrono::milliseconds time)
{
    constexpr unsigned c_objects_between_looks = 256;
    auto const end = std::chrono::steady_clock::now() + time;
    for (int const field : f_row.fields())
        if (vx_attr_files_read_on(f_table.get_files(), static_cast<unsigned>(field),
                                  static_cast<int>(time.count())))
            return false;
    unsigned const size = f_prepared ? f_table.get_size() : 0;
    while (f_next < size) {
        f_row.go_to(f_next++);
        f_matches += vx_calc_prepared_matches(f_prepared.get(), f_row);
        if (f_next % c_objects_between_looks == 0 && std::chrono::steady_clock::now() >= end)
            break;
    }
    return f_next >= size;
}
} // namespace vx::dialogs
