#include "support.h"
#include "support/comma_locale.h"

#include "platform/basic/vx_fault.h"
#include "platform/winapi/file.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <string_view>
#include <sys/mman.h>
#include <unistd.h>

using namespace vx_test;

namespace {
/// Saves do not wait for the disk during its life.
class no_flush
{
public:
    no_flush()
    {
        auto calls = vx_set_file_calls(nullptr);
        calls.fsync = [](int) { return 0; };
        vx_set_file_calls(&calls);
    }
    no_flush(no_flush const &) = delete;
    no_flush &operator=(no_flush const &) = delete;
    ~no_flush() { vx_set_file_calls(nullptr); }
};

/// What the storage told the user during its life.
class told
{
public:
    told() : f_before(vx_reason_set_handler(&take)) { last().clear(); }
    told(told const &) = delete;
    told &operator=(told const &) = delete;
    ~told() { vx_reason_set_handler(f_before); }
    [[nodiscard]] static std::wstring &last()
    {
        static std::wstring text;
        return text;
    }

private:
    static void take(wchar_t const *text) { last() = text; }
    Tvx_reason_handler f_before;
};

std::wstring error_of(owned_xml const &xml)
{
    std::wstring text;
    Tvx_std_wstring_adapter adapter(text);
    vx_xml_data_get_error_w(xml.get(), adapter);
    return text;
}

TEST(scale_files, load_of_save_is_the_same_scale_and_the_same_bytes)
{
    temp_dir const dir;
    no_flush const quick;
    for (char const *type : c_all_types) {
        for (unsigned seed = 0; seed < 12; ++seed) {
            SCOPED_TRACE(testing::Message() << type << " seed " << seed);
            auto const mngr = make_mngr(type);
            maker(seed).scales(mngr.get(), seed);
            for (scale_file const &kind : c_scale_files) {
                SCOPED_TRACE(kind.name);
                auto const file = wide(dir / kind.name);
                ASSERT_TRUE(kind.save(nullptr, file.c_str(), mngr.get(), type));
                auto const bytes = read_file(dir / kind.name);

                auto const other = make_mngr(type);
                maker(seed + 100).scales(other.get(), 3);
                ASSERT_TRUE(kind.load(nullptr, file.c_str(), other.get(), type));
                EXPECT_TRUE(kind.equal(kind.scale(mngr.get()), kind.scale(other.get())));
                ASSERT_TRUE(kind.save(nullptr, file.c_str(), other.get(), type));
                EXPECT_EQ(bytes, read_file(dir / kind.name));
            }
        }
    }
    EXPECT_EQ(3, dir.count()) << "no litter";
}

TEST(scale_files, a_touched_default_style_makes_the_same_bytes_as_an_untouched_one)
{
    temp_dir const dir;
    auto const plain = make_mngr("pgn_style");
    auto const touched = make_mngr("pgn_style");
    for (auto const &mngr : {plain.get(), touched.get()})
        vx_val_scale_set_size(vx_stl_mngr_get_val_scale_ptr(mngr), 2);
    void *const prm = vx_scale_prm_get_stl_prm_ptr(
        vx_val_scale_get_scale_prm_ptr(vx_stl_mngr_get_val_scale_ptr(touched.get()), 1));
    for (bool const sel : {false, true})
        vx_stl_prm_set_color(prm, sel, vx_stl_prm_get_color(prm, sel));
    ASSERT_TRUE(vx_xml_data_save_val_scale_w(nullptr, wide(dir / "a").c_str(), plain.get(), nullptr));
    ASSERT_TRUE(vx_xml_data_save_val_scale_w(nullptr, wide(dir / "b").c_str(), touched.get(), nullptr));
    EXPECT_EQ(read_file(dir / "a"), read_file(dir / "b"));
}

TEST(scale_files, both_families_and_both_kinds_of_keys_mean_the_same_file)
{
    temp_dir const dir;
    auto const mngr = make_mngr("pln_style");
    maker(5).scales(mngr.get(), 4);
    auto const a = wide(dir / "a");
    auto const b = wide(dir / "b");
    ASSERT_TRUE(vx_xml_data_save_rng_scale_w(nullptr, a.c_str(), mngr.get(), "pln_mngr_style"));
    ASSERT_TRUE(vx_xml_save_style_save_rng_scale(nullptr, b.c_str(), mngr.get(), "PLN_STYLE"));
    EXPECT_EQ(read_file(a), read_file(b));
    auto const other = make_mngr("pln_style");
    ASSERT_TRUE(vx_xml_save_style_load_rng_scale(nullptr, a.c_str(), other.get(), ""));
    EXPECT_TRUE(vx_rng_scale_equal(vx_stl_mngr_get_rng_scale_ptr(mngr.get()),
                                   vx_stl_mngr_get_rng_scale_ptr(other.get())));
}

TEST(scale_files, numbers_do_not_depend_on_the_locale)
{
    temp_dir const dir;
    auto const mngr = make_mngr("pnt_style");
    maker(7).scales(mngr.get(), 5);
    auto const file = wide(dir / "s");
    ASSERT_TRUE(vx_xml_data_save_rng_scale_w(nullptr, file.c_str(), mngr.get(), nullptr));
    auto const bytes = read_file(dir / "s");
    comma_locale const commas;
    auto const other = make_mngr("pnt_style");
    ASSERT_TRUE(vx_xml_data_load_rng_scale_w(nullptr, file.c_str(), other.get(), nullptr));
    ASSERT_TRUE(vx_xml_data_save_rng_scale_w(nullptr, file.c_str(), other.get(), nullptr));
    EXPECT_EQ(bytes, read_file(dir / "s"));
}

TEST(scale_files, the_seeds_of_the_fuzzers_are_files_of_the_present_format)
{
    char const *const folders[] = {"val_scale", "rng_scale", "rule_scale"};
    for (int k = 0; k < 3; ++k)
        for (char const *type : c_all_types) {
            auto const mngr = make_mngr(type);
            std::filesystem::path const seed =
                std::string(VX_SOURCE_DIR "/fuzz/corpus/") + folders[k] + "/" + type + ".xml";
            EXPECT_TRUE(c_scale_files[k].load(nullptr, wide(seed).c_str(), mngr.get(), type)) << seed;
        }
}

TEST(scale_files, what_is_not_asked_for_is_refused)
{
    temp_dir const dir;
    auto const mngr = make_mngr("pnt_style");
    maker(1).scales(mngr.get(), 3);
    for (scale_file const &kind : c_scale_files)
        ASSERT_TRUE(kind.save(nullptr, wide(dir / kind.name).c_str(), mngr.get(), nullptr));

    auto const target = make_mngr("pnt_style");
    maker(2).scales(target.get(), 2);
    owned_mngr const before(vx_stl_mngr_clone(target.get()));
    auto const lines = make_mngr("pln_style");
    owned_xml const xml(vx_xml_save_2d_create());
    for (scale_file const &reader : c_scale_files) {
        for (scale_file const &written : c_scale_files) {
            auto const file = wide(dir / written.name);
            if (reader.name != written.name) {
                EXPECT_FALSE(reader.load(xml.get(), file.c_str(), target.get(), nullptr));
                EXPECT_NE(L"", error_of(xml));
            }
        }
        auto const file = wide(dir / reader.name);
        EXPECT_FALSE(reader.load(xml.get(), file.c_str(), lines.get(), nullptr)) << "styles of another type";
        EXPECT_FALSE(reader.load(xml.get(), file.c_str(), target.get(), "pln_style")) << "a key of another";
        EXPECT_FALSE(reader.load(xml.get(), wide(dir / "none").c_str(), target.get(), nullptr));
        EXPECT_FALSE(reader.load(xml.get(), nullptr, target.get(), nullptr));
        EXPECT_FALSE(reader.load(xml.get(), wide(dir.path()).c_str(), target.get(), nullptr));
        EXPECT_FALSE(reader.load(xml.get(), file.c_str(), nullptr, nullptr));
        EXPECT_TRUE(vx_stl_mngr_equal(before.get(), target.get()));
        EXPECT_TRUE(reader.load(xml.get(), file.c_str(), target.get(), nullptr));
        EXPECT_EQ(L"", error_of(xml));
        vx_stl_mngr_assign(target.get(), before.get());
    }
}

TEST(scale_files, a_failed_save_is_told_and_leaves_the_file)
{
    temp_dir const dir;
    told const hear;
    auto const mngr = make_mngr("pnt_style");
    std::filesystem::create_directory(dir / "folder");
    EXPECT_FALSE(vx_xml_data_save_val_scale_w(nullptr, wide(dir / "folder").c_str(), mngr.get(), nullptr));
    EXPECT_NE(std::wstring::npos, hear.last().find(L"folder"));
    hear.last().clear();
    EXPECT_FALSE(vx_xml_data_save_val_scale_w(nullptr, wide(dir / "no" / "f").c_str(), mngr.get(), nullptr));
    EXPECT_NE(L"", hear.last());
    hear.last().clear();
    EXPECT_FALSE(vx_xml_data_save_val_scale_w(nullptr, nullptr, mngr.get(), nullptr));
    EXPECT_NE(L"", hear.last());
}

TEST(scale_files, a_property_name_with_a_separator_names_no_file)
{
    temp_dir const dir;
    told const hear;
    std::filesystem::create_directory(dir / "map.A");
    for (auto const *property : {L"A/B", L"A\\B", L"A/../../B"}) {
        hear.last().clear();
        auto const mngr = make_mngr("pnt_style");
        vx_stl_mngr_set_val_prop_name_w(mngr.get(), property);
        vx_stl_mngr_set_rng_prop_name_w(mngr.get(), property);
        auto const stem = wide(dir / "map") + L"." + property;
        EXPECT_FALSE(vx_xml_data_save_val_scale_w(nullptr, (stem + L"._vl").c_str(), mngr.get(), nullptr));
        EXPECT_NE(std::wstring::npos, hear.last().find(property));
        EXPECT_FALSE(vx_xml_data_save_rng_scale_w(nullptr, (stem + L"._rg").c_str(), mngr.get(), nullptr));
        EXPECT_FALSE(vx_xml_data_save_rule_scale_w(nullptr, (stem + L"._rl").c_str(), mngr.get(), nullptr));
        auto turned = stem;
        std::ranges::replace(turned, L'/', L'\\');
        EXPECT_FALSE(vx_xml_data_save_val_scale_w(nullptr, (turned + L"._vl").c_str(), mngr.get(), nullptr));
        // A name of the user's own choice is his.
        EXPECT_TRUE(
            vx_xml_data_save_val_scale_w(nullptr, wide(dir / "own._vl").c_str(), mngr.get(), nullptr));
    }
    EXPECT_EQ(2, dir.count());
    EXPECT_TRUE(std::filesystem::is_empty(dir / "map.A"));
}

// ---- files from strangers
/// A small file of each kind, and whether reading `bytes` in its place leaves the target alone.
class hostile : public testing::TestWithParam<int>
{
protected:
    [[nodiscard]] scale_file const &kind() const { return c_scale_files[GetParam()]; }

