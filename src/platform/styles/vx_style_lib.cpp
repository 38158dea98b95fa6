#include "platform/styles/vx_style_lib.h"

#include "platform/base/text_codec.h"
#include "platform/basic/vx_wstrings.h"
#include "platform/styles/detail/lib_model.h"
#include "platform/styles/vx_style.h"
#include "platform/winapi/case_map.h"

#include <algorithm>
#include <random>
#include <sstream>
#include <string_view>

using namespace vx::styles;

namespace {
using items_t = std::vector<std::unique_ptr<style_item>>;

style_libs *libs_of(void *libs)
{
    return static_cast<style_libs *>(libs);
}
style_libs const *libs_of(void const *libs)
{
    return static_cast<style_libs const *>(libs);
}
style_lib *lib_of(void *lib)
{
    return static_cast<style_lib *>(lib);
}
style_list *list_of(void *list)
{
    return static_cast<style_list *>(list);
}
style_list const *list_of(void const *list)
{
    return static_cast<style_list const *>(list);
}
idx_style const *idx_of(void const *style)
{
    return static_cast<idx_style const *>(style);
}
style_item const *item_of(void const *item)
{
    return static_cast<style_item const *>(item);
}

void *style_of(void *style, style_kind kind)
{
    auto *s = static_cast<idx_style *>(style);
    return s && s->kind == kind ? s->style->value() : nullptr;
}

bool found(std::optional<unsigned> place, unsigned *position)
{
    if (place && position)
        *position = *place;
    return place.has_value();
}

struct text_search
{
    std::vector<style_item *> found;
    std::size_t next = 0;

    void collect(style_item &item, std::vector<std::wstring> const &words)
    {
        std::wstring const caption = vx_lower_w(item.caption.spoken().c_str());
        if (std::ranges::all_of(words, [&](auto const &w) { return caption.find(w) != caption.npos; }))
            found.push_back(&item);
        for (auto const &child : item.items)
            collect(*child, words);
    }
    [[nodiscard]] style_item *take() { return next < found.size() ? found[next++] : nullptr; }
};

std::vector<std::wstring> words_of(std::wstring const &text)
{
    std::vector<std::wstring> words;
    std::wistringstream stream(text);
    for (std::wstring word; stream >> word;)
        words.push_back(word);
    return words;
}

style_list *list_of_type(style_lib &lib, std::string_view type)
{
    for (style_list *list : {&lib.pnt, &lib.pln, &lib.pgn})
        if (type == style_key(list->kind))
            return list;
    return nullptr;
}

void assign_composed(idx_style &to, void const *style)
{
    void *const target = to.style->value();
    if (to.kind == style_kind::pnt)
        vx_pnt_style_assign(target, style);
    else if (to.kind == style_kind::pln)
        vx_pln_style_assign(target, style);
    else
        vx_pgn_style_assign(target, style);
}

/// In front of the first one that comes later in the alphabet, by characters alone: the order of a file must
/// not depend on who writes it.
style_item &insert_item(style_item &group, std::wstring const &caption)
{
    auto const at =
        std::ranges::find_if(group.items, [&](auto const &item) { return item->caption.text > caption; });
    style_item &item = **group.items.insert(at, std::make_unique<style_item>());
    item.caption.text = caption;
    return item;
}

/// The child of this caption that names no style, made if there is none.
style_item &group_of(style_item &parent, std::wstring const &caption)
{
    for (auto const &item : parent.items)
        if (item->index == -1 && (item->caption.text == caption || item->caption.spoken() == caption))
            return *item;
    return insert_item(parent, caption);
}

wchar_t const *own_or_shared(void const *lib, void const *style, std::wstring idx_style::*own,
                             std::wstring style_lib::*shared)
{
    if (style && !(idx_of(style)->*own).empty())
        return (idx_of(style)->*own).c_str();
    return lib ? (static_cast<style_lib const *>(lib)->*shared).c_str() : L"";
}
} // namespace

// ---- lists of libraries
void *vx_style_libs_create()
{
    return new style_libs;
}

void vx_style_libs_destroy(void *libs)
{
    delete libs_of(libs);
}

void vx_style_libs_clear(void *libs)
{
    if (libs)
        libs_of(libs)->libs.clear();
}

unsigned vx_style_libs_get_size(void const *libs)
{
    return libs ? static_cast<unsigned>(libs_of(libs)->libs.size()) : 0;
}

void *vx_style_libs_get_lib_ptr(void *libs, unsigned index)
{
    return index < vx_style_libs_get_size(libs) ? libs_of(libs)->libs[index].get() : nullptr;
}

void *vx_style_libs_add_lib(void *libs, wchar_t const *name)
{
    if (!libs)
        return nullptr;
    auto &lib = *libs_of(libs)->libs.emplace_back(std::make_unique<style_lib>());
    lib.name.text = name ? name : L"";
    lib.root.caption = lib.name;
    return &lib;
}

// ---- libraries
wchar_t const *vx_style_lib_get_name_w(void const *lib)
{
    return lib ? static_cast<style_lib const *>(lib)->name.spoken().c_str() : L"";
}

wchar_t const *vx_style_lib_get_source_w(void const *lib, void const *style)
{
    return own_or_shared(lib, style, &idx_style::source, &style_lib::source);
}

wchar_t const *vx_style_lib_get_licence_w(void const *lib, void const *style)
{
    return own_or_shared(lib, style, &idx_style::licence, &style_lib::licence);
}

wchar_t const *vx_style_lib_get_file_w(void const *lib)
{
    return lib ? static_cast<style_lib const *>(lib)->file.c_str() : L"";
}

void *vx_style_lib_get_root_item_ptr(void *lib)
{
    return lib ? &lib_of(lib)->root : nullptr;
}

