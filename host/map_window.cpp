#include "host/map_window.h"

#include "host/captions.h"
#include "host/glyphs.h"
#include "host/layer_editor.h"
#include "host/layer_files.h"
#include "host/layer_info.h"
#include "host/layer_panel.h"
#include "host/layer_scales.h"
#include "host/layer_style.h"
#include "host/map_canvas.h"
#include "host/map_text.h"

#include "platform/basic/vx_options.h"
#include "platform/layers/vx_shp_lr2d.h"
#include "platform/styles/vx_stl_mngr.h"
#include "platform/winapi/file.h"

#include <QActionGroup>
#include <QApplication>
#include <QBuffer>
#include <QCloseEvent>
#include <QComboBox>
#include <QDir>
#include <QDockWidget>
#include <QDropEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QScreen>
#include <QSettings>
#include <QStatusBar>
#include <QToolBar>
#include <QUrl>

namespace {
constexpr int c_recent_files = 10;
constexpr int c_message_ms = 8000;
constexpr double c_button_factor = 1.5;
constexpr int c_editor_gap = 12;
constexpr int c_scales[] = {500,    1000,   2500,    5000,    10000,   25000,    50000,    100000,
                            250000, 500000, 1000000, 2500000, 5000000, 10000000, 50000000, 100000000};

void say(QWidget *parent, QMessageBox::Icon icon, QString const &text)
{
    QMessageBox box(icon, vx_host_caption(c_cap_application), text, QMessageBox::NoButton, parent);
    box.setTextFormat(Qt::PlainText);
    box.setDefaultButton(box.addButton(vx_host_caption(c_cap_ok), QMessageBox::AcceptRole));
    box.exec();
}

/// Text of a menu command without its access key and dots, for hints and small buttons.
QString plain(QString text)
{
    text.remove('&');
    while (text.endsWith('.'))
        text.chop(1);
    return text;
}
} // namespace

Tvx_map_window::Tvx_map_window(QSettings *settings)
    : f_editor(new Tvx_layer_editor(f_layers, this)), f_canvas(new Tvx_map_canvas(f_layers, this)),
      f_settings(settings), f_draw_by(new QMenu(vx_host_caption(c_cap_draw_by), this))
{
    setObjectName(QStringLiteral("map_window"));
    setWindowIcon(vx_host_glyph("app"));
    setAcceptDrops(true);
    resize(1280, 800);
    f_canvas->setObjectName(QStringLiteral("canvas"));
    f_canvas->setAccessibleName(vx_host_caption(c_cap_map));
    setCentralWidget(f_canvas);
    create_commands();
    create_layer_dock();
    create_menus();
    create_tool_bar();
    create_status_bar();
    f_canvas->set_empty_text(vx_host_caption(c_cap_map_empty)
                                 .arg(QKeySequence(QKeySequence::Open).toString(QKeySequence::NativeText)));
    connect_canvas();
    restore_state();
    update_commands();
    update_title();
}

Tvx_map_window::~Tvx_map_window()
{
    // A text that loses the focus reports it, which must come while there is somebody to report to.
    hide();
    // The parts look at the list while they end, so they end before it does.
    delete f_editor;
    delete f_panel;
    delete f_canvas;
}

QAction *Tvx_map_window::command(char const *name) const
{
    if (f_draw_by->menuAction()->objectName() == QLatin1String(name))
        return f_draw_by->menuAction();
    return findChild<QAction *>(QLatin1String(name), Qt::FindDirectChildrenOnly);
}

// ---- building

QAction *Tvx_map_window::add_command(char const *name, int caption, int hint, char const *glyph,
                                     QList<QKeySequence> const &keys)
{
    auto *action = new QAction(vx_host_caption(Tvx_host_caption(caption)), this);
    action->setObjectName(QLatin1String(name));
    action->setIconText(plain(action->text()));
    action->setShortcuts(keys);
    QString tip = hint ? vx_host_caption(Tvx_host_caption(hint)) : plain(action->text());
    action->setStatusTip(hint ? tip : QString());
    if (!keys.isEmpty())
        tip += QStringLiteral(" (%1)").arg(keys.front().toString(QKeySequence::NativeText));
    action->setToolTip(tip);
    if (glyph)
        action->setIcon(vx_host_glyph(glyph));
    return action;
}

