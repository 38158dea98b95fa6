#include "tests/platform/storage/support.h"

#include "platform/basic/vx_fnt_type.h"
#include "platform/storage/vx_gis_prg.h"

#include <fstream>
#include <functional>
#include <gtest/gtest.h>

using namespace vx_test;

namespace {
/// A legend as text: records by number, written in any order and with either line end.
class legend_text
{
public:
    explicit legend_text(char const *version = "/3.1", char const *end = "\n")
        : f_version(version), f_end(end)
    {
    }

    int add(std::string const &type, std::string const &attributes)
    {
        f_records.push_back(type + '.' + std::to_string(f_next) + '\n' + attributes);
        return f_next++;
    }
    int color(unsigned r, unsigned g, unsigned b, bool none = false)
    {
        auto const part = [](char const *name, unsigned value) {
            char hex[16];
            std::snprintf(hex, sizeof hex, "0x%02x%02x", value, value);
            return value ? "\t" + std::string(name) + ":\t" + hex + "\n" : std::string();
        };
        return add("TClr", (none ? "\tName:\t\"Transparent\"\n" : "") + part("Red", r) + part("Green", g) +
                               part("Blue", b));
    }
    int fill(unsigned r, unsigned g, unsigned b, bool none = false)
    {
        return add("BShSym", ref("Color", color(r, g, b, none)) + "\tOutline:\t1\n" +
                                 ref("OutlineColor", color(0, 0, 255)) + "\tOutlineWidth:\t1.0\n");
    }
    static std::string ref(char const *name, int id)
    {
        return "\t" + std::string(name) + ":\t" + std::to_string(id) + "\n";
    }
    int lclass(std::string const &attributes, int symbol)
    {
        f_children.push_back(symbol);
        f_classes.push_back(add("LClass", attributes));
        return f_classes.back();
    }
    std::string done(char const *type, char const *field = "\"POP\"")
    {
        std::string children, classes;
        for (int const id : f_children)
            children += ref("Child", id);
        for (int const id : f_classes)
            classes += ref("Class", id);
        int const name = add("AVStr", "\tS:\t" + std::string(field) + "\n");
        int const symbols = add("SymList", children);
        int const legend = add("Legend", "\tSymType:\t0x02\n\tLegType:\t" + std::string(type) + "\n" +
                                             ref("FieldNames", name) + ref("Symbols", symbols) + classes);
        std::string text = std::string(f_version) + "\n(ODB.1\n\tFirstRootClassName:\t\"Legend\"\n" +
                           ref("Roots", legend) + "\tVersion:\t31\n)\n\n";
        for (auto const &r : f_records)
            text += "(" + r + ")\n\n";
        std::string result;
        for (char const c : text)
            c == '\n' ? result += f_end : result += c;
        return result;
    }

private:
    std::string f_version, f_end;
    int f_next = 2;
    std::vector<std::string> f_records;
    std::vector<int> f_children, f_classes;
};

class legend_files : public testing::Test
{
protected:
    int import(std::string const &text, void *mngr)
    {
        auto const path = f_dir.path() / "legend.avl";
        std::ofstream(path, std::ios::binary) << text;
        auto *const params = gp_avl_to_stlmgr_params_create();
        gp_avl_to_stlmgr_params_set_filename(params, path.c_str());
        gp_avl_to_stlmgr_params_set_stl_mngr(params, mngr);
        int const result = gp_avl_to_stlmngr_execute(params);
        gp_avl_to_stlmgr_params_destroy(params);
        return result;
    }
    temp_dir f_dir;
};

std::wstring text_of(std::function<void(Ivx_string_adp *)> const &read)
{
    std::wstring result;
    Tvx_std_wstring_adapter adapter(result);
    read(adapter);
    return result;
}

unsigned rgb(Tvx_color c)
{
    return static_cast<unsigned>(c.r << 16 | c.g << 8 | c.b);
}
void *pgn_of(void *scale_prm)
{
    return vx_stl_prm_get_pgn_style_ptr(vx_scale_prm_get_stl_prm_ptr(scale_prm), false);
}
unsigned fill_of(void *scale_prm)
{
    return rgb(vx_bpgn_style_get_color(vx_pgn_style_get_bpgn_style_ptr(pgn_of(scale_prm))));
}
} // namespace

