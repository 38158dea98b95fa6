#include "extension/vxk_extension.h"

#include <cstddef>
#include <gtest/gtest.h>
#include <set>
#include <string>
#include <vector>

namespace {
/// A source that counts how often it is called.
class counting_source final : public vx::data_source_impl
{
public:
    int calls = 0;
    int field_count() override { return ++calls, 7; }
    bool field_index(wchar_t const *name, int *index) override
    {
        ++calls;
        *index = static_cast<int>(std::wstring(name).size());
        return true;
    }
    void with_name(vx::string_visitor visitor) override
    {
        ++calls;
        visitor.visit(L"name");
    }
    void detach() override { ++calls; }
};

TEST(handle, is_two_words_and_a_table_is_an_array_of_functions)
{
    constexpr std::size_t c_word = sizeof(void *);
    static_assert(sizeof(t_vx_interface) == 2 * c_word);
    static_assert(sizeof(t_vx_data_source_interface) == 2 * c_word && sizeof(vx::data_source) == 2 * c_word);
    static_assert(offsetof(t_vx_data_source_interface, self) == c_word);
    // Slot 0 is generalize; then the methods, whose number and order other modules rely on.
    static_assert(offsetof(vx_data_source_interface_table, detach) == c_word);
    static_assert(offsetof(vx_data_source_interface_table, field_count) == 8 * c_word);
    static_assert(offsetof(vx_data_source_interface_table, with_error) == 29 * c_word);
    static_assert(sizeof(vx_data_source_interface_table) == 30 * c_word);
    static_assert(sizeof(vx_stat_source_interface_table) == 15 * c_word);
    static_assert(offsetof(vx_grid_source_interface_table, with_index) == 37 * c_word);
    static_assert(sizeof(vx_grid_block_interface_table) == 25 * c_word);
    static_assert(offsetof(vx_vector_source_interface_table, delete_feature) == 24 * c_word);
    static_assert(offsetof(vx_feature_interface_table, get_style) == 22 * c_word);
    static_assert(sizeof(vx_feature_interface_table) == 36 * c_word);
    static_assert(sizeof(vx_element_visitor_interface_table) == 36 * c_word);
}

TEST(handle, names_hold_the_family_and_its_revision)
{
    EXPECT_STREQ(vx_monitor_interface_name, "vx_monitor_interface_0");
    EXPECT_STREQ(vx_data_source_interface_name, "vx_data_source_interface_23");
    EXPECT_STREQ(vx_layer_2d_editor_extension_service_interface_name,
                 "vx_layer_2d_editor_extension_service_interface_98");
    EXPECT_STREQ(vx_docker_interface_name, "vx_docker_interface_92");
    EXPECT_STREQ(vx_docker_visitor_interface_name, "vx_docker_visitor_interface_91");
    EXPECT_STREQ(vx_modal_dialog_service_interface_name, "vx_modal_dialog_service_interface_102");
}

TEST(handle, with_either_word_null_is_null_and_is_never_called)
{
    counting_source source;
    t_vx_data_source_interface const whole = source;
    t_vx_data_source_interface const handles[] = {
        vx_data_source_interface_null(), {whole.table, nullptr}, {nullptr, whole.self}};
    for (t_vx_data_source_interface const h : handles) {
        EXPECT_EQ(vx_data_source_interface_is_null(h), 1);
        EXPECT_FALSE(vx::data_source(h));
        EXPECT_EQ(vxk_datasource_data_source_field_count(h), 0);
        int index = 5;
        EXPECT_FALSE(vxk_datasource_data_source_field_index(h, L"a", &index));
        EXPECT_EQ(index, 5);
        vxk_datasource_data_source_detach(h);
        std::wstring text = L"kept";
        vx::stdwstring_visitor visitor(text);
        vx::data_source(h).with_name(visitor);
        EXPECT_EQ(text, L"kept");
        t_vx_interface const general = vx_data_source_interface_generalize(h);
        EXPECT_TRUE(!general.table && !general.self);
    }
    t_vx_interface const general = vx_data_source_interface_generalize(whole);
    for (t_vx_interface const g : {t_vx_interface{general.table, nullptr}, {nullptr, general.self}})
        EXPECT_EQ(vx_data_source_interface_is_null(vx_data_source_interface_specialize(g)), 1);
    EXPECT_EQ(source.calls, 0);
    EXPECT_EQ(vx_data_source_interface_is_null(whole), 0);
    EXPECT_EQ(vxk_datasource_data_source_field_count(whole), 7);
}

TEST(handle, comparing_is_a_total_order)
{
    counting_source a, b;
    t_vx_data_source_interface const ha = a, hb = b;
    // Words that are negative as signed numbers still come last.
    auto *const high = reinterpret_cast<void *>(~std::uintptr_t{0} - 15);
    std::vector<t_vx_data_source_interface> all{
        ha, hb, {}, {ha.table, high}, {nullptr, high}, {ha.table, nullptr}};
    for (auto const &x : all)
        for (auto const &y : all) {
            int const forth = vx_data_source_interface_compare(x, y);
            EXPECT_EQ(forth, -vx_data_source_interface_compare(y, x));
            EXPECT_EQ(forth == 0, x.table == y.table && x.self == y.self);
            for (auto const &z : all) {
                EXPECT_FALSE(forth < 0 && vx_data_source_interface_compare(y, z) < 0 &&
                             vx_data_source_interface_compare(x, z) >= 0);
            }
        }
    EXPECT_LT(vx_data_source_interface_compare(ha, {ha.table, high}), 0);
    EXPECT_LT(vx_data_source_interface_compare({nullptr, high}, ha), 0) << "the table goes first";

    auto const before = [](t_vx_data_source_interface x, t_vx_data_source_interface y) {
        return vx_data_source_interface_compare(x, y) < 0;
    };
    std::set<t_vx_data_source_interface, decltype(before)> const keys(all.begin(), all.end(), before);
    EXPECT_EQ(keys.size(), all.size());
}

TEST(handle, specializing_takes_the_exact_name_only)
{
    counting_source source;
    t_vx_interface const general = vx_data_source_interface_generalize(source);
    EXPECT_EQ(vx_data_source_interface_compare(vx_data_source_interface_specialize(general), source), 0);
    EXPECT_EQ(vx_stat_source_interface_is_null(vx_stat_source_interface_specialize(general)), 1);
    char const *const others[] = {"vx_data_source_interface_22", "vx_data_source_interface_24",
                                  "vx_data_source_interface_2",  "vx_data_source_interface_230",
                                  "vx_data_source_interface_",   ""};
    for (char const *const name : others) {
        void *table = &source;
        void *self = &source;
        general.table->specialize(general.table, general.self, name, &table, &self);
        EXPECT_TRUE(!table && !self) << name << ": the outs are cleared first";
    }
    EXPECT_EQ(vx_data_source_interface_is_null(vx_data_source_interface_specialize({})), 1);
}

TEST(handle, defaults_of_null_handles)
{
    EXPECT_EQ(vxk_framework_layer_2d_editor_extension_service_priority({}), 1);
    EXPECT_EQ(vxk_framework_dock_panel_service_priority({}), 1);
    EXPECT_EQ(vxk_framework_tool_service_priority({}), 1);
    EXPECT_EQ(vxk_framework_docker_help_context({}), -1);
    EXPECT_EQ(vxk_framework_mru_multiaction_tool_help_context({}), -1);
    EXPECT_EQ(vxk_framework_button_box_default_button({}), -1);
    EXPECT_EQ(vxk_framework_button_box_cancel_button({}), -1);
    EXPECT_EQ(vxk_framework_slider_page_step({}), 10);
    EXPECT_EQ(vxk_framework_slider_single_step({}), 1);
    EXPECT_EQ(vxk_framework_integer_tool_increment({}), 1);
    EXPECT_EQ(vxk_framework_floating_tool_increment({}), 1.0);
    EXPECT_EQ(vxk_framework_canvas_scale({}), 1.0);
    EXPECT_EQ(vxk_framework_outline_fixed_column_count({}), 1);
    EXPECT_TRUE(vxk_framework_docker_visible({}));
    EXPECT_TRUE(vxk_framework_list_tool_visible({}));
    EXPECT_TRUE(vxk_framework_slider_tick_visible({}));
    EXPECT_TRUE(vxk_framework_grid_layout_row_visible({}, 0));
    EXPECT_TRUE(vxk_framework_canvas_outline_column_avid({}));
    EXPECT_TRUE(vxk_framework_outline_show_root({}));
    // Names that are like the ones above and have the plain default.
    EXPECT_FALSE(vxk_framework_modeless_dialog_visible({}) || vxk_framework_scene_adder_visible({}) ||
                 vxk_framework_layer_2d_adder_visible({}) || vxk_framework_layer_3d_adder_visible({}) ||
                 vxk_framework_properties_3d_editor_visible({}));
    EXPECT_FALSE(vxk_framework_grid_layout_column_avid({}, 0) || vxk_framework_grid_layout_row_avid({}, 0));
    EXPECT_FALSE(vxk_framework_checkbox_list_item_enabled({}));
    EXPECT_EQ(vxk_datasource_datasource_service_priority({}), 0);
    EXPECT_EQ(vxk_framework_grid_fixed_column_count({}), 0);
    EXPECT_EQ(vxk_framework_button_default_button({}), 0);
    // Everything else gives nothing.
    EXPECT_EQ(vxk_framework_referent_owner({}).table, nullptr);
    EXPECT_FALSE(vxk_framework_referrer_reachable({}));
    EXPECT_EQ(vxk_framework_style_editor_style_manager({}), nullptr);
    EXPECT_EQ(vxk_framework_style_editor_data_source_item_property_value({}, 0, 0), 0.0);
    EXPECT_EQ(vxk_datasource_vector_source_feature_count({}, true), 0u);
}
} // namespace
