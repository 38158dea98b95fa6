#pragma once

#include "extension/binding/string_visitor.h"

#include "platform/base/string_adp.h"
#include "platform/base/text_codec.h"

#include <array>
#include <set>
#include <string>
#include <vector>

/// The receivers of text. Each is made on the stack round one call and writes into the object it was given; a
/// call that visits nothing leaves that object as it was. Local to the module, as all that has a table.
namespace vx {
/// Takes over the text; null clears.
class VX_LOCAL stdwstring_visitor final : public string_visitor_impl
{
public:
    explicit stdwstring_visitor(std::wstring &target) : f_target(target) {}
    void visit(wchar_t const *text) override { f_target = text ? text : L""; }

private:
    std::wstring &f_target;
};

/// What a call with a visitor says in one text; empty when it visits nothing.
template <class Call>
[[nodiscard]] std::wstring visited_text(Call call)
{
    std::wstring text;
    stdwstring_visitor visitor(text);
    call(visitor);
    return text;
}

/// Appends each text; null is skipped.
class VX_LOCAL stdwstring_list_visitor final : public string_visitor_impl
{
public:
    explicit stdwstring_list_visitor(std::vector<std::wstring> &target) : f_target(target) {}
    void visit(wchar_t const *text) override
    {
        if (text)
            f_target.emplace_back(text);
    }

private:
    std::vector<std::wstring> &f_target;
};

/// Inserts each text; null is skipped. Texts that come in ascending order are filed without a search.
class VX_LOCAL stdwstring_set_visitor final : public string_visitor_impl
{
public:
    explicit stdwstring_set_visitor(std::set<std::wstring> &target) : f_target(target) {}
    void visit(wchar_t const *text) override
    {
        if (text)
            f_target.emplace_hint(f_target.end(), text);
    }

private:
    std::set<std::wstring> &f_target;
};

/// An 8-bit encoding, by its place in `c_string_encodings`.
struct string_encoding
{
    char const *name;
    char const *other_name;
    unsigned code_page; ///< 0: the system code page
};

// clang-format off
inline constexpr std::array<string_encoding, 19> c_string_encodings{{
    {"UTF-8", "UTF-8", 65001},
    {"UTF-16", "UTF-16", 0}, {"UTF-16LE", "UTF-16LE", 0}, {"UTF-16BE", "UTF-16BE", 0},
    {"UTF-32", "UTF-32", 0}, {"UTF-32LE", "UTF-32LE", 0}, {"UTF-32BE", "UTF-32BE", 0},
    {"CP1250", "Windows-1250", 1250}, {"CP1251", "Windows-1251", 1251}, {"CP1252", "Windows-1252", 1252},
    {"CP1253", "Windows-1253", 1253}, {"CP1254", "Windows-1254", 1254}, {"CP1255", "Windows-1255", 1255},
    {"CP1256", "Windows-1256", 1256}, {"CP1257", "Windows-1257", 1257}, {"CP1258", "Windows-1258", 1258},
    {"CP866", "OEM 866", 866}, {"ASCII", "US-ASCII", 20127}, {"SYSTEM", "ANSI", 0},
}};
// clang-format on
inline constexpr std::size_t c_encoding_utf8 = 0;
inline constexpr std::size_t c_encoding_system = 18;

/// Converts into 8-bit text of the encoding; null clears. A number past the table stands for the system code
/// page.
class VX_LOCAL stdstring_visitor final : public string_visitor_impl
{
public:
    explicit stdstring_visitor(std::string &target, std::size_t encoding = c_encoding_system)
        : f_target(target),
          f_code_page(encoding < c_string_encodings.size() ? c_string_encodings[encoding].code_page
                                                           : text::c_cp_system)
    {
    }
    void visit(wchar_t const *text) override
    {
        f_target = text ? text::to_bytes(text, f_code_page) : std::string();
    }

private:
    std::string &f_target;
    unsigned f_code_page;
};

/// Feeds a string adapter, which is not owned.
class VX_LOCAL string_adp_visitor final : public string_visitor_impl
{
public:
    explicit string_adp_visitor(Ivx_string_adp *target) : f_target(target) {}
    void visit(wchar_t const *text) override { vx_string_adp_feed(f_target, text); }

private:
    Ivx_string_adp *f_target;
};
} // namespace vx
