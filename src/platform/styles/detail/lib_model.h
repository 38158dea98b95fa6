#pragma once

#include "platform/styles/detail/style_model.h"

#include <memory>
#include <string>
#include <vector>

/// Style libraries behind the opaque pointers. Everything keeps its address while it is in its list.
namespace vx::styles {
/// A style of a library under a number and a version. Several versions of one number may stand in a list.
struct idx_style
{
    explicit idx_style(style_kind k) : kind(k), style(make_default_style(k, variant_of_style::base)) {}

    style_kind kind; ///< pnt, pln or pgn
    int index = 0;
    int version = 0;
    std::unique_ptr<any_style> style; ///< never null
};

struct style_list
{
    explicit style_list(style_kind k) : kind(k) {}

    style_kind kind; ///< pnt, pln or pgn
    std::vector<std::unique_ptr<idx_style>> styles;
};

/// A node of a library's tree. It names a style by number and version; a node that only groups others names
/// -1, -1.
struct style_item
{
    std::wstring caption;
    int index = -1;
    int version = -1;
    std::vector<std::unique_ptr<style_item>> items;

    mutable std::string narrow_caption; ///< what the 8-bit getter handed out last
};

struct style_lib
{
    std::wstring name;
    style_item root;
    style_list pnt{style_kind::pnt};
    style_list pln{style_kind::pln};
    style_list pgn{style_kind::pgn};
};

struct style_libs
{
    std::vector<std::unique_ptr<style_lib>> libs;
};
} // namespace vx::styles
