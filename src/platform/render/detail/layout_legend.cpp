#include "platform/base/string_adp.h"
#include "platform/layers/layer_keys.h"
#include "platform/layers/vx_layout_lr2d.h"
#include "platform/layers/vx_scn_2d.h"
#include "platform/layers/vx_shp_lr2d.h"
#include "platform/layers/vx_tos_lr2d.h"
#include "platform/render/detail/layout_canvas.h"
#include "platform/render/detail/layout_text.h"
#include "platform/render/detail/style_painter.h"
#include "platform/render/vx_layer_classes.h"
#include "platform/styles/vxk_styles.h"
#include "platform/toolkit/bridge/qt_graphics.h"

#include <QtCore/QRectF>
#include <QtGui/QLinearGradient>
#include <QtGui/QPainter>
#include <QtGui/QPen>

#include <algorithm>
#include <cmath>
#include <optional>
#include <string_view>
#include <vector>

namespace vx::render {
namespace {
using namespace vx::styles;

constexpr double c_text_gap_mm = 2; ///< between a sample and its text
constexpr double c_column_gap_mm = 4;
constexpr double c_title_size = 1.3; ///< of the letters of the other lines
constexpr wchar_t c_more[] = L"\u2026";
/// Symbols that are larger than so many samples are cut.
constexpr double c_most_samples = 4;
/// Files of strangers may ask for millions of lines, each of millions of characters.
constexpr double c_most_lines = 20'000;

/// A line of a legend: a text, or a sample with one.
struct legend_line
{
    enum class kind : unsigned char
    {
        heading,
        text,
        style,  ///< a sample of `prm`
        colors, ///< a sample of `colors`, from one to the next
    };
    kind what = kind::text;
    std::wstring text = {};
    stl_prm const *prm = nullptr;
    std::vector<Tvx_color> colors = {};
    double opacity = 1; ///< of a style that is a colour
    bool begins = true; ///< the lines of a layer, or stands for itself
    // As laid out.
    std::vector<std::wstring> lines = {};
    double height = 0;

