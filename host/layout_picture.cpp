#include "host/layout_picture.h"

#include "host/layout_document.h"
#include "host/layout_sync.h"

#include "platform/layers/layout_keys.h"
#include "platform/layers/vx_scn_2d.h"
#include "platform/render/vx_bmp_dc.h"
#include "platform/render/vx_layout_render.h"

#include <QPainter>

#include <algorithm>
#include <cmath>
#include <utility>

namespace {
/// Outlines and letters reach so far beyond an element's box, in millimetres.
constexpr double c_reach = 4;
/// Of an element that is much larger than what is seen of it, only that is drawn, and so much round it.
constexpr double c_margin_part = 0.3;
constexpr double c_whole_pixels = 6e6;
constexpr double c_most_pixels = 6e7;

Tvx_box_d2 common(Tvx_box_d2 const &a, Tvx_box_d2 const &b)
{
    return {std::max(a.min_x, b.min_x), std::max(a.min_y, b.min_y), std::min(a.max_x, b.max_x),
            std::min(a.max_y, b.max_y)};
}

Tvx_box_d2 grown(Tvx_box_d2 const &box, double x, double y)
{
    return {box.min_x - x, box.min_y - y, box.max_x + x, box.max_y + y};
}

bool holds(Tvx_box_d2 const &box, Tvx_box_d2 const &part)
{
    constexpr double c_rounding = 1e-6;
    return part.min_x >= box.min_x - c_rounding && part.min_y >= box.min_y - c_rounding &&
           part.max_x <= box.max_x + c_rounding && part.max_y <= box.max_y + c_rounding;
}

Tvx_box_d2 shifted(Tvx_box_d2 const &box, double x, double y)
{
    return {box.min_x + x, box.min_y + y, box.max_x + x, box.max_y + y};
}
} // namespace

void Tvx_layout_picture::request(Tvx_box_d2 const &part, double pixels_per_mm)
{
    f_part = part;
    f_pixels_per_mm = pixels_per_mm;
}

Tvx_layout_picture::look Tvx_layout_picture::look_of(int id) const
{
    look result{f_document.look_of(id)};
    if (int const frame = f_document.frame_of(id); frame >= 0) {
        result.frame = f_document.look_of(frame);
        result.scenes = f_sync.revision();
    }
    return result;
}

Tvx_box_d2 Tvx_layout_picture::seen_part(int id) const
{
    Tvx_box_d2 const box = f_document.box_of(id);
    return common(shifted(f_part, -box.min_x, -box.min_y),
                  grown({0, 0, box.width(), box.height()}, c_reach, c_reach));
}

Tvx_layout_picture::picture const *Tvx_layout_picture::find(int id) const
{
    auto const found = std::ranges::find(f_pictures, id, &picture::id);
    return found == f_pictures.end() ? nullptr : &*found;
}

bool Tvx_layout_picture::is_current(int id) const
{
    Tvx_box_d2 const seen = seen_part(id);
    if (seen.is_empty() || !vx_lr2d_get_visible(f_document.element(id)))
        return true;
    picture const *const kept = find(id);
    return kept && kept->of == look_of(id) && kept->pixels_per_mm == f_pixels_per_mm &&
           holds(kept->part, seen);
}

Tvx_layout_picture::step_result Tvx_layout_picture::step(closure<bool()> cancelled)
{
    std::erase_if(f_pictures, [this](picture const &p) { return f_document.row_of(p.id) < 0; });
    // Frames take longest, so all else comes first.
    for (bool const frames : {false, true})
        for (int row = f_document.count() - 1; row >= 0; --row) {
            int const id = f_document.id_at(row);
            if (vx_layout_is(f_document.element(id), c_lr_key_layout_scene_frame) != frames || is_current(id))
                continue;
            return draw(id, cancelled) ? c_step_more : c_step_cancelled;
        }
    return c_step_done;
}

