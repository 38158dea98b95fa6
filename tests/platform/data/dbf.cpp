#include "support/comma_locale.h"
#include "support/temp_dir.h"

#include "platform/base/text_codec.h"
#include "platform/data/vx_dbf.h"

#include <cstdint>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <vector>

namespace {
struct column
{
    std::string name;
    char letter;
    int width;
    int decimals = 0;
};

std::string little(std::uint64_t value, int bytes)
{
    std::string text;
    for (; bytes > 0; --bytes, value >>= 8)
        text += static_cast<char>(value & 255);
    return text;
}

/// A table from its parts, byte by byte after the format's description.
struct table_bytes
{
    std::vector<column> columns;
    std::vector<std::string> records; ///< with the deletion mark, as wide as the columns
    char version = 0x03;
    unsigned char mark = 0;

    [[nodiscard]] std::string str() const
    {
        std::size_t width = 1;
        for (auto const &one : columns)
            width += static_cast<std::size_t>(one.width);
        auto const length = 32 + 32 * columns.size() + 1;
        std::string text = version + std::string("\x70\x01\x01") + little(records.size(), 4) +
                           little(length, 2) + little(width, 2) + std::string(17, '\0') +
                           static_cast<char>(mark) + std::string(2, '\0');
        for (auto const &one : columns) {
            std::string name = one.name;
            name.resize(11);
            text += name + one.letter + little(0, 4) + static_cast<char>(one.width) +
                    static_cast<char>(one.letter == 'C' ? one.width >> 8 : one.decimals) +
                    std::string(14, '\0');
        }
        text += '\x0D';
        for (auto const &one : records) {
            text += one;
            text.resize(length + (static_cast<std::size_t>(&one - records.data()) + 1) * width, ' ');
        }
        return text + '\x1A';
    }
};

class dbf : public testing::Test
{
protected:
    vx::dbf_handle open(std::string const &bytes, bool dos = false)
    {
        vx_test::write_file(dir / "t.dbf", bytes);
        return vx::dbf_handle(vx_dbf_open((dir / "t.dbf").c_str(), 1, dos));
    }
    static std::string text(vx::dbf_handle const &table, int field, int record)
    {
        bool ok = false;
        std::string const value = vx_dbf_get_str(table.get(), field, record, &ok);
        return ok ? value : "-";
    }

