#include "extension_models.h"
#include "layer_edit/page_set/lr2d_edit.h"

#include "platform/layers/vx_lr2d.h"

#include <stdexcept>

namespace {
int number_of(TTabSheet *sheet, std::wstring const &kind)
{
    std::wstring const name = sheet->GetName().c_str();
    EXPECT_EQ(name.substr(0, kind.size()), kind);
    return std::stoi(name.substr(kind.size()));
}
} // namespace

TEST_F(extension_fixture, tabs_stand_by_priority_arrival_and_kind)
{
    models::service first(5), second(5), early(1);
    first.add_docker(L"first_docker", L"1d");
    first.lists.push_back(std::make_unique<models::style_list_editor>(L"1l"));
    first.labels.push_back(std::make_unique<models::dtld_editor>(L"1n"));
    first.texts.push_back(std::make_unique<models::text_settings_editor>(L"1t"));
    first.add_style(L"1a", points.get());
    first.add_style(L"1b", lines.get());
    second.add_style(L"2", areas.get());
    early.add_style(L"0", areas.get());
    open({&first, &second, &early});
    tab_list all;
    for (int i = 0; i < pages.GetPageCount(); ++i)
        all.push_back(pages.GetPages(i)->GetCaption().c_str());
    EXPECT_EQ(all, (tab_list{L"0", L"1a", L"1b", L"1l", L"1n", L"1t", L"1d", L"2"}));
    EXPECT_EQ(tabs(), (tab_list{L"0", L"1a", L"1b", L"1d", L"2"})) << "a list and settings that are null";
    int const start = number_of(pages.GetPages(0), L"_StyleEditor_");
    EXPECT_EQ(number_of(pages.GetPages(1), L"_StyleEditor_"), start + 1);
    EXPECT_EQ(number_of(pages.GetPages(7), L"_StyleEditor_"), start + 3);
    int const list = number_of(pages.GetPages(3), L"_StyleListEditor_");
    int const label = number_of(pages.GetPages(4), L"_DTLDEditor_");
    int const text = number_of(pages.GetPages(5), L"_TextSettingsEditor_");
    EXPECT_EQ(pages.GetPages(6)->GetName(), L"first_docker");

    // Another page set goes on counting.
    TPageControl others(&form);
    others.SetParent(&form);
    Tvx_lr2d_edit_extensions::custom_pages more(&others, c_category);
    EXPECT_EQ(number_of(others.GetPages(0), L"_StyleEditor_"), start + 4);
    EXPECT_EQ(number_of(others.GetPages(3), L"_StyleListEditor_"), list + 1);
    EXPECT_EQ(number_of(others.GetPages(4), L"_DTLDEditor_"), label + 1);
    EXPECT_EQ(number_of(others.GetPages(5), L"_TextSettingsEditor_"), text + 1);
}

TEST_F(extension_fixture, nobody_and_those_that_show_nothing_cost_a_call)
{
    open({});
    EXPECT_EQ(pages.GetPageCount(), 0);
    models::service mute;
    auto &model = mute.add_style(L"hidden");
    open({&mute});
    EXPECT_TRUE(tabs().empty());
    int const asked = model.asked;
    custom->set_layer(nullptr);
    EXPECT_EQ(mute.layers, 1);
    EXPECT_EQ(model.asked, asked);
}

TEST_F(extension_fixture, a_service_that_ends_takes_its_tabs_along)
{
    models::service first(1), second(2);
    auto &model = first.add_style(L"first", points.get());
    first.add_docker(L"docker", L"panel");
    second.add_style(L"second", areas.get());
    open({&first, &second});
    EXPECT_EQ(first.hold_count(), 1u);
    first.die();
    EXPECT_EQ(tabs(), tab_list{L"second"});
    custom->set_layer(nullptr);
    EXPECT_EQ(first.layers, 0);
    EXPECT_EQ(second.layers, 1);
    model.view.update_data(); // the tab stands, and nobody is asked
    custom.reset();
    EXPECT_EQ(second.hold_count(), 0u);
    EXPECT_FALSE(second.style_editors[0]->view);
}

TEST_F(extension_fixture, a_service_may_end_inside_any_call)
{
    {
        models::service s;
        s.add_style(L"a", points.get());
        s.after_styles = [&] { s.die(); };
        s.add_docker(L"never", L"never");
        open({&s});
        EXPECT_EQ(pages.GetPageCount(), 1);
        EXPECT_TRUE(tabs().empty());
    }
    {
        models::service s;
        s.add_style(L"a", points.get()).on_reattach = [&](vx::element_view) { s.die(); };
        open({&s});
        EXPECT_TRUE(tabs().empty());
    }
    {
        models::service s;
        s.add_style(L"a", points.get());
        s.on_layer = [&](Ivx_layer *) { s.die(); };
        open({&s});
        custom->set_layer(nullptr);
        EXPECT_TRUE(tabs().empty());
    }
    {
        // While its second view ends: the first is gone by then, or does not call it any more.
        models::service s;
        s.add_style(L"a", points.get());
        s.add_style(L"b", lines.get());
        open({&s});
        s.style_editors[1]->on_reattach = [&](vx::element_view view) {
            view.update_data();
            s.die();
        };
        custom.reset();
        EXPECT_EQ(pages.GetPageCount(), 0);
    }
}

