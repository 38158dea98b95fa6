#pragma once

#include <cpl_string.h>
#include <ogrsf_frmts.h>

#include <memory>
#include <string>
#include <vector>

namespace vx::gdal {
/// All features of a table, whatever filters it has; the filters are as before afterwards, and reading begins
/// anew.
class unfiltered
{
public:
    explicit unfiltered(OGRLayer &layer);
    ~unfiltered();
    unfiltered(unfiltered const &) = delete;
    unfiltered &operator=(unfiltered const &) = delete;
    [[nodiscard]] OGRFeatureUniquePtr next() { return OGRFeatureUniquePtr(f_layer.GetNextFeature()); }

private:
    OGRLayer &f_layer;
    std::string f_expression;
    std::unique_ptr<OGRGeometry> f_shape;
};

/// The tables of a new data set whose format is written from start to end. While they are filled they are
/// tables in memory, where a feature can still be changed; `write` makes the file of them, as often as it is
/// asked.
class new_tables
{
public:
    /// Whether new data sets of the format are made in this way. A name without the format's ending would be
    /// a folder of files.
    [[nodiscard]] static bool is_for(char const *driver, std::string const &path);

    new_tables(GDALDriver &format, CPLStringList options) : f_format(&format), f_options(std::move(options))
    {
    }

    /// Null with a GDAL error when the format takes no more tables.
    [[nodiscard]] OGRLayer *add(GDALDataset &memory, std::string const &name, OGRSpatialReference *system,
                                OGRwkbGeometryType type, CPLStringList options);
    /// Takes over all tables of a file that is there. False when one of them cannot be read to its end.
    [[nodiscard]] bool read(GDALDataset &from, GDALDataset &memory);
    /// Drops the table that was added last.
    void drop_last(GDALDataset &memory);
    /// A file of all tables as they are. False, with GDAL's errors, when the format refuses one of them.
    [[nodiscard]] bool write(std::string const &path) const;

private:
    struct table
    {
        OGRLayer *content;
        std::string name;
        OGRwkbGeometryType type;
        CPLStringList options;
    };
    [[nodiscard]] bool write(table const &from, GDALDataset &to) const;
    [[nodiscard]] bool is_format(char const *name) const;

    GDALDriver *f_format;
    CPLStringList f_options;
    std::vector<table> f_tables;
};
} // namespace vx::gdal
