#include "host/gallery/gallery_form.h"

#include "host/gallery/gallery_page.h"

#include "platform/toolkit/controls/bevel.h"
#include "platform/toolkit/controls/button.h"
#include "platform/toolkit/controls/category_panel_group.h"
#include "platform/toolkit/controls/check_list_box.h"
#include "platform/toolkit/controls/combo_box.h"
#include "platform/toolkit/controls/edit.h"
#include "platform/toolkit/controls/gauge.h"
#include "platform/toolkit/controls/grid_panel.h"
#include "platform/toolkit/controls/group_box.h"
#include "platform/toolkit/controls/image.h"
#include "platform/toolkit/controls/label.h"
#include "platform/toolkit/controls/list_box.h"
#include "platform/toolkit/controls/list_view.h"
#include "platform/toolkit/controls/memo.h"
#include "platform/toolkit/controls/page_control.h"
#include "platform/toolkit/controls/paint_box.h"
#include "platform/toolkit/controls/panel.h"
#include "platform/toolkit/controls/progress_bar.h"
#include "platform/toolkit/controls/radio_button.h"
#include "platform/toolkit/controls/radio_group.h"
#include "platform/toolkit/controls/rich_edit.h"
#include "platform/toolkit/controls/scroll_box.h"
#include "platform/toolkit/controls/shape.h"
#include "platform/toolkit/controls/speed_button.h"
#include "platform/toolkit/controls/spin_edit.h"
#include "platform/toolkit/controls/splitter.h"
#include "platform/toolkit/controls/status_bar.h"
#include "platform/toolkit/controls/tool_bar.h"
#include "platform/toolkit/controls/track_bar.h"
#include "platform/toolkit/controls/tree_view.h"
#include "platform/toolkit/controls/up_down.h"
#include "platform/toolkit/core/action.h"
#include "platform/toolkit/core/application.h"
#include "platform/toolkit/core/strings.h"
#include "platform/toolkit/graphics/bitmap.h"
#include "platform/toolkit/graphics/canvas.h"
#include "platform/toolkit/graphics/image_list.h"
#include "platform/toolkit/graphics/picture.h"
#include "platform/toolkit/grids/draw_grid.h"
#include "platform/toolkit/grids/string_grid.h"
#include "platform/toolkit/menus/menu.h"

namespace {
constexpr int c_picture_size = 16;

/// A little coloured picture with an edge, on a ground that is left out.
void draw_picture(TBitmap &bitmap, TColor color)
{
    bitmap.SetSize(c_picture_size, c_picture_size);
    TCanvas *canvas = bitmap.GetCanvas();
    canvas->GetBrush()->SetColor(clFuchsia);
    canvas->FillRect(Rect(0, 0, c_picture_size, c_picture_size));
    canvas->GetBrush()->SetColor(color);
    canvas->Ellipse(2, 2, 14, 14);
    bitmap.SetTransparentColor(clFuchsia);
    bitmap.SetTransparent(true);
}

/// Puts a new control at a place of its parent, which owns it.
template <class T>
T *put(TWinControl *parent, int left, int top, int width, int height, wchar_t const *caption = nullptr)
{
    auto *control = new T(parent);
    control->SetParent(parent);
    if (caption)
        control->SetCaption(caption);
    control->SetBounds(left, top, width, height);
    return control;
}

/// The same for a control that no caption names.
template <class T>
T *named(wchar_t const *name, TWinControl *parent, int left, int top, int width, int height)
{
    T *control = put<T>(parent, left, top, width, height);
    control->SetAccessibleName(name);
    return control;
}

void fill(TStrings *items)
{
    for (wchar_t const *text : {L"Rivers", L"Roads", L"Settlements", L"Forest", L"Relief", L"Grid"})
        items->Add(text);
}

void draw_item(TCanvas *canvas, TRect const &rect, int index, UnicodeString const &text)
{
    TColor const colors[] = {clBlue, clRed, clTeal, clGreen, clOlive, clGray};
    TRect swatch = Rect(rect.Left + 2, rect.Top + 3, rect.Left + 18, rect.Bottom - 3);
    canvas->TextOut(rect.Left + 24, (rect.Top + rect.Bottom - canvas->TextHeight(text)) / 2, text);
    canvas->GetBrush()->SetColor(colors[index % 6]);
    canvas->Rectangle(swatch);
}
} // namespace

