#include "dbf_cells.h"
#include "scale_builders/vxk_rng_type_form.h"
#include "shape_fixture.h"
#include "style_manager/scales/rng_edit_btn.h"

#include <cmath>
#include <limits>
#include <optional>

// Ranges of a field, from the button to the map, against what the values in the file say.

namespace {
using column = std::vector<std::optional<double>>;

/// A numeric field of a dBase table.
column read_dbf(std::string const &file, std::string const &field)
{
    column values;
    for (auto const &cell : dbf_cells(file, field)) {
        char *end = nullptr;
        double const value = std::strtod(cell.c_str(), &end);
        values.push_back(end != cell.c_str() ? std::optional(value) : std::nullopt);
    }
    return values;
}

/// The breaks of Fisher's dynamic programme, written down plainly. Its walk goes on before each break.
std::vector<double> natural_breaks(std::vector<double> x, std::size_t classes)
{
    std::ranges::sort(x);
    std::size_t const n = x.size();
    std::vector cost(n + 1, std::vector<double>(classes + 1, std::numeric_limits<double>::max()));
    std::vector limit(n + 1, std::vector<std::size_t>(classes + 1, 1));
    cost[0].assign(classes + 1, 0);
    cost[1].assign(classes + 1, 0);
    for (std::size_t l = 2; l <= n; ++l) {
        double sum = 0, squares = 0, variance = 0;
        for (std::size_t m = 1; m <= l; ++m) {
            double const value = x[l - m];
            sum += value;
            squares += value * value;
            variance = squares - sum * sum / static_cast<double>(m);
            for (std::size_t j = 2; j <= classes && l > m; ++j)
                if (cost[l][j] >= variance + cost[l - m][j - 1]) {
                    limit[l][j] = l - m;
                    cost[l][j] = variance + cost[l - m][j - 1];
                }
        }
        cost[l][1] = variance;
    }
    std::vector<double> breaks(classes - 1);
    for (std::size_t row = n, j = classes; j >= 2; --j) {
        breaks[j - 2] = x[limit[row][j] - 1];
        row = limit[row][j] - 1;
    }
    return breaks;
}

struct example
{
    wchar_t const *file;
    char const *table;
    char const *field;
};
void PrintTo(example const &e, std::ostream *out)
{
    *out << e.table;
}

class range_tab : public shape_fixture, public testing::WithParamInterface<example>
{
protected:
    static constexpr int c_count = 4;

    void SetUp() override
    {
        vx_rng_type_set_offer_natural(true);
        open(GetParam().file);
        values = read_dbf(std::string(VX_EXAMPLE_DATA "/") + GetParam().table, GetParam().field);
        for (auto const &value : values)
            if (value)
                known.push_back(*value);
        ASSERT_GT(known.size(), 50U);
        low = std::floor(*std::ranges::min_element(known));
        high = std::ceil(*std::ranges::max_element(known));
        ASSERT_TRUE(choose_mode(2));
        auto const field = std::string(GetParam().field);
        ASSERT_TRUE(input::choose_item(editor()->get_prp_scale()->get_combo_box(),
                                       std::wstring(field.begin(), field.end())));
    }
    ~range_tab() override { vx_rng_type_set_offer_natural(false); }

    [[nodiscard]] Tvx_rng_edit *editor() const { return mngr_edit()->get_rng_edit(); }
    static void *ranges_of(Ivx_layer *of)
    {
        return vx_stl_mngr_get_rng_scale_ptr(vx_shp_lr2d_get_stl_mngr_ptr(of));
    }
    template <class Panel>
    static void enter(Panel *row, double value)
    {
        ASSERT_TRUE(input::enter_text(row->get_edit(), std::to_wstring(static_cast<int>(value))));
        ASSERT_TRUE(input::press(VK_TAB));
    }
    /// Presses the builder's button, chooses the kind, fills its panel and accepts.
    template <class Fill>
    void build(wchar_t const *kind, Fill fill)
    {
        input::on_next_modal([=](input::modal_window const &window) {
            auto *const panel = dynamic_cast<Tvx_vcl_rng_type_form &>(*window.form()).get_rng_panel();
            EXPECT_TRUE(input::choose_item(panel->get_type_panel()->get_box()->get_select_box(), kind));
            fill(panel->get_params_panel());
            EXPECT_TRUE(window.press_button(L"Apply"));
            if (window.form())
                window.reject();
        });
        ASSERT_TRUE(input::click(editor()->get_build_btn()));
    }
    template <class Panel>
    void enter_span(Panel *panel) const
    {
        enter(panel->get_min_panel(), low);
        enter(panel->get_max_panel(), high);
        enter(panel->get_count_panel(), c_count);
    }
    static double rounded(double value) { return std::round(value * 100) / 100; }

