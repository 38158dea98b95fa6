#pragma once

/// Views that never come to an end must not keep a data set from opening, nor the program from going on.
namespace vx::gdal {
/// While it lives, databases that are opened on this thread may do so much work and no more; the statement
/// that goes beyond is broken off, and those after it. Later work on the same database has no bound.
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
    long f_outer; ///< what is left to the one round this one, which is the one that counts
};

/// Has to be called before the first database is opened.
void install_opening_budget();
} // namespace vx::gdal
