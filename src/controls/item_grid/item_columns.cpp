#include "controls/item_grid/item_columns.h"

#include <algorithm>

Tvx_item_columns::Tvx_item_columns(Tvx_item_grid *grid) : f_grid(grid)
{
}

Tvx_item_columns::~Tvx_item_columns() = default;

void Tvx_item_columns::set_count(int count)
{
    auto const wanted = static_cast<std::size_t>(std::max(count, 0));
    if (wanted < f_columns.size())
        f_columns.resize(wanted);
    while (f_columns.size() < wanted) {
        auto &column = f_columns.emplace_back(std::make_unique<Tvx_item_column>(this));
        column->on_changed = make_closure<&Tvx_item_columns::on_type_change>(this);
    }
}

Tvx_item_column *Tvx_item_columns::get_col(int index) const
{
    return index >= 0 && index < get_count() ? f_columns[static_cast<std::size_t>(index)].get() : nullptr;
}

void Tvx_item_columns::on_type_change(Tvx_item_column * /*sender*/)
{
    on_changed(this);
}
