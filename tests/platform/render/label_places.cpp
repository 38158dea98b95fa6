#include "label_page.h"

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

INSTANTIATE_TEST_SUITE_P(data, labels_of, testing::ValuesIn(cases),
                         [](auto const &c) { return c.param.name; });
