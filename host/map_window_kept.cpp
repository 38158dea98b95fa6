#include "host/captions.h"
#include "host/end_signals.h"
#include "host/kept_map.h"
#include "host/layer_files.h"
#include "host/map_canvas.h"
#include "host/map_layouts.h"
#include "host/map_scene.h"
#include "host/map_window.h"
#include "host/message.h"

#include "platform/basic/vx_fault.h"
#include "platform/basic/vx_options.h"

#include <QFileInfo>
#include <QLocale>
#include <QMessageBox>
#include <QPushButton>
#include <QSessionManager>

#include <utility>

// What becomes of unsaved work when the program ends without a question.

void Tvx_map_window::keep_copies(QString const &folder)
{
    f_kept = std::make_unique<Tvx_kept_map>(folder, [this](QString const &file, Tvx_kept_map::origin &of) {
        if (f_loading)
            return std::string();
        of = {f_scene_path, f_scene_print};
        auto const others = f_page_layouts->sync().other_scenes();
        return vx_map_scene_bytes(file, f_layers, f_canvas->view(),
                                  {f_page_layouts->sync().name(), f_page_layouts->list(), others.get()});
    });
    connect(f_kept.get(), &Tvx_kept_map::failed, this, [this](QString const &reason) {
        show_message(vx_map_caption(c_map_status_not_kept)
                         .arg(QString::fromStdWString(vx_reason_split(reason.toStdWString()).sentence)));
    });
    f_end_signals = std::make_unique<Tvx_end_signals>([this] { f_kept->keep_now(); });
    connect(qGuiApp, &QGuiApplication::commitDataRequest, this, &Tvx_map_window::on_session_end,
            Qt::DirectConnection);
}

/// The system ends when all programs have agreed. A window that is still seen is closed then.
void Tvx_map_window::on_session_end(QSessionManager &manager)
{
    f_kept->keep_now();
    if (!manager.allowsInteraction())
        return;
    if (!may_lose_changes())
        manager.cancel();
    else
        f_is_given_up = f_changed;
    manager.release();
}

bool Tvx_map_window::offer_kept_copy()
{
    QStringList passed;
    while (std::optional<Tvx_found_map> const found = f_kept->find(passed)) {
        passed.append(found->file);
        QString const name =
            found->map.isEmpty() ? vx_map_caption(c_map_untitled) : vx_map_scene_name(found->map);
        QMessageBox box(
            QMessageBox::Question, vx_host_caption(c_cap_application),
            vx_map_caption(c_map_kept_question)
                .arg(name, QLocale(vx_options_get_language()).toString(found->time, QLocale::ShortFormat)),
            QMessageBox::NoButton, this);
        box.setTextFormat(Qt::PlainText);
        QPushButton *const open = box.addButton(vx_map_caption(c_map_kept_open), QMessageBox::AcceptRole);
        QPushButton *const erase =
            box.addButton(vx_map_caption(c_map_kept_delete), QMessageBox::DestructiveRole);
        QPushButton *const later = box.addButton(vx_map_caption(c_map_kept_later), QMessageBox::RejectRole);
        open->setObjectName(QStringLiteral("open"));
        erase->setObjectName(QStringLiteral("erase"));
        later->setObjectName(QStringLiteral("later"));
        box.setDefaultButton(open);
        box.setEscapeButton(later);
        box.exec();
        if (box.clickedButton() == erase)
            Tvx_kept_map::erase(*found);
        else if (box.clickedButton() == open && open_kept(*found))
            return true;
    }
    return false;
}

bool Tvx_map_window::open_kept(Tvx_found_map const &found)
{
    std::vector<Tvx_failed_file> failed;
    bool const is_open = open_scene(found.file, failed, &found).has_value();
    if (std::exchange(f_closes_after_opening, false) && close())
        return is_open;
    if (!failed.empty())
        vx_say(this, QMessageBox::Warning, vx_layer_files_message(failed), vx_layer_files_details(failed));
    return is_open;
}
