#include "host/captions.h"
#include "host/kept_map.h"
#include "host/layer_classes.h"
#include "host/layer_editor.h"
#include "host/layer_files.h"
#include "host/layer_info.h"
#include "host/layer_panel.h"
#include "host/layer_steps.h"
#include "host/layer_style.h"
#include "host/library_dialog.h"
#include "host/map_canvas.h"
#include "host/map_layouts.h"
#include "host/map_scene.h"
#include "host/map_window.h"
#include "host/opening_progress.h"

#include "platform/base/owned.h"
#include "platform/base/string_adp.h"
#include "platform/basic/vx_fault.h"
#include "platform/basic/vx_options.h"
#include "platform/layers/vx_scn_2d.h"
#include "platform/styles/vx_stl_prm.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QMap>
#include <QMessageBox>
#include <QPushButton>

#include <utility>

// The map as a document: its file, what is not in it yet, and what is asked before that is lost.

void Tvx_map_window::watch_changes()
{
    auto const changed = [this] { set_changed(true); };
    connect(f_page_layouts.get(), &Tvx_map_layouts::changed, this, changed);
    connect(f_page_layouts.get(), &Tvx_map_layouts::changed, this, &Tvx_map_window::update_commands);
    connect(&f_layers, &Tvx_layer_list::layer_replaced, this, changed);
    connect(&f_layers, &Tvx_layer_list::layer_renamed, this, changed);
    connect(&f_layers, &Tvx_layer_list::rowsMoved, this, changed);
    // To look at data without a map of one's own is no work yet; the list of recent files has them.
    connect(&f_layers, &Tvx_layer_list::rowsInserted, this, [this](QModelIndex const &parent) {
        if (!parent.isValid() && !f_scene_path.isEmpty())
            set_changed(true);
    });
    connect(&f_layers, &Tvx_layer_list::rowsRemoved, this, [this](QModelIndex const &parent) {
        if (!parent.isValid() && (!f_scene_path.isEmpty() || f_layers.count() > 0))
            set_changed(true);
        else if (!parent.isValid())
            set_changed(f_page_layouts->count() > 0); // nothing else is left that anybody could want to keep
    });
    connect(&f_layers, &Tvx_layer_list::dataChanged, this,
            [this](QModelIndex const &, QModelIndex const &, QList<int> const &roles) {
                if (roles.contains(Qt::CheckStateRole))
                    set_changed(true);
            });
}

void Tvx_map_window::set_changed(bool changed)
{
    if (f_loading)
        return;
    f_is_given_up = false;
    if (f_kept && changed)
        f_kept->note_change();
    else if (f_kept)
        f_kept->forget();
    if (f_changed == changed)
        return;
    f_changed = changed;
    update_title();
}

QString Tvx_map_window::scene_name() const
{
    return f_scene_path.isEmpty() ? vx_map_caption(c_map_untitled) : vx_map_scene_name(f_scene_path);
}

bool Tvx_map_window::may_lose_changes()
{
    if (!f_editor->may_lose_changes() || !f_page_layouts->may_lose_changes())
        return false;
    if (!f_changed)
        return true;
    QMessageBox box(QMessageBox::Question, vx_host_caption(c_cap_application),
                    vx_map_caption(c_map_save_question).arg(scene_name()), QMessageBox::NoButton, this);
    box.setTextFormat(Qt::PlainText);
    QPushButton *const save = box.addButton(vx_map_caption(c_map_save_yes), QMessageBox::AcceptRole);
    QPushButton *const lose = box.addButton(vx_map_caption(c_map_save_no), QMessageBox::DestructiveRole);
    QPushButton *const cancel = box.addButton(vx_host_caption(c_cap_cancel), QMessageBox::RejectRole);
    save->setObjectName(QStringLiteral("save"));
    lose->setObjectName(QStringLiteral("lose"));
    cancel->setObjectName(QStringLiteral("cancel"));
    box.setDefaultButton(save);
    box.setEscapeButton(cancel);
    box.exec();
    if (box.clickedButton() == save)
        return save_scene();
    return box.clickedButton() == lose;
}

bool Tvx_map_window::new_scene()
{
    if (!may_lose_changes())
        return false;
    f_loading = true;
    f_page_layouts->clear();
    f_layers.clear();
    f_loading = false;
    f_steps->forget();
    f_scene_path.clear();
    f_scene_print.clear();
    set_changed(false);
    f_canvas->forget_steps();
    update_title();
    return true;
}

bool Tvx_map_window::save_scene()
{
    return f_scene_path.isEmpty() ? save_scene_as() : save_scene_in(f_scene_path);
}

