#include "layer_edit/layout/layout_image_edit.h"
#include "layer_edit/layout/layout_scalebar_edit.h"
#include "layer_edit/layout/layout_scene_edit.h"
#include "layout_fixture.h"

namespace input = vx::user_input;

namespace {
class layout_pages : public layout_project
{
protected:
    template <class Page>
    Page *add_page(owned_layer const &layer)
    {
        auto *const page = new Page(&form);
        int const height = page->GetHeight();
        page->SetParent(&form);
        page->create();
        page->load_res();
        page->SetBounds(10, 10, 400, height);
        page->on_changed = recorder();
        page->set_lr2d(layer.get());
        page->update_controls();
        input::wait_idle();
        return page;
    }
};

std::vector<std::wstring> rows(Tvx_entities_prop_edit *edit)
{
    std::vector<std::wstring> result;
    for (int i = 0; i < edit->get_prop_count(); ++i)
        result.push_back(edit->get_combo_box()->get_row_name(i));
    return result;
}

bool is_enabled(Tvx_size_panel *panel)
{
    return panel->get_edit()->GetEnabled();
}

UnicodeString shown(Tvx_size_panel *panel)
{
    return panel->get_edit()->GetText();
}
} // namespace

TEST_F(layout_pages, a_frame_takes_its_scene_by_name)
{
    auto const frame = make_element(c_lr_key_layout_scene_frame);
    auto *const page = add_page<Tvx_layout_scene_edit>(frame);
    EXPECT_EQ(page->GetHeight(), 80);
    EXPECT_EQ(page->get_scene_prop()->get_prop_index(), -1) << "the command is not the choice of a new frame";
    EXPECT_FALSE(is_enabled(page->get_scale_y())) << "without a scene";
    ASSERT_TRUE(input::choose_item(page->get_scene_prop()->get_combo_box(), L"Profile"));
    EXPECT_EQ(file_of(frame), L"Profile");
    EXPECT_EQ(taken_events(), 1);
    EXPECT_TRUE(is_enabled(page->get_scale_y()));
    ASSERT_TRUE(input::choose_item(page->get_scene_prop()->get_combo_box(), L"Town"));
    EXPECT_FALSE(is_enabled(page->get_scale_y()));
    EXPECT_EQ(taken_events(), 1);

    // A list of a plug-in comes and goes while the page is there.
    vx::owned<Ivx_scns_2d, &vx_scns_2d_destroy> foreign(vx_scns_2d_create());
    vx_scns_2d_add(foreign.get(), L"Foreign");
    vx_prj_add_plugin_scns_2d(project, foreign.get());
    ASSERT_TRUE(input::choose_item(page->get_scene_prop()->get_combo_box(), L"Foreign"));
    EXPECT_EQ(file_of(frame), L"Foreign");
    vx_prj_remove_plugin_scns_2d(project, foreign.get());
    foreign.reset();
    page->update_controls();
    EXPECT_EQ(rows(page->get_scene_prop()),
              (std::vector<std::wstring>{Tvx_entities_prop_edit::c_add_scene_name, L"Town", L"Profile"}));
    EXPECT_EQ(page->get_scene_prop()->get_wprop_name(), L"Foreign") << "a name that nothing matches is kept";
    EXPECT_EQ(file_of(frame), L"Foreign");

    // The command, given up.
    taken_events();
    accepts = false;
    ASSERT_TRUE(input::choose_item(page->get_scene_prop()->get_combo_box(), 0));
    EXPECT_EQ(file_of(frame), L"Foreign");
    EXPECT_EQ(taken_events(), 0);
}