    /// The scale has these bounds under two decimals, the grid its rows, and the map each object in the
    /// colour of the row that it belongs to.
    void expect_on_map(char const *kind, std::vector<double> bounds)
    {
        SCOPED_TRACE(kind);
        for (double &bound : bounds)
            bound = rounded(bound);
        void *const scale = ranges_of(copy());
        unsigned const count = vx_rng_scale_get_size(scale);
        ASSERT_EQ(count, bounds.size() - 1);
        for (unsigned i = 0; i < count; ++i) {
            EXPECT_NEAR(vx_rng_scale_get_min(scale, i), bounds[i], 1e-9);
            EXPECT_NEAR(vx_rng_scale_get_max(scale, i), bounds[i + 1], 1e-9);
        }
        EXPECT_NEAR(vx_rng_scale_get_min_value(scale), bounds.front(), 1e-9);
        EXPECT_NEAR(vx_rng_scale_get_max_value(scale), bounds.back(), 1e-9);
        EXPECT_EQ(editor()->get_grid()->GetRowCount(), static_cast<int>(count) + 3);
        editor()->generate_default_scale_with_clr();
        std::vector<Tvx_color> colors;
        for (unsigned row = 0; row < count + 2; ++row)
            colors.push_back(vx_stl_prm_get_color(
                vx_scale_prm_get_stl_prm_ptr(editor()->get_grid()->get_row_scale_prm_ptr(row)), false));
        apply();
        map const now(layer.get());
        int seen = 0;
        for (unsigned i = 0; i < values.size(); ++i) {
            if (!values[i] || !is_seen(i))
                continue;
            // Upper bounds belong to the row.
            auto const row =
                static_cast<std::size_t>(std::ranges::lower_bound(bounds, *values[i]) - bounds.begin());
            ++seen;
            EXPECT_TRUE(is_close(now.at(place_of(i)), colors[row])) << "object " << i << " in row " << row;
        }
        EXPECT_GE(seen, 20);
    }

    column values;
    std::vector<double> known;
    double low = 0, high = 0;
};
} // namespace

TEST_P(range_tab, every_kind_of_classification_reaches_the_map)
{
    double mean = 0, squares = 0;
    for (double const value : known)
        mean += value / static_cast<double>(known.size());
    for (double const value : known)
        squares += (value - mean) * (value - mean);
    double const deviation = std::sqrt(squares / static_cast<double>(known.size()));

    std::vector<double> bounds;
    double const step = rounded((high - low) / c_count);
    for (int i = 0; i <= c_count; ++i)
        bounds.push_back(low + i * step);
    build(L"Equal ranges", [this](auto *panel) { enter_span(panel->get_min_max_panel()); });
    expect_on_map("equal", bounds);

    // The values may reach less far than what was typed.
    bounds.clear();
    auto const [least, most] = std::ranges::minmax(known);
    for (int i = 0; i <= c_count; ++i)
        bounds.push_back(least + i * (most - least) / c_count);
    ASSERT_TRUE(input::click(editor()->get_rescale_btn()));
    expect_on_map("rescale", bounds);

    bounds.clear();
    for (int i = 0; i <= c_count; ++i)
        bounds.push_back(mean + deviation * (i - 2)); // 2 deviations to either side
    build(L"Standard deviation", [](auto *panel) {
        enter(panel->get_std_dev_panel()->get_count_panel(), c_count);
        EXPECT_TRUE(input::choose_item(
            panel->get_std_dev_panel()->get_coeff_panel()->get_box()->get_select_box(), 2));
    });
    expect_on_map("deviation", bounds);

    bounds = {0};
    for (double power = 0.01; bounds.back() < most; power *= 10)
        for (int const digit : {1, 2, 5})
            if (bounds.back() < most)
                bounds.push_back(digit * power);
    build(L"Logarithmic, 1-2-5", [](auto *) {});
    expect_on_map("logarithmic", bounds);

    bounds.clear();
    for (int i = 0; i <= c_count; ++i)
        bounds.push_back(low * std::pow(high / low, double(i) / c_count));
    build(L"Logarithmic spacing", [this](auto *panel) { enter_span(panel->get_logspace_panel()); });
    expect_on_map("spacing", bounds);

    bounds = natural_breaks(known, c_count);
    bounds.insert(bounds.begin(), low);
    bounds.push_back(high);
    build(L"Natural breaks", [this](auto *panel) { enter_span(panel->get_natural_panel()); });
    expect_on_map("natural", bounds);
    bounds.front() = least;
    bounds.back() = most;
    ASSERT_TRUE(input::click(editor()->get_rescale_btn()));
    expect_on_map("natural again", bounds);
}

INSTANTIATE_TEST_SUITE_P(examples, range_tab,
                         testing::Values(example{L"nc.shp", "nc.dbf", "BIR74"},
                                         example{L"world.shp", "world.dbf", "lifeExp"}));
