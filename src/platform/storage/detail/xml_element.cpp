#include "platform/storage/detail/xml_element.h"

#include "captions/engine.h"

#include "platform/base/detail/checksum.h"
#include "platform/base/text_codec.h"
#include "platform/basic/vx_res.h"

#include <pugixml.hpp>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstring>
#include <iterator>

namespace vx::storage {
namespace {
constexpr char const *c_crc_name = " crc=\"";
constexpr std::string_view c_no_crc = "00000000";
constexpr std::size_t c_head_length = 256; ///< the checksum stands in the first bytes

using number_text = std::array<char, 40>;

/// The shortest text that reads as the same number. Both zeros are "0", every NaN is "nan".
char const *to_text(double value, number_text &buffer)
{
    if (value == 0)
        return "0";
    if (std::isnan(value))
        return "nan";
    *std::to_chars(buffer.data(), buffer.data() + buffer.size() - 1, value).ptr = 0;
    return buffer.data();
}

bool is_space(char c)
{
    return c == ' ' || (c >= '\t' && c <= '\r');
}

template <class T>
bool from_text(std::string_view text, T &value)
{
    auto const result = std::from_chars(text.data(), text.data() + text.size(), value);
    return result.ec == std::errc() && result.ptr == text.data() + text.size();
}

template <class F>
bool for_each_number(std::string_view text, F take)
{
    while (true) {
        while (!text.empty() && is_space(text.front()))
            text.remove_prefix(1);
        if (text.empty())
            return true;
        auto const end = static_cast<std::size_t>(std::ranges::find_if(text, is_space) - text.begin());
        double value = 0;
        if (!from_text(text.substr(0, end), value) || !std::isfinite(value))
            return false;
        take(value);
        text.remove_prefix(end);
    }
}

/// Whether the parser may be given the bytes. It keeps tens of bytes for each element and attribute, however
/// short they are; none takes less than four bytes, so that only a long file has to be counted.
bool within_limits(std::string_view bytes)
{
    constexpr std::size_t c_shortest_item = 4;
    if (bytes.size() <= c_xml_item_limit * c_shortest_item)
        return true;
    auto const count = std::ranges::count(bytes, '<') + std::ranges::count(bytes, '=');
    return bytes.size() <= c_xml_size_limit && static_cast<std::size_t>(count) <= c_xml_item_limit;
}

/// Place of the eight digits of the checksum; npos when there is none near the head.
std::size_t crc_place(std::string_view bytes)
{
    auto const at = bytes.substr(0, c_head_length).find(c_crc_name);
    auto const digits = at == bytes.npos ? at : at + std::strlen(c_crc_name);
    return digits == bytes.npos || digits + c_no_crc.size() > bytes.size() ? bytes.npos : digits;
}

/// Checksum of the bytes with zeros in place of the digits.
std::array<char, 9> crc_text(std::string_view bytes, std::size_t digits)
{
    auto sum = crc32(bytes.substr(0, digits));
    sum = crc32(c_no_crc, sum);
    sum = crc32(bytes.substr(digits + c_no_crc.size()), sum);
    std::array<char, 9> text{};
    for (std::size_t i = 8; i-- > 0; sum >>= 4)
        text[i] = "0123456789abcdef"[sum & 15];
    return text;
}
/// The name of an element, or where a text begins.
char const *place_of(pugi::xml_node node)
{
    char const *place = node.type() == pugi::node_element ? node.name() : node.value();
    while (is_space(*place))
        ++place;
    return place;
}

/// A name or value of a stranger's file for a message: whole, unless it is long.
std::wstring quoted(std::string_view text)
{
    constexpr std::size_t c_longest = 60;
    while (!text.empty() && is_space(text.back()))
        text.remove_suffix(1);
    std::wstring wide = text::whole_utf8_to_wide(text);
    if (wide.size() > c_longest)
        wide.replace(c_longest, wide.npos, L"…");
    return wide;
}

std::uint64_t taken_bit(unsigned attribute)
{
    constexpr unsigned c_last = 63;
    return std::uint64_t{1} << std::min(attribute, c_last);
}

std::wstring parse_reason(pugi::xml_parse_status status)
{
    switch (status) {
    case pugi::status_out_of_memory:
        return vx_res_get_wstr(c_capt_sys_memory);
    case pugi::status_end_element_mismatch:
        return vx_res_get_wstr(c_capt_why_end_tag);
    case pugi::status_bad_attribute:
        return vx_res_get_wstr(c_capt_why_bad_attribute);
    default:
        return vx_res_get_wstr(c_capt_why_markup);
    }
}
} // namespace

// ---- writing
void xml_out::text(char const *name, char const *value)
{
    pugi::xml_node(f_node).append_attribute(name).set_value(value);
}

void xml_out::field(char const *name, bool value)
{
    text(name, value ? "1" : "0");
}

void xml_out::field(char const *name, int value)
{
    pugi::xml_node(f_node).append_attribute(name).set_value(value);
}

void xml_out::field(char const *name, unsigned value)
{
    pugi::xml_node(f_node).append_attribute(name).set_value(value);
}

void xml_out::field(char const *name, double value)
{
    number_text buffer{};
    text(name, to_text(value, buffer));
}

void xml_out::bound(char const *name, double value)
{
    field(name, value);
}

void xml_out::field(char const *name, Tvx_color value)
{
    std::array<char, 10> digits{"#"};
    std::size_t at = 1;
    for (unsigned const byte : {value.r, value.g, value.b, value.a})
        for (unsigned const half : {byte >> 4, byte & 15})
            digits[at++] = "0123456789abcdef"[half];
    text(name, digits.data());
}

void xml_out::field(char const *name, std::wstring const &value)
{
    text(name, text::wide_to_whole_utf8(value).c_str());
}

void xml_out::field(char const *name, std::string const &value)
{
    field(name, text::to_wide(value));
}

void xml_out::field(char const *name, std::vector<double> const &values)
{
    std::string row;
    number_text buffer{};
    for (double const value : values) {
        if (!row.empty())
            row += ' ';
        row += to_text(value, buffer);
    }
    text(name, row.c_str());
}

void xml_out::field(char const *name, vx_fnt_type const &font)
{
    field(name, std::wstring(font.wname()));
    field("charset", static_cast<int>(font.charset));
    field("bold", font.bold);
    field("italic", font.italic);
    field("underline", font.underline);
    field("strikeout", font.strikeout);
}

void xml_out::field(char const *name, std::map<std::string, std::wstring> const &texts)
{
    for (auto const &[language, text] : texts)
        field((name + ("_" + language)).c_str(), text);
}

xml_out xml_out::child(char const *name)
{
    return xml_out(pugi::xml_node(f_node).append_child(name).internal_object());
}

// ---- reading
xml_in::xml_in(reading &state, pugi::xml_node_struct *node)
    : f_state(&state), f_node(node), f_attribute(pugi::xml_node(node).first_attribute().internal_object()),
      f_child(pugi::xml_node(node).first_child().internal_object())
{
}

char const *xml_in::take(char const *name)
{
    // Files that this system wrote have their attributes in the order in which they are asked for.
    pugi::xml_attribute found(f_attribute);
    unsigned at = f_at;
    if (!found || std::strcmp(found.name(), name) != 0) {
        at = 0;
        for (found = pugi::xml_node(f_node).first_attribute(); found && std::strcmp(found.name(), name) != 0;
             found = found.next_attribute())
            ++at;
    }
    if (!found)
        return nullptr;
    f_taken |= taken_bit(at);
    f_at = at + 1;
    f_attribute = found.next_attribute().internal_object();
    return found.value();
}

void xml_in::fail(char const *place, std::wstring reason)
{
    if (f_state->good)
        *f_state = {false, place, std::move(reason)};
}

void xml_in::fail()
{
    char const *const name = pugi::xml_node(f_node).name();
    fail(name, vx_res_format_w(c_capt_why_contents, quoted(name)));
}

void xml_in::refuse(char const *name, char const *value)
{
    fail(value, vx_res_format_w(c_capt_why_value, {quoted(value), quoted(name)}));
}

template <class T>
void xml_in::number(char const *name, T &value)
{
    if (char const *text = take(name); text && !from_text<T>(text, value))
        refuse(name, text);
}

void xml_in::field(char const *name, bool &value)
{
    char const *text = take(name);
    if (!text)
        return;
    if ((*text != '0' && *text != '1') || text[1])
        refuse(name, text);
    else
        value = *text == '1';
}

void xml_in::field(char const *name, int &value)
{
    number(name, value);
}

void xml_in::field(char const *name, unsigned &value)
{
    number(name, value);
}

void xml_in::field(char const *name, double &value)
{
    char const *text = take(name);
    if (text && (!from_text(text, value) || !std::isfinite(value)))
        refuse(name, text);
}

void xml_in::bound(char const *name, double &value)
{
    number(name, value);
}

void xml_in::field(char const *name, Tvx_color &value)
{
    char const *text = take(name);
    if (!text)
        return;
    unsigned bits = 0;
    if (std::strlen(text) != 9 || *text != '#' ||
        std::from_chars(text + 1, text + 9, bits, 16).ptr != text + 9)
        return refuse(name, text);
    value = vx_clr_init_rgba(static_cast<int>(bits >> 24), static_cast<int>(bits >> 16 & 255),
                             static_cast<int>(bits >> 8 & 255), static_cast<int>(bits & 255));
}

void xml_in::field(char const *name, std::wstring &value)
{
    if (char const *text = take(name))
        value = text::whole_utf8_to_wide(text);
}

void xml_in::field(char const *name, std::string &value)
{
    if (char const *text = take(name))
        value = text::to_bytes(text::utf8_to_wide(text));
}

void xml_in::field(char const *name, std::vector<double> &values)
{
    char const *text = take(name);
    if (!text)
        return;
    values.clear();
    if (!for_each_number(text, [&](double value) { values.push_back(value); }))
        refuse(name, text);
}

void xml_in::field(char const *name, vx_fnt_type &font)
{
    std::wstring family = font.wname();
    int charset = font.charset;
    field(name, family);
    field("charset", charset);
    field("bold", font.bold);
    field("italic", font.italic);
    field("underline", font.underline);
    field("strikeout", font.strikeout);
    if (charset < 0 || charset > 255)
        return fail();
    font.set_wname(family.c_str());
    font.charset = static_cast<unsigned char>(charset);
}

void xml_in::field(char const *name, std::map<std::string, std::wstring> &texts)
{
    std::string const prefix = name + std::string("_");
    unsigned at = 0;
    for (pugi::xml_attribute const attribute : pugi::xml_node(f_node).attributes()) {
        std::string_view language = attribute.name();
        bool const ours = language.starts_with(prefix);
        language.remove_prefix(ours ? prefix.size() : 0);
        if (ours && language.size() >= 2 && language.size() <= 3 &&
            std::ranges::all_of(language, [](char c) { return c >= 'a' && c <= 'z'; })) {
            texts[std::string(language)] = text::whole_utf8_to_wide(attribute.value());
            f_taken |= taken_bit(at);
        }
        ++at;
    }
}

bool xml_in::at(char const *name) const
{
    return f_child && std::strcmp(pugi::xml_node(f_child).name(), name) == 0;
}

xml_in xml_in::child(char const *name)
{
    if (!at(name)) {
        pugi::xml_node const instead(f_child);
        fail(place_of(instead ? instead : pugi::xml_node(f_node)),
             vx_res_format_w(c_capt_why_missing, {quoted(name), quoted(pugi::xml_node(f_node).name())}));
        return {*f_state, nullptr};
    }
    pugi::xml_node const found(f_child);
    f_child = found.next_sibling().internal_object();
    return {*f_state, found.internal_object()};
}

void xml_in::finish()
{
    if (pugi::xml_node const child(f_child); child) {
        char const *const what = place_of(child);
        bool const is_text = child.type() != pugi::node_element;
        fail(what, vx_res_format_w(is_text ? c_capt_why_text : c_capt_why_element, quoted(what)));
    }
    unsigned at = 0;
    for (pugi::xml_attribute const attribute : pugi::xml_node(f_node).attributes())
        if (!(f_taken & taken_bit(at++)))
            fail(attribute.name(), vx_res_format_w(c_capt_why_attribute, quoted(attribute.name())));
}

// ---- folding
void hash_out::add(std::uint64_t value) const
{
    std::uint64_t h = (*f_sum ^ value) * 0x9E3779B97F4A7C15u;
    *f_sum = h ^ h >> 32;
}

void hash_out::field(char const *, double value)
{
    std::uint64_t bits = 0;
    value += 0.0; // one zero
    std::memcpy(&bits, &value, sizeof bits);
    add(bits);
}

void hash_out::field(char const *, Tvx_color value)
{
    add(static_cast<std::uint64_t>(value.r) << 24 | static_cast<std::uint64_t>(value.g) << 16 |
        static_cast<std::uint64_t>(value.b) << 8 | value.a);
}

void hash_out::field(char const *, std::wstring const &value)
{
    add(std::hash<std::wstring>()(value));
}

void hash_out::field(char const *, std::string const &value)
{
    add(std::hash<std::string>()(value));
}

void hash_out::field(char const *name, std::vector<double> const &values)
{
    add(values.size());
    for (double const value : values)
        field(name, value);
}

void hash_out::field(char const *, vx_fnt_type const &font)
{
    add(std::hash<std::wstring_view>()(font.wname()));
    add(static_cast<std::uint64_t>(font.charset) << 4 | (font.bold ? 1u : 0u) | (font.italic ? 2u : 0u) |
        (font.underline ? 4u : 0u) | (font.strikeout ? 8u : 0u));
}

// ---- files
struct xml_file::content
{
    std::string bytes;                    ///< what was parsed: the document's names and texts lie in it
    std::vector<std::uint32_t> line_ends; ///< in them, as they were before they were parsed
    pugi::xml_document doc;
    bool with_checksum = true; ///< of a file being written
};

namespace {
/// Places of the line feeds, up to as many as a message would name.
std::vector<std::uint32_t> line_ends_of(std::string_view bytes)
{
    constexpr std::size_t c_most = 1'000'000;
    std::vector<std::uint32_t> ends;
    for (auto at = bytes.find('\n'); at != bytes.npos && ends.size() < c_most; at = bytes.find('\n', at + 1))
        ends.push_back(static_cast<std::uint32_t>(at));
    return ends;
}

/// Where something follows the last tag; npos when only white space does. The parser overlooks some of it.
std::size_t behind_tags(std::string_view bytes)
{
    auto const tag = bytes.rfind('>');
    auto const rest =
        std::find_if_not(bytes.begin() + (tag == bytes.npos ? 0 : tag + 1), bytes.end(), is_space);
    return rest == bytes.end() ? bytes.npos : static_cast<std::size_t>(rest - bytes.begin());
}
} // namespace

xml_file::xml_file() : f_content(std::make_unique<content>())
{
}
xml_file::~xml_file() = default;

xml_fault xml_file::fault_at(char const *place, std::wstring reason) const
{
    auto const &bytes = f_content->bytes;
    auto const &ends = f_content->line_ends;
    std::size_t line = 0;
    if (place && place >= bytes.data() && place <= bytes.data() + bytes.size()) {
        auto const at = static_cast<std::uint32_t>(place - bytes.data());
        line = static_cast<std::size_t>(std::ranges::lower_bound(ends, at) - ends.begin()) + 1;
    }
    return {xml_fault::damaged, line, std::move(reason)};
}

xml_fault xml_file::outcome(reading const &state) const
{
    return state.good ? xml_fault() : fault_at(state.place, state.reason);
}

xml_fault xml_file::parse(std::string bytes, char const *root_name, int newest)
{
    if (!within_limits(bytes))
        return {xml_fault::damaged, 0, vx_res_get_wstr(c_capt_why_size)};
    f_content->bytes = std::move(bytes);
    std::string &text = f_content->bytes;
    // Parsing changes the bytes, so all that looks at them comes first.
    f_content->line_ends = line_ends_of(text);
    auto const digits = crc_place(text);
    auto const sum = digits == text.npos ? std::array<char, 9>{} : crc_text(text, digits);
    // The parser takes a zero for the end.
    auto const zero = text.find('\0');
    auto const rest = zero == text.npos ? behind_tags(text) : zero;
    pugi::xml_document &doc = f_content->doc;
    // As a fragment, so that texts outside the root are seen. Line ends of texts would move what follows.
    unsigned const flags =
        (pugi::parse_default & ~pugi::parse_eol) | pugi::parse_doctype | pugi::parse_fragment;
    auto const result = doc.load_buffer_inplace(text.data(), text.size(), flags, pugi::encoding_utf8);
    if (!result)
        return fault_at(text.data() + result.offset, parse_reason(result.status));
    if (rest != text.npos)
        return fault_at(text.data() + rest, vx_res_get_wstr(c_capt_why_outside));
    pugi::xml_node root;
    for (pugi::xml_node const node : doc.children()) {
        if (node.type() == pugi::node_element && !root)
            root = node;
        else // a document type, a second root, a text
            return fault_at(place_of(node), vx_res_get_wstr(c_capt_why_outside));
    }
    if (!root)
        return fault_at(nullptr, vx_res_get_wstr(c_capt_why_markup));
    if (std::strcmp(root.name(), root_name) != 0)
        return {xml_fault::other};
    int version = 0;
    if (char const *const given = root.attribute("version").value();
        !from_text(std::string_view(given), version) || version < 1)
        return fault_at(*given ? given : root.name(),
                        vx_res_format_w(c_capt_why_value, {quoted(given), L"version"}));
    if (version > newest)
        return {xml_fault::newer};
    root.remove_attribute("version");
    if (pugi::xml_attribute const crc = root.attribute("crc")) {
        if (std::strcmp(crc.value(), sum.data()) != 0)
            return fault_at(crc.name(), vx_res_get_wstr(c_capt_why_checksum));
        root.remove_attribute(crc);
    }
    return {};
}

xml_in xml_file::root(reading &state)
{
    return {state, f_content->doc.document_element().internal_object()};
}

xml_out xml_file::make(char const *root_name, int version, bool with_checksum)
{
    pugi::xml_document &doc = f_content->doc;
    auto declaration = doc.append_child(pugi::node_declaration);
    declaration.append_attribute("version").set_value("1.0");
    declaration.append_attribute("encoding").set_value("UTF-8");
    auto root = doc.append_child(root_name);
    root.append_attribute("version").set_value(version);
    f_content->with_checksum = with_checksum;
    if (with_checksum)
        root.append_attribute("crc").set_value(c_no_crc.data());
    return xml_out(root.internal_object());
}

std::string xml_file::bytes()
{
    struct writer final : pugi::xml_writer
    {
        std::string bytes;
        void write(void const *data, size_t size) override
        {
            bytes.append(static_cast<char const *>(data), size);
        }
    };
    writer out;
    f_content->doc.save(out, " ", pugi::format_indent, pugi::encoding_utf8);
    if (!within_limits(out.bytes))
        return {};
    if (f_content->with_checksum) {
        auto const digits = crc_place(out.bytes);
        if (digits == out.bytes.npos)
            return {};
        out.bytes.replace(digits, c_no_crc.size(), crc_text(out.bytes, digits).data());
    }
    return std::move(out.bytes);
}
} // namespace vx::storage
