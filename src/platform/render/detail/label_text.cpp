#include "platform/render/detail/label_text.h"

#include "platform/basic/vx_fnt_type.h"
#include "platform/toolkit/bridge/qt_graphics.h"
#include "platform/toolkit/bridge/qt_widgets.h"

#include <QtCore/QChar>
#include <QtGui/QFont>
#include <QtGui/QFontMetricsF>
#include <QtGui/QGlyphRun>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>
#include <QtGui/QRawFont>
#include <QtGui/QTextLayout>
#include <QtGui/QTransform>

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <unordered_map>

namespace vx::render {
namespace {
constexpr int c_layout_px = 128;
constexpr double c_layout_width = 1e7;
/// Lines whose glyphs are kept; a map that shows more begins anew.
constexpr std::size_t c_kept_lines = 20'000;
/// A rim up to this wide is the text drawn round about its place.
constexpr double c_wide_rim_px = 2.5;

QColor qt_color(Tvx_color c)
{
    return QColor(c.r, c.g, c.b, c.a);
}

QString qt_text(std::wstring_view text)
{
    return QString::fromWCharArray(text.data(), static_cast<qsizetype>(text.size()));
}

QFont qt_font(vx_fnt_type const &font)
{
    vx_qt_ensure_application();
    QFont f(QString::fromWCharArray(font.wname()));
    f.setPixelSize(c_layout_px);
    f.setBold(font.bold);
    f.setItalic(font.italic);
    f.setUnderline(font.underline);
    f.setStrikeOut(font.strikeout);
    f.setHintingPreference(QFont::PreferNoHinting);
    return f;
}

/// Letters that change with their neighbours, stand on others or run to the left.
bool needs_shaping(char32_t c)
{
    constexpr char32_t c_first_mark = 0x300;
    if (c < c_first_mark)
        return false;
    switch (QChar::category(c)) {
    case QChar::Mark_NonSpacing:
    case QChar::Mark_SpacingCombining:
    case QChar::Mark_Enclosing:
    case QChar::Other_Format:
        return true;
    default:
        break;
    }
    switch (QChar::direction(c)) {
    case QChar::DirR:
    case QChar::DirAL:
    case QChar::DirAN:
        return true;
    default:
        break;
    }
    // The scripts of India and those of its neighbours up to the Khmer.
    return (c >= 0x900 && c < 0x10A0) || (c >= 0x1780 && c < 0x1800) || (c >= 0x1100 && c < 0x1200);
}

struct text_key
{
    unsigned font;
    std::wstring text;
    bool operator==(text_key const &) const = default;
};
struct text_key_hash
{
    std::size_t operator()(text_key const &key) const
    {
        return std::hash<std::wstring>()(key.text) * 31 + key.font;
    }
};
/// Clusters of a line that begins at `left` and is so many ems wide.
std::vector<text_cluster> clusters_of(QTextLayout const &layout, QTextLine const &row, double left,
                                      double width)
{
    std::vector<text_cluster> clusters;
    for (int from = 0, end = static_cast<int>(layout.text().size()); from < end;) {
        int const to = std::max(layout.nextCursorPosition(from, QTextLayout::SkipCharacters), from + 1);
        double const a = (row.cursorToX(from) - left) / c_layout_px;
        double const b = (row.cursorToX(to) - left) / c_layout_px;
        if (a != b)
            clusters.push_back({std::min(a, b), std::max(a, b)});
        from = to;
    }
    std::ranges::sort(clusters, {}, &text_cluster::begin);
    // Where directions meet, a cursor stands in two places: clusters follow each other without a gap.
    for (std::size_t i = 0; i < clusters.size(); ++i) {
        auto &cluster = clusters[i];
        cluster.begin = i == 0 ? 0 : clusters[i - 1].end;
        cluster.end = i + 1 == clusters.size()
                          ? width
                          : std::max(cluster.begin, std::min(cluster.end, clusters[i + 1].begin));
        if (cluster.end <= cluster.begin && i + 1 < clusters.size())
            cluster.end = std::max(cluster.begin, clusters[i + 1].begin);
    }
    return clusters;
}
} // namespace

double label_look::reach() const
{
    double const rim = outline ? outline_width : 0;
    double const cast = shadow ? std::max(std::abs(shadow_gap_x), std::abs(shadow_gap_y)) + shadow_width : 0;
    return std::max(rim, cast);
}

struct shaped_line
{
    std::vector<QGlyphRun> runs; ///< at the size of layout, the base line at 0
    std::vector<text_cluster> clusters;
    double width = 0; ///< in ems
    double underline = 0;
    double strikeout = 0;
    double line_width = 0; ///< of both, in ems; 0 for neither
    bool underlined = false;
    bool struck_out = false;

