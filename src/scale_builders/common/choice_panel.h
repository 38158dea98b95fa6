#pragma once

#include "controls/forms/vcl_select_box.h"

#include <span>

/// One of the ways to build a scale.
struct Tvx_builder_choice
{
    int id;
    wchar_t const *text; ///< until the captions are loaded
    int caption;         ///< number of the caption
};

/// The ways to build a scale, in a group box; the first one is chosen at first. All operations need `create`;
/// setters fire nothing.
class VX_API Tvx_vcl_choice_panel : public Tvx_vcl_panel
{
public:
    using Tvx_vcl_panel::Tvx_vcl_panel;

    void create() override;
    void load_rc() override;

    [[nodiscard]] Tvx_vcl_select_box_panel *get_box() const { return f_box; }

    /// The user chose; the sender is the panel.
    closure<void(TObject *)> on_change;

protected:
    /// In the order of the list.
    [[nodiscard]] virtual std::span<Tvx_builder_choice const> choices() const = 0;
    /// Numbers of the captions of the group and of the box.
    [[nodiscard]] virtual int group_caption() const = 0;
    [[nodiscard]] virtual int box_caption() const = 0;

private:
    void on_box_change(TObject *) { on_change(this); }

    TWinControl *f_group = nullptr;
    Tvx_vcl_select_box_panel *f_box = nullptr;
};
