#include "dialog_reader.h"
#include "exports/vxk_style_dialog_api.h"
#include "support/temp_dir.h"
#include "tests/controls/prop/prop_form.h"

#include "platform/base/owned.h"
#include "platform/base/string_adp.h"
#include "platform/storage/vx_xml_save_2d.h"
#include "platform/styles/vxk_styles.h"
#include "platform/toolkit/controls/button.h"
#include "platform/toolkit/controls/edit.h"
#include "platform/winapi/library.h"

#include <memory>

namespace input = vx::user_input;
using namespace dialog_reader;

namespace {
/// What the storage writes of a manager, and what it has besides.
std::string saved_manager(void *mngr)
{
    vx_test::temp_dir const dir;
    auto const file = [&dir](char const *name) { return (dir / name).wstring(); };
    std::wstring name;
    vx_stl_mngr_get_name_w(mngr, Tvx_std_wstring_adapter(name));
    EXPECT_TRUE(vx_xml_save_style_save_val_scale(nullptr, file("val").c_str(), mngr, nullptr));
    EXPECT_TRUE(vx_xml_save_style_save_rng_scale(nullptr, file("rng").c_str(), mngr, nullptr));
    EXPECT_TRUE(vx_xml_data_save_rule_scale_w(nullptr, file("rule").c_str(), mngr, nullptr));
    std::string text = UnicodeString(name).to_utf8();
    for (char const *part : {"val", "rng", "rule"})
        text += "\n" + vx_test::read_file(dir / part);
    // The style without a scale goes out as that of the other values.
    vx::owned<void, &vx_stl_mngr_destroy> const plain(vx_stl_mngr_create(vx_stl_mngr_get_style_type(mngr)));
    vx_stl_prm_assign(vx_scale_prm_get_stl_prm_ptr(
                          vx_val_scale_get_other_prm_ptr(vx_stl_mngr_get_val_scale_ptr(plain.get()))),
                      vx_stl_mngr_get_simple_sp_ptr(mngr));
    EXPECT_TRUE(vx_xml_save_style_save_val_scale(nullptr, file("plain").c_str(), plain.get(), nullptr));
    return text + "\n" + vx_test::read_file(dir / "plain");
}

std::string saved_list(void *list)
{
    std::string text = std::to_string(vx_stl_mngr_list_get_active_idx(list));
    for (unsigned i = 0; i < vx_stl_mngr_list_get_count(list); ++i)
        text += "\n" + saved_manager(vx_stl_mngr_list_get_mngr(list, i));
    return text;
}

/// The styles go through the storage as the style of a manager.
template <auto StyleOf, auto Assign>
std::string saved_style(char const *type, void *style)
{
    vx::owned<void, &vx_stl_mngr_destroy> const mngr(vx_stl_mngr_create(type));
    Assign(StyleOf(vx_stl_mngr_get_simple_sp_ptr(mngr.get()), false), style);
    return saved_manager(mngr.get());
}

void type_over(TWinControl *form, wchar_t const *name, wchar_t const *text)
{
    auto *edit = find<TEdit>(form, name);
    ASSERT_NE(edit, nullptr) << UnicodeString(name).to_utf8();
    EXPECT_TRUE(input::enter_text(edit, text));
}

void press(TWinControl *form, wchar_t const *name)
{
    auto *button = find<TButton>(form, name);
    ASSERT_NE(button, nullptr) << UnicodeString(name).to_utf8();
    EXPECT_TRUE(input::click(button));
}

/// An exported dialog, with a change that a person makes in it.
struct exported
{
    char const *name;
    void *(*create)();
    void (*destroy)(void *);
    std::string (*saved)(void *object);
    bool (*run)(void *object);
    void (*change)(TCustomForm *form);
};

void *create_text_manager()
{
    return vx_stl_mngr_create("txt_pln_style");
}
void *create_list()
{
    return vx_stl_mngr_list_create("pgn_style");
}
void change_text(TCustomForm *form)
{
    ASSERT_TRUE(open_tab(form, L"Text"));
    press(form, L"Add");
    ASSERT_TRUE(open_tab(form, L"Font"));
    type_over(form, L"Size", L"9");
}

exported const c_dialogs[] = {
    {"points", &vx_pnt_style_create, &vx_pnt_style_destroy,
     [](void *s) { return saved_style<&vx_stl_prm_get_pnt_style_ptr, &vx_pnt_style_assign>("pnt_style", s); },
     [](void *s) { return vx_pnt_style_dialog(0, 0, s); },
     [](TCustomForm *form) { type_over(form, L"Size", L"9"); }},
    {"lines", &vx_pln_style_create, &vx_pln_style_destroy,
     [](void *s) { return saved_style<&vx_stl_prm_get_pln_style_ptr, &vx_pln_style_assign>("pln_style", s); },
     [](void *s) { return vx_pln_style_dialog(0, 0, s); },
     [](TCustomForm *form) { type_over(form, L"Width", L"9"); }},
    {"polygons", &vx_pgn_style_create, &vx_pgn_style_destroy,
     [](void *s) { return saved_style<&vx_stl_prm_get_pgn_style_ptr, &vx_pgn_style_assign>("pgn_style", s); },
     [](void *s) { return vx_pgn_style_dialog(0, 0, s); }, [](TCustomForm *form) { press(form, L"Colour"); }},
    {"texts of points", &vx_txt_style_create, &vx_txt_style_destroy,
     [](void *s) {
         return saved_style<&vx_stl_prm_get_txt_pnt_style_ptr, &vx_txt_style_assign>("txt_pnt_style", s);
     },
     [](void *s) { return vx_txt_pnt_style_dialog(0, 0, s, nullptr); }, &change_text},
    {"texts of lines", &vx_txt_style_create, &vx_txt_style_destroy,
     [](void *s) {
         return saved_style<&vx_stl_prm_get_txt_pln_style_ptr, &vx_txt_style_assign>("txt_pln_style", s);
     },
     [](void *s) { return vx_txt_pln_style_dialog(0, 0, s, nullptr); }, &change_text},
    {"texts of polygons", &vx_txt_style_create, &vx_txt_style_destroy,
     [](void *s) {
         return saved_style<&vx_stl_prm_get_txt_pgn_style_ptr, &vx_txt_style_assign>("txt_pgn_style", s);
     },
     [](void *s) { return vx_txt_pgn_style_dialog(0, 0, s, nullptr); }, &change_text},
    {"what texts have in common", &create_text_manager, &vx_stl_mngr_destroy, &saved_manager,
     [](void *m) { return vx_txt_common_style_dialog(0, 0, m); },
     [](TCustomForm *form) {
         type_over(form, L"Name", L"Labels");
         type_over(form, L"Size", L"9");
     }},
    {"managers", &create_list, &vx_stl_mngr_list_destroy, &saved_list,
     [](void *l) { return vx_stl_mngr_list_setting_dialog(0, 0, l); },
     [](TCustomForm *form) {
         press(form, L"Add");
         type_over(form, L"Name", L"second");
     }},
};

using exported_dialogs = prop_form;
} // namespace

