#include "user_input/user_input.h"

#include "platform/toolkit/controls/button.h"
#include "platform/toolkit/controls/category_panel_group.h"
#include "platform/toolkit/controls/gauge.h"
#include "platform/toolkit/controls/grid_panel.h"
#include "platform/toolkit/controls/label.h"
#include "platform/toolkit/controls/progress_bar.h"
#include "platform/toolkit/controls/track_bar.h"
#include "platform/toolkit/core/form.h"
#include "platform/toolkit/graphics/font.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <vector>

using namespace vx::user_input;

namespace {
template <class T>
T *put(TWinControl *parent, TRect const &bounds)
{
    auto *control = new T(parent);
    control->SetParent(parent);
    control->SetBoundsRect(bounds);
    return control;
}
} // namespace

TEST(grid_panel, shares_fill_the_room_to_the_pixel)
{
    TForm form(nullptr);
    auto *grid = put<TGridPanel>(&form, Bounds(0, 0, 202, 102));
    grid->SetColumnCount(3);
    grid->SetColumn(0, ssAbsolute, 30);
    grid->SetColumn(1, ssPercent, 50);
    grid->SetColumn(2, ssPercent, 25);
    std::vector<TButton *> buttons;
    for (int i = 0; i < 7; ++i)
        buttons.push_back(put<TButton>(grid, Bounds(0, 0, 20, 10)));
    EXPECT_EQ(grid->GetRowCount(), 3) << "a row is added for the seventh";
    EXPECT_EQ(grid->GetControlAt(0, 2), buttons[6]);
    // Of the 200 pixels inside the bevel 170 are shared two to one.
    EXPECT_EQ(grid->GetCellRect(1, 0).Width(), 113);
    EXPECT_EQ(grid->GetCellRect(2, 0).Width(), 57);
    EXPECT_EQ(grid->GetCellRect(2, 0).Right, 201);
    EXPECT_EQ(grid->GetCellRect(0, 2).Height(), 10) << "an automatic row has its controls' height";
    buttons[1]->SetAlign(alClient);
    EXPECT_EQ(buttons[1]->GetBoundsRect(), grid->GetCellRect(1, 0));
    grid->SetCell(buttons[0], 0, 0, 1, 9);
    EXPECT_EQ(grid->GetControlAt(0, 1), buttons[0]) << "a span is cut at the last row";
    delete buttons[6];
    EXPECT_EQ(grid->GetControlAt(2, 2), nullptr);
    EXPECT_TRUE(grid->GetCellRect(3, 0).IsEmpty());
}

TEST(scroll_box, makes_room_for_what_stands_free)
{
    TForm form(nullptr);
    auto *box = put<TScrollBox>(&form, Bounds(0, 0, 200, 100));
    auto *bar = put<TButton>(box, Bounds(0, 0, 10, 20));
    bar->SetAlign(alTop);
    form.Show();
    wait_idle();
    int const room = box->GetClientWidth();
    EXPECT_EQ(bar->GetWidth(), room);
    auto *far = put<TButton>(box, Bounds(10, 300, 50, 20));
    wait_idle();
    EXPECT_LT(box->GetClientWidth(), room) << "the scroll bar takes its room";
    EXPECT_EQ(bar->GetWidth(), box->GetClientWidth());
    EXPECT_EQ(box->GetVertPosition(), 0);
    box->ScrollInView(far);
    EXPECT_GT(box->GetVertPosition(), 0);
    EXPECT_TRUE(click(far)) << "it is in sight now";
    far->SetVisible(false);
    wait_idle();
    EXPECT_EQ(bar->GetWidth(), room);
    box->SetBounds(0, 0, 260, 100);
    wait_idle();
    EXPECT_EQ(bar->GetWidth(), room + 60);
}

TEST(category_panel_group, opens_and_closes)
{
    TForm form(nullptr);
    form.SetBounds(20, 20, 400, 500);
    auto *group = put<TCategoryPanelGroup>(&form, Bounds(0, 0, 200, 400));
    TCategoryPanel *first = group->CreatePanel(L"First");
    TCategoryPanel *second = group->CreatePanel(L"Second");
    first->SetHeight(100);
    auto *inside = put<TButton>(first, Bounds(0, 0, 50, 20));
    inside->SetAlign(alClient);
    form.Show();
    wait_idle();
    EXPECT_EQ(inside->GetTop(), TCategoryPanel::GetHeaderHeight());
    EXPECT_EQ(second->GetTop(), 100);
    ASSERT_TRUE(click(first, 20, 10));
    EXPECT_TRUE(first->GetCollapsed());
    EXPECT_EQ(second->GetTop(), TCategoryPanel::GetHeaderHeight());
    ASSERT_TRUE(tab_to(first));
    press(VK_SPACE);
    EXPECT_FALSE(first->GetCollapsed());
    EXPECT_EQ(first->GetHeight(), 100) << "as high as before";
    group->CollapseAll();
    EXPECT_TRUE(second->GetCollapsed());
    EXPECT_EQ(group->GetPanels(2), nullptr);
}

TEST(ranges, hold_their_numbers)
{
    TProgressBar bar(nullptr);
    TGauge gauge(nullptr);
    TTrackBar track(nullptr);
    for (int value : {-5, 150, 30}) {
        bar.SetPosition(value);
        gauge.SetProgress(value);
        track.SetPosition(value);
        EXPECT_EQ(bar.GetPosition(), std::clamp(value, 0, 100));
        EXPECT_EQ(gauge.GetProgress(), std::clamp(value, 0, 100));
        EXPECT_EQ(track.GetPosition(), std::clamp(value, 0, 10));
    }
    bar.SetMax(20);
    EXPECT_EQ(bar.GetPosition(), 20);
    bar.SetMin(25);
    EXPECT_EQ(bar.GetPosition(), 25);
    gauge.SetMinValue(20);
    gauge.SetMaxValue(60);
    EXPECT_EQ(gauge.GetPercentDone(), 25);
}

TEST(label, is_as_large_as_its_text_until_told_otherwise)
{
    TForm form(nullptr);
    auto *label = put<TLabel>(&form, Bounds(5, 5, 300, 300));
    EXPECT_LT(label->GetWidth(), 300);
    label->SetCaption(L"short");
    int const width = label->GetWidth();
    label->SetCaption(L"a longer text");
    EXPECT_GT(label->GetWidth(), width);
    label->SetCaption(L"short");
    EXPECT_EQ(label->GetWidth(), width);
    label->GetFont()->SetHeight(2 * label->GetFont()->GetHeight());
    EXPECT_GT(label->GetWidth(), width);
    label->SetAutoSize(false);
    label->SetBounds(5, 5, 60, 17);
    label->SetCaption(L"a text that is longer than that");
    EXPECT_EQ(label->GetWidth(), 60);
    label->SetWordWrap(true);
    label->SetAutoSize(true);
    EXPECT_EQ(label->GetWidth(), 60);
    EXPECT_GT(label->GetHeight(), 30);

    // The accelerator and a click lead to the control it names.
    auto *button = put<TButton>(&form, Bounds(100, 100, 50, 25));
    auto *other = put<TButton>(&form, Bounds(160, 100, 50, 25));
    label->SetCaption(L"&Go");
    label->SetFocusControl(button);
    form.Show();
    wait_idle();
    other->SetFocus();
    click(label, 2, 2);
    EXPECT_TRUE(button->Focused());
    other->SetFocus();
    press('G', {ssAlt});
    EXPECT_TRUE(button->Focused());
    delete button;
    EXPECT_EQ(label->GetFocusControl(), nullptr);
}
