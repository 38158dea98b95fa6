#pragma once

#include "platform/toolkit/core/action.h"
#include "platform/toolkit/core/win_control.h"

#include <memory>

class TBitmap;

/// Side of the caption on which a glyph stands.
enum TButtonLayout
{
    blGlyphLeft,
    blGlyphRight,
    blGlyphTop,
    blGlyphBottom
};

/// A push button. A click, Space, the accelerator, and Enter while it has the focus run `OnClick`, after the
/// modal result has gone to the form. `Click` does it from the program.
class VX_API TCustomButton : public TWinControl, public vx_action_client
{
public:
    ~TCustomButton() override;

    void Click() override;
    void SetText(UnicodeString const &text) override;
    /// What the form's modal result becomes by a click; `mrNone` leaves it.
    [[nodiscard]] TModalResult GetModalResult() const { return f_modal_result; }
    void SetModalResult(TModalResult result) { f_modal_result = result; }
    /// Clicked by Enter while no other button has the focus.
    [[nodiscard]] bool GetDefault() const { return f_default; }
    void SetDefault(bool value);
    /// Clicked by Esc.
    [[nodiscard]] bool GetCancel() const { return f_cancel; }
    void SetCancel(bool value) { f_cancel = value; }
    void ActionChanged(TCustomAction const &action) override;

protected:
    explicit TCustomButton(TComponent *owner);
    bool DialogKey(Word key, TShiftState shift) override;

private:
    TModalResult f_modal_result = mrNone;
    bool f_default = false;
    bool f_cancel = false;
};

/// 75 by 25.
class VX_API TButton : public TCustomButton
{
public:
    explicit TButton(TComponent *owner);
};

/// A push button with a picture. The first of `NumGlyphs` pictures that stand side by side in `Glyph` is the
/// one of the enabled button, the second that of the disabled one; 75 by 25.
class VX_API TBitBtn : public TCustomButton
{
public:
    explicit TBitBtn(TComponent *owner);
    ~TBitBtn() override;

    [[nodiscard]] TBitmap *GetGlyph() const { return f_glyph.get(); }
    void SetGlyph(TBitmap const *glyph);
    [[nodiscard]] int GetNumGlyphs() const { return f_num_glyphs; }
    /// 1 to 4.
    void SetNumGlyphs(int count);
    [[nodiscard]] TButtonLayout GetLayout() const { return f_layout; }
    /// Above and below are taken as left and right.
    void SetLayout(TButtonLayout layout);
    void ActionChanged(TCustomAction const &action) override;

private:
    void on_glyph_change(TObject *sender);

    std::unique_ptr<TBitmap> f_glyph;
    int f_num_glyphs = 1;
    TButtonLayout f_layout = blGlyphLeft;
};
