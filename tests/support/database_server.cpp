#include "support/database_server.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <map>
#include <pwd.h>
#include <sstream>
#include <stdexcept>
#include <thread>
#include <unistd.h>

namespace fs = std::filesystem;

namespace vx_test {
namespace {
constexpr char c_settings[] = R"(
listen_addresses = ''
fsync = off
full_page_writes = off
max_wal_size = 4GB
max_connections = 20
shared_buffers = 64MB
jit = off
log_min_messages = log
log_statement = all
log_line_prefix = '%a %p '
log_checkpoints = off
password_encryption = scram-sha-256
session_preload_libraries = 'auto_explain'
auto_explain.log_min_duration = 0
auto_explain.log_analyze = on
auto_explain.log_timing = off
)";
constexpr char c_rights[] = "local all guest scram-sha-256\nlocal all tester trust\n";
/// How long a start may take on a machine with other work.
constexpr std::chrono::seconds c_longest_start{60};

/// In single quotes of the shell.
std::string quoted(std::string const &text)
{
    std::string result = "'";
    for (char const c : text)
        result += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return result + "'";
}

/// What begins a command that is to run as the server's user.
std::string as_server()
{
    return geteuid() == 0 ? "setpriv --reuid=postgres --regid=postgres --init-groups " : "";
}

std::string output_of(std::string const &command)
{
    std::FILE *const pipe = popen(command.c_str(), "re");
    if (!pipe)
        throw std::runtime_error("cannot run: " + command);
    std::string text;
    std::array<char, 4096> part;
    for (std::size_t count; (count = std::fread(part.data(), 1, part.size(), pipe)) > 0;)
        text.append(part.data(), count);
    if (pclose(pipe) != 0)
        throw std::runtime_error("failed: " + command + "\n" + text);
    return text;
}
} // namespace

fs::path database_server::programs()
{
    // Debian keeps each version apart and none of them on the path.
    fs::path newest;
    std::error_code problem;
    for (fs::directory_iterator at("/usr/lib/postgresql", problem), end; !problem && at != end; ++at)
        if (fs::exists(at->path() / "bin/initdb") && fs::exists(at->path() / "lib/postgis-3.so") &&
            at->path() > newest)
            newest = at->path();
    return newest.empty() ? newest : newest / "bin";
}

database_server::database_server()
{
    char name[] = "/tmp/vxk_server_XXXXXX";
    if (!mkdtemp(name))
        throw std::runtime_error("no folder for a server");
    f_folder = name;
    if (passwd const *const user = geteuid() == 0 ? getpwnam("postgres") : nullptr)
        if (chown(name, user->pw_uid, user->pw_gid) != 0)
            throw std::runtime_error("the server's folder cannot be given to it");
    std::string const data = f_folder / "data";
    (void)output_of("cd / && " + as_server() + (programs() / "initdb").string() + " -D " + data +
                    " -U tester -A trust -E UTF8 --locale=C --no-sync 2>&1");
    std::ofstream(data + "/postgresql.conf", std::ios::app)
        << c_settings << "unix_socket_directories = '" << name << "'\n";
    std::ofstream(data + "/pg_hba.conf") << c_rights;
    start();
    (void)output_of("createdb -h " + f_folder.string() + " -U tester demo 2>&1");
    (void)sql("CREATE EXTENSION postgis; CREATE ROLE guest LOGIN PASSWORD 'open sesame'");
}

database_server::~database_server()
{
    if (f_keeper)
        pclose(f_keeper);
}

void database_server::start()
{
    if (f_keeper) {
        std::fputs("keep\n", f_keeper);
        pclose(f_keeper);
    }
    // The shell reads to the end of the pipe, which comes when this process is gone, and clears up then.
    std::string const folder = f_folder;
    std::string const script = "cd / && " + as_server() + (programs() / "postgres").string() + " -D " +
                               folder + "/data >>" + folder + "/log 2>&1 </dev/null & server=$!; " +
                               "trap '' INT TERM HUP; read order; kill -QUIT $server; wait $server; " +
                               "[ \"$order\" = keep ] || rm -rf " + folder;
    f_keeper = popen(("exec setsid sh -c " + quoted(script) + " 2>/dev/null").c_str(), "we");
    if (!f_keeper)
        throw std::runtime_error("the server cannot be started");
    wait_until_ready();
}

