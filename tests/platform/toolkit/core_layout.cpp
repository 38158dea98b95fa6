#include "core_fixture.h"

#include <gtest/gtest.h>
#include <map>

namespace {
/// One aligned child: name, side, place and size given by the program.
struct child_row
{
    char const *name;
    TAlign align;
    TRect bounds;
    bool visible = true;
};

/// A plain area of 200 by 100 without bevels, filled by rows.
class layout_box
{
public:
    explicit layout_box(std::vector<child_row> const &rows, bool window_first = false)
    {
        form.SetBounds(0, 0, 400, 300);
        box.SetParent(&form);
        box.SetBevelOuter(bvNone);
        box.SetBounds(0, 0, 200, 100);
        if (window_first)
            box.HandleNeeded();
        for (child_row const &row : rows) {
            auto *const child = new TPanel(&form);
            child->SetVisible(row.visible);
            child->SetBoundsRect(row.bounds);
            child->SetParent(&box);
            child->SetAlign(row.align);
            children[row.name] = child;
        }
    }
    [[nodiscard]] std::string at(char const *name) const
    {
        return text_of(children.at(name)->GetBoundsRect());
    }

    TForm form{nullptr};
    TPanel box{nullptr};
    std::map<std::string, TPanel *> children;
};
} // namespace

TEST(core_layout, sides_take_their_slices_in_order)
{
    struct expected
    {
        char const *name;
        char const *bounds;
    };
    struct row
    {
        char const *what;
        std::vector<child_row> children;
        std::vector<expected> places;
    };
    row const rows[] = {
        {"every side at once, whatever the order of making",
         {{"client", alClient, Bounds(0, 0, 9, 9)},
          {"right", alRight, Bounds(0, 0, 30, 9)},
          {"left", alLeft, Bounds(0, 0, 20, 9)},
          {"bottom", alBottom, Bounds(0, 0, 9, 15)},
          {"top", alTop, Bounds(0, 0, 9, 10)}},
         {{"top", "0,0,200,10"},
          {"bottom", "0,85,200,15"},
          {"left", "0,10,20,75"},
          {"right", "170,10,30,75"},
          {"client", "20,10,150,75"}}},
        {"several at the top stand by their places",
         {{"a", alTop, Bounds(0, 50, 9, 10)},
          {"b", alTop, Bounds(0, 5, 9, 20)},
          {"c", alTop, Bounds(0, 70, 9, 5)}},
         {{"b", "0,0,200,20"}, {"a", "0,20,200,10"}, {"c", "0,30,200,5"}}},
        {"without places they follow the order of making",
         {{"a", alTop, Bounds(0, 0, 9, 10)},
          {"b", alTop, Bounds(0, 0, 9, 20)},
          {"c", alLeft, Bounds(0, 0, 7, 5)},
          {"d", alLeft, Bounds(0, 0, 8, 5)}},
         {{"a", "0,0,200,10"}, {"b", "0,10,200,20"}, {"c", "0,30,7,70"}, {"d", "7,30,8,70"}}},
        {"at the bottom the lowest edge is lowest",
         {{"low", alBottom, Bounds(0, 80, 9, 10)}, {"high", alBottom, Bounds(0, 40, 9, 10)}},
         {{"low", "0,90,200,10"}, {"high", "0,80,200,10"}}},
        {"a hidden one takes no room",
         {{"a", alTop, Bounds(0, 0, 9, 10), false}, {"b", alClient, Bounds(0, 0, 9, 20)}},
         {{"a", "0,0,9,10"}, {"b", "0,0,200,100"}}},
        {"no room left gives the client an empty size",
         {{"a", alLeft, Bounds(0, 0, 150, 9)},
          {"b", alRight, Bounds(0, 0, 80, 9)},
          {"c", alClient, Bounds(0, 0, 9, 9)}},
         {{"a", "0,0,150,100"}, {"b", "120,0,80,100"}, {"c", "150,0,0,100"}}},
    };
    for (row const &r : rows) {
        SCOPED_TRACE(r.what);
        layout_box box(r.children);
        for (expected const &e : r.places)
            EXPECT_EQ(box.at(e.name), e.bounds) << e.name;
    }
}

