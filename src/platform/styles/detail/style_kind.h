#pragma once

#include <optional>
#include <string_view>

namespace vx::styles {
/// What a composed style, and a manager of such styles, is for.
enum class style_kind : unsigned char
{
    pnt,
    pln,
    pgn,
    clr,
    grid1d_clr,
    pnt3d,
    pln3d,
    pgn3d,
    txt_pnt,
    txt_pln,
    txt_pgn
};
inline constexpr int c_style_kinds = 11;

/// The kind of a plain key or a manager key, in any case.
[[nodiscard]] std::optional<style_kind> style_kind_of(char const *key);
/// Static text.
[[nodiscard]] char const *style_key(style_kind kind);
[[nodiscard]] char const *mngr_key(style_kind kind);
/// Equal without regard to the case of ASCII letters.
[[nodiscard]] bool same_key(std::string_view a, std::string_view b);
} // namespace vx::styles
