#include "style_manager/scales/rule_import_menu.h"

#include "captions/scale_menus.h"
#include "scale_engine/rule/rule_scale_build_ranges.h"
#include "scale_engine/rule/rule_scale_build_values.h"

#include "platform/base/string_adp.h"
#include "platform/basic/vx_res.h"
#include "platform/styles/vx_stl_mngr.h"
#include "platform/toolkit/core/screen.h"

#include <string>

namespace {
enum : TTag
{
    c_import_value = 1,
    c_import_range,
};

bool has_field(void const *mngr, void (*get)(void const *, Ivx_string_adp *))
{
    std::wstring name;
    Tvx_std_wstring_adapter adapter(name);
    if (mngr)
        get(mngr, adapter);
    return !name.empty();
}
} // namespace

void Tvx_rule_import_menu::create()
{
    auto const click = make_closure<&Tvx_rule_import_menu::on_item_click>(this);
    f_values = add_item(nullptr, L"Import value", c_import_value, click);
    f_ranges = add_item(nullptr, L"Import range", c_import_range, click);
}

void Tvx_rule_import_menu::load_res()
{
    f_values->SetCaption(vx_res_get_wstr(c_menu_import_values));
    f_ranges->SetCaption(vx_res_get_wstr(c_menu_import_ranges));
}

void Tvx_rule_import_menu::update_controls()
{
    f_values->SetEnabled(has_field(get_stl_mngr(), &vx_stl_mngr_get_val_prop_name_w));
    f_ranges->SetEnabled(has_field(get_stl_mngr(), &vx_stl_mngr_get_rng_prop_name_w));
}

void Tvx_rule_import_menu::on_item_click(TObject *sender)
{
    if (!get_stl_mngr())
        return;
    auto *const build = static_cast<TMenuItem *>(sender)->GetTag() == c_import_value
                            ? &vx::task::rule_scale_build_values::build
                            : &vx::task::rule_scale_build_ranges::build;
    bool built = false;
    {
        vx_wait_cursor const waiting;
        built = build(get_stl_mngr());
    }
    if (built)
        call_changed();
}
