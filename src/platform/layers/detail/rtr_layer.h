#pragma once

#include "platform/base/color.h"
#include "platform/basic/vx_clr_channel.h"
#include "platform/basic/vx_stat.h"
#include "platform/layers/detail/layer.h"
#include "platform/layers/detail/rtr_source.h"

#include <map>

namespace vx::layers {
struct rtr_layer final : Ivx_layer
{
    rtr_layer();
    [[nodiscard]] std::unique_ptr<Ivx_layer> clone() const override;

    void file_name_changed() override;
    /// Made on first use.
    [[nodiscard]] Tvx_rtr_source &opened_source();
    /// Null past the end.
    [[nodiscard]] Tvx_stat_data *statistic(unsigned band);
    [[nodiscard]] void *rgb_channels();
    /// Null as long as nobody has asked for the channels, nor said what they are.
    [[nodiscard]] void const *known_channels() const { return has_fed_channels ? channels.get() : nullptr; }
    /// Takes these, and no band feeds them by itself.
    void set_channels(void const *from);

    int draw_type = 0;
    Tvx_color transparent;
    double opacity = 1;

private:
    void note_fed();

    std::shared_ptr<Tvx_rtr_source> source; ///< the clones' too
    std::map<unsigned, vx::owned<Tvx_stat_data, &vx_stat_destroy>> statistics;
    vx::owned<void, &vx_rgb_channels_destroy> channels{vx_rgb_channels_create()};
    bool has_fed_channels = false;
    std::wstring fed_from; ///< the name of the data then, without a password
};
} // namespace vx::layers
