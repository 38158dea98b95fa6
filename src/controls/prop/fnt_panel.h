#pragma once

#include "controls/forms/buttons.h"
#include "controls/forms/caption_panels.h"
#include "controls/forms/panels.h"

#include "platform/basic/vx_fnt_type.h"

/// A label, the name of a font, a button for the font dialog and one that takes the font that the user works
/// with at present.
class VX_API Tvx_fnt_panel : public Tvx_panel
{
public:
    explicit Tvx_fnt_panel(TComponent *owner);

    virtual void load_res();

    [[nodiscard]] UnicodeString get_caption() const;
    void set_caption(UnicodeString const &caption);
    [[nodiscard]] int get_capt_width() const;
    /// The whole panel grows by as much, so that the name keeps its room.
    void set_capt_width(int width);
    /// The font itself, which stays the panel's.
    [[nodiscard]] vx_fnt_type *get_font() { return &f_font; }
    [[nodiscard]] vx_fnt_type const *get_font() const { return &f_font; }
    /// Copies the font; null is ignored.
    void get_font(vx_fnt_type *out) const;
    /// Shows a copy of `font`; fires nothing. Null is ignored.
    void set_font(vx_fnt_type const *font);

    [[nodiscard]] Tvx_edit *get_edit() const { return f_edit; }
    [[nodiscard]] Tvx_button *get_button() const { return f_button; }
    [[nodiscard]] Tvx_speed_btn *get_current_btn() const { return f_current_btn; }

    /// The user chose a font; the sender is the panel.
    TNotifyEvent on_changed;

private:
    void on_button_click(TObject *sender);
    void on_current_btn_click(TObject *sender);
    void show_name();

    Tvx_caption_panel *f_caption_panel;
    Tvx_button *f_button;
    Tvx_speed_btn *f_current_btn;
    Tvx_edit *f_edit;
    vx_fnt_type f_font;
};
