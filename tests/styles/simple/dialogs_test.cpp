#include "exports/vxk_style_dialog_api.h"
#include "styles/simple/style_dlgs.h"
#include "styles/simple/style_panels.h"
#include "support/temp_dir.h"
#include "tests/controls/prop/prop_form.h"

#include "platform/base/owned.h"
#include "platform/basic/vx_wstrings.h"
#include "platform/storage/vx_xml_data.h"
#include "platform/styles/vxk_styles.h"
#include "platform/toolkit/graphics/bitmap.h"
#include "platform/toolkit/graphics/canvas.h"
#include "platform/winapi/library.h"

#include <QCoreApplication>
#include <QEvent>
#include <QPixmapCache>

#include <algorithm>
#include <functional>
#include <limits>
#include <malloc.h>

namespace input = vx::user_input;

namespace {
using style_dialogs = prop_form;
using style_ptr = std::unique_ptr<void, void (*)(void *)>;

/// The kinds of composed styles, each with a change that a person makes in its dialog.
struct kind
{
    char const *name;
    void *(*create)();
    void (*destroy)(void *);
    bool (*save)(wchar_t const *file, void const *style);
    bool (*dialog)(int x, int y, void *style);
    bool (*exported)(int x, int y, void *style);
    void (*change)(TCustomForm *form);
};

kind const c_kinds[] = {
    {"pnt", &vx_pnt_style_create, &vx_pnt_style_destroy, &vx_xml_save_style_save_style_pnt_file,
     &vx_pnt_style_dialog_vcl, &vx_pnt_style_dialog,
     [](TCustomForm *form) {
         auto *edit = dynamic_cast<Tvx_pnt_style_dlg &>(*form).get_edit();
         EXPECT_TRUE(input::enter_text(edit->get_bpnt_edit()->get_size()->get_edit(), L"4.5"));
     }},
    {"pln", &vx_pln_style_create, &vx_pln_style_destroy, &vx_xml_save_style_save_style_pln_file,
     &vx_pln_style_dialog_vcl, &vx_pln_style_dialog,
     [](TCustomForm *form) {
         auto *edit = dynamic_cast<Tvx_pln_style_dlg &>(*form).get_edit();
         EXPECT_TRUE(input::click(edit->get_bend_cb(), 10, 10));
         EXPECT_TRUE(input::enter_text(edit->get_bpln_edit()->get_width()->get_edit(), L"1.5"));
     }},
    {"pgn", &vx_pgn_style_create, &vx_pgn_style_destroy, &vx_xml_save_style_save_style_pgn_file,
     &vx_pgn_style_dialog_vcl, &vx_pgn_style_dialog,
     [](TCustomForm *form) {
         auto *edit = dynamic_cast<Tvx_pgn_style_dlg &>(*form).get_edit();
         EXPECT_TRUE(input::click(edit->get_bpgn_edit()->get_color()->get_clr_panel()->get_button()));
     }},
};

std::string saved_form(kind const &k, void const *style)
{
    vx_test::temp_dir const dir;
    std::filesystem::path const file = dir / "style";
    EXPECT_TRUE(k.save(file.wstring().c_str(), style));
    return vx_test::read_file(file);
}

template <class Dialog>
void open_once()
{
    Dialog dialog(nullptr);
    input::on_next_modal([](input::modal_window const &window) { window.reject(); });
    dialog.ShowModal();
}

TColor middle_of(Tvx_basic_style_btn *button)
{
    return button->GetGlyph()->GetCanvas()->GetPixel(10, 10);
}
} // namespace

/// Fonts and pictures are kept for a while, some kilobytes in all; what an opening leaves stays.
TEST_F(style_dialogs, leave_the_heap_as_it_was)
{
    constexpr int c_openings = 60;
    constexpr double c_tolerance = 384; ///< bytes for each opening
    constexpr int c_most_rounds = 3;
    std::vector<std::pair<std::string, std::function<void()>>> dialogs = {
        {"bpnt", &open_once<Tvx_bpnt_style_dlg>},
        {"bpln", &open_once<Tvx_bpln_style_dlg>},
        {"bpgn", &open_once<Tvx_bpgn_style_dlg>}};
    for (kind const &k : c_kinds)
        for (wchar_t const *button : {L"Cancel", L"Apply"})
            dialogs.emplace_back(k.name, [&k, button] {
                style_ptr const style(k.create(), k.destroy);
                input::on_next_modal([&](input::modal_window const &window) {
                    k.change(window.form());
                    window.press_button(button);
                });
                k.dialog(0, 0, style.get());
            });
    for (auto const &[name, open] : dialogs) {
        auto const used_after = [&](int times) {
            for (int n = 0; n < times; ++n)
                open();
            // What a running program does in between.
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            QCoreApplication::processEvents();
            QPixmapCache::clear(); // else it holds the last pictures of buttons, up to its limit
            auto const info = mallinfo2();
            return double(info.uordblks + info.hblkhd);
        };
        // What is lost is lost in each round; a store that grows once for good does so in one.
        double before = used_after(30);
        double least = std::numeric_limits<double>::infinity();
        for (int round = 0; round < c_most_rounds && least >= c_openings * c_tolerance; ++round) {
            double const after = used_after(c_openings);
            least = std::min(least, after - before);
            before = after;
        }
        EXPECT_LT(least, c_openings * c_tolerance) << name;
    }
}

