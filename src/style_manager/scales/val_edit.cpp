#include "style_manager/scales/val_edit.h"

#include "captions/style_manager.h"
#include "controls/prop/detail/picture_button.h"
#include "data/filesystem/filesystem.h"
#include "scale_builders/common/detail/distinct_texts.h"
#include "style_manager/scales/detail/scale_data.h"
#include "style_manager/scales/detail/scale_pictures.h"
#include "style_manager/scales/val_edit_btn.h"
#include "style_manager/widgets/detail/open_data.h"
#include "style_manager/widgets/init_default_txt_line.h"

#include "platform/base/owned.h"
#include "platform/base/string_adp.h"
#include "platform/base/text_codec.h"
#include "platform/basic/vx_res.h"
#include "platform/dialogs/file_dialogs.h"
#include "platform/dialogs/vx_msgs.h"
#include "platform/storage/file_names.h"
#include "platform/storage/vx_xml_save_2d.h"
#include "platform/styles/vx_stl_mngr.h"
#include "platform/styles/vx_val_scale.h"
#include "platform/toolkit/core/new_on.h"
#include "platform/toolkit/core/screen.h"
#include "platform/winapi/file.h"

#include <string_view>
#include <vector>

namespace {
constexpr std::size_t c_many_values = 1000;
constexpr std::string_view c_blanks = " \t\n\r\v\f";
constexpr std::size_t c_shortest_file_name = 4;

using owned_xml = vx::owned<Ivx_xml_data, &vx_xml_save_2d_destroy>;

std::string_view trimmed(char const *text)
{
    std::string_view const whole = text ? text : "";
    auto const first = whole.find_first_not_of(c_blanks);
    return first == whole.npos ? std::string_view()
                               : whole.substr(first, whole.find_last_not_of(c_blanks) - first + 1);
}

/// The different values of a property, sorted; all of them, or those met until the user had enough. What
/// comes of a reading that was given up is of no use.
std::vector<std::string> read_values(open_data const &opened, Tvx_data_events const &data, TObject *sender,
                                     unsigned prop)
{
    distinct_texts values;
    bool asked = false;
    unsigned const count = data.get_no(sender);
    for (unsigned i = 0; i < count; ++i) {
        bool defined = false;
        auto const text = trimmed(data.get_str(sender, prop, i, defined));
        if (!defined && opened.is_given_up())
            break;
        if (!defined || !values.add(text))
            continue;
        if (!asked && values.size() >= c_many_values) {
            asked = true;
            if (!vx_yesno_res(c_stl_many_values))
                break;
        }
    }
    return values.take_sorted();
}
} // namespace

Tvx_val_edit::Tvx_val_edit(TComponent *owner, bool rule)
    : Tvx_children_enabled_panel(owner), f_rule(rule),
      f_file_name(rule ? L"New_rule_scale" : L"New_val_scale")
{
}

void Tvx_val_edit::create()
{
    DisableAlign();
    f_prp_scale = vx_new_on<Tvx_prp_scale>(this, this);
    f_prp_scale->create();
    f_prp_scale->SetAlign(alTop);
    f_prp_scale->SetVisible(!f_rule);
    f_prp_scale->on_changed = make_closure<&Tvx_val_edit::on_prop_edit_changed>(this);

    f_tool_panel = vx_new_on<Tvx_scale_tool_panel>(this, this);
    f_tool_panel->SetTop(f_prp_scale->GetHeight());
    f_tool_panel->SetAlign(alTop);

    f_grid = vx_new_on<Tvx_val_grid>(this, this, f_rule);
    f_grid->SetAlign(alClient);
    f_grid->create();
    f_grid->on_changed = make_closure<&Tvx_val_edit::on_val_grid_changed>(this);

    f_other_panel = vx_new_on<Tvx_other_panel>(this, this);
    f_other_panel->create();
    f_other_panel->SetAlign(alBottom);
    f_other_panel->on_changed = make_closure<&Tvx_val_edit::on_other_panel_changed>(this);

    f_build_btn = new Tvx_val_edit_btn(this);
    f_build_btn->on_changed = make_closure<&Tvx_val_edit::on_val_edit_changed>(this);
    if (!f_rule)
        f_tool_panel->add_builder(f_build_btn);
    f_tool_panel->create(f_grid);
    get_save_btn()->OnClick = make_closure<&Tvx_val_edit::on_save_btn_click>(this);
    get_open_btn()->OnClick = make_closure<&Tvx_val_edit::on_open_btn_click>(this);

    f_open_dialog = new TOpenDialog(this);
    f_save_dialog = new TSaveDialog(this);
    f_save_dialog->SetOptions({ofOverwritePrompt});
    EnableAlign();
}

