#include "platform/winapi/module_file.h"

#include "platform/winapi/file.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <exception>
#include <fcntl.h>
#include <link.h>
#include <map>
#include <optional>
#include <poll.h>
#include <string>
#include <string_view>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <tuple>
#include <unistd.h>
#include <vector>

namespace {
using header = ElfW(Ehdr);
using program_header = ElfW(Phdr);
using section_header = ElfW(Shdr);
using dynamic_entry = ElfW(Dyn);
using symbol = ElfW(Sym);
using word = ElfW(Addr);

constexpr std::size_t c_most_segments = 4096;
constexpr std::size_t c_most_dynamic = 65536;
constexpr std::uint32_t c_longest_chain = 1 << 20;
constexpr int c_longest_start_ms = 10000;
constexpr int c_started = 42; // no value that an `_exit` in an initialiser is likely to have

/// The header of this library as it lies in memory: what it was built for is what can be loaded beside it.
header const *own_header()
{
    Dl_info info{};
    return dladdr(reinterpret_cast<void const *>(&vx_module_look), &info)
               ? static_cast<header const *>(info.dli_fbase)
               : nullptr;
}

class module_file
{
public:
    explicit module_file(std::string const &path)
        : f_file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK))
    {
        struct stat status = {};
        if (f_file >= 0 && ::fstat(f_file, &status) == 0 && S_ISREG(status.st_mode))
            f_size = static_cast<std::uint64_t>(status.st_size);
    }
    module_file(module_file const &) = delete;
    module_file &operator=(module_file const &) = delete;
    ~module_file()
    {
        if (f_file >= 0)
            ::close(f_file);
    }

    [[nodiscard]] bool is_readable() const { return f_size > 0; }
    [[nodiscard]] bool has(std::uint64_t offset, std::uint64_t length) const
    {
        return offset <= f_size && length <= f_size - offset;
    }
    bool read(std::uint64_t offset, void *to, std::size_t length) const
    {
        if (!has(offset, length))
            return false;
        auto *at = static_cast<char *>(to);
        while (length > 0) {
            auto const got = ::pread(f_file, at, length, static_cast<off_t>(offset));
            if (got < 0 && errno == EINTR)
                continue;
            if (got <= 0)
                return false;
            at += got;
            offset += static_cast<std::uint64_t>(got);
            length -= static_cast<std::size_t>(got);
        }
        return true;
    }
    template <class T>
    [[nodiscard]] std::optional<T> get(std::uint64_t offset) const
    {
        T value;
        return read(offset, &value, sizeof value) ? std::optional<T>(value) : std::nullopt;
    }
    template <class T>
    bool get_all(std::uint64_t offset, std::size_t count, std::vector<T> &to) const
    {
        if (!has(offset, std::uint64_t(count) * sizeof(T)))
            return false;
        to.resize(count);
        return count == 0 || read(offset, to.data(), count * sizeof(T));
    }

private:
    int f_file;
    std::uint64_t f_size = 0;
};

/// The table by which the loader finds names, read where it lies: a look at a few words for each name.
class name_table
{
public:
    name_table(module_file const &file, std::vector<program_header> const &segments)
        : f_file(file), f_segments(segments)
    {
        auto const dynamic = std::ranges::find(segments, word(PT_DYNAMIC), &program_header::p_type);
        if (dynamic == segments.end())
            return;
        std::vector<dynamic_entry> entries;
        auto const count = std::min<std::size_t>(dynamic->p_filesz / sizeof(dynamic_entry), c_most_dynamic);
        if (!file.get_all(dynamic->p_offset, count, entries))
            return;
        for (auto const &entry : entries) {
            if (entry.d_tag == DT_NULL)
                break;
            if (entry.d_tag == DT_SYMTAB)
                f_symbols = place(entry.d_un.d_ptr);
            else if (entry.d_tag == DT_STRTAB)
                f_strings = place(entry.d_un.d_ptr);
            else if (entry.d_tag == DT_STRSZ)
                f_strings_size = entry.d_un.d_val;
            else if (entry.d_tag == DT_GNU_HASH)
                f_gnu_hash = place(entry.d_un.d_ptr);
            else if (entry.d_tag == DT_HASH)
                f_hash = place(entry.d_un.d_ptr);
        }
    }

