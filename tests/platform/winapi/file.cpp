#include "platform/winapi/file.h"

#include "support/temp_dir.h"

#include <cerrno>
#include <csignal>
#include <cstdint>
#include <cstring>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <random>
#include <sys/file.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <sys/xattr.h>
#include <unistd.h>
#include <vector>

namespace {
std::wstring wide(std::filesystem::path const &path)
{
    return vx_path_from_native(path.string());
}

unsigned mode_of(std::filesystem::path const &path)
{
    struct stat info
    {
    };
    EXPECT_EQ(0, stat(path.c_str(), &info));
    return info.st_mode & 07777;
}

// ---- calls that fail on demand

enum class call
{
    open,
    write,
    fsync,
    close,
    rename,
    link,
};
struct fault
{
    call where;
    int at;   ///< which call of its kind fails, from 1
    int code; ///< errno of the failure
    int count = 0;
};
fault *present_fault = nullptr;
Tvx_file_calls real_calls;

bool fails(call where)
{
    if (!present_fault || present_fault->where != where || ++present_fault->count != present_fault->at)
        return false;
    errno = present_fault->code;
    return true;
}

/// Puts failing calls in place for one test.
class faulty_calls
{
public:
    explicit faulty_calls(fault f) : f_fault(f)
    {
        present_fault = &f_fault;
        Tvx_file_calls const calls = {
            [](char const *path, int flags, unsigned mode) {
                return fails(call::open) ? -1 : real_calls.open(path, flags, mode);
            },
            // Three bytes at a time, so that each save needs several writes.
            [](int file, void const *data, std::size_t size) {
                return fails(call::write) ? -1L
                                          : real_calls.write(file, data, std::min<std::size_t>(size, 3));
            },
            [](int file) { return fails(call::fsync) ? -1 : real_calls.fsync(file); },
            [](int file) {
                int const done = real_calls.close(file);
                return fails(call::close) ? -1 : done;
            },
            [](char const *from, char const *to) {
                return fails(call::rename) ? -1 : real_calls.rename(from, to);
            },
            [](char const *path) { return real_calls.unlink(path); },
            [](int file, char const *path) { return fails(call::link) ? -1 : real_calls.link(file, path); },
        };
        real_calls = vx_set_file_calls(&calls);
    }
    faulty_calls(faulty_calls const &) = delete;
    faulty_calls &operator=(faulty_calls const &) = delete;
    ~faulty_calls()
    {
        vx_set_file_calls(nullptr);
        present_fault = nullptr;
    }

private:
    fault f_fault;
};
} // namespace

TEST(file, save_and_read_are_the_same)
{
    vx_test::temp_dir const dir;
    vx::fault error;
    std::string const contents[] = {"", "one", std::string("a\0b\n", 4), std::string(3'000'000, 'x')};
    for (auto const &content : contents) {
        for (auto const *name : {"plain.txt", "имя с пробелами.txt"}) {
            auto const path = wide(dir / name);
            ASSERT_TRUE(vx_save_atomic(path, content, error)) << error.code;
            auto const back = vx_file_read(path, error);
            ASSERT_TRUE(back);
            EXPECT_TRUE(content == *back);
            EXPECT_TRUE(vx_is_file(path));
        }
    }
    EXPECT_EQ(2, dir.count());
}

