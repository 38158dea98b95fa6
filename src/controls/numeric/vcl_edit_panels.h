#pragma once

#include "controls/forms/vcl_caption_panel.h"
#include "controls/numeric/vcl_dbl_edit.h"
#include "controls/numeric/vcl_int_edit.h"
#include "controls/numeric/vcl_spin_edit.h"

/// A caption and an edit for a whole number. All operations of these panels need `create`; the sender of
/// `on_change` is the panel.
class VX_API Tvx_vcl_int_edit_panel : public Tvx_vcl_caption_panel
{
public:
    using Tvx_vcl_caption_panel::Tvx_vcl_caption_panel;

    void create() override;
    void set_caption(UnicodeString const &caption) override;

    [[nodiscard]] int get_value() const { return f_edit->get_value(); }
    void set_value(int value) { f_edit->set_value(value); }
    [[nodiscard]] closure<void(TObject *)> get_on_change() const { return f_on_change; }
    void set_on_change(closure<void(TObject *)> on_change) { f_on_change = on_change; }
    [[nodiscard]] UnicodeString get_text() const { return f_edit->GetText(); }
    [[nodiscard]] int get_min() const { return f_edit->get_min(); }
    void set_min(int min) { f_edit->set_min(min); }
    [[nodiscard]] int get_max() const { return f_edit->get_max(); }
    void set_max(int max) { f_edit->set_max(max); }
    [[nodiscard]] bool get_use_min() const { return f_edit->get_use_min(); }
    void set_use_min(bool use) { f_edit->set_use_min(use); }
    [[nodiscard]] bool get_use_max() const { return f_edit->get_use_max(); }
    void set_use_max(bool use) { f_edit->set_use_max(use); }
    [[nodiscard]] bool get_edit_enabled() const { return f_edit->get_edit_enabled(); }
    void set_edit_enabled(bool enabled) { f_edit->set_edit_enabled(enabled); }
    /// The user cannot type more characters than this; 0 is no limit.
    void set_max_length(int length) { f_edit->SetMaxLength(length); }
    [[nodiscard]] Tvx_vcl_int_edit *get_edit() const { return f_edit; }

private:
    void on_edit_change(TObject *sender);

    Tvx_vcl_int_edit *f_edit = nullptr;
    closure<void(TObject *)> f_on_change;
};

/// A caption and an edit for a number with decimals.
class VX_API Tvx_vcl_dbl_edit_panel : public Tvx_vcl_caption_panel
{
public:
    using Tvx_vcl_caption_panel::Tvx_vcl_caption_panel;

    void create() override;
    void set_caption(UnicodeString const &caption) override;

    [[nodiscard]] double get_value() const { return f_edit->get_value(); }
    void set_value(double value) { f_edit->set_value(value); }
    [[nodiscard]] closure<void(TObject *)> get_on_change() const { return f_on_change; }
    void set_on_change(closure<void(TObject *)> on_change) { f_on_change = on_change; }
    [[nodiscard]] UnicodeString get_text() const { return f_edit->GetText(); }
    [[nodiscard]] double get_min() const { return f_edit->get_min(); }
    void set_min(double min) { f_edit->set_min(min); }
    [[nodiscard]] double get_max() const { return f_edit->get_max(); }
    void set_max(double max) { f_edit->set_max(max); }
    [[nodiscard]] bool get_use_min() const { return f_edit->get_use_min(); }
    void set_use_min(bool use) { f_edit->set_use_min(use); }
    [[nodiscard]] bool get_use_max() const { return f_edit->get_use_max(); }
    void set_use_max(bool use) { f_edit->set_use_max(use); }
    [[nodiscard]] bool get_edit_enabled() const { return f_edit->get_edit_enabled(); }
    void set_edit_enabled(bool enabled) { f_edit->set_edit_enabled(enabled); }
    [[nodiscard]] int get_precision() const { return f_edit->get_precision(); }
    void set_precision(int precision) { f_edit->set_precision(precision); }
    void set_format_digits(int digits) { f_edit->set_format_digits(digits); }
    [[nodiscard]] bool get_can_empty() const { return f_edit->get_can_empty(); }
    void set_can_empty(bool can_empty) { f_edit->set_can_empty(can_empty); }
    void set_empty(bool empty) { f_edit->set_empty(empty); }
    [[nodiscard]] bool is_empty() const { return f_edit->is_empty(); }
    void change_key_press(bool exponent) { f_edit->change_key_press(exponent); }
    [[nodiscard]] Tvx_vcl_dbl_edit *get_edit() const { return f_edit; }

private:
    void on_edit_change(TObject *sender);

    Tvx_vcl_dbl_edit *f_edit = nullptr;
    closure<void(TObject *)> f_on_change;
};

/// A caption and a spin edit.
class VX_API Tvx_vcl_spin_edit_panel : public Tvx_vcl_caption_panel
{
public:
    using Tvx_vcl_caption_panel::Tvx_vcl_caption_panel;

    void create() override;
    void set_caption(UnicodeString const &caption) override;

    [[nodiscard]] int get_value() const { return f_edit->get_value(); }
    void set_value(int value) { f_edit->set_value(value); }
    [[nodiscard]] closure<void(TObject *)> get_on_change() const { return f_on_change; }
    void set_on_change(closure<void(TObject *)> on_change) { f_on_change = on_change; }
    [[nodiscard]] int get_min() const { return f_edit->get_min(); }
    void set_min(int min) { f_edit->set_min(min); }
    [[nodiscard]] int get_max() const { return f_edit->get_max(); }
    void set_max(int max) { f_edit->set_max(max); }
    [[nodiscard]] Tvx_vcl_spin_edit *get_edit() const { return f_edit; }

private:
    void on_edit_change(TObject *sender);

    Tvx_vcl_spin_edit *f_edit = nullptr;
    closure<void(TObject *)> f_on_change;
};

/// A caption and an edit for a text. `on_change` runs at each change by the user.
class VX_API Tvx_vcl_text_edit_panel : public Tvx_vcl_caption_panel
{
public:
    using Tvx_vcl_caption_panel::Tvx_vcl_caption_panel;

    void create() override;
    void set_caption(UnicodeString const &caption) override;

    [[nodiscard]] UnicodeString get_text() const { return f_edit->GetText(); }
    void set_text(UnicodeString const &text);
    /// The text by the name that all value panels have for it.
    [[nodiscard]] UnicodeString get_value() const { return get_text(); }
    void set_value(UnicodeString const &text) { set_text(text); }
    [[nodiscard]] closure<void(TObject *)> get_on_change() const { return f_on_change; }
    void set_on_change(closure<void(TObject *)> on_change) { f_on_change = on_change; }
    [[nodiscard]] Tvx_vcl_edit *get_edit() const { return f_edit; }

private:
    void on_edit_change(TObject *sender);

    Tvx_vcl_edit *f_edit = nullptr;
    closure<void(TObject *)> f_on_change;
};
