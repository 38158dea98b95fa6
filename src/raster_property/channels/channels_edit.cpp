#include "raster_property/channels/channels_edit.h"

#include "captions/channels.h"

#include "platform/basic/vx_clr_channel.h"
#include "platform/basic/vx_res.h"

Tvx_channels_edit::Tvx_channels_edit(TComponent *owner)
    : Tvx_panel(owner), f_pages(new Tvx_page_control(this))
{
    for (std::size_t i = 0; i < c_count; ++i) {
        f_tabs[i] = new Tvx_tab_sheet(this);
        f_edits[i] = new Tvx_channel_edit(this);
    }
}

void Tvx_channels_edit::create()
{
    f_pages->SetParent(this);
    f_pages->SetAlign(alClient);
    f_pages->OnChange = make_closure<&Tvx_channels_edit::on_pages_change>(this);
    for (std::size_t i = 0; i < c_count; ++i) {
        f_edits[i]->SetParent(f_tabs[i]);
        f_edits[i]->create();
        f_edits[i]->SetAlign(alClient);
        f_edits[i]->on_changed = make_closure<&Tvx_channels_edit::on_edit_changed>(this);
    }
    channel_events_changed();
    load_res();
}

void Tvx_channels_edit::load_res()
{
    for (std::size_t i = 0; i < c_count; ++i) {
        f_tabs[i]->SetPageControl(f_pages);
        f_tabs[i]->SetCaption(vx_res_get_wstr(c_chn_red + static_cast<int>(i)));
        f_edits[i]->load_res();
    }
    f_pages->SetAccessibleName(vx_res_get_wstr(c_chn_tabs));
}

void Tvx_channels_edit::channel_events_changed()
{
    for (auto *const edit : f_edits)
        edit->set_channel_events(get_channel_events());
}

void Tvx_channels_edit::set_channel_caption(UnicodeString const &caption)
{
    for (auto *const edit : f_edits)
        edit->set_channel_caption(caption);
}

bool Tvx_channels_edit::is_shown(std::size_t channel) const
{
    return f_draw_type == (channel == c_gray ? c_lr2d_draw_gray : c_lr2d_draw_channels);
}

void Tvx_channels_edit::set_channels(Tvx_rgb_clr_channels *channels)
{
    f_channels = channels;
    void *const parts[c_count] = {vx_rgb_channels_get_red(channels), vx_rgb_channels_get_green(channels),
                                  vx_rgb_channels_get_blue(channels), vx_rgb_channels_get_gray(channels)};
    for (std::size_t i = 0; i < c_count; ++i) {
        if (is_shown(i))
            f_edits[i]->set_channel(static_cast<Tvx_color_channel *>(parts[i]));
        else
            f_edits[i]->let_go();
    }
}

void Tvx_channels_edit::update_controls()
{
    if (f_draw_type != c_lr2d_draw_channels && f_draw_type != c_lr2d_draw_gray)
        return;
    for (std::size_t i = 0; i < c_count; ++i) {
        f_tabs[i]->SetTabVisible(is_shown(i));
        if (is_shown(i))
            f_edits[i]->update_controls();
    }
    if (!f_pages->GetActivePage())
        f_pages->SetActivePage(f_tabs[f_draw_type == c_lr2d_draw_gray ? c_gray : 0]);
}

void Tvx_channels_edit::on_edit_changed(TObject * /*sender*/)
{
    on_changed(this);
}

void Tvx_channels_edit::on_pages_change(TObject * /*sender*/)
{
    // The kind of heights may have been chosen on another tab.
    for (std::size_t i = 0; i < c_count; ++i)
        if (f_tabs[i] == f_pages->GetActivePage())
            f_edits[i]->get_chart()->update_controls();
}
