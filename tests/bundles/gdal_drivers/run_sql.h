#pragma once

#include <filesystem>
#include <gtest/gtest.h>
#include <sqlite3.h>

namespace vx_test {
/// Changes a database past the driver.
inline void run_sql(std::filesystem::path const &path, char const *sql)
{
    sqlite3 *base = nullptr;
    ASSERT_EQ(sqlite3_open(path.c_str(), &base), SQLITE_OK);
    char *message = nullptr;
    EXPECT_EQ(sqlite3_exec(base, sql, nullptr, nullptr, &message), SQLITE_OK) << message;
    sqlite3_free(message);
    sqlite3_close(base);
}
} // namespace vx_test
