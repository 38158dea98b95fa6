#include "controls/numeric/edit_keys_priv.h"

#include "platform/toolkit/controls/button.h"
#include "platform/toolkit/core/form.h"

namespace vx::edit_keys {
namespace {
TCustomButton *default_button(TWinControl const &parent)
{
    for (int i = 0; i < parent.GetControlCount(); ++i) {
        auto *const control = dynamic_cast<TWinControl *>(parent.GetControls(i));
        if (!control || !control->GetVisible() || !control->GetEnabled())
            continue;
        auto *const button = dynamic_cast<TCustomButton *>(control);
        if (button && button->GetDefault())
            return button;
        if (TCustomButton *const below = default_button(*control))
            return below;
    }
    return nullptr;
}
} // namespace

void press_default_button(TWinControl &edit)
{
    TCustomForm const *const form = GetParentForm(&edit);
    if (TCustomButton *const button = form ? default_button(*form) : nullptr)
        button->Click();
}
} // namespace vx::edit_keys