void Tvx_map_window::create_commands()
{
    auto const on = [this](QAction *action, auto &&run) { connect(action, &QAction::triggered, this, run); };
    on(add_command("open", c_cap_open, c_cap_hint_open, "open", {QKeySequence::Open}), [this] { on_open(); });
    on(add_command("save_picture", c_cap_save_picture, 0, nullptr, {QKeySequence::Save}),
       [this] { on_save_picture(); });
    on(add_command("quit", c_cap_quit, 0, nullptr, {QKeySequence::Quit}), [this] { close(); });

    auto *tools = new QActionGroup(this);
    QAction *pan = add_command("pan_tool", c_cap_pan_tool, c_cap_hint_pan_tool, "pan", {Qt::Key_F6});
    QAction *box =
        add_command("zoom_box_tool", c_cap_zoom_box_tool, c_cap_hint_zoom_box_tool, "zoom_box", {Qt::Key_F7});
    for (QAction *tool : {pan, box}) {
        tool->setCheckable(true);
        tools->addAction(tool);
    }
    pan->setChecked(true);
    on(pan, [this] { f_canvas->set_tool(Tvx_map_canvas::c_tool_pan); });
    on(box, [this] { f_canvas->set_tool(Tvx_map_canvas::c_tool_zoom_box); });

    on(add_command("zoom_in", c_cap_zoom_in, c_cap_hint_zoom_in, "zoom_in", {QKeySequence::ZoomIn}),
       [this] { f_canvas->zoom_by(c_button_factor); });
    on(add_command("zoom_out", c_cap_zoom_out, c_cap_hint_zoom_out, "zoom_out", {QKeySequence::ZoomOut}),
       [this] { f_canvas->zoom_by(1 / c_button_factor); });
    on(add_command("full_extent", c_cap_full_extent, c_cap_hint_full_extent, "full", {Qt::CTRL | Qt::Key_0}),
       [this] { f_canvas->show_all(); });
    on(add_command("view_back", c_cap_view_back, c_cap_hint_view_back, "back", {QKeySequence::Back}),
       [this] { f_canvas->go_back(); });
    on(add_command("view_forward", c_cap_view_forward, c_cap_hint_view_forward, "forward",
                   {QKeySequence::Forward}),
       [this] { f_canvas->go_forward(); });

    on(add_command("zoom_to_layer", c_cap_zoom_to_layer, c_cap_hint_zoom_to_layer, "zoom_layer",
                   {Qt::CTRL | Qt::Key_L}),
       [this] { f_canvas->show_box(f_layers.extent_at(f_panel->selected_row())); });
    on(add_command("properties", c_cap_properties, c_cap_hint_properties, "properties",
                   {Qt::ALT | Qt::Key_Return, Qt::ALT | Qt::Key_Enter}),
       [this] { on_properties(); });
    on(add_command("style", c_cap_style, c_cap_hint_style, nullptr, {Qt::CTRL | Qt::Key_T}),
       [this] { on_style(); });
    f_draw_by->menuAction()->setObjectName(QStringLiteral("draw_by"));
    f_draw_by->setObjectName(QStringLiteral("draw_by_menu"));
    connect(f_draw_by, &QMenu::aboutToShow, this, [this] { fill_draw_by_menu(); });
    QAction *visible = add_command("visible", c_cap_layer_visible, 0, nullptr, {Qt::CTRL | Qt::Key_H});
    visible->setCheckable(true);
    on(visible, [this](bool checked) { f_layers.set_layer_visible(f_panel->selected_row(), checked); });
    on(add_command("show_all", c_cap_show_all, 0, nullptr, {}), [this] { f_layers.set_all_visible(true); });
    on(add_command("hide_all", c_cap_hide_all, 0, nullptr, {}), [this] { f_layers.set_all_visible(false); });
    on(add_command("move_up", c_cap_move_up, c_cap_hint_move_up, "up", {Qt::CTRL | Qt::Key_Up}),
       [this] { on_move(-1); });
    on(add_command("move_down", c_cap_move_down, c_cap_hint_move_down, "down", {Qt::CTRL | Qt::Key_Down}),
       [this] { on_move(1); });
    on(add_command("move_to_top", c_cap_move_to_top, 0, nullptr, {Qt::CTRL | Qt::SHIFT | Qt::Key_Up}),
       [this] { on_move(-f_layers.count()); });
    on(add_command("move_to_bottom", c_cap_move_to_bottom, 0, nullptr, {Qt::CTRL | Qt::SHIFT | Qt::Key_Down}),
       [this] { on_move(f_layers.count()); });
    QAction *remove =
        add_command("remove", c_cap_remove, c_cap_hint_remove, "remove", {QKeySequence::Delete});
    // Del pressed over the map, or in a text, must not take a layer away.
    remove->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    on(remove, [this] { f_layers.remove(f_panel->selected_row()); });

    on(add_command("shortcuts", c_cap_shortcuts, 0, nullptr, {QKeySequence::HelpContents}),
       [this] { on_shortcuts(); });
    on(add_command("about", c_cap_about, 0, nullptr, {}), [this] { on_about(); });
}

