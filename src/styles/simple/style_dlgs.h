#pragma once

#include "controls/forms/dlg_form.h"
#include "styles/simple/bpgn_edit.h"
#include "styles/simple/bpln_edit.h"
#include "styles/simple/bpnt_edit.h"
#include "styles/simple/pgn_stl_edit.h"
#include "styles/simple/pln_stl_edit.h"
#include "styles/simple/pnt_stl_edit.h"

/// The dialogs of simple styles, one for each base style and each composed style. They work on the private
/// style of their editor: whoever runs one takes that over after `mrOk`.
class VX_API Tvx_basic_style_dlg : public Tvx_dlg_form
{
public:
    void load_res() override;

    /// The private style of the editor, of the type that the dialog edits.
    [[nodiscard]] void *get_style() const { return f_style_edit->get_style(); }
    /// Copies the style and shows it.
    void set_style(void const *style);

protected:
    /// `caption` is the number of the title.
    Tvx_basic_style_dlg(TComponent *owner, int caption);

    template <class Edit>
    Edit *add_edit()
    {
        auto *edit = new Edit(this);
        place_edit(edit);
        return edit;
    }

private:
    void place_edit(Tvx_style_edit *edit);

    Tvx_style_edit *f_style_edit = nullptr;
    int f_caption;
};

class VX_API Tvx_bpnt_style_dlg : public Tvx_basic_style_dlg
{
public:
    explicit Tvx_bpnt_style_dlg(TComponent *owner);

    [[nodiscard]] void *get_bpnt_style() const { return get_style(); }
    void set_bpnt_style(void *style) { set_style(style); }
    [[nodiscard]] Tvx_bpnt_edit *get_edit() const { return f_edit; }

private:
    Tvx_bpnt_edit *f_edit;
};

class VX_API Tvx_bpln_style_dlg : public Tvx_basic_style_dlg
{
public:
    explicit Tvx_bpln_style_dlg(TComponent *owner);

    [[nodiscard]] void *get_bpln_style() const { return get_style(); }
    void set_bpln_style(void *style) { set_style(style); }
    [[nodiscard]] Tvx_bpln_edit *get_edit() const { return f_edit; }

private:
    Tvx_bpln_edit *f_edit;
};

class VX_API Tvx_bpgn_style_dlg : public Tvx_basic_style_dlg
{
public:
    explicit Tvx_bpgn_style_dlg(TComponent *owner);

    [[nodiscard]] void *get_bpgn_style() const { return get_style(); }
    void set_bpgn_style(void *style) { set_style(style); }
    [[nodiscard]] Tvx_bpgn_edit *get_edit() const { return f_edit; }

private:
    Tvx_bpgn_edit *f_edit;
};

class VX_API Tvx_pnt_style_dlg : public Tvx_basic_style_dlg
{
public:
    explicit Tvx_pnt_style_dlg(TComponent *owner);

    [[nodiscard]] void *get_pnt_style() const { return get_style(); }
    void set_pnt_style(void *style) { set_style(style); }
    [[nodiscard]] Tvx_pnt_stl_edit *get_edit() const { return f_edit; }

private:
    Tvx_pnt_stl_edit *f_edit;
};

class VX_API Tvx_pln_style_dlg : public Tvx_basic_style_dlg
{
public:
    explicit Tvx_pln_style_dlg(TComponent *owner);

    [[nodiscard]] void *get_pln_style() const { return get_style(); }
    void set_pln_style(void *style) { set_style(style); }
    [[nodiscard]] Tvx_pln_stl_edit *get_edit() const { return f_edit; }

private:
    Tvx_pln_stl_edit *f_edit;
};

class VX_API Tvx_pgn_style_dlg : public Tvx_basic_style_dlg
{
public:
    explicit Tvx_pgn_style_dlg(TComponent *owner);

    [[nodiscard]] void *get_pgn_style() const { return get_style(); }
    void set_pgn_style(void *style) { set_style(style); }
    [[nodiscard]] Tvx_pgn_stl_edit *get_edit() const { return f_edit; }

private:
    Tvx_pgn_stl_edit *f_edit;
};
