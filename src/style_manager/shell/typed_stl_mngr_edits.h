#pragma once

#include "style_manager/shell/stl_mngr_edit.h"

/// The manager editors of one style type each. They draw and edit styles by themselves: `create` binds those
/// events. The typed setter sets the manager, which is not owned; null for none.
class VX_API Tvx_typed_stl_mngr_edit : public Tvx_stl_mngr_edit
{
protected:
    /// How the styles of a type are reached, drawn and edited; functions may be null.
    struct style_type
    {
        char const *mngr_style; ///< the key of the manager
        void *(*get)(void *stl_prm, bool sel);
        void (*draw)(void *style, TBitmap *bitmap);
        bool (*edit)(int x, int y, void *style);
        bool (*edit_text)(int x, int y, void *style, void *properties); ///< in place of `edit`
        bool (*get_symbol)(int lib_idx, int code, void *style);
    };
    Tvx_typed_stl_mngr_edit(TComponent *owner, style_type const &type)
        : Tvx_stl_mngr_edit(owner), f_type(type)
    {
    }

public:
    void create();

private:
    void on_self_draw_style(TObject *sender, TBitmap *bitmap, void *stl_prm, bool sel);
    bool on_self_edit_style(TObject *sender, int x, int y, void *stl_prm, bool sel);
    bool on_self_lib_symbol_style(TObject *sender, int lib_idx, int code, void *stl_prm, bool sel,
                                  std::wstring &caption);

    style_type f_type;
};

class VX_API Tvx_pnt_stl_mngr_edit : public Tvx_typed_stl_mngr_edit
{
public:
    explicit Tvx_pnt_stl_mngr_edit(TComponent *owner);

    [[nodiscard]] bool can_rotate_flag() const override { return true; }
    [[nodiscard]] void *get_pnt_stl_mngr() const { return get_stl_mngr(); }
    void set_pnt_stl_mngr(void *mngr) { set_stl_mngr(mngr); }
};

class VX_API Tvx_pln_stl_mngr_edit : public Tvx_typed_stl_mngr_edit
{
public:
    explicit Tvx_pln_stl_mngr_edit(TComponent *owner);

    [[nodiscard]] bool can_rotate_flag() const override { return true; }
    [[nodiscard]] void *get_pln_stl_mngr() const { return get_stl_mngr(); }
    void set_pln_stl_mngr(void *mngr) { set_stl_mngr(mngr); }
};

class VX_API Tvx_pgn_stl_mngr_edit : public Tvx_typed_stl_mngr_edit
{
public:
    explicit Tvx_pgn_stl_mngr_edit(TComponent *owner);

    [[nodiscard]] bool can_rotate_flag() const override { return true; }
    [[nodiscard]] void *get_pgn_stl_mngr() const { return get_stl_mngr(); }
    void set_pgn_stl_mngr(void *mngr) { set_stl_mngr(mngr); }
};

class VX_API Tvx_clr_stl_mngr_edit : public Tvx_typed_stl_mngr_edit
{
public:
    explicit Tvx_clr_stl_mngr_edit(TComponent *owner);

    [[nodiscard]] void *get_clr_stl_mngr() const { return get_stl_mngr(); }
    void set_clr_stl_mngr(void *mngr) { set_stl_mngr(mngr); }
    /// Sets the mode of the manager.
    void set_style_mngr_mode(Tvx_style_mode mode);
};

/// Base of the editors of text managers.
class VX_API Tvx_txt_stl_mngr_edit : public Tvx_typed_stl_mngr_edit
{
public:
    /// The manager whose texts have something in common; null here.
    [[nodiscard]] virtual void *get_txt_stl_mngr() const { return nullptr; }
    /// Opens the dialog of what all texts of the manager have in common, in the middle of the screen.
    void on_common_click(TObject *sender);

protected:
    using Tvx_typed_stl_mngr_edit::Tvx_typed_stl_mngr_edit;
};

class VX_API Tvx_txt_pnt_stl_mngr_edit : public Tvx_txt_stl_mngr_edit
{
public:
    explicit Tvx_txt_pnt_stl_mngr_edit(TComponent *owner);

    [[nodiscard]] void *get_txt_stl_mngr() const override { return get_stl_mngr(); }
    void set_txt_pnt_stl_mngr(void *mngr) { set_stl_mngr(mngr); }
};

class VX_API Tvx_txt_pln_stl_mngr_edit : public Tvx_txt_stl_mngr_edit
{
public:
    explicit Tvx_txt_pln_stl_mngr_edit(TComponent *owner);

    [[nodiscard]] void *get_txt_stl_mngr() const override { return get_stl_mngr(); }
    void set_txt_pln_stl_mngr(void *mngr) { set_stl_mngr(mngr); }
};

class VX_API Tvx_txt_pgn_stl_mngr_edit : public Tvx_txt_stl_mngr_edit
{
public:
    explicit Tvx_txt_pgn_stl_mngr_edit(TComponent *owner);

    [[nodiscard]] void *get_txt_stl_mngr() const override { return get_stl_mngr(); }
    void set_txt_pgn_stl_mngr(void *mngr) { set_stl_mngr(mngr); }
};

class VX_API Tvx_txt_tos_2crd_stl_mngr_edit : public Tvx_txt_stl_mngr_edit
{
public:
    explicit Tvx_txt_tos_2crd_stl_mngr_edit(TComponent *owner);

    [[nodiscard]] void *get_txt_stl_mngr() const override { return get_stl_mngr(); }
    void set_txt_pnt_stl_mngr(void *mngr) { set_stl_mngr(mngr); }
};
