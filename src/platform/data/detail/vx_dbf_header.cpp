#include "platform/data/detail/vx_dbf_header.h"

#include "platform/base/ascii_case.h"
#include "platform/data/vx_dbf.h"
#include "platform/winapi/codepage.h"

#include <algorithm>
#include <charconv>
#include <limits>

namespace vx::dbf {
namespace {
constexpr std::size_t c_slot = 32; ///< size of the first part of the header and of each field's entry
constexpr char c_end_of_fields = 0x0D;
constexpr unsigned c_version_7 = 4; ///< low three bits of the version whose entries have another layout

unsigned byte(std::string_view bytes, std::size_t at)
{
    return static_cast<unsigned char>(bytes[at]);
}

unsigned word(std::string_view bytes, std::size_t at)
{
    return byte(bytes, at) | byte(bytes, at + 1) << 8;
}

bool is_visual(unsigned version)
{
    return version >= 0x30 && version <= 0x32;
}

int type_of(char letter, int width, unsigned version)
{
    switch (letter) {
    case 'C':
    case 'V':
        return c_dbf_character;
    case 'N':
    case 'F':
        return c_dbf_number;
    case 'L':
        return c_dbf_logical;
    case 'D':
        return c_dbf_date;
    case 'M':
        return c_dbf_memo;
    case 'I':
        return width == 4 ? c_dbf_integer : c_dbf_unknown;
    case 'O':
    case 'Y':
        return width == 8 ? c_dbf_double : c_dbf_unknown;
    case 'T':
        return width == 8 ? c_dbf_date_time : c_dbf_unknown;
    case 'B': // a number in one family of programs, an object beside the table in the other
        return is_visual(version) && width == 8 ? c_dbf_double : c_dbf_binary;
    case 'G':
    case 'P':
    case 'Q':
    case 'W':
        return c_dbf_binary;
    default:
        return c_dbf_unknown;
    }
}

bool parse_field(std::string_view slot, unsigned version, field &target)
{
    auto name = slot.substr(0, 11);
    name = name.substr(0, name.find('\0'));
    while (!name.empty() && name.back() == ' ')
        name.remove_suffix(1);
    char const letter = slot[11];
    if (name.empty() || letter <= ' ' || letter > '~' ||
        std::any_of(name.begin(), name.end(), [](char c) { return static_cast<unsigned char>(c) < ' '; }))
        return false;
    target.name = name;
    target.letter = letter;
    target.width = static_cast<int>(byte(slot, 16));
    target.decimals = letter == 'C' ? 0 : static_cast<int>(byte(slot, 17));
    target.type = type_of(letter, target.width, version);
    // The width of a wide character field may have nothing in its low byte.
    return target.width > 0 || (letter == 'C' && byte(slot, 17) > 0);
}

/// Gives the fields their places; the length of the record that they make.
std::uint64_t lay_out(std::vector<field> &fields)
{
    int offset = 1;
    for (auto &one : fields) {
        one.offset = offset;
        offset += one.width;
    }
    return static_cast<std::uint64_t>(offset);
}

struct driver_page
{
    unsigned char mark;
    unsigned short page;
};
/// The marks of the language drivers that programs have written. 0x57, "ANSI", says nothing.
constexpr driver_page c_driver_pages[] = {
    {0x01, 437},   {0x02, 850},   {0x03, 1252},  {0x04, 10000}, {0x08, 865},  {0x09, 437},  {0x0A, 850},
    {0x0B, 437},   {0x0D, 437},   {0x0E, 850},   {0x0F, 437},   {0x10, 850},  {0x11, 437},  {0x12, 850},
    {0x13, 932},   {0x14, 850},   {0x15, 437},   {0x16, 850},   {0x17, 865},  {0x18, 437},  {0x19, 437},
    {0x1A, 850},   {0x1B, 437},   {0x1C, 863},   {0x1D, 850},   {0x1F, 852},  {0x22, 852},  {0x23, 852},
    {0x24, 860},   {0x25, 850},   {0x26, 866},   {0x37, 850},   {0x40, 852},  {0x4D, 936},  {0x4E, 949},
    {0x4F, 950},   {0x50, 874},   {0x58, 1252},  {0x59, 1252},  {0x64, 852},  {0x65, 866},  {0x66, 865},
    {0x67, 861},   {0x6A, 737},   {0x6B, 857},   {0x6C, 863},   {0x78, 950},  {0x79, 949},  {0x7A, 936},
    {0x7B, 932},   {0x7C, 874},   {0x7D, 1255},  {0x7E, 1256},  {0x86, 737},  {0x87, 852},  {0x88, 857},
    {0x96, 10007}, {0x97, 10029}, {0x98, 10006}, {0xC8, 1250},  {0xC9, 1251}, {0xCA, 1254}, {0xCB, 1253},
    {0xCC, 1257},
};

unsigned known(unsigned page)
{
    return page && vx_is_code_page(page) ? page : 0;
}

struct named_page
{
    std::string_view name; ///< letters and digits of the name
    unsigned page;
};
/// Names without the number of the page, or with another number in them.
constexpr named_page c_named_pages[] = {
    {"KOI8R", 20866},       {"KOI8U", 21866},     {"SHIFTJIS", 932}, {"SJIS", 932},    {"GBK", 936},
    {"GB2312", 936},        {"GB18030", 54936},   {"BIG5", 950},     {"EUCKR", 949},   {"EUCJP", 51932},
    {"MACCYRILLIC", 10007}, {"MACINTOSH", 10000}, {"LATIN1", 1252},  {"ASCII", 20127}, {"USASCII", 20127},
};

unsigned page_of_name(std::string_view upper)
{
    std::string name;
    std::ranges::copy_if(upper, std::back_inserter(name),
                         [](char c) { return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9'); });
    auto const found = std::ranges::find(c_named_pages, name, &named_page::name);
    return found == std::end(c_named_pages) ? 0 : known(found->page);
}

constexpr unsigned c_iso_8859 = 8859;
constexpr unsigned c_iso_8859_pages = 28590; ///< plus the number of the part

/// The next number in the text, with what comes before it cut off; 0 if there is none.
unsigned take_number(std::string_view &text)
{
    auto const at = text.find_first_of("0123456789");
    if (at == std::string_view::npos)
        return 0;
    unsigned value = 0;
    auto const result = std::from_chars(text.data() + at, text.data() + text.size(), value);
    text.remove_prefix(static_cast<std::size_t>(result.ptr - text.data()));
    return result.ec == std::errc() ? value : 0;
}
} // namespace

std::optional<header> parse_header(std::string_view bytes, std::uint64_t file_size)
{
    if (bytes.size() < c_slot)
        return std::nullopt;
    unsigned const version = byte(bytes, 0);
    header made;
    std::uint64_t const count = word(bytes, 4) | std::uint64_t{word(bytes, 6)} << 16;
    made.length = word(bytes, 8);
    made.record_length = word(bytes, 10);
    made.driver = static_cast<unsigned char>(bytes[c_driver_at]);
    if (version == 0 || (version & 7U) == c_version_7 || made.length <= c_slot ||
        made.length > bytes.size() || made.length > file_size || made.record_length < 2 ||
        count > static_cast<std::uint64_t>(std::numeric_limits<int>::max()))
        return std::nullopt;

    std::vector<field> wide; // the same fields, character fields with widths of two bytes
    for (std::size_t at = c_slot; at < made.length && bytes[at] != c_end_of_fields; at += c_slot) {
        field one;
        if (at + c_slot > made.length || !parse_field(bytes.substr(at, c_slot), version, one))
            return std::nullopt;
        made.fields.push_back(one);
        if (one.letter == 'C')
            one.width += static_cast<int>(byte(bytes, at + 17) << 8);
        wide.push_back(one);
    }
    auto const needed = lay_out(made.fields);
    if (made.fields.empty() || needed > made.record_length)
        return std::nullopt;
    made.wide = needed < made.record_length && lay_out(wide) == made.record_length;
    if (made.wide)
        made.fields = std::move(wide);
    if (std::ranges::any_of(made.fields, [](field const &one) { return one.width == 0; }))
        return std::nullopt;
    made.records = static_cast<int>(std::min(count, (file_size - made.length) / made.record_length));
    return made;
}

unsigned code_page_of_driver(unsigned driver)
{
    auto const found = std::ranges::find(c_driver_pages, driver, &driver_page::mark);
    return found == std::end(c_driver_pages) ? 0 : known(found->page);
}

unsigned code_page_of(std::string_view mark)
{
    std::string const upper = text::ascii_upper(std::string(mark));
    std::string_view rest = upper;
    if (rest.starts_with("LDID/"))
        return code_page_of_driver(take_number(rest));
    if (rest.find("UTF") != std::string_view::npos)
        return rest.find('8') != std::string_view::npos ? CP_UTF8 : 0;
    if (unsigned const page = page_of_name(upper))
        return page;
    unsigned number = take_number(rest);
    if (number != c_iso_8859) {
        // "ISO88595" has its part without a sign between.
        bool const glued = number / 10 == c_iso_8859 || number / 100 == c_iso_8859;
        if (!glued)
            return known(number);
        number = number / 10 == c_iso_8859 ? number % 10 : number % 100;
    } else {
        number = take_number(rest);
    }
    unsigned const page = known(c_iso_8859_pages + number);
    return page || number != 1 ? page : 1252; // the page that holds all of the first part
}
} // namespace vx::dbf
