#include "platform/storage/detail/storage_state.h"

#include "captions/engine.h"

#include "platform/basic/vx_fault.h"
#include "platform/basic/vx_res.h"
#include "platform/winapi/file.h"

#include <utility>

namespace vx::storage {
bool done(Ivx_xml_data *xml, std::wstring error)
{
    bool const good = error.empty();
    if (xml)
        xml->error = std::move(error);
    return good;
}

bool saved(Ivx_xml_data *xml, std::wstring const &error)
{
    if (!error.empty())
        vx_reason_report(error.c_str());
    return done(xml, error);
}

std::optional<std::string> file_bytes(wchar_t const *file, std::wstring &error)
{
    vx::fault fault;
    auto bytes = vx_file_read(file ? file : L"", fault, c_xml_size_limit);
    error = vx_fault_reason(fault);
    return bytes;
}

std::wstring fault_text(xml_fault const &fault, wchar_t const *file)
{
    switch (fault.kind) {
    case xml_fault::none:
        return {};
    case xml_fault::newer:
        return vx_res_format_w(c_capt_file_newer, file);
    case xml_fault::other:
        return vx_res_format_w(c_capt_file_other, file);
    case xml_fault::damaged:
        break;
    }
    if (fault.line > 0)
        return vx_res_format_w(c_capt_file_line, {file, std::to_wstring(fault.line), fault.reason});
    return vx_res_format_w(c_capt_file_damaged, {file, fault.reason});
}

std::wstring save_bytes(wchar_t const *file, std::string const &bytes)
{
    if (bytes.empty())
        return vx_res_format_w(c_capt_too_large_to_save, file ? file : L"");
    vx::fault fault;
    return vx_save_atomic(file ? file : L"", bytes, fault) ? std::wstring() : vx_fault_reason(fault);
}
} // namespace vx::storage

using namespace vx::storage;

Ivx_xml_data *vx_xml_save_style_create()
{
    return new Ivx_xml_data;
}

void vx_xml_save_style_destroy(Ivx_xml_data *xml)
{
    delete xml;
}

void vx_xml_data_destroy(Ivx_xml_data *xml)
{
    delete xml;
}

void vx_xml_data_get_error_w(Ivx_xml_data const *xml, Ivx_string_adp *error)
{
    vx_string_adp_feed(error, xml ? xml->error.c_str() : L"");
}
