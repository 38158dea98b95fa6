#include "dbf_cells.h"
#include "scale_builders/vxk_val_type_form.h"
#include "shape_fixture.h"
#include "style_manager/scales/val_edit_btn.h"

#include "platform/styles/vx_global_lib_styles.h"
#include "platform/styles/vx_style_lib.h"

#include <map>

// Values of a field, from the button to the map, against what the file says.

namespace {
struct example
{
    char const *name;
    char const *field;
    char const *captions;
};
void PrintTo(example const &e, std::ostream *out)
{
    *out << e.name;
}

class value_tab : public shape_fixture, public testing::WithParamInterface<example>
{
protected:
    using strings = std::vector<std::string>;

    void SetUp() override
    {
        auto const file = std::string(VX_EXAMPLE_DATA "/") + GetParam().name + ".dbf";
        open(wide(std::string(GetParam().name) + ".shp").c_str());
        values = dbf_cells(file, GetParam().field);
        auto const names = dbf_cells(file, GetParam().captions);
        for (std::size_t i = 0; i < values.size(); ++i)
            if (!values[i].empty())
                captions.try_emplace(values[i], names[i]); // the first object gives the caption
        ASSERT_TRUE(choose_mode(1));
        ASSERT_TRUE(choose_field(wide(GetParam().field).c_str()));
        dialogs.file = [](void *, HWND, int, int, Tvx_file_dialog_prm *prm) {
            prm->file_name = L"" VX_EXAMPLE_DATA "/nc_legend.dbf";
            return true;
        };
        vx_dlg_set_table(&dialogs);
    }
    ~value_tab() override { vx_global_lib_styles_set_loader(nullptr); }
    static std::wstring wide(std::string const &text) { return {text.begin(), text.end()}; }

    /// Presses the builder's button, chooses the mode, fills its panel and accepts.
    template <class Fill>
    void build(int mode, Fill fill)
    {
        input::on_next_modal([=, this](input::modal_window const &window) {
            auto *const panel = dynamic_cast<Tvx_vcl_val_type_form &>(*window.form()).get_val_panel();
            auto *const listed = panel->get_statistic_panel()->get_list_box()->GetItems();
            EXPECT_EQ(listed->GetCount(), static_cast<int>(captions.size()));
            int place = 0;
            for (auto const &[value, name] : captions)
                EXPECT_EQ(listed->GetStrings(place++), wide(value));
            auto *const modes = panel->get_rescale_panel();
            EXPECT_TRUE(input::choose_item(modes->get_type_panel()->get_box()->get_select_box(), mode));
            fill(modes);
            EXPECT_TRUE(window.press_button(L"Apply"));
            if (window.form())
                window.reject();
        });
        ASSERT_TRUE(input::click(val_edit()->get_build_btn()));
    }
    [[nodiscard]] void *prm(unsigned entry) const
    {
        return vx_scale_prm_get_stl_prm_ptr(vx_val_scale_get_scale_prm_ptr(scale_of(copy()), entry));
    }
    void color_entries() const
    {
        unsigned const count = vx_val_scale_get_size(scale_of(copy()));
        for (unsigned i = 0; i < count; ++i)
            vx_stl_prm_clr_set_all(prm(i), vx_clr_init_rgb(static_cast<int>(250 * i / count), 90, 160),
                                   false);
    }
    /// The scale has these entries, the grid its rows, and the map each object in the colour of its entry.
    void expect_on_map(std::vector<std::pair<std::string, std::string>> const &entries)
    {
        void *const scale = scale_of(copy());
        ASSERT_EQ(vx_val_scale_get_size(scale), entries.size());
        EXPECT_EQ(val_edit()->get_grid()->GetRowCount(), static_cast<int>(entries.size()) + 1);
        std::map<std::string, Tvx_color> colors;
        for (unsigned i = 0; i < entries.size(); ++i) {
            EXPECT_EQ(text_at(scale, i), wide(entries[i].first));
            EXPECT_EQ(caption_at(scale, i), wide(entries[i].second));
            colors.try_emplace(entries[i].first, vx_stl_prm_get_color(prm(i), false));
        }
        apply();
        map const now(layer.get());
        int seen = 0;
        for (unsigned i = 0; i < values.size(); ++i) {
            auto const color = colors.find(values[i]);
            if (color == colors.end() || !is_seen(i))
                continue;
            ++seen;
            EXPECT_TRUE(is_close(now.at(place_of(i)), color->second)) << "object " << i << ", " << values[i];
        }
        EXPECT_GE(seen, 20);
    }

