#include "host/layout_window.h"

#include "exports/vxk_lr2d_edit_form_api.h"
#include "host/captions.h"
#include "host/layer_editor.h"
#include "host/layer_info.h"
#include "host/layout_clipboard.h"
#include "host/layout_view.h"
#include "host/map_layouts.h"
#include "host/map_text.h"
#include "host/map_window.h"
#include "host/message.h"
#include "host/opening_progress.h"

#include "platform/base/string_adp.h"
#include "platform/basic/vx_fault.h"
#include "platform/basic/vx_options.h"
#include "platform/layers/layout_keys.h"
#include "platform/layers/vx_prj.h"
#include "platform/layers/vx_shp_lr2d.h"
#include "platform/render/vx_layout_render.h"
#include "platform/styles/vx_style.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QDir>
#include <QDockWidget>
#include <QFileDialog>
#include <QImageReader>
#include <QImageWriter>
#include <QInputDialog>
#include <QLabel>
#include <QListView>
#include <QMessageBox>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QScreen>
#include <QStatusBar>

#include <algorithm>
#include <functional>
#include <utility>

namespace {
constexpr int c_message_ms = 8000;
constexpr int c_editor_gap = 12;
constexpr int c_title_room = 40;
constexpr int c_list_width = 210;
constexpr double c_pdf_raster_dpi = 300;
constexpr int c_resolutions[] = {96, 150, 300, 600};
constexpr int c_usual_resolution = 2;
constexpr double c_copy_shift = 5; ///< a copy lies so far from what it is one of, mm

/// The elements of a layout, for the editor.
class edited_elements : public Tvx_edited_layers
{
public:
    explicit edited_elements(Tvx_layout_document &document) : f_document(document) {}

    [[nodiscard]] Ivx_layer *find(int id) const override { return f_document.element(id); }
    bool replace(int id, layer_ptr layer) override { return f_document.replace(id, std::move(layer)); }
    [[nodiscard]] bool are_alike(Ivx_layer *copy, Ivx_layer *unchanged) const override
    {
        return vx_layout_are_alike(copy, unchanged);
    }
    [[nodiscard]] Tvx_lr2d_edit_form *create_form() const override { return vx_lr_layout_edt_form_create(); }
    void destroy_form(Tvx_lr2d_edit_form *form) const override { vx_lr_layout_edt_form_destroy(form); }
    [[nodiscard]] bool has_own_tab_first() const override { return true; }
    /// Pages look for frames in the layout that is active.
    void become_current() const override
    {
        vx_scns_2d_set_active_scn(vx_prj_get_layouts_data_ptr(vx_prj_get_instance()), f_document.layout());
    }

private:
    Tvx_layout_document &f_document;
};

/// Of the formats that pages show, those that the installed Qt reads.
QStringList patterns_of_images()
{
    QStringList patterns;
    for (char const *const suffix : {"png", "jpg", "jpeg", "bmp", "gif", "tif", "tiff", "webp", "svg"})
        if (QImageReader::supportedImageFormats().contains(suffix))
            patterns.append(QStringLiteral("*.") + QLatin1String(suffix));
    return patterns;
}

/// Where a copy lies.
Tvx_box_d2 shifted(Tvx_box_d2 const &box)
{
    return {box.min_x + c_copy_shift, box.min_y + c_copy_shift, box.max_x + c_copy_shift,
            box.max_y + c_copy_shift};
}
} // namespace

Tvx_layout_window::Tvx_layout_window(Tvx_map_layouts &layouts, Ivx_scn_2d *layout)
    : f_layouts(layouts), f_document(layout),
      f_editor(new Tvx_layer_editor(std::make_unique<edited_elements>(f_document), this)),
      f_view(new Tvx_layout_view(f_document, layouts.sync(), this)),
      f_directory(layouts.map().scene_path().isEmpty() ? QDir::homePath()
                                                       : QFileInfo(layouts.map().scene_path()).absolutePath())
{
    setObjectName(QStringLiteral("layout_window"));
    setWindowIcon(layouts.map().windowIcon());
    resize(QSize(1180, 800).boundedTo(screen()->availableSize() - QSize(0, c_title_room)));
    f_view->setObjectName(QStringLiteral("page"));
    setCentralWidget(f_view);
    create_commands();
    create_element_dock();
    create_menus();
    create_tool_bar();
    create_status_bar();
    connect_document();
    update_commands();
    f_view->setFocus();
}

