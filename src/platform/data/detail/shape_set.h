#pragma once

#include "platform/base/geometry.h"
#include "platform/data/detail/shape_grid.h"
#include "platform/data/vx_shape_files.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

/// Geometry of a whole data set in plain arrays.
namespace vx::attr {
/// Shapes lie in blocks that never move once they can be seen, so a set may grow while its shapes are looked
/// at. As long as each shape is one point, or none, a block holds the points and nothing else: 16 bytes a
/// shape. Else a shape takes 12 more, where all shapes of a block have one part and are of one kind, and 36
/// with many points; what is not so takes another 4 or 1. To that come 5 of the grid once a small part of all
/// was asked for.
class shape_set
{
public:
    shape_set();
    shape_set(shape_set const &) = delete;
    shape_set &operator=(shape_set const &) = delete;
    ~shape_set();

    /// Appends the next shape, whose parts have so many points. Points that are no numbers, and parts that
    /// have no points, are left out.
    void append(Tvx_shape_kind kind, std::span<unsigned const> part_sizes, Tvx_pnt_d2 const *points);
    /// Appends many at once: `part_counts` of each shape, then the sizes of all parts and all points.
    void append_run(std::span<Tvx_shape_kind const> kinds, unsigned const *part_counts,
                    unsigned const *part_sizes, Tvx_pnt_d2 const *points);
    /// Points that are no number stand for no geometry.
    void append_points(std::span<Tvx_pnt_d2 const> points);
    void append_none();
    /// Shapes that were appended are seen from here on.
    void publish();
    /// Shapes that were appended and are not seen yet.
    [[nodiscard]] std::size_t hidden_count() const;
    /// Nothing more comes; publishes the rest.
    void finish();
    /// The source could not read all shapes; those are without geometry here.
    void set_damaged() { f_is_damaged = true; }
    /// Some record has parts of other kinds than its shape is of.
    void set_has_more_kinds() { f_has_more_kinds = true; }

    [[nodiscard]] std::size_t size() const { return f_size; }
    [[nodiscard]] Tvx_box_d2 const &box() const { return f_box; }
    [[nodiscard]] bool is_finished() const { return f_is_finished; }
    [[nodiscard]] bool is_damaged() const { return f_is_damaged; }
    [[nodiscard]] bool has_more_kinds() const { return f_has_more_kinds; }
    [[nodiscard]] Tvx_shape_view view(std::size_t index) const;
    /// Calls `visit` with the number and the view of each shape from `first` on whose box meets `box`, in
    /// order, until it gives false. What is appended meanwhile is not visited.
    template <class Visit>
    void visit(Tvx_box_d2 const &box, std::size_t first, Visit visit) const
    {
        if (first == 0 && f_is_finished && is_small_part(box)) {
            for (std::uint32_t const i : f_grid.find(box)) {
                Tvx_shape_view const found = view(i);
                if (found.box.intersects(box) && !visit(std::size_t{i}, found))
                    return;
            }
            return;
        }
        std::size_t const end = f_size;
        for (std::size_t b = block_of(first); first < end; ++b) {
            block const &in = *f_blocks[b];
            if (in.is_plain) {
                for (std::size_t i = first - in.first; i < in.size; ++i, ++first)
                    if (holds(box, in.points[i]) && !visit(first, in.view(i)))
                        return;
                continue;
            }
            packed_window const window = in.boxes.window(box);
            for (std::size_t i = first - in.first; i < in.size; ++i, ++first) {
                if (!in.boxes.may_meet(i, window))
                    continue;
                Tvx_shape_view const found = in.view(i);
                if (found.box.intersects(box) && !visit(first, found))
                    return;
            }
        }
    }

private:
    struct shape
    {
        Tvx_box_d2 box;
        unsigned first_part = 0;
        unsigned part_count = 0;
        Tvx_shape_kind kind = c_shape_none;
    };
    struct packed_window
    {
        int min_x, min_y, max_x, max_y;
    };
    /// Boxes in 8 bytes each: in steps of the box that holds them all.
    class packed_boxes
    {
    public:
        void pack(std::vector<shape> const &shapes);
        [[nodiscard]] packed_window window(Tvx_box_d2 const &box) const;
        /// False for boxes that do not meet that of the window.
        [[nodiscard]] bool may_meet(std::size_t index, packed_window const &w) const
        {
            packed const &b = f_boxes[index];
            return (int{b.min_x <= w.max_x} & int{b.max_x >= w.min_x} & int{b.min_y <= w.max_y} &
                    int{b.max_y >= w.min_y}) != 0;
        }

    private:
        struct packed
        {
            std::uint16_t min_x, min_y, max_x, max_y;
        };
        static constexpr double c_steps = 65535;
        Tvx_box_d2 f_whole;
        double f_per_x = 0; ///< steps in a unit
        double f_per_y = 0;
        std::vector<packed> f_boxes;
    };
    /// Shapes on their way into a block.
    struct coming
    {
        [[nodiscard]] std::size_t size() const { return is_plain ? points.size() : shapes.size(); }

        bool is_plain = true; ///< shape i is point i
        std::vector<Tvx_pnt_d2> points;
        std::vector<unsigned> part_starts; ///< of all shapes
        std::vector<shape> shapes;
    };
    struct block
    {
        [[nodiscard]] Tvx_shape_view view(std::size_t index) const;
        /// Packs shapes whose points and parts are here.
        void pack(std::vector<shape> const &shapes);

        std::size_t first = 0; ///< number of the first shape
        std::size_t size = 0;
        bool is_plain = true; ///< shape i is point i
        std::vector<Tvx_pnt_d2> points;
        std::vector<unsigned> part_starts; ///< of all shapes, and one entry behind them
        std::vector<unsigned> first_parts; ///< and one entry behind them; empty where shape i is part i
        Tvx_shape_kind kind = c_shape_none;
        std::vector<unsigned char> kinds; ///< empty where all that have parts are of `kind`
        packed_boxes boxes;
        std::vector<unsigned> large; ///< numbers of the shapes whose boxes are here, ascending
        std::vector<Tvx_box_d2> large_boxes;
    };
    /// A point that is no number, which stands for no geometry, lies in no box. One jump for all four bounds:
    /// where points lie cannot be foretold.
    [[nodiscard]] static bool holds(Tvx_box_d2 const &box, Tvx_pnt_d2 const &p)
    {
        return (int{p.x >= box.min_x} & int{p.x <= box.max_x} & int{p.y >= box.min_y} &
                int{p.y <= box.max_y}) != 0;
    }
    [[nodiscard]] std::size_t block_of(std::size_t index) const;
    /// Whether the grid answers the window faster than a look at all; makes the grid when it is first worth
    /// it.
    [[nodiscard]] bool is_small_part(Tvx_box_d2 const &window) const;
    /// From here on each shape says what it is.
    void leave_plain();
    void publish_block();
    void take(std::unique_ptr<block> made);
    /// A run becomes a block as it is; false when something in it has to be left out.
    [[nodiscard]] bool append_block(std::span<Tvx_shape_kind const> kinds, unsigned const *part_counts,
                                    unsigned const *part_sizes, std::span<Tvx_pnt_d2 const> points);

    std::vector<std::unique_ptr<block const>> f_blocks;
    std::vector<std::size_t> f_firsts; ///< of the blocks
    std::size_t f_size = 0;
    coming f_coming; ///< what is appended and not seen yet
    Tvx_box_d2 f_box;
    mutable shape_grid f_grid;
    bool f_is_finished = false;
    bool f_is_damaged = false;
    bool f_has_more_kinds = false;
};
} // namespace vx::attr
