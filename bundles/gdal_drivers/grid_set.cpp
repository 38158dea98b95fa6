#include "grid_set.h"

#include "data_types.h"
#include "grid_block.h"

#include "platform/base/matrix.h"
#include "platform/base/text_codec.h"
#include "platform/basic/vx_res.h"

#include <ogr_spatialref.h>

#include <algorithm>
#include <cmath>
#include <set>
#include <vector>

namespace vx::gdal {
namespace {
/// The description of a band, else its number.
std::string band_name(GDALDataset &gdal, int field)
{
    char const *const text = gdal.GetRasterBand(field + 1)->GetDescription();
    return text && *text ? text : std::to_string(field + 1);
}

constexpr double c_degree = 0.017453292519943295769;
constexpr char const *c_point_or_area = "AREA_OR_POINT";

/// Where the cells of a grid lie: the distance of their centres along rows and columns, and how far rows are
/// turned against the x axis. A grid may be sheared besides; that is lost when one of the three is set.
struct lattice
{
    explicit lattice(double const *m)
    {
        bool const is_turned = m[2] != 0 || m[4] != 0;
        angle = is_turned ? std::atan2(m[4], m[1]) : 0;
        x = is_turned ? std::hypot(m[1], m[4]) : m[1];
        y = is_turned ? (m[1] * m[5] - m[2] * m[4]) / x : m[5];
    }
    /// Into GDAL's numbers; the centre of the first cell stays.
    void put(double *m) const
    {
        double const centre_x = m[0] + (m[1] + m[2]) / 2;
        double const centre_y = m[3] + (m[4] + m[5]) / 2;
        bool const is_turned = angle != 0;
        double const cosine = is_turned ? std::cos(angle) : 1;
        double const sine = is_turned ? std::sin(angle) : 0;
        m[1] = x * cosine;
        m[4] = x * sine;
        m[2] = -y * sine + 0.0;
        m[5] = y * cosine;
        m[0] = centre_x - (m[1] + m[2]) / 2;
        m[3] = centre_y - (m[4] + m[5]) / 2;
    }

    double x, y;
    double angle; ///< in radians
};

bool are_finite(double const *numbers, int count)
{
    return std::all_of(numbers, numbers + count, [](double number) { return std::isfinite(number); });
}

/// Cells have an area, and those at the corners of such a grid have places.
bool can_be_place(double const *m, int columns, int rows)
{
    double const longest = std::max({std::abs(m[1]), std::abs(m[2]), std::abs(m[4]), std::abs(m[5])});
    double const corners[] = {m[0] + columns * m[1],
                              m[3] + columns * m[4],
                              m[0] + rows * m[2],
                              m[3] + rows * m[5],
                              m[0] + columns * m[1] + rows * m[2],
                              m[3] + columns * m[4] + rows * m[5]};
    return are_finite(m, 6) && are_finite(corners, std::size(corners)) && longest > 0 &&
           m[1] / longest * (m[5] / longest) != m[2] / longest * (m[4] / longest);
}

/// False for a grid that states no place, or one that cells cannot have.
bool place_of(GDALDataset &gdal, double *m)
{
    return gdal.GetGeoTransform(m) == CE_None &&
           can_be_place(m, gdal.GetRasterXSize(), gdal.GetRasterYSize());
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
    double m[6];
    // Without a place of its own a grid lies in cells, with its first row on top.
    if (!place_of(gdal, m)) {
        double const in_cells[6] = {0, 1, 0, 0, 0, -1};
        std::copy(in_cells, in_cells + 6, m);
    }
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
    GDALDataset &gdal = f_set->gdal();
    double m[6];
    if (!f_set->error().empty())
        visitor.visit(f_set->error().c_str());
    else if (gdal.GetRasterCount() > 0 && gdal.GetGeoTransform(m) == CE_None && !place_of(gdal, m))
        visitor.visit(vx_res_get_wstr(c_drv_no_place));
}

GDALRasterBand *grid_set::band(int field) const
{
    GDALDataset &gdal = f_set->gdal();
    return field >= 0 && field < gdal.GetRasterCount() ? gdal.GetRasterBand(field + 1) : nullptr;
}

bool grid_set::create_grid(wchar_t const *name, int type, int *dimensions, int fields, int datatype)
{
    error_guard guard(f_set->error());
    if (!f_set->awaits_grid())
        guard.add(c_drv_has_grid);
    else if (!dimensions || dimensions[0] <= 0 || dimensions[1] <= 0 || dimensions[2] > 1 || fields <= 0)
        guard.add(c_drv_grid_shape);
    else if (cell_size(datatype) == 0)
        guard.add(c_drv_cell_type);
    else
        return f_set->make_grid(name ? name : L"", dimensions[0], dimensions[1], fields, datatype) &&
               (type == grid_of_areas || set_grid_type(type));
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
    f_histograms.clear();
    f_seen_changes = f_set->changes();
    return true;
}

int grid_set::grid_type()
{
    char const *const kind = f_set->gdal().GetMetadataItem(c_point_or_area);
    return kind && EQUAL(kind, GDALMD_AOP_POINT) ? grid_of_points : grid_of_areas;
}

bool grid_set::set_grid_type(int type)
{
    error_guard guard(f_set->error());
    if (f_set->read_only()) {
        guard.add(c_drv_read_only);
        return false;
    }
    return (type == grid_of_areas || type == grid_of_points) &&
           f_set->gdal().SetMetadataItem(
               c_point_or_area, type == grid_of_points ? GDALMD_AOP_POINT : GDALMD_AOP_AREA) == CE_None;
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
    if (!matrix || !place_of(f_set->gdal(), m))
        return false;
    *matrix = {{{m[1], m[2], m[0]}, {m[4], m[5], m[3]}, {0, 0, 1}}};
    return true;
}

bool grid_set::change_place(std::function<bool(double *matrix)> const &change)
{
    error_guard guard(f_set->error());
    if (f_set->read_only()) {
        guard.add(c_drv_read_only);
        return false;
    }
    double m[6];
    if (!place_of(f_set->gdal(), m)) {
        double const in_cells[6] = {0, 1, 0, 0, 0, -1};
        std::copy(in_cells, in_cells + 6, m);
    }
    if (!change(m) || !are_finite(m, 6)) {
        guard.add(c_drv_grid_place);
        return false;
    }
    return f_set->gdal().SetGeoTransform(m) == CE_None;
}

bool grid_set::set_geotransform(Tvx_matrix3x3 *matrix)
{
    return matrix && change_place([&](double *m) {
               auto const &n = matrix->m;
               m[1] = n[0][0];
               m[2] = n[0][1];
               m[0] = n[0][2];
               m[4] = n[1][0];
               m[5] = n[1][1];
               m[3] = n[1][2];
               return n[2][0] == 0 && n[2][1] == 0 && n[2][2] == 1;
           });
}

bool grid_set::set_geotransform_z(Tvx_matrix4x4 *matrix)
{
    if (!matrix)
        return false;
    auto const &m = matrix->m;
    Tvx_matrix3x3 plane{
        {{m[0][0], m[0][1], m[0][3]}, {m[1][0], m[1][1], m[1][3]}, {m[3][0], m[3][1], m[3][3]}}};
    Tvx_matrix4x4 widened;
    vx_matrix4x4_init_matrix3x3(&widened, &plane);
    return std::equal(&m[0][0], &m[0][0] + 16, &widened.m[0][0]) && set_geotransform(&plane);
}

bool grid_set::with_origin(double *xyz)
{
    double m[6];
    if (!xyz || !place_of(f_set->gdal(), m))
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
               return true;
           });
}

