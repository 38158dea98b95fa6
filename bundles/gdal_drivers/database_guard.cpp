#include "database_guard.h"

#include <sqlite3.h>

namespace vx::gdal {
namespace {
/// Steps of the database's machine. Opening takes some thousands; so many are done in a fraction of a second.
constexpr long c_budget = 2'000'000;
constexpr int c_steps = 10'000; ///< between two looks
constexpr long c_no_bound = -1;

thread_local long t_left = c_no_bound;

int on_progress(void *)
{
    if (t_left == c_no_bound)
        return 0;
    t_left = t_left > c_steps ? t_left - c_steps : 0;
    return t_left == 0;
}

int on_database(sqlite3 *base, char **, void const *)
{
    if (t_left != c_no_bound)
        sqlite3_progress_handler(base, c_steps, &on_progress, nullptr);
    return SQLITE_OK;
}
} // namespace

opening_budget::opening_budget() : f_outer(t_left)
{
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

void install_opening_budget()
{
    sqlite3_auto_extension(reinterpret_cast<void (*)()>(&on_database));
}
} // namespace vx::gdal
