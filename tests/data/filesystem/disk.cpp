#include "data/filesystem/filesystem.h"
#include "data/filesystem/transform.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace vx::filesystem;

namespace {
class disk : public testing::Test
{
protected:
    void SetUp() override
    {
        std::wstring const name = temp_filename(L"", L"vxfs");
        ASSERT_FALSE(name.empty());
        ASSERT_TRUE(remove_file(name));
        ASSERT_TRUE(make_directory(name));
        root = name + L"\\";
    }
    void TearDown() override { remove_path(root); }

    void write(std::wstring const &path, std::string const &text)
    {
        std::ofstream(system_path(path), std::ios::binary) << text;
    }
    std::string read(std::wstring const &path)
    {
        std::ifstream in(system_path(path), std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }

    std::wstring root;
};
} // namespace

TEST_F(disk, either_separator_reaches_the_file)
{
    ASSERT_TRUE(make_path(root + L"a/б\\c"));
    write(root + L"a\\б\\c\\F.txt", "x");
    EXPECT_TRUE(path_exist(root + L"a/б/c\\F.txt"));
    EXPECT_FALSE(path_exist(root + L"a/б/c/f.txt"));
    EXPECT_TRUE(is_file(root + L"a/б/c/F.txt"));
    EXPECT_EQ(file_size(root + L"a/б/c/F.txt"), 1);
    EXPECT_GT(file_mtime(root + L"a/б/c/F.txt"), 0);
    EXPECT_FALSE(make_path(root + L"a/б/c/F.txt/below"));
    EXPECT_FALSE(make_path(root + L"a/б/c/F.txt"));
    EXPECT_FALSE(is_file(L"") || is_directory(L"") || path_exist(L""));
}

TEST_F(disk, a_path_with_nul_names_nothing)
{
    write(root + L"f", "x");
    std::wstring const path = root + L"f" + std::wstring(1, L'\0') + L".shp";
    EXPECT_FALSE(path_exist(path) || file_readable(path) || copy_file(path, root + L"g", true));
    EXPECT_EQ(remove_path(path), 0);
    EXPECT_TRUE(path_exist(root + L"f"));
}

TEST_F(disk, readable_and_writable)
{
    write(root + L"f", "x");
    EXPECT_TRUE(file_readable(root + L"f") && file_writable(root + L"f"));
    EXPECT_FALSE(file_readable(root) || file_readable(root + L"none"));
    ASSERT_EQ(mkfifo(system_path(root + L"pipe").c_str(), 0600), 0);
    (void)file_readable(root + L"pipe"); // must come back
}

TEST_F(disk, copies_and_moves)
{
    write(root + L"a", "1");
    write(root + L"b", "2");
    EXPECT_FALSE(copy_file(root + L"a", root + L"b", false));
    EXPECT_FALSE(move_file(root + L"a", root + L"b", false));
    EXPECT_EQ(read(root + L"b"), "2");
    EXPECT_TRUE(copy_file(root + L"a", root + L"b", true));
    EXPECT_EQ(read(root + L"b"), "1");
    EXPECT_TRUE(move_file(root + L"a", root + L"c", false));
    EXPECT_FALSE(path_exist(root + L"a"));
    EXPECT_FALSE(move_file(root + L"none", root + L"c", true));
    EXPECT_TRUE(path_exist(root + L"c"));
}

TEST_F(disk, directories)
{
    make_path(root + L"from/sub/deep");
    write(root + L"from/1.txt", "1");
    write(root + L"from/sub/2.txt", "2");
    EXPECT_TRUE(copy_directory(root + L"from", root + L"to", false, false));
    EXPECT_FALSE(copy_directory(root + L"from", root + L"to", false, true));
    EXPECT_FALSE(copy_directory(root + L"from", root + L"to", true, false)); // files are there already
    EXPECT_TRUE(copy_directory(root + L"from", root + L"to", true, true));
    EXPECT_EQ(read(root + L"to/sub/2.txt"), "2");
    EXPECT_TRUE(is_directory(root + L"to/sub/deep"));
    // A file is no directory to copy.
    EXPECT_FALSE(copy_directory(root + L"from/1.txt", root + L"other", false, false));
    EXPECT_FALSE(path_exist(root + L"other"));
    EXPECT_FALSE(copy_directory(root + L"from", L"", false, false));
    EXPECT_FALSE(path_exist(L"1.txt")) << "nothing went to the current directory";

    EXPECT_FALSE(move_directory(root + L"from", root + L"from/sub/x", false, false));
    EXPECT_TRUE(path_exist(root + L"from/sub/2.txt"));
    // A failed copy keeps what was to be moved.
    EXPECT_FALSE(move_directory(root + L"from", root + L"to", true, false));
    EXPECT_TRUE(path_exist(root + L"from/1.txt"));
    EXPECT_TRUE(move_directory(root + L"from", root + L"to", true, true));
    EXPECT_FALSE(path_exist(root + L"from"));
    EXPECT_EQ(remove_path(root + L"to"), 5);
}

TEST_F(disk, links_are_removed_not_followed)
{
    make_path(root + L"kept");
    write(root + L"kept/f", "x");
    make_path(root + L"d");
    ASSERT_EQ(symlink(system_path(root + L"kept").c_str(), system_path(root + L"d/link").c_str()), 0);
    ASSERT_EQ(symlink("..", system_path(root + L"d/loop").c_str()), 0);
    EXPECT_EQ(find(root + L"d", L"*", 7).size(), 2u);
    ASSERT_TRUE(copy_directory(root + L"d", root + L"e", false, false));
    EXPECT_TRUE(std::filesystem::is_symlink(system_path(root + L"e/link")));
    EXPECT_EQ(remove_path(root + L"d"), 3);
    EXPECT_EQ(remove_path(root + L"e/link/"), 1) << "with a separator at its end too";
    EXPECT_TRUE(path_exist(root + L"kept/f"));
    EXPECT_EQ(remove_path(root + L"e\\loop\\"), 1);
    EXPECT_EQ(remove_path(root + L"e"), 1);
    EXPECT_TRUE(path_exist(root + L"kept/f"));
}

TEST_F(disk, names_that_look_like_paths_lead_nowhere)
{
    std::wstring const back = current_path();
    std::filesystem::current_path(system_path(root));
    write(L"kept", "x");
    write(L"c:kept", "x");
    make_path(L"d/below");
    write(L"d/below/c:kept", "y");
    EXPECT_TRUE(copy_directory(L"d", L"e", false, false));
    EXPECT_EQ(read(L"e/below/c:kept"), "y");
    EXPECT_EQ(remove_path(L"d"), 3);
    EXPECT_EQ(read(L"c:kept"), "x");

    make_path(L"d");
    std::string const hostile = system_path(L"d/") + "..\\kept";
    std::ofstream(hostile) << "y";
    EXPECT_TRUE(find(L"d", L"*", 7).empty());
    EXPECT_EQ(remove_path(L"d"), 0);
    EXPECT_EQ(read(L"kept"), "x");
    std::filesystem::remove(hostile);
    std::filesystem::current_path(system_path(back));
}

TEST_F(disk, finds_by_pattern)
{
    make_path(root + L"sub.d");
    for (wchar_t const *name : {L"b.dll", L"a.dll", L"c.txt", L"sub.d/d.dll"})
        write(root + name, "");
    auto names = [&](std::vector<std::wstring> const &found) {
        std::vector<std::wstring> out;
        for (auto const &path : found)
            out.push_back(path.substr(root.size()));
        return out;
    };
    using list = std::vector<std::wstring>;
    EXPECT_EQ(names(find(root, L"*.dll", 2)), (list{L"a.dll", L"b.dll"}));
    EXPECT_EQ(names(find(root + L"?.txt", 2)), (list{L"c.txt"}));
    EXPECT_EQ(names(find(root, L"*.d*", 7)), (list{L"a.dll", L"b.dll", L"sub.d", L"sub.d\\d.dll"}));
    EXPECT_EQ(names(find(root, 3)).size(), 4u);
    EXPECT_TRUE(find(root + L"none/", 3).empty());
}

TEST_F(disk, unique_names)
{
    transform t(root + L"x.shp");
    EXPECT_EQ(t.get_unique(), root + L"x.shp");
    write(root + L"x.shp", "");
    write(root + L"x_1.shp", "");
    EXPECT_EQ(t.get_unique(), root + L"x_2.shp");
    EXPECT_EQ(transform(L"d/a.b").dir(L"e").base(L"n").suffix(L"_s").ext(L"t").ext_add(L".u").get(),
              L"e\\n_s.t.u");
    EXPECT_EQ(transform(L"").get_unique(), L"");
}
