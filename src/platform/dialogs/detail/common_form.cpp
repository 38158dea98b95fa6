#include "platform/dialogs/detail/common_form.h"

#include "captions/dialogs.h"

#include "platform/basic/vx_res.h"
#include "platform/toolkit/bridge/qt_values.h"
#include "platform/toolkit/bridge/qt_widgets.h"
#include "platform/toolkit/controls/button.h"
#include "platform/toolkit/controls/label.h"
#include "platform/toolkit/core/application.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>
#include <QtGui/QWindow>
#include <QtWidgets/QApplication>

#include <algorithm>

namespace vx::dialogs {
namespace {
constexpr int c_button_width = 86;
constexpr int c_button_height = 26;
} // namespace

HWND owner_window(HWND parent)
{
    vx_qt_ensure_application();
    if (auto *modal = QApplication::activeModalWidget())
        return vx_native(modal);
    if (parent)
        return vx_native(vx_qt_widget(parent)->window());
    if (auto *application = Application->GetHandle())
        return application;
    return vx_native(QApplication::activeWindow());
}

TPoint place_at(TPoint point, TSize size)
{
    auto const *screen = QGuiApplication::screenAt(vx_qt_point(point));
    if (!screen)
        screen = QGuiApplication::primaryScreen();
    QRect const area = screen->availableGeometry();
    if (point.X + size.cx > area.right() + 1)
        point.X -= size.cx;
    if (point.Y + size.cy > area.bottom() + 1)
        point.Y -= size.cy;
    point.X = std::max(area.left(), std::min(point.X, area.right() + 1 - size.cx));
    point.Y = std::max(area.top(), std::min(point.Y, area.bottom() + 1 - size.cy));
    return point;
}

common_form::common_form(int caption, int client_width, int client_height) : TForm(nullptr)
{
    SetCaption(vx_res_get_wstr(caption));
    SetBorderStyle(bsDialog);
    SetBorderIcons({biSystemMenu});
    SetClientWidth(client_width);
    SetClientHeight(client_height);
}

void common_form::add_buttons()
{
    auto const add = [this](int caption, int place_from_right, TModalResult result) {
        auto *button = new TButton(this);
        button->SetParent(this);
        button->SetCaption(vx_res_get_wstr(caption));
        button->SetBounds(GetClientWidth() - c_edge - (place_from_right + 1) * c_button_width -
                              place_from_right * c_gap,
                          GetClientHeight() - c_edge - c_button_height, c_button_width, c_button_height);
        button->SetAnchors({akRight, akBottom});
        button->SetModalResult(result);
        return button;
    };
    f_ok = add(c_dlg_ok, 1, mrOk);
    f_ok->SetDefault(true);
    add(c_dlg_cancel, 0, mrCancel)->SetCancel(true);
}

void common_form::set_ok_enabled(bool enabled)
{
    f_ok->SetEnabled(enabled);
}

TLabel *common_form::add_label(int caption, int left, int top, TWinControl *control)
{
    auto *label = new TLabel(this);
    label->SetParent(this);
    label->SetCaption(vx_res_get_wstr(caption));
    label->SetLeft(left);
    label->SetTop(top);
    if (control)
        label->SetFocusControl(control);
    return label;
}

bool common_form::run(HWND parent, int x, int y)
{
    if (x == 0 && y == 0) {
        SetPosition(poScreenCenter);
    } else {
        SetPosition(poDesigned);
        auto const place = place_at({x, y}, {GetWidth(), GetHeight()});
        SetLeft(place.X);
        SetTop(place.Y);
    }
    if (auto *owner = owner_window(parent)) {
        auto *window = vx_qt_widget(owner)->windowHandle();
        auto *own = vx_qt_widget(this);
        own->winId();
        if (window && own->windowHandle() != window)
            own->windowHandle()->setTransientParent(window);
    }
    return ShowModal() == mrOk;
}
} // namespace vx::dialogs
