#pragma once

#include "controls/forms/buttons.h"
#include "controls/numeric/size_panel.h"
#include "controls/prop/clr_vsb_panel.h"
#include "styles/complex/cpx_style_btn_panel.h"

#include <string>
#include <vector>

/// Base of the editors of a layer of a complex style: rows that each show one value of the layer.
class VX_API Tvx_cpx_basic_edit : public Tvx_cpx_panel
{
public:
    void load_res() override;
    /// Reads all values into the rows.
    void update_controls() override;

    /// The layer stays its owner's, and is changed in place. It is of the key that the editor is for, or
    /// null: nothing is changed then.
    void set_style_lr(void *layer) { f_style_lr = layer; }
    [[nodiscard]] void *get_style_lr() const { return f_style_lr; }

    /// The user changed a value, which is in the layer already.
    TNotifyEvent on_changed;

protected:
    using Tvx_cpx_panel::Tvx_cpx_panel;

    void call_changed() { on_changed(this); }

    static constexpr int c_free_decimals = -1;

    /// A length or an angle. Captions and units are numbers of the catalogue.
    struct size_value
    {
        double (*get)(void const *layer);
        void (*set)(void *layer, double value);
        int caption;
        int decimals;
        int unit;
        wchar_t const *behind = L""; ///< the caption
    };
    // Each adds a row below those that the parent has.
    Tvx_size_panel *add_size(TWinControl *parent, size_value const &value);
    Tvx_clr_vsb_panel *add_color(TWinControl *parent, Tvx_color (*get)(void const *layer),
                                 void (*set)(void *layer, Tvx_color color), int caption);
    Tvx_check_box *add_flag(TWinControl *parent, bool (*get)(void const *layer),
                            void (*set)(void *layer, bool flag), int caption);
    Tvx_cpx_style_btn_panel *add_style(TWinControl *parent, void *(*get)(void *layer), int caption);
    void place_row(TWinControl *parent, TWinControl *row);
    /// Shows or hides a row and puts it right below another.
    static void put_below(TControl *row, TControl const *above, bool visible);

    virtual void flag_changed(Tvx_check_box * /*box*/) {}

private:
    void align_edits();
    void on_size_changed(TObject *sender);
    void on_color_changed(TObject *sender);
    void on_flag_click(TObject *sender);
    void on_style_changed(TObject *sender);

    struct size_row
    {
        Tvx_size_panel *panel;
        size_value value;
    };
    struct color_row
    {
        Tvx_clr_vsb_panel *panel;
        Tvx_color (*get)(void const *layer);
        void (*set)(void *layer, Tvx_color color);
        int caption;
    };
    struct flag_row
    {
        Tvx_check_box *box;
        bool (*get)(void const *layer);
        void (*set)(void *layer, bool flag);
        int caption;
    };
    struct style_row
    {
        Tvx_cpx_style_btn_panel *panel;
        void *(*get)(void *layer);
        int caption;
    };

    void *f_style_lr = nullptr;
    std::vector<size_row> f_sizes;
    std::vector<color_row> f_colors;
    std::vector<flag_row> f_flags;
    std::vector<style_row> f_styles;
};
