#pragma once

#include "dataset.h"
#include "extension/binding/data_source.h"

namespace vx::gdal {
/// A data set with grids and no tables, as far as every data set answers: what it is, where it lies, its
/// fields (the channels). Made by `open_source`, ended by its `detach`.
class grid_set final : public data_source_impl
{
public:
    explicit grid_set(std::unique_ptr<dataset> set) : f_set(std::move(set)) {}

    void detach() override;
    int driver_id() override { return f_set->driver_id(); }
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

private:
    ~grid_set() = default;

    std::unique_ptr<dataset> f_set;
};
} // namespace vx::gdal