TEST_F(legend_files, come_in_all_forms)
{
    for (char const *const version : {"/3.0", "/3.1", "/3.2"})
        for (char const *const end : {"\n", "\r\n"})
            for (int const count : {1, 2, 7, 80}) {
                SCOPED_TRACE(std::string(version) + " " + std::to_string(count));
                legend_text unique(version, end), graduated(version, end), single(version, end);
                for (int i = 0; i < count; ++i) {
                    auto const n = std::to_string(i);
                    auto const red = static_cast<unsigned>(i + 1);
                    unique.lclass("\tLabel:\t\"Land \\\"" + n + "\\\"\"\n\tMinStr:\t\"v" + n +
                                      "\"\n\tMaxStr:\t\"v" + n + "\"\n\tIsText:\t1\n",
                                  unique.fill(red, 2, 0));
                    // The lower bound of the first class is 0 and therefore omitted.
                    graduated.lclass("\tLabel:\t\"class " + n + "\"\n" +
                                         (i ? "\tMinNum:\t" + n + "1.0\n" : "") + "\tMaxNum:\t" +
                                         std::to_string(i + 1) + "0.0\n",
                                     graduated.fill(0, red, 7));
                }
                single.lclass("\tLabel:\t\"all\"\n", single.fill(9, 8, 7));
                unique.lclass("\tLabel:\t\"none\"\n\tIsNoData:\t1\n", unique.fill(200, 0, 0, true));

                auto const mngr = make_mngr("pgn_style");
                ASSERT_EQ(import(unique.done("0x08"), mngr.get()), c_gp_ok);
                EXPECT_EQ(vx_stl_mngr_get_mode(mngr.get()), 1U);
                EXPECT_STREQ(vx_stl_mngr_get_val_prop_name(mngr.get()), "POP");
                auto *const values = vx_stl_mngr_get_val_scale_ptr(mngr.get());
                ASSERT_EQ(vx_val_scale_get_size(values), static_cast<unsigned>(count));
                for (int i = 0; i < count; ++i) {
                    auto const at = static_cast<unsigned>(i);
                    EXPECT_EQ(vx_val_scale_find_w(values, (L"v" + std::to_wstring(i)).c_str()), i);
                    EXPECT_EQ(text_of([&](auto *a) { vx_val_scale_get_caption_w(values, at, a); }),
                              L"Land \"" + std::to_wstring(i) + L"\"");
                    EXPECT_EQ(fill_of(vx_val_scale_get_scale_prm_ptr(values, at)), (at + 1) << 16 | 0x200);
                }
                auto *const other = vx_val_scale_get_other_prm_ptr(values);
                EXPECT_TRUE(vx_scale_prm_get_visible(other));
                EXPECT_FALSE(vx_pgn_style_get_pgn_visible(pgn_of(other)));
                EXPECT_TRUE(vx_pgn_style_get_pln_visible(pgn_of(other)));

                ASSERT_EQ(import(graduated.done("0x02"), mngr.get()), c_gp_ok);
                EXPECT_EQ(vx_stl_mngr_get_mode(mngr.get()), 2U);
                auto *const ranges = vx_stl_mngr_get_rng_scale_ptr(mngr.get());
                ASSERT_EQ(vx_rng_scale_get_size(ranges), static_cast<unsigned>(count));
                for (unsigned i = 0; i < static_cast<unsigned>(count); ++i) {
                    EXPECT_EQ(vx_rng_scale_find(ranges, i * 10 + (i ? 1 : 0)), i + 1);
                    EXPECT_EQ(vx_rng_scale_find(ranges, i * 10 + 10), i + 1);
                    EXPECT_EQ(fill_of(vx_rng_scale_get_scale_prm_ptr(ranges, i)), (i + 1) << 8 | 7);
                }
                EXPECT_FALSE(vx_scale_prm_get_visible(vx_rng_scale_get_other_prm_ptr(ranges)));
                EXPECT_EQ(vx_val_scale_get_size(vx_stl_mngr_get_val_scale_ptr(mngr.get())),
                          static_cast<unsigned>(count)); // the other scale stays

                ASSERT_EQ(import(single.done("0x01"), mngr.get()), c_gp_ok);
                EXPECT_EQ(vx_stl_mngr_get_mode(mngr.get()), 0U);
                auto *const pgn =
                    vx_stl_prm_get_pgn_style_ptr(vx_stl_mngr_get_simple_sp_ptr(mngr.get()), false);
                EXPECT_EQ(rgb(vx_bpgn_style_get_color(vx_pgn_style_get_bpgn_style_ptr(pgn))), 0x090807U);
                auto *const line = vx_pgn_style_get_bpln_style_ptr(pgn);
                EXPECT_EQ(rgb(vx_bpln_style_get_color(line)), 0x0000FFU);
                EXPECT_NEAR(vx_bpln_style_get_width(line), 25.4 / 72, 1e-9);
            }
}

