#pragma once

#include "controls/numeric/size_panel.h"
#include "controls/prop/bool_panel.h"
#include "styles/simple/cpx_stl_panel.h"
#include "styles/simple/style_edit.h"

#include <initializer_list>

/// Base of the editors of a base style: rows from the top, and at the bottom the switch between the plain
/// values and the complex style. Only the rows that count for the style are seen.
class VX_API Tvx_base_style_edit : public Tvx_style_edit
{
public:
    void load_res() override;

    [[nodiscard]] Tvx_cpx_stl_panel *get_cpx_panel() const { return f_cpx_panel; }
    [[nodiscard]] Tvx_bool_panel *get_use_cpx() const { return f_use_cpx; }

protected:
    explicit Tvx_base_style_edit(TComponent *owner);

    /// Puts the control below the rows made so far.
    template <class T>
    T *add_row()
    {
        auto *row = new T(this);
        place_row(row);
        return row;
    }
    /// Room behind the number for the unit; the panel gives a wider text what it needs.
    static void show_unit(Tvx_size_panel *panel);
    /// The last rows; at the end of the derived constructor.
    void add_cpx_rows();

    struct row
    {
        TControl *control;
        bool visible;
    };
    /// Shows and hides the rows, which stand in this order, and closes them up; the complex row is the last.
    /// `complex` is the state of the switch.
    void show_rows(std::initializer_list<row> rows, bool complex);

    virtual void set_use_complex(bool use) = 0;
    /// Runs the editor of the complex style; true if the user accepted.
    virtual bool edit_complex() = 0;

private:
    void place_row(TControl *control);
    void on_use_cpx_changed(TObject *sender);
    void on_edt_cpx_click(TObject *sender);

    int f_rows_bottom = 0;
    Tvx_cpx_stl_panel *f_cpx_panel = nullptr;
    Tvx_bool_panel *f_use_cpx = nullptr;
};
