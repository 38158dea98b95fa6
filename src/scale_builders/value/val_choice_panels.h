#pragma once

#include "controls/forms/lists.h"
#include "scale_builders/common/choice_panel.h"

class Tvx_val_statistic;

/// The different values of a field, in a group box that tells how many they are. All operations need
/// `create`.
class VX_API Tvx_vcl_val_statistic_panel : public Tvx_vcl_panel
{
public:
    using Tvx_vcl_panel::Tvx_vcl_panel;

    void create() override;
    void load_rc() override;

    /// Shows the values in their order: the list asks for those that are seen, so that they must live as
    /// long as they are shown, and be shown anew when they change.
    void set_statistic(Tvx_val_statistic *statistic);
    [[nodiscard]] Tvx_vcl_list_box *get_list_box() const { return f_list; }

private:
    void show_count();
    void on_list_data(TWinControl *control, int index, UnicodeString &text);

    TWinControl *f_group = nullptr;
    Tvx_val_statistic *f_statistic = nullptr;
    Tvx_vcl_list_box *f_list = nullptr;
};

/// The modes of the value builder; ids are those of val_params.h.
class VX_API Tvx_vcl_val_type_select_panel : public Tvx_vcl_choice_panel
{
public:
    using Tvx_vcl_choice_panel::Tvx_vcl_choice_panel;

    [[nodiscard]] int get_val_type() const;
    /// Nothing is chosen for what is no mode.
    void set_val_type(int type);
    [[nodiscard]] closure<void(TObject *)> get_on_change() const { return on_change; }
    void set_on_change(closure<void(TObject *)> event) { on_change = event; }

protected:
    std::span<Tvx_builder_choice const> choices() const override;
    int group_caption() const override;
    int box_caption() const override;
};
