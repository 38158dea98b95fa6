#include "platform/storage/detail/xml_element.h"

#include "platform/base/text_codec.h"
#include "platform/storage/detail/checksum.h"

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
    if (!found || std::strcmp(found.name(), name) != 0)
        found = pugi::xml_node(f_node).attribute(name);
    if (!found)
        return nullptr;
    ++f_taken;
    f_attribute = found.next_attribute().internal_object();
    return found.value();
}

template <class T>
void xml_in::number(char const *name, T &value)
{
    if (char const *text = take(name); text && !from_text<T>(text, value))
        fail();
}

void xml_in::field(char const *name, bool &value)
{
    char const *text = take(name);
    if (!text)
        return;
    if ((*text != '0' && *text != '1') || text[1])
        fail();
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
    number(name, value);
    if (!std::isfinite(value))
        fail();
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
        return fail();
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
        fail();
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

bool xml_in::at(char const *name) const
{
    return f_child && std::strcmp(pugi::xml_node(f_child).name(), name) == 0;
}

xml_in xml_in::child(char const *name)
{
    if (!at(name)) {
        fail();
        return {*f_state, nullptr};
    }
    pugi::xml_node const found(f_child);
    f_child = found.next_sibling().internal_object();
    return {*f_state, found.internal_object()};
}

void xml_in::finish()
{
    auto const attributes = pugi::xml_node(f_node).attributes();
    if (f_child || std::distance(attributes.begin(), attributes.end()) != f_taken)
        fail();
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
    std::string bytes; ///< what was parsed: the document's texts lie in it
    pugi::xml_document doc;
};

xml_file::xml_file() : f_content(std::make_unique<content>())
{
}
xml_file::~xml_file() = default;

xml_fault xml_file::parse(std::string bytes, char const *root_name, int newest)
{
    if (!within_limits(bytes))
        return xml_fault::damaged;
    f_content->bytes = std::move(bytes);
    std::string &text = f_content->bytes;
    // Parsing changes the bytes, so the checksum comes first.
    auto const digits = crc_place(text);
    auto const sum = digits == text.npos ? std::array<char, 9>{} : crc_text(text, digits);
    pugi::xml_document &doc = f_content->doc;
    unsigned const flags = pugi::parse_default | pugi::parse_doctype;
    if (!doc.load_buffer_inplace(text.data(), text.size(), flags, pugi::encoding_utf8))
        return xml_fault::damaged;
    pugi::xml_node root;
    for (pugi::xml_node const node : doc.children()) {
        if (node.type() != pugi::node_element || root)
            return xml_fault::damaged; // a document type, or a second root
        root = node;
    }
    if (std::strcmp(root.name(), root_name) != 0)
        return xml_fault::other;
    int version = 0;
    if (!from_text(root.attribute("version").value(), version) || version < 1)
        return xml_fault::damaged;
    if (version > newest)
        return xml_fault::newer;
    root.remove_attribute("version");
    if (pugi::xml_attribute const crc = root.attribute("crc")) {
        if (std::strcmp(crc.value(), sum.data()) != 0)
            return xml_fault::damaged;
        root.remove_attribute(crc);
    }
    return xml_fault::none;
}

xml_in xml_file::root(reading &state)
{
    return {state, f_content->doc.document_element().internal_object()};
}

xml_out xml_file::make(char const *root_name, int version)
{
    pugi::xml_document &doc = f_content->doc;
    auto declaration = doc.append_child(pugi::node_declaration);
    declaration.append_attribute("version").set_value("1.0");
    declaration.append_attribute("encoding").set_value("UTF-8");
    auto root = doc.append_child(root_name);
    root.append_attribute("version").set_value(version);
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
    auto const digits = crc_place(out.bytes);
    if (digits == out.bytes.npos || !within_limits(out.bytes))
        return {};
    out.bytes.replace(digits, c_no_crc.size(), crc_text(out.bytes, digits).data());
    return std::move(out.bytes);
}
} // namespace vx::storage