gallery_form::gallery_form() : TForm(nullptr)
{
    SetCaption(L"Controls");
    SetBounds(60, 60, 860, 560);
    SetPosition(poDesigned);
    make_commands();
    f_pages = new TPageControl(this);
    f_pages->SetParent(this);
    f_pages->SetAlign(alClient);
    make_buttons(add_page(L"Buttons"));
    make_edits(add_page(L"Edits"));
    make_lists(add_page(L"Lists"));
    make_ranges(add_page(L"Ranges"));
    make_layout(add_page(L"Layout"));
    make_drawing(add_page(L"Drawing"));
    make_grids(add_page(L"Grids"));
    for (gallery_page const *page : gallery_page::all())
        page->fill(add_page(page->caption()));
}

TTabSheet *gallery_form::add_page(wchar_t const *caption)
{
    auto *sheet = new TTabSheet(this);
    sheet->SetCaption(caption);
    sheet->SetPageControl(f_pages);
    return sheet;
}

void gallery_form::make_commands()
{
    f_images = new TImageList(this);
    for (TColor color : {clRed, clGreen, clBlue, clYellow}) {
        TBitmap picture;
        draw_picture(picture, color);
        f_images->AddMasked(&picture, clFuchsia);
    }
    auto *actions = new TActionList(this);
    actions->SetImages(f_images);
    struct command
    {
        wchar_t const *caption;
        Word key;
    };
    command const commands[] = {{L"&Open", 'O'}, {L"&Save", 'S'}, {L"&Copy", 'C'}, {L"&Paste", 'V'}};
    auto *menu = new TMainMenu(this);
    auto *file = new TMenuItem(this);
    file->SetCaption(L"&File");
    menu->GetItems()->Add(file);
    auto *bar = new TToolBar(this);
    bar->SetParent(this);
    bar->SetImages(f_images);
    int image = 0;
    for (command const &c : commands) {
        auto *action = new TAction(this);
        action->SetActionList(actions);
        action->SetCaption(c.caption);
        action->SetImageIndex(image++);
        action->SetShortCut(ShortCut(c.key, {ssCtrl}));
        action->OnExecute = make_closure<&gallery_form::on_execute>(this);
        auto *item = new TMenuItem(this);
        item->SetAction(action);
        file->Add(item);
        auto *button = new TToolButton(this);
        button->SetParent(bar);
        button->SetAction(action);
    }
    auto *divider = new TToolButton(this);
    divider->SetStyle(tbsDivider);
    divider->SetParent(bar);
    auto *check = new TToolButton(this);
    check->SetParent(bar);
    check->SetStyle(tbsCheck);
    check->SetImageIndex(3);
    check->SetHint(L"Stays down");
    check->SetDown(true);
    f_popup = new TPopupMenu(this);
    for (wchar_t const *caption : {L"First", L"-", L"Second"}) {
        auto *item = new TMenuItem(this);
        item->SetCaption(caption);
        f_popup->GetItems()->Add(item);
    }
    auto *drop = new TToolButton(this);
    drop->SetParent(bar);
    drop->SetStyle(tbsDropDown);
    drop->SetImageIndex(0);
    drop->SetHint(L"Opens a menu");
    drop->SetDropdownMenu(f_popup);

    f_status = new TStatusBar(this);
    f_status->SetParent(this);
    f_status->AddPanel(120, L"Ready");
    f_status->AddPanel(0, L"Every control once");
}

