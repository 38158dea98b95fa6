#include "platform/render/detail/tangle.h"

#include "platform/toolkit/bridge/qt_graphics.h"

#include <QtCore/QVarLengthArray>
#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>
#include <QtGui/QPen>

#include <algorithm>
#include <bit>
#include <chrono>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace vx::render {
namespace {
/// Steps that the painter may take to sort, a third of a second; more are not worth its exactness.
constexpr double c_most_steps = 5e7;
constexpr double c_step = 7; ///< nanoseconds
constexpr double c_painted_crossing = 60;
/// Nanoseconds that the painter may take for one call, unless it is for one row.
constexpr double c_most_at_once = 6e6;
/// Times what is foretold: lines that lie close to each other take the painter longer.
constexpr double c_most_slowness = 32;
/// Samples across a pixel, and down it unless there are too many crossings.
constexpr int c_across = 4;
constexpr int c_down = 4;
constexpr double c_most_crossings = 2e8;
constexpr double c_crossing = 3; ///< nanoseconds
/// A run of a line is so long at most that it crosses itself seldom.
constexpr std::size_t c_run_points = 1024;
/// What passes a pixel so often covers it; with dashes it takes more.
constexpr int c_passes = 16;
constexpr int c_dashed_passes = 64;
constexpr double c_most_reach = 500;
constexpr double c_drawn_pixel = 20; ///< nanoseconds
constexpr double c_passed_pixel = 2;
constexpr double c_run_diagonals = 16; ///< of a thin line
constexpr double c_wide_run_diagonals = 3;

/// Bit rows of samples: each crossing turns the samples to its right.
class sample_rows
{
public:
    sample_rows(int columns, int rows)
        : f_columns(columns), f_rows(rows), f_words(static_cast<std::size_t>(columns) / 64 + 1),
          f_bits(f_words * static_cast<std::size_t>(rows))
    {
        constexpr double c_golden = 0.6180339887498949;
        for (std::size_t i = 0; i < c_offsets; ++i)
            f_offsets[i] = std::fmod(static_cast<double>(i) * c_golden, 1);
    }
    /// Each row has its samples at other places, so that no regular line meets all of them alike.
    [[nodiscard]] double offset(int row) const
    {
        return f_offsets[static_cast<std::size_t>(row) % c_offsets];
    }
    void turn(int row, double column)
    {
        auto const at = static_cast<std::size_t>(std::clamp(column, 0.0, static_cast<double>(f_columns)));
        f_bits[static_cast<std::size_t>(row) * f_words + at / 64] ^= std::uint64_t{1} << (at % 64);
    }
    /// Makes of the turns of a row what lies inside.
    void settle(int row)
    {
        std::uint64_t before = 0;
        for (std::size_t w = 0; w < f_words; ++w) {
            std::uint64_t &word = f_bits[static_cast<std::size_t>(row) * f_words + w];
            for (int shift = 1; shift < 64; shift *= 2)
                word ^= word << shift;
            word ^= before;
            before = word >> 63 ? ~std::uint64_t{0} : 0;
        }
    }
    /// Samples of a pixel that lie inside.
    [[nodiscard]] int count(int row, int pixel) const
    {
        auto const at = static_cast<std::size_t>(pixel) * c_across;
        constexpr std::uint64_t c_pixel_bits = (1U << c_across) - 1;
        return std::popcount(f_bits[static_cast<std::size_t>(row) * f_words + at / 64] >> (at % 64) &
                             c_pixel_bits);
    }
    [[nodiscard]] int rows() const { return f_rows; }

private:
    static constexpr std::size_t c_offsets = 64;
    double f_offsets[c_offsets];
    int f_columns;
    int f_rows;
    std::size_t f_words;
    std::vector<std::uint64_t> f_bits;
};

/// How often a line has passed each pixel.
class passed_pixels
{
public:
    passed_pixels(QRect const &shown, int enough)
        : f_shown(shown), f_enough(enough),
          f_counts(static_cast<std::size_t>(shown.width()) * static_cast<std::size_t>(shown.height()))
    {
    }
    /// Whether the line passed one of these pixels seldom so far, or leaves them.
    bool add(Tvx_pnt_d2 a, Tvx_pnt_d2 b)
    {
        double const steps = std::ceil(std::max({std::abs(b.x - a.x), std::abs(b.y - a.y), 1.0}));
        double const dx = (b.x - a.x) / steps;
        double const dy = (b.y - a.y) / steps;
        bool shows = false;
        double x = a.x - f_shown.x() + dx / 2;
        double y = a.y - f_shown.y() + dy / 2;
        for (double i = 0; i < steps; ++i, x += dx, y += dy) {
            if (!(x >= 0 && y >= 0 && x < f_shown.width() && y < f_shown.height())) {
                shows = true;
                continue;
            }
            unsigned char &count =
                f_counts[static_cast<std::size_t>(y) * f_shown.width() + static_cast<std::size_t>(x)];
            if (count < f_enough) {
                ++count;
                shows = true;
            }
        }
        return shows;
    }

private:
    QRect f_shown;
    int f_enough;
    std::vector<unsigned char> f_counts;
};

/// An edge in samples from the corner of the picture: turns one sample in each row whose middle it passes.
int turn_edge(sample_rows &samples, Tvx_pnt_d2 a, Tvx_pnt_d2 b)
{
    if (a.y > b.y)
        std::swap(a, b);
    double const first = std::max(std::ceil(a.y - 0.5), 0.0);
    double const last = std::min(std::ceil(b.y - 0.5), static_cast<double>(samples.rows()));
    if (!(first < last))
        return 0;
    double const slope = (b.x - a.x) / (b.y - a.y);
    double x = a.x + (first + 0.5 - a.y) * slope;
    for (int row = static_cast<int>(first); row < static_cast<int>(last); ++row, x += slope)
        samples.turn(row, x + samples.offset(row));
    return static_cast<int>(last - first);
}

} // namespace

