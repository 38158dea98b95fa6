#pragma once

/// Requests to servers that a file on the disk asks for.
namespace vx::gdal {
/// While it lives, GDAL sends no request from this thread, when `is_needed`.
class network_guard
{
public:
    explicit network_guard(bool is_needed);
    ~network_guard();
    network_guard(network_guard const &) = delete;
    network_guard &operator=(network_guard const &) = delete;

private:
    bool f_is_needed;
};

/// Gives every request a time limit, where the user's own settings give none.
void limit_requests();
/// Bounds what a single feature of a text format may take, where the user's own settings do not.
void limit_features();
} // namespace vx::gdal
