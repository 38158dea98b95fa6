#pragma once

#include "controls/forms/edits.h"
#include "controls/forms/panels.h"

/// A label over its whole area.
class VX_API Tvx_vcl_label_panel : public Tvx_vcl_panel
{
public:
    using Tvx_vcl_panel::Tvx_vcl_panel;

    void create() override;
    [[nodiscard]] UnicodeString get_caption() const;
    void set_caption(UnicodeString const &caption);
    [[nodiscard]] Tvx_vcl_label *get_label() const { return f_label; }

private:
    Tvx_vcl_label *f_label = nullptr;
};

/// Base of the captioned value panels. From left to right: a caption that takes the room left, and a
/// right-hand part of width 70 with the data area and, at its right end, an end caption of width 30, hidden
/// at first. A derived `create` runs this one first and then puts its control into the data area. All
/// operations need `create`.
class VX_API Tvx_vcl_caption_panel : public Tvx_vcl_panel
{
public:
    using Tvx_vcl_panel::Tvx_vcl_panel;

    void create() override;

    [[nodiscard]] UnicodeString get_caption() const;
    virtual void set_caption(UnicodeString const &caption);
    [[nodiscard]] int get_caption_width() const;
    /// Fixes the caption; the right-hand part takes the rest.
    void set_caption_width(int width);
    [[nodiscard]] int get_data_width() const;
    /// Fixes the right-hand part; the caption takes the rest.
    void set_data_width(int width);
    [[nodiscard]] UnicodeString get_end_caption() const;
    void set_end_caption(UnicodeString const &caption);
    [[nodiscard]] int get_end_caption_width() const;
    void set_end_caption_width(int width);
    [[nodiscard]] bool get_end_caption_visible() const;
    void set_end_caption_visible(bool visible);

protected:
    [[nodiscard]] Tvx_vcl_panel *get_data_panel() const { return f_data; }
    /// A click on the caption, or its accelerator, leads to this control.
    void set_focus_control(TWinControl *control) { f_caption->get_label()->SetFocusControl(control); }

private:
    Tvx_vcl_label_panel *f_caption = nullptr;
    Tvx_vcl_panel *f_right = nullptr;
    Tvx_vcl_panel *f_data = nullptr;
    Tvx_vcl_label_panel *f_end_caption = nullptr;
};
