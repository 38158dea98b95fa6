#include "answerer.h"
#include "controls/forms/apply_form.h"
#include "exports/vxk_lr2d_edit_form_api.h"
#include "host/layer_editor.h"
#include "host/layer_info.h"
#include "host/layout_view.h"
#include "host/layout_window.h"
#include "host/map_layouts.h"
#include "host/map_scene.h"
#include "host/tour_controls.h"
#include "layer_edit/form/lr2d_edit_form.h"
#include "layer_edit/layout/layout_scalebar_edit.h"
#include "layer_edit/layout/layout_scene_edit.h"
#include "map_fixture.h"
#include "support/temp_dir.h"
#include "user_input/user_input.h"

#include "platform/base/string_adp.h"
#include "platform/layers/layout_keys.h"
#include "platform/layers/vx_prj.h"
#include "platform/storage/vx_scn_2d_file.h"
#include "platform/toolkit/controls/check_list_box.h"
#include "platform/toolkit/controls/memo.h"
#include "platform/toolkit/core/strings.h"

#include <QDir>
#include <QFile>
#include <QListView>
#include <QMouseEvent>
#include <QStatusBar>

#include <set>

using namespace vx_test;
namespace input = vx::user_input;

namespace {
constexpr int c_patience_ms = 60000;
constexpr int c_resolution = 50;

class layouts : public map_fixture
{
protected:
    QString file(char const *name) { return QString::fromStdString((folder / name).string()); }

    void SetUp() override
    {
        map_fixture::SetUp();
        ASSERT_EQ(open({"nc.shp"}), 1);
        canvas().show_all();
        hand::press(&canvas(), Qt::Key_N, Qt::ControlModifier | Qt::ShiftModifier);
        ASSERT_NO_FATAL_FAILURE(take_page());
    }
    void take_page()
    {
        ASSERT_EQ(window->layouts().count(), 1);
        page = window->layouts().open(0);
        ASSERT_TRUE(page->isVisible());
        QObject::connect(page->statusBar(), &QStatusBar::messageChanged, page,
                         [this](QString const &text) { told.append(text); });
        ASSERT_TRUE(hand::wait_until([this] { return page->view().is_settled(); }, c_patience_ms));
    }
    Tvx_layout_document &document() { return page->document(); }
    QWidget *paper() { return page->view().viewport(); }
    int find(char const *key)
    {
        for (int row = 0; row < document().count(); ++row)
            if (vx_layout_is(document().element(document().id_at(row)), key))
                return document().id_at(row);
        return -1;
    }
    QPoint middle_of(int id)
    {
        Tvx_box_d2 const box = document().box_of(id);
        return page->view().to_screen({(box.min_x + box.max_x) / 2, (box.min_y + box.max_y) / 2}).toPoint();
    }
    double scale_of(int frame)
    {
        double x = 0, y = 0;
        vx_layout_scene_frame_lr2d_get_scale(document().element(frame), &x, &y);
        return x;
    }
    QString text_of(int id)
    {
        std::wstring text;
        vx_layout_text_lr2d_get_wtext(document().element(id), Tvx_std_wstring_adapter(text));
        return QString::fromStdWString(text);
    }
    /// The control in the window of properties.
    template <class T>
    T *control()
    {
        auto *const form = page->editor().handle() ? page->editor().handle()->get_form() : nullptr;
        return form ? vx_tour_find<T>(form) : nullptr;
    }
    void open_properties(int id)
    {
        page->view().select_id(id);
        hand::press(&page->view(), Qt::Key_Return, Qt::AltModifier);
        ASSERT_TRUE(page->editor().is_showing());
    }
    void apply() { ASSERT_TRUE(input::click(page->editor().handle()->get_form()->get_apply_btn())); }
    /// The page as a picture file of this name.
    QImage exported(char const *name)
    {
        EXPECT_TRUE(page->export_picture(file(name), c_resolution));
        return QImage(file(name));
    }