    [[nodiscard]] bool has_sample() const { return what == kind::style || what == kind::colors; }
};

QColor qt_color(Tvx_color c)
{
    return {c.r, c.g, c.b, c.a};
}

/// As much as is written of it.
std::wstring one_line(std::wstring text)
{
    text.resize(std::min(text.size(), c_most_line_characters));
    std::ranges::replace_if(
        text, [](wchar_t c) { return c < L' '; }, L' ');
    return text;
}

// ---- what there is to show

/// The colours of a class that has no style.
std::vector<Tvx_color> colors_of(Ivx_layer *layer, unsigned index)
{
    std::vector<Tvx_color> colors(vx_layer_classes_get_colors(layer, index, nullptr, 0));
    vx_layer_classes_get_colors(layer, index, colors.data(), static_cast<unsigned>(colors.size()));
    return colors;
}

std::wstring class_caption(Ivx_layer *layer, unsigned index)
{
    std::wstring text;
    vx_layer_classes_get_caption_w(layer, index, Tvx_std_wstring_adapter(text));
    return one_line(std::move(text));
}

stl_prm const *prm_of(void *prm)
{
    return static_cast<stl_prm const *>(prm);
}

void add_lines(std::vector<legend_line> &lines, Ivx_layer *layer, std::size_t most)
{
    std::wstring const caption = one_line(element_caption(layer));
    if (vx_lr2d_is_shp(layer) && !vx_stl_mngr_list_get_visible(vx_shp_lr2d_get_style_mngr_list_ptr(layer)))
        return;
    unsigned const managers = vx_layer_classes_get_mngr_count(layer);
    unsigned const classes = vx_layer_classes_get_count(layer);
    double const opacity = vx_tos_grid_lr2d_get_opacity(layer);
    auto const add = [&](std::wstring text, unsigned index) {
        legend_line &line = lines.emplace_back();
        line.text = std::move(text);
        line.prm = prm_of(vx_layer_classes_get_stl_prm_ptr(layer, index));
        line.colors = colors_of(layer, index);
        line.what = line.colors.empty() ? legend_line::kind::style : legend_line::kind::colors;
        line.opacity = opacity;
    };
    if (managers > 0 && classes == 0) {
        void *const simple = vx_stl_mngr_get_simple_sp_ptr(vx_layer_classes_get_mngr_ptr(layer, 0));
        lines.push_back({legend_line::kind::style, caption, prm_of(simple), {}, opacity});
        return;
    }
    if (managers == 0 && classes == 1)
        return add(caption + L"\n" + class_caption(layer, 0), 0);
    if (classes == 0 && vx_lr2d_get_lr_type(layer) != std::string_view(c_lr_key_rtr) &&
        !vx_tos_grid_lr2d_get_clr_stl_mngr_ptr(layer))
        return;
    lines.push_back({legend_line::kind::heading, caption});
    for (unsigned i = 0; i < classes && lines.size() < most; ++i) {
        void *const entry = vx_layer_classes_get_scale_prm_ptr(layer, i);
        if (!entry || vx_scale_prm_get_visible(entry))
            add(class_caption(layer, i), i);
    }
}

/// The lines of a layer, as long as there is room for them; none for kinds that a legend does not show.
void add_layer(std::vector<legend_line> &lines, Ivx_layer *layer, std::size_t most)
{
    std::size_t const first = lines.size();
    if (first < most)
        add_lines(lines, layer, most);
    for (std::size_t i = first + 1; i < lines.size(); ++i)
        lines[i].begins = false;
}

Ivx_layer *layer_of_caption(Ivx_scn_2d *scene, std::wstring const &caption)
{
    for (int i = vx_scn_2d_get_count(scene) - 1; i >= 0; --i)
        if (Ivx_layer *const layer = vx_scn_2d_get_layer(scene, i); element_caption(layer) == caption)
            return layer;
    return nullptr;
}

/// How many lines can be seen in so high a box, and one more.
std::size_t most_lines(Tvx_layout_legend const &legend, text_look const &look, double height)
{
    double const least = std::min(legend.sample_height, line_height(look));
    return static_cast<std::size_t>(
        std::min(legend.columns * (std::floor(height / least) + 1) + 1, c_most_lines));
}

/// Not many more than `most`. False when a layer that the legend names is not there.
bool collect(std::vector<legend_line> &lines, Tvx_layout_legend const &legend, Ivx_scn_2d *scene,
             std::size_t most)
{
    bool is_whole = true;
    if (legend.items.empty()) {
        for (int i = vx_scn_2d_get_count(scene) - 1; i >= 0; --i)
            if (Ivx_layer *const layer = vx_scn_2d_get_layer(scene, i); vx_lr2d_get_visible(layer))
                add_layer(lines, layer, most);
        return true;
    }
    for (Tvx_layout_legend_item const &item : legend.items) {
        if (!item.visible)
            continue;
        if (item.is_text)
            lines.push_back({legend_line::kind::text, item.text});
        else if (Ivx_layer *const layer = layer_of_caption(scene, item.text))
            add_layer(lines, layer, most);
        else
            is_whole = false;
    }
    return is_whole;
}

// ---- where it stands

/// A surface to measure symbols on, so that a legend is the same on every device.
surface const &measuring_surface()
{
    static surface const s = [] {
        surface made;
        made.px_per_mm_x = made.px_per_mm_y = 20;
        made.is_vector = true;
        return made;
    }();
    return s;
}

/// Height of the symbol in the sample of a style.
double symbol_height(stl_prm const *prm)
{
    if (!prm)
        return 0;
    surface const &s = measuring_surface();
    double height = 0;
    auto const add_point = [&](bpnt_style const &point) {
        height = std::max(height, point_painter(s, point, use_of_painter::few).box(0).height());
    };
    if (auto const *pnt = prm->as<pnt_style>(variant_of_style::base)) {
        if (pnt->pnt_visible)
            add_point(pnt->bpnt);
    } else if (auto const *pln = prm->as<pln_style>(variant_of_style::base)) {
        if (pln->pln_visible)
            height = line_painter(s, pln->bpln).thickness();
        if (pln->pnt_visible)
            add_point(pln->bpnt);
        if (pln->end_visible)
            add_point(pln->bend);
        if (pln->beg_visible)
            add_point(pln->bbeg);
    }
    return height / s.px_per_mm();
}

class legend_layout
{
public:
    legend_layout(Tvx_layout_legend const &legend, text_look const &look, std::vector<legend_line> lines)
        : f_legend(legend), f_look(look), f_heading(look), f_title(look), f_lines(std::move(lines))
    {
        f_heading.font.bold = true;
        f_title.font.bold = true;
        f_title.size *= c_title_size;
        f_line_height = line_height(f_look);
    }
    /// Breaks texts to columns of a width, and puts the lines in them: as low as they can be, and no lower
    /// than `most`. The canvas, if any, is asked whether to go on.
    void lay_out(double width, double most, layout_canvas *canvas = nullptr)
    {
        f_places.clear();
        f_column_width = (width - c_column_gap_mm * (f_legend.columns - 1)) / f_legend.columns;
        f_title_lines.clear();
        if (!f_legend.title.empty())
            f_title_lines = wrapped(f_legend.title, f_title, width);
        f_top = f_title_lines.empty()
                    ? 0
                    : line_height(f_title) * static_cast<double>(f_title_lines.size()) + f_legend.gap;
        double highest = 0, all = 0;
        for (legend_line &line : f_lines) {
            if (canvas && canvas->is_cancelled())
                return;
            measure(line);
            highest = std::max(highest, line.height);
            all += line.height + 2 * f_legend.gap;
        }
        double low = highest, high = std::max(highest, all);
        for (int i = 0; i < 40 && columns_at(high, nullptr) <= f_legend.columns; ++i) {
            double const middle = (low + high) / 2;
            (columns_at(middle, nullptr) <= f_legend.columns ? high : low) = middle;
        }
        f_limit = std::min(high, most - f_top);
        (void)columns_at(f_limit, &f_places);
    }
    [[nodiscard]] Tvx_pnt_d2 natural_size()
    {
        double widest = 0;
        for (legend_line const &line : f_lines)
            for (std::wstring const &part : lines_of_text(line.text))
                widest = std::max(widest, text_width(part, look_of_line(line)) + text_left(line));
        double width = widest * f_legend.columns + c_column_gap_mm * (f_legend.columns - 1);
        for (std::wstring const &part : lines_of_text(f_legend.title))
            width = std::max(width, text_width(part, f_title));
        // What just fits must not be broken by the last digits.
        constexpr double c_slack_mm = 0.05, c_endless = 1e6;
        lay_out(width + c_slack_mm, c_endless);
        double bottom = 0;
        for (place const &p : f_places)
            bottom = std::max(bottom, p.y + f_lines[p.line].height);
        return {width + c_slack_mm, f_top + bottom};
    }
    void draw(layout_canvas &canvas, Tvx_box_d2 const &box) const;

private:
    struct place
    {
        std::size_t line;
        int column;
        double y;
    };

