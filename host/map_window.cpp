#include "host/map_window.h"

#include "host/captions.h"
#include "host/end_signals.h"
#include "host/glyphs.h"
#include "host/identify_panel.h"
#include "host/kept_map.h"
#include "host/layer_editor.h"
#include "host/layer_files.h"
#include "host/layer_info.h"
#include "host/layer_labels.h"
#include "host/layer_panel.h"
#include "host/layer_scales.h"
#include "host/layer_steps.h"
#include "host/layer_style.h"
#include "host/map_canvas.h"
#include "host/map_layouts.h"
#include "host/map_scene.h"
#include "host/map_text.h"
#include "host/message.h"
#include "host/opening_progress.h"
#include "host/property_import.h"
#include "host/selection_overlay.h"

#include "platform/basic/vx_fault.h"
#include "platform/basic/vx_options.h"
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
#include <QMenu>
#include <QMessageBox>
#include <QMimeData>
#include <QScreen>
#include <QSettings>
#include <QStatusBar>
#include <QUrl>

namespace {
constexpr int c_recent_files = 10;
constexpr int c_message_ms = 8000;
constexpr int c_editor_gap = 12;
constexpr int c_title_room = 40; ///< what the title bar takes of the screen
constexpr int c_scales[] = {500,    1000,   2500,    5000,    10000,   25000,    50000,    100000,
                            250000, 500000, 1000000, 2500000, 5000000, 10000000, 50000000, 100000000};
} // namespace

Tvx_map_window::Tvx_map_window(QSettings *settings)
    : f_steps(std::make_unique<Tvx_layer_steps>(f_layers)), f_editor(new Tvx_layer_editor(f_layers, this)),
      f_canvas(new Tvx_map_canvas(f_layers, this)), f_settings(settings)
{
    setObjectName(QStringLiteral("map_window"));
    setWindowIcon(vx_host_glyph("app"));
    setAcceptDrops(true);
    // The frame of the window needs room too.
    resize(QSize(1280, 800).boundedTo(screen()->availableSize() - QSize(0, c_title_room)));
    // Messages of the library name the program as its window does.
    QGuiApplication::setApplicationDisplayName(vx_host_caption(c_cap_application));
    f_canvas->setObjectName(QStringLiteral("canvas"));
    f_canvas->setAccessibleName(vx_host_caption(c_cap_map));
    setCentralWidget(f_canvas);
    f_page_layouts = std::make_unique<Tvx_map_layouts>(*this);
    create_commands();
    create_layer_dock();
    create_identify_dock();
    create_menus();
    create_tool_bar();
    create_status_bar();
    f_canvas->set_empty_text(vx_host_caption(c_cap_map_empty)
                                 .arg(QKeySequence(QKeySequence::Open).toString(QKeySequence::NativeText)));
    connect_canvas();
    connect_objects();
    watch_changes();
    connect(f_steps.get(), &Tvx_layer_steps::changed, this, &Tvx_map_window::update_commands);
    restore_state();
    for (QDockWidget *const dock : {f_layer_dock, f_identify_dock})
        connect(dock, &QDockWidget::dockLocationChanged, this, &Tvx_map_window::order_stops);
    order_stops();
    update_commands();
    update_title();
}

Tvx_map_window::~Tvx_map_window()
{
    // A text that loses the focus reports it, which must come while there is somebody to report to.
    hide();
    f_end_signals.reset();
    f_kept.reset();
    // The parts look at the list while they end, so they end before it does.
    f_page_layouts.reset();
    f_tables.clear();
    delete f_identify_dock;
    delete f_editor;
    delete f_panel;
    delete f_canvas;
}

int Tvx_map_window::selected_row() const
{
    return f_panel ? f_panel->selected_row() : -1;
}

// ---- building

