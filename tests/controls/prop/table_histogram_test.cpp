#include "controls/prop/dbf_show.h"
#include "controls/prop/histogram_panel.h"
#include "dbf_bytes.h"
#include "prop_form.h"
#include "support/temp_dir.h"

#include "platform/base/owned.h"
#include "platform/basic/vx_histogram.h"
#include "platform/toolkit/graphics/bitmap.h"

namespace input = vx::user_input;

namespace {
/// Counts the cells that are read.
class counting_grid : public Tvx_dbf_show_grid
{
public:
    using Tvx_dbf_show_grid::Tvx_dbf_show_grid;
    UnicodeString get_cell_text(int field, int record) override
    {
        ++reads;
        last = Tvx_dbf_show_grid::get_cell_text(field, record);
        highest = std::max(highest, record);
        return last;
    }
    int reads = 0;
    int highest = 0;
    UnicodeString last;
};

using tables = prop_form;

using histogram = vx::owned<Tvx_histogramm_data, &vx_histogramm_destroy>;

class histograms : public prop_form
{
protected:
    void SetUp() override
    {
        prop_form::SetUp();
        bins.reset(vx_histogramm_create());
        vx_histogramm_set_params(bins.get(), 4, 10.0, 50.0);
        for (unsigned i = 0; i < 4; ++i)
            vx_histogramm_set(bins.get(), i, i + 1.0);
        panel = add<Tvx_histogram_panel>(260);
        panel->create();
        panel->SetWidth(400);
        panel->set_histogramm(bins.get());
        panel->on_val1_changed = make_closure<&histograms::on_val1>(this);
        panel->on_val2_changed = make_closure<&histograms::on_val2>(this);
        panel->set_val1(20.0);
        panel->set_val2(40.0);
        panel->update_controls();
        input::wait_idle();
        chart = panel->get_chart();
    }
    void on_val1(TObject *, double value)
    {
        ++events;
        last1 = value;
    }
    void on_val2(TObject *, double value)
    {
        ++events;
        last2 = value;
    }
    int column(double value) { return chart->GetBottomAxis()->CalcPosValue(value); }

    histogram bins;
    Tvx_histogram_panel *panel = nullptr;
    TChart *chart = nullptr;
    double last1 = std::nan("");
    double last2 = std::nan("");
};
constexpr int c_row = 100; // of the chart, where the mouse works
} // namespace

TEST_F(tables, read_no_more_than_is_seen)
{
    vx_test::temp_dir dir;
    auto const path = dir / "big.dbf";
    constexpr int count = 1'000'000;
    std::string bytes = dbf_bytes::make({{"ID", 'N', 7}, {"WORD", 'C', 5}}, {});
    bytes.pop_back();
    bytes.replace(4, 4, std::string{'\x40', '\x42', '\x0f', '\0'}); // the count, lowest byte first
    std::string record = "       0alpha";
    for (int i = 0; i < count; ++i) {
        std::string const digits = std::to_string(i);
        bytes.append(record, 0, record.size() - 5 - digits.size()).append(digits).append("alpha");
    }
    vx_test::write_file(path, bytes);

    auto *grid = add<counting_grid>(300);
    grid->show(path.c_str(), false);
    EXPECT_EQ(grid->GetColCount(), 3);
    EXPECT_EQ(grid->GetRowCount(), count + 1);
    input::wait_idle();
    int const most = (300 / 20 + 1) * 2 * 3; // rows, fields, and a paint more or less
    EXPECT_GT(grid->reads, 0);
    EXPECT_LE(grid->reads, most);
    ASSERT_TRUE(input::click_cell(grid, 1, 1));
    grid->reads = 0;
    ASSERT_TRUE(input::press(VK_END, {ssCtrl}));
    input::wait_idle();
    EXPECT_EQ(grid->GetRow(), count);
    EXPECT_EQ(grid->highest, count - 1);
    EXPECT_EQ(grid->last, L"alpha");
    EXPECT_LE(grid->reads, most);
    grid->reads = 0;
    ASSERT_TRUE(input::wheel(grid, 3));
    EXPECT_LE(grid->reads, most * 3);
}

TEST_F(tables, a_file_cut_anywhere_shows_what_is_left)
{
    vx_test::temp_dir dir;
    auto const path = dir / "cut.dbf";
    std::string const whole =
        dbf_bytes::make({{"NAME", 'C', 8}, {"SIZE", 'N', 4}}, {{"a", "1"}, {"b", "2"}, {"c", "3"}});
    auto *grid = add<counting_grid>(200);
    int rows_before = 0;
    for (std::size_t size = 0; size <= whole.size(); ++size) {
        vx_test::write_file(path, whole.substr(0, size));
        grid->show(path.c_str(), false);
        grid->Repaint();
        EXPECT_GE(grid->GetRowCount(), std::max(2, rows_before));
        rows_before = grid->GetRowCount();
    }
    EXPECT_EQ(rows_before, 4);
    EXPECT_EQ(grid->GetColCount(), 3);
    // The file goes while it is shown: nothing is drawn, and nothing is read.
    std::filesystem::remove(path);
    grid->reads = 0;
    grid->Repaint();
    EXPECT_EQ(grid->reads, 0);
    grid->show(static_cast<char const *>(nullptr), false);
    EXPECT_EQ(grid->GetColCount(), 2);
    EXPECT_EQ(grid->GetRowCount(), 2);
}

