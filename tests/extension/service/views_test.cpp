#include "extension_models.h"

#include "platform/base/string_adp.h"
#include "platform/data/vx_tld_data.h"
#include "platform/layers/vx_shp_lr2d.h"
#include "platform/layers/vx_tld_lr2d.h"
#include "platform/toolkit/controls/combo_box.h"

namespace {
class views : public extension_fixture
{
protected:
    /// Which of the editors show: points, lines, areas.
    template <class Edits>
    static std::string shown(Edits const &edits)
    {
        std::string result;
        for (Tvx_stl_mngr_edit const *edit : {static_cast<Tvx_stl_mngr_edit const *>(edits.pnt),
                                              static_cast<Tvx_stl_mngr_edit const *>(edits.pln),
                                              static_cast<Tvx_stl_mngr_edit const *>(edits.pgn)})
            result +=
                edit->GetVisible() ? (edit->get_stl_mngr() ? 'x' : '?') : (edit->get_stl_mngr() ? '!' : '-');
        return result;
    }
    models::service offering;
};
} // namespace

TEST_F(views, a_style_view_shows_the_editor_of_the_managers_type)
{
    manager const colours(vx_stl_mngr_create("clr_style"));
    auto &model = offering.add_style(L"styles");
    bool called_early = false;
    model.on_reattach = [&](vx::element_view view) {
        called_early = true;
        view.update_data();
    };
    open({&offering});
    EXPECT_TRUE(called_early);
    auto const &edits = view<Tvx_style_editor_view>(0)->get_edits();
    EXPECT_EQ(shown(edits), "---");
    EXPECT_TRUE(tabs().empty());
    struct row
    {
        void *manager;
        char const *expected;
        std::size_t tabs;
    };
    for (auto const &[manager, expected, tab_count] :
         {row{points.get(), "x--", 1}, row{areas.get(), "--x", 1}, row{colours.get(), "--x", 1},
          row{lines.get(), "-x-", 1}, row{nullptr, "---", 0}, row{points.get(), "x--", 1}}) {
        model.shown = manager;
        model.update();
        EXPECT_EQ(shown(edits), expected);
        EXPECT_EQ(tabs().size(), tab_count);
    }
}

TEST_F(views, the_values_reach_the_editors_by_the_pull_events)
{
    auto &model = offering.add_style(L"styles", points.get());
    open({&offering});
    auto const &data = view<Tvx_style_editor_view>(0)->get_edits().pnt->get_data_events();
    EXPECT_TRUE(data.open(nullptr)) << "there is nothing, and that is no failure";
    EXPECT_EQ(data.get_np(nullptr), 0u);
    bool flag = true, other = true;
    EXPECT_STREQ(data.get_prop(nullptr, 0, flag, other), "");
    EXPECT_FALSE(flag || other);
    EXPECT_EQ(data.get_val(nullptr, 0, 0, flag), 0.0);
    data.close(nullptr);

    auto first = std::make_unique<models::values>();
    models::values second;
    model.source = first.get();
    EXPECT_TRUE(data.open(nullptr));
    EXPECT_EQ(first->hold_count(), 1u);
    EXPECT_EQ(data.get_np(nullptr), 3u);
    EXPECT_EQ(data.get_no(nullptr), 3u);
    EXPECT_STREQ(data.get_prop(nullptr, 1, flag, other), "SIZE");
    EXPECT_TRUE(flag && other);
    EXPECT_STREQ(data.get_prop(nullptr, 0, flag, other), "NAME");
    EXPECT_TRUE(flag && !other);
    EXPECT_STREQ(data.get_capt_prop(nullptr, 0), "Name");
    double min = 0, max = 0, mean = 0, deviation = 0;
    EXPECT_TRUE(data.get_stat(nullptr, 1, min, max, mean, deviation, flag) && flag);
    EXPECT_EQ(min * 1000 + max * 100 + mean * 10 + deviation, 1234);
    EXPECT_FALSE(data.get_stat(nullptr, 0, min, max, mean, deviation, flag) || flag);
    EXPECT_STREQ(data.get_str(nullptr, 1, 2, flag), "2/1") << "the model has the item first";
    EXPECT_TRUE(flag);
    EXPECT_STREQ(data.get_str(nullptr, 0, 1, flag), "");
    EXPECT_FALSE(flag);
    EXPECT_EQ(data.get_val(nullptr, 1, 2, flag), 2.1);

    model.source = &second;
    second.properties = -7; // no module counts like that, and no loop should run by it
    EXPECT_TRUE(data.open(nullptr));
    EXPECT_EQ(first->hold_count(), 0u);
    EXPECT_EQ(second.hold_count(), 1u);
    EXPECT_EQ(data.get_np(nullptr), 0u);
    model.source = first.get();
    EXPECT_TRUE(data.open(nullptr));
    first.reset(); // dies while it is open
    EXPECT_EQ(data.get_no(nullptr), 0u);
    data.close(nullptr);
    EXPECT_EQ(second.hold_count(), 0u);
}

