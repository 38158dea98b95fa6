#include "platform/winapi/file.h"

#include "captions/engine.h"

#include "platform/base/text_codec.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <charconv>
#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <system_error>
#include <unistd.h>

namespace {
constexpr int c_link_limit = 40;
constexpr int c_temp_tries = 100;
constexpr std::size_t c_temp_name_limit = 200; ///< bytes of the target's name that the temporary name repeats
constexpr std::size_t c_read_block = 1 << 20;

constexpr Tvx_file_calls c_system_calls = {
    [](char const *path, int flags, unsigned mode) { return ::open(path, flags, mode); },
    [](int file, void const *data, std::size_t size) { return static_cast<long>(::write(file, data, size)); },
    [](int file) { return ::fsync(file); },
    [](int file) { return ::close(file); },
    [](char const *from, char const *to) { return ::rename(from, to); },
    [](char const *path) { return ::unlink(path); },
    [](int file, char const *path) {
        auto const number = "/proc/self/fd/" + std::to_string(file);
        return ::linkat(AT_FDCWD, number.c_str(), AT_FDCWD, path, AT_SYMLINK_FOLLOW);
    },
};
Tvx_file_calls file_calls = c_system_calls;

/// The names of faults are those of the sentences that are made of them.
vx::fault make_fault(int code, std::wstring const &path, int system = 0)
{
    return {code, path, system, {}};
}

bool native_path(std::wstring const &path, std::string &native, vx::fault &fault)
{
    native = vx_path_to_native(path);
    if (native.empty())
        fault = make_fault(c_capt_no_file_name, path);
    else if (native.find('\0') != std::string::npos)
        fault = make_fault(c_capt_name_has_zero, {});
    else
        return true;
    return false;
}

/// A file descriptor that is closed on all ways out.
class open_file
{
public:
    explicit open_file(int number) : f_number(number) {}
    open_file(open_file const &) = delete;
    open_file &operator=(open_file const &) = delete;
    ~open_file()
    {
        if (f_number >= 0)
            file_calls.close(f_number);
    }
    [[nodiscard]] int number() const { return f_number; }
    /// Gives 0 or the error number. An interrupted close has closed.
    [[nodiscard]] int close()
    {
        int const number = f_number;
        f_number = -1;
        return file_calls.close(number) == 0 || errno == EINTR ? 0 : errno;
    }

private:
    int f_number;
};

/// In a folder where anybody may put links, one leads only where its owner may save already: who follows it
/// owns it, or the folder's owner does. So does the system itself where it is set to.
bool may_follow(std::string const &link)
{
    struct stat info
    {
    };
    struct stat folder
    {
    };
    auto const parent = std::filesystem::path(link).parent_path();
    if (lstat(link.c_str(), &info) != 0 || stat(parent.empty() ? "." : parent.c_str(), &folder) != 0)
        return false;
    bool const is_open_to_all = (folder.st_mode & S_ISVTX) && (folder.st_mode & S_IWOTH);
    return !is_open_to_all || info.st_uid == geteuid() || info.st_uid == folder.st_uid;
}

/// Keeps the lock of a file that is closed.
class lock_holder
{
public:
    explicit lock_holder(int file) : f_number(fcntl(file, F_DUPFD_CLOEXEC, 0)) {}
    lock_holder(lock_holder const &) = delete;
    lock_holder &operator=(lock_holder const &) = delete;
    ~lock_holder()
    {
        if (f_number >= 0)
            ::close(f_number);
    }

private:
    int f_number;
};

/// The file that a chain of symbolic links ends at, there or not. Empty, with `errno`, when the chain does
/// not end or has a link of somebody who must not lead there.
std::string follow_links(std::string path)
{
    for (int i = 0; i < c_link_limit; ++i) {
        std::error_code code;
        auto const next = std::filesystem::read_symlink(path, code);
        if (code)
            return path;
        if (!may_follow(path)) {
            errno = EACCES;
            return {};
        }
        path =
            next.is_absolute() ? next.string() : (std::filesystem::path(path).parent_path() / next).string();
    }
    errno = ELOOP;
    return {};
}

int write_all(int file, std::string_view bytes)
{
    while (!bytes.empty()) {
        auto const done = file_calls.write(file, bytes.data(), bytes.size());
        if (done < 0 && errno == EINTR)
            continue;
        if (done < 0)
            return errno;
        if (done == 0)
            return ENOSPC;
        bytes.remove_prefix(static_cast<std::size_t>(done));
    }
    return 0;
}

int flush(int file)
{
    while (file_calls.fsync(file) != 0)
        if (errno != EINTR)
            return errno;
    return 0;
}

constexpr char c_access_list[] = "system.posix_acl_access";

/// Attributes that stay with a file whose content is replaced: access lists and what users attach. The rest
/// belongs to the content or to the system, which gives the new file its own.
bool is_kept_attribute(std::string_view name)
{
    return name == c_access_list || name == "system.nfs4_acl" || name.starts_with("user.");
}

/// What `get`, called with a buffer and its size, has to give.
template <class Get>
std::optional<std::string> sized(Get get)
{
    for (;;) {
        auto const size = get(nullptr, 0);
        if (size < 0)
            return std::nullopt;
        std::string bytes(static_cast<std::size_t>(size), '\0');
        auto const done = size == 0 ? 0 : get(bytes.data(), bytes.size());
        if (done >= 0) {
            bytes.resize(static_cast<std::size_t>(done));
            return bytes;
        }
        if (errno != ERANGE) // else it grew in between
            return std::nullopt;
    }
}

/// False when the source has an access list that the file does not take.
bool copy_attributes(std::string const &source, int file)
{
    // What the folder hands down to new files is not the target's.
    fremovexattr(file, c_access_list);
    auto const names =
        sized([&](char *room, std::size_t size) { return listxattr(source.c_str(), room, size); });
    bool good = true;
    for (std::size_t at = 0; names && at < names->size();) {
        std::string const name = names->c_str() + at;
        at += name.size() + 1;
        if (!is_kept_attribute(name))
            continue;
        auto const value = sized(
            [&](char *room, std::size_t size) { return getxattr(source.c_str(), name.c_str(), room, size); });
        bool const set = value && fsetxattr(file, name.c_str(), value->data(), value->size(), 0) == 0;
        good = good && (set || name != c_access_list);
    }
    return good;
}

/// The process in the name of a temporary file, after the part before it: "12-3.tmp". 0 for another name.
pid_t process_of(std::string_view rest)
{
    pid_t process = 0;
    unsigned number = 0;
    auto const *const end = rest.data() + rest.size();
    auto const first = std::from_chars(rest.data(), end, process);
    if (first.ec != std::errc() || first.ptr == end || *first.ptr != '-')
        return 0;
    auto const second = std::from_chars(first.ptr + 1, end, number);
    return second.ec == std::errc() && std::string_view(second.ptr, end) == ".tmp" ? process : 0;
}

/// A file of this user's that nobody is about to put in a target's place: neither a process of this machine,
/// nor one that sees the folder from elsewhere and holds its lock.
bool is_litter(std::string const &path, pid_t process)
{
    if (process <= 0 || kill(process, 0) == 0 || errno != ESRCH)
        return false;
    int const file = ::open(path.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    if (file < 0)
        return false;
    struct stat info
    {
    };
    bool const ours = fstat(file, &info) == 0 && S_ISREG(info.st_mode) && info.st_uid == geteuid() &&
                      flock(file, LOCK_EX | LOCK_NB) == 0;
    ::close(file);
    return ours;
}

/// One save on its way: owns the temporary file until it has taken the target's place.
class atomic_save
{
public:
    atomic_save(std::wstring path, std::string target, std::optional<struct stat> const &present)
        : f_path(std::move(path)), f_target(std::move(target)), f_present(present)
    {
    }
    atomic_save(atomic_save const &) = delete;
    atomic_save &operator=(atomic_save const &) = delete;
    ~atomic_save()
    {
        if (!f_temp.empty())
            file_calls.unlink(f_temp.c_str());
    }

    bool run(std::string_view bytes, vx::fault &fault) { return run(bytes, fault, naming::last); }

    /// Makes the new file, for somebody else to fill.
    bool begin(vx::fault &fault)
    {
        f_file.emplace(make_temp());
        if (f_file->number() < 0)
            return failed(fault, c_capt_file_not_made, errno);
        static_cast<void>(flock(f_file->number(), LOCK_EX | LOCK_NB));
        if (f_present)
            take_over_rights(f_file->number());
        return true;
    }
    /// Puts what `begin` made in the target's place.
    bool commit(vx::fault &fault)
    {
        int const code = flush(f_file->number());
        return code == 0 ? publish(*f_file, fault) : failed(fault, c_capt_file_not_written, code);
    }
    [[nodiscard]] std::string const &temp() const { return f_temp; }

private:
    /// When the new file gets a name: a file that has none yet goes with the process.
    enum class naming
    {
        first,
        last
    };

    bool run(std::string_view bytes, vx::fault &fault, naming when)
    {
        open_file file(when == naming::first ? make_temp() : open_unnamed());
        if (file.number() < 0)
            return when == naming::last ? run(bytes, fault, naming::first)
                                        : failed(fault, c_capt_file_not_made, errno);
        static_cast<void>(flock(file.number(), LOCK_EX | LOCK_NB));
        if (f_present)
            take_over_rights(file.number());
        if (int const code = write_all(file.number(), bytes))
            return failed(fault, c_capt_file_not_written, code);
        if (int const code = flush(file.number()))
            return failed(fault, c_capt_file_not_written, code);
        if (when == naming::last && !give_name(file.number())) {
            static_cast<void>(file.close()); // gives its room back
            return run(bytes, fault, naming::first);
        }
        return publish(file, fault);
    }

    bool publish(open_file &file, vx::fault &fault)
    {
        // The lock stays until the new file has its place; a close tells of failures before that.
        lock_holder const lock(file.number());
        if (int const code = file.close())
            return failed(fault, c_capt_file_not_written, code);
        if (file_calls.rename(f_temp.c_str(), f_target.c_str()) != 0)
            return failed(fault, c_capt_file_not_replaced, errno);
        f_temp.clear();
        remove_litter();
        return flush_directory(fault);
    }

    /// What saves of this target left that were killed.
    void remove_litter() const
    {
        auto const start = temp_start();
        std::error_code code;
        for (std::filesystem::directory_iterator i(directory(), code), end; !code && i != end;
             i.increment(code)) {
            auto const name = i->path().filename().string();
            if (name.starts_with(start) &&
                is_litter(i->path().string(), process_of(std::string_view(name).substr(start.size()))))
                file_calls.unlink(i->path().c_str());
        }
    }

    bool failed(vx::fault &fault, int code, int system) const
    {
        fault = make_fault(code, f_path, system);
        return false;
    }

    [[nodiscard]] std::filesystem::path directory() const
    {
        auto const parent = std::filesystem::path(f_target).parent_path();
        return parent.empty() ? std::filesystem::path(".") : parent;
    }

    [[nodiscard]] std::string temp_start() const
    {
        return "." + std::filesystem::path(f_target).filename().string().substr(0, c_temp_name_limit) + ".";
    }

    [[nodiscard]] unsigned mode() const { return f_present ? 0600 : 0666; }

    /// Runs `make` with names until one is free; it gives -1 with EEXIST for one that is not.
    template <class Make>
    int with_free_name(Make make)
    {
        static std::atomic<unsigned> counter{0};
        for (int i = 0; i < c_temp_tries; ++i) {
            auto const path = (directory() / (temp_start() + std::to_string(getpid()) + "-" +
                                              std::to_string(counter.fetch_add(1)) + ".tmp"))
                                  .string();
            int const made = make(path.c_str());
            if (made >= 0) {
                f_temp = path;
                return made;
            }
            if (errno != EEXIST)
                return -1;
        }
        return -1;
    }

    int make_temp()
    {
        return with_free_name([this](char const *path) {
            return file_calls.open(path, O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode());
        });
    }

    // Not every file system has such files.
    [[nodiscard]] int open_unnamed() const
    {
        return file_calls.open(directory().c_str(), O_WRONLY | O_TMPFILE | O_CLOEXEC, mode());
    }

    bool give_name(int file)
    {
        return with_free_name([file](char const *path) { return file_calls.link(file, path); }) >= 0;
    }

    // The owner first, since changing it may clear bits of the mode. Who may not give a file away keeps it.
    void take_over_rights(int file) const
    {
        [[maybe_unused]] int const ignored = fchown(file, f_present->st_uid, f_present->st_gid);
        // Below an access list the bits of the group are its mask, which would give the group too much.
        unsigned const lost = copy_attributes(f_target, file) ? 0 : S_IRWXG;
        fchmod(file, f_present->st_mode & 07777 & ~lost);
    }

    // Some file systems cannot flush a directory, and a directory may be closed to reading; neither is a
    // failure.
    bool flush_directory(vx::fault &fault) const
    {
        open_file file(file_calls.open(directory().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC, 0));
        if (file.number() < 0)
            return true;
        int const code = flush(file.number());
        if (code == 0 || code == EINVAL || code == ENOTSUP || code == EROFS)
            return true;
        return failed(fault, c_capt_file_not_safe, code);
    }

    std::wstring f_path; ///< as the caller names it
    std::string f_target;
    std::optional<struct stat> f_present;
    std::optional<open_file> f_file; ///< of `begin`
    std::string f_temp;
};

/// The file that a save of `path` replaces, there or not.
bool find_target(std::wstring const &path, std::string &target, std::optional<struct stat> &present,
                 vx::fault &fault)
{
    fault = {};
    std::string native;
    if (!native_path(path, native, fault))
        return false;
    target = follow_links(native);
    if (target.empty()) {
        fault = make_fault(c_capt_file_not_written, path, errno);
        return false;
    }
    struct stat info
    {
    };
    if (stat(target.c_str(), &info) != 0)
        return true;
    present = info;
    if (!S_ISREG(info.st_mode)) {
        fault = make_fault(c_capt_no_regular_file, path);
        return false;
    }
    if (faccessat(AT_FDCWD, target.c_str(), W_OK, AT_EACCESS) != 0) {
        fault = make_fault(c_capt_file_not_written, path, errno);
        return false;
    }
    return true;
}
} // namespace

std::string vx_path_to_native(std::wstring_view path)
{
    auto native = vx::text::wide_to_utf8(path);
    std::ranges::replace(native, '\\', '/');
    return native;
}

std::wstring vx_path_from_native(std::string_view path)
{
    return vx::text::utf8_to_wide(path);
}

bool vx_path_exists(std::wstring const &path)
{
    struct stat info
    {
    };
    return stat(vx_path_to_native(path).c_str(), &info) == 0;
}

bool vx_is_file(std::wstring const &path)
{
    struct stat info
    {
    };
    return stat(vx_path_to_native(path).c_str(), &info) == 0 && S_ISREG(info.st_mode);
}

bool vx_is_directory(std::wstring const &path)
{
    struct stat info
    {
    };
    return stat(vx_path_to_native(path).c_str(), &info) == 0 && S_ISDIR(info.st_mode);
}

std::optional<std::string> vx_file_read(std::wstring const &path, vx::fault &fault, std::size_t limit)
{
    fault = {};
    std::string native;
    if (!native_path(path, native, fault))
        return std::nullopt;
    // Not to block on a FIFO or a device: what it is shows only once it is open.
    open_file const file(::open(native.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    struct stat info
    {
    };
    if (file.number() < 0 || fstat(file.number(), &info) != 0) {
        fault = make_fault(c_capt_file_not_opened, path, errno);
        return std::nullopt;
    }
    if (!S_ISREG(info.st_mode)) {
        fault = make_fault(c_capt_no_regular_file, path);
        return std::nullopt;
    }
    std::string bytes;
    for (;;) {
        auto const size = bytes.size();
        if (size > limit) {
            fault = make_fault(c_capt_file_too_long, path);
            return std::nullopt;
        }
        // One byte past the limit is enough to see that the file is longer.
        bytes.resize(size + std::min(c_read_block, limit - size + 1));
        auto const done = ::read(file.number(), bytes.data() + size, bytes.size() - size);
        bytes.resize(size + (done > 0 ? static_cast<std::size_t>(done) : 0));
        if (done == 0)
            return bytes;
        if (done < 0 && errno != EINTR) {
            fault = make_fault(c_capt_file_not_read, path, errno);
            return std::nullopt;
        }
    }
}

bool vx_save_atomic(std::wstring const &path, std::string_view bytes, vx::fault &fault)
{
    std::string target;
    std::optional<struct stat> present;
    return find_target(path, target, present, fault) && atomic_save(path, target, present).run(bytes, fault);
}

struct Tvx_atomic_file::state
{
    atomic_save save;
};

Tvx_atomic_file::Tvx_atomic_file() = default;
Tvx_atomic_file::~Tvx_atomic_file() = default;

bool Tvx_atomic_file::begin(std::wstring const &path, vx::fault &fault)
{
    f_state.reset();
    std::string target;
    std::optional<struct stat> present;
    if (!find_target(path, target, present, fault))
        return false;
    f_state.reset(new state{atomic_save(path, target, present)});
    if (f_state->save.begin(fault))
        return true;
    f_state.reset();
    return false;
}

std::string Tvx_atomic_file::native_path() const
{
    return f_state ? f_state->save.temp() : std::string();
}

bool Tvx_atomic_file::commit(vx::fault &fault)
{
    auto const ended = std::move(f_state);
    return ended && ended->save.commit(fault);
}

void Tvx_atomic_file::drop()
{
    f_state.reset();
}

bool vx_make_directories(std::wstring const &path)
{
    std::error_code code;
    std::filesystem::create_directories(vx_path_to_native(path), code);
    return vx_is_directory(path);
}

Tvx_file_calls vx_set_file_calls(Tvx_file_calls const *calls)
{
    auto const before = file_calls;
    file_calls = calls ? *calls : c_system_calls;
    return before;
}
