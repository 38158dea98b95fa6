#pragma once

#include "style_manager/api/data_events.h"

#include "platform/base/owned.h"
#include "platform/base/string_adp.h"
#include "platform/dialogs/vx_dlg_table.h"
#include "platform/styles/vxk_styles.h"

#include <charconv>
#include <chrono>
#include <functional>
#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <thread>
#include <vector>

/// A style manager over a table with a geometry, a text and one field of numbers, "Births".
class range_table : public testing::Test
{
protected:
    range_table()
    {
        dialogs.user = this;
        dialogs.message = [](void *self, HWND, Tvx_msg_kind, wchar_t const *text) {
            static_cast<range_table *>(self)->messages.emplace_back(text);
        };
        vx_dlg_set_table(&dialogs);
        set_style("pgn_style");
    }
    ~range_table() override
    {
        vx_dlg_set_table(nullptr);
        EXPECT_EQ(opened, 0) << "the data were left open";
        EXPECT_TRUE(messages.empty()) << "an unexpected message came";
    }

    void set_style(char const *type)
    {
        mngr.reset(vx_stl_mngr_create(type));
        vx_stl_mngr_set_rng_prop_name_w(mngr.get(), L"Births");
    }
    /// The work that lasts is stopped by the user as soon as it asks.
    void stop_what_lasts()
    {
        dialogs.progress_start = [](void *, HWND, int, wchar_t const *) -> void * { return nullptr; };
        dialogs.progress_set = [](void *, void *, int, wchar_t const *) {};
        dialogs.progress_finish = [](void *, void *) {};
        dialogs.progress_is_stopped = [](void *self, void *) {
            return static_cast<range_table *>(self)->cells_read >
                   static_cast<range_table *>(self)->stop_after;
        };
        vx_dlg_set_table(&dialogs);
    }

    [[nodiscard]] Tvx_data_events data()
    {
        Tvx_data_events events;
        events.open = make_closure<&range_table::open>(this);
        events.close = make_closure<&range_table::close>(this);
        events.get_np = make_closure<&range_table::np>(this);
        events.get_no = make_closure<&range_table::no>(this);
        events.get_prop = make_closure<&range_table::prop>(this);
        events.get_str = make_closure<&range_table::str>(this);
        events.get_val = make_closure<&range_table::val>(this);
        if (ready)
            events.get_stat = make_closure<&range_table::stat>(this);
        return events;
    }
    bool open(TObject *) { return ++opened > 0; }
    void close(TObject *) { --opened; }
    unsigned np(TObject *) { return 3; }
    unsigned no(TObject *) { return static_cast<unsigned>(values.size()); }
    char const *prop(TObject *, unsigned i, bool &usable, bool &numeric)
    {
        usable = i > 0;
        numeric = i == 2;
        return i == 0 ? "BIRTHS" : i == 1 ? "Births" : " BIRTHS\t"; // the first two do not count
    }
    char const *str(TObject *, unsigned, unsigned, bool &) { return ""; }
    double val(TObject *, unsigned prop_index, unsigned i, bool &defined)
    {
        ++cells_read;
        EXPECT_EQ(prop_index, 2U);
        EXPECT_EQ(opened, 1);
        defined = values[i].has_value();
        if (microseconds_a_cell > 0)
            std::this_thread::sleep_for(std::chrono::microseconds(microseconds_a_cell));
        if (on_cell)
            on_cell();
        return values[i].value_or(-77);
    }
    bool stat(TObject *, unsigned, double &min, double &max, double &mean, double &deviation, bool &defined)
    {
        min = -3;
        max = 12;
        mean = 5;
        deviation = 2;
        defined = *ready;
        return true;
    }

    // ---- the scale
    [[nodiscard]] void *scale() const { return vx_stl_mngr_get_rng_scale_ptr(mngr.get()); }
    [[nodiscard]] unsigned size() const { return vx_rng_scale_get_size(scale()); }
    /// "type digits: <0 0..5 5..10 >10", with up to 6 significant digits.
    [[nodiscard]] std::string bounds() const
    {
        auto const text = [](double value) {
            char buffer[40];
            return std::string(buffer,
                               std::to_chars(buffer, buffer + 40, value, std::chars_format::general, 6).ptr);
        };
        std::string result = std::to_string(vx_rng_scale_get_rng_type(scale())) + ' ' +
                             std::to_string(vx_rng_scale_get_round_digits(scale())) + ": <" +
                             text(vx_rng_scale_get_min_value(scale()));
        for (unsigned i = 0; i < size(); ++i)
            result +=
                " " + text(vx_rng_scale_get_min(scale(), i)) + ".." + text(vx_rng_scale_get_max(scale(), i));
        return result + " >" + text(vx_rng_scale_get_max_value(scale()));
    }
    /// "up to 0|0 - 5|5 - 10|above 10"
    [[nodiscard]] std::wstring captions() const
    {
        std::wstring result, text;
        Tvx_std_wstring_adapter adapter(text);
        vx_rng_scale_get_min_caption_w(scale(), adapter);
        result = text;
        for (unsigned i = 0; i < size(); ++i) {
            vx_rng_scale_get_caption_w(scale(), i, adapter);
            result += L"|" + text;
        }
        vx_rng_scale_get_max_caption_w(scale(), adapter);
        return result + L"|" + text;
    }
    [[nodiscard]] void *row_prm(unsigned row) const
    {
        void *const prm = row == 0            ? vx_rng_scale_get_min_prm_ptr(scale())
                          : row == size() + 1 ? vx_rng_scale_get_max_prm_ptr(scale())
                                              : vx_rng_scale_get_scale_prm_ptr(scale(), row - 1);
        return vx_scale_prm_get_stl_prm_ptr(prm);
    }
    [[nodiscard]] Tvx_color color(unsigned row) const { return vx_stl_prm_get_color(row_prm(row), false); }
    void set_color(unsigned row, Tvx_color color) const { vx_stl_prm_set_color(row_prm(row), false, color); }
    /// Two ranges of range type `type` from 0 to 8, with a colour each.
    void fill(int type)
    {
        vx_rng_scale_set_size(scale(), 2);
        vx_rng_scale_set_rng_type(scale(), type);
        vx_rng_scale_set_round_digits(scale(), -1);
        for (unsigned i = 0; i < 2; ++i) {
            vx_rng_scale_set_min(scale(), i, 4.0 * i);
            vx_rng_scale_set_max(scale(), i, 4.0 * i + 4);
        }
        vx_rng_scale_set_min_value(scale(), 0);
        vx_rng_scale_set_max_value(scale(), 8);
        for (unsigned row = 0; row < 4; ++row)
            set_color(row, vx_clr_init_rgb(static_cast<int>(10 * row), 100, 200));
    }

    using owned_mngr = vx::owned<void, &vx_stl_mngr_destroy>;
    owned_mngr mngr;
    vx_dlg_table dialogs;
    std::vector<std::optional<double>> values;
    std::optional<bool> ready; ///< the data have statistics at hand; whether there are values
    std::vector<std::wstring> messages;
    int opened = 0;
    int cells_read = 0;
    int stop_after = 0;
    int microseconds_a_cell = 0;
    std::function<void()> on_cell;
};
