#pragma once

#include "controls/numeric/size_panel.h"
#include "controls/prop/bool_panel.h"
#include "controls/prop/clr_vsb_panel.h"
#include "styles/simple/cpx_stl_panel.h"
#include "styles/simple/style_edit.h"

#include <vector>

/// Base of the editors of a base style: rows from the top, and at the bottom the switch between the plain
/// values and the complex style. Only the rows that count for the style are seen.
class VX_API Tvx_base_style_edit : public Tvx_style_edit
{
public:
    void update_controls() override;
    void load_res() override;

    [[nodiscard]] Tvx_clr_vsb_panel *get_color() const { return f_color; }
    [[nodiscard]] Tvx_cpx_stl_panel *get_cpx_panel() const { return f_cpx_panel; }
    [[nodiscard]] Tvx_bool_panel *get_use_cpx() const { return f_use_cpx; }

protected:
    /// What the types of base styles have in common, as plain functions.
    struct base_style
    {
        style_type type;
        Tvx_color (*get_color)(void const *style);
        void (*set_color)(void *style, Tvx_color color);
        bool (*get_use_complex)(void const *style);
        void (*set_use_complex)(void *style, bool use);
        void *(*get_complex)(void *style);
        bool (*edit_complex)(void *complex_style);       ///< true if the user accepted
        double (*get_size)(void const *style) = nullptr; ///< null: the style has no size
        void (*set_size)(void *style, double size) = nullptr;
        int size_caption = 0; ///< its number
        int size_decimals = 0;
    };
    Tvx_base_style_edit(TComponent *owner, base_style const &style);

    /// Adds a row below those made so far. It is seen while the style is not complex and, where `shown` is
    /// given, that is true of the style.
    template <class T>
    T *add_row(bool (*shown)(void const *style) = nullptr)
    {
        auto *row = new T(this);
        place_row(row);
        f_rows.push_back({row, shown});
        return row;
    }
    /// The last rows, which all base styles have; at the end of the derived constructor.
    void add_common_rows();
    /// Null without a size.
    [[nodiscard]] Tvx_size_panel *size_panel() const { return f_size; }

private:
    struct row
    {
        TControl *control;
        bool (*shown)(void const *style);
    };
    void place_row(TControl *control);
    void show_rows();
    void on_color_changed(TObject *sender);
    void on_size_changed(TObject *sender);
    void on_use_cpx_changed(TObject *sender);
    void on_edt_cpx_click(TObject *sender);

    base_style f_functions;
    std::vector<row> f_rows;
    int f_rows_bottom = 0;
    Tvx_clr_vsb_panel *f_color = nullptr;
    Tvx_size_panel *f_size = nullptr;
    Tvx_cpx_stl_panel *f_cpx_panel = nullptr;
    Tvx_bool_panel *f_use_cpx = nullptr;
};
