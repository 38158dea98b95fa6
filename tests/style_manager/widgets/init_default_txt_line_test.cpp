#include "style_manager/widgets/init_default_txt_line.h"

#include "platform/base/owned.h"
#include "platform/base/string_adp.h"
#include "platform/styles/vxk_styles.h"

#include <gtest/gtest.h>

using owned_mngr = vx::owned<void, &vx_stl_mngr_destroy>;

TEST(init_default_txt_line, gives_a_first_line_to_text_styles_without_one)
{
    char const *const types[] = {"txt_pnt_style", "txt_pln_style", "txt_pgn_style"};
    void *(*const styles[])(void *, bool) = {&vx_stl_prm_get_txt_pnt_style_ptr,
                                             &vx_stl_prm_get_txt_pln_style_ptr,
                                             &vx_stl_prm_get_txt_pgn_style_ptr};
    for (int i = 0; i < 3; ++i) {
        owned_mngr const mngr(vx_stl_mngr_create(types[i]));
        auto *const scale = vx_stl_mngr_get_rng_scale_ptr(mngr.get());
        vx_rng_scale_set_size(scale, 2);
        auto const lines_of = [&](void *scale_prm) {
            return vx_txt_style_get_txt_stl_line(styles[i](vx_scale_prm_get_stl_prm_ptr(scale_prm), false));
        };
        auto *const first = lines_of(vx_rng_scale_get_scale_prm_ptr(scale, 0));
        vx_txt_stl_line_clear(first);
        vx_txt_stl_line_add(first, 2);
        auto *const max = lines_of(vx_rng_scale_get_max_prm_ptr(scale));
        vx_txt_stl_line_clear(max);
        for (int again = 0; again < 2; ++again)
            Tvx_init_default_txt_line::execute_rng(scale, L"NAME");
        EXPECT_EQ(vx_txt_stl_line_count(first), 2U);
        ASSERT_EQ(vx_txt_stl_line_count(max), 1U);
        std::wstring text;
        Tvx_std_wstring_adapter adapter(text);
        vx_txt_stl_line_get_str(max, adapter, 0);
        EXPECT_EQ(text, L"NAME");
    }
    owned_mngr const plain(vx_stl_mngr_create("pnt_style"));
    Tvx_init_default_txt_line::execute_val(vx_stl_mngr_get_val_scale_ptr(plain.get()), L"NAME");
    Tvx_init_default_txt_line::init_stl_prm_default_txt(nullptr, L"NAME");
}