    temp_dir folder;
    QStringList told; ///< by the status line of the page
    Tvx_layout_window *page = nullptr;
};

TEST_F(layouts, elements_go_with_the_hand_and_come_back)
{
    int const title = find(c_lr_key_layout_text);
    int const legend = find(c_lr_key_layout_legend);
    int const frame = find(c_lr_key_layout_scene_frame);
    Tvx_box_d2 const place = document().box_of(legend);
    double const mm = page->view().place().zoom;
    QImage const before = exported("before.png");
    EXPECT_GT(drawn_part(before), 0.05);

    // Ctrl: not to the edge of another one.
    hand::drag(paper(), middle_of(legend), middle_of(legend) + QPoint(-50, 30), Qt::LeftButton,
               Qt::ControlModifier);
    EXPECT_EQ(page->view().selected_id(), legend);
    EXPECT_NEAR(document().box_of(legend).min_x, place.min_x - 50 / mm, 0.01);
    EXPECT_NEAR(document().box_of(legend).height(), place.height(), 1e-6);
    hand::press(&page->view(), Qt::Key_Right);
    hand::press(&page->view(), Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_NEAR(document().box_of(legend).min_x, place.min_x - 50 / mm + 0.5, 0.01);
    EXPECT_NEAR(document().box_of(legend).min_y, place.min_y + 30 / mm + 5, 0.01);
    EXPECT_NE(exported("moved.png"), before);

    // The lower right grip.
    QPoint const corner =
        page->view().to_screen({document().box_of(legend).max_x, document().box_of(legend).max_y}).toPoint();
    hand::drag(paper(), corner, corner + QPoint(20, 10), Qt::LeftButton, Qt::ControlModifier);
    EXPECT_NEAR(document().box_of(legend).width(), place.width() + 20 / mm, 0.02);

    // The map in its frame, by hand and by key, and its scale by the wheel.
    double const scale = scale_of(frame);
    Tvx_pnt_d2 const center = vx_layout_scene_frame_lr2d_get_center(document().element(frame));
    hand::drag(paper(), middle_of(frame), middle_of(frame) + QPoint(40, 0), Qt::LeftButton, Qt::AltModifier);
    EXPECT_LT(vx_layout_scene_frame_lr2d_get_center(document().element(frame)).x, center.x);
    hand::press(&page->view(), Qt::Key_Plus, Qt::AltModifier);
    EXPECT_NEAR(scale_of(frame), scale / 1.25, scale * 0.005);

    // One element less, one of its kind more, another order.
    page->view().select_id(title);
    hand::press(&page->view(), Qt::Key_D, Qt::ControlModifier);
    EXPECT_EQ(document().name_of(page->view().selected_id()), "Title 2");
    hand::press(&page->view(), Qt::Key_Delete);
    page->view().select_id(title);
    hand::press(&page->view(), Qt::Key_C, Qt::ControlModifier);
    for (int shift : {5, 10}) {
        hand::press(&page->view(), Qt::Key_V, Qt::ControlModifier);
        EXPECT_NEAR(document().box_of(page->view().selected_id()).min_x,
                    document().box_of(title).min_x + shift, 1e-6);
    }
    page->view().select_id(title);
    hand::press(page->list(), Qt::Key_Home, Qt::ControlModifier);
    EXPECT_EQ(document().row_of(title), 0);
    page->view().select_id(find(c_lr_key_layout_page));
    hand::press(&page->view(), Qt::Key_Delete);
    EXPECT_GE(find(c_lr_key_layout_page), 0) << "a layout has a page";

    for (int i = 0; document().can_undo() && i < 100; ++i)
        hand::press(&page->view(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(document().box_of(legend), place);
    EXPECT_EQ(exported("undone.png"), before);
    while (document().can_redo())
        page->command("redo")->trigger();
    EXPECT_EQ(document().row_of(title), 0);
}

TEST_F(layouts, several_elements_go_together_and_are_one_step)
{
    int const title = find(c_lr_key_layout_text);
    int const legend = find(c_lr_key_layout_legend);
    int const frame = find(c_lr_key_layout_scene_frame);
    Tvx_layout_view &view = page->view();
    std::vector const both{title, legend};
    int const count = document().count();
    Tvx_box_d2 const places[] = {document().box_of(title), document().box_of(legend)};
    auto const order = [&] {
        std::vector<int> ids;
        for (int row = 0; row < document().count(); ++row)
            ids.push_back(document().id_at(row));
        return ids;
    };
    std::vector const before = order();
    auto const undo = [&] {
        hand::press(&view, Qt::Key_Z, Qt::ControlModifier);
        EXPECT_EQ(document().box_of(title), places[0]);
        EXPECT_EQ(document().box_of(legend), places[1]);
        EXPECT_EQ(order(), before);
    };

    hand::click(paper(), middle_of(title));
    hand::click(paper(), middle_of(legend), Qt::LeftButton, Qt::ControlModifier);
    EXPECT_EQ(view.selected_ids(), both);
    EXPECT_EQ(page->list()->selectionModel()->selectedIndexes().size(), 2);
    hand::drag(paper(), middle_of(title), middle_of(title) + QPoint(9, 14));
    Tvx_box_d2 const now = document().box_of(legend);
    EXPECT_NEAR(now.min_x - places[1].min_x, document().box_of(title).min_x - places[0].min_x, 1e-9);
    EXPECT_NE(now.min_y, places[1].min_y);
    undo();
    hand::press(&view, Qt::Key_Right);
    EXPECT_NEAR(document().box_of(title).min_x, places[0].min_x + 0.5, 1e-9);
    EXPECT_NEAR(document().box_of(legend).min_x, places[1].min_x + 0.5, 1e-9);
    undo();
    page->command("to_front")->trigger();
    EXPECT_EQ(std::set({document().row_of(title), document().row_of(legend)}), std::set({0, 1}));
    undo();
    page->command("to_back")->trigger();
    EXPECT_EQ(std::set({document().row_of(title), document().row_of(legend)}),
              std::set({count - 3, count - 2}));
    undo();
    hand::press(&view, Qt::Key_Delete);
    EXPECT_EQ(document().count(), count - 2);
    EXPECT_EQ(view.selected_ids().size(), 1U);
    undo();

    // The copy of a legend that comes with its map is of the copied map.
    view.select_ids({frame, legend});
    hand::press(&view, Qt::Key_C, Qt::ControlModifier);
    hand::press(&view, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(document().count(), count + 2);
    ASSERT_EQ(view.selected_ids().size(), 2U);
    for (int const id : view.selected_ids())
        EXPECT_NE(document().frame_of(id), frame);
    undo();

    // With several maps and none of them selected a new element is of the largest.
    hand::press(&view, Qt::Key_Escape);
    page->command("add_frame")->trigger();
    hand::press(&view, Qt::Key_Escape);
    page->command("add_legend")->trigger();
    EXPECT_EQ(document().frame_of(view.selected_id()), frame);
    page->command("undo")->trigger();
    undo();

    // A click takes one of them, another click with Ctrl gives it up; Ctrl and A takes all, Esc none.
    view.select_ids(both);
    hand::click(paper(), middle_of(title));
    EXPECT_EQ(view.selected_ids(), std::vector{title});
    hand::click(paper(), middle_of(title), Qt::LeftButton, Qt::ShiftModifier);
    EXPECT_TRUE(view.selected_ids().empty());
    hand::press(&view, Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(view.selected_ids().size(), std::size_t(count - 1)) << "all but the page";
    hand::press(&view, Qt::Key_Escape);
    EXPECT_EQ(view.selected_id(), -1);
    // A frame round all of the page, and the list.
    hand::drag(paper(), QPoint(2, 2), QPoint(paper()->width() - 2, paper()->height() - 2));
    EXPECT_EQ(view.selected_ids().size(), std::size_t(count - 1));
    hand::click(page->list()->viewport(), hand::text_of(page->list(), document().row_of(title)));
    EXPECT_EQ(view.selected_ids(), std::vector{title});
    hand::click(page->list()->viewport(), hand::text_of(page->list(), document().row_of(legend)),
                Qt::LeftButton, Qt::ControlModifier);
    EXPECT_EQ(view.selected_ids(), both);
}

TEST_F(layouts, keys_go_where_the_focus_is)
{
    int const title = find(c_lr_key_layout_text);
    Tvx_box_d2 const place = document().box_of(title);
    page->view().setFocus();
    for (QWidget *const stop : std::initializer_list<QWidget *>{page->list(), &page->view(), page->list()}) {
        hand::press(QApplication::focusWidget(), Qt::Key_Tab);
        ASSERT_EQ(QApplication::focusWidget(), stop);
        EXPECT_FALSE(stop->accessibleName().isEmpty());
    }
    // While a name is written the element it is the name of stays as it is.
    page->view().select_id(title);
    hand::press(page->list(), Qt::Key_F2);
    QPointer<QLineEdit> const editor = page->list()->findChild<QLineEdit *>();
    ASSERT_TRUE(editor);
    hand::press(editor, Qt::Key_Home);
    for (Qt::Key const key : {Qt::Key_Delete, Qt::Key_F2, Qt::Key_Right, Qt::Key_Delete})
        hand::press(editor, key);
    ASSERT_TRUE(editor && editor->isVisible());
    EXPECT_EQ(editor->text(), "ile");
    hand::press(editor, Qt::Key_Return);
    EXPECT_EQ(document().name_of(title), "ile");
    EXPECT_EQ(document().box_of(title), place);
    hand::press(page->list(), Qt::Key_Delete);
    EXPECT_LT(document().row_of(title), 0);
}

TEST_F(layouts, properties_change_an_element_when_they_are_applied)
{
    int const frame = find(c_lr_key_layout_scene_frame);
    int const title = find(c_lr_key_layout_text);
    QImage const before = exported("before.png");
    // The line round the page has less to set than what is selected next.
    ASSERT_NO_FATAL_FAILURE(open_properties(find(c_lr_key_layout_neatline)));
    ASSERT_NO_FATAL_FAILURE(open_properties(frame));
    auto *const scene = control<Tvx_layout_scene_edit>();
    ASSERT_TRUE(scene && scene->GetShowing());
    ASSERT_TRUE(input::enter_text(scene->get_scale_x()->get_edit(), L"7000000"));
    EXPECT_NE(scale_of(frame), 7000000);
    // What the hand does meanwhile is not undone by Apply.
    Tvx_box_d2 place = document().box_of(frame);
    hand::press(&page->view(), Qt::Key_Left, Qt::ShiftModifier);
    apply();
    EXPECT_EQ(scale_of(frame), 7000000);
    EXPECT_NEAR(document().box_of(frame).min_x, place.min_x - 5, 1e-6);
    EXPECT_NE(exported("after.png"), before);

    ASSERT_NO_FATAL_FAILURE(open_properties(title));
    auto *const memo = control<TMemo>();
    ASSERT_TRUE(memo);
    ASSERT_TRUE(input::click(memo));
    input::press('A', {ssCtrl});
    input::type(L"Counties");
    // Who goes on to another element is asked, and may stay.
    {
        answerer answers("cancel");
        QPointF const at = middle_of(frame);
        QMouseEvent press(QEvent::MouseButtonPress, at, paper()->mapToGlobal(at), Qt::LeftButton,
                          Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(paper(), &press);
        ASSERT_TRUE(hand::wait_until([&] { return !answers.questions.isEmpty(); }));
    }
    EXPECT_EQ(page->view().selected_id(), title);
    // The question had the release, so the frame does not hang on the hand.
    place = document().box_of(frame);
    hand::move(paper(), middle_of(frame) + QPoint(60, 60));
    EXPECT_EQ(document().box_of(frame), place);
    apply();
    EXPECT_EQ(text_of(title), "Counties");
    page->command("undo")->trigger();
    EXPECT_EQ(text_of(title), "nc");
    hand::press(&page->view(), Qt::Key_Escape);
    EXPECT_EQ(page->editor().handle()->get_form()->GetCaption(), L"Element properties");
}

TEST_F(layouts, properties_go_with_names_and_with_their_layout)
{
    int const frame = find(c_lr_key_layout_scene_frame);
    int const bar = find(c_lr_key_layout_scale_bar);
    int const legend = find(c_lr_key_layout_legend);
    ASSERT_NO_FATAL_FAILURE(open_properties(bar));
    ASSERT_TRUE(document().rename(frame, "Main map"));
    apply();
    EXPECT_EQ(vx_layout_file_of(document().element(bar)), "Main map");

    // A name that another element has.
    ASSERT_NO_FATAL_FAILURE(open_properties(legend));
    QString const taken = document().name_of(bar);
    vx_lr2d_set_wcaption(vx_lr2d_edt_form_get_lr2d_ptr(page->editor().handle()),
                         taken.toStdWString().c_str());
    for (int times = 0; times < 2; ++times) {
        apply();
        EXPECT_EQ(document().name_of(legend), taken + " 2");
        EXPECT_EQ(vx_layer_name(vx_lr2d_edt_form_get_lr2d_ptr(page->editor().handle())), taken + " 2");
    }

    // Two layouts are edited at once.
    page->view().select_id(bar);
    Tvx_layout_window *const first = page;
    page = window->layouts().add();
    ASSERT_TRUE(document().rename(find(c_lr_key_layout_scene_frame), "Another map"));
    ASSERT_NO_FATAL_FAILURE(open_properties(find(c_lr_key_layout_scale_bar)));
    page = first;
    auto *const choice = control<Tvx_layout_scalebar_edit>();
    ASSERT_TRUE(choice);
    EXPECT_TRUE(input::choose_item(choice->get_scene_prop()->get_combo_box(), L"Main map"));
    page->view().select_id(legend);
    auto *const lines = control<TCheckListBox>();
    EXPECT_TRUE(lines && lines->GetItems()->GetCount() > 0);
}

TEST_F(layouts, frames_show_maps_of_other_files)
{
    ASSERT_TRUE(QDir().mkdir(file("maps")));
    QImage const before = exported("before.png");
    ASSERT_TRUE(vx_map_scene_save(file("maps/other_.sn"), layers(), canvas().view()));
    Ivx_scns_2d *const scenes = vx_prj_get_scns_2d_ptr(vx_prj_get_instance());
    int const place = vx_scns_2d_get_count(scenes);
    // As the choice of a scene brings it: its data are not open yet.
    Ivx_scn_2d *const scene = vx_scns_2d_add(scenes, L"other");
    ASSERT_TRUE(vx_xml_data_load_scn2d_w(nullptr, file("maps/other_.sn").toStdWString().c_str(), scene));
    vx_scn_2d_set_wfilename(scene, file("maps/other_.sn").toStdWString().c_str());
    {
        answerer answers("", file("map"));
        ASSERT_TRUE(window->save_scene());
    }
    layers().set_all_visible(false);
    EXPECT_NE(exported("empty.png"), before);
    int const frame = find(c_lr_key_layout_scene_frame);
    document().change(frame, [](Ivx_layer *element) { vx_layout_set_file(element, "other"); });
    document().finish_step(Tvx_layout_document::c_step_single, frame);
    EXPECT_EQ(exported("other.png"), before);

    // The map remembers where the scene came from, also when it takes the scene's own name.
    auto const reopen = [&](char const *name) {
        ASSERT_TRUE(window->save_scene());
        ASSERT_TRUE(window->new_scene());
        EXPECT_EQ(vx_scns_2d_get_count(scenes), place) << "a closed map leaves no scenes to choose from";
        ASSERT_EQ(window->open_files({file(name)}), 1);
        told.clear();
        ASSERT_NO_FATAL_FAILURE(take_page());
    };
    ASSERT_NO_FATAL_FAILURE(reopen("map_.sn"));
    EXPECT_EQ(exported("opened.png"), before);
    {
        // A file that the dialog finds selected would go before the name that is typed.
        ASSERT_TRUE(QFile::remove(file("map_.sn")));
        answerer answers("", file("other"));
        run("save_scene_as");
    }
    EXPECT_EQ(vx_layout_file_of(document().element(find(c_lr_key_layout_scene_frame))), "other 2");
    EXPECT_EQ(exported("renamed.png"), before);
    ASSERT_TRUE(QFile::rename(file("maps/other_.sn"), file("maps/away_.sn")));
    ASSERT_NO_FATAL_FAILURE(reopen("other_.sn"));
    EXPECT_TRUE(told.join(' ').contains(file("maps/other_.sn"))) << told.join('|').toStdString();
    {
        answerer answers("none");
        EXPECT_NE(exported("missing.png"), before);
        EXPECT_EQ(answers.questions.size(), 1) << "it is told";
    }
    ASSERT_TRUE(window->save_scene());
    ASSERT_TRUE(QFile::rename(file("maps/away_.sn"), file("maps/other_.sn")));
    ASSERT_NO_FATAL_FAILURE(reopen("other_.sn"));
    EXPECT_EQ(exported("found.png"), before);
}

TEST_F(layouts, come_back_with_their_map)
{
    EXPECT_TRUE(window->is_changed());
    {
        answerer answers("cancel");
        EXPECT_FALSE(window->close());
        EXPECT_EQ(answers.questions.size(), 1) << "the layout is in no file";
    }
    int const frame = find(c_lr_key_layout_scene_frame);
    page->view().select_id(frame);
    hand::press(&page->view(), Qt::Key_Minus, Qt::AltModifier);
    {
        answerer answers("", file("counties"));
        hand::press(&page->view(), Qt::Key_S, Qt::ControlModifier);
    }
    EXPECT_FALSE(window->is_changed());
    EXPECT_EQ(vx_layout_file_of(document().element(frame)), "counties") << "the map has a name by now";
    QImage const saved = exported("saved.png");
    hand::press(&page->view(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(vx_layout_file_of(document().element(frame)), "counties") << "what undo brings back, too";
    EXPECT_GT(drawn_part(exported("undone.png")), 0.05);
    page->command("redo")->trigger();
    EXPECT_EQ(exported("redone.png"), saved);
    ASSERT_TRUE(window->save_scene());
    hand::press(&page->view(), Qt::Key_Left);
    EXPECT_TRUE(window->is_changed());
    hand::press(&page->view(), Qt::Key_Z, Qt::ControlModifier);

    // The file has another name when it is opened again.
    ASSERT_TRUE(QFile::rename(file("counties_.sn"), file("births_.sn")));
    {
        answerer answers("lose");
        ASSERT_EQ(window->open_files({file("births_.sn")}), 1);
    }
    ASSERT_NO_FATAL_FAILURE(take_page());
    EXPECT_EQ(exported("opened.png"), saved);
    EXPECT_FALSE(window->is_changed());

    QProcess other;
    other.start(QCoreApplication::applicationDirPath() + "/vx_map",
                {"--pdf", file("a.pdf"), "--layout", window->layouts().name_at(0), file("births_.sn")});
    ASSERT_TRUE(other.waitForFinished(c_patience_ms));
    EXPECT_EQ(other.exitCode(), 0) << other.readAllStandardError().toStdString();
    ASSERT_TRUE(page->export_pdf(file("b.pdf")));
    EXPECT_GT(QFileInfo(file("a.pdf")).size(), 5000);
    EXPECT_NEAR(double(QFileInfo(file("a.pdf")).size()), double(QFileInfo(file("b.pdf")).size()), 200);
    other.start(QCoreApplication::applicationDirPath() + "/vx_map",
                {"--pdf", file("c.pdf"), "--layout", "no such", file("births_.sn")});
    ASSERT_TRUE(other.waitForFinished(c_patience_ms));
    EXPECT_EQ(other.exitCode(), 1);
    EXPECT_FALSE(QFile::exists(file("c.pdf")));

    answerer answers("delete");
    page->command("delete_layout")->trigger();
    EXPECT_EQ(window->layouts().count(), 0);
    EXPECT_TRUE(window->is_changed());
    ASSERT_TRUE(window->save_scene());
}
} // namespace