TEST_F(histograms, bars_are_shares)
{
    TBarSeries *bars = chart->GetSeries();
    ASSERT_EQ(bars->GetCount(), 5);
    EXPECT_DOUBLE_EQ(bars->GetBar(0).x, 10.0); // the middle of the first bin, less half of the second's width
    EXPECT_EQ(bars->GetBar(0).y, 0.0);
    EXPECT_DOUBLE_EQ(bars->GetBar(1).x, 15.0);
    EXPECT_DOUBLE_EQ(bars->GetBar(4).y, 0.4);
    EXPECT_EQ(bars->GetBar(4).color, 0x00FF0000);

    for (unsigned i = 0; i < 4; ++i)
        vx_histogramm_set(bins.get(), i, i % 2 ? 5.0 : -5.0);
    panel->update_controls();
    EXPECT_EQ(bars->GetBar(2).y, 5.0) << "a total of 0 leaves the counts";
    vx_histogramm_set_params(bins.get(), 1, 0.0, 2.0);
    panel->update_controls();
    EXPECT_EQ(bars->GetCount(), 2);
    panel->set_histogramm(nullptr);
    panel->update_controls();
    EXPECT_EQ(bars->GetCount(), 0);
}

TEST_F(histograms, marks_are_dragged)
{
    int const x1 = column(20.0);
    ASSERT_TRUE(input::move(chart, x1 + 3, c_row));
    EXPECT_EQ(chart->GetCursor(), crSizeWE);
    ASSERT_TRUE(input::move(chart, x1 + 4, c_row));
    EXPECT_EQ(chart->GetCursor(), crDefault);
    EXPECT_EQ(events, 0);

    ASSERT_TRUE(input::mouse_down(chart, x1 - 3, c_row));
    EXPECT_FALSE(chart->GetAllowZoom());
    ASSERT_TRUE(input::move(chart, column(30.0), c_row + 60, {ssLeft}));
    EXPECT_EQ(taken_events(), 1);
    EXPECT_NEAR(last1, 30.0, 0.1);
    EXPECT_DOUBLE_EQ(panel->get_val1(), last1);
    ASSERT_TRUE(input::move(chart, 5000, c_row, {ssLeft}));
    EXPECT_DOUBLE_EQ(last1, chart->GetBottomAxis()->GetMaximum()) << "stays where it can be taken";
    ASSERT_TRUE(input::mouse_up(chart, column(30.0), c_row));
    events = 0;
    ASSERT_TRUE(input::move(chart, column(12.0), c_row));
    EXPECT_EQ(taken_events(), 0);
    EXPECT_FALSE(chart->GetZoomed());

    ASSERT_TRUE(input::drag(chart, column(40.0), c_row, column(25.0), c_row));
    EXPECT_NEAR(last2, 25.0, 0.1);
    ASSERT_TRUE(input::mouse_down(chart, column(25.0), c_row));
    events = 0;
    chart->OnMouseMove(chart, {}, column(35.0), c_row); // the button came up elsewhere
    EXPECT_EQ(taken_events(), 0);
    ASSERT_TRUE(input::mouse_up(chart, column(35.0), c_row));
    panel->set_val1(1000.0); // outside: not drawn, not taken
    input::wait_idle();
    ASSERT_TRUE(input::mouse_down(chart, column(20.0), c_row));
    EXPECT_TRUE(chart->GetAllowZoom());
    ASSERT_TRUE(input::mouse_up(chart, column(20.0), c_row));
    EXPECT_EQ(taken_events(), 0);
}

TEST_F(histograms, marks_move_by_keys)
{
    double const span = chart->GetBottomAxis()->GetMaximum() - chart->GetBottomAxis()->GetMinimum();
    ASSERT_TRUE(input::tab_to(chart));
    input::press(VK_RIGHT);
    EXPECT_NEAR(last1, 20.0 + span / 100, 1e-9);
    input::press(VK_DOWN);
    input::press_times(VK_LEFT, 2);
    EXPECT_NEAR(last2, 40.0 - span / 50, 1e-9);
    EXPECT_EQ(taken_events(), 3);
    input::press(VK_LEFT, {ssCtrl});
    EXPECT_EQ(column(panel->get_val2()), column(40.0 - span / 50) - 1);
    EXPECT_EQ(taken_events(), 1);
    panel->set_val2(chart->GetBottomAxis()->GetMaximum());
    input::press(VK_RIGHT);
    EXPECT_EQ(taken_events(), 0);
}
