#pragma once

#include "extension/plugin/plugin_module.h"
#include "extension/plugin/vxk_plugin.h"

struct Tvx_attrib_any_data;
class TApplication;
class TComponent;
class TControl;
class Tvx_plugin_style_edit;

/// A style editor plug-in: each instance is one tab of a panel of style editors. Calls on a module that is
/// not `ok` do nothing; so do calls that throw, of which the user is told.
class VX_API Tvx_style_edit_plugin : public Tvx_plugin_module
{
public:
    explicit Tvx_style_edit_plugin(wchar_t const *path);

    /// A new instance, to be ended by `Tvx_plugin_style_edit::destroy`; null when the module is not `ok`.
    /// `commit` and `focus` are called with `data`.
    [[nodiscard]] Tvx_plugin_style_edit *create(void *window, void (*commit)(void *), void (*focus)(void *),
                                                void *data);
    /// In the system code page; the name of the file when the module has none. Never null.
    [[nodiscard]] char const *get_caption();
    /// A control of the toolkit, or null.
    [[nodiscard]] TControl *get_control(TApplication *application, TComponent *owner) const;

private:
    friend class Tvx_plugin_style_edit;

    decltype(plugin_style_editor_create) *f_create = nullptr;
    decltype(plugin_style_editor_get_caption) *f_get_caption = nullptr;
    decltype(plugin_style_editor_get_control) *f_get_control = nullptr;
    decltype(plugin_style_editor_set_parent) *f_set_parent = nullptr;
    decltype(plugin_style_editor_destroy) *f_destroy = nullptr;
    decltype(plugin_style_editor_supports) *f_supports = nullptr;
    decltype(plugin_style_editor_attach) *f_attach = nullptr;
    decltype(plugin_style_editor_update) *f_update = nullptr;
    decltype(plugin_style_editor_setpos) *f_setpos = nullptr;
    decltype(plugin_style_editor_select_next) *f_select_next = nullptr;
};

/// One instance: the module and the handle that the module gave, which may be null. Calls on a null handle do
/// nothing.
class VX_API Tvx_plugin_style_edit
{
public:
    using data_function = Tvx_attrib_any_data &(*)(void *data);

    /// Ends the module's instance and the pair; null is accepted.
    static void destroy(Tvx_plugin_style_edit *edit);

    [[nodiscard]] bool has_instance() const { return f_instance != nullptr; }
    void set_parent(void *window) const;
    [[nodiscard]] bool supports(void *style_manager) const;
    /// What `get_data(data)` gives stays valid until it is called again.
    void attach(void *style_manager, data_function get_data, void *data) const;
    void update() const;
    void setpos(vxk_rect const &rect) const;
    bool select_next(bool forward) const { return select(forward ? 1 : -1); }
    bool select_none() const { return select(0); }

private:
    friend class Tvx_style_edit_plugin;

    Tvx_plugin_style_edit(Tvx_style_edit_plugin *plugin, void *instance)
        : f_plugin(plugin), f_instance(instance)
    {
    }
    ~Tvx_plugin_style_edit() = default;
    bool select(int direction) const;

    Tvx_style_edit_plugin *f_plugin;
    void *f_instance;
};

/// The style editor plug-ins of the process, loaded at the first call by
/// `vx_options_get_style_editor_plugin_mask`.
[[nodiscard]] VX_API Tvx_plugin_module_set_impl<Tvx_style_edit_plugin> &vx_get_style_edit_plugin_module_set();
