#pragma once

#include <cstdlib>
#include <string>
#include <vector>

namespace vx_test {
/// The seeds of a random hand: four fixed ones, or that of VX_SEED alone, which replays it.
[[nodiscard]] inline std::vector<unsigned> random_seeds()
{
    if (char const *const seed = std::getenv("VX_SEED"))
        return {unsigned(std::strtoul(seed, nullptr, 10))};
    return {1, 2, 3, 4};
}

/// A file that ends with what was done before a crash: VX_LOG; empty for none.
[[nodiscard]] inline std::string random_log()
{
    char const *const log = std::getenv("VX_LOG");
    return log ? log : "";
}
} // namespace vx_test
