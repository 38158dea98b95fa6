#pragma once

#include "controls/forms/apply_form.h"
#include "exports/vxk_host_api.h"
#include "exports/vxk_lr2d_edit_form_api.h"
#include "layer_edit/form/lr2d_edit_form.h"
#include "layer_edit/page_set/lr2d_edit.h"
#include "layer_edit/shape/shp_lr2d_edit.h"
#include "tests/bundles/scene_editor/dialog_reader.h"
#include "user_input/user_input.h"

#include "platform/base/owned.h"
#include "platform/base/string_adp.h"
#include "platform/basic/vx_bundle.h"
#include "platform/basic/vx_options.h"
#include "platform/data/vx_attr_data.h"
#include "platform/data/vx_shape_files.h"
#include "platform/dialogs/vx_dlg_table.h"
#include "platform/layers/vx_shp_lr2d.h"
#include "platform/styles/vxk_styles.h"
#include "platform/toolkit/core/form.h"
#include "platform/toolkit/core/key_codes.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <set>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace input = vx::user_input;

/// The editor's window over a layer of the example files, and a host that takes over what is applied.
class shape_fixture : public testing::Test
{
protected:
    using owned_layer = vx::owned<Ivx_layer, &vx_lr2d_destroy>;
    using owned_record = vx::owned<Tvx_lr2d_edit_form, &vx_lr2d_edt_form_destroy>;
    using owned_table = vx::owned<Ivx_attr_files, &vx_attr_files_close>;
    using owned_shapes = vx::owned<Ivx_shape_files, &vx_shape_files_close>;
    static constexpr int c_width = 1000;
    static constexpr int c_height = 600;

    shape_fixture()
    {
        vx_bundles_load();
        vx_options_set_language("en");
        dialogs.user = this;
        dialogs.color = [](void *self, HWND, int, int, Tvx_color *color, int) {
            *color = static_cast<shape_fixture *>(self)->next_color;
            return true;
        };
        dialogs.yesno = [](void *self, HWND, wchar_t const *) {
            ++static_cast<shape_fixture *>(self)->questions;
            return static_cast<shape_fixture *>(self)->answer;
        };
        vx_dlg_set_table(&dialogs);
    }
    ~shape_fixture() override
    {
        record.reset();
        EXPECT_EQ(input::pending_modals(), 0);
        input::forget_pending_modals();
        vx_dlg_set_table(nullptr);
    }

    /// Round the host's taking over of what is applied.
    virtual void before_apply() {}
    virtual void after_apply() {}

    /// Opens the layer and the editor on it.
    void open(wchar_t const *name)
    {
        layer.reset(vx_shp_lr2d_open((std::wstring(L"" VX_EXAMPLE_DATA "/") + name).c_str(), nullptr));
        ASSERT_TRUE(layer);
        edit();
    }
    void edit()
    {
        record.reset(vx_lr2d_edt_form_create());
        vx_lr2d_edt_form_create_all(record.get());
        vx_lr2d_edt_form_set_callback(record.get(), this, [](void *self) {
            auto &f = *static_cast<shape_fixture *>(self);
            f.before_apply();
            ++f.applied;
            f.layer.reset(vx_lr2d_clone(vx_lr2d_edt_form_get_lr2d_ptr(f.record.get())));
            f.after_apply();
        });
        vx_lr2d_edt_form_set_lr2d(record.get(), layer.get());
        vx_lr2d_edt_form_update(record.get());
        vx_lr2d_edt_form_show_pos(record.get(), 50, 50);
        input::wait_idle();
    }
    void apply() { ASSERT_TRUE(input::click(record->get_form()->get_apply_btn())); }