void Tvx_map_window::create_menus()
{
    auto const menu = [this](Tvx_host_caption caption, QList<char const *> const &names) {
        QMenu *made = menuBar()->addMenu(vx_host_caption(caption));
        for (char const *name : names) {
            if (name)
                made->addAction(command(name));
            else
                made->addSeparator();
        }
        return made;
    };
    QMenu *file = menu(c_cap_menu_file, {"open", nullptr, "save_picture", nullptr, "quit"});
    f_recent = new QMenu(vx_host_caption(c_cap_menu_recent), file);
    file->insertMenu(file->actions().at(1), f_recent);
    connect(f_recent, &QMenu::aboutToShow, this, [this] { fill_recent_menu(); });
    QMenu *view = menu(c_cap_menu_view, {"pan_tool", "zoom_box_tool", nullptr, "zoom_in", "zoom_out",
                                         "full_extent", nullptr, "view_back", "view_forward", nullptr});
    view->setObjectName(QStringLiteral("view_menu"));
    QAction *layers = findChild<QDockWidget *>()->toggleViewAction();
    layers->setText(vx_host_caption(c_cap_show_layers));
    view->addAction(layers);
    menu(c_cap_menu_layer,
         {"properties", "style", "draw_by", "zoom_to_layer", nullptr, "visible", "show_all", "hide_all",
          nullptr, "move_up", "move_down", "move_to_top", "move_to_bottom", nullptr, "remove"});
    menu(c_cap_menu_help, {"shortcuts", nullptr, "about"});
}

void Tvx_map_window::create_tool_bar()
{
    QToolBar *bar = addToolBar(vx_host_caption(c_cap_tools));
    bar->setObjectName(QStringLiteral("tools"));
    bar->setIconSize({22, 22});
    for (char const *name : {"open", "", "pan_tool", "zoom_box_tool", "zoom_in", "zoom_out", "full_extent",
                             "zoom_to_layer", "", "view_back", "view_forward", "", "properties"}) {
        if (*name)
            bar->addAction(command(name));
        else
            bar->addSeparator();
    }
    bar->toggleViewAction()->setText(vx_host_caption(c_cap_show_tools));
    if (auto *view = menuBar()->findChild<QMenu *>(QStringLiteral("view_menu")))
        view->addAction(bar->toggleViewAction());
}

