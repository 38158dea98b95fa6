#include "controls/forms/apply_form.h"
#include "exports/vxk_lr2d_edit_form_api.h"
#include "layer_edit/layout/lr_layout_edit.h"
#include "layer_edit/layout/lr_layout_edit_form.h"
#include "layout_fixture.h"
#include "tests/extension/service/extension_models.h"

#include "platform/layers/layer_keys.h"

#include <dlfcn.h>

namespace input = vx::user_input;

namespace {
class layout_form : public layout_project
{
};

TTabSheet *style_tab(Tvx_lr2d_edit_form *record)
{
    auto *const pages = record->get_lr2d_edit()->get_pages();
    for (int i = 0; i < pages->GetPageCount(); ++i)
        if (pages->GetPages(i)->GetName() == L"f_style_ts")
            return pages->GetPages(i);
    return nullptr;
}

template <class Function>
Function *by_name(Function * /*like*/, char const *name)
{
    return reinterpret_cast<Function *>(dlsym(RTLD_DEFAULT, name));
}
} // namespace

TEST_F(layout_form, never_shows_the_tab_of_styles)
{
    auto *const create = by_name(&vx_lr_layout_edt_form_create, "vx_lr_layout_edt_form_create");
    auto *const destroy = by_name(&vx_lr_layout_edt_form_destroy, "vx_lr_layout_edt_form_destroy");
    ASSERT_TRUE(create && destroy);
    auto *const record = create();
    vx_lr2d_edt_form_create_all(record);
    vx_lr2d_edt_form_show_pos(record, 10, 10);
    ASSERT_NE(style_tab(record), nullptr);
    EXPECT_FALSE(style_tab(record)->GetTabVisible()) << "before any layer";
    EXPECT_EQ(style_tab(record)->GetCaption(), L"Element style");
    for (char const *key : {c_lr_key_layout_page, c_lr_key_layout_scene_frame, c_lr_key_layout_legend,
                            c_lr_key_layout_table, c_lr_key_layout_ole_object, c_lr_key_shp_pnt, c_lr_key_rtr,
                            c_lr_key_tos_slice, c_lr_key_tld, "x"}) {
        auto const layer = make_element(key);
        vx_lr2d_set_wcaption(layer.get(), L"Map of 100 %s");
        vx_lr2d_edt_form_set_lr2d(record, layer.get());
        vx_lr2d_edt_form_update(record);
        input::wait_idle();
        EXPECT_FALSE(style_tab(record)->GetTabVisible() || style_tab(record)->GetVisible()) << key;
        EXPECT_NE(vx_lr2d_edt_form_get_lr2d_ptr(record), layer.get());
    }
    EXPECT_EQ(record->get_form()->GetCaption(), L"Element properties: Map of 100 %s");
    vx_lr2d_edt_form_set_lr2d(record, nullptr);
    EXPECT_FALSE(style_tab(record)->GetTabVisible());
    destroy(record);
    destroy(nullptr);
}

TEST_F(layout_form, on_a_form_of_the_host_or_of_another_window)
{
    auto *const create = by_name(&vx_lr_layout_edt_form_create_hosted, "vx_lr_layout_edt_form_create_hosted");
    ASSERT_TRUE(create);
    Tvx_apply_form host(nullptr);
    host.SetCaption(L"mine");
    vx::owned<Tvx_lr2d_edit_form, &vx_lr_layout_edt_form_destroy> const record(create(&host));
    vx_lr2d_edt_form_create_all(record.get());
    auto const text = make_element(c_lr_key_layout_text);
    vx_lr2d_edt_form_set_lr2d(record.get(), text.get());
    vx_lr2d_edt_form_update(record.get());
    EXPECT_EQ(host.GetCaption(), L"mine");
    EXPECT_EQ(style_tab(record.get())->GetCaption(), L"Element style");

    // A record whose window ends with its owner lives on without it.
    auto owner = std::make_unique<TComponent>(nullptr);
    Tvx_lr_layout_edit_form owned(owner.get());
    owned.create();
    owned.set_lr2d(text.get());
    EXPECT_NE(owned.get_lr2d(), nullptr);
    owner.reset();
    EXPECT_EQ(owned.get_form(), nullptr);
    EXPECT_EQ(owned.get_lr2d(), nullptr);
    owned.show_apply(0, 0);
}

TEST_F(layout_form, has_a_category_of_its_own)
{
    models::service services[2];
    models::factory factories[2];
    wchar_t const *const categories[] = {L"vxk/layer/2d", L"vxk/layer/layout"};
    for (int i = 0; i < 2; ++i) {
        factories[i].services.push_back(&services[i]);
        vx_service_registry_add_factory(categories[i], factories[i]);
    }
    for (int i = 0; i < 2; ++i) {
        vx::owned<Tvx_lr2d_edit_form, &vx_lr2d_edt_form_destroy> const record(
            i == 0 ? vx_lr2d_edt_form_create() : vx_lr_layout_edt_form_create());
        vx_lr2d_edt_form_create_all(record.get());
        services[0].layers = services[1].layers = 0;
        vx_lr2d_edt_form_set_lr2d(record.get(), make_element(c_lr_key_layout_text).get());
        EXPECT_GT(services[i].layers, 0);
        EXPECT_EQ(services[1 - i].layers, 0);
    }
    for (int i = 0; i < 2; ++i)
        vx_service_registry_remove_factory(categories[i], factories[i]);
}