    // ---- the window
    [[nodiscard]] Tvx_shp_lr2d_edit *page() const
    {
        return dialog_reader::find<Tvx_shp_lr2d_edit>(record->get_form(), L"");
    }
    [[nodiscard]] Tvx_stl_mngr_edit *mngr_edit() const { return page()->get_edit(); }
    [[nodiscard]] Tvx_val_edit *val_edit() const { return mngr_edit()->get_val_edit(); }
    [[nodiscard]] Tvx_val_edit *rule_edit() const { return mngr_edit()->get_rule_edit(); }
    [[nodiscard]] bool choose_mode(int mode) const
    {
        return input::choose_item(mngr_edit()->get_mode_edit()->get_combo_box(), mode);
    }
    [[nodiscard]] bool choose_field(wchar_t const *field) const
    {
        return input::choose_item(val_edit()->get_prp_scale()->get_combo_box(), field);
    }
    static bool click(Tvx_val_edit *edit, int col, int row, TShiftState shift = {})
    {
        return input::click_cell(edit->get_grid(), col, row, mbLeft, shift);
    }
    /// Gives the style behind the button or cell that `open` clicks the colour, in its dialog.
    template <class F>
    bool change_color(Tvx_color color, F open)
    {
        next_color = color;
        input::on_next_modal([](input::modal_window const &window) {
            auto *const button = dialog_reader::find<TButton>(window.form(), L"Colour");
            EXPECT_TRUE(button && input::click(button));
            window.press_button(L"Apply");
        });
        return open();
    }

    // ---- the working copy
    [[nodiscard]] Ivx_layer *copy() const { return vx_lr2d_edt_form_get_lr2d_ptr(record.get()); }
    [[nodiscard]] static void *scale_of(Ivx_layer *of, bool rule = false)
    {
        void *const mngr = vx_shp_lr2d_get_stl_mngr_ptr(of);
        return rule ? vx_stl_mngr_get_rule_scale_ptr(mngr) : vx_stl_mngr_get_val_scale_ptr(mngr);
    }
    [[nodiscard]] static std::wstring text_at(void *scale, unsigned entry)
    {
        std::wstring text;
        vx_val_scale_get_text_w(scale, entry, Tvx_std_wstring_adapter(text));
        return text;
    }
    [[nodiscard]] static std::wstring caption_at(void *scale, unsigned entry)
    {
        std::wstring text;
        vx_val_scale_get_caption_w(scale, entry, Tvx_std_wstring_adapter(text));
        return text;
    }

