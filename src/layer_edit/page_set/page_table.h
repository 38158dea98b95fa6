#pragma once

#include "layer_edit/page_api/lr2d_extensions.h"
#include "layer_edit/page_api/lr2d_pages.h"

#include "platform/base/export.h"

#include <memory>
#include <span>

class TComponent;
class TPageControl;
class Tvx_basic_lr2d_edit;

namespace vx {
/// Makes the page of one place. The page is owned by `owner`; its `create` has not run.
struct lr2d_page_factory
{
    lr2d_page page;
    Tvx_basic_lr2d_edit *(*make)(TComponent *owner);
};

/// What a page set is put together from. A page without a factory is a place not taken: its tab shows empty.
/// The two functions may be null: then there are no such tabs.
struct lr2d_edit_parts
{
    std::span<lr2d_page_factory const> pages;
    /// Loads the native plug-ins that `mask` finds; null mask: an empty set.
    std::unique_ptr<Tvx_lr2d_page_plugin_set> (*load_plugins)(wchar_t const *mask) = nullptr;
    /// Finds the extension services of the category and lets them add their tabs.
    std::unique_ptr<Tvx_lr2d_custom_pages> (*make_custom_pages)(TPageControl *pages,
                                                                wchar_t const *category) = nullptr;
};

/// The parts of the library itself.
[[nodiscard]] VX_API lr2d_edit_parts const &lr2d_edit_parts_of_library();
} // namespace vx
