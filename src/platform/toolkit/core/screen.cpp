#include "platform/toolkit/core/screen.h"

#include "platform/toolkit/bridge/qt_graphics.h"
#include "platform/toolkit/bridge/qt_values.h"
#include "platform/toolkit/bridge/qt_widgets.h"
#include "platform/toolkit/core/form.h"
#include "platform/toolkit/graphics/bitmap.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QPainter>
#include <QtGui/QPixmap>
#include <QtGui/QScreen>
#include <QtWidgets/QApplication>

#include <algorithm>
#include <unordered_map>

namespace {
std::unordered_map<TCursor, QCursor> &own_cursors()
{
    static auto *const cursors = new std::unordered_map<TCursor, QCursor>;
    return *cursors;
}
} // namespace

QCursor vx_qt_cursor(TCursor cursor)
{
    if (auto const own = own_cursors().find(cursor); own != own_cursors().end())
        return own->second;
    switch (cursor) {
    case crNone:
        return Qt::BlankCursor;
    case crCross:
        return Qt::CrossCursor;
    case crIBeam:
        return Qt::IBeamCursor;
    case crSizeNESW:
        return Qt::SizeBDiagCursor;
    case crSizeNS:
        return Qt::SizeVerCursor;
    case crSizeNWSE:
        return Qt::SizeFDiagCursor;
    case crSizeWE:
        return Qt::SizeHorCursor;
    case crUpArrow:
        return Qt::UpArrowCursor;
    case crHourGlass:
        return Qt::WaitCursor;
    case crDrag:
    case crMultiDrag:
        return Qt::DragMoveCursor;
    case crNoDrop:
    case crNo:
        return Qt::ForbiddenCursor;
    case crHSplit:
        return Qt::SplitHCursor;
    case crVSplit:
        return Qt::SplitVCursor;
    case crAppStart:
        return Qt::BusyCursor;
    case crHelp:
        return Qt::WhatsThisCursor;
    case crHandPoint:
        return Qt::PointingHandCursor;
    case crSizeAll:
        return Qt::SizeAllCursor;
    default:
        return Qt::ArrowCursor;
    }
}

TScreen::TScreen() : TComponent(nullptr)
{
    vx_qt_ensure_application();
}

TScreen *TScreen::Instance()
{
    static TScreen *const one = new TScreen;
    return one;
}

int TScreen::GetWidth() const
{
    QScreen const *const screen = QGuiApplication::primaryScreen();
    return screen ? screen->size().width() : 0;
}

int TScreen::GetHeight() const
{
    QScreen const *const screen = QGuiApplication::primaryScreen();
    return screen ? screen->size().height() : 0;
}

TRect TScreen::GetWorkAreaRect() const
{
    QScreen const *const screen = QGuiApplication::primaryScreen();
    return screen ? vx_rect(screen->availableGeometry()) : TRect{};
}

TRect TScreen::GetDesktopRect() const
{
    QScreen const *const screen = QGuiApplication::primaryScreen();
    return screen ? vx_rect(screen->virtualGeometry()) : TRect{};
}

int TScreen::GetPixelsPerInch() const
{
    QScreen const *const screen = QGuiApplication::primaryScreen();
    return screen ? static_cast<int>(screen->logicalDotsPerInch() + 0.5) : 96;
}

TCustomForm *TScreen::GetForms(int index) const
{
    if (index < 0 || index >= GetFormCount())
        return nullptr;
    return f_forms[static_cast<std::size_t>(index)];
}

TWinControl *TScreen::GetActiveControl() const
{
    return FindFocusedControl();
}

void TScreen::SetCursor(TCursor value)
{
    if (f_cursor == value)
        return;
    if (f_cursor != crDefault)
        QGuiApplication::restoreOverrideCursor();
    f_cursor = value;
    if (value != crDefault)
        QGuiApplication::setOverrideCursor(vx_qt_cursor(value));
}

void TScreen::SetCursors(TCursor index, TBitmap const &picture, int hot_x, int hot_y)
{
    if (index > 0)
        own_cursors()[index] = QCursor(QPixmap::fromImage(vx_qt_image(picture)), hot_x, hot_y);
}

TPoint TScreen::GetCursorPos() const
{
    return vx_point(QCursor::pos());
}

void TScreen::SetCursorPos(TPoint const &point)
{
    QCursor::setPos(vx_qt_point(point));
}

void TScreen::Grab(TBitmap &picture) const
{
    QScreen const *const primary = QGuiApplication::primaryScreen();
    if (!primary)
        return picture.SetSize(0, 0);
    QRect const desktop = primary->virtualGeometry();
    qreal ratio = 1;
    for (QScreen const *screen : QGuiApplication::screens())
        ratio = std::max(ratio, screen->devicePixelRatio());
    QImage image(desktop.size() * ratio, QImage::Format_RGB32);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::black);
    QPainter painter(&image);
    bool seen = false;
    for (QScreen *screen : QGuiApplication::screens()) {
        QPixmap const part = screen->grabWindow(0);
        if (part.isNull())
            continue;
        seen = true;
        painter.drawPixmap(screen->geometry().translated(-desktop.topLeft()), part);
    }
    if (!seen) {
        // From the first shown to the last one, which is the one on top as far as is known here.
        for (auto form = f_forms.rbegin(); form != f_forms.rend(); ++form) {
            QWidget *const widget = vx_qt_widget(*form);
            if (!widget->isWindow() || !widget->isVisible())
                continue;
            painter.drawPixmap(widget->geometry().topLeft() - desktop.topLeft(), widget->grab());
        }
    }
    painter.end();
    image.setDevicePixelRatio(1);
    vx_set_image(picture, image);
}

void TScreen::add_form(TCustomForm *form)
{
    f_forms.push_back(form);
}

void TScreen::remove_form(TCustomForm *form)
{
    std::erase(f_forms, form);
    if (f_active_form == form)
        f_active_form = nullptr;
}

void TScreen::form_activated(TCustomForm *form)
{
    f_active_form = form;
    std::erase(f_forms, form);
    f_forms.insert(f_forms.begin(), form);
    OnActiveFormChange(this);
}

void TScreen::form_deactivated(TCustomForm *form)
{
    if (f_active_form != form)
        return;
    f_active_form = nullptr;
    OnActiveFormChange(this);
}
