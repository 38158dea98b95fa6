#include "controls/tree_view/abstract_item_model.h"

namespace {
constexpr int c_column_width = 100;
} // namespace

Tvx_abstract_item_model::~Tvx_abstract_item_model() = default;

void Tvx_abstract_item_model::init_index(Tvx_model_index &, Tvx_model_index const &)
{
}

void Tvx_abstract_item_model::load_images(TCustomImageList *)
{
}

int Tvx_abstract_item_model::column_count()
{
    return 1;
}

bool Tvx_abstract_item_model::has_children(Tvx_model_index const &)
{
    return false;
}

bool Tvx_abstract_item_model::selected(Tvx_model_index const &)
{
    return false;
}

void Tvx_abstract_item_model::select(Tvx_model_index const &, bool)
{
}

bool Tvx_abstract_item_model::active(Tvx_model_index const &)
{
    return false;
}

void Tvx_abstract_item_model::set_active(Tvx_model_index const &)
{
}

void Tvx_abstract_item_model::header_caption(int, Ivx_string_adp *)
{
}

int Tvx_abstract_item_model::header_image(int)
{
    return -1;
}

int Tvx_abstract_item_model::header_flags(int)
{
    return c_header_resizable;
}

int Tvx_abstract_item_model::header_size(int)
{
    return c_column_width;
}

bool Tvx_abstract_item_model::headr_click(int)
{
    return false;
}

void Tvx_abstract_item_model::item_caption(Tvx_model_index const &, Ivx_string_adp *)
{
}

int Tvx_abstract_item_model::item_image(Tvx_model_index const &)
{
    return -1;
}

bool Tvx_abstract_item_model::item_click(Tvx_model_index const &)
{
    return false;
}

void Tvx_abstract_item_model::item_hint(Tvx_model_index const &, Ivx_string_adp *)
{
}

bool Tvx_abstract_item_model::editable(Tvx_model_index const &)
{
    return false;
}

void Tvx_abstract_item_model::new_caption(Tvx_model_index const &, wchar_t const *)
{
}

bool Tvx_abstract_item_model::moveable(Tvx_model_index const &)
{
    return false;
}

bool Tvx_abstract_item_model::moveable(Tvx_model_index const &, Tvx_model_index const &)
{
    return false;
}

bool Tvx_abstract_item_model::move(Tvx_model_index const &, Tvx_model_index const &)
{
    return false;
}

bool Tvx_abstract_item_model::move_marked(Tvx_model_index const &)
{
    return false;
}

int Tvx_abstract_item_model::valid(Tvx_model_index const &)
{
    return 0;
}

bool Tvx_abstract_item_model::visible(Tvx_model_index const &)
{
    return true;
}

bool Tvx_abstract_item_model::distinguish(Tvx_model_index const &)
{
    return false;
}

void Tvx_abstract_item_model::begin_update()
{
}

void Tvx_abstract_item_model::end_update()
{
}

void Tvx_abstract_item_model::call_item_action(Tvx_model_index const &index)
{
    if (f_item_action)
        f_item_action->action(index);
}

void Tvx_abstract_item_model::set_item_action(Tvx_abstract_item_action *action)
{
    if (action != f_item_action.get())
        f_item_action.reset(action);
}
