#include "data_types.h"
#include "shape_walk.h"

#include <cpl_conv.h>
#include <cpl_string.h>
#include <cpl_vsi.h>
#include <ogrsf_frmts.h>

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>
#include <memory>
#include <new>
#include <optional>

namespace vx::gdal {
namespace {
constexpr std::size_t c_head = 100;        ///< bytes before the first record, in both files
constexpr std::size_t c_record_head = 8;   ///< and before each record's content
constexpr std::size_t c_block = 1 << 17;   ///< bytes that are read at once; stays in the cache
constexpr std::size_t c_piece = 1 << 20;   ///< of a record that is larger
constexpr std::size_t c_entries = 1 << 13; ///< of the index, read at once
constexpr std::size_t c_entry = 8;
constexpr int c_at_once = 2048; ///< records in one step

struct file_closer
{
    void operator()(VSILFILE *file) const { VSIFCloseL(file); }
};
using file_holder = std::unique_ptr<VSILFILE, file_closer>;

template <class T>
T little(unsigned char const *bytes)
{
    static_assert(std::endian::native == std::endian::little, "numbers are copied as they lie in the file");
    T value;
    std::memcpy(&value, bytes, sizeof value);
    return value;
}

std::uint32_t big(unsigned char const *bytes)
{
    return std::uint32_t{bytes[0]} << 24 | std::uint32_t{bytes[1]} << 16 | std::uint32_t{bytes[2]} << 8 |
           bytes[3];
}

/// A file of the set by its ending in lower or upper case; null for anything but a regular file.
file_holder open_part(std::string const &path, OGRLayer &layer, char const *ending)
{
    VSIStatBufL info;
    if (VSIStatL(path.c_str(), &info) != 0)
        return nullptr;
    bool const is_folder = VSI_ISDIR(info.st_mode);
    std::string const own = CPLGetExtension(path.c_str());
    if (!is_folder && !EQUAL(own.c_str(), "shp") && !EQUAL(own.c_str(), "shx") && !EQUAL(own.c_str(), "dbf"))
        return nullptr;
    CPLString upper(ending);
    upper.toupper();
    for (std::string const &e : {std::string(ending), std::string(upper)}) {
        std::string const name = is_folder ? CPLFormFilename(path.c_str(), layer.GetName(), e.c_str())
                                           : CPLResetExtension(path.c_str(), e.c_str());
        if (VSIStatL(name.c_str(), &info) == 0 && VSI_ISREG(info.st_mode))
            return file_holder(VSIFOpenL(name.c_str(), "rb"));
    }
    return nullptr;
}

std::uint64_t size_of(VSILFILE *file)
{
    VSIFSeekL(file, 0, SEEK_END);
    return VSIFTellL(file);
}

/// Whether a table of attributes holds fewer records than it says.
bool is_cut(VSILFILE *table)
{
    unsigned char head[12];
    std::uint64_t const size = size_of(table);
    VSIFSeekL(table, 0, SEEK_SET);
    if (VSIFReadL(head, 1, sizeof head, table) != sizeof head)
        return true;
    return little<std::uint16_t>(head + 8) +
               std::uint64_t{little<std::uint32_t>(head + 4)} * little<std::uint16_t>(head + 10) >
           size;
}

class shapefile_walk final : public shape_walk
{
public:
    shapefile_walk(file_holder shapes, file_holder index, OGRLayer &layer, std::size_t records,
                   std::vector<long long> deleted, shape_window const *window, bool table_is_cut)
        : f_shapes(std::move(shapes)), f_index(std::move(index)), f_layer(layer), f_records(records),
          f_deleted(std::move(deleted)), f_size(size_of(f_shapes.get())), f_table_is_cut(table_is_cut),
          f_window(window ? std::optional(*window) : std::nullopt)
    {
    }

    step_result step(shape_run &run) override
    {
        if (f_large)
            return read_large(run);
        for (int i = 0; i < c_at_once && !run.is_large(); ++i, ++f_next) {
            if (f_next == f_records)
                return f_table_is_cut ? c_broken : c_end;
            if (f_deleted_seen < f_deleted.size() &&
                f_deleted[f_deleted_seen] == static_cast<long long>(f_next)) {
                ++f_deleted_seen;
                continue;
            }
            unsigned char const *const entry = index_entry();
            if (!entry)
                return c_broken;
            std::uint64_t const at = big(entry) * std::uint64_t{2};
            std::uint64_t const length = big(entry + 4) * std::uint64_t{2};
            if (f_window && lies_beside(at, length))
                continue;
            if (length > c_piece && begin_large(at, length))
                return c_more;
            if (!add(run, at, length))
                leave_to_gdal(run);
        }
        return c_more;
    }

private:
    [[nodiscard]] unsigned long long record() const { return f_next - f_deleted_seen; }

