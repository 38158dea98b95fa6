#include "core_fixture.h"

#include "platform/toolkit/bridge/qt_bridge.h"
#include "platform/toolkit/controls/button.h"
#include "platform/toolkit/controls/combo_box.h"
#include "platform/toolkit/graphics/bitmap.h"
#include "platform/toolkit/graphics/canvas.h"

#include <QtGui/QImage>
#include <QtGui/QPixmap>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QVBoxLayout>

#include <gtest/gtest.h>
#include <memory>

using namespace vx;

TEST(core_host, a_panel_parked_in_a_foreign_window_follows_it)
{
    event_log log;
    vx_qt_ensure_application();
    auto host = std::make_unique<QWidget>();
    host->resize(400, 300);
    TPanel panel(nullptr);
    panel.SetBevelOuter(bvNone);
    auto *const probe = new probe_control(&panel, &panel, "probe", &log);
    probe->SetAlign(alClient);
    vx_qt_host_control(&panel, host.get());
    EXPECT_FALSE(panel.GetShowing());
    EXPECT_TRUE(log.empty());
    host->show();
    user_input::wait_idle();
    EXPECT_TRUE(probe->GetShowing());
    EXPECT_EQ(probe->windows, 1);
    EXPECT_EQ(text_of(probe->GetBoundsRect()), "0,0,400,300");
    host->resize(500, 350);
    user_input::wait_idle();
    EXPECT_EQ(text_of(probe->GetBoundsRect()), "0,0,500,350");
    probe->SetFocus();
    EXPECT_TRUE(probe->Focused());

    // The host closes its window for good: the panel lives on.
    host.reset();
    EXPECT_NE(vx_qt_widget(&panel), nullptr);
    EXPECT_FALSE(panel.GetShowing());
    panel.SetCaption(L"still here");
    probe->SetBounds(0, 0, 10, 10);
    QWidget second;
    vx_qt_host_control(&panel, &second);
    second.show();
    user_input::wait_idle();
    EXPECT_TRUE(probe->GetShowing());
    vx_qt_host_control(&panel, nullptr);
    EXPECT_FALSE(panel.GetShowing());
}

TEST(core_host, leaving_for_a_foreign_widget_is_an_exit)
{
    event_log log;
    vx_qt_ensure_application();
    QWidget host;
    auto *const layout = new QVBoxLayout(&host);
    auto *const line = new QLineEdit;
    layout->addWidget(line);
    TPanel panel(nullptr);
    auto *const probe = new probe_control(&panel, &panel, "probe", &log);
    vx_qt_host_control(&panel, &host);
    host.show();
    user_input::wait_idle();
    probe->SetFocus();
    log.clear();
    line->setFocus();
    EXPECT_EQ(log, event_log{"probe exit"});
    vx_qt_host_control(&panel, nullptr);
}

TEST(core_host, a_host_that_goes_deep_down_takes_nothing_along)
{
    vx_qt_ensure_application();
    TForm form(nullptr);
    auto *const probe = new probe_control(&form, &form, "probe");
    form.SetVisible(true);
    {
        QWidget outer;
        auto *const middle = new QWidget(&outer);
        auto *const inner = new QWidget(middle);
        vx_qt_host_control(&form, inner);
        outer.show();
        user_input::wait_idle();
        EXPECT_TRUE(probe->GetShowing());
    }
    ASSERT_NE(vx_qt_widget(probe), nullptr);
    EXPECT_EQ(vx_control_of(vx_qt_widget(probe)), probe);
}

TEST(core_host, values_cross_the_bridge)
{
    for (wchar_t const *text : {L"", L"abc", L"Ширина", L"\U0001F30D"})
        EXPECT_EQ(vx_unicode_string(vx_qt_string(text)), text);
    EXPECT_EQ(vx_qt_color(RGB(1, 2, 3)), QColor(1, 2, 3));
    EXPECT_EQ(vx_color(vx_qt_color(clTeal)), clTeal);
    EXPECT_EQ(vx_qt_color(clNone).alpha(), 0);
    EXPECT_EQ(vx_color(vx_qt_color(clWindow)), ColorToRGB(clWindow));
}

TEST(core_host, a_foreign_widget_inside_a_control_keeps_its_input)
{
    TForm form(nullptr);
    form.SetKeyPreview(true);
    auto *const probe = new probe_control(&form, &form, "probe");
    probe->SetBounds(10, 10, 200, 60);
    auto *const line = new QLineEdit;
    vx_qt_host_widget(probe, line);
    form.Show();
    user_input::wait_idle();
    EXPECT_EQ(line->size(), QSize(200, 60));
    probe->SetBounds(10, 10, 150, 40);
    user_input::wait_idle();
    EXPECT_EQ(line->size(), QSize(150, 40));
    user_input::click(probe);
    EXPECT_TRUE(line->hasFocus());
    EXPECT_EQ(form.GetActiveControl(), probe);
    user_input::type(L"abc");
    EXPECT_EQ(line->text(), "abc");
}

TEST(core_host, a_shown_control_hears_of_the_mouse_in_all_its_widgets)
{
    TForm form(nullptr);
    auto *const combo = new TComboBox(&form);
    combo->SetParent(&form);
    form.Show();
    user_input::wait_idle();
    EXPECT_TRUE(vx_qt_widget(combo)->hasMouseTracking());
    auto *const line = vx_qt_widget(combo)->findChild<QLineEdit *>();
    ASSERT_TRUE(line);
    EXPECT_TRUE(line->hasMouseTracking());
}

TEST(core_host, a_button_shows_what_its_glyph_has_become)
{
    TForm form(nullptr);
    auto *const button = new TBitBtn(&form);
    TBitmap picture(16, 16);
    for (TColor const color : {clRed, clBlue, clRed}) {
        picture.GetCanvas()->GetBrush()->SetColor(color);
        picture.GetCanvas()->FillRect(Rect(4, 4, 12, 12));
        button->SetGlyph(&picture);
        QImage const shown = vx_qt_as<QPushButton>(button)->icon().pixmap(16).toImage();
        EXPECT_EQ(vx_color(shown.pixelColor(8, 8)), color);
    }
}