    vx_test::temp_dir dir;
};

TEST_F(dbf, values_of_every_type)
{
    vx_test::comma_locale const locale;
    std::string const seven("\0\0\0\0\0\0\x1C\x40", 8); // 7.0
    struct
    {
        column field;
        std::string cell;
        char const *text;
        double number; ///< with `is_number`
        bool is_number;
        int type;
    } const cases[] = {
        {{"C", 'C', 6}, " ab ", " ab", 0, false, 1},
        {{"C", 'C', 6}, "", "-", 0, false, 1},
        {{"C", 'C', 6}, std::string("12\0old", 6), "12", 12, true, 1},
        {{"C", 'C', 6}, std::string("\0older", 6), "-", 0, false, 1},
        {{"C", 'C', 6}, "12.5", "12.5", 12.5, true, 1},
        {{"N", 'N', 8, 2}, "  -12.75", "-12.75", -12.75, true, 2},
        {{"N", 'N', 8}, "12", "12", 12, true, 2},
        {{"N", 'N', 4}, "****", "-", 0, false, 2},
        {{"N", 'N', 4}, "1,5", "1,5", 0, false, 2},
        {{"N", 'N', 12}, "3000000000", "3000000000", 3e9, true, 2},
        {{"F", 'F', 20}, "1.5e+3", "1.5e+3", 1500, true, 2},
        {{"L", 'L', 1}, "y", "y", 1, true, 3},
        {{"L", 'L', 1}, "F", "F", 0, true, 3},
        {{"L", 'L', 1}, "?", "-", 0, false, 3},
        {{"D", 'D', 8}, "20011231", "20011231", 20011231, true, 4},
        {{"M", 'M', 10}, "         1", "-", 0, false, 5},
        {{"I", 'I', 4}, little(0xFFFFFFFEU, 4), "-2", -2, true, 6},
        {{"B", 'B', 8, 2}, seven, "7", 7, true, 7},
        {{"B", 'B', 8, 2}, little(0x7FF8000000000000U, 8), "-", 0, false, 7},
        {{"Y", 'Y', 8, 4}, little(static_cast<std::uint64_t>(-12050), 8), "-1.2050", -1.205, true, 7},
        {{"T", 'T', 8}, little(2451545, 4) + little(43201000, 4), "2000-01-01 12:00:01", 0, false, 8},
        {{"T", 'T', 8}, std::string(8, '\xFF'), "-", 0, false, 8},
        {{"G", 'G', 10}, "         1", "-", 0, false, 9},
    };
    for (auto const &[field, cell, expected, number, is_number, type] : cases) {
        SCOPED_TRACE(field.letter + (" " + cell));
        auto const table = open(table_bytes{{field}, {" " + cell}, 0x30, 0x03}.str());
        ASSERT_TRUE(table);
        EXPECT_EQ(vx_dbf_get_field_type(table.get(), 0), type);
        EXPECT_EQ(vx_dbf_is_numeric(type), type == 2 || type == 6 || type == 7);
        EXPECT_EQ(text(table, 0, 0), expected);
        bool ok = !is_number;
        EXPECT_EQ(vx_dbf_get_dbl(table.get(), 0, 0, &ok), number);
        EXPECT_EQ(ok, is_number);
        bool const fits = is_number && number < 2147483648.0;
        EXPECT_EQ(vx_dbf_get_int(table.get(), 0, 0, &ok), fits ? static_cast<int>(number) : 0);
        EXPECT_EQ(ok, fits);
    }
}

TEST_F(dbf, binary_number_only_in_the_family_that_has_it)
{
    auto const table = open(table_bytes{{{"B", 'B', 8}}, {"        1"}}.str());
    ASSERT_TRUE(table);
    EXPECT_EQ(vx_dbf_get_field_type(table.get(), 0), c_dbf_binary);
}

TEST_F(dbf, code_page_by_flag_and_by_mark)
{
    // "Ж" in the pages 866, 1251, 1252 (another letter) and in UTF-8.
    struct
    {
        bool dos;
        unsigned char mark;
        char const *beside; ///< content of the .cpg file
        char const *bytes;
        wchar_t const *expected;
    } const cases[] = {
        {true, 0xC9, nullptr, "\x86", L"Ж"}, // the flag comes before the mark
        {false, 0x26, nullptr, "\x86", L"Ж"},
        {false, 0xC9, nullptr, "\xC6", L"Ж"},
        {false, 0xC9, "866\n", "\x86", L"Ж"},
        {false, 0x00, "CP1251", "\xC6", L"Ж"},
        {false, 0x00, "ISO-8859-5", "\xB6", L"Ж"},
        {false, 0x00, "ISO88595", "\xB6", L"Ж"},
        {false, 0x00, "OEM 866", "\x86", L"Ж"},
        {false, 0x00, "LDID/201", "\xC6", L"Ж"},
        {false, 0x00, "KOI8-R", "\xF6", L"Ж"},
        {false, 0x00, "koi8_u", "\xF6", L"Ж"},
        {false, 0x57, "utf-8\r\n", "\xD0\x96", L"Ж"},
        {false, 0x00, "nonsense", "\xD0\x96", L"Ж"}, // as without a mark
        {false, 0x00, nullptr, "\xD0\x96", L"Ж"},
        {false, 0x57, nullptr, "\xC6", L"Æ"},
        {false, 0x00, nullptr, "ab\xE9", L"abé"},
        // The field's end cuts the second letter.
        {false, 0x00, nullptr, "\xD0\x96\xD0", L"Ж"},
        {false, 0x00, "UTF-8", "\xD0\x96\xD0", L"Ж"},
    };
    for (auto const &[dos, mark, beside, bytes, expected] : cases) {
        SCOPED_TRACE(std::string(bytes) + (beside ? beside : ""));
        std::filesystem::remove(dir / "t.cpg");
        if (beside)
            vx_test::write_file(dir / "t.cpg", beside);
        auto const table = open(
            table_bytes{
                {{"F" + std::string(bytes).substr(0, 2), 'C', 3}}, {" " + std::string(bytes)}, 0x03, mark}
                .str(),
            dos);
        ASSERT_TRUE(table);
        EXPECT_STREQ(vx_dbf_get_wstr(table.get(), 0, 0, nullptr), expected);
        EXPECT_EQ(text(table, 0, 0), vx::text::to_bytes(expected));
    }
}

TEST_F(dbf, deleted_records_are_passed_over)
{
    // Deleted: the first, two in a row, the last.
    table_bytes bytes{{{"N", 'N', 2}}, {"*0", " 1", "*2", "*3", " 4", " 5", "*6"}};
    auto const table = open(bytes.str());
    ASSERT_EQ(vx_dbf_get_nr(table.get()), 3);
    for (int pass = 0; pass < 2; ++pass) // forwards and backwards
        for (int i = 0; i < 3; ++i) {
            int const record = pass ? 2 - i : i;
            EXPECT_EQ(vx_dbf_get_int(table.get(), 0, record, nullptr), record == 0 ? 1 : record + 3);
        }
    // The same size at once afterwards: what was found in the old file does not count any more.
    bytes.records[0] = " 0";
    EXPECT_EQ(vx_dbf_get_nr(open(bytes.str()).get()), 4);
    // A file that rests is looked through once; it is noticed when it changes later.
    auto const path = dir / "t.dbf";
    auto const age = [&](int hours) {
        auto const now = std::filesystem::file_time_type::clock::now();
        std::filesystem::last_write_time(path, now - std::chrono::hours(hours));
    };
    for (int change = 0; change < 2; ++change) {
        bytes.records[1] = change ? " 1" : "*1";
        vx_test::write_file(path, bytes.str());
        age(2 - change);
        for (int i = 0; i < 2; ++i)
            EXPECT_EQ(vx_dbf_get_nr(vx::dbf_handle(vx_dbf_open(path.c_str(), 1, 0)).get()), 3 + change);
    }
}

TEST_F(dbf, names_are_taken_as_they_stand)
{
    table_bytes const bytes{{{"A", 'C', 2}}, {" \x86"}};
    for (char const *name : {"Mixed.Dbf", "no_extension", "other.txt", "in.dir/plain", "путь.dbf"}) {
        SCOPED_TRACE(name);
        std::filesystem::create_directories((dir / name).parent_path());
        vx_test::write_file(dir / name, bytes.str());
        vx_test::write_file((dir / name).replace_extension(".cpg"), "866");
        vx::dbf_handle const table(vx_dbf_open((dir / name).c_str(), 1, 0));
        ASSERT_TRUE(table);
        EXPECT_EQ(text(table, 0, 0), "Ж");
    }
    ASSERT_EQ(mkfifo((dir / "pipe.dbf").c_str(), 0600), 0);
    for (auto const &name :
         {dir / "pipe.dbf", dir.path(), dir / "missing.dbf", dir / "Mixed", dir / "mixed.dbf"})
        EXPECT_EQ(vx_dbf_open(name.c_str(), 1, 0), nullptr) << name;
    EXPECT_EQ(vx_dbf_open(nullptr, 1, 0), nullptr);
    EXPECT_EQ(vx_dbf_open("", 1, 0), nullptr);
}

TEST_F(dbf, outside_the_table)
{
    auto const table = open(table_bytes{{{"A", 'C', 2}}, {" x"}}.str());
    for (auto const &[field, record] : std::vector<std::pair<int, int>>{{-1, 0}, {1, 0}, {0, -1}, {0, 1}})
        EXPECT_EQ(text(table, field, record), "-");
    EXPECT_STREQ(vx_dbf_get_field_name(table.get(), 1), "");
    EXPECT_EQ(vx_dbf_get_nf(nullptr), 0);
    EXPECT_EQ(vx_dbf_get_nr(nullptr), 0);
    EXPECT_STREQ(vx_dbf_get_str(nullptr, 0, 0, nullptr), "");
    vx_dbf_close(nullptr);
}

TEST_F(dbf, character_fields_wider_than_a_byte_tells)
{
    for (int const width : {700, 512}) { // the low byte of the second is 0
        std::string const long_text(static_cast<std::size_t>(width), 'x');
        std::string bytes =
            table_bytes{{{"LONG", 'C', width}, {"N", 'N', 3}}, {" " + long_text + " 42"}}.str();
        auto const table = open(bytes);
        ASSERT_TRUE(table) << width;
        EXPECT_EQ(text(table, 0, 0), long_text);
        EXPECT_EQ(text(table, 1, 0), "42");
        bytes[32 + 17] = '\x7F'; // wider than the record
        EXPECT_EQ(open(bytes) != nullptr, width == 700) << "a width of 0 is no width";
    }
}

TEST_F(dbf, damaged_headers_are_refused)
{
    std::string const good = table_bytes{{{"A", 'C', 2}, {"B", 'N', 3}}, {" ab 12"}}.str();
    ASSERT_TRUE(open(good));
    struct
    {
        char const *what;
        std::size_t at;
        std::string bytes;
    } const cases[] = {
        {"no version", 0, std::string(1, '\0')},
        {"another layout", 0, "\x8C"},
        {"header of no length", 8, little(0, 2)},
        {"header without fields", 8, little(32, 2)},
        {"header longer than the file", 8, little(9999, 2)},
        {"header that ends inside an entry", 8, little(40, 2)},
        {"records of no length", 10, little(0, 2)},
        {"records too short", 10, little(5, 2)},
        {"more records than can be", 4, "\xFF\xFF\xFF\xFF"},
        {"nameless field", 32, std::string(11, '\0')},
        {"control character", 32, "\x01"},
        {"no type", 32 + 11, std::string(1, '\0')},
        {"no width", 32 + 16, std::string(1, '\0')},
        {"wider than the record", 32 + 16, "\xFF"},
    };
    for (auto const &[what, at, bytes] : cases) {
        std::string damaged = good;
        damaged.replace(at, bytes.size(), bytes);
        EXPECT_FALSE(open(damaged)) << what;
    }
    // A header that claims more records than there are is no harm.
    std::string more = good;
    more.replace(4, 4, little(1000000, 4));
    EXPECT_EQ(vx_dbf_get_nr(open(more).get()), 1);
}

TEST_F(dbf, cut_at_any_byte_and_changed_at_any_byte)
{
    table_bytes const table{{{"NAME", 'C', 5}, {"N", 'N', 4, 1}, {"M", 'M', 10}, {"T", 'T', 8}},
                            {" abcde 1.5", "*fghij 2.5", " klmno 3.5"},
                            0x30};
    std::string const good = table.str();
    std::size_t const first = 32 + 4 * 32 + 1;
    std::size_t const width = 28;
    auto const read_all = [&](vx::dbf_handle const &opened) {
        for (int record = 0; record < vx_dbf_get_nr(opened.get()); ++record)
            for (int field = 0; field < vx_dbf_get_nf(opened.get()); ++field)
                EXPECT_NE(vx_dbf_get_wstr(opened.get(), field, record, nullptr), nullptr);
    };
    for (std::size_t size = 0; size < good.size(); ++size) {
        auto const opened = open(good.substr(0, size));
        EXPECT_EQ(opened != nullptr, size >= first) << size;
        EXPECT_EQ(vx_dbf_get_nr(opened.get()), size >= first + 3 * width ? 2
                                               : size >= first + width   ? 1
                                                                         : 0)
            << size;
        read_all(opened);
    }
    for (std::size_t at = 0; at < first; ++at)
        for (char const value : {'\0', '\x01', '\x0D', ' ', '\x7F', '\x80', '\xFF'}) {
            std::string damaged = good;
            damaged[at] = value;
            read_all(open(damaged));
        }
    // The file shrinks while it is open.
    auto const many = open(table_bytes{{{"A", 'C', 9}}, std::vector<std::string>(2000, " abc")}.str());
    std::filesystem::resize_file(dir / "t.dbf", 80);
    EXPECT_EQ(text(many, 0, 1999), "-");
    EXPECT_EQ(vx_dbf_get_nr(many.get()), 2000);
}
} // namespace