bool Tvx_map_window::save_scene_as()
{
    QString const name = f_scene_path.isEmpty()
                             ? QDir(f_last_directory).filePath(vx_map_scene_with_suffix(f_layers.name_at(0)))
                             : f_scene_path;
    QFileDialog dialog(this, vx_map_caption(c_map_save_title), QFileInfo(name).absolutePath(),
                       vx_map_caption(c_map_filter_scenes) + " (*.sn)");
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.selectFile(QFileInfo(name).fileName());
    // The question about a file that is there is asked about the name that is used in the end.
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return false;
    QString const path = vx_map_scene_with_suffix(dialog.selectedFiles().front());
    if (path != f_scene_path && QFileInfo::exists(path) && !may_replace(path))
        return false;
    return save_scene_in(path);
}

bool Tvx_map_window::may_replace(QString const &path)
{
    QMessageBox box(QMessageBox::Question, vx_host_caption(c_cap_application),
                    vx_map_caption(c_map_replace_question).arg(QDir::toNativeSeparators(path)),
                    QMessageBox::NoButton, this);
    box.setTextFormat(Qt::PlainText);
    QPushButton *const replace = box.addButton(vx_map_caption(c_map_replace), QMessageBox::AcceptRole);
    QPushButton *const cancel = box.addButton(vx_host_caption(c_cap_cancel), QMessageBox::RejectRole);
    replace->setObjectName(QStringLiteral("replace"));
    box.setDefaultButton(cancel);
    box.setEscapeButton(cancel);
    box.exec();
    return box.clickedButton() == replace;
}

Tvx_map_window::newer_file Tvx_map_window::ask_about_newer()
{
    QMessageBox box(QMessageBox::Warning, vx_host_caption(c_cap_application),
                    vx_map_caption(c_map_newer_question).arg(QDir::toNativeSeparators(f_scene_path)),
                    QMessageBox::NoButton, this);
    box.setTextFormat(Qt::PlainText);
    QPushButton *const other = box.addButton(vx_map_caption(c_map_save_scene_as), QMessageBox::AcceptRole);
    QPushButton *const replace = box.addButton(vx_map_caption(c_map_replace), QMessageBox::DestructiveRole);
    QPushButton *const cancel = box.addButton(vx_host_caption(c_cap_cancel), QMessageBox::RejectRole);
    other->setObjectName(QStringLiteral("save_as"));
    replace->setObjectName(QStringLiteral("replace"));
    box.setDefaultButton(cancel);
    box.setEscapeButton(cancel);
    box.exec();
    if (box.clickedButton() == other)
        return save_scene_as() ? c_newer_saved_as : c_newer_left;
    return box.clickedButton() == replace ? c_newer_replaced : c_newer_left;
}

bool Tvx_map_window::save_scene_in(QString const &path)
{
    if (path == f_scene_path && QFileInfo::exists(path) && vx_file_print(path) != f_scene_print)
        if (newer_file const chosen = ask_about_newer(); chosen != c_newer_replaced)
            return chosen == c_newer_saved_as;
    // Frames name the map, whose name is that of its file.
    QString const former = std::exchange(f_scene_path, QFileInfo(path).absoluteFilePath());
    f_page_layouts->update_name();
    auto const others = f_page_layouts->sync().other_scenes();
    if (!vx_map_scene_save(path, f_layers, f_canvas->view(),
                           {scene_name(), f_page_layouts->list(), others.get()})) {
        f_scene_path = former;
        f_page_layouts->update_name();
        return false;
    }
    f_last_directory = QFileInfo(f_scene_path).absolutePath();
    f_scene_print = vx_file_print(f_scene_path);
    set_changed(false);
    update_title();
    remember_file(f_scene_path);
    show_message(vx_map_caption(c_map_status_scene_saved).arg(QDir::toNativeSeparators(f_scene_path)));
    return true;
}

void Tvx_map_window::repair_layers(std::vector<Tvx_scene_layer> &layers,
                                   std::optional<Tvx_box_d2> const &view)
{
    QMap<QString, QString> known; // what became of each file; a reason where it stays as it is
    for (Tvx_scene_layer &layer : layers) {
        if (!vx_layer_files_wants_repair(layer.reason))
            continue;
        std::wstring source;
        vx_lr2d_get_wfilename(layer.layer.get(), Tvx_std_wstring_adapter(source));
        QString const connection = QString::fromStdWString(source);
        QString const file = connection.section('|', 0, 0);
        if (!known.contains(file))
            known.insert(file, may_repair(file) ? vx_layer_files_repair(connection) : layer.reason);
        layer.reason = known.value(file);
        if (!layer.reason.isEmpty())
            continue;
        layer.mark = c_mark_none;
        vx_map_scene_open_layer(layer, view);
    }
}