void Tvx_map_window::create_layer_dock()
{
    auto *dock = new QDockWidget(vx_host_caption(c_cap_layers), this);
    dock->setObjectName(QStringLiteral("layer_dock"));
    dock->setAllowedAreas(Qt::LeftDockWidgetArea | Qt::RightDockWidgetArea);
    f_panel = new Tvx_layer_panel(f_layers, dock);
    f_panel->setMinimumWidth(200);
    dock->setWidget(f_panel);
    addDockWidget(Qt::LeftDockWidgetArea, dock);
    resizeDocks({dock}, {260}, Qt::Horizontal);
    f_panel->set_commands({command("properties"), command("style"), command("draw_by"),
                           command("zoom_to_layer"), nullptr, command("visible"), command("show_all"),
                           command("hide_all"), nullptr, command("move_up"), command("move_down"),
                           command("move_to_top"), command("move_to_bottom"), nullptr, command("remove")},
                          {command("properties"), command("zoom_to_layer"), command("move_up"),
                           command("move_down"), command("remove")});
    connect(f_panel, &Tvx_layer_panel::selection_changed, this, &Tvx_map_window::on_selection_changed);
    connect(f_panel, &Tvx_layer_panel::activated, this, &Tvx_map_window::on_properties);
    connect(f_panel, &Tvx_layer_panel::sample_activated, this, &Tvx_map_window::on_sample_activated);
    connect(&f_layers, &Tvx_layer_list::picture_changed, this, [this] {
        update_commands();
        update_scale();
        update_title();
    });
    connect(f_editor, &Tvx_layer_editor::applied, this, [this](int id) {
        show_message(vx_host_caption(c_cap_status_applied).arg(f_layers.name_at(f_layers.row_of(id))));
    });
}

void Tvx_map_window::create_status_bar()
{
    f_activity = new QLabel;
    f_coordinates = new QLabel;
    f_coordinates->setObjectName(QStringLiteral("coordinates"));
    f_coordinates->setToolTip(vx_host_caption(c_cap_hint_coordinates));
    f_coordinates->setContentsMargins(0, 0, 12, 0);
    f_coordinates->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    f_coordinates->setMinimumWidth(
        fontMetrics().horizontalAdvance(QStringLiteral("-000000000.000   -000000000.000")));
    f_scale = new QComboBox;
    f_scale->setObjectName(QStringLiteral("scale"));
    f_scale->setEditable(true);
    f_scale->setInsertPolicy(QComboBox::NoInsert);
    f_scale->setCompleter(nullptr);
    f_scale->setAccessibleName(vx_host_caption(c_cap_scale));
    f_scale->setToolTip(vx_host_caption(c_cap_hint_scale));
    f_scale->setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("1 : 0 000 000 000")) + 40);
    for (int const scale : c_scales)
        f_scale->addItem(vx_map_text_scale(scale));
    auto *scale_label = new QLabel(vx_host_caption(c_cap_scale));
    scale_label->setBuddy(f_scale);
    statusBar()->addPermanentWidget(f_activity);
    statusBar()->addPermanentWidget(f_coordinates);
    statusBar()->addPermanentWidget(scale_label);
    statusBar()->addPermanentWidget(f_scale);
    connect(f_scale, &QComboBox::activated, this, &Tvx_map_window::on_scale_entered);
    connect(f_scale->lineEdit(), &QLineEdit::returnPressed, this, &Tvx_map_window::on_scale_entered);
    connect(f_scale->lineEdit(), &QLineEdit::editingFinished, this, &Tvx_map_window::update_scale);
}

void Tvx_map_window::connect_canvas()
{
    connect(f_canvas, &Tvx_map_canvas::view_changed, this, &Tvx_map_window::update_scale);
    connect(f_canvas, &Tvx_map_canvas::history_changed, this, &Tvx_map_window::update_commands);
    connect(f_canvas, &Tvx_map_canvas::pointer_moved, this, &Tvx_map_window::on_pointer_moved);
    connect(f_canvas, &Tvx_map_canvas::pointer_left, f_coordinates, &QLabel::clear);
    connect(f_canvas, &Tvx_map_canvas::busy_changed, this, [this](bool busy) {
        f_activity->setText(busy ? vx_host_caption(c_cap_status_drawing) : QString());
    });
    connect(f_canvas, &Tvx_map_canvas::layer_failed, this, [this](int id) {
        show_message(vx_host_caption(c_cap_err_draw).arg(f_layers.name_at(f_layers.row_of(id))));
    });
}

