#pragma once

#include "layer_edit/page_api/basic_lr2d_edit.h"

#include <vector>

struct Ivx_attr_files;
class Tvx_stl_mngr_edit;

/// A page that feeds the editor of a style manager from the attribute table of a vector layer. A table is
/// held only while the editor reads, or until the next one is opened.
class VX_API Tvx_attr_lr2d_edit : public Tvx_basic_lr2d_edit
{
public:
    using Tvx_basic_lr2d_edit::Tvx_basic_lr2d_edit;
    ~Tvx_attr_lr2d_edit() override;

    [[nodiscard]] Ivx_layer *get_shp_lr2d() const { return get_lr2d(); }

    /// The pull events of the editor. Without an open table the counts are 0 and cells have no value. The
    /// first cell of a field reads its column, as `vx_attr_files_read_column` does; where the user stops
    /// that, the table is closed.
    bool on_data_open(TObject *sender);
    void on_data_close(TObject *sender);
    unsigned on_data_get_np(TObject *sender);
    unsigned on_data_get_no(TObject *sender);
    char const *on_data_get_prop(TObject *sender, unsigned prop, bool &usable, bool &numeric);
    char const *on_data_get_str(TObject *sender, unsigned prop, unsigned obj, bool &defined);
    double on_data_get_val(TObject *sender, unsigned prop, unsigned obj, bool &defined);

protected:
    /// Gives the editor the events above. It computes statistics from the values.
    void bind_data(Tvx_stl_mngr_edit *edit);
    /// Whoever reads the table of another layer than that of now learns that it is gone.
    void close_former_table();
    void report_change();

private:
    /// False when there is no such cell, or no table any more.
    bool read_column(unsigned prop);

    Ivx_attr_files *f_attr_files = nullptr; ///< the open table, owned
    std::vector<bool> f_read_columns;       ///< of the open table
    Ivx_layer *f_table_layer = nullptr;     ///< whose table that is; not touched
    bool f_is_reading = false;
};
