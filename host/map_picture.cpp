#include "host/map_picture.h"

#include "host/layer_list.h"

#include <QPainter>

#include <algorithm>
#include <cmath>
#include <utility>

namespace {
/// Memory for the pictures of single layers; the ones at the bottom of the map are given up first.
constexpr qsizetype c_picture_budget = qsizetype(256) << 20;
/// Symbols and thick lines reach this far beyond the place of their feature, in pixels.
constexpr double c_symbol_reach = 64;
QColor const c_background = Qt::white;

bool may_be_seen(Tvx_box_d2 const &extent, Tvx_canvas_view const &view)
{
    Tvx_box_d2 box = view.box();
    double const reach = c_symbol_reach * view.units_per_pixel();
    box.add(box.min_x - reach, box.min_y - reach);
    box.add(box.max_x + reach, box.max_y + reach);
    return !extent.is_empty() && extent.intersects(box);
}
} // namespace

void Tvx_map_picture::request(Tvx_canvas_view const &view, double device_pixel_ratio)
{
    if (view == f_view && device_pixel_ratio == f_ratio)
        return;
    f_view = view;
    f_ratio = device_pixel_ratio;
    f_complete = false;
}

void Tvx_map_picture::invalidate()
{
    f_complete = false;
}

Tvx_map_picture::step_result Tvx_map_picture::step(closure<bool()> cancelled)
{
    if (f_complete)
        return c_step_done;
    for (int row = f_layers.count() - 1; row >= 0; --row) {
        if (!f_layers.is_visible(row))
            continue;
        layer_picture const *kept = find(f_layers.id_at(row));
        if (kept && is_current(*kept, f_layers.revision_at(row)))
            continue;
        return draw(row, cancelled) ? c_step_more : c_step_cancelled;
    }
    if (!has_current_labels())
        return draw_labels(cancelled) ? c_step_more : c_step_cancelled;
    drop_removed();
    compose();
    drop_over_budget();
    f_complete = true;
    return c_step_done;
}

void Tvx_map_picture::compose()
{
    QImage image(std::lround(f_view.width() * f_ratio), std::lround(f_view.height() * f_ratio),
                 QImage::Format_ARGB32_Premultiplied);
    if (image.isNull())
        return;
    image.setDevicePixelRatio(f_ratio);
    image.fill(c_background);
    QPainter painter(&image);
    for (int row = f_layers.count() - 1; row >= 0; --row) {
        layer_picture const *kept = find(f_layers.id_at(row));
        if (!f_layers.is_visible(row))
            continue;
        if (kept)
            paint(painter, kept->image, kept->view, f_view);
        if (f_in_work && f_in_work->id == f_layers.id_at(row))
            paint(painter, f_in_work->image, f_in_work->view, f_view);
    }
    if (!f_labelled.empty())
        paint(painter, f_label_picture.image, f_label_picture.view, f_view);
    painter.end();
    f_image = std::move(image);
    f_image_view = f_view;
}

bool Tvx_map_picture::is_work_in_vain() const
{
    if (f_labelled_in_work)
        return *f_labelled_in_work != labelled_layers();
    if (!f_in_work)
        return false;
    int const row = f_layers.row_of(f_in_work->id);
    return !f_layers.is_visible(row) || f_layers.revision_at(row) != f_in_work->revision;
}

std::vector<int> Tvx_map_picture::take_failed_ids()
{
    return std::exchange(f_failed, {});
}

void Tvx_map_picture::paint(QPainter &painter, QImage const &image, Tvx_canvas_view const &image_view,
                            Tvx_canvas_view const &view)
{
    if (image.isNull())
        return;
    if (image_view == view) {
        painter.drawImage(0, 0, image);
        return;
    }
    Tvx_box_d2 const box = image_view.box();
    Tvx_screen_point const a = view.to_screen({box.min_x, box.max_y});
    Tvx_screen_point const b = view.to_screen({box.max_x, box.min_y});
    // Far outside or many times too large, there is nothing worth the painter's time.
    double const limit = 1e6;
    if (std::abs(a.x) > limit || std::abs(a.y) > limit || std::abs(b.x) > limit || std::abs(b.y) > limit)
        return;
    painter.drawImage(QRectF(a.x, a.y, b.x - a.x, b.y - a.y), image);
}

Tvx_map_picture::layer_picture *Tvx_map_picture::find(int id)
{
    auto const found = std::find_if(f_pictures.begin(), f_pictures.end(),
                                    [id](layer_picture const &p) { return p.id == id; });
    return found == f_pictures.end() ? nullptr : &*found;
}

