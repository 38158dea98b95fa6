#pragma once

#include "controls/forms/buttons.h"
#include "controls/forms/panels.h"

#include "platform/base/closure.h"

#include <array>

/// The strip of buttons of a `Tvx_vcl_dialog_form`, 30 high. At the right edge Apply, Cancel and Help, at the
/// left edge Save and Load; only Cancel and Apply start visible.
class VX_API Tvx_vcl_bottom_buttons : public Tvx_vcl_panel
{
public:
    explicit Tvx_vcl_bottom_buttons(TComponent *owner);

    void create() override;
    void load_rc() override;
    /// Of all five buttons; true while one of them is enabled.
    [[nodiscard]] bool get_enabled() const override;
    void set_enabled(bool enabled) override;

    [[nodiscard]] bool get_cancel_visible() const { return visible(cancel); }
    [[nodiscard]] bool get_apply_visible() const { return visible(apply); }
    [[nodiscard]] bool get_help_visible() const { return visible(help); }
    [[nodiscard]] bool get_save_visible() const { return visible(save); }
    [[nodiscard]] bool get_load_visible() const { return visible(load); }
    void set_cancel_visible(bool value) { set_visible(cancel, value); }
    void set_apply_visible(bool value) { set_visible(apply, value); }
    void set_help_visible(bool value) { set_visible(help, value); }
    void set_save_visible(bool value) { set_visible(save, value); }
    void set_load_visible(bool value) { set_visible(load, value); }
    [[nodiscard]] bool get_apply_enabled() const;
    void set_apply_enabled(bool enabled);
    [[nodiscard]] bool get_apply_focused() const;
    /// True gives Apply the focus if it is visible and can take it; false does nothing.
    void set_apply_focused(bool focused);

    /// Lays the visible buttons out from the edges of the strip.
    void place_buttons();

    [[nodiscard]] Tvx_vcl_button *get_apply_btn() const { return f_buttons[apply]; }
    [[nodiscard]] Tvx_vcl_button *get_cancel_btn() const { return f_buttons[cancel]; }
    [[nodiscard]] Tvx_vcl_button *get_help_btn() const { return f_buttons[help]; }
    [[nodiscard]] Tvx_vcl_button *get_save_btn() const { return f_buttons[save]; }
    [[nodiscard]] Tvx_vcl_button *get_load_btn() const { return f_buttons[load]; }

    /// The sender is the strip.
    closure<void(TObject *)> on_cancel;
    closure<void(TObject *)> on_apply;
    closure<void(TObject *)> on_help;
    closure<void(TObject *)> on_save;
    closure<void(TObject *)> on_load;

protected:
    void Resize() override;

private:
    enum button
    {
        apply,
        cancel,
        help,
        save,
        load,
        c_button_count
    };

    [[nodiscard]] bool visible(button which) const;
    void set_visible(button which, bool value);
    void on_cancel_btn_click(TObject *) { on_cancel(this); }
    void on_apply_btn_click(TObject *) { on_apply(this); }
    void on_help_btn_click(TObject *) { on_help(this); }
    void on_save_btn_click(TObject *) { on_save(this); }
    void on_load_btn_click(TObject *) { on_load(this); }

    std::array<Tvx_vcl_button *, c_button_count> f_buttons{};
};