TEST_F(extension_fixture, visitors_that_are_called_out_of_time_make_no_tab)
{
    models::service s, late;
    late.add_style(L"late", points.get());
    s.add_style(L"a", points.get());
    open({&s, &s});
    EXPECT_EQ(tabs(), (tab_list{L"a", L"a"})) << "there is no check for duplicates";
    s.style_editors[0]->on_reattach = [&](vx::element_view) {
        registered.kept.visit(static_cast<vx::layer_2d_editor_extension_service_impl &>(late));
    };
    custom.reset();
    EXPECT_EQ(late.hold_count(), 0u);
    EXPECT_EQ(pages.GetPageCount(), 0);
}

TEST_F(extension_fixture, who_throws_is_left_out_and_told)
{
    struct row
    {
        char const *where;
        std::function<void(models::service &)> prepare;
    };
    auto const fail = [] { throw std::runtime_error("broken"); };
    for (auto const &[where, prepare] : {
             row{"offer", [&](models::service &s) { s.after_styles = fail; }},
             row{"model", [](models::service &s) { s.style_editors[0]->throws = true; }},
             row{"layer", [&](models::service &s) { s.on_layer = [&](Ivx_layer *) { fail(); }; }},
             row{"end",
                 [&](models::service &s) {
                     s.style_editors[0]->on_reattach = [&](vx::element_view) { fail(); };
                 }},
         }) {
        SCOPED_TRACE(where);
        told.clear();
        models::service bad(1), good(2);
        bad.add_style(L"bad", points.get());
        good.add_style(L"good", points.get());
        prepare(bad);
        open({&bad, &good});
        custom->set_layer(nullptr);
        custom->set_layer(nullptr);
        input::wait_idle();
        EXPECT_EQ(tabs(), tab_list{L"good"});
        EXPECT_EQ(good.layers, 2);
        EXPECT_EQ(bad.hold_count(), 0u);
        ASSERT_EQ(told.size(), 1u);
        EXPECT_NE(told[0].find(L"test_extension_service"), std::wstring::npos) << "names the module";
        custom.reset();
    }
    registered.after = fail;
    told.clear();
    open({});
    input::wait_idle();
    EXPECT_EQ(told.size(), 1u);
    EXPECT_EQ(vx_service_registry_get_factory_count(c_category), 0);
}

TEST_F(extension_fixture, dockers_of_any_name_are_shown)
{
    models::service s;
    for (wchar_t const *name :
         {L"twice", L"TWICE", L"", L"1 no/identifier", static_cast<wchar_t const *>(nullptr)})
        s.add_docker(name, L"panel");
    open({&s});
    EXPECT_EQ(tabs().size(), 5u);
    s.dockers[1].second->shown = false;
    s.dockers[1].second->view.update_state();
    s.dockers[2].second->caption = L"other";
    s.dockers[2].second->view.update_appearance();
    EXPECT_EQ(tabs(), (tab_list{L"panel", L"other", L"panel", L"panel"}));
}

// ---- in a page set

namespace {
class extended_set : public extension_fixture
{
protected:
    using layer = vx::owned<Ivx_layer, &vx_lr2d_destroy>;
    /// A page set of nothing but extensions, under the category that bundles use.
    std::unique_ptr<Tvx_lr2d_edit> make_set()
    {
        static constexpr vx::lr2d_edit_parts parts = {{}, nullptr, &Tvx_lr2d_edit_extensions::make};
        auto set = std::make_unique<Tvx_lr2d_edit>(nullptr, parts);
        vx_service_registry_add_factory(set->get_extension_category().c_str(), registered);
        set->SetParent(&form);
        set->create();
        return set;
    }
    ~extended_set() override { vx_service_registry_remove_factory(L"vxk/layer/2d", registered); }
};
} // namespace

TEST_F(extended_set, a_layer_change_shows_and_hides_the_tabs_and_the_chosen_one_stays)
{
    models::service s;
    auto &always = s.add_style(L"always", points.get());
    auto &sometimes = s.add_style(L"sometimes");
    std::vector<std::string> seen;
    s.on_layer = [&](Ivx_layer *of) {
        seen.emplace_back(of ? vx_lr2d_get_lr_type(of) : "none");
        sometimes.shown = of ? areas.get() : nullptr;
        sometimes.update();
        always.update();
    };
    registered.services = {&s};
    auto const set = make_set();
    auto *const tab_control = set->get_pages();
    auto *const tab = tab_control->GetPages(5);
    EXPECT_FALSE(tab->GetTabVisible());
    layer const of(vx_lr2d_create("tos_grid_lr1d"));
    set->set_lr2d(of.get());
    input::wait_idle();
    EXPECT_TRUE(tab->GetTabVisible());
    ASSERT_TRUE(input::click_tab(tab_control, L"sometimes"));
    EXPECT_EQ(tab_control->GetActivePage(), tab);
    set->update_controls();
    EXPECT_EQ(tab_control->GetActivePage(), tab);
    set->set_lr2d(nullptr);
    EXPECT_FALSE(tab->GetTabVisible());
    EXPECT_EQ(tab_control->GetActivePage(), tab_control->GetPages(4));
    set->set_lr2d(of.get());
    EXPECT_TRUE(tab->GetTabVisible());
    EXPECT_EQ(seen, (std::vector<std::string>{"tos_grid_lr1d", "tos_grid_lr1d", "none", "tos_grid_lr1d"}));
}
