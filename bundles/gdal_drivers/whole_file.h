#pragma once

#include <memory>
#include <string>
#include <sys/stat.h>

namespace vx::gdal {
class error_guard;

/// A file of a format that is written from start to end: it is worked on in memory, and all of it takes the
/// place of the file on the disk in one step. The files that belong to it (columns' types, schema, system of
/// coordinates) go with it.
class whole_file
{
public:
    /// A file that is not there yet. Null with a reason when its folder takes no files.
    [[nodiscard]] static std::unique_ptr<whole_file> make(std::wstring const &path, std::wstring &error);
    /// A copy of the file to work on. Null with a reason when it may not be read or replaced.
    [[nodiscard]] static std::unique_ptr<whole_file> load(std::wstring const &path, std::wstring &error);
    ~whole_file();
    whole_file(whole_file const &) = delete;
    whole_file &operator=(whole_file const &) = delete;

    /// The name by which GDAL finds the file in memory.
    [[nodiscard]] std::string work_path() const { return f_folder + "/" + f_name; }
    /// What a name in memory is on the disk; another name stays.
    [[nodiscard]] std::string real_name(std::string const &work_name) const;
    /// Forgets what is in memory, before it is written anew.
    void clear();
    /// Saves what is in memory. False with a reason when there is no room, when the file was changed by
    /// somebody else meanwhile, or at any other failure; the file on the disk is then what it was.
    [[nodiscard]] bool publish(error_guard &guard);

private:
    explicit whole_file(std::wstring const &path);
    [[nodiscard]] bool save(std::string const &name) const;
    void look();

    std::string f_place; ///< the folder on the disk
    std::string f_name;
    std::string f_folder; ///< in memory
    bool f_is_there = false;
    struct stat f_last = {}; ///< of the file as it was read or saved last
};
} // namespace vx::gdal
