#pragma once

#include "layer_edit/page_api/basic_lr2d_edit.h"
#include "style_manager/lists/stl_mngr_list_edit.h"
#include "style_manager/shell/typed_stl_mngr_edits.h"

#include <string>
#include <vector>

struct Ivx_attr_files;

/// Base of the pages of vector layers: a strip with the style managers of the layer, below it the editor of
/// the active one. It feeds the editor from the attribute table of the layer. A table is held only while the
/// editor reads, or until the next one is opened.
class VX_API Tvx_shp_lr2d_edit : public Tvx_basic_lr2d_edit
{
public:
    using Tvx_basic_lr2d_edit::Tvx_basic_lr2d_edit;
    ~Tvx_shp_lr2d_edit() override;

    void create() override;
    void load_res() override;
    void update_controls() override;
    void end_edit(bool taken) override;

    [[nodiscard]] Ivx_layer *get_shp_lr2d() const { return get_lr2d(); }
    [[nodiscard]] Tvx_style_stl_mngr_list_edit *get_list_edit() const { return f_list_edit; }
    /// The editor of the manager; null before `create`.
    [[nodiscard]] Tvx_stl_mngr_edit *get_edit() const { return f_edit; }

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
    /// Lets the user edit the text of a filter over the layer's attributes; true if he accepted. A text that
    /// is no filter is shown as an empty one.
    bool on_edit_value_item(std::wstring &text);

protected:
    /// Gives the editor of the leaf its place and its events; called at the end of its `create`. `own_mngr`
    /// gives the manager of a layer that has no list.
    void take_stl_mngr_edit(Tvx_typed_stl_mngr_edit *edit, void *(*own_mngr)(Ivx_layer *layer));
    void report_change();

private:
    void on_stl_mngr_list_active_changed(TObject *sender);
    /// False when there is no such cell, or no table any more.
    bool read_column(unsigned prop);

    Ivx_attr_files *f_attr_files = nullptr; ///< the open table, owned
    std::vector<bool> f_read_columns;       ///< of the open table
    Ivx_layer *f_table_layer = nullptr;     ///< whose table that is; not touched
    bool f_is_reading = false;
    Tvx_style_stl_mngr_list_edit *f_list_edit = nullptr;
    Tvx_typed_stl_mngr_edit *f_edit = nullptr; ///< the one of the leaf
    void *(*f_own_mngr)(Ivx_layer *layer) = nullptr;
};

class VX_API Tvx_shp_pnt_lr2d_edit : public Tvx_shp_lr2d_edit
{
public:
    using Tvx_shp_lr2d_edit::Tvx_shp_lr2d_edit;

    void create() override;
    [[nodiscard]] Ivx_layer *get_shp_pnt_lr2d() const { return get_lr2d(); }
    [[nodiscard]] Tvx_pnt_stl_mngr_edit *get_stl_mngr_edit() const { return f_stl_mngr_edit; }
    void on_pnt_stl_mngr_changed(TObject *sender);

private:
    Tvx_pnt_stl_mngr_edit *f_stl_mngr_edit = nullptr;
};

class VX_API Tvx_shp_pln_lr2d_edit : public Tvx_shp_lr2d_edit
{
public:
    using Tvx_shp_lr2d_edit::Tvx_shp_lr2d_edit;

    void create() override;
    [[nodiscard]] Ivx_layer *get_shp_pln_lr2d() const { return get_lr2d(); }
    [[nodiscard]] Tvx_pln_stl_mngr_edit *get_stl_mngr_edit() const { return f_stl_mngr_edit; }
    void on_pln_stl_mngr_changed(TObject *sender);

private:
    Tvx_pln_stl_mngr_edit *f_stl_mngr_edit = nullptr;
};

class VX_API Tvx_shp_pgn_lr2d_edit : public Tvx_shp_lr2d_edit
{
public:
    using Tvx_shp_lr2d_edit::Tvx_shp_lr2d_edit;

    void create() override;
    [[nodiscard]] Ivx_layer *get_shp_pgn_lr2d() const { return get_lr2d(); }
    [[nodiscard]] Tvx_pgn_stl_mngr_edit *get_stl_mngr_edit() const { return f_stl_mngr_edit; }
    void on_pgn_stl_mngr_changed(TObject *sender);

private:
    Tvx_pgn_stl_mngr_edit *f_stl_mngr_edit = nullptr;
};
