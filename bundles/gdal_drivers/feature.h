#pragma once

#include "extension/binding/feature.h"

#include <ogr_feature.h>

#include <memory>
#include <set>

namespace vx::gdal {
class gdal_feature;

/// Where changed features go.
class feature_store
{
public:
    /// Stores the feature as it is now under its identifier.
    [[nodiscard]] virtual bool store(OGRFeature &feature) = 0;
    [[nodiscard]] virtual bool can_store() const = 0;
    /// One feature was ended by its keeper.
    virtual void ended(gdal_feature *feature) = 0;

protected:
    virtual ~feature_store() = default;
};

/// One feature outside. It is a copy of the record: it stays readable when the source reads on and after the
/// source is closed. A change is kept in the copy and stored when the feature ends, when the source reads,
/// flushes or commits, whichever comes first.
class gdal_feature final : public feature_impl
{
public:
    gdal_feature(feature_store *store, OGRFeatureUniquePtr record, int geom_field, bool is_new)
        : f_store(store), f_record(std::move(record)), f_field_count(f_record->GetFieldCount()),
          f_geom_field(geom_field), f_is_new(is_new)
    {
    }
    ~gdal_feature() = default;

    /// True when there was nothing to store or it went well.
    bool flush();
    /// Forgets that there is something to store.
    void drop_changes() { f_changed = false; }
    /// The source goes; the feature lives on for reading.
    void leave_store() { f_store = nullptr; }
    /// The fields of the table are about to change: the feature becomes a copy with the fields as they were.
    void leave_table();
    void set_store(feature_store *store) { f_store = store; }
    /// From now on changes are stored under the identifier that the record has.
    void set_stored() { f_is_new = f_changed = false; }
    [[nodiscard]] OGRFeature &record() { return *f_record; }

    void detach() override;
    long long fid() override;
    int geom_type() override;
    void with_proj4(vx::string_visitor visitor) override;
    bool with_extent(Tvx_box_d2 *box) override;
    bool with_extent_z(Tvx_box_d3 *box) override;
    bool get_point(Tvx_vtx_d2 *vertex) override;
    bool get_point_z(Tvx_vtx_d3 *vertex) override;
    bool get_multipoint(Tvx_op2d *list) override;
    bool get_multipoint_z(Tvx_ovtx_d3 *list) override;
    bool get_polypoint(Tvx_op2d *list) override;
    bool get_polypoint_z(Tvx_ovtx_d3 *list) override;
    bool set_empty() override;
    bool set_point(Tvx_vtx_d2 *vertex) override;
    bool set_point_z(Tvx_vtx_d3 *vertex) override;
    bool set_multipoint(Tvx_op2d *list) override;
    bool set_multipoint_z(Tvx_ovtx_d3 *list) override;
    bool set_polyline(Tvx_op2d *list) override;
    bool set_polyline_z(Tvx_ovtx_d3 *list) override;
    bool set_polygon(Tvx_op2d *list) override;
    bool set_polygon_z(Tvx_ovtx_d3 *list) override;
    int field_type(int field) override;
    int field_subtype(int field) override;
    void get_string(int field, bool *not_null, vx::string_visitor visitor) override;
    int get_integer(int field, bool *not_null) override;
    long long get_bigint(int field, bool *not_null) override;
    double get_numeric(int field, bool *not_null) override;
    void get_binary(int field, bool *not_null, vx::bytes_visitor visitor) override;
    bool set_string(int field, wchar_t const *text) override;
    bool set_integer(int field, int value) override;
    bool set_bigint(int field, long long value) override;
    bool set_numeric(int field, double value) override;
    bool set_binary(int field, int size, char *bytes) override;
    bool set_undef(int field) override;

private:
    [[nodiscard]] OGRGeometry const *geometry() const;
    [[nodiscard]] bool set_geometry(std::unique_ptr<OGRGeometry> geometry);
    [[nodiscard]] bool can_change(int field);
    [[nodiscard]] bool has_value(int field, bool *not_null) const;

    feature_store *f_store; ///< null when the source is gone
    OGRFeatureUniquePtr f_record;
    int f_field_count;
    int f_geom_field;
    bool f_is_new; ///< not stored yet: the source stores it when the maker is done
    bool f_changed = false;
};

/// A real number as text: fifteen digits at most and no zeros at the end, whatever width the table keeps its
/// numbers in.
[[nodiscard]] std::string number_text(double value);
/// The text of a cell in UTF-8: dates and times in the form of ISO 8601, numbers with a decimal point.
[[nodiscard]] std::string cell_bytes(OGRFeature const &record, int field);
} // namespace vx::gdal
