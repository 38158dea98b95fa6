#pragma once

#include "controls/forms/buttons.h"
#include "controls/forms/misc.h"
#include "controls/forms/vcl_caption_panel.h"

/// A caption, a gauge and a button that asks the work to stop; 50 high.
class VX_API Tvx_vcl_progress_panel : public Tvx_vcl_panel
{
public:
    explicit Tvx_vcl_progress_panel(TComponent *owner);

    void create() override;
    void load_rc() override;

    /// Whether the three children are shown.
    [[nodiscard]] bool get_all_visible() const;
    void set_all_visible(bool visible);
    [[nodiscard]] UnicodeString get_caption() const;
    void set_caption(UnicodeString const &caption);
    [[nodiscard]] int get_progress() const;
    /// Per cent; held between 0 and 100.
    void set_progress(int progress);

    /// Set by the button; the work that asks takes it back before it starts.
    [[nodiscard]] bool get_stop() const { return f_stop; }
    void set_stop(bool stop) { f_stop = stop; }
    [[nodiscard]] Tvx_vcl_button *get_stop_btn() const { return f_stop_btn; }

private:
    void on_stop_btn_click(TObject *sender);

    Tvx_vcl_label_panel *f_caption = nullptr;
    Tvx_vcl_gauge *f_gauge = nullptr;
    Tvx_vcl_button *f_stop_btn = nullptr;
    bool f_stop = false;
};
