#include "fuzz/scale_reader.h"

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const *data, std::size_t size)
{
    return fuzz_scale<&vx_xml_data_load_rule_scale_w, &vx_xml_data_save_rule_scale_w,
                      &vx_stl_mngr_get_rule_scale_ptr, &vx_val_scale_equal>(data, size);
}
