#include "scale_builders/value/val_legend_panels.h"

#include "captions/builders.h"
#include "controls/forms/event_off.h"
#include "controls/prop/dbf_show.h"
#include "controls/prop/image_convert.h"
#include "scale_builders/common/detail/rows.h"
#include "scale_builders/value/stdleg_load_dbf.h"
#include "scale_builders/value/val_params.h"

#include "platform/base/owned.h"
#include "platform/base/text_codec.h"
#include "platform/basic/vx_res.h"
#include "platform/basic/vx_wstrings.h"
#include "platform/styles/vx_global_lib_styles.h"

namespace builders = vx::builders;

namespace {
constexpr int c_caption_width = 100;
constexpr int c_box_width = 20;
constexpr int c_codes_height = 32;
constexpr int c_codes_gap = 4;
constexpr int c_picture_table = 148;
constexpr char const *c_lcode = "L_CODE";
constexpr char const *c_bcode = "B_CODE";
constexpr char const *c_texts[] = {"TEXT1", "TEXT2", "TEXT3"};

/// Two choices side by side, each in half of the row.
class halves final : public Tvx_vcl_panel
{
public:
    using Tvx_vcl_panel::Tvx_vcl_panel;

    Tvx_dbf_prop_panel *add(TAlign align)
    {
        auto *const choice = new Tvx_dbf_prop_panel(this);
        choice->SetParent(this);
        choice->set_capt_width(c_caption_width);
        choice->set_only_numeric(true);
        choice->SetAlign(align);
        return choice;
    }

protected:
    void Resize() override
    {
        Tvx_vcl_panel::Resize();
        if (GetControlCount() > 0)
            GetControls(0)->SetWidth(GetClientWidth() / 2);
    }
};

/// The field of that name in any case as the file writes it; false, and the name as it is, if the file has
/// none.
bool find_spelled(std::string const &file, char const *name, std::string &spelled)
{
    vx::dbf_handle const table(vx_dbf_open(file.c_str(), 1, 0));
    int const field = Tvx_stdleg_load_dbf::find_field(table.get(), name);
    spelled = field < 0 ? name : vx_dbf_get_field_name(table.get(), field);
    return field >= 0;
}

void show_field(Tvx_dbf_prop_panel *choice, std::string const &file, std::string const &name)
{
    choice->set_dbf_filename(file.c_str());
    choice->set_prop_name(name.c_str());
    choice->update_controls();
}

void propose(Tvx_dbf_prop_panel *choice, std::string const &file, char const *name)
{
    std::string spelled;
    static_cast<void>(find_spelled(file, name, spelled)); // the list takes its first field instead
    show_field(choice, file, spelled);
}
} // namespace

// ---- the file

void Tvx_vcl_dbf_open_panel::create()
{
    Tvx_vcl_panel::create();
    f_file = new Tvx_vcl_file_open_panel(this);
    f_file->SetParent(this);
    f_file->create();
    f_file->set_caption_width(c_caption_width);
    f_file->set_default_ext(L".dbf");
    f_file->SetAlign(alClient);
    f_show = new Tvx_vcl_bit_button(this);
    f_show->SetParent(this);
    f_show->SetWidth(GetHeight());
    f_show->SetAlign(alRight);
    f_show->SetShowHint(true);
    f_show->OnClick = make_closure<&Tvx_vcl_dbf_open_panel::on_show_click>(this);
}

void Tvx_vcl_dbf_open_panel::load_rc()
{
    f_file->load_rc();
    f_file->set_filter(vx_res_get_wstr(c_bld_legend_filter));
    vx_glyph_get_res(f_show->GetGlyph(), c_picture_table);
    f_show->SetHint(vx_res_get_wstr(c_bld_show_legend));
    f_show->SetAccessibleName(f_show->GetHint());
}

void Tvx_vcl_dbf_open_panel::on_show_click(TObject * /*sender*/)
{
    vx_show_dbf_modal(vx::text::to_bytes(get_filename().str()).c_str(), false);
}

// ---- parts of captions

void Tvx_vcl_legdbf_text_prop::create()
{
    Tvx_vcl_panel::create();
    f_use_box = new Tvx_vcl_check_box(this);
    f_use_box->SetParent(this);
    f_use_box->SetWidth(c_box_width);
    f_use_box->SetAlign(alLeft);
    f_use_box->OnClick = make_closure<&Tvx_vcl_legdbf_text_prop::on_use_box_click>(this);
    f_prop = new Tvx_dbf_prop_panel(this);
    f_prop->SetParent(this);
    f_prop->set_capt_width(c_caption_width);
    f_prop->SetAlign(alClient);
    f_prop->set_enabled(false);
    f_prop->on_changed = make_closure<&Tvx_vcl_legdbf_text_prop::on_prop_changed>(this);
}

void Tvx_vcl_legdbf_text_prop::set_use_flag(bool use)
{
    vx::event_off const quiet(f_use_box->OnClick);
    f_use_box->SetChecked(use);
    f_prop->set_enabled(use);
}

void Tvx_vcl_legdbf_text_prop::set_propname(char const *name)
{
    f_prop->set_prop_name(name);
    f_prop->update_controls();
}

void Tvx_vcl_legdbf_text_prop::set_caption(UnicodeString const &caption)
{
    f_prop->set_caption(caption);
    f_use_box->SetAccessibleName(caption);
}

