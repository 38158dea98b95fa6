#include "platform/layers/layer.h"

#include <algorithm>
#include <cmath>

namespace {
constexpr wchar_t c_virtual_mark = L'*';
constexpr std::wstring_view c_separators = L"/\\";
constexpr wchar_t c_option_mark = L'|';

std::wstring base_name(std::wstring name)
{
    if (name.starts_with(c_virtual_mark))
        name.erase(0, 1);
    name = name.substr(0, name.find(c_option_mark));
    if (auto const at = name.find_last_of(c_separators); at != std::wstring::npos)
        name.erase(0, at + 1);
    // A dot at the start of the name begins no extension.
    if (auto const dot = name.rfind(L'.'); dot != std::wstring::npos && dot > 0)
        name.erase(dot);
    return name;
}
} // namespace

Ivx_layer::Ivx_layer(std::string type_key) : key(std::move(type_key))
{
}
Ivx_layer::~Ivx_layer() = default;

std::unique_ptr<Ivx_layer> Ivx_layer::clone() const
{
    auto copy = std::make_unique<Ivx_layer>(key);
    copy->take_common(*this);
    return copy;
}

void Ivx_layer::take_common(Ivx_layer const &source)
{
    caption = source.caption;
    file_name = source.file_name;
    visible = source.visible;
    own_selected_style = source.own_selected_style;
    plugin = source.plugin;
    layout_plugin = source.layout_plugin;
}

std::wstring Ivx_layer::display_name() const
{
    return caption.empty() ? base_name(file_name) : caption;
}

bool vx::layers::cut_opacity(double &opacity)
{
    if (std::isnan(opacity))
        return false;
    opacity = std::clamp(opacity, 0.0, 1.0);
    return true;
}
