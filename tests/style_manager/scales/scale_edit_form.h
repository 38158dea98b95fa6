#pragma once

#include "style_manager/api/data_events.h"
#include "support/temp_dir.h"
#include "tests/controls/prop/prop_form.h"

#include "platform/base/owned.h"
#include "platform/base/string_adp.h"
#include "platform/styles/vxk_styles.h"
#include "platform/toolkit/core/key_codes.h"

namespace input = vx::user_input;
using owned_mngr = vx::owned<void, &vx_stl_mngr_destroy>;

/// The editor of a scale on a form, with the table behind it that the test makes up.
template <class Editor>
class scale_edit_form : public prop_form
{
protected:
    /// Puts the editor onto the form.
    void show(Editor *made)
    {
        table.yesno = [](void *self, HWND, wchar_t const *) {
            auto &test = static_cast<scale_edit_form &>(of(self));
            ++test.questions;
            return test.says_yes;
        };
        vx_dlg_set_table(&table);
        edit = made;
        edit->SetParent(&form);
        edit->create();
        edit->SetAlign(alClient);
        edit->load_res();
        edit->set_on_edit_style(make_closure<&scale_edit_form::edit_style>(this));
        Tvx_data_events data;
        data.open = make_closure<&scale_edit_form::open>(this);
        data.close = make_closure<&scale_edit_form::close>(this);
        data.get_np = make_closure<&scale_edit_form::np>(this);
        data.get_no = make_closure<&scale_edit_form::no>(this);
        data.get_prop = make_closure<&scale_edit_form::prop>(this);
        data.get_str = make_closure<&scale_edit_form::str>(this);
        data.get_val = make_closure<&scale_edit_form::val>(this);
        edit->set_data_events(data);
        edit->set_mngr_style("pgn_mngr_style");
        edit->set_stl_mngr(mngr.get());
        edit->update_controls();
        input::wait_idle();
    }
    void TearDown() override
    {
        EXPECT_EQ(opened, 0) << "the data were left open";
        prop_form::TearDown();
    }

    // ---- the owner
    bool edit_style(TObject *, int, int, void *stl_prm, bool sel)
    {
        ++style_dialogs;
        dialog_sel = sel;
        vx_stl_prm_set_color(stl_prm, sel, vx_clr_init_rgb(1, 2, 3));
        return true;
    }
    bool open(TObject *) { return has_data && ++opened > 0; }
    void close(TObject *) { --opened; }
    virtual unsigned np(TObject *) = 0;
    virtual unsigned no(TObject *) = 0;
    virtual char const *prop(TObject *, unsigned i, bool &usable, bool &numeric) = 0;
    virtual char const *str(TObject *, unsigned, unsigned, bool &) { return ""; }
    virtual double val(TObject *, unsigned, unsigned, bool &) { return 0; }
    void file_name(TObject *, unsigned, Ivx_string_adp *name)
    {
        vx_string_adp_feed(name, (dir.path() / "table.field.dat").wstring().c_str());
    }
    /// From now on each field has a file.
    void give_files()
    {
        auto data = edit->get_data_events();
        data.get_prop_file_name = make_closure<&scale_edit_form::file_name>(this);
        edit->set_data_events(data);
    }

    // ---- the scale
    void *scale() const { return edit->get_grid()->get_scale(); }
    template <class Get, class... Args>
    std::wstring read(Get get, Args... args) const
    {
        std::wstring result;
        get(scale(), args..., Tvx_std_wstring_adapter(result));
        return result;
    }
    template <class Is>
    std::string rows(Is is) const
    {
        std::string result;
        for (unsigned row = 0; row < edit->get_grid()->get_n_row(); ++row)
            result += is(row) ? 'x' : '.';
        return result;
    }
    std::string marks() const
    {
        return rows([this](unsigned row) { return edit->get_grid()->get_row_marked(row); });
    }
    std::string visibles() const
    {
        return rows([this](unsigned row) {
            return vx_scale_prm_get_visible(edit->get_grid()->get_row_scale_prm_ptr(row));
        });
    }

    bool click(int col, int row, TShiftState shift = {})
    {
        return input::click_cell(edit->get_grid(), col, row, mbLeft, shift);
    }
    /// Types over the cell of a grid row; the text stays pending unless it ends with a line feed.
    void type(int col, int row, wchar_t const *text)
    {
        ASSERT_TRUE(click(col, row));
        ASSERT_TRUE(input::press(VK_F2));
        ASSERT_TRUE(input::press('A', {ssCtrl}));
        ASSERT_TRUE(input::type(text));
    }

    owned_mngr mngr{vx_stl_mngr_create("pgn_style")};
    Editor *edit = nullptr;
    vx_test::temp_dir dir;
    bool has_data = true, says_yes = true, dialog_sel = false;
    int opened = 0, cells_read = 0, questions = 0, style_dialogs = 0;
};
