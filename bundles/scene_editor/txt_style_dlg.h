#pragma once

#include "controls/forms/dlg_form.h"
#include "txt_lines_edit.h"
#include "txt_params_edit.h"
#include "txt_preview.h"

/// Edits a text style: its lines, font, place and effects, with a preview. Works on private copies: whoever
/// runs it takes the result over after `mrOk`.
class Tvx_txt_style_dlg final : public Tvx_dlg_form
{
public:
    /// `caption` is the number of the title.
    explicit Tvx_txt_style_dlg(int caption);

    void load_res() override;
    /// `properties` is a `vx_wstrings` list or null; both arguments stay the caller's.
    void set_txt_style(void *style, void const *properties);
    /// Copies the edited style.
    void get_txt_style(void *style) const;

private:
    void on_lines_changed(TObject *sender);
    void on_params_changed(TObject *sender);
    void show_sample();

    Tvx_txt_params_edit *f_params;
    Tvx_txt_lines_edit *f_lines;
    Tvx_txt_preview *f_preview;
    int f_caption;
};
