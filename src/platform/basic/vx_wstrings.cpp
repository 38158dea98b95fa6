#include "platform/basic/vx_wstrings.h"

#include <string>
#include <vector>

namespace {
using strings_t = std::vector<std::wstring>;

strings_t *list_of(void *strings)
{
    return static_cast<strings_t *>(strings);
}
strings_t const *list_of(void const *strings)
{
    return static_cast<strings_t const *>(strings);
}
} // namespace

void *vx_wstrings_create()
{
    return new strings_t;
}

void vx_wstrings_destroy(void *strings)
{
    delete list_of(strings);
}

void vx_wstrings_clear(void *strings)
{
    if (strings)
        list_of(strings)->clear();
}

unsigned vx_wstrings_get_size(void const *strings)
{
    return strings ? static_cast<unsigned>(list_of(strings)->size()) : 0;
}

void vx_wstrings_add(void *strings, wchar_t const *text)
{
    if (strings)
        list_of(strings)->emplace_back(text ? text : L"");
}

wchar_t const *vx_wstrings_get_str(void const *strings, unsigned index)
{
    return index < vx_wstrings_get_size(strings) ? (*list_of(strings))[index].c_str() : L"";
}

void vx_wstrings_set_str(void *strings, unsigned index, wchar_t const *text)
{
    if (index < vx_wstrings_get_size(strings))
        (*list_of(strings))[index] = text ? text : L"";
}

void vx_wstrings_split_str(void *strings, wchar_t const *text, wchar_t separator)
{
    if (!strings || !text || !*text)
        return;
    std::wstring_view rest = text;
    for (;;) {
        auto const end = rest.find(separator);
        list_of(strings)->emplace_back(rest.substr(0, end));
        if (end == std::wstring_view::npos)
            return;
        rest.remove_prefix(end + 1);
    }
}
