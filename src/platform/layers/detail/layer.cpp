#include "platform/layers/detail/layer.h"

#include <algorithm>
#include <cmath>

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
    return caption.empty() ? vx::data::source_base_name(file_name) : caption;
}

bool vx::layers::cut_opacity(double &opacity)
{
    if (std::isnan(opacity))
        return false;
    opacity = std::clamp(opacity, 0.0, 1.0);
    return true;
}
