#include "database_guard.h"

#include "platform/basic/vx_datasource.h"

#include <chrono>
#include <sqlite3.h>
#include <string_view>
#include <utility>

namespace vx::gdal {
namespace {
/// Steps of the database's machine. Opening takes some thousands; so many are done in a fraction of a second.
constexpr long long c_budget = 2'000'000;
/// Without a row: some ten seconds. To look at each of fifty million rows takes less.
constexpr long long c_longest_search = 1'000'000'000;
constexpr int c_steps = 10'000; ///< between two looks
/// Bytes of a row. A cell is copied on its way, and takes four times as much as a wide text.
constexpr int c_longest_row = 128 << 20;
constexpr long long c_no_bound = -1;
constexpr std::chrono::milliseconds c_between_questions{20};

thread_local long long t_left = c_no_bound;
thread_local long long t_searched = 0;
thread_local bool t_is_endless = false;
thread_local std::atomic<bool> const *t_stop = nullptr;

/// Asks the one who waits, from time to time. No exception may pass through the database.
bool is_given_up() noexcept
{
    if (t_stop)
        return *t_stop;
    static std::chrono::steady_clock::time_point last;
    auto const waiting = vx_datasource_get_waiting();
    auto const now = std::chrono::steady_clock::now();
    if (!waiting || now - last < c_between_questions)
        return false;
    bool goes_on = false;
    try {
        goes_on = waiting();
    } catch (...) {
    }
    last = std::chrono::steady_clock::now();
    return !goes_on;
}

int on_progress(void *)
{
    if (t_left != c_no_bound) {
        t_left = t_left > c_steps ? t_left - c_steps : 0;
        if (t_left == 0)
            return 1;
    }
    t_searched += c_steps;
    if (t_searched > c_longest_search) {
        t_is_endless = true;
        return 1;
    }
    return is_given_up();
}

/// The library of coordinate systems keeps them in a database of its own, which other threads share.
bool is_of_coordinate_systems(sqlite3 *base)
{
    char const *const file = sqlite3_db_filename(base, "main");
    return file && std::string_view(file).ends_with("/proj.db");
}

int on_database(sqlite3 *base, char **, void const *)
{
    if (t_left != c_no_bound)
        sqlite3_limit(base, SQLITE_LIMIT_LENGTH, c_longest_row);
    if (t_left != c_no_bound && !is_of_coordinate_systems(base))
        sqlite3_progress_handler(base, c_steps, &on_progress, nullptr);
    return SQLITE_OK;
}
} // namespace

opening_budget::opening_budget() : f_outer(t_left)
{
    // Each time: a library of places within databases forgets all extensions when its last database is
    // closed, as happens once a file has been looked at. To ask for one twice is allowed.
    sqlite3_auto_extension(reinterpret_cast<void (*)()>(&on_database));
    note_database_progress();
    if (f_outer == c_no_bound)
        t_left = c_budget;
}

opening_budget::~opening_budget()
{
    if (f_outer == c_no_bound)
        t_left = c_no_bound;
}

bool opening_budget::is_spent() const
{
    return t_left == 0;
}

stop_scope::stop_scope(std::atomic<bool> const &stop)
{
    t_stop = &stop;
}

stop_scope::~stop_scope()
{
    t_stop = nullptr;
}

void note_database_progress()
{
    t_searched = 0;
}

bool take_endless_statement()
{
    return std::exchange(t_is_endless, false);
}
} // namespace vx::gdal
