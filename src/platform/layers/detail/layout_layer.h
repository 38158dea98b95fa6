#pragma once

#include "platform/layers/detail/layer.h"
#include "platform/layers/vx_layout_lr2d.h"
#include "platform/styles/vx_style.h"

namespace vx::layers {
/// What all elements of page layouts have; see vx_layout_lr2d.h. By itself an element that has nothing else.
struct layout_layer : Ivx_layer
{
    explicit layout_layer(std::string type_key);
    [[nodiscard]] std::unique_ptr<Ivx_layer> clone() const override;
    [[nodiscard]] bool is_page() const;

    Tvx_box_d2 box;
    Tvx_layout_writing writing;
    vx::owned<void, &vx_pgn_style_destroy> style{vx_pgn_style_create()};

protected:
    void take_common(layout_layer const &source);
};

/// An element with what is its own.
template <class Content>
struct layout_element final : layout_layer
{
    using layout_layer::layout_layer;
    [[nodiscard]] std::unique_ptr<Ivx_layer> clone() const override
    {
        auto copy = std::make_unique<layout_element>(key);
        copy->take_common(*this);
        copy->content = content;
        return copy;
    }

    Content content;
};

struct layout_frame
{
    double scale_x = 10'000;
    double scale_y = 10'000;
    Tvx_pnt_d2 center;
};
struct layout_text
{
    std::wstring text;
    double angle = 0;
};
struct layout_image
{
    bool keep_ratio = true;
};

/// A new element; null for a key that is none of layout_keys.h.
[[nodiscard]] std::unique_ptr<Ivx_layer> make_layout_layer(std::string const &key);
} // namespace vx::layers
