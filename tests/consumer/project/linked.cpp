// A host that links the library, works on a form of its own and presses Apply.
#include "controls/forms/apply_form.h"
#include "exports/vxk_lr2d_edit_form_api.h"
#include "layer_edit/vxk_lr2d_edit.h"
#include "user_input/user_input.h"

#include "platform/layers/vx_shp_lr2d.h"

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
} // namespace

int main(int argc, char **argv)
{
    check(argc == 2, "usage: linked FILE");
    std::string const file = argv[1];
    Ivx_layer *const layer =
        vx_shp_lr2d_create("shp_pgn_lr2d", std::wstring(file.begin(), file.end()).c_str());
    check(layer != nullptr, "layer");

    int applied = 0;
    auto *const form = new Tvx_apply_form(nullptr);
    form->SetCaption(L"Mine");
    Tvx_lr2d_edit_form *const record = vx_lr2d_edt_form_create_hosted(form);
    vx_lr2d_edt_form_create_all(record);
    vx_lr2d_edt_form_set_callback(record, &applied, [](void *data) { ++*static_cast<int *>(data); });
    vx_lr2d_edt_form_set_lr2d(record, layer);
    vx_lr2d_edt_form_update(record);
    vx_lr2d_edt_form_show(record);
    check(vx_lr2d_edt_form_get_showing(record), "showing");
    check(form->GetCaption() == L"Mine", "a host's form keeps its title");
    vx::user_input::click(form->get_apply_btn());
    check(applied == 1, "Apply runs the callback once");
    vx_lr2d_edt_form_destroy(record);
    check(form->GetShowing(), "a host's form outlives the record");
    delete form;
    vx_lr2d_destroy(layer);
    std::puts("linked: ok");
    return 0;
}
