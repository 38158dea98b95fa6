#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string_view>
#include <vector>

/// Cells of one field, many at a time: what statistics, unique values and columns are made of.
namespace vx::gdal {
/// A run of cells in record order. Valid during the call that hands it out.
struct column_batch
{
    enum cell_kind
    {
        integers,  ///< `std::int32_t`
        bigints,   ///< `long long`
        floatings, ///< `double`
        texts,     ///< UTF-8
    };

    cell_kind kind = texts;
    std::size_t count = 0;
    void const *values = nullptr;          ///< the numbers; null for texts
    std::int32_t const *starts = nullptr;  ///< text `i` has the bytes from `starts[i]` up to `starts[i + 1]`
    char const *bytes = nullptr;           ///< of all texts
    std::uint8_t const *defined = nullptr; ///< a bit a cell, the lowest first; null: no cell is null

    [[nodiscard]] bool is_defined(std::size_t i) const
    {
        return !defined || (defined[i / 8] >> (i % 8) & 1) != 0;
    }
    [[nodiscard]] std::string_view text(std::size_t i) const
    {
        return {bytes + starts[i], static_cast<std::size_t>(starts[i + 1] - starts[i])};
    }
    template <class T>
    [[nodiscard]] T const *numbers() const
    {
        return static_cast<T const *>(values);
    }
};

/// Takes a batch; false to stop.
using column_sink = std::function<bool(column_batch const &batch)>;

enum class column_result
{
    done,
    not_offered, ///< nothing was handed out: another way has to be taken
    failed,
};

/// A way through the cells of a field, some at a time, that leaves all other reading alone.
class column_walk
{
public:
    column_walk() = default;
    column_walk(column_walk const &) = delete;
    column_walk &operator=(column_walk const &) = delete;
    virtual ~column_walk() = default;

    enum step_result
    {
        c_more,
        c_end,    ///< also where the sink wants no more
        c_broken, ///< the rest cannot be read
    };
    /// Hands out what comes next: what takes a few milliseconds at most.
    [[nodiscard]] virtual step_result step(column_sink const &sink) = 0;
};

/// Collects single cells and hands them out in batches. `finish` hands out the rest; each call gives false
/// when the sink wants no more.
class column_builder
{
public:
    column_builder(column_batch::cell_kind kind, column_sink const &sink);

    bool add_null();
    /// Of one of the kinds of whole numbers.
    bool add_whole(long long value);
    bool add_floating(double value);
    bool add_text(std::string_view text);
    bool finish();

private:
    void set_whole(long long value);
    bool added(bool is_defined);
    bool hand_out();

    column_batch::cell_kind f_kind;
    column_sink const &f_sink;
    std::size_t f_count = 0;
    bool f_has_null = false;
    std::vector<long long> f_words; ///< room for the numbers of a batch
    std::vector<char> f_bytes;
    std::vector<std::int32_t> f_starts;
    std::vector<std::uint8_t> f_defined;
};
} // namespace vx::gdal
