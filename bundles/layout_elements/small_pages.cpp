#include "captions/layout_elements.h"
#include "captions/units.h"
#include "controls/forms/edits.h"
#include "controls/forms/event_off.h"
#include "framed_page.h"
#include "layer_edit/layout/layout_image_edit.h"
#include "pages.h"

#include "platform/basic/vx_res.h"
#include "platform/layers/vx_layout_lr2d.h"

namespace vx::layout_elements {
namespace {
constexpr int c_memo_height = 120;
constexpr int c_fine_decimals = 2;

template <auto Field>
constexpr value bar = field<&vx_layout_scale_bar_lr2d_get, &vx_layout_scale_bar_lr2d_set, Field>;
template <auto Field>
constexpr value arrow = field<&vx_layout_north_arrow_lr2d_get, &vx_layout_north_arrow_lr2d_set, Field>;
/// -1, 0, 1 as choices.
template <auto Field>
constexpr value alignment = {
    [](Ivx_layer const *layer) { return vx_layout_lr2d_get_writing(layer).*Field + 1.0; },
    [](Ivx_layer *layer, double chosen) {
        auto writing = vx_layout_lr2d_get_writing(layer);
        writing.*Field = static_cast<int>(chosen) - 1;
        vx_layout_lr2d_set_writing(layer, writing);
    },
};
constexpr choice_row c_across = {c_le_across, c_le_acrosses, alignment<&Tvx_layout_writing::align_x>};
constexpr choice_row c_upright = {c_le_upright, c_le_uprights, alignment<&Tvx_layout_writing::align_y>};

class text_page final : public rows_page
{
public:
    using rows_page::rows_page;

    void create() override
    {
        auto *const memo = new Tvx_memo(this);
        memo->SetHeight(c_memo_height);
        memo->SetScrollBars(ssVertical);
        memo->OnChange = row_changed();
        add_row(
            memo, 0, [memo] { memo->SetAccessibleName(vx_res_get_wstr(c_le_text)); },
            [this, memo] {
                std::wstring text;
                vx_layout_text_lr2d_get_wtext(f_lr2d, Tvx_std_wstring_adapter(text));
                vx::event_off const quiet(memo->OnChange);
                memo->SetText(text);
            },
            [this, memo] {
                std::wstring text = memo->GetText().str();
                std::erase(text, L'\r');
                vx_layout_text_lr2d_set_wtext(f_lr2d, text.c_str());
            });
        add_choice(c_across);
        add_choice(c_upright);
        add_number({c_le_angle,
                    c_unit_degrees,
                    c_fine_decimals,
                    true,
                    {&vx_layout_text_lr2d_get_angle, &vx_layout_text_lr2d_set_angle}});
        add_writing();
    }
};

class scale_bar_page final : public framed_page
{
public:
    using framed_page::framed_page;

    void create() override
    {
        framed_page::create();
        add_choice({c_le_kind, c_le_bar_kinds, bar<&Tvx_layout_scale_bar::kind>});
        add_choice({c_le_unit, c_le_units, bar<&Tvx_layout_scale_bar::unit>});
        add_number({c_le_divisions, 0, 0, false, bar<&Tvx_layout_scale_bar::divisions>});
        add_number({c_le_division_length, c_le_zero_is_automatic, c_fine_decimals, false,
                    bar<&Tvx_layout_scale_bar::length>});
        add_number({c_le_bar_height, c_unit_mm, c_fine_decimals, false, bar<&Tvx_layout_scale_bar::height>});
        add_writing();
    }
};

class scale_text_page final : public framed_page
{
public:
    using framed_page::framed_page;

    void create() override
    {
        framed_page::create();
        add_choice(c_across);
        add_choice(c_upright);
        add_writing();
    }
};

class north_arrow_page final : public framed_page
{
public:
    using framed_page::framed_page;

    void create() override
    {
        framed_page::create();
        add_choice({c_le_kind, c_le_arrow_kinds, arrow<&Tvx_layout_north_arrow::kind>});
        add_number(
            {c_le_angle, c_unit_degrees, c_fine_decimals, true, arrow<&Tvx_layout_north_arrow::angle>});
        add_flag({c_le_letter, arrow<&Tvx_layout_north_arrow::has_letter>});
        add_writing();
    }
};

class image_page final : public rows_page
{
public:
    using rows_page::rows_page;

    void create() override
    {
        add_page<Tvx_layout_image_edit>()->get_file()->set_caption_width(c_label_width);
        add_flag(
            {c_le_keep_ratio,
             {[](Ivx_layer const *layer) { return vx_layout_image_lr2d_get_keep_ratio(layer) ? 1.0 : 0.0; },
              [](Ivx_layer *layer, double keep) { vx_layout_image_lr2d_set_keep_ratio(layer, keep != 0); }}});
    }
};
} // namespace

rows_page *make_text_page(TComponent *owner)
{
    return new text_page(owner);
}
rows_page *make_scale_bar_page(TComponent *owner)
{
    return new scale_bar_page(owner);
}
rows_page *make_scale_text_page(TComponent *owner)
{
    return new scale_text_page(owner);
}
rows_page *make_north_arrow_page(TComponent *owner)
{
    return new north_arrow_page(owner);
}
rows_page *make_image_page(TComponent *owner)
{
    return new image_page(owner);
}
} // namespace vx::layout_elements
