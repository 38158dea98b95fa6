#include "scale_builders/range/detail/field_reading.h"

#include "captions/builders.h"

#include "platform/base/text_codec.h"
#include "platform/basic/vx_res.h"
#include "platform/dialogs/vx_progress.h"
#include "platform/styles/vx_stl_mngr.h"
#include "platform/winapi/case_map.h"

#include <string_view>

namespace {
/// Without blanks and control characters at the ends.
std::string trimmed(char const *text)
{
    std::string_view rest = text ? text : "";
    auto const is_blank = [](char c) { return static_cast<unsigned char>(c) <= ' '; };
    while (!rest.empty() && is_blank(rest.front()))
        rest.remove_prefix(1);
    while (!rest.empty() && is_blank(rest.back()))
        rest.remove_suffix(1);
    return std::string(rest);
}

std::wstring folded(std::string const &name)
{
    return vx_lower_w(vx::text::to_wide(name));
}
} // namespace

field_reading::field_reading(void const *stl_mngr, Tvx_data_events const &data, int passes)
    : f_data(data), f_opened(data, nullptr), f_name(trimmed(vx_stl_mngr_get_rng_prop_name(stl_mngr))),
      f_passes(passes)
{
    find_field();
    f_count = f_data.get_no(nullptr);
}

field_reading::~field_reading() = default;

void field_reading::find_field()
{
    auto const wanted = folded(f_name);
    unsigned const count = f_data.get_np(nullptr);
    for (unsigned i = 0; i < count && !f_is_found; ++i) {
        bool is_usable = false, is_numeric = false;
        auto const name = trimmed(f_data.get_prop(nullptr, i, is_usable, is_numeric));
        f_is_found = is_usable && is_numeric && folded(name) == wanted;
        f_prop = i;
    }
}

bool field_reading::goes_on(unsigned object)
{
    // The first value may have a whole column read, which shows its progress itself.
    if (object == 0 && f_pass == 0)
        return true;
    if (!f_progress) {
        auto const caption = vx_res_format_w(c_bld_reading, vx::text::to_wide(f_name));
        f_progress = std::make_unique<Tvx_progress>(caption.c_str());
    }
    f_progress->set(static_cast<int>(100 * (f_pass + double(object) / f_count) / f_passes));
    // What waited for the user has had its turn: whoever opens the data too closes them here.
    f_is_stopped = f_is_stopped || f_progress->is_stopped() || f_opened.is_given_up();
    return !f_is_stopped;
}