void Tvx_vcl_legdbf_text_prop::on_use_box_click(TObject * /*sender*/)
{
    f_prop->set_enabled(f_use_box->GetChecked());
    f_on_changed(this);
}

// ---- libraries

void Tvx_vcl_stdlib_combobox::create()
{
    using wstrings = vx::owned<void, &vx_wstrings_destroy>;
    Tvx_vcl_select_box_panel::create();
    clear();
    wstrings const names(vx_global_lib_styles_create_name_list());
    unsigned const count = vx_wstrings_get_size(names.get());
    for (unsigned i = 0; i < count; ++i)
        add_item(vx_wstrings_get_str(names.get(), i), i);
    if (count > 0)
        set_active_idx(0);
}

// ---- all

Tvx_val_params_rebuild_with_legend &Tvx_vcl_val_rebuild_with_legend_params_panel::last_params()
{
    static Tvx_val_params_rebuild_with_legend record;
    return record;
}

void Tvx_vcl_val_rebuild_with_legend_params_panel::create()
{
    using self = Tvx_vcl_val_rebuild_with_legend_params_panel;
    Tvx_vcl_panel::create();
    f_group = builders::add_group(this);
    f_dbf = builders::add_row<Tvx_vcl_dbf_open_panel>(f_group);
    f_dbf->set_on_changed(make_closure<&self::on_dbf_open_panel_changed>(this));
    auto *const codes = new halves(f_group);
    codes->SetHeight(c_codes_height);
    codes->GetPadding()->SetBounds(0, c_codes_gap, 0, c_codes_gap);
    builders::put_row(codes, f_group);
    f_lcode = codes->add(alLeft);
    f_bcode = codes->add(alClient);
    f_bcode->GetMargins()->SetBounds(2 * c_codes_gap, 0, 0, 0);
    f_bcode->SetAlignWithMargins(true);
    for (auto *&text : f_texts)
        text = builders::add_row<Tvx_vcl_legdbf_text_prop>(f_group);
    f_stdlib = builders::add_row<Tvx_vcl_stdlib_combobox>(f_group);
    f_stdlib->set_caption_width(c_caption_width + c_box_width);
}

void Tvx_vcl_val_rebuild_with_legend_params_panel::load_rc()
{
    f_group->SetText(vx_res_get_wstr(c_bld_parameters));
    f_dbf->load_rc();
    f_dbf->set_caption(vx_res_get_wstr(c_bld_legend));
    f_lcode->set_caption(vx_res_get_wstr(c_bld_lcode));
    f_bcode->set_caption(vx_res_get_wstr(c_bld_bcode));
    int part = 0;
    for (auto *const text : f_texts)
        text->set_caption(vx_res_format_w(c_bld_caption_part, std::to_wstring(++part)));
    f_stdlib->load_rc();
    f_stdlib->set_caption(vx_res_get_wstr(c_bld_library));
}

void Tvx_vcl_val_rebuild_with_legend_params_panel::set_params()
{
    auto const &last = last_params();
    std::string const &file = last.get_legdbf_filename();
    std::string const names[] = {last.get_capt1_propname(), last.get_capt2_propname(),
                                 last.get_capt3_propname()};
    bool const flags[] = {last.get_capt1_flag(), last.get_capt2_flag(), last.get_capt3_flag()};
    f_dbf->set_filename(UnicodeString(file));
    show_field(f_lcode, file, last.get_lcode_propname());
    show_field(f_bcode, file, last.get_bcode_propname());
    for (int part = 0; part < 3; ++part) {
        f_texts[part]->set_dbf_filename(file.c_str());
        f_texts[part]->set_propname(names[part].c_str());
        f_texts[part]->set_use_flag(flags[part]);
    }
    f_stdlib->set_libidx(last.get_stdlib_index());
}

bool Tvx_vcl_val_rebuild_with_legend_params_panel::fill_params(
    Tvx_val_params_rebuild_with_legend *params) const
{
    params->set_legdbf_filename(vx::text::to_bytes(f_dbf->get_filename().str()));
    params->set_lcode_propname(f_lcode->get_prop_name());
    params->set_bcode_propname(f_bcode->get_prop_name());
    params->set_capt1_flag(f_texts[0]->get_use_flag());
    params->set_capt2_flag(f_texts[1]->get_use_flag());
    params->set_capt3_flag(f_texts[2]->get_use_flag());
    params->set_capt1_propname(f_texts[0]->get_propname());
    params->set_capt2_propname(f_texts[1]->get_propname());
    params->set_capt3_propname(f_texts[2]->get_propname());
    params->set_stdlib_index(f_stdlib->get_libidx());
    last_params().assign(*params);
    return true;
}

/// A file with the standard fields needs no more; those that it does not have stay off.
void Tvx_vcl_val_rebuild_with_legend_params_panel::on_dbf_open_panel_changed(TObject * /*sender*/)
{
    auto const file = vx::text::to_bytes(f_dbf->get_filename().str());
    propose(f_lcode, file, c_lcode);
    propose(f_bcode, file, c_bcode);
    for (int part = 0; part < 3; ++part) {
        std::string spelled;
        bool const is_held = find_spelled(file, c_texts[part], spelled);
        f_texts[part]->set_dbf_filename(file.c_str());
        f_texts[part]->set_propname(spelled.c_str());
        f_texts[part]->set_use_flag(is_held);
    }
}
