#pragma once

#include "styles/simple/lib_stl_panel.h"
#include "styles/simple/style_edit.h"

class TOpenDialog;
class TSaveDialog;

/// Base of the editors of a composed style: with a strip at the bottom that takes a style over from the style
/// libraries or from a file, and saves it to one.
class VX_API Tvx_composed_style_edit : public Tvx_style_edit
{
public:
    void load_res() override;

    [[nodiscard]] Tvx_lib_stl_panel *get_lib_panel() const { return f_lib_panel; }

protected:
    /// What the types of composed styles have of their own.
    struct composed_style
    {
        style_type type;
        wchar_t const *suffix; ///< of the files, with its point
        int filter;            ///< number of the filter of the file dialogs
        bool (*load)(wchar_t const *file, void *style);
        bool (*save)(wchar_t const *file, void const *style);
        bool (*choose)(void *style); ///< from the style libraries
    };
    Tvx_composed_style_edit(TComponent *owner, composed_style const &style);

private:
    void on_lib_click(TObject *sender);
    void on_load_click(TObject *sender);
    void on_save_click(TObject *sender);

    composed_style f_functions;
    Tvx_lib_stl_panel *f_lib_panel;
    TOpenDialog *f_open_dialog;
    TSaveDialog *f_save_dialog;
};