bool grid_set::with_spacing(double *xyz)
{
    double m[6];
    if (!xyz || !place_of(f_set->gdal(), m))
        return false;
    lattice const cells(m);
    xyz[0] = cells.x;
    xyz[1] = cells.y;
    xyz[2] = 1;
    return true;
}

bool grid_set::set_spacing(double *xyz)
{
    return xyz && change_place([&](double *m) {
               lattice cells(m);
               cells.x = xyz[0];
               cells.y = xyz[1];
               cells.put(m);
               return xyz[0] != 0 && xyz[1] != 0;
           });
}

double grid_set::azimuth()
{
    double m[6];
    return place_of(f_set->gdal(), m) ? lattice(m).angle / c_degree : 0;
}

bool grid_set::set_azimuth(double angle)
{
    return change_place([&](double *m) {
        lattice cells(m);
        cells.angle = angle * c_degree;
        cells.put(m);
        return true;
    });
}

bool grid_set::create_overviews(int resampling, int *levels, int level_count, int *fields, int count,
                                vx::monitor progress)
{
    error_guard guard(f_set->error());
    if (f_set->read_only())
        guard.add(c_drv_read_only);
    if (!levels || level_count <= 0 ||
        std::any_of(levels, levels + level_count, [](int level) { return level < 2; }))
        guard.add(c_drv_overview_levels);
    if (!guard.text().empty())
        return false;
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

bool grid_set::delete_overviews(int *fields, int count)
{
    error_guard guard(f_set->error());
    if (f_set->read_only()) {
        guard.add(c_drv_read_only);
        return false;
    }
    std::set<int> named;
    for (int i = 0; fields && i < count; ++i)
        if (band(fields[i]))
            named.insert(fields[i]);
        else
            return false;
    if (!named.empty() && static_cast<int>(named.size()) < field_count()) {
        guard.add(c_drv_overview_fields);
        return false;
    }
    return f_set->gdal().BuildOverviews("NONE", 0, nullptr, 0, nullptr, nullptr, nullptr) == CE_None;
}

int grid_set::create_field(wchar_t const *name, int datatype)
{
    error_guard guard(f_set->error());
    if (f_set->read_only())
        guard.add(c_drv_read_only);
    else if (f_set->awaits_grid())
        guard.add(c_drv_no_grid_yet);
    else if (cell_size(datatype) == 0)
        guard.add(c_drv_cell_type);
    if (!guard.text().empty())
        return -1;
    if (f_set->gdal().AddBand(datatype == cells_int8 ? GDT_Byte : gdal_type_of(datatype)) != CE_None)
        return -1;
    int const field = field_count() - 1;
    if (datatype == cells_int8)
        set_signed_bytes(*band(field));
    if (name && *name)
        band(field)->SetDescription(text::wide_to_utf8(name).c_str());
    return field;
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
    return band(field) ? cell_type_of(*band(field)) : cells_none;
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

bool grid_set::with_index(vx::grid_block_visitor visitor)
{
    error_guard const guard(f_set->error());
    GDALRasterBand *const first = band(0);
    bool const has_mask = first && (first->GetMaskFlags() & GMF_PER_DATASET) != 0;
    GDALRasterBand *const mask = has_mask ? first->GetMaskBand() : nullptr;
    if (!mask || !visitor)
        return false;
    visitor.visit(*new band_block(f_set, *mask));
    return true;
}
} // namespace vx::gdal
