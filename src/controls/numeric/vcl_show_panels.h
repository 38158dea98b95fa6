#pragma once

#include "controls/forms/vcl_caption_panel.h"

/// A caption and a sunken area that shows a text; base of the panels that show a number. All operations of
/// these panels need `create`.
class VX_API Tvx_vcl_show_panel : public Tvx_vcl_caption_panel
{
public:
    using Tvx_vcl_caption_panel::Tvx_vcl_caption_panel;

    void create() override;

    /// The text that is shown.
    [[nodiscard]] UnicodeString get_text() const { return f_label->GetCaption(); }

protected:
    void show_text(UnicodeString const &text) { f_label->SetCaption(text); }

private:
    Tvx_vcl_label *f_label = nullptr;
};

/// Shows a whole number, 0 at the start.
class VX_API Tvx_vcl_int_show_panel : public Tvx_vcl_show_panel
{
public:
    using Tvx_vcl_show_panel::Tvx_vcl_show_panel;

    void create() override;
    [[nodiscard]] int get_value() const { return f_value; }
    void set_value(int value);

private:
    int f_value = 0;
};

/// Shows a number in general form, 0 at the start.
class VX_API Tvx_vcl_dbl_show_panel : public Tvx_vcl_show_panel
{
public:
    using Tvx_vcl_show_panel::Tvx_vcl_show_panel;

    void create() override;
    [[nodiscard]] double get_value() const { return f_value; }
    void set_value(double value);
    /// Significant digits, 8.
    [[nodiscard]] int get_precision() const { return f_precision; }
    void set_precision(int precision);
    /// Least number of digits of an exponent, 3.
    [[nodiscard]] int get_digits() const { return f_digits; }
    void set_digits(int digits);

private:
    void show_value();

    double f_value = 0.0;
    int f_precision = 8;
    int f_digits = 3;
};