void Tvx_val_edit::load_res()
{
    f_load_error_text = vx_res_get_wstr(c_scl_unreadable);
    UnicodeString const filter = vx_res_get_wstr(f_rule ? c_scl_rule_filter : c_scl_value_filter);
    f_open_dialog->SetFilter(filter);
    f_save_dialog->SetFilter(filter);
    f_prp_scale->load_res();
    f_grid->load_res();
    f_other_panel->load_res();
    f_tool_panel->load_res();
    vx_picture_button_load(f_build_btn, c_picture_build, c_scl_build);
}

void Tvx_val_edit::update_controls()
{
    auto const named = [](void *from, void (*get)(void const *, Ivx_string_adp *)) {
        std::wstring text;
        Tvx_std_wstring_adapter adapter(text);
        if (from)
            get(from, adapter);
        return text;
    };
    f_grid->set_stl_mngr(f_stl_mngr);
    f_build_btn->set_stl_mngr(f_stl_mngr);
    auto *const scale = f_grid->get_scale();
    if (!f_rule)
        f_prp_scale->set_prop_name(named(f_stl_mngr, &vx_stl_mngr_get_val_prop_name_w).c_str());
    f_other_panel->set_caption(named(scale, &vx_val_scale_get_other_caption_w).c_str());
    f_other_panel->set_scl_prm(vx_val_scale_get_other_prm_ptr(scale));
    if (!f_rule)
        f_prp_scale->update_controls();
    f_grid->update_controls();
    f_other_panel->update_controls();
}

void Tvx_val_edit::enable_selection_style(bool enabled)
{
    f_tool_panel->enable_selection_style(enabled);
    f_grid->enable_selection_style(enabled);
    f_other_panel->enable_selection_style(enabled);
}

void Tvx_val_edit::set_on_draw_style(Tvx_draw_style_event event)
{
    f_grid->on_draw_style = event;
    f_other_panel->set_on_draw_style(event);
}

void Tvx_val_edit::set_on_edit_style(Tvx_edit_style_event event)
{
    f_grid->on_edit_style = event;
    f_other_panel->set_on_edit_style(event);
}

void Tvx_val_edit::data_events_changed()
{
    auto const &data = get_data_events();
    f_prp_scale->set_on_data_open(data.open);
    f_prp_scale->set_on_data_close(data.close);
    f_prp_scale->set_on_data_get_np(data.get_np);
    f_prp_scale->set_on_data_get_prop(data.get_prop);
    f_prp_scale->set_on_data_get_capt_prop(data.get_capt_prop);
    f_build_btn->set_data_events(data);
}

// ---- the scale's file and its data

std::wstring Tvx_val_edit::prop_name() const
{
    std::wstring name;
    Tvx_std_wstring_adapter adapter(name);
    vx_stl_mngr_get_val_prop_name_w(f_stl_mngr, adapter);
    return name;
}

std::wstring Tvx_val_edit::generate_file_name_scale()
{
    if (f_rule || !f_stl_mngr)
        return {};
    return vx_scale_file_of_prop(get_data_events(), this, prop_name(), c_val_scale_ext);
}

bool Tvx_val_edit::generate_default_scale()
{
    Tvx_data_events const data = get_data_events();
    auto *const mngr = f_stl_mngr;
    if (f_rule || !mngr || !vx_has_all_data(data))
        return true;
    open_data const opened(data, this);
    if (!opened)
        return true;
    auto const name = prop_name();
    std::vector<std::string> values;
    if (int const prop = vx_find_prop(data, this, name); prop >= 0) {
        vx_wait_cursor const waiting;
        values = read_values(opened, data, this, static_cast<unsigned>(prop));
    }
    if (opened.is_given_up() || f_stl_mngr != mngr)
        return false;
    auto *const scale = vx_stl_mngr_get_val_scale_ptr(mngr);
    vx_val_scale_init_opacity_pts(scale);
    vx_val_scale_set_size(scale, 0);
    vx_val_scale_set_size(scale, static_cast<unsigned>(values.size()));
    for (unsigned i = 0; i < values.size(); ++i) {
        auto const text = vx::text::to_wide(values[i]);
        vx_val_scale_set_text_w(scale, i, text.c_str());
        vx_val_scale_set_caption_w(scale, i, text.c_str());
    }
    Tvx_init_default_txt_line::execute_val(scale, name.c_str());
    return true;
}

