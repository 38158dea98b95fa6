#include "fuzz/memory_file.h"

#include "platform/base/owned.h"
#include "platform/data/vx_tld_data.h"
#include "platform/layers/vx_shp_lr2d.h"
#include "platform/layers/vx_tld_lr2d.h"
#include "platform/storage/vx_xml_save_2d.h"

// What can be read as text classes comes back from a file of our own.
extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const *data, std::size_t size)
{
    using owned_layer = vx::owned<Ivx_layer, &vx_lr2d_destroy>;
    static memory_file file;
    static saved_file again;
    file.set(data, size);
    owned_layer const layer(vx_lr2d_create("shp_pln_lr2d"));
    owned_layer const other(vx_lr2d_create("shp_pln_lr2d"));
    Ivx_layer *const labels = vx_shp_lr2d_get_text_layer_ptr(layer.get());
    Ivx_layer *const read = vx_shp_lr2d_get_text_layer_ptr(other.get());
    if (!vx_xml_data_load_lr2d_dtld(nullptr, file.path().c_str(), labels))
        return 0;
    must(vx_xml_data_save_lr2d_dtld(nullptr, again.path().c_str(), labels));
    must(vx_xml_data_load_lr2d_dtld(nullptr, again.path().c_str(), read));
    int const count = vx_dtld_lr2d_count_text_class(labels);
    must(vx_dtld_lr2d_count_text_class(read) == count);
    must(vx_dtld_lr2d_get_text_class_index(read) == vx_dtld_lr2d_get_text_class_index(labels));
    for (int i = 0; i < count; ++i)
        must(vx_textlr_info_equal(vx_dtld_lr2d_get_text_class_by_index(labels, i),
                                  vx_dtld_lr2d_get_text_class_by_index(read, i)));
    return 0;
}
