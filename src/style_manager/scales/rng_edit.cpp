#include "style_manager/scales/rng_edit.h"

#include "captions/style_manager.h"
#include "controls/prop/detail/picture_button.h"
#include "data/filesystem/filesystem.h"
#include "scale_builders/common/detail/builder_caller.h"
#include "scale_builders/range/rng_type_dlg.h"
#include "scale_engine/range/detail/classify.h"
#include "scale_engine/range/range_scale_make_colors.h"
#include "style_manager/scales/detail/range_counts.h"
#include "style_manager/scales/detail/scale_data.h"
#include "style_manager/scales/detail/scale_pictures.h"
#include "style_manager/scales/rng_edit_btn.h"
#include "style_manager/widgets/detail/open_data.h"
#include "style_manager/widgets/init_default_txt_line.h"

#include "platform/base/owned.h"
#include "platform/base/string_adp.h"
#include "platform/base/strutil.h"
#include "platform/basic/vx_res.h"
#include "platform/dialogs/file_dialogs.h"
#include "platform/storage/file_names.h"
#include "platform/storage/vx_xml_save_2d.h"
#include "platform/styles/vx_rng_scale.h"
#include "platform/styles/vx_stl_mngr.h"
#include "platform/toolkit/core/new_on.h"
#include "platform/toolkit/core/screen.h"
#include "platform/toolkit/graphics/canvas.h"
#include "platform/winapi/file.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {
constexpr unsigned c_default_ranges = 10;
constexpr std::size_t c_shortest_file_name = 4;
constexpr int c_no_rounding = -30;
constexpr int c_export_filter = 2; ///< place in the filter of the dialogs, from 1
constexpr wchar_t const *c_export_ext = L".xml";

using owned_xml = vx::owned<Ivx_xml_data, &vx_xml_save_2d_destroy>;
using owned_style_xml = vx::owned<Ivx_xml_data, &vx_xml_save_style_destroy>;
using span = std::pair<double, double>;

/// Least and greatest value of a property; those of statistics where there are some. What comes of a reading
/// that was given up is of no use.
span read_span(open_data const &opened, Tvx_data_events const &data, TObject *sender, unsigned prop)
{
    span result{0, 1};
    double mean = 0, deviation = 0;
    bool has_values = false;
    if (data.get_stat &&
        data.get_stat(sender, prop, result.first, result.second, mean, deviation, has_values))
        return result;
    vx_wait_cursor const waiting;
    bool any = false;
    span found;
    unsigned const count = data.get_no(sender);
    for (unsigned i = 0; i < count; ++i) {
        bool defined = false;
        double const value = data.get_val(sender, prop, i, defined);
        if (!defined && opened.is_given_up())
            break;
        if (!defined || !std::isfinite(value))
            continue;
        found = any ? span{std::min(found.first, value), std::max(found.second, value)} : span{value, value};
        any = true;
    }
    return any ? found : span{0, 1};
}
} // namespace

Tvx_rng_edit::Tvx_rng_edit(TComponent *owner)
    : Tvx_panel(owner), f_file_name(L"New_rng_scale"), f_counts(std::make_unique<Tvx_range_counts>())
{
}

Tvx_rng_edit::~Tvx_rng_edit() = default;

