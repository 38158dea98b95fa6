#pragma once

#include "captions/drivers.h"

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
    /// Adds the reason that a guard of another thread collected to the innermost guard of this thread, if
    /// there is one.
    static void add_to_innermost(std::wstring_view reason);
    /// Adds what a library said, in its own words.
    void add_details(std::wstring_view text);
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
} // namespace vx::gdal
