// A host with an extension that was built against the installation: its tabs show, and what they edit is the
// layer that Apply hands out.
#include "controls/forms/apply_form.h"
#include "controls/forms/pages.h"
#include "exports/vxk_lr2d_edit_form_api.h"
#include "layer_edit/vxk_lr2d_edit.h"
#include "user_input/user_input.h"

#include "platform/basic/vx_bundle.h"
#include "platform/layers/vx_shp_lr2d.h"
#include "platform/styles/vxk_styles.h"

#include <cstdio>
#include <cstdlib>
#include <string>

namespace {
void check(bool ok, char const *what)
{
    if (ok)
        return;
    std::fprintf(stderr, "%s\n", what);
    std::exit(1);
}
std::wstring wide(std::string const &text)
{
    return std::wstring(text.begin(), text.end());
}
/// The first control of a kind that shows, below one.
template <class T>
T *find(TWinControl *below)
{
    for (int i = 0; i < below->GetControlCount(); ++i) {
        auto *const child = dynamic_cast<TWinControl *>(below->GetControls(i));
        if (!child || !child->GetShowing())
            continue;
        if (auto *const found = dynamic_cast<T *>(child))
            return found;
        if (auto *const found = find<T>(child))
            return found;
    }
    return nullptr;
}
} // namespace

int main(int argc, char **argv)
{
    check(argc == 3, "usage: extension FOLDER FILE");
    vx_bundles_add_directory(wide(argv[1]).c_str());
    Ivx_layer *const layer = vx_shp_lr2d_open(wide(argv[2]).c_str(), nullptr);
    check(layer != nullptr, "layer");
    auto *const form = new Tvx_apply_form(nullptr);
    Tvx_lr2d_edit_form *const record = vx_lr2d_edt_form_create_hosted(form);
    vx_lr2d_edt_form_create_all(record);
    vx_lr2d_edt_form_set_lr2d(record, layer);
    vx_lr2d_edt_form_update(record);
    vx_lr2d_edt_form_show(record);
    vx::user_input::wait_idle();

    auto *const pages = find<Tvx_page_control>(form);
    check(pages != nullptr, "pages");
    TTabSheet *styles = nullptr;
    int shown = 0;
    for (int i = 0; i < pages->GetPageCount(); ++i) {
        auto *const page = pages->GetPages(i);
        std::wstring const name = page->GetName().c_str();
        bool const is_own = name == L"layer_desk" || name.starts_with(L"_");
        check(!is_own || page->GetTabVisible(), "a tab of the extension is hidden");
        shown += is_own;
        if (name.starts_with(L"_StyleEditor_"))
            styles = page;
    }
    check(shown == 5 && styles, "the extension has five tabs");
    check(vx::user_input::click_tab(pages, styles->GetTabIndex()), "its tab opens");
    auto *const edit = find<Tvx_stl_mngr_edit>(styles);
    check(edit != nullptr, "its styles show");
    check(vx::user_input::choose_item(edit->get_mode_edit()->get_combo_box(), 1), "the mode is chosen");
    check(vx_stl_mngr_get_mode(vx_shp_lr2d_get_stl_mngr_ptr(vx_lr2d_edt_form_get_lr2d_ptr(record))) == 1,
          "what the tab edits is the working copy");
    vx_lr2d_edt_form_destroy(record);
    delete form;
    vx_lr2d_destroy(layer);
    std::puts("extension: ok");
    return 0;
}
