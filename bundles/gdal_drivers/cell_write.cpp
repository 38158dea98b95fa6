#include "cell_write.h"

#include "gdal_errors.h"

#include <cpl_conv.h>
#include <cpl_string.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <climits>
#include <cmath>
#include <limits>
#include <string_view>

namespace vx::gdal {
namespace {
constexpr int c_widest_dbf_text = 254;
/// Characters that the format gives a number of no declared width, and the decimals among them.
constexpr int c_dbf_number_width = 24;
constexpr int c_dbf_decimals = 15;
/// The time zone of a moment: not known, and Greenwich with quarters of an hour counted from it.
constexpr int c_zone_unknown = 0;
constexpr int c_zone_greenwich = 100;

std::string_view without_blanks(std::string_view text)
{
    std::size_t const first = text.find_first_not_of(' ');
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

/// The text as a whole, blanks round it and a plus sign aside.
template <class T>
bool read_number(std::string_view text, T &value)
{
    text = without_blanks(text);
    if (text.size() > 1 && text.front() == '+' && text[1] != '-')
        text.remove_prefix(1);
    auto const [end, problem] = std::from_chars(text.data(), text.data() + text.size(), value);
    return problem == std::errc() && end == text.data() + text.size();
}

/// Reads a date or a time from the front of a text.
class moment_reader
{
public:
    explicit moment_reader(std::string_view text) : f_text(without_blanks(text)) {}
    [[nodiscard]] bool is_at_end() const { return f_text.empty(); }
    bool take(char wanted)
    {
        if (f_text.empty() || f_text.front() != wanted)
            return false;
        f_text.remove_prefix(1);
        return true;
    }
    bool digits(std::size_t least, std::size_t most, int &value)
    {
        std::size_t count = 0;
        value = 0;
        while (count < f_text.size() && count < most && f_text[count] >= '0' && f_text[count] <= '9')
            value = value * 10 + (f_text[count++] - '0');
        f_text.remove_prefix(count);
        return count >= least;
    }
    bool date(int &year, int &month, int &day)
    {
        constexpr std::array c_days{31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
        if (!digits(4, 4, year) || !(take('-') || take('/')) || !digits(1, 2, month) ||
            !(take('-') || take('/')) || !digits(1, 2, day) || month < 1 || month > 12 || day < 1)
            return false;
        bool const is_leap = year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
        return day <= c_days[static_cast<std::size_t>(month - 1)] && (month != 2 || day < 29 || is_leap);
    }
    bool time(int &hour, int &minute, float &second)
    {
        int whole = 0;
        second = 0;
        if (!digits(1, 2, hour) || !take(':') || !digits(2, 2, minute) || hour > 23 || minute > 59)
            return false;
        if (!take(':'))
            return true;
        if (!digits(2, 2, whole) || whole > 60)
            return false;
        int parts = 0;
        if (take('.')) {
            std::size_t const before = f_text.size();
            if (!digits(1, 9, parts))
                return false;
            second = static_cast<float>(parts / std::pow(10.0, static_cast<double>(before - f_text.size())));
        }
        second += static_cast<float>(whole);
        return true;
    }
    /// Quarters of an hour are all that is kept of a zone.
    bool zone(int &value)
    {
        if (take('Z')) {
            value = c_zone_greenwich;
            return true;
        }
        bool const is_east = take('+');
        int hours = 0;
        int minutes = 0;
        if ((!is_east && !take('-')) || !digits(2, 2, hours))
            return false;
        (void)take(':');
        if (!f_text.empty() && !digits(2, 2, minutes))
            return false;
        int const quarters = hours * 4 + minutes / 15;
        value = c_zone_greenwich + (is_east ? quarters : -quarters);
        return hours <= 14 && minutes % 15 == 0;
    }

private:
    std::string_view f_text;
};

bool put_moment(OGRFeature &record, int field, OGRFieldType type, std::string const &text)
{
    moment_reader reader(text);
    int year = 0, month = 0, day = 0, hour = 0, minute = 0, zone = c_zone_unknown;
    float second = 0;
    if (type != OFTTime) {
        if (!reader.date(year, month, day))
            return false;
        if (!reader.is_at_end() &&
            !((reader.take('T') || reader.take(' ')) && reader.time(hour, minute, second)))
            return false;
        // A day keeps no time of it.
        if (type == OFTDate && (hour != 0 || minute != 0 || second != 0))
            return false;
    } else if (!reader.time(hour, minute, second))
        return false;
    if (!reader.is_at_end() && !reader.zone(zone))
        return false;
    if (!reader.is_at_end() || (type != OFTDateTime && zone != c_zone_unknown))
        return false;
    record.SetField(field, year, month, day, hour, minute, second, zone);
    return true;
}

bool fits_dbf_text(OGRFieldDefn const &defn, std::string const &utf8, cell_rules const &rules)
{
    std::string stored = utf8;
    if (!rules.encoding.empty()) {
        quiet_errors const quiet;
        char *const there = CPLRecode(utf8.c_str(), CPL_ENC_UTF8, rules.encoding.c_str());
        char *const back = CPLRecode(there, rules.encoding.c_str(), CPL_ENC_UTF8);
        bool const is_same = utf8 == back;
        stored = there;
        CPLFree(there);
        CPLFree(back);
        if (!is_same)
            return false;
    }
    // Columns grow with their texts as far as the format goes.
    return stored.size() <= static_cast<std::size_t>(std::max(defn.GetWidth(), c_widest_dbf_text));
}

/// The number as the table spells it is the number, as far as the decimals of the column go.
bool fits_dbf_number(OGRFieldDefn const &defn, double value)
{
    int const width = defn.GetWidth() > 0 ? defn.GetWidth() : c_dbf_number_width;
    int const decimals = defn.GetWidth() > 0 ? defn.GetPrecision() : c_dbf_decimals;
    std::array<char, 400> room;
    auto const [end, problem] =
        std::to_chars(room.data(), room.data() + room.size(), value, std::chars_format::fixed, decimals);
    if (problem != std::errc())
        return false;
    std::string_view text(room.data(), static_cast<std::size_t>(end - room.data()));
    text = text.substr(0, static_cast<std::size_t>(width));
    double stored = 0;
    auto const read = std::from_chars(text.data(), text.data() + text.size(), stored);
    double const rounding = std::max(0.51 * std::pow(10.0, -decimals),
                                     8 * std::numeric_limits<double>::epsilon() * std::fabs(value));
    return read.ec == std::errc() && std::fabs(stored - value) <= rounding;
}

/// A double holds every whole number up to here.
constexpr double c_two_to_63 = 9223372036854775808.0;

bool is_exact_double(long long value)
{
    auto const as_double = static_cast<double>(value);
    return as_double < c_two_to_63 && static_cast<long long>(as_double) == value;
}

bool fits_whole(OGRFieldDefn const &defn, long long value)
{
    if (defn.GetSubType() == OFSTBoolean)
        return value == 0 || value == 1;
    if (defn.GetSubType() == OFSTInt16)
        return value >= SHRT_MIN && value <= SHRT_MAX;
    return defn.GetType() != OFTInteger || (value >= INT_MIN && value <= INT_MAX);
}

bool fits_real(OGRFieldDefn const &defn, double value, cell_rules const &rules)
{
    if (std::isnan(value))
        return rules.keeps_nan;
    if (std::isinf(value))
        return rules.keeps_infinity;
    if (defn.GetSubType() == OFSTFloat32 && std::fabs(value) > std::numeric_limits<float>::max())
        return false;
    return !rules.is_dbf || fits_dbf_number(defn, value);
}

/// The shortest text that reads as the same number.
std::string exact_text(double value)
{
    std::array<char, 40> text;
    return {text.data(), std::to_chars(text.data(), text.data() + text.size(), value).ptr};
}
} // namespace

bool put_text(OGRFeature &record, int field, std::string const &utf8, cell_rules const &rules)
{
    OGRFieldDefn const &defn = *record.GetFieldDefnRef(field);
    switch (defn.GetType()) {
    case OFTInteger:
    case OFTInteger64: {
        long long whole = 0;
        if (read_number(utf8, whole))
            return put_whole(record, field, whole, rules);
        double number = 0;
        return read_number(utf8, number) && put_number(record, field, number, rules);
    }
    case OFTReal: {
        double number = 0;
        return read_number(utf8, number) && put_number(record, field, number, rules);
    }
    case OFTDate:
    case OFTTime:
    case OFTDateTime:
        return put_moment(record, field, defn.GetType(), utf8);
    case OFTString:
        if (rules.is_dbf && !fits_dbf_text(defn, utf8, rules))
            return false;
        if (rules.bounds_texts && defn.GetWidth() > 0 && CPLStrlenUTF8(utf8.c_str()) > defn.GetWidth())
            return false;
        break;
    default:
        break;
    }
    quiet_errors const quiet;
    record.SetField(field, utf8.c_str());
    return true;
}

bool put_whole(OGRFeature &record, int field, long long value, cell_rules const &rules)
{
    OGRFieldDefn const &defn = *record.GetFieldDefnRef(field);
    switch (defn.GetType()) {
    case OFTInteger:
    case OFTInteger64:
        if (!fits_whole(defn, value))
            return false;
        break;
    case OFTReal:
        return is_exact_double(value) && put_number(record, field, static_cast<double>(value), rules);
    case OFTString:
        return put_text(record, field, std::to_string(value), rules);
    case OFTIntegerList:
    case OFTInteger64List:
    case OFTRealList:
    case OFTStringList:
        break;
    default:
        return false; // a day, or bytes
    }
    record.SetField(field, static_cast<GIntBig>(value));
    return true;
}

bool put_number(OGRFeature &record, int field, double value, cell_rules const &rules)
{
    OGRFieldDefn const &defn = *record.GetFieldDefnRef(field);
    switch (defn.GetType()) {
    case OFTInteger:
    case OFTInteger64:
        return value >= -c_two_to_63 && value < c_two_to_63 && value == std::floor(value) &&
               put_whole(record, field, static_cast<long long>(value), rules);
    case OFTReal:
        if (!fits_real(defn, value, rules))
            return false;
        break;
    case OFTString:
        return put_text(record, field, exact_text(value), rules);
    case OFTIntegerList:
    case OFTInteger64List:
    case OFTRealList:
    case OFTStringList:
        break;
    default:
        return false;
    }
    record.SetField(field, value);
    return true;
}

bool put_bytes(OGRFeature &record, int field, int size, char const *bytes, cell_rules const &rules)
{
    if (size < 0 || (size > 0 && !bytes))
        return false;
    if (record.GetFieldDefnRef(field)->GetType() == OFTBinary) {
        record.SetField(field, size, static_cast<void const *>(bytes));
        return true;
    }
    // Of any other cell they are the text.
    std::string const text(bytes ? bytes : "", static_cast<std::size_t>(size));
    return text.find('\0') == std::string::npos && CPLIsUTF8(text.c_str(), size) &&
           put_text(record, field, text, rules);
}
} // namespace vx::gdal
