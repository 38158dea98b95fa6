#pragma once

#include "controls/item_grid/item_column.h"

#include <memory>
#include <vector>

/// Columns of a grid, from the left.
class VX_API Tvx_item_columns : public Tvx_basic_obj
{
public:
    explicit Tvx_item_columns(Tvx_item_grid *grid);
    ~Tvx_item_columns() override;
    Tvx_item_columns(Tvx_item_columns const &) = delete;
    Tvx_item_columns &operator=(Tvx_item_columns const &) = delete;

    [[nodiscard]] Tvx_item_grid *get_grid() const { return f_grid; }
    [[nodiscard]] int get_count() const { return static_cast<int>(f_columns.size()); }
    /// Makes or ends columns at the end; below 0 is 0. The grid shows them after its `update_controls`.
    void set_count(int count);
    /// From 0; null outside. The list keeps the column.
    [[nodiscard]] Tvx_item_column *get_col(int index) const;
    void clear() { set_count(0); }

    /// A column has reported a change of its data by the user.
    closure<void(Tvx_item_columns *sender)> on_changed;

private:
    void on_type_change(Tvx_item_column *sender);

    Tvx_item_grid *f_grid;
    std::vector<std::unique_ptr<Tvx_item_column>> f_columns;
};