void Tvx_map_window::create_layer_dock()
{
    f_layer_dock = new QDockWidget(vx_host_caption(c_cap_layers), this);
    f_layer_dock->setObjectName(QStringLiteral("layer_dock"));
    f_layer_dock->setAllowedAreas(Qt::LeftDockWidgetArea | Qt::RightDockWidgetArea);
    f_panel = new Tvx_layer_panel(f_layers, f_layer_dock);
    f_panel->setMinimumWidth(200);
    f_layer_dock->setWidget(f_panel);
    addDockWidget(Qt::LeftDockWidgetArea, f_layer_dock);
    resizeDocks({f_layer_dock}, {260}, Qt::Horizontal);
    give_commands_to_panel();
    connect(f_panel, &Tvx_layer_panel::selection_changed, this, &Tvx_map_window::on_selection_changed);
    connect(f_panel, &Tvx_layer_panel::activated, this, &Tvx_map_window::on_properties);
    connect(f_panel, &Tvx_layer_panel::sample_activated, this, &Tvx_map_window::on_sample_activated);
    connect(&f_layers, &Tvx_layer_list::class_changed, f_editor, &Tvx_layer_editor::take_class);
    connect(f_editor, &Tvx_layer_editor::stayed, f_panel, &Tvx_layer_panel::select_id);
    connect(&f_layers, &Tvx_layer_list::layer_renamed, this, [this](int id) {
        f_editor->take_name(id);
        update_title();
    });
    connect(&f_layers, &Tvx_layer_list::picture_changed, this, [this] {
        update_commands();
        update_scale();
        update_title();
    });
    connect(f_editor, &Tvx_layer_editor::applied, this, [this](int id) {
        show_message(vx_host_caption(c_cap_status_applied).arg(f_layers.name_at(f_layers.row_of(id))));
    });
}

void Tvx_map_window::order_stops()
{
    // From left to right, then what lies below.
    struct room
    {
        int place;
        QWidget *widget;
    };
    auto const place_of = [this](QDockWidget *dock) {
        return dockWidgetArea(dock) == Qt::RightDockWidgetArea ? 2 : 0;
    };
    std::vector<room> rooms{
        {place_of(f_layer_dock), f_layer_dock}, {1, f_canvas}, {place_of(f_identify_dock), f_identify_dock}};
    for (table_dock const &table : std::as_const(f_tables))
        rooms.push_back({dockWidgetArea(table.dock) == Qt::TopDockWidgetArea ? -1 : 3, table.dock});
    rooms.push_back({4, statusBar()});
    std::ranges::stable_sort(rooms, {}, &room::place);
    QWidget *before = nullptr;
    for (auto const &[place, widget] : rooms) {
        if (widget->window() != this) // a dock that floats has an order of its own
            continue;
        QWidgetList stops;
        QWidget *w = widget;
        do {
            bool const inside = w == widget || widget->isAncestorOf(w);
            if (inside && (w->focusPolicy() & Qt::TabFocus) == Qt::TabFocus && !w->focusProxy())
                stops.append(w);
        } while ((w = w->nextInFocusChain()) != widget);
        for (QWidget *const stop : std::as_const(stops)) {
            if (before)
                setTabOrder(before, stop);
            before = stop;
        }
    }
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
        f_layers.set_damaged(id);
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
    QMenu *const menu = command("recent")->menu();
    menu->clear();
    QStringList const files = f_settings ? f_settings->value("files/recent").toStringList() : QStringList();
    for (QString const &file : files) {
        QString text = QDir::toNativeSeparators(file);
        QAction *action = menu->addAction(text.replace('&', "&&"));
        connect(action, &QAction::triggered, this, [this, file] { open_files({file}); });
    }
    if (files.isEmpty()) {
        menu->addAction(vx_host_caption(c_cap_recent_none))->setEnabled(false);
        return;
    }
    menu->addSeparator();
    connect(menu->addAction(vx_host_caption(c_cap_recent_clear)), &QAction::triggered, this,
            [this] { f_settings->remove("files/recent"); });
}

