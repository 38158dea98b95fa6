#pragma once

#include "data/connection/connection.h"

#include "platform/base/export.h"
#include "platform/basic/vx_palette.h"

#include <cstdint>
#include <string>

namespace vx::task {
/// A value scale for a field from nothing: the scale of its file if there is one, else one entry for each
/// different value, coloured by a palette and saved.
class VX_API value_scale_default
{
public:
    value_scale_default(vx::data::connection connection, std::wstring field, Tvx_clr_palette_idx palette);

    /// All steps; true when the scale was loaded from or written to its file. A virtual source has no file.
    bool execute(void *stl_mngr, std::uint64_t limit) const;

    /// Puts the manager in value mode for the field.
    void init_scale(void *stl_mngr) const;
    [[nodiscard]] bool load_scale(void *stl_mngr) const;
    /// At most `limit` entries.
    void make_default_scale(void *stl_mngr, std::uint64_t limit) const;
    [[nodiscard]] bool save_scale(void const *stl_mngr) const;

private:
    vx::data::connection f_connection;
    std::wstring f_field;
    Tvx_clr_palette_idx f_palette;
};
} // namespace vx::task
