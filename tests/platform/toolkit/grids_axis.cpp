#include "platform/toolkit/grids/grid_axis.h"

#include <gtest/gtest.h>
#include <random>
#include <vector>

namespace {
/// The axis written down plainly: one size for each track.
struct plain_axis
{
    std::vector<int> sizes;
    int line = 1;

    [[nodiscard]] std::int64_t position(int track) const
    {
        std::int64_t at = 0;
        for (int i = 0; i < track; ++i)
            at += sizes[static_cast<std::size_t>(i)] + line;
        return at;
    }
    [[nodiscard]] int track_at(std::int64_t pos) const
    {
        int track = 0;
        while (track < static_cast<int>(sizes.size()) && position(track + 1) <= pos)
            ++track;
        return track;
    }
};

void expect_same(vx_grid_axis const &axis, plain_axis const &plain)
{
    ASSERT_EQ(axis.count(), static_cast<int>(plain.sizes.size()));
    for (int i = 0; i < axis.count(); ++i) {
        EXPECT_EQ(axis.size(i), plain.sizes[static_cast<std::size_t>(i)]) << i;
        EXPECT_EQ(axis.position(i), plain.position(i)) << i;
    }
    std::int64_t const end = plain.position(axis.count());
    EXPECT_EQ(axis.position(axis.count()), end);
    for (std::int64_t pos = 0; pos <= end; pos += 3)
        EXPECT_EQ(axis.track_at(pos), plain.track_at(pos)) << pos;
    EXPECT_EQ(axis.track_at(-1), -1);
}
} // namespace

TEST(grid_axis, agrees_with_a_plain_list_through_random_changes)
{
    std::mt19937 random(7);
    auto const number = [&random](int below) {
        return static_cast<int>(random() % static_cast<unsigned>(below));
    };
    vx_grid_axis axis(12, 10);
    plain_axis plain{std::vector<int>(12, 10)};
    for (int step = 0; step < 200; ++step) {
        int const count = axis.count();
        int const at = number(count);
        switch (number(4)) {
        case 0: {
            int const size = number(4) ? number(30) : -1; // now and then a hidden one
            axis.set_size(at, size);
            plain.sizes[static_cast<std::size_t>(at)] = size;
            break;
        }
        case 1: {
            int const to = number(count);
            axis.move(at, to);
            int const size = plain.sizes[static_cast<std::size_t>(at)];
            plain.sizes.erase(plain.sizes.begin() + at);
            plain.sizes.insert(plain.sizes.begin() + to, size);
            break;
        }
        case 2:
            if (count > 4) {
                axis.erase(at);
                plain.sizes.erase(plain.sizes.begin() + at);
            }
            break;
        default: {
            int const wanted = 4 + number(20);
            axis.set_count(wanted);
            plain.sizes.resize(static_cast<std::size_t>(wanted), 10);
            break;
        }
        }
        ASSERT_NO_FATAL_FAILURE(expect_same(axis, plain)) << "step " << step;
    }
}

TEST(grid_axis, stores_only_what_differs)
{
    vx_grid_axis axis(1'000'000, 20);
    EXPECT_EQ(axis.stored(), 0);
    axis.set_size(999'999, 50);
    axis.set_size(3, 40);
    EXPECT_EQ(axis.stored(), 2);
    EXPECT_EQ(axis.position(1'000'000), 21'000'000 + 20 + 30);
    EXPECT_EQ(axis.track_at(21'000'000 + 20 + 29), 999'999);
    axis.set_size(3, 20);
    EXPECT_EQ(axis.stored(), 1);
    axis.set_size(-1, 5);
    axis.set_size(1'000'000, 5);
    EXPECT_EQ(axis.stored(), 1) << "outside";
}

TEST(grid_axis, view_of_fixed_and_scrolled_tracks)
{
    vx_grid_axis axis(100, 19);
    vx_grid_view view{axis, 2, 10, 110}; // 2 fixed take 40, 70 are left for 3.5 tracks
    EXPECT_EQ(view.fixed_end(), 40);
    EXPECT_EQ(view.start(1), 20);
    EXPECT_EQ(view.start(10), 40);
    EXPECT_EQ(view.start(13), 100);
    EXPECT_FALSE(view.seen(5));
    EXPECT_TRUE(view.seen(13));
    EXPECT_FALSE(view.seen(14));
    EXPECT_EQ(view.last_whole(), 12);
    EXPECT_EQ(view.end_track(), 14);
    EXPECT_EQ(view.track_at(39), 1);
    EXPECT_EQ(view.track_at(40), 10);
    EXPECT_EQ(view.track_at(109), 13);
    EXPECT_EQ(view.track_at(110), -1);
    EXPECT_EQ(view.max_first(), 97);
    EXPECT_EQ(view.first_showing(4), 4);
    EXPECT_EQ(view.first_showing(11), 10);
    EXPECT_EQ(view.first_showing(13), 11);

    vx_grid_view const small{axis, 2, 2, 5}; // not even the fixed ones fit
    EXPECT_EQ(small.fixed_end(), 5);
    EXPECT_EQ(small.last_whole(), 2);
    EXPECT_EQ(small.track_at(4), 0);

    vx_grid_axis few(3, 19);
    vx_grid_view const all{few, 1, 1, 200};
    EXPECT_EQ(all.max_first(), 1);
    EXPECT_EQ(all.end(), 60);
    EXPECT_EQ(all.track_at(60), -1) << "behind the last track";
}