TEST_F(legend_files, put_objects_into_the_class_that_the_legend_says)
{
    legend_text legend;
    // Not in order; whole steps, a shared bound, neighbours without a number between.
    legend.lclass("\tLabel:\t\"c\"\n\tMinNum:\t11\n\tMaxNum:\t20\n", legend.fill(3, 0, 0));
    legend.lclass("\tLabel:\t\"b\"\n\tMinNum:\t1\n\tMaxNum:\t10\n", legend.fill(2, 0, 0));
    legend.lclass("\tLabel:\t\"a\"\n\tMinNum:\t-5\n\tMaxNum:\t1\n", legend.fill(1, 0, 0));
    auto const mngr = make_mngr("pgn_mngr_style");
    ASSERT_EQ(import(legend.done("0x02"), mngr.get()), c_gp_ok);
    auto *const scale = vx_stl_mngr_get_rng_scale_ptr(mngr.get());
    unsigned const low = 0, other = 5, high = 4;
    std::pair<double, unsigned> const cases[] = {{-5.0000001, low}, {-5, 1}, {1, 1},  {1.0000001, 2}, {10, 2},
                                                 {10.5, other},     {11, 3}, {20, 3}, {20.0001, high}};
    for (auto const &[value, row] : cases)
        EXPECT_EQ(vx_rng_scale_find(scale, value), row) << value;
    EXPECT_EQ(text_of([&](auto *a) { vx_rng_scale_get_caption_w(scale, 0, a); }), L"a");
    EXPECT_FALSE(vx_scale_prm_get_visible(vx_rng_scale_get_min_prm_ptr(scale)));
    EXPECT_FALSE(vx_scale_prm_get_visible(vx_rng_scale_get_max_prm_ptr(scale)));

    // Of classes that overlap the first one counts. This legend names no field.
    legend_text nested;
    nested.lclass("\tMinNum:\t-5e-1\n\tMaxNum:\t1E+001\n", nested.fill(1, 0, 0));
    nested.lclass("\tMinNum:\t-20\n\tMaxNum:\t20\n", nested.fill(2, 0, 0));
    nested.lclass("\tMinNum:\t15\n\tMaxNum:\t30\n", nested.fill(3, 0, 0));
    ASSERT_EQ(import(nested.done("0x02", "\"\""), mngr.get()), c_gp_ok);
    std::pair<double, unsigned> const nested_cases[] = {{-20.1, low}, {-20, 2}, {-0.5, 1}, {10, 1},
                                                        {10.1, 2},    {20, 2},  {20.1, 3}, {30.1, high}};
    for (auto const &[value, row] : nested_cases)
        EXPECT_EQ(vx_rng_scale_find(scale, value), row) << value;
    EXPECT_EQ(text_of([&](auto *a) { vx_rng_scale_get_caption_w(scale, 0, a); }), L"-0.5 - 10");
    EXPECT_STREQ(vx_stl_mngr_get_rng_prop_name(mngr.get()), "POP") << "that of before";
}