TEST(core_layout, a_bar_put_into_a_window_goes_ahead_of_its_equals)
{
    layout_box box({{"a", alTop, Bounds(0, 0, 9, 10)}, {"b", alTop, Bounds(0, 0, 9, 20)}}, true);
    EXPECT_EQ(box.at("b"), "0,0,200,20");
    EXPECT_EQ(box.at("a"), "0,20,200,10");
    auto *const low = new TPanel(&box.form);
    low->SetBounds(0, 90, 5, 12);
    low->SetParent(&box.box);
    low->SetAlign(alTop);
    EXPECT_EQ(text_of(low->GetBoundsRect()), "0,30,200,12");
}

TEST(core_layout, visible_realigns_the_parent)
{
    layout_box box({{"top", alTop, Bounds(0, 0, 9, 10)}, {"client", alClient, Bounds(0, 0, 9, 9)}});
    box.children["top"]->SetVisible(false);
    EXPECT_EQ(box.at("client"), "0,0,200,100");
    box.children["top"]->SetVisible(true);
    EXPECT_EQ(box.at("client"), "0,10,200,90");
    box.children["top"]->SetHeight(30);
    EXPECT_EQ(box.at("client"), "0,30,200,70");
    box.children["top"]->SetAlign(alLeft);
    EXPECT_EQ(box.at("top"), "0,0,30,100") << "a bar that is turned keeps its thickness";
    box.children["top"]->SetParent(nullptr);
    EXPECT_EQ(box.at("client"), "0,0,200,100");
    box.box.SetBounds(0, 0, 120, 60);
    EXPECT_EQ(box.at("client"), "0,0,120,60");
    delete box.children["top"];
}

TEST(core_layout, margins_padding_and_borders)
{
    layout_box box({{"top", alTop, Bounds(0, 0, 9, 10)}, {"client", alClient, Bounds(0, 0, 9, 9)}});
    box.children["top"]->GetMargins()->SetBounds(1, 2, 3, 4);
    EXPECT_EQ(box.at("top"), "0,0,200,10") << "margins count only when they are asked for";
    box.children["top"]->SetAlignWithMargins(true);
    EXPECT_EQ(box.at("top"), "1,2,196,10");
    EXPECT_EQ(box.at("client"), "0,16,200,84");
    box.box.GetPadding()->SetBounds(5, 6, 7, 8);
    EXPECT_EQ(box.at("client"), "5,22,188,70");
    box.box.SetBevelOuter(bvRaised);
    box.box.SetBorderWidth(2);
    EXPECT_EQ(box.at("client"), "8,25,182,64");
}

TEST(core_layout, anchors_keep_distances)
{
    struct row
    {
        char const *what;
        TAnchors anchors;
        char const *after_growth; // the box grows by 100 by 50
    };
    row const rows[] = {
        {"left top", {akLeft, akTop}, "20,10,40,30"},
        {"right bottom", {akRight, akBottom}, "120,60,40,30"},
        {"left right", {akLeft, akTop, akRight}, "20,10,140,30"},
        {"all", {akLeft, akTop, akRight, akBottom}, "20,10,140,80"},
        {"neither keeps its share", {}, "40,22,40,30"},
    };
    for (row const &r : rows) {
        SCOPED_TRACE(r.what);
        layout_box box({{"a", alNone, Bounds(20, 10, 40, 30)}});
        box.children["a"]->SetAnchors(r.anchors);
        box.box.SetBounds(0, 0, 300, 150);
        EXPECT_EQ(box.at("a"), r.after_growth);
        box.box.SetBounds(0, 0, 200, 100);
        EXPECT_EQ(box.at("a"), "20,10,40,30") << "there and back is the same";
    }
}

