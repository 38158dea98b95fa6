#include "platform/data/detail/tos_file.h"

#include "captions/engine.h"

#include "platform/base/text_codec.h"
#include "platform/basic/vx_datasource.h"
#include "platform/winapi/file.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <limits>
#include <list>
#include <sys/stat.h>

namespace vx::tos {
namespace {
constexpr double c_no_value = std::numeric_limits<double>::quiet_NaN();
constexpr std::size_t c_identity = 16;            ///< bytes
constexpr std::size_t c_longest_text = 4096;      ///< bytes of a name or caption
constexpr std::size_t c_longest_proj4 = 16 << 10; ///< bytes
constexpr std::chrono::milliseconds c_between_questions{20};
constexpr unsigned c_blocks_between_looks = 64; ///< at the clock

/// Records that are in no file, the last one used first.
class record_memory
{
public:
    [[nodiscard]] record find(std::string const &name)
    {
        auto const at = std::ranges::find(f_records, name, &entry::name);
        if (at == f_records.end())
            return {};
        f_records.splice(f_records.begin(), f_records, at);
        return f_records.front().r;
    }
    void keep(std::string const &name, record const &r)
    {
        f_records.remove_if([&](entry const &one) { return one.name == name; });
        f_records.push_front({name, r});
        if (f_records.size() > c_kept)
            f_records.pop_back();
    }

private:
    static constexpr std::size_t c_kept = 256;
    struct entry
    {
        std::string name;
        record r;
    };
    std::list<entry> f_records;
};

record_memory &memory()
{
    static record_memory kept;
    return kept;
}

/// Asks the one who waits for data sets, if there is one, whether to go on.
class patience
{
public:
    [[nodiscard]] bool lasts()
    {
        if (!f_waiting || ++f_blocks % c_blocks_between_looks != 0)
            return true;
        auto const now = std::chrono::steady_clock::now();
        if (now - f_last < c_between_questions)
            return true;
        bool const goes_on = f_waiting();
        f_last = std::chrono::steady_clock::now();
        return goes_on;
    }

private:
    closure<bool()> f_waiting = vx_datasource_get_waiting();
    std::chrono::steady_clock::time_point f_last = std::chrono::steady_clock::now();
    unsigned f_blocks = 0;
};

/// The record of a row, the newer of the two that it has room for.
struct record_row
{
    std::optional<read_result> a;
    std::optional<read_result> b;

