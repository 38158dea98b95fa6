#pragma once

#include "desk_texts.h"
#include "extension/binding/button.h"
#include "extension/binding/checkbox.h"
#include "extension/binding/docker.h"
#include "extension/binding/grid_layout.h"
#include "extension/binding/groupbox.h"
#include "extension/binding/label.h"
#include "extension/binding/output.h"

#include <array>
#include <functional>
#include <string>

/// What the panel shows, and what its buttons do.
struct desk_acts
{
    std::function<std::wstring(desk_text line)> say;
    std::function<bool()> get_only_telling;
    std::function<void(bool)> set_only_telling;
    std::function<void()> put;
    std::function<void()> take;
};

/// The docker: what is to be known of the layer, a choice, and two buttons.
class desk_panel final : public vx::docker_impl
{
public:
    explicit desk_panel(desk_acts acts);

    /// The layer has changed.
    void update() { f_view.update_data(); }
    void set_visible(bool visible);

    void with_caption(vx::string_visitor visitor) override;
    void with_element(vx::element_visitor visitor) override { visitor.visit_grid_layout(f_rows); }
    bool visible() override { return f_visible; }
    void reattach(vx::element_view view) override { f_view = view; }

private:
    struct caption_label final : vx::label_impl
    {
        desk_text text{};
        void with_caption(vx::string_visitor visitor) override { visitor.visit(desk_say(text).c_str()); }
    };
    struct value_output final : vx::output_impl
    {
        desk_panel *panel = nullptr;
        desk_text text{};
        void with_text(vx::string_visitor visitor) override
        {
            visitor.visit(panel->f_acts.say(text).c_str());
        }
    };
    struct act_button final : vx::button_impl
    {
        desk_text text{};
        std::function<void()> act;
        void with_caption(vx::string_visitor visitor) override { visitor.visit(desk_say(text).c_str()); }
        void click() override { act(); }
    };
    struct telling_box final : vx::checkbox_impl
    {
        desk_panel *panel = nullptr;
        void with_caption(vx::string_visitor visitor) override
        {
            visitor.visit(desk_say(desk_text::only_telling).c_str());
        }
        bool checked() override { return panel->f_acts.get_only_telling(); }
        void set_checked(bool checked) override { panel->f_acts.set_only_telling(checked); }
    };
    /// Captions left, values right.
    struct value_grid final : vx::grid_layout_impl
    {
        std::array<caption_label, 3> captions;
        std::array<value_output, 3> values;
        int column_count() override { return 2; }
        int row_count() override { return static_cast<int>(values.size()); }
        bool column_avid(int column) override { return column == 1; }
        void with_element(int column, int row, vx::element_visitor visitor) override;
    };
    struct layer_box final : vx::groupbox_impl
    {
        value_grid grid;
        void with_caption(vx::string_visitor visitor) override
        {
            visitor.visit(desk_say(desk_text::layer).c_str());
        }
        void with_element(vx::element_visitor visitor) override { visitor.visit_grid_layout(grid); }
    };
    /// Everything, one below the other.
    struct row_grid final : vx::grid_layout_impl
    {
        layer_box layer;
        telling_box telling;
        act_button put;
        act_button take;
        int column_count() override { return 1; }
        int row_count() override { return 4; }
        bool column_avid(int) override { return true; }
        void with_element(int column, int row, vx::element_visitor visitor) override;
    };

    desk_acts f_acts;
    row_grid f_rows;
    vx::element_view f_view;
    bool f_visible = false;
};
