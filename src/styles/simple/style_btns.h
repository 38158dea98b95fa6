#pragma once

#include "controls/forms/buttons.h"

#include "platform/base/color.h"

#include <memory>

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

/// Base of the buttons of composed styles.
class VX_API Tvx_composed_style_btn : public Tvx_basic_style_btn
{
public:
    /// The private style, of the type of the class.
    [[nodiscard]] void *get_style() const { return f_style.get(); }
    /// Assigns the values of a style of that type.
    void set_style(void const *style) { f_functions.assign(f_style.get(), style); }

protected:
    /// The plain functions of a type of composed styles.
    struct style_functions
    {
        void *(*create)();
        void (*destroy)(void *style);
        void (*assign)(void *target, void const *source);
        void (*draw)(void *style, TBitmap *bitmap);
        bool (*edit)(int x, int y, void *style);
    };
    Tvx_composed_style_btn(TComponent *owner, style_functions const &functions);

    void draw(TBitmap *bitmap) override { f_functions.draw(f_style.get(), bitmap); }
    bool edit(int x, int y) override { return f_functions.edit(x, y, f_style.get()); }

private:
    style_functions f_functions;
    std::unique_ptr<void, void (*)(void *)> f_style;
};

class VX_API Tvx_pnt_style_btn : public Tvx_composed_style_btn
{
public:
    explicit Tvx_pnt_style_btn(TComponent *owner);

    [[nodiscard]] void *get_pnt_style() const { return get_style(); }
    void set_pnt_style(void *style) { set_style(style); }
};

class VX_API Tvx_pln_style_btn : public Tvx_composed_style_btn
{
public:
    explicit Tvx_pln_style_btn(TComponent *owner);

    [[nodiscard]] void *get_pln_style() const { return get_style(); }
    void set_pln_style(void *style) { set_style(style); }
};

class VX_API Tvx_pgn_style_btn : public Tvx_composed_style_btn
{
public:
    explicit Tvx_pgn_style_btn(TComponent *owner);

    [[nodiscard]] void *get_pgn_style() const { return get_style(); }
    void set_pgn_style(void *style) { set_style(style); }
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