// ---- state between sessions

void Tvx_map_window::restore_state()
{
    if (!f_settings)
        return;
    restoreGeometry(f_settings->value("window/geometry").toByteArray());
    restoreState(f_settings->value("window/state").toByteArray());
    f_last_directory = f_settings->value("files/directory").toString();
}

void Tvx_map_window::save_state()
{
    if (!f_settings)
        return;
    f_settings->setValue("window/geometry", saveGeometry());
    f_settings->setValue("window/state", saveState());
    f_settings->setValue("files/directory", f_last_directory);
}

void Tvx_map_window::remember_file(QString const &path)
{
    if (!f_settings)
        return;
    QStringList files = f_settings->value("files/recent").toStringList();
    files.removeAll(path);
    files.prepend(path);
    f_settings->setValue("files/recent", files.mid(0, c_recent_files));
}

void Tvx_map_window::fill_recent_menu()
{
    f_recent->clear();
    QStringList const files = f_settings ? f_settings->value("files/recent").toStringList() : QStringList();
    for (QString const &file : files) {
        QString text = QDir::toNativeSeparators(file);
        QAction *action = f_recent->addAction(text.replace('&', "&&"));
        connect(action, &QAction::triggered, this, [this, file] { open_files({file}); });
    }
    if (files.isEmpty()) {
        f_recent->addAction(vx_host_caption(c_cap_recent_none))->setEnabled(false);
        return;
    }
    f_recent->addSeparator();
    connect(f_recent->addAction(vx_host_caption(c_cap_recent_clear)), &QAction::triggered, this,
            [this] { f_settings->remove("files/recent"); });
}

void Tvx_map_window::fill_draw_by_menu()
{
    f_draw_by->clear();
    Ivx_layer *const layer = f_layers.layer_at(f_panel->selected_row());
    auto const add = [this](QString const &text, bool checked) {
        QAction *action = f_draw_by->addAction(text);
        action->setCheckable(true);
        action->setChecked(checked);
        return action;
    };
    connect(add(vx_host_caption(c_cap_draw_by_one_style), vx_layer_is_drawn_simple(layer)),
            &QAction::triggered, this, [this] { on_draw_by(nullptr); });
    f_draw_by->addSeparator();
    std::vector<Tvx_layer_scale> const scales = vx_layer_scales_find(layer);
    if (scales.empty())
        f_draw_by->addAction(vx_host_caption(c_cap_draw_by_none))->setEnabled(false);
    for (Tvx_layer_scale const &scale : scales) {
        Tvx_host_caption const text = scale.mode == c_stl_mngr_mode_value   ? c_cap_draw_by_values
                                      : scale.mode == c_stl_mngr_mode_range ? c_cap_draw_by_ranges
                                                                            : c_cap_draw_by_rules;
        QString const field = QString::fromStdWString(scale.field).replace('&', "&&");
        connect(add(vx_host_caption(text).arg(field), vx_layer_is_drawn_by(layer, scale)),
                &QAction::triggered, this, [this, scale] { on_draw_by(&scale); });
    }
}

void Tvx_map_window::closeEvent(QCloseEvent *event)
{
    save_state();
    f_editor->close();
    event->accept();
}

// ---- files and layers

int Tvx_map_window::open_files(QStringList const &paths)
{
    bool const first = f_layers.count() == 0;
    std::vector<Tvx_failed_file> failed;
    int opened = 0;
    QApplication::setOverrideCursor(Qt::WaitCursor);
    for (QString const &path : paths) {
        show_message(vx_host_caption(c_cap_status_loading).arg(QFileInfo(path).fileName()));
        Tvx_opened_file file = vx_layer_files_open(path);
        if (file.layers.empty()) {
            failed.push_back({path, file.error});
            continue;
        }
        for (auto &layer : file.layers) {
            f_panel->select_id(f_layers.add(std::move(layer.layer), layer.unit));
            ++opened;
        }
        if (vx_layer_files_is_server(path))
            continue; // it may hold a password
        f_last_directory = QFileInfo(path).absolutePath();
        remember_file(QFileInfo(path).absoluteFilePath());
    }
    QApplication::restoreOverrideCursor();
    statusBar()->clearMessage();
    if (opened > 0 && first)
        f_canvas->show_all();
    if (opened > 0)
        tell_about_top_layer();
    if (!failed.empty())
        say(this, QMessageBox::Warning, vx_layer_files_message(failed));
    return opened;
}

