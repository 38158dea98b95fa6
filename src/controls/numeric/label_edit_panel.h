#pragma once

#include "controls/forms/edits.h"
#include "controls/forms/panels.h"

/// A label and an edit, with the layout that the panels for a size and for a short text share; 20 high.
///
/// The label stands at the left and takes the room that the edit leaves; `set_text_width` turns this round.
/// Behind the edit there is room for a small control of a derived class and for an end caption of width 20,
/// hidden at first. A longer end caption takes the room that it needs.
class VX_API Tvx_label_edit_panel : public Tvx_children_enabled_panel
{
public:
    [[nodiscard]] int get_edt_ctrl_width() const;
    /// Fixes the edit; the label takes the rest. With the label above, the edit is counted from the left.
    void set_edt_ctrl_width(int width);
    [[nodiscard]] UnicodeString get_end_caption() const;
    void set_end_caption(UnicodeString const &caption);
    [[nodiscard]] bool get_end_caption_visible() const;
    void set_end_caption_visible(bool visible);
    [[nodiscard]] int get_end_caption_width() const;
    void set_end_caption_width(int width);
    /// 0: the label beside the edit, the panel 20 high; 1: above it, 40 high. Another number changes nothing.
    [[nodiscard]] int get_top_location() const { return f_top_location; }
    void set_top_location(int location);
    [[nodiscard]] bool get_has_label() const { return f_has_label; }
    /// False: the edit fills the panel.
    void set_has_label(bool has_label);
    [[nodiscard]] TColor get_edit_color() const { return f_edit->GetColor(); }
    void set_edit_color(TColor color) { f_edit->SetColor(color); }
    [[nodiscard]] TColor get_font_color() const;
    /// Of the edit's text.
    void set_font_color(TColor color);
    [[nodiscard]] Tvx_edit *get_edit() const { return f_edit; }

protected:
    explicit Tvx_label_edit_panel(TComponent *owner);

    void Resize() override;
    [[nodiscard]] UnicodeString label_text() const { return f_label->GetCaption(); }
    void set_label_text(UnicodeString const &text);
    [[nodiscard]] int label_width() const;
    /// Fixes the label; the edit takes the rest.
    void set_label_width(int width);
    /// Puts the control, of its own width, between edit and end caption.
    void set_side_control(TWinControl *control);
    void set_side_width(int width);
    /// Text of the program's: `OnChange` of the edit does not run.
    void set_quiet_text(UnicodeString const &text);
    void place();

private:
    Tvx_label *f_label;
    Tvx_edit *f_edit;
    Tvx_label *f_end_caption;
    TWinControl *f_side = nullptr;
    /// The fixed width of the edit, or of the label if `f_label_fixed`; below 0 neither is.
    int f_fixed_width;
    int f_end_width;
    int f_end_text_width = 0;
    int f_side_width = 0;
    int f_top_location = 0;
    bool f_label_fixed = false;
    bool f_has_label = true;
};
