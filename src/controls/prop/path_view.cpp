#include "controls/prop/detail/path_view.h"

#include "platform/toolkit/graphics/canvas.h"

void Tvx_path_view::SetText(UnicodeString const &text)
{
    Tvx_gr_ctrl::SetText(text);
    Invalidate();
}

void Tvx_path_view::Paint()
{
    TRect rect = GetClientRect();
    GetCanvas()->SetFont(GetFont());
    GetCanvas()->GetBrush()->SetStyle(bsClear);
    if (!GetEnabled())
        GetCanvas()->GetFont()->SetColor(clGrayText);
    GetCanvas()->TextRect(rect, GetText(),
                          {tfSingleLine, tfVerticalCenter, tfLeft, tfNoPrefix, tfPathEllipsis});
}

void Tvx_path_view::EnabledChanged()
{
    Tvx_gr_ctrl::EnabledChanged();
    Invalidate();
}
