#include "host/tour_layout.h"

#include "host/example_scales.h"
#include "host/layer_editor.h"
#include "host/layout_view.h"
#include "host/layout_window.h"
#include "host/map_canvas.h"
#include "host/map_layouts.h"
#include "host/map_window.h"
#include "host/tour_stage.h"
#include "user_input/user_hand.h"

#include "platform/layers/layout_keys.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QListView>
#include <QTemporaryDir>

namespace hand = vx::user_hand;

namespace {
constexpr QSize c_window_size{1100, 780};
constexpr int c_patience_ms = 60000;

/// The topmost element of a kind; -1 for none.
int element_of(Tvx_layout_document const &document, char const *key)
{
    for (int row = 0; row < document.count(); ++row)
        if (vx_layout_is(document.element(document.id_at(row)), key))
            return document.id_at(row);
    return -1;
}

QPoint middle_of(Tvx_layout_window &window, int id)
{
    Tvx_box_d2 const box = window.document().box_of(id);
    return window.view().to_screen({(box.min_x + box.max_x) / 2, (box.min_y + box.max_y) / 2}).toPoint();
}
} // namespace

void Tvx_tour_layout::show()
{
    f_stage.remove_all_layers();
    QTemporaryDir const folder;
    Tvx_map_window &map = f_stage.window();
    QDir const data(QFileInfo(f_stage.example(c_example_map)).absolutePath());
    for (QString const &name : data.entryList({"world.*", "nc.*", "naturalearth_cities.*", c_example_map}))
        f_stage.check(QFile::copy(data.filePath(name), folder.filePath(name)), "cannot copy " + name);
    f_stage.check(map.open_files({folder.filePath(c_example_map)}) == 3, "the sample map was not opened");
    hand::press(&map.canvas(), Qt::Key_Home);
    hand::press(&map.canvas(), Qt::Key_N, Qt::ControlModifier | Qt::ShiftModifier);
    Tvx_layout_window *const window = map.layouts().window_at(0);
    f_stage.check(window && window->isVisible(), "the command opens no layout");
    if (!window)
        return;
    window->resize(c_window_size);
    window->move(60, 60);
    show_page(*window);
    show_elements(*window);
    export_page(*window);
    window->close();
    f_stage.check(map.is_changed() && map.save_scene(), "the layout is not saved with its map");
    f_stage.check(map.open_files({map.scene_path()}) == 3 && map.layouts().count() == 1,
                  "the layout does not come back with its map");
    f_stage.check(map.new_scene(), "a saved map is not closed");
}

void Tvx_tour_layout::shoot(Tvx_layout_window &window, QString const &name)
{
    f_stage.check(hand::wait_until([&window] { return window.view().is_settled(); }, c_patience_ms),
                  "the page is not drawn in time: " + name);
    f_stage.save(window.grab().toImage(), name);
}

void Tvx_tour_layout::show_page(Tvx_layout_window &window)
{
    shoot(window, "layout_page");
    Tvx_layout_document &document = window.document();
    // The legend goes a little up, and back by undo.
    int const legend = element_of(document, c_lr_key_layout_legend);
    Tvx_box_d2 const before = document.box_of(legend);
    QPoint const at = middle_of(window, legend);
    hand::drag(window.view().viewport(), at, at + QPoint(-40, 25));
    f_stage.check(document.box_of(legend) != before, "an element cannot be dragged");
    shoot(window, "layout_moved");
    hand::press(&window.view(), Qt::Key_Z, Qt::ControlModifier);
    f_stage.check(document.box_of(legend) == before, "a move cannot be undone");
    // The map within its frame.
    int const frame = element_of(document, c_lr_key_layout_scene_frame);
    hand::drag(window.view().viewport(), middle_of(window, frame), middle_of(window, frame) + QPoint(60, 30),
               Qt::LeftButton, Qt::AltModifier);
    hand::press(&window.view(), Qt::Key_Plus, Qt::AltModifier);
    shoot(window, "layout_map_moved");
    for (int i = 0; i < 2; ++i)
        hand::press(&window.view(), Qt::Key_Z, Qt::ControlModifier);
}

/// Each element with its properties.
void Tvx_tour_layout::show_elements(Tvx_layout_window &window)
{
    constexpr struct
    {
        char const *key;
        char const *picture;
    } c_shown[] = {
        {c_lr_key_layout_scene_frame, "layout_frame"},
        {c_lr_key_layout_text, "layout_text"},
        {c_lr_key_layout_legend, "layout_legend"},
        {c_lr_key_layout_scale_bar, "layout_scale_bar"},
        {c_lr_key_layout_scale_text, "layout_scale_text"},
        {c_lr_key_layout_north_arrow, "layout_north_arrow"},
        {c_lr_key_layout_neatline, "layout_neatline"},
        {c_lr_key_layout_page, "layout_sheet"},
    };
    for (auto const &shown : c_shown) {
        window.view().select_id(element_of(window.document(), shown.key));
        hand::press(&window.view(), Qt::Key_Return, Qt::AltModifier);
        f_stage.check(window.editor().is_showing(), QString("no properties: ") + shown.key);
        f_stage.shoot_windows(shown.picture);
    }
    window.editor().close();
}

void Tvx_tour_layout::export_page(Tvx_layout_window &window)
{
    QString const pdf = f_stage.picture_path("layout.pdf");
    QString const png = f_stage.picture_path("layout_export.png");
    f_stage.check(window.export_pdf(pdf) && QFileInfo(pdf).size() > 1000, "no PDF is written");
    f_stage.check(window.export_picture(png, 150) && QFileInfo(png).size() > 1000, "no picture is written");
}
