#pragma once

namespace vx::task {
/// What a scale is sorted by. A value scale has a text and a caption, a range scale two bounds and a caption;
/// what a scale does not have leaves its order as it is.
enum class scale_sortby : int
{
    text = 0,    ///< of a value entry
    minimum = 1, ///< lower bound of a range
    maximum = 2, ///< upper bound of a range
    caption = 3,
};

enum class scale_sortas : int
{
    numbers = 0, ///< what is no number comes last
    strings = 1, ///< in the order of texts for people, without regard to case
};

enum class scale_sortord : int
{
    ascending = 0,
    descending = 1, ///< the ascending order from its end, so what is no number comes first
};
} // namespace vx::task
