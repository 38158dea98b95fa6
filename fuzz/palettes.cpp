#include "fuzz/memory_file.h"

#include "platform/base/owned.h"
#include "platform/basic/vx_palette.h"
#include "platform/storage/vx_xml_save_2d.h"

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const *data, std::size_t size)
{
    static memory_file file;
    static saved_file again;
    file.set(data, size);
    vx::owned<void, &vx_clr_palettes_destroy> const list(vx_clr_palettes_create());
    if (!vx_xml_data_load_clr_palettes(nullptr, file.path().c_str(), list.get()))
        return 0;
    auto const count = vx_clr_palettes_get_size(list.get());
    must(vx_xml_data_save_clr_palettes(nullptr, again.path().c_str(), list.get()));
    must(vx_xml_data_load_clr_palettes(nullptr, again.path().c_str(), list.get()));
    must(vx_clr_palettes_get_size(list.get()) == count);
    return 0;
}
