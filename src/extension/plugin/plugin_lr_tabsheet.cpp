#include "extension/plugin/plugin_lr_tabsheet.h"

#include "platform/toolkit/core/application.h"

#include <utility>

namespace {
void commit(void *sheet)
{
    auto *const self = static_cast<Tvx_plugin_lr_tabsheet *>(sheet);
    self->on_commit(self);
}

void focus(void *sheet)
{
    auto *const self = static_cast<Tvx_plugin_lr_tabsheet *>(sheet);
    self->on_focus(self);
}
} // namespace

Tvx_plugin_lr_tabsheet::Tvx_plugin_lr_tabsheet(TComponent *owner, Tvx_style_edit_plugin *plugin)
    : TTabSheet(owner), f_plugin(plugin)
{
    SetCaption(plugin->get_caption());
    f_edit = plugin->create(Application->GetHandle(), &commit, &focus, this);
    if (f_edit && !f_edit->has_instance())
        Tvx_plugin_style_edit::destroy(std::exchange(f_edit, nullptr));
}

Tvx_plugin_lr_tabsheet::~Tvx_plugin_lr_tabsheet()
{
    Tvx_plugin_style_edit::destroy(std::exchange(f_edit, nullptr));
}

void Tvx_plugin_lr_tabsheet::update_controls()
{
    if (f_edit)
        f_edit->update();
}

bool Tvx_plugin_lr_tabsheet::supports(void *style_manager) const
{
    return f_edit && f_edit->supports(style_manager);
}

void Tvx_plugin_lr_tabsheet::attach(void *style_manager, Tvx_plugin_style_edit::data_function get_data,
                                    void *data)
{
    if (f_edit)
        f_edit->attach(style_manager, get_data, data);
}

void Tvx_plugin_lr_tabsheet::CreateWnd()
{
    TTabSheet::CreateWnd();
    if (!f_edit)
        return;
    f_edit->set_parent(GetHandle());
    place();
}

void Tvx_plugin_lr_tabsheet::DestroyWnd()
{
    if (f_edit)
        f_edit->set_parent(nullptr);
    TTabSheet::DestroyWnd();
}

void Tvx_plugin_lr_tabsheet::Resize()
{
    TTabSheet::Resize();
    place();
}

void Tvx_plugin_lr_tabsheet::place()
{
    if (!f_edit)
        return;
    auto const rect = GetClientRect();
    f_edit->setpos({rect.Left, rect.Top, rect.Right, rect.Bottom});
}
