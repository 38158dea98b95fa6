#pragma once

#include "controls/forms/misc.h"
#include "controls/forms/vcl_caption_panel.h"

/// A slider that parts a whole into two shares of a hundred per cent. Above it stand the captions of the two
/// and between them both shares. 65 high. All operations need `create`.
class VX_API Tvx_vcl_ratio_panel : public Tvx_vcl_panel
{
public:
    explicit Tvx_vcl_ratio_panel(TComponent *owner);

    void create() override;

    void set_lft_caption(UnicodeString const &caption);
    void set_rgt_caption(UnicodeString const &caption);
    /// The share of the right side in per cent.
    [[nodiscard]] int get_value() const;
    /// Held between 0 and 100.
    void set_value(int value);
    /// Both shares as they are shown.
    [[nodiscard]] UnicodeString get_text() const;
    [[nodiscard]] Tvx_vcl_track_bar *get_track_bar() const { return f_track; }

private:
    void on_top_resize(TObject *sender);
    void on_track_change(TObject *sender);
    void name_track_bar();

    Tvx_vcl_panel *f_top = nullptr;
    Tvx_vcl_label_panel *f_lft_caption = nullptr;
    Tvx_vcl_label_panel *f_rgt_caption = nullptr;
    Tvx_vcl_label_panel *f_value = nullptr;
    Tvx_vcl_track_bar *f_track = nullptr;
};