void *vx_style_lib_get_pnt_list_ptr(void *lib)
{
    return lib ? &lib_of(lib)->pnt : nullptr;
}

void *vx_style_lib_get_pln_list_ptr(void *lib)
{
    return lib ? &lib_of(lib)->pln : nullptr;
}

void *vx_style_lib_get_pgn_list_ptr(void *lib)
{
    return lib ? &lib_of(lib)->pgn : nullptr;
}

// ---- lists of styles
unsigned vx_style_list_get_size(void const *list)
{
    return list ? static_cast<unsigned>(list_of(list)->styles.size()) : 0;
}

void *vx_style_list_get_idx_style(void *list, unsigned position)
{
    return position < vx_style_list_get_size(list) ? list_of(list)->styles[position].get() : nullptr;
}

void *vx_style_list_add_idx_style(void *list, int index, int version)
{
    if (!list)
        return nullptr;
    auto *l = list_of(list);
    auto &style = *l->styles.emplace_back(std::make_unique<idx_style>(l->kind));
    style.index = index;
    style.version = version;
    return &style;
}

bool vx_style_list_find_idx(void const *list, int index, unsigned *position)
{
    return list && found(list_of(list)->find(index), position);
}

bool vx_style_list_find_idx_ver(void const *list, int index, int version, unsigned *position)
{
    return list && found(list_of(list)->find(index, version), position);
}

// ---- additions
void *vx_style_lib_put_style(void *lib, char const *type, void const *style, int index, int version,
                             void const *groups, wchar_t const *caption)
{
    style_list *const list = lib && style && type ? list_of_type(*lib_of(lib), type) : nullptr;
    if (!list || index < 0 || vx_style_lib_has_index(lib, index))
        return nullptr;
    idx_style &added = list->insert(index, version);
    assign_composed(added, style);
    style_item *group = &lib_of(lib)->root;
    for (unsigned i = 0; i < vx_wstrings_get_size(groups); ++i)
        group = &group_of(*group, vx_wstrings_get_str(groups, i));
    style_item &item = insert_item(*group, caption ? caption : L"");
    item.index = index;
    item.version = version;
    return &added;
}

bool vx_style_lib_has_index(void const *lib, int index)
{
    auto const *l = static_cast<style_lib const *>(lib);
    return l && (l->pnt.find(index) || l->pln.find(index) || l->pgn.find(index));
}

int vx_style_lib_draw_index(void const *lib)
{
    std::random_device random;
    std::uniform_int_distribution<int> six_digits(100'000, 999'999);
    int index = six_digits(random);
    while (vx_style_lib_has_index(lib, index))
        index = index < 999'999 ? index + 1 : 100'000;
    return index;
}

// ---- indexed styles
char const *vx_idx_style_get_type(void const *style)
{
    return style ? style_key(idx_of(style)->kind) : nullptr;
}

int vx_idx_style_get_index(void const *style)
{
    return style ? idx_of(style)->index : 0;
}

int vx_idx_style_get_version(void const *style)
{
    return style ? idx_of(style)->version : 0;
}

void *vx_idx_pnt_style_get_pnt_style_ptr(void *style)
{
    return style_of(style, style_kind::pnt);
}

void *vx_idx_pln_style_get_pln_style_ptr(void *style)
{
    return style_of(style, style_kind::pln);
}

void *vx_idx_pgn_style_get_pgn_style_ptr(void *style)
{
    return style_of(style, style_kind::pgn);
}

// ---- items
char const *vx_style_item_get_caption(void const *item)
{
    if (!item)
        return "";
    auto const *i = item_of(item);
    i->narrow_caption = vx::text::to_bytes(i->caption.spoken());
    return i->narrow_caption.c_str();
}

wchar_t const *vx_style_item_get_caption_w(void const *item)
{
    return item ? item_of(item)->caption.spoken().c_str() : L"";
}

void vx_style_item_get_caption_adp(void const *item, Ivx_string_adp *adp)
{
    vx_string_adp_feed(adp, vx_style_item_get_caption_w(item));
}

int vx_style_item_get_index(void const *item)
{
    return item ? item_of(item)->index : -1;
}

int vx_style_item_get_version(void const *item)
{
    return item ? item_of(item)->version : -1;
}

void *vx_style_item_get_style_items_ptr(void *item)
{
    return item ? &static_cast<style_item *>(item)->items : nullptr;
}

unsigned vx_style_items_get_size(void const *items)
{
    return items ? static_cast<unsigned>(static_cast<items_t const *>(items)->size()) : 0;
}

void *vx_style_items_get_style_item_ptr(void *items, unsigned index)
{
    return index < vx_style_items_get_size(items) ? (*static_cast<items_t *>(items))[index].get() : nullptr;
}

void *vx_style_items_add(void *items, wchar_t const *caption, int index, int version)
{
    if (!items)
        return nullptr;
    auto &item = *static_cast<items_t *>(items)->emplace_back(std::make_unique<style_item>());
    item.caption.text = caption ? caption : L"";
    item.index = index;
    item.version = version;
    return &item;
}

// ---- search
void *vx_style_item_search_str_create()
{
    return new text_search;
}

void vx_style_item_search_str_destroy(void *search)
{
    delete static_cast<text_search *>(search);
}

void *vx_style_item_search_str_get_first(void *search, void *root, wchar_t const *text)
{
    if (!search)
        return nullptr;
    auto *s = static_cast<text_search *>(search);
    *s = {};
    auto const words = text ? words_of(vx_lower_w(text)) : std::vector<std::wstring>();
    if (root && !words.empty())
        s->collect(*static_cast<style_item *>(root), words);
    return s->take();
}

void *vx_style_item_search_str_get_next(void *search)
{
    return search ? static_cast<text_search *>(search)->take() : nullptr;
}
