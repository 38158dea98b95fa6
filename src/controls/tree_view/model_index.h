#pragma once

/// Names an item of a tree for its model: a plain value.
struct Tvx_model_index
{
    int level = -1;       ///< depth of the node from 0; -1 for the invisible root
    int row = -1;         ///< place among its siblings from 0; -1 for the root
    int column = -1;      ///< the column asked about from 0; -1 for the root
    void *data = nullptr; ///< the model's own word for the node; null when it has none

    friend constexpr bool operator==(Tvx_model_index const &, Tvx_model_index const &) = default;
};
