#pragma once

#include "platform/base/geometry.h"
#include "platform/data/vx_shape_files.h"

#include <cstdint>
#include <span>
#include <unordered_map>
#include <vector>

/// Where labels may stand. All in pixels of the map, `y` downwards.
namespace vx::render {
/// A rectangle, turned or not.
struct label_quad
{
    Tvx_pnt_d2 middle;
    Tvx_pnt_d2 along{1, 0}; ///< unit vector of its length
    double half_length = 0;
    double half_height = 0;

    [[nodiscard]] Tvx_box_d2 box() const;
    [[nodiscard]] Tvx_pnt_d2 corner(int index) const; ///< 0 to 3, round about
};
[[nodiscard]] bool overlap(label_quad const &a, label_quad const &b);

/// Quads, to be asked which of them are in the way.
class quad_index
{
public:
    void add(label_quad const &quad);
    /// Whether one of the quads overlaps.
    [[nodiscard]] bool meets(label_quad const &quad) const;

private:
    struct entry
    {
        label_quad quad;
        Tvx_box_d2 box;
    };
    static constexpr double c_cell = 64;
    template <class Visit>
    static bool any_cell(Tvx_box_d2 const &box, Visit visit);

    std::vector<entry> f_entries;
    std::unordered_map<std::uint64_t, std::vector<unsigned>> f_cells;
};

/// Rings in pixels, filled by the even-odd rule.
using label_rings = std::vector<std::vector<Tvx_pnt_d2>>;
[[nodiscard]] bool is_inside(label_rings const &rings, Tvx_pnt_d2 at);
/// The rectangle lies in the area whole.
[[nodiscard]] bool holds(label_rings const &rings, label_quad const &quad);
/// The place in the area that is farthest from its border, for a rectangle of this shape, which lies along
/// `along`: distances are taken in halves of its length and height. Empty rings give the origin.
[[nodiscard]] Tvx_pnt_d2 place_inside(label_rings const &rings, Tvx_pnt_d2 along, double half_length,
                                      double half_height);
[[nodiscard]] double ring_area(std::span<Tvx_pnt_d2 const> ring);

/// A line by its length.
class measured_line
{
public:
    explicit measured_line(std::vector<Tvx_pnt_d2> points);
    [[nodiscard]] double length() const { return f_lengths.empty() ? 0 : f_lengths.back(); }
    [[nodiscard]] Tvx_pnt_d2 at(double length) const;
    /// How far the part between two lengths goes from the straight way.
    [[nodiscard]] double farthest_from_chord(double begin, double end) const;
    void reverse();

private:
    std::vector<Tvx_pnt_d2> f_points;
    std::vector<double> f_lengths; ///< at the points
};
} // namespace vx::render