    hostile() : f_mngr(make_mngr("pnt_style")), f_target(make_mngr("pnt_style"))
    {
        maker(10).scales(f_mngr.get(), 2);
        maker(22).scales(f_target.get(), 1);
        f_before.reset(vx_stl_mngr_clone(f_target.get()));
        temp_dir const dir;
        EXPECT_TRUE(kind().save(nullptr, wide(dir / "file").c_str(), f_mngr.get(), nullptr));
        f_bytes = read_file(dir / "file");
    }
    ~hostile() override { close(f_memory); }
    [[nodiscard]] std::string const &bytes() const { return f_bytes; }
    [[nodiscard]] bool loads(std::string_view content)
    {
        auto const size = static_cast<ssize_t>(content.size());
        EXPECT_EQ(0, ftruncate(f_memory, size));
        EXPECT_EQ(size, pwrite(f_memory, content.data(), content.size(), 0));
        auto const file = L"/proc/self/fd/" + std::to_wstring(f_memory);
        bool const loaded = kind().load(f_xml.get(), file.c_str(), f_target.get(), nullptr);
        if (!loaded)
            EXPECT_TRUE(kind().equal(kind().scale(f_before.get()), kind().scale(f_target.get())));
        else
            vx_stl_mngr_assign(f_target.get(), f_before.get());
        return loaded;
    }
    /// The file without its checksum, as after a change by hand.
    [[nodiscard]] std::string unchecked() const
    {
        auto text = f_bytes;
        auto const at = text.find(" crc=\"");
        return text.erase(at, std::string_view(" crc=\"01234567\"").size());
    }
    [[nodiscard]] std::string unchecked(std::string_view from, std::string_view to) const
    {
        auto text = unchecked();
        auto const at = text.find(from);
        EXPECT_NE(std::string::npos, at) << from;
        return text.replace(at, from.size(), to);
    }

