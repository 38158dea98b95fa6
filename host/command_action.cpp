#include "host/command_action.h"

#include "host/glyphs.h"

#include <QAction>
#include <QMenu>

namespace {
/// Text of a menu command without its access key and dots, for hints and small buttons.
QString plain(QString text)
{
    text.remove('&');
    while (text.endsWith('.'))
        text.chop(1);
    return text;
}
} // namespace

QAction *vx_command_action(Tvx_command_face const &face, QWidget *window)
{
    QAction *const action =
        face.opens_menu ? (new QMenu(face.text, window))->menuAction() : new QAction(face.text, window);
    action->setObjectName(QLatin1String(face.name));
    action->setIconText(plain(face.text));
    action->setShortcuts(face.keys);
    action->setStatusTip(face.hint);
    QString tip = face.hint.isEmpty() ? plain(face.text) : face.hint;
    if (!face.keys.isEmpty())
        tip += QStringLiteral(" (%1)").arg(face.keys.front().toString(QKeySequence::NativeText));
    action->setToolTip(tip);
    if (face.glyph)
        action->setIcon(vx_host_glyph(face.glyph));
    return action;
}
