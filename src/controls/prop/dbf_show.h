#pragma once

#include "controls/forms/form.h"
#include "controls/forms/grids.h"
#include "controls/forms/panels.h"

#include "platform/data/vx_dbf.h"

#include <string>

/// Shows a dBase file in a modal form. `name` is in the system code page; `dos`: the texts are in code page
/// 866.
VX_API void vx_show_dbf_modal(char const *name, bool dos);

/// A view of a dBase file: names of the fields at the top, numbers of the records from 1 at the left. The
/// file is opened for each painting and read where the painting shows it, so its size costs nothing.
class VX_API Tvx_dbf_show_grid : public Tvx_custom_grid
{
public:
    explicit Tvx_dbf_show_grid(TComponent *owner);

    /// Shows another file; one that cannot be opened gives 2 by 2 cells with nothing in them. Null counts as
    /// an empty name.
    void show(char const *name, bool dos);
    void show(wchar_t const *name, bool dos);

protected:
    void Paint() override;
    void DrawCell(int col, int row, TRect const &rect, TGridDrawState state) override;
    /// Text of a field of a record, both from 0; for the cells that are painted, while they are.
    [[nodiscard]] virtual UnicodeString get_cell_text(int field, int record);

private:
    [[nodiscard]] vx::dbf_handle open_table() const;
    void fit_columns(Ivx_dbf const *table);

    std::wstring f_name;
    vx::dbf_handle f_table;
    bool f_dos = false;
};

/// The view on a panel of its own.
class VX_API Tvx_dbf_show_panel : public Tvx_panel
{
public:
    explicit Tvx_dbf_show_panel(TComponent *owner);

    /// As `Tvx_dbf_show_grid::show`.
    void show(wchar_t const *name, bool dos);
    [[nodiscard]] Tvx_dbf_show_grid *get_grid() const { return f_grid; }

private:
    Tvx_dbf_show_grid *f_grid;
};

/// 600 by 400, in the middle of the screen; Esc closes it.
class VX_API Tvx_dbf_show_form : public Tvx_form
{
public:
    explicit Tvx_dbf_show_form(TComponent *owner);

    /// Shows the file, with its name without path as caption, until the user closes the form.
    void show_modal_dbf(wchar_t const *name, bool dos);
    [[nodiscard]] Tvx_dbf_show_panel *get_panel() const { return f_panel; }

protected:
    void KeyDown(Word &key, TShiftState shift) override;

private:
    Tvx_dbf_show_panel *f_panel;
};
