#include "desk_panel.h"

#include "extension/binding/element_visitor.h"

#include <utility>

desk_panel::desk_panel(desk_acts acts) : f_acts(std::move(acts))
{
    constexpr desk_text lines[] = {desk_text::objects, desk_text::field_count, desk_text::extent};
    auto &grid = f_rows.layer.grid;
    for (std::size_t i = 0; i < std::size(lines); ++i) {
        grid.captions[i].text = grid.values[i].text = lines[i];
        grid.values[i].panel = this;
    }
    f_rows.telling.panel = this;
    f_rows.put.text = desk_text::put;
    f_rows.put.act = [this] { f_acts.put(); };
    f_rows.take.text = desk_text::take;
    f_rows.take.act = [this] { f_acts.take(); };
}

void desk_panel::set_visible(bool visible)
{
    if (std::exchange(f_visible, visible) != visible)
        f_view.update_state();
}

void desk_panel::with_caption(vx::string_visitor visitor)
{
    visitor.visit(desk_say(desk_text::desk).c_str());
}

void desk_panel::value_grid::with_element(int column, int row, vx::element_visitor visitor)
{
    auto const line = static_cast<std::size_t>(row);
    if (column == 0)
        visitor.visit_label(captions[line]);
    else
        visitor.visit_output(values[line]);
}

void desk_panel::row_grid::with_element(int, int row, vx::element_visitor visitor)
{
    switch (row) {
    case 0:
        visitor.visit_groupbox(layer);
        break;
    case 1:
        visitor.visit_checkbox(telling);
        break;
    case 2:
        visitor.visit_button(put);
        break;
    default:
        visitor.visit_button(take);
    }
}
