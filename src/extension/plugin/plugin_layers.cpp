// What native plug-ins ask of layers, tables and style managers.
#include "data/editor_source/data_source.h"
#include "extension/plugin/plugin_text_priv.h"
#include "extension/plugin/vxk_plugin.h"

#include "platform/basic/vx_options.h"
#include "platform/layers/vx_lr2d.h"
#include "platform/styles/vx_stl_mngr.h"
#include "platform/toolkit/bridge/native_window.h"

#include <memory>
#include <string>
#include <vector>

struct vxk_table
{
    struct field
    {
        unsigned prop;
        std::string name;
        bool numeric;
    };

    Tvx_data_source source;
    std::vector<field> fields;

    [[nodiscard]] field const *get(unsigned index) const
    {
        return index < fields.size() ? &fields[index] : nullptr;
    }
};

namespace {
/// No exception may pass through a plug-in, which may be written in C.
template <class R, class F>
R quiet(R otherwise, F const &call)
{
    try {
        return call();
    } catch (...) {
        return otherwise;
    }
}

std::string utf8_of(char const *system_text)
{
    return vx::text::wide_to_utf8(vx::text::to_wide(system_text ? system_text : ""));
}

std::unique_ptr<vxk_table> open_table(Ivx_layer *layer)
{
    auto table = std::make_unique<vxk_table>();
    auto &source = table->source;
    auto const *const type = vx_lr2d_get_lr_type(layer);
    if (!type || !source.initialize(type))
        return nullptr;
    source.set_data_ptr(vx_lr2d_get_data_ptr(layer));
    if (!source.on_data_open(nullptr))
        return nullptr;
    auto const count = source.on_data_get_np(nullptr);
    for (unsigned i = 0; i < count; ++i) {
        bool usable = false;
        bool numeric = false;
        auto const *name = source.on_data_get_prop(nullptr, i, usable, numeric);
        if (usable)
            table->fields.push_back({i, utf8_of(name), numeric});
    }
    return table;
}
} // namespace

int vxk_plugin_get_revision(void)
{
    return VXK_PLUGIN_REVISION;
}

char const *vxk_plugin_get_language(void)
{
    return vx_options_get_language();
}

unsigned long vxk_window_get_x11(vxk_window window)
{
    return vx_native_x11_window(static_cast<HWND>(window));
}

// ---- layers

char const *vxk_layer_get_type(Ivx_layer const *layer)
{
    return vx_lr2d_get_lr_type(layer);
}

std::size_t vxk_layer_get_name(Ivx_layer const *layer, char *buffer, std::size_t size)
{
    std::wstring name;
    vx_lr2d_get_wcaption(layer, Tvx_std_wstring_adapter(name));
    return vx::plugin::hand_out(name, buffer, size);
}

void vxk_layer_set_name(Ivx_layer *layer, char const *name)
{
    vx_lr2d_set_wcaption(layer, vx::plugin::text_of(name).c_str());
}

std::size_t vxk_layer_get_source(Ivx_layer const *layer, char *buffer, std::size_t size)
{
    std::wstring source;
    vx_lr2d_get_wfilename(layer, Tvx_std_wstring_adapter(source));
    return vx::plugin::hand_out(source, buffer, size);
}

bool vxk_layer_get_visible(Ivx_layer const *layer)
{
    return vx_lr2d_get_visible(layer);
}

void vxk_layer_set_visible(Ivx_layer *layer, bool visible)
{
    vx_lr2d_set_visible(layer, visible);
}

void vxk_layer_post_update(Ivx_layer *layer)
{
    vx_lr_post_update(layer);
}

// ---- tables

vxk_table *vxk_table_open(Ivx_layer *layer)
{
    return quiet(static_cast<vxk_table *>(nullptr), [&] { return open_table(layer).release(); });
}

void vxk_table_close(vxk_table *table)
{
    if (table)
        table->source.on_data_close(nullptr);
    delete table;
}

unsigned vxk_table_get_field_count(vxk_table const *table)
{
    return table ? static_cast<unsigned>(table->fields.size()) : 0;
}

unsigned vxk_table_get_record_count(vxk_table const *table)
{
    return table ? quiet(0U, [&] { return table->source.on_data_get_no(nullptr); }) : 0;
}

std::size_t vxk_table_get_field_name(vxk_table const *table, unsigned field, char *buffer, std::size_t size)
{
    auto const *const known = table ? table->get(field) : nullptr;
    return vx::plugin::hand_out(known ? std::string_view(known->name) : std::string_view(), buffer, size);
}

bool vxk_table_is_number(vxk_table const *table, unsigned field)
{
    auto const *const known = table ? table->get(field) : nullptr;
    return known && known->numeric;
}

bool vxk_table_get_number(vxk_table *table, unsigned field, unsigned record, double *value)
{
    auto const *const known = table && value ? table->get(field) : nullptr;
    return known && quiet(false, [&] {
               bool defined = false;
               double const number = table->source.on_data_get_val(nullptr, known->prop, record, defined);
               if (defined)
                   *value = number;
               return defined;
           });
}

std::size_t vxk_table_get_text(vxk_table *table, unsigned field, unsigned record, char *buffer,
                               std::size_t size)
{
    auto const *const known = table ? table->get(field) : nullptr;
    std::string const text = quiet(std::string(), [&] {
        bool defined = false;
        auto const *const cell =
            known ? table->source.on_data_get_str(nullptr, known->prop, record, defined) : nullptr;
        return defined ? utf8_of(cell) : std::string();
    });
    return vx::plugin::hand_out(std::string_view(text), buffer, size);
}

// ---- style managers

char const *vxk_style_manager_get_type(void const *manager)
{
    return vx_stl_mngr_get_style_type(manager);
}

unsigned vxk_style_manager_get_mode(void const *manager)
{
    return vx_stl_mngr_get_mode(manager);
}

void vxk_style_manager_set_mode(void *manager, unsigned mode)
{
    vx_stl_mngr_set_mode(manager, mode);
}
