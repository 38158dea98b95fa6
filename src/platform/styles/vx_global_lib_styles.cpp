#include "platform/styles/vx_global_lib_styles.h"

#include "platform/basic/vx_wstrings.h"
#include "platform/styles/detail/lib_model.h"
#include "platform/styles/vx_style_lib.h"

#include <utility>

using namespace vx::styles;

namespace {
struct global_libs
{
    style_libs libs;
    Tvx_style_libs_loader loader = nullptr;
    bool tried = false;
};

global_libs &globals()
{
    static global_libs g;
    return g;
}

/// The libraries, read if nobody tried to before.
style_libs &ready_libs()
{
    if (!globals().tried)
        static_cast<void>(vx_global_lib_styles_load());
    return globals().libs;
}

style_lib *lib_at(int index)
{
    return index < 0 ? nullptr
                     : static_cast<style_lib *>(
                           vx_style_libs_get_lib_ptr(&ready_libs(), static_cast<unsigned>(index)));
}

idx_style const *find_style(int lib, int code, style_list style_lib::*list)
{
    style_lib *l = lib_at(lib);
    auto const place = l ? (l->*list).find(code) : std::nullopt;
    return place ? (l->*list).styles[*place].get() : nullptr;
}

template <class Style>
bool copy_style(int lib, int code, style_list style_lib::*list, void *target)
{
    idx_style const *found = target ? find_style(lib, code, list) : nullptr;
    if (!found)
        return false;
    *static_cast<Style *>(target) = *static_cast<Style const *>(found->style->value());
    return true;
}

template <class Style>
bool copy_step(int lib, int code, style_list style_lib::*list, unsigned position, unsigned count,
               void *target)
{
    idx_style const *found = target ? find_style(lib, code, list) : nullptr;
    if (!found)
        return false;
    auto const step = found->style->clone();
    found->gradient.apply(*step, position, count);
    *static_cast<Style *>(target) = *static_cast<Style const *>(step->value());
    return true;
}

style_item *find_item(style_item &item, int code)
{
    if (item.index == code)
        return &item;
    for (auto const &child : item.items)
        if (style_item *found = find_item(*child, code))
            return found;
    return nullptr;
}
} // namespace

bool vx_global_lib_styles_load()
{
    global_libs &g = globals();
    if (g.libs.libs.empty() && g.loader) {
        g.tried = true;
        g.libs.faults.clear();
        if (!g.loader(&g.libs))
            g.libs.libs.clear();
    }
    return !g.libs.libs.empty();
}

bool vx_global_lib_styles_exists()
{
    return !ready_libs().libs.empty();
}

void vx_global_lib_styles_take_faults(Ivx_string_adp *adp)
{
    std::wstring all;
    for (auto const &fault : std::exchange(ready_libs().faults, {}))
        all += (all.empty() ? L"" : L"\n") + fault;
    vx_string_adp_feed(adp, all.c_str());
}

void *vx_global_lib_styles_get_libs()
{
    return &ready_libs();
}

void *vx_global_lib_styles_create_name_list()
{
    void *names = vx_wstrings_create();
    for (auto const &lib : ready_libs().libs)
        vx_wstrings_add(names, lib->name.spoken().c_str());
    return names;
}

bool vx_global_lib_styles_get_spec_pnt(int lib, int code, void *style)
{
    return copy_style<pnt_style>(lib, code, &style_lib::pnt, style);
}

bool vx_global_lib_styles_get_spec_pln(int lib, int code, void *style)
{
    return copy_style<pln_style>(lib, code, &style_lib::pln, style);
}

bool vx_global_lib_styles_get_spec_pgn(int lib, int code, void *style)
{
    return copy_style<pgn_style>(lib, code, &style_lib::pgn, style);
}

bool vx_global_lib_styles_get_spec_pnt_gradient(int lib, int code, unsigned position, unsigned count,
                                                void *style)
{
    return copy_step<pnt_style>(lib, code, &style_lib::pnt, position, count, style);
}

bool vx_global_lib_styles_get_spec_pln_gradient(int lib, int code, unsigned position, unsigned count,
                                                void *style)
{
    return copy_step<pln_style>(lib, code, &style_lib::pln, position, count, style);
}

bool vx_global_lib_styles_get_spec_pgn_gradient(int lib, int code, unsigned position, unsigned count,
                                                void *style)
{
    return copy_step<pgn_style>(lib, code, &style_lib::pgn, position, count, style);
}

void *vx_global_lib_styles_get_spec_style_item(int lib, int code)
{
    style_lib *l = lib_at(lib);
    return l && code >= 0 ? find_item(l->root, code) : nullptr;
}

Tvx_style_libs_loader vx_global_lib_styles_set_loader(Tvx_style_libs_loader loader)
{
    global_libs &g = globals();
    g.libs = {};
    g.tried = false;
    return std::exchange(g.loader, loader);
}