    unsigned char const *index_entry()
    {
        if (f_next >= f_entries_end) {
            std::size_t const count = std::min(c_entries, f_records - f_next);
            f_entries.resize(count * c_entry);
            VSIFSeekL(f_index.get(), c_head + f_next * c_entry, SEEK_SET);
            if (VSIFReadL(f_entries.data(), c_entry, count, f_index.get()) != count)
                return nullptr;
            f_entries_begin = f_next;
            f_entries_end = f_next + count;
        }
        return f_entries.data() + (f_next - f_entries_begin) * c_entry;
    }

    /// The bytes of the file from `at` on; null when they are not all there.
    unsigned char const *bytes(std::uint64_t at, std::size_t count)
    {
        if (at > f_size || count > f_size - at)
            return nullptr;
        if (at < f_block_at || at + count > f_block_at + f_block.size()) {
            auto const wanted =
                static_cast<std::size_t>(std::min<std::uint64_t>(std::max(count, c_block), f_size - at));
            f_block.resize(wanted);
            f_block_at = at;
            VSIFSeekL(f_shapes.get(), at, SEEK_SET);
            f_block.resize(VSIFReadL(f_block.data(), 1, wanted, f_shapes.get()));
            if (f_block.size() < count)
                return nullptr;
        }
        return f_block.data() + (at - f_block_at);
    }

    /// By the box that stands in the record, if there is one.
    [[nodiscard]] bool lies_beside(std::uint64_t at, std::uint64_t length)
    {
        constexpr std::size_t c_boxed = 36; // type and box
        unsigned char const *const head = length >= c_boxed ? bytes(at, c_record_head + c_boxed) : nullptr;
        if (!head)
            return false;
        unsigned char const *const content = head + c_record_head;
        return little<double>(content + 4) > f_window->max_x ||
               little<double>(content + 12) > f_window->max_y ||
               little<double>(content + 20) < f_window->min_x ||
               little<double>(content + 28) < f_window->min_y;
    }

    [[nodiscard]] bool add(shape_run &run, std::uint64_t at, std::uint64_t length)
    {
        unsigned char const *const head = length >= 4 ? bytes(at, c_record_head + length) : nullptr;
        if (!head || big(head + 4) * std::uint64_t{2} != length)
            return false;
        unsigned char const *const content = head + c_record_head;
        switch (little<std::int32_t>(content)) {
        case 0:
            run.add_none(record());
            return true;
        case 1:
        case 11:
        case 21:
            if (length < 20)
                return false;
            run.add_point(little<double>(content + 4), little<double>(content + 12), record());
            return true;
        case 3:
        case 13:
        case 23:
            return add_parts(run, geom_polyline, content, length);
        case 5:
        case 15:
        case 25:
            return add_parts(run, geom_polygon, content, length);
        case 8:
        case 18:
        case 28:
            return add_multipoint(run, content, length);
        default:
            return false;
        }
    }

    /// A line or an area that is worth being read in several steps. False for what has another form.
    [[nodiscard]] bool begin_large(std::uint64_t at, std::uint64_t length)
    {
        unsigned char const *head = bytes(at, c_record_head + c_parts_fixed);
        if (!head || at + c_record_head + length > f_size || big(head + 4) * std::uint64_t{2} != length)
            return false;
        auto const type = little<std::int32_t>(head + c_record_head);
        auto const parts = little<std::uint32_t>(head + c_record_head + 36);
        if (!(type == 3 || type == 13 || type == 23 || type == 5 || type == 15 || type == 25) ||
            std::uint64_t{parts} * 4 > std::min<std::uint64_t>(length - c_parts_fixed, c_piece))
            return false;
        head = bytes(at, c_record_head + c_parts_fixed + 4 * std::size_t{parts});
        if (!head || !read_counts(head + c_record_head, length))
            return false;
        large_record large;
        large.kind = type % 10 == 3 ? geom_polyline : geom_polygon;
        large.count = little<std::uint32_t>(head + c_record_head + 40);
        large.at = at + c_record_head + c_parts_fixed + 4 * std::size_t{parts};
        large.vertices.reset(new (std::nothrow) double[2 * large.count]);
        if (!large.vertices)
            return false;
        f_large = std::move(large);
        return true;
    }

    step_result read_large(shape_run &run)
    {
        std::size_t const size = f_large->count * 16;
        std::size_t const wanted = std::min(c_piece, size - f_large->read);
        VSIFSeekL(f_shapes.get(), f_large->at + f_large->read, SEEK_SET);
        auto *const to = reinterpret_cast<unsigned char *>(f_large->vertices.get()) + f_large->read;
        if (VSIFReadL(to, 1, wanted, f_shapes.get()) != wanted)
            return c_broken;
        f_large->read += wanted;
        if (f_large->read == size) {
            run.add_shape(f_large->kind, f_counts, record(), std::move(f_large->vertices), f_large->count);
            f_large.reset();
            ++f_next;
        }
        return c_more;
    }