TEST(file, whichever_call_fails_the_target_stays_and_there_is_no_litter)
{
    struct
    {
        call where;
        std::vector<int> codes;
    } const kinds[] = {{call::open, {EACCES, EMFILE, ENOSPC, EROFS}},
                       {call::write, {ENOSPC, EIO, EDQUOT, EFBIG}},
                       {call::fsync, {EIO, ENOSPC}},
                       {call::close, {EDQUOT, EIO}},
                       {call::rename, {EPERM, EIO, ENOSPC}},
                       {call::link, {EPERM, ENOENT, ENOSPC, EEXIST}}};
    for (auto const &kind : kinds)
        for (int const code : kind.codes)
            for (int n = 1;; ++n) {
                SCOPED_TRACE(testing::Message() << "call " << static_cast<int>(kind.where) << " number " << n
                                                << " fails with " << code);
                ASSERT_LT(n, 100);
                vx_test::temp_dir const dir;
                vx_test::write_file(dir / "target", "old content");
                vx::fault error;
                bool saved = false;
                int calls = 0;
                {
                    faulty_calls const faulty({kind.where, n, code});
                    saved = vx_save_atomic(wide(dir / "target"), "new content", error);
                    calls = present_fault->count;
                }
                EXPECT_EQ(1, dir.count());
                EXPECT_EQ(saved, !error);
                if (!saved) {
                    EXPECT_EQ(wide(dir / "target"), error.subject);
                    EXPECT_EQ(code, error.system);
                }
                // Once the new file has the name, only its directory is left to be flushed.
                auto const content = vx_test::read_file(dir / "target");
                bool const of_directory = kind.where != call::write && kind.where != call::rename && n > 1;
                EXPECT_EQ(saved || of_directory ? "new content" : "old content", content);
                if (calls < n)
                    break; // there is no n-th call
            }
}

TEST(file, a_full_disk_leaves_the_old_file)
{
    vx_test::temp_dir const dir;
    if (mount("tmpfs", dir.path().c_str(), "tmpfs", 0, "size=64k") != 0)
        GTEST_SKIP() << "only the super user mounts a small disk";
    vx::fault error;
    bool const first = vx_save_atomic(wide(dir / "target"), "old content", error);
    bool const second = vx_save_atomic(wide(dir / "target"), std::string(1 << 20, 'x'), error);
    auto const content = vx_test::read_file(dir / "target");
    int const count = dir.count();
    bool const third = vx_save_atomic(wide(dir / "target"), "small", error);
    EXPECT_EQ(0, umount(dir.path().c_str()));
    EXPECT_TRUE(first);
    EXPECT_FALSE(second);
    EXPECT_EQ("old content", content);
    EXPECT_EQ(1, count);
    EXPECT_TRUE(third) << "room was given back";
}

TEST(file, folders_and_files_that_are_read_only)
{
    vx_test::temp_dir const dir;
    std::filesystem::create_directory(dir / "folder");
    vx_test::write_file(dir / "folder/target", "old content");
    vx_test::write_file(dir / "file", "old content");
    ASSERT_EQ(0, chmod(dir.path().c_str(), 0777));
    ASSERT_EQ(0, chmod((dir / "folder").c_str(), 0555));
    ASSERT_EQ(0, chmod((dir / "folder/target").c_str(), 0666));
    ASSERT_EQ(0, chmod((dir / "file").c_str(), 0444));
    // The super user may write everywhere, so somebody else tries.
    pid_t const child = fork();
    if (child == 0) {
        constexpr uid_t c_nobody = 65534;
        if (getuid() == 0 && setuid(c_nobody) != 0)
            _exit(100);
        vx::fault error;
        int failed = 0;
        for (auto const &path : {dir / "folder/target", dir / "folder/new", dir / "file"})
            failed += !vx_save_atomic(wide(path), "new content", error) && error;
        _exit(failed);
    }
    int status = 0;
    ASSERT_EQ(child, waitpid(child, &status, 0));
    EXPECT_EQ(3, WEXITSTATUS(status));
    EXPECT_EQ("old content", vx_test::read_file(dir / "folder/target"));
    EXPECT_EQ("old content", vx_test::read_file(dir / "file"));
    EXPECT_EQ(2, dir.count());
    ASSERT_EQ(0, chmod((dir / "folder").c_str(), 0755));
    EXPECT_FALSE(std::filesystem::exists(dir / "folder/new"));
}

