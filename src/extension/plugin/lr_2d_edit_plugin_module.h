#pragma once

#include "extension/plugin/plugin_module.h"
#include "extension/plugin/vxk_plugin.h"
#include "layer_edit/page_api/lr2d_extensions.h"

struct Ivx_layer;

/// A layer page plug-in: each instance is one tab of a layer page set. Calls with a null instance, and on a
/// module that is not `ok`, do nothing; so do calls that throw, of which the user is told.
class VX_API Tvx_lr_2d_edit_plugin_module : public Tvx_plugin_module
{
public:
    explicit Tvx_lr_2d_edit_plugin_module(wchar_t const *path);

    /// Null when the module makes none.
    [[nodiscard]] void *create(void (*changed)(void *), void *data) const;
    void set_parent(void *instance, void *window) const;
    /// In the system code page; the name of the file when the module has none. Never null.
    [[nodiscard]] char const *get_caption();
    void destroy(void *instance) const;
    void attach(void *instance, Ivx_layer *layer) const;
    void update(void *instance) const;
    /// `rect` counts in pixels of the window.
    void set_pos(void *instance, vxk_rect const &rect) const;

private:
    decltype(plugin_lr_2d_editor_create) *f_create = nullptr;
    decltype(plugin_lr_2d_editor_set_parent) *f_set_parent = nullptr;
    decltype(plugin_lr_2d_editor_get_caption) *f_get_caption = nullptr;
    decltype(plugin_lr_2d_editor_destroy) *f_destroy = nullptr;
    decltype(plugin_lr_2d_editor_attach) *f_attach = nullptr;
    decltype(plugin_lr_2d_editor_update) *f_update = nullptr;
    decltype(plugin_lr_2d_editor_setpos) *f_setpos = nullptr;
};

/// The layer page plug-ins of a mask as a page set takes them.
[[nodiscard]] VX_API std::unique_ptr<Tvx_lr2d_page_plugin_set> vx_lr2d_page_plugins_load(wchar_t const *mask);