Tvx_layout_window::~Tvx_layout_window()
{
    hide();
    // The parts look at the document while they end, so they end before it does.
    delete f_editor;
    delete f_dock;
    delete f_view;
}

// ---- building

void Tvx_layout_window::create_element_dock()
{
    f_dock = new QDockWidget(vx_layout_caption(c_lay_elements), this);
    f_dock->setObjectName(QStringLiteral("element_dock"));
    f_dock->setAllowedAreas(Qt::LeftDockWidgetArea | Qt::RightDockWidgetArea);
    f_list = new QListView(f_dock);
    f_list->setObjectName(QStringLiteral("elements"));
    f_list->setAccessibleName(vx_layout_caption(c_lay_element_list));
    f_list->setModel(&f_document);
    f_list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    f_list->setEditTriggers(QAbstractItemView::EditKeyPressed);
    f_list->setContextMenuPolicy(Qt::ActionsContextMenu);
    f_list->setMinimumWidth(160);
    f_dock->setWidget(f_list);
    addDockWidget(Qt::RightDockWidgetArea, f_dock);
    resizeDocks({f_dock}, {c_list_width}, Qt::Horizontal);
}

void Tvx_layout_window::create_status_bar()
{
    f_place_text = new QLabel;
    f_place_text->setObjectName(QStringLiteral("place"));
    f_zoom_text = new QLabel;
    f_zoom_text->setObjectName(QStringLiteral("zoom"));
    for (QLabel *const label : {f_place_text, f_zoom_text}) {
        label->setContentsMargins(8, 0, 8, 0);
        statusBar()->addPermanentWidget(label);
    }
}

void Tvx_layout_window::connect_document()
{
    connect(&f_document, &Tvx_layout_document::changed, this, [this] {
        update_place_text();
        emit changed();
    });
    connect(&f_document, &Tvx_layout_document::history_changed, this, &Tvx_layout_window::update_commands);
    connect(&f_document, &Tvx_layout_document::modelReset, this, [this] { show_selection(selected_id()); });
    connect(&f_document, &Tvx_layout_document::rowsMoved, this, [this] { show_selection(selected_id()); });
    connect(&f_document, &Tvx_layout_document::element_changed, this, &Tvx_layout_window::take_into_editor);
    connect(&f_document, &Tvx_layout_document::element_restored, f_editor, &Tvx_layer_editor::refresh);
    connect(&f_document, &Tvx_layout_document::element_removed, f_editor, &Tvx_layer_editor::forget);
    connect(f_view, &Tvx_layout_view::selection_changed, this, &Tvx_layout_window::show_selection);
    connect(f_view, &Tvx_layout_view::properties_wanted, this, &Tvx_layout_window::on_properties);
    connect(f_view, &Tvx_layout_view::zoom_changed, this, &Tvx_layout_window::update_place_text);
    connect(f_view, &Tvx_layout_view::settled, this, [this] {
        QStringList const failed = f_layouts.sync().take_failed();
        if (!failed.isEmpty())
            show_message(vx_layout_caption(c_lay_scene_failed).arg(failed.join(", ")));
    });
    connect(f_view, &Tvx_layout_view::element_failed, this, [this](int id) {
        show_message(vx_layout_caption(c_lay_status_failed).arg(f_document.name_of(id)));
    });
    connect(f_list->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &Tvx_layout_window::on_list_selection);
    connect(f_list, &QListView::doubleClicked, this, &Tvx_layout_window::on_properties);
    connect(f_editor, &Tvx_layer_editor::stayed, f_view, &Tvx_layout_view::select_id);
}

// ---- one element

int Tvx_layout_window::selected_id() const
{
    return f_view ? f_view->selected_id() : -1;
}

std::vector<int> Tvx_layout_window::movable_selection() const
{
    std::vector<int> ids = f_view ? f_view->selected_ids() : std::vector<int>();
    std::erase_if(ids, [this](int id) {
        Ivx_layer const *const element = f_document.element(id);
        return !element || vx_layout_has_page_kind(element);
    });
    std::ranges::sort(ids, std::greater(), [this](int id) { return f_document.row_of(id); });
    return ids;
}

void Tvx_layout_window::show_selection(int id)
{
    bool const outer = std::exchange(f_shows_selection, true);
    f_list->setCurrentIndex(f_document.index(f_document.row_of(id)));
    QItemSelection rows;
    for (int const selected : f_view->selected_ids())
        if (QModelIndex const row = f_document.index(f_document.row_of(selected)); row.isValid())
            rows.select(row, row);
    f_list->selectionModel()->select(rows, QItemSelectionModel::ClearAndSelect);
    f_shows_selection = outer;
    f_editor->follow(id);
    update_commands();
    update_place_text();
}

