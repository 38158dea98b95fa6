#include "fuzz/memory_file.h"

#include "platform/base/owned.h"
#include "platform/storage/vx_style_lib_file.h"
#include "platform/styles/vx_style_lib.h"

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const *data, std::size_t size)
{
    static memory_file file;
    static saved_file again;
    file.set(data, size);
    vx::owned<void, &vx_style_libs_destroy> const libs(vx_style_libs_create());
    if (!vx_xml_data_load_style_lib(nullptr, file.path().c_str(), libs.get()))
        return 0;
    must(vx_xml_data_save_style_lib(nullptr, again.path().c_str(), vx_style_libs_get_lib_ptr(libs.get(), 0)));
    must(vx_xml_data_load_style_lib(nullptr, again.path().c_str(), libs.get()));
    must(vx_style_libs_get_size(libs.get()) == 2);
    return 0;
}