std::wstring database_server::connection(std::wstring const &more, std::wstring const &user) const
{
    return L"PG:host=" + f_folder.wstring() + L" dbname=demo user=" + user + more;
}

std::string database_server::sql(std::string const &statements) const
{
    return output_of("PGAPPNAME=sql psql -X -q -A -t -v ON_ERROR_STOP=1 -h " + f_folder.string() +
                     " -U tester -d demo -c " + quoted(statements) + " 2>&1");
}

void database_server::load(std::string const &file, std::string const &table,
                           std::string const &options) const
{
    (void)output_of("PGAPPNAME=sql ogr2ogr -q -f PostgreSQL " +
                    quoted("PG:host=" + f_folder.string() + " dbname=demo user=tester") + " " + quoted(file) +
                    " -nln " + quoted(table) + " -lco LAUNDER=NO -lco PRECISION=NO " + options + " 2>&1");
}

void database_server::forget()
{
    f_mark = fs::file_size(f_folder / "log");
}

std::vector<database_server::statement> database_server::statements(std::string const &part) const
{
    std::vector<statement> all;
    std::map<std::string, std::size_t> cursors; // of a connection, by name
    std::ifstream file(f_folder / "log");
    file.seekg(static_cast<std::streamoff>(f_mark));
    std::string entry;
    auto const take = [&] {
        static std::string const c_query = "\tQuery Text: ", c_rows = "(actual rows=";
        if (entry.rfind("sql ", 0) == 0)
            return;
        for (std::string const start : {"LOG:  statement: ", "LOG:  execute <unnamed>: "})
            if (auto const at = entry.find(start); at != std::string::npos)
                all.push_back({entry.substr(at + start.size())});
        auto const query = entry.find(c_query);
        auto const rows = entry.find(c_rows);
        if (query == std::string::npos || rows == std::string::npos)
            return;
        // The plan comes when the statement is done, that of a cursor when it is closed.
        std::string const text = entry.substr(query + c_query.size());
        for (auto s = all.rbegin(); s != all.rend(); ++s)
            if (s->rows < 0 && text.rfind(s->text, 0) == 0) {
                s->rows = std::stoll(entry.substr(rows + c_rows.size()));
                return;
            }
    };
    for (std::string line; std::getline(file, line);) {
        if (line.rfind('\t', 0) == 0) {
            entry += "\n" + line;
            continue;
        }
        take();
        entry = line;
    }
    take();
    std::erase_if(all, [&](statement const &s) { return s.text.find(part) == std::string::npos; });
    return all;
}

long long database_server::rows_sent(std::string const &part) const
{
    long long rows = 0;
    for (statement const &s : statements(part))
        rows += std::max(0LL, s.rows);
    return rows;
}

void database_server::kill_connections()
{
    for (int const process : processes("datname = 'demo' AND application_name <> 'sql'"))
        (void)::kill(process, SIGKILL);
    // The server ends all that it serves when one process is killed, and comes back by itself.
    wait_until_ready();
}

void database_server::kill()
{
    auto const children = processes("pid <> pg_backend_pid()");
    int server = 0;
    std::ifstream(f_folder / "data/postmaster.pid") >> server;
    (void)::kill(server, SIGKILL);
    // A new server does not start as long as one of its former processes is there.
    auto const end = std::chrono::steady_clock::now() + c_longest_start;
    for (int const process : children)
        while (::kill(process, 0) == 0 && std::chrono::steady_clock::now() < end)
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
}

std::vector<int> database_server::processes(std::string const &condition) const
{
    std::istringstream list(sql("SELECT pid FROM pg_stat_activity WHERE " + condition));
    return {std::istream_iterator<int>(list), {}};
}

void database_server::wait_until_ready() const
{
    auto const end = std::chrono::steady_clock::now() + c_longest_start;
    while (std::system(("pg_isready -q -h " + f_folder.string()).c_str()) != 0) {
        if (std::chrono::steady_clock::now() > end)
            throw std::runtime_error("the server does not start");
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
    }
}
} // namespace vx_test