void Tvx_layout_window::on_list_selection()
{
    if (f_shows_selection)
        return;
    QModelIndex const current = f_list->currentIndex();
    std::vector<int> ids;
    for (QModelIndex const &row : f_list->selectionModel()->selectedIndexes())
        if (row != current)
            ids.push_back(f_document.id_at(row.row()));
    if (f_list->selectionModel()->isSelected(current))
        ids.push_back(f_document.id_at(current.row()));
    f_view->select_ids(std::move(ids));
    // A page is not selected with others.
    if (f_list->selectionModel()->selectedIndexes().size() != qsizetype(f_view->selected_ids().size()))
        show_selection(selected_id());
}

/// What the hand does to an element whose properties are open goes into them too.
void Tvx_layout_window::take_into_editor(int id)
{
    f_editor->take(id, [](Ivx_layer *copy, Ivx_layer *former, Ivx_layer *element) {
        // What was typed and not applied stays, but for what the hand changed.
        if (QString const name = vx_layer_name(element); name != vx_layer_name(former))
            vx_lr2d_set_wcaption(copy, name.toStdWString().c_str());
        vx_lr2d_set_visible(copy, vx_lr2d_get_visible(element));
        // A frame has another name now. Where the user has chosen another frame, that is what counts.
        if (QString const file = vx_layout_file_of(former);
            vx_layout_file_of(element) != file && vx_layout_file_of(copy) == file)
            vx_layout_set_file(copy, vx_layout_file_of(element));
        if (Tvx_box_d2 const box = vx_layout_lr2d_get_box(element); box != vx_layout_lr2d_get_box(former))
            vx_layout_lr2d_set_box(copy, box);
        if (!vx_layout_is(element, c_lr_key_layout_scene_frame))
            return;
        double x = 0, y = 0, former_x = 0, former_y = 0;
        vx_layout_scene_frame_lr2d_get_scale(element, &x, &y);
        vx_layout_scene_frame_lr2d_get_scale(former, &former_x, &former_y);
        if (x != former_x || y != former_y)
            vx_layout_scene_frame_lr2d_set_scale(copy, x, y);
        Tvx_pnt_d2 const center = vx_layout_scene_frame_lr2d_get_center(element);
        if (center != vx_layout_scene_frame_lr2d_get_center(former))
            vx_layout_scene_frame_lr2d_set_center(copy, center);
    });
}

void Tvx_layout_window::on_properties()
{
    f_layouts.sync().refresh();
    f_editor->open(selected_id(), frameGeometry().topRight() + QPoint(c_editor_gap, 0));
}

void Tvx_layout_window::add_element(char const *key, std::function<bool(Ivx_layer *)> const &fill)
{
    Tvx_layout_element_ptr element =
        vx_layout_make_element(key, vx_layout_kind_name(key), f_document.layout());
    if (vx_layout_names_frame(element.get()))
        vx_layout_set_file(element.get(), f_document.name_of(frame_for_new()));
    if (fill && !fill(element.get()))
        return;
    std::vector<Tvx_layout_element_ptr> one;
    one.push_back(std::move(element));
    move_aside(one);
    f_view->select_id(f_document.add(std::move(one.front())));
    f_view->setFocus();
}

/// The frame that is meant, else the largest: that of the page.
int Tvx_layout_window::frame_for_new() const
{
    int found = f_view->map_frame();
    double largest = 0;
    for (int row = 0; f_view->map_frame() < 0 && row < f_document.count(); ++row) {
        int const id = f_document.id_at(row);
        Tvx_box_d2 const box = f_document.box_of(id);
        if (vx_layout_is(f_document.element(id), c_lr_key_layout_scene_frame) &&
            box.width() * box.height() > largest) {
            found = id;
            largest = box.width() * box.height();
        }
    }
    return found;
}

void Tvx_layout_window::add_frame()
{
    f_layouts.sync().refresh();
    add_element(c_lr_key_layout_scene_frame, [this](Ivx_layer *frame) {
        vx_layout_set_file(frame, f_layouts.sync().name());
        vx_layout_show_box(frame, f_layouts.shown_box());
        // It may lie on another map.
        vx_pgn_style_set_pgn_visible(vx_layout_lr2d_get_pgn_style_ptr(frame), true);
        return true;
    });
}