std::optional<int> Tvx_map_window::open_scene(QString const &path, std::vector<Tvx_failed_file> &failed,
                                              Tvx_found_map const *kept)
{
    // A change while it is being read is one of another program's.
    QByteArray const print = kept ? kept->print : vx_file_print(path);
    vx::owned<Ivx_scns_2d, &vx_scns_2d_destroy> const layouts(vx_scns_2d_create()),
        others(vx_scns_2d_create());
    Tvx_loaded_scene scene = vx_map_scene_load(path, layouts.get(), others.get());
    if (!scene.error.isEmpty()) {
        failed.push_back({path, scene.error});
        return std::nullopt;
    }
    vx_map_scene_ask_passwords(scene.layers, [this](QString const &server) -> std::optional<QString> {
        bool given = false;
        QString const text = QInputDialog::getText(this, vx_map_caption(c_map_password),
                                                   vx_map_caption(c_map_password_text).arg(server),
                                                   QLineEdit::Password, {}, &given);
        return given ? std::optional(text) : std::nullopt;
    });
    std::optional<Tvx_box_d2> view;
    if (scene.view) {
        scene.view->set_size(f_canvas->width(), f_canvas->height());
        view = scene.view->box();
    }
    QApplication::setOverrideCursor(Qt::WaitCursor);
    f_loading = true;
    f_page_layouts->clear();
    f_layers.clear();
    int opened = 0;
    {
        auto const progress = begin_opening();
        for (Tvx_scene_layer &layer : scene.layers) {
            QString const name = vx_layer_name(layer.layer.get());
            progress->set_text(vx_host_caption(c_cap_status_loading).arg(name));
            // Who has no patience for the data still gets the map, each layer with its mark.
            if (!progress->is_cancelled())
                vx_map_scene_open_layer(layer, view);
            if (progress->is_cancelled() && layer.mark == c_mark_none)
                layer.mark = c_mark_missing;
        }
    }
    QApplication::restoreOverrideCursor();
    repair_layers(scene.layers, view);
    for (Tvx_scene_layer &layer : scene.layers) {
        if (!layer.reason.isEmpty() && !vx_layer_files_wants_repair(layer.reason))
            failed.push_back({vx_layer_name(layer.layer.get()), layer.reason});
        int const id = f_layers.add(std::move(layer.layer), layer.unit);
        if (layer.mark != c_mark_none)
            f_layers.set_damaged(
                id, layer.mark,
                layer.flaw + QString::fromStdWString(vx_reason_split(layer.reason.toStdWString()).sentence));
        ++opened;
    }
    f_scene_path = kept ? kept->map : QFileInfo(path).absoluteFilePath();
    f_scene_print = print;
    f_steps->forget();
    f_page_layouts->take(*layouts, *others, scene.name);
    f_loading = false;
    set_changed(false);
    if (kept) {
        f_kept->adopt(*kept);
        f_changed = true;
    }
    if (!f_scene_path.isEmpty()) {
        f_last_directory = QFileInfo(f_scene_path).absolutePath();
        remember_file(f_scene_path);
    }
    f_panel->select_id(f_layers.id_at(0));
    if (scene.view)
        f_canvas->go_to(*scene.view);
    else
        f_canvas->show_all();
    f_canvas->forget_steps();
    update_title();
    return opened;
}

// ---- styles from layer to layer

void Tvx_map_window::on_copy_style()
{
    Ivx_layer *const layer = f_layers.layer_at(selected_row());
    f_copied_style.reset(vx_lr2d_clone(layer));
    update_commands();
    show_message(vx_map_caption(c_map_status_style_copied).arg(vx_layer_name(layer)));
}

void Tvx_map_window::on_paste_style()
{
    if (!f_editor->may_lose_changes(f_panel->selected_id()))
        return;
    Tvx_layer_list::layer_ptr copy(vx_lr2d_clone(f_layers.layer_at(selected_row())));
    if (vx_layer_copy_style(copy.get(), f_copied_style.get()))
        take_over(f_panel->selected_id(), std::move(copy));
}

void *Tvx_map_window::selected_style() const
{
    Ivx_layer *const layer = f_layers.layer_at(selected_row());
    if (int const place = f_panel->selected_class(); place >= 0)
        return vx_layer_class_style(layer, static_cast<unsigned>(place));
    return vx_layer_simple_style(layer);
}

void Tvx_map_window::on_to_library()
{
    // The dialog lets the map go on, which may put another layer in this one's place.
    vx::owned<void, &vx_stl_prm_destroy> const style(vx_stl_prm_clone(selected_style()));
    Ivx_layer *const layer = f_layers.layer_at(selected_row());
    int const place = f_panel->selected_class();
    Tvx_library_dialog dialog(
        style.get(),
        place < 0 ? vx_layer_name(layer) : vx_layer_class_caption(layer, static_cast<unsigned>(place)), this);
    if (dialog.exec() == QDialog::Accepted)
        show_message(
            vx_map_caption(c_map_status_in_library).arg(dialog.style_caption(), dialog.chosen_name()));
}

void Tvx_map_window::on_invert_managers(bool on)
{
    vx_options_set_invert_layers(on);
    f_layers.refresh_classes();
    f_editor->update();
}
