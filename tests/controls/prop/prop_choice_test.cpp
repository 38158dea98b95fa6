#include "controls/vxk_prop_edit.h"
#include "dbf_bytes.h"
#include "prop_form.h"
#include "support/temp_dir.h"

#include "platform/base/owned.h"
#include "platform/base/string_adp.h"
#include "platform/layers/layer_keys.h"
#include "platform/layers/vx_scn_2d.h"
#include "platform/storage/vx_scn_2d_file.h"
#include "platform/toolkit/core/strings.h"

#include <climits>
#include <stdexcept>

namespace input = vx::user_input;

namespace {
/// A data set as an owner answers for it, with all that can go wrong.
struct source
{
    struct prop
    {
        wchar_t const *name;
        bool usable;
        bool numeric;
    };
    std::vector<prop> props{
        {L"id", true, true}, {L"shape", false, false}, {L"name", true, false}, {L"width", true, true}};
    bool opens = true;
    unsigned claimed = UINT_MAX; ///< the count that is told, if set
    unsigned throws_at = UINT_MAX;
    int opened = 0;
    int closed = 0;

    bool open(TObject *)
    {
        ++opened;
        return opens;
    }
    void close(TObject *) { ++closed; }
    unsigned count(TObject *) { return claimed != UINT_MAX ? claimed : static_cast<unsigned>(props.size()); }
    wchar_t const *get(TObject *, unsigned i, bool &usable, bool &numeric)
    {
        if (i == throws_at)
            throw std::runtime_error("the source broke");
        if (i >= props.size())
            return nullptr;
        usable = props[i].usable;
        numeric = props[i].numeric;
        return props[i].name;
    }
    char const *get_narrow(TObject *, unsigned i, bool &usable, bool &numeric)
    {
        usable = numeric = true;
        return i == 0 ? "narrow" : nullptr;
    }
    wchar_t const *caption(TObject *, unsigned i) { return i == 2 ? L"Caption of name" : nullptr; }

    template <class Control>
    void bind(Control &control)
    {
        control.on_data_open = make_closure<&source::open>(this);
        control.on_data_close = make_closure<&source::close>(this);
        control.on_data_get_np = make_closure<&source::count>(this);
        control.on_data_get_wprop = make_closure<&source::get>(this);
    }
};

class prop_choice : public prop_form
{
protected:
    Tvx_prop_edit *make_edit()
    {
        auto *edit = add<Tvx_prop_edit>();
        edit->create();
        data.bind(*edit->get_combo_box());
        edit->set_on_changed(recorder());
        return edit;
    }
    static std::vector<std::wstring> captions(Tvx_prop_combo_box const &box)
    {
        std::vector<std::wstring> texts;
        for (int i = 0; i < box.GetItems()->GetCount(); ++i)
            texts.push_back(box.GetItems()->GetStrings(i).str());
        return texts;
    }
    using list = std::vector<std::wstring>;

    source data;
};
} // namespace

