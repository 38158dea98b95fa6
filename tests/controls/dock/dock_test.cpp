#include "controls/vxk_basic_vcl.h"
#include "user_input/user_input.h"

#include "platform/basic/vx_wstrings_obj.h"
#include "platform/toolkit/bridge/qt_widgets.h"
#include "platform/toolkit/controls/memo.h"
#include "platform/toolkit/core/application.h"
#include "platform/toolkit/core/dock_manager.h"
#include "platform/toolkit/core/key_codes.h"

#include <QtCore/QMimeData>
#include <QtCore/QUrl>
#include <QtGui/QDropEvent>
#include <QtWidgets/QApplication>

#include <gtest/gtest.h>
#include <memory>
#include <string>

namespace {
namespace ui = vx::user_input;

/// A document that writes down what it is told, and may refuse to close.
class document final : public Tvx_mdi_child_form
{
public:
    document(TComponent *owner, wchar_t const *caption, TRect const &place) : Tvx_mdi_child_form(owner)
    {
        SetCaption(caption);
        SetBoundsRect(place);
        Show();
    }
    ~document() override
    {
        if (ended)
            ++*ended;
    }
    void drop_files(Tvx_wstrings_obj const &names) override
    {
        for (unsigned i = 0; i < names.get_size(); ++i)
            files += std::wstring(names.get_str(i)) + L";";
    }
    void refuse(TObject *, bool &can_close) { can_close = false; }
    using Tvx_mdi_child_form::CreateDragDockObject;

    std::wstring files;
    int *ended = nullptr;
};

/// A main form with two documents side by side.
class documents : public testing::Test
{
public:
    void SetUp() override
    {
        main.SetBounds(0, 0, 1000, 700);
        main.SetFormStyle(fsMDIForm);
        Application->SetMainForm(&main);
        main.Show();
        first = new document(&main, L"First", Bounds(10, 10, 400, 300));
        second = new document(&main, L"Second", Bounds(450, 50, 300, 200));
        ui::wait_idle();
    }
    void TearDown() override { Application->SetMainForm(nullptr); }

    Tvx_mdi_conjoin_dock_host *host()
    {
        return dynamic_cast<Tvx_mdi_conjoin_dock_host *>(first->GetHostDockSite());
    }
    /// Drags the second document onto a point of the first.
    bool join(int x, int y)
    {
        bool const done = ui::drag(second, 40, 40, first, x, y);
        ui::wait_idle();
        return done;
    }

