#pragma once

#include "platform/base/export.h"

#include <cstdint>
#include <vector>

/// The rows or the columns of a grid: how many there are and where each lies.
///
/// Only tracks whose size differs from the default are stored, so a million rows cost nothing; a position is
/// found in the logarithm of the stored ones. Positions and sizes are logical pixels; each track is followed
/// by a line. A track of size -1 with a line of 1 is hidden: it takes no room at all.
class VX_API vx_grid_axis
{
public:
    vx_grid_axis(int count, int default_size) : f_count(count), f_default(default_size) {}

    [[nodiscard]] int count() const { return f_count; }
    /// Sizes beyond the new end are forgotten.
    void set_count(int count);
    [[nodiscard]] int default_size() const { return f_default; }
    /// Forgets all own sizes.
    void set_default_size(int size);
    [[nodiscard]] int line() const { return f_line; }
    void set_line(int width);

    [[nodiscard]] int size(int track) const;
    void set_size(int track, int size);
    /// How many tracks have a size of their own.
    [[nodiscard]] int stored() const { return static_cast<int>(f_own.size()); }

    /// Where a track starts; `count()` gives the end of all. With its line it ends where the next one starts.
    [[nodiscard]] std::int64_t position(int track) const;
    /// Room of a track with its line.
    [[nodiscard]] int extent(int track) const { return size(track) + f_line; }
    /// The track that holds the pixel; -1 before the first, `count()` behind the last.
    [[nodiscard]] int track_at(std::int64_t position) const;

    /// Number of whole tracks from `first` on that fit into `room`. The line of the last one need not fit.
    [[nodiscard]] int fitting(int first, std::int64_t room) const;
    /// The smallest first track with which the last one is wholly seen in `room`, but at least `lowest`.
    [[nodiscard]] int first_showing_last(int last, int lowest, std::int64_t room) const;

    /// Takes the track out and puts it back so that it becomes number `to`; those between move up.
    void move(int from, int to);
    /// Without the track; the count goes down by one.
    void erase(int track);

private:
    struct own
    {
        int track;
        int size;
        std::int64_t excess; ///< what this and all stored before it have more than the default
    };

    [[nodiscard]] std::vector<own>::const_iterator find(int track) const;
    void sum_up() const;

    int f_count;
    int f_default;
    int f_line = 1;
    mutable std::vector<own> f_own; ///< ascending
    mutable bool f_summed = true;
};

/// What is seen of an axis: fixed tracks at the start of the room, then those from `first` on.
struct vx_grid_view
{
    vx_grid_axis const &axis;
    int fixed;
    int first;
    int room; ///< pixels of the client area

    /// Where the movable tracks begin; not beyond the room.
    [[nodiscard]] VX_API int fixed_end() const;
    /// Client position of a track; `room` or more, or less than 0, when it is out of sight.
    [[nodiscard]] VX_API int start(int track) const;
    [[nodiscard]] VX_API bool seen(int track) const;
    /// Behind the last track that is seen, wholly or in part.
    [[nodiscard]] VX_API int end_track() const;
    /// Behind the last pixel that belongs to a track.
    [[nodiscard]] VX_API int end() const;
    /// The last movable track that is wholly seen, at least `first`.
    [[nodiscard]] VX_API int last_whole() const;
    /// The track at a client position, -1 if there is none.
    [[nodiscard]] VX_API int track_at(int pos) const;
    /// The largest `first` that scrolling allows.
    [[nodiscard]] VX_API int max_first() const;
    /// The `first` that brings the movable track into sight with the least scrolling.
    [[nodiscard]] VX_API int first_showing(int track) const;
};