void Tvx_rng_edit::create()
{
    DisableAlign();
    f_prp_scale = vx_new_on<Tvx_prp_scale>(this, this);
    f_prp_scale->create();
    f_prp_scale->set_only_numeric(true);
    f_prp_scale->SetAlign(alTop);
    f_prp_scale->on_changed = make_closure<&Tvx_rng_edit::on_prop_edit_changed>(this);

    f_tool_panel = vx_new_on<Tvx_scale_tool_panel>(this, this);
    f_tool_panel->SetTop(f_prp_scale->GetHeight());
    f_tool_panel->SetAlign(alTop);

    f_grid = vx_new_on<Tvx_rng_grid>(this, this);
    f_grid->SetAlign(alClient);
    f_grid->create();
    f_grid->on_changed = make_closure<&Tvx_rng_edit::on_rng_grid_changed>(this);
    f_grid->on_row_selected = make_closure<&Tvx_rng_edit::on_row_selected>(this);

    f_other_panel = vx_new_on<Tvx_other_panel>(this, this);
    f_other_panel->create();
    f_other_panel->SetAlign(alBottom);
    f_other_panel->on_changed = make_closure<&Tvx_rng_edit::on_other_panel_changed>(this);

    f_build_btn = new Tvx_rng_edit_btn(this);
    f_build_btn->on_changed = make_closure<&Tvx_rng_edit::on_rng_edit_changed>(this);
    f_tool_panel->add_builder(f_build_btn);
    f_rescale_btn = new Tvx_rng_edit_btn(this);
    f_rescale_btn->OnClick = make_closure<&Tvx_rng_edit::on_rescale_btn_click>(this);
    f_tool_panel->add_builder(f_rescale_btn);
    f_tool_panel->create(f_grid);
    f_tool_panel->get_save_btn()->OnClick = make_closure<&Tvx_rng_edit::on_save_btn_click>(this);
    f_tool_panel->get_open_btn()->OnClick = make_closure<&Tvx_rng_edit::on_open_btn_click>(this);
    f_row_line = vx_new_on<Tvx_label>(f_tool_panel, this);
    f_row_line->SetAutoSize(false);
    f_row_line->SetLayout(tlCenter);
    f_row_line->SetAlignment(taCenter);
    f_row_line->SetShowAccelChar(false);
    f_row_line->SetShowHint(true);
    f_tool_panel->OnResize = make_closure<&Tvx_rng_edit::on_tool_panel_resize>(this);

    f_open_dialog = new TOpenDialog(this);
    f_save_dialog = new TSaveDialog(this);
    f_save_dialog->SetOptions({ofOverwritePrompt});
    EnableAlign();
}

void Tvx_rng_edit::load_res()
{
    f_load_error_text = vx_res_get_wstr(c_scl_unreadable);
    UnicodeString const filter = vx_res_get_wstr(c_scl_range_filter);
    f_open_dialog->SetFilter(filter);
    f_save_dialog->SetFilter(filter);
    f_prp_scale->load_res();
    f_grid->load_res();
    f_other_panel->load_res();
    f_tool_panel->load_res();
    vx_picture_button_load(f_build_btn, c_picture_build, c_scl_build);
    vx_picture_button_load(f_rescale_btn, c_picture_rescale, c_scl_rescale);
    show_row_line();
}

void Tvx_rng_edit::update_controls()
{
    auto const named = [](void const *from, void (*get)(void const *, Ivx_string_adp *)) {
        std::wstring text;
        Tvx_std_wstring_adapter adapter(text);
        if (from)
            get(from, adapter);
        return text;
    };
    f_grid->set_stl_mngr(f_stl_mngr);
    f_build_btn->set_stl_mngr(f_stl_mngr);
    f_rescale_btn->set_stl_mngr(f_stl_mngr);
    auto *const scale = f_grid->get_scale();
    f_prp_scale->set_prop_name(prop_name().c_str());
    f_other_panel->set_caption(named(scale, &vx_rng_scale_get_other_caption_w).c_str());
    f_other_panel->set_scl_prm(vx_rng_scale_get_other_prm_ptr(scale));
    f_prp_scale->update_controls();
    f_grid->update_controls();
    f_other_panel->update_controls();
    if (!f_reporting)
        f_counts->forget(); // somebody else's change: the data may be others
    if (std::exchange(f_shown_mngr, f_stl_mngr) != f_stl_mngr)
        f_counting = false;
    show_row_line();
}

void Tvx_rng_edit::enable_selection_style(bool enabled)
{
    f_tool_panel->enable_selection_style(enabled);
    f_grid->enable_selection_style(enabled);
    f_other_panel->enable_selection_style(enabled);
    // The manager may be one that is gone: what the line says waits for the next update.
    place_row_line();
}

void Tvx_rng_edit::call_changed()
{
    auto const life = Life();
    bool const outer = std::exchange(f_reporting, true);
    on_changed(this);
    if (life.expired())
        return;
    f_reporting = outer;
    show_row_line();
}

void Tvx_rng_edit::set_on_draw_style(Tvx_draw_style_event event)
{
    f_grid->on_draw_style = event;
    f_other_panel->set_on_draw_style(event);
}

