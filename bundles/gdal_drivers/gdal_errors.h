#pragma once

#include <string>
#include <string_view>

namespace vx::gdal {
/// Collects what GDAL reports while the object lives, instead of GDAL's own printing. One object stands round
/// each call of the component interface; what an inner one collects goes to the outer one as well.
class error_guard
{
public:
    /// Texts go to `target` when the guard ends: all errors of the call, or nothing after a call without an
    /// error.
    explicit error_guard(std::wstring &target);
    ~error_guard();
    error_guard(error_guard const &) = delete;
    error_guard &operator=(error_guard const &) = delete;

    /// Adds an error; one that is there already is not repeated.
    void add(std::wstring_view text);
    /// Adds to the innermost guard of this thread, if there is one.
    static void add_to_innermost(std::wstring_view text);
    /// What came up so far.
    [[nodiscard]] std::wstring const &text() const { return f_text; }

private:
    std::wstring &f_target;
    error_guard *f_outer;
    std::wstring f_text;
};
} // namespace vx::gdal
