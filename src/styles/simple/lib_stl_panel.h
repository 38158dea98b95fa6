#pragma once

#include "controls/forms/buttons.h"
#include "controls/forms/panels.h"

/// A strip with two square glyph buttons, which save a style to a file and load it from one, and the main
/// button, which opens the style libraries.
class VX_API Tvx_lib_stl_panel : public Tvx_panel
{
public:
    explicit Tvx_lib_stl_panel(TComponent *owner);

    /// Shows the main button only where there is a style library.
    void update_controls();
    virtual void load_res();

    /// The events are those of the buttons, and so are their senders.
    [[nodiscard]] TNotifyEvent get_on_click() const { return f_main_btn->OnClick; }
    void set_on_click(TNotifyEvent event) { f_main_btn->OnClick = event; }
    [[nodiscard]] TNotifyEvent get_on_load_click() const { return f_load_btn->OnClick; }
    void set_on_load_click(TNotifyEvent event) { f_load_btn->OnClick = event; }
    [[nodiscard]] TNotifyEvent get_on_save_click() const { return f_save_btn->OnClick; }
    void set_on_save_click(TNotifyEvent event) { f_save_btn->OnClick = event; }

    [[nodiscard]] Tvx_bitbtn *get_save_btn() const { return f_save_btn; }
    [[nodiscard]] Tvx_bitbtn *get_load_btn() const { return f_load_btn; }
    [[nodiscard]] Tvx_button *get_main_btn() const { return f_main_btn; }

protected:
    void Resize() override;

private:
    Tvx_bitbtn *f_save_btn;
    Tvx_bitbtn *f_load_btn;
    Tvx_button *f_main_btn;
};
