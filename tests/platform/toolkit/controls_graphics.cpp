#include "support/temp_dir.h"

#include "platform/toolkit/graphics/bitmap.h"
#include "platform/toolkit/graphics/canvas.h"
#include "platform/toolkit/graphics/image_list.h"
#include "platform/toolkit/graphics/picture.h"

#include <cstdint>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <string>

namespace {
/// The bitmap as rows of characters, one for each colour that the tests use.
std::string picture_of(TBitmap &bitmap)
{
    std::string text;
    for (int y = 0; y < bitmap.GetHeight(); ++y) {
        for (int x = 0; x < bitmap.GetWidth(); ++x) {
            TColor const color = bitmap.GetCanvas()->GetPixel(x, y);
            text += color == clWhite   ? '.'
                    : color == clBlack ? '#'
                    : color == clRed   ? 'r'
                    : color == clBlue  ? 'b'
                                       : '?';
        }
        text += '\n';
    }
    return text;
}

struct counter
{
    int count = 0;
    void on_event(TObject *) { ++count; }
};
} // namespace

TEST(canvas, figures_take_in_left_and_top_but_not_right_and_bottom)
{
    struct figure
    {
        char const *name;
        void (*draw)(TCanvas &);
        char const *expected;
    };
    figure const figures[] = {
        {"line",
         [](TCanvas &c) {
             c.MoveTo(1, 1);
             c.LineTo(5, 1);
             c.LineTo(5, 4);
         },
         "......\n.#####\n.....#\n.....#\n......\n"},
        {"line backwards",
         [](TCanvas &c) {
             c.MoveTo(5, 2);
             c.LineTo(1, 2);
             c.LineTo(1, 0);
         },
         "......\n.#....\n.#####\n......\n......\n"},
        {"rectangle",
         [](TCanvas &c) {
             c.GetBrush()->SetColor(clRed);
             c.Rectangle(1, 1, 5, 4);
         },
         "......\n.####.\n.#rr#.\n.####.\n......\n"},
        {"clear rectangle",
         [](TCanvas &c) {
             c.GetBrush()->SetStyle(bsClear);
             c.Rectangle(0, 0, 6, 5);
         },
         "######\n#....#\n#....#\n#....#\n######\n"},
        {"fill",
         [](TCanvas &c) {
             c.GetBrush()->SetColor(clRed);
             c.FillRect(Rect(1, 1, 3, 3));
         },
         "......\n.rr...\n.rr...\n......\n......\n"},
        {"frame",
         [](TCanvas &c) {
             c.GetBrush()->SetColor(clBlue);
             c.FrameRect(Rect(0, 0, 6, 5));
         },
         "bbbbbb\nb....b\nb....b\nb....b\nbbbbbb\n"},
        {"clip",
         [](TCanvas &c) {
             c.GetBrush()->SetColor(clRed);
             c.SaveState();
             c.IntersectClipRect(Rect(1, 1, 4, 4));
             c.ExcludeClipRect(Rect(2, 2, 3, 3));
             c.FillRect(Rect(0, 0, 6, 5));
             c.RestoreState();
             c.SetPixel(5, 4, clBlue);
         },
         "......\n.rrr..\n.r.r..\n.rrr..\n.....b\n"},
        {"exclusive or twice is nothing",
         [](TCanvas &c) {
             c.GetPen()->SetMode(pmXor);
             c.GetPen()->SetColor(clYellow);
             for (int i = 0; i < 2; ++i) {
                 c.MoveTo(0, 2);
                 c.LineTo(6, 2);
             }
             c.DrawFocusRect(Rect(0, 0, 6, 5));
             c.DrawFocusRect(Rect(0, 0, 6, 5));
         },
         "......\n......\n......\n......\n......\n"},
        {"origin",
         [](TCanvas &c) {
             c.MoveOrigin(2, 1);
             c.GetBrush()->SetColor(clRed);
             c.FillRect(Rect(0, 0, 1, 1));
         },
         "......\n..r...\n......\n......\n......\n"},
    };
    for (figure const &f : figures) {
        TBitmap bitmap(6, 5);
        f.draw(*bitmap.GetCanvas());
        EXPECT_EQ(picture_of(bitmap), f.expected) << f.name;
    }
}

