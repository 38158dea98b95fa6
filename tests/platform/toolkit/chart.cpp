#include "platform/toolkit/controls/chart.h"

#include "user_input/user_input.h"

#include "platform/toolkit/controls/combo_box.h"
#include "platform/toolkit/core/form.h"
#include "platform/toolkit/core/screen.h"
#include "platform/toolkit/core/strings.h"
#include "platform/toolkit/graphics/bitmap.h"
#include "platform/toolkit/graphics/canvas.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <vector>

using namespace vx::user_input;

namespace {
class chart : public testing::Test
{
public:
    void SetUp() override
    {
        form.SetBounds(50, 50, 500, 400);
        view = new TChart(&form);
        view->SetParent(&form);
        view->SetBounds(10, 10, 420, 300);
        form.Show();
        wait_idle();
    }
    void add_bars(std::vector<double> const &heights, double first = 0.0, double step = 1.0)
    {
        for (std::size_t i = 0; i < heights.size(); ++i)
            view->GetSeries()->AddXY(first + step * static_cast<double>(i), heights[i], {}, clBlue);
    }

    TForm form{nullptr};
    TChart *view = nullptr;
    int zooms = 0;
};
} // namespace

TEST_F(chart, axes_follow_the_bars)
{
    TChartAxis &bottom = *view->GetBottomAxis();
    TChartAxis &left = *view->GetLeftAxis();
    EXPECT_LT(bottom.GetMinimum(), bottom.GetMaximum()) << "an empty chart has axes too";
    add_bars({1, 4, 2}, 10.0, 2.0);
    EXPECT_DOUBLE_EQ(bottom.GetMinimum(), 9.0);
    EXPECT_DOUBLE_EQ(bottom.GetMaximum(), 15.0);
    EXPECT_DOUBLE_EQ(left.GetMinimum(), 0.0);
    EXPECT_DOUBLE_EQ(left.GetMaximum(), 4.0);
    view->SetSideMargins(false);
    EXPECT_DOUBLE_EQ(bottom.GetMinimum(), 10.0);
    view->GetSeries()->Clear();
    double const huge = std::numeric_limits<double>::max();
    add_bars({huge, 0.0, 0.0}, -huge, huge);
    EXPECT_TRUE(std::isfinite(bottom.GetMaximum() - bottom.GetMinimum()));
    EXPECT_EQ(view->GetSeries()->AddXY(std::nan(""), 1.0, {}, clRed), -1);
    EXPECT_EQ(view->GetSeries()->AddXY(1.0, INFINITY, {}, clRed), -1);
    view->Repaint();
}

TEST_F(chart, pixels_and_values_are_each_others_reverse)
{
    add_bars({1, 2, 3, 4, 5}, -2.0);
    TRect const area = view->GetChartRect();
    TChartAxis &bottom = *view->GetBottomAxis();
    TChartAxis &left = *view->GetLeftAxis();
    EXPECT_EQ(bottom.CalcPosValue(bottom.GetMinimum()), area.Left);
    EXPECT_EQ(bottom.CalcPosValue(bottom.GetMaximum()), area.Right - 1);
    EXPECT_EQ(left.CalcPosValue(left.GetMinimum()), area.Bottom - 1);
    EXPECT_EQ(left.CalcPosValue(left.GetMaximum()), area.Top);
    for (int x = area.Left; x < area.Right; x += 7)
        EXPECT_EQ(bottom.CalcPosValue(bottom.CalcPosPoint(x)), x);
    for (int y = area.Top; y < area.Bottom; y += 7)
        EXPECT_EQ(left.CalcPosValue(left.CalcPosPoint(y)), y);
    EXPECT_GT(bottom.CalcPosValue(1e300), area.Right);
    EXPECT_LT(bottom.CalcPosValue(-INFINITY), area.Left);
    EXPECT_LT(bottom.CalcPosValue(std::nan("")), area.Left);
}