bool Tvx_layout_picture::draw(int id, closure<bool()> cancelled)
{
    Tvx_layout_sync::use const use(f_sync);
    // The layout may change while the user is served in between, so a copy is drawn: of the element, and of
    // the frame that it belongs to.
    vx::owned<Ivx_scn_2d, &vx_scn_2d_destroy> const copy(vx_scn_2d_create(L""));
    if (int const frame = f_document.frame_of(id); frame >= 0 && frame != id)
        vx_scn_2d_insert(copy.get(), 0, vx_lr2d_clone(f_document.element(frame)));
    vx_scn_2d_insert(copy.get(), 0, vx_lr2d_clone(f_document.element(id)));
    Ivx_layer *const element = vx_scn_2d_get_layer(copy.get(), 0);
    Tvx_box_d2 const box = f_document.box_of(id);
    picture drawn{id, look_of(id), f_pixels_per_mm, {}, {box.width(), box.height()}, {}, {}};
    Tvx_box_d2 const whole = grown({0, 0, box.width(), box.height()}, c_reach, c_reach);
    drawn.part = whole;
    auto const pixels = [this](Tvx_box_d2 const &part) {
        return part.width() * part.height() * f_pixels_per_mm * f_pixels_per_mm;
    };
    if (pixels(whole) > c_whole_pixels)
        drawn.part = common(
            whole, grown(seen_part(id), f_part.width() * c_margin_part, f_part.height() * c_margin_part));
    if (pixels(drawn.part) > c_most_pixels)
        drawn.part = common(whole, seen_part(id));
    if (vx_layout_is(element, c_lr_key_layout_scene_frame))
        drawn.world = vx_layout_scene_frame_lr2d_get_world(element);

    int const width = std::max(1, int(std::ceil(drawn.part.width() * f_pixels_per_mm)));
    int const height = std::max(1, int(std::ceil(drawn.part.height() * f_pixels_per_mm)));
    // Whole pixels, so that a millimetre has the same number of them in all pictures.
    drawn.part.max_x = drawn.part.min_x + width / f_pixels_per_mm;
    drawn.part.max_y = drawn.part.min_y + height / f_pixels_per_mm;
    drawn.image = QImage(width, height, QImage::Format_ARGB32_Premultiplied);
    drawn.image.fill(Qt::transparent);
    if (!drawn.image.isNull()) {
        vx::owned<void, &vx_bmp_dc_destroy> const device(vx_bmp_dc_create());
        vx_bmp_dc_set_pixels(device.get(), drawn.image.bits(), width, height,
                             int(drawn.image.bytesPerLine()));
        struct watch
        {
            closure<bool()> ask;
            bool cancelled = false;
            bool is_cancelled() { return cancelled = cancelled || ask(); }
        } watch{cancelled};
        picture const *const outer = std::exchange(f_in_work, &drawn);
        bool const done =
            vx_layout_render_element(copy.get(), element, shifted(drawn.part, box.min_x, box.min_y),
                                     device.get(), make_closure<&watch::is_cancelled>(&watch));
        f_in_work = outer;
        if (watch.cancelled)
            return false;
        if (!done)
            f_failed.push_back(id);
    }
    std::erase_if(f_pictures, [id](picture const &p) { return p.id == id; });
    f_pictures.push_back(std::move(drawn));
    return true;
}

void Tvx_layout_picture::forget()
{
    if (!f_in_work)
        f_pictures.clear();
}

bool Tvx_layout_picture::is_work_in_vain() const
{
    return f_in_work && (f_document.row_of(f_in_work->id) < 0 || !(look_of(f_in_work->id) == f_in_work->of) ||
                         !vx_lr2d_get_visible(f_document.element(f_in_work->id)));
}

std::vector<int> Tvx_layout_picture::take_failed_ids()
{
    return std::exchange(f_failed, {});
}

void Tvx_layout_picture::paint(QPainter &painter, Tvx_layout_place const &place) const
{
    for (int row = f_document.count() - 1; row >= 0; --row) {
        int const id = f_document.id_at(row);
        if (!vx_lr2d_get_visible(f_document.element(id)))
            continue;
        picture const *const kept = find(id);
        if (kept)
            paint_picture(painter, *kept, place);
        bool const is_whole = kept && kept->of == look_of(id) && kept->pixels_per_mm == f_pixels_per_mm;
        if (f_in_work && f_in_work->id == id && !is_whole)
            paint_picture(painter, *f_in_work, place);
    }
}

void Tvx_layout_picture::paint_picture(QPainter &painter, picture const &what,
                                       Tvx_layout_place const &place) const
{
    if (what.image.isNull())
        return;
    Tvx_box_d2 const box = f_document.box_of(what.id);
    Tvx_box_d2 part = what.part;
    bool is_clipped = false;
    if (what.world.is_empty()) {
        // An element that is being resized is stretched for the time being.
        double const x = box.width() / what.size.x;
        double const y = box.height() / what.size.y;
        part = {part.min_x * x, part.min_y * y, part.max_x * x, part.max_y * y};
    } else if (Tvx_box_d2 const now = vx_layout_scene_frame_lr2d_get_world(f_document.element(what.id));
               now != what.world && now.width() > 0 && now.height() > 0) {
        // What the frame showed, where it shows it now.
        double const x = what.world.width() / what.size.x / (now.width() / box.width());
        double const y = what.world.height() / what.size.y / (now.height() / box.height());
        double const left = (what.world.min_x - now.min_x) / now.width() * box.width();
        double const top = (now.max_y - what.world.max_y) / now.height() * box.height();
        part = {left + part.min_x * x, top + part.min_y * y, left + part.max_x * x, top + part.max_y * y};
        is_clipped = true;
    }
    QRectF const target = place.to_screen(shifted(part, box.min_x, box.min_y));
    // Many times too large, there is nothing worth the painter's time.
    constexpr double c_limit = 1e5;
    if (std::max(std::abs(target.left()), std::abs(target.right())) > c_limit ||
        std::max(std::abs(target.top()), std::abs(target.bottom())) > c_limit)
        return;
    painter.save();
    if (is_clipped)
        painter.setClipRect(place.to_screen(box), Qt::IntersectClip);
    bool const is_same_size = what.pixels_per_mm == f_pixels_per_mm && !is_clipped;
    double const ratio = painter.device()->devicePixelRatioF();
    if (is_same_size && std::abs(target.width() * ratio - what.image.width()) < 0.5) {
        // Pixel on pixel: nothing blurs.
        QPointF const corner(std::round(target.left() * ratio) / ratio,
                             std::round(target.top() * ratio) / ratio);
        painter.drawImage(QRectF(corner, QSizeF(what.image.size()) / ratio), what.image);
    } else {
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.drawImage(target, what.image);
    }
    painter.restore();
}
