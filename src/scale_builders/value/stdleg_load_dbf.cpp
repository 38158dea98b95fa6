#include "scale_builders/value/stdleg_load_dbf.h"

#include "captions/builders.h"
#include "data/filesystem/filesystem.h"
#include "data/filesystem/tutils.h"
#include "scale_builders/common/detail/builder_caller.h"

#include "platform/base/text_codec.h"
#include "platform/basic/vx_res.h"
#include "platform/dialogs/vx_progress.h"
#include "platform/styles/vx_global_lib_styles.h"
#include "platform/winapi/case_map.h"

#include <unordered_map>

namespace {
constexpr int c_between_questions = 128;

std::string text_or_empty(char const *text)
{
    return text ? text : "";
}
} // namespace

Tvx_stdleg_load_dbf::Tvx_stdleg_load_dbf()
    : f_pnt_style(vx_pnt_style_create()), f_pln_style(vx_pln_style_create()),
      f_pgn_style(vx_pgn_style_create())
{
}

int Tvx_stdleg_load_dbf::execute(Tvx_stdleg_items *items, char const *filename, char const *lcode_propname,
                                 char const *bcode_propname, bool capt1_flag, bool capt2_flag,
                                 bool capt3_flag, char const *capt1_propname, char const *capt2_propname,
                                 char const *capt3_propname, int stdlib_index)
{
    f_items = items;
    f_filename = text_or_empty(filename);
    f_lcode_propname = text_or_empty(lcode_propname);
    f_bcode_propname = text_or_empty(bcode_propname);
    f_capt_flags[0] = capt1_flag;
    f_capt_flags[1] = capt2_flag;
    f_capt_flags[2] = capt3_flag;
    f_capt_propnames[0] = text_or_empty(capt1_propname);
    f_capt_propnames[1] = text_or_empty(capt2_propname);
    f_capt_propnames[2] = text_or_empty(capt3_propname);
    f_stdlib_index = stdlib_index;
    f_is_stopped = false;
    load_dbf();
    load_styles();
    return 0;
}

int Tvx_stdleg_load_dbf::find_field(Ivx_dbf const *table, char const *name)
{
    auto const wanted = vx_lower_w(vx::text::to_wide(text_or_empty(name)));
    for (int i = 0; i < vx_dbf_get_nf(table); ++i)
        if (vx_lower_w(vx_dbf_get_field_wname(table, i)) == wanted)
            return i;
    return -1;
}

void Tvx_stdleg_load_dbf::load_dbf()
{
    f_items->clear();
    vx::dbf_handle const table(vx_dbf_open(f_filename.c_str(), 1, 0));
    if (!table)
        return;
    int const lcode = find_field(table.get(), f_lcode_propname.c_str());
    int const bcode = find_field(table.get(), f_bcode_propname.c_str());
    int captions[3];
    for (int i = 0; i < 3; ++i)
        captions[i] = f_capt_flags[i] ? find_field(table.get(), f_capt_propnames[i].c_str()) : -1;
    Tvx_progress progress(
        vx_res_format_w(c_bld_reading_legend, vx::filesystem::filename(vx::text::to_wide(f_filename)))
            .c_str());
    int const count = vx_dbf_get_nr(table.get());
    for (int row = 0; row < count; ++row) {
        if (row % c_between_questions == 0) {
            progress.set(static_cast<int>(100LL * row / count));
            if (progress.is_stopped() || !builder_caller::is_there()) {
                f_is_stopped = true;
                return f_items->clear();
            }
        }
        load_row(table.get(), row, lcode, bcode, captions);
    }
}

void Tvx_stdleg_load_dbf::load_row(Ivx_dbf *table, int row, int lcode, int bcode, int const (&captions)[3])
{
    // A cell without a value is no code.
    auto const code = [&](int field) {
        bool has_value = false;
        int const value = field < 0 ? 0 : vx_dbf_get_int(table, field, row, &has_value);
        return has_value ? value : -1;
    };
    auto *const item = f_items->add_ptr();
    item->set_order(row + 1);
    item->set_lcode(code(lcode));
    item->set_bcode(code(bcode));
    std::string caption;
    for (int const field : captions) {
        bool has_value = false;
        if (field < 0)
            continue;
        auto const text = Tutils::str_trim(std::string(vx_dbf_get_str(table, field, row, &has_value)));
        if (has_value)
            caption += text;
    }
    item->set_caption(caption);
}

void Tvx_stdleg_load_dbf::load_styles()
{
    f_items->set_all_marked(false);
    std::unordered_map<int, group> groups;
    for (unsigned i = 0; i < f_items->get_size(); ++i)
        groups[f_items->get_ptr(i)->get_bcode()].push_back(f_items->get_ptr(i));
    for (auto const &[code, rows] : groups)
        load_group(rows);
}

void Tvx_stdleg_load_dbf::load_group(group const &rows)
{
    struct kind
    {
        int type;
        bool (*get)(int lib, int code, void *style);
        bool (*get_step)(int lib, int code, unsigned position, unsigned count, void *style);
        void (*assign)(void *target, void const *source);
        void *scratch;
        void *(Tvx_stdleg_item::*style)();
    };
    // The first kind that the library holds decides.
    kind const kinds[] = {
        {c_pnt_legend_style_type, &vx_global_lib_styles_get_spec_pnt,
         &vx_global_lib_styles_get_spec_pnt_gradient, &vx_pnt_style_assign, f_pnt_style.get(),
         &Tvx_stdleg_item::get_pnt_style_ptr},
        {c_pln_legend_style_type, &vx_global_lib_styles_get_spec_pln,
         &vx_global_lib_styles_get_spec_pln_gradient, &vx_pln_style_assign, f_pln_style.get(),
         &Tvx_stdleg_item::get_pln_style_ptr},
        {c_pgn_legend_style_type, &vx_global_lib_styles_get_spec_pgn,
         &vx_global_lib_styles_get_spec_pgn_gradient, &vx_pgn_style_assign, f_pgn_style.get(),
         &Tvx_stdleg_item::get_pgn_style_ptr},
    };
    int const code = rows.front()->get_bcode();
    auto const count = static_cast<unsigned>(rows.size());
    kind const *held = nullptr;
    for (auto const &kind : kinds)
        if (!held && kind.get(f_stdlib_index, code, kind.scratch))
            held = &kind;
    for (unsigned step = 0; step < count; ++step) {
        auto *const item = rows[step];
        item->set_marked(true);
        if (!held)
            continue;
        item->set_style_type(held->type);
        void *const style = (item->*held->style)();
        if (count == 1)
            held->assign(style, held->scratch);
        else
            static_cast<void>(held->get_step(f_stdlib_index, code, step, count, style)); // it holds the code
    }
}
