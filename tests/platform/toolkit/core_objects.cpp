#include "core_fixture.h"

#include "platform/toolkit/core/list.h"
#include "platform/toolkit/core/strings.h"

#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <stdexcept>

namespace {
/// Keeps a pointer to another component and clears it when told.
class keeper final : public TComponent
{
public:
    using TComponent::TComponent;
    TComponent *kept = nullptr;

protected:
    void Notification(TComponent *component, TOperation operation) override
    {
        TComponent::Notification(component, operation);
        if (operation == opRemove && component == kept)
            kept = nullptr;
    }
};
} // namespace

TEST(core_component, owner_frees_and_early_end_leaves_it)
{
    event_log log;
    {
        TComponent owner(nullptr);
        auto *const a = new probe_control(&owner, nullptr, "a", &log);
        new probe_control(&owner, nullptr, "b", &log);
        EXPECT_EQ(owner.GetComponentCount(), 2);
        EXPECT_EQ(owner.FindComponent(L"B"), owner.GetComponents(1));
        delete a;
        EXPECT_EQ(owner.GetComponentCount(), 1);
        EXPECT_EQ(owner.GetComponents(1), nullptr);
    }
    EXPECT_EQ(log, (event_log{"a freed", "b freed"}));
}

// Owner and parent both free; whoever comes first, each control ends once and nothing dangles.
TEST(core_component, each_control_ends_once_in_every_order)
{
    struct row
    {
        char const *name;
        std::function<void(TForm *owner, TPanel *parent, probe_control *child)> act;
        bool child_first;
    };
    row const rows[] = {
        {"the owner goes", [](TForm *owner, TPanel *parent, probe_control *) { delete owner, delete parent; },
         false},
        {"the parent goes",
         [](TForm *owner, TPanel *parent, probe_control *) { delete parent, delete owner; }, false},
        {"the child goes",
         [](TForm *owner, TPanel *parent, probe_control *child) {
             delete child, delete parent, delete owner;
         },
         true},
        {"the child leaves",
         [](TForm *owner, TPanel *parent, probe_control *child) {
             child->SetParent(nullptr);
             delete parent, delete owner;
         },
         false},
    };
    for (row const &r : rows) {
        SCOPED_TRACE(r.name);
        event_log log;
        auto *const owner = new TForm(nullptr);
        auto *const parent = new TPanel(nullptr);
        auto *const child = new probe_control(owner, parent, "child", &log);
        r.act(owner, parent, child);
        EXPECT_EQ(log, event_log{"child freed"});
    }
}

TEST(core_component, free_notification_works_from_both_sides)
{
    auto watcher = std::make_unique<keeper>(nullptr);
    auto other = std::make_unique<TComponent>(nullptr);
    watcher->kept = other.get();
    other->FreeNotification(watcher.get());
    other.reset();
    EXPECT_EQ(watcher->kept, nullptr);

    other = std::make_unique<TComponent>(nullptr);
    other->FreeNotification(watcher.get());
    watcher.reset();
    other.reset();
}

TEST(core_component, a_control_cannot_stand_in_itself)
{
    TPanel outer(nullptr);
    TPanel inner(nullptr);
    inner.SetParent(&outer);
    EXPECT_THROW(outer.SetParent(&inner), std::invalid_argument);
    EXPECT_THROW(outer.SetParent(&outer), std::invalid_argument);
    EXPECT_EQ(outer.GetParent(), nullptr);
}

TEST(core_list, component_list_follows_the_life_of_its_items)
{
    TComponentList owning;
    event_log log;
    auto *const a = new probe_control(nullptr, nullptr, "a", &log);
    auto *const b = new probe_control(nullptr, nullptr, "b", &log);
    auto *const c = new probe_control(nullptr, nullptr, "c", &log);
    owning.Add(a);
    owning.Add(b);
    owning.Add(c);
    delete b;
    EXPECT_EQ(owning.GetCount(), 2);
    EXPECT_EQ(owning.IndexOf(c), 1);
    EXPECT_EQ(owning.Extract(a), a);
    EXPECT_EQ(log, event_log{"b freed"});
    owning.Clear();
    EXPECT_EQ(log, (event_log{"b freed", "c freed"}));
    delete a;
    EXPECT_THROW((void)owning[0], std::out_of_range);
}

TEST(core_strings, text_is_cut_at_line_ends)
{
    struct row
    {
        wchar_t const *text;
        std::vector<UnicodeString> lines;
    };
    row const rows[] = {
        {L"", {}},
        {L"a", {L"a"}},
        {L"a\n", {L"a"}},
        {L"a\r\n\r\nb", {L"a", L"", L"b"}},
        {L"\n\n", {L"", L""}},
    };
    for (row const &r : rows) {
        TStringList list;
        list.SetText(r.text);
        ASSERT_EQ(list.GetCount(), static_cast<int>(r.lines.size())) << UnicodeString(r.text).to_utf8();
        for (int i = 0; i < list.GetCount(); ++i)
            EXPECT_EQ(list[i], r.lines[static_cast<std::size_t>(i)]);
        TStringList again;
        again.SetText(list.GetText());
        EXPECT_EQ(again.GetText(), list.GetText());
    }
}

TEST(core_strings, sorted_list_keeps_order_and_duplicates_rule)
{
    TStringList list;
    list.SetSorted(true);
    EXPECT_EQ(list.Add(L"Ж"), 0);
    EXPECT_EQ(list.Add(L"b"), 0);
    EXPECT_EQ(list.Add(L"A"), 0);
    EXPECT_EQ(list.Add(L"B"), 1) << "the same text without regard to case";
    EXPECT_EQ(list.GetCount(), 3);
    EXPECT_EQ(list.IndexOf(L"ж"), 2);
    EXPECT_THROW(list.Insert(0, L"x"), std::logic_error);
    list.SetDuplicates(dupError);
    EXPECT_THROW(list.Add(L"a"), std::invalid_argument);
    list.SetDuplicates(dupAccept);
    list.Add(L"a");
    EXPECT_EQ(list.GetCount(), 4);
}

namespace {
struct counter
{
    int count = 0;
    void on_change(TObject *) { ++count; }
};
} // namespace

TEST(core_strings, one_report_for_a_bracket_of_changes)
{
    counter changes;
    TStringList list;
    list.OnChange = make_closure<&counter::on_change>(&changes);
    list.Add(L"a");
    EXPECT_EQ(changes.count, 1);
    list.BeginUpdate();
    list.Add(L"b");
    list.BeginUpdate();
    list.Delete(0);
    list.EndUpdate();
    list.EndUpdate();
    EXPECT_EQ(changes.count, 2);
    list.Clear();
    list.Clear();
    EXPECT_EQ(changes.count, 3) << "an empty list does not change when it is cleared";
}
