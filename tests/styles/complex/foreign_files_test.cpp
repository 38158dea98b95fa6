#include "cpx_form.h"
#include "styles/preview/style_example.h"
#include "support/temp_dir.h"

#include "platform/base/owned.h"
#include "platform/storage/vx_xml_data.h"
#include "platform/styles/vx_base_style.h"
#include "platform/styles/vx_style.h"
#include "platform/toolkit/graphics/bitmap.h"

#include <fstream>

namespace input = vx::user_input;

namespace {
/// Style files as strangers may write them, without a checksum.
class foreign_styles : public cpx_form
{
protected:
    /// A file of a polygon style with these layers; whether it is read.
    bool load(std::string const &layers)
    {
        vx_test::temp_dir const dir;
        std::filesystem::path const file = dir / "style.s_a";
        std::ofstream(file) << R"(<?xml version="1.0" encoding="UTF-8"?>
<vx_style version="1" style="pgn_style" show_fill="1" show_line="0" show_point="0">
 <fill color="#d0dcecff" use_complex="1">)"
                            << (layers.empty() ? "" : "<complex>" + layers + "</complex>")
                            << R"(</fill><line color="#484848ff" width="0.25" use_complex="0" />
 <point use_figure="1" figure="0" font="DejaVu Sans" charset="1" bold="0" italic="0" underline="0" strikeout="0" symbol="9679" color="#386098ff" size="2" use_complex="0" />
</vx_style>)";
        return vx_xml_save_style_load_style_pgn_file(file.wstring().c_str(), style.get());
    }
    [[nodiscard]] void *complex() const
    {
        return vx_bpgn_style_get_complex_style(vx_pgn_style_get_bpgn_style_ptr(style.get()));
    }
    /// In a sample and in the dialog, with some of the layers in their turn.
    void draw_and_show(int most = 3)
    {
        TBitmap sample(60, 40);
        vx_pgn_style_example_bmp(style.get(), &sample);
        show(areas, {});
        panel->set_cpx_pgn_style(complex());
        panel->update_controls();
        input::wait_idle();
        int const count = list()->get_item_grid()->get_item_count();
        for (int row = 0; row < std::min(count, most); ++row) {
            ASSERT_TRUE(choose(list(), row));
            EXPECT_EQ(shown_edit()->get_style_lr(), layer(static_cast<unsigned>(row)));
        }
    }
    static std::string hatch(std::string const &numbers, std::string const &inner = "")
    {
        return "<layer type=\"pgn_htch_slr\" " + numbers + ">" +
               (inner.empty() ? "" : "<line>" + inner + "</line>") + "</layer>";
    }
    static std::string tplt(std::string const &dash, std::string const &gap, std::string const &text,
                            std::string const &inner = "")
    {
        return R"(<layer type="pln_tplt_slr" color="#000000ff" width="0.25" dash=")" + dash + "\" gap=\"" +
               gap + R"(" shift="0" delta="0" template=")" + text + "\">" +
               (inner.empty() ? "" : "<symbol>" + inner + "</symbol>") + "</layer>";
    }

    vx::owned<void, &vx_pgn_style_destroy> style{vx_pgn_style_create()};
    std::string const plain = R"(delta="2" angle="45" shift="0")";
};
} // namespace

TEST_F(foreign_styles, with_wild_contents_are_drawn_and_shown)
{
    struct
    {
        char const *name;
        std::string layers;
    } const cases[] = {
        {"tiny steps",
         hatch(R"(delta="1e-300" angle="45" shift="1e300")", tplt("1e-300", "1e-300", "1032456"))},
        {"no steps", hatch(R"(delta="0" angle="1e300" shift="-1e300")", tplt("0", "0", "1010"))},
        {"steps below zero", hatch(R"(delta="-2" angle="-45" shift="-1")", tplt("-1", "-1", "1010"))},
        {"gaps of zero", hatch(plain, tplt("0", "0", "0000003")) + hatch(plain, tplt("1", "0", "1020304"))},
        {"enormous steps", hatch(R"(delta="1e300" angle="0" shift="0")", tplt("1e300", "1e300", "10"))},
        {"foreign elements", hatch(plain, tplt("1", "1", "1хyz&amp;0\xF0\x9F\x8C\xB2"))},
        {"wild spots",
         R"(<layer type="pgn_spot_slr" spot_type="0" dx="0" dy="1e-300" x0="1e300" y0="-1e300" use_complex="0" color="#000000ff" size="1e300" random_x="1" random_y="1" random_angle="1"/>)"},
        {"an empty stack", ""},
    };
    for (auto const &c : cases) {
        SCOPED_TRACE(c.name);
        ASSERT_TRUE(load(c.layers));
        draw_and_show();
    }
}

TEST_F(foreign_styles, with_a_thousand_layers_or_a_megabyte_of_elements)
{
    std::string many;
    for (int i = 0; i < 1000; ++i)
        many += hatch(plain, tplt("1", "1", "10"));
    ASSERT_TRUE(load(many));
    EXPECT_EQ(vx_style_lrs_get_size(vx_cpx_style_get_style_lrs_ptr(complex())), 1000u);
    draw_and_show(1);
    std::string elements;
    while (elements.size() < 1'000'000)
        elements += "10324567890x";
    ASSERT_TRUE(load(hatch(plain, tplt("1", "1", elements))));
    draw_and_show(1);
}

TEST_F(foreign_styles, that_no_style_can_hold_are_refused_and_the_style_stays)
{
    ASSERT_TRUE(load(hatch(plain)));
    vx::owned<void, &vx_pgn_style_destroy> const before(vx_pgn_style_create());
    vx_pgn_style_assign(before.get(), style.get());
    std::string const point =
        R"(<layer type="pnt_figr_slr" figure="0" color="#000000ff" size_x="3" size_y="3" dx="0" dy="0" angle="0" line_width="0.25">)";
    std::string nested = hatch(plain);
    std::string nested_points = point + "</layer>";
    for (int depth = 0; depth < 10; ++depth) {
        nested = hatch(plain, nested);
        nested_points = point + "<symbol>" + nested_points + "</symbol></layer>";
    }
    std::string const refused[] = {
        nested,                                                                  // a hatch of hatches
        hatch(plain, tplt("1", "1", "4", nested_points)),                        // symbols in symbols
        hatch(plain, hatch(plain)),                                              //
        hatch(plain, tplt("1", "1", "4", tplt("1", "1", "4"))),                  //
        R"(<layer type="pgn_cloud_slr" delta="2"/>)",                            // no such layer
        R"(<layer type="pln_line_slr" color="#000000ff" width="1" delta="0"/>)", // of a line
        R"(<layer type="" delta="2"/>)",
        hatch(R"(delta="nan" angle="45" shift="0")"),
        hatch(R"(delta="inf" angle="45" shift="0")"),
        hatch(R"(delta="1e999" angle="45" shift="0")"),
        hatch(R"(delta="two" angle="45" shift="0")"),
    };
    for (std::string const &layers : refused) {
        EXPECT_FALSE(load(layers)) << layers.substr(0, 200);
        EXPECT_TRUE(vx_pgn_style_equal(before.get(), style.get()));
        messages.clear(); // the storage tells why
    }
}
