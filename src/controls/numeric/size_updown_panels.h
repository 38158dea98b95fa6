#pragma once

#include "controls/numeric/size_panel.h"

/// A size panel with a pair of step buttons at its right. Each step by the user raises or lowers `Tag` by 1
/// and runs `on_updown_changed`.
class VX_API Tvx_updown_panel : public Tvx_size_panel
{
public:
    void set_readonly(bool readonly) { get_edit()->SetReadOnly(readonly); }
    [[nodiscard]] int get_position() const { return f_updown->GetPosition(); }
    void set_increment(int increment) { f_updown->SetIncrement(increment); }
    [[nodiscard]] int get_increment() const { return f_updown->GetIncrement(); }
    void set_updown_width(int width) { set_side_width(width); }
    [[nodiscard]] Tvx_updown *get_updown() const { return f_updown; }

    /// The sender is the panel.
    closure<void(TObject *)> on_updown_changed;

protected:
    explicit Tvx_updown_panel(TComponent *owner);

    /// Runs after a step, before `on_updown_changed`.
    virtual void stepped() {}

private:
    void on_updown_click(TObject *sender, TUDBtnType button);

    Tvx_updown *f_updown;
};

/// With the buttons tied to the edit: they, and its up and down keys, step the number that stands there, as a
/// whole number. A step runs `on_changed` too.
class VX_API Tvx_size_updown_panel : public Tvx_updown_panel
{
public:
    explicit Tvx_size_updown_panel(TComponent *owner);

    /// Limits of the steps and of the size panel.
    void set_min_pos(int min);
    void set_max_pos(int max);
    /// Held within the limits.
    void set_position(int position);
};

/// With buttons that count by themselves, 0 to 100 at first: a step shows the new position in the edit and
/// raises the change-by-updown flag, which the owner takes back. A number that is typed does not move the
/// position.
class VX_API Tvx_edit_val_updown_panel : public Tvx_updown_panel
{
public:
    explicit Tvx_edit_val_updown_panel(TComponent *owner);

    /// Limits of the steps.
    void set_min_pos(int min) { get_updown()->SetMin(min); }
    void set_max_pos(int max) { get_updown()->SetMax(max); }
    [[nodiscard]] int get_max() const { return get_updown()->GetMax(); }
    /// Shows the position as the size too.
    void set_position(int position);
    [[nodiscard]] bool is_change_by_updown() const { return f_change_by_updown; }
    void set_change_by_updown(bool by_updown) { f_change_by_updown = by_updown; }

protected:
    void stepped() override;

private:
    bool f_change_by_updown = false;
};
