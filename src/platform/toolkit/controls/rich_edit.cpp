#include "platform/toolkit/controls/rich_edit.h"

#include "platform/toolkit/bridge/qt_graphics.h"
#include "platform/toolkit/bridge/qt_values.h"
#include "platform/toolkit/bridge/qt_widgets.h"
#include "platform/toolkit/controls/detail/edit_port.h"

#include <QtGui/QTextCharFormat>
#include <QtWidgets/QTextEdit>

namespace {
QTextCharFormat format_of(TCustomRichEdit const *edit)
{
    return vx_qt_as<QTextEdit>(edit)->currentCharFormat();
}

void merge(TCustomRichEdit const *edit, QTextCharFormat const &format)
{
    vx_qt_as<QTextEdit>(edit)->mergeCurrentCharFormat(format);
}
} // namespace

void TTextAttributes::Assign(TPersistent const *source)
{
    if (auto const *other = dynamic_cast<TTextAttributes const *>(source)) {
        merge(f_edit, format_of(other->f_edit));
        return;
    }
    auto const *font = dynamic_cast<TFont const *>(source);
    if (!font)
        return TPersistent::Assign(source);
    SetName(font->GetName());
    SetSize(font->GetSize());
    SetStyle(font->GetStyle());
    SetColor(font->GetColor());
}

TColor TTextAttributes::GetColor() const
{
    QBrush const brush = format_of(f_edit).foreground();
    return brush.style() == Qt::NoBrush ? clWindowText : vx_color(brush.color());
}

void TTextAttributes::SetColor(TColor color)
{
    QTextCharFormat format;
    format.setForeground(vx_qt_color(color));
    merge(f_edit, format);
}

TFontStyles TTextAttributes::GetStyle() const
{
    QFont const font = format_of(f_edit).font();
    TFontStyles style;
    if (font.bold())
        style.Include(fsBold);
    if (font.italic())
        style.Include(fsItalic);
    if (font.underline())
        style.Include(fsUnderline);
    if (font.strikeOut())
        style.Include(fsStrikeOut);
    return style;
}

void TTextAttributes::SetStyle(TFontStyles style)
{
    QTextCharFormat format;
    format.setFontWeight(style.Contains(fsBold) ? QFont::Bold : QFont::Normal);
    format.setFontItalic(style.Contains(fsItalic));
    format.setFontUnderline(style.Contains(fsUnderline));
    format.setFontStrikeOut(style.Contains(fsStrikeOut));
    merge(f_edit, format);
}

UnicodeString TTextAttributes::GetName() const
{
    return vx_unicode_string(format_of(f_edit).font().family());
}

void TTextAttributes::SetName(UnicodeString const &name)
{
    QTextCharFormat format;
    format.setFontFamilies({vx_qt_string(name)});
    merge(f_edit, format);
}

int TTextAttributes::GetSize() const
{
    QFont const font = format_of(f_edit).font();
    return font.pointSize() > 0 ? font.pointSize() : font.pixelSize() * 72 / 96;
}

void TTextAttributes::SetSize(int points)
{
    if (points < 1)
        return;
    QTextCharFormat format;
    format.setFontPointSize(points);
    merge(f_edit, format);
}

TCustomRichEdit::TCustomRichEdit(TComponent *owner)
    : TCustomMemo(owner, vx_make_rich_text_port()), f_sel_attributes(this)
{
}

TCustomRichEdit::~TCustomRichEdit() = default;

void TCustomRichEdit::SetSelAttributes(TTextAttributes const *attributes)
{
    f_sel_attributes.Assign(attributes);
}

UnicodeString TCustomRichEdit::GetHtml() const
{
    return vx_unicode_string(vx_qt_as<QTextEdit>(this)->toHtml());
}

void TCustomRichEdit::SetHtml(UnicodeString const &html)
{
    vx_qt_as<QTextEdit>(this)->setHtml(vx_qt_string(html));
}

TRichEdit::TRichEdit(TComponent *owner) : TCustomRichEdit(owner)
{
    SetBounds(0, 0, 185, 89);
}
