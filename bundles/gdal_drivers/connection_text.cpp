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

std::size_t connection_text::first_separator(std::wstring const &text)
{
    std::size_t const split = text.find(L'|');
    return split == std::wstring::npos ? text.find(L'&') : split;
}

connection_text::connection_text(std::wstring const &text, std::size_t split)
{
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
        if (piece.rfind(L"layer=", 0) == 0) {
            layer_tail = text.substr(at - 1 - piece.size() + sign + 1);
            f_options_before_layer = options;
        }
        options[piece.substr(0, sign)] = sign == std::wstring::npos ? std::wstring() : piece.substr(sign + 1);
    }
    layer = take(options, L"layer");
    geom = take(options, L"geom");
    geom_type = take(options, L"geom_type");
    fid = take(options, L"fid");
    allows_network = take(options, L"network") == L"yes";
}

void connection_text::take_layer_tail()
{
    layer = layer_tail;
    options = f_options_before_layer;
    for (wchar_t const *const key : {L"geom", L"geom_type", L"fid", L"network"})
        options.erase(key);
}

std::wstring make_connection_text(connection_text const &connection, std::wstring const &layer)
{
    std::wstring text = connection.source + L"|";
    for (auto const &[key, value] : connection.options)
        text += key + L"=" + value + L"&";
    // Last, since its name may hold what divides the others.
    return text + L"layer=" + layer;
}
} // namespace vx::gdal