TEST_F(legend_files, come_as_other_programs_leave_them)
{
    auto const legend = [](char const *version, char const *end) {
        legend_text l(version, end);
        l.lclass("\tLabel:\t\"(a) 1.5\\\" : b\"\n\tMinStr:\t\"x\"\n\tIsText:\t1\n", l.fill(1, 2, 3));
        return l.done("0x08");
    };
    auto const replaced = [](std::string text, std::string const &what, std::string const &by) {
        for (std::size_t at = 0; (at = text.find(what, at)) != text.npos; at += by.size())
            text.replace(at, what.size(), by);
        return text;
    };
    auto const plain = legend("/3.1", "\n");
    std::string const forms[] = {legend("/3.3", "\r"), "\xEF\xBB\xBF" + legend("/3.0", "\r\n"),
                                 replaced(plain, ":\t", "  :   "), replaced(plain, "\n", " \t\n\n \n"),
                                 replaced(replaced(plain, "(AV", " ( AV"), ")\n", "\t)  \n")};
    for (auto const &text : forms) {
        auto const mngr = make_mngr("pgn_style");
        ASSERT_EQ(import(text, mngr.get()), c_gp_ok) << text;
        auto *const scale = vx_stl_mngr_get_val_scale_ptr(mngr.get());
        EXPECT_EQ(vx_val_scale_find_w(scale, L"x"), 0);
        EXPECT_EQ(text_of([&](auto *a) { vx_val_scale_get_caption_w(scale, 0, a); }), L"(a) 1.5\" : b");
        EXPECT_STREQ(vx_stl_mngr_get_val_prop_name(mngr.get()), "POP");
    }
    EXPECT_EQ(import(legend("/4.0", "\n"), make_mngr("pgn_style").get()), c_gp_no_legend);
}

