#include "dialogs_fixture.h"
#include "support/memory_source.h"

#include "platform/base/owned.h"
#include "platform/calculator/vx_calc_filter.h"
#include "platform/data/vx_attr_data.h"
#include "platform/dialogs/vx_dlgs.h"
#include "platform/toolkit/controls/button.h"
#include "platform/toolkit/controls/check_box.h"
#include "platform/toolkit/controls/combo_box.h"
#include "platform/toolkit/controls/label.h"
#include "platform/toolkit/core/strings.h"

#include <cstdlib>
#include <functional>

namespace {
using owned_filter = vx::owned<void, &vx_calc_filter_destroy>;
using owned_data = vx::owned<Ivx_attr_data, &vx_attr_data_release>;

/// The dialog over a table of towns.
class filter_dialog : public dialogs_test
{
protected:
    filter_dialog()
    {
        towns.fields = {{L"NAME", 1}, {L"AREA", 2}, {L"KIND", 3}};
        auto const add = [this](wchar_t const *name, vx_test::cell area, int kind) {
            towns.features.push_back({{std::wstring(name), area, kind}, 1, {{{0, 0}}}});
        };
        add(L"Ashe", 10.5, 1);
        add(L"Bertie", 9.0, 2);
        add(L"ashby", 100.0, 1);
        add(L"Camden", std::monostate(), 2);
        add(L"Ångermunde", 2.0, 1);
    }
    /// The text of the filter after the dialog; `act` works it.
    std::wstring run(std::wstring const &text, std::function<void(TCustomForm *)> act, bool data = true,
                     bool accepted = true)
    {
        owned_data const table(data ? vx_attr_data_create(L"towns:") : nullptr);
        owned_filter const filter(vx_calc_filter_create());
        EXPECT_TRUE(vx_calc_filter_from_str(filter.get(), text.c_str()));
        on_next_modal([&](modal_window const &w) {
            act(w.form());
            if (char const *const directory = std::getenv("VX_SHOTS"))
                (void)w.save_shot(UnicodeString(directory) + L"/filter_" + std::to_wstring(++shots).c_str() +
                                  L".png");
            EXPECT_TRUE(w.press_button(accepted ? L"OK" : L"Cancel"));
        });
        EXPECT_EQ(vx_attr_filter_dialog(filter.get(), vx_attr_data_safe_upcast(table.get())), accepted);
        std::wstring result;
        vx_calc_filter_to_str(filter.get(), Tvx_std_wstring_adapter(result));
        return result;
    }
    /// The n-th control of this kind and name that shows, from 0.
    template <class T>
    static T *nth(TWinControl *parent, wchar_t const *name, int n)
    {
        T *result = nullptr;
        std::function<void(TWinControl *)> const look = [&](TWinControl *in) {
            for (int i = 0; i < in->GetControlCount() && !result; ++i) {
                auto *const control = in->GetControls(i);
                auto *const right = dynamic_cast<T *>(control);
                if (right && right->GetShowing() && control->GetAccessibleName() == name && n-- == 0)
                    result = right;
                else if (auto *const inner = dynamic_cast<TWinControl *>(control))
                    look(inner);
            }
        };
        look(parent);
        return result;
    }
    static TComboBox *box(TCustomForm *form, wchar_t const *name, int n)
    {
        return nth<TComboBox>(form, name, n);
    }
    /// Whether a label of the window says this, once counting is over.
    static bool says(TCustomForm *form, wchar_t const *text)
    {
        return wait_until([&] {
            for (int i = 0; i < form->GetControlCount(); ++i)
                if (auto *const label = dynamic_cast<TLabel *>(form->GetControls(i));
                    label && label->GetText() == text)
                    return true;
            return false;
        });
    }

    vx_test::memory_table towns;
    vx_test::memory_driver driver{L"towns:", towns};
    int shots = 0;
};
} // namespace

