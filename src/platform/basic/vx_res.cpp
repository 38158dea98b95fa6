#include "platform/basic/vx_res.h"

#include "platform/base/text_codec.h"
#include "platform/basic/detail/caption_catalogue.h"
#include "platform/basic/vx_options.h"

#include <charconv>
#include <map>
#include <string>
#include <unordered_map>

namespace {

struct caption
{
    std::wstring wide;
    std::map<unsigned, std::string>
        bytes; // by code page: what was handed out stays valid when the page changes
};

using catalogue = std::unordered_map<int, caption>;

std::string unescaped(std::string_view text)
{
    std::string out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        bool const escape = text[i] == '\\' && i + 1 < text.size();
        if (escape && text[i + 1] == 'n')
            out.push_back('\n');
        else if (escape && text[i + 1] == 't')
            out.push_back('\t');
        else {
            out.push_back(text[i]);
            continue;
        }
        ++i;
    }
    return out;
}

// A line "number<TAB>text"; comments, empty lines and what is neither say nothing.
void add_line(catalogue &into, std::string_view line)
{
    if (line.ends_with('\r'))
        line.remove_suffix(1);
    int number = 0;
    auto const [end, code] = std::from_chars(line.data(), line.data() + line.size(), number);
    if (code != std::errc() || end == line.data() + line.size() || *end != '\t')
        return;
    auto const text = line.substr(static_cast<std::size_t>(end + 1 - line.data()));
    into.try_emplace(number, caption{vx::text::utf8_to_wide(unescaped(text)), {}});
}

catalogue read_catalogue(std::string_view language)
{
    catalogue read;
    auto text = vx::captions::find(language);
    while (!text.empty()) {
        auto const end = text.find('\n');
        add_line(read, text.substr(0, end));
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    }
    return read;
}

catalogue &catalogue_of(std::string const &language)
{
    // Never destroyed, as what is handed out is valid to the very end.
    static auto &all = *new std::map<std::string, catalogue>;
    auto const at = all.find(language);
    return at != all.end() ? at->second : all.emplace(language, read_catalogue(language)).first->second;
}

caption *find_known(int number)
{
    for (auto const &language :
         {std::string(vx_options_get_language()), std::string(vx::captions::c_base_language)}) {
        auto &texts = catalogue_of(language);
        if (auto const at = texts.find(number); at != texts.end())
            return &at->second;
    }
    return nullptr;
}

caption &find_caption(int number)
{
    if (auto *const known = find_known(number))
        return *known;
    static auto &unknown = *new catalogue;
#ifdef NDEBUG
    constexpr int c_all = 0;
    return unknown[c_all];
#else
    auto &text = unknown[number];
    if (text.wide.empty())
        text.wide = L"#" + std::to_wstring(number);
    return text;
#endif
}
} // namespace

std::string_view vx::captions::find(std::string_view language)
{
    for (int i = 0; i < catalogue_count; ++i)
        if (catalogue_texts[i].language == language)
            return catalogue_texts[i].text;
    return {};
}

wchar_t const *vx_res_get_wstr(int number)
{
    return find_caption(number).wide.c_str();
}

char const *vx_res_get_str(int number)
{
    auto &text = find_caption(number);
    auto const page = vx::text::system_code_page();
    auto const at = text.bytes.find(page);
    if (at != text.bytes.end())
        return at->second.c_str();
    return text.bytes.emplace(page, vx::text::to_bytes(text.wide, page)).first->second.c_str();
}

bool vx_res_has(int number)
{
    return find_known(number) != nullptr;
}

int vx_help_mngr_find_help_id(int number)
{
    return number < 0 ? 0 : number;
}

std::wstring vx_res_format_w(int number, std::initializer_list<std::wstring_view> arguments)
{
    std::wstring_view const text = vx_res_get_wstr(number);
    std::wstring out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        // "1" is the first; what is no digit lies far beyond the last.
        auto const index = static_cast<std::size_t>(i + 1 < text.size() ? text[i + 1] - L'1' : -1);
        if (text[i] != L'%' || index >= arguments.size()) {
            out.push_back(text[i]);
            continue;
        }
        out += arguments.begin()[index];
        ++i;
    }
    return out;
}

std::wstring vx_res_format_w(int number, std::wstring_view argument)
{
    return vx_res_format_w(number, {argument});
}