void Tvx_layout_window::add_image()
{
    QString const file = QFileDialog::getOpenFileName(this, vx_layout_caption(c_lay_image_title), f_directory,
                                                      vx_layout_caption(c_lay_filter_images) + " (" +
                                                          patterns_of_images().join(' ') + ')');
    if (file.isEmpty())
        return;
    f_directory = QFileInfo(file).absolutePath();
    add_element(c_lr_key_layout_image, [&file](Ivx_layer *image) {
        vx_layout_set_file(image, file);
        return true;
    });
}

void Tvx_layout_window::add_table()
{
    Tvx_layer_list const &layers = f_layouts.map().layers();
    QStringList names, sources;
    for (int row = 0; row < layers.count(); ++row)
        if (vx_lr2d_is_shp(layers.layer_at(row))) {
            names.append(layers.name_at(row));
            sources.append(vx_layout_file_of(layers.layer_at(row)));
        }
    if (names.isEmpty())
        return vx_say(this, QMessageBox::Information, vx_layout_caption(c_lay_table_none));
    bool given = false;
    QString const name = QInputDialog::getItem(this, vx_layout_caption(c_lay_table_title),
                                               vx_layout_caption(c_lay_table_text), names, 0, false, &given);
    if (!given)
        return;
    add_element(c_lr_key_layout_table, [&](Ivx_layer *table) {
        vx_layout_set_file(table, sources.value(int(names.indexOf(name))));
        return true;
    });
}

void Tvx_layout_window::on_take_view()
{
    int const frame = f_view->map_frame();
    if (frame < 0 || f_layouts.map().layers().count() == 0)
        return;
    f_layouts.sync().refresh();
    f_document.change(frame,
                      [this](Ivx_layer *element) { vx_layout_show_box(element, f_layouts.shown_box()); });
    f_document.finish_step(Tvx_layout_document::c_step_single, frame);
}

void Tvx_layout_window::on_remove()
{
    std::vector<int> const ids = movable_selection();
    if (ids.empty() || !std::ranges::all_of(ids, [this](int id) { return f_editor->may_lose_changes(id); }))
        return;
    int const row = f_document.row_of(ids.back());
    {
        // What the list selects meanwhile is not what anybody means.
        QScopedValueRollback const own(f_shows_selection, true);
        f_document.as_one_step([&] {
            for (int const id : ids)
                f_document.remove(id);
        });
    }
    f_view->select_id(f_document.id_at(std::min(row, f_document.count() - 2)));
    show_selection(selected_id());
}

void Tvx_layout_window::on_copy()
{
    std::vector<Ivx_layer const *> elements;
    for (int const id : movable_selection())
        elements.push_back(f_document.element(id));
    vx_layout_clipboard_put(elements);
    update_commands();
}

/// They stay where they are, unless one would hide another just as large: what it is a copy of, or the one
/// before.
void Tvx_layout_window::move_aside(std::vector<Tvx_layout_element_ptr> const &elements)
{
    auto const is_taken = [&] {
        for (int row = 0; row < f_document.count(); ++row)
            for (Tvx_layout_element_ptr const &element : elements)
                if (f_document.box_of(f_document.id_at(row)) == vx_layout_lr2d_get_box(element.get()))
                    return true;
        return false;
    };
    for (int tries = f_document.count(); tries > 0 && is_taken(); --tries)
        for (Tvx_layout_element_ptr const &element : elements)
            vx_layout_lr2d_set_box(element.get(), shifted(vx_layout_lr2d_get_box(element.get())));
}

/// What belongs to a frame belongs to the frame's copy where that comes along.
void Tvx_layout_window::add_copies(std::vector<Tvx_layout_element_ptr> copies)
{
    std::vector<int> ids;
    f_document.as_one_step([&] {
        QHash<QString, QString> frames;
        for (Tvx_layout_element_ptr &copy : copies) {
            QString const name = vx_layer_name(copy.get());
            int const id = f_document.add(std::move(copy));
            if (id < 0)
                continue;
            ids.push_back(id);
            if (vx_layout_is(f_document.element(id), c_lr_key_layout_scene_frame))
                frames.insert(name, f_document.name_of(id));
        }
        for (int const id : ids)
            if (Ivx_layer const *const element = f_document.element(id); vx_layout_names_frame(element))
                if (QString const frame = frames.value(vx_layout_file_of(element)); !frame.isEmpty())
                    f_document.change(id, [&frame](Ivx_layer *copy) { vx_layout_set_file(copy, frame); });
    });
    f_view->select_ids(std::move(ids));
}

