#pragma once

#include "platform/toolkit/core/object.h"
#include "platform/toolkit/core/types.h"

#include <vector>

enum TComponentStateItem
{
    csDestroying,
    csFreeNotification
};
using TComponentState = set_of<TComponentStateItem>;

/// An object that may own others. The owner frees what it owns; a component freed by someone else leaves its
/// owner, so nothing is freed twice in whatever order objects die.
class VX_API TComponent : public TPersistent
{
public:
    /// `owner` may be null: then nobody but the creator frees the component.
    explicit TComponent(TComponent *owner);
    ~TComponent() override;

    [[nodiscard]] TComponent *GetOwner() const { return f_owner; }
    [[nodiscard]] int GetComponentCount() const { return static_cast<int>(f_components.size()); }
    /// Owned components in order of insertion, from 0; null outside.
    [[nodiscard]] TComponent *GetComponents(int index) const;
    [[nodiscard]] int GetComponentIndex() const;
    /// The owned component of that name, compared without regard to case; null if there is none.
    [[nodiscard]] TComponent *FindComponent(UnicodeString const &name) const;
    void InsertComponent(TComponent *component);
    void RemoveComponent(TComponent *component);
    void DestroyComponents();

    [[nodiscard]] UnicodeString const &GetName() const { return f_name; }
    virtual void SetName(UnicodeString const &name) { f_name = name; }
    [[nodiscard]] TTag GetTag() const { return f_tag; }
    void SetTag(TTag tag) { f_tag = tag; }
    [[nodiscard]] TComponentState GetComponentState() const { return f_component_state; }
    [[nodiscard]] bool IsDestroying() const { return f_component_state.Contains(csDestroying); }

    /// Asks that `component` hears of the end of this one through `Notification`. Asked for on both sides, so
    /// either may die first.
    void FreeNotification(TComponent *component);
    void RemoveFreeNotification(TComponent *component);

protected:
    /// Runs for each component that joins or leaves the same owner, and for those asked for by
    /// `FreeNotification`. Whoever keeps a pointer to another component clears it here at `opRemove`;
    /// `component` is then half destroyed and good for comparison only.
    virtual void Notification(TComponent *component, TOperation operation);
    /// Marks this component and all that it owns as ending; events of such objects no longer run.
    virtual void Destroying();

private:
    void remove_from_list(TComponent *component);

    TComponent *f_owner = nullptr;
    std::vector<TComponent *> f_components;
    std::vector<TComponent *> f_free_notifies;
    UnicodeString f_name;
    TTag f_tag = 0;
    TComponentState f_component_state;
};