void Tvx_rng_edit::set_on_edit_style(Tvx_edit_style_event event)
{
    f_grid->on_edit_style = event;
    f_other_panel->set_on_edit_style(event);
}

void Tvx_rng_edit::data_events_changed()
{
    auto const &data = get_data_events();
    f_prp_scale->set_on_data_open(data.open);
    f_prp_scale->set_on_data_close(data.close);
    f_prp_scale->set_on_data_get_np(data.get_np);
    f_prp_scale->set_on_data_get_prop(data.get_prop);
    f_prp_scale->set_on_data_get_capt_prop(data.get_capt_prop);
    f_build_btn->set_data_events(data);
    f_rescale_btn->set_data_events(data);
    f_counts->forget();
}

// ---- the scale's file and its data

std::wstring Tvx_rng_edit::prop_name() const
{
    std::wstring name;
    Tvx_std_wstring_adapter adapter(name);
    if (f_stl_mngr)
        vx_stl_mngr_get_rng_prop_name_w(f_stl_mngr, adapter);
    return name;
}

std::wstring Tvx_rng_edit::generate_file_name_scale()
{
    return f_stl_mngr ? vx_scale_file_of_prop(get_data_events(), this, prop_name(), c_rng_scale_ext)
                      : std::wstring();
}

bool Tvx_rng_edit::generate_default_scale()
{
    Tvx_data_events const data = get_data_events();
    auto *const mngr = f_stl_mngr;
    if (!mngr || !vx_has_all_data(data))
        return true;
    open_data const opened(data, this);
    if (!opened)
        return true;
    auto const name = prop_name();
    int const prop = vx_find_prop(data, this, name);
    auto const [min, max] =
        prop < 0 ? span{0, 1} : read_span(opened, data, this, static_cast<unsigned>(prop));
    if (opened.is_given_up() || f_stl_mngr != mngr)
        return false;
    auto *const scale = vx_stl_mngr_get_rng_scale_ptr(mngr);
    vx_rng_scale_init_opacity_pts(scale);
    vx_rng_scale_set_size(scale, 0);
    vx::task::detail::equal_ranges(scale, c_default_ranges, min, max);
    if (vx_rng_scale_get_max_value(scale) < max) { // lost in rounding: the greatest value has a range too
        vx_rng_scale_set_max(scale, c_default_ranges - 1, max);
        vx_rng_scale_set_max_value(scale, max);
    }
    vx_rng_scale_set_min_caption_w(scale, f_grid->get_default_min_caption(scale).c_str());
    vx_rng_scale_set_max_caption_w(scale, f_grid->get_default_max_caption(scale).c_str());
    for (unsigned i = 0; i < c_default_ranges; ++i)
        vx_rng_scale_set_caption_w(scale, i, f_grid->get_default_rng_caption(scale, i).c_str());
    Tvx_init_default_txt_line::execute_rng(scale, name.c_str());
    return true;
}

void Tvx_rng_edit::color_default_scale()
{
    if (f_stl_mngr)
        vx::task::range_scale_make_colors::execute(vx_stl_mngr_get_rng_scale_ptr(f_stl_mngr),
                                                   c_palette_blue_white_red, false);
}

void Tvx_rng_edit::generate_default_scale_with_clr()
{
    if (!f_stl_mngr)
        return;
    color_default_scale();
    call_changed();
}

bool Tvx_rng_edit::fill_from(std::wstring const &file)
{
    if (vx_is_file(file)) {
        static_cast<void>(load(file, f_mngr_style));
        return true;
    }
    if (!generate_default_scale())
        return false;
    color_default_scale();
    save_rng_scale(file, f_mngr_style);
    return true;
}

bool Tvx_rng_edit::fill_scale()
{
    auto const file = generate_file_name_scale();
    return file.empty() || fill_from(file);
}

bool Tvx_rng_edit::load(std::wstring const &file, char const *key)
{
    owned_xml const xml(vx_xml_save_2d_create());
    if (vx_xml_data_load_rng_scale_w(xml.get(), file.c_str(), f_stl_mngr, key))
        return true;
    vx_show_unreadable(f_load_error_text, xml.get());
    return false;
}