void Tvx_layout_window::on_paste()
{
    std::vector<Tvx_layout_element_ptr> elements = vx_layout_clipboard_get();
    std::erase_if(elements, [](auto const &element) { return vx_layout_has_page_kind(element.get()); });
    if (elements.empty())
        return;
    move_aside(elements);
    add_copies(std::move(elements));
}

void Tvx_layout_window::on_duplicate()
{
    std::vector<Tvx_layout_element_ptr> copies;
    for (int const id : movable_selection()) {
        copies.emplace_back(vx_lr2d_clone(f_document.element(id)));
        vx_layout_lr2d_set_box(copies.back().get(), shifted(f_document.box_of(id)));
    }
    add_copies(std::move(copies));
}

void Tvx_layout_window::set_visible(bool visible)
{
    f_document.as_one_step([&] {
        for (int const id : std::vector(f_view->selected_ids()))
            f_document.set_visible(id, visible);
    });
}

// ---- files

QString Tvx_layout_window::ask_file(QString const &title, QStringList const &filters, QString const &suffix)
{
    QFileDialog dialog(this, title, f_directory);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setNameFilters(filters);
    dialog.setDefaultSuffix(suffix);
    connect(&dialog, &QFileDialog::filterSelected, &dialog, [&dialog](QString const &filter) {
        QString const chosen = filter.section("(*.", 1).section(')', 0, 0);
        dialog.setDefaultSuffix(chosen);
        // The name says what is written, so it follows the choice.
        QFileInfo const named(dialog.selectedFiles().value(0));
        if (QStringList{"png", "jpg", "tif", "bmp"}.contains(named.suffix().toLower()))
            dialog.selectFile(named.dir().filePath(named.completeBaseName() + '.' + chosen));
    });
    QString name = layout_name();
    name.replace('/', '_');
    dialog.selectFile(name + '.' + suffix);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return {};
    QString const path = dialog.selectedFiles().front();
    f_directory = QFileInfo(path).absolutePath();
    return path;
}

void Tvx_layout_window::on_export_pdf()
{
    QString const path = ask_file(vx_layout_caption(c_lay_export_pdf_title),
                                  {vx_layout_caption(c_lay_filter_pdf) + " (*.pdf)"}, "pdf");
    if (!path.isEmpty())
        export_pdf(path);
}

void Tvx_layout_window::on_export_picture()
{
    QStringList resolutions;
    for (int const resolution : c_resolutions)
        resolutions.append(QString::number(resolution));
    bool given = false;
    QString const resolution = QInputDialog::getItem(this, vx_layout_caption(c_lay_export_picture_title),
                                                     vx_layout_caption(c_lay_resolution), resolutions,
                                                     c_usual_resolution, false, &given);
    if (!given)
        return;
    struct picture_kind
    {
        Tvx_layout_window_caption caption;
        char const *suffix;
    };
    QStringList kinds;
    for (auto const &[caption, suffix] : {picture_kind{c_lay_filter_png, "png"},
                                          {c_lay_filter_jpg, "jpg"},
                                          {c_lay_filter_tif, "tif"},
                                          {c_lay_filter_bmp, "bmp"}})
        if (QImageWriter::supportedImageFormats().contains(suffix))
            kinds.append(vx_layout_caption(caption) + " (*." + suffix + ')');
    QString const path = ask_file(vx_layout_caption(c_lay_export_picture_title), kinds, "png");
    if (!path.isEmpty())
        export_picture(path, resolution.toInt());
}

bool Tvx_layout_window::export_pdf(QString const &path)
{
    return write(path, [&path](Ivx_scn_2d *layout, std::wstring &reason, closure<bool()> cancelled) {
        return vx_layout_save_pdf_w(layout, path.toStdWString().c_str(), c_pdf_raster_dpi,
                                    Tvx_std_wstring_adapter(reason), cancelled);
    });
}

bool Tvx_layout_window::export_picture(QString const &path, int pixels_per_inch)
{
    return write(path, [&](Ivx_scn_2d *layout, std::wstring &reason, closure<bool()> cancelled) {
        return vx_layout_save_picture_w(layout, path.toStdWString().c_str(), pixels_per_inch,
                                        Tvx_std_wstring_adapter(reason), cancelled);
    });
}

