#pragma once

#include "platform/base/geometry.h"
#include "platform/data/detail/shape_grid.h"
#include "platform/data/vx_shape_files.h"

#include <cmath>
#include <vector>

struct Tvx_op2d;

/// Geometry of a whole data set in plain arrays.
namespace vx::attr {
/// As long as each shape is one point, or none, there are the points and nothing else: 16 bytes a shape, and
/// 5 of the grid once a small part of them was asked for.
class shape_set
{
public:
    /// `expected` is the number of shapes that will come, as far as it is known.
    explicit shape_set(std::size_t expected);

    /// Appends the next shape. Points that are no numbers, and parts that have no points, are left out.
    void append(Tvx_shape_kind kind, Tvx_op2d const *list);
    void append_point(Tvx_pnt_d2 point);
    void append_none();
    void finish();
    /// The source could not read all shapes; those are without geometry here.
    void set_damaged() { f_is_damaged = true; }

    [[nodiscard]] std::size_t size() const { return f_is_plain ? f_points.size() : f_shapes.size(); }
    [[nodiscard]] Tvx_box_d2 const &box() const { return f_box; }
    [[nodiscard]] bool is_damaged() const { return f_is_damaged; }
    [[nodiscard]] Tvx_shape_view view(std::size_t index) const;
    [[nodiscard]] bool meets(std::size_t index, Tvx_box_d2 const &box) const
    {
        return f_is_plain ? holds(box, f_points[index]) : f_shapes[index].box.intersects(box);
    }
    /// Calls `visit` with the number of each shape whose box meets `box`, in order, until it gives false.
    template <class Visit>
    void visit(Tvx_box_d2 const &box, Visit visit) const
    {
        if (is_small_part(box)) {
            for (std::uint32_t const i : f_grid.find(box))
                if (meets(i, box) && !visit(std::size_t{i}))
                    return;
            return;
        }
        for (std::size_t i = 0; i < size(); ++i)
            if (meets(i, box) && !visit(i))
                return;
    }

private:
    struct shape
    {
        Tvx_box_d2 box;
        unsigned first_part = 0;
        unsigned part_count = 0;
        Tvx_shape_kind kind = c_shape_none;
    };
    /// A point that is no number, which stands for no geometry, lies in no box. One jump for all four bounds:
    /// where points lie cannot be foretold.
    [[nodiscard]] static bool holds(Tvx_box_d2 const &box, Tvx_pnt_d2 const &p)
    {
        return (int{p.x >= box.min_x} & int{p.x <= box.max_x} & int{p.y >= box.min_y} &
                int{p.y <= box.max_y}) != 0;
    }
    [[nodiscard]] Tvx_box_d2 box_of(std::size_t index) const;
    /// Whether the grid answers the window faster than a look at all; makes the grid when it is first worth
    /// it.
    [[nodiscard]] bool is_small_part(Tvx_box_d2 const &window) const;
    /// Goes over to shapes of any kind.
    void leave_plain();
    void begin(Tvx_shape_kind kind);
    void add_point(double x, double y);
    void end_part();
    void end();

    std::size_t f_expected;
    std::vector<Tvx_pnt_d2> f_points;
    bool f_is_plain = true;              ///< shape i is point i
    std::vector<unsigned> f_part_starts; ///< each shape's parts, and one entry behind them
    std::vector<shape> f_shapes;
    Tvx_box_d2 f_box;
    mutable shape_grid f_grid;
    bool f_is_damaged = false;
};
} // namespace vx::attr
