#pragma once

#include "dataset.h"
#include "extension/binding/data_source.h"
#include "extension/binding/grid_source.h"
#include "extension/binding/polymorphic.h"
#include "extension/binding/stat_source.h"
#include "grid_pass.h"
#include "grid_types.h"

#include <functional>
#include <map>
#include <optional>

namespace vx::gdal {
/// A data set with a grid: its bands are the fields. Made by `open_source`, ended by its `detach`; blocks
/// that are still outside keep the file open.
///
/// Statistics that the data set brings along are answered at once, if they can be; all others come from one
/// walk over the cells, which leaves nothing on disk and brings the histogram by the way where its span is
/// known. What is not a number counts as no value.
class grid_set final : public polymorphic<data_source_impl, grid_source_impl, stat_source_impl>
{
public:
    explicit grid_set(std::unique_ptr<dataset> set) : f_set(std::move(set)) {}

    // data_source
    void detach() override;
    int driver_id() override { return f_set->driver_id(); }
    bool has_capability(int) override { return false; }
    bool with_extent(Tvx_box_d2 *box, bool force) override;
    void with_proj4(vx::string_visitor visitor) override;
    int field_count() override { return f_set->gdal().GetRasterCount(); }
    void field_name(int field, vx::string_visitor visitor) override;
    int field_type(int field) override;
    bool field_readonly(int) override { return f_set->read_only(); }
    bool field_index(wchar_t const *name, int *index) override;
    int grid_count() override { return f_set->grid_count(); }
    void grid_source(int index, vx::string_visitor visitor) override { f_set->grid_source(index, visitor); }
    void grid_name(int index, vx::string_visitor visitor) override { f_set->grid_name(index, visitor); }
    void with_name(vx::string_visitor visitor) override { f_set->with_name(visitor); }
    void with_description(vx::string_visitor visitor) override { f_set->with_description(visitor); }
    void with_files(vx::string_visitor visitor) override { f_set->with_files(visitor); }
    void with_error(vx::string_visitor visitor) override;

    // grid_source: origin and spacing are those of the cells' centres, rows count downwards. The azimuth is
    // the angle from the x axis to the rows, in degrees, counter-clockwise; spacings of a turned grid are
    // measured along its rows and columns.
    bool create_grid(wchar_t const *name, int grid_type, int *dimensions, int field_count,
                     int datatype) override;
    bool select_grid(wchar_t const *name) override;
    int grid_type() override;
    bool set_grid_type(int type) override;
    bool with_dimensions(int *counts) override;
    bool with_geotransform(Tvx_matrix3x3 *matrix) override;
    bool set_geotransform(Tvx_matrix3x3 *matrix) override;
    /// Only one that leaves heights as they are.
    bool set_geotransform_z(Tvx_matrix4x4 *matrix) override;
    bool with_origin(double *xyz) override;
    bool set_origin(double *xyz) override;
    bool with_spacing(double *xyz) override;
    bool set_spacing(double *xyz) override;
    double azimuth() override;
    /// Turns the grid about the centre of its first cell.
    bool set_azimuth(double angle) override;
    bool create_overviews(int resampling, int *levels, int level_count, int *fields, int field_count,
                          vx::monitor progress) override;
    /// Of all fields: files keep the overviews of all fields together.
    bool delete_overviews(int *fields, int field_count) override;
    int create_field(wchar_t const *name, int datatype) override;
    bool rename_field(int field, wchar_t const *name) override;
    int field_datatype(int field) override;
    int field_color(int field) override;
    bool set_field_color(int field, int color) override;
    int field_kind(int field) override;
    bool field_palette(int field, vx::grid_palette_visitor visitor) override;
    bool with_block(int field, vx::grid_block_visitor visitor) override;
    /// The mask of all fields, of bytes: 0 where the grid has no cell, else how much it covers. An alpha band
    /// is one.
    bool with_index(vx::grid_block_visitor visitor) override;

    // stat_source
    bool has_stat(int field) override;
    bool minimum(int field, double *value) override;
    bool maximum(int field, double *value) override;
    bool average(int field, double *value) override;
    bool stdev(int field, double *value) override;
    bool sum(int field, double *value) override;
    bool count_nonnull(int field, long long *count) override;
    bool compute_stats(int field, bool force) override;
    bool with_unique_numerics(int field, int limit, vx::floatings_visitor visitor) override;
    bool has_histogram(int field) override;
    bool with_custom_histogram(int field, double minimum, double maximum, int count, long long *counts,
                               bool force) override;
    bool with_default_histogram(int field, bool force, vx::histogram_visitor visitor) override;

private:
    struct histogram
    {
        histogram_span span;
        std::vector<long long> counts;
    };

    ~grid_set() = default;
    [[nodiscard]] GDALRasterBand *band(int field) const;
    /// Drops what was worked out before cells were written.
    void forget_old();
    /// What the data set itself says, if it can be.
    [[nodiscard]] std::optional<band_stat> stored_stat(int field) const;
    /// What was worked out already, else what the data set says.
    [[nodiscard]] std::optional<band_stat> quick_stat(int field);
    [[nodiscard]] std::optional<histogram_span> span_of_type(int field) const;
    /// The span of the field's own histogram, as far as it is known without a walk.
    [[nodiscard]] std::optional<histogram_span> known_span(int field);
    /// One walk, which fills what is kept.
    bool pass(int field, std::optional<histogram_span> const &span);
    band_stat const *stat_of(int field);
    std::vector<long long> const *histogram_of(int field, histogram_span const &span);
    bool give(int field, double *value, double band_stat::*member);
    /// `change` works on GDAL's six numbers, which may be those of a grid without a place.
    bool change_place(std::function<bool(double *matrix)> const &change);

    std::shared_ptr<dataset> f_set;
    std::map<int, band_stat> f_stats;
    std::map<int, histogram> f_histograms; ///< the last one of a field
    unsigned long long f_seen_changes = 0;
};
} // namespace vx::gdal
