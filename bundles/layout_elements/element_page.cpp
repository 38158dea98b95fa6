#include "captions/layout_elements.h"
#include "captions/units.h"
#include "layer_edit/layout/layout_ids.h"
#include "pages.h"
#include "styles/simple/style_panels.h"

#include "platform/basic/vx_res.h"
#include "platform/layers/vx_layout_lr2d.h"
#include "platform/styles/vx_style.h"

#include <array>
#include <string_view>

namespace vx::layout_elements {
namespace {
constexpr int c_style_width = 60;
constexpr int c_place_decimals = 2;

/// Moves the element, which keeps its size.
template <auto Least, auto Most>
constexpr value place = {
    [](Ivx_layer const *layer) { return vx_layout_lr2d_get_box(layer).*Least; },
    [](Ivx_layer *layer, double to) {
        auto box = vx_layout_lr2d_get_box(layer);
        // Beyond its bounds a place is too large a number for a length to be kept behind it.
        to = std::clamp(to, -c_layout_farthest_place, c_layout_farthest_place);
        box.*Most = to + (box.*Most - box.*Least);
        box.*Least = to;
        vx_layout_lr2d_set_box(layer, box);
    },
};
/// Its corner stays where it is.
template <auto Least, auto Most>
constexpr value side = {
    [](Ivx_layer const *layer) {
        auto const box = vx_layout_lr2d_get_box(layer);
        return box.*Most - box.*Least;
    },
    [](Ivx_layer *layer, double length) {
        auto box = vx_layout_lr2d_get_box(layer);
        box.*Most = box.*Least + length;
        vx_layout_lr2d_set_box(layer, box);
    },
};

constexpr number_row c_box_rows[] = {
    {c_le_left, c_unit_mm, c_place_decimals, true, place<&Tvx_box_d2::min_x, &Tvx_box_d2::max_x>},
    {c_le_top, c_unit_mm, c_place_decimals, true, place<&Tvx_box_d2::min_y, &Tvx_box_d2::max_y>},
    {c_le_width, c_unit_mm, c_place_decimals, false, side<&Tvx_box_d2::min_x, &Tvx_box_d2::max_x>},
    {c_le_height, c_unit_mm, c_place_decimals, false, side<&Tvx_box_d2::min_y, &Tvx_box_d2::max_y>},
};

void *style_of(Ivx_layer const *layer)
{
    return vx_layout_lr2d_get_pgn_style_ptr(const_cast<Ivx_layer *>(layer));
}

template <auto Get, auto Set>
constexpr value style_part = {
    [](Ivx_layer const *layer) { return Get(style_of(layer)) ? 1.0 : 0.0; },
    [](Ivx_layer *layer, double is_on) { Set(style_of(layer), is_on != 0); },
};

/// What every element has: name, place, what lies under it and round it.
class element_page final : public rows_page
{
public:
    using rows_page::rows_page;

    void create() override
    {
        add_text(
            c_le_name,
            [](Ivx_layer const *layer) {
                std::wstring name;
                vx_lr2d_get_wcaption(layer, Tvx_std_wstring_adapter(name));
                return name;
            },
            &vx_lr2d_set_wcaption);
        for (auto const &row : c_box_rows)
            f_box.push_back(add_number(row));
        add_flag({c_le_fill, style_part<&vx_pgn_style_get_pgn_visible, &vx_pgn_style_set_pgn_visible>});
        add_flag({c_le_outline, style_part<&vx_pgn_style_get_pln_visible, &vx_pgn_style_set_pln_visible>});
        auto *const style = new Tvx_pgn_style_panel(this);
        style->on_changed = row_changed();
        add_row(
            style, c_label_width + c_style_width,
            [style] {
                style->load_res();
                style->set_caption(vx_res_get_wstr(c_le_style));
            },
            [this, style] {
                style->set_pgn_style(style_of(f_lr2d));
                style->update_controls();
            },
            [this, style] { vx_pgn_style_assign(style_of(f_lr2d), style->get_pgn_style()); });
        style->get_btn()->SetWidth(c_style_width);
    }

private:
    /// The sheet has a page for its size, and nowhere to go.
    void show_others() override
    {
        bool const is_sheet =
            std::string_view(vx_lr2d_get_lr_type(f_lr2d)) == std::string_view(c_layout_page);
        for (auto *const row : f_box)
            set_row_visible(row, !is_sheet);
    }

    std::vector<Tvx_size_panel *> f_box;
};

// ---- the sheet

struct paper
{
    double shorter;
    double longer;
};
/// In the order of the caption with their names, behind which "custom" stands.
constexpr std::array c_papers = {paper{841, 1189}, paper{594, 841}, paper{420, 594},     paper{297, 420},
                                 paper{210, 297},  paper{148, 210}, paper{215.9, 279.4}, paper{215.9, 355.6}};
constexpr double c_same_size = 0.05;

Tvx_pnt_d2 size_of(Ivx_layer const *layer)
{
    auto const box = vx_layout_lr2d_get_box(layer);
    return {box.width(), box.height()};
}

void set_size(Ivx_layer *layer, double width, double height)
{
    vx_layout_lr2d_set_box(layer, {0, 0, width, height});
}

constexpr value c_paper = {
    [](Ivx_layer const *layer) {
        auto const size = size_of(layer);
        std::size_t i = 0;
        while (i < c_papers.size() &&
               (std::abs(std::min(size.x, size.y) - c_papers[i].shorter) > c_same_size ||
                std::abs(std::max(size.x, size.y) - c_papers[i].longer) > c_same_size))
            ++i;
        return static_cast<double>(i);
    },
    [](Ivx_layer *layer, double chosen) {
        auto const i = static_cast<std::size_t>(chosen);
        if (i >= c_papers.size())
            return; // the size is what it is
        auto const size = size_of(layer);
        bool const is_wide = size.x > size.y;
        set_size(layer, is_wide ? c_papers[i].longer : c_papers[i].shorter,
                 is_wide ? c_papers[i].shorter : c_papers[i].longer);
    },
};
constexpr value c_orientation = {
    [](Ivx_layer const *layer) { return size_of(layer).x > size_of(layer).y ? 1.0 : 0.0; },
    [](Ivx_layer *layer, double is_wide) {
        auto const [x, y] = size_of(layer);
        if ((x > y) != (is_wide != 0))
            set_size(layer, y, x);
    },
};

class page_page final : public rows_page
{
public:
    using rows_page::rows_page;

    void create() override
    {
        add_choice({c_le_paper, c_le_papers, c_paper});
        add_choice({c_le_orientation, c_le_orientations, c_orientation});
        add_number(c_box_rows[2]);
        add_number(c_box_rows[3]);
    }
};
} // namespace

rows_page *make_element_page(TComponent *owner)
{
    return new element_page(owner);
}

rows_page *make_page_page(TComponent *owner)
{
    return new page_page(owner);
}
} // namespace vx::layout_elements