TEST_F(prop_choice, lists_what_may_be_chosen_and_keeps_two_counts)
{
    Tvx_prop_edit *edit = make_edit();
    Tvx_prop_combo_box &box = *edit->get_combo_box();
    edit->update_controls();
    EXPECT_EQ(captions(box), (list{L"id", L"name", L"width"}));
    EXPECT_EQ(edit->get_wprop_name(), L"id") << "the first row takes over where nothing was chosen";

    edit->set_only_numeric(true);
    edit->update_controls();
    edit->set_prop_index(1);
    EXPECT_EQ(edit->get_prop_name(), "width");
    EXPECT_EQ(edit->get_real_index(), 3);
    edit->set_real_index(0);
    EXPECT_EQ(edit->get_prop_index(), 0);
    edit->set_real_index(2); // left out of the list
    EXPECT_EQ(edit->get_prop_index(), -1);
    EXPECT_EQ(edit->get_real_index(), -1);
    EXPECT_EQ(edit->get_wprop_name(), L"");
    edit->set_prop_index(7);
    EXPECT_EQ(edit->get_wprop_name(), L"");

    edit->set_only_numeric(false);
    edit->set_on_data_get_capt_wprop(make_closure<&source::caption>(&data));
    edit->set_prop_name(L"name");
    edit->update_controls();
    EXPECT_EQ(captions(box), (list{L"id", L"Caption of name", L"width"}));
    EXPECT_EQ(box.GetText(), L"Caption of name");
    EXPECT_EQ(edit->get_prop_name(), "name");

    edit->set_on_data_get_capt_wprop({});
    edit->set_on_data_get_prop(make_closure<&source::get_narrow>(&data));
    edit->update_controls();
    EXPECT_EQ(captions(box).size(), 3u) << "the wide event wins";
    edit->set_on_data_get_wprop({});
    edit->update_controls();
    EXPECT_EQ(captions(box), list{L"narrow"});
    EXPECT_EQ(data.opened, data.closed);
    EXPECT_EQ(taken_events(), 0);
}

TEST_F(prop_choice, a_name_waits_for_the_list_that_brings_it)
{
    Tvx_prop_edit *edit = make_edit();
    edit->set_forbid_empty(false);
    edit->set_prop_name("later");
    edit->update_controls();
    EXPECT_EQ(edit->get_prop_index(), -1);
    EXPECT_EQ(edit->get_prop_name(), "later");
    data.props.push_back({L"later", true, false});
    edit->update_controls();
    EXPECT_EQ(edit->get_prop_index(), 3);
    edit->set_prop_name("Later");
    EXPECT_EQ(edit->get_prop_index(), 3) << "files name fields in a case of their own";
    EXPECT_EQ(edit->get_prop_name(), "Later");
    edit->set_prop_name("later");

    data.props.pop_back();
    edit->set_forbid_empty(true);
    edit->update_controls();
    EXPECT_EQ(edit->get_prop_name(), "id");
    data.props.push_back({L"later", true, false});
    edit->update_controls();
    EXPECT_EQ(edit->get_prop_name(), "id") << "the old name is lost";
    EXPECT_EQ(taken_events(), 0);
}

TEST_F(prop_choice, survives_a_source_that_breaks)
{
    Tvx_prop_edit *edit = make_edit();
    edit->set_prop_name(L"name");
    data.opens = false;
    edit->update_controls();
    EXPECT_EQ(edit->get_prop_count(), 0);
    EXPECT_EQ(edit->get_prop_index(), -1);
    EXPECT_EQ(edit->get_wprop_name(), L"name");
    EXPECT_EQ(data.closed, 0);

    data.opens = true;
    data.claimed = 9; // more than there are: null names
    edit->update_controls();
    EXPECT_EQ(edit->get_prop_count(), 3);
    data.claimed = 1;
    edit->update_controls();
    EXPECT_EQ(edit->get_prop_count(), 1);
    data.claimed = UINT_MAX;
    data.props[0].name = nullptr;
    edit->update_controls();
    EXPECT_EQ(edit->get_prop_count(), 2);

    int const closed = data.closed;
    data.throws_at = 3;
    EXPECT_THROW(edit->update_controls(), std::runtime_error);
    EXPECT_EQ(data.closed, closed + 1);
    EXPECT_EQ(edit->get_prop_count(), 0);
    EXPECT_EQ(captions(*edit->get_combo_box()), list{});
    data.throws_at = UINT_MAX;
    edit->update_controls();
    EXPECT_EQ(edit->get_prop_count(), 2);

    edit->set_on_data_close({});
    edit->update_controls();
    EXPECT_EQ(edit->get_prop_count(), 0);
}