TEST(canvas, text_covers_its_ground_and_measures_itself)
{
    TBitmap bitmap(60, 30);
    TCanvas *canvas = bitmap.GetCanvas();
    canvas->GetBrush()->SetColor(clBlue);
    TSize const extent = canvas->TextExtent(L"ab");
    EXPECT_GT(extent.cx, 0);
    EXPECT_EQ(canvas->TextWidth(L"ab"), extent.cx);
    canvas->TextOut(2, 2, L"  ");
    EXPECT_EQ(canvas->GetPixel(2, 2), clBlue);
    EXPECT_EQ(canvas->GetPixel(1, 2), clWhite);
    EXPECT_EQ(canvas->GetPenPos().X, 2 + canvas->TextWidth(L"  "));
    int const height = canvas->GetFont()->GetHeight();
    canvas->GetFont()->SetHeight(2 * height);
    EXPECT_GT(canvas->TextHeight(L"a"), extent.cy);
    TRect room = Rect(0, 0, 30, 0);
    canvas->TextRect(room, L"some words in several lines", {tfCalcRect, tfWordBreak});
    EXPECT_GT(room.Height(), 2 * canvas->TextHeight(L"a"));
}

TEST(canvas, without_a_target_it_measures_and_draws_nothing)
{
    TCanvas canvas;
    EXPECT_FALSE(canvas.HandleAllocated());
    EXPECT_GT(canvas.TextWidth(L"text"), 0);
    canvas.FillRect(Rect(0, 0, 5, 5));
    canvas.LineTo(3, 3);
    EXPECT_EQ(canvas.GetPixel(0, 0), clNone);
    TBitmap empty;
    empty.GetCanvas()->Rectangle(0, 0, 5, 5);
    EXPECT_TRUE(empty.GetEmpty());
}

TEST(bitmap, keeps_what_fits_and_is_copied_lazily)
{
    TBitmap a;
    a.SetWidth(2);
    EXPECT_TRUE(a.GetEmpty());
    a.SetHeight(2);
    EXPECT_FALSE(a.GetEmpty());
    a.GetCanvas()->SetPixel(1, 1, clRed);
    a.SetSize(3, 2);
    EXPECT_EQ(picture_of(a), "...\n.r.\n");
    TBitmap b;
    b.Assign(&a);
    b.GetCanvas()->SetPixel(0, 0, clBlue);
    EXPECT_EQ(picture_of(a), "...\n.r.\n");
    EXPECT_EQ(picture_of(b), "b..\n.r.\n");
    b.SetSize(2000000000, 2000000000);
    EXPECT_TRUE(b.GetEmpty()) << "no memory for that";
    EXPECT_EQ(b.GetWidth(), 0);
}

TEST(bitmap, pixels_lie_in_memory_as_said)
{
    TBitmap bitmap(2, 2);
    bitmap.GetCanvas()->SetPixel(1, 1, RGB(1, 2, 3));
    auto *row = static_cast<std::uint8_t *>(bitmap.ScanLine(1));
    EXPECT_EQ(row[4], 3);
    EXPECT_EQ(row[5], 2);
    EXPECT_EQ(row[6], 1);
    row[0] = 255;
    row[1] = row[2] = 0;
    EXPECT_EQ(bitmap.GetCanvas()->GetPixel(0, 1), clBlue);
    EXPECT_EQ(bitmap.ScanLine(2), nullptr);
    EXPECT_EQ(bitmap.ScanLine(-1), nullptr);

    bitmap.SetPixelFormat(pf24bit);
    row = static_cast<std::uint8_t *>(bitmap.ScanLine(1));
    EXPECT_EQ(row[3], 3);
    EXPECT_EQ(row[5], 1);
    bitmap.GetCanvas()->SetPixel(0, 0, clRed);
    EXPECT_EQ(bitmap.GetCanvas()->GetPixel(0, 0), clRed);
    bitmap.SetPixelFormat(pf8bit);
    EXPECT_EQ(bitmap.GetPixelFormat(), pf8bit);
    EXPECT_GE(bitmap.GetStride(), 2);
}

TEST(bitmap, transparent_colour_is_not_drawn)
{
    struct mode
    {
        bool transparent;
        TTransparentMode kind;
        char const *expected;
    };
    // The picture: blue with a red corner at the bottom left.
    mode const modes[] = {
        {false, tmAuto, "bb\nrb\n"}, {true, tmAuto, "bb\n.b\n"}, {true, tmFixed, "..\nr.\n"}};
    for (mode const &m : modes) {
        TBitmap picture(2, 2);
        picture.GetCanvas()->GetBrush()->SetColor(clBlue);
        picture.GetCanvas()->FillRect(Rect(0, 0, 2, 2));
        picture.GetCanvas()->SetPixel(0, 1, clRed);
        picture.SetTransparent(m.transparent);
        if (m.kind == tmFixed)
            picture.SetTransparentColor(clBlue);
        TBitmap target(2, 2);
        target.GetCanvas()->Draw(0, 0, &picture);
        EXPECT_EQ(picture_of(target), m.expected);
    }
}

