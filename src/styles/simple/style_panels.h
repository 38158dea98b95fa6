#pragma once

#include "controls/forms/caption_panels.h"
#include "controls/forms/panels.h"
#include "styles/simple/style_btns.h"

/// A label and, at its right, a style button; 26 high. The style is the button's.
class VX_API Tvx_basic_style_panel : public Tvx_basic_pnl
{
public:
    /// Draws the sample anew.
    void update_controls() { f_style_btn->update_controls(); }
    virtual void load_res();

    [[nodiscard]] UnicodeString get_caption() const;
    void set_caption(UnicodeString const &caption);

protected:
    explicit Tvx_basic_style_panel(TComponent *owner);

    template <class Button>
    Button *add_btn()
    {
        auto *button = new Button(this);
        place_btn(button);
        return button;
    }

private:
    void place_btn(Tvx_basic_style_btn *button);
    void name_btn();
    void on_btn_changed(TObject *sender);

    Tvx_caption_panel *f_caption;
    Tvx_basic_style_btn *f_style_btn = nullptr;
};

class VX_API Tvx_pnt_style_panel : public Tvx_basic_style_panel
{
public:
    explicit Tvx_pnt_style_panel(TComponent *owner);

    [[nodiscard]] void *get_pnt_style() const { return f_btn->get_pnt_style(); }
    void set_pnt_style(void *style) { f_btn->set_pnt_style(style); }
    [[nodiscard]] Tvx_pnt_style_btn *get_btn() const { return f_btn; }

private:
    Tvx_pnt_style_btn *f_btn;
};

class VX_API Tvx_pln_style_panel : public Tvx_basic_style_panel
{
public:
    explicit Tvx_pln_style_panel(TComponent *owner);

    [[nodiscard]] void *get_pln_style() const { return f_btn->get_pln_style(); }
    void set_pln_style(void *style) { f_btn->set_pln_style(style); }
    [[nodiscard]] Tvx_pln_style_btn *get_btn() const { return f_btn; }

private:
    Tvx_pln_style_btn *f_btn;
};

class VX_API Tvx_pgn_style_panel : public Tvx_basic_style_panel
{
public:
    explicit Tvx_pgn_style_panel(TComponent *owner);

    [[nodiscard]] void *get_pgn_style() const { return f_btn->get_pgn_style(); }
    void set_pgn_style(void *style) { f_btn->set_pgn_style(style); }
    [[nodiscard]] Tvx_pgn_style_btn *get_btn() const { return f_btn; }

private:
    Tvx_pgn_style_btn *f_btn;
};

class VX_API Tvx_clr_style_panel : public Tvx_basic_style_panel
{
public:
    explicit Tvx_clr_style_panel(TComponent *owner);

    [[nodiscard]] Tvx_color get_clr_style() const { return f_btn->get_clr_style(); }
    void set_clr_style(Tvx_color color) { f_btn->set_clr_style(color); }
    [[nodiscard]] Tvx_clr_style_btn *get_btn() const { return f_btn; }

private:
    Tvx_clr_style_btn *f_btn;
};
