#include "style_manager/scales/scale_menu.h"

Tvx_menu_item *Tvx_scale_menu::add_item(TMenuItem *parent, UnicodeString const &text, TTag tag,
                                        TNotifyEvent click)
{
    auto *const item = new Tvx_menu_item(this);
    item->SetCaption(text);
    item->SetTag(tag);
    item->OnClick = click;
    (parent ? parent : GetItems())->Add(item);
    return item;
}

Tvx_menu_item *Tvx_scale_menu::add_separator(TMenuItem *parent)
{
    return add_item(parent, L"-", 0, {});
}