    [[nodiscard]] bool exports(std::string_view name) const
    {
        if (!f_symbols || !f_strings)
            return false;
        return f_gnu_hash ? by_gnu_hash(name) : f_hash && by_hash(name);
    }

private:
    /// Where in the file lies what is at this address in memory.
    [[nodiscard]] std::optional<std::uint64_t> place(word address) const
    {
        for (auto const &segment : f_segments)
            if (segment.p_type == PT_LOAD && address >= segment.p_vaddr &&
                address - segment.p_vaddr < segment.p_filesz)
                return std::uint64_t(segment.p_offset) + (address - segment.p_vaddr);
        return std::nullopt;
    }

    [[nodiscard]] bool is_symbol(std::uint64_t index, std::string_view name) const
    {
        auto const entry = f_file.get<symbol>(*f_symbols + index * sizeof(symbol));
        if (!entry || entry->st_shndx == SHN_UNDEF || entry->st_name >= f_strings_size)
            return false;
        auto const bind = ELF64_ST_BIND(entry->st_info);
        auto const visibility = ELF64_ST_VISIBILITY(entry->st_other);
        if (bind == STB_LOCAL || visibility == STV_HIDDEN || visibility == STV_INTERNAL)
            return false;
        std::string text(name.size() + 1, '\1');
        return f_file.read(*f_strings + entry->st_name, text.data(), text.size()) &&
               std::string_view(text.data(), text.size()) == std::string_view(name.data(), name.size() + 1);
    }

    [[nodiscard]] bool by_gnu_hash(std::string_view name) const
    {
        std::uint32_t hash = 5381;
        for (unsigned char const c : name)
            hash = hash * 33 + c;
        std::uint32_t head[4]; // buckets, first symbol, words of the filter, its shift
        if (!f_file.read(*f_gnu_hash, head, sizeof head) || head[0] == 0 || head[2] == 0)
            return false;
        constexpr std::uint32_t bits = sizeof(word) * 8;
        auto const filter_at = *f_gnu_hash + sizeof head;
        auto const filter = f_file.get<word>(filter_at + (hash / bits % head[2]) * sizeof(word));
        if (!filter || !(*filter >> (hash % bits) & 1) ||
            !(*filter >> ((head[3] < 32 ? hash >> head[3] : 0) % bits) & 1))
            return false;
        auto const buckets_at = filter_at + std::uint64_t(head[2]) * sizeof(word);
        auto const chains_at = buckets_at + std::uint64_t(head[0]) * 4;
        auto const first = f_file.get<std::uint32_t>(buckets_at + (hash % head[0]) * std::uint64_t(4));
        if (!first || *first < head[1])
            return false;
        for (std::uint32_t i = 0; i < c_longest_chain; ++i) {
            auto const index = std::uint64_t(*first) + i;
            auto const link = f_file.get<std::uint32_t>(chains_at + (index - head[1]) * 4);
            if (!link)
                return false;
            if ((*link | 1) == (hash | 1) && is_symbol(index, name))
                return true;
            if (*link & 1)
                return false;
        }
        return false;
    }

    [[nodiscard]] bool by_hash(std::string_view name) const
    {
        std::uint32_t hash = 0;
        for (unsigned char const c : name) {
            hash = (hash << 4) + c;
            auto const high = hash & 0xf0000000U;
            hash = (hash ^ (high >> 24)) & ~high;
        }
        std::uint32_t head[2]; // buckets, chains
        if (!f_file.read(*f_hash, head, sizeof head) || head[0] == 0)
            return false;
        auto index = f_file.get<std::uint32_t>(*f_hash + 8 + (hash % head[0]) * std::uint64_t(4));
        for (std::uint32_t i = 0; index && *index != STN_UNDEF && *index < head[1] && i < c_longest_chain;
             ++i) {
            if (is_symbol(*index, name))
                return true;
            index = f_file.get<std::uint32_t>(*f_hash + 8 + (std::uint64_t(head[0]) + *index) * 4);
        }
        return false;
    }

    module_file const &f_file;
    std::vector<program_header> const &f_segments;
    std::optional<std::uint64_t> f_symbols;
    std::optional<std::uint64_t> f_strings;
    std::uint64_t f_strings_size = 0;
    std::optional<std::uint64_t> f_gnu_hash;
    std::optional<std::uint64_t> f_hash;
};

bool sections_lie_within(module_file const &file, header const &head)
{
    if (head.e_shoff == 0)
        return true;
    std::vector<section_header> sections;
    if (head.e_shentsize != sizeof(section_header) || !file.get_all(head.e_shoff, head.e_shnum, sections))
        return false;
    return std::ranges::all_of(sections, [&](section_header const &section) {
        return section.sh_type == SHT_NOBITS || section.sh_type == SHT_NULL ||
               file.has(section.sh_offset, section.sh_size);
    });
}

