#include "fuzz/memory_file.h"

#include "platform/data/vx_dbf.h"

#include <algorithm>

// A table from a stranger: whatever its header says, cells lie in the file, and all that is asked ends.

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const *data, std::size_t size)
{
    static memory_file file;
    file.set(data, size);
    vx::dbf_handle const table(vx_dbf_open_w(file.path().c_str(), 1, size % 2));
    (void)vx_dbf_find_code_page_w(file.path().c_str());
    int const fields = vx_dbf_get_nf(table.get());
    int const records = vx_dbf_get_nr(table.get());
    must(fields >= 0 && records >= 0 && static_cast<std::size_t>(records) <= size);
    for (int f = -1; f <= std::min(fields, 8); ++f) {
        must(vx_dbf_get_field_name(table.get(), f) && vx_dbf_get_field_wname(table.get(), f));
        must(vx_dbf_get_field_width(table.get(), f) <= 65536);
        for (int const r : {-1, 0, 1, records / 2, records - 1, records}) {
            bool ok = true;
            must(vx_dbf_get_str(table.get(), f, r, &ok) != nullptr);
            must(!ok || (f >= 0 && f < fields && r >= 0 && r < records));
            must(vx_dbf_get_wstr(table.get(), f, r, &ok) != nullptr);
            (void)vx_dbf_get_int(table.get(), f, r, &ok);
            double const number = vx_dbf_get_dbl(table.get(), f, r, &ok);
            must(ok || number == 0);
        }
        Tvx_dbf_cells cells;
        if (vx_dbf_find_cells(data, std::min<std::size_t>(size, 65535), size, f, &cells)) {
            must(cells.offset > 0 && cells.width > 0 && cells.offset + cells.width <= cells.record_length);
            must(cells.first_record + static_cast<std::uint64_t>(cells.records) *
                                          static_cast<std::uint64_t>(cells.record_length) <=
                 size);
        }
    }
    return 0;
}
