#include "gdal_errors.h"

#include "platform/base/text_codec.h"

#include <cpl_error.h>

namespace vx::gdal {
namespace {
/// Enough for a message with its context; a broken file can raise one error for each of its records.
constexpr std::size_t c_longest_report = 2000;

thread_local error_guard *t_innermost = nullptr;

void CPL_STDCALL on_gdal_error(CPLErr level, CPLErrorNum, char const *message)
{
    if (level >= CE_Failure)
        static_cast<error_guard *>(CPLGetErrorHandlerUserData())->add(text::utf8_to_wide(message));
}
} // namespace

error_guard::error_guard(std::wstring &target) : f_target(target), f_outer(t_innermost)
{
    t_innermost = this;
    CPLErrorReset();
    CPLPushErrorHandlerEx(&on_gdal_error, this);
}

error_guard::~error_guard()
{
    CPLPopErrorHandler();
    CPLErrorReset();
    t_innermost = f_outer;
    if (f_outer)
        f_outer->add(f_text);
    f_target.swap(f_text);
}

void error_guard::add_to_innermost(std::wstring_view text)
{
    if (t_innermost)
        t_innermost->add(text);
}

void error_guard::add(std::wstring_view text)
{
    if (text.empty() || f_text.size() > c_longest_report || f_text.find(text) != std::wstring::npos)
        return;
    if (!f_text.empty())
        f_text += L"\n";
    f_text += text;
}
} // namespace vx::gdal
