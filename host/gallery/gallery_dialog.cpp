#include "host/gallery/gallery_dialog.h"

#include "host/gallery/gallery_page.h"

#include "platform/toolkit/controls/button.h"

#include <algorithm>

namespace {
std::vector<gallery_dialog const *> &dialogs()
{
    static std::vector<gallery_dialog const *> list;
    return list;
}

/// A button that opens its dialog.
class dialog_button final : public TButton
{
public:
    dialog_button(TComponent *owner, gallery_dialog const &dialog) : TButton(owner), f_dialog(dialog)
    {
        SetCaption(dialog.caption());
        OnClick = make_closure<&dialog_button::on_self_click>(this);
    }

private:
    void on_self_click(TObject *) { f_dialog.open(); }

    gallery_dialog const &f_dialog;
};

void fill_page(TWinControl *page)
{
    constexpr int c_rows = 14;
    int i = 0;
    for (auto const *dialog : gallery_dialog::all()) {
        auto *button = new dialog_button(page, *dialog);
        button->SetParent(page);
        button->SetBounds(16 + i / c_rows * 216, 12 + i % c_rows * 28, 200, 26);
        ++i;
    }
}

gallery_page const g_page(900, L"Dialogs", fill_page);
} // namespace

gallery_dialog::gallery_dialog(int order, wchar_t const *caption, void (*open)())
    : f_order(order), f_caption(caption), f_open(open)
{
    auto &list = dialogs();
    list.insert(std::upper_bound(list.begin(), list.end(), this,
                                 [](auto const *a, auto const *b) { return a->f_order < b->f_order; }),
                this);
}

std::vector<gallery_dialog const *> const &gallery_dialog::all()
{
    return dialogs();
}
