#include "fuzz/memory_file.h"

#include "platform/base/owned.h"
#include "platform/storage/vx_xml_data.h"
#include "platform/styles/vxk_styles.h"

namespace {
template <auto Create, auto Destroy, auto Equal, auto Load, auto Save>
void run(std::wstring const &file, std::wstring const &again)
{
    vx::owned<void, Destroy> const style(Create());
    vx::owned<void, Destroy> const other(Create());
    if (!Load(file.c_str(), style.get()))
        return;
    must(Save(again.c_str(), style.get()));
    must(Load(again.c_str(), other.get()));
    must(Equal(style.get(), other.get()));
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const *data, std::size_t size)
{
    static memory_file file;
    static saved_file again;
    file.set(data, size);
    run<&vx_pnt_style_create, &vx_pnt_style_destroy, &vx_pnt_style_equal,
        &vx_xml_save_style_load_style_pnt_file, &vx_xml_save_style_save_style_pnt_file>(file.path(),
                                                                                        again.path());
    run<&vx_pln_style_create, &vx_pln_style_destroy, &vx_pln_style_equal,
        &vx_xml_save_style_load_style_pln_file, &vx_xml_save_style_save_style_pln_file>(file.path(),
                                                                                        again.path());
    run<&vx_pgn_style_create, &vx_pgn_style_destroy, &vx_pgn_style_equal,
        &vx_xml_save_style_load_style_pgn_file, &vx_xml_save_style_save_style_pgn_file>(file.path(),
                                                                                        again.path());
    return 0;
}
