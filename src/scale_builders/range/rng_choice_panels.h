#pragma once

#include "controls/forms/vcl_select_box.h"
#include "scale_builders/common/choice_panel.h"

/// Boxes in which the range builder offers some choices. All operations need `create`; setters fire nothing.

/// Round digits, the exponent of the power of ten that bounds are rounded to: 21 patterns from "d.dddddddddd"
/// (-10) over "d" (0) to "ddddddddddd" (10), whose ids are digits + 10; -2 at first.
class VX_API Tvx_vcl_round_panel : public Tvx_vcl_panel
{
public:
    using Tvx_vcl_panel::Tvx_vcl_panel;

    void create() override;
    void load_rc() override;

    [[nodiscard]] int get_digits_count() const;
    /// Nothing is chosen for digits outside -10 to 10.
    void set_digits_count(int digits);
    /// The user chose; the sender is the box panel.
    [[nodiscard]] closure<void(TObject *)> get_on_change() const { return f_box->get_on_change(); }
    void set_on_change(closure<void(TObject *)> on_change) { f_box->set_on_change(on_change); }
    [[nodiscard]] Tvx_vcl_select_box_panel *get_box() const { return f_box; }

private:
    Tvx_vcl_select_box_panel *f_box = nullptr;
};

/// How many standard deviations the ranges reach to either side of the mean: 1/2, 1, 2 or 3, with the ids 0
/// to 3; 1 at first.
class VX_API Tvx_vcl_deviation_coeff : public Tvx_vcl_panel
{
public:
    using Tvx_vcl_panel::Tvx_vcl_panel;

    void create() override;
    void load_rc() override;

    /// 1 while nothing is chosen.
    [[nodiscard]] double get_coeff() const;
    /// Chooses the one that is less than 0.1 away, else 1.
    void set_coeff(double coeff);
    [[nodiscard]] Tvx_vcl_select_box_panel *get_box() const { return f_box; }

private:
    Tvx_vcl_select_box_panel *f_box = nullptr;
};

/// The first step of a logarithmic scale: 1, 2 or 5 times 10^digits, with the ids 1 to 3. Digits are -2 at
/// first; `update_select_box` shows those that were set.
class VX_API Tvx_vcl_log_start_panel : public Tvx_vcl_panel
{
public:
    using Tvx_vcl_panel::Tvx_vcl_panel;

    void create() override;
    void load_rc() override;

    /// 0, 1, 2 for a step of 1, 2, 5.
    [[nodiscard]] int get_base_index() const;
    void set_base_index(int index);
    void set_digit_count(int digits) { f_digit_count = digits; }
    /// Writes the three steps anew; the choice stays.
    void update_select_box();
    [[nodiscard]] Tvx_vcl_select_box_panel *get_box() const { return f_box; }

    /// The user chose; the sender is the panel.
    closure<void(TObject *)> on_change;

private:
    void on_box_change(TObject *) { on_change(this); }

    Tvx_vcl_select_box_panel *f_box = nullptr;
    int f_digit_count = -2;
};

/// The kinds of classification; ids are the builder types (rng_params.h). Natural breaks are offered where
/// the host wants them (rng_type_dlg.h).
class VX_API Tvx_vcl_rng_type_select_panel : public Tvx_vcl_choice_panel
{
public:
    using Tvx_vcl_choice_panel::Tvx_vcl_choice_panel;

    void create() override;

    /// 0 while nothing is chosen.
    [[nodiscard]] int get_rng_type() const;
    /// Nothing is chosen for a kind that is not offered.
    void set_rng_type(int type);

protected:
    std::span<Tvx_builder_choice const> choices() const override;
    int group_caption() const override;
    int box_caption() const override;

private:
    bool f_offers_natural = false;
};