    [[nodiscard]] text_look const &look_of_line(legend_line const &line) const
    {
        return line.what == legend_line::kind::heading ? f_heading : f_look;
    }
    [[nodiscard]] double text_left(legend_line const &line) const
    {
        return line.has_sample() ? f_legend.sample_width + c_text_gap_mm : 0;
    }
    [[nodiscard]] double sample_height(legend_line const &line) const
    {
        if (!line.has_sample())
            return 0;
        return std::clamp(symbol_height(line.prm), f_legend.sample_height,
                          f_legend.sample_height * c_most_samples);
    }
    void measure(legend_line &line) const
    {
        text_look const &look = look_of_line(line);
        line.lines = wrapped(line.text, look, std::max(1.0, f_column_width - text_left(line)));
        line.height = std::max(sample_height(line), f_line_height * static_cast<double>(line.lines.size()));
    }
    /// Fills columns of a height from the left. A heading stays with what it is about.
    int columns_at(double limit, std::vector<place> *places) const
    {
        int column = 0;
        double y = 0;
        for (std::size_t i = 0; i < f_lines.size(); ++i) {
            legend_line const &line = f_lines[i];
            bool const is_heading = line.what == legend_line::kind::heading;
            if (y > 0)
                y += line.begins && (is_heading || !f_lines[i - 1].begins) ? 2 * f_legend.gap : f_legend.gap;
            double needed = line.height;
            if (is_heading && i + 1 < f_lines.size())
                needed += f_legend.gap + f_lines[i + 1].height;
            constexpr double c_slack_mm = 1e-6;
            if (y > 0 && y + needed > limit + c_slack_mm) {
                ++column;
                y = 0;
            }
            if (places)
                places->push_back({i, column, y});
            y += line.height;
        }
        return column + 1;
    }