TEST_F(exported_dialogs, change_what_they_edit_only_when_accepted)
{
    ASSERT_NE(LoadLibraryW(L"vxk_scene2d_editor_bdl.dll"), nullptr);
    for (exported const &d : c_dialogs) {
        std::unique_ptr<void, void (*)(void *)> const object(d.create(), d.destroy);
        std::string const before = d.saved(object.get());
        for (bool const by_box : {false, true}) {
            input::on_next_modal([&](input::modal_window const &window) {
                d.change(window.form());
                if (by_box)
                    input::close(window.form());
                else
                    window.press_button(L"Cancel");
            });
            EXPECT_FALSE(d.run(object.get())) << d.name;
            EXPECT_EQ(d.saved(object.get()), before) << d.name;
        }
        input::on_next_modal([&](input::modal_window const &window) {
            d.change(window.form());
            window.press_button(L"Apply");
        });
        EXPECT_TRUE(d.run(object.get())) << d.name;
        std::string const after = d.saved(object.get());
        EXPECT_NE(after, before) << d.name;
        input::on_next_modal([](input::modal_window const &window) { window.press_button(L"Apply"); });
        EXPECT_TRUE(d.run(object.get())) << d.name;
        EXPECT_EQ(d.saved(object.get()), after) << d.name << ": what is not touched goes through unchanged";
    }
}
