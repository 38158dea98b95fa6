#include "platform/dialogs/vx_dlg_table.h"

#include "platform/dialogs/dlg_table_priv.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace {
vx_dlg_table g_table;
}

vx_dlg_table vx_dlg_set_table(vx_dlg_table const *table)
{
    vx_dlg_table taken;
    if (table) {
        std::memcpy(&taken, table, std::min(table->size, sizeof taken));
        taken.size = sizeof taken;
    }
    return std::exchange(g_table, taken);
}

vx_dlg_table const &vx::dialogs::table()
{
    return g_table;
}