TEST_F(style_dialogs, of_base_styles_hand_their_style_out)
{
    vx::owned<void, &vx_bpgn_style_destroy> const style(vx_bpgn_style_create());
    Tvx_bpgn_style_dlg dialog(nullptr);
    dialog.set_bpgn_style(style.get());
    input::on_next_modal([&](input::modal_window const &window) {
        EXPECT_EQ(window.title(), L"Fill");
        EXPECT_TRUE(input::click(dialog.get_edit()->get_color()->get_clr_panel()->get_button()));
        window.press_button(L"Apply");
    });
    EXPECT_EQ(dialog.show_pos(0, 0), mrOk);
    EXPECT_EQ(vx_bpgn_style_get_color(dialog.get_bpgn_style()), next_color);
    EXPECT_NE(vx_bpgn_style_get_color(style.get()), next_color);

    Tvx_bpnt_style_dlg point(nullptr);
    Tvx_bpln_style_dlg line(nullptr);
    vx::owned<void, &vx_bpnt_style_destroy> const bpnt(vx_bpnt_style_create());
    vx_bpnt_style_set_size(bpnt.get(), 8.5);
    point.set_bpnt_style(bpnt.get());
    EXPECT_EQ(point.get_edit()->get_size()->get_size(), 8.5);
    vx::owned<void, &vx_bpln_style_destroy> const bpln(vx_bpln_style_create());
    vx_bpln_style_set_width(bpln.get(), 1.25);
    line.set_bpln_style(bpln.get());
    EXPECT_EQ(vx_bpln_style_get_width(line.get_bpln_style()), 1.25);
}

/// The module behind the exported dialogs is not loaded in this program.
TEST_F(style_dialogs, without_their_module_give_false_at_once)
{
    ASSERT_EQ(GetModuleHandleW(L"vxk_scene2d_editor_bdl.dll"), nullptr);
    for (kind const &k : c_kinds) {
        style_ptr const style(k.create(), k.destroy);
        std::string const before = saved_form(k, style.get());
        EXPECT_FALSE(k.exported(0, 0, style.get()));
        EXPECT_EQ(saved_form(k, style.get()), before);
    }
    style_ptr const text(vx_txt_style_create(), &vx_txt_style_destroy);
    style_ptr const properties(vx_wstrings_create(), &vx_wstrings_destroy);
    EXPECT_FALSE(vx_txt_pnt_style_dialog(0, 0, text.get(), properties.get()));
    EXPECT_FALSE(vx_txt_pln_style_dialog(0, 0, text.get(), properties.get()));
    EXPECT_FALSE(vx_txt_pgn_style_dialog(0, 0, text.get(), properties.get()));
    style_ptr const mngr(vx_stl_mngr_create("txt_pnt_style"), &vx_stl_mngr_destroy);
    EXPECT_FALSE(vx_txt_common_style_dialog(0, 0, mngr.get()));
    style_ptr const list(vx_stl_mngr_list_create("pnt_style"), &vx_stl_mngr_list_destroy);
    EXPECT_FALSE(vx_stl_mngr_list_setting_dialog(0, 0, list.get()));

    for (bool (*choose)(void *) : {&vxk_lib_styles_get_pnt, &vxk_lib_styles_get_pln, &vxk_lib_styles_get_pgn})
        EXPECT_FALSE(choose(nullptr));

    // The sample is drawn anew when a dialog was accepted, so the old one tells that none was.
    auto *points = add<Tvx_pnt_style_panel>(26);
    auto *lines = add<Tvx_pln_style_panel>(26);
    auto *areas = add<Tvx_pgn_style_panel>(26);
    Tvx_basic_style_panel *const panels[] = {points, lines, areas};
    Tvx_basic_style_btn *const buttons[] = {points->get_btn(), lines->get_btn(), areas->get_btn()};
    for (Tvx_basic_style_panel *panel : panels) {
        panel->on_changed = recorder();
        panel->update_controls();
    }
    input::wait_idle();
    Tvx_color const green = vx_clr_init_rgb(1, 250, 1);
    vx_bpnt_style_set_color(vx_pnt_style_get_bpnt_style_ptr(points->get_pnt_style()), green);
    vx_bpln_style_set_color(vx_pln_style_get_bpln_style_ptr(lines->get_pln_style()), green);
    vx_bpgn_style_set_color(vx_pgn_style_get_bpgn_style_ptr(areas->get_pgn_style()), green);
    void *const styles[] = {points->get_pnt_style(), lines->get_pln_style(), areas->get_pgn_style()};
    for (std::size_t i = 0; i < std::size(c_kinds); ++i) {
        std::string const before = saved_form(c_kinds[i], styles[i]);
        TColor const shown = middle_of(buttons[i]);
        ASSERT_TRUE(input::click(buttons[i]));
        EXPECT_EQ(taken_events(), 0) << c_kinds[i].name;
        EXPECT_EQ(middle_of(buttons[i]), shown) << c_kinds[i].name;
        EXPECT_EQ(saved_form(c_kinds[i], styles[i]), before);
        panels[i]->update_controls();
        EXPECT_NE(middle_of(buttons[i]), shown) << c_kinds[i].name;
    }
}
