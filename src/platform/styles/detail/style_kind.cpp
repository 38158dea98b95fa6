#include "platform/styles/detail/style_kind.h"

#include "platform/base/ascii_case.h"
#include "platform/styles/vx_style_keys.h"

#include <array>

namespace vx::styles {
namespace {
struct kind_keys
{
    char const *style;
    char const *mngr;
};

constexpr std::array<kind_keys, c_style_kinds> c_keys{{
    {c_pnt_style, c_pnt_mngr_style},
    {c_pln_style, c_pln_mngr_style},
    {c_pgn_style, c_pgn_mngr_style},
    {c_clr_style, c_clr_mngr_style},
    {c_grid1d_clr_style, c_grid1d_clr_mngr_style},
    {c_pnt3d_style, c_pnt3d_mngr_style},
    {c_pln3d_style, c_pln3d_mngr_style},
    {c_pgn3d_style, c_pgn3d_mngr_style},
    {c_txt_pnt_style, c_txt_pnt_mngr_style},
    {c_txt_pln_style, c_txt_pln_mngr_style},
    {c_txt_pgn_style, c_txt_pgn_mngr_style},
}};

} // namespace

bool same_key(std::string_view a, std::string_view b)
{
    return text::ascii_same(a, b);
}

std::optional<style_kind> style_kind_of(char const *key)
{
    if (!key)
        return std::nullopt;
    for (std::size_t i = 0; i < c_keys.size(); ++i)
        if (same_key(key, c_keys[i].style) || same_key(key, c_keys[i].mngr))
            return static_cast<style_kind>(i);
    return std::nullopt;
}

char const *style_key(style_kind kind)
{
    return c_keys[static_cast<std::size_t>(kind)].style;
}

char const *mngr_key(style_kind kind)
{
    return c_keys[static_cast<std::size_t>(kind)].mngr;
}
} // namespace vx::styles
