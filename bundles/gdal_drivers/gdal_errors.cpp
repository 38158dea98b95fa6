#include "gdal_errors.h"

#include "database_guard.h"

#include "platform/base/text_codec.h"
#include "platform/basic/vx_fault.h"
#include "platform/basic/vx_res.h"

#include <cpl_error.h>

#include <algorithm>

namespace vx::gdal {
namespace {
/// Enough for a message with its context; a broken file can raise one error for each of its records.
constexpr std::size_t c_longest_report = 2000;

thread_local error_guard *t_innermost = nullptr;

void append_once(std::wstring &all, std::wstring_view text, wchar_t const *separator)
{
    if (text.empty() || all.size() > c_longest_report || all.find(text) != std::wstring::npos)
        return;
    if (!all.empty())
        all += separator;
    all += text;
}

void CPL_STDCALL on_gdal_error(CPLErr level, CPLErrorNum, char const *message)
{
    if (level >= CE_Failure)
        static_cast<error_guard *>(CPLGetErrorHandlerUserData())->add_details(text::utf8_to_wide(message));
}
} // namespace

error_guard::error_guard(std::wstring &target) : f_target(target), f_outer(t_innermost)
{
    t_innermost = this;
    note_database_progress();
    CPLErrorReset();
    CPLPushErrorHandlerEx(&on_gdal_error, this);
}

error_guard::~error_guard()
{
    CPLPopErrorHandler();
    CPLErrorReset();
    if (take_endless_statement())
        add(c_drv_endless_view);
    t_innermost = f_outer;
    if (f_outer) {
        f_outer->add(f_sentence);
        f_outer->add_details(f_details);
    }
    f_target = text();
}

void error_guard::add_to_innermost(std::wstring_view reason)
{
    if (!t_innermost)
        return;
    auto const [sentence, details] = vx_reason_split(reason);
    if (sentence != vx_res_get_wstr(c_drv_reports))
        t_innermost->add(sentence);
    t_innermost->add_details(details);
}

void error_guard::add(std::wstring_view sentence)
{
    append_once(f_sentence, sentence, L" ");
}

void error_guard::add(Tvx_driver_caption sentence)
{
    add(vx_res_get_wstr(sentence));
}

void error_guard::add(Tvx_driver_fault_caption sentence)
{
    add(vx_res_get_wstr(sentence));
}

void error_guard::clear()
{
    f_sentence.clear();
    f_details.clear();
}

void error_guard::add_details(std::wstring_view text)
{
    append_once(f_details, text, L"\n");
}

std::wstring error_guard::text() const
{
    bool const speaks = f_sentence.empty() && !f_details.empty();
    return vx_reason_make(speaks ? vx_res_get_wstr(c_drv_reports) : f_sentence, f_details);
}

std::wstring reason_about(Tvx_driver_caption sentence, std::wstring_view source, std::wstring_view reason)
{
    auto const [why, details] = vx_reason_split(reason);
    auto text = vx_res_format_w(sentence, source);
    if (!why.empty() && why != vx_res_get_wstr(c_drv_reports))
        text += L' ' + why;
    return vx_reason_make(text, details);
}
} // namespace vx::gdal
