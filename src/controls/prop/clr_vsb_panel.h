#pragma once

#include "controls/forms/caption_panels.h"
#include "controls/forms/panels.h"
#include "controls/prop/clr_panel.h"
#include "controls/prop/visible_ctrl.h"

class Tvx_clr_picker_btn;

/// A label, an eye that can be left out, and a colour; 20 high.
class VX_API Tvx_clr_vsb_panel : public Tvx_children_enabled_panel
{
public:
    explicit Tvx_clr_vsb_panel(TComponent *owner);

    virtual void load_res();

    [[nodiscard]] UnicodeString get_text() const;
    /// The label, which names the buttons too.
    virtual void set_text(UnicodeString const &text);
    [[nodiscard]] Tvx_color get_color() const;
    /// Fires nothing; no other setter does.
    void set_color(Tvx_color color);
    [[nodiscard]] Tvx_color_format get_format() const;
    void set_format(Tvx_color_format format);
    /// State of the eye.
    [[nodiscard]] bool get_visible() const;
    void set_visible(bool visible);
    /// Whether there is an eye; there is at first.
    [[nodiscard]] bool get_can_visible() const;
    void set_can_visible(bool value);

    [[nodiscard]] Tvx_clr_panel *get_clr_panel() const { return f_clr_panel; }
    [[nodiscard]] Tvx_visible_ctrl *get_visible_ctrl() const { return f_visible_ctrl; }

    /// The user chose a colour or turned the eye; the sender is the panel.
    TNotifyEvent on_changed;

protected:
    void call_changed() { on_changed(this); }

private:
    void on_visible_changed(TObject *sender);
    void on_color_changed(TObject *sender);

    Tvx_clr_panel *f_clr_panel;
    Tvx_visible_ctrl *f_visible_ctrl;
    Tvx_caption_panel *f_caption;
};

/// With a button at the sample that takes a colour from the screen.
class VX_API Tvx_clr_vsb_pick_panel : public Tvx_clr_vsb_panel
{
public:
    explicit Tvx_clr_vsb_pick_panel(TComponent *owner);

    void load_res() override;
    void set_text(UnicodeString const &text) override;
    [[nodiscard]] Tvx_clr_picker_btn *get_picker_btn() const { return f_picker_btn; }

protected:
    void Resize() override;

private:
    void on_clr_picked(TObject *sender);

    Tvx_clr_picker_btn *f_picker_btn;
};