bool Tvx_rng_edit::open_rng_scale(UnicodeString const &file, char const *key)
{
    if (!load(file.str(), key))
        return false;
    call_changed();
    return true;
}

bool Tvx_rng_edit::save_rng_scale(UnicodeString const &file, char const *key)
{
    owned_xml const xml(vx_xml_save_2d_create());
    vx_xml_data_save_rng_scale_w(xml.get(), file.str().c_str(), f_stl_mngr, key);
    return true;
}

bool Tvx_rng_edit::export_rng_scale(UnicodeString const &file, char const *key)
{
    owned_style_xml const xml(vx_xml_save_style_create());
    vx_xml_save_style_save_pv_color_map(xml.get(), file.str().c_str(), f_stl_mngr, key);
    return true;
}

void Tvx_rng_edit::save_current_scl()
{
    if (!f_stl_mngr)
        return;
    f_grid->apply_edited_text();
    vx_stl_mngr_set_rng_prop_name_w(f_stl_mngr, f_prp_scale->get_prop_name());
    if (auto const file = generate_file_name_scale(); file.size() >= c_shortest_file_name)
        save_rng_scale(file, f_mngr_style);
}

// ---- the line about the current row

void Tvx_rng_edit::show_row_line()
{
    bool is_min = false, is_max = false;
    unsigned index = 0;
    int const row = f_grid->get_current_row();
    if (row < 0 || !f_grid->get_row_rng(static_cast<unsigned>(row), is_min, is_max, index)) {
        f_row_line->SetHint({});
        return fit_row_line({});
    }
    auto *const scale = f_grid->get_scale();
    double const above = is_max ? vx_rng_scale_get_max_value(scale) : vx_rng_scale_get_min(scale, index);
    double const up_to = is_min ? vx_rng_scale_get_min_value(scale) : vx_rng_scale_get_max(scale, index);
    auto const lower = f_grid->dbl2str(above), upper = f_grid->dbl2str(up_to);
    // The bound next below a number is written as that number, which belongs to the row above it.
    bool const is_exact = vx_rng_scale_get_round_digits(scale) == c_no_rounding;
    auto const is_below = [&](double bound, std::wstring const &text) {
        return is_exact && bound < vx::strutil::to_double(text.c_str(), nullptr);
    };
    auto const holds =
        is_min ? vx_res_format_w(is_below(up_to, upper) ? c_scl_row_below : c_scl_row_up_to, upper)
        : is_max
            ? vx_res_format_w(c_scl_row_above, lower)
            : vx_res_format_w(is_below(above, lower) ? c_scl_row_from : c_scl_row_between, {lower, upper});
    std::vector<unsigned> const *counts = nullptr;
    if (f_counting && GetShowing()) {
        auto const life = Life();
        bool is_given_up = false;
        counts = f_counts->get(scale, prop_name(), get_data_events(), this, is_given_up);
        if (life.expired())
            return;
        f_counting = !is_given_up; // until the user goes to another row
        if (f_grid->get_scale() != scale || f_grid->get_current_row() != row)
            return;
    }
    if (!counts) {
        f_row_line->SetHint(vx_res_format_w(c_scl_row_hint, holds));
        return fit_row_line({holds});
    }
    auto const count = std::to_wstring((*counts)[static_cast<unsigned>(row)]);
    auto const others = std::to_wstring(counts->back());
    f_row_line->SetHint(vx_res_format_w(c_scl_row_hint_counted, {holds, count, others}));
    fit_row_line({vx_res_format_w(c_scl_row_counted_objects, {holds, count, others}),
                  vx_res_format_w(c_scl_row_counted_others, {holds, count, others}),
                  vx_res_format_w(c_scl_row_counted, {holds, count}), count});
}

void Tvx_rng_edit::fit_row_line(std::vector<std::wstring> texts)
{
    f_row_texts = std::move(texts);
    refit_row_line();
}

void Tvx_rng_edit::refit_row_line()
{
    int const room = f_row_line->GetWidth();
    auto *const canvas = f_grid->GetCanvas();
    auto const fitting =
        std::ranges::find_if(f_row_texts, [&](auto const &text) { return canvas->TextWidth(text) <= room; });
    f_row_line->SetCaption(fitting == f_row_texts.end() ? std::wstring() : *fitting);
}

