#include "scale_engine/value/value_scale_build_cache.h"

#include "data/source/generic_datasource.h"
#include "scale_engine/value/detail/table_values.h"

#include <type_traits>
#include <utility>
#include <vector>

namespace vx::task {
namespace {
template <class Map>
bool read_numbers(detail::table_column &column, std::uint64_t limit, Map &values)
{
    using number = typename Map::key_type;
    auto const visit = [&](unsigned row, number key) {
        auto const [place, is_new] = values.try_emplace(key, key);
        if (is_new && !column.is_own_caption())
            column.read_caption(row, place->second);
        return is_new;
    };
    detail::walk_column<number>(column, limit, visit, [&] { return values.size(); });
    return true;
}

template <class Map>
bool read_texts(detail::table_column &column, std::uint64_t limit, Map &values)
{
    detail::seen_texts seen;
    auto const visit = [&](unsigned row, std::wstring_view key) {
        return seen.add(key, [&] {
            auto const place = values.emplace(key, key).first;
            if (!column.is_own_caption()) {
                std::wstring_view caption;
                column.read_caption(row, caption); // the key's buffer is the caption's now
                place->second = caption;
            }
            return std::wstring_view(place->first);
        });
    };
    detail::walk_column<std::wstring_view>(column, limit, visit, [&] { return values.size(); });
    return true;
}

template <class Map>
bool read_table(Ivx_entity *source, std::wstring const &text_field, std::wstring const &capt_field,
                std::uint64_t limit, Map &values)
{
    values.clear();
    detail::table_column column(source, text_field, &capt_field);
    if (!column)
        return false;
    if constexpr (std::is_arithmetic_v<typename Map::key_type>)
        return read_numbers(column, limit, values);
    else
        return read_texts(column, limit, values);
}

template <class Map>
bool read_source(vx::data::connection const &connection, std::wstring const &text_field,
                 std::wstring const &capt_field, std::uint64_t limit, Map &values)
{
    values.clear();
    vx::data::generic_datasource source;
    if (!source.open(connection, vx::data::access_read))
        return false;
    auto const field = source.field_index(text_field);
    if (field == vx::data::c_no_field)
        return false;
    auto const caption_field = source.field_index(capt_field);
    auto const put = [&](std::wstring const &key, std::wstring const &caption) {
        values.emplace(detail::trimmed(key), detail::trimmed(caption));
    };
    if (caption_field == vx::data::c_no_field) {
        std::set<std::wstring> texts;
        if (!source.field_unique_values(field, detail::source_limit(limit), texts))
            return false;
        for (auto const &text : texts)
            put(text, text);
        return true;
    }
    std::map<std::wstring, std::vector<std::wstring>> rows;
    if (!source.field_unique_values(field, {caption_field}, detail::source_limit(limit), rows))
        return false;
    for (auto const &[text, captions] : rows)
        if (!captions.empty() && !captions.front().empty())
            put(text, captions.front());
    return true;
}
} // namespace

value_scale_build_cache::value_scale_build_cache(std::wstring text_field, std::wstring capt_field,
                                                 std::uint64_t limit)
    : f_text_field(std::move(text_field)), f_capt_field(std::move(capt_field)), f_limit(limit)
{
}

bool value_scale_build_cache::execute(Ivx_entity *source, std::map<std::wstring, std::wstring> &values) const
{
    return read_table(source, f_text_field, f_capt_field, f_limit, values);
}

bool value_scale_build_cache::execute(Ivx_entity *source, std::map<int, int> &values) const
{
    return read_table(source, f_text_field, f_capt_field, f_limit, values);
}

bool value_scale_build_cache::execute(Ivx_entity *source, std::map<double, double> &values) const
{
    return read_table(source, f_text_field, f_capt_field, f_limit, values);
}

bool value_scale_build_cache::execute(Ivx_entity *source,
                                      std::unordered_map<std::wstring, std::wstring> &values) const
{
    return read_table(source, f_text_field, f_capt_field, f_limit, values);
}

bool value_scale_build_cache::execute(Ivx_entity *source, std::unordered_map<int, int> &values) const
{
    return read_table(source, f_text_field, f_capt_field, f_limit, values);
}

bool value_scale_build_cache::execute(Ivx_entity *source, std::unordered_map<double, double> &values) const
{
    return read_table(source, f_text_field, f_capt_field, f_limit, values);
}

bool value_scale_build_cache::execute(vx::data::connection const &source,
                                      std::map<std::wstring, std::wstring> &values) const
{
    return read_source(source, f_text_field, f_capt_field, f_limit, values);
}

bool value_scale_build_cache::execute(vx::data::connection const &source,
                                      std::unordered_map<std::wstring, std::wstring> &values) const
{
    return read_source(source, f_text_field, f_capt_field, f_limit, values);
}
} // namespace vx::task
