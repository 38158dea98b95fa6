#include "network_guard.h"

#include <cpl_conv.h>
#include <cpl_error.h>
#include <cpl_http.h>

namespace vx::gdal {
namespace {
constexpr char c_allowed_file[] = "CPL_VSIL_CURL_ALLOWED_FILENAME";

CPLHTTPResult *refuse(char const *address, CSLConstList, GDALProgressFunc, void *, CPLHTTPFetchWriteFunc,
                      void *, void *)
{
    auto *const result = static_cast<CPLHTTPResult *>(CPLCalloc(1, sizeof(CPLHTTPResult)));
    result->nStatus = 1;
    result->pszErrBuf = CPLStrdup(CPLSPrintf("A file on the disk asks for %s; nothing is asked.", address));
    return result;
}

void set_default(char const *option, char const *value)
{
    if (!CPLGetConfigOption(option, nullptr))
        CPLSetConfigOption(option, value);
}
} // namespace

network_guard::network_guard(bool is_needed) : f_is_needed(is_needed)
{
    if (!f_is_needed)
        return;
    CPLHTTPPushFetchCallback(&refuse, nullptr);
    CPLSetThreadLocalConfigOption(c_allowed_file, "none");
}

network_guard::~network_guard()
{
    if (!f_is_needed)
        return;
    CPLSetThreadLocalConfigOption(c_allowed_file, nullptr);
    CPLHTTPPopFetchCallback();
}

void limit_requests()
{
    set_default("GDAL_HTTP_CONNECTTIMEOUT", "3");
    set_default("GDAL_HTTP_TIMEOUT", "10");
    set_default("GDAL_HTTP_MAX_RETRY", "0");
}

void limit_features()
{
    // Megabytes of text. What is made of it takes several times as much.
    set_default("OGR_GEOJSON_MAX_OBJ_SIZE", "64");
}
} // namespace vx::gdal