TEST(file, a_save_that_is_killed_leaves_the_old_file_or_the_new_one)
{
    constexpr int c_kills = 500;
    vx_test::temp_dir const dir;
    std::string const contents[] = {std::string(100'000, 'a'), std::string(250'000, 'b')};
    vx_test::write_file(dir / "target", contents[0]);
    std::minstd_rand random(1);
    int seen[2] = {};
    int litter = 0;
    for (int i = 0; i < c_kills; ++i) {
        pid_t const child = fork();
        if (child == 0) {
            vx::fault error;
            for (int n = i;; ++n)
                if (!vx_save_atomic(wide(dir / "target"), contents[n % 2], error))
                    _exit(1);
        }
        usleep(random() % 12'000);
        kill(child, SIGKILL);
        int status = 0;
        ASSERT_EQ(child, waitpid(child, &status, 0));
        ASSERT_TRUE(WIFSIGNALED(status)) << "a save failed";
        auto const content = vx_test::read_file(dir / "target");
        ASSERT_TRUE(content == contents[0] || content == contents[1]) << "kill " << i;
        ++seen[content == contents[1]];
        litter = dir.count() - 1;
    }
    EXPECT_GT(seen[0], 0);
    EXPECT_GT(seen[1], 0);
    // A kill right between naming the new file and the renaming leaves it.
    EXPECT_LT(litter, c_kills / 10);
    vx::fault error;
    EXPECT_TRUE(vx_save_atomic(wide(dir / "target"), "x", error));
    EXPECT_EQ(1, dir.count()) << "the next save clears up";
}

TEST(file, both_separators_lead_to_the_same_file)
{
    vx_test::temp_dir const dir;
    std::filesystem::create_directory(dir / "folder");
    vx::fault error;
    auto const path = wide(dir.path()) + L"\\folder\\name";
    ASSERT_TRUE(vx_save_atomic(path, "content", error));
    EXPECT_EQ("content", vx_test::read_file(dir / "folder/name"));
    EXPECT_EQ("content", vx_file_read(path, error).value_or(""));
    EXPECT_TRUE(vx_is_file(path));
    EXPECT_TRUE(vx_make_directories(wide(dir.path()) + L"\\x\\y"));
    EXPECT_TRUE(std::filesystem::is_directory(dir / "x/y"));
}

TEST(file, failures_that_are_none)
{
    // Interrupted calls are taken up again, and some file systems cannot flush a directory.
    for (fault const &f : {fault{call::write, 1, EINTR}, fault{call::fsync, 1, EINTR},
                           fault{call::close, 1, EINTR}, fault{call::fsync, 2, EINVAL}}) {
        vx_test::temp_dir const dir;
        vx::fault error;
        faulty_calls const faulty(f);
        EXPECT_TRUE(vx_save_atomic(wide(dir / "target"), "new content", error));
        EXPECT_FALSE(error);
        EXPECT_EQ("new content", vx_test::read_file(dir / "target"));
    }
}

TEST(file, keeps_mode_and_links)
{
    vx_test::temp_dir const dir;
    vx::fault error;
    vx_test::write_file(dir / "real", "old");
    ASSERT_EQ(0, chmod((dir / "real").c_str(), 0640));
    std::filesystem::create_symlink("real", dir / "link");
    std::filesystem::create_symlink("link", dir / "link of link");
    ASSERT_TRUE(vx_save_atomic(wide(dir / "link of link"), "new", error));
    EXPECT_EQ("new", vx_test::read_file(dir / "real"));
    EXPECT_EQ(0640u, mode_of(dir / "real"));
    EXPECT_TRUE(std::filesystem::is_symlink(dir / "link"));

    std::filesystem::create_symlink("not there yet", dir / "dangling");
    ASSERT_TRUE(vx_save_atomic(wide(dir / "dangling"), "made", error));
    EXPECT_EQ("made", vx_test::read_file(dir / "not there yet"));
    EXPECT_TRUE(std::filesystem::is_symlink(dir / "dangling"));

    std::filesystem::create_symlink("round", dir / "round");
    EXPECT_FALSE(vx_save_atomic(wide(dir / "round"), "x", error));
}

TEST(file, removes_what_killed_saves_of_the_same_target_left)
{
    vx_test::temp_dir const dir;
    pid_t const dead = fork();
    if (dead == 0)
        _exit(0);
    ASSERT_EQ(dead, waitpid(dead, nullptr, 0));
    auto const of_dead = [&](std::string const &name, char const *rest) {
        return dir / ("." + name + "." + std::to_string(dead) + rest);
    };
    std::string const longest(255, 'n');
    std::filesystem::path const litter[] = {of_dead("t", "-0.tmp"), of_dead("t", "-17.tmp"),
                                            of_dead(longest.substr(0, 200), "-1.tmp")};
    auto const locked = of_dead("t", "-2.tmp");
    std::filesystem::path const kept[] = {
        dir / (".t." + std::to_string(getppid()) + "-0.tmp"), // its process lives
        dir / ".t.-1-0.tmp",
        dir / ".t.x-0.tmp",
        of_dead("t", "-0.tmp.txt"),
        of_dead("t", "-.tmp"),
        of_dead("other", "-0.tmp"),
        locked, // a process that is not seen from here
    };
    for (auto const &path : litter)
        vx_test::write_file(path, "part");
    for (auto const &path : kept)
        vx_test::write_file(path, "part");
    std::filesystem::create_symlink(locked, of_dead("t", "-5.tmp"));
    int const lock = open(locked.c_str(), O_RDONLY | O_CLOEXEC);
    ASSERT_EQ(0, flock(lock, LOCK_EX));
    vx::fault error;
    ASSERT_TRUE(vx_save_atomic(wide(dir / "t"), "x", error));
    ASSERT_TRUE(vx_save_atomic(wide(dir / longest), "x", error));
    for (auto const &path : litter)
        EXPECT_FALSE(std::filesystem::exists(path)) << path;
    for (auto const &path : kept)
        EXPECT_TRUE(std::filesystem::exists(path)) << path;
    EXPECT_TRUE(std::filesystem::is_symlink(of_dead("t", "-5.tmp")));
    close(lock);
    ASSERT_TRUE(vx_save_atomic(wide(dir / "t"), "x", error));
    EXPECT_FALSE(std::filesystem::exists(locked));
}

TEST(file, follows_no_link_of_a_stranger_where_anybody_may_put_one)
{
    vx_test::temp_dir const dir;
    vx_test::write_file(dir / "mine", "old");
    for (char const *name : {"sticky", "plain"})
        std::filesystem::create_directory(dir / name);
    constexpr uid_t c_stranger = 65534;
    for (auto const *link : {"sticky/link", "plain/link", "sticky/own"}) {
        std::filesystem::create_symlink("../mine", dir / link);
        if (std::string_view(link).ends_with("link") &&
            lchown((dir / link).c_str(), c_stranger, c_stranger) != 0)
            GTEST_SKIP() << "only the super user gives files away";
    }
    std::filesystem::create_symlink("sticky/link", dir / "by way");
    ASSERT_EQ(0, chmod((dir / "sticky").c_str(), 01777));
    vx::fault error;
    for (auto const *link : {"sticky/link", "by way"}) {
        EXPECT_FALSE(vx_save_atomic(wide(dir / link), "new", error));
        EXPECT_EQ(EACCES, error.system);
        EXPECT_EQ("old", vx_test::read_file(dir / "mine"));
    }
    for (auto const *link : {"sticky/own", "plain/link"})
        EXPECT_TRUE(vx_save_atomic(wide(dir / link), link, error));
    // The link of the folder's owner leads on.
    ASSERT_EQ(0, chown((dir / "sticky").c_str(), c_stranger, c_stranger));
    EXPECT_TRUE(vx_save_atomic(wide(dir / "sticky/link"), "new", error));
    EXPECT_EQ("new", vx_test::read_file(dir / "mine"));
}

TEST(file, keeps_access_lists_and_attributes_of_users)
{
    struct entry
    {
        std::uint16_t tag, rights;
        std::uint32_t id;
    };
    struct list
    {
        std::uint32_t version = 2;
        // The owner, user 1234, the group, the mask, the others.
        entry entries[5] = {{1, 6, ~0u}, {2, 4, 1234}, {4, 0, ~0u}, {16, 4, ~0u}, {32, 0, ~0u}};
    } const access;
    vx_test::temp_dir const dir;
    vx_test::write_file(dir / "target", "old");
    vx_test::write_file(dir / "plain", "old");
    ASSERT_EQ(0, chmod((dir / "plain").c_str(), 0660));
    if (setxattr((dir / "target").c_str(), "user.note", "text", 4, 0) != 0 ||
        setxattr((dir / "target").c_str(), "system.posix_acl_access", &access, sizeof access, 0) != 0)
        GTEST_SKIP() << "this file system has none";
    setxattr((dir / "target").c_str(), "user.empty", "", 0, 0);
    // New files of this folder get the list, which the plain file has not.
    ASSERT_EQ(0, setxattr(dir.path().c_str(), "system.posix_acl_default", &access, sizeof access, 0));
    vx::fault error;
    for (auto const where : {call::open, call::rename}) { // without and with a name from the start
        faulty_calls const faulty({where, where == call::open ? 1 : 0, EOPNOTSUPP});
        for (auto const *name : {"target", "plain"})
            ASSERT_TRUE(vx_save_atomic(wide(dir / name), "new", error));
        list got;
        char text[8] = {};
        auto const target = (dir / "target").string();
        EXPECT_EQ(4, getxattr(target.c_str(), "user.note", text, sizeof text));
        EXPECT_STREQ("text", text);
        EXPECT_EQ(0, getxattr(target.c_str(), "user.empty", text, sizeof text));
        ASSERT_EQ(ssize_t(sizeof got), getxattr(target.c_str(), "system.posix_acl_access", &got, sizeof got));
        EXPECT_EQ(0, std::memcmp(&access, &got, sizeof got));
        EXPECT_EQ(0640u, mode_of(target));
        EXPECT_EQ(-1, getxattr((dir / "plain").c_str(), "system.posix_acl_access", &got, sizeof got));
        EXPECT_EQ(0660u, mode_of(dir / "plain"));
    }
}

TEST(file, names_at_the_limit_of_the_system)
{
    vx_test::temp_dir const dir;
    vx::fault error;
    std::string const longest(255, 'n');
    EXPECT_TRUE(vx_save_atomic(wide(dir / longest), "x", error)) << error.code;
    EXPECT_FALSE(vx_save_atomic(wide(dir / (longest + "n")), "x", error));
    EXPECT_EQ(1, dir.count());
}

TEST(file, what_is_no_file_is_refused_at_once)
{
    vx_test::temp_dir const dir;
    std::filesystem::create_directory(dir / "directory");
    ASSERT_EQ(0, mkfifo((dir / "fifo").c_str(), 0600));
    std::wstring const paths[] = {wide(dir / "directory"),  wide(dir / "fifo"),
                                  wide(dir / "not there"),  L"",
                                  std::wstring(L"a\0b", 3), wide(dir / "not there" / "file")};
    for (auto const &path : paths) {
        vx::fault error;
        EXPECT_FALSE(vx_file_read(path, error));
        EXPECT_TRUE(error);
    }
    for (auto const index : {0, 1, 3, 4, 5}) {
        vx::fault error;
        EXPECT_FALSE(vx_save_atomic(paths[index], "x", error));
        EXPECT_TRUE(error);
    }
    EXPECT_EQ(2, dir.count());
}

TEST(file, reads_no_more_than_asked)
{
    vx_test::temp_dir const dir;
    vx_test::write_file(dir / "ten", "0123456789");
    vx::fault error;
    EXPECT_EQ("0123456789", vx_file_read(wide(dir / "ten"), error, 10).value_or(""));
    EXPECT_FALSE(vx_file_read(wide(dir / "ten"), error, 9));
    EXPECT_TRUE(error);
}

TEST(file, makes_directories)
{
    vx_test::temp_dir const dir;
    EXPECT_TRUE(vx_make_directories(wide(dir / "a/b/c")));
    EXPECT_TRUE(vx_is_directory(wide(dir / "a/b/c")));
    EXPECT_TRUE(vx_make_directories(wide(dir / "a/b")));
    vx_test::write_file(dir / "file", "x");
    EXPECT_FALSE(vx_make_directories(wide(dir / "file")));
    EXPECT_FALSE(vx_make_directories(wide(dir / "file/below")));
}