    strings values;
    std::map<std::string, std::string> captions; ///< of the different values
};

/// The symbols of the counties' legend, each an area of one colour.
bool fill_library(void *libs)
{
    void *const lib = vx_style_libs_add_lib(libs, L"Land");
    struct
    {
        int code;
        Tvx_color color;
    } const symbols[] = {{821, vx_clr_init_rgb(20, 110, 40)},
                         {861, vx_clr_init_rgb(190, 120, 20)},
                         {831, vx_clr_init_rgb(60, 90, 190)}};
    for (auto const &symbol : symbols) {
        void *const style = vx_style_list_add_idx_style(vx_style_lib_get_pgn_list_ptr(lib), symbol.code, 1);
        vx_bpgn_style_set_color(vx_pgn_style_get_bpgn_style_ptr(vx_idx_pgn_style_get_pgn_style_ptr(style)),
                                symbol.color);
    }
    return true;
}
} // namespace

TEST_P(value_tab, values_reach_the_map)
{
    std::vector<std::pair<std::string, std::string>> entries(captions.begin(), captions.end());
    build(c_val_builder_rebuild, [](auto *modes) {
        EXPECT_TRUE(input::choose_item(modes->get_rebuild_panel()->get_prp_scale()->get_combo_box(),
                                       wide(GetParam().captions)));
    });
    color_entries();
    expect_on_map(entries);

    // Two values are missing, one is there that the data do not have; captions are read anew.
    void *const scale = scale_of(copy());
    vx_val_scale_del(scale, 1);
    vx_val_scale_set_text(scale, 0, "gone");
    vx_val_scale_set_caption(scale, 2, "former");
    auto expected = entries;
    expected.erase(expected.begin(), expected.begin() + 2);
    expected.insert(expected.end(), entries.begin(), entries.begin() + 2);
    auto const kept = vx_stl_prm_get_color(prm(1), false);
    build(c_val_builder_modify, [](auto *modes) {
        auto const tick = [](TWinControl *box) { return input::click(box, 8, box->GetHeight() / 2); };
        auto *const panel = modes->get_modify_panel();
        EXPECT_TRUE(tick(panel->get_del_box()));
        EXPECT_TRUE(tick(panel->get_capt_box()));
        EXPECT_TRUE(input::choose_item(panel->get_prp_scale()->get_combo_box(), wide(GetParam().captions)));
    });
    EXPECT_EQ(vx_stl_prm_get_color(prm(0), false), kept);
    color_entries();
    expect_on_map(expected);
}

TEST_P(value_tab, a_legend_gives_captions_and_symbols)
{
    if (std::string(GetParam().name) != "nc")
        return; // the others have no codes
    vx_global_lib_styles_set_loader(&fill_library);
    std::string const legend = VX_EXAMPLE_DATA "/nc_legend.dbf";
    auto const codes = dbf_cells(legend, "L_CODE"), symbols = dbf_cells(legend, "B_CODE"),
               first = dbf_cells(legend, "TEXT1"), second = dbf_cells(legend, "TEXT2");
    std::vector<std::pair<std::string, std::string>> entries;
    for (std::size_t i = 0; i < codes.size(); ++i)
        entries.emplace_back(std::to_string(std::stoi(codes[i])), first[i] + second[i]);
    EXPECT_EQ(entries.front(), (std::pair<std::string, std::string>("37009", "Ashe, west")));
    build(c_val_builder_rebuild_with_legend, [](auto *modes) {
        EXPECT_TRUE(
            input::click(modes->get_legend_panel()->get_dbf_open_panel()->get_file_panel()->get_button()));
    });
    // Rows of one symbol are the steps of its colour.
    std::map<int, unsigned> steps, step;
    for (auto const &symbol : symbols)
        ++steps[std::stoi(symbol)];
    vx::owned<void, &vx_pgn_style_destroy> const style(vx_pgn_style_create());
    for (unsigned i = 0; i < entries.size(); ++i) {
        int const symbol = std::stoi(symbols[i]);
        ASSERT_TRUE(vx_global_lib_styles_get_spec_pgn_gradient(0, symbol, step[symbol]++, steps[symbol],
                                                               style.get()));
        EXPECT_EQ(vx_stl_prm_get_color(prm(i), false),
                  vx_bpgn_style_get_color(vx_pgn_style_get_bpgn_style_ptr(style.get())));
    }
    expect_on_map(entries);
}

INSTANTIATE_TEST_SUITE_P(examples, value_tab,
                         testing::Values(example{"nc", "FIPS", "NAME"},
                                         example{"world", "continent", "region_un"}));
