#include "host/tour_stage.h"

#include "captions/forms.h"
#include "host/layer_editor.h"
#include "host/layer_panel.h"
#include "host/layer_style.h"
#include "host/map_canvas.h"
#include "host/map_window.h"
#include "user_input/user_hand.h"

#include "platform/basic/vx_res.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QMessageBox>
#include <QPainter>
#include <QScreen>
#include <QTabBar>
#include <QTreeView>

#include <algorithm>
#include <cstdio>

namespace hand = vx::user_hand;

namespace {
constexpr int c_title_height = 28;
constexpr int c_message_check_ms = 30;
/// What is seen of the screen round the windows.
constexpr int c_margin = 12;

/// A window with a title bar, which the window system would draw; menus have none. The place that it takes.
QRect draw_window(QPainter &painter, QWidget &window)
{
    QRect const body(window.mapToGlobal(QPoint(0, 0)), window.size());
    if (window.windowType() == Qt::Popup) {
        painter.drawPixmap(body.topLeft(), window.grab());
        return body;
    }
    QRect const title(body.left(), body.top() - c_title_height, body.width(), c_title_height);
    QRect const all = body.united(title).adjusted(-1, -1, 1, 1);
    painter.fillRect(all, QColor(0x4a, 0x55, 0x62));
    painter.setPen(Qt::white);
    QString text = window.windowTitle();
    text.replace("[*]", window.isWindowModified() ? "*" : "");
    painter.drawText(title.adjusted(10, 0, -10, 0), Qt::AlignVCenter | Qt::AlignLeft, text);
    painter.drawPixmap(body.topLeft(), window.grab());
    return all;
}
/// A map or a layout, to which the other windows belong.
bool is_document(QWidget const *window)
{
    return window->objectName() == "map_window" || window->objectName() == "layout_window";
}
} // namespace

Tvx_tour_stage::Tvx_tour_stage(Tvx_map_window &window, QString data_directory, QString picture_directory)
    : f_window(window), f_data(std::move(data_directory)), f_pictures(std::move(picture_directory))
{
    // Nobody else is there to close a message.
    QObject::connect(&f_messages, &QTimer::timeout, [this] { close_message(); });
    f_messages.start(c_message_check_ms);
}

QAbstractButton *Tvx_tour_stage::apply_button()
{
    if (QWidget *editor = editor_window())
        for (auto *button : editor->findChildren<QAbstractButton *>())
            if (button->isVisible() &&
                button->text() == QString::fromWCharArray(vx_res_get_wstr(c_caption_apply)))
                return button;
    check(false, "the editor has no Apply button");
    return nullptr;
}

void Tvx_tour_stage::apply()
{
    if (QAbstractButton *const button = apply_button())
        hand::click(button, button->rect().center());
}

void Tvx_tour_stage::copy_example(QString const &name, QString const &folder)
{
    QStringList const files = QDir(f_data).entryList(
        {name + ".shp", name + ".shx", name + ".dbf", name + ".prj", name + ".cpg", name + "_legend.dbf"});
    check(files.size() >= 4, "no such example: " + name);
    for (QString const &file : files)
        check(QFile::copy(f_data + "/" + file, folder + "/" + file), "cannot copy " + file);
}

void Tvx_tour_stage::close_message()
{
    auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
    if (!box || !box->isVisible())
        return;
    save(box->grab().toImage(), "message");
    if (f_expected_messages > 0)
        --f_expected_messages;
    else
        check(false, box->text().replace("\n\n", " "));
    hand::press(box, Qt::Key_Escape);
}

bool Tvx_tour_stage::open_example(QStringList const &names)
{
    QStringList paths;
    for (QString const &name : names)
        paths.append(f_data + "/" + name);
    vx_layer_restart_default_styles();
    bool const ok = f_window.open_files(paths) >= int(names.size());
    check(ok, "not all opened: " + paths.join(", "));
    return ok;
}