TEST_F(legend_files, map_symbols_to_styles)
{
    { // A stipple of four by two cells over a ground.
        legend_text l;
        int const cells = l.add("Stipple", "\tColumns:\t4\n\tRows:\t2\n\tBits:\t0x90 0x60\n");
        int const symbol =
            l.add("BShSym", l.ref("Color", l.color(255, 0, 0)) + l.ref("BgColor", l.color(0, 255, 0)) +
                                l.ref("Stipple", cells));
        l.lclass("\tMinStr:\t\"5\"\n\tIsText:\t1\n", symbol);
        auto const mngr = make_mngr("pgn_style");
        ASSERT_EQ(import(l.done("0x01"), mngr.get()), c_gp_ok);
        auto *const pgn = vx_stl_prm_get_pgn_style_ptr(vx_stl_mngr_get_simple_sp_ptr(mngr.get()), false);
        EXPECT_FALSE(vx_pgn_style_get_pln_visible(pgn));
        auto *const fill = vx_pgn_style_get_bpgn_style_ptr(pgn);
        ASSERT_TRUE(vx_bpgn_style_get_use_complex(fill));
        auto *const list = vx_cpx_style_get_style_lrs_ptr(vx_bpgn_style_get_complex_style(fill));
        ASSERT_EQ(vx_style_lrs_get_size(list), 2U);
        EXPECT_EQ(rgb(vx_pgn_fill_lr_get_color(vx_style_lrs_get_lr_ptr(list, 0))), 0x00FF00U);
        auto *const spots = vx_style_lrs_get_lr_ptr(list, 1);
        EXPECT_NEAR(vx_pgn_spot_lr_get_dx(spots), 4 * 25.4 / 72, 1e-9);
        auto *const drawing = vx_style_lrs_get_lr_ptr(
            vx_cpx_style_get_style_lrs_ptr(vx_pgn_spot_lr_get_cpx_pnt_style_ptr(spots)), 0);
        // The upper row is "x..x", the lower one ".xx.".
        ASSERT_EQ(vx_pnt_geom_lr_get_part_count(drawing), 3U);
        EXPECT_EQ(vx_pnt_geom_lr_get_vertex(drawing, 0, 0).x, -0.5);
        EXPECT_EQ(vx_pnt_geom_lr_get_vertex(drawing, 2, 0).x, -0.25);
        EXPECT_EQ(vx_pnt_geom_lr_get_vertex(drawing, 2, 1).x, 0.25);
    }
    { // A dashed line over a wide one.
        legend_text l;
        int const wide = l.add("BLnSym", l.ref("Color", l.color(0, 0, 0)) + "\tWidth:\t3\n");
        int const dashed = l.add("BLnSym", l.ref("Color", l.color(255, 255, 255)) +
                                               "\tWidth:\t1\n\tPattern:\t4\n\tPattern:\t2\n");
        l.lclass("", l.add("CLnSym", l.ref("Symbols", wide) + l.ref("Symbols", dashed)));
        auto const mngr = make_mngr("pln_style");
        ASSERT_EQ(import(l.done("0x01"), mngr.get()), c_gp_ok);
        auto *const line = vx_pln_style_get_bpln_style_ptr(
            vx_stl_prm_get_pln_style_ptr(vx_stl_mngr_get_simple_sp_ptr(mngr.get()), false));
        auto *const list = vx_cpx_style_get_style_lrs_ptr(vx_bpln_style_get_complex_style(line));
        ASSERT_EQ(vx_style_lrs_get_size(list), 2U);
        auto *const top = vx_style_lrs_get_lr_ptr(list, 1);
        ASSERT_EQ(vx_pln_cart_lr_get_dash_count(top), 2U);
        EXPECT_NEAR(vx_pln_cart_lr_get_dash(top, 0), 4 * 25.4 / 72, 1e-9);
        EXPECT_EQ(rgb(vx_pln_cart_lr_get_color(top)), 0xFFFFFFU);
    }
    { // A character of a font.
        legend_text l;
        int const font = l.add("NFont", "\tFamily:\t\"DejaVu Sans\"\n");
        l.lclass("", l.add("BMkSym", l.ref("Color", l.color(0, 128, 0)) + "\tSize:\t12\n\tPattern:\t65\n" +
                                         l.ref("Font", font)));
        auto const mngr = make_mngr("pnt_style");
        ASSERT_EQ(import(l.done("0x01"), mngr.get()), c_gp_ok);
        auto *const point = vx_pnt_style_get_bpnt_style_ptr(
            vx_stl_prm_get_pnt_style_ptr(vx_stl_mngr_get_simple_sp_ptr(mngr.get()), false));
        EXPECT_FALSE(vx_bpnt_style_get_use_figure(point));
        EXPECT_EQ(vx_bpnt_style_get_symbol(point), 65U);
        EXPECT_STREQ(vx_bpnt_style_get_fnt_type_ptr(point)->wname(), L"DejaVu Sans");
        EXPECT_NEAR(vx_bpnt_style_get_size(point), 12 * 25.4 / 72, 1e-9);

        auto const polygons = make_mngr("pgn_style");
        EXPECT_EQ(import(l.done("0x01"), polygons.get()), c_gp_wrong_type);
    }
}

