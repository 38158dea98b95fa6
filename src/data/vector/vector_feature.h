#pragma once

#include "data/connection/data_types.h"
#include "data/vector/any.h"
#include "extension/binding/feature.h"
#include "extension/binding/feature_visitor.h"

#include "platform/base/export.h"
#include "platform/base/geometry.h"
#include "platform/base/vertex_list.h"

#include <cstdint>
#include <string>

struct Ivx_string_adp;

namespace vx::data {
/// One feature of a vector source: its geometry and its cells. Field indices start at 0.
///
/// A read tells by `not_null` whether the cell holds a value; a null cell reads as 0 or an empty text. A null
/// handle gives the neutral value everywhere.
class VX_API vector_feature
{
public:
    vector_feature() = default;
    vector_feature(vector_feature const &) = delete;
    vector_feature &operator=(vector_feature const &) = delete;
    /// Detaches an owned handle.
    ~vector_feature();

    /// A foreign handle, which stays its owner's.
    void from_handle(t_vx_feature_interface handle);
    /// A handle that is this object's from now on.
    void init(vx::feature handle);
    [[nodiscard]] bool valid() const { return static_cast<bool>(f_handle); }
    [[nodiscard]] t_vx_feature_interface handle() const { return f_handle.handle(); }

    [[nodiscard]] long long fid() const { return f_handle.fid(); }
    [[nodiscard]] vx::data::geom_type geom_type() const;
    [[nodiscard]] std::wstring projection() const;
    bool extent(Tvx_box_d2 &box) const;
    [[nodiscard]] vx::data::field_type field_type(std::uint64_t field) const;
    [[nodiscard]] int field_subtype(std::uint64_t field) const;
    /// The feature's own style into a style object of the engine; false when it has none.
    bool fetch_style(void *style) const;

    // ---- geometry

    bool fetch_point2d(Tvx_vtx_d2 &vertex) const;
    bool fetch_point3d(Tvx_vtx_d3 &vertex) const;
    /// The list becomes one part of one vertex.
    bool fetch_point2d(Tvx_op2d *list) const;
    bool fetch_point3d(Tvx_ovtx_d3 *list) const;
    bool fetch_multipoint2d(Tvx_op2d *list) const;
    bool fetch_multipoint3d(Tvx_ovtx_d3 *list) const;
    bool fetch_polypoint2d(Tvx_op2d *list) const;
    bool fetch_polypoint3d(Tvx_ovtx_d3 *list) const;
    /// By the feature's geometry type, with the list's vector type set to fit. Another type clears the list.
    bool fetch_geom2d(Tvx_op2d *list) const;
    bool fetch_geom3d(Tvx_ovtx_d3 *list) const;

    // ---- cells

    [[nodiscard]] std::wstring read_string(std::uint64_t field, bool &not_null) const;
    void read_string(std::uint64_t field, bool &not_null, Ivx_string_adp *target) const;
    [[nodiscard]] std::int32_t read_integer(std::uint64_t field, bool &not_null) const;
    [[nodiscard]] std::int64_t read_bigint(std::uint64_t field, bool &not_null) const;
    [[nodiscard]] double read_numeric(std::uint64_t field, bool &not_null) const;
    /// In the type of the field; null for a null cell.
    [[nodiscard]] any read_any(std::uint64_t field) const;
    bool write_string(std::uint64_t field, wchar_t const *text);
    bool write_string(std::uint64_t field, std::wstring const &text);
    bool write_integer(std::uint64_t field, std::int32_t value);
    bool write_bigint(std::uint64_t field, std::int64_t value);
    bool write_numeric(std::uint64_t field, double value);
    bool write_null(std::uint64_t field);
    /// The empty text or 0, by the type of the field; null for a field of no known type.
    bool write_default(std::uint64_t field);
    bool write_any(std::uint64_t field, any const &value);

protected:
    vx::feature f_handle;
    bool f_owned = false;

private:
    void release();
};

/// Hands the visited feature to a `vector_feature`, which owns it from then on.
class VX_API vector_feature_visitor final : public vx::feature_visitor_impl
{
public:
    explicit vector_feature_visitor(vector_feature &target) : f_target(target) {}
    void visit(vx::feature handle) override { f_target.init(handle); }

private:
    vector_feature &f_target;
};
} // namespace vx::data
