#pragma once

#include "extension/binding/column_visitor.h"
#include "extension/binding/feature_visitor.h"
#include "extension/binding/string_visitor.h"

#include "platform/data/detail/attr_column.h"

#include <string>
#include <vector>

namespace vx::attr {
/// A column for a field of that type; without cells for a type that is not offered.
[[nodiscard]] column empty_column(int type, std::size_t records);
/// To be called when all cells are there.
void finish(column &cells);

/// Receives features one by one and keeps the cells of some fields; each is ended as soon as it was looked
/// at.
class feature_cells final : public vx::feature_visitor_impl
{
public:
    explicit feature_cells(std::size_t records) : f_records(records) {}
    void add_field(int field, int type)
    {
        f_fields.push_back(field);
        f_cells.push_back(empty_column(type, f_records));
    }
    void visit(vx::feature item) override;
    /// In the order in which the fields were added.
    std::vector<column> f_cells;
    std::size_t f_size = 0;

private:
    class text_receiver final : public vx::string_visitor_impl
    {
    public:
        void visit(wchar_t const *text) override { f_text = text ? text : L""; }
        std::wstring f_text;
    };

    void append(std::monostate &, vx::feature const &, int) {}
    void append(text_cells &cells, vx::feature const &item, int field);
    template <class T>
    void append(number_cells<T> &cells, vx::feature const &item, int field);

    std::size_t f_records;
    std::vector<int> f_fields;
    text_receiver f_receiver;
};

/// Receives the runs of a column of one kind; another kind, and what is past the records, is refused.
class column_cells final : public vx::column_visitor_impl
{
public:
    column_cells(int type, std::size_t records) : f_cells(empty_column(type, records)), f_left(records) {}
    column f_cells;
    bool f_is_good = true;
    /// Records whose cells have not come yet.
    [[nodiscard]] std::size_t left() const { return f_left; }

    bool visit_integers(unsigned long long count, int const *values, unsigned char const *defined) override
    {
        return take<number_cells<std::int32_t>>(count, values, defined);
    }
    bool visit_bigints(unsigned long long count, long long const *values,
                       unsigned char const *defined) override
    {
        return take<number_cells<std::int64_t>>(count, values, defined);
    }
    bool visit_floatings(unsigned long long count, double const *values,
                         unsigned char const *defined) override
    {
        return take<number_cells<double>>(count, values, defined);
    }
    bool visit_texts(unsigned long long count, char const *bytes, int const *starts,
                     unsigned char const *defined) override;

private:
    template <class Wanted, class T>
    bool take(unsigned long long count, T const *values, unsigned char const *defined);
    template <class Append>
    bool for_each(unsigned long long count, unsigned char const *defined, Append append);

    std::size_t f_left;
};
} // namespace vx::attr
