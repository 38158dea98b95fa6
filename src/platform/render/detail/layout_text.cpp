#include "platform/render/detail/layout_text.h"

#include "platform/layers/vx_layout_lr2d.h"
#include "platform/render/detail/layout_canvas.h"
#include "platform/render/detail/text_path.h"
#include "platform/toolkit/bridge/qt_graphics.h"

#include <QtGui/QPainter>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace vx::render {
namespace {
constexpr wchar_t c_more = L'\u2026';
/// More lines are not written either.
constexpr std::size_t c_most_lines = 1000;

text_extent extent(std::wstring_view line, text_look const &look)
{
    return measure_text(line, look.font, look.size);
}

/// How many characters of a line fit; at least one.
std::size_t fitting(std::wstring_view line, text_look const &look, double width)
{
    std::size_t low = 1, high = line.size();
    while (low < high) {
        std::size_t const middle = (low + high + 1) / 2;
        if (text_width(line.substr(0, middle), look) <= width)
            low = middle;
        else
            high = middle - 1;
    }
    return low;
}
} // namespace

text_look look_of(Tvx_layout_writing const &writing)
{
    return {writing.font, writing.size, writing.color};
}

double text_width(std::wstring_view line, text_look const &look)
{
    return extent(line, look).width;
}

double text_ascent(text_look const &look)
{
    return extent({}, look).ascent;
}

double line_height(text_look const &look)
{
    text_extent const e = extent({}, look);
    return e.ascent + e.descent;
}

std::vector<std::wstring> lines_of_text(std::wstring_view text)
{
    std::vector<std::wstring> lines;
    while (lines.size() < c_most_lines) {
        auto const end = std::min(text.find(L'\n'), text.size());
        std::wstring &line = lines.emplace_back(text.substr(0, std::min(end, c_most_line_characters)));
        std::erase(line, L'\r');
        std::ranges::replace(line, L'\t', L' ');
        if (end == text.size())
            break;
        text.remove_prefix(end + 1);
    }
    return lines;
}

std::vector<std::wstring> wrapped(std::wstring_view text, text_look const &look, double width)
{
    std::vector<std::wstring> lines;
    for (std::wstring const &whole : lines_of_text(text)) {
        std::wstring_view rest = whole;
        while (lines.size() < c_most_lines && !rest.empty() && text_width(rest, look) > width) {
            std::size_t const count = fitting(rest, look, width);
            auto const space = rest.rfind(L' ', count);
            std::size_t const end = space == std::wstring_view::npos || space == 0 ? count : space;
            lines.emplace_back(rest.substr(0, end));
            rest.remove_prefix(end);
            rest.remove_prefix(std::min(rest.find_first_not_of(L' '), rest.size()));
        }
        if (!rest.empty() || whole.empty())
            lines.emplace_back(rest);
    }
    return lines;
}

std::wstring elided(std::wstring_view line, text_look const &look, double width)
{
    if (line.empty() || text_width(line, look) <= width)
        return std::wstring(line);
    double const more = text_width({&c_more, 1}, look);
    if (more > width)
        return {};
    std::size_t const count = fitting(line, look, width - more);
    std::wstring cut(line.substr(0, count));
    if (count == 1 && text_width(cut, look) + more > width)
        cut.clear();
    return cut + c_more;
}

void write_line(layout_canvas &canvas, Tvx_pnt_d2 at, std::wstring_view line, text_look const &look,
                double angle)
{
    // What nobody can read, and what no font can be drawn as.
    constexpr double c_least_px = 0.2, c_most_px = 20'000, c_most_stretched = 20;
    auto const [low, high] =
        std::minmax({look.size * canvas.px_per_mm_x(), look.size * canvas.px_per_mm_y()});
    if (line.empty() || !(low > c_least_px && high < c_most_px && high < low * c_most_stretched))
        return;
    Tvx_pnt_d2 const px = canvas.to_px(at);
    QPainter &p = *vx_qt_painter(canvas.target().painter);
    p.save();
    p.translate(px.x, px.y);
    p.scale(canvas.px_per_mm_x(), canvas.px_per_mm_y());
    p.rotate(-angle);
    write_text(canvas.target().painter, line, look.font, look.size, look.color);
    p.restore();
}

void write_block(layout_canvas &canvas, Tvx_box_d2 const &box, std::vector<std::wstring> const &lines,
                 text_look const &look, int align_x, int align_y, double angle)
{
    double const height = line_height(look);
    double width = 0;
    std::vector<double> widths;
    for (std::wstring const &line : lines)
        width = std::max(width, widths.emplace_back(text_width(line, look)));
    double const all = height * static_cast<double>(lines.size());
    // The middle of the turned block stands where its bounds are aligned in the box.
    double const a = angle * std::numbers::pi / 180;
    double const half_x = (std::abs(width * std::cos(a)) + std::abs(all * std::sin(a))) / 2;
    double const half_y = (std::abs(width * std::sin(a)) + std::abs(all * std::cos(a))) / 2;
    auto const middle = [](double low, double high, double half, int align) {
        return align < 0 ? low + half : align > 0 ? high - half : (low + high) / 2;
    };
    double const x = middle(box.min_x, box.max_x, half_x, align_x);
    double const y = middle(box.min_y, box.max_y, half_y, align_y);
    for (std::size_t i = 0; i < lines.size(); ++i) {
        double const left = align_x < 0 ? -width / 2 : align_x > 0 ? width / 2 - widths[i] : -widths[i] / 2;
        double const down = -all / 2 + height * static_cast<double>(i) + text_ascent(look);
        write_line(canvas,
                   {x + left * std::cos(a) + down * std::sin(a), y - left * std::sin(a) + down * std::cos(a)},
                   lines[i], look, angle);
    }
}
} // namespace vx::render
