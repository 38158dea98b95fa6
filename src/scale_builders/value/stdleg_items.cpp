#include "scale_builders/value/stdleg_items.h"

void *Tvx_stdleg_item::get_pnt_style_ptr()
{
    if (!f_pnt_style)
        f_pnt_style.reset(vx_pnt_style_create());
    return f_pnt_style.get();
}

void *Tvx_stdleg_item::get_pln_style_ptr()
{
    if (!f_pln_style)
        f_pln_style.reset(vx_pln_style_create());
    return f_pln_style.get();
}

void *Tvx_stdleg_item::get_pgn_style_ptr()
{
    if (!f_pgn_style)
        f_pgn_style.reset(vx_pgn_style_create());
    return f_pgn_style.get();
}

Tvx_stdleg_item *Tvx_stdleg_items::get_ptr(unsigned index) const
{
    return index < f_items.size() ? f_items[index].get() : nullptr;
}

Tvx_stdleg_item *Tvx_stdleg_items::add_ptr()
{
    return f_items.emplace_back(std::make_unique<Tvx_stdleg_item>()).get();
}

void Tvx_stdleg_items::set_all_marked(bool marked)
{
    for (auto const &item : f_items)
        item->set_marked(marked);
}
