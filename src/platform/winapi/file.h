#pragma once

#include "platform/base/export.h"
#include "platform/base/fault.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

/// Files by wide path. Paths are UTF-8 on disk. "\" separates like "/", since that is what the path rules of
/// data/filesystem put between the parts of a path.

[[nodiscard]] VX_API std::string vx_path_to_native(std::wstring_view path);
[[nodiscard]] VX_API std::wstring vx_path_from_native(std::string_view path);
/// True for anything that stands at the path.
[[nodiscard]] VX_API bool vx_path_exists(std::wstring const &path);
[[nodiscard]] VX_API bool vx_is_file(std::wstring const &path);
[[nodiscard]] VX_API bool vx_is_directory(std::wstring const &path);

/// Largest file that `vx_file_read` takes unless told otherwise.
inline constexpr std::size_t c_file_read_limit = std::size_t{1} << 30;

/// The whole content of a regular file. Nothing when it cannot be read, is no regular file (a FIFO does not
/// block) or is longer than `limit`; `fault` then says why.
[[nodiscard]] VX_API std::optional<std::string> vx_file_read(std::wstring const &path, vx::fault &fault,
                                                             std::size_t limit = c_file_read_limit);

/// The one way to save a file: all of it or nothing.
///
/// The bytes go into a new file beside the target, are flushed to the disk, and take the target's place in
/// one step; the directory is flushed last. At any failure, a full disk or a crash included, the target is
/// what it was. A failure leaves no other file, and a crash leaves none where the file system knows files
/// without a name, but for the moment in which the new file has a name of its own: the next save of the same
/// target removes that. A symbolic link stays a link: the file that it points to is replaced; not followed
/// is a link of a stranger's in a folder that is sticky and writable by all. An existing target keeps its
/// permissions, access list and the attributes in "user.". Its other names (hard links) keep the old
/// content; labels of the system and of capabilities are those of a new file. False, with the reason in
/// `fault`, when a step failed.
[[nodiscard]] VX_API bool vx_save_atomic(std::wstring const &path, std::string_view bytes, vx::fault &fault);

/// The same save of what does not lie in memory: somebody else fills the new file by its path, and `commit`
/// flushes it and puts it in the target's place. Until then it lies beside the target under a name of its
/// own; it goes with this object, and what a crash leaves, the next save of the same target removes.
class VX_API Tvx_atomic_file
{
public:
    Tvx_atomic_file();
    Tvx_atomic_file(Tvx_atomic_file const &) = delete;
    Tvx_atomic_file &operator=(Tvx_atomic_file const &) = delete;
    ~Tvx_atomic_file();

    /// Makes the new file, empty. False, with the reason in `fault`, when that cannot be.
    [[nodiscard]] bool begin(std::wstring const &path, vx::fault &fault);
    /// Path of the new file, as the system takes it; empty before `begin` and after `commit`.
    [[nodiscard]] std::string native_path() const;
    /// To be called once, when nobody else has the new file open any more. At a failure it is gone.
    [[nodiscard]] bool commit(vx::fault &fault);
    /// Gives up: the new file is gone.
    void drop();

private:
    struct state;
    std::unique_ptr<state> f_state;
};

/// Makes a directory with all levels above it; true when it exists afterwards.
[[nodiscard]] VX_API bool vx_make_directories(std::wstring const &path);

/// The system calls of the atomic save, to be replaced one by one in tests of failures. They have the rules
/// of the functions of the same name: negative or -1 at failure, with `errno`.
struct Tvx_file_calls
{
    int (*open)(char const *path, int flags, unsigned mode);
    long (*write)(int file, void const *data, std::size_t size);
    int (*fsync)(int file);
    int (*close)(int file);
    int (*rename)(char const *from, char const *to);
    int (*unlink)(char const *path);
    /// Gives an open file without a name one.
    int (*link)(int file, char const *path);
};
/// Puts the table in place of the present one, and gives that. Null puts the system's own calls back.
VX_API Tvx_file_calls vx_set_file_calls(Tvx_file_calls const *calls);