TEST_F(chart, the_mouse_zooms)
{
    add_bars({1, 2, 3, 4, 5, 6, 7, 8, 9, 10});
    view->OnZoom = TNotifyEvent([](void *self, TObject *) { ++static_cast<chart *>(self)->zooms; },
                                static_cast<chart *>(this));
    view->OnUndoZoom = view->OnZoom;
    TChartAxis &bottom = *view->GetBottomAxis();
    int const x1 = bottom.CalcPosValue(2.0);
    int const x2 = bottom.CalcPosValue(6.0);
    ASSERT_TRUE(drag(view, x1, 40, x2, 42));
    EXPECT_FALSE(view->GetZoomed()) << "too low for a rectangle";
    ASSERT_TRUE(drag(view, x1, 40, x2, 120));
    EXPECT_TRUE(view->GetZoomed());
    EXPECT_EQ(zooms, 1);
    EXPECT_NEAR(bottom.GetMinimum(), 2.0, 0.05);
    EXPECT_NEAR(bottom.GetMaximum(), 6.0, 0.05);
    ASSERT_TRUE(drag(view, x2, 120, x1, 40));
    EXPECT_FALSE(view->GetZoomed());
    EXPECT_EQ(zooms, 2);
    EXPECT_DOUBLE_EQ(bottom.GetMaximum(), 9.5);
    view->SetAllowZoom(false);
    ASSERT_TRUE(drag(view, x1, 40, x2, 120));
    EXPECT_FALSE(view->GetZoomed());
    bottom.SetMinMax(3.0, 1.0);
    EXPECT_DOUBLE_EQ(bottom.GetMaximum(), 9.5) << "a reversed interval is none";
    bottom.SetMinMax(1.0, 3.0);
    EXPECT_TRUE(view->GetZoomed());
    add_bars({1.0});
    EXPECT_FALSE(view->GetZoomed()) << "another content is seen whole";
    EXPECT_EQ(zooms, 2);
}

TEST_F(chart, tells_of_the_pointer_without_a_button)
{
    struct
    {
        int x = -1;
    } seen;
    view->OnMouseMove = TMouseMoveEvent(
        [](void *self, TObject *, TShiftState, int x, int) { static_cast<decltype(seen) *>(self)->x = x; },
        &seen);
    ASSERT_TRUE(move(view, 33, 44));
    EXPECT_EQ(seen.x, 33);
}

TEST(combo_box, takes_all_texts_at_once)
{
    TForm form(nullptr);
    auto *box = new TComboBox(&form);
    box->SetParent(&form);
    form.Show();
    std::vector<UnicodeString> const texts{L"one", L"two & two", L"", L"three"};
    box->SetText(L"typed");
    box->SetItemTexts(texts);
    EXPECT_EQ(box->GetText(), L"typed");
    EXPECT_EQ(box->GetItemIndex(), -1);
    box->SetStyle(csDropDownList);
    box->SetItemTexts(texts);
    EXPECT_EQ(box->GetItems()->GetCount(), 4);
    EXPECT_EQ(box->GetItems()->GetStrings(1), L"two & two");
    EXPECT_EQ(box->GetItemIndex(), -1);
    ASSERT_TRUE(choose_item(box, L"three"));
    EXPECT_EQ(box->GetItemIndex(), 3);
    box->SetItemTexts({});
    EXPECT_EQ(box->GetItems()->GetCount(), 0);
}

TEST(screen, grabs_what_the_program_shows)
{
    TForm form(nullptr);
    form.SetBorderStyle(bsNone);
    form.SetBounds(300, 200, 60, 40);
    form.SetColor(RGB(10, 200, 30));
    form.Show();
    wait_idle();
    TBitmap picture;
    Screen->Grab(picture);
    ASSERT_GE(picture.GetWidth(), Screen->GetWidth());
    int const scale = picture.GetWidth() / Screen->GetDesktopRect().Width();
    EXPECT_EQ(picture.GetCanvas()->GetPixel(330 * scale, 220 * scale), RGB(10, 200, 30));
    EXPECT_EQ(picture.GetCanvas()->GetPixel(100 * scale, 100 * scale), clBlack);
}
