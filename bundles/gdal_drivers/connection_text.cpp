#include "connection_text.h"

#include "platform/base/virtual_mark.h"

namespace vx::gdal {
namespace {
std::wstring take(std::map<std::wstring, std::wstring> &options, wchar_t const *key)
{
    auto const found = options.find(key);
    if (found == options.end())
        return {};
    std::wstring value = std::move(found->second);
    options.erase(found);
    return value;
}
} // namespace

connection_text::connection_text(std::wstring const &text)
{
    std::size_t split = text.find(L'|');
    if (split == std::wstring::npos)
        split = text.find(L'&');
    source = without_virtual_mark(std::wstring_view(text).substr(0, split));
    if (split == std::wstring::npos)
        return;
    for (std::size_t at = split + 1; at <= text.size();) {
        std::size_t const end = std::min(text.find(L'&', at), text.size());
        std::wstring const piece = text.substr(at, end - at);
        at = end + 1;
        std::size_t const sign = piece.find(L'=');
        if (piece.empty() || sign == 0)
            continue;
        options[piece.substr(0, sign)] = sign == std::wstring::npos ? std::wstring() : piece.substr(sign + 1);
    }
    layer = take(options, L"layer");
    geom = take(options, L"geom");
    geom_type = take(options, L"geom_type");
    fid = take(options, L"fid");
}

std::wstring make_connection_text(std::wstring const &source, std::wstring const &layer,
                                  std::wstring const &geom)
{
    std::wstring text = source + L"|";
    if (!geom.empty())
        text += L"geom=" + geom + L"&";
    return text + L"layer=" + layer;
}
} // namespace vx::gdal