    /// The letters from `begin` to `end`, in ems, at the size of layout; with lines under and through them.
    [[nodiscard]] QPainterPath path(double begin, double end) const;
};

QPainterPath shaped_line::path(double begin, double end) const
{
    QPainterPath path;
    path.setFillRule(Qt::WindingFill);
    for (QGlyphRun const &run : runs) {
        QRawFont const font = run.rawFont();
        auto const glyphs = run.glyphIndexes();
        auto const places = run.positions();
        for (qsizetype i = 0; i < glyphs.size(); ++i) {
            QRectF const box = font.boundingRect(glyphs[i]).translated(places[i]);
            double const middle = box.center().x() / c_layout_px;
            if (middle >= begin && middle < end)
                path.addPath(font.pathForGlyph(glyphs[i]).translated(places[i]));
        }
    }
    double const thick = line_width * c_layout_px;
    double const from = std::max(begin, 0.0) * c_layout_px;
    double const length = std::min(end, width) * c_layout_px - from;
    if (underlined)
        path.addRect(from, underline * c_layout_px, length, thick);
    if (struck_out)
        path.addRect(from, -strikeout * c_layout_px, length, thick);
    return path;
}

// ---- fonts

/// The fonts of glyphs, at the sizes of labels.
struct label_fonts::sized_fonts
{
    struct entry
    {
        QRawFont of;
        double size;
        QRawFont sized;
    };
    std::vector<entry> known;

    QRawFont get(QRawFont const &font, double size)
    {
        constexpr std::size_t c_most = 64;
        for (entry const &e : known)
            if (e.size == size && e.of == font)
                return e.sized;
        QRawFont made = font;
        made.setPixelSize(size);
        if (known.size() == c_most)
            known.erase(known.begin());
        known.push_back({font, size, made});
        return made;
    }
};

struct label_fonts::state
{
    sized_fonts sized;
    struct font
    {
        vx_fnt_type type;
        QFont qt;
        QFontMetricsF metrics;
        std::array<float, 0x3000> widths; ///< of the first characters, in ems; below 0 is not known yet
        std::unordered_map<char32_t, float> other_widths;