Tvx_module_state look(module_file const &file, std::vector<program_header> &segments)
{
    if (!file.is_readable())
        return c_module_unreadable;
    unsigned char ident[EI_NIDENT];
    if (!file.read(0, ident, sizeof ident) || std::memcmp(ident, ELFMAG, SELFMAG) != 0)
        return c_module_no_module;
    auto const *own = own_header();
    if (own && (ident[EI_CLASS] != own->e_ident[EI_CLASS] || ident[EI_DATA] != own->e_ident[EI_DATA]))
        return c_module_other_machine;
    auto const head = file.get<header>(0);
    if (!head)
        return c_module_cut;
    if (own && head->e_machine != own->e_machine)
        return c_module_other_machine;
    if (head->e_type != ET_DYN || head->e_phentsize != sizeof(program_header) || head->e_phnum == 0 ||
        head->e_phnum > c_most_segments)
        return c_module_no_module;
    if (!file.get_all(head->e_phoff, head->e_phnum, segments))
        return c_module_cut;
    for (auto const &segment : segments)
        if (segment.p_type != PT_NULL && !file.has(segment.p_offset, segment.p_filesz))
            return c_module_cut;
    return sections_lie_within(file, *head) ? c_module_fits : c_module_cut;
}

/// The copy of the process: it touches nothing that is shared, and ends without a trace.
[[noreturn]] void start_in_copy(std::string const &path) noexcept
{
    rlimit const none = {0, 0};
    setrlimit(RLIMIT_CORE, &none);
    if (int const nowhere = ::open("/dev/null", O_RDWR); nowhere >= 0)
        for (int const file : {0, 1, 2})
            dup2(nowhere, file);
    for (int const fault : {SIGSEGV, SIGBUS, SIGILL, SIGFPE, SIGABRT, SIGTRAP})
        std::signal(fault, SIG_DFL);
    std::set_terminate([] { _exit(1); });
    alarm(0);
    // What an `exit` would end first: nothing else of the process's own is to run in its copy.
    std::atexit([] { _exit(1); });
    auto *const module = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    _exit(module ? c_started : 1);
}

bool starts(std::string const &path)
{
    int ends[2];
    if (::pipe2(ends, O_CLOEXEC) != 0)
        return true;
    auto const copy = fork();
    if (copy == 0)
        start_in_copy(path);
    ::close(ends[1]);
    if (copy < 0) {
        ::close(ends[0]);
        return true;
    }
    // The other end closes when the copy ends, however it does.
    pollfd ended = {ends[0], POLLIN, 0};
    int ready = 0;
    do
        ready = ::poll(&ended, 1, c_longest_start_ms);
    while (ready < 0 && errno == EINTR);
    if (ready <= 0)
        ::kill(copy, SIGKILL);
    ::close(ends[0]);
    int status = 0;
    while (::waitpid(copy, &status, 0) < 0)
        if (errno != EINTR)
            return true; // somebody else has waited for it; the loader will tell
    return WIFEXITED(status) && WEXITSTATUS(status) == c_started;
}
} // namespace

Tvx_module_state vx_module_look(wchar_t const *path, std::span<char const *const> names,
                                std::span<bool> found)
{
    std::ranges::fill(found, false);
    module_file const file(path ? vx_path_to_native(path) : std::string());
    std::vector<program_header> segments;
    auto const state = look(file, segments);
    if (state != c_module_fits || names.empty())
        return state;
    name_table const table(file, segments);
    bool all = true;
    for (std::size_t i = 0; i < names.size(); ++i) {
        bool const has = table.exports(names[i]);
        all = all && has;
        if (i < found.size())
            found[i] = has;
        else if (!has)
            break;
    }
    return all ? c_module_fits : c_module_lacks_names;
}

bool vx_module_starts(wchar_t const *path)
{
    auto const native = path ? vx_path_to_native(path) : std::string();
    if (native.empty())
        return false;
    if (auto *const loaded = dlopen(native.c_str(), RTLD_LAZY | RTLD_NOLOAD)) {
        dlclose(loaded);
        return true;
    }
    struct stat status = {};
    if (::stat(native.c_str(), &status) != 0)
        return false;
    using identity = std::tuple<dev_t, ino_t, off_t, time_t, long>;
    static auto &known = *new std::map<identity, bool>;
    identity const file{status.st_dev, status.st_ino, status.st_size, status.st_mtim.tv_sec,
                        status.st_mtim.tv_nsec};
    auto const before = known.find(file);
    if (before != known.end())
        return before->second;
    bool const result = starts(native);
    known.emplace(file, result);
    return result;
}
