#pragma once

#include "platform/base/color.h"
#include "platform/base/geometry.h"

#include <memory>
#include <span>
#include <string_view>
#include <vector>

class vx_fnt_type;
struct vx_native_painter;

namespace vx::render {
/// How the letters of a label look; lengths are in pixels, gaps go right and down.
struct label_look
{
    unsigned font = 0; ///< number of `label_fonts`
    double size = 0;
    Tvx_color color;
    bool back = false;
    Tvx_color back_clr;
    bool outline = false;
    Tvx_color outline_clr;
    double outline_width = 0;
    bool shadow = false;
    Tvx_color shadow_clr;
    double shadow_width = 0; ///< of the shadow's rim; 0 without an outline
    double shadow_gap_x = 0;
    double shadow_gap_y = 0;

    /// How far ink reaches beyond the letters.
    [[nodiscard]] double reach() const;
};

class label_fonts;

/// A line of text as glyphs.
struct shaped_line;
using shaped_ptr = std::shared_ptr<shaped_line const>;

/// What is not parted in a line: a letter with its marks. In ems from the line's beginning, from left to
/// right as it is written.
struct text_cluster
{
    double begin = 0;
    double end = 0;
};

/// Where a cluster, or a whole line, stands: the left end of its base line, and the direction of writing.
struct ink_place
{
    Tvx_pnt_d2 at;
    double angle = 0; ///< degrees, counter-clockwise
};

/// Letters in their places, relative to a point of the label.
class label_ink
{
public:
    label_ink();
    label_ink(label_ink const &) = delete;
    label_ink &operator=(label_ink const &) = delete;
    ~label_ink();

    void add_line(shaped_ptr line, ink_place const &place);
    /// A place for each cluster of the line.
    void add_clusters(shaped_ptr line, std::vector<ink_place> places);
    /// Writes the letters with outline and shadow, the point at `at`. On a device of vectors that is exact.
    void paint(vx_native_painter *painter, label_fonts &fonts, Tvx_pnt_d2 at, label_look const &look,
               bool is_vector);

private:
    struct state;
    std::unique_ptr<state> f_state;
};

/// The fonts of a map's labels, and what is known of texts in them. Everything is in ems: texts are laid out
/// at one size without hinting.
class label_fonts
{
public:
    label_fonts();
    label_fonts(label_fonts const &) = delete;
    label_fonts &operator=(label_fonts const &) = delete;
    ~label_fonts();

    [[nodiscard]] unsigned number_of(vx_fnt_type const &font);
    [[nodiscard]] double ascent(unsigned font) const;
    [[nodiscard]] double descent(unsigned font) const;
    /// Width of a line. Of scripts whose letters stand by themselves it is the sum of the letters' widths,
    /// which pairs of letters may draw together a little.
    [[nodiscard]] double width(unsigned font, std::wstring_view line);
    [[nodiscard]] shaped_ptr shape(unsigned font, std::wstring_view line);
    /// The same, with its clusters.
    [[nodiscard]] shaped_ptr shape_clusters(unsigned font, std::wstring_view line);
    /// Of a line that was shaped with them.
    [[nodiscard]] static std::span<text_cluster const> clusters(shaped_line const &line);

    struct sized_fonts;
    [[nodiscard]] sized_fonts &sized();

private:
    [[nodiscard]] shaped_ptr shape(unsigned font, std::wstring_view line, bool with_clusters);
    struct state;
    std::unique_ptr<state> f_state;
};
} // namespace vx::render
