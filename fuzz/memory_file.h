#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <sys/mman.h>
#include <unistd.h>

/// A file in memory with a path, since the readers take paths.
class memory_file
{
public:
    memory_file() : f_number(memfd_create("fuzz", 0))
    {
        if (f_number < 0)
            std::abort();
    }
    memory_file(memory_file const &) = delete;
    memory_file &operator=(memory_file const &) = delete;
    ~memory_file() { close(f_number); }

    void set(std::uint8_t const *data, std::size_t size)
    {
        if (ftruncate(f_number, 0) != 0 || pwrite(f_number, data, size, 0) != static_cast<ssize_t>(size))
            std::abort();
    }
    [[nodiscard]] std::wstring path() const { return L"/proc/self/fd/" + std::to_wstring(f_number); }

private:
    int f_number;
};

/// A name in the temporary folder for what is saved again; gone at the end.
class saved_file
{
public:
    saved_file() : f_name("/dev/shm/vx_fuzz_" + std::to_string(getpid())) {}
    saved_file(saved_file const &) = delete;
    saved_file &operator=(saved_file const &) = delete;
    ~saved_file() { unlink(f_name.c_str()); }
    [[nodiscard]] std::wstring path() const { return {f_name.begin(), f_name.end()}; }

private:
    std::string f_name;
};

/// A promise of the code under test.
inline void must(bool holds)
{
    if (!holds)
        std::abort();
}
