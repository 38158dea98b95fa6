#include "extension/plugin/lr_2d_edit_plugin_module.h"

#include <utility>

namespace {
constexpr char const *c_entries[] = {
    "plugin_lr_2d_editor_create",  "plugin_lr_2d_editor_set_parent", "plugin_lr_2d_editor_get_caption",
    "plugin_lr_2d_editor_destroy", "plugin_lr_2d_editor_attach",     "plugin_lr_2d_editor_update",
    "plugin_lr_2d_editor_setpos",
};

/// A module as the page set knows it.
class page_plugin : public Tvx_lr2d_page_plugin
{
public:
    explicit page_plugin(Tvx_lr_2d_edit_plugin_module &module) : f_module(module) {}

    void *create(void (*changed)(void *), void *data) override { return f_module.create(changed, data); }
    void set_parent(void *instance, void *window) override { f_module.set_parent(instance, window); }
    char const *get_caption() override { return f_module.get_caption(); }
    void destroy(void *instance) override { f_module.destroy(instance); }
    void attach(void *instance, Ivx_layer *layer) override { f_module.attach(instance, layer); }

private:
    Tvx_lr_2d_edit_plugin_module &f_module;
};

class page_plugin_set : public Tvx_lr2d_page_plugin_set
{
public:
    explicit page_plugin_set(wchar_t const *mask) : f_modules(mask)
    {
        for (unsigned i = 0; i < f_modules.get_plugin_count(); ++i)
            f_plugins.push_back(std::make_unique<page_plugin>(*f_modules.get_plugin(i)));
    }

    unsigned get_plugin_count() const override { return f_modules.get_plugin_count(); }
    Tvx_lr2d_page_plugin *get_plugin(unsigned index) const override { return f_plugins[index].get(); }

private:
    Tvx_plugin_module_set_impl<Tvx_lr_2d_edit_plugin_module> f_modules;
    std::vector<std::unique_ptr<page_plugin>> f_plugins;
};
} // namespace

Tvx_lr_2d_edit_plugin_module::Tvx_lr_2d_edit_plugin_module(wchar_t const *path)
    : Tvx_plugin_module(path, c_entries)
{
    resolve(f_create, c_entries[0]);
    resolve(f_set_parent, c_entries[1]);
    resolve(f_get_caption, c_entries[2]);
    resolve(f_destroy, c_entries[3]);
    resolve(f_attach, c_entries[4]);
    resolve(f_update, c_entries[5]);
    resolve(f_setpos, c_entries[6]);
}

void *Tvx_lr_2d_edit_plugin_module::create(void (*changed)(void *), void *data) const
{
    void *instance = nullptr;
    if (ok())
        run([&] { instance = f_create(changed, data); });
    return instance;
}

void Tvx_lr_2d_edit_plugin_module::set_parent(void *instance, void *window) const
{
    if (ok() && instance)
        run([&] { f_set_parent(instance, window); });
}

char const *Tvx_lr_2d_edit_plugin_module::get_caption()
{
    char const *caption = nullptr;
    if (ok())
        run([&] { caption = f_get_caption(); });
    return caption_or_name(caption);
}

void Tvx_lr_2d_edit_plugin_module::destroy(void *instance) const
{
    if (ok() && instance)
        run([&] { f_destroy(instance); });
}

void Tvx_lr_2d_edit_plugin_module::attach(void *instance, Ivx_layer *layer) const
{
    if (ok() && instance)
        run([&] { f_attach(instance, layer); });
}

void Tvx_lr_2d_edit_plugin_module::update(void *instance) const
{
    if (ok() && instance)
        run([&] { f_update(instance); });
}

void Tvx_lr_2d_edit_plugin_module::set_pos(void *instance, vxk_rect const &rect) const
{
    if (ok() && instance)
        run([&] { f_setpos(instance, &rect); });
}

std::unique_ptr<Tvx_lr2d_page_plugin_set> vx_lr2d_page_plugins_load(wchar_t const *mask)
{
    return std::make_unique<page_plugin_set>(mask);
}
