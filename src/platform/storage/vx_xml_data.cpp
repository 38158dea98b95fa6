#include "platform/storage/vx_xml_data.h"

#include "captions/engine.h"

#include "platform/basic/vx_res.h"
#include "platform/storage/detail/color_map.h"
#include "platform/storage/detail/scale_xml.h"
#include "platform/storage/detail/storage_state.h"
#include "platform/storage/file_names.h"
#include "platform/storage/vx_xml_save_2d.h"
#include "platform/styles/detail/mngr_model.h"

#include <algorithm>
#include <utility>

using namespace vx::storage;
using namespace vx::styles;

namespace {
stl_mngr *mngr_of(void *mngr)
{
    return static_cast<stl_mngr *>(mngr);
}
stl_mngr const *mngr_of(void const *mngr)
{
    return static_cast<stl_mngr const *>(mngr);
}

bool is_type_of(stl_mngr const *mngr, char const *type)
{
    return mngr && (!type || !*type || style_kind_of(type) == mngr->simple.kind());
}

template <class Read>
bool load(Ivx_xml_data *xml, wchar_t const *file, void *mngr, char const *type, Read read)
{
    if (!is_type_of(mngr_of(mngr), type))
        return done(xml, fault_text({xml_fault::other}, file ? file : L""));
    std::wstring error;
    auto bytes = file_bytes(file, error);
    return done(xml, bytes ? fault_text(read(std::move(*bytes), *mngr_of(mngr)), file) : error);
}

/// Whether the file was named from a property whose name leads out of the layer's folder. On the way here
/// separators of one kind may have become those of the other.
bool leads_astray(std::wstring file, std::wstring property, wchar_t const *ext)
{
    std::ranges::replace(file, L'\\', L'/');
    std::ranges::replace(property, L'\\', L'/');
    return property.find(L'/') != property.npos && file.ends_with(L"." + property + ext);
}

template <class Bytes>
bool save(Ivx_xml_data *xml, wchar_t const *file, void const *mngr, char const *type,
          std::wstring const &property, wchar_t const *ext, Bytes bytes)
{
    if (!is_type_of(mngr_of(mngr), type))
        return saved(xml, fault_text({xml_fault::other}, file ? file : L""));
    if (file && leads_astray(file, property, ext))
        return saved(xml, vx_res_format_w(c_capt_name_has_separator, property));
    return saved(xml, save_bytes(file, bytes(*mngr_of(mngr))));
}

std::wstring val_property(void const *mngr)
{
    return mngr ? mngr_of(mngr)->val_prop_name : std::wstring();
}

bool load_val(Ivx_xml_data *xml, wchar_t const *file, void *mngr, char const *type)
{
    return load(xml, file, mngr, type, [](std::string &&bytes, stl_mngr &m) {
        return read_scale(std::move(bytes), m.values, c_value_scale);
    });
}

bool load_rng(Ivx_xml_data *xml, wchar_t const *file, void *mngr, char const *type)
{
    return load(xml, file, mngr, type,
                [](std::string &&bytes, stl_mngr &m) { return read_scale(std::move(bytes), m.ranges); });
}

bool load_rule(Ivx_xml_data *xml, wchar_t const *file, void *mngr, char const *type)
{
    return load(xml, file, mngr, type, [](std::string &&bytes, stl_mngr &m) {
        return read_scale(std::move(bytes), m.rules, c_rule_scale);
    });
}

bool save_val(Ivx_xml_data *xml, wchar_t const *file, void const *mngr, char const *type)
{
    return save(xml, file, mngr, type, val_property(mngr), c_val_scale_ext,
                [](stl_mngr const &m) { return scale_bytes(m.values, c_value_scale); });
}

bool save_rng(Ivx_xml_data *xml, wchar_t const *file, void const *mngr, char const *type)
{
    return save(xml, file, mngr, type, mngr ? mngr_of(mngr)->rng_prop_name : std::wstring(), c_rng_scale_ext,
                [](stl_mngr const &m) { return scale_bytes(m.ranges); });
}

bool save_rule(Ivx_xml_data *xml, wchar_t const *file, void const *mngr, char const *type)
{
    return save(xml, file, mngr, type, val_property(mngr), c_rule_scale_ext,
                [](stl_mngr const &m) { return scale_bytes(m.rules, c_rule_scale); });
}

bool load_style(wchar_t const *file, style_kind kind, void *style)
{
    std::wstring ignored;
    auto const bytes = style ? file_bytes(file, ignored) : std::nullopt;
    return bytes && !read_style_file(*bytes, kind, style);
}

bool save_style(wchar_t const *file, style_kind kind, void const *style)
{
    return style && saved(nullptr, save_bytes(file, style_bytes(kind, style)));
}
} // namespace