void gallery_form::make_buttons(TWinControl *page)
{
    put<TButton>(page, 16, 16, 90, 25, L"&Button");
    auto *by_default = put<TButton>(page, 116, 16, 90, 25, L"&Default");
    by_default->SetDefault(true);
    put<TButton>(page, 216, 16, 90, 25, L"Disabled")->SetEnabled(false);
    auto *bit = put<TBitBtn>(page, 316, 16, 100, 25, L"&Glyph");
    draw_picture(*bit->GetGlyph(), clGreen);
    for (int i = 0; i < 3; ++i) {
        auto *speed = put<TSpeedButton>(page, 16 + 30 * i, 56, 28, 28);
        draw_picture(*speed->GetGlyph(), i == 0 ? clRed : i == 1 ? clLime : clAqua);
        speed->SetGroupIndex(1);
        speed->SetDown(i == 1);
        speed->SetHint(UnicodeString(L"One of three: ") + UnicodeString(i + 1));
    }
    auto *flat = put<TSpeedButton>(page, 116, 56, 90, 28, L"Flat");
    flat->SetFlat(true);
    draw_picture(*flat->GetGlyph(), clBlue);
    put<TCheckBox>(page, 16, 100, 120, 20, L"&Check box")->SetChecked(true);
    auto *grey = put<TCheckBox>(page, 146, 100, 120, 20, L"Greyed");
    grey->SetAllowGrayed(true);
    grey->SetState(cbGrayed);
    put<TRadioButton>(page, 16, 126, 120, 20, L"Radio one")->SetChecked(true);
    put<TRadioButton>(page, 146, 126, 120, 20, L"Radio two");
    auto *group = put<TRadioGroup>(page, 16, 160, 260, 110, L"Radio group");
    fill(group->GetItems());
    group->SetColumns(2);
    group->SetItemIndex(2);
    auto *box = put<TGroupBox>(page, 296, 100, 200, 80, L"Group box");
    auto *label = put<TLabel>(box, 12, 30, 100, 17, L"A label inside");
    label->SetLayout(tlCenter);
    put<TLabel>(page, 296, 200, 100, 17, L"Right click me")->SetPopupMenu(f_popup);
    auto *wrapped = put<TLabel>(page, 296, 230, 180, 60);
    wrapped->SetAutoSize(false);
    wrapped->SetBounds(296, 230, 180, 60);
    wrapped->SetWordWrap(true);
    wrapped->SetAlignment(taCenter);
    wrapped->SetCaption(L"A longer text that goes on in the next lines of the same label");
}

void gallery_form::make_edits(TWinControl *page)
{
    auto *label = put<TLabel>(page, 16, 19, 80, 17, L"&Edit:");
    auto *edit = put<TEdit>(page, 110, 16, 150, 24);
    edit->SetText(L"Some text");
    label->SetFocusControl(edit);
    auto *hint = named<TEdit>(L"With a hint", page, 280, 16, 150, 24);
    hint->SetTextHint(L"type here");
    auto *secret = named<TEdit>(L"Password", page, 450, 16, 150, 24);
    secret->SetText(L"secret");
    secret->SetPasswordChar(L'*');
    auto *spin_label = put<TLabel>(page, 16, 53, 80, 17, L"&Spin edit:");
    auto *spin = put<TSpinEdit>(page, 110, 50, 80, 24);
    spin_label->SetFocusControl(spin);
    spin->SetMaxValue(100);
    spin->SetValue(42);
    auto *number = named<TEdit>(L"With arrows", page, 280, 50, 60, 24);
    auto *arrows = put<TUpDown>(page, 340, 50, 17, 24);
    arrows->SetAssociate(number);
    arrows->SetPosition(7);
    auto *combo_label = put<TLabel>(page, 16, 87, 80, 17, L"C&ombo boxes:");
    TComboBoxStyle const styles[] = {csDropDown, csDropDownList, csOwnerDrawFixed};
    for (int i = 0; i < 3; ++i) {
        auto *combo = named<TComboBox>(L"Combo box", page, 110 + 170 * i, 84, 150, 24);
        if (i == 0)
            combo_label->SetFocusControl(combo);
        combo->SetStyle(styles[i]);
        fill(combo->GetItems());
        combo->SetItemIndex(i);
        if (styles[i] == csOwnerDrawFixed)
            combo->OnDrawItem = make_closure<&gallery_form::on_draw_combo>(this);
    }
    auto *memo = named<TMemo>(L"Memo", page, 16, 124, 260, 150);
    memo->SetScrollBars(ssVertical);
    memo->SetText(L"A memo of several lines.\nSecond line.\nThird line.");
    auto *rich = named<TRichEdit>(L"Rich text", page, 296, 124, 300, 150);
    rich->SetText(L"Rich text");
    rich->SelectAll();
    rich->GetSelAttributes()->SetStyle({fsBold});
    rich->GetSelAttributes()->SetColor(clNavy);
    rich->SetSelStart(0);
    auto *read_only = named<TEdit>(L"Read only", page, 16, 290, 260, 24);
    read_only->SetReadOnly(true);
    read_only->SetText(L"read only");
    auto *off = named<TEdit>(L"Disabled", page, 296, 290, 300, 24);
    off->SetText(L"disabled");
    off->SetEnabled(false);
}

