#pragma once

#include "platform/base/geometry.h"
#include "platform/data/vx_shape_files.h"

#include <vector>

struct Tvx_op2d;

/// Geometry of a whole data set in plain arrays.
namespace vx::attr {
class shape_set
{
public:
    /// Appends the next shape. Points that are no numbers, and parts that have no points, are left out.
    void append(Tvx_shape_kind kind, Tvx_op2d const *list);
    void append_point(Tvx_pnt_d2 point);
    void append_none();
    void finish();
    /// The source could not read all shapes; those are without geometry here.
    void set_damaged() { f_is_damaged = true; }

    [[nodiscard]] std::size_t size() const { return f_shapes.size(); }
    [[nodiscard]] Tvx_box_d2 const &box() const { return f_box; }
    [[nodiscard]] bool is_damaged() const { return f_is_damaged; }
    [[nodiscard]] Tvx_shape_view view(std::size_t index) const;
    [[nodiscard]] bool meets(std::size_t index, Tvx_box_d2 const &box) const
    {
        return f_shapes[index].box.intersects(box);
    }

private:
    struct shape
    {
        Tvx_box_d2 box;
        unsigned first_part = 0;
        unsigned part_count = 0;
        Tvx_shape_kind kind = c_shape_none;
    };
    void begin(Tvx_shape_kind kind);
    void add_point(double x, double y);
    void end_part();
    void end();

    std::vector<Tvx_pnt_d2> f_points;
    std::vector<unsigned> f_part_starts; ///< each shape's parts, and one entry behind them
    std::vector<shape> f_shapes;
    Tvx_box_d2 f_box;
    bool f_is_damaged = false;
};
} // namespace vx::attr
