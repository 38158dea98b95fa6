#pragma once

#include "platform/toolkit/controls/button.h"

/// A small button with a glyph that does not take the focus by a click. With a group above 0 it stays down,
/// and of the buttons of one parent and one group one at most is down. It can be reached by Tab and pressed
/// by Space or Enter.
class VX_API TSpeedButton : public TWinControl, public vx_action_client
{
public:
    explicit TSpeedButton(TComponent *owner);
    ~TSpeedButton() override;

    void Click() override;
    void SetText(UnicodeString const &text) override;
    [[nodiscard]] TBitmap *GetGlyph() const { return f_glyph.get(); }
    void SetGlyph(TBitmap const *glyph);
    [[nodiscard]] int GetNumGlyphs() const { return f_num_glyphs; }
    void SetNumGlyphs(int count);
    [[nodiscard]] TButtonLayout GetLayout() const { return f_layout; }
    void SetLayout(TButtonLayout layout);
    [[nodiscard]] bool GetFlat() const;
    void SetFlat(bool flat);
    [[nodiscard]] int GetGroupIndex() const { return f_group_index; }
    void SetGroupIndex(int group);
    /// Always false in group 0. Setting it fires nothing.
    [[nodiscard]] bool GetDown() const { return f_down; }
    void SetDown(bool down);
    /// True: a second click lets the button that is down up again.
    [[nodiscard]] bool GetAllowAllUp() const { return f_allow_all_up; }
    void SetAllowAllUp(bool value);
    void ActionChanged(TCustomAction const &action) override;

protected:
    void KeyDown(Word &key, TShiftState shift) override;

private:
    void pressed();
    void apply_down();
    void on_glyph_change(TObject *sender);

    std::unique_ptr<TBitmap> f_glyph;
    int f_num_glyphs = 1;
    int f_group_index = 0;
    TButtonLayout f_layout = blGlyphLeft;
    bool f_down = false;
    bool f_allow_all_up = false;
};