        explicit font(vx_fnt_type const &of) : type(of), qt(qt_font(of)), metrics(qt) { widths.fill(-1); }
        double width_of(char32_t c)
        {
            if (c < widths.size())
                return widths[c] < 0 ? widths[c] = measure(c) : widths[c];
            auto const [at, is_new] = other_widths.try_emplace(c, 0.f);
            if (is_new)
                at->second = measure(c);
            return at->second;
        }
        [[nodiscard]] float measure(char32_t c) const
        {
            return static_cast<float>(metrics.horizontalAdvance(QString::fromUcs4(&c, 1)) / c_layout_px);
        }
    };
    std::vector<std::unique_ptr<font>> fonts;
    std::unordered_map<text_key, shaped_ptr, text_key_hash> lines;
};

label_fonts::label_fonts() : f_state(std::make_unique<state>())
{
}

label_fonts::~label_fonts() = default;

label_fonts::sized_fonts &label_fonts::sized()
{
    return f_state->sized;
}

unsigned label_fonts::number_of(vx_fnt_type const &font)
{
    auto &fonts = f_state->fonts;
    auto const at = std::ranges::find_if(fonts, [&](auto const &f) { return f->type == font; });
    if (at != fonts.end())
        return static_cast<unsigned>(at - fonts.begin());
    fonts.push_back(std::make_unique<state::font>(font));
    return static_cast<unsigned>(fonts.size()) - 1;
}

double label_fonts::ascent(unsigned font) const
{
    return f_state->fonts[font]->metrics.ascent() / c_layout_px;
}

double label_fonts::descent(unsigned font) const
{
    return f_state->fonts[font]->metrics.descent() / c_layout_px;
}

double label_fonts::width(unsigned font, std::wstring_view line)
{
    auto &f = *f_state->fonts[font];
    double sum = 0;
    for (wchar_t const c : line) {
        auto const code = static_cast<char32_t>(c);
        if (needs_shaping(code))
            return shape(font, line)->width;
        sum += f.width_of(code);
    }
    return sum;
}

shaped_ptr label_fonts::shape(unsigned font, std::wstring_view line, bool with_clusters)
{
    auto &lines = f_state->lines;
    text_key key{font, std::wstring(line)};
    if (auto const known = lines.find(key);
        known != lines.end() && !(with_clusters && known->second->clusters.empty()))
        return known->second;
    auto const &f = *f_state->fonts[font];
    auto shaped = std::make_shared<shaped_line>();
    QTextLayout layout(qt_text(line), f.qt);
    layout.beginLayout();
    QTextLine row = layout.createLine();
    row.setLineWidth(c_layout_width);
    layout.endLayout();
    QPointF const origin(row.naturalTextRect().left(), row.y() + row.ascent());
    for (QGlyphRun run : layout.glyphRuns()) {
        auto places = run.positions();
        for (QPointF &p : places)
            p -= origin;
        run.setPositions(places);
        shaped->runs.push_back(std::move(run));
    }
    shaped->width = row.naturalTextWidth() / c_layout_px;
    if (with_clusters)
        shaped->clusters = clusters_of(layout, row, origin.x(), shaped->width);
    shaped->underlined = f.type.underline;
    shaped->struck_out = f.type.strikeout;
    shaped->underline = f.metrics.underlinePos() / c_layout_px;
    shaped->strikeout = f.metrics.strikeOutPos() / c_layout_px;
    shaped->line_width = f.metrics.lineWidth() / c_layout_px;
    if (lines.size() >= c_kept_lines)
        lines.clear();
    return lines.insert_or_assign(std::move(key), std::move(shaped)).first->second;
}

shaped_ptr label_fonts::shape(unsigned font, std::wstring_view line)
{
    return shape(font, line, false);
}

shaped_ptr label_fonts::shape_clusters(unsigned font, std::wstring_view line)
{
    return shape(font, line, true);
}

std::span<text_cluster const> label_fonts::clusters(shaped_line const &line)
{
    return line.clusters;
}

// ---- ink

struct label_ink::state
{
    struct part
    {
        shaped_ptr line;
        std::vector<ink_place> places; ///< one for the whole line, or one for each cluster
        bool is_whole = true;
    };
    std::vector<part> parts;
    /// Made for the first painting.
    std::vector<QGlyphRun> runs;
    std::optional<QPainterPath> path;
    double size = 0;

