#pragma once

#include "scale_builders/value/stdleg_items.h"
#include "scale_builders/value/val_capt_statistic.h"
#include "scale_builders/value/val_params.h"

/// Makes a value scale by a standard legend: an entry for each row whose code the data hold, in the order of
/// the rows, with the row's caption and, in its base style, the row's symbol.
class VX_API Tvx_val_rebuild_with_legend_exec : public Tvx_basic_obj
{
public:
    /// Always 0. `statistic` holds the values of the data; those that are used are marked.
    int execute(Tvx_val_params *params, Tvx_val_capt_statistic *statistic);
    /// The user has stopped the reading of the legend; the scale is then as it was.
    [[nodiscard]] bool is_stopped() const { return f_is_stopped; }

    /// A legend style type (vx_style_keys.h): which style of a row the manager can use.
    [[nodiscard]] int get_legend_style_type() const;
    /// The value that is written as this number, null if the data have none.
    [[nodiscard]] Tvx_val_capt_item *find_in_stat(int code) const;

private:
    void load_dbf();
    void save_scl();

    Tvx_val_params *f_params = nullptr;
    Tvx_val_capt_statistic *f_statistic = nullptr;
    Tvx_stdleg_items f_items;
    bool f_is_stopped = false;
};
