#pragma once

#include "data/vector/transacted_feature.h"
#include "data/vector/vector_datasource.h"
#include "extension/binding/feature_visitor.h"
#include "extension/binding/vector_source.h"
#include "support/temp_dir.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <vector>

/// Copies of the example data in a folder of their own, since scale files are written beside them.
namespace real_files {
/// A shapefile of the examples; its path.
inline std::wstring shapefile(vx_test::temp_dir const &dir, std::string const &name)
{
    for (auto const *suffix : {".shp", ".shx", ".dbf", ".prj"})
        std::filesystem::copy(std::string(VX_EXAMPLE_DATA "/") + name + suffix, dir.path());
    return (dir / (name + ".shp")).wstring();
}

inline std::wstring raster(vx_test::temp_dir const &dir, std::string const &name)
{
    std::filesystem::copy(std::string(VX_EXAMPLE_DATA "/") + name, dir.path());
    return (dir / name).wstring();
}

/// Hands the cells of one feature to another one.
class cell_copier final : public vx::feature_visitor_impl
{
public:
    cell_copier(vx::data::vector_feature const &source, std::uint64_t fields)
        : f_source(source), f_fields(fields)
    {
    }
    void visit(vx::feature handle) override
    {
        vx::data::transacted_feature target;
        target.init(handle);
        for (std::uint64_t i = 0; i < f_fields; ++i)
            if (auto const cell = f_source.read_any(i); !cell.is_null()) {
                EXPECT_TRUE(target.write_any(i, cell));
            }
    }

private:
    vx::data::vector_feature const &f_source;
    std::uint64_t f_fields;
};

/// A GeoPackage with the attributes of a shapefile; its path.
inline std::wstring geopackage(vx_test::temp_dir const &dir, std::wstring const &shapefile)
{
    constexpr int driver = 2;
    auto const file = (dir / "table.gpkg").wstring();
    vx::data::vector_datasource source;
    vx::data::vector_datasource target;
    EXPECT_TRUE(source.open(shapefile, vx::data::access_read));
    EXPECT_TRUE(target.create(file, driver));
    auto definition = source.fetch_definition();
    EXPECT_TRUE(target.create_vector(L"table", definition, vx::data::geom_type::none, 0));
    vx::vector_source const table =
        vx_vector_source_interface_specialize(vx_data_source_interface_generalize(target.handle()));
    vx::data::vector_feature feature;
    EXPECT_TRUE(target.start_transaction());
    while (source.fetch_next_feature(feature)) {
        cell_copier copier(feature, source.field_count());
        EXPECT_TRUE(table.create_feature(0, copier));
    }
    EXPECT_TRUE(target.commit_transaction());
    return file;
}
} // namespace real_files