bool vx_xml_save_style_load_val_scale(Ivx_xml_data *xml, wchar_t const *file, void *mngr, char const *type)
{
    return load_val(xml, file, mngr, type);
}

bool vx_xml_save_style_load_rng_scale(Ivx_xml_data *xml, wchar_t const *file, void *mngr, char const *type)
{
    return load_rng(xml, file, mngr, type);
}

bool vx_xml_save_style_load_rule_scale(Ivx_xml_data *xml, wchar_t const *file, void *mngr, char const *type)
{
    return load_rule(xml, file, mngr, type);
}

bool vx_xml_save_style_save_val_scale(Ivx_xml_data *xml, wchar_t const *file, void const *mngr,
                                      char const *type)
{
    return save_val(xml, file, mngr, type);
}

bool vx_xml_save_style_save_rng_scale(Ivx_xml_data *xml, wchar_t const *file, void const *mngr,
                                      char const *type)
{
    return save_rng(xml, file, mngr, type);
}

bool vx_xml_data_load_val_scale_w(Ivx_xml_data *xml, wchar_t const *file, void *mngr, char const *type)
{
    return load_val(xml, file, mngr, type);
}

bool vx_xml_data_load_rng_scale_w(Ivx_xml_data *xml, wchar_t const *file, void *mngr, char const *type)
{
    return load_rng(xml, file, mngr, type);
}

bool vx_xml_data_load_rule_scale_w(Ivx_xml_data *xml, wchar_t const *file, void *mngr, char const *type)
{
    return load_rule(xml, file, mngr, type);
}

bool vx_xml_data_save_val_scale_w(Ivx_xml_data *xml, wchar_t const *file, void const *mngr, char const *type)
{
    return save_val(xml, file, mngr, type);
}

bool vx_xml_data_save_rng_scale_w(Ivx_xml_data *xml, wchar_t const *file, void const *mngr, char const *type)
{
    return save_rng(xml, file, mngr, type);
}

bool vx_xml_data_save_rule_scale_w(Ivx_xml_data *xml, wchar_t const *file, void const *mngr, char const *type)
{
    return save_rule(xml, file, mngr, type);
}

bool vx_xml_save_style_save_pv_color_map(Ivx_xml_data *xml, wchar_t const *file, void const *mngr,
                                         char const *type)
{
    if (!is_type_of(mngr_of(mngr), type))
        return saved(xml, fault_text({xml_fault::other}, file ? file : L""));
    auto const bytes = color_map_bytes(mngr_of(mngr)->ranges, mngr_of(mngr)->rng_prop_name);
    if (bytes.empty())
        return saved(xml, vx_res_format_w(c_capt_no_bounds_to_save, file ? file : L""));
    return saved(xml, save_bytes(file, bytes));
}

Ivx_xml_data *vx_xml_save_2d_create()
{
    return vx_xml_save_style_create();
}

void vx_xml_save_2d_destroy(Ivx_xml_data *xml)
{
    vx_xml_data_destroy(xml);
}

bool vx_xml_save_style_load_style_pnt_file(wchar_t const *file, void *style)
{
    return load_style(file, style_kind::pnt, style);
}

bool vx_xml_save_style_save_style_pnt_file(wchar_t const *file, void const *style)
{
    return save_style(file, style_kind::pnt, style);
}

bool vx_xml_save_style_load_style_pln_file(wchar_t const *file, void *style)
{
    return load_style(file, style_kind::pln, style);
}

bool vx_xml_save_style_save_style_pln_file(wchar_t const *file, void const *style)
{
    return save_style(file, style_kind::pln, style);
}

bool vx_xml_save_style_load_style_pgn_file(wchar_t const *file, void *style)
{
    return load_style(file, style_kind::pgn, style);
}

bool vx_xml_save_style_save_style_pgn_file(wchar_t const *file, void const *style)
{
    return save_style(file, style_kind::pgn, style);
}
