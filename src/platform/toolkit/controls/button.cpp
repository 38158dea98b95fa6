#include "platform/toolkit/controls/button.h"

#include "platform/toolkit/bridge/detail/control_link.h"
#include "platform/toolkit/bridge/qt_events.h"
#include "platform/toolkit/bridge/qt_values.h"
#include "platform/toolkit/bridge/qt_widgets.h"
#include "platform/toolkit/core/form.h"
#include "platform/toolkit/graphics/bitmap.h"
#include "platform/toolkit/graphics/glyph_priv.h"
#include "platform/toolkit/graphics/image_list.h"

#include <QtGui/QPaintEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QStyle>
#include <QtWidgets/QStyleOption>
#include <QtWidgets/QStyleOptionButton>
#include <QtWidgets/QStyleOptionFocusRect>

#include <algorithm>

namespace {
constexpr int c_max_glyphs = 4;

/// Styles draw the default button as one that has the focus, so there the focus gets a frame of its own.
class push_widget : public QPushButton
{
public:
    using QPushButton::QPushButton;

protected:
    void paintEvent(QPaintEvent *event) override
    {
        QPushButton::paintEvent(event);
        if (!isDefault() || !hasFocus())
            return;
        QStyleOptionButton button;
        initStyleOption(&button);
        QStyleOptionFocusRect frame;
        frame.QStyleOption::operator=(button);
        frame.rect = style()->subElementRect(QStyle::SE_PushButtonFocusRect, &button, this);
        QPainter painter(this);
        style()->drawPrimitive(QStyle::PE_FrameFocusRect, &frame, &painter, this);
    }
};
} // namespace

TCustomButton::TCustomButton(TComponent *owner) : TWinControl(owner, vx_make_widget<push_widget>())
{
    // The widget tells of a click, whether it comes from the mouse or the keyboard.
    ControlStyle.Exclude(csClickEvents);
    SetTabStop(true);
    SetBounds(0, 0, 75, 25);
    auto *button = vx_qt_as<QPushButton>(this);
    button->setAutoDefault(false);
    vx_connect(this, button, &QPushButton::clicked, [this](bool) { Click(); });
}

TCustomButton::~TCustomButton() = default;

void TCustomButton::Click()
{
    vx_event_scope const scope;
    if (TCustomForm *form = f_modal_result != mrNone ? GetParentForm(this) : nullptr)
        form->SetModalResult(f_modal_result);
    TWinControl::Click();
}

void TCustomButton::SetText(UnicodeString const &text)
{
    TWinControl::SetText(text);
    vx_qt_as<QPushButton>(this)->setText(vx_qt_string(text));
}

void TCustomButton::SetDefault(bool value)
{
    f_default = value;
    // Only for the look: the form gives Enter to the button.
    vx_qt_as<QPushButton>(this)->setDefault(value);
}

bool TCustomButton::DialogKey(Word key, TShiftState shift)
{
    if (!shift.Contains(ssCtrl) && !shift.Contains(ssAlt) && GetShowing()) {
        auto const *focused = dynamic_cast<TCustomButton const *>(FindFocusedControl());
        bool const by_enter = key == VK_RETURN && (focused ? focused == this : f_default);
        if (by_enter || (key == VK_ESCAPE && f_cancel)) {
            Click();
            return true;
        }
    }
    return TWinControl::DialogKey(key, shift);
}

void TCustomButton::ActionChanged(TCustomAction const &)
{
}

TButton::TButton(TComponent *owner) : TCustomButton(owner)
{
}

TBitBtn::TBitBtn(TComponent *owner) : TCustomButton(owner), f_glyph(std::make_unique<TBitmap>())
{
    f_glyph->SetTransparent(true);
    f_glyph->OnChange = make_closure<&TBitBtn::on_glyph_change>(this);
}

TBitBtn::~TBitBtn()
{
    f_glyph->OnChange = nullptr;
}

void TBitBtn::SetGlyph(TBitmap const *glyph)
{
    f_glyph->Assign(glyph);
}

void TBitBtn::SetNumGlyphs(int count)
{
    f_num_glyphs = std::clamp(count, 1, c_max_glyphs);
    on_glyph_change(nullptr);
}

void TBitBtn::SetLayout(TButtonLayout layout)
{
    f_layout = layout;
    bool const right = layout == blGlyphRight || layout == blGlyphBottom;
    vx_qt_widget(this)->setLayoutDirection(right ? Qt::RightToLeft : Qt::LeftToRight);
}

void TBitBtn::on_glyph_change(TObject *)
{
    if (auto *button = vx_qt_as<QPushButton>(this))
        vx::glyph::set_button(button, *f_glyph, f_num_glyphs);
}

void TBitBtn::ActionChanged(TCustomAction const &action)
{
    if (f_glyph->GetEmpty() && action.GetImages())
        vx::glyph::set_button(vx_qt_as<QPushButton>(this), action.GetImages(), action.GetImageIndex());
}