TEST_F(layout_pages, scales_go_by_the_axes_of_the_scene)
{
    struct
    {
        double scale;
        wchar_t const *text;
        int precision;
    } const shown_as[] = {{500, L"500", 0}, {0.5, L"0.500", 3}, {10, L"10.000", 3}, {10.4, L"10", 0}};
    auto const frame = make_element(c_lr_key_layout_scene_frame, L"Town");
    auto *const page = add_page<Tvx_layout_scene_edit>(frame);
    for (auto const &c : shown_as) {
        vx_layout_scene_frame_lr2d_set_scale(frame.get(), c.scale, 7);
        page->update_controls();
        EXPECT_EQ(shown(page->get_scale_x()), c.text);
        EXPECT_EQ(page->get_scale_x()->get_precision(), c.precision);
        EXPECT_EQ(shown(page->get_scale_y()), L"7.000");
    }
    EXPECT_EQ(events, 0);
    EXPECT_FALSE(is_enabled(page->get_scale_y()));
    ASSERT_TRUE(input::enter_text(page->get_scale_x()->get_edit(), L"2.5"));
    EXPECT_EQ(scale_of(frame), std::pair(2.5, 2.5))
        << "decimals count from 10 downwards, while one types too";
    EXPECT_EQ(shown(page->get_scale_y()), L"2.500");
    ASSERT_TRUE(input::enter_text(page->get_scale_x()->get_edit(), L"-3"));
    EXPECT_EQ(shown(page->get_scale_y()), L"2.500") << "the scale in force";
    ASSERT_TRUE(input::enter_text(page->get_scale_x()->get_edit(), L"0"));
    EXPECT_TRUE(input::press(VK_RETURN));
    EXPECT_EQ(shown(page->get_scale_x()), L"2.500") << "what is no scale gives way at the end";
    EXPECT_GT(taken_events(), 0);

    ASSERT_TRUE(input::choose_item(page->get_scene_prop()->get_combo_box(), L"Profile"));
    ASSERT_TRUE(input::enter_text(page->get_scale_y()->get_edit(), L"100"));
    ASSERT_TRUE(input::enter_text(page->get_scale_x()->get_edit(), L"2000"));
    EXPECT_EQ(scale_of(frame), std::pair(2000.0, 100.0));
    EXPECT_EQ(shown(page->get_scale_y()), L"100");
}

TEST_F(layout_pages, a_scale_bar_is_offered_the_frames_of_the_active_layout)
{
    auto const bar = make_element(c_lr_key_layout_scale_bar, L"Right");
    auto *const page = add_page<Tvx_layout_scalebar_edit>(bar);
    EXPECT_EQ(page->GetHeight(), 40);
    EXPECT_EQ(rows(page->get_scene_prop()), (std::vector<std::wstring>{L"Left", L"Right"}));
    EXPECT_EQ(page->get_scene_prop()->get_prop_index(), 1);
    ASSERT_TRUE(input::choose_item(page->get_scene_prop()->get_combo_box(), L"Left"));
    EXPECT_EQ(file_of(bar), L"Left");
    EXPECT_EQ(taken_events(), 1);

    // The layout goes, and nobody told the page.
    vx_scns_2d_erase(layouts, 0);
    auto *const other = vx_scns_2d_add(layouts, L"Sheet 2");
    vx_scns_2d_set_active_scn(layouts, other);
    layout = other;
    add_element(c_lr_key_layout_scene_frame, L"Middle");
    ASSERT_TRUE(input::choose_item(page->get_scene_prop()->get_combo_box(), L"Middle"));
    EXPECT_EQ(file_of(bar), L"Middle");
}

TEST_F(layout_pages, an_image_takes_a_file_and_without_a_layer_nothing_happens)
{
    auto const image = make_element(c_lr_key_layout_image, L"/pictures/a.png");
    auto *const page = add_page<Tvx_layout_image_edit>(image);
    EXPECT_EQ(page->get_file()->get_wfilename(), L"/pictures/a.png");
    next_file = L"/pictures/b.png";
    ASSERT_TRUE(input::click(page->get_file()->get_button()));
    EXPECT_EQ(file_of(image), L"/pictures/b.png");
    EXPECT_EQ(taken_events(), 1);
    page->get_file()->set_wfilename(nullptr);
    page->on_image_file_changed(page->get_file());
    EXPECT_EQ(file_of(image), L"");

    auto const frame = make_element(c_lr_key_layout_scene_frame, L"Profile");
    vx_layout_scene_frame_lr2d_set_scale(frame.get(), 500, 200);
    auto *const scene = add_page<Tvx_layout_scene_edit>(frame);
    taken_events();
    for (Tvx_basic_lr2d_edit *const each :
         {static_cast<Tvx_basic_lr2d_edit *>(page), static_cast<Tvx_basic_lr2d_edit *>(scene)}) {
        each->set_lr2d(nullptr);
        each->update_controls();
    }
    page->on_image_file_changed(page->get_file());
    EXPECT_EQ(shown(scene->get_scale_x()), L"500") << "the controls keep what they show";
    ASSERT_TRUE(input::enter_text(scene->get_scale_x()->get_edit(), L"3"));
    ASSERT_TRUE(input::choose_item(scene->get_scene_prop()->get_combo_box(), L"Town"));
    EXPECT_EQ(scale_of(frame), std::pair(500.0, 200.0));
    EXPECT_EQ(file_of(frame), L"Profile");
    EXPECT_EQ(taken_events(), 0);
}