TEST_F(filter_dialog, makes_a_filter_and_counts_what_it_selects)
{
    auto const made = run(L"", [](TCustomForm *form) {
        ASSERT_TRUE(choose_item(box(form, L"Field", 0), L"AREA"));
        ASSERT_TRUE(choose_item(box(form, L"Relation", 0), L"is at most"));
        // What the data hold, by their size; an object without a value offers none.
        ASSERT_TRUE(choose_item(box(form, L"Value", 0), 2));
        EXPECT_EQ(box(form, L"Value", 0)->GetText(), L"10.5");
        EXPECT_EQ(box(form, L"Value", 0)->GetItems()->GetCount(), 4);
        EXPECT_TRUE(says(form, L"3 of 5 objects match."));
        ASSERT_TRUE(click(find<TButton>(form, L"Add a condition")));
        EXPECT_EQ(box(form, L"Field", 1)->GetText(), L"AREA");
        ASSERT_TRUE(choose_item(box(form, L"Field", 1), L"NAME"));
        ASSERT_TRUE(choose_item(box(form, L"Relation", 1), L"begins with"));
        ASSERT_TRUE(enter_text(box(form, L"Value", 1), L"ash"));
        EXPECT_TRUE(says(form, L"0 of 5 objects match."));
        ASSERT_TRUE(click(nth<TCheckBox>(form, L"Match case", 1)));
        EXPECT_TRUE(says(form, L"1 of 5 objects match."));
        ASSERT_TRUE(choose_item(box(form, L"Joined by", 0), L"or"));
        EXPECT_TRUE(says(form, L"4 of 5 objects match."));
        EXPECT_TRUE(says(form, L"AREA <= 10.5 | NAME BEGINS WITH \"ash\""));
        ASSERT_TRUE(click(find<TButton>(form, L"Add a condition")));
        ASSERT_TRUE(choose_item(box(form, L"Relation", 2), L"has no value"));
        EXPECT_FALSE(box(form, L"Value", 2)->GetEnabled());
        ASSERT_TRUE(click(nth<TCheckBox>(form, L"In force", 2)));
        EXPECT_TRUE(says(form, L"4 of 5 objects match."));
    });
    EXPECT_EQ(made,
              L"\"AREA\" LESS EQUAL \"10.5\" OR \"NAME\" BEGINS WITH NOCASE \"ash\" AND OFF \"NAME\" NULL");
}

TEST_F(filter_dialog, gives_back_what_it_was_not_asked_to_change)
{
    std::wstring const text =
        L"OFF \"AREA\" GREATER \"1\" AND \"GONE\" IS CLOSE NOCASE \"a \"\"b\"\"\" \"KIND\" "
        L"EQUAL \"2\" OR \"NAME\" NOT NULL";
    EXPECT_EQ(
        run(text, [](TCustomForm *form) { EXPECT_TRUE(says(form, L"The table has no field \"GONE\".")); }),
        text);
    EXPECT_EQ(run(
                  text, [](TCustomForm *form) { click(nth<TButton>(form, L"Remove the condition", 0)); },
                  true, false),
              text);
    // A condition takes along what joins it to the one before.
    EXPECT_EQ(
        run(text, [](TCustomForm *form) { click(nth<TButton>(form, L"Remove the condition", 2)); }),
        L"OFF \"AREA\" GREATER \"1\" AND \"GONE\" IS CLOSE NOCASE \"a \"\"b\"\"\" OR \"NAME\" NOT NULL");
    EXPECT_EQ(run(L"\"KIND\" EQUAL \"2\"",
                  [](TCustomForm *form) {
                      click(nth<TButton>(form, L"Remove the condition", 0));
                      EXPECT_TRUE(says(form, L"Without a condition in force no object matches."));
                  }),
              L"");
    // More conditions than a person could read.
    std::wstring many;
    for (int i = 0; i < 5000; ++i)
        many += std::wstring(i ? L" OR " : L"") + L"\"KIND\" EQUAL \"" + std::to_wstring(i) + L"\"";
    EXPECT_EQ(run(many,
                  [](TCustomForm *form) {
                      EXPECT_TRUE(says(form, L"4900 more conditions are kept as they are."));
                  }),
              many);
}

TEST_F(filter_dialog, says_what_may_be_wrong)
{
    run(L"\"AREA\" LESS \"12,5\"", [](TCustomForm *form) {
        EXPECT_TRUE(says(form, L"\"12,5\" is no number: it is compared as text."));
    });
    // Without data names are typed, and a condition needs one.
    EXPECT_EQ(run(
                  L"",
                  [](TCustomForm *form) {
                      EXPECT_TRUE(
                          says(form, L"The attributes cannot be read: fields and values have to be typed."));
                      EXPECT_FALSE(find<TButton>(form, L"OK")->GetEnabled());
                      ASSERT_TRUE(enter_text(box(form, L"Field", 0), L"KIND"));
                      ASSERT_TRUE(enter_text(box(form, L"Value", 0), L"2"));
                  },
                  false),
              L"\"KIND\" EQUAL \"2\"");
}

TEST_F(filter_dialog, offers_no_more_values_than_one_can_look_through)
{
    for (int i = 0; i < 3000; ++i)
        towns.features.push_back({{L"Town " + std::to_wstring(i), double(i), i}, 1, {{{0, 0}}}});
    run(L"\"NAME\" EQUAL \"town 29\"", [](TCustomForm *form) {
        ASSERT_TRUE(choose_item(box(form, L"Value", 0), 1));
        EXPECT_EQ(box(form, L"Value", 0)->GetText(), L"Town 290");
        EXPECT_EQ(box(form, L"Value", 0)->GetItems()->GetCount(), 1 + 10 + 100);
        EXPECT_TRUE(says(form, L"1 of 3005 objects match."));
    });
}
