#include "answerer.h"
#include "exports/vxk_lr2d_edit_form_api.h"
#include "host/layer_classes.h"
#include "host/layer_editor.h"
#include "map_fixture.h"

#include "platform/base/string_adp.h"
#include "platform/layers/vx_shp_lr2d.h"
#include "platform/styles/vxk_styles.h"

// What the editor has and nobody has applied, while the list beside it is used.

using namespace vx_test;

namespace {
void *scale_of(Ivx_layer *layer)
{
    return vx_stl_mngr_get_val_scale_ptr(vx_shp_lr2d_get_stl_mngr_ptr(layer));
}

/// The counties by three values, in the editor too, over the world.
class editor_changes : public map_fixture
{
protected:
    void SetUp() override
    {
        map_fixture::SetUp();
        ASSERT_EQ(open({"world.shp", "nc.shp"}), 2);
        Tvx_layer_list::layer_ptr copy(vx_lr2d_clone(layers().layer_at(0)));
        vx_stl_mngr_set_mode(vx_shp_lr2d_get_stl_mngr_ptr(copy.get()), c_stl_mngr_mode_value);
        void *const scale = scale_of(copy.get());
        vx_val_scale_set_size(scale, 3);
        for (unsigned i = 0; i < 3; ++i)
            vx_val_scale_set_text_w(scale, i, std::wstring(1, wchar_t(L'a' + i)).c_str());
        ASSERT_TRUE(layers().replace(layers().id_at(0), std::move(copy)));
        select(0);
        run("properties");
    }
    Tvx_layer_editor &editor() { return window->editor(); }
    Ivx_layer *copy() { return vx_lr2d_edt_form_get_lr2d_ptr(editor().handle()); }
    Ivx_layer *layer() { return layers().layer_at(layers().row_of(id)); }
    static std::wstring caption(Ivx_layer *of, unsigned entry)
    {
        std::wstring text;
        vx_val_scale_get_caption_w(scale_of(of), entry, Tvx_std_wstring_adapter(text));
        return text;
    }
    static bool is_visible(Ivx_layer *of, unsigned entry)
    {
        return vx_scale_prm_get_visible(vx_val_scale_get_scale_prm_ptr(scale_of(of), entry));
    }
    /// What a page does.
    void change_copy() { vx_val_scale_set_caption_w(scale_of(copy()), 0, L"mine"); }
    void tick(int place)
    {
        QRect const line = list()->visualRect(layers().index(place, 0, layers().index(0)));
        hand::click(list()->viewport(), QPoint(line.left() + 10, line.center().y()));
    }

    int id = 0;
};
} // namespace

TEST_F(editor_changes, are_kept_and_take_up_the_ticks_of_the_list)
{
    id = layers().id_at(0);
    tick(1);
    EXPECT_FALSE(is_visible(layer(), 1));
    EXPECT_FALSE(is_visible(copy(), 1));
    EXPECT_TRUE(editor().may_lose_changes()) << "a tick is no change of the editor's";

    // The second entry goes and another mode is tried: the third is still known by its value.
    change_copy();
    vx_val_scale_del(scale_of(copy()), 1);
    vx_stl_mngr_set_mode(vx_shp_lr2d_get_stl_mngr_ptr(copy()), c_stl_mngr_mode_simple);
    tick(2);
    tick(1); // of the entry that is gone
    tick(3); // the other row
    EXPECT_EQ(caption(copy(), 0), L"mine");
    EXPECT_FALSE(is_visible(copy(), 1));
    EXPECT_TRUE(is_visible(copy(), 0));
    EXPECT_EQ(vx_scale_prm_get_visible(vx_val_scale_get_other_prm_ptr(scale_of(copy()))),
              vx_scale_prm_get_visible(vx_val_scale_get_other_prm_ptr(scale_of(layer()))));

    // Names and the order of managers take nothing away either.
    ASSERT_TRUE(layers().rename(0, "Counties"));
    run("invert_managers");
    run("invert_managers");
    EXPECT_EQ(caption(copy(), 0), L"mine");
    vx_stl_mngr_set_mode(vx_shp_lr2d_get_stl_mngr_ptr(copy()), c_stl_mngr_mode_value);
    answerer answers("apply");
    select(1);
    EXPECT_TRUE(hand::wait_until([&] { return editor().layer_id() != id; }));
    EXPECT_EQ(caption(layer(), 0), L"mine");
    EXPECT_FALSE(is_visible(layer(), 1));
    EXPECT_EQ(layers().name_at(0), "Counties");
    EXPECT_EQ(layers().rowCount(layers().index(0)), 3);
}

TEST_F(editor_changes, are_not_given_up_unasked)
{
    id = layers().id_at(0);
    struct
    {
        char const *way;
        std::function<void()> go;
    } const ways[] = {
        {"another layer is selected", [&] { select(1); }},
        {"a file is opened", [&] { open({"streets.shp"}); }},
        {"the style of another is pasted", [&] { run("paste_style"); }},
        {"the map is left", [&] { run("new_scene"); }},
        {"the window is closed", [&] { window->close(); }},
    };
    run("copy_style");
    change_copy();
    for (auto const &[way, go] : ways) {
        answerer answers("cancel");
        int const count = layers().count();
        go();
        EXPECT_TRUE(hand::wait_until([&] { return answers.questions.size() == 1; })) << way;
        EXPECT_TRUE(hand::wait_until([&] { return window->panel().selected_id() == id; })) << way;
        EXPECT_EQ(editor().layer_id(), id) << way;
        EXPECT_EQ(caption(copy(), 0), L"mine") << way;
        EXPECT_GE(layers().count(), count) << way;
        EXPECT_TRUE(window->isVisible()) << way;
    }
    {
        answerer answers("lose");
        select(layers().count() - 1);
        EXPECT_TRUE(hand::wait_until([&] { return editor().layer_id() != id; }));
        EXPECT_EQ(answers.questions.size(), 1);
        EXPECT_EQ(caption(layer(), 0), L"");
        select(layers().row_of(id));
        EXPECT_EQ(editor().layer_id(), id);
        EXPECT_EQ(answers.questions.size(), 1);
    }
    // A layer that is taken off takes its changes along.
    change_copy();
    answerer answers("cancel");
    run("remove");
    QCoreApplication::processEvents();
    EXPECT_NE(editor().layer_id(), id);
    EXPECT_EQ(editor().layer_id(), window->panel().selected_id());
    EXPECT_EQ(answers.questions, QStringList());
}