void Tvx_map_window::tell_about_top_layer()
{
    QString const name = f_layers.name_at(0);
    Tvx_box_d2 const extent = f_layers.extent_at(0);
    Tvx_host_caption text = c_cap_status_opened;
    if (!vx_layer_is_drawn(f_layers.layer_at(0)))
        text = c_cap_status_raster;
    else if (f_layers.is_of_other_unit(0))
        text = c_cap_status_other_unit;
    else if (!extent.is_empty() && !extent.intersects(f_canvas->view().box()))
        text = c_cap_status_outside;
    show_message(vx_host_caption(text).arg(name));
}

int Tvx_map_window::add_layer(Tvx_layer_list::layer_ptr layer)
{
    int const id = f_layers.add(std::move(layer));
    f_panel->select_id(id);
    return id;
}

void Tvx_map_window::dragEnterEvent(QDragEnterEvent *event)
{
    if (event->mimeData()->hasUrls())
        event->acceptProposedAction();
}

void Tvx_map_window::dropEvent(QDropEvent *event)
{
    QStringList files;
    for (QUrl const &url : event->mimeData()->urls())
        if (url.isLocalFile())
            files.append(url.toLocalFile());
    event->acceptProposedAction();
    // The message about a broken file must not hold up the program that the files came from.
    QMetaObject::invokeMethod(
        this, [this, files] { open_files(files); }, Qt::QueuedConnection);
}

void Tvx_map_window::on_open()
{
    QStringList const files = QFileDialog::getOpenFileNames(this, vx_host_caption(c_cap_open_title),
                                                            f_last_directory, vx_layer_files_dialog_filter());
    if (!files.isEmpty())
        open_files(files);
}

void Tvx_map_window::on_save_picture()
{
    QString path =
        QFileDialog::getSaveFileName(this, vx_host_caption(c_cap_save_picture_title), f_last_directory,
                                     vx_host_caption(c_cap_filter_png) + " (*.png)");
    if (path.isEmpty())
        return;
    if (QFileInfo(path).suffix().isEmpty())
        path += ".png";
    QByteArray bytes;
    QBuffer buffer(&bytes);
    std::wstring reason;
    bool const written =
        buffer.open(QIODevice::WriteOnly) && f_canvas->settled_picture().save(&buffer, "png");
    if (written &&
        vx_save_atomic(path.toStdWString(), {bytes.constData(), std::size_t(bytes.size())}, reason))
        show_message(vx_host_caption(c_cap_status_saved).arg(QDir::toNativeSeparators(path)));
    else
        say(this, QMessageBox::Warning,
            vx_host_caption(c_cap_err_save_picture)
                .arg(QDir::toNativeSeparators(path), QString::fromStdWString(reason)));
}

void Tvx_map_window::on_properties()
{
    // Beside the map where the screen has room for it; the editor itself keeps inside the screen's right
    // edge.
    f_editor->open(f_panel->selected_id(), frameGeometry().topRight() + QPoint(c_editor_gap, 0));
}

void Tvx_map_window::on_style()
{
    int const id = f_panel->selected_id();
    Tvx_layer_list::layer_ptr copy(vx_lr2d_clone(f_layers.layer_at(f_panel->selected_row())));
    QPoint const at = f_panel->sample_corner(id);
    if (vx_layer_style_dialog(copy.get(), at.x(), at.y()))
        take_over(id, std::move(copy));
}

void Tvx_map_window::on_draw_by(Tvx_layer_scale const *scale)
{
    int const id = f_panel->selected_id();
    Tvx_layer_list::layer_ptr copy(vx_lr2d_clone(f_layers.layer_at(f_panel->selected_row())));
    if (scale ? vx_layer_draw_by(copy.get(), *scale) : vx_layer_draw_simple(copy.get()))
        take_over(id, std::move(copy));
    else if (scale)
        say(this, QMessageBox::Warning,
            vx_host_caption(c_cap_err_scale)
                .arg(QDir::toNativeSeparators(QString::fromStdWString(scale->file))));
}

