#pragma once

#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

namespace vx_test {
/// A PostgreSQL server with PostGIS of the test's own: in a folder below /tmp, reached by a socket in it and
/// by nothing else. When the test is root it runs as the user postgres. It ends with the object, and with the
/// process however that ends. It says which statements it was asked and how many rows each of them sent.
class database_server
{
public:
    /// A statement that the server carried out for a data set, not for `sql`.
    struct statement
    {
        std::string text;
        long long rows = -1; ///< sent; of a cursor, in all its parts; -1: the statement has no plan
    };

    /// Where the server's programs lie; empty when they are not installed, and the test has to be skipped.
    [[nodiscard]] static std::filesystem::path programs();

    /// Makes a database with PostGIS and starts its server; throws when that fails.
    database_server();
    ~database_server();
    database_server(database_server const &) = delete;
    database_server &operator=(database_server const &) = delete;

    /// Connection string for a data set; `user` is one of `tester`, who may do everything and needs no
    /// password, and `guest`, whose is "open sesame".
    [[nodiscard]] std::wstring connection(std::wstring const &more = L"",
                                          std::wstring const &user = L"tester") const;
    /// What psql gives for the statements: rows by lines, cells divided by "|".
    std::string sql(std::string const &statements) const;
    /// Loads a file by GDAL's own tool, as a table of the name.
    void load(std::string const &file, std::string const &table, std::string const &options = {}) const;

    /// Forgets the statements up to now.
    void forget();
    /// Since `forget`, those that hold `part`.
    [[nodiscard]] std::vector<statement> statements(std::string const &part = {}) const;
    /// Rows that all those statements sent.
    [[nodiscard]] long long rows_sent(std::string const &part) const;

    /// The process that serves the data sets that are open is killed, and no other.
    void kill_connections();
    /// All of the server is killed; `start` brings it back with what it had stored.
    void kill();
    void start();

private:
    /// Those whose line in the server's table of processes meets the condition.
    [[nodiscard]] std::vector<int> processes(std::string const &condition) const;
    void wait_until_ready() const;

    std::filesystem::path f_folder;
    std::FILE *f_keeper = nullptr; ///< a shell that lives as long as this pipe
    std::size_t f_mark = 0;
};
} // namespace vx_test
