#include "platform/basic/vx_options.h"

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtCore/qlogging.h>

#include <gtest/gtest.h>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

// Runs the tests of one folder. Windows open on a screen of 1920 by 1080 that nobody sees, and a warning of
// the toolkit fails the test during which it comes.

namespace {
std::mutex g_guard;
std::vector<std::string> g_warnings;

void keep_warning(QtMsgType type, QMessageLogContext const &, QString const &text)
{
    // The screen nobody sees has no window manager to ask, and the machine may have no session.
    if ((type != QtWarningMsg && type != QtCriticalMsg) ||
        text.startsWith(u"This plugin does not support ") ||
        text.startsWith(u"QStandardPaths: XDG_RUNTIME_DIR"))
        return;
    std::lock_guard const lock(g_guard);
    g_warnings.push_back(text.toStdString());
}

class warning_listener final : public testing::EmptyTestEventListener
{
    void OnTestStart(testing::TestInfo const &) override { take(); }
    void OnTestEnd(testing::TestInfo const &) override
    {
        for (std::string const &text : take())
            ADD_FAILURE() << "the toolkit warned: " << text;
    }
    static std::vector<std::string> take()
    {
        std::lock_guard const lock(g_guard);
        return std::exchange(g_warnings, {});
    }
};
} // namespace

int main(int argc, char **argv)
{
    testing::InitGoogleTest(&argc, argv);
    // A developer who wants to look on names another platform.
    QByteArray const platform = qgetenv("QT_QPA_PLATFORM");
    if (platform.isEmpty() || platform == "offscreen")
        qputenv("QT_QPA_PLATFORM",
                "offscreen:configfile=" VX_SOURCE_DIR "/tests/support/offscreen_1920x1080.json");
    qInstallMessageHandler(keep_warning);
    // Tests of plug-ins name theirs; no other test is to meet what lies in a folder of the machine.
    vx_options_set_lr_2d_editor_plugin_mask(nullptr);
    vx_options_set_style_editor_plugin_mask(nullptr);
    testing::UnitTest::GetInstance()->listeners().Append(new warning_listener);
    return RUN_ALL_TESTS();
}
