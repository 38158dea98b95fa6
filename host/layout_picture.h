#pragma once

#include "platform/base/closure.h"
#include "platform/base/geometry.h"

#include <QImage>
#include <QPointF>
#include <QRectF>

#include <vector>

class QPainter;
class Tvx_layout_document;
class Tvx_layout_sync;

/// How the page lies on the screen: pixels of a millimetre, and the place of its upper left corner.
struct Tvx_layout_place
{
    double zoom = 1;
    double left = 0;
    double top = 0;

    [[nodiscard]] QRectF to_screen(Tvx_box_d2 const &box) const
    {
        return {left + box.min_x * zoom, top + box.min_y * zoom, box.width() * zoom, box.height() * zoom};
    }
    [[nodiscard]] Tvx_pnt_d2 to_page(QPointF at) const
    {
        return {(at.x() - left) / zoom, (at.y() - top) / zoom};
    }
    friend bool operator==(Tvx_layout_place const &, Tvx_layout_place const &) = default;
};

/// Pictures of the elements of a layout, drawn one after the other and laid over each other. An element that
/// is only moved keeps its picture; one that is drawn anew shows its former one until the new one is there,
/// or as much of it as there is.
class Tvx_layout_picture
{
public:
    enum step_result
    {
        c_step_done,
        c_step_more,
        c_step_cancelled,
    };

    /// Both must outlive the pictures.
    Tvx_layout_picture(Tvx_layout_document const &document, Tvx_layout_sync &sync)
        : f_document(document), f_sync(sync)
    {
    }

    /// What is to be shown from now on: this part of the page, in millimetres, with so many pixels in one.
    void request(Tvx_box_d2 const &part, double pixels_per_mm);
    /// Draws one element that has no picture or an old one. `cancelled` ends that.
    [[nodiscard]] step_result step(closure<bool()> cancelled = {});
    /// Gives back the memory of the pictures; nothing while one is being drawn.
    void forget();
    /// The element that is being drawn is another one by now, or gone.
    [[nodiscard]] bool is_work_in_vain() const;
    /// Paints what there is, with the lowest element first.
    void paint(QPainter &painter, Tvx_layout_place const &place) const;
    /// Elements of which not all could be drawn, since this was last asked.
    [[nodiscard]] std::vector<int> take_failed_ids();

private:
    /// What a picture depends on besides its size.
    struct look
    {
        int own = -1;
        int frame = -1; ///< of the frame that the element tells about
        int scenes = -1;
        friend bool operator==(look const &, look const &) = default;
    };
    struct picture
    {
        int id = -1;
        look of;
        double pixels_per_mm = 0;
        Tvx_box_d2 part;  ///< of the element, from its upper left corner
        Tvx_pnt_d2 size;  ///< of the element
        Tvx_box_d2 world; ///< what a frame showed; empty for others
        QImage image;
    };
    [[nodiscard]] look look_of(int id) const;
    /// What is seen of the element, from its upper left corner.
    [[nodiscard]] Tvx_box_d2 seen_part(int id) const;
    [[nodiscard]] bool is_current(int id) const;
    [[nodiscard]] picture const *find(int id) const;
    [[nodiscard]] bool draw(int id, closure<bool()> cancelled);
    void paint_picture(QPainter &painter, picture const &what, Tvx_layout_place const &place) const;

    Tvx_layout_document const &f_document;
    Tvx_layout_sync &f_sync;
    Tvx_box_d2 f_part;
    double f_pixels_per_mm = 1;
    std::vector<picture> f_pictures;
    picture const *f_in_work = nullptr;
    std::vector<int> f_failed;
};