    [[nodiscard]] std::wstring error() const { return error_of(f_xml); }

private:
    owned_xml f_xml{vx_xml_save_2d_create()};
    int f_memory = memfd_create("file", MFD_CLOEXEC); ///< thousands of files are read: not from the disk
    owned_mngr f_mngr;
    owned_mngr f_target;
    owned_mngr f_before;
    std::string f_bytes;
};

TEST_P(hostile, every_damaged_byte_is_seen)
{
    for (std::size_t i = 0; i < bytes().size(); ++i) {
        auto damaged = bytes();
        damaged[i] = static_cast<char>(damaged[i] ^ (1 << i % 8));
        ASSERT_FALSE(loads(damaged)) << "byte " << i;
        damaged[i] = bytes()[i] == '<' ? '\0' : '<';
        ASSERT_FALSE(loads(damaged)) << "byte " << i;
    }
    EXPECT_TRUE(loads(bytes()));
}

TEST_P(hostile, every_cut_is_seen)
{
    for (std::size_t length = 0; length < bytes().size(); ++length)
        ASSERT_FALSE(loads(bytes().substr(0, length))) << length;
}

TEST_P(hostile, damage_without_a_checksum_is_harmless)
{
    auto const text = unchecked();
    EXPECT_TRUE(loads(text)) << "a file that was changed by hand";
    int loaded = 0;
    for (std::size_t i = 0; i < text.size(); ++i)
        for (char const c : {'"', '9'}) {
            auto damaged = text;
            damaged[i] = c;
            loaded += loads(damaged);
        }
    EXPECT_GT(loaded, 0) << "other captions are no fault";
}

TEST_P(hostile, contents_that_are_wrong)
{
    std::string deep;
    for (int i = 0; i < 100'000; ++i)
        deep += "<a>";
    auto const closed = [](std::string text, std::size_t count) {
        for (std::size_t i = 0; i < count; ++i)
            text += "</a>";
        return text;
    };
    std::string const bomb = "<!DOCTYPE vx_scale [<!ENTITY a \"aaaaaaaaaa\"><!ENTITY b \"&a;&a;&a;&a;\">]>";
    std::string const wrong[] = {
        "",
        "<vx_scale/>",
        "no xml",
        std::string(1000, '\0'),
        deep,
        closed(deep, 100'000),
        bomb + unchecked(),
        unchecked("<vx_scale", bomb + "<vx_scale"),
        unchecked("<vx_scale", "<vx_scalf"),
        unchecked() + unchecked(),
        unchecked("version=\"1\" ", "version=\"2\" "),
        unchecked("version=\"1\" ", "version=\"0\" "),
        unchecked("version=\"1\" ", "version=\"1x\" "),
        unchecked("version=\"1\" ", ""),
        unchecked("pnt_style", "pgn_style"),
        unchecked("pnt_style", "clr_style"),
        unchecked("<opacity>", "<opacity new=\"1\">"),
        unchecked("<opacity>", "<opacity><point at=\"0\" value=\"1\"/>"),
        unchecked("<opacity>", "<opacity>text"),
        unchecked("<opacity>", "<opacity><![CDATA[text]]>"),
        unchecked("<opacity>", "<unknown/><opacity>"),
        unchecked("visible=\"", "visible=\"2"),
        unchecked("base=\"", "base=\"7"),
        unchecked("base=\"", "base=\"-"),
        unchecked(" size=\"", " size=\"inf"),
        unchecked(" size=\"", " size=\"1\" size=\""),
        unchecked("color=\"#", "color=\"#g"),
        unchecked("charset=\"", "charset=\"999"),
        unchecked("</styles>", closed("<style>" + deep, 100'000) + "</style></styles>"),
    };
    for (auto const &text : wrong) {
        SCOPED_TRACE(text.substr(0, 200));
        EXPECT_FALSE(loads(text));
    }
}

TEST_P(hostile, the_reason_names_the_line)
{
    struct
    {
        std::string_view from, to;
        wchar_t const *says;
    } const wrong[] = {
        {"<opacity>", "<opacity new=\"1\">", L"attribute \"new\""},
        {"<opacity>", "<unknown/><opacity>", L"\"opacity\" is missing"},
        {"<opacity>", "<opacity>some text", L"text \"some text\""},
        {"</opacity>", "<more/></opacity>", L"element \"more\""},
        {"</opacity>", "</opacitY>", L"end tag"},
        {"<other ", "<other visible ", L"name=\"value\""},
        {"<other ", "<other <", L"well-formed"},
        {" size=\"", " size=\"inf", L"of \"size\""},
        {"</vx_scale>", "</vx_scale>behind", L"beside the one root"},
        {"</vx_scale>", "</vx_scale><!-- --> behind <!-- -->", L"beside the one root"},
        {"</vx_scale>", "</vx_scale><more/>", L"beside the one root"},
        {"<vx_scale", "before <vx_scale", L"beside the one root"},
    };
    for (bool const windows : {false, true})
        for (auto const &[from, to, says] : wrong) {
            SCOPED_TRACE(to);
            auto text = unchecked(from, to);
            auto const line =
                1 + std::count(text.begin(), text.begin() + std::ptrdiff_t(text.find(to)), '\n');
            if (windows)
                for (std::size_t at = 0; (at = text.find('\n', at)) != text.npos; at += 2)
                    text.replace(at, 1, "\r\n");
            EXPECT_FALSE(loads(text));
            auto const place = L"; line " + std::to_wstring(line) + L": ";
            EXPECT_NE(std::wstring::npos, error().find(place)) << vx::text::wide_to_utf8(error());
            EXPECT_NE(std::wstring::npos, error().find(says)) << vx::text::wide_to_utf8(error());
        }
    auto changed = bytes();
    changed.replace(changed.find("<opacity>"), 0, "\n");
    EXPECT_FALSE(loads(changed));
    EXPECT_NE(std::wstring::npos, error().find(L"; line 2: the checksum does not fit"));
}

INSTANTIATE_TEST_SUITE_P(kinds, hostile, testing::Range(0, 3),
                         [](auto const &info) { return std::string(c_scale_files[info.param].name + 3); });

TEST(scale_files, a_file_of_nothing_but_elements_is_refused_before_it_takes_the_memory)
{
    temp_dir const dir;
    std::string many = "<vx_scale version=\"1\">";
    for (int i = 0; i < 17'000'000; ++i)
        many += "<a/>";
    write_file(dir / "s", many);
    auto const mngr = make_mngr("clr_style");
    owned_xml const xml(vx_xml_save_2d_create());
    EXPECT_FALSE(vx_xml_data_load_val_scale_w(xml.get(), wide(dir / "s").c_str(), mngr.get(), nullptr));
    EXPECT_NE(L"", error_of(xml));
}
} // namespace
