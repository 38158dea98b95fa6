#pragma once

#include "platform/base/string_adp.h"
#include "platform/base/text_append.h"

#include <string>
#include <string_view>

/// String receivers with a string of their own, for members and bases of longer-lived objects: the room of
/// the string is used again by the next text.
namespace vxstd {
namespace ansi {
template <class String>
class Tvx_tstring;

/// 8-bit text in the system code page.
template <>
class Tvx_tstring<std::string> : public Tvx_string_adapter_base
{
public:
    Tvx_tstring() = default;
    virtual ~Tvx_tstring() = default;

    void feed(char const *text) override { f_text.assign(text ? text : ""); }
    void feed(wchar_t const *text) override { convert(text, vx::text::c_cp_system, -1); }
    /// Takes `length` characters of `text`, all up to the terminator with -1, in the code page. Null clears.
    void convert(wchar_t const *text, unsigned code_page, int length)
    {
        f_text.clear();
        if (!text)
            return;
        auto const view =
            length < 0 ? std::wstring_view(text) : std::wstring_view(text, static_cast<std::size_t>(length));
        vx::text::append_bytes(f_text, view, code_page);
    }

    void clear() { f_text.clear(); }
    [[nodiscard]] bool empty() const { return f_text.empty(); }
    /// Valid until the next text.
    [[nodiscard]] char const *c_str() const { return f_text.c_str(); }
    [[nodiscard]] std::string const &str() const { return f_text; }

private:
    std::string f_text;
};
} // namespace ansi

namespace utf {
template <class String>
class Tvx_tstring;

/// Wide text.
template <>
class Tvx_tstring<std::wstring> : public Tvx_string_adapter_base
{
public:
    Tvx_tstring() = default;
    virtual ~Tvx_tstring() = default;

    void feed(char const *text) override { convert(text, vx::text::c_cp_system, -1); }
    void feed(wchar_t const *text) override { f_text.assign(text ? text : L""); }
    /// Takes `length` bytes of `text`, all up to the terminator with -1, from the code page. Null clears.
    void convert(char const *text, unsigned code_page, int length)
    {
        f_text.clear();
        if (!text)
            return;
        auto const view =
            length < 0 ? std::string_view(text) : std::string_view(text, static_cast<std::size_t>(length));
        vx::text::append_wide(f_text, view, code_page);
    }

    void clear() { f_text.clear(); }
    [[nodiscard]] bool empty() const { return f_text.empty(); }
    /// Valid until the next text.
    [[nodiscard]] wchar_t const *c_str() const { return f_text.c_str(); }
    [[nodiscard]] std::wstring const &str() const { return f_text; }

private:
    std::wstring f_text;
};
} // namespace utf
} // namespace vxstd
