#include "label_page.h"

#include "platform/base/unicode_string.h"

#include <QImage>

#include <gtest/gtest.h>
#include <map>
#include <random>
#include <set>

// Places of labels on the example data.
namespace {
using namespace vx_test;

struct data_case
{
    char const *name;
    char const *file;
    wchar_t const *property;
    int pixels;     ///< width of a picture that shows all
    unsigned least; ///< labels
};
data_case const cases[] = {
    {"cities", "naturalearth_cities.shp", L"name", 1400, 80},
    {"countries", "world.shp", L"name_long", 1400, 60},
    {"streets", "streets.shp", L"Length", 2400, 100},
    {"counties", "nc.shp", L"NAME", 1400, 80},
};

/// A picture to be looked at, where a folder is named for it.
void save(label_page &page, std::string const &name)
{
    char const *const folder = std::getenv("VX_LABEL_PICTURES");
    if (!folder)
        return;
    auto const dc = page.picture();
    QImage image(page.view.width, page.view.height, QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) {
            Tvx_color const c = vx_bmp_dc_get_pixel(dc.get(), x, y);
            image.setPixel(x, y, qRgb(c.r, c.g, c.b));
        }
    image.save(QString::fromStdString(std::string(folder) + "/" + name + ".png"));
}

class labels_of : public testing::TestWithParam<data_case>
{
protected:
    void SetUp() override
    {
        label = page.add(GetParam().file, GetParam().property);
        page.show_all(GetParam().pixels, GetParam().pixels * 2 / 3);
    }
    label_page page;
    void *label = nullptr;
};
} // namespace

TEST_P(labels_of, do_not_overlap_and_are_not_cut)
{
    for (double const angle : {0.0, 30.0}) {
        vx_textlr_info_set_angle(label, angle);
        auto const labels = page.drawn();
        save(page, GetParam().name + std::to_string(int(angle)));
        EXPECT_GE(labels.size(), GetParam().least);
        for (std::size_t i = 0; i < labels.size(); ++i) {
            Tvx_box_d2 const &box = labels[i].view.box;
            EXPECT_TRUE(box.min_x >= 0 && box.min_y >= 0 && box.max_x <= page.view.width &&
                        box.max_y <= page.view.height);
            for (std::size_t k = i + 1; k < labels.size(); ++k)
                for (quad const &a : labels[i].quads)
                    for (quad const &b : labels[k].quads)
                        ASSERT_FALSE(quads_overlap(a, b)) << i << " and " << k;
        }
    }
}

TEST_P(labels_of, stay_on_the_map_that_is_moved)
{
    // Near enough for a part to be seen, and for labels to be left out.
    Tvx_box_d2 const whole = page.view.world;
    page.show({whole.min_x + whole.width() * 0.4, whole.min_y + whole.height() * 0.4,
               whole.min_x + whole.width() * 0.7, whole.min_y + whole.height() * 0.7},
              600, 400);
    struct known
    {
        Tvx_pnt_d2 place;
        Tvx_box_d2 box; ///< in map units
    };
    std::map<std::pair<unsigned, std::wstring>, known> seen;
    std::mt19937 random(7);
    std::uniform_int_distribution<int> step(-150, 150);
    double const pixel = page.view.world.width() / page.view.width;
    ++page.revision;
    Tvx_map_view const begin = page.view;
    for (int i = 0; i <= 100; ++i) {
        // Some of the views are new to who places.
        if (i % 10 == 0)
            page.labels.reset(vx_labels_create());
        std::set<std::pair<unsigned, std::wstring>> now;
        for (auto const &l : page.seen()) {
            std::pair const key(l.view.record, l.text);
            now.insert(key);
            Tvx_box_d2 const &b = l.view.box;
            known const k{l.place,
                          {page.view.px_to_world_x(b.min_x), page.view.px_to_world_y(b.max_y),
                           page.view.px_to_world_x(b.max_x), page.view.px_to_world_y(b.min_y)}};
            auto const [at, is_new] = seen.emplace(key, k);
            ASSERT_NEAR(at->second.place.x, l.place.x, pixel / 100) << i;
            ASSERT_NEAR(at->second.place.y, l.place.y, pixel / 100) << i;
        }
        for (auto const &[key, k] : seen) {
            Tvx_box_d2 const &w = page.view.world;
            bool const inside = k.box.min_x > w.min_x + pixel && k.box.max_x < w.max_x - pixel &&
                                k.box.min_y > w.min_y + pixel && k.box.max_y < w.max_y - pixel;
            ASSERT_TRUE(!inside || now.contains(key)) << i << " lost a label";
        }
        page.pan(step(random), step(random));
        if (i % 20 == 19)
            page.view = begin;
    }
    EXPECT_GT(seen.size(), 10u);
}

