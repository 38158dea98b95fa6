#include "platform/base/owned.h"
#include "platform/layers/vx_tld_lr2d.h"
#include "platform/storage/detail/storage_state.h"
#include "platform/storage/detail/tld_xml.h"
#include "platform/storage/detail/xml_element.h"
#include "platform/storage/vx_xml_save_2d.h"

#include <string>
#include <utility>

using namespace vx::storage;

namespace {
constexpr char const *c_root = "vx_labels";

bool has_text_classes(Ivx_layer const *layer)
{
    return vx_dtld_lr2d_count_text_class(layer) > 0;
}

xml_fault read_labels(std::string bytes, Ivx_layer *layer)
{
    xml_file file;
    if (auto fault = file.parse(std::move(bytes), c_root))
        return fault;
    reading state;
    xml_in root = file.root(state);
    // A copy, since what stands behind the classes may still be wrong.
    vx::owned<Ivx_layer, &vx_lr2d_destroy> const copy(vx_lr2d_clone(layer));
    read_text_classes(root, copy.get());
    root.finish();
    if (state.good)
        vx_dtld_lr2d_assign_text_classes(layer, copy.get());
    return file.outcome(state);
}
} // namespace

bool vx_xml_data_load_lr2d_dtld(Ivx_xml_data *xml, wchar_t const *file, Ivx_layer *layer)
{
    if (!has_text_classes(layer))
        return done(xml, fault_text({xml_fault::other}, file ? file : L""));
    std::wstring error;
    auto bytes = file_bytes(file, error);
    return done(xml, bytes ? fault_text(read_labels(std::move(*bytes), layer), file) : error);
}

bool vx_xml_data_save_lr2d_dtld(Ivx_xml_data *xml, wchar_t const *file, Ivx_layer *layer)
{
    if (!has_text_classes(layer))
        return saved(xml, fault_text({xml_fault::other}, file ? file : L""));
    xml_file document;
    xml_out root = document.make(c_root);
    write_text_classes(root, layer);
    root.finish();
    return saved(xml, save_bytes(file, document.bytes()));
}