void Tvx_map_window::fill_draw_by_menu()
{
    QMenu *const menu = command("draw_by")->menu();
    menu->clear();
    delete menu->findChild<QActionGroup *>(QString(), Qt::FindDirectChildrenOnly);
    auto *const group = new QActionGroup(menu);
    Ivx_layer *const layer = f_layers.layer_at(f_panel->selected_row());
    auto const add = [menu, group](QString const &text, bool checked) {
        QAction *action = menu->addAction(text);
        action->setCheckable(true);
        action->setActionGroup(group);
        action->setChecked(checked);
        return action;
    };
    connect(add(vx_host_caption(c_cap_draw_by_one_style), vx_layer_is_drawn_simple(layer)),
            &QAction::triggered, this, [this] { on_draw_by(nullptr); });
    menu->addSeparator();
    std::vector<Tvx_layer_scale> const scales = vx_layer_scales_find(layer);
    if (scales.empty())
        menu->addAction(vx_host_caption(c_cap_draw_by_none))->setEnabled(false);
    for (Tvx_layer_scale const &scale : scales) {
        Tvx_host_caption const text = scale.mode == c_stl_mngr_mode_value   ? c_cap_draw_by_values
                                      : scale.mode == c_stl_mngr_mode_range ? c_cap_draw_by_ranges
                                                                            : c_cap_draw_by_rules;
        QString const field = QString::fromStdWString(scale.field).replace('&', "&&");
        bool const checked =
            vx_layer_is_drawn_by(layer, scale) ||
            (vx_layer_is_drawn_by_rules(layer) && f_rule_files.value(f_panel->selected_id()) == scale.file);
        connect(add(vx_host_caption(text).arg(field), checked), &QAction::triggered, this,
                [this, scale] { on_draw_by(&scale); });
    }
}

void Tvx_map_window::closeEvent(QCloseEvent *event)
{
    if (f_opening) {
        // What is being opened ends first, which is soon.
        f_opening->cancel();
        f_closes_after_opening = true;
        event->ignore();
        return;
    }
    if (!f_is_given_up && !may_lose_changes()) {
        event->ignore();
        return;
    }
    if (f_kept)
        f_kept->forget();
    save_state();
    f_editor->close();
    f_page_layouts->close_windows();
    event->accept();
}

// ---- files and layers

int Tvx_map_window::open_files(QStringList const &paths)
{
    std::vector<Tvx_failed_file> failed;
    std::vector<Tvx_failed_file> unclosed;
    int opened = 0;
    // A saved map comes first, whatever its place: it takes the layers off that were there.
    auto const scene = std::ranges::find_if(paths, &vx_map_scene_is_name);
    if (scene != paths.end()) {
        if (!may_lose_changes())
            return 0;
        opened = open_scene(*scene, failed).value_or(0);
    }
    bool const first = f_layers.count() == 0;
    QApplication::setOverrideCursor(Qt::WaitCursor);
    auto progress = begin_opening();
    for (QString const &path : paths) {
        if (f_closes_after_opening)
            break;
        if (scene != paths.end() && path == *scene)
            continue;
        if (vx_map_scene_is_name(path)) {
            failed.push_back({path, vx_map_caption(c_map_err_one_scene)});
            continue;
        }
        QString const text = vx_host_caption(c_cap_status_loading).arg(vx_layer_files_name(path));
        show_message(text);
        progress->set_text(text);
        Tvx_opened_file file = vx_layer_files_open(path);
        if (progress->is_cancelled())
            break;
        if (file.layers.empty()) {
            (vx_layer_files_wants_repair(file.error) ? unclosed : failed).push_back({path, file.error});
            continue;
        }
        for (auto &layer : file.layers) {
            int const id = f_layers.add(std::move(layer.layer), layer.unit);
            if (!layer.flaw.isEmpty())
                f_layers.set_damaged(id, c_mark_damaged, layer.flaw);
            f_panel->select_id(id);
            ++opened;
        }
        if (vx_layer_files_is_server(path))
            continue; // it may hold a password
        f_last_directory = QFileInfo(path).absolutePath();
        remember_file(QFileInfo(path).absoluteFilePath());
    }
    progress.reset();
    QApplication::restoreOverrideCursor();
    statusBar()->clearMessage();
    if (std::exchange(f_closes_after_opening, false) && close())
        return opened;
    if (opened > 0 && first) {
        f_canvas->show_all();
        f_canvas->forget_steps();
    }
    if (scene != paths.end() && opened > 0)
        show_message(vx_map_caption(c_map_status_scene_opened).arg(scene_name()));
    else if (opened > 0)
        tell_about_top_layer();
    QStringList repaired;
    for (auto const &[path, reason] : unclosed)
        if (may_repair(path)) {
            QString const problem = vx_layer_files_repair(path);
            if (problem.isEmpty())
                repaired.push_back(path);
            else
                failed.push_back({path, problem});
        }
    if (!failed.empty())
        vx_say(this, QMessageBox::Warning, vx_layer_files_message(failed), vx_layer_files_details(failed));
    return repaired.isEmpty() ? opened : opened + open_files(repaired);
}

