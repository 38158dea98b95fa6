#include "source_check.h"

#include <cpl_conv.h>
#include <cpl_minixml.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <set>
#include <string_view>
#include <strings.h>
#include <sys/stat.h>

namespace vx::gdal {
namespace {
namespace fs = std::filesystem;

constexpr int c_folder_levels = 4;        ///< of a data set that is a folder
constexpr int c_folder_entries = 100'000; ///< that are looked at
constexpr int c_description_levels = 8;   ///< of descriptions that name descriptions
constexpr std::uintmax_t c_longest_description = 64 << 20;

/// What begins a name that leads to a server. No data set on the disk has such a name.
constexpr std::string_view c_remote[] = {"http:",
                                         "https:",
                                         "ftp:",
                                         "/vsicurl",
                                         "/vsis3",
                                         "/vsigs",
                                         "/vsiaz",
                                         "/vsiadls",
                                         "/vsioss",
                                         "/vsiswift",
                                         "/vsihdfs",
                                         "/vsiwebhdfs",
                                         "wms:",
                                         "wmts:",
                                         "wfs:",
                                         "wfs3:",
                                         "wcs:",
                                         "oapif:",
                                         "oapif_coverage:",
                                         "ogcapi:",
                                         "csw:",
                                         "pg:",
                                         "postgres:",
                                         "postgresql:",
                                         "mysql:",
                                         "mssql:",
                                         "odbc:",
                                         "oci:",
                                         "hana:",
                                         "mongodb:",
                                         "mongodbv3:",
                                         "es:",
                                         "carto:",
                                         "ngw:",
                                         "amigocloud:",
                                         "eeda:",
                                         "eedai:",
                                         "plscenes:",
                                         "plmosaic:",
                                         "daas:",
                                         "stacta:",
                                         "stacit:",
                                         "iris:",
                                         "georaster:",
                                         "geor:",
                                         "couchdb:",
                                         "dods:"};

bool begins_with(std::string_view text, std::string_view lower)
{
    return text.size() >= lower.size() && strncasecmp(text.data(), lower.data(), lower.size()) == 0;
}

bool is_remote(std::string_view name)
{
    // Archives and the like wrap another name.
    for (bool goes_on = true; goes_on;) {
        goes_on = false;
        if (std::any_of(std::begin(c_remote), std::end(c_remote),
                        [&](std::string_view start) { return begins_with(name, start); }))
            return true;
        for (std::string_view const wrap :
             {"/vsizip/", "/vsigzip/", "/vsitar/", "/vsicached?", "/vsisubfile/"})
            if (begins_with(name, wrap)) {
                std::size_t const next = name.find("/vsi", 1);
                if (next == std::string_view::npos)
                    return name.find("http") != std::string_view::npos;
                name.remove_prefix(next);
                goes_on = true;
                break;
            }
    }
    return false;
}

bool is_special(fs::directory_entry const &entry)
{
    std::error_code problem;
    fs::file_type const type = entry.status(problem).type(); // of what a link leads to
    return !problem && type != fs::file_type::regular && type != fs::file_type::directory &&
           type != fs::file_type::not_found;
}

source_flaw flaw_beside(fs::path const &path)
{
    std::string const stem = path.stem().string();
    std::error_code problem;
    fs::path const folder = path.has_parent_path() ? path.parent_path() : fs::path(".");
    for (fs::directory_iterator at(folder, problem), end; !problem && at != end; at.increment(problem)) {
        std::string const name = at->path().filename().string();
        if (name.size() > stem.size() && begins_with(name, stem) &&
            (name[stem.size()] == '.' || name[stem.size()] == '-') && is_special(*at))
            return {source_flaw::special_file, at->path().string()};
    }
    return {};
}

source_flaw flaw_within(fs::path const &folder)
{
    std::error_code problem;
    int entries = 0;
    for (fs::recursive_directory_iterator at(folder, fs::directory_options::skip_permission_denied, problem),
         end;
         !problem && at != end && entries < c_folder_entries; at.increment(problem), ++entries) {
        if (is_special(*at))
            return {source_flaw::special_file, at->path().string()};
        if (at.depth() + 1 >= c_folder_levels)
            at.disable_recursion_pending();
    }
    return {};
}

/// A description of data kept elsewhere, in XML. Null for any other file.
struct xml_closer
{
    void operator()(CPLXMLNode *node) const { CPLDestroyXMLNode(node); }
};
std::unique_ptr<CPLXMLNode, xml_closer> description_in(fs::path const &path)
{
    std::error_code problem;
    if (fs::file_size(path, problem) > c_longest_description || problem)
        return nullptr;
    std::ifstream file(path, std::ios::binary);
    std::string head(4096, '\0');
    head.resize(static_cast<std::size_t>(file.read(head.data(), 4096).gcount()));
    static constexpr std::string_view c_roots[] = {"<VRTDataset",   "<OGRVRT",           "<GDAL_W",
                                                   "<WMS_",         "<WMT_MS_",          "<TileMap",
                                                   "<Capabilities", "<OGRWFSDataSource", "<StyledLayer"};
    if (std::none_of(std::begin(c_roots), std::end(c_roots),
                     [&](std::string_view root) { return head.find(root) != std::string::npos; }))
        return nullptr;
    return std::unique_ptr<CPLXMLNode, xml_closer>(CPLParseXMLFile(path.c_str()));
}

class description_check
{
public:
    explicit description_check(bool allows_network) : f_allows_network(allows_network) {}

