#include "host/offscreen.h"

#include <QByteArray>
#include <QDir>

#include <cstdio>
#include <cstdlib>

namespace {
// The resolution stays the environment's: QT_SCALE_FACTOR multiplies it.
constexpr char c_screen[] = R"({
    "synchronousWindowSystemEvents": false,
    "windowFrameMargins": false,
    "screens": [ { "name": "screen", "x": 0, "y": 0, "width": 1920, "height": 1080,
                   "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1 } ]
})";

char const *program_name = "";

/// Passes messages on, save those of the window system that say what a screen of nobody cannot do.
void write_message(QtMsgType type, QMessageLogContext const &, QString const &text)
{
    bool const of_no_display = text.startsWith("This plugin does not support") ||
                               text.startsWith("QStandardPaths: XDG_RUNTIME_DIR not set");
    if (!of_no_display)
        std::fprintf(stderr, "%s: %s\n", program_name, text.toLocal8Bit().constData());
    if (type == QtFatalMsg)
        std::abort();
}
} // namespace

Tvx_offscreen::Tvx_offscreen(char const *program) : f_screen(QDir::tempPath() + "/vx_screen_XXXXXX.json")
{
    program_name = program;
    qInstallMessageHandler(&write_message);
    QByteArray platform = "offscreen";
    if (f_screen.open() && f_screen.write(c_screen) > 0 && f_screen.flush())
        platform += ":configfile=" + QFile::encodeName(f_screen.fileName());
    qputenv("QT_QPA_PLATFORM", platform);
}