TEST_F(legend_files, damaged_anywhere_import_or_leave_the_manager_alone)
{
    legend_text l("/3.2", "\r\n");
    int const cells = l.add("Stipple", "\tColumns:\t8\n\tRows:\t2\n\tBits:\t0xA5 0x5A\n");
    int const symbol = l.add("BShSym", l.ref("Color", l.color(255, 0, 0)) + l.ref("Stipple", cells));
    l.lclass("\tLabel:\t\"one \\101\\x42\"\n\tMinNum:\t1\n\tMaxNum:\t2\n", symbol);
    l.lclass("\tLabel:\t\"nothing\"\n\tIsNoData:\t1\n", l.fill(0, 0, 0, true));
    auto const whole = l.done("0x02");
    auto const before = make_mngr("pgn_style");
    maker(7).scales(before.get(), 3);

    auto const check = [&](std::string const &text) {
        vx::owned<void, &vx_stl_mngr_destroy> const mngr(vx_stl_mngr_clone(before.get()));
        if (import(text, mngr.get()) != c_gp_ok) {
            EXPECT_TRUE(vx_stl_mngr_equal(mngr.get(), before.get()));
        } else {
            EXPECT_GE(vx_stl_mngr_get_mode(mngr.get()), 0U);
        }
    };
    ASSERT_EQ(import(whole, vx::owned<void, &vx_stl_mngr_destroy>(vx_stl_mngr_clone(before.get())).get()),
              c_gp_ok);
    for (std::size_t i = 0; i < whole.size(); ++i) {
        check(whole.substr(0, i));
        auto flipped = whole;
        flipped[i] = static_cast<char>(flipped[i] ^ (1 << (i % 8)));
        check(flipped);
        flipped[i] = '9';
        check(flipped);
    }
}

TEST_F(legend_files, hostile_ones_are_refused_at_once)
{
    auto const refused = [&](legend_text &l, char const *type, char const *style) {
        auto const mngr = make_mngr(style);
        EXPECT_NE(import(l.done(type), mngr.get()), c_gp_ok);
    };
    { // A compound symbol that holds itself.
        legend_text l;
        l.lclass("", l.add("CLnSym", l.ref("Symbols", 2) + l.ref("Symbols", 2)));
        refused(l, "0x01", "pln_style");
    }
    { // Compound symbols of many that multiply without a layer to show for it.
        legend_text l;
        int symbol = l.add("BLnSym", l.ref("Color", l.color(0, 0, 0, true)));
        for (int depth = 0; depth < 7; ++depth) {
            std::string parts;
            for (int i = 0; i < 60; ++i)
                parts += l.ref("Symbols", symbol);
            symbol = l.add("CLnSym", parts);
        }
        l.lclass("", symbol);
        refused(l, "0x01", "pln_style");
    }
    { // A stipple of giant size.
        legend_text l;
        int const cells = l.add("Stipple", "\tColumns:\t4294967295\n\tRows:\t4294967295\n\tBits:\t0xFF\n");
        l.lclass("", l.add("BShSym", l.ref("Stipple", cells)));
        refused(l, "0x01", "pgn_style");
    }
    { // A reference into nothing, and one to an object of another class.
        for (int const id : {4711, 2}) {
            legend_text l;
            l.color(1, 2, 3);
            l.lclass("", id);
            refused(l, "0x01", "pgn_style");
        }
    }
    { // Numbers that are none.
        for (char const *const number : {"nan", "1e999", "", "\"5\"", "0x1FFFFFFFF"}) {
            legend_text l;
            l.lclass("\tMinNum:\t" + std::string(number) + "\n\tMaxNum:\t1e308\n", l.fill(1, 1, 1));
            refused(l, "0x02", "pgn_style");
        }
    }
    auto const mngr = make_mngr("pgn_style");
    EXPECT_EQ(import("/3.1\n(A.1\n\tS:\t\"" + std::string(1 << 22, '\n'), mngr.get()), c_gp_no_legend);
    EXPECT_EQ(import("", mngr.get()), c_gp_no_legend);
    EXPECT_EQ(import(legend_text().done("0x01"), mngr.get()), c_gp_no_legend);
    EXPECT_EQ(import("/3.1", nullptr), c_gp_wrong_type);
}

