#pragma once

#include "platform/data/detail/textlr_info.h"
#include "platform/layers/detail/layer.h"

#include <memory>
#include <vector>

namespace vx::layers {
/// A dynamic text layer; inside another layer it knows that one as its parent.
struct dtld_layer final : Ivx_layer
{
    explicit dtld_layer(Ivx_layer *parent_layer = nullptr);
    [[nodiscard]] std::unique_ptr<Ivx_layer> clone() const override;
    /// A copy for another layer.
    [[nodiscard]] std::unique_ptr<dtld_layer> clone_into(Ivx_layer *new_parent) const;
    /// The text layer of a layer that holds it: at first nothing is written.
    [[nodiscard]] static std::unique_ptr<dtld_layer> make_inside(Ivx_layer *parent);

    [[nodiscard]] Ivx_layer *parent() const;
    void set_parent(Ivx_layer *layer);
    /// Takes over classes, for the objects of this layer's parent.
    void set_classes(std::vector<std::unique_ptr<tld::textlr_info>> const &source, int current_class);

    int hint = 0;
    std::vector<std::unique_ptr<tld::textlr_info>> classes; ///< never empty; at fixed addresses
    int current = 0;

private:
    std::weak_ptr<Ivx_layer *const> f_parent;
};

/// What the labels of a layer stand at, a `Tvx_textlr_hint`; -1 for layers whose objects have none.
[[nodiscard]] int label_hint(Ivx_layer const *parent);
} // namespace vx::layers