    TForm main{nullptr};
    document *first = nullptr;
    document *second = nullptr;
};

TEST_F(documents, zones_of_a_fifth_decide)
{
    int const w = first->GetClientWidth(), h = first->GetClientHeight();
    TPoint const origin = first->GetClientOrigin();
    struct
    {
        TPoint at;
        TAlign align;
        TRect rect;
    } const cases[] = {
        {{0, 0}, alLeft, Rect(0, 0, w / 2, h)},
        {{w / 5 - 1, h - 1}, alLeft, Rect(0, 0, w / 2, h)},
        {{w / 5, 0}, alTop, Rect(0, 0, w, h / 2)},
        {{w / 5 * 4, h / 5}, alRight, Rect(w / 2, 0, w, h)},
        {{w / 5, h / 5 * 4}, alBottom, Rect(0, h / 2, w, h)},
        {{w / 2, h / 2}, alNone, {}},
    };
    for (auto const &c : cases) {
        TRect rect;
        EXPECT_EQ(first->ComputeDockingRect(rect, c.at), c.align) << c.at.X << ' ' << c.at.Y;
        TRect expected = c.rect;
        if (c.align != alNone)
            expected.Offset(origin.X, origin.Y);
        EXPECT_EQ(rect, expected);
    }
}

TEST_F(documents, two_are_joined_by_the_mouse_and_part_again)
{
    TRect const place = first->GetBoundsRect();
    ASSERT_TRUE(join(10, 150));
    ASSERT_NE(host(), nullptr);
    EXPECT_EQ(host()->GetDockClientCount(), 2);
    EXPECT_EQ(second->GetHostDockSite(), host());
    EXPECT_EQ(host()->GetBoundsRect(), place);
    EXPECT_EQ(host()->GetCaption(), L"First, Second");
    EXPECT_TRUE(host()->GetShowing() && first->GetShowing() && second->GetShowing());
    EXPECT_LT(second->GetLeft(), first->GetLeft()) << "dropped on the left";
    EXPECT_NEAR(second->GetWidth(), first->GetWidth(), 8) << "half of the window, as the frame showed";
    host()->SetWidth(900);
    ui::wait_idle();
    EXPECT_NEAR(second->GetWidth(), first->GetWidth(), 8) << "they grow together";
    EXPECT_FALSE(second->GetDockSite()) << "it was dropped on a target";
    EXPECT_EQ(second->GetFormStyle(), fsNormal);

    // Closing one leaves the other as a document by itself, and the joint window goes.
    int ended = 0;
    EXPECT_EQ(second->GetUndockHeight(), 200);
    second->ended = &ended;
    second->Close();
    ui::wait_idle();
    EXPECT_EQ(ended, 1);
    EXPECT_EQ(first->GetHostDockSite(), nullptr);
    EXPECT_EQ(first->GetFormStyle(), fsMDIChild);
    EXPECT_TRUE(first->GetShowing());
    EXPECT_EQ(first->GetBoundsRect(), place) << "where both were";
    EXPECT_EQ(main.GetMDIChildCount(), 1);
}

TEST_F(documents, the_joint_window_asks_each_before_it_closes)
{
    ASSERT_TRUE(join(first->GetClientWidth() - 10, 150));
    ASSERT_NE(host(), nullptr);
    EXPECT_GT(second->GetLeft(), first->GetLeft());
    EXPECT_NEAR(second->GetWidth(), first->GetWidth(), 8);
    first->OnCloseQuery = make_closure<&document::refuse>(first);
    host()->Close();
    ui::wait_idle();
    ASSERT_NE(host(), nullptr) << "one refuses";
    EXPECT_FALSE(main.CloseQuery()) << "for the window around them too";
    first->OnCloseQuery = {};
    host()->Close();
    ui::wait_idle();
    EXPECT_EQ(first->GetHostDockSite(), nullptr);
    EXPECT_EQ(second->GetHostDockSite(), nullptr);
    EXPECT_EQ(main.GetMDIChildCount(), 2) << "both are documents again";
    EXPECT_TRUE(first->GetDockSite() && second->GetDockSite());
    // What is docked takes nobody in.
    second->SetLeft(450);
    ASSERT_TRUE(join(10, 150));
    ASSERT_NE(host(), nullptr);
    auto *const third = new document(&main, L"Third", Bounds(500, 400, 200, 150));
    ui::wait_idle();
    ui::drag(third, 40, 40, first, 10, 100);
    ui::wait_idle();
    EXPECT_EQ(third->GetHostDockSite(), host());
    EXPECT_EQ(host()->GetCaption(), L"First, Second, Third");
}

TEST_F(documents, one_document_of_several_is_divided_and_moved)
{
    ASSERT_TRUE(join(10, 150));
    ASSERT_NE(host(), nullptr);
    auto *const third = new document(&main, L"Third", Bounds(500, 400, 200, 150));
    ui::wait_idle();
    auto const drop = [&](document *on, int x, int y) {
        EXPECT_TRUE(ui::drag(third, 40, 40, on, x, y));
        ui::wait_idle();
        ASSERT_EQ(third->GetHostDockSite(), host());
    };
    drop(first, first->GetClientWidth() / 2, first->GetClientHeight() - 8);
    EXPECT_EQ(third->GetLeft(), first->GetLeft());
    EXPECT_GT(third->GetTop(), first->GetTop());
    EXPECT_NEAR(third->GetHeight(), first->GetHeight(), 2);
    EXPECT_GT(second->GetHeight(), 2 * first->GetHeight()) << "the other one is not divided";
    drop(second, 8, 100);
    EXPECT_LT(third->GetLeft(), second->GetLeft());
    EXPECT_NEAR(third->GetWidth(), second->GetWidth(), 2);
    EXPECT_EQ(first->GetHeight(), second->GetHeight());
}

TEST_F(documents, a_drag_is_given_up_by_esc_and_shows_where_it_would_end)
{
    ASSERT_TRUE(ui::mouse_down(second, 40, 40) && ui::move(second, 20, 60) && ui::move(first, 10, 150));
    ASSERT_TRUE(second->Dragging());
    TRect const place = second->GetBoundsRect();
    ui::press(VK_ESCAPE);
    EXPECT_FALSE(second->Dragging());
    ui::mouse_up(first, 10, 150);
    ui::wait_idle();
    EXPECT_EQ(host(), nullptr);
    EXPECT_EQ(second->GetBoundsRect(), place);
    EXPECT_TRUE(second->GetDockSite());

    // In the middle there is no zone, but a frame.
    int const w = first->GetClientWidth(), h = first->GetClientHeight();
    TDragDockObject object(second);
    object.SetDropAlign(alRight);
    bool accept = false;
    first->OnDockOver(first, &object, w / 2 + 10, h / 2, dsDragMove, accept);
    EXPECT_TRUE(accept);
    EXPECT_EQ(object.GetDropAlign(), alNone);
    EXPECT_EQ(object.GetDockRect().Width(), w - w / 2);
    EXPECT_EQ(object.GetDockRect().Height(), h);
}

TEST_F(documents, the_tool_panel_follows_the_active_one)
{
    auto *const place = new Tvx_panel(&main);
    place->SetName(L"MainToolPanel");
    place->SetParent(&main);
    place->SetAlign(alTop);
    auto *const own = new Tvx_panel(first), *const other = new Tvx_panel(second);
    first->set_tool_panel(own);
    second->set_tool_panel(other);
    EXPECT_EQ(own->GetParent(), place);
    EXPECT_TRUE(other->GetVisible());
    EXPECT_FALSE(own->GetVisible());
    first->Show();
    ui::wait_idle();
    EXPECT_TRUE(own->GetVisible());
    EXPECT_FALSE(other->GetVisible());
    // In a joint window the focus says which is the active one.
    for (document *const each : {first, second}) {
        auto *const lines = new TMemo(each);
        lines->SetParent(each);
        lines->SetBounds(100, 100, 50, 50);
    }
    ASSERT_TRUE(ui::click(second->GetControls(0), 20, 20) && join(10, 150));
    EXPECT_TRUE(ui::type(L"x"));
    EXPECT_EQ(static_cast<TMemo *>(second->GetControls(0))->GetText(), L"x")
        << "what was dragged has the keys";
    for (document *const each : {second, first, second}) {
        ASSERT_TRUE(ui::click(each->GetControls(0), 20, 20));
        EXPECT_EQ(own->GetVisible(), each == first);
        EXPECT_EQ(other->GetVisible(), each == second);
    }
    first->set_tool_panel(nullptr);
    EXPECT_EQ(own->GetParent(), nullptr);
    delete other;
    EXPECT_EQ(second->get_tool_panel(), nullptr);
    delete place;
}

TEST_F(documents, files_are_dropped_once_they_are_asked_for)
{
    QWidget *widget = vx_qt_widget(static_cast<TControl *>(first));
    QMimeData files;
    files.setUrls({QUrl::fromLocalFile("/data/a b.shp"), QUrl("https://example.org/x"),
                   QUrl::fromLocalFile("/data/" + QString(300, 'n') + ".tif")});
    auto const drop = [&] {
        QDragEnterEvent enter(QPoint(20, 20), Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(widget, &enter);
        QDropEvent event(QPointF(20, 20), Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(widget, &event);
    };
    drop();
    EXPECT_EQ(first->files, L"");
    first->parse_drop_files(true);
    drop();
    EXPECT_EQ(first->files, L"/data/a b.shp;/data/" + std::wstring(300, L'n') + L".tif;");
    first->files.clear();
    auto *const lines = new TMemo(first);
    lines->SetParent(first);
    widget = vx_qt_widget(static_cast<TControl *>(lines));
    drop();
    EXPECT_NE(first->files, L"") << "what stands in the form takes none";
    EXPECT_EQ(lines->GetLines()->GetCount(), 0);
    widget = vx_qt_widget(static_cast<TControl *>(first));
    first->files.clear();
    first->parse_drop_files(false);
    drop();
    EXPECT_EQ(first->files, L"");
}

TEST_F(documents, the_frame_is_drawn_anew_only_in_another_size)
{
    auto const object = first->CreateDragDockObject();
    auto &frame = dynamic_cast<Tvx_mdi_child_form_drag_object_ex &>(*object);
    for (TRect const &place : {Bounds(10, 10, 100, 80), Bounds(20, 30, 100, 80), Bounds(0, 0, 90, 80)}) {
        frame.SetDockRect(place);
        frame.DrawDragDockImage();
        EXPECT_TRUE(frame.GetWindow().GetVisible());
    }
    EXPECT_EQ(frame.GetDrawnCount(), 2);
    frame.SetDockRect({});
    frame.DrawDragDockImage();
    EXPECT_FALSE(frame.GetWindow().GetVisible());
}

TEST(dock_tool_form, its_panel_opens_for_the_first_and_closes_after_the_last)
{
    Tvx_dock_tool_form tool(nullptr);
    EXPECT_EQ(tool.GetFormStyle(), fsStayOnTop);
    tool.SetBounds(50, 50, 300, 400);
    tool.Show();
    EXPECT_EQ(tool.DockPanel->GetHeight(), 0);
    EXPECT_FALSE(tool.DockSplitter->GetVisible());
    TForm page(nullptr);
    page.SetBounds(500, 100, 200, 200);
    page.SetDragKind(dkDock);
    page.SetDragMode(dmAutomatic);
    page.Show();
    ui::wait_idle();
    // Onto the lower edge, where the panel has no height yet.
    ASSERT_TRUE(ui::drag(&page, 50, 50, &tool, 150, tool.GetClientHeight() - 4));
    ui::wait_idle();
    ASSERT_EQ(page.GetHostDockSite(), tool.DockPanel);
    int const height = tool.DockPanel->GetHeight();
    EXPECT_EQ(height, 400 * 200 / (400 + 200 + 1));
    EXPECT_TRUE(tool.DockSplitter->GetVisible());
    EXPECT_EQ(tool.DockSplitter->GetTop() + tool.DockSplitter->GetHeight(), tool.DockPanel->GetTop());
    // It keeps its share.
    tool.SetHeight(800);
    EXPECT_NEAR(tool.DockPanel->GetHeight(), 2 * height, 3);
    ASSERT_TRUE(ui::drag(tool.DockSplitter, 100, 1, 100, 51));
    int const smaller = tool.DockPanel->GetHeight();
    EXPECT_NEAR(smaller, 2 * height - 50, 3);
    tool.SetHeight(400);
    EXPECT_NEAR(tool.DockPanel->GetHeight(), smaller / 2, 3);
    page.ManualFloat(Bounds(500, 100, 200, 200));
    EXPECT_FALSE(tool.DockSplitter->GetVisible());
    EXPECT_EQ(tool.DockPanel->GetHeight(), 0);
}

TEST(dock_tool_form, a_docked_one_floats_before_it_ends)
{
    TForm site(nullptr);
    site.SetBounds(0, 0, 600, 400);
    site.SetDockSite(true);
    site.Show();
    auto tool = std::make_unique<Tvx_dock_tool_form>(nullptr);
    tool->SetBounds(50, 50, 300, 200);
    tool->Show();
    ASSERT_TRUE(tool->ManualDock(&site, nullptr, alLeft));
    tool.reset();
    EXPECT_EQ(site.GetDockClientCount(), 0);
}
} // namespace
