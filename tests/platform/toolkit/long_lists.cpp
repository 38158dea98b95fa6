#include "user_input/user_input.h"

#include "platform/toolkit/controls/check_list_box.h"
#include "platform/toolkit/core/form.h"
#include "platform/toolkit/core/key_codes.h"
#include "platform/toolkit/core/strings.h"

#include <gtest/gtest.h>
#include <string>
#include <utility>

namespace input = vx::user_input;

namespace {
constexpr int c_many = 100'000;

class long_list : public testing::Test
{
protected:
    template <class List>
    List *shown()
    {
        auto *const list = new List(&form);
        list->SetParent(&form);
        list->SetBounds(10, 10, 200, 150);
        list->OnClick = make_closure<&long_list::on_click>(this);
        form.Show();
        input::wait_idle();
        return list;
    }

public:
    void on_click(TObject *) { ++clicks; }
    void on_data(TWinControl *, int index, UnicodeString &text)
    {
        ++asked;
        text = L"line " + UnicodeString(index);
    }

protected:
    TForm form{nullptr};
    int clicks = 0;
    int asked = 0;
};
} // namespace

TEST_F(long_list, a_virtual_one_asks_for_what_is_seen)
{
    auto *const list = shown<TListBox>();
    list->SetStyle(lbVirtual);
    list->OnData = make_closure<&long_list::on_data>(this);
    list->SetCount(c_many);
    input::wait_idle();
    EXPECT_LT(asked, 5000) << "not one question for each line";
    EXPECT_EQ(list->GetItems()->GetCount(), c_many);
    EXPECT_EQ(list->GetItems()->GetStrings(c_many - 1), L"line 99999");
    EXPECT_THROW(static_cast<void>(list->GetItems()->GetStrings(c_many)), std::out_of_range);
    EXPECT_THROW(list->GetItems()->Add(L"own"), std::logic_error);
    ASSERT_TRUE(input::click_item(list, 2));
    EXPECT_EQ(list->GetItemIndex(), 2);
    EXPECT_EQ(clicks, 1);
    ASSERT_TRUE(input::press(VK_END));
    EXPECT_EQ(list->GetItemIndex(), c_many - 1);
    EXPECT_GT(list->GetTopIndex(), c_many - 20);
    list->SetCount(3);
    EXPECT_EQ(list->GetItemIndex(), -1);
    EXPECT_TRUE(list->ItemRect(3).IsEmpty());
    EXPECT_GT(list->ItemRect(2).Width(), 0);
}

TEST_F(long_list, lines_that_are_added_together_are_there_at_once)
{
    auto *const list = shown<TCheckListBox>();
    auto *const items = list->GetItems();
    items->Add(L"first");
    list->SetItemIndex(0);
    items->BeginUpdate();
    for (int i = 1; i < 100; ++i)
        items->AddObject(UnicodeString(i), &form);
    EXPECT_EQ(items->GetCount(), 100);
    EXPECT_EQ(items->GetStrings(99), L"99");
    EXPECT_EQ(items->IndexOfObject(&form), 1);
    list->SetChecked(50, true);
    list->SetItemEnabled(60, false);
    items->Insert(1, L"between");
    items->Delete(0);
    EXPECT_EQ(list->GetItemIndex(), -1);
    list->SetItemIndex(99);
    items->Add(L"last");
    items->EndUpdate();
    EXPECT_EQ(list->GetItemIndex(), 99);
    EXPECT_TRUE(list->GetChecked(50));
    EXPECT_FALSE(list->GetItemEnabled(60));
    EXPECT_EQ(items->GetStrings(100), L"last");
    list->SetTopIndex(0);
    ASSERT_TRUE(input::click_item_check(list, 1));
    EXPECT_TRUE(list->GetChecked(1));
    ASSERT_TRUE(input::press(VK_HOME));
    EXPECT_EQ(list->GetItemIndex(), 0);
}