TEST(core_layout, anchors_count_from_the_last_place_given)
{
    layout_box box({{"a", alNone, Bounds(20, 10, 40, 30)}});
    TPanel &a = *box.children["a"];
    a.SetAnchors({akRight, akTop});
    box.box.SetWidth(300);
    a.SetLeft(200);
    box.box.SetWidth(310);
    EXPECT_EQ(box.at("a"), "210,10,40,30");
    EXPECT_EQ(a.GetAlign(), alNone);
    a.SetAlign(alClient);
    EXPECT_EQ(a.GetAnchors(), (TAnchors{akRight, akTop})) << "anchors of one's own stay";
}

TEST(core_layout, constraints_hold_for_program_and_layout)
{
    layout_box box({{"client", alClient, Bounds(0, 0, 9, 9)}});
    TPanel &client = *box.children["client"];
    client.GetConstraints()->SetMaxWidth(150);
    client.GetConstraints()->SetMinHeight(120);
    EXPECT_EQ(box.at("client"), "0,0,150,120");
    client.SetAlign(alRight);
    EXPECT_EQ(box.at("client"), "50,0,150,120");
    client.SetAlign(alNone);
    client.SetBounds(5, 5, 500, 1);
    EXPECT_EQ(box.at("client"), "5,5,150,120");
}

TEST(core_layout, auto_size_takes_the_room_of_the_children)
{
    layout_box box({{"a", alTop, Bounds(0, 0, 9, 10)}, {"b", alTop, Bounds(0, 0, 9, 25)}});
    box.box.SetAutoSize(true);
    EXPECT_EQ(text_of(box.box.GetBoundsRect()), "0,0,200,35")
        << "bars at the top say nothing about the width";
    box.children["b"]->SetVisible(false);
    EXPECT_EQ(box.box.GetHeight(), 10);
    box.children["b"]->SetVisible(true);
    box.children["b"]->SetHeight(40);
    EXPECT_EQ(box.box.GetHeight(), 50);

    layout_box loose({{"a", alNone, Bounds(10, 5, 50, 20)}, {"b", alNone, Bounds(30, 40, 60, 15)}});
    loose.box.SetAutoSize(true);
    EXPECT_EQ(text_of(loose.box.GetBoundsRect()), "0,0,90,55");
}

TEST(core_layout, a_bracket_of_changes_aligns_once)
{
    layout_box box({{"client", alClient, Bounds(0, 0, 9, 9)}});
    auto *const probe = new probe_control(&box.form, &box.box, "probe");
    probe->SetAlign(alTop);
    int const before = probe->resized;
    box.box.DisableAlign();
    box.box.SetWidth(150);
    box.box.SetWidth(160);
    box.box.SetWidth(170);
    EXPECT_EQ(probe->resized, before);
    box.box.EnableAlign();
    EXPECT_EQ(probe->resized, before + 1);
    EXPECT_EQ(probe->GetWidth(), 170);
}

namespace {
/// A handler that works against the layout: each time the client is resized it moves the bar's border.
struct fidget
{
    TPanel *bar;
    int runs = 0;
    void on_resize(TObject *)
    {
        ++runs;
        bar->SetHeight(bar->GetHeight() == 10 ? 11 : 10);
    }
};
} // namespace

TEST(core_layout, handlers_that_change_the_layout_come_to_an_end)
{
    layout_box box({{"top", alTop, Bounds(0, 0, 9, 10)}, {"client", alClient, Bounds(0, 0, 9, 9)}});
    fidget f{box.children["top"]};
    box.children["client"]->OnResize = make_closure<&fidget::on_resize>(&f);
    box.box.SetHeight(90);
    EXPECT_GE(f.runs, 1);
    EXPECT_LE(f.runs, 16);
}

TEST(core_layout, resize_is_told_once_for_each_new_size)
{
    TForm form(nullptr);
    form.SetBounds(0, 0, 300, 200);
    probe_control probe(nullptr, &form, "probe");
    int const before = probe.resized;
    probe.SetBounds(5, 5, 60, 30);
    EXPECT_EQ(probe.resized, before + 1);
    probe.SetBounds(9, 9, 60, 30);
    EXPECT_EQ(probe.resized, before + 1) << "a move is no new size";
    form.Show();
    vx::user_input::wait_idle();
    EXPECT_EQ(probe.resized, before + 1) << "showing is none either";
    probe.SetParent(nullptr);
}
