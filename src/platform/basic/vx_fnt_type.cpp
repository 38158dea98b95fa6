#include "platform/basic/vx_fnt_type.h"

#include "platform/base/detail/fields.h"

#include <optional>

using namespace vx::fields;

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
    assign<vx_fnt_type>(target, source);
}

bool vx_fnt_type_equal(vx_fnt_type const *a, vx_fnt_type const *b)
{
    return equal<vx_fnt_type>(a, b);
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

bool vx_fnt_type_get_bold(vx_fnt_type const *font)
{
    return get(font, &vx_fnt_type::bold);
}

void vx_fnt_type_set_bold(vx_fnt_type *font, bool on)
{
    set(font, &vx_fnt_type::bold, on);
}

bool vx_fnt_type_get_italic(vx_fnt_type const *font)
{
    return get(font, &vx_fnt_type::italic);
}

void vx_fnt_type_set_italic(vx_fnt_type *font, bool on)
{
    set(font, &vx_fnt_type::italic, on);
}

bool vx_fnt_type_get_underline(vx_fnt_type const *font)
{
    return get(font, &vx_fnt_type::underline);
}

void vx_fnt_type_set_underline(vx_fnt_type *font, bool on)
{
    set(font, &vx_fnt_type::underline, on);
}

bool vx_fnt_type_get_strikeout(vx_fnt_type const *font)
{
    return get(font, &vx_fnt_type::strikeout);
}

void vx_fnt_type_set_strikeout(vx_fnt_type *font, bool on)
{
    set(font, &vx_fnt_type::strikeout, on);
}

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
