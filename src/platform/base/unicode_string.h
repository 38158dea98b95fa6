#pragma once

#include "platform/base/text_codec.h"

#include <string>
#include <string_view>

/// The toolkit's text value: wide text, made from wide text or from 8-bit text in the system code page.
///
/// A null pointer counts as the empty text. Character positions of the operations below start at 1, as in the
/// toolkit's language; `operator[]` too.
class UnicodeString
{
public:
    UnicodeString() = default;
    UnicodeString(wchar_t const *text) : f_text(text ? text : L"") {}
    UnicodeString(std::wstring text) : f_text(std::move(text)) {}
    UnicodeString(std::wstring_view text) : f_text(text) {}
    UnicodeString(char const *text) : f_text(text ? vx::text::to_wide(text) : std::wstring()) {}
    UnicodeString(std::string_view text) : f_text(vx::text::to_wide(text)) {}
    UnicodeString(std::string const &text) : f_text(vx::text::to_wide(text)) {}
    explicit UnicodeString(int value) : f_text(std::to_wstring(value)) {}

    [[nodiscard]] wchar_t const *c_str() const { return f_text.c_str(); }
    [[nodiscard]] std::wstring const &str() const { return f_text; }
    [[nodiscard]] std::wstring &str() { return f_text; }
    /// The text in the system code page.
    [[nodiscard]] std::string to_bytes() const { return vx::text::to_bytes(f_text); }
    [[nodiscard]] std::string to_utf8() const { return vx::text::wide_to_utf8(f_text); }
    operator std::wstring const &() const { return f_text; }

    [[nodiscard]] int Length() const { return static_cast<int>(f_text.size()); }
    [[nodiscard]] bool IsEmpty() const { return f_text.empty(); }
    /// `count` characters from position `first`; both are cut to the text.
    [[nodiscard]] UnicodeString SubString(int first, int count) const
    {
        if (first < 1) {
            count += first - 1;
            first = 1;
        }
        if (count <= 0 || first > Length())
            return {};
        return f_text.substr(static_cast<std::size_t>(first - 1), static_cast<std::size_t>(count));
    }
    /// Position of the first occurrence, 0 if there is none or `part` is empty.
    [[nodiscard]] int Pos(UnicodeString const &part) const
    {
        if (part.IsEmpty())
            return 0;
        auto const at = f_text.find(part.f_text);
        return at == std::wstring::npos ? 0 : static_cast<int>(at) + 1;
    }
    [[nodiscard]] wchar_t operator[](int position) const
    {
        return f_text[static_cast<std::size_t>(position - 1)];
    }

    UnicodeString &operator+=(UnicodeString const &other)
    {
        f_text += other.f_text;
        return *this;
    }
    friend UnicodeString operator+(UnicodeString a, UnicodeString const &b) { return a += b; }
    friend bool operator==(UnicodeString const &a, UnicodeString const &b) { return a.f_text == b.f_text; }
    friend bool operator==(UnicodeString const &a, wchar_t const *b) { return a.f_text == (b ? b : L""); }
    friend auto operator<=>(UnicodeString const &a, UnicodeString const &b) { return a.f_text <=> b.f_text; }

private:
    std::wstring f_text;
};
