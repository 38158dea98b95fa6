#include "shape_fixture.h"

#include <functional>

// What the host and the user do while a caption is being typed.

namespace {
class typing : public shape_fixture
{
protected:
    void SetUp() override
    {
        open(L"nc.shp");
        ASSERT_TRUE(choose_mode(1));
        ASSERT_TRUE(choose_field(L"NAME"));
        type_caption();
    }
    void type_caption()
    {
        ASSERT_TRUE(click(val_edit(), 2, 1));
        ASSERT_TRUE(input::press(VK_F2));
        ASSERT_TRUE(input::press('A', {ssCtrl}));
        ASSERT_TRUE(input::type(L"typed"));
        ASSERT_TRUE(val_edit()->get_grid()->GetEditorMode());
    }
};
} // namespace

TEST_F(typing, ends_when_the_host_takes_the_layer_away)
{
    owned_layer const other(vx_shp_lr2d_open(L"" VX_EXAMPLE_DATA "/world.shp", nullptr));
    owned_layer const streets(vx_shp_lr2d_open(L"" VX_EXAMPLE_DATA "/streets.shp", nullptr));
    for (Ivx_layer *const next :
         {layer.get(), other.get(), streets.get(), static_cast<Ivx_layer *>(nullptr)}) {
        vx_lr2d_edt_form_set_lr2d(record.get(), next);
        input::wait_idle();
        EXPECT_FALSE(page() && val_edit()->get_grid()->GetEditorMode());
        vx_lr2d_edt_form_set_lr2d(record.get(), layer.get());
        input::wait_idle();
        ASSERT_TRUE(choose_mode(1));
        ASSERT_TRUE(choose_field(L"NAME"));
        EXPECT_EQ(caption_at(scale_of(copy()), 0), L"Alamance");
        type_caption();
    }
    record.reset();
    input::wait_idle();
}

TEST_F(typing, is_taken_by_apply_however_that_is_reached)
{
    apply();
    EXPECT_EQ(caption_at(scale_of(layer.get()), 0), L"typed");
    // By the host, with the focus where it is.
    ASSERT_TRUE(click(val_edit(), 2, 2));
    ASSERT_TRUE(input::press(VK_F2));
    ASSERT_TRUE(input::type(L"x"));
    record->get_form()->call_apply();
    EXPECT_EQ(caption_at(scale_of(layer.get()), 1), L"Alexanderx");
    EXPECT_EQ(applied, 2);
    // The window going away for a while changes nothing.
    ASSERT_TRUE(click(val_edit(), 2, 3));
    ASSERT_TRUE(input::press(VK_F2));
    ASSERT_TRUE(input::type(L"y"));
    vx_lr2d_edt_form_hide(record.get());
    vx_lr2d_edt_form_show(record.get());
    record->get_form()->call_apply();
    EXPECT_EQ(caption_at(scale_of(layer.get()), 2), L"Alleghanyy");
}

TEST_F(typing, ends_with_its_manager)
{
    auto *const strip = page()->get_list_edit();
    ASSERT_TRUE(input::click(strip->get_add_btn()));
    EXPECT_EQ(mngr_edit()->get_stl_mngr(), vx_shp_lr2d_get_stl_mngr_ptr(copy()));
    ASSERT_TRUE(choose_mode(1));
    ASSERT_TRUE(choose_field(L"NAME"));
    type_caption();
    val_edit()->get_grid()->start_gradient(c_gradient_color, false);
    ASSERT_TRUE(input::click(strip->get_del_btn()));
    input::wait_idle();
    EXPECT_FALSE(val_edit()->get_grid()->GetEditorMode());
    EXPECT_FALSE(val_edit()->get_grid()->get_grad_mode());
    // The first one has what was typed when it was left.
    EXPECT_EQ(caption_at(scale_of(copy()), 0), L"typed");
    EXPECT_EQ(vx_stl_mngr_list_get_count(vx_shp_lr2d_get_style_mngr_list_ptr(copy())), 1u);
}