void crossings::add(std::span<Tvx_pnt_d2 const> line)
{
    f_vertices += static_cast<double>(line.size());
    for (std::size_t i = 1; i < line.size(); ++i) {
        double const above = std::clamp(line[i - 1].y, f_box.min_y, f_box.max_y);
        double const below = std::clamp(line[i].y, f_box.min_y, f_box.max_y);
        f_rows += std::abs(below - above);
        if (line[i - 1].y == above || line[i].y == below)
            f_columns += std::abs(std::clamp(line[i].x, f_box.min_x, f_box.max_x) -
                                  std::clamp(line[i - 1].x, f_box.min_x, f_box.max_x));
    }
}

double crossings::steps() const
{
    double const rows = std::max(1.0, f_box.height());
    double const in_row = (f_rows + f_columns) / rows;
    return in_row * std::min(in_row, std::max(1.0, f_box.width())) / 2 * rows;
}

bool crossings::are_many() const
{
    return steps() > c_most_steps;
}

double crossings::cost() const
{
    return f_vertices * cost::c_vertex + f_rows * c_painted_crossing + steps() * c_step;
}

area_cover::area_cover(surface const &target, px_rings rings, Tvx_box_d2 const &box, crossings const &work)
    : f_left(static_cast<int>(std::floor(box.min_x))), f_top(static_cast<int>(std::floor(box.min_y))),
      f_width(static_cast<int>(std::ceil(box.max_x)) - f_left + 1),
      f_height(static_cast<int>(std::ceil(box.max_y)) - f_top + 1),
      f_cover(static_cast<std::size_t>(f_width) * static_cast<std::size_t>(f_height))
{
    if (work.are_many())
        sample(target, rings, work.rows() * c_down <= c_most_crossings ? c_down : 1);
    else if (!paint(target, rings, 0, f_height))
        f_height = 0;
}

