#pragma once

#include "extension/binding/data_source.h"
#include "extension/binding/stat_source.h"

#include "platform/basic/vx_stat.h"

#include <memory>
#include <string>
#include <vector>

namespace vx::layers {
/// Classes of a histogram.
inline constexpr unsigned c_raster_classes = 256;
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

private:
    [[nodiscard]] bool open();
    void close();
    template <class Call>
    bool attempt(Call call);
    [[nodiscard]] bool count_cells(int band, double low, double high, std::vector<long long> &counts);

    std::wstring const f_name;
    vx::data_source f_set;
    vx::stat_source f_stat;
    std::vector<std::wstring> f_bands;
};
