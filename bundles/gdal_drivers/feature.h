#pragma once

#include "cell_write.h"
#include "extension/binding/feature.h"

#include <ogr_feature.h>

#include <memory>
#include <string>

class OGRLayer;

namespace vx::gdal {
class gdal_feature;

/// Where changed features go.
class feature_store
{
public:
    /// Stores the record in the table: a new one, which gets its identifier, or under the one that it has.
    /// False with the reason as the source's error, and the record is what it was.
    [[nodiscard]] virtual bool store(OGRLayer &table, OGRFeature &record, bool is_new) = 0;
    /// Whether the table takes such a record; false with the reason as the source's error.
    [[nodiscard]] virtual bool can_store(OGRLayer &table, bool is_new) = 0;
    [[nodiscard]] virtual cell_rules const &rules() const = 0;
    /// One feature was ended by its keeper.
    virtual void ended(gdal_feature *feature) = 0;
    /// A feature was ended whose content the format refuses: the source keeps it from now on.
    virtual void left_behind(gdal_feature *feature) = 0;
    virtual void refuse(std::wstring const &reason) = 0;

protected:
    virtual ~feature_store() = default;
};

/// One feature outside. It is a copy of the record: it stays readable when the source reads on and after the
/// source is closed. A change is kept in the copy and stored when the feature ends, when the source reads,
/// flushes or commits, whichever comes first. A new feature is not in the table before it ends or the source
/// flushes or commits; until then its identifier is below zero.
class gdal_feature final : public feature_impl
{
public:
    /// Of a collection the parts of type `only_type` are given, with `geom_unknown` all of its main kind.
    /// `new_fid` is the identifier of a new feature until it is stored; 0 for one that is stored.
    gdal_feature(feature_store *store, OGRLayer *table, OGRFeatureUniquePtr record, int geom_field,
                 int only_type, long long new_fid = 0)
        : f_store(store), f_table(table), f_record(std::move(record)),
          f_field_count(f_record->GetFieldCount()), f_geom_field(geom_field), f_only_type(only_type),
          f_new_fid(new_fid)
    {
    }
    ~gdal_feature() = default;

    /// True when there was nothing to store or it went well. What is refused stays to be stored.
    bool flush();
    [[nodiscard]] bool is_new() const { return f_new_fid < 0; }
    [[nodiscard]] bool is_changed() const { return f_changed; }
    /// The format refused it as it is now.
    [[nodiscard]] bool is_refused() const { return f_is_refused; }
    /// Nobody outside holds it: the format refused it when it ended.
    [[nodiscard]] bool is_left_behind() const { return f_is_left_behind; }
    /// The table counts its features anew.
    void renumber(long long fid) { f_record->SetFID(fid); }
    /// Given to a keeper again.
    void take_up() { f_is_left_behind = false; }
    /// Changes are taken back: the feature is the given record again, and with none it is in no table.
    void revert(OGRFeatureUniquePtr record);
    /// The source goes; the feature lives on for reading.
    void leave_store() { f_store = nullptr; }
    /// The fields of the table are about to change: the feature becomes a copy with the fields as they were.
    void leave_table();
    [[nodiscard]] OGRLayer *table() const { return f_table; }

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
    /// Another geometry would take parts away that are not given here; then with the reason.
    [[nodiscard]] bool refuses_geometry();
    [[nodiscard]] bool can_change();
    [[nodiscard]] bool can_change(int field);
    /// What follows an attempt to put a value into a cell.
    bool has_put(int field, bool is_taken);
    [[nodiscard]] bool has_value(int field, bool *not_null) const;

    feature_store *f_store; ///< null when the source is gone
    OGRLayer *f_table;
    OGRFeatureUniquePtr f_record;
    int f_field_count;
    int f_geom_field;
    int f_only_type;
    long long f_new_fid;
    bool f_changed = false;
    bool f_is_refused = false;
    bool f_is_left_behind = false;
};

/// A real number as text: fifteen digits at most and no zeros at the end, whatever width the table keeps its
/// numbers in.
[[nodiscard]] std::string number_text(double value);
/// The text of a cell in UTF-8: dates and times in the form of ISO 8601, numbers with a decimal point.
[[nodiscard]] std::string cell_bytes(OGRFeature const &record, int field);
} // namespace vx::gdal