    [[nodiscard]] bool is_level() const
    {
        return std::ranges::all_of(parts,
                                   [](part const &p) { return p.is_whole && p.places.front().angle == 0; });
    }
    void make_runs(label_fonts::sized_fonts &fonts);
    void make_path();
};

void label_ink::state::make_runs(label_fonts::sized_fonts &fonts)
{
    runs.clear();
    double const k = size / c_layout_px;
    for (part const &p : parts)
        for (QGlyphRun run : p.line->runs) {
            auto places = run.positions();
            for (QPointF &at : places)
                at = at * k + QPointF(p.places.front().at.x, p.places.front().at.y);
            run.setPositions(places);
            run.setRawFont(fonts.get(run.rawFont(), size));
            runs.push_back(std::move(run));
        }
}

void label_ink::state::make_path()
{
    path.emplace();
    path->setFillRule(Qt::WindingFill);
    double const k = size / c_layout_px;
    for (part const &p : parts)
        for (std::size_t i = 0; i < p.places.size(); ++i) {
            auto const &clusters = p.line->clusters;
            constexpr double c_far = 1e9;
            double const begin = p.is_whole || i == 0 ? -c_far : clusters[i].begin;
            double const end = p.is_whole || i + 1 == p.places.size() ? c_far : clusters[i].end;
            QTransform to;
            to.translate(p.places[i].at.x, p.places[i].at.y);
            to.rotate(-p.places[i].angle);
            to.scale(k, k);
            if (!p.is_whole)
                to.translate(-clusters[i].begin * c_layout_px, 0);
            path->addPath(to.map(p.line->path(begin, end)));
        }
}

label_ink::label_ink() : f_state(std::make_unique<state>())
{
}

label_ink::~label_ink() = default;

void label_ink::add_line(shaped_ptr line, ink_place const &place)
{
    f_state->parts.push_back({std::move(line), {place}, true});
}

void label_ink::add_clusters(shaped_ptr line, std::vector<ink_place> places)
{
    f_state->parts.push_back({std::move(line), std::move(places), false});
}

void label_ink::paint(vx_native_painter *native, label_fonts &fonts, Tvx_pnt_d2 at, label_look const &look,
                      bool is_vector)
{
    QPainter &painter = *vx_qt_painter(native);
    state &s = *f_state;
    if (s.size != look.size) {
        s.size = look.size;
        s.runs.clear();
        s.path.reset();
    }
    bool const level = s.is_level();
    if (level && s.runs.empty())
        s.make_runs(fonts.sized());
    bool const wide = (look.outline && look.outline_width > c_wide_rim_px) ||
                      (look.shadow && look.shadow_width > c_wide_rim_px);
    bool const clear_rim = look.outline && look.outline_clr.a != 255;
    if ((!level || wide || clear_rim) && !s.path)
        s.make_path();
    auto const write = [&](QPointF const &to, Tvx_color color) {
        if (level) {
            painter.setPen(qt_color(color));
            for (QGlyphRun const &run : s.runs)
                painter.drawGlyphRun(to, run);
            return;
        }
        painter.translate(to);
        painter.fillPath(*s.path, qt_color(color));
        painter.translate(-to);
    };
    auto const rim = [&](QPointF const &to, Tvx_color color, double width) {
        if (!(width > 0))
            return;
        if (level && width <= c_wide_rim_px && color.a == 255 && !is_vector) {
            constexpr int c_around = 8;
            for (int i = 0; i < c_around; ++i) {
                double const turn = i * 2 * M_PI / c_around;
                write(to + QPointF(std::cos(turn), std::sin(turn)) * width, color);
            }
            return;
        }
        if (!s.path)
            s.make_path();
        painter.translate(to);
        painter.strokePath(*s.path,
                           QPen(qt_color(color), 2 * width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.translate(-to);
    };
    // Level text stands on whole pixels, as everywhere on the screen.
    QPointF const place =
        level && !is_vector ? QPointF(std::round(at.x), std::round(at.y)) : QPointF(at.x, at.y);
    if (look.shadow) {
        QPointF const cast = place + QPointF(look.shadow_gap_x, look.shadow_gap_y);
        rim(cast, look.shadow_clr, look.shadow_width);
        write(cast, look.shadow_clr);
    }
    if (look.outline)
        rim(place, look.outline_clr, look.outline_width);
    write(place, look.color);
}
} // namespace vx::render
