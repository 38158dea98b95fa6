#pragma once

#include "platform/data/detail/textlr_info.h"
#include "platform/data/vx_shape_files.h"
#include "platform/render/detail/label_plan.h"
#include "platform/render/detail/row_table.h"
#include "platform/render/detail/scale_rows.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vx::render {
/// How labels are written and where they may stand; lengths are in pixels, `y` downwards.
struct label_rule
{
    struct line
    {
        int field = -1; ///< of the table; -1: the text
        std::wstring text;
    };
    std::vector<line> lines;
    int encoding = 0;
    unsigned look = 0;
    double size = 0;
    double back_margin = 0;
    double angle = 0;
    int pos_x = 0;
    int pos_y = 0;
    double delta_x = 0;
    double delta_y = 0;
    int priority = 0;
    bool overlap = false;
    int range = 0;
    int duplicates = 0;
    int line_type = 0;
    bool line_direction = false;
};

/// The objects of a layer, where they lie and what their table says of them.
class label_objects
{
public:
    /// Null for layers that have no objects to label, and where they cannot be read.
    [[nodiscard]] static std::unique_ptr<label_objects> open(Ivx_layer *layer);
    label_objects() = default;
    label_objects(label_objects const &) = delete;
    label_objects &operator=(label_objects const &) = delete;
    virtual ~label_objects() = default;

    using visitor = closure<bool(unsigned, Tvx_shape_view const &)>;
    [[nodiscard]] virtual row_table &table() = 0;
    /// Calls `visit` for each object whose box meets `box`, in any order, until it gives false; then, or
    /// where the meter ends the work, false. Lines and areas that were seen stay until the next visit.
    [[nodiscard]] virtual bool visit(Tvx_box_d2 const &box, work_meter &meter, visitor visit) = 0;
    /// Not all could be read.
    [[nodiscard]] virtual bool is_damaged() const = 0;
};

/// What labels come from: a text class of a layer, or one manager of its text settings.
class label_source
{
public:
    /// The sources of a layer, as far as they write something. `looks` gets how they look.
    static void add_sources(Ivx_layer *layer, unsigned place, label_scale const &scale, label_fonts &fonts,
                            std::vector<label_look> &looks,
                            std::vector<std::unique_ptr<label_source>> &sources);
    /// Whether the layer may have sources.
    [[nodiscard]] static bool has_any(Ivx_layer *layer);
    label_source(label_source const &) = delete;
    label_source &operator=(label_source const &) = delete;
    virtual ~label_source() = default;

    [[nodiscard]] unsigned layer() const { return f_layer; }
    [[nodiscard]] int hint() const { return f_hint; }
    [[nodiscard]] label_objects &objects() { return *f_objects; }
    /// Reads the columns that are written, and those that tell how; false when nothing is left to read.
    [[nodiscard]] virtual bool read_on(int milliseconds) = 0;
    /// How the record is labelled; null for not at all.
    [[nodiscard]] virtual label_rule const *rule_of(unsigned record) = 0;
    /// What may be written at all.
    [[nodiscard]] virtual bool needs_whole_map() const { return false; }
    /// The text of a record, lines parted by line feeds; empty for none.
    [[nodiscard]] std::wstring text_of(label_rule const &rule, unsigned record);

protected:
    label_source(unsigned layer, int hint, std::unique_ptr<label_objects> objects);
    [[nodiscard]] int field_of(std::wstring const &name) const;
    [[nodiscard]] bool read_fields(label_rule const &rule, int milliseconds);

    unsigned f_layer;
    int f_hint;
    std::unique_ptr<label_objects> f_objects;
};
} // namespace vx::render
