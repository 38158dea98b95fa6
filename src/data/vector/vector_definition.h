#pragma once

#include "data/connection/data_types.h"
#include "extension/binding/vector_definition.h"

#include "platform/base/export.h"

#include <cstdint>
#include <string>
#include <vector>

namespace vx::data {
/// The fields of a vector source that is to be made or changed. A driver reads it through the component
/// interface.
///
/// Field indices start at 0; a getter with an index past the end gives 0, false or an empty text, and a
/// setter does nothing.
class VX_API vector_definition final : public vx::vector_definition_impl
{
public:
    struct field_meta
    {
        std::wstring name;
        vx::data::field_type type = vx::data::field_type::none;
        std::int32_t width = 0;
        std::int32_t precision = 0;
        bool nullable = false;
        std::wstring default_value;
    };
    struct geom_field_meta
    {
        std::wstring name;
        std::wstring proj4;
        vx::data::geom_type type = vx::data::geom_type::none;
    };

    // ---- what a driver asks
    int field_count() override;
    void field_name(int field, vx::string_visitor visitor) override;
    int field_type(int field) override;
    int field_subtype(int field) override;
    int field_width(int field) override;
    int field_precision(int field) override;
    bool field_nullable(int field) override;
    void field_default(int field, vx::string_visitor visitor) override;
    int geom_field_count() override;
    void geom_field_name(int field, vx::string_visitor visitor) override;
    int geom_field_type(int field) override;
    void geom_field_proj4(int field, vx::string_visitor visitor) override;
    void with_fid_field(vx::string_visitor visitor) override;
    void with_proj4(vx::string_visitor visitor) override;

    // ---- what its maker does
    void append(std::wstring const &name, vx::data::field_type type, std::int32_t width,
                std::int32_t precision, bool nullable, std::wstring const &default_value);
    /// The same at the front.
    void prepend(std::wstring const &name, vx::data::field_type type, std::int32_t width,
                 std::int32_t precision, bool nullable, std::wstring const &default_value);
    void append_geom(geom_field_meta const &field) { f_geom_fields.push_back(field); }
    void set_fid_field(std::wstring const &name) { f_fid_field = name; }
    void set_proj4(std::wstring const &proj4) { f_proj4 = proj4; }

    [[nodiscard]] std::size_t count() const { return f_fields.size(); }
    /// The first field of exactly that name, with its case; -1 when there is none.
    [[nodiscard]] int find(std::wstring const &name) const;
    [[nodiscard]] std::wstring name(std::size_t i) const;
    void set_name(std::size_t i, std::wstring const &name);
    [[nodiscard]] vx::data::field_type type(std::size_t i) const;
    void set_type(std::size_t i, vx::data::field_type type);
    [[nodiscard]] std::int32_t width(std::size_t i) const;
    void set_width(std::size_t i, std::int32_t width);
    [[nodiscard]] std::int32_t precision(std::size_t i) const;
    void set_precision(std::size_t i, std::int32_t precision);
    [[nodiscard]] bool nullable(std::size_t i) const;
    void set_nullable(std::size_t i, bool nullable);
    [[nodiscard]] std::wstring defaultv(std::size_t i) const;
    void set_defaultv(std::size_t i, std::wstring const &value);

private:
    [[nodiscard]] field_meta const &field_at(std::size_t i) const;
    [[nodiscard]] geom_field_meta const &geom_field_at(int i) const;

    std::vector<field_meta> f_fields;
    std::vector<geom_field_meta> f_geom_fields;
    std::wstring f_fid_field;
    std::wstring f_proj4;
};
} // namespace vx::data