bool Tvx_layout_window::write(QString const &path, writer const &write)
{
    f_layouts.sync().refresh();
    Tvx_layout_sync::use const use(f_layouts.sync());
    // The user may go on with the layout.
    vx::owned<Ivx_scn_2d, &vx_scn_2d_destroy> const copy(vx_scn_2d_clone(f_document.layout()));
    std::wstring reason;
    int outcome = c_layout_failed;
    {
        Tvx_opening_progress progress(this, command("close"), Tvx_opening_progress::c_own);
        progress.set_text(vx_layout_caption(c_lay_exporting).arg(QFileInfo(path).fileName()));
        struct asker
        {
            Tvx_opening_progress &progress;
            bool is_given_up() { return !progress.goes_on(); }
        } asker{progress};
        outcome = write(copy.get(), reason, make_closure<&asker::is_given_up>(&asker));
    }
    auto const parts = vx_reason_split(reason);
    QString const sentence = QString::fromStdWString(parts.sentence);
    QString const details = QString::fromStdWString(parts.details);
    QString const shown = QDir::toNativeSeparators(path);
    if (outcome == c_layout_failed)
        vx_say(this, QMessageBox::Warning,
               sentence.isEmpty() ? vx_host_caption(c_cap_err_save_picture).arg(shown) : sentence, details);
    if (outcome != c_layout_written)
        return false;
    if (reason.empty())
        show_message(vx_layout_caption(c_lay_status_exported).arg(shown));
    else
        vx_say(this, QMessageBox::Warning, vx_layout_caption(c_lay_left_out).arg(shown),
               details.isEmpty() ? sentence : sentence + '\n' + details);
    return true;
}

// ---- the window

QString Tvx_layout_window::layout_name() const
{
    return f_layouts.name_at(f_layouts.index_of(f_document.layout()));
}

void Tvx_layout_window::update_title()
{
    // "[*]" is the place of the mark for changes, so it must not come from a name.
    QString const name = layout_name().replace("[*]", "[*][*]");
    setWindowTitle(vx_layout_caption(c_lay_window_title).arg(name));
    setWindowModified(f_layouts.map().is_changed());
}

void Tvx_layout_window::update_place_text()
{
    Tvx_box_d2 const box = f_view->selected_box();
    auto const mm = [](double value) { return QString::number(value, 'f', 1); };
    std::size_t const count = f_view->selected_ids().size();
    QString place;
    if (count > 0)
        place = vx_layout_caption(c_lay_status_place)
                    .arg(mm(box.min_x), mm(box.min_y), mm(box.width()), mm(box.height()));
    if (count > 1)
        place = vx_layout_caption(c_lay_status_several).arg(count) + QStringLiteral("     ") + place;
    f_place_text->setText(place);
    QString text =
        QStringLiteral("%1 %").arg(std::lround(100 * f_view->place().zoom / vx_options_get_mm2px_x()));
    if (int const frame = f_view->map_frame(); frame >= 0) {
        double x = 0, y = 0;
        vx_layout_scene_frame_lr2d_get_scale(f_document.element(frame), &x, &y);
        text = vx_layout_caption(c_lay_status_scale).arg(f_document.name_of(frame), vx_map_text_scale(x)) +
               QStringLiteral("     ") + text;
    }
    f_zoom_text->setText(text);
}

void Tvx_layout_window::show_message(QString const &text)
{
    statusBar()->showMessage(text, c_message_ms);
}

void Tvx_layout_window::rename_scene(QString const &from, QString const &to)
{
    f_document.rename_scene(from, to);
    f_editor->take(f_editor->layer_id(), [&](Ivx_layer *copy, Ivx_layer *, Ivx_layer *) {
        if (vx_layout_is(copy, c_lr_key_layout_scene_frame) && vx_layout_file_of(copy) == from)
            vx_layout_set_file(copy, to);
    });
}

void Tvx_layout_window::refresh()
{
    f_view->refresh();
}

bool Tvx_layout_window::may_lose_changes()
{
    return f_editor->may_lose_changes();
}

void Tvx_layout_window::end_editing()
{
    f_editor->close();
}

void Tvx_layout_window::detach()
{
    end_editing();
    hide();
    f_document.detach();
}

void Tvx_layout_window::closeEvent(QCloseEvent *event)
{
    if (!may_lose_changes()) {
        event->ignore();
        return;
    }
    end_editing();
    event->accept();
}
