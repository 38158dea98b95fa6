#pragma once

#include "controls/prop/dbf_bytes.h"
#include "scale_builders/vxk_val_type_form.h"
#include "support/temp_dir.h"

#include "platform/base/owned.h"
#include "platform/base/string_adp.h"
#include "platform/dialogs/vx_dlg_table.h"
#include "platform/styles/vxk_styles.h"

#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <vector>

/// A style manager over a table of texts with the fields "Hidden", "Code" and "NAME"; dialogs that answer
/// what a test says; and a style library with point symbols 7 and 9 and area symbols 8 and 9.
class value_table : public testing::Test
{
protected:
    using cell = std::optional<std::string>;
    enum field : unsigned
    {
        hidden,
        code,
        name,
        field_count
    };
    static constexpr Tvx_color c_navy = vx_clr_init_rgb(0, 0, 128);

    value_table()
    {
        dialogs.user = this;
        dialogs.yesno = [](void *self, HWND, wchar_t const *) {
            ++of(self).questions;
            return of(self).says_yes;
        };
        dialogs.progress_start = [](void *, HWND, int, wchar_t const *) -> void * { return nullptr; };
        dialogs.progress_set = [](void *, void *, int, wchar_t const *) {};
        dialogs.progress_finish = [](void *, void *) {};
        dialogs.progress_is_stopped = [](void *self, void *) {
            return of(self).cells_read > of(self).stop_after;
        };
        vx_dlg_set_table(&dialogs);
        vx_global_lib_styles_set_loader(&fill_libs);
        set_style("pnt_style");
    }
    ~value_table() override
    {
        vx_dlg_set_table(nullptr);
        vx_global_lib_styles_set_loader(nullptr);
        EXPECT_EQ(opened, 0) << "the data were left open";
    }
    static value_table &of(void *self) { return *static_cast<value_table *>(self); }
    static bool fill_libs(void *libs)
    {
        void *const lib = vx_style_libs_add_lib(libs, L"Town");
        vx_style_libs_add_lib(libs, L"Wood");
        for (int const symbol : {7, 9}) {
            void *const point = vx_style_list_add_idx_style(vx_style_lib_get_pnt_list_ptr(lib), symbol, 1);
            void *const base = vx_pnt_style_get_bpnt_style_ptr(vx_idx_pnt_style_get_pnt_style_ptr(point));
            vx_bpnt_style_set_color(base, c_navy);
            vx_bpnt_style_set_size(base, symbol);
        }
        for (int const symbol : {8, 9})
            vx_style_list_add_idx_style(vx_style_lib_get_pgn_list_ptr(lib), symbol, 1);
        return true;
    }
    void set_style(char const *type)
    {
        mngr.reset(vx_stl_mngr_create(type));
        vx_stl_mngr_set_val_prop_name_w(mngr.get(), L"CODE");
    }

    // ---- the data
    [[nodiscard]] Tvx_data_events data()
    {
        Tvx_data_events events;
        events.open = make_closure<&value_table::open>(this);
        events.close = make_closure<&value_table::close>(this);
        events.get_np = make_closure<&value_table::np>(this);
        events.get_no = make_closure<&value_table::no>(this);
        events.get_prop = make_closure<&value_table::prop>(this);
        events.get_str = make_closure<&value_table::str>(this);
        events.get_val = make_closure<&value_table::val>(this);
        return events;
    }
    bool open(TObject *)
    {
        opened += has_data;
        return has_data;
    }
    void close(TObject *) { --opened; }
    unsigned np(TObject *) { return field_count; }
    unsigned no(TObject *) { return static_cast<unsigned>(rows.size()); }
    char const *prop(TObject *, unsigned i, bool &usable, bool &numeric)
    {
        usable = i != hidden;
        numeric = i == code && code_is_numeric;
        return i == name ? "NAME" : "Code"; // the first one does not count
    }
    char const *str(TObject *, unsigned field, unsigned i, bool &defined)
    {
        EXPECT_EQ(opened, 1);
        EXPECT_NE(field, hidden);
        ++cells_read;
        cell const &text = rows[i][field == name];
        defined = text.has_value();
        return text ? text->c_str() : "?";
    }
    double val(TObject *, unsigned, unsigned, bool &) { return 0; }

    // ---- the scale
    [[nodiscard]] void *scale() const { return vx_stl_mngr_get_val_scale_ptr(mngr.get()); }
    /// "text=caption|..."
    [[nodiscard]] std::string entries() const
    {
        std::wstring result, text;
        Tvx_std_wstring_adapter adapter(text);
        for (unsigned i = 0; i < vx_val_scale_get_size(scale()); ++i) {
            vx_val_scale_get_text_w(scale(), i, adapter);
            result += (i > 0 ? L"|" : L"") + text;
            vx_val_scale_get_caption_w(scale(), i, adapter);
            result += L"=" + text;
        }
        return UnicodeString(result).to_utf8();
    }
    void fill(std::vector<std::pair<char const *, char const *>> const &entries) const
    {
        vx_val_scale_set_size(scale(), 0);
        for (auto const &[text, caption] : entries) {
            unsigned const entry = vx_val_scale_add(scale()) - 1;
            vx_val_scale_set_text(scale(), entry, text);
            vx_val_scale_set_caption(scale(), entry, caption);
        }
    }
    [[nodiscard]] void *style_prm(unsigned entry) const
    {
        return vx_scale_prm_get_stl_prm_ptr(vx_val_scale_get_scale_prm_ptr(scale(), entry));
    }
    [[nodiscard]] Tvx_color color(unsigned entry) const
    {
        return vx_stl_prm_get_color(style_prm(entry), false);
    }

    /// A legend with the standard fields; each row is L_CODE, B_CODE and three texts.
    [[nodiscard]] std::string legend(std::vector<std::vector<std::string>> const &legend_rows,
                                     std::vector<std::string> const &names = {"L_CODE", "B_CODE", "TEXT1",
                                                                              "TEXT2", "TEXT3"}) const
    {
        std::vector<dbf_bytes::field> fields;
        for (auto const &field : names)
            fields.push_back({field, fields.size() < 2 ? 'N' : 'C', 10});
        auto const file = (dir / "legend.dbf").string();
        vx_test::write_file(file, dbf_bytes::make(fields, legend_rows));
        return file;
    }

    vx::owned<void, &vx_stl_mngr_destroy> mngr;
    vx_dlg_table dialogs;
    vx_test::temp_dir dir;
    std::vector<std::array<cell, 2>> rows; ///< code and name
    bool has_data = true;
    bool code_is_numeric = false;
    bool says_yes = true;
    int questions = 0;
    int opened = 0;
    int cells_read = 0;
    int stop_after = 1'000'000'000;
};
