#include "scale_engine/value/value_scale_build_text_cache.h"

#include "data/source/generic_datasource.h"
#include "scale_engine/value/detail/kept_texts.h"
#include "scale_engine/value/detail/table_values.h"

#include <type_traits>
#include <utility>

namespace vx::task {
namespace {
void read_texts(detail::table_column &column, std::uint64_t limit, std::set<std::wstring> &values)
{
    detail::kept_texts kept;
    detail::walk_column<std::wstring_view>(
        column, limit, [&](unsigned, std::wstring_view text) { return kept.add(text); },
        [&] { return kept.size(); });
    kept.move_to(values);
}

void read_texts(detail::table_column &column, std::uint64_t limit, std::unordered_set<std::wstring> &values)
{
    detail::seen_texts seen;
    auto const visit = [&](unsigned, std::wstring_view text) {
        return seen.add(text, [&] { return std::wstring_view(*values.emplace(text).first); });
    };
    detail::walk_column<std::wstring_view>(column, limit, visit, [&] { return values.size(); });
}

template <class Set>
bool read_table(Ivx_entity *source, std::wstring const &field, std::uint64_t limit, Set &values)
{
    using value_type = typename Set::value_type;
    values.clear();
    detail::table_column column(source, field, nullptr);
    if (!column)
        return false;
    if constexpr (std::is_arithmetic_v<value_type>)
        detail::walk_column<value_type>(
            column, limit, [&](unsigned, value_type value) { return values.insert(value).second; },
            [&] { return values.size(); });
    else
        read_texts(column, limit, values);
    return true;
}
} // namespace

value_scale_build_text_cache::value_scale_build_text_cache(std::wstring field, std::uint64_t limit)
    : f_field(std::move(field)), f_limit(limit)
{
}

bool value_scale_build_text_cache::execute(Ivx_entity *source, std::set<std::wstring> &values) const
{
    return read_table(source, f_field, f_limit, values);
}

bool value_scale_build_text_cache::execute(Ivx_entity *source, std::set<int> &values) const
{
    return read_table(source, f_field, f_limit, values);
}

bool value_scale_build_text_cache::execute(Ivx_entity *source, std::set<double> &values) const
{
    return read_table(source, f_field, f_limit, values);
}

bool value_scale_build_text_cache::execute(Ivx_entity *source, std::unordered_set<std::wstring> &values) const
{
    return read_table(source, f_field, f_limit, values);
}

bool value_scale_build_text_cache::execute(Ivx_entity *source, std::unordered_set<int> &values) const
{
    return read_table(source, f_field, f_limit, values);
}

bool value_scale_build_text_cache::execute(Ivx_entity *source, std::unordered_set<double> &values) const
{
    return read_table(source, f_field, f_limit, values);
}

bool value_scale_build_text_cache::execute(vx::data::connection const &source,
                                           std::set<std::wstring> &values) const
{
    values.clear();
    vx::data::generic_datasource set;
    if (!set.open(source, vx::data::access_read))
        return false;
    auto const field = set.field_index(f_field);
    return field != vx::data::c_no_field &&
           set.field_unique_values(field, detail::source_limit(f_limit), values);
}
} // namespace vx::task
