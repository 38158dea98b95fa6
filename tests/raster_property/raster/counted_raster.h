#pragma once

#include "extension/vxk_extension.h"

#include "platform/basic/vx_bundle.h"
#include "platform/basic/vx_datasource.h"

#include <cmath>
#include <gtest/gtest.h>
#include <string>
#include <string_view>
#include <vector>

/// A raster in memory whose driver counts the walks over its cells, and fails where it is told to. NaN is no
/// value. Sources that begin with "counted:" open it.
class counted_raster
{
public:
    std::vector<std::vector<double>> bands;
    std::vector<int> types; ///< of cells; float64 where none is given
    int stat_walks = 0;
    int histogram_walks = 0;
    bool is_gone = false;
    bool is_broken = false; ///< cells cannot be read

    counted_raster()
    {
        f_driver = {"vx_test_counted", 100'000, this, &can_open, &open, nullptr};
        EXPECT_TRUE(vx_datasource_add_driver(&f_driver));
    }
    counted_raster(counted_raster const &) = delete;
    counted_raster &operator=(counted_raster const &) = delete;
    ~counted_raster() { vx_datasource_remove_driver(&f_driver); }

    /// Walks since the last question.
    [[nodiscard]] std::pair<int, int> taken()
    {
        return {std::exchange(stat_walks, 0), std::exchange(histogram_walks, 0)};
    }

private:
    class source final
        : public vx::polymorphic<vx::data_source_impl, vx::grid_source_impl, vx::stat_source_impl>
    {
    public:
        explicit source(counted_raster &of) : f_of(of) {}
        void detach() override { delete this; }
        int field_count() override { return static_cast<int>(f_of.bands.size()); }
        void field_name(int i, vx::string_visitor visitor) override
        {
            visitor.visit((L" band " + std::to_wstring(i + 1) + L" ").c_str());
        }
        int grid_count() override { return 1; }
        int field_datatype(int i) override
        {
            auto const at = static_cast<std::size_t>(i);
            return at < f_of.types.size() ? f_of.types[at] : int(vx::codes::plain::cells_float64);
        }
        bool compute_stats(int i, bool force) override
        {
            if (!force)
                return false;
            ++f_of.stat_walks;
            f_count = 0;
            f_sum = f_squares = 0;
            for (double const v : cells(i)) {
                if (std::isnan(v))
                    continue;
                f_min = f_count == 0 ? v : std::min(f_min, v);
                f_max = f_count == 0 ? v : std::max(f_max, v);
                f_sum += v;
                f_squares += v * v;
                ++f_count;
            }
            return !f_of.is_broken;
        }
        bool count_nonnull(int, long long *count) override
        {
            *count = f_count;
            return true;
        }
        bool minimum(int, double *value) override { return give(value, f_min); }
        bool maximum(int, double *value) override { return give(value, f_max); }
        bool average(int, double *value) override { return give(value, f_sum / double(f_count)); }
        bool stdev(int, double *value) override
        {
            double const n = double(f_count);
            return give(value, std::sqrt(std::max(0.0, f_squares / n - f_sum / n * f_sum / n)));
        }
        bool with_custom_histogram(int i, double low, double high, int count, long long *counts,
                                   bool force) override
        {
            if (!force || f_of.is_broken)
                return false;
            ++f_of.histogram_walks;
            std::fill(counts, counts + count, 0);
            for (double const v : cells(i))
                if (v >= low && v <= high)
                    ++counts[std::min(count - 1, int((v - low) * (count / (high - low))))];
            return true;
        }

    private:
        [[nodiscard]] std::vector<double> const &cells(int i) const
        {
            return f_of.bands.at(static_cast<std::size_t>(i));
        }
        [[nodiscard]] bool give(double *out, double value) const
        {
            *out = value;
            return f_count > 0;
        }
        counted_raster &f_of;
        long long f_count = 0;
        double f_min = 0, f_max = 0, f_sum = 0, f_squares = 0;
    };

    static bool can_open(void *, wchar_t const *name)
    {
        return std::wstring_view(name).starts_with(L"counted:");
    }
    static void open(void *self, wchar_t const *, bool, t_vx_data_source_interface *result, Ivx_string_adp *)
    {
        auto &of = *static_cast<counted_raster *>(self);
        if (!of.is_gone)
            *result = static_cast<vx::data_source_impl &>(*new source(of));
    }

    Tvx_datasource_driver f_driver{};
};
