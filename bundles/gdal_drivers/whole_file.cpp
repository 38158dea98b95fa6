#include "whole_file.h"

#include "gdal_errors.h"

#include "platform/basic/vx_fault.h"
#include "platform/basic/vx_res.h"
#include "platform/winapi/file.h"

#include <cpl_conv.h>
#include <cpl_string.h>
#include <cpl_vsi.h>

#include <atomic>
#include <filesystem>
#include <unistd.h>

namespace vx::gdal {
namespace {
/// Longest file that is worked on in memory.
constexpr std::size_t c_longest = std::size_t{4} << 30;
/// What belongs to a file of the same stem.
constexpr char const *c_companions[] = {"csvt", "prj", "xsd"};

bool put_into_memory(std::string const &name, std::string const &bytes)
{
    VSILFILE *const file = VSIFOpenL(name.c_str(), "wb");
    if (!file)
        return false;
    bool const good = bytes.empty() || VSIFWriteL(bytes.data(), 1, bytes.size(), file) == bytes.size();
    return VSIFCloseL(file) == 0 && good;
}

bool is_same(struct stat const &a, struct stat const &b)
{
    return a.st_ino == b.st_ino && a.st_size == b.st_size && a.st_mtim.tv_sec == b.st_mtim.tv_sec &&
           a.st_mtim.tv_nsec == b.st_mtim.tv_nsec;
}
} // namespace

whole_file::whole_file(std::wstring const &path)
{
    static std::atomic<unsigned> last{0};
    std::filesystem::path const native = vx_path_to_native(path);
    f_place = native.has_parent_path() ? native.parent_path().string() : ".";
    f_name = native.filename().string();
    f_folder = "/vsimem/vx_whole_" + std::to_string(++last);
    VSIMkdir(f_folder.c_str(), 0700);
}

whole_file::~whole_file()
{
    VSIRmdirRecursive(f_folder.c_str());
}

std::unique_ptr<whole_file> whole_file::make(std::wstring const &path, std::wstring &error)
{
    std::unique_ptr<whole_file> result(new whole_file(path));
    if (access(result->f_place.c_str(), W_OK | X_OK) == 0)
        return result;
    error = vx_res_get_wstr(c_drv_folder_closed);
    return nullptr;
}

std::unique_ptr<whole_file> whole_file::load(std::wstring const &path, std::wstring &error)
{
    std::unique_ptr<whole_file> result(new whole_file(path));
    std::string const real = result->f_place + "/" + result->f_name;
    if (access(real.c_str(), W_OK) != 0 || access(result->f_place.c_str(), W_OK | X_OK) != 0) {
        error = vx_res_get_wstr(c_drv_not_writable);
        return nullptr;
    }
    result->look();
    vx::fault fault;
    auto const bytes = vx_file_read(path, fault, c_longest);
    error = vx_fault_reason(fault);
    if (!bytes || !put_into_memory(result->work_path(), *bytes))
        return nullptr;
    for (char const *const ending : c_companions) {
        std::string const companion = CPLResetExtension(real.c_str(), ending);
        if (!vx_is_file(vx_path_from_native(companion)))
            continue;
        auto const more = vx_file_read(vx_path_from_native(companion), fault, c_longest);
        error = vx_fault_reason(fault);
        if (!more || !put_into_memory(CPLResetExtension(result->work_path().c_str(), ending), *more))
            return nullptr;
    }
    return result;
}

std::string whole_file::real_name(std::string const &work_name) const
{
    if (work_name.rfind(f_folder + "/", 0) != 0)
        return work_name;
    return f_place + work_name.substr(f_folder.size());
}

void whole_file::clear()
{
    VSIRmdirRecursive(f_folder.c_str());
    VSIMkdir(f_folder.c_str(), 0700);
}

void whole_file::look()
{
    f_is_there = stat((f_place + "/" + f_name).c_str(), &f_last) == 0;
}

bool whole_file::save(std::string const &name) const
{
    vsi_l_offset size = 0;
    GByte const *const bytes = VSIGetMemFileBuffer((f_folder + "/" + name).c_str(), &size, FALSE);
    vx::fault fault;
    if (vx_save_atomic(vx_path_from_native(f_place + "/" + name),
                       {bytes ? reinterpret_cast<char const *>(bytes) : "", static_cast<std::size_t>(size)},
                       fault))
        return true;
    error_guard::add_to_innermost(vx_fault_reason(fault));
    return false;
}

bool whole_file::publish(error_guard &guard)
{
    struct stat now = {};
    bool const is_there = stat((f_place + "/" + f_name).c_str(), &now) == 0;
    if (is_there != f_is_there || (is_there && !is_same(now, f_last))) {
        guard.add(c_drv_changed_meanwhile);
        return false;
    }
    // The file itself comes last: with it the others hold.
    CPLStringList const names(VSIReadDir(f_folder.c_str()));
    for (int i = 0; i < names.Count(); ++i) {
        std::string const name = names[i];
        if (name != f_name && name != "." && name != ".." && !save(name))
            return false;
    }
    if (!save(f_name))
        return false;
    look();
    return true;
}
} // namespace vx::gdal