TEST_P(labels_of, are_placed_once)
{
    ++page.revision;
    EXPECT_TRUE(page.place());
    EXPECT_TRUE(page.place());
    page.pan(3, 2);
    EXPECT_TRUE(page.place());
    EXPECT_EQ(vx_labels_get_placings(page.labels.get()), 1u);
    ++page.revision;
    EXPECT_TRUE(page.place());
    EXPECT_EQ(vx_labels_get_placings(page.labels.get()), 2u);
}

namespace {
/// The shapes of the page's first layer, in pixels of its view.
class shapes_in_pixels
{
public:
    explicit shapes_in_pixels(label_page const &page)
        : f_page(page), f_shapes(vx_shape_files_open(vx_shp_lr2d_get_attr_data_ptr(page.layers[0].get())))
    {
    }
    [[nodiscard]] std::vector<std::vector<Tvx_pnt_d2>> parts(unsigned record) const
    {
        std::vector<std::vector<Tvx_pnt_d2>> all;
        Tvx_shape_view shape;
        EXPECT_TRUE(vx_shape_files_get(f_shapes.get(), record, &shape));
        for (int part = 0; part < shape.part_count; ++part) {
            auto &points = all.emplace_back();
            for (auto i = shape.part_starts[part]; i < shape.part_starts[part + 1]; ++i)
                points.push_back({f_page.view.world_to_px_x(shape.points[i].x),
                                  f_page.view.world_to_px_y(shape.points[i].y)});
        }
        return all;
    }

private:
    label_page const &f_page;
    vx::owned<Ivx_shape_files, &vx_shape_files_close> f_shapes;
};

bool is_in(std::vector<std::vector<Tvx_pnt_d2>> const &rings, Tvx_pnt_d2 p)
{
    bool inside = false;
    for (auto const &ring : rings)
        for (std::size_t i = 0, k = ring.size() - 1; i < ring.size(); k = i++)
            if ((ring[i].y > p.y) != (ring[k].y > p.y) &&
                p.x < (ring[k].x - ring[i].x) * (p.y - ring[i].y) / (ring[k].y - ring[i].y) + ring[i].x)
                inside = !inside;
    return inside;
}

/// Whether the upright box lies in the area: its middle does, and no border runs through it.
bool is_in(std::vector<std::vector<Tvx_pnt_d2>> const &rings, Tvx_box_d2 const &box)
{
    auto const runs_through = [&](Tvx_pnt_d2 a, Tvx_pnt_d2 b) {
        double from = 0, to = 1;
        auto const cut = [&](double start, double step, double low, double high) {
            if (step == 0)
                return start > low && start < high;
            double const t1 = (low - start) / step, t2 = (high - start) / step;
            from = std::max(from, std::min(t1, t2));
            to = std::min(to, std::max(t1, t2));
            return from < to;
        };
        return cut(a.x, b.x - a.x, box.min_x, box.max_x) && cut(a.y, b.y - a.y, box.min_y, box.max_y);
    };
    for (auto const &ring : rings)
        for (std::size_t i = 1; i < ring.size(); ++i)
            if (runs_through(ring[i - 1], ring[i]))
                return false;
    return is_in(rings, Tvx_pnt_d2{(box.min_x + box.max_x) / 2, (box.min_y + box.max_y) / 2});
}

double distance_to(std::vector<std::vector<Tvx_pnt_d2>> const &lines, Tvx_pnt_d2 p)
{
    double least = 1e300;
    for (auto const &line : lines)
        for (std::size_t i = 1; i < line.size(); ++i) {
            Tvx_pnt_d2 const a = line[i - 1], step{line[i].x - a.x, line[i].y - a.y};
            double const length2 = step.x * step.x + step.y * step.y;
            double const t = length2 > 0 ? ((p.x - a.x) * step.x + (p.y - a.y) * step.y) / length2 : 0;
            double const k = std::clamp(t, 0.0, 1.0);
            least = std::min(least, std::hypot(a.x + k * step.x - p.x, a.y + k * step.y - p.y));
        }
    return least;
}
} // namespace

