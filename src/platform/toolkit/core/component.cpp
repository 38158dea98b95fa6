#include "platform/toolkit/core/component.h"

#include "platform/toolkit/core/strings.h"

#include <algorithm>

TComponent::TComponent(TComponent *owner)
{
    if (owner)
        owner->InsertComponent(this);
}

TComponent::~TComponent()
{
    TComponent::Destroying();
    while (!f_free_notifies.empty()) {
        TComponent *const other = f_free_notifies.back();
        f_free_notifies.pop_back();
        std::erase(other->f_free_notifies, this);
        other->Notification(this, opRemove);
    }
    DestroyComponents();
    if (f_owner)
        f_owner->RemoveComponent(this);
}

TComponent *TComponent::GetComponents(int index) const
{
    if (index < 0 || index >= GetComponentCount())
        return nullptr;
    return f_components[static_cast<std::size_t>(index)];
}

int TComponent::GetComponentIndex() const
{
    if (!f_owner)
        return -1;
    auto const &all = f_owner->f_components;
    return static_cast<int>(std::find(all.begin(), all.end(), this) - all.begin());
}

TComponent *TComponent::FindComponent(UnicodeString const &name) const
{
    if (name.IsEmpty())
        return nullptr;
    for (TComponent *const component : f_components)
        if (vx_compare_text(component->f_name, name) == 0)
            return component;
    return nullptr;
}

void TComponent::InsertComponent(TComponent *component)
{
    if (!component || component->f_owner == this)
        return;
    if (component->f_owner)
        component->f_owner->RemoveComponent(component);
    // Who owns one mostly owns several.
    constexpr std::size_t c_usual_components = 8;
    if (f_components.empty())
        f_components.reserve(c_usual_components);
    f_components.push_back(component);
    component->f_owner = this;
    Notification(component, opInsert);
}

void TComponent::RemoveComponent(TComponent *component)
{
    if (!component || component->f_owner != this)
        return;
    remove_from_list(component);
    if (!IsDestroying())
        Notification(component, opRemove);
}

void TComponent::remove_from_list(TComponent *component)
{
    // Components mostly go in the reverse order of their coming.
    auto const found = std::find(f_components.rbegin(), f_components.rend(), component);
    if (found != f_components.rend())
        f_components.erase(std::next(found).base());
    component->f_owner = nullptr;
}

void TComponent::DestroyComponents()
{
    while (!f_components.empty()) {
        TComponent *const last = f_components.back();
        if (IsDestroying())
            remove_from_list(last);
        else
            RemoveComponent(last);
        delete last;
    }
}

void TComponent::FreeNotification(TComponent *component)
{
    if (!component || component == this ||
        std::find(f_free_notifies.begin(), f_free_notifies.end(), component) != f_free_notifies.end())
        return;
    f_free_notifies.push_back(component);
    component->f_free_notifies.push_back(this);
}

void TComponent::RemoveFreeNotification(TComponent *component)
{
    if (!component)
        return;
    std::erase(f_free_notifies, component);
    std::erase(component->f_free_notifies, this);
}

void TComponent::Notification(TComponent *component, TOperation operation)
{
    if (operation == opRemove)
        RemoveFreeNotification(component);
    else if (component->f_owner != this)
        return; // who joins is told to those of the same owner alone
    // By index: a receiver may free components of its own.
    for (std::size_t i = 0; i < f_components.size(); ++i)
        f_components[i]->Notification(component, operation);
}

void TComponent::Destroying()
{
    if (IsDestroying())
        return;
    f_component_state <<= csDestroying;
    for (TComponent *const component : f_components)
        component->Destroying();
}
