#include "platform/toolkit/core/action.h"

#include "platform/toolkit/core/win_control.h"
#include "platform/toolkit/graphics/image_list.h"
#include "platform/toolkit/menus/menu.h"

#include <algorithm>

TBasicAction::TBasicAction(TComponent *owner) : TComponent(owner)
{
}

TBasicAction::~TBasicAction() = default;

bool TBasicAction::Execute()
{
    if (!OnExecute)
        return false;
    OnExecute(this);
    return true;
}

bool TBasicAction::Update()
{
    if (!OnUpdate)
        return false;
    OnUpdate(this);
    return true;
}

void TBasicAction::RegisterClient(TComponent *client)
{
    if (!client || std::find(f_clients.begin(), f_clients.end(), client) != f_clients.end())
        return;
    f_clients.push_back(client);
    client->FreeNotification(this);
    ChangeClient(client);
}

void TBasicAction::UnRegisterClient(TComponent *client)
{
    std::erase(f_clients, client);
}

void TBasicAction::Change()
{
    auto const clients = f_clients;
    for (TComponent *client : clients)
        if (std::find(f_clients.begin(), f_clients.end(), client) != f_clients.end())
            ChangeClient(client);
    OnChange(this);
}

void TBasicAction::ChangeClient(TComponent *)
{
}

void TBasicAction::Notification(TComponent *component, TOperation operation)
{
    TComponent::Notification(component, operation);
    if (operation == opRemove)
        std::erase(f_clients, component);
}

TCustomAction::TCustomAction(TComponent *owner) : TBasicAction(owner)
{
}

TCustomAction::~TCustomAction()
{
    SetActionList(nullptr);
}

bool TCustomAction::Execute()
{
    Update();
    if (!f_enabled)
        return false;
    if (f_auto_check && (!f_checked || f_group_index == 0))
        SetChecked(!f_checked);
    bool handled = false;
    if (f_list)
        f_list->OnExecute(this, handled);
    return handled || TBasicAction::Execute();
}

template <class T>
void TCustomAction::change(T &field, T const &value)
{
    if (field == value)
        return;
    field = value;
    Change();
    if (f_list)
        f_list->OnChange(this);
}

void TCustomAction::SetCaption(UnicodeString const &caption)
{
    change(f_caption, caption);
}

void TCustomAction::SetHint(UnicodeString const &hint)
{
    change(f_hint, hint);
}

void TCustomAction::SetEnabled(bool enabled)
{
    change(f_enabled, enabled);
}

void TCustomAction::SetVisible(bool visible)
{
    change(f_visible, visible);
}

void TCustomAction::SetChecked(bool checked)
{
    if (f_checked == checked)
        return;
    if (checked && f_group_index > 0 && f_list)
        for (TCustomAction *other : f_list->f_actions)
            if (other != this && other->f_group_index == f_group_index)
                other->SetChecked(false);
    change(f_checked, checked);
}

void TCustomAction::SetImageIndex(int index)
{
    change(f_image_index, index);
}

void TCustomAction::SetShortCut(TShortCut short_cut)
{
    change(f_short_cut, short_cut);
}

void TCustomAction::SetActionList(TActionList *list)
{
    if (f_list == list)
        return;
    if (f_list)
        std::erase(f_list->f_actions, this);
    f_list = list;
    if (list)
        list->f_actions.push_back(this);
}

TCustomImageList *TCustomAction::GetImages() const
{
    return f_list ? f_list->GetImages() : nullptr;
}

void TCustomAction::ChangeClient(TComponent *client)
{
    if (auto *control = dynamic_cast<TControl *>(client)) {
        control->SetCaption(f_caption);
        control->SetHint(f_hint);
        control->SetEnabled(f_enabled);
        control->SetVisible(f_visible);
    }
    if (auto *other = dynamic_cast<vx_action_client *>(client))
        other->ActionChanged(*this);
}

TActionList::TActionList(TComponent *owner) : TComponent(owner)
{
}

TActionList::~TActionList()
{
    for (TCustomAction *action : f_actions)
        action->f_list = nullptr;
    SetImages(nullptr);
}

TCustomAction *TActionList::GetActions(int index) const
{
    return index >= 0 && index < GetActionCount() ? f_actions[static_cast<std::size_t>(index)] : nullptr;
}

void TActionList::SetImages(TCustomImageList *images)
{
    if (f_images == images)
        return;
    if (f_images) {
        f_images->UnRegisterChanges(make_closure<&TActionList::images_changed>(this));
        f_images->RemoveFreeNotification(this);
    }
    f_images = images;
    if (images) {
        images->RegisterChanges(make_closure<&TActionList::images_changed>(this));
        images->FreeNotification(this);
    }
    if (!IsDestroying())
        images_changed(images);
}

void TActionList::images_changed(TObject *)
{
    for (TCustomAction *action : f_actions)
        action->Change();
}

bool TActionList::IsShortCut(Word key, TShiftState shift)
{
    TShortCut const wanted = ShortCut(key, shift);
    auto const actions = f_actions;
    for (TCustomAction *action : actions) {
        if (wanted == 0 || action->GetShortCut() != wanted)
            continue;
        action->Update();
        if (action->GetEnabled()) {
            action->Execute();
            return true;
        }
    }
    return false;
}

void TActionList::Notification(TComponent *component, TOperation operation)
{
    TComponent::Notification(component, operation);
    if (operation == opRemove && component == f_images) {
        f_images = nullptr;
        images_changed(nullptr);
    }
}

namespace {
/// Depth first over what `root` owns: a panel owns the actions of its controls, and the form owns the panel.
bool run_owned(TComponent &root, Word key, TShiftState shift)
{
    for (int i = 0; i < root.GetComponentCount(); ++i) {
        TComponent *const component = root.GetComponents(i);
        if (auto *list = dynamic_cast<TActionList *>(component)) {
            if (list->IsShortCut(key, shift))
                return true;
        } else if (auto *menu = dynamic_cast<TMainMenu *>(component)) {
            if (menu->IsShortCut(key, shift))
                return true;
        } else if (component->GetComponentCount() > 0 && run_owned(*component, key, shift)) {
            return true;
        }
    }
    return false;
}
} // namespace

bool vx_run_short_cut(TComponent *root, TComponent *focused, Word key, TShiftState shift)
{
    if (ShortCut(key, shift) == 0)
        return false;
    for (TControl *control = dynamic_cast<TControl *>(focused); control; control = control->GetParent())
        if (TPopupMenu *menu = control->GetPopupMenu(); menu && menu->IsShortCut(key, shift))
            return true;
    return root && run_owned(*root, key, shift);
}