    void draw_sample(layout_canvas &canvas, legend_line const &line, Tvx_box_d2 const &box) const;

    Tvx_layout_legend const &f_legend;
    text_look f_look;
    text_look f_heading;
    text_look f_title;
    double f_line_height; ///< of all lines but the title
    std::vector<legend_line> f_lines;
    std::vector<std::wstring> f_title_lines;
    double f_column_width = 0;
    double f_top = 0; ///< below the title
    double f_limit = 0;
    std::vector<place> f_places;
};

px_line rectangle(Tvx_box_d2 const &b)
{
    return {
        {b.min_x, b.min_y}, {b.max_x, b.min_y}, {b.max_x, b.max_y}, {b.min_x, b.max_y}, {b.min_x, b.min_y}};
}

void draw_point(surface const &target, bpnt_style const &style, Tvx_pnt_d2 at)
{
    point_painter(target, style, use_of_painter::few).draw(at);
}

void draw_area(surface const &target, pgn_style const &style, Tvx_box_d2 px)
{
    if (!target.is_vector)
        px = {std::round(px.min_x), std::round(px.min_y), std::round(px.max_x), std::round(px.max_y)};
    std::optional<line_painter> line;
    if (style.pln_visible) {
        line.emplace(target, style.bpln);
        double const half = std::min(line->thickness(), px.height() / 2) / 2;
        px = {px.min_x + half, px.min_y + half, px.max_x - half, px.max_y - half};
    }
    px_line const ring = rectangle(px);
    if (style.pgn_visible)
        fill_painter(target, style.bpgn).draw({&ring, 1});
    if (line)
        line->draw(ring);
    if (style.pnt_visible)
        for (std::size_t i = 0; i + 1 < ring.size(); ++i)
            draw_point(target, style.bpnt, ring[i]);
}

void draw_line(surface const &target, pln_style const &style, Tvx_box_d2 const &px)
{
    double y = (px.min_y + px.max_y) / 2;
    line_painter line(target, style.bpln);
    if (!target.is_vector)
        y = std::lround(line.thickness()) % 2 == 1 ? std::floor(y) + 0.5 : std::round(y);
    // What stands at an end has room for it.
    auto const room = [&](bool is_visible, bpnt_style const &end) {
        double const half =
            is_visible ? point_painter(target, end, use_of_painter::few).box(0).width() / 2 : 0;
        return std::min(half, px.width() / 3);
    };
    px_line const ends{{px.min_x + room(style.beg_visible, style.bbeg), y},
                       {px.max_x - room(style.end_visible, style.bend), y}};
    if (style.pln_visible)
        line.draw(ends);
    if (style.pnt_visible)
        draw_point(target, style.bpnt, {(px.min_x + px.max_x) / 2, y});
    if (style.beg_visible)
        draw_point(target, style.bbeg, ends.front());
    if (style.end_visible)
        draw_point(target, style.bend, ends.back());
}

void legend_layout::draw_sample(layout_canvas &canvas, legend_line const &line, Tvx_box_d2 const &box) const
{
    QPainter &painter = *vx_qt_painter(canvas.target().painter);
    if (line.what == legend_line::kind::colors) {
        in_millimetres const lengths(canvas);
        QRectF const rect(box.min_x, box.min_y, box.width(), box.height());
        if (line.colors.size() == 1)
            return painter.fillRect(rect, qt_color(line.colors.front()));
        QLinearGradient colors(rect.topLeft(), rect.topRight());
        for (std::size_t i = 0; i < line.colors.size(); ++i)
            colors.setColorAt(static_cast<double>(i) / static_cast<double>(line.colors.size() - 1),
                              qt_color(line.colors[i]));
        return painter.fillRect(rect, colors);
    }
    if (!line.prm)
        return;
    surface target = canvas.target();
    Tvx_box_d2 const px = canvas.to_px(box);
    // Patterns begin alike in all samples.
    target.origin = {px.min_x, px.min_y};
    painter.save();
    painter.setClipRect(QRectF(px.min_x, px.min_y, px.width(), px.height()).adjusted(-1, -1, 1, 1),
                        Qt::IntersectClip);
    stl_prm const &prm = *line.prm;
    if (auto const *pnt = prm.as<pnt_style>(variant_of_style::base)) {
        if (pnt->pnt_visible)
            draw_point(target, pnt->bpnt, {(px.min_x + px.max_x) / 2, (px.min_y + px.max_y) / 2});
    } else if (auto const *pln = prm.as<pln_style>(variant_of_style::base)) {
        draw_line(target, *pln, px);
    } else if (auto const *pgn = prm.as<pgn_style>(variant_of_style::base)) {
        draw_area(target, *pgn, px);
    } else if (auto const *color = prm.as<Tvx_color>(variant_of_style::base)) {
        QColor shown = qt_color(*color);
        shown.setAlphaF(shown.alphaF() * static_cast<float>(line.opacity));
        painter.fillRect(QRectF(px.min_x, px.min_y, px.width(), px.height()), shown);
    }
    painter.restore();
}

void legend_layout::draw(layout_canvas &canvas, Tvx_box_d2 const &box) const
{
    double y = box.min_y + text_ascent(f_title);
    for (std::wstring const &line : f_title_lines) {
        write_line(canvas, {box.min_x, y}, line, f_title);
        y += line_height(f_title);
    }
    constexpr double c_slack_mm = 1e-6;
    for (std::size_t i = 0; i < f_places.size(); ++i) {
        if (canvas.is_cancelled())
            return;
        place const &p = f_places[i];
        legend_line const &line = f_lines[p.line];
        double const x = box.min_x + p.column * (f_column_width + c_column_gap_mm);
        double const top = box.min_y + f_top + p.y;
        bool const has_room = p.column < f_legend.columns && p.y + line.height <= f_limit + c_slack_mm;
        if (!has_room) {
            // What has no room is not cut in the middle: a sign says that there is more.
            write_line(canvas, {box.max_x - text_width(c_more, f_look), box.max_y}, c_more, f_look);
            return;
        }
        double const middle = top + line.height / 2;
        if (line.has_sample()) {
            double const half = sample_height(line) / 2;
            draw_sample(canvas, line, {x, middle - half, x + f_legend.sample_width, middle + half});
        }
        text_look const &look = look_of_line(line);
        double const high = f_line_height * static_cast<double>(line.lines.size());
        double base = middle - high / 2 + text_ascent(look);
        for (std::wstring const &text : line.lines) {
            write_line(canvas, {x + text_left(line), base}, text, look);
            base += f_line_height;
        }
    }
}
} // namespace

void draw_layout_legend(layout_canvas &canvas, Ivx_scn_2d const *layout, Ivx_layer *legend)
{
    Ivx_layer *const frame = frame_of(canvas, layout, legend);
    if (!frame)
        return;
    Tvx_layout_legend const what = vx_layout_legend_lr2d_get(legend);
    text_look const look = look_of(vx_layout_lr2d_get_writing(legend));
    Tvx_box_d2 const box = vx_layout_lr2d_get_box(legend);
    std::vector<legend_line> lines;
    if (!collect(lines, what, vx_layout_scene_frame_lr2d_get_scene(frame),
                 most_lines(what, look, box.height())))
        canvas.fail();
    legend_layout places(what, look, std::move(lines));
    places.lay_out(box.width(), box.height(), &canvas);
    places.draw(canvas, box);
}

Tvx_pnt_d2 layout_legend_size(Ivx_scn_2d const *layout, Ivx_layer *legend)
{
    Ivx_layer *const frame = vx_layout_find_frame_w(layout, element_file(legend).c_str());
    Tvx_layout_legend const what = vx_layout_legend_lr2d_get(legend);
    text_look const look = look_of(vx_layout_lr2d_get_writing(legend));
    std::vector<legend_line> lines;
    collect(lines, what, vx_layout_scene_frame_lr2d_get_scene(frame),
            most_lines(what, look, c_layout_longest_side));
    legend_layout places(what, look, std::move(lines));
    return places.natural_size();
}
} // namespace vx::render