TEST_F(views, what_is_typed_is_taken_at_apply_and_dropped_with_its_manager)
{
    auto &model = offering.add_style(L"styles", points.get());
    models::values source;
    model.source = &source;
    open({&offering});
    auto *const edit = view<Tvx_style_editor_view>(0)->get_edits().pnt;
    ASSERT_TRUE(input::choose_item(edit->get_mode_edit()->get_combo_box(), 1));
    ASSERT_TRUE(input::choose_item(edit->get_val_edit()->get_prp_scale()->get_combo_box(), L"Name"));
    void *const scale = vx_stl_mngr_get_val_scale_ptr(points.get());
    ASSERT_EQ(vx_val_scale_get_size(scale), 2u);
    auto const caption = [&] {
        std::wstring text;
        vx_val_scale_get_caption_w(scale, 0, Tvx_std_wstring_adapter(text));
        return text;
    };
    constexpr int caption_column = 2;
    auto const type = [&](wchar_t const *text) {
        ASSERT_TRUE(input::double_click_cell(edit->get_val_edit()->get_grid(), caption_column, 1));
        ASSERT_TRUE(input::press('A', {ssCtrl}) && input::type(text));
    };
    type(L"taken");
    custom->end_edit(true);
    EXPECT_EQ(caption(), L"taken");
    EXPECT_GT(model.commits, 0);
    int const commits = model.commits;
    type(L"dropped");
    model.shown = areas.get();
    model.update();
    EXPECT_EQ(caption(), L"taken");
    EXPECT_EQ(model.commits, commits);
}

TEST_F(views, a_list_view_follows_the_strip_and_the_type_of_the_list)
{
    vx::owned<void, &vx_stl_mngr_list_destroy> const list(vx_stl_mngr_list_create("pln_style"));
    vx_stl_mngr_list_add(list.get());
    offering.lists.push_back(std::make_unique<models::style_list_editor>(L"list"));
    auto &model = *offering.lists[0];
    open({&offering});
    auto const &edits = view<Tvx_style_list_editor_view>(0)->get_edits();
    EXPECT_EQ(shown(edits), "---");
    EXPECT_FALSE(edits.list->GetVisible());
    model.shown = list.get();
    model.update();
    input::wait_idle();
    EXPECT_EQ(shown(edits), "-x-");
    EXPECT_EQ(edits.pln->get_stl_mngr(), vx_stl_mngr_list_get_mngr(list.get(), 0));
    ASSERT_TRUE(input::choose_item(edits.list->get_combo_box(), 1));
    EXPECT_EQ(edits.pln->get_stl_mngr(), vx_stl_mngr_list_get_mngr(list.get(), 1));
    EXPECT_EQ(model.commits, 0);
    ASSERT_TRUE(input::choose_item(edits.pln->get_mode_edit()->get_combo_box(), 1));
    EXPECT_EQ(model.commits, 1);
    model.shown = nullptr;
    model.update();
    EXPECT_EQ(shown(edits), "---");
    EXPECT_TRUE(tabs().empty());
}

TEST_F(views, a_label_view_edits_the_layer_with_the_properties_of_the_model)
{
    using owned_layer = vx::owned<Ivx_layer, &vx_lr2d_destroy>;
    owned_layer const parent(vx_shp_lr2d_create("shp_pnt_lr2d", L""));
    owned_layer const labels(vx_dtld_lr2d_create(parent.get()));
    offering.labels.push_back(std::make_unique<models::dtld_editor>(L"labels"));
    auto &model = *offering.labels[0];
    models::values source;
    model.source = &source;
    open({&offering});
    auto *const panel = view<Tvx_dtld_editor_view>(0)->get_edits().panel;
    EXPECT_TRUE(tabs().empty());
    model.shown = labels.get();
    model.update();
    input::wait_idle();
    EXPECT_EQ(tabs().size(), 1u);
    std::wstring name;
    vx_textlr_info_get_property_name(vx_dtld_lr2d_get_text_class(labels.get()),
                                     Tvx_std_wstring_adapter(name));
    EXPECT_EQ(name, L"NAME") << "a class takes the first property";
    ASSERT_TRUE(input::choose_item(panel->get_prop_edit()->get_combo_box(), 1));
    vx_textlr_info_get_property_name(vx_dtld_lr2d_get_text_class(labels.get()),
                                     Tvx_std_wstring_adapter(name));
    EXPECT_EQ(name, L"SIZE");
    EXPECT_EQ(model.commits, 0);
    model.shown = nullptr;
    model.update();
    EXPECT_TRUE(tabs().empty());
    EXPECT_EQ(panel->get_layer(), nullptr);
    EXPECT_EQ(source.hold_count(), 0u);
}

TEST_F(views, a_text_view_shows_the_editor_of_the_settings_type)
{
    offering.texts.push_back(std::make_unique<models::text_settings_editor>(L"texts"));
    auto &model = *offering.texts[0];
    open({&offering});
    auto const &edits = view<Tvx_text_settings_editor_view>(0)->get_edits();
    EXPECT_TRUE(tabs().empty());
    using settings = vx::owned<void, &vx_txt_settings_destroy>;
    std::vector<settings> kept;
    for (auto const &[type, expected] : {std::pair("txt_pgn_style", "--x"), std::pair("txt_pln_style", "-x-"),
                                         std::pair("txt_pnt_style", "x--")}) {
        kept.emplace_back(vx_txt_settings_create(type));
        model.shown = kept.back().get();
        model.update();
        EXPECT_EQ(shown(edits), expected);
        EXPECT_EQ(tabs().size(), 1u);
    }
    input::wait_idle();
    void *const list = vx_txt_settings_get_stl_mngr_list(model.shown);
    bool const visible = vx_stl_mngr_list_get_visible(list);
    ASSERT_TRUE(input::click(edits.list->get_check_box(), 8, 8));
    EXPECT_NE(vx_stl_mngr_list_get_visible(list), visible);
    model.shown = nullptr;
    model.update();
    EXPECT_EQ(shown(edits), "---");
    EXPECT_TRUE(tabs().empty());
}
