#pragma once

#include "data/editor_source/tos_prop_work.h"
#include "layer_edit/shape/attr_lr2d_edit.h"
#include "style_manager/lists/stl_mngr_list_edit.h"
#include "style_manager/shell/typed_stl_mngr_edits.h"

/// The strip and the editor that the pages of text managers show: the managers of a layer's text settings,
/// and below them the active one, without rules over attributes and without styles of selected objects.
class VX_API Tvx_txt_mngr_parts
{
public:
    /// Puts the strip at the top of the page and the editor below it. `active_changed`: the strip changed the
    /// list.
    void create(Tvx_panel *page, Tvx_txt_stl_mngr_edit *edit, TNotifyEvent active_changed);
    void load_res();
    /// Shows the list of the settings (vx_txt_settings.h); both may be null. The editor shows as the list's
    /// flag says; without a list it stays as it is.
    void show_list(Ivx_layer *layer, void *settings);
    void show_mngr();
    void end_edit(bool taken) { f_edit->end_edit(taken); }

    [[nodiscard]] Tvx_txt_stl_mngr_list_edit *get_list_edit() const { return f_list_edit; }
    [[nodiscard]] Tvx_txt_stl_mngr_edit *get_edit() const { return f_edit; }

private:
    Tvx_txt_stl_mngr_list_edit *f_list_edit = nullptr;
    Tvx_txt_stl_mngr_edit *f_edit = nullptr;
};

/// Base of the text manager pages of vector layers.
class VX_API Tvx_txt_shp_mngr_lr2d_edit : public Tvx_attr_lr2d_edit
{
public:
    using Tvx_attr_lr2d_edit::Tvx_attr_lr2d_edit;

    void load_res() override;
    void update_controls() override;
    void end_edit(bool taken) override;

    [[nodiscard]] Tvx_txt_stl_mngr_list_edit *get_list_edit() const { return f_parts.get_list_edit(); }
    /// The editor of the manager; null before `create`.
    [[nodiscard]] Tvx_txt_stl_mngr_edit *get_edit() const { return f_parts.get_edit(); }

protected:
    /// Gives the editor of the leaf its place and its events; called in its `create`.
    void take_stl_mngr_edit(Tvx_txt_stl_mngr_edit *edit);

private:
    void on_stl_mngr_list_active_changed(TObject *sender);

    Tvx_txt_mngr_parts f_parts;
};

class VX_API Tvx_txt_pnt_mngr_lr2d_edit : public Tvx_txt_shp_mngr_lr2d_edit
{
public:
    using Tvx_txt_shp_mngr_lr2d_edit::Tvx_txt_shp_mngr_lr2d_edit;

    void create() override;
    [[nodiscard]] Ivx_layer *get_shp_pnt_lr2d() const { return get_lr2d(); }
    [[nodiscard]] Tvx_txt_pnt_stl_mngr_edit *get_stl_mngr_edit() const { return f_stl_mngr_edit; }
    void on_txt_pnt_stl_mngr_changed(TObject *sender);

private:
    Tvx_txt_pnt_stl_mngr_edit *f_stl_mngr_edit = nullptr;
};

class VX_API Tvx_txt_pln_mngr_lr2d_edit : public Tvx_txt_shp_mngr_lr2d_edit
{
public:
    using Tvx_txt_shp_mngr_lr2d_edit::Tvx_txt_shp_mngr_lr2d_edit;

    void create() override;
    [[nodiscard]] Ivx_layer *get_shp_pln_lr2d() const { return get_lr2d(); }
    [[nodiscard]] Tvx_txt_pln_stl_mngr_edit *get_stl_mngr_edit() const { return f_stl_mngr_edit; }
    void on_txt_pln_stl_mngr_changed(TObject *sender);

private:
    Tvx_txt_pln_stl_mngr_edit *f_stl_mngr_edit = nullptr;
};

class VX_API Tvx_txt_pgn_mngr_lr2d_edit : public Tvx_txt_shp_mngr_lr2d_edit
{
public:
    using Tvx_txt_shp_mngr_lr2d_edit::Tvx_txt_shp_mngr_lr2d_edit;

    void create() override;
    [[nodiscard]] Ivx_layer *get_shp_pgn_lr2d() const { return get_lr2d(); }
    [[nodiscard]] Tvx_txt_pgn_stl_mngr_edit *get_stl_mngr_edit() const { return f_stl_mngr_edit; }
    void on_txt_pgn_stl_mngr_changed(TObject *sender);

private:
    Tvx_txt_pgn_stl_mngr_edit *f_stl_mngr_edit = nullptr;
};

/// The text manager page of a layer of points that two properties of a file place, fed by that file.
class VX_API Tvx_txt_tos_2crd_mngr_lr2d_edit : public Tvx_basic_lr2d_edit
{
public:
    using Tvx_basic_lr2d_edit::Tvx_basic_lr2d_edit;

    void create() override;
    void load_res() override;
    void update_controls() override;
    void end_edit(bool taken) override;

    [[nodiscard]] Ivx_layer *get_tos_lr2d() const { return get_lr2d(); }
    [[nodiscard]] Tvx_txt_stl_mngr_list_edit *get_list_edit() const { return f_parts.get_list_edit(); }
    [[nodiscard]] Tvx_txt_tos_2crd_stl_mngr_edit *get_stl_mngr_edit() const { return f_stl_mngr_edit; }
    void on_txt_tos_2crd_stl_mngr_changed(TObject *sender);

private:
    Ivx_layer *layer_of_data() { return get_lr2d(); }
    void on_stl_mngr_list_active_changed(TObject *sender);

    Tvx_tos_prop_work f_prop_work;
    Tvx_txt_mngr_parts f_parts;
    Tvx_txt_tos_2crd_stl_mngr_edit *f_stl_mngr_edit = nullptr;
};
