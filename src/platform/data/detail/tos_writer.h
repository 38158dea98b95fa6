#pragma once

#include "platform/data/detail/tos_database.h"
#include "platform/data/detail/tos_record.h"
#include "platform/data/vx_file_tos4.h"

#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

class Tvx_atomic_file;

namespace vx::tos {
class file;

/// A new property file, made beside the one whose place it takes.
class writer
{
public:
    writer();
    writer(writer const &) = delete;
    writer &operator=(writer const &) = delete;
    ~writer();

    /// False, with the reason in `fault`, when it cannot be begun. After any failure nothing more is done.
    [[nodiscard]] bool begin(std::wstring const &path, Tvx_tos4_grid const &grid, std::wstring const &proj4,
                             vx::fault &fault);
    void set_statistics(bool made) { f_makes_records = made; }
    [[nodiscard]] bool add_property(std::wstring const &name, std::wstring const &caption, vx::fault &fault);
    [[nodiscard]] bool append(double const *values, std::uint64_t count, vx::fault &fault);
    /// Adds all properties of a file with as many objects, as they lie there.
    [[nodiscard]] bool take_properties(file const &from, vx::fault &fault);
    [[nodiscard]] bool finish(vx::fault &fault);

private:
    bool write_block(double const *cells, std::size_t count);
    bool insert_block(std::uint64_t block, std::string_view bytes);
    bool take_blocks(file const &from, unsigned property, vx::fault &fault);
    bool write_rest();
    bool end_property();
    bool add_histogram();
    bool failed(vx::fault &fault);

    std::wstring f_path;
    std::unique_ptr<Tvx_atomic_file> f_file;
    std::string f_native;
    std::optional<database> f_base;
    statement f_block;
    std::uint64_t f_objects = 0;
    std::set<std::wstring> f_names;
    std::vector<record> f_records; ///< of the properties
    std::uint64_t f_done = 0;      ///< values of the property that lie in blocks
    std::vector<double> f_rest;    ///< those that come next
    bool f_makes_records = true;
    bool f_is_good = false;
};
} // namespace vx::tos