bool Tvx_map_window::may_repair(QString const &path)
{
    QMessageBox box(QMessageBox::Question, vx_host_caption(c_cap_application),
                    vx_map_caption(c_map_repair_question).arg(vx_layer_files_name(path)),
                    QMessageBox::NoButton, this);
    box.setTextFormat(Qt::PlainText);
    QPushButton *const repair = box.addButton(vx_map_caption(c_map_repair_yes), QMessageBox::AcceptRole);
    QPushButton *const cancel = box.addButton(vx_host_caption(c_cap_cancel), QMessageBox::RejectRole);
    repair->setObjectName(QStringLiteral("repair"));
    box.setDefaultButton(repair);
    box.setEscapeButton(cancel);
    box.exec();
    return box.clickedButton() == repair;
}

std::unique_ptr<Tvx_opening_progress> Tvx_map_window::begin_opening()
{
    auto progress = std::make_unique<Tvx_opening_progress>(this, command("quit"));
    f_opening = progress.get();
    return progress;
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

void Tvx_map_window::on_import_properties()
{
    QStringList const paths = QFileDialog::getOpenFileNames(this, vx_map_caption(c_map_import_sources),
                                                            f_last_directory, vx_layer_files_import_filter());
    if (paths.isEmpty())
        return;
    QFileInfo const first(paths.front());
    QString target = QFileDialog::getSaveFileName(this, vx_map_caption(c_map_import_target),
                                                  first.dir().filePath(first.completeBaseName() + ".tos4"),
                                                  vx_map_caption(c_map_filter_property) + " (*.tos4)");
    if (target.isEmpty())
        return;
    if (QFileInfo(target).suffix().isEmpty())
        target += ".tos4";
    if (import_properties(paths, target, c_import_makes) && open_files({target}) > 0)
        show_message(vx_map_caption(c_map_status_imported).arg(QDir::toNativeSeparators(target)));
}

void Tvx_map_window::on_add_properties()
{
    std::wstring name;
    vx_lr2d_get_wfilename(f_layers.layer_at(selected_row()), Tvx_std_wstring_adapter(name));
    QString const target = QString::fromStdWString(name);
    QStringList const paths = QFileDialog::getOpenFileNames(this, vx_map_caption(c_map_add_sources),
                                                            f_last_directory, vx_layer_files_import_filter());
    if (!paths.isEmpty() && import_properties(paths, target, c_import_adds))
        show_message(vx_map_caption(c_map_status_added).arg(QDir::toNativeSeparators(target)));
}

bool Tvx_map_window::import_properties(QStringList const &paths, QString const &target, Tvx_import_way way)
{
    QString const name = QFileInfo(target).fileName();
    auto progress = begin_opening();
    auto const tell = [&](int percent) {
        progress->set_text(vx_map_caption(c_map_importing).arg(name).arg(percent));
        return progress->goes_on();
    };
    (void)tell(0);
    QString error;
    auto outcome = vx_property_import(paths, target, way, tell, error);
    if (progress->is_cancelled() && outcome == c_import_failed)
        outcome = c_import_given_up;
    progress.reset();
    if (std::exchange(f_closes_after_opening, false) && close())
        return false;
    if (outcome == c_import_failed) {
        auto const reason = vx_reason_split(error.toStdWString());
        vx_say(this, QMessageBox::Warning, QString::fromStdWString(reason.sentence),
               QString::fromStdWString(reason.details));
    }
    return outcome == c_import_done;
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
    vx::fault fault;
    bool const written =
        buffer.open(QIODevice::WriteOnly) && f_canvas->settled_picture().save(&buffer, "png");
    if (written && vx_save_atomic(path.toStdWString(), {bytes.constData(), std::size_t(bytes.size())}, fault))
        show_message(vx_host_caption(c_cap_status_saved).arg(QDir::toNativeSeparators(path)));
    else {
        auto const reason = vx_reason_split(vx_fault_reason(fault));
        vx_say(this, QMessageBox::Warning,
               fault ? QString::fromStdWString(reason.sentence)
                     : vx_host_caption(c_cap_err_save_picture).arg(QDir::toNativeSeparators(path)),
               QString::fromStdWString(reason.details));
    }
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
    if (!f_editor->may_lose_changes(id))
        return;
    Tvx_layer_list::layer_ptr copy(vx_lr2d_clone(f_layers.layer_at(f_panel->selected_row())));
    QPoint const at = f_panel->sample_corner(id);
    if (vx_layer_style_dialog(copy.get(), at.x(), at.y()))
        take_over(id, std::move(copy));
}

void Tvx_map_window::on_rotation()
{
    int const id = f_panel->selected_id();
    if (!f_editor->may_lose_changes(id))
        return;
    Tvx_layer_list::layer_ptr copy(vx_lr2d_clone(f_layers.layer_at(f_panel->selected_row())));
    QPoint const at = f_panel->sample_corner(id);
    if (vx_layer_rotation_dialog(copy.get(), at.x(), at.y()))
        take_over(id, std::move(copy));
}

void Tvx_map_window::on_labels()
{
    int const id = f_panel->selected_id();
    if (!f_editor->may_lose_changes(id))
        return;
    Tvx_layer_list::layer_ptr copy(vx_lr2d_clone(f_layers.layer_at(f_panel->selected_row())));
    QPoint const at = f_panel->sample_corner(id);
    if (vx_layer_labels_dialog(copy.get(), at.x(), at.y()))
        take_over(id, std::move(copy));
}

void Tvx_map_window::on_draw_by(Tvx_layer_scale const *scale)
{
    int const id = f_panel->selected_id();
    if (!f_editor->may_lose_changes(id))
        return;
    Tvx_layer_list::layer_ptr copy(vx_lr2d_clone(f_layers.layer_at(f_panel->selected_row())));
    std::wstring reason;
    if (scale ? vx_layer_draw_by(copy.get(), *scale, reason) : vx_layer_draw_simple(copy.get())) {
        if (scale && vx_layer_is_drawn_by_rules(copy.get()))
            f_rule_files[id] = scale->file;
        take_over(id, std::move(copy));
    } else if (scale) {
        QString const path = QDir::toNativeSeparators(QString::fromStdWString(scale->file));
        vx_say(this, QMessageBox::Warning,
               reason.empty() ? vx_host_caption(c_cap_err_scale).arg(path) : QString::fromStdWString(reason));
    }
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

void Tvx_map_window::go_back(bool forward)
{
    if (!f_editor->may_lose_changes())
        return;
    forward ? f_steps->redo() : f_steps->undo();
    f_editor->refresh(f_editor->layer_id());
    if (selected_row() < 0)
        f_panel->select_id(f_layers.id_at(0));
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

void Tvx_map_window::update_title()
{
    // "[*]" is the place of the mark for changes, so it must not come from a name.
    auto const plain = [](QString name) { return name.replace("[*]", "[*][*]"); };
    QString const layer = plain(f_layers.name_at(f_panel->selected_row()));
    QString text = layer;
    if (!f_scene_path.isEmpty() || f_changed) {
        text = plain(scene_name());
        text = layer.isEmpty() ? text + "[*]" : vx_map_caption(c_map_title).arg(text, layer);
    }
    setWindowTitle(text.isEmpty() ? vx_host_caption(c_cap_application)
                                  : vx_host_caption(c_cap_window_title).arg(text));
    setWindowModified(f_changed);
    f_page_layouts->update_name();
}

void Tvx_map_window::show_message(QString const &text)
{
    statusBar()->showMessage(text, c_message_ms);
}

void Tvx_map_window::on_about()
{
    vx_say(this, QMessageBox::Information, vx_host_caption(c_cap_about_text));
}

void Tvx_map_window::on_shortcuts()
{
    vx_say(this, QMessageBox::Information, vx_host_caption(c_cap_shortcuts_text));
}
