#include "controls/dock/dock_tool_form.h"
#include "controls/dock/mdi_child_form.h"
#include "host/gallery/gallery_page.h"

#include "platform/basic/vx_options.h"
#include "platform/basic/vx_wstrings_obj.h"
#include "platform/toolkit/controls/button.h"
#include "platform/toolkit/controls/label.h"
#include "platform/toolkit/controls/memo.h"
#include "platform/toolkit/controls/speed_button.h"
#include "platform/toolkit/core/strings.h"
#include "platform/toolkit/graphics/canvas.h"

#include <cstring>

// Documents that dock: into each other, by way of a window that joins them, and into a tool window.

namespace {
wchar_t const *text(wchar_t const *english, wchar_t const *russian)
{
    return std::strcmp(vx_options_get_language(), "ru") == 0 ? russian : english;
}

/// A document with a strip to drag it by and lines below, to which the names of dropped files are added.
class document final : public Tvx_mdi_child_form
{
public:
    document(TComponent *owner, int number) : Tvx_mdi_child_form(owner)
    {
        SetCaption(UnicodeString(text(L"Document ", L"Документ ")) + UnicodeString(number));
        int const row = (number - 1) / 2;
        SetBounds(20 + 300 * ((number - 1) % 2) + 20 * row, 16 + 26 * row, 280, 200);
        auto *const lines = new TMemo(this);
        lines->SetParent(this);
        lines->GetMargins()->SetBounds(0, c_strip, 0, 0);
        lines->SetAlignWithMargins(true);
        lines->SetAlign(alClient);
        lines->SetAccessibleName(GetCaption());
        auto *const close = new TSpeedButton(this);
        close->SetParent(this);
        close->SetCaption(L"\u00d7");
        close->SetAccessibleName(text(L"Close", L"Закрыть"));
        close->SetAnchors(TAnchors{akTop, akRight});
        close->SetBounds(GetClientWidth() - c_inset - c_close, c_inset - 2, c_close, c_close);
        close->OnClick = make_closure<&document::on_close_click>(this);
        f_lines = lines->GetLines();
        f_lines->Add(text(L"Files can be dropped here.", L"Сюда можно бросать файлы."));
        parse_drop_files(true);
        Show();
    }
    void drop_files(Tvx_wstrings_obj const &names) override
    {
        for (unsigned i = 0; i < names.get_size(); ++i)
            f_lines->Add(names.get_str(i));
    }

protected:
    void Paint() override
    {
        Tvx_mdi_child_form::Paint();
        TCanvas &canvas = *GetCanvas();
        canvas.SetFont(GetFont());
        canvas.GetBrush()->SetStyle(bsClear);
        canvas.TextOut(c_inset, c_inset, GetCaption() + text(L": drag here", L": тащите здесь"));
    }

private:
    static constexpr int c_strip = 24;
    static constexpr int c_inset = 8;
    static constexpr int c_close = 18;

    void on_close_click(TObject *) { Close(); }

    TStrings *f_lines = nullptr;
};

/// What stands on the page. The windows come when they are asked for.
class dock_page final : public TComponent
{
public:
    explicit dock_page(TWinControl *page) : TComponent(page)
    {
        auto *const hint = new TLabel(page);
        hint->SetParent(page);
        hint->SetAutoSize(false);
        hint->SetWordWrap(true);
        hint->SetCaption(text(
            L"Drag a document by its strip onto a fifth at the edge of another, and one window joins the "
            L"two. "
            L"Drag one by its strip out of that again, or onto the bottom of the tool window.",
            L"Перетащите документ за полосу на пятую часть у края другого: их соединит одно окно. За полосу "
            L"же "
            L"его вытаскивают обратно или бросают на нижний край окна инструментов."));
        hint->SetBounds(16, 52, 640, 60);
        add_button(page, 16, text(L"Documents", L"Документы"))->OnClick =
            make_closure<&dock_page::on_documents_click>(this);
        add_button(page, 174, text(L"New document", L"Новый документ"))->OnClick =
            make_closure<&dock_page::on_new_click>(this);
        add_button(page, 332, text(L"Tool window", L"Окно инструментов"))->OnClick =
            make_closure<&dock_page::on_tools_click>(this);
    }

private:
    static TButton *add_button(TWinControl *page, int left, wchar_t const *caption)
    {
        auto *const button = new TButton(page);
        button->SetParent(page);
        button->SetCaption(caption);
        button->SetBounds(left, 14, 150, 26);
        return button;
    }
    void on_documents_click(TObject *)
    {
        bool const first = !f_frame;
        if (first) {
            f_frame = new TForm(this);
            f_frame->SetCaption(text(L"Documents", L"Документы"));
            f_frame->SetBounds(120, 120, 720, 460);
            f_frame->SetPosition(poDesigned);
            f_frame->SetFormStyle(fsMDIForm);
        }
        f_frame->Show();
        if (first)
            for (int i = 0; i < 2; ++i)
                on_new_click(nullptr);
    }
    void on_new_click(TObject *)
    {
        if (!f_frame)
            return on_documents_click(nullptr);
        f_frame->Show();
        new document(f_frame, ++f_count);
    }
    void on_tools_click(TObject *)
    {
        on_documents_click(nullptr);
        if (!f_tools) {
            f_tools = new Tvx_dock_tool_form(f_frame);
            f_tools->SetCaption(text(L"Tool window", L"Окно инструментов"));
            f_tools->SetBounds(0, 0, 240, 300);
        }
        f_tools->show_pos(f_frame->GetLeft() + f_frame->GetWidth() + 10, f_frame->GetTop());
    }

    TForm *f_frame = nullptr;
    Tvx_dock_tool_form *f_tools = nullptr;
    int f_count = 0;
};

void fill(TWinControl *page)
{
    new dock_page(page);
}

gallery_page const g_page(78, L"Docking", &fill);
} // namespace