    // ---- the host's map
    /// The cells of a field, in the order of the records.
    [[nodiscard]] std::vector<std::wstring> cells(wchar_t const *field) const
    {
        owned_table const table(vx_attr_files_open(vx_shp_lr2d_get_attr_data_ptr(layer.get()), 1, 0));
        auto const index = static_cast<unsigned>(vx_attr_files_get_field_index_w(table.get(), field));
        std::vector<std::wstring> texts;
        for (unsigned i = 0; i < vx_attr_files_get_no(table.get()); ++i)
            texts.emplace_back(vx_attr_files_get_wstr(table.get(), index, i, nullptr));
        return texts;
    }
    /// A point that lies on the object: inside an area, in the middle of a line, the point itself.
    [[nodiscard]] Tvx_pnt_d2 place_of(unsigned object) const
    {
        owned_shapes const shapes(vx_shape_files_open(vx_shp_lr2d_get_attr_data_ptr(layer.get())));
        Tvx_shape_view view;
        EXPECT_TRUE(vx_shape_files_get(shapes.get(), object, &view));
        unsigned const first = view.part_starts[0], end = view.part_starts[1];
        if (view.kind == c_shape_point)
            return view.points[first];
        if (view.kind == c_shape_polyline)
            return middle(view.points[(first + end) / 2 - 1], view.points[(first + end) / 2]);
        // Half way up: the middle of the widest stretch inside.
        double const y = (view.box.min_y + view.box.max_y) / 2;
        std::vector<double> crossings;
        for (int part = 0; part < view.part_count; ++part) {
            unsigned const start = view.part_starts[part], stop = view.part_starts[part + 1];
            for (unsigned i = start; i < stop; ++i) {
                Tvx_pnt_d2 const a = view.points[i], b = view.points[i + 1 < stop ? i + 1 : start];
                if ((a.y <= y) != (b.y <= y))
                    crossings.push_back(a.x + (y - a.y) / (b.y - a.y) * (b.x - a.x));
            }
        }
        std::ranges::sort(crossings);
        Tvx_pnt_d2 best{0, y};
        double widest = -1;
        for (std::size_t i = 0; i + 1 < crossings.size(); i += 2)
            if (crossings[i + 1] - crossings[i] > widest) {
                widest = crossings[i + 1] - crossings[i];
                best.x = (crossings[i] + crossings[i + 1]) / 2;
            }
        return best;
    }
    /// The map as the host draws it now, and what it shows at a place; white is nothing.
    class map
    {
    public:
        explicit map(Ivx_layer *layer) : f_pixels(std::size_t{c_width} * c_height * 4, 0xff)
        {
            EXPECT_TRUE(vx_host_get_extent(layer, f_extent));
            EXPECT_TRUE(vx_host_draw(layer, f_extent, c_width, c_height, f_pixels.data(), c_width * 4));
        }
        [[nodiscard]] Tvx_color at(Tvx_pnt_d2 place) const
        {
            double const scale =
                std::min(c_width / (f_extent[2] - f_extent[0]), c_height / (f_extent[3] - f_extent[1]));
            auto const x =
                static_cast<int>(c_width / 2.0 + (place.x - (f_extent[0] + f_extent[2]) / 2) * scale);
            auto const y =
                static_cast<int>(c_height / 2.0 - (place.y - (f_extent[1] + f_extent[3]) / 2) * scale);
            auto const *const pixel =
                &f_pixels[(static_cast<std::size_t>(std::clamp(y, 0, c_height - 1)) * c_width +
                           static_cast<std::size_t>(std::clamp(x, 0, c_width - 1))) *
                          4];
            return vx_clr_init_rgb(pixel[2], pixel[1], pixel[0]);
        }

    private:
        double f_extent[4] = {};
        std::vector<unsigned char> f_pixels;
    };

    /// The same but for what the edges of areas mix in.
    [[nodiscard]] static bool is_close(Tvx_color a, Tvx_color b)
    {
        auto const near = [](int x, int y) { return std::abs(x - y) <= 2; };
        return near(a.r, b.r) && near(a.g, b.g) && near(a.b, b.b);
    }
    /// The part of the object in which `place_of` lies is some pixels wide and high.
    [[nodiscard]] bool is_seen(unsigned object) const
    {
        owned_shapes const shapes(vx_shape_files_open(vx_shp_lr2d_get_attr_data_ptr(layer.get())));
        Tvx_shape_view view;
        double extent[4];
        EXPECT_TRUE(vx_shape_files_get(shapes.get(), object, &view));
        EXPECT_TRUE(vx_host_get_extent(layer.get(), extent));
        double const pixel = std::max((extent[2] - extent[0]) / c_width, (extent[3] - extent[1]) / c_height);
        auto const *const first = view.points + view.part_starts[0];
        auto const *const end = view.points + view.part_starts[1];
        auto const [west, east] = std::ranges::minmax(std::span(first, end), {}, &Tvx_pnt_d2::x);
        auto const [south, north] = std::ranges::minmax(std::span(first, end), {}, &Tvx_pnt_d2::y);
        return east.x - west.x > 20 * pixel && north.y - south.y > 20 * pixel;
    }

    vx_dlg_table dialogs;
    owned_layer layer;
    owned_record record;
    Tvx_color next_color{};
    int applied = 0;
    int questions = 0;
    bool answer = true;

private:
    static Tvx_pnt_d2 middle(Tvx_pnt_d2 a, Tvx_pnt_d2 b) { return {(a.x + b.x) / 2, (a.y + b.y) / 2}; }
};