void gallery_form::make_lists(TWinControl *page)
{
    auto *list = named<TListBox>(L"List", page, 16, 16, 150, 150);
    fill(list->GetItems());
    list->SetItemIndex(1);
    auto *checks = named<TCheckListBox>(L"List with check marks", page, 182, 16, 150, 150);
    fill(checks->GetItems());
    checks->SetChecked(0, true);
    checks->SetState(2, cbGrayed);
    checks->SetItemEnabled(3, false);
    auto *drawn = named<TListBox>(L"List drawn by the program", page, 348, 16, 150, 150);
    drawn->SetStyle(lbOwnerDrawFixed);
    drawn->SetItemHeight(22);
    fill(drawn->GetItems());
    drawn->SetItemIndex(2);
    drawn->OnDrawItem = make_closure<&gallery_form::on_draw_list>(this);
    auto *view = named<TListView>(L"Layers", page, 16, 182, 316, 160);
    view->SetSmallImages(f_images);
    view->AddColumn(L"Layer", 150);
    view->AddColumn(L"Objects", 100);
    for (int i = 0; i < 4; ++i) {
        TListItem *item = view->GetItems()->Add();
        item->SetCaption(UnicodeString(L"Layer ") + UnicodeString(i + 1));
        item->GetSubItems()->Add(UnicodeString(120 * (i + 1)));
        item->SetImageIndex(i);
    }
    view->SetItemIndex(0);
    auto *tree = named<TTreeView>(L"Tree", page, 348, 182, 200, 160);
    tree->SetImages(f_images);
    for (wchar_t const *caption : {L"Vector", L"Raster"}) {
        TTreeNode *node = tree->GetItems()->AddChild(nullptr, caption);
        node->SetImageIndex(1);
        for (wchar_t const *below : {L"first", L"second"})
            tree->GetItems()->AddChild(node, below)->SetImageIndex(2);
    }
    tree->FullExpand();
    tree->SetSelected(tree->GetItems()->GetRoot(1));
}

void gallery_form::make_ranges(TWinControl *page)
{
    auto *track = named<TTrackBar>(L"Slider", page, 16, 16, 250, 45);
    track->SetPosition(4);
    auto *upright = named<TTrackBar>(L"Upright slider", page, 290, 16, 45, 150);
    upright->SetOrientation(trVertical);
    upright->SetBounds(290, 16, 45, 150);
    upright->SetPosition(2);
    put<TProgressBar>(page, 16, 76, 250, 18)->SetPosition(60);
    put<TGauge>(page, 16, 106, 250, 22)->SetProgress(35);
    auto *gauge = put<TGauge>(page, 360, 16, 30, 150);
    gauge->SetKind(gkVerticalBar);
    gauge->SetProgress(70);
    gauge->SetForeColor(clTeal);
}

void gallery_form::make_layout(TWinControl *page)
{
    auto *group = put<TCategoryPanelGroup>(page, 0, 0, 180, 100);
    group->SetAlign(alLeft);
    for (wchar_t const *caption : {L"Appearance", L"Data", L"Labels"}) {
        TCategoryPanel *panel = group->CreatePanel(caption);
        panel->SetHeight(90);
        put<TCheckBox>(panel, 12, 32, 120, 20, L"Visible");
    }
    group->GetPanels(1)->SetCollapsed(true);
    auto *splitter = named<TSplitter>(L"Splitter", page, 181, 0, 5, 100);
    splitter->SetAlign(alLeft);
    // Bars at the top come before those at the left: they go into what the left ones leave.
    auto *rest = put<TPanel>(page, 190, 0, 300, 300);
    rest->SetBevelOuter(bvNone);
    rest->SetAlign(alClient);
    page = rest;
    auto *scroll = put<TScrollBox>(page, 0, 0, 100, 130);
    scroll->SetAlign(alTop);
    for (int i = 0; i < 8; ++i)
        put<TButton>(scroll, 10 + 110 * i, 10 + 30 * (i % 4), 100, 25, L"In a scroll box");
    auto *grid = put<TGridPanel>(page, 0, 140, 100, 110);
    grid->SetAlign(alTop);
    grid->SetColumnCount(3);
    for (int i = 0; i < 6; ++i)
        put<TButton>(grid, 0, 0, 50, 25, L"Cell")->SetAlign(alClient);
    auto *panel = put<TPanel>(page, 0, 260, 100, 60, L"Panel");
    panel->SetAlign(alTop);
    panel->SetBevelInner(bvLowered);
    panel->SetBorderWidth(3);
    auto *bevel = put<TBevel>(page, 0, 330, 100, 10);
    bevel->SetAlign(alTop);
    bevel->SetShape(bsTopLine);
}

