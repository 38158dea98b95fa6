#pragma once

#include <memory>

/// Point styles that show one black figure, for samples.
namespace vx::detail {
using style_handle = std::unique_ptr<void, void (*)(void *)>;

/// A simple point style of a size in millimetres.
[[nodiscard]] style_handle make_figure_style(double size);
void set_style_figure(void *style, int figure);
/// A complex point style of one figure layer.
[[nodiscard]] style_handle make_lr_figure_style(double size);
void set_style_lr_figure(void *style, int figure);
} // namespace vx::detail
