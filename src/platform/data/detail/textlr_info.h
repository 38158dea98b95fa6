#pragma once

#include "platform/base/color.h"
#include "platform/basic/vx_fnt_type.h"

#include <memory>
#include <string>

/// The text classes of vx_tld_data.h, as ordinary values.
namespace vx::tld {
/// N of the scale at which lengths are what was set. A place that copies of a class share, so that what a
/// drawing settles holds for all of them.
class init_scale
{
public:
    [[nodiscard]] double get() const { return *f_place; }
    /// That of the next drawing is the one.
    void unsettle();
    /// Back to the one before, unless a drawing has settled this one.
    void restore();
    void set(double scale);
    /// The scale to go by in a drawing at `scale`, which settles it.
    [[nodiscard]] double settled_at(double scale) const;
    friend bool operator==(init_scale const &a, init_scale const &b) { return a.get() == b.get(); }

private:
    std::shared_ptr<double> f_place = std::make_shared<double>(0);
    std::shared_ptr<double> f_former;
};

struct textlr_info
{
    explicit textlr_info(int hint);
    bool operator==(textlr_info const &) const = default;

    int hint;
    std::wstring name;
    std::wstring property_name;
    int property_index = -1;
    vx_fnt_type font;
    double size = 3;
    Tvx_color color = vx_clr_init_rgb(0, 0, 0);
    double angle = 0;
    int encoding = 0;
    int priority = 0;
    bool place_overlap = false;
    bool scale = false;
    init_scale initial;
    bool back = false;
    Tvx_color back_clr = vx_clr_init_rgb(255, 255, 255);
    bool outline = false;
    Tvx_color outline_clr = vx_clr_init_rgb(255, 255, 255);
    double outline_width = 0.3;
    bool shadow = false;
    Tvx_color shadow_clr = vx_clr_init_rgb(128, 128, 128);
    double shadow_width = 0.3;
    double shadow_gap_x = 0.3;
    double shadow_gap_y = -0.3;
    int range = 0;
    int duplicates = 0;
    signed char text_pos_x = 0;
    signed char text_pos_y = 0;
    int line_type = 0;
    bool line_direction = false;
    double delta_x = 0;
    double delta_y = 0;
    bool use_min_scale = false;
    double min_scale = 1;
    bool use_max_scale = false;
    double max_scale = 1'000'000;
};
} // namespace vx::tld
