#include "style_manager/scales/detail/scale_data.h"

#include "captions/dialogs.h"
#include "data/filesystem/filesystem.h"
#include "style_manager/widgets/detail/open_data.h"

#include "platform/base/string_adp.h"
#include "platform/base/text_codec.h"
#include "platform/basic/vx_res.h"
#include "platform/dialogs/vx_msgs.h"
#include "platform/storage/vx_xml_data.h"
#include "platform/winapi/case_map.h"
#include "platform/winapi/file.h"

#include <algorithm>

int vx_find_prop(Tvx_data_events const &data, TObject *sender, std::wstring const &name)
{
    auto const wanted = vx_lower_w(name);
    unsigned const count = data.get_np(sender);
    for (unsigned i = 0; i < count; ++i) {
        bool usable = false, numeric = false;
        auto const *const text = data.get_prop(sender, i, usable, numeric);
        if (usable && text && vx_lower_w(vx::text::to_wide(text)) == wanted)
            return static_cast<int>(i);
    }
    return -1;
}

std::wstring vx_scale_file_of_prop(Tvx_data_events const &data, TObject *sender, std::wstring const &name,
                                   wchar_t const *ext)
{
    if (name.empty() || !vx_has_all_data(data) || !data.get_prop_file_name)
        return {};
    int prop = -1;
    {
        open_data const opened(data, sender);
        if (!opened || data.get_np(sender) == 0)
            return {};
        prop = std::max(vx_find_prop(data, sender, name), 0);
    }
    std::wstring file;
    Tvx_std_wstring_adapter adapter(file);
    data.get_prop_file_name(sender, static_cast<unsigned>(prop), adapter);
    return file.empty() ? file : vx::filesystem::change_extension(file, ext);
}

bool vx_may_replace(std::wstring const &chosen, std::wstring const &written)
{
    return written == chosen || !vx_path_exists(written) ||
           vx_yesno(vx_res_format_w(c_dlg_replace, written).c_str());
}

void vx_show_unreadable(std::wstring const &text, Ivx_xml_data const *xml)
{
    std::wstring reason;
    vx_xml_data_get_error_w(xml, Tvx_std_wstring_adapter(reason));
    vx_show_wmessage((text + L"\n\n" + reason).c_str());
}