    source_flaw look(fs::path const &path, int level)
    {
        std::error_code problem;
        if (!f_seen.insert(fs::weakly_canonical(path, problem).string()).second)
            return level > 0 ? source_flaw{source_flaw::too_deep, path.string()} : source_flaw{};
        if (level > c_description_levels)
            return {source_flaw::too_deep, path.string()};
        if (source_flaw flaw = flaw_beside(path))
            return flaw;
        source_flaw found;
        if (auto const root = description_in(path))
            for (CPLXMLNode const *node = root.get(); node && !found; node = node->psNext)
                found = look(*node, path.parent_path(), level);
        f_seen.erase(fs::weakly_canonical(path, problem).string());
        return found;
    }

private:
    source_flaw look(CPLXMLNode const &node, fs::path const &folder, int level)
    {
        if (node.eType == CXT_Text)
            return look_at_name(node.pszValue, folder, level);
        // Names of vocabularies and of systems of coordinates look like addresses.
        std::string_view const kind = node.pszValue;
        if (begins_with(kind, "xmlns") || begins_with(kind, "xsi:") || kind.ends_with("SRS"))
            return {};
        source_flaw found;
        for (CPLXMLNode const *child = node.psChild; child && !found; child = child->psNext)
            found = look(*child, folder, level);
        return found;
    }

    source_flaw look_at_name(std::string const &name, fs::path const &folder, int level)
    {
        constexpr std::size_t c_longest_name = 4096;
        if (name.empty() || name.size() > c_longest_name)
            return {};
        if (is_remote(name))
            return f_allows_network ? source_flaw{} : source_flaw{source_flaw::network, name};
        std::size_t const first = name.find_first_not_of(" \t\r\n");
        if (first == std::string::npos)
            return {};
        // Written descriptions name their files relative to themselves or to where the program runs.
        for (fs::path const &path : {folder / name.substr(first), fs::path(name.substr(first))}) {
            path_kind const kind = kind_of(path.string());
            if (kind == path_kind::special)
                return {source_flaw::special_file, path.string()};
            if (kind == path_kind::file)
                return look(path, level + 1);
        }
        return {};
    }

    bool f_allows_network;
    std::set<std::string> f_seen;
};
} // namespace

path_kind kind_of(std::string const &path)
{
    struct stat info = {};
    if (path.empty())
        return path_kind::missing;
    if (stat(path.c_str(), &info) == 0) {
        if (S_ISREG(info.st_mode))
            return path_kind::file;
        return S_ISDIR(info.st_mode) ? path_kind::folder : path_kind::special;
    }
    bool const is_address =
        path.rfind("/vsi", 0) == 0 || path.find(':') != std::string::npos || path.front() == '<';
    return is_address && errno != EACCES ? path_kind::no_path : path_kind::missing;
}

source_flaw find_flaw(std::string const &path, bool allows_network)
{
    switch (kind_of(path)) {
    case path_kind::file:
        return description_check(allows_network).look(path, 0);
    case path_kind::folder:
        return flaw_within(path);
    default:
        return {};
    }
}

bool has_abandoned_log(std::string const &path)
{
    struct stat info = {};
    if (stat((path + "-wal").c_str(), &info) != 0 || !S_ISREG(info.st_mode) || info.st_size == 0)
        return false;
    // Whoever has the database open holds a lock on the file that readers and writers share. Its own locks a
    // process would lose by opening that file and closing it, so that the list of all locks is read.
    struct stat shared = {};
    if (stat((path + "-shm").c_str(), &shared) != 0)
        return true;
    std::ifstream locks("/proc/locks");
    if (!locks)
        return false;
    std::string const inode = ":" + std::to_string(shared.st_ino) + " ";
    for (std::string line; std::getline(locks, line);)
        if (line.find(inode) != std::string::npos)
            return false;
    return true;
}

bool has_open_journal(std::string const &path)
{
    // A journal that was done with is shorter, or its head is blank.
    constexpr std::array<char, 8> c_mark{'\xd9', '\xd5', '\x05', '\xf9', '\x20', '\xa1', '\x63', '\xd7'};
    std::array<char, 8> head = {};
    struct stat info = {};
    if (stat((path + "-journal").c_str(), &info) != 0 || !S_ISREG(info.st_mode))
        return false;
    std::ifstream file(path + "-journal", std::ios::binary);
    return file.read(head.data(), head.size()) && head == c_mark;
}
} // namespace vx::gdal
