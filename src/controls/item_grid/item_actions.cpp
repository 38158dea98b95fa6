#include "controls/item_grid/item_actions.h"

#include "captions/item_grid.h"
#include "controls/item_grid/item_grid.h"
#include "controls/prop/image_convert.h"

#include "platform/basic/vx_res.h"

namespace {
constexpr int c_picture_insert = 71;
constexpr int c_picture_delete = 72;
constexpr int c_picture_parameters = 73;
constexpr int c_picture_save = 74;
constexpr int c_picture_open = 75;
constexpr int c_picture_up = 95;
constexpr int c_picture_down = 96;
} // namespace

Tvx_item_grid_action::Tvx_item_grid_action(TComponent *owner) : Tvx_action(owner)
{
    OnUpdate = make_closure<&Tvx_item_grid_action::on_self_update>(this);
    OnExecute = make_closure<&Tvx_item_grid_action::on_self_execute>(this);
}

Tvx_item_grid_action::~Tvx_item_grid_action()
{
    if (f_grid)
        std::erase(f_grid->f_actions, this);
}

void Tvx_item_grid_action::set_item_grid(Tvx_item_grid *grid)
{
    if (grid == f_grid)
        return;
    if (f_grid) {
        std::erase(f_grid->f_actions, this);
        f_grid->RemoveFreeNotification(this);
    }
    f_grid = grid;
    if (f_grid) {
        f_grid->f_actions.push_back(this);
        f_grid->FreeNotification(this);
    }
    Update();
}

void Tvx_item_grid_action::Notification(TComponent *component, TOperation operation)
{
    Tvx_action::Notification(component, operation);
    if (operation == opRemove && component == f_grid)
        f_grid = nullptr;
}

void Tvx_item_grid_action::on_self_update(TObject * /*sender*/)
{
    SetEnabled(can_execute());
}

void Tvx_item_grid_action::on_self_execute(TObject * /*sender*/)
{
    if (f_grid)
        execute(f_grid);
}

bool Tvx_item_ins_action::can_execute() const
{
    return get_item_grid() && get_item_grid()->can_add_element();
}

void Tvx_item_ins_action::execute(Tvx_item_grid *grid)
{
    grid->call_add_item();
}

bool Tvx_item_marked_action::can_execute() const
{
    return get_item_grid() && get_item_grid()->has_marked();
}

void Tvx_item_del_action::execute(Tvx_item_grid *grid)
{
    grid->call_del_item();
}

void Tvx_item_sav_action::execute(Tvx_item_grid *grid)
{
    grid->call_save_item();
}

void Tvx_item_open_action::execute(Tvx_item_grid *grid)
{
    grid->call_open_item();
}

void Tvx_item_parm_action::execute(Tvx_item_grid *grid)
{
    grid->call_parm_3d_item();
}

void Tvx_item_up_action::execute(Tvx_item_grid *grid)
{
    grid->call_up_item();
}

void Tvx_item_down_action::execute(Tvx_item_grid *grid)
{
    grid->call_down_item();
}

Tvx_item_grid_action_list::Tvx_item_grid_action_list(TComponent *owner)
    : Tvx_action_list(owner), f_images(new Tvx_image_list(this)), f_ins(new Tvx_item_ins_action(this)),
      f_del(new Tvx_item_del_action(this)), f_sav(new Tvx_item_sav_action(this)),
      f_open(new Tvx_item_open_action(this)), f_parm(new Tvx_item_parm_action(this)),
      f_up(new Tvx_item_up_action(this)), f_down(new Tvx_item_down_action(this))
{
    SetImages(f_images);
    auto const add = [this](Tvx_item_grid_action *action, int picture) {
        action->SetActionList(this);
        action->SetImageIndex(vx_image_list_get_res(f_images, picture));
        action->Update();
    };
    add(f_ins, c_picture_insert);
    add(f_del, c_picture_delete);
    add(f_sav, c_picture_save);
    add(f_open, c_picture_open);
    add(f_parm, c_picture_parameters);
    add(f_up, c_picture_up);
    add(f_down, c_picture_down);
}

void Tvx_item_grid_action_list::load_res()
{
    f_ins->SetHint(vx_res_get_wstr(c_item_insert));
    f_del->SetHint(vx_res_get_wstr(c_item_delete));
    f_sav->SetHint(vx_res_get_wstr(c_item_save));
    f_open->SetHint(vx_res_get_wstr(c_item_open));
    f_parm->SetHint(vx_res_get_wstr(c_item_parameters));
    f_up->SetHint(vx_res_get_wstr(c_item_up));
    f_down->SetHint(vx_res_get_wstr(c_item_down));
}

void Tvx_item_grid_action_list::set_item_grid(Tvx_item_grid *grid)
{
    for (int i = 0; i < GetActionCount(); ++i)
        static_cast<Tvx_item_grid_action *>(GetActions(i))->set_item_grid(grid);
}
