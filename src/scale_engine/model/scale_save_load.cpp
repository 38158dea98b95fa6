#include "scale_engine/model/scale_save_load.h"

#include "captions/engine.h"
#include "data/filesystem/filesystem.h"
#include "scale_engine/model/scale_path.h"

#include "platform/base/owned.h"
#include "platform/basic/vx_fault.h"
#include "platform/basic/vx_res.h"
#include "platform/storage/vx_xml_data.h"
#include "platform/styles/vx_stl_mngr.h"

namespace vx::task {
namespace {
using owned_xml = vx::owned<Ivx_xml_data, &vx_xml_save_style_destroy>;

template <auto Load>
bool load(std::wstring const &file, void *stl_mngr)
{
    if (file.empty() || !vx::filesystem::path_exist(file))
        return false;
    char const *const type = vx_stl_mngr_get_style_type(stl_mngr);
    owned_xml const xml(vx_xml_save_style_create());
    return Load(xml.get(), file.c_str(), stl_mngr, type);
}

template <auto Save>
bool save(std::wstring const &file, std::wstring const &field, void const *stl_mngr)
{
    if (file.empty())
        return false;
    if (field.find_first_of(vx::filesystem::all_directory_separators) != field.npos) {
        vx_reason_report(vx_res_format_w(c_capt_name_has_separator, field).c_str());
        return false;
    }
    char const *const type = vx_stl_mngr_get_style_type(stl_mngr);
    owned_xml const xml(vx_xml_save_style_create());
    Save(xml.get(), file.c_str(), stl_mngr, type);
    return true;
}
} // namespace

bool scale_save_load::load_value(std::wstring const &source, std::wstring const &field, void *stl_mngr)
{
    return load<&vx_xml_save_style_load_val_scale>(
        scale_path::make_value(scale_path::of_source(source), field), stl_mngr);
}

bool scale_save_load::load_range(std::wstring const &source, std::wstring const &field, void *stl_mngr)
{
    return load<&vx_xml_save_style_load_rng_scale>(
        scale_path::make_range(scale_path::of_source(source), field), stl_mngr);
}

bool scale_save_load::load_rule(std::wstring const &source, std::wstring const &field, void *stl_mngr)
{
    return load<&vx_xml_save_style_load_rule_scale>(
        scale_path::make_rule(scale_path::of_source(source), field), stl_mngr);
}

namespace detail {
bool scale_save::save_value(std::wstring const &source, std::wstring const &field, void const *stl_mngr)
{
    return save<&vx_xml_save_style_save_val_scale>(
        scale_path::make_value(scale_path::of_source(source), field), field, stl_mngr);
}

bool scale_save::save_range(std::wstring const &source, std::wstring const &field, void const *stl_mngr)
{
    return save<&vx_xml_save_style_save_rng_scale>(
        scale_path::make_range(scale_path::of_source(source), field), field, stl_mngr);
}
} // namespace detail
} // namespace vx::task