TEST_F(prop_choice, the_user_chooses_by_mouse_and_by_key)
{
    Tvx_prop_edit *edit = make_edit();
    edit->set_caption(L"Field of the &name");
    edit->update_controls();
    EXPECT_EQ(edit->get_combo_box()->GetAccessibleName(), L"Field of the name");
    data.props.push_back({L"came later", true, true});
    ASSERT_TRUE(input::choose_item(edit->get_combo_box(), L"came later")) << "read anew at each opening";
    EXPECT_EQ(taken_events(), 1);
    EXPECT_EQ(last_sender, edit);
    EXPECT_EQ(edit->get_real_index(), 4);
    ASSERT_TRUE(input::tab_to(edit->get_combo_box()));
    ASSERT_TRUE(input::press(VK_UP));
    EXPECT_EQ(taken_events(), 1);
    EXPECT_EQ(edit->get_prop_name(), "width");

    edit->set_enabled(false);
    EXPECT_FALSE(edit->get_enabled());
    EXPECT_FALSE(input::press(VK_UP) && taken_events() != 0);
    edit->set_enabled(true);
    edit->set_grayed(true);
    EXPECT_TRUE(edit->get_grayed());
    edit->set_top_location(1);
    EXPECT_EQ(edit->GetWidth(), 115);
    EXPECT_EQ(edit->GetHeight(), 46);
    EXPECT_EQ(edit->get_combo_box()->GetTop(), 20);
    edit->SetWidth(300);
    edit->set_top_location(0);
    EXPECT_EQ(edit->get_combo_box()->GetLeft(), 100) << "the label has its room again";
}

TEST_F(prop_choice, fields_of_a_table)
{
    vx_test::temp_dir dir;
    auto const path = dir / "t.dbf";
    vx_test::write_file(path, dbf_bytes::make({{"NAME", 'C', 8},
                                               {"SIZE", 'N', 6},
                                               {"DAY", 'D', 8},
                                               {"COUNT", 'I', 4},
                                               {"NOTE", 'M', 10},
                                               {"VALUE", 'O', 8}},
                                              {}));
    auto *panel = add<Tvx_dbf_prop_panel>();
    panel->on_changed = recorder();
    panel->set_dbf_filename(path.c_str());
    panel->update_controls();
    EXPECT_EQ(panel->get_prop_edit()->get_prop_count(), 6);
    panel->set_only_numeric(true);
    panel->update_controls();
    EXPECT_EQ(panel->get_prop_edit()->get_prop_count(), 3);
    EXPECT_EQ(taken_events(), 0);
    ASSERT_TRUE(input::choose_item(panel->get_prop_edit()->get_combo_box(), L"COUNT"));
    EXPECT_EQ(taken_events(), 1);
    EXPECT_EQ(last_sender, panel);
    EXPECT_EQ(panel->get_real_index(), 3);

    panel->set_dbf_filename((dir / "missing.dbf").c_str());
    panel->update_controls();
    EXPECT_EQ(panel->get_prop_edit()->get_prop_count(), 0);
    EXPECT_EQ(panel->get_prop_name(), "COUNT");
}

TEST_F(prop_choice, entities_of_one_layer_type)
{
    vx::owned<Ivx_scn_2d, &vx_scn_2d_destroy> const scene(vx_scn_2d_create(L"Scene"));
    for (char const *key : {c_lr_key_shp_pnt, c_lr_key_rtr, c_lr_key_shp_pnt}) {
        Ivx_layer *layer = vx_lr2d_create(key);
        vx_lr2d_set_wcaption(layer, key == c_lr_key_rtr ? L"picture" : L"points");
        ASSERT_TRUE(vx_scn_2d_insert(scene.get(), 9, layer));
    }
    auto *edit = add<Tvx_entities_prop_edit>();
    edit->create();
    edit->set_entities(vx_scn_2d_safe_upcast(scene.get()));
    edit->set_filter(c_lr_key_rtr);
    edit->update_controls();
    ASSERT_EQ(edit->get_prop_count(), 2);
    edit->set_prop_index(1);
    EXPECT_EQ(edit->get_prop_name(), "picture");
    EXPECT_EQ(edit->get_real_index(), 2);
    // Layers are no scenes: the command has nothing to add to, and whoever listens hears that it was chosen.
    edit->set_on_changed(recorder());
    next_file = L"/a_.sn";
    ASSERT_TRUE(input::choose_item(edit->get_combo_box(), 0));
    EXPECT_EQ(taken_dialogs(), 1);
    EXPECT_EQ(taken_events(), 1);
    EXPECT_EQ(edit->get_real_index(), 0);
    edit->set_filter(nullptr);
    edit->update_controls();
    EXPECT_EQ(edit->get_prop_count(), 4);
}