TEST(bitmap, files)
{
    vx_test::temp_dir const dir;
    TBitmap bitmap(3, 2);
    bitmap.GetCanvas()->SetPixel(2, 1, clRed);
    for (wchar_t const *name : {L"/a.png", L"/b.bmp"}) {
        UnicodeString const path = UnicodeString(dir.path().string()) + name;
        ASSERT_TRUE(bitmap.SaveToFile(path));
        TBitmap loaded;
        ASSERT_TRUE(loaded.LoadFromFile(path));
        EXPECT_EQ(picture_of(loaded), picture_of(bitmap));
    }
    std::string const bad = (dir.path() / "bad.png").string();
    std::ofstream(bad) << "no picture";
    EXPECT_FALSE(bitmap.LoadFromFile(bad));
    EXPECT_FALSE(bitmap.LoadFromFile((dir.path() / "none.png").string()));
    EXPECT_EQ(bitmap.GetWidth(), 3) << "a file that cannot be read changes nothing";
    EXPECT_FALSE(bitmap.SaveToFile(bad + ".nosuchformat"));
    EXPECT_FALSE(bitmap.LoadFromMemory(nullptr, 5));
    EXPECT_FALSE(bitmap.LoadFromMemory("junk", 4));
}

TEST(graphics, changes_are_told_once)
{
    counter c;
    TFont font;
    font.OnChange = make_closure<&counter::on_event>(&c);
    font.SetSize(20);
    font.SetSize(20);
    font.SetStyle({fsBold});
    font.SetColor(clRed);
    EXPECT_EQ(c.count, 3);
    EXPECT_EQ(font.GetHeight(), -27) << "20 points at 96 pixels to the inch";
    TFont copy;
    copy.OnChange = make_closure<&counter::on_event>(&c);
    copy.Assign(&font);
    copy.Assign(&font);
    EXPECT_EQ(c.count, 4);
    EXPECT_TRUE(copy.Equals(font));
    TPen pen;
    pen.Assign(&font);
    EXPECT_EQ(pen.GetWidth(), 1);

    TPicture picture;
    counter changes;
    picture.OnChange = make_closure<&counter::on_event>(&changes);
    picture.GetBitmap()->SetSize(4, 4);
    EXPECT_EQ(changes.count, 1);
    picture.GetBitmap()->GetCanvas()->SetPixel(0, 0, clRed);
    EXPECT_EQ(changes.count, 2) << "drawing changes the picture";
}

TEST(image_list, cuts_masks_and_replaces)
{
    TImageList list(nullptr, 2, 2);
    TBitmap strip(4, 2);
    strip.GetCanvas()->GetBrush()->SetColor(clBlue);
    strip.GetCanvas()->FillRect(Rect(0, 0, 4, 2));
    strip.GetCanvas()->SetPixel(3, 0, clRed);
    EXPECT_EQ(list.AddMasked(&strip, clBlue), 0);
    EXPECT_EQ(list.GetCount(), 2);
    TBitmap target(4, 2);
    list.Draw(target.GetCanvas(), 1, 0, 1);
    list.Draw(target.GetCanvas(), 0, 0, 7);
    EXPECT_EQ(picture_of(target), "..r.\n....\n");

    TBitmap black(2, 2);
    black.GetCanvas()->GetBrush()->SetColor(clBlack);
    black.GetCanvas()->FillRect(Rect(0, 0, 2, 2));
    list.Replace(0, &strip, &black);
    list.Insert(0, &black, nullptr);
    EXPECT_EQ(list.GetCount(), 3);
    TBitmap got;
    ASSERT_TRUE(list.GetBitmap(0, &got));
    EXPECT_EQ(picture_of(got), "##\n##\n");
    EXPECT_FALSE(list.GetBitmap(3, &got));
    EXPECT_EQ(list.Add(nullptr, nullptr), -1);

    counter c;
    list.RegisterChanges(make_closure<&counter::on_event>(&c));
    list.BeginUpdate();
    list.Delete(0);
    list.Delete(0);
    list.EndUpdate();
    EXPECT_EQ(c.count, 1);
    list.SetWidth(8);
    EXPECT_EQ(list.GetCount(), 0);
    list.UnRegisterChanges(make_closure<&counter::on_event>(&c));
    list.Add(&strip, nullptr);
    EXPECT_EQ(c.count, 2);
}
