#include "platform/toolkit/controls/speed_button.h"

#include "platform/toolkit/bridge/detail/control_link.h"
#include "platform/toolkit/bridge/qt_values.h"
#include "platform/toolkit/bridge/qt_widgets.h"
#include "platform/toolkit/controls/button_keys_priv.h"
#include "platform/toolkit/graphics/bitmap.h"
#include "platform/toolkit/graphics/glyph_priv.h"
#include "platform/toolkit/graphics/image_list.h"

#include <QtWidgets/QToolButton>

#include <algorithm>

namespace {
constexpr int c_max_glyphs = 4;

/// Fills the size that the program gave it, text and glyph in its middle.
class speed_widget final : public QToolButton
{
public:
    speed_widget() { setFocusPolicy(Qt::TabFocus); }
};
} // namespace

TSpeedButton::TSpeedButton(TComponent *owner)
    : TWinControl(owner, vx_make_widget<speed_widget>()), f_glyph(std::make_unique<TBitmap>())
{
    ControlStyle.Exclude(csClickEvents);
    SetTabStop(true);
    SetBounds(0, 0, 23, 22);
    f_glyph->SetTransparent(true);
    f_glyph->OnChange = make_closure<&TSpeedButton::on_glyph_change>(this);
    vx_connect(this, vx_qt_as<QToolButton>(this), &QToolButton::clicked, [this](bool) { pressed(); });
    SetText(UnicodeString());
    on_glyph_change(nullptr);
}

TSpeedButton::~TSpeedButton()
{
    f_glyph->OnChange = nullptr;
}

void TSpeedButton::pressed()
{
    if (f_group_index > 0) {
        if (!f_down)
            SetDown(true);
        else if (f_allow_all_up)
            SetDown(false);
    }
    // The widget has turned its mark itself; it follows the button.
    apply_down();
    Click();
}

void TSpeedButton::Click()
{
    TWinControl::Click();
}

void TSpeedButton::KeyDown(Word &key, TShiftState shift)
{
    auto const life = Life();
    TWinControl::KeyDown(key, shift);
    if (life.expired())
        return;
    vx_press_by_enter(vx_native(vx_qt_widget(this)), key, shift);
}

void TSpeedButton::SetText(UnicodeString const &text)
{
    TWinControl::SetText(text);
    vx_qt_as<QToolButton>(this)->setText(vx_qt_string(text));
    SetLayout(f_layout);
}

void TSpeedButton::SetGlyph(TBitmap const *glyph)
{
    f_glyph->Assign(glyph);
}

void TSpeedButton::SetNumGlyphs(int count)
{
    f_num_glyphs = std::clamp(count, 1, c_max_glyphs);
    on_glyph_change(nullptr);
}

void TSpeedButton::on_glyph_change(TObject *)
{
    if (auto *button = vx_qt_as<QToolButton>(this)) {
        vx::glyph::set_button(button, *f_glyph, f_num_glyphs);
        SetLayout(f_layout);
    }
}

void TSpeedButton::SetLayout(TButtonLayout layout)
{
    f_layout = layout;
    auto *button = vx_qt_as<QToolButton>(this);
    bool const above = layout == blGlyphTop || layout == blGlyphBottom;
    if (GetText().IsEmpty())
        button->setToolButtonStyle(Qt::ToolButtonIconOnly);
    else if (button->icon().isNull())
        button->setToolButtonStyle(Qt::ToolButtonTextOnly);
    else
        button->setToolButtonStyle(above ? Qt::ToolButtonTextUnderIcon : Qt::ToolButtonTextBesideIcon);
    button->setLayoutDirection(layout == blGlyphRight ? Qt::RightToLeft : Qt::LeftToRight);
}

bool TSpeedButton::GetFlat() const
{
    return vx_qt_as<QToolButton>(this)->autoRaise();
}

void TSpeedButton::SetFlat(bool flat)
{
    vx_qt_as<QToolButton>(this)->setAutoRaise(flat);
}

void TSpeedButton::SetGroupIndex(int group)
{
    f_group_index = group;
    if (group == 0)
        f_down = false;
    apply_down();
}

void TSpeedButton::SetAllowAllUp(bool value)
{
    f_allow_all_up = value;
}

void TSpeedButton::SetDown(bool down)
{
    if (f_group_index == 0 || f_down == down)
        return;
    f_down = down;
    apply_down();
    if (!down || !GetParent())
        return;
    for (int i = 0; i < GetParent()->GetControlCount(); ++i) {
        auto *other = dynamic_cast<TSpeedButton *>(GetParent()->GetControls(i));
        if (other && other != this && other->f_group_index == f_group_index)
            other->SetDown(false);
    }
}

void TSpeedButton::apply_down()
{
    auto *button = vx_qt_as<QToolButton>(this);
    button->setCheckable(f_group_index > 0);
    button->setChecked(f_down);
}

void TSpeedButton::ActionChanged(TCustomAction const &action)
{
    if (f_group_index > 0)
        SetDown(action.GetChecked());
    if (f_glyph->GetEmpty() && action.GetImages()) {
        vx::glyph::set_button(vx_qt_as<QToolButton>(this), action.GetImages(), action.GetImageIndex());
        SetLayout(f_layout);
    }
}
