#pragma once

#include "platform/data/detail/tos_block.h"
#include "platform/data/detail/tos_database.h"
#include "platform/data/detail/tos_record.h"
#include "platform/data/vx_file_tos4.h"

#include <array>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace vx::tos {
struct property_names
{
    std::wstring name;
    std::wstring caption;
    std::string name_bytes; ///< in the system code page
    std::string caption_bytes;
};

/// Row of a block, or of the first one, of a property.
[[nodiscard]] inline std::int64_t block_row(unsigned property, std::uint64_t block)
{
    return static_cast<std::int64_t>(std::uint64_t{property} << 32 | block);
}
[[nodiscard]] inline std::uint64_t block_count(std::uint64_t objects)
{
    return (objects + c_block_cells - 1) / c_block_cells;
}

/// Whether objects can lie so.
[[nodiscard]] bool is_grid(Tvx_tos4_grid const &grid);

/// An open property file.
class file
{
public:
    /// Null, with the reason in `fault`, when it cannot be opened so.
    [[nodiscard]] static std::shared_ptr<file> open(std::wstring const &path, bool read_only,
                                                    vx::fault &fault);

    [[nodiscard]] std::wstring const &path() const { return f_path; }
    [[nodiscard]] Tvx_tos4_grid const &grid() const { return f_grid; }
    [[nodiscard]] std::wstring const &proj4() const { return f_proj4; }
    [[nodiscard]] std::uint64_t objects() const { return f_objects; }
    [[nodiscard]] std::vector<property_names> const &properties() const { return f_properties; }
    [[nodiscard]] database const &base() const { return *f_base; }

    /// What is known of a property: by this object, in memory, or in the file.
    [[nodiscard]] record known(unsigned property);
    /// Keeps the record, in the file if that is open for writing, else in memory as long as the file is the
    /// same. False, with the reason in `fault`, when it could not be written; it is in memory then.
    bool keep(unsigned property, record const &r, vx::fault &fault);

private:
    file() = default;
    bool read_head();
    bool read_properties();
    [[nodiscard]] record stored(unsigned property);
    bool store(unsigned property, record const &r, vx::fault &fault);
    /// What the file is called among those whose records are in memory; changes when it is written.
    [[nodiscard]] std::string memory_name(unsigned property) const;

    std::wstring f_path;
    std::string f_native;
    std::optional<database> f_base;
    std::optional<database> f_records; ///< open for writing
    std::string f_identity;
    Tvx_tos4_grid f_grid;
    std::wstring f_proj4;
    std::uint64_t f_objects = 0;
    std::vector<property_names> f_properties;
};

/// The values of a property.
class property
{
public:
    property(std::shared_ptr<file> of, unsigned index);

    [[nodiscard]] file &of() { return *f_file; }
    [[nodiscard]] unsigned index() const { return f_index; }
    /// No number when the cell has no value.
    [[nodiscard]] double value(std::uint64_t object)
    {
        return object - f_first < f_unpacked ? f_cells[object - f_first] : other_value(object);
    }
    [[nodiscard]] std::uint64_t values(std::uint64_t first, std::uint64_t count, double *values);
    [[nodiscard]] bool is_damaged() const { return f_is_damaged; }

    /// Hands out the cells block by block, but for blocks without values, until `visit` gives false; that, a
    /// damaged block, and one who waits for data sets and gives up make it false.
    bool walk(std::function<bool(double const *cells, std::size_t count)> const &visit);

    [[nodiscard]] record const &known() const;
    bool update_stat(vx::fault &fault);
    bool update_histogram(vx::fault &fault);
    /// A histogram between other bounds; nothing when the cells cannot be read.
    [[nodiscard]] std::optional<cell_histogram> histogram(double low, double high);

private:
    struct slot
    {
        std::uint64_t block = ~std::uint64_t{0};
        bool is_unpacked = false;
        packed_block packed;
        double cells[c_block_cells];
    };
    static constexpr std::size_t c_slots = 16;
    [[nodiscard]] record &known_record() const;

    [[nodiscard]] double other_value(std::uint64_t object);
    [[nodiscard]] std::size_t cells_of(std::uint64_t block) const;
    [[nodiscard]] slot &slot_of(std::uint64_t block);
    void unpack(slot &s);
    std::optional<cell_stat> look_at_all();

    std::shared_ptr<file> f_file;
    unsigned f_index;
    mutable std::optional<record> f_known; ///< nothing before it is asked for
    statement f_block;
    std::array<std::unique_ptr<slot>, c_slots> f_slots;
    bool f_is_damaged = false;
    // The block that was asked for last, once it is unpacked.
    std::uint64_t f_first = 0;
    std::uint64_t f_unpacked = 0; ///< cells
    double const *f_cells = nullptr;
};
} // namespace vx::tos