void area_cover::sample(surface const &target, px_rings rings, int down)
{
    sample_rows samples(f_width * c_across, f_height * down);
    auto const place = [&](Tvx_pnt_d2 p) {
        return Tvx_pnt_d2{(p.x - f_left) * c_across, (p.y - f_top) * down};
    };
    int const height = std::exchange(f_height, 0);
    for (auto const &ring : rings)
        for (std::size_t i = 0; i < ring.size(); ++i) {
            Tvx_pnt_d2 const a = place(ring[i ? i - 1 : ring.size() - 1]);
            if (!go_on(target, cost::c_vertex + turn_edge(samples, a, place(ring[i])) * c_crossing))
                return;
        }
    auto cover = f_cover.begin();
    for (int y = 0; y < height; ++y) {
        if (!go_on(target, f_width * down * cost::c_pixel))
            return;
        for (int row = y * down; row < (y + 1) * down; ++row)
            samples.settle(row);
        for (int x = 0; x < f_width; ++x) {
            int inside = 0;
            for (int row = y * down; row < (y + 1) * down; ++row)
                inside += samples.count(row, x);
            *cover++ = static_cast<unsigned char>(inside * 255 / (c_across * down));
        }
    }
    f_height = height;
}

/// The rows from `first` to before `last`, in pieces that the painter has soon done. False when the drawing
/// is to end.
bool area_cover::paint(surface const &target, px_rings rings, int first, int last)
{
    Tvx_box_d2 box;
    box.add(f_left, f_top + first);
    box.add(f_left + f_width, f_top + last);
    crossings work(box);
    std::size_t vertices = 0;
    for (auto const &ring : rings) {
        work.add(ring);
        vertices += ring.size();
    }
    if (last - first == 1 || work.cost() * f_slowness <= c_most_at_once) {
        auto const begun = std::chrono::steady_clock::now();
        paint_rows(rings, first, last);
        std::chrono::duration<double, std::nano> const taken = std::chrono::steady_clock::now() - begun;
        f_slowness = std::clamp(taken.count() / work.cost(), 1.0, c_most_slowness);
        return go_on(target, taken.count());
    }
    if (!go_on(target, static_cast<double>(vertices) * cost::c_vertex / 4))
        return false;
    int const middle = (first + last) / 2;
    auto const paint_part = [&](int from, int to) {
        std::vector<px_line> lines;
        for (auto const &ring : rings)
            if (auto shown = within_rows(ring, f_top + from, f_top + to); shown.size() > 2)
                lines.push_back(std::move(shown));
        std::vector<std::span<Tvx_pnt_d2 const>> const parts(lines.begin(), lines.end());
        return paint(target, parts, from, to);
    };
    return paint_part(first, middle) && paint_part(middle, last);
}

void area_cover::paint_rows(px_rings rings, int first, int last)
{
    QImage picture(f_cover.data() + static_cast<std::size_t>(first) * f_width, f_width, last - first, f_width,
                   QImage::Format_Alpha8);
    QPainterPath path;
    path.setFillRule(Qt::OddEvenFill);
    for (auto const &ring : rings) {
        if (ring.size() < 3)
            continue;
        path.moveTo(ring[0].x, ring[0].y);
        for (std::size_t i = 1; i < ring.size(); ++i)
            path.lineTo(ring[i].x, ring[i].y);
        path.closeSubpath();
    }
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(-f_left, -f_top - first);
    painter.fillPath(path, Qt::white);
}

namespace {
/// Each of the four channels times `by`, of 255, rounded as the painter does.
QRgb times(QRgb pixel, unsigned by)
{
    auto const half = [by](QRgb channels) {
        QRgb const t = channels * by;
        return (t + (t >> 8 & 0xff00ff) + 0x800080) >> 8 & 0xff00ff;
    };
    return half(pixel & 0xff00ff) | half(pixel >> 8 & 0xff00ff) << 8;
}
} // namespace

void area_cover::fill(surface const &target, Tvx_color color) const
{
    if (f_height == 0)
        return;
    QImage picture(f_width, f_height, QImage::Format_ARGB32_Premultiplied);
    QRgb const whole = qPremultiply(qRgba(color.r, color.g, color.b, color.a));
    auto cover = f_cover.begin();
    for (int y = 0; y < f_height; ++y) {
        if (!go_on(target, f_width * cost::c_pixel))
            return;
        auto *const line = reinterpret_cast<QRgb *>(picture.scanLine(y));
        for (int x = 0; x < f_width; ++x)
            line[x] = times(whole, *cover++);
    }
    vx_qt_painter(target.painter)->drawImage(f_left, f_top, picture);
}