bool Tvx_map_picture::is_current(layer_picture const &picture, int revision) const
{
    return picture.revision == revision && picture.view == f_view && picture.ratio == f_ratio &&
           (picture.outside || !picture.image.isNull());
}

bool Tvx_map_picture::draw(int row, closure<bool()> cancelled)
{
    layer_picture drawn;
    drawn.id = f_layers.id_at(row);
    drawn.revision = f_layers.revision_at(row);
    drawn.view = f_view;
    drawn.ratio = f_ratio;
    drawn.outside = !may_be_seen(f_layers.extent_at(row), f_view);
    if (!drawn.outside) {
        drawn.image = QImage(std::lround(f_view.width() * f_ratio), std::lround(f_view.height() * f_ratio),
                             QImage::Format_ARGB32_Premultiplied);
        drawn.image.setDevicePixelRatio(f_ratio);
        drawn.image.fill(Qt::transparent);
        // The list may change while the user is served in between, so a copy of the layer is drawn.
        Tvx_layer_list::layer_ptr const layer(vx_lr2d_clone(f_layers.layer_at(row)));
        // Served in between, the user may ask for the whole picture: that is a drawing within this one.
        layer_picture *const outer = std::exchange(f_in_work, &drawn);
        Tvx_drawing_result const result =
            f_drawer ? f_drawer(layer.get(), drawn.view, drawn.image, cancelled)
                     : vx_layer_draw(layer.get(), drawn.view, drawn.image, cancelled);
        f_in_work = outer;
        if (result == c_drawing_cancelled)
            return false;
        if (result == c_drawing_failed)
            f_failed.push_back(drawn.id);
    }
    if (layer_picture *kept = find(drawn.id))
        *kept = std::move(drawn);
    else
        f_pictures.push_back(std::move(drawn));
    return true;
}

Tvx_map_picture::label_key Tvx_map_picture::labelled_layers() const
{
    label_key key;
    for (int row = 0; row < f_layers.count(); ++row)
        if (f_layers.is_visible(row) && vx_labels_has_any(f_layers.layer_at(row)))
            key.emplace_back(f_layers.id_at(row), f_layers.revision_at(row));
    return key;
}

bool Tvx_map_picture::has_current_labels() const
{
    label_key const key = labelled_layers();
    return key == f_labelled &&
           (key.empty() || (f_label_picture.view == f_view && f_label_picture.ratio == f_ratio));
}

bool Tvx_map_picture::draw_labels(closure<bool()> cancelled)
{
    label_key const key = labelled_layers();
    layer_picture drawn;
    drawn.view = f_view;
    drawn.ratio = f_ratio;
    if (!key.empty()) {
        drawn.image = QImage(std::lround(f_view.width() * f_ratio), std::lround(f_view.height() * f_ratio),
                             QImage::Format_ARGB32_Premultiplied);
        drawn.image.setDevicePixelRatio(f_ratio);
        drawn.image.fill(Qt::transparent);
        // The list may change meanwhile, so copies of the layers are labelled.
        std::vector<Tvx_layer_list::layer_ptr> copies;
        std::vector<Tvx_labelled_layer> layers;
        for (auto const &[id, revision] : key) {
            copies.emplace_back(vx_lr2d_clone(f_layers.layer_at(f_layers.row_of(id))));
            layers.push_back({copies.back().get(), (static_cast<long long>(id) << 32) + revision});
        }
        // Asked for the whole picture meanwhile, that is a drawing with labels of its own.
        auto labels = std::move(f_labels);
        if (!labels)
            labels.reset(vx_labels_create());
        label_key const *const outer = std::exchange(f_labelled_in_work, &key);
        bool const done =
            vx_labels_draw_on(labels.get(), layers, f_layers.map_unit(), drawn.view, drawn.image, cancelled);
        f_labelled_in_work = outer;
        f_labels = std::move(labels);
        if (!done)
            return false;
    }
    f_labelled = key;
    f_label_picture = std::move(drawn);
    return true;
}

void Tvx_map_picture::drop_removed()
{
    std::erase_if(f_pictures, [this](layer_picture const &p) { return f_layers.row_of(p.id) < 0; });
}

void Tvx_map_picture::drop_over_budget()
{
    qsizetype left = c_picture_budget;
    for (int row = 0; row < f_layers.count(); ++row) {
        layer_picture *kept = find(f_layers.id_at(row));
        if (!kept)
            continue;
        left -= kept->image.sizeInBytes();
        if (left < 0 || !f_layers.is_visible(row))
            kept->image = {};
    }
}
