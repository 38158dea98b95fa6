#pragma once

#include "host/layer_panel.h"
#include "host/layer_style.h"
#include "host/map_canvas.h"
#include "host/map_window.h"
#include "user_input/user_hand.h"

#include "platform/basic/vx_options.h"
#include "platform/toolkit/bridge/qt_bridge.h"

#include <QAction>
#include <QApplication>
#include <QMessageBox>
#include <QProcess>
#include <QTimer>
#include <QTreeView>

#include <gtest/gtest.h>
#include <memory>

/// The map's window under test, as a person has it.
namespace vx_test {
namespace hand = vx::user_hand;

/// The window never stands still longer; the sanitizers make everything a few times slower.
#if defined(__SANITIZE_ADDRESS__)
inline constexpr qint64 c_longest_pause_ms = 150;
#else
inline constexpr qint64 c_longest_pause_ms = 50;
#endif
/// A machine with other work may be late a few times.
inline constexpr int c_pause_attempts = 5;

[[nodiscard]] inline QString example_file(char const *name)
{
    return QStringLiteral(VX_EXAMPLE_DATA "/") + name;
}

/// Part of the pixels that are not the map's background.
[[nodiscard]] inline double drawn_part(QImage const &picture)
{
    qint64 drawn = 0;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            drawn += (picture.pixel(x, y) & 0xffffff) != 0xffffff;
    return double(drawn) / (double(picture.width()) * picture.height());
}

/// Closes the messages that open, as a person would, and keeps their texts.
class message_reader
{
public:
    message_reader()
    {
        QObject::connect(&f_timer, &QTimer::timeout, [this] {
            auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
            if (!box)
                return;
            texts.append(box->text());
            hand::press(box, Qt::Key_Escape);
        });
        f_timer.start(5);
    }
    QStringList texts;

private:
    QTimer f_timer;
};

class map_fixture : public testing::Test
{
protected:
    void SetUp() override
    {
        vx_qt_ensure_application();
        vx_options_set_language("en");
        vx_layer_restart_default_styles();
        window = std::make_unique<Tvx_map_window>();
        window->resize(900, 600);
        window->show();
        QCoreApplication::processEvents();
    }

    Tvx_layer_list &layers() { return window->layers(); }
    Tvx_map_canvas &canvas() { return window->canvas(); }
    QTreeView *list() { return window->panel().view(); }
    QImage picture() { return canvas().settled_picture(); }
    void select(int row) { hand::click(list()->viewport(), hand::text_of(list(), row)); }
    void run(char const *command) { window->command(command)->trigger(); }

    int open(std::initializer_list<char const *> names)
    {
        QStringList paths;
        for (char const *name : names)
            paths.append(example_file(name));
        return window->open_files(paths);
    }

    /// Another process opens the map and shows what this window showed, to the pixel; `shots` is a folder
    /// for its pictures.
    void expect_shown_elsewhere(QString const &map, QImage const &shown, QString const &shots)
    {
        QProcess other;
        other.start(QCoreApplication::applicationDirPath() + "/vx_map", {"--headless", "--shot", shots, map});
        ASSERT_TRUE(other.waitForFinished(60000));
        EXPECT_EQ(other.exitCode(), 0) << other.readAllStandardError().toStdString();
        QImage const shot(shots + "/01_map.png");
        QRect const place(canvas().mapTo(window.get(), QPoint()), canvas().size());
        QRect const inside = place.adjusted(2, 2, -2, -2); // without the frame of the focus
        ASSERT_TRUE(shot.rect().contains(inside));
        EXPECT_EQ(shot.copy(inside).convertToFormat(QImage::Format_RGB32),
                  shown.copy(inside.translated(-place.topLeft())).convertToFormat(QImage::Format_RGB32));
    }

    std::unique_ptr<Tvx_map_window> window;
};
} // namespace vx_test
