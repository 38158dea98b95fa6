#include "raster_property/channels/channel_combo_box.h"

#include "raster_property/channels/data_reading_priv.h"

#include "platform/toolkit/core/strings.h"

#include <vector>

namespace {
constexpr int c_height = 26;
}

Tvx_channel_combo_box::Tvx_channel_combo_box(TComponent *owner) : Tvx_combo_box_panel(owner)
{
    SetHeight(c_height);
}

void Tvx_channel_combo_box::create()
{
    get_combo_box()->SetStyle(csDropDownList);
    get_combo_box()->OnChange = make_closure<&Tvx_channel_combo_box::on_combo_box_changed>(this);
}

void Tvx_channel_combo_box::load_res()
{
}

void Tvx_channel_combo_box::update_controls()
{
    Tvx_combo_box *const box = get_combo_box();
    box->GetItems()->Clear();
    if (!on_data_open || !on_data_close || !on_data_get_np || !on_data_get_wprop)
        return;
    std::vector<UnicodeString> captions;
    int chosen = -1;
    {
        vx::data_reading const data(on_data_open, on_data_close, this);
        if (!data) {
            box->SetItemIndex(-1);
            return;
        }
        std::wstring const wanted = vx::trimmed_name(prop_name.c_str());
        unsigned const count = on_data_get_np(this);
        for (unsigned i = 0; i < count; ++i) {
            bool usable = false;
            bool numeric = false;
            std::wstring const name = vx::trimmed_name(on_data_get_wprop(this, i, usable, numeric));
            if (!usable)
                continue;
            if (chosen < 0 && name == wanted)
                chosen = static_cast<int>(captions.size());
            captions.push_back(on_data_get_capt_wprop ? vx::trimmed_name(on_data_get_capt_wprop(this, i))
                                                      : name);
        }
    }
    box->SetItemTexts(captions);
    box->SetItemIndex(chosen);
}

void Tvx_channel_combo_box::on_combo_box_changed(TObject * /*sender*/)
{
    int const place = get_combo_box()->GetItemIndex();
    if (place >= 0) {
        prop_name.clear();
        vx::data_reading const data(on_data_open, on_data_close, this);
        bool usable = false;
        bool numeric = false;
        if (data)
            prop_name =
                UnicodeString(on_data_get_wprop(this, static_cast<unsigned>(place), usable, numeric)).str();
    }
    on_changed(this);
}
