#pragma once

#include "scale_builders/value/stdleg_items.h"

#include "platform/base/basic_obj.h"
#include "platform/data/vx_dbf.h"

#include <string>
#include <vector>

/// Reads a standard legend: the rows of a dBase table, and for their symbol codes the styles of a library.
/// Names are in the system code page; those of fields are found in any case.
class VX_API Tvx_stdleg_load_dbf : public Tvx_basic_obj
{
public:
    Tvx_stdleg_load_dbf();

    /// Fills `items`; always 0. A file that does not open gives none. `stdlib_index` is the library's place
    /// in the list of libraries (vx_global_lib_styles.h).
    int execute(Tvx_stdleg_items *items, char const *filename, char const *lcode_propname,
                char const *bcode_propname, bool capt1_flag, bool capt2_flag, bool capt3_flag,
                char const *capt1_propname, char const *capt2_propname, char const *capt3_propname,
                int stdlib_index);
    /// The user has stopped the reading; there are no items then.
    [[nodiscard]] bool is_stopped() const { return f_is_stopped; }

    /// Number of the first field of that name, in any case; -1 if there is none.
    [[nodiscard]] static int find_field(Ivx_dbf const *table, char const *name);

private:
    using group = std::vector<Tvx_stdleg_item *>;

    void load_dbf();
    void load_row(Ivx_dbf *table, int row, int lcode, int bcode, int const (&captions)[3]);
    /// Rows of the same symbol code stand in one group, whose rows are the steps of a gradient.
    void load_styles();
    void load_group(group const &rows);

    Tvx_stdleg_items *f_items = nullptr;
    std::string f_filename;
    std::string f_lcode_propname;
    std::string f_bcode_propname;
    bool f_capt_flags[3] = {};
    std::string f_capt_propnames[3];
    int f_stdlib_index = 0;
    bool f_is_stopped = false;
    vx::owned<void, &vx_pnt_style_destroy> f_pnt_style;
    vx::owned<void, &vx_pln_style_destroy> f_pln_style;
    vx::owned<void, &vx_pgn_style_destroy> f_pgn_style;
};