void gallery_form::make_drawing(TWinControl *page)
{
    TShapeType const shapes[] = {stRectangle, stRoundRect, stEllipse, stCircle};
    for (int i = 0; i < 4; ++i) {
        auto *shape = put<TShape>(page, 16 + 90 * i, 16, 80, 60);
        shape->SetShape(shapes[i]);
        shape->GetBrush()->SetColor(i % 2 ? clYellow : clSilver);
        shape->GetPen()->SetWidth(i + 1);
    }
    TBevelShape const bevels[] = {bsBox, bsFrame, bsTopLine, bsLeftLine};
    for (int i = 0; i < 4; ++i)
        put<TBevel>(page, 16 + 90 * i, 90, 80, 40)->SetShape(bevels[i]);
    auto *image = put<TImage>(page, 16, 150, 100, 100);
    draw_picture(*image->GetPicture()->GetBitmap(), clMaroon);
    image->SetTransparent(true);
    image->SetStretch(true);
    put<TPaintBox>(page, 140, 150, 300, 160)->OnPaint = make_closure<&gallery_form::on_paint>(this);
}

void gallery_form::make_grids(TWinControl *page)
{
    auto *grid = named<TStringGrid>(L"Grid", page, 16, 16, 400, 180);
    for (int row = 0; row < grid->GetRowCount(); ++row)
        for (int col = 0; col < grid->GetColCount(); ++col)
            grid->SetCells(col, row, UnicodeString(row) + L":" + UnicodeString(col));
}

void gallery_form::on_execute(TObject *sender)
{
    f_status->SetPanelText(0, static_cast<TAction *>(sender)->GetCaption());
}

void gallery_form::on_draw_combo(TWinControl *control, int index, TRect const &rect, TOwnerDrawState const &)
{
    auto *combo = static_cast<TComboBox *>(control);
    draw_item(combo->GetCanvas(), rect, index, combo->GetItems()->GetStrings(index));
}

void gallery_form::on_draw_list(TWinControl *control, int index, TRect const &rect, TOwnerDrawState const &)
{
    auto *list = static_cast<TListBox *>(control);
    draw_item(list->GetCanvas(), rect, index, list->GetItems()->GetStrings(index));
}

void gallery_form::on_paint(TObject *sender)
{
    TCanvas *canvas = static_cast<TPaintBox *>(sender)->GetCanvas();
    canvas->GetBrush()->SetColor(clWhite);
    canvas->Rectangle(0, 0, 300, 160);
    canvas->GetPen()->SetColor(clBlue);
    for (int i = 0; i < 10; ++i) {
        canvas->MoveTo(10, 10 + 10 * i);
        canvas->LineTo(100, 100 - 10 * i);
    }
    canvas->GetBrush()->SetColor(clLime);
    TPoint const triangle[] = {{120, 90}, {160, 20}, {200, 90}};
    canvas->Polygon(triangle);
    canvas->GetBrush()->SetStyle(bsDiagCross);
    canvas->Ellipse(210, 20, 290, 90);
    canvas->GetBrush()->SetStyle(bsClear);
    canvas->GetFont()->SetStyle({fsBold});
    canvas->TextOut(12, 110, L"Drawn by the program");
    DrawFrameControl(canvas, Rect(12, 132, 28, 148), fcCheckBox, {fsChecked});
    DrawFrameControl(canvas, Rect(40, 130, 120, 152), fcButton, {});
    DrawEdge(canvas, Rect(130, 130, 200, 152), esEtched);
    canvas->DrawFocusRect(Rect(210, 130, 290, 152));
}
