#pragma once

#include "layer_edit/shape/attr_lr2d_edit.h"
#include "style_manager/lists/stl_mngr_list_edit.h"
#include "style_manager/shell/typed_stl_mngr_edits.h"

#include <string>

/// Base of the pages of vector layers: a strip with the style managers of the layer, below it the editor of
/// the active one.
class VX_API Tvx_shp_lr2d_edit : public Tvx_attr_lr2d_edit
{
public:
    using Tvx_attr_lr2d_edit::Tvx_attr_lr2d_edit;

    void create() override;
    void load_res() override;
    void update_controls() override;
    void end_edit(bool taken) override;

    [[nodiscard]] Tvx_style_stl_mngr_list_edit *get_list_edit() const { return f_list_edit; }
    /// The editor of the manager; null before `create`.
    [[nodiscard]] Tvx_stl_mngr_edit *get_edit() const { return f_edit; }

    /// Lets the user edit the text of a filter over the layer's attributes; true if he accepted. A text that
    /// is no filter is shown as an empty one.
    bool on_edit_value_item(std::wstring &text);

protected:
    /// Gives the editor of the leaf its place and its events; called at the end of its `create`. `own_mngr`
    /// gives the manager of a layer that has no list.
    void take_stl_mngr_edit(Tvx_typed_stl_mngr_edit *edit, void *(*own_mngr)(Ivx_layer *layer));

private:
    void on_stl_mngr_list_active_changed(TObject *sender);

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