TEST_F(prop_choice, adds_a_scene_from_a_file)
{
    vx_test::temp_dir dir;
    vx::owned<Ivx_scn_2d, &vx_scn_2d_destroy> const saved(vx_scn_2d_create(L"Saved scene"));
    ASSERT_TRUE(vx_scn_2d_insert(saved.get(), 0, vx_lr2d_create(c_lr_key_shp_pgn)));
    auto const path = dir / "a_.sn";
    ASSERT_TRUE(vx_xml_data_save_scn2d_w(nullptr, path.wstring().c_str(), saved.get()));

    vx::owned<Ivx_scns_2d, &vx_scns_2d_destroy> const scenes(vx_scns_2d_create());
    auto *edit = add<Tvx_entities_prop_edit>();
    edit->create();
    edit->set_on_changed(recorder());
    edit->set_entities(vx_scns_2d_safe_upcast(scenes.get()));
    edit->update_controls();
    // With no other row the command is the chosen one already, and is done by choosing it again.
    next_file = path.wstring();
    ASSERT_TRUE(input::choose_item(edit->get_combo_box(), 0));
    EXPECT_EQ(taken_dialogs(), 1);
    ASSERT_EQ(vx_scns_2d_get_count(scenes.get()), 1);
    EXPECT_EQ(vx_scn_2d_get_count(vx_scns_2d_get_scn(scenes.get(), 0)), 1);
    EXPECT_EQ(edit->get_prop_name(), "Saved scene");
    EXPECT_EQ(edit->get_prop_index(), 1);
    EXPECT_EQ(taken_events(), 1);

    accepts = false;
    ASSERT_TRUE(input::choose_item(edit->get_combo_box(), 0));
    EXPECT_EQ(taken_dialogs(), 1);
    EXPECT_EQ(edit->get_prop_name(), "Saved scene");
    EXPECT_EQ(edit->get_prop_index(), 1);
    EXPECT_EQ(taken_events(), 0);

    accepts = true;
    vx_test::write_file(path, "<vx_scene version=\"1\"><layer");
    ASSERT_TRUE(input::choose_item(edit->get_combo_box(), 0));
    EXPECT_EQ(vx_scns_2d_get_count(scenes.get()), 1);
    EXPECT_EQ(edit->get_prop_name(), "Saved scene");
    EXPECT_EQ(taken_events(), 0);
    EXPECT_EQ(std::exchange(messages, {}).size(), 1u);

    ASSERT_TRUE(vx_xml_data_save_scn2d_w(nullptr, path.wstring().c_str(), saved.get()));
    ASSERT_TRUE(input::choose_item(edit->get_combo_box(), 0));
    EXPECT_EQ(edit->get_prop_index(), 2) << "the scene just added, not its namesake";
    EXPECT_EQ(edit->get_prop_name(), "Saved scene 2") << "frames tell scenes apart by their names";
    std::wstring file;
    vx_scn_2d_get_wfilename(vx_scns_2d_get_scn(scenes.get(), 1), Tvx_std_wstring_adapter(file));
    EXPECT_EQ(file, path.wstring());
    EXPECT_EQ(taken_events(), 1);
}
