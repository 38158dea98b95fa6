#include "grid_set.h"

#include "data_types.h"
#include "grid_block.h"

#include "platform/base/text_codec.h"

#include <ogr_spatialref.h>

#include <cmath>
#include <vector>

namespace vx::gdal {
namespace {
/// The description of a band, else its number.
std::string band_name(GDALDataset &gdal, int field)
{
    char const *const text = gdal.GetRasterBand(field + 1)->GetDescription();
    return text && *text ? text : std::to_string(field + 1);
}
} // namespace

void grid_set::detach()
{
    std::wstring ignored;
    error_guard const guard(ignored);
    delete this;
}

bool grid_set::with_extent(Tvx_box_d2 *box, bool)
{
    GDALDataset &gdal = f_set->gdal();
    if (!box || gdal.GetRasterCount() == 0)
        return false;
    error_guard const guard(f_set->error());
    double m[6] = {0, 1, 0, 0, 0, 1};
    // Without a place of its own a grid lies in cells, with its first row on top.
    if (gdal.GetGeoTransform(m) != CE_None)
        m[5] = -1;
    *box = {};
    for (int corner = 0; corner < 4; ++corner) {
        double const column = corner & 1 ? gdal.GetRasterXSize() : 0;
        double const row = corner & 2 ? gdal.GetRasterYSize() : 0;
        box->add(m[0] + column * m[1] + row * m[2], m[3] + column * m[4] + row * m[5]);
    }
    return true;
}

void grid_set::with_proj4(vx::string_visitor visitor)
{
    error_guard const guard(f_set->error());
    OGRSpatialReference const *const system = f_set->gdal().GetSpatialRef();
    char *text = nullptr;
    if (system && system->exportToProj4(&text) == OGRERR_NONE)
        visit_utf8(visitor, text);
    CPLFree(text);
}

void grid_set::field_name(int field, vx::string_visitor visitor)
{
    if (field >= 0 && field < field_count())
        visit_utf8(visitor, band_name(f_set->gdal(), field).c_str());
}

int grid_set::field_type(int field)
{
    if (field < 0 || field >= field_count())
        return field_none;
    switch (f_set->gdal().GetRasterBand(field + 1)->GetRasterDataType()) {
    case GDT_Byte:
    case GDT_UInt16:
    case GDT_Int16:
    case GDT_Int32:
        return field_integer;
    case GDT_UInt32:
    case GDT_Int64:
    case GDT_UInt64:
        return field_bigint;
    default:
        return field_numeric;
    }
}

bool grid_set::field_index(wchar_t const *name, int *index)
{
    if (!name || !index)
        return false;
    std::string const wanted = text::wide_to_utf8(name);
    for (int field = 0; field < field_count(); ++field)
        if (band_name(f_set->gdal(), field) == wanted) {
            *index = field;
            return true;
        }
    return false;
}

void grid_set::with_error(vx::string_visitor visitor)
{
    if (!f_set->error().empty())
        visitor.visit(f_set->error().c_str());
}

GDALRasterBand *grid_set::band(int field) const
{
    GDALDataset &gdal = f_set->gdal();
    return field >= 0 && field < gdal.GetRasterCount() ? gdal.GetRasterBand(field + 1) : nullptr;
}

bool grid_set::create_grid(wchar_t const *, int, int *dimensions, int fields, int datatype)
{
    error_guard guard(f_set->error());
    GDALDataType const type = gdal_type_of(datatype);
    if (!f_set->awaits_grid())
        guard.add(L"The data set has its grid already.");
    else if (!dimensions || dimensions[0] <= 0 || dimensions[1] <= 0 || dimensions[2] > 1 || fields <= 0)
        guard.add(L"A grid needs columns, rows and a channel, and has one level.");
    else if (type == GDT_Unknown)
        guard.add(L"Cells of this type cannot be stored.");
    else
        return f_set->make_grid(dimensions[0], dimensions[1], fields, type);
    return false;
}

bool grid_set::select_grid(wchar_t const *name)
{
    if (!name)
        return false;
    std::wstring error;
    std::unique_ptr<dataset> other = dataset::open(name, f_set->read_only(), error);
    if (!other || other->gdal().GetRasterCount() == 0) {
        f_set->error() = error;
        return false;
    }
    f_set = std::move(other);
    f_stats.clear();
    return true;
}

bool grid_set::with_dimensions(int *counts)
{
    if (!counts || field_count() == 0)
        return false;
    counts[0] = f_set->gdal().GetRasterXSize();
    counts[1] = f_set->gdal().GetRasterYSize();
    counts[2] = 1;
    return true;
}

bool grid_set::with_geotransform(Tvx_matrix3x3 *matrix)
{
    double m[6];
    if (!matrix || f_set->gdal().GetGeoTransform(m) != CE_None)
        return false;
    *matrix = {{{m[1], m[2], m[0]}, {m[4], m[5], m[3]}, {0, 0, 1}}};
    return true;
}

bool grid_set::change_place(std::function<void(double *matrix)> const &change)
{
    error_guard guard(f_set->error());
    if (f_set->read_only()) {
        guard.add(L"The data set is open for reading only.");
        return false;
    }
    double m[6] = {0, 1, 0, 0, 0, -1};
    f_set->gdal().GetGeoTransform(m);
    change(m);
    return f_set->gdal().SetGeoTransform(m) == CE_None;
}

bool grid_set::set_geotransform(Tvx_matrix3x3 *matrix)
{
    return matrix && change_place([&](double *m) {
               m[1] = matrix->m[0][0];
               m[2] = matrix->m[0][1];
               m[0] = matrix->m[0][2];
               m[4] = matrix->m[1][0];
               m[5] = matrix->m[1][1];
               m[3] = matrix->m[1][2];
           });
}

bool grid_set::with_origin(double *xyz)
{
    double m[6];
    if (!xyz || f_set->gdal().GetGeoTransform(m) != CE_None)
        return false;
    // GDAL counts from the corner of the first cell.
    xyz[0] = m[0] + (m[1] + m[2]) / 2;
    xyz[1] = m[3] + (m[4] + m[5]) / 2;
    xyz[2] = 0;
    return true;
}

bool grid_set::set_origin(double *xyz)
{
    return xyz && change_place([&](double *m) {
               m[0] = xyz[0] - (m[1] + m[2]) / 2;
               m[3] = xyz[1] - (m[4] + m[5]) / 2;
           });
}

bool grid_set::with_spacing(double *xyz)
{
    double m[6];
    if (!xyz || f_set->gdal().GetGeoTransform(m) != CE_None)
        return false;
    xyz[0] = m[1];
    xyz[1] = m[5];
    xyz[2] = 1;
    return true;
}

bool grid_set::set_spacing(double *xyz)
{
    if (!xyz || xyz[0] == 0 || xyz[1] == 0)
        return false;
    double origin[3] = {};
    bool const has_place = with_origin(origin);
    return change_place([&](double *m) {
        m[1] = xyz[0];
        m[5] = xyz[1];
        // The centre of the first cell stays.
        if (has_place) {
            m[0] = origin[0] - (m[1] + m[2]) / 2;
            m[3] = origin[1] - (m[4] + m[5]) / 2;
        }
    });
}

double grid_set::azimuth()
{
    constexpr double c_degrees = 57.295779513082320877;
    double m[6];
    if (f_set->gdal().GetGeoTransform(m) != CE_None)
        return 0;
    return std::atan2(m[4], m[1]) * c_degrees;
}

bool grid_set::create_overviews(int resampling, int *levels, int level_count, int *fields, int count,
                                vx::monitor progress)
{
    error_guard guard(f_set->error());
    if (f_set->read_only() || !levels || level_count <= 0) {
        guard.add(L"The data set is open for reading only.");
        return false;
    }
    std::vector<int> bands;
    for (int i = 0; fields && i < count; ++i) {
        if (!band(fields[i]))
            return false;
        bands.push_back(fields[i] + 1);
    }
    auto const report = [](double done, char const *, void *user) -> int {
        auto const &to = *static_cast<vx::monitor *>(user);
        to.report(done);
        return !to.has_stopped();
    };
    return f_set->gdal().BuildOverviews(resampling_name(resampling), level_count, levels,
                                        static_cast<int>(bands.size()),
                                        bands.empty() ? nullptr : bands.data(), report, &progress) == CE_None;
}

bool grid_set::rename_field(int field, wchar_t const *name)
{
    if (!band(field) || !name || f_set->read_only())
        return false;
    band(field)->SetDescription(text::wide_to_utf8(name).c_str());
    return true;
}

int grid_set::field_datatype(int field)
{
    return band(field) ? data_type_of(band(field)->GetRasterDataType()) : 0;
}

int grid_set::field_color(int field)
{
    GDALRasterBand *const cells = band(field);
    return cells ? cells->GetColorInterpretation() : GCI_Undefined;
}

bool grid_set::set_field_color(int field, int color)
{
    error_guard const guard(f_set->error());
    return band(field) && !f_set->read_only() && color >= GCI_Undefined && color <= GCI_Max &&
           band(field)->SetColorInterpretation(static_cast<GDALColorInterp>(color)) == CE_None;
}

int grid_set::field_kind(int field)
{
    GDALRasterBand *const b = band(field);
    return b && (b->GetColorTable() || b->GetCategoryNames()) ? cells_coded : cells_measured;
}

bool grid_set::field_palette(int field, vx::grid_palette_visitor visitor)
{
    GDALRasterBand *const cells = band(field);
    GDALColorTable const *const table = cells ? cells->GetColorTable() : nullptr;
    if (!table || !visitor)
        return false;
    visitor.visit(*new band_palette(*table));
    return true;
}

bool grid_set::with_block(int field, vx::grid_block_visitor visitor)
{
    if (!band(field) || !visitor)
        return false;
    visitor.visit(*new band_block(f_set, *band(field)));
    return true;
}
} // namespace vx::gdal
