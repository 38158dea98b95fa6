#include "extension/plugin/style_edit_plugin.h"

#include "platform/basic/vx_attrib_any_data.h"
#include "platform/basic/vx_options.h"

#include <type_traits>

namespace {
constexpr char const *c_entries[] = {
    "plugin_style_editor_create",      "plugin_style_editor_get_caption", "plugin_style_editor_get_control",
    "plugin_style_editor_set_parent",  "plugin_style_editor_destroy",     "plugin_style_editor_supports",
    "plugin_style_editor_attach",      "plugin_style_editor_update",      "plugin_style_editor_setpos",
    "plugin_style_editor_select_next",
};

// What the engine makes is what plug-ins read.
static_assert(sizeof(vxk_any) == sizeof(Tvx_any) && sizeof(vxk_any_table) == sizeof(Tvx_any_table));
constexpr bool is_same(int tag, Tvx_any_tag own)
{
    return tag == static_cast<int>(own);
}
static_assert(is_same(VXK_ANY_NONE, c_any_none) && is_same(VXK_ANY_TEXT, c_any_string) &&
              is_same(VXK_ANY_INTEGER, c_any_integer) && is_same(VXK_ANY_NUMBER, c_any_floating) &&
              is_same(VXK_ANY_TUPLE, c_any_tuple) && is_same(VXK_ANY_TABLE, c_any_table));
} // namespace

Tvx_style_edit_plugin::Tvx_style_edit_plugin(wchar_t const *path) : Tvx_plugin_module(path, c_entries)
{
    resolve(f_create, c_entries[0]);
    resolve(f_get_caption, c_entries[1]);
    resolve(f_get_control, c_entries[2]);
    resolve(f_set_parent, c_entries[3]);
    resolve(f_destroy, c_entries[4]);
    resolve(f_supports, c_entries[5]);
    resolve(f_attach, c_entries[6]);
    resolve(f_update, c_entries[7]);
    resolve(f_setpos, c_entries[8]);
    resolve(f_select_next, c_entries[9]);
}

Tvx_plugin_style_edit *Tvx_style_edit_plugin::create(void *window, void (*commit)(void *),
                                                     void (*focus)(void *), void *data)
{
    if (!ok())
        return nullptr;
    void *instance = nullptr;
    run([&] { instance = f_create(window, commit, focus, data); });
    return new Tvx_plugin_style_edit(this, instance);
}

char const *Tvx_style_edit_plugin::get_caption()
{
    char const *caption = nullptr;
    if (ok())
        run([&] { caption = f_get_caption(); });
    return caption_or_name(caption);
}

TControl *Tvx_style_edit_plugin::get_control(TApplication *application, TComponent *owner) const
{
    void *control = nullptr;
    if (ok())
        run([&] { control = f_get_control(application, owner); });
    return static_cast<TControl *>(control);
}

void Tvx_plugin_style_edit::destroy(Tvx_plugin_style_edit *edit)
{
    if (edit && edit->f_instance)
        edit->f_plugin->run([&] { edit->f_plugin->f_destroy(edit->f_instance); });
    delete edit;
}

void Tvx_plugin_style_edit::set_parent(void *window) const
{
    if (f_instance)
        f_plugin->run([&] { f_plugin->f_set_parent(f_instance, window); });
}

bool Tvx_plugin_style_edit::supports(void *style_manager) const
{
    bool result = false;
    if (f_instance)
        f_plugin->run([&] { result = f_plugin->f_supports(f_instance, style_manager); });
    return result;
}

void Tvx_plugin_style_edit::attach(void *style_manager, data_function get_data, void *data) const
{
    // A reference to the data is a pointer to it: an element of the form that plug-ins read.
    auto const plain = reinterpret_cast<vxk_get_data>(reinterpret_cast<void (*)()>(get_data));
    if (f_instance)
        f_plugin->run([&] { f_plugin->f_attach(f_instance, style_manager, plain, data); });
}

void Tvx_plugin_style_edit::update() const
{
    if (f_instance)
        f_plugin->run([&] { f_plugin->f_update(f_instance); });
}

void Tvx_plugin_style_edit::setpos(vxk_rect const &rect) const
{
    if (f_instance)
        f_plugin->run([&] { f_plugin->f_setpos(f_instance, &rect); });
}

bool Tvx_plugin_style_edit::select(int direction) const
{
    bool result = false;
    if (f_instance)
        f_plugin->run([&] { result = f_plugin->f_select_next(f_instance, direction); });
    return result;
}

Tvx_plugin_module_set_impl<Tvx_style_edit_plugin> &vx_get_style_edit_plugin_module_set()
{
    // Never ended: tabs may end late.
    static auto &set =
        *new Tvx_plugin_module_set_impl<Tvx_style_edit_plugin>(vx_options_get_style_editor_plugin_mask());
    return set;
}
