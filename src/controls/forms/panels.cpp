#include "controls/forms/panels.h"

namespace {
void set_enabled_below(TWinControl &parent, bool enabled)
{
    for (int i = 0; i < parent.GetControlCount(); ++i) {
        auto *control = dynamic_cast<TWinControl *>(parent.GetControls(i));
        if (!control)
            continue;
        control->SetEnabled(enabled);
        set_enabled_below(*control, enabled);
    }
}
} // namespace

Tvx_panel::Tvx_panel(TComponent *owner) : TCustomPanel(owner, bvNone, 200, 26)
{
}

Tvx_vcl_panel::Tvx_vcl_panel(TComponent *owner) : TCustomPanel(owner, bvNone, 200, 22)
{
}

void Tvx_children_enabled_panel::set_enabled(bool enabled)
{
    for (int i = 0; i < GetControlCount(); ++i) {
        GetControls(i)->SetEnabled(enabled);
        if (auto *control = dynamic_cast<TWinControl *>(GetControls(i)))
            set_enabled_below(*control, enabled);
    }
}

Tvx_line_separator::Tvx_line_separator(TComponent *owner) : TCustomPanel(owner, bvLowered, 200, 2)
{
}
