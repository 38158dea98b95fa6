#pragma once

#include "platform/winapi/file.h"

#include <csignal>
#include <sqlite3.h>
#include <unistd.h>

namespace vx_test {
/// Stands between the engine and the disk while it lives: counts the calls of the database's library and of
/// the atomic save, and lets the n-th one that writes fail, or end the process on the spot.
class watched_disk
{
public:
    enum class at_the_end
    {
        failure,
        kill
    };
    /// `good_writes` calls that write go well; negative: all.
    explicit watched_disk(int good_writes = -1, at_the_end end = at_the_end::failure)
        : f_vfs(*sqlite3_vfs_find(nullptr)), f_real(sqlite3_vfs_find(nullptr)), f_left(good_writes),
          f_end(end)
    {
        s_disk = this;
        f_vfs.zName = "watched";
        f_vfs.szOsFile = static_cast<int>(sizeof(file)) + f_real->szOsFile;
        f_vfs.pNext = nullptr;
        f_vfs.xOpen = &open;
        sqlite3_vfs_register(&f_vfs, 1);
        f_calls = vx_set_file_calls(nullptr);
        Tvx_file_calls watched = f_calls;
        watched.fsync = [](int number) { return s_disk->may_write() ? s_disk->f_calls.fsync(number) : -1; };
        watched.close = [](int number) {
            int const closed = s_disk->f_calls.close(number);
            return s_disk->may_write() ? closed : -1;
        };
        watched.rename = [](char const *from, char const *to) {
            return s_disk->may_write() ? s_disk->f_calls.rename(from, to) : -1;
        };
        watched.open = [](char const *path, int flags, unsigned mode) {
            return s_disk->may_write() ? s_disk->f_calls.open(path, flags, mode) : -1;
        };
        vx_set_file_calls(&watched);
    }
    watched_disk(watched_disk const &) = delete;
    watched_disk &operator=(watched_disk const &) = delete;
    ~watched_disk()
    {
        vx_set_file_calls(&f_calls);
        sqlite3_vfs_unregister(&f_vfs);
        sqlite3_vfs_register(f_real, 1);
        s_disk = nullptr;
    }
    long long bytes_read = 0;
    /// The end was reached.
    [[nodiscard]] bool has_ended() const { return f_left == 0; }

private:
    struct file
    {
        sqlite3_file base;
        sqlite3_io_methods methods;
        [[nodiscard]] sqlite3_file *real() { return reinterpret_cast<sqlite3_file *>(this + 1); }
        [[nodiscard]] static sqlite3_file *real(sqlite3_file *f)
        {
            return reinterpret_cast<file *>(f)->real();
        }
    };

    bool may_write()
    {
        if (f_left < 0)
            return true;
        if (f_left > 0) {
            --f_left;
            return true;
        }
        if (f_end == at_the_end::kill)
            (void)kill(getpid(), SIGKILL);
        errno = EIO;
        return false;
    }

    template <auto Method, int Failure, class... Args>
    static int writing(sqlite3_file *f, Args... args)
    {
        auto *const real = file::real(f);
        return s_disk->may_write() ? (real->pMethods->*Method)(real, args...) : Failure;
    }
    template <auto Method, class... Args>
    static int plain(sqlite3_file *f, Args... args)
    {
        auto *const real = file::real(f);
        return (real->pMethods->*Method)(real, args...);
    }

    static int open(sqlite3_vfs *, char const *name, sqlite3_file *opened, int flags, int *out_flags)
    {
        auto *const f = reinterpret_cast<file *>(opened);
        f->base.pMethods = nullptr;
        int const code = s_disk->f_real->xOpen(s_disk->f_real, name, f->real(), flags, out_flags);
        if (code != SQLITE_OK)
            return code;
        using io = sqlite3_io_methods;
        f->methods = *f->real()->pMethods;
        f->methods.iVersion = 1; // no shared memory, no mapping
        f->methods.xClose = &plain<&io::xClose>;
        f->methods.xRead = [](sqlite3_file *of, void *room, int size, sqlite3_int64 at) {
            s_disk->bytes_read += size;
            return plain<&io::xRead>(of, room, size, at);
        };
        // Of the last one a part comes on the disk.
        f->methods.xWrite = [](sqlite3_file *of, void const *bytes, int size, sqlite3_int64 at) {
            if (s_disk->f_left == 0)
                (void)plain<&io::xWrite, void const *>(of, bytes, size / 4 * 3, at);
            return writing<&io::xWrite, SQLITE_IOERR_WRITE, void const *, int, sqlite3_int64>(of, bytes, size,
                                                                                              at);
        };
        f->methods.xTruncate = &writing<&io::xTruncate, SQLITE_IOERR_TRUNCATE, sqlite3_int64>;
        f->methods.xSync = &writing<&io::xSync, SQLITE_IOERR_FSYNC, int>;
        f->methods.xFileSize = &plain<&io::xFileSize, sqlite3_int64 *>;
        f->methods.xLock = &plain<&io::xLock, int>;
        f->methods.xUnlock = &plain<&io::xUnlock, int>;
        f->methods.xCheckReservedLock = &plain<&io::xCheckReservedLock, int *>;
        f->methods.xFileControl = &plain<&io::xFileControl, int, void *>;
        f->methods.xSectorSize = &plain<&io::xSectorSize>;
        f->methods.xDeviceCharacteristics = &plain<&io::xDeviceCharacteristics>;
        f->base.pMethods = &f->methods;
        return SQLITE_OK;
    }

    inline static watched_disk *s_disk = nullptr;
    sqlite3_vfs f_vfs;
    sqlite3_vfs *f_real;
    Tvx_file_calls f_calls;
    int f_left;
    at_the_end f_end;
};
} // namespace vx_test