bool Tvx_val_edit::load(std::wstring const &file, char const *key)
{
    owned_xml const xml(vx_xml_save_2d_create());
    auto *const read = f_rule ? &vx_xml_data_load_rule_scale_w : &vx_xml_data_load_val_scale_w;
    if (read(xml.get(), file.c_str(), f_stl_mngr, key))
        return true;
    vx_show_unreadable(f_load_error_text, xml.get());
    return false;
}

bool Tvx_val_edit::open_val_scale(UnicodeString const &file, char const *key)
{
    if (!load(file.str(), key))
        return false;
    call_changed();
    return true;
}

bool Tvx_val_edit::save_val_scale(UnicodeString const &file, char const *key)
{
    owned_xml const xml(vx_xml_save_2d_create());
    auto *const write = f_rule ? &vx_xml_data_save_rule_scale_w : &vx_xml_data_save_val_scale_w;
    write(xml.get(), file.str().c_str(), f_stl_mngr, key);
    return true;
}

void Tvx_val_edit::save_current_scl()
{
    if (!f_stl_mngr || f_rule)
        return;
    f_grid->apply_edited_text();
    vx_stl_mngr_set_val_prop_name_w(f_stl_mngr, f_prp_scale->get_prop_name());
    if (auto const file = generate_file_name_scale(); file.size() >= c_shortest_file_name)
        save_val_scale(file, f_mngr_style);
}

std::wstring Tvx_val_edit::with_suffix(std::wstring const &file) const
{
    return vx::filesystem::change_extension(file, f_rule ? c_rule_scale_ext : c_val_scale_ext);
}

// ---- events

void Tvx_val_edit::on_prop_edit_changed(TObject * /*sender*/)
{
    if (!f_stl_mngr)
        return;
    auto const life = Life();
    auto *const mngr = f_stl_mngr;
    auto const former_prop = prop_name();
    vx_stl_mngr_set_val_prop_name_w(mngr, f_prp_scale->get_prop_name());
    if (vx_stl_mngr_get_just_loaded(mngr)) {
        vx_stl_mngr_set_just_loaded(mngr, false);
    } else if (auto const file = generate_file_name_scale(); vx_is_file(file)) {
        static_cast<void>(load(file, f_mngr_style));
    } else if (!generate_default_scale()) {
        if (life.expired() || f_stl_mngr != mngr)
            return;
        // As if the field had not been chosen.
        vx_stl_mngr_set_val_prop_name_w(mngr, former_prop.c_str());
        return update_controls();
    } else if (!file.empty()) {
        save_val_scale(file, f_mngr_style);
    }
    f_grid->update_controls();
    call_changed();
}

void Tvx_val_edit::on_save_btn_click(TObject * /*sender*/)
{
    f_grid->apply_edited_text();
    f_save_dialog->SetFileName(f_file_name);
    if (!f_stl_mngr || !f_save_dialog->Execute(GetHandle()))
        return;
    std::wstring const chosen = f_save_dialog->GetFileName().str();
    auto const file = with_suffix(chosen);
    if (!vx_may_replace(chosen, file))
        return;
    save_val_scale(file, f_mngr_style);
    f_file_name = file;
}

void Tvx_val_edit::on_open_btn_click(TObject * /*sender*/)
{
    f_open_dialog->SetFileName(f_file_name);
    if (f_stl_mngr && f_open_dialog->Execute(GetHandle())) {
        auto const file = with_suffix(f_open_dialog->GetFileName().str());
        if (load(file, f_mngr_style)) {
            vx_stl_mngr_set_just_loaded(f_stl_mngr, true);
            f_file_name = file;
            update_controls();
            return call_changed();
        }
    }
    update_controls();
}

void Tvx_val_edit::on_other_panel_changed(TObject * /*sender*/)
{
    vx_val_scale_set_other_caption_w(f_grid->get_scale(), f_other_panel->get_caption());
    call_changed();
}

void Tvx_val_edit::on_val_grid_changed(TObject * /*sender*/)
{
    if (f_stl_mngr)
        call_changed();
}

void Tvx_val_edit::on_val_edit_changed(TObject * /*sender*/)
{
    f_grid->update_controls();
    call_changed();
}
