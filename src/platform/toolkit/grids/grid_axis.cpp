#include "platform/toolkit/grids/grid_axis.h"

#include <algorithm>

void vx_grid_axis::set_count(int count)
{
    f_count = std::max(count, 0);
    std::erase_if(f_own, [this](own const &o) { return o.track >= f_count; });
}

void vx_grid_axis::set_default_size(int size)
{
    f_default = size;
    f_own.clear();
}

void vx_grid_axis::set_line(int width)
{
    f_line = std::max(width, 0);
}

std::vector<vx_grid_axis::own>::const_iterator vx_grid_axis::find(int track) const
{
    return std::lower_bound(f_own.begin(), f_own.end(), track,
                            [](own const &o, int wanted) { return o.track < wanted; });
}

int vx_grid_axis::size(int track) const
{
    auto const at = find(track);
    return at != f_own.end() && at->track == track ? at->size : f_default;
}

void vx_grid_axis::set_size(int track, int size)
{
    if (track < 0 || track >= f_count)
        return;
    auto const at = f_own.begin() + (find(track) - f_own.cbegin());
    bool const stored = at != f_own.end() && at->track == track;
    if (size == f_default) {
        if (stored)
            f_own.erase(at);
    } else if (stored) {
        at->size = size;
    } else {
        f_own.insert(at, {track, size, 0});
    }
    f_summed = false;
}

void vx_grid_axis::sum_up() const
{
    if (f_summed)
        return;
    f_summed = true;
    std::int64_t excess = 0;
    for (own &o : f_own)
        o.excess = excess += o.size - f_default;
}

std::int64_t vx_grid_axis::position(int track) const
{
    sum_up();
    auto const at = find(track);
    std::int64_t const excess = at == f_own.begin() ? 0 : std::prev(at)->excess;
    return std::int64_t(track) * (f_default + f_line) + excess;
}

int vx_grid_axis::track_at(std::int64_t wanted) const
{
    if (wanted < 0)
        return -1;
    // The last track that starts at or before the pixel and has room; hidden tracks share the start of the
    // next one.
    int low = 0;
    int high = f_count;
    while (low < high) {
        int const middle = low + (high - low) / 2;
        if (position(middle + 1) <= wanted)
            low = middle + 1;
        else
            high = middle;
    }
    return low;
}

int vx_grid_axis::fitting(int first, std::int64_t room) const
{
    std::int64_t const end = position(first) + room + f_line;
    int low = first;
    int high = f_count;
    while (low < high) {
        int const middle = low + (high - low) / 2;
        if (position(middle + 1) <= end)
            low = middle + 1;
        else
            high = middle;
    }
    return low - first;
}

int vx_grid_axis::first_showing_last(int last, int lowest, std::int64_t room) const
{
    std::int64_t const start = position(last + 1) - f_line - room;
    int low = lowest;
    int high = std::max(last, lowest);
    while (low < high) {
        int const middle = low + (high - low) / 2;
        if (position(middle) >= start)
            high = middle;
        else
            low = middle + 1;
    }
    return low;
}

void vx_grid_axis::move(int from, int to)
{
    if (from == to || f_own.empty())
        return;
    for (own &o : f_own) {
        if (o.track == from)
            o.track = to;
        else if (o.track > from && o.track <= to)
            --o.track;
        else if (o.track < from && o.track >= to)
            ++o.track;
    }
    std::sort(f_own.begin(), f_own.end(), [](own const &a, own const &b) { return a.track < b.track; });
    f_summed = false;
}

void vx_grid_axis::erase(int track)
{
    std::erase_if(f_own, [track](own const &o) { return o.track == track; });
    for (own &o : f_own)
        o.track -= o.track > track;
    --f_count;
    f_summed = false;
}

int vx_grid_view::fixed_end() const
{
    return static_cast<int>(std::clamp<std::int64_t>(axis.position(fixed), 0, std::max(room, 0)));
}

int vx_grid_view::start(int track) const
{
    std::int64_t const at =
        track < fixed ? axis.position(track) : fixed_end() + axis.position(track) - axis.position(first);
    if (track >= fixed && track < first)
        return -1;
    return static_cast<int>(std::min<std::int64_t>(at, room));
}

bool vx_grid_view::seen(int track) const
{
    if (track < 0 || track >= axis.count())
        return false;
    int const at = start(track);
    return at >= 0 && at < room;
}

int vx_grid_view::end_track() const
{
    int const last = axis.track_at(axis.position(first) + room - fixed_end() - 1);
    return std::clamp(last + 1, first, axis.count());
}

int vx_grid_view::end() const
{
    return start(axis.count());
}

int vx_grid_view::last_whole() const
{
    return first + std::max(axis.fitting(first, room - fixed_end()), 1) - 1;
}

int vx_grid_view::track_at(int pos) const
{
    if (pos < 0 || pos >= room)
        return -1;
    int const boundary = fixed_end();
    int const track = axis.track_at(pos < boundary ? pos : axis.position(first) + pos - boundary);
    return track < axis.count() ? track : -1;
}

int vx_grid_view::max_first() const
{
    return axis.first_showing_last(axis.count() - 1, fixed, room - fixed_end());
}

int vx_grid_view::first_showing(int track) const
{
    if (track < first)
        return track;
    return std::max(first, axis.first_showing_last(track, fixed, room - fixed_end()));
}