TEST_F(legend_files, long_and_foreign_texts_are_read)
{
    legend_text l;
    auto const label = std::string(600, 'x') + "\n" + std::string(300, 'y');
    l.lclass("\tLabel:\t\"" + label + "\"\n\tMinNum:\t5\n\tMaxNum:\t5\n", l.fill(1, 1, 1));
    l.lclass("\tLabel:\t\"Caf\xE9\"\n\tMinNum:\t2.5\n\tMaxNum:\t2.5\n", l.fill(1, 1, 1));
    auto const mngr = make_mngr("pgn_style");
    ASSERT_EQ(import(l.done("0x08", "\"\\320\\230\\320\\274\\321\\217\""), mngr.get()), c_gp_ok);
    auto *const scale = vx_stl_mngr_get_val_scale_ptr(mngr.get());
    EXPECT_EQ(text_of([&](auto *a) { vx_val_scale_get_caption_w(scale, 0, a); }),
              std::wstring(600, L'x') + std::wstring(300, L'y'));
    EXPECT_EQ(text_of([&](auto *a) { vx_val_scale_get_caption_w(scale, 1, a); }), L"Caf\u00E9");
    EXPECT_EQ(vx_val_scale_find_w(scale, L"5"), 0);
    EXPECT_EQ(vx_val_scale_find_w(scale, L"2.5"), 1);
    EXPECT_EQ(text_of([&](auto *a) { vx_stl_mngr_get_val_prop_name_w(mngr.get(), a); }), L"Имя");

    legend_text cyrillic; // by code page 1251, one text among others
    cyrillic.lclass("\tLabel:\t\"\xCB\xE5\xF1 (pine)\"\n\tMinStr:\t\"\xE5\xEB\xFC\"\n\tIsText:\t1\n",
                    cyrillic.fill(1, 1, 1));
    ASSERT_EQ(import(cyrillic.done("0x08"), mngr.get()), c_gp_ok);
    EXPECT_EQ(text_of([&](auto *a) { vx_val_scale_get_caption_w(scale, 0, a); }), L"Лес (pine)");
    EXPECT_EQ(vx_val_scale_find_w(scale, L"ель"), 0);
}

TEST_F(legend_files, report_to_the_current_environment)
{
    struct
    {
        int waits = 0, finishes = 0, debugs = 0;
        bool stop = false;
    } seen;
    using seen_type = decltype(seen);
    gp_env_callbacks calls;
    calls.object = &seen;
    calls.wait_start = [](void *o) { ++static_cast<seen_type *>(o)->waits; };
    calls.wait_finish = [](void *o) { ++static_cast<seen_type *>(o)->finishes; };
    calls.debug_message = [](void *o, char const *) { ++static_cast<seen_type *>(o)->debugs; };
    calls.stopped = [](void *o) { return static_cast<seen_type *>(o)->stop; };
    auto *const out = gp_env_out_create();
    gp_env_out_set(out, &calls);
    auto *const former = gp_env_main_get_env();
    gp_env_main_set_env(out);
    legend_text l;
    l.lclass("", l.fill(1, 1, 1));
    auto const text = l.done("0x01");
    auto const mngr = make_mngr("pgn_style");
    EXPECT_EQ(import(text, mngr.get()), c_gp_ok);
    seen.stop = true;
    EXPECT_EQ(import(text, mngr.get()), c_gp_stopped);
    gp_env_main_set_env(former);
    gp_env_out_destroy(out);
    EXPECT_EQ(import(text, mngr.get()), c_gp_ok);
    EXPECT_EQ(seen.waits, 2);
    EXPECT_EQ(seen.finishes, 2);
    EXPECT_EQ(seen.debugs, 2);
}
