#pragma once

#include "controls/forms/buttons.h"
#include "controls/forms/caption_panels.h"
#include "controls/forms/misc.h"

/// A caption, the sample of a point figure, and a button that opens the table of figures; 20 high.
class VX_API Tvx_basic_figure_panel : public Tvx_caption_panel
{
public:
    explicit Tvx_basic_figure_panel(TComponent *owner);

    virtual void load_res();
    /// Draws the sample anew.
    void update_controls();

    void set_caption(UnicodeString const &caption) override;

    [[nodiscard]] Tvx_button *get_button() const { return f_button; }
    [[nodiscard]] Tvx_image *get_image() const { return f_image; }

    /// The user chose a figure; the sender is the panel.
    TNotifyEvent on_change;

protected:
    [[nodiscard]] virtual bool ask(int x, int y, int *figure) = 0;
    virtual void draw(int figure, TBitmap *bitmap) = 0;

    int f_code = 0;

private:
    void on_button_click(TObject *sender);

    Tvx_panel *f_frame;
    Tvx_image *f_image;
    Tvx_button *f_button;
};

/// The figure of a simple point style.
class VX_API Tvx_figure_panel : public Tvx_basic_figure_panel
{
public:
    explicit Tvx_figure_panel(TComponent *owner);

    /// 0 to 25.
    [[nodiscard]] int get_figure() const { return f_code; }
    /// Fires nothing.
    void set_figure(int figure);

protected:
    bool ask(int x, int y, int *figure) override;
    void draw(int figure, TBitmap *bitmap) override;
};

/// The figure of a figure layer of a complex style.
class VX_API Tvx_lr_figure_panel : public Tvx_basic_figure_panel
{
public:
    explicit Tvx_lr_figure_panel(TComponent *owner);

    /// 0 to 25.
    [[nodiscard]] int get_lr_figure() const { return f_code; }
    /// Fires nothing.
    void set_lr_figure(int figure);

protected:
    bool ask(int x, int y, int *figure) override;
    void draw(int figure, TBitmap *bitmap) override;
};
