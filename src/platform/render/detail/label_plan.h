#pragma once

#include "platform/base/closure.h"
#include "platform/render/detail/label_geometry.h"
#include "platform/render/detail/label_text.h"
#include "platform/render/detail/work_meter.h"

#include <memory>
#include <string>
#include <unordered_set>
#include <vector>

struct Ivx_layer;

namespace vx::render {
/// How the map lies in pixels of its own, whose origin is that of the map. It does not tell what part is
/// seen, so that a map that is moved keeps its labels.
struct label_scale
{
    double px_per_unit_x = 1;
    double px_per_unit_y = 1;
    double px_per_mm = 1;
    double denominator = 0; ///< N of 1 : N, as limits take it

    [[nodiscard]] Tvx_pnt_d2 to_px(Tvx_pnt_d2 map) const
    {
        return {map.x * px_per_unit_x, -map.y * px_per_unit_y};
    }
    /// Units in a millimetre, times 1000: what lengths grow by.
    [[nodiscard]] double growth() const { return 1000 * px_per_mm / ((px_per_unit_x + px_per_unit_y) / 2); }
    friend bool operator==(label_scale const &, label_scale const &) = default;
};

/// A label that has its place.
struct placed_label
{
    unsigned layer = 0; ///< place in the list of layers
    unsigned record = 0;
    unsigned part = 0;
    std::wstring text;
    int priority = 0;
    bool may_overlap = false;
    unsigned look = 0;
    Tvx_pnt_d2 at;                 ///< point that the ink is relative to
    std::vector<label_quad> quads; ///< what it takes up
    Tvx_box_d2 box;                ///< of all quads
    std::shared_ptr<label_ink> ink;
};

/// Finds places for the labels of layers. The result for a label does not depend on the region that is asked
/// for: where it might, the label is not decided.
///
/// Labels are taken by rank: priority, size of the letters, the upper layer, size of the object, and then a
/// number that has nothing to do with where it lies. So what decides a label lies near it, and a region with
/// a little more round about is enough to know.
class label_plan
{
public:
    /// The layers from the top. Everything must outlive the plan.
    label_plan(label_fonts &fonts, std::vector<Ivx_layer *> const &layers, label_scale const &scale);
    label_plan(label_plan const &) = delete;
    label_plan &operator=(label_plan const &) = delete;
    ~label_plan();

    /// False when nothing is to be written.
    [[nodiscard]] bool has_labels() const;
    /// Some labels are chosen among all of the map.
    [[nodiscard]] bool needs_whole_map() const;
    /// Places what may come into the region, in pixels of the map; an infinite one is the whole map. False
    /// when the work was ended, or data could not be read; `damaged` tells the latter.
    [[nodiscard]] bool place(Tvx_box_d2 const &region, work_meter &meter);
    [[nodiscard]] bool is_damaged() const;

    [[nodiscard]] std::vector<placed_label> take_placed();
    [[nodiscard]] std::vector<label_look> const &looks() const;
    /// Boxes of labels that were not decided.
    [[nodiscard]] std::vector<Tvx_box_d2> const &undecided() const;

private:
    struct state;
    std::unique_ptr<state> f_state;
};
} // namespace vx::render
