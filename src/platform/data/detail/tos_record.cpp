#include "platform/data/detail/tos_record.h"

#include "platform/base/detail/checksum.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstring>

namespace vx::tos {
namespace {
/// What a record in the file holds; the numbers stand in files.
constexpr std::uint32_t c_has_stat = 1;
constexpr std::uint32_t c_has_histogram = 2;
constexpr std::size_t c_checksum = 4; ///< bytes; it comes first and covers the rest

class writer
{
public:
    template <class T>
    void put(T value)
    {
        char raw[sizeof value];
        std::memcpy(raw, &value, sizeof value);
        bytes.append(raw, sizeof value);
    }
    std::string bytes;
};

class reader
{
public:
    explicit reader(std::string_view bytes) : f_bytes(bytes) {}
    template <class T>
    void get(T &value)
    {
        std::memcpy(&value, f_bytes.data(), sizeof value);
        f_bytes.remove_prefix(sizeof value);
    }

private:
    std::string_view f_bytes;
};

bool can_be(cell_stat const &s, std::uint64_t objects)
{
    if (s.count > objects)
        return false;
    return s.count == 0 || (std::isfinite(s.minimum) && std::isfinite(s.maximum) && s.minimum <= s.average &&
                            s.average <= s.maximum && s.squares >= 0);
}

bool can_be(cell_histogram const &h, std::uint64_t objects)
{
    if (!std::isfinite(h.low) || !std::isfinite(h.high) || !(h.low <= h.high))
        return false;
    std::uint64_t left = objects;
    return std::ranges::all_of(h.counts, [&left](std::uint64_t count) {
        bool const fits = count <= left;
        left -= fits ? count : 0;
        return fits;
    });
}
} // namespace

void cell_stat::add(double const *cells, std::size_t size)
{
    cell_stat part;
    for (std::size_t i = 0; i < size; ++i) {
        double const cell = cells[i];
        if (std::isnan(cell))
            continue;
        if (part.count == 0)
            part.minimum = part.maximum = cell;
        part.minimum = std::min(part.minimum, cell);
        part.maximum = std::max(part.maximum, cell);
        ++part.count;
    }
    if (part.count == 0)
        return;
    // Sums of distances from the middle lose less than sums of the cells; the block is in the processor's
    // cache.
    double sum = 0;
    double const near = part.minimum * 0.5 + part.maximum * 0.5;
    for (std::size_t i = 0; i < size; ++i)
        if (!std::isnan(cells[i]))
            sum += cells[i] - near;
    double const mean = near + sum / static_cast<double>(part.count);
    part.average = std::clamp(std::isnan(mean) ? near : mean, part.minimum, part.maximum);
    for (std::size_t i = 0; i < size; ++i)
        if (!std::isnan(cells[i]))
            part.squares += (cells[i] - part.average) * (cells[i] - part.average);
    add(part);
}

void cell_stat::add(cell_stat const &other)
{
    if (other.count == 0)
        return;
    if (count == 0) {
        *this = other;
        return;
    }
    auto const a = static_cast<double>(count);
    auto const b = static_cast<double>(other.count);
    // The difference of two doubles may be beyond all doubles.
    long double const distance = static_cast<long double>(other.average) - average;
    minimum = std::min(minimum, other.minimum);
    maximum = std::max(maximum, other.maximum);
    average = std::clamp(static_cast<double>(average + distance * (b / (a + b))), minimum, maximum);
    squares = static_cast<double>(squares + other.squares + distance * distance * (a * b / (a + b)));
    count += other.count;
}

double cell_stat::deviation() const
{
    return count > 1 ? std::sqrt(squares / static_cast<double>(count - 1)) : 0;
}

cell_histogram::cell_histogram(double low_bound, double high_bound) : low(low_bound), high(high_bound)
{
    // The difference of two doubles may be beyond all doubles.
    f_factor = std::isfinite(high - low) ? 1 : 0.5;
    double const range = high * f_factor - low * f_factor;
    f_scale = range > 0 ? c_classes / range : 0;
}

void cell_histogram::add(double const *cells, std::size_t size)
{
    for (std::size_t i = 0; i < size; ++i) {
        double const cell = cells[i];
        if (!(cell >= low && cell <= high))
            continue;
        double const place = (cell * f_factor - low * f_factor) * f_scale;
        ++counts[place < c_classes ? static_cast<std::size_t>(place) : c_classes - 1];
    }
}

std::string write_record(record const &r, std::uint64_t save)
{
    writer w;
    w.put((r.stat ? c_has_stat : 0) | (r.histogram ? c_has_histogram : 0));
    w.put(save);
    auto const stat = r.stat.value_or(cell_stat());
    w.put(stat.count);
    for (double const value : {stat.minimum, stat.maximum, stat.average, stat.squares})
        w.put(value);
    auto const histogram = r.histogram.value_or(cell_histogram(0, 0));
    w.put(histogram.low);
    w.put(histogram.high);
    for (auto const count : histogram.counts)
        w.put(count);
    writer all;
    all.put(crc32(w.bytes));
    return all.bytes + w.bytes;
}

std::optional<read_result> read_record(std::string_view bytes, std::uint64_t objects)
{
    if (bytes.size() != c_record_bytes)
        return std::nullopt;
    std::uint32_t sum = 0;
    std::uint32_t holds = 0;
    reader in(bytes);
    in.get(sum);
    in.get(holds);
    if (sum != crc32(bytes.substr(c_checksum)) || holds > (c_has_stat | c_has_histogram))
        return std::nullopt;
    read_result result;
    in.get(result.save);
    cell_stat stat;
    in.get(stat.count);
    for (double *value : {&stat.minimum, &stat.maximum, &stat.average, &stat.squares})
        in.get(*value);
    double low = 0;
    double high = 0;
    in.get(low);
    in.get(high);
    cell_histogram histogram(low, high);
    for (auto &count : histogram.counts)
        in.get(count);
    if (holds & c_has_stat && !can_be(stat, objects))
        return std::nullopt;
    if (holds & c_has_histogram && !can_be(histogram, objects))
        return std::nullopt;
    if (holds & c_has_stat)
        result.r.stat = stat;
    if (holds & c_has_histogram)
        result.r.histogram = histogram;
    return result;
}
} // namespace vx::tos
