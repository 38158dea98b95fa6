#include "user_input/user_input.h"

#include "platform/toolkit/controls/edit.h"
#include "platform/toolkit/controls/page_control.h"
#include "platform/toolkit/core/form.h"

#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

using namespace vx::user_input;

namespace {
/// A sheet that counts the windows it was given.
class late_sheet : public TTabSheet
{
public:
    using TTabSheet::TTabSheet;
    int made = 0;

protected:
    void CreateWnd() override
    {
        TTabSheet::CreateWnd();
        ++made;
    }
};

class pages_test : public testing::Test
{
protected:
    pages_test()
    {
        form.SetBounds(20, 20, 400, 300);
        pages = new TPageControl(&form);
        pages->SetParent(&form);
        pages->SetAlign(alClient);
        for (wchar_t const *caption : {L"a", L"b", L"c", L"d"})
            add(caption);
        pages->OnChange = make_closure<&pages_test::on_change>(this);
        pages->OnChanging = make_closure<&pages_test::on_changing>(this);
    }

    late_sheet *add(wchar_t const *caption)
    {
        auto *sheet = new late_sheet(&form);
        sheet->SetCaption(caption);
        sheet->SetPageControl(pages);
        sheets.push_back(sheet);
        return sheet;
    }
    void show()
    {
        form.Show();
        wait_idle();
    }
    std::string active() const
    {
        return pages->GetActivePage() ? pages->GetActivePage()->GetCaption().to_utf8() : "-";
    }
    void on_change(TObject *) { ++changes; }
    void on_changing(TObject *, bool &allow)
    {
        ++questions;
        asked_on = active();
        allow = allowed;
    }

    TForm form{nullptr};
    TPageControl *pages;
    std::vector<late_sheet *> sheets;
    int changes = 0;
    int questions = 0;
    std::string asked_on;
    bool allowed = true;
};
} // namespace

TEST_F(pages_test, hidden_tabs_keep_their_place_and_hand_the_page_on)
{
    struct step
    {
        int sheet;
        bool visible;
        char const *active;
    };
    // The page of the next tab becomes active, else that of the last; with no tab there is none.
    step const steps[] = {{1, false, "a"}, {0, false, "c"}, {3, false, "c"}, {2, false, "-"},
                          {3, true, "d"},  {0, true, "d"},  {1, true, "d"},  {3, false, "b"}};
    show();
    ASSERT_EQ(active(), "a");
    for (step const &s : steps) {
        sheets[static_cast<std::size_t>(s.sheet)]->SetTabVisible(s.visible);
        EXPECT_EQ(active(), s.active) << s.sheet << s.visible;
    }
    EXPECT_EQ(pages->GetPageCount(), 4);
    EXPECT_EQ(sheets[3]->GetPageIndex(), 3);
    EXPECT_EQ(sheets[3]->GetTabIndex(), -1);
    EXPECT_EQ(changes + questions, 0) << "only the user's change is told of";
    ASSERT_TRUE(click_tab(pages, L"a"));
    EXPECT_EQ(active(), "a");
}

TEST_F(pages_test, order_of_pages)
{
    sheets[1]->SetPageControl(pages);
    EXPECT_EQ(sheets[1]->GetPageIndex(), 1) << "a page that is there already keeps its place";
    sheets[3]->SetPageIndex(0);
    EXPECT_EQ(pages->GetPages(0), sheets[3]);
    EXPECT_EQ(active(), "a");
    sheets[0]->SetPageControl(nullptr);
    EXPECT_EQ(active(), "b");
    EXPECT_EQ(sheets[0]->GetParent(), nullptr);
    delete sheets[1];
    EXPECT_EQ(active(), "c");
    EXPECT_EQ(pages->GetPageCount(), 2);
    pages->SetActivePage(sheets[0]);
    EXPECT_EQ(active(), "c") << "a page of nobody cannot become active here";
    pages->SetActivePage(nullptr);
    EXPECT_EQ(active(), "-");
}

TEST_F(pages_test, user_changes_by_mouse_and_keys)
{
    show();
    ASSERT_TRUE(click_tab(pages, 2));
    EXPECT_EQ(active(), "c");
    EXPECT_EQ(asked_on, "a") << "the question comes before the change";
    EXPECT_EQ(changes, 1);
    pages->SetFocus();
    press(VK_LEFT);
    EXPECT_EQ(active(), "b");
    press(VK_TAB, {ssCtrl});
    EXPECT_EQ(active(), "c");
    press(VK_TAB, {ssCtrl, ssShift});
    EXPECT_EQ(active(), "b");
    EXPECT_EQ(changes, 4);

    allowed = false;
    click_tab(pages, 0);
    EXPECT_EQ(active(), "b");
    EXPECT_EQ(changes, 4);
    EXPECT_EQ(questions, 5);
    // A refused tab can be tried again.
    allowed = true;
    click_tab(pages, 0);
    EXPECT_EQ(active(), "a");
}

TEST_F(pages_test, windows_are_made_when_a_page_is_first_shown)
{
    show();
    EXPECT_EQ(sheets[0]->made, 1);
    EXPECT_EQ(sheets[1]->made, 0);
    EXPECT_FALSE(sheets[1]->GetShowing());
    pages->SetActivePage(sheets[1]);
    EXPECT_EQ(sheets[1]->made, 1);
    EXPECT_TRUE(sheets[1]->GetShowing());
    EXPECT_FALSE(sheets[0]->GetShowing());
    pages->SetActivePage(sheets[0]);
    pages->SetActivePage(sheets[1]);
    EXPECT_EQ(sheets[1]->made, 1);
}

TEST_F(pages_test, pages_fill_the_room_below_the_tabs)
{
    auto *edit = new TEdit(&form);
    edit->SetParent(sheets[1]);
    edit->SetAlign(alClient);
    show();
    pages->SetActivePage(sheets[1]);
    TRect const room = pages->GetDisplayRect();
    EXPECT_EQ(sheets[1]->GetBoundsRect(), room);
    EXPECT_GT(room.Top, 10);
    EXPECT_EQ(edit->GetWidth(), room.Width());
    form.SetBounds(20, 20, 500, 400);
    EXPECT_EQ(edit->GetHeight(), pages->GetDisplayRect().Height());
    // The focus does not stay in a page that goes away.
    edit->SetFocus();
    pages->SetActivePage(sheets[0]);
    EXPECT_FALSE(edit->Focused());
}
