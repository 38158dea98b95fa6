#pragma once

#include "controls/forms/pages.h"
#include "raster_property/channels/channel_edit.h"

#include <array>

/// The editor of the colour channels of a layer: a tab for each of red, green and blue, or one for gray.
///
/// After `create` its owner sets the events, then the draw type, then the channels, and calls
/// `update_controls`. The channels stay their owner's.
class VX_API Tvx_channels_edit : public Tvx_panel, public Tvx_channel_event_owner
{
public:
    explicit Tvx_channels_edit(TComponent *owner);

    virtual void create();
    virtual void load_res();
    /// Shows the tabs of the draw type and refreshes their editors; nothing for a draw type without channels.
    void update_controls();

    [[nodiscard]] Tvx_rgb_clr_channels *get_channels() const { return f_channels; }
    /// Hands the channels of the draw type to their editors, which pull histograms at once; the others let
    /// go of theirs. Null leaves them empty.
    void set_channels(Tvx_rgb_clr_channels *channels);
    [[nodiscard]] Tvx_basic_lr2d_draw_type get_draw_type() const { return f_draw_type; }
    /// A plain store.
    void set_draw_type(Tvx_basic_lr2d_draw_type draw_type) { f_draw_type = draw_type; }
    /// What the choice of the property is called on all tabs.
    [[nodiscard]] UnicodeString get_channel_caption() const { return f_edits[0]->get_channel_caption(); }
    void set_channel_caption(UnicodeString const &caption);

    /// Red, green, blue, gray from 0.
    [[nodiscard]] Tvx_channel_edit *get_edit(int channel) const
    {
        return f_edits.at(static_cast<std::size_t>(channel));
    }
    [[nodiscard]] Tvx_page_control *get_pages() const { return f_pages; }

    /// The user changed a channel; the sender is this editor.
    TNotifyEvent on_changed;

protected:
    void channel_events_changed() override;

private:
    static constexpr std::size_t c_count = 4;
    static constexpr std::size_t c_gray = 3;

    [[nodiscard]] bool is_shown(std::size_t channel) const;
    void on_edit_changed(TObject *sender);
    void on_pages_change(TObject *sender);

    Tvx_rgb_clr_channels *f_channels = nullptr;
    Tvx_basic_lr2d_draw_type f_draw_type = c_lr2d_draw_normal;
    Tvx_page_control *f_pages;
    std::array<Tvx_tab_sheet *, c_count> f_tabs{};
    std::array<Tvx_channel_edit *, c_count> f_edits{};
};
