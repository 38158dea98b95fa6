#pragma once

#include "captions/driver_faults.h"
#include "captions/drivers.h"

#include <cpl_error.h>

#include <string>
#include <string_view>

namespace vx::gdal {
/// Collects why a call fails: sentences of our own, and behind them what GDAL reports while the object lives,
/// instead of GDAL's own printing. One object stands round each call of the component interface; what an
/// inner one collects goes to the outer one as well.
class error_guard
{
public:
    /// The reason (platform/basic/vx_fault.h) goes to `target` when the guard ends; nothing after a call
    /// without an error.
    explicit error_guard(std::wstring &target);
    ~error_guard();
    error_guard(error_guard const &) = delete;
    error_guard &operator=(error_guard const &) = delete;

    /// Adds a sentence for the user; one that is there already is not repeated.
    void add(std::wstring_view sentence);
    void add(Tvx_driver_caption sentence);
    void add(Tvx_driver_fault_caption sentence);
    /// Adds the reason that a guard of another thread collected to the innermost guard of this thread, if
    /// there is one.
    static void add_to_innermost(std::wstring_view reason);
    /// Adds what a library said, in its own words.
    void add_details(std::wstring_view text);
    /// Forgets what came up so far: a better account of it follows.
    void clear();
    /// The reason so far: empty, or a sentence with the details behind it.
    [[nodiscard]] std::wstring text() const;

private:
    std::wstring &f_target;
    error_guard *f_outer;
    std::wstring f_sentence;
    std::wstring f_details;
};

/// The sentence of this number about `source`, and behind it the reason that a guard collected.
[[nodiscard]] std::wstring reason_about(Tvx_driver_caption sentence, std::wstring_view source,
                                        std::wstring_view reason);

/// Drops what GDAL reports, when `is_needed`: setting up a handler costs more than reading a cell.
class quiet_errors
{
public:
    explicit quiet_errors(bool is_needed = true) : f_is_needed(is_needed)
    {
        if (f_is_needed)
            CPLPushErrorHandler(&CPLQuietErrorHandler);
    }
    ~quiet_errors()
    {
        if (!f_is_needed)
            return;
        CPLPopErrorHandler();
        CPLErrorReset();
    }
    quiet_errors(quiet_errors const &) = delete;
    quiet_errors &operator=(quiet_errors const &) = delete;

private:
    bool f_is_needed;
};
} // namespace vx::gdal
