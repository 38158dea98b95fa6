#include "server_table.h"

#include "gdal_errors.h"
#include "id_draw.h"
#include "long_work.h"
#include "sql_answer.h"
#include "sql_names.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <climits>
#include <cmath>
#include <cstdint>

namespace vx::gdal {
namespace {
std::string literal(double value)
{
    if (std::isnan(value))
        return "CAST('NaN' AS DOUBLE PRECISION)";
    if (std::isinf(value))
        return value < 0 ? "CAST('-Infinity' AS DOUBLE PRECISION)" : "CAST('Infinity' AS DOUBLE PRECISION)";
    std::array<char, 32> text;
    return "CAST('" +
           std::string(text.data(), std::to_chars(text.data(), text.data() + text.size(), value).ptr) +
           "' AS DOUBLE PRECISION)";
}

std::string number_of(OGRFieldDefn const &field)
{
    return "CAST(" + quoted_name(field.GetNameRef()) + " AS DOUBLE PRECISION)";
}

/// What tells different cells apart. This type has fifteen digits of a real number, and text compares where
/// the server compares nothing.
std::string key_of(OGRFieldDefn const &field)
{
    if (field.GetType() == OFTReal)
        return "CAST(" + number_of(field) + " AS NUMERIC)";
    std::string const name = quoted_name(field.GetNameRef());
    return field.GetSubType() == OFSTJSON ? "CAST(" + name + " AS TEXT)" : name;
}

std::string limited(long long limit)
{
    return limit < 0 ? std::string() : " LIMIT " + std::to_string(limit);
}

std::string within(std::string const &number, double low, double high)
{
    return " AND " + number + " >= " + literal(low) + " AND " + number + " <= " + literal(high);
}

void append_numbers(server_table::rows const &rows, std::vector<double> &values)
{
    for (auto const &row : rows)
        values.push_back(row->GetFieldAsDouble(0));
}
} // namespace

server_table::server_table(GDALDataset &set, OGRLayer &layer)
    : f_set(set), f_name(table_name(layer, true)),
      f_fid(*layer.GetFIDColumn() ? quoted_name(layer.GetFIDColumn()) : std::string())
{
    // A point in the name may be one of the table's own.
    std::string const name = text_literal(layer.GetName());
    auto const found =
        ask_row("(SELECT quote_ident(n.nspname) || '.' || quote_ident(c.relname) AS whole_name, "
                "c.relkind IN ('r', 'm', 'p') AS is_plain FROM pg_class c JOIN pg_namespace n ON n.oid = "
                "c.relnamespace WHERE c.relkind IN ('r', 'm', 'p', 'v', 'f') AND ((c.relname = " +
                name + " AND pg_table_is_visible(c.oid)) OR n.nspname || '.' || c.relname = " + name +
                ") ORDER BY pg_table_is_visible(c.oid) DESC LIMIT 1)");
    if (!found)
        return;
    f_name = found->GetFieldAsString(0);
    f_is_plain = found->GetFieldAsInteger(1) != 0;
}

std::optional<server_table::rows> server_table::ask(std::string const &statement) const
{
    std::optional<rows> all;
    server_savepoint point(f_set, f_is_in_transaction);
    if (!point.is_good())
        return {};
    attend(
        [&](std::atomic<bool> const &) {
            sql_answer answer(f_set, statement);
            if (!answer)
                return;
            all.emplace();
            while (OGRFeatureUniquePtr row = answer.next())
                all->push_back(std::move(row));
        },
        [&] { f_set.AbortSQL(); });
    if (all)
        point.keep();
    return all;
}

OGRFeatureUniquePtr server_table::ask_row(std::string const &statement) const
{
    auto all = ask(statement);
    return all && !all->empty() ? std::move(all->front()) : nullptr;
}

bool server_table::is_condition(std::string const &text)
{
    // Some of these statements go a way on which the server takes several at once.
    return text.find(';') == std::string::npos && text.find("--") == std::string::npos &&
           text.find("/*") == std::string::npos;
}

bool server_table::takes(std::string const &condition) const
{
    return ask("EXPLAIN SELECT 1 FROM " + f_name + " WHERE (" + condition + ")").has_value();
}

std::string server_table::where(std::string const &more) const
{
    return " WHERE " + (f_condition.empty() ? more : "(" + f_condition + ") AND " + more);
}

std::string server_table::rows_with(OGRFieldDefn const &field) const
{
    std::string const name = quoted_name(field.GetNameRef());
    std::string text = " FROM " + f_name + where(name + " IS NOT NULL");
    if (field.GetType() == OFTReal)
        text += " AND " + name + " <> 'NaN'";
    return text;
}

// A statement in brackets is sent once, as it is; for any other question with rows GDAL opens two cursors.

std::optional<long long> server_table::count() const
{
    auto const row =
        ask_row("(SELECT COUNT(*) FROM " + f_name + (f_condition.empty() ? "" : where("TRUE")) + ")");
    return row ? std::optional(static_cast<long long>(row->GetFieldAsInteger64(0))) : std::nullopt;
}

std::optional<field_stat> server_table::statistics(OGRFieldDefn const &field) const
{
    auto const row = ask_row("(SELECT COUNT(x), MIN(x), MAX(x), SUM(x), AVG(x), VAR_SAMP(x) FROM (SELECT " +
                             number_of(field) + " AS x" + rows_with(field) + ") AS numbers)");
    if (!row)
        return {};
    field_stat stat;
    stat.count = row->GetFieldAsInteger64(0);
    if (stat.count == 0)
        return stat;
    stat.minimum = row->GetFieldAsDouble(1);
    stat.maximum = row->GetFieldAsDouble(2);
    stat.sum = row->GetFieldAsDouble(3);
    stat.mean = row->GetFieldAsDouble(4);
    if (stat.count > 1)
        stat.squares = row->GetFieldAsDouble(5) * static_cast<double>(stat.count - 1);
    return stat;
}

std::optional<long long> server_table::count_values(OGRFieldDefn const &field) const
{
    auto const row = ask_row("(SELECT COUNT(*)" + rows_with(field) + ")");
    return row ? std::optional(static_cast<long long>(row->GetFieldAsInteger64(0))) : std::nullopt;
}

std::optional<long long> server_table::count_distinct(OGRFieldDefn const &field) const
{
    auto const row = ask_row("(SELECT COUNT(DISTINCT " + key_of(field) + ")" + rows_with(field) + ")");
    return row ? std::optional(static_cast<long long>(row->GetFieldAsInteger64(0))) : std::nullopt;
}

std::optional<server_table::rows> server_table::distinct(OGRFieldDefn const &field, long long limit) const
{
    return ask("(SELECT DISTINCT " + key_of(field) + rows_with(field) + limited(limit) + ")");
}

std::optional<server_table::rows> server_table::distinct_numbers(OGRFieldDefn const &field,
                                                                 long long limit) const
{
    return ask("(SELECT DISTINCT " + number_of(field) + rows_with(field) + limited(limit) + ")");
}

std::optional<std::vector<long long>> server_table::histogram(OGRFieldDefn const &field, double low,
                                                              double high, int count) const
{
    double const width = (high - low) / count;
    std::string const place = width > 0 ? "LEAST(FLOOR((x - " + literal(low) + ") / " + literal(width) +
                                              "), " + std::to_string(count - 1) + ")"
                                        : "0";
    auto const classes =
        ask("(SELECT " + place + " AS place, COUNT(*) AS hits FROM (SELECT " + number_of(field) + " AS x" +
            rows_with(field) + within(number_of(field), low, high) + ") AS numbers GROUP BY 1)");
    if (!classes)
        return {};
    std::vector<long long> counts(static_cast<std::size_t>(count));
    for (auto const &row : *classes) {
        auto const at = static_cast<std::size_t>(std::clamp(row->GetFieldAsInteger(0), 0, count - 1));
        counts[at] = row->GetFieldAsInteger64(1);
    }
    return counts;
}

bool server_table::draw(std::string const &number, std::string const &wanted, std::size_t count,
                        std::vector<double> &values) const
{
    auto const ends =
        ask_row("(SELECT MIN(" + f_fid + ") AS first, MAX(" + f_fid + ") AS last FROM " + f_name + ")");
    if (!ends)
        return false;
    long long const first = ends->GetFieldAsInteger64(0);
    long long const last = ends->GetFieldAsInteger64(1);
    return draw_by_ids(first, last, count, values, [&](std::string const &ids, std::vector<double> &found) {
        auto const hit = ask("(SELECT " + number + " FROM unnest(CAST('{" + ids +
                             "}' AS bigint[])) AS drawn_by_chance(drawn_number) JOIN " + f_name + " ON " +
                             f_fid + " = drawn_number" + wanted + ")");
        if (hit)
            append_numbers(*hit, found);
        return hit.has_value();
    });
}

std::optional<std::vector<double>> server_table::sample(OGRFieldDefn const &field, std::size_t count,
                                                        double low, double high) const
{
    std::string const name = quoted_name(field.GetNameRef());
    std::string const number = number_of(field);
    std::string wanted = where(name + " IS NOT NULL");
    if (field.GetType() == OFTReal)
        wanted += " AND " + name + " <> 'NaN'";
    wanted += within(number, low, high);
    std::vector<double> values;
    if (!f_fid.empty() && count <= c_most_draws && !draw(number, wanted, count, values))
        return {};
    // The chance of each row is the same in all that was drawn, so that part of it is as good.
    if (values.size() >= count / 2 && !values.empty())
        return values;
    auto const chosen = ask("(SELECT " + number + " FROM " + f_name + wanted + " ORDER BY random()" +
                            limited(static_cast<long long>(std::min<std::size_t>(count, LLONG_MAX))) + ")");
    if (!chosen)
        return {};
    values.clear();
    append_numbers(*chosen, values);
    return values;
}

std::optional<server_table::rows> server_table::first_rows(OGRFieldDefn const &key,
                                                           std::vector<OGRFieldDefn const *> const &fields,
                                                           long long limit) const
{
    // GDAL tells columns apart by their names.
    std::string cells = quoted_name(key.GetNameRef()) + " AS cell0";
    for (std::size_t i = 0; i < fields.size(); ++i)
        cells += ", " + quoted_name(fields[i]->GetNameRef()) + " AS cell" + std::to_string(i + 1);
    if (f_fid.empty())
        return ask("(SELECT DISTINCT ON (" + key_of(key) + ") " + cells + rows_with(key) + limited(limit) +
                   ")");
    return ask("(SELECT " + cells + " FROM " + f_name + " JOIN (SELECT MIN(" + f_fid +
               ") AS first_of_its_kind" + rows_with(key) + " GROUP BY " + key_of(key) +
               " ORDER BY first_of_its_kind" + limited(limit) + ") AS kinds ON " + f_fid +
               " = first_of_its_kind ORDER BY first_of_its_kind)");
}

bool server_table::read(std::string const &statement,
                        std::function<bool(OGRFeature const &row)> const &take) const
{
    server_savepoint point(f_set, f_is_in_transaction);
    if (!point.is_good())
        return false;
    bool is_good = false;
    std::wstring reason; // GDAL tells a failure on the way by its errors alone
    {
        error_guard const guard(reason);
        attend(
            [&](std::atomic<bool> const &given_up) {
                sql_answer answer(f_set, statement);
                is_good = static_cast<bool>(answer);
                while (OGRFeatureUniquePtr const row = answer.next())
                    if (!take(*row) || given_up)
                        break;
                is_good = is_good && !given_up;
            },
            [&] { f_set.AbortSQL(); });
    }
    if (is_good && reason.empty())
        point.keep();
    return is_good && reason.empty();
}

bool server_table::numbers(OGRFieldDefn const &field,
                           std::function<bool(OGRFeature const &row)> const &take) const
{
    return read("SELECT " + number_of(field) + rows_with(field), take);
}

bool server_table::cells(OGRFieldDefn const &field,
                         std::function<bool(OGRFeature const &row)> const &take) const
{
    std::string const name = quoted_name(field.GetNameRef());
    return read("SELECT " + name + " FROM " + f_name + where(name + " IS NOT NULL"), take);
}

std::string server_table::shapes(std::string const &geom_field, std::string const &condition) const
{
    std::string const name = quoted_name(geom_field);
    if (condition.empty())
        return "SELECT " + name + " FROM " + f_name;
    return "SELECT place_in_order, " + name + " FROM (SELECT row_number() OVER () - 1 AS place_in_order, " +
           name + " FROM " + f_name + ") AS in_order WHERE " + condition;
}

bool server_table::column(OGRFieldDefn const &field,
                          std::function<bool(OGRFeature const &row)> const &take) const
{
    // Read from an index the cells would come in its order.
    sql_answer const begin(f_set, "SET enable_indexonlyscan = off");
    bool const is_good = read("SELECT " + quoted_name(field.GetNameRef()) + " FROM " + f_name, take);
    sql_answer const end(f_set, "RESET enable_indexonlyscan");
    return is_good;
}

server_savepoint::server_savepoint(GDALDataset &set, bool is_needed) : f_set(set), f_is_needed(is_needed)
{
    if (!f_is_needed)
        return;
    CPLErrorReset();
    sql_answer const made(f_set, "SAVEPOINT vx_statement");
    f_is_good = CPLGetLastErrorType() < CE_Failure;
}

server_savepoint::~server_savepoint()
{
    if (!f_is_needed || !f_is_good)
        return;
    if (!f_keeps)
        sql_answer const back(f_set, "ROLLBACK TO SAVEPOINT vx_statement");
    sql_answer const gone(f_set, "RELEASE SAVEPOINT vx_statement");
}
} // namespace vx::gdal
