#include "host/style_sheets.h"
#include "tests/support/temp_dir.h"

#include "platform/base/owned.h"
#include "platform/storage/vx_style_lib_file.h"
#include "platform/styles/detail/lib_model.h"
#include "platform/styles/vxk_styles.h"

#include <QImage>
#include <QPainter>

#include <cmath>
#include <cstdlib>
#include <gtest/gtest.h>
#include <limits>
#include <map>
#include <set>
#include <string>
#include <vector>

// The style libraries that come with the system, as the build tree has them where an install has them, and
// the pictures that the catalogue shows of them.

namespace {
using namespace vx::styles;

constexpr char const *c_names[] = {"01_general", "02_topographic", "03_patterns", "04_statistics"};

/// The libraries of the process, without any of the user's.
style_libs &starter_libs()
{
    static bool const loaded = [] {
        vx_test::temp_dir const nothing;
        char const *const before = std::getenv("XDG_DATA_HOME");
        std::string const kept = before ? before : "";
        setenv("XDG_DATA_HOME", nothing.path().c_str(), 1);
        bool const done = vx_global_lib_styles_load();
        before ? setenv("XDG_DATA_HOME", kept.c_str(), 1) : unsetenv("XDG_DATA_HOME");
        return done;
    }();
    EXPECT_TRUE(loaded);
    return *static_cast<style_libs *>(vx_global_lib_styles_get_libs());
}

class starter_styles : public testing::Test
{
protected:
    void SetUp() override { ASSERT_EQ(std::size(c_names), starter_libs().libs.size()); }
};

std::vector<idx_style const *> all_styles(style_lib const &lib)
{
    std::vector<idx_style const *> styles;
    for (style_list const *list : {&lib.pnt, &lib.pln, &lib.pgn})
        for (auto const &style : list->styles)
            styles.push_back(style.get());
    return styles;
}

std::vector<Tvx_style_sheet> sheets_of(std::size_t lib)
{
    return vx_style_sheets(starter_libs().libs[lib].get(), c_names[lib]);
}

bool is_russian(std::wstring const &text)
{
    return text.find_first_of(L"абвгдежзиклмнопрстуфхцчшыэюяАБВГДЖЗИКЛМНОПРСТУФХЦЧШЭЮЯ") !=
           std::wstring::npos;
}

bool is_english(std::wstring const &text)
{
    return !text.empty() && !is_russian(text);
}

// ---- content
void check_item(style_lib &lib, style_item const &item, std::multiset<int> &named)
{
    EXPECT_TRUE(is_english(item.caption.text)) << testing::PrintToString(item.caption.text);
    ASSERT_TRUE(item.caption.others.contains("ru")) << testing::PrintToString(item.caption.text);
    EXPECT_TRUE(is_russian(item.caption.others.at("ru"))) << testing::PrintToString(item.caption.text);
    EXPECT_NE(item.index < 0, item.items.empty()) << "an item names a style or holds others";
    if (item.index >= 0) {
        int found = 0;
        for (style_list const *list : {&lib.pnt, &lib.pln, &lib.pgn})
            found += vx_style_list_find_idx_ver(list, item.index, item.version, nullptr);
        EXPECT_EQ(1, found) << item.index;
        named.insert(item.index);
    }
    std::set<std::wstring> captions;
    for (auto const &child : item.items) {
        EXPECT_TRUE(captions.insert(child->caption.text).second)
            << testing::PrintToString(child->caption.text);
        check_item(lib, *child, named);
    }
}

TEST_F(starter_styles, are_read_without_a_word)
{
    vx::owned<void, &vx_style_libs_destroy> const libs(vx_style_libs_create());
    vx::owned<Ivx_xml_data, &vx_xml_data_destroy> const xml(vx_xml_save_style_create());
    for (char const *name : c_names) {
        std::filesystem::path const file =
            std::string(VX_SOURCE_DIR "/resources/style_libs/") + name + ".slib";
        std::wstring error;
        Tvx_std_wstring_adapter adapter(error);
        EXPECT_TRUE(vx_xml_data_load_style_lib(xml.get(), file.wstring().c_str(), libs.get())) << file;
        vx_xml_data_get_error_w(xml.get(), adapter);
        EXPECT_EQ(L"", error);
    }
}

TEST_F(starter_styles, are_complete)
{
    std::map<style_kind, int> kinds;
    for (auto const &lib : starter_libs().libs) {
        EXPECT_TRUE(is_english(lib->name.text));
        EXPECT_TRUE(is_russian(lib->name.others["ru"]));
        std::multiset<int> indices;
        for (idx_style const *style : all_styles(*lib)) {
            indices.insert(style->index);
            ++kinds[style->kind];
            EXPECT_GT(style->index, 0);
            EXPECT_GT(style->version, 0);
            EXPECT_STRNE(L"", vx_style_lib_get_source_w(lib.get(), style)) << style->index;
            EXPECT_STRNE(L"", vx_style_lib_get_licence_w(lib.get(), style)) << style->index;
        }
        std::multiset<int> named;
        check_item(*lib, lib->root, named);
        EXPECT_EQ(indices, named) << "each style stands in the tree once";
        EXPECT_EQ(indices.size(), std::set<int>(indices.begin(), indices.end()).size())
            << "one number, one style";
    }
    EXPECT_GE(kinds[style_kind::pnt] + kinds[style_kind::pln] + kinds[style_kind::pgn], 300);
    EXPECT_EQ(3u, kinds.size());
}

// ---- gradients
struct cie_lab
{
    double l, a, b;
};

/// CIE 1976, white of D65.
cie_lab to_cie_lab(Tvx_color c)
{
    auto const linear = [](int v) {
        double const s = v / 255.0;
        return s <= 0.04045 ? s / 12.92 : std::pow((s + 0.055) / 1.055, 2.4);
    };
    double const r = linear(c.r), g = linear(c.g), b = linear(c.b);
    auto const f = [](double t) { return t > 216.0 / 24389 ? std::cbrt(t) : (24389.0 / 27 * t + 16) / 116; };
    double const x = f((0.4124 * r + 0.3576 * g + 0.1805 * b) / 0.95047);
    double const y = f(0.2126 * r + 0.7152 * g + 0.0722 * b);
    double const z = f((0.0193 * r + 0.1192 * g + 0.9505 * b) / 1.08883);
    return {116 * y - 16, 500 * (x - y), 200 * (y - z)};
}

/// Of all that the complex style draws.
void add_colors(cpx_style const *cpx, std::vector<Tvx_color> &colors)
{
    for (std::size_t i = 0; cpx && i < cpx->lrs.size(); ++i)
        std::visit(
            [&](auto const &lr) {
                if constexpr (requires { lr.point_clr; }) {
                    if (lr.use_cpx_pnt)
                        add_colors(lr.cpx_pnt.find(), colors);
                    else
                        colors.push_back(lr.point_clr);
                } else if constexpr (requires { lr.cpx_pln; }) {
                    add_colors(lr.cpx_pln.find(), colors);
                } else {
                    colors.push_back(lr.color);
                    if constexpr (requires { lr.cpx_pnt; })
                        add_colors(lr.cpx_pnt.find(), colors);
                }
            },
            cpx->lrs[i]->data);
}

template <class Base>
void add_colors(bool visible, Base const &style, std::vector<Tvx_color> &colors)
{
    if (visible && style.use_complex)
        add_colors(style.complex.find(), colors);
    else if (visible)
        colors.push_back(style.color);
}

/// The colours that are seen of step `i`.
std::vector<Tvx_color> step_colors(std::size_t lib, idx_style const &of, unsigned i, unsigned count)
{
    std::vector<Tvx_color> colors;
    int const number = static_cast<int>(lib);
    if (of.kind == style_kind::pnt) {
        vx::owned<void, &vx_pnt_style_destroy> const made(vx_pnt_style_create());
        EXPECT_TRUE(vx_global_lib_styles_get_spec_pnt_gradient(number, of.index, i, count, made.get()));
        auto const &s = *static_cast<pnt_style const *>(made.get());
        add_colors(s.pnt_visible, s.bpnt, colors);
    } else if (of.kind == style_kind::pln) {
        vx::owned<void, &vx_pln_style_destroy> const made(vx_pln_style_create());
        EXPECT_TRUE(vx_global_lib_styles_get_spec_pln_gradient(number, of.index, i, count, made.get()));
        auto const &s = *static_cast<pln_style const *>(made.get());
        add_colors(s.pln_visible, s.bpln, colors);
    } else {
        vx::owned<void, &vx_pgn_style_destroy> const made(vx_pgn_style_create());
        EXPECT_TRUE(vx_global_lib_styles_get_spec_pgn_gradient(number, of.index, i, count, made.get()));
        auto const &s = *static_cast<pgn_style const *>(made.get());
        add_colors(s.pgn_visible, s.bpgn, colors);
        add_colors(s.pln_visible, s.bpln, colors);
    }
    return colors;
}

/// How far the colour that changes most goes from one step to the next, darker counting as further.
double step_size(std::vector<Tvx_color> const &before, std::vector<Tvx_color> const &after)
{
    double most = 0;
    for (std::size_t i = 0; i < before.size(); ++i) {
        cie_lab const a = to_cie_lab(before[i]);
        cie_lab const b = to_cie_lab(after[i]);
        if (b.l < a.l)
            most = std::max(most, std::hypot(a.l - b.l, a.a - b.a, a.b - b.b));
    }
    return most;
}

TEST_F(starter_styles, steps_of_gradients_can_be_told_apart)
{
    constexpr double c_just_noticeable = 2.3; // in CIE 1976 distances
    double least = 100;
    for (std::size_t lib = 0; lib < std::size(c_names); ++lib)
        for (idx_style const *style : all_styles(*starter_libs().libs[lib]))
            for (unsigned const count : {2U, 3U, 5U, 10U, 20U}) {
                auto before = step_colors(lib, *style, 0, count);
                for (unsigned i = 1; i < count; ++i) {
                    auto const after = step_colors(lib, *style, i, count);
                    double const size = step_size(before, after);
                    EXPECT_GE(size, c_just_noticeable)
                        << c_names[lib] << " " << style->index << ": step " << i << " of " << count;
                    least = std::min(least, size);
                    before = after;
                }
            }
    RecordProperty("least_distance", std::to_string(least));
}

/// Pixels that differ by more than `tolerance` in the sum of their channels.
int differences(QImage const &a, QImage const &b, int tolerance)
{
    if (a.size() != b.size())
        return std::numeric_limits<int>::max();
    int count = 0;
    for (int y = 0; y < a.height(); ++y) {
        auto const *p = reinterpret_cast<QRgb const *>(a.constScanLine(y));
        auto const *q = reinterpret_cast<QRgb const *>(b.constScanLine(y));
        for (int x = 0; x < a.width(); ++x)
            count += p[x] != q[x] && std::abs(qRed(p[x]) - qRed(q[x])) +
                                             std::abs(qGreen(p[x]) - qGreen(q[x])) +
                                             std::abs(qBlue(p[x]) - qBlue(q[x])) >
                                         tolerance;
    }
    return count;
}

// ---- pictures
TEST_F(starter_styles, no_two_look_the_same)
{
    for (std::size_t lib = 0; lib < std::size(c_names); ++lib) {
        std::map<style_kind, std::vector<std::pair<int, QImage>>> seen;
        for (Tvx_style_sheet const &sheet : sheets_of(lib))
            for (std::size_t i = 0; i < sheet.count(); ++i) {
                auto const *style = static_cast<idx_style const *>(sheet.at(i).style);
                QImage const picture = sheet.draw_sample(i, 1);
                QImage blank = picture;
                blank.fill(Qt::white);
                EXPECT_GE(differences(picture, blank, 40), 5) << c_names[lib] << " " << style->index;
                for (auto const &[other, its] : seen[style->kind])
                    EXPECT_GE(differences(picture, its, 20), 12)
                        << c_names[lib] << ": " << style->index << " and " << other;
                seen[style->kind].emplace_back(style->index, picture);
            }
    }
}

/// What another release of the painter may shade otherwise, and a picture with few colours. A stroke that is
/// missing or stands elsewhere changes more.
void expect_same(QImage const &drawn, QImage const &wanted, std::string const &what)
{
    int const pixels = drawn.width() * drawn.height();
    EXPECT_LE(differences(drawn, wanted, 60), pixels / 60) << what;
    EXPECT_LE(differences(drawn, wanted, 200), pixels / 800) << what;
}

// Pictures that somebody looked at. `vx_map --lang en --style-sheets docs/style_catalogue
// resources/style_libs/*.slib` draws them anew.
TEST_F(starter_styles, look_as_the_catalogue_shows_them)
{
    for (std::size_t lib = 0; lib < std::size(c_names); ++lib)
        for (Tvx_style_sheet const &sheet : sheets_of(lib)) {
            QString const file = QString(VX_SOURCE_DIR "/docs/style_catalogue/%1.png").arg(sheet.name());
            QImage const page = QImage(file).convertToFormat(QImage::Format_RGB32);
            ASSERT_FALSE(page.isNull()) << file.toStdString();
            for (std::size_t i = 0; i < sheet.count(); ++i)
                expect_same(sheet.draw_sample(i, 2).convertToFormat(QImage::Format_RGB32),
                            page.copy(sheet.sample_place(i)), file.toStdString() + " " + std::to_string(i));
        }
}

// The same with one pixel for each of the sample's own, for some groups; VX_WRITE_GOLDEN=1 draws them anew.
TEST_F(starter_styles, look_as_they_did_on_plain_screens)
{
    std::set<QString> const chosen = {"01_general-101",  "01_general-201",  "01_general-501",
                                      "01_general-821",  "01_general-951",  "02_topographic-501",
                                      "03_patterns-201", "03_patterns-251", "04_statistics-301"};
    std::size_t compared = 0;
    for (std::size_t lib = 0; lib < std::size(c_names); ++lib)
        for (Tvx_style_sheet const &sheet : sheets_of(lib)) {
            if (!chosen.contains(sheet.name()))
                continue;
            ++compared;
            QString const file =
                QString(VX_SOURCE_DIR "/tests/golden/starter_styles/%1.png").arg(sheet.name());
            QSize const size = sheet.draw_sample(0, 1).size();
            QImage row(size.width(), size.height() * static_cast<int>(sheet.count()), QImage::Format_RGB32);
            QPainter painter(&row);
            for (std::size_t i = 0; i < sheet.count(); ++i)
                painter.drawImage(0, size.height() * static_cast<int>(i), sheet.draw_sample(i, 1));
            painter.end();
            if (std::getenv("VX_WRITE_GOLDEN")) {
                ASSERT_TRUE(row.save(file, "PNG", 0));
            }
            QImage const wanted = QImage(file).convertToFormat(QImage::Format_RGB32);
            ASSERT_EQ(row.size(), wanted.size()) << file.toStdString();
            for (std::size_t i = 0; i < sheet.count(); ++i) {
                QRect const place(QPoint(0, size.height() * static_cast<int>(i)), size);
                expect_same(row.copy(place), wanted.copy(place),
                            file.toStdString() + " " + std::to_string(i));
            }
        }
    EXPECT_EQ(chosen.size(), compared);
}
} // namespace
