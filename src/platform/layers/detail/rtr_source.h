#pragma once

#include "extension/binding/data_source.h"
#include "extension/binding/grid_block.h"
#include "extension/binding/grid_source.h"
#include "extension/binding/stat_source.h"

#include "platform/base/color.h"
#include "platform/base/no_data.h"
#include "platform/basic/vx_stat.h"

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vx::layers {
/// Classes of a histogram; of whole numbers there may be fewer.
inline constexpr unsigned c_raster_classes = 256;

/// Size of a raster in cells, and where they lie: column and row, from the outer corner of the first cell, go
/// to x = x[0] * column + x[1] * row + x[2], and so for y.
struct raster_place
{
    int width = 0;
    int height = 0;
    double x[3] = {1, 0, 0};
    double y[3] = {0, -1, 0};
};

/// What a band's cells stand for in a picture.
enum class raster_color : unsigned char
{
    none,
    gray,
    red,
    green,
    blue,
    alpha,
};

/// Cells of a raster, and how many they are read into: fewer are the middle ones of pieces of equal size, or
/// the averages of these.
struct raster_window
{
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
    int buffer_width = 0;
    int buffer_height = 0;
    bool averages = false;

    [[nodiscard]] std::size_t buffer_cells() const
    {
        return static_cast<std::size_t>(buffer_width) * static_cast<std::size_t>(buffer_height);
    }
};

/// The band that tells where a raster has cells.
inline constexpr int c_raster_mask = -1;
} // namespace vx::layers

/// A raster by its connection string, opened when it is first asked for something. What a driver throws ends
/// here, and counts as a failure. It has to be told when cells are to be read anew.
struct Tvx_rtr_source
{
public:
    explicit Tvx_rtr_source(std::wstring source) : f_name(std::move(source)) {}
    Tvx_rtr_source(Tvx_rtr_source const &) = delete;
    Tvx_rtr_source &operator=(Tvx_rtr_source const &) = delete;
    ~Tvx_rtr_source();

    [[nodiscard]] std::wstring const &name() const { return f_name; }
    /// Names of the bands; none while the raster cannot be opened.
    [[nodiscard]] std::vector<std::wstring> const &bands();
    /// Goes over all cells of the file as it is now, and fills the four numbers. False, with `stat` as it
    /// was, when a cell cannot be read or none has a value.
    [[nodiscard]] bool compute_stat(unsigned band, Tvx_stat_data *stat);
    /// The same for the histogram between two bounds in order, of the file as it was when it was opened.
    [[nodiscard]] bool compute_histogram(unsigned band, Tvx_stat_data *stat, double low, double high);
    /// The bounds of a band as far as they are known without a look at its cells.
    [[nodiscard]] bool quick_bounds(unsigned band, double &low, double &high);
    [[nodiscard]] bool is_bytes(unsigned band);

    // ---- cells

    /// Each cell is a number from 0 to 255.
    [[nodiscard]] bool is_unsigned_bytes(unsigned band);
    /// The numbers stand for something else: averages of them mean nothing.
    [[nodiscard]] bool is_coded(unsigned band);
    [[nodiscard]] bool place(vx::layers::raster_place &place);
    [[nodiscard]] vx::layers::raster_color color_of(unsigned band);
    /// The colours of a band's numbers; empty where it has none.
    [[nodiscard]] std::vector<Tvx_color> palette(unsigned band);
    /// Which of the numbers below `count` cells of the band have; all of them where there are too many cells
    /// to look at each, or not all can be read.
    [[nodiscard]] std::vector<bool> const &used_numbers(unsigned band, std::size_t count);
    [[nodiscard]] vx::no_data_test no_data(unsigned band);
    /// The raster tells of each cell whether it is one, beside the numbers that mean no value.
    [[nodiscard]] bool has_mask();
    /// Cells of a band, or of the mask, that lie in the raster. False when they cannot be read. Of a band
    /// that does not hold bytes they are cut to such.
    [[nodiscard]] bool read(int band, vx::layers::raster_window const &window, unsigned char *cells);
    /// A cell without a value is not a number.
    [[nodiscard]] bool read(int band, vx::layers::raster_window const &window, double *cells);
    /// Bounds for a picture of the band: those that are known, else of cells all over it.
    [[nodiscard]] bool shown_bounds(unsigned band, double &low, double &high);

private:
    /// A number of the component interface.
    [[nodiscard]] int cell_type(unsigned band);
    [[nodiscard]] vx::grid_source grid() const;
    /// Null when there is none.
    [[nodiscard]] vx::grid_block block(int band);
    [[nodiscard]] std::vector<vx::layers::raster_window> samples(int band,
                                                                 vx::layers::raster_place const &size);
    [[nodiscard]] bool read_as(int band, vx::layers::raster_window const &window, void *cells, int type);
    [[nodiscard]] bool open();
    void close();
    [[nodiscard]] bool has_whole_numbers(unsigned band);
    [[nodiscard]] bool note_numbers(unsigned band, std::vector<bool> &used);
    template <class Call>
    bool attempt(Call call);
    [[nodiscard]] bool count_cells(int band, double low, double high, std::vector<long long> &counts);

    std::wstring const f_name;
    vx::data_source f_set;
    vx::stat_source f_stat;
    std::vector<std::wstring> f_bands;
    std::map<int, vx::grid_block> f_blocks;
    std::map<unsigned, std::pair<double, double>> f_shown_bounds;
    std::map<unsigned, std::vector<bool>> f_used_numbers;
};
