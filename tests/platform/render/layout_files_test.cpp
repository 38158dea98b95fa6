#include "layout_sheet.h"
#include "support/temp_dir.h"

#include "platform/base/string_adp.h"
#include "platform/data/vx_tld_data.h"
#include "platform/layers/vx_rtr_lr2d.h"
#include "platform/layers/vx_tld_lr2d.h"

#include <QtCore/QByteArray>
#include <QtGui/QImage>

#include <fstream>
#include <iterator>
#include <regex>
#include <sstream>
#include <unistd.h>

namespace {
using namespace vx_test;

std::string read(std::filesystem::path const &file)
{
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

/// What a PDF draws: its unpacked page.
std::string page_of(std::string const &pdf)
{
    std::string page;
    for (std::size_t at = pdf.find("stream\n"); at != std::string::npos; at = pdf.find("stream\n", at + 1)) {
        std::size_t const object = pdf.rfind(" obj", at);
        if (pdf.substr(at - 3, 3) == "end" ||
            pdf.substr(object, at - object).find("Flate") == std::string::npos)
            continue;
        std::size_t const begin = at + 7;
        // Qt's own unpacking wants a length in front, which need not be right.
        QByteArray packed("\0\1\0\0", 4);
        packed.append(pdf.data() + begin, static_cast<qsizetype>(pdf.find("endstream", begin) - begin));
        QByteArray const plain = qUncompress(packed);
        if (plain.contains(" cm\n"))
            page.append(plain.constData(), static_cast<std::size_t>(plain.size()));
    }
    return page;
}

std::size_t count(std::string const &text, std::string const &what)
{
    std::regex const pattern(what);
    return static_cast<std::size_t>(
        std::distance(std::sregex_iterator(text.begin(), text.end(), pattern), std::sregex_iterator()));
}

struct saved_sheet : layout_sheet
{
    temp_dir folder;
    std::wstring reason;

    Tvx_layout_outcome save(std::string const &name, double dpi, closure<bool()> cancelled = {})
    {
        std::wstring const file = (folder / name).wstring();
        auto *const writer = name.ends_with(".pdf") ? &vx_layout_save_pdf_w : &vx_layout_save_picture_w;
        return writer(layout.get(), file.c_str(), dpi, Tvx_std_wstring_adapter(reason), cancelled);
    }
    std::string pdf(double dpi = 300)
    {
        EXPECT_EQ(save("page.pdf", dpi), c_layout_written);
        return read(folder / "page.pdf");
    }
};

/// A style layer in the fill or line of the layer's only style.
void *complex_layer(Ivx_layer *layer, bool is_line, char const *key)
{
    void *const prm = vx_stl_mngr_get_simple_sp_ptr(vx_shp_lr2d_get_stl_mngr_ptr(layer));
    if (is_line) {
        void *const line = vx_pln_style_get_bpln_style_ptr(vx_stl_prm_get_pln_style_ptr(prm, false));
        vx_bpln_style_set_use_complex(line, true);
        return vx_style_lrs_add_lr(vx_cpx_style_get_style_lrs_ptr(vx_bpln_style_get_complex_style(line)),
                                   key);
    }
    void *const fill = vx_pgn_style_get_bpgn_style_ptr(vx_stl_prm_get_pgn_style_ptr(prm, false));
    vx_bpgn_style_set_use_complex(fill, true);
    return vx_style_lrs_add_lr(vx_cpx_style_get_style_lrs_ptr(vx_bpgn_style_get_complex_style(fill)), key);
}

TEST(layout_files, a_pdf_keeps_lines_areas_symbols_and_letters)
{
    struct scene_kind
    {
        char const *name;
        char const *key;
        int geom_type;
        char const *style; ///< of a complex style; null for a plain one
        char const *drawn; ///< what the page must hold, and how often
        std::size_t least;
    };
    std::vector<Tvx_pnt_d2> tangle;
    for (int i = 0; i < 2500; ++i)
        tangle.push_back({std::fmod(i * 37.7, 48) - 24, std::fmod(i * 17.3, 38) - 19});
    for (scene_kind const &k : {scene_kind{"fill", c_lr_key_shp_pgn, 5, nullptr, "\nf\\*", 1},
                                {"hatch", c_lr_key_shp_pgn, 5, c_pgn_htch_style_lr, " l\nS", 20},
                                {"spots", c_lr_key_shp_pgn, 5, c_pgn_spot_style_lr, "\nf", 20},
                                {"dashes", c_lr_key_shp_pln, 3, c_pln_tplt_style_lr, "\nS", 20},
                                {"line", c_lr_key_shp_pln, 3, nullptr, " l\n", 2000},
                                {"symbols", c_lr_key_shp_pnt, 1, nullptr, "\nf", 200}}) {
        SCOPED_TRACE(k.name);
        saved_sheet s;
        if (k.geom_type == 1)
            for (int i = 0; i < 300; ++i)
                s.add_feature({tangle[static_cast<std::size_t>(i)]}, 1);
        else
            for (int i = 0; i < 2; ++i)
                s.add_feature(tangle, k.geom_type);
        Ivx_layer *const layer = s.add_layer(k.key, L"layer");
        // What is seen through is another matter for painters of pixels.
        vx_stl_prm_set_color(vx_stl_mngr_get_simple_sp_ptr(vx_shp_lr2d_get_stl_mngr_ptr(layer)), false,
                             vx_clr_init_rgba(200, 0, 0, 128));
        if (k.style) {
            void *const part = complex_layer(layer, k.geom_type == 3, k.style);
            if (k.geom_type == 3)
                vx_pln_tplt_lr_set_template(part, "10");
        }
        s.add_frame({20, 10, 70, 50});
        std::string const pdf = s.pdf();
        EXPECT_EQ(count(pdf, "/Subtype ?/Image"), 0U);
        std::string const page = page_of(pdf);
        EXPECT_GE(count(page, k.drawn), k.least);
        EXPECT_GE(count(page, "\nW"), 1U) << "the map is cut to its frame";
        std::istringstream box(pdf.substr(pdf.find("/MediaBox [") + 11));
        double left = 0, bottom = 0, right = 0, top = 0;
        box >> left >> bottom >> right >> top;
        EXPECT_NEAR(right - left, 100 * 72 / 25.4, 0.001);
        EXPECT_NEAR(top - bottom, 80 * 72 / 25.4, 0.001);
    }
}

TEST(layout_files, texts_are_letters_and_rasters_pictures_of_the_resolution)
{
    saved_sheet s;
    s.table.fields = {{L"NAME", 1}};
    s.add_feature({{0, 0}}, 1);
    s.table.features[0].cells = {cell(std::wstring(L"Town"))};
    Ivx_layer *const towns = s.add_layer(c_lr_key_shp_pnt, L"Towns");
    Ivx_layer *const labels = vx_shp_lr2d_get_text_layer_ptr(towns);
    vx_lr2d_set_visible(labels, true);
    vx_textlr_info_set_property(vx_dtld_lr2d_get_text_class(labels), 0, L"NAME");
    s.add_frame({20, 10, 70, 50});
    s.add(c_lr_key_layout_legend, {72, 10, 98, 50}, L"frame");
    vx_layout_text_lr2d_set_wtext(s.add(c_lr_key_layout_text, {10, 55, 90, 65}), L"Headline");
    std::string pdf = s.pdf();
    std::string const page = page_of(pdf);
    EXPECT_GE(count(page, "\\bT[jJ]\\b"), 3U) << "the label, the legend, the headline";
    EXPECT_EQ(count(pdf, "/Subtype ?/Image"), 0U);
    EXPECT_EQ(count(pdf, "/Title"), 1U);
    EXPECT_NE(pdf.find(std::string("\0P\0a\0g\0e", 8)), std::string::npos) << "the layout's caption";
    // 1000 m of the raster's map, 50 mm wide at 1 : 20,000.
    vx_scn_2d_insert(s.scene, 0, vx_rtr_lr2d_create(L"" VX_EXAMPLE_DATA "/olinda_dem_utm25s.tif"));
    Ivx_layer *const frame = vx_layout_find_frame_w(s.layout.get(), L"frame");
    vx_layout_scene_frame_lr2d_set_scale(frame, 20'000, 20'000);
    vx_layout_scene_frame_lr2d_set_center(frame, {295'000, 9'115'000});
    for (int const dpi : {100, 200}) {
        pdf = s.pdf(dpi);
        std::smatch size;
        ASSERT_TRUE(std::regex_search(pdf, size, std::regex("/Width (\\d+)\n/Height (\\d+)")));
        EXPECT_NEAR(std::stoi(size[1]), 50 / 25.4 * dpi, 2);
        EXPECT_NEAR(std::stoi(size[2]), 40 / 25.4 * dpi, 2);
    }
}

TEST(layout_files, pictures_have_the_size_and_resolution_that_were_asked_for)
{
    saved_sheet s;
    s.add_square(L"red", vx_clr_init_rgb(255, 0, 0));
    s.add_frame({20, 10, 70, 50});
    for (char const *const name : {"page.png", "page.JPG", "page.bmp"}) {
        SCOPED_TRACE(name);
        ASSERT_EQ(s.save(name, 127), c_layout_written);
        EXPECT_TRUE(s.reason.empty());
        QImage const image(QString::fromStdWString((s.folder / name).wstring()));
        EXPECT_EQ(image.width(), 500);
        EXPECT_EQ(image.height(), 400);
        EXPECT_NEAR(image.dotsPerMeterX(), 5000, 1);
        EXPECT_GT(qRed(image.pixel(200, 150)) - qGreen(image.pixel(200, 150)), 240);
        EXPECT_GT(qGreen(image.pixel(60, 60)), 250);
    }
    EXPECT_EQ(s.folder.count(), 3);
}

TEST(layout_files, what_fails_or_is_ended_leaves_the_file_as_it_was)
{
    saved_sheet s;
    s.add_square(L"red", vx_clr_init_rgb(255, 0, 0));
    s.add_frame({20, 10, 70, 50});
    for (std::string const name : {"page.pdf", "page.png"}) {
        SCOPED_TRACE(name);
        std::ofstream(s.folder / name) << "old";
        // Ended at the first question, and at the last ones.
        for (int const after : {0, 1, 2, 3}) {
            int left = after;
            auto const ends = [](void *n) { return (*static_cast<int *>(n))-- <= 0; };
            Tvx_layout_outcome const outcome = s.save(name, 100, closure<bool()>(ends, &left));
            EXPECT_TRUE(outcome != c_layout_cancelled || read(s.folder / name) == "old") << after;
            EXPECT_TRUE(after > 0 || outcome == c_layout_cancelled);
            std::ofstream(s.folder / name) << "old";
        }
        // A folder in which nothing can be made.
        EXPECT_EQ(s.save("no such folder/" + name, 100), c_layout_failed);
        EXPECT_FALSE(s.reason.empty());
    }
    EXPECT_EQ(s.folder.count(), 2);
    EXPECT_EQ(s.save("page.doc", 100), c_layout_failed);
    vx_layout_lr2d_set_box(vx_layout_get_page(s.layout.get()), {0, 0, 10'000, 80});
    EXPECT_EQ(s.save("page.png", 100), c_layout_failed) << "39,370 pixels across";
    EXPECT_NE(s.reason.find(L"39370"), std::wstring::npos);
    EXPECT_EQ(read(s.folder / "page.png"), "old");
    EXPECT_EQ(s.save("page.pdf", 100), c_layout_written) << "ten metres";
    // What cannot be read is left out, and told.
    s.add(c_lr_key_layout_image, {10, 10, 40, 30}, L"/nowhere/picture.png");
    EXPECT_EQ(s.save("page.pdf", 100), c_layout_written);
    EXPECT_FALSE(s.reason.empty());
    vx::owned<Ivx_scn_2d, &vx_scn_2d_destroy> const bare(vx_scn_2d_create(L""));
    EXPECT_EQ(vx_layout_save_pdf_w(bare.get(), (s.folder / "bare.pdf").wstring().c_str(), 100, nullptr),
              c_layout_failed);
}
} // namespace