void area_cover::lay(surface const &target, unsigned char *pixels, int bytes_per_line) const
{
    auto cover = f_cover.begin();
    for (int y = 0; y < f_height; ++y) {
        if (!go_on(target, f_width * cost::c_pixel))
            return;
        auto *const line = reinterpret_cast<QRgb *>(pixels + static_cast<std::ptrdiff_t>(y) * bytes_per_line);
        for (int x = 0; x < f_width; ++x)
            line[x] = times(line[x], *cover++);
    }
    if (f_height > 0)
        vx_qt_painter(target.painter)
            ->drawImage(
                f_left, f_top,
                QImage(pixels, f_width, f_height, bytes_per_line, QImage::Format_ARGB32_Premultiplied));
}

void stroke_in_runs(surface const &target, std::span<Tvx_pnt_d2 const> line, double start)
{
    QPainter &painter = *vx_qt_painter(target.painter);
    QPen pen = painter.pen();
    QRect const shown =
        QRectF(QPointF(target.clip.min_x, target.clip.min_y), QPointF(target.clip.max_x, target.clip.max_y))
            .toAlignedRect();
    // Runs overlap where they meet, which would show through: what is not opaque is drawn so on a picture of
    // its own.
    int const alpha = pen.color().alpha();
    QImage picture;
    QPainter own;
    if (alpha != 255) {
        picture = QImage(shown.size(), QImage::Format_ARGB32_Premultiplied);
        picture.fill(Qt::transparent);
        own.begin(&picture);
        own.setRenderHints(painter.renderHints());
        own.translate(-shown.topLeft());
        QColor color = pen.color();
        color.setAlpha(255);
        pen.setColor(color);
    }
    QPainter &to = own.isActive() ? own : painter;
    bool const dashed = pen.style() == Qt::CustomDashLine;
    double const longest = (pen.widthF() > 2 ? c_wide_run_diagonals : c_run_diagonals) *
                           std::hypot(shown.width(), shown.height());
    int const reach = static_cast<int>(std::min(pen.widthF() * 2 + 3, c_most_reach));
    passed_pixels passed(shown.adjusted(-reach, -reach, reach, reach), dashed ? c_dashed_passes : c_passes);
    QVarLengthArray<QPointF, c_run_points> run;
    double run_start = start;
    auto const end_run = [&] {
        if (run.size() > 1) {
            if (dashed)
                pen.setDashOffset(run_start / pen.widthF());
            to.setPen(pen);
            to.drawPolyline(run.constData(), static_cast<int>(run.size()));
        }
        run.clear();
    };
    double length = 0; // of the run
    for (std::size_t i = 1; i < line.size(); ++i) {
        Tvx_pnt_d2 const a = line[i - 1];
        Tvx_pnt_d2 const b = line[i];
        double const own_length = std::hypot(b.x - a.x, b.y - a.y);
        bool const shows = passed.add(a, b);
        if (!go_on(target, cost::c_vertex + own_length * (shows ? c_drawn_pixel : c_passed_pixel)))
            break;
        bool const is_full = run.size() >= static_cast<qsizetype>(c_run_points) || length > longest;
        if (is_full || !shows) {
            // The next run begins with the last segment of this one, so that they join.
            QPointF const before = run.size() > 1 ? run[run.size() - 2] : QPointF();
            bool const joins = shows && run.size() > 1;
            end_run();
            length = 0;
            if (joins) {
                run.append(before);
                run_start = start - std::hypot(a.x - before.x(), a.y - before.y());
            }
        }
        if (shows) {
            if (run.isEmpty())
                run_start = start;
            if (run.isEmpty() || run.back() != QPointF(a.x, a.y))
                run.append(QPointF(a.x, a.y));
            run.append(QPointF(b.x, b.y));
            length += own_length;
        }
        start += own_length;
    }
    end_run();
    if (own.isActive()) {
        own.end();
        painter.setOpacity(alpha / 255.0);
        painter.drawImage(shown.topLeft(), picture);
        painter.setOpacity(1);
    }
}
} // namespace vx::render