/// Each name has its middle in its area, and lies in it whole wherever there is room for it.
TEST(labels_on_data, lie_in_their_areas_where_they_fit)
{
    for (auto const &[file, property] :
         {std::pair("nc.shp", L"NAME"), std::pair("world.shp", L"name_long")}) {
        SCOPED_TRACE(file);
        label_page page;
        vx_textlr_info_set_place_overlap(page.add(file, property), true);
        page.show_all(1400, 900);
        shapes_in_pixels const shapes(page);
        int whole = 0;
        for (auto const &label : page.drawn()) {
            auto const rings = shapes.parts(label.view.record);
            // Without the free space round the letters.
            Tvx_box_d2 box = label.view.box;
            box = {box.min_x + 1, box.min_y + 1, box.max_x - 1, box.max_y - 1};
            EXPECT_TRUE(is_in(rings, Tvx_pnt_d2{(box.min_x + box.max_x) / 2, (box.min_y + box.max_y) / 2}));
            if (is_in(rings, box)) {
                ++whole;
                continue;
            }
            // A place with two pixels to spare must not be there.
            Tvx_box_d2 area;
            for (auto const &ring : rings)
                for (Tvx_pnt_d2 const p : ring)
                    area.add({p.x, p.y, p.x, p.y});
            double const half_x = box.width() / 2 + 3, half_y = box.height() / 2 + 3;
            for (int i = 0; i < 30 * 30; ++i) {
                double const x = area.min_x + area.width() * (i % 30 + 0.5) / 30;
                double const y = area.min_y + area.height() * (i / 30 + 0.5) / 30;
                ASSERT_FALSE(is_in(rings, Tvx_box_d2{x - half_x, y - half_y, x + half_x, y + half_y}))
                    << UnicodeString(label.text).to_utf8() << " would fit at " << x << ' ' << y;
            }
        }
        EXPECT_GT(whole, 15);
    }
}

/// The letters stand on their line in each way of lying that follows it, and at it in the others.
TEST(labels_on_data, keep_to_their_lines)
{
    label_page page;
    void *const label = page.add("streets.shp", L"Length");
    page.show_all(2400, 1600);
    shapes_in_pixels const shapes(page);
    for (int const type :
         {c_textlr_line_bends, c_textlr_line_straight, c_textlr_line_across, c_textlr_line_level}) {
        SCOPED_TRACE(type);
        vx_textlr_info_set_line_type(label, type);
        auto const labels = page.drawn();
        EXPECT_GT(labels.size(), 50u);
        for (auto const &drawn : labels) {
            auto const lines = shapes.parts(drawn.view.record);
            for (quad const &q : drawn.quads) {
                Tvx_pnt_d2 const middle{(q[0].x + q[2].x) / 2, (q[0].y + q[2].y) / 2};
                double const height = std::hypot(q[2].x - q[1].x, q[2].y - q[1].y);
                // Text that lies straight leaves its line by 0.6 of its size at most.
                EXPECT_LT(distance_to(lines, middle), type == c_textlr_line_bends ? height : 1.5 * height);
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(data, labels_of, testing::ValuesIn(cases),
                         [](auto const &c) { return c.param.name; });