void Tvx_tour_stage::remove_all_layers()
{
    QTreeView *list = f_window.panel().view();
    for (int left = f_window.layers().count(); left > 0; --left) {
        hand::click(list->viewport(), hand::text_of(list, 0));
        hand::press(list, Qt::Key_Delete);
    }
    check(f_window.layers().count() == 0, "Del does not remove the layer");
}

void Tvx_tour_stage::open_properties_of(int row)
{
    QTreeView *list = f_window.panel().view();
    hand::double_click(list->viewport(), hand::text_of(list, row));
    check(f_window.editor().is_showing(), "a double click does not open the properties");
}

QWidget *Tvx_tour_stage::editor_window()
{
    for (QWidget *window : QApplication::topLevelWidgets())
        if (window->isVisible() && !is_document(window) && window->windowType() != Qt::ToolTip &&
            window->windowType() != Qt::Popup)
            return window;
    check(false, "the editor is not on the screen");
    return nullptr;
}

bool Tvx_tour_stage::wait_for_map()
{
    return hand::wait_until([this] { return f_window.canvas().is_settled(); });
}

void Tvx_tour_stage::shoot_map(QString const &name)
{
    check(wait_for_map(), "the map is not drawn in time: " + name);
    save(f_window.grab().toImage(), name);
}

void Tvx_tour_stage::shoot_editor(QString const &name)
{
    QCoreApplication::processEvents();
    QWidget *editor = editor_window();
    if (!editor)
        return;
    for (QTabBar const *bar : editor->findChildren<QTabBar *>())
        for (int i = 0; i < bar->count(); ++i)
            check(!bar->isTabVisible(i) || !bar->tabText(i).isEmpty(), "a tab has no caption: " + name);
    QImage picture(editor->size() + QSize(2, c_title_height + 2), QImage::Format_RGB32);
    QPainter painter(&picture);
    painter.translate(QPoint(1, c_title_height + 1) - editor->mapToGlobal(QPoint(0, 0)));
    draw_window(painter, *editor);
    painter.end();
    save(picture, name);
}

void Tvx_tour_stage::shoot_windows(QString const &name)
{
    check(wait_for_map(), "the map is not drawn in time: " + name);
    QCoreApplication::processEvents();
    // The map lies below its layouts, those below the editor, that below dialogs, of which the last is in
    // front, and menus lie on top.
    QWidgetList windows;
    for (QWidget *window : QApplication::topLevelWidgets())
        if (window->isVisible() && window->windowType() != Qt::ToolTip)
            windows.append(window);
    std::ranges::stable_sort(windows, {}, [this](QWidget const *window) {
        if (window == QApplication::activeModalWidget())
            return 4;
        if (window->windowType() == Qt::Popup)
            return 5;
        return window == &f_window ? 0 : is_document(window) ? 1 : window->isModal() ? 3 : 2;
    });
    QImage picture(f_window.screen()->size(), QImage::Format_RGB32);
    picture.fill(QColor(0x7d, 0x8b, 0x99));
    QPainter painter(&picture);
    QRect taken;
    for (QWidget *window : windows)
        taken |= draw_window(painter, *window);
    painter.end();
    save(picture.copy(taken.adjusted(-c_margin, -c_margin, c_margin, c_margin) & picture.rect()), name);
}

void Tvx_tour_stage::save(QImage const &picture, QString const &name)
{
    QString const path =
        QDir(f_pictures).absoluteFilePath(QString("%1_%2.png").arg(++f_count, 2, 10, QChar('0')).arg(name));
    check(picture.save(path), "cannot write " + path);
    std::puts(QFile::encodeName(path).constData());
}

void Tvx_tour_stage::check(bool ok, QString const &what)
{
    if (ok)
        return;
    ++f_failures;
    std::fprintf(stderr, "vx_map: %s\n", what.toLocal8Bit().constData());
}
