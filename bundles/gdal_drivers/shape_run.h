#pragma once

#include "extension/binding/shape_visitor.h"

#include <cstddef>
#include <memory>
#include <vector>

class OGRGeometry;

namespace vx::gdal {
/// Shapes on their way to whoever reads them, some thousands at a time. As long as each is a point, or none,
/// there are the points and nothing else.
class shape_run
{
public:
    /// With `has_records` each shape comes with the number of its record, else they follow each other.
    explicit shape_run(bool has_records) : f_has_records(has_records) {}

    void add_point(double x, double y, unsigned long long record)
    {
        if (f_says_kinds)
            return add_among_others(x, y, record);
        double *const place = room_for(1);
        place[0] = x;
        place[1] = y;
        note(record);
        ++f_count;
    }
    void add_none(unsigned long long record);
    /// Room for the vertices of a shape with these parts, x and y of each; valid until the next call.
    [[nodiscard]] double *add_shape(int kind, unsigned const *vertex_counts, std::size_t parts,
                                    unsigned long long record);
    /// A shape with its vertices, which are taken over where the run is empty, and copied elsewhere.
    void add_shape(int kind, std::vector<unsigned> const &vertex_counts, unsigned long long record,
                   std::unique_ptr<double[]> vertices, std::size_t count);
    /// The same of a geometry of the format library; null counts as none. Of a collection of several kinds
    /// there is the main one.
    void add(OGRGeometry const *geometry, unsigned long long record);
    /// What is in the run is worth handing out.
    [[nodiscard]] bool is_large() const { return f_count >= c_shapes || f_place_count >= c_numbers; }

    /// It is so large that handing it out takes some milliseconds.
    [[nodiscard]] bool is_huge() const { return f_place_count >= c_huge; }

    /// Hands out what there is, and begins anew.
    void flush(vx::shape_visitor visitor);

private:
    static constexpr std::size_t c_shapes = 8192;
    static constexpr std::size_t c_numbers = 1 << 15; ///< so many stay in the processor's cache

    static constexpr std::size_t c_huge = 1 << 18;

    void note(unsigned long long record)
    {
        if (f_has_records)
            f_records.push_back(record);
    }
    /// Of so many vertices at the end.
    [[nodiscard]] double *room_for(std::size_t vertices)
    {
        std::size_t const begin = f_place_count;
        f_place_count += 2 * vertices;
        if (f_place_count > f_place_room)
            grow(begin);
        return f_places.get() + begin;
    }
    void grow(std::size_t kept);
    void add_among_others(double x, double y, unsigned long long record);
    void leave_points();

    bool f_has_records;
    bool f_says_kinds = false; ///< there are not only points
    std::size_t f_count = 0;
    std::vector<int> f_kinds;
    std::vector<unsigned> f_part_counts;
    std::vector<unsigned> f_vertex_counts;
    std::unique_ptr<double[]> f_places; ///< without the zeros that a vector would write first
    std::size_t f_place_count = 0;
    std::size_t f_place_room = 0;
    std::vector<unsigned long long> f_records;
};
} // namespace vx::gdal
