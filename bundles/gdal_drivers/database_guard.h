#pragma once

#include <atomic>

/// Views that never come to an end must not keep a data set from opening, nor the program from going on.
/// Where somebody waits (see `vx_datasource_set_waiting`) a statement ends when that one gives it up.
namespace vx::gdal {
/// While it lives, databases that are opened on this thread may do so much work and no more; the statement
/// that goes beyond is broken off, and those after it. Later a statement of such a database is broken off
/// when it has found nothing in far more work than any honest question takes.
class opening_budget
{
public:
    opening_budget();
    ~opening_budget();
    opening_budget(opening_budget const &) = delete;
    opening_budget &operator=(opening_budget const &) = delete;
    /// The work was broken off.
    [[nodiscard]] bool is_spent() const;

private:
    long long f_outer; ///< what is left to the one round this one, which is the one that counts
};

/// While it lives, statements of databases that run on this thread are broken off once the flag is set. For
/// threads that work for one who waits: nobody is asked on them.
class stop_scope
{
public:
    explicit stop_scope(std::atomic<bool> const &stop);
    ~stop_scope();
    stop_scope(stop_scope const &) = delete;
    stop_scope &operator=(stop_scope const &) = delete;
};

/// A question begins on this thread, or a row was found.
void note_database_progress();
/// Whether a statement found nothing for too long since the last call on this thread.
[[nodiscard]] bool take_endless_statement();
} // namespace vx::gdal