    [[nodiscard]] bool is_a_newer() const { return a && (!b || a->save >= b->save); }
    [[nodiscard]] std::uint64_t next_save() const { return 1 + std::max(a ? a->save : 0, b ? b->save : 0); }
};

/// Callers see names as texts that end with a zero.
bool is_short_text(std::optional<std::string_view> text)
{
    return text && text->size() <= c_longest_text && text->find('\0') == text->npos;
}

record_row read_row(database const &base, unsigned property, std::uint64_t objects)
{
    auto row = base.prepare("SELECT a, b FROM tos_record WHERE id = ?");
    row.bind(1, std::int64_t{property});
    if (!row.step())
        return {};
    record_row found;
    if (auto const a = row.blob(0))
        found.a = read_record(*a, objects);
    if (auto const b = row.blob(1))
        found.b = read_record(*b, objects);
    return found;
}
} // namespace

bool is_grid(Tvx_tos4_grid const &grid)
{
    std::uint64_t left = c_tos4_most_objects;
    for (int axis = 0; axis < 3; ++axis) {
        auto const count = grid.count[axis];
        // Objects that are no cells may be none at all.
        if (count > left || (count == 0 && (grid.dimensions > 0 || axis > 0)))
            return false;
        left /= std::max<std::uint64_t>(count, 1);
        if (count > 1 && axis >= std::max(grid.dimensions, 1))
            return false;
        if (!std::isfinite(grid.origin[axis]) || !std::isfinite(grid.spacing[axis]) ||
            grid.spacing[axis] == 0)
            return false;
    }
    return grid.dimensions >= 0 && grid.dimensions <= 3 && std::isfinite(grid.azimuth);
}

// ---- file

std::shared_ptr<file> file::open(std::wstring const &path, bool read_only, vx::fault &fault)
{
    fault = {};
    std::shared_ptr<file> opened(new file);
    opened->f_path = path;
    opened->f_native = vx_path_to_native(path);
    if (path.empty() || path.find(L'\0') != path.npos) {
        fault = {path.empty() ? c_capt_no_file_name : c_capt_name_has_zero, {}, 0, {}};
        return nullptr;
    }
    opened->f_base = database::open(opened->f_native, fault);
    if (!opened->f_base) {
        fault.subject = path;
        return nullptr;
    }
    if (!opened->read_head() || !opened->read_properties()) {
        fault = opened->f_base->fault(c_capt_tos_damaged, opened->f_native);
        return nullptr;
    }
    if (!read_only) {
        opened->f_records = database::open_for_records(opened->f_native, fault);
        if (!opened->f_records) {
            fault.subject = path;
            return nullptr;
        }
    }
    return opened;
}

bool file::read_head()
{
    auto head = f_base->prepare("SELECT identity, objects, dimensions, nx, ny, nz, x, y, z, dx, dy, dz, "
                                "azimuth, projection FROM tos_file WHERE id = 1");
    if (!head.step())
        return false;
    auto const identity = head.blob(0);
    auto const objects = head.integer(1);
    auto const dimensions = head.integer(2);
    auto const projection = head.text(13);
    if (!identity || identity->size() != c_identity || !objects || !dimensions || !projection ||
        projection->size() > c_longest_proj4)
        return false;
    f_identity = *identity;
    f_proj4 = vx::text::utf8_to_wide(*projection);
    if (*dimensions < 0 || *dimensions > 3)
        return false;
    f_grid.dimensions = static_cast<int>(*dimensions);
    for (int axis = 0; axis < 3; ++axis) {
        auto const count = head.integer(3 + axis);
        auto const origin = head.real(6 + axis);
        auto const spacing = head.real(9 + axis);
        if (!count || *count < 0 || !origin || !spacing)
            return false;
        f_grid.count[axis] = static_cast<unsigned long long>(*count);
        f_grid.origin[axis] = *origin;
        f_grid.spacing[axis] = *spacing;
    }
    auto const azimuth = head.real(12);
    if (!azimuth)
        return false;
    f_grid.azimuth = *azimuth;
    f_objects = static_cast<std::uint64_t>(*objects);
    return is_grid(f_grid) && f_objects == f_grid.objects();
}

bool file::read_properties()
{
    auto names = f_base->prepare("SELECT id, name, caption FROM tos_property ORDER BY id");
    while (names.step()) {
        auto const name = names.text(1);
        auto const caption = names.text(2);
        bool const fits = names.integer(0) == static_cast<std::int64_t>(f_properties.size()) &&
                          is_short_text(name) && !name->empty() && is_short_text(caption) &&
                          f_properties.size() < c_tos4_most_properties;
        if (!fits)
            return false;
        property_names one;
        one.name = vx::text::utf8_to_wide(*name);
        one.caption = caption->empty() ? one.name : vx::text::utf8_to_wide(*caption);
        one.name_bytes = vx::text::to_bytes(one.name);
        one.caption_bytes = vx::text::to_bytes(one.caption);
        f_properties.push_back(std::move(one));
    }
    return !names.failed();
}

record file::stored(unsigned property)
{
    // A view of its own, since what this object's database has read once it reads no more.
    vx::fault ignored;
    auto const base = database::open(f_native, ignored);
    if (!base)
        return {};
    auto identity = base->prepare("SELECT identity FROM tos_file WHERE id = 1");
    if (!identity.step() || identity.blob(0) != f_identity)
        return {};
    auto const row = read_row(*base, property, f_objects);
    auto const &newer = row.is_a_newer() ? row.a : row.b;
    return newer ? newer->r : record();
}

std::string file::memory_name(unsigned property) const
{
    struct stat info
    {
    };
    if (stat(f_native.c_str(), &info) != 0)
        return {};
    std::string name = f_identity;
    for (auto const part : {static_cast<long long>(info.st_dev), static_cast<long long>(info.st_ino),
                            static_cast<long long>(info.st_size), static_cast<long long>(info.st_mtim.tv_sec),
                            static_cast<long long>(info.st_mtim.tv_nsec), static_cast<long long>(property)})
        name += ' ' + std::to_string(part);
    return name;
}

record file::known(unsigned property)
{
    record r = stored(property);
    if (r.stat && (r.histogram || !r.has_values()))
        return r;
    record const kept = f_base->has_moved() ? record() : memory().find(memory_name(property));
    if (!r.stat)
        r.stat = kept.stat;
    if (!r.histogram)
        r.histogram = kept.histogram;
    return r;
}

bool file::keep(unsigned property, record const &r, vx::fault &fault)
{
    fault = {};
    bool const is_stored = !f_records || store(property, r, fault);
    if ((!f_records || !is_stored) && !f_base->has_moved())
        memory().keep(memory_name(property), r);
    return is_stored;
}

/// Overwrites the older of the two records in the row. They have places of their own, and a record that was
/// broken off in the middle does not fit its checksum: then the other one counts.
bool file::store(unsigned property, record const &r, vx::fault &fault)
{
    database const &base = *f_records;
    bool good = base.execute("BEGIN IMMEDIATE");
    if (good) {
        auto identity = base.prepare("SELECT identity FROM tos_file WHERE id = 1");
        good = !base.has_moved() && identity.step() && identity.blob(0) == f_identity;
    }
    if (good) {
        auto const row = read_row(base, property, f_objects);
        good = base.overwrite("tos_record", row.is_a_newer() ? "b" : "a", property,
                              write_record(r, row.next_save()));
    }
    good = good && base.execute("COMMIT");
    if (good)
        return true;
    fault = base.fault(c_capt_file_not_written, f_native);
    fault.subject = f_path;
    (void)base.execute("ROLLBACK");
    return false;
}

// ---- property

property::property(std::shared_ptr<file> of, unsigned index)
    : f_file(std::move(of)), f_index(index),
      f_block(f_file->base().prepare("SELECT cells FROM tos_block WHERE id = ?"))
{
}

record &property::known_record() const
{
    if (!f_known)
        f_known = f_file->known(f_index);
    return *f_known;
}

record const &property::known() const
{
    return known_record();
}

std::size_t property::cells_of(std::uint64_t block) const
{
    return static_cast<std::size_t>(
        std::min<std::uint64_t>(c_block_cells, f_file->objects() - block * c_block_cells));
}

property::slot &property::slot_of(std::uint64_t block)
{
    auto &place = f_slots[block % c_slots];
    if (!place)
        place = std::make_unique<slot>();
    slot &s = *place;
    if (s.block == block)
        return s;
    if (s.cells == f_cells)
        f_unpacked = 0;
    s.block = block;
    s.is_unpacked = false;
    std::size_t const count = cells_of(block);
    s.packed.clear(count);
    f_block.bind(1, block_row(f_index, block));
    if (f_block.step()) {
        auto const bytes = f_block.blob(0);
        f_is_damaged = !bytes || !s.packed.take(*bytes, count) || f_is_damaged;
    }
    f_is_damaged = f_is_damaged || f_block.failed();
    f_block.reset();
    return s;
}

void property::unpack(slot &s)
{
    if (!s.is_unpacked)
        s.packed.unpack(s.cells);
    s.is_unpacked = true;
    f_cells = s.cells;
    f_first = s.block * c_block_cells;
    f_unpacked = s.packed.count();
}

double property::other_value(std::uint64_t object)
{
    if (object >= f_file->objects())
        return c_no_value;
    std::uint64_t const block = object / c_block_cells;
    std::size_t const cell = static_cast<std::size_t>(object % c_block_cells);
    auto const &place = f_slots[block % c_slots];
    bool const is_there = place && place->block == block;
    slot &s = slot_of(block);
    // One cell of a block is taken as it lies there; who asks for a second one gets them all.
    if (!is_there)
        return s.packed.value(cell);
    unpack(s);
    return s.cells[cell];
}

std::uint64_t property::values(std::uint64_t first, std::uint64_t count, double *values)
{
    if (first >= f_file->objects())
        return 0;
    count = std::min(count, f_file->objects() - first);
    for (std::uint64_t done = 0; done < count;) {
        std::uint64_t const block = (first + done) / c_block_cells;
        std::uint64_t const cell = (first + done) % c_block_cells;
        slot &s = slot_of(block);
        unpack(s);
        std::uint64_t const part = std::min<std::uint64_t>(count - done, s.packed.count() - cell);
        std::copy_n(s.cells + cell, part, values + done);
        done += part;
    }
    return count;
}

bool property::walk(std::function<bool(double const *, std::size_t)> const &visit)
{
    auto blocks =
        f_file->base().prepare("SELECT id, cells FROM tos_block WHERE id >= ? AND id < ? ORDER BY id");
    blocks.bind(1, block_row(f_index, 0));
    blocks.bind(2, block_row(f_index, block_count(f_file->objects())));
    auto const packed = std::make_unique<packed_block>();
    std::vector<double> cells(c_block_cells);
    patience waiting;
    while (blocks.step()) {
        auto const row = blocks.integer(0);
        auto const bytes = blocks.blob(1);
        if (!row || !bytes ||
            !packed->take(*bytes, cells_of(static_cast<std::uint64_t>(*row - block_row(f_index, 0))))) {
            f_is_damaged = true;
            return false;
        }
        packed->unpack(cells.data());
        if (!visit(cells.data(), packed->count()) || !waiting.lasts())
            return false;
    }
    f_is_damaged = f_is_damaged || blocks.failed();
    return !blocks.failed();
}

std::optional<cell_stat> property::look_at_all()
{
    cell_stat stat;
    bool const good = walk([&stat](double const *cells, std::size_t count) {
        stat.add(cells, count);
        return true;
    });
    return good ? std::optional(stat) : std::nullopt;
}

std::optional<cell_histogram> property::histogram(double low, double high)
{
    cell_histogram classes(low, high);
    bool const good = walk([&classes](double const *cells, std::size_t count) {
        classes.add(cells, count);
        return true;
    });
    return good ? std::optional(classes) : std::nullopt;
}

bool property::update_stat(vx::fault &fault)
{
    auto const stat = look_at_all();
    fault = stat ? vx::fault() : vx::fault{c_capt_file_not_read, f_file->path(), 0, {}};
    if (!stat)
        return false;
    known_record().stat = stat;
    return f_file->keep(f_index, known_record(), fault);
}

bool property::update_histogram(vx::fault &fault)
{
    fault = {};
    record &known = known_record();
    auto const stat = known.stat ? known.stat : look_at_all();
    bool const has_values = stat && stat->count > 0;
    auto const made = has_values ? histogram(stat->minimum, stat->maximum) : std::nullopt;
    if (!stat || (has_values && !made)) {
        fault = {c_capt_file_not_read, f_file->path(), 0, {}};
        return false;
    }
    known.stat = stat;
    known.histogram = made;
    return f_file->keep(f_index, known, fault) && has_values;
}
} // namespace vx::tos
