#pragma once

#include "field_stat.h"

#include <ogrsf_frmts.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace vx::gdal {
/// A table or view of a database server, which answers questions about it itself: each is one statement, and
/// no more rows come than the answer has. What is NaN counts as null. Without an answer the server refused,
/// the connection is lost or the one who waits gave it up; the reason goes to the innermost `error_guard`.
class server_table
{
public:
    using rows = std::vector<OGRFeatureUniquePtr>;

    server_table(GDALDataset &set, OGRLayer &layer);

    /// The questions after it are about the rows that meet the condition; empty: all.
    void set_condition(std::string condition) { f_condition = std::move(condition); }
    /// A question that fails would else end the transaction.
    void set_in_transaction(bool is_in) { f_is_in_transaction = is_in; }
    /// A condition in the server's language that may stand within a statement: it ends no statement.
    [[nodiscard]] static bool is_condition(std::string const &text);
    /// The server knows what the condition means. No row is read for it.
    [[nodiscard]] bool takes(std::string const &condition) const;
    /// With its schema, as it stands in statements.
    [[nodiscard]] std::string const &name() const { return f_name; }

    [[nodiscard]] std::optional<long long> count() const;
    /// Of a number field.
    [[nodiscard]] std::optional<field_stat> statistics(OGRFieldDefn const &field) const;
    [[nodiscard]] std::optional<long long> count_values(OGRFieldDefn const &field) const;
    /// Numbers that agree in fifteen digits are one, as their texts are.
    [[nodiscard]] std::optional<long long> count_distinct(OGRFieldDefn const &field) const;
    /// Rows of one cell. A negative limit is none.
    [[nodiscard]] std::optional<rows> distinct(OGRFieldDefn const &field, long long limit) const;
    /// Real numbers as they are, however near each other.
    [[nodiscard]] std::optional<rows> distinct_numbers(OGRFieldDefn const &field, long long limit) const;
    /// How many numbers of the field lie in each of `count` equal classes from `low` to `high`.
    [[nodiscard]] std::optional<std::vector<long long>> histogram(OGRFieldDefn const &field, double low,
                                                                  double high, int count) const;
    /// About `count` numbers of the field from `low` to `high`, drawn by chance: by identifiers where the
    /// table has them, so that the server reads little more than the rows that are drawn.
    [[nodiscard]] std::optional<std::vector<double>> sample(OGRFieldDefn const &field, std::size_t count,
                                                            double low, double high) const;
    /// For each of at most `limit` different values of the key the row that comes first: the key's cell and
    /// those of the fields.
    [[nodiscard]] std::optional<rows> first_rows(OGRFieldDefn const &key,
                                                 std::vector<OGRFieldDefn const *> const &fields,
                                                 long long limit) const;
    /// All numbers of a field, in rows of one cell, as they come; false from `take` ends it.
    [[nodiscard]] bool numbers(OGRFieldDefn const &field,
                               std::function<bool(OGRFeature const &row)> const &take) const;
    /// All cells of a field that hold something, as they come; false from `take` ends it.
    [[nodiscard]] bool cells(OGRFieldDefn const &field,
                             std::function<bool(OGRFeature const &row)> const &take) const;
    /// The statement that gives the geometries of the whole table in the order in which features are read;
    /// with a condition those that meet it, each behind its place in that order.
    [[nodiscard]] std::string shapes(std::string const &geom_field, std::string const &condition) const;
    /// All cells of a field in the order in which features are read, in rows of one cell; false from `take`
    /// ends it. Not offered by a view, which may give its rows in another order to another question.
    [[nodiscard]] bool has_columns() const { return f_is_plain; }
    [[nodiscard]] bool column(OGRFieldDefn const &field,
                              std::function<bool(OGRFeature const &row)> const &take) const;

private:
    [[nodiscard]] std::optional<rows> ask(std::string const &statement) const;
    /// Reads the rows of a statement part by part. False when not all were read, unless `take` wants no more.
    [[nodiscard]] bool read(std::string const &statement,
                            std::function<bool(OGRFeature const &row)> const &take) const;
    /// Of a statement that gives one row.
    [[nodiscard]] OGRFeatureUniquePtr ask_row(std::string const &statement) const;
    /// " FROM table WHERE condition", without rows where the field has no value.
    [[nodiscard]] std::string rows_with(OGRFieldDefn const &field) const;
    [[nodiscard]] std::string where(std::string const &more) const;
    /// False without an answer. Draws on until there are `count`, unless hardly any identifier hits.
    bool draw(std::string const &number, std::string const &wanted, std::size_t count,
              std::vector<double> &values) const;

    GDALDataset &f_set;
    std::string f_name;
    std::string f_fid; ///< quoted; empty: none
    std::string f_condition;
    bool f_is_plain = false;
    bool f_is_in_transaction = false;
};

/// A mark in the transaction of a server to which it goes back when a statement fails: else the server would
/// refuse all others of the transaction, and take back what was stored before.
class server_savepoint
{
public:
    /// Does nothing when it is not needed.
    server_savepoint(GDALDataset &set, bool is_needed);
    ~server_savepoint();
    server_savepoint(server_savepoint const &) = delete;
    server_savepoint &operator=(server_savepoint const &) = delete;
    /// The transaction can still be stored.
    [[nodiscard]] bool is_good() const { return f_is_good; }
    /// What was done since stays.
    void keep() { f_keeps = true; }

private:
    GDALDataset &f_set;
    bool f_is_needed;
    bool f_is_good = true;
    bool f_keeps = false;
};
} // namespace vx::gdal
