#include "captions/layout_elements.h"
#include "captions/units.h"
#include "framed_page.h"
#include "ordered_list.h"
#include "pages.h"

#include "platform/basic/vx_res.h"
#include "platform/layers/vx_layout_lr2d.h"
#include "platform/layers/vx_scn_2d.h"

#include <algorithm>

namespace vx::layout_elements {
namespace {
constexpr int c_fine_decimals = 2;
constexpr int c_list_height = 226;
constexpr int c_list_margin = 6;

template <auto Field>
constexpr value legend = field<&vx_layout_legend_lr2d_get, &vx_layout_legend_lr2d_set, Field>;

std::wstring name_of(Ivx_layer const *layer)
{
    std::wstring name;
    vx_lr2d_get_wcaption(layer, Tvx_std_wstring_adapter(name));
    return name;
}

/// The scene of the frame that the legend belongs to, or null.
Ivx_scn_2d *scene_of(Ivx_scn_2d const *layout, Ivx_layer const *layer)
{
    std::wstring frame;
    vx_lr2d_get_wfilename(layer, Tvx_std_wstring_adapter(frame));
    return vx_layout_scene_frame_lr2d_get_scene(vx_layout_find_frame_w(layout, frame.c_str()));
}

/// The items in their order, and behind them the layers that are none, switched off; without items the
/// layers as the map has them.
std::vector<ordered_list::line> lines_of(Ivx_scn_2d const *scene, Ivx_layer const *layer)
{
    using origin = ordered_list::origin;
    auto const items = vx_layout_legend_lr2d_get(layer).items;
    auto const is_item = [&](std::wstring const &name) {
        return std::ranges::any_of(
            items, [&](Tvx_layout_legend_item const &item) { return !item.is_text && item.text == name; });
    };
    int const count = vx_scn_2d_get_count(scene);
    std::vector<std::wstring> names;
    std::vector<ordered_list::line> unnamed;
    for (int i = count; i-- > 0;) {
        auto const *const shown = vx_scn_2d_get_layer(scene, i);
        names.push_back(name_of(shown));
        if (!is_item(names.back()))
            unnamed.push_back({names.back(), items.empty() && vx_lr2d_get_visible(shown), origin::given});
    }
    std::vector<ordered_list::line> lines;
    for (auto const &item : items) {
        bool const is_there = std::ranges::find(names, item.text) != names.end();
        lines.push_back({item.text, item.visible,
                         item.is_text ? origin::own
                         : is_there   ? origin::given
                                      : origin::gone});
    }
    lines.insert(lines.end(), unnamed.begin(), unnamed.end());
    return lines;
}

class legend_page final : public framed_page
{
public:
    using framed_page::framed_page;

    void create() override
    {
        framed_page::create();
        add_text(
            c_le_title, [](Ivx_layer const *layer) { return vx_layout_legend_lr2d_get(layer).title; },
            [](Ivx_layer *layer, wchar_t const *text) {
                auto record = vx_layout_legend_lr2d_get(layer);
                record.title = text;
                vx_layout_legend_lr2d_set(layer, record);
            });
        add_number({c_le_columns, 0, 0, false, legend<&Tvx_layout_legend::columns>});
        add_number(
            {c_le_sample_width, c_unit_mm, c_fine_decimals, false, legend<&Tvx_layout_legend::sample_width>});
        add_number({c_le_sample_height, c_unit_mm, c_fine_decimals, false,
                    legend<&Tvx_layout_legend::sample_height>});
        add_number({c_le_gap, c_unit_mm, c_fine_decimals, false, legend<&Tvx_layout_legend::gap>});
        auto *const group = add_group(c_le_legend_lines, c_list_height);
        f_reset = add_button(c_le_as_map, make_closure<&legend_page::on_reset_click>(this));
        f_list = new ordered_list(this, true);
        f_list->SetParent(group);
        f_list->SetAlignWithMargins(true);
        f_list->GetMargins()->SetBounds(c_list_margin, 2, c_list_margin, c_list_margin);
        f_list->SetAlign(alClient);
        f_list->on_changed = make_closure<&legend_page::on_list_changed>(this);
        add_writing();
    }
    void load_res() override
    {
        framed_page::load_res();
        f_list->load_res(c_le_legend_lines, c_le_add_text, c_le_line_text, c_le_text_line);
    }

private:
    void show_others() override
    {
        f_list->set_lines(lines_of(scene_of(layout(), f_lr2d), f_lr2d));
        show_reset();
    }
    void show_reset() { f_reset->SetEnabled(!vx_layout_legend_lr2d_get(f_lr2d).items.empty()); }
    void on_list_changed(TObject * /*sender*/)
    {
        if (!f_lr2d)
            return;
        auto record = vx_layout_legend_lr2d_get(f_lr2d);
        record.items.clear();
        for (auto const &line : f_list->get_lines())
            record.items.push_back({line.from == ordered_list::origin::own, line.text, line.is_on});
        vx_layout_legend_lr2d_set(f_lr2d, record);
        show_reset();
        call_changed();
    }
    void on_reset_click(TObject * /*sender*/)
    {
        if (!f_lr2d)
            return;
        auto record = vx_layout_legend_lr2d_get(f_lr2d);
        record.items.clear();
        vx_layout_legend_lr2d_set(f_lr2d, record);
        show_others();
        call_changed();
    }

    ordered_list *f_list = nullptr;
    Tvx_button *f_reset = nullptr;
};
} // namespace

rows_page *make_legend_page(TComponent *owner)
{
    return new legend_page(owner);
}
} // namespace vx::layout_elements
