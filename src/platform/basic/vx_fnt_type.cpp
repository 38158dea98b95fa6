#include "platform/basic/vx_fnt_type.h"

#include <optional>

namespace {
std::optional<vx_fnt_type> &current_font()
{
    static std::optional<vx_fnt_type> font;
    return font;
}
} // namespace

wchar_t const *vx_fnt_type::default_name()
{
    return L"DejaVu Sans";
}

void vx_fnt_type::set_wname(wchar_t const *name)
{
    if (!name || !*name || std::wstring_view(name) == default_name())
        f_name.reset();
    else
        f_name = std::make_shared<std::wstring const>(name);
}

vx_fnt_type *vx_fnt_type_create()
{
    return new vx_fnt_type;
}

void vx_fnt_type_destroy(vx_fnt_type *font)
{
    delete font;
}

void vx_fnt_type_assign(vx_fnt_type *target, vx_fnt_type const *source)
{
    if (target && source)
        *target = *source;
}

bool vx_fnt_type_equal(vx_fnt_type const *a, vx_fnt_type const *b)
{
    return a == b || (a && b && *a == *b);
}

wchar_t const *vx_fnt_type_get_wname_ptr(vx_fnt_type const *font)
{
    return font ? font->wname() : L"";
}

void vx_fnt_type_set_wname(vx_fnt_type *font, wchar_t const *name)
{
    if (font)
        font->set_wname(name);
}

int vx_fnt_type_get_charset(vx_fnt_type const *font)
{
    return font ? font->charset : 1;
}

void vx_fnt_type_set_charset(vx_fnt_type *font, int charset)
{
    if (font && charset >= 0 && charset <= 255)
        font->charset = static_cast<unsigned char>(charset);
}

#define VX_FNT_FLAG(flag)                                                                                    \
    bool vx_fnt_type_get_##flag(vx_fnt_type const *font)                                                     \
    {                                                                                                        \
        return font && font->flag;                                                                           \
    }                                                                                                        \
    void vx_fnt_type_set_##flag(vx_fnt_type *font, bool on)                                                  \
    {                                                                                                        \
        if (font)                                                                                            \
            font->flag = on;                                                                                 \
    }
VX_FNT_FLAG(bold)
VX_FNT_FLAG(italic)
VX_FNT_FLAG(underline)
VX_FNT_FLAG(strikeout)
#undef VX_FNT_FLAG

bool vx_fnt_type_has_current_font()
{
    return current_font().has_value();
}

vx_fnt_type const *vx_fnt_type_get_current_font_ptr()
{
    return current_font() ? &*current_font() : nullptr;
}

void vx_fnt_type_set_current_font(vx_fnt_type const *font)
{
    if (font)
        current_font() = *font;
    else
        current_font().reset();
}
