#include "platform/toolkit/core/overlay_window.h"

#include "platform/toolkit/bridge/qt_graphics.h"
#include "platform/toolkit/bridge/qt_values.h"
#include "platform/toolkit/bridge/qt_widgets.h"
#include "platform/toolkit/graphics/bitmap.h"

#include <QtGui/QBitmap>
#include <QtGui/QPainter>
#include <QtGui/QPixmap>
#include <QtWidgets/QWidget>

namespace {
/// Where the window system can; elsewhere the holes are all that one sees through.
constexpr double c_opacity = 0.7;
} // namespace

class TOverlayWindow::view final : public QWidget
{
public:
    view()
        : QWidget(nullptr, Qt::ToolTip | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint |
                               Qt::WindowTransparentForInput | Qt::WindowDoesNotAcceptFocus |
                               Qt::BypassWindowManagerHint)
    {
        setAttribute(Qt::WA_ShowWithoutActivating);
        setAttribute(Qt::WA_TransparentForMouseEvents);
        setAttribute(Qt::WA_QuitOnClose, false);
        setWindowOpacity(c_opacity);
    }
    void take(QImage const &picture, QColor const &key)
    {
        f_picture = picture;
        resize(picture.size());
        // The holes are cut out of the window, so that they are holes without a compositor too.
        QImage const holes = picture.createMaskFromColor(key.rgb(), Qt::MaskInColor);
        setMask(QBitmap::fromImage(holes));
        update();
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        painter.drawImage(0, 0, f_picture);
    }

private:
    QImage f_picture;
};

TOverlayWindow::TOverlayWindow() = default;
TOverlayWindow::~TOverlayWindow() = default;

void TOverlayWindow::Update(TPoint const &corner, TBitmap const &picture, TColor key)
{
    vx_qt_ensure_application();
    if (!f_view)
        f_view = std::make_unique<view>();
    f_view->take(vx_qt_image(picture).convertToFormat(QImage::Format_ARGB32), vx_qt_color(key));
    f_view->move(corner.X, corner.Y);
    f_view->show();
}

void TOverlayWindow::Move(TPoint const &corner)
{
    if (!f_view)
        return;
    f_view->move(corner.X, corner.Y);
    f_view->show();
}

void TOverlayWindow::Hide()
{
    if (f_view)
        f_view->hide();
}

bool TOverlayWindow::GetVisible() const
{
    return f_view && f_view->isVisible();
}
