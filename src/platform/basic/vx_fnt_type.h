#pragma once

#include "platform/base/export.h"

#include <memory>
#include <string>

/// A font without a size: family, character set and style. A value; copies share the family name.
class VX_API vx_fnt_type
{
public:
    /// Never null.
    [[nodiscard]] wchar_t const *wname() const { return f_name ? f_name->c_str() : default_name(); }
    void set_wname(wchar_t const *name);

    /// Windows character set number; 1 is the default one.
    unsigned char charset = 1;
    bool bold = false;
    bool italic = false;
    bool underline = false;
    bool strikeout = false;

    friend bool operator==(vx_fnt_type const &a, vx_fnt_type const &b)
    {
        return std::wstring_view(a.wname()) == b.wname() && a.charset == b.charset && a.bold == b.bold &&
               a.italic == b.italic && a.underline == b.underline && a.strikeout == b.strikeout;
    }

private:
    static wchar_t const *default_name();

    std::shared_ptr<std::wstring const> f_name; ///< null stands for the default family
};

/// Life cycle and access by plain functions; all accept null.
[[nodiscard]] VX_API vx_fnt_type *vx_fnt_type_create();
VX_API void vx_fnt_type_destroy(vx_fnt_type *font);
VX_API void vx_fnt_type_assign(vx_fnt_type *target, vx_fnt_type const *source);
[[nodiscard]] VX_API bool vx_fnt_type_equal(vx_fnt_type const *a, vx_fnt_type const *b);

/// The family's name, "" for null; it lives until the font changes.
[[nodiscard]] VX_API wchar_t const *vx_fnt_type_get_wname_ptr(vx_fnt_type const *font);
/// Null and the empty name give the default family.
VX_API void vx_fnt_type_set_wname(vx_fnt_type *font, wchar_t const *name);
[[nodiscard]] VX_API int vx_fnt_type_get_charset(vx_fnt_type const *font);
VX_API void vx_fnt_type_set_charset(vx_fnt_type *font, int charset);
[[nodiscard]] VX_API bool vx_fnt_type_get_bold(vx_fnt_type const *font);
VX_API void vx_fnt_type_set_bold(vx_fnt_type *font, bool on);
[[nodiscard]] VX_API bool vx_fnt_type_get_italic(vx_fnt_type const *font);
VX_API void vx_fnt_type_set_italic(vx_fnt_type *font, bool on);
[[nodiscard]] VX_API bool vx_fnt_type_get_underline(vx_fnt_type const *font);
VX_API void vx_fnt_type_set_underline(vx_fnt_type *font, bool on);
[[nodiscard]] VX_API bool vx_fnt_type_get_strikeout(vx_fnt_type const *font);
VX_API void vx_fnt_type_set_strikeout(vx_fnt_type *font, bool on);

/// The font that the user works with at present, one for the process: the font dialog leaves its choice here.
[[nodiscard]] VX_API bool vx_fnt_type_has_current_font();
/// Null as long as there is none.
[[nodiscard]] VX_API vx_fnt_type const *vx_fnt_type_get_current_font_ptr();
/// Null takes it away.
VX_API void vx_fnt_type_set_current_font(vx_fnt_type const *font);
