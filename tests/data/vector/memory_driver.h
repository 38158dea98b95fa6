#pragma once

#include "data/connection/data_types.h"
#include "extension/vxk_extension.h"

#include <charconv>
#include <optional>
#include <string>
#include <variant>
#include <vector>

/// A data set in memory that offers no more than it must: no statistics, no random access, no names of its
/// own.
namespace memory_driver {
using cell = std::optional<std::variant<std::wstring, double>>;

struct field
{
    std::wstring name;
    vx::data::field_type type;
};

class feature_object final : public vx::feature_impl
{
public:
    explicit feature_object(std::vector<cell> &cells, Tvx_vtx_d2 const *place = nullptr)
        : f_cells(cells), f_place(place)
    {
    }

    int geom_type() override { return f_place ? static_cast<int>(vx::data::geom_type::point) : 0; }
    bool get_point(Tvx_vtx_d2 *vertex) override
    {
        if (f_place)
            *vertex = *f_place;
        return f_place != nullptr;
    }

    int field_type(int i) override
    {
        auto const *c = at(i);
        return !c || !*c ? 0
                         : static_cast<int>(c->value().index() == 0 ? vx::data::field_type::string
                                                                    : vx::data::field_type::numeric);
    }
    void get_string(int i, bool *not_null, vx::string_visitor visitor) override
    {
        auto const *c = at(i);
        *not_null = c && *c;
        if (!*not_null)
            return;
        if (auto const *text = std::get_if<std::wstring>(&**c))
            visitor.visit(text->c_str());
        else
            visitor.visit(number_text(std::get<double>(**c)).c_str());
    }
    double get_numeric(int i, bool *not_null) override
    {
        auto const *c = at(i);
        auto const *number = c && *c ? std::get_if<double>(&**c) : nullptr;
        *not_null = number != nullptr;
        return number ? *number : 0;
    }
    bool set_numeric(int i, double value) override
    {
        auto *c = at(i);
        if (c)
            *c = value;
        return c != nullptr;
    }
    bool set_undef(int i) override
    {
        auto *c = at(i);
        if (c)
            c->reset();
        return c != nullptr;
    }

private:
    static std::wstring number_text(double number)
    {
        char buffer[40];
        return {buffer,
                std::to_chars(buffer, buffer + sizeof buffer, number, std::chars_format::general, 15).ptr};
    }
    cell *at(int i)
    {
        return i >= 0 && static_cast<std::size_t>(i) < f_cells.size() ? &f_cells[static_cast<std::size_t>(i)]
                                                                      : nullptr;
    }

    std::vector<cell> &f_cells;
    Tvx_vtx_d2 const *f_place;
};

class source
    : public vx::polymorphic<vx::data_source_impl, vx::vector_source_impl, vx::feature_forward_request_impl>
{
public:
    std::vector<field> fields;
    std::vector<std::vector<cell>> rows;
    std::vector<Tvx_vtx_d2> places; ///< of the rows; may be empty
    std::wstring fid_name;

    int walks = 0;    ///< times that reading began anew
    int detached = 0; ///< times that the source was given back
    std::wstring filter;
    int transactions[3] = {0, 0, 0}; ///< started, committed, rolled back

    virtual ~source() = default;
    t_vx_data_source_interface handle() { return static_cast<vx::data_source_impl &>(*this); }

    // data_source
    void detach() override { ++detached; }
    int field_count() override { return static_cast<int>(fields.size()); }
    void field_name(int i, vx::string_visitor visitor) override
    {
        visitor.visit(fields[static_cast<std::size_t>(i)].name.c_str());
    }
    int field_type(int i) override { return static_cast<int>(fields[static_cast<std::size_t>(i)].type); }

    int vector_count() override { return 1; }

    // vector_source
    unsigned long long feature_count(bool) override { return rows.size(); }
    void fid_field_name(vx::string_visitor visitor) override { visitor.visit(fid_name.c_str()); }
    bool transaction_start() override { return ++transactions[0] > 0; }
    bool commits = true; ///< or refuses
    bool transaction_commit() override { return ++transactions[1] > 0 && commits; }
    bool transaction_rollback() override { return ++transactions[2] > 0; }

    // feature_forward_request
    bool set_attribute_filter(wchar_t const *text) override
    {
        filter = text;
        return true;
    }
    bool reset_reading() override
    {
        ++walks;
        f_next = 0;
        return true;
    }
    bool with_next_feature(vx::feature_visitor visitor) override
    {
        if (f_next >= rows.size())
            return false;
        f_current.emplace(rows[f_next], f_next < places.size() ? &places[f_next] : nullptr);
        ++f_next;
        visitor.visit(*f_current);
        return true;
    }

private:
    std::size_t f_next = 0;
    std::optional<feature_object> f_current;
};
} // namespace memory_driver
