#pragma once

#include "fuzz/memory_file.h"

#include "platform/base/owned.h"
#include "platform/storage/vx_xml_save_2d.h"
#include "platform/styles/vxk_styles.h"

#include <string_view>

/// Reads the bytes as a scale of each style type that they name. What can be read must come back from a file
/// of our own.
template <auto Load, auto Save, auto Scale, auto Equal>
int fuzz_scale(std::uint8_t const *data, std::size_t size)
{
    using owned_mngr = vx::owned<void, &vx_stl_mngr_destroy>;
    static memory_file file;
    static saved_file again;
    static char const *const types[] = {"pnt_style",        "pln_style",     "pgn_style",    "clr_style",
                                        "grid1d_clr_style", "pnt3d_style",   "pln3d_style",  "pgn3d_style",
                                        "txt_pnt_style",    "txt_pln_style", "txt_pgn_style"};
    file.set(data, size);
    std::string_view const text(reinterpret_cast<char const *>(data), size);
    for (auto const *type : types) {
        if (text.find(type) == text.npos)
            continue;
        owned_mngr const mngr(vx_stl_mngr_create(type));
        if (!Load(nullptr, file.path().c_str(), mngr.get(), type))
            continue;
        owned_mngr const other(vx_stl_mngr_create(type));
        must(Save(nullptr, again.path().c_str(), mngr.get(), type));
        must(Load(nullptr, again.path().c_str(), other.get(), type));
        must(Equal(Scale(mngr.get()), Scale(other.get())));
    }
    return 0;
}
