#pragma once

#include <cstdint>
#include <cstring>
#include <random>
#include <string_view>

namespace vx::text {
/// A seed by chance for `seeded_hash`, so that no file can be made whose texts all collide.
[[nodiscard]] inline std::uint64_t chance_seed()
{
    std::random_device chance;
    return static_cast<std::uint64_t>(chance()) << 32 | chance();
}

/// Mixes eight bytes at a time.
[[nodiscard]] inline std::uint32_t seeded_hash(std::string_view text, std::uint64_t seed)
{
    std::uint64_t h = seed ^ text.size() * 0x9E3779B97F4A7C15u;
    std::uint64_t word = 0;
    for (; text.size() >= sizeof word; text.remove_prefix(sizeof word)) {
        std::memcpy(&word, text.data(), sizeof word);
        h = (h ^ word) * 0xBF58476D1CE4E5B9u;
        h ^= h >> 32;
    }
    word = 0;
    if (!text.empty()) // an empty text may have no address
        std::memcpy(&word, text.data(), text.size());
    h = (h ^ word) * 0x94D049BB133111EBu;
    return static_cast<std::uint32_t>(h ^ (h >> 29));
}
} // namespace vx::text
