#include "fuzz/scale_reader.h"

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const *data, std::size_t size)
{
    return fuzz_scale<&vx_xml_data_load_rng_scale_w, &vx_xml_data_save_rng_scale_w,
                      &vx_stl_mngr_get_rng_scale_ptr, &vx_rng_scale_equal>(data, size);
}
