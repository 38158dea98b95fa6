#pragma once

#include "controls/forms/misc.h"

#include <string>

/// Shows a text as its style writes it on the map, in its true size, beside a mark where its anchor is.
class Tvx_txt_preview final : public Tvx_gr_ctrl
{
public:
    explicit Tvx_txt_preview(TComponent *owner);

    /// The style stays the caller's and outlives the control or the next call; null shows nothing.
    void set_txt_style(void *style) { f_style = style; }
    /// What is written; lines are parted by line feeds.
    void set_sample(std::wstring text) { f_text = std::move(text); }

protected:
    void Paint() override;

private:
    void *f_style = nullptr;
    std::wstring f_text;
};