    [[nodiscard]] bool add_multipoint(shape_run &run, unsigned char const *content, std::uint64_t length)
    {
        constexpr std::size_t c_fixed = 40;
        if (length < c_fixed)
            return false;
        auto const count = little<std::uint32_t>(content + 36);
        if (count == 0 || count > (length - c_fixed) / 16)
            return false;
        f_counts.assign(count, 1);
        std::memcpy(run.add_shape(geom_multipoint, f_counts.data(), count, record()), content + c_fixed,
                    std::size_t{count} * 16);
        return true;
    }

    [[nodiscard]] bool add_parts(shape_run &run, int kind, unsigned char const *content, std::uint64_t length)
    {
        if (!read_counts(content, length))
            return false;
        auto const vertices = little<std::uint32_t>(content + 40);
        std::memcpy(run.add_shape(kind, f_counts.data(), f_counts.size(), record()),
                    content + c_parts_fixed + 4 * f_counts.size(), std::size_t{vertices} * 16);
        return true;
    }
    /// The vertices of each part.
    [[nodiscard]] bool read_counts(unsigned char const *content, std::uint64_t length)
    {
        if (length < c_parts_fixed)
            return false;
        auto const parts = little<std::uint32_t>(content + 36);
        auto const vertices = little<std::uint32_t>(content + 40);
        if (parts == 0 || vertices == 0 ||
            std::uint64_t{parts} * 4 + std::uint64_t{vertices} * 16 > length - c_parts_fixed)
            return false;
        f_counts.clear();
        std::uint32_t begin = little<std::uint32_t>(content + c_parts_fixed);
        if (begin != 0)
            return false;
        for (std::uint32_t p = 1; p <= parts; ++p) {
            std::uint32_t const end =
                p < parts ? little<std::uint32_t>(content + c_parts_fixed + 4 * std::size_t{p}) : vertices;
            if (end <= begin || end > vertices)
                return false;
            f_counts.push_back(end - begin);
            begin = end;
        }
        return true;
    }

    void leave_to_gdal(shape_run &run)
    {
        OGRFeatureUniquePtr const feature(f_layer.GetFeature(static_cast<GIntBig>(f_next)));
        run.add(feature ? feature->GetGeometryRef() : nullptr, record());
    }

    /// A record whose vertices are being read.
    struct large_record
    {
        int kind = geom_none;
        std::size_t count = 0;
        std::uint64_t at = 0; ///< the vertices in the file
        std::size_t read = 0; ///< bytes of them
        std::unique_ptr<double[]> vertices;
    };
    static constexpr std::size_t c_parts_fixed = 44; ///< bytes before the parts of a line or an area

    file_holder f_shapes;
    file_holder f_index;
    std::optional<large_record> f_large;
    OGRLayer &f_layer;
    std::size_t f_records;
    std::vector<long long> f_deleted;
    std::uint64_t f_size;
    bool f_table_is_cut;
    std::optional<shape_window> f_window;
    std::size_t f_next = 0;
    std::size_t f_deleted_seen = 0;
    std::vector<unsigned char> f_entries;
    std::size_t f_entries_begin = 0;
    std::size_t f_entries_end = 0;
    std::vector<unsigned char> f_block;
    std::uint64_t f_block_at = 0;
    std::vector<unsigned> f_counts;
};
} // namespace

std::unique_ptr<shape_walk> walk_shapefile(std::string const &path, OGRLayer &layer,
                                           std::vector<long long> deleted, shape_window const *window)
{
    constexpr std::uint32_t c_mark = 9994;
    constexpr std::uint64_t c_read_once = std::uint64_t{256} << 20; // what is larger may not stay in memory
    if (layer.GetLayerDefn()->GetGeomFieldCount() == 0)
        return nullptr;
    file_holder shapes = open_part(path, layer, "shp");
    file_holder index = open_part(path, layer, "shx");
    if (!shapes || !index)
        return nullptr;
    unsigned char head[c_head];
    std::uint64_t const index_size = size_of(index.get());
    VSIFSeekL(index.get(), 0, SEEK_SET);
    if (VSIFReadL(head, 1, c_head, index.get()) != c_head || big(head) != c_mark)
        return nullptr;
    std::uint64_t const told = big(head + 24) * std::uint64_t{2};
    if (told < c_head || told > index_size || (told - c_head) % c_entry != 0)
        return nullptr;
    bool const is_points = head[32] % 10 == 1;
    if (window && (is_points || size_of(shapes.get()) > c_read_once))
        return nullptr;
    auto const records = static_cast<std::size_t>((told - c_head) / c_entry);
    if (static_cast<GIntBig>(records) != layer.GetFeatureCount(FALSE))
        return nullptr;
    file_holder const table = open_part(path, layer, "dbf");
    return std::make_unique<shapefile_walk>(std::move(shapes), std::move(index), layer, records,
                                            std::move(deleted), window, table && is_cut(table.get()));
}
} // namespace vx::gdal
