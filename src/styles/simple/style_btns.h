#pragma once

#include "controls/forms/buttons.h"

#include "platform/base/color.h"
#include "platform/base/owned.h"
#include "platform/styles/vx_style.h"

/// Buttons that show the sample of a style and open its dialog below themselves. Each holds a private style;
/// what is set shows at the next `update_controls`.
class VX_API Tvx_basic_style_btn : public Tvx_bitbtn
{
public:
    /// Draws the sample anew.
    void update_controls();
    virtual void load_res();
    void call_changed() { on_changed(this); }

    /// The user accepted a style in the dialog.
    TNotifyEvent on_changed;

protected:
    explicit Tvx_basic_style_btn(TComponent *owner);

    virtual void draw(TBitmap *bitmap) = 0;
    /// Runs the dialog at a point of the screen; true if the private style has changed.
    virtual bool edit(int x, int y) = 0;

private:
    void on_self_click(TObject *sender);
};

class VX_API Tvx_pnt_style_btn : public Tvx_basic_style_btn
{
public:
    explicit Tvx_pnt_style_btn(TComponent *owner);

    [[nodiscard]] void *get_pnt_style() const { return f_style.get(); }
    void set_pnt_style(void *style) { vx_pnt_style_assign(f_style.get(), style); }

protected:
    void draw(TBitmap *bitmap) override;
    bool edit(int x, int y) override;

private:
    vx::owned<void, &vx_pnt_style_destroy> f_style;
};

class VX_API Tvx_pln_style_btn : public Tvx_basic_style_btn
{
public:
    explicit Tvx_pln_style_btn(TComponent *owner);

    [[nodiscard]] void *get_pln_style() const { return f_style.get(); }
    void set_pln_style(void *style) { vx_pln_style_assign(f_style.get(), style); }

protected:
    void draw(TBitmap *bitmap) override;
    bool edit(int x, int y) override;

private:
    vx::owned<void, &vx_pln_style_destroy> f_style;
};

class VX_API Tvx_pgn_style_btn : public Tvx_basic_style_btn
{
public:
    explicit Tvx_pgn_style_btn(TComponent *owner);

    [[nodiscard]] void *get_pgn_style() const { return f_style.get(); }
    void set_pgn_style(void *style) { vx_pgn_style_assign(f_style.get(), style); }

protected:
    void draw(TBitmap *bitmap) override;
    bool edit(int x, int y) override;

private:
    vx::owned<void, &vx_pgn_style_destroy> f_style;
};

/// Black at first.
class VX_API Tvx_clr_style_btn : public Tvx_basic_style_btn
{
public:
    explicit Tvx_clr_style_btn(TComponent *owner);

    void load_res() override;
    [[nodiscard]] Tvx_color get_clr_style() const { return f_color; }
    void set_clr_style(Tvx_color color) { f_color = color; }

protected:
    void draw(TBitmap *bitmap) override;
    bool edit(int x, int y) override;

private:
    Tvx_color f_color = vx_clr_init_int(0);
};
