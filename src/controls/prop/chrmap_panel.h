#pragma once

#include "controls/forms/buttons.h"
#include "controls/forms/caption_panels.h"

#include "platform/basic/vx_fnt_type.h"

/// A label, a character of a font, and a button for the character dialog, which a click on the character
/// opens too; 20 high.
class VX_API Tvx_chrmap_panel : public Tvx_caption_panel
{
public:
    explicit Tvx_chrmap_panel(TComponent *owner);

    virtual void load_res();

    void set_caption(UnicodeString const &caption) override;
    /// Stays the panel's.
    [[nodiscard]] vx_fnt_type *get_font() { return &f_font; }
    [[nodiscard]] vx_fnt_type const *get_font() const { return &f_font; }
    /// Shows the character in a copy of `font`; fires nothing. Null is ignored.
    void set_font(vx_fnt_type const *font);
    /// A code point.
    [[nodiscard]] unsigned get_symbol() const { return f_symbol; }
    /// Shows the character; what is no character shows nothing. Fires nothing.
    void set_symbol(unsigned code);

    [[nodiscard]] Tvx_button *get_button() const { return f_button; }
    [[nodiscard]] Tvx_label *get_symbol_label() const { return f_symbol_label; }

    /// The user chose font and character; the sender is the panel.
    TNotifyEvent on_changed;

private:
    void on_button_click(TObject *sender);
    void show_font();

    Tvx_panel *f_frame;
    Tvx_label *f_symbol_label;
    Tvx_button *f_button;
    vx_fnt_type f_font;
    unsigned f_symbol = 0;
};