// ---- events

void Tvx_rng_edit::place_row_line()
{
    TRect const free = f_tool_panel->get_free_rect();
    f_row_line->SetBounds(free.Left, free.Top, std::max(free.Width(), 0), free.Height());
}

void Tvx_rng_edit::on_tool_panel_resize(TObject * /*sender*/)
{
    place_row_line();
    // The window may be laid out after the manager has gone: only the room is new.
    refit_row_line();
}

/// Whoever goes from row to row wants to know what is in them.
void Tvx_rng_edit::on_row_selected(TObject * /*sender*/)
{
    f_counting = true;
    show_row_line();
}

void Tvx_rng_edit::on_prop_edit_changed(TObject * /*sender*/)
{
    if (!f_stl_mngr)
        return;
    auto const life = Life();
    auto *const mngr = f_stl_mngr;
    auto const former_prop = prop_name();
    vx_stl_mngr_set_rng_prop_name_w(mngr, f_prp_scale->get_prop_name());
    if (vx_stl_mngr_get_just_loaded(mngr)) {
        vx_stl_mngr_set_just_loaded(mngr, false);
    } else if (auto const file = generate_file_name_scale();
               !(file.empty() ? generate_default_scale() : fill_from(file))) {
        if (life.expired() || f_stl_mngr != mngr)
            return;
        // As if the field had not been chosen.
        vx_stl_mngr_set_rng_prop_name_w(mngr, former_prop.c_str());
        return update_controls();
    }
    f_grid->update_controls();
    call_changed();
}

void Tvx_rng_edit::on_save_btn_click(TObject * /*sender*/)
{
    f_grid->apply_edited_text();
    f_save_dialog->SetFileName(f_file_name);
    if (!f_stl_mngr || !f_save_dialog->Execute(GetHandle()))
        return;
    bool const exports = f_save_dialog->GetFilterIndex() == c_export_filter;
    std::wstring const chosen = f_save_dialog->GetFileName().str();
    auto const file = vx::filesystem::change_extension(chosen, exports ? c_export_ext : c_rng_scale_ext);
    if (!vx_may_replace(chosen, file))
        return;
    if (exports) {
        export_rng_scale(file, f_mngr_style);
        return;
    }
    save_rng_scale(file, f_mngr_style);
    f_file_name = file;
}

void Tvx_rng_edit::on_open_btn_click(TObject * /*sender*/)
{
    f_open_dialog->SetFileName(f_file_name);
    if (f_stl_mngr && f_open_dialog->Execute(GetHandle())) {
        auto const file =
            vx::filesystem::change_extension(f_open_dialog->GetFileName().str(), c_rng_scale_ext);
        if (load(file, f_mngr_style)) {
            vx_stl_mngr_set_just_loaded(f_stl_mngr, true);
            f_file_name = file;
            update_controls();
            return call_changed();
        }
    }
    update_controls();
}

void Tvx_rng_edit::on_other_panel_changed(TObject * /*sender*/)
{
    vx_rng_scale_set_other_caption_w(f_grid->get_scale(), f_other_panel->get_caption());
    call_changed();
}

void Tvx_rng_edit::on_rng_grid_changed(TObject * /*sender*/)
{
    if (f_stl_mngr)
        call_changed();
}

void Tvx_rng_edit::on_rng_edit_changed(TObject * /*sender*/)
{
    f_grid->update_controls();
    call_changed();
}

void Tvx_rng_edit::on_rescale_btn_click(TObject * /*sender*/)
{
    if (!f_stl_mngr)
        return;
    Tvx_data_events const data = get_data_events();
    auto const life = Life();
    builder_caller const caller(this, [this, mngr = f_stl_mngr] { return f_stl_mngr == mngr; });
    if (vx_rng_type_rescale(f_stl_mngr, data.open, data.close, data.get_np, data.get_no, data.get_prop,
                            data.get_stat, data.get_str, data.get_val) &&
        !life.expired())
        on_rng_edit_changed(this);
}