void Tvx_map_window::take_over(int id, Tvx_layer_list::layer_ptr layer)
{
    if (!f_layers.replace(id, std::move(layer)))
        return;
    f_editor->refresh(id);
    show_message(vx_host_caption(c_cap_status_applied).arg(f_layers.name_at(f_layers.row_of(id))));
}

void Tvx_map_window::on_sample_activated(int id)
{
    f_panel->select_id(id);
    // A layer without one style for all its objects has its styles in the properties.
    if (vx_layer_has_style_dialog(f_layers.layer_at(f_layers.row_of(id))))
        on_style();
    else
        on_properties();
}

void Tvx_map_window::on_move(int by)
{
    int const row = f_panel->selected_row();
    if (row >= 0)
        f_layers.move(row, std::clamp(row + by, 0, f_layers.count() - 1));
}

// ---- what the window tells

void Tvx_map_window::on_selection_changed(int id)
{
    f_editor->follow(id);
    update_commands();
    update_title();
}

void Tvx_map_window::on_pointer_moved(double x, double y)
{
    if (f_layers.count() > 0)
        f_coordinates->setText(vx_map_text_coordinates({x, y}, f_canvas->view(), f_layers.map_unit()));
}

void Tvx_map_window::on_scale_entered()
{
    std::optional<double> const scale = vx_map_text_parse_scale(f_scale->currentText());
    if (scale)
        f_canvas->set_units_per_pixel(vx_map_scale_to_units_per_pixel(
            *scale, f_canvas->view(), f_layers.map_unit(), vx_options_get_mm2px_x()));
    update_scale();
    f_canvas->setFocus();
}

void Tvx_map_window::update_scale()
{
    bool const any = f_layers.count() > 0;
    f_scale->setEnabled(any);
    double const scale = vx_map_scale(f_canvas->view(), f_layers.map_unit(), vx_options_get_mm2px_x());
    f_scale->setEditText(any ? vx_map_text_scale(scale) : QString());
}

void Tvx_map_window::update_commands()
{
    int const row = f_panel ? f_panel->selected_row() : -1;
    int const count = f_layers.count();
    auto const enable = [this](bool on, std::initializer_list<char const *> names) {
        for (char const *name : names)
            command(name)->setEnabled(on);
    };
    enable(count > 0, {"save_picture", "zoom_in", "zoom_out", "full_extent", "show_all", "hide_all"});
    enable(row >= 0, {"properties", "visible", "remove"});
    enable(vx_lr2d_is_shp(f_layers.layer_at(row)), {"draw_by"});
    enable(vx_layer_has_style_dialog(f_layers.layer_at(row)), {"style"});
    enable(!f_layers.extent_at(row).is_empty(), {"zoom_to_layer"});
    enable(row > 0, {"move_up", "move_to_top"});
    enable(row >= 0 && row + 1 < count, {"move_down", "move_to_bottom"});
    enable(f_canvas->can_go_back(), {"view_back"});
    enable(f_canvas->can_go_forward(), {"view_forward"});
    command("visible")->setChecked(f_layers.is_visible(row));
}

void Tvx_map_window::update_title()
{
    QString const name = f_layers.name_at(f_panel->selected_row());
    setWindowTitle(name.isEmpty() ? vx_host_caption(c_cap_application)
                                  : vx_host_caption(c_cap_window_title).arg(name));
}

void Tvx_map_window::show_message(QString const &text)
{
    statusBar()->showMessage(text, c_message_ms);
}

void Tvx_map_window::on_about()
{
    say(this, QMessageBox::Information, vx_host_caption(c_cap_about_text));
}

void Tvx_map_window::on_shortcuts()
{
    say(this, QMessageBox::Information, vx_host_caption(c_cap_shortcuts_text));
}
