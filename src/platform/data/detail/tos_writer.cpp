#include "platform/data/detail/tos_writer.h"

#include "captions/engine.h"

#include "platform/base/text_codec.h"
#include "platform/data/detail/tos_block.h"
#include "platform/data/detail/tos_file.h"
#include "platform/winapi/file.h"

#include <algorithm>
#include <limits>
#include <memory>
#include <random>

namespace vx::tos {
namespace {
constexpr std::size_t c_identity_words = 4;
constexpr std::size_t c_longest_name = 255;
constexpr std::size_t c_longest_caption = 1000;
constexpr std::size_t c_longest_proj4 = 16 << 10;

/// What no other file is called by.
std::string new_identity()
{
    std::random_device random;
    std::string bytes;
    for (std::size_t i = 0; i < c_identity_words; ++i) {
        auto const word = random();
        bytes.append(reinterpret_cast<char const *>(&word), sizeof word);
    }
    return bytes;
}

bool write_head(database const &base, Tvx_tos4_grid const &grid, std::string const &proj4)
{
    auto head = base.prepare("INSERT INTO tos_file VALUES(1, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)");
    head.bind_blob(1, new_identity());
    head.bind(2, static_cast<std::int64_t>(grid.objects()));
    head.bind(3, std::int64_t{grid.dimensions});
    for (int axis = 0; axis < 3; ++axis) {
        head.bind(4 + axis, static_cast<std::int64_t>(grid.count[axis]));
        head.bind(7 + axis, grid.origin[axis]);
        head.bind(10 + axis, grid.spacing[axis]);
    }
    head.bind(13, grid.azimuth);
    head.bind(14, std::string_view(proj4));
    return head.run();
}
} // namespace

writer::writer() : f_file(std::make_unique<Tvx_atomic_file>())
{
}

writer::~writer() = default;

bool writer::failed(vx::fault &fault)
{
    if (f_base) {
        fault = f_base->fault(c_capt_file_not_written, f_native);
        fault.subject = f_path;
    }
    f_is_good = false;
    f_block = {};
    f_base.reset();
    f_file->drop();
    return false;
}

bool writer::begin(std::wstring const &path, Tvx_tos4_grid const &grid, std::wstring const &proj4,
                   vx::fault &fault)
{
    fault = {};
    f_path = path;
    f_objects = grid.objects();
    auto const bytes = vx::text::wide_to_utf8(proj4);
    if (!is_grid(grid) || bytes.size() > c_longest_proj4) {
        fault = {c_capt_tos_grid, path, 0, {}};
        return false;
    }
    if (!f_file->begin(path, fault))
        return false;
    f_native = f_file->native_path();
    f_base = database::create(f_native, fault);
    if (!f_base) {
        fault.subject = path;
        return failed(fault);
    }
    f_block = f_base->prepare("INSERT INTO tos_block VALUES(?, ?)");
    f_is_good = f_block && write_head(*f_base, grid, bytes);
    f_rest.reserve(c_block_cells);
    return f_is_good || failed(fault);
}

bool writer::add_property(std::wstring const &name, std::wstring const &caption, vx::fault &fault)
{
    fault = {};
    if (!f_is_good)
        return failed(fault);
    bool const is_name = !name.empty() && name.size() <= c_longest_name &&
                         caption.size() <= c_longest_caption && f_records.size() < c_tos4_most_properties &&
                         f_names.insert(name).second;
    if (!is_name) {
        fault = {c_capt_tos_name, name, 0, {}};
        return false;
    }
    auto const row = static_cast<std::int64_t>(f_records.size());
    bool good = f_records.empty() || end_property();
    auto property = f_base->prepare("INSERT INTO tos_property VALUES(?, ?, ?)");
    property.bind(1, row);
    auto const name_bytes = vx::text::wide_to_utf8(name);
    auto const caption_bytes = vx::text::wide_to_utf8(caption);
    property.bind(2, std::string_view(name_bytes));
    property.bind(3, std::string_view(caption_bytes));
    good = good && property.run();
    f_records.emplace_back();
    f_records.back().stat.emplace();
    f_done = 0;
    return good || failed(fault);
}

bool writer::write_block(double const *cells, std::size_t count)
{
    auto const bytes = pack_block({cells, count});
    std::uint64_t const block = f_done / c_block_cells;
    f_done += count;
    if (bytes.empty())
        return true;
    if (f_makes_records) {
        // What is not finite has no value in the file either.
        double kept[c_block_cells];
        packed_block packed;
        (void)packed.take(bytes, count);
        packed.unpack(kept);
        f_records.back().stat->add(kept, count);
    }
    return insert_block(block, bytes);
}

bool writer::insert_block(std::uint64_t block, std::string_view bytes)
{
    f_block.bind(1, block_row(static_cast<unsigned>(f_records.size() - 1), block));
    f_block.bind_blob(2, bytes);
    return f_block.run();
}

bool writer::take_blocks(file const &from, unsigned property, vx::fault &fault)
{
    auto blocks = from.base().prepare("SELECT id, cells FROM tos_block WHERE id >= ? AND id < ? ORDER BY id");
    auto const first = block_row(property, 0);
    blocks.bind(1, first);
    blocks.bind(2, block_row(property + 1, 0));
    auto const packed = std::make_unique<packed_block>();
    std::vector<double> cells(c_block_cells);
    while (blocks.step()) {
        auto const bytes = blocks.blob(1);
        auto const block = static_cast<std::uint64_t>(blocks.integer(0).value_or(first) - first);
        bool const is_block = block < block_count(f_objects);
        auto const count =
            is_block ? std::min<std::uint64_t>(c_block_cells, f_objects - block * c_block_cells) : 0;
        if (!bytes || !is_block || !packed->take(*bytes, static_cast<std::size_t>(count))) {
            (void)failed(fault);
            fault = {c_capt_tos_damaged, from.path(), 0, {}};
            return false;
        }
        if (f_makes_records) {
            packed->unpack(cells.data());
            f_records.back().stat->add(cells.data(), packed->count());
        }
        if (!insert_block(block, *bytes))
            return failed(fault);
    }
    f_done = f_objects;
    if (!blocks.failed())
        return true;
    (void)failed(fault);
    fault = {c_capt_tos_damaged, from.path(), 0, {}};
    return false;
}

bool writer::take_properties(file const &from, vx::fault &fault)
{
    fault = {};
    if (!f_is_good || from.objects() != f_objects) {
        fault = {c_capt_tos_grid, from.path(), 0, {}};
        return false;
    }
    for (unsigned i = 0; i < from.properties().size(); ++i) {
        auto const &property = from.properties()[i];
        if (!add_property(property.name, property.caption, fault) || !take_blocks(from, i, fault))
            return false;
    }
    return true;
}

bool writer::append(double const *values, std::uint64_t count, vx::fault &fault)
{
    fault = {};
    if (!f_is_good || f_records.empty() || count > f_objects - f_done - f_rest.size()) {
        fault = {c_capt_tos_grid, f_path, 0, {}};
        return false;
    }
    while (count > 0) {
        if (f_rest.empty() && count >= c_block_cells) {
            if (!write_block(values, c_block_cells))
                return failed(fault);
            values += c_block_cells;
            count -= c_block_cells;
            continue;
        }
        auto const part = std::min<std::uint64_t>(count, c_block_cells - f_rest.size());
        f_rest.insert(f_rest.end(), values, values + part);
        values += part;
        count -= part;
        if (f_rest.size() == c_block_cells && !write_rest())
            return failed(fault);
    }
    return true;
}

bool writer::write_rest()
{
    bool const good = f_rest.empty() || write_block(f_rest.data(), f_rest.size());
    f_rest.clear();
    return good;
}

/// The last block of a property has as many cells as objects are left, which the reader knows.
bool writer::end_property()
{
    auto const block_end = (f_done / c_block_cells + 1) * c_block_cells;
    if (!f_rest.empty())
        f_rest.resize(static_cast<std::size_t>(std::min(block_end, f_objects) - f_done),
                      std::numeric_limits<double>::quiet_NaN());
    return write_rest() && add_histogram();
}

bool writer::add_histogram()
{
    auto &r = f_records.back();
    if (!f_makes_records)
        r = {};
    if (!r.has_values())
        return true;
    cell_histogram classes(r.stat->minimum, r.stat->maximum);
    auto blocks = f_base->prepare("SELECT id, cells FROM tos_block WHERE id >= ? ORDER BY id");
    auto const first = block_row(static_cast<unsigned>(f_records.size() - 1), 0);
    blocks.bind(1, first);
    auto const packed = std::make_unique<packed_block>();
    std::vector<double> cells(c_block_cells);
    while (blocks.step()) {
        auto const row = blocks.integer(0);
        auto const bytes = blocks.blob(1);
        auto const start = static_cast<std::uint64_t>(row.value_or(first) - first) * c_block_cells;
        auto const count = std::min<std::uint64_t>(c_block_cells, f_objects - std::min(start, f_objects));
        if (!bytes || !packed->take(*bytes, static_cast<std::size_t>(count)))
            return false;
        packed->unpack(cells.data());
        classes.add(cells.data(), packed->count());
    }
    r.histogram = classes;
    return !blocks.failed();
}

bool writer::finish(vx::fault &fault)
{
    fault = {};
    if (!f_is_good)
        return failed(fault);
    bool good = f_records.empty() || end_property();
    auto record_row = f_base->prepare("INSERT INTO tos_record VALUES(?, ?, ?)");
    for (std::size_t i = 0; good && i < f_records.size(); ++i) {
        auto const &r = f_records[i];
        record_row.bind(1, static_cast<std::int64_t>(i));
        record_row.bind_blob(2, write_record(r, 1));
        record_row.bind_blob(3, write_record({}, 0));
        good = record_row.run();
    }
    record_row = {};
    f_block = {};
    good = good && f_base->execute("COMMIT");
    if (!good)
        return failed(fault);
    f_base.reset();
    f_is_good = false;
    return f_file->commit(fault);
}
} // namespace vx::tos
