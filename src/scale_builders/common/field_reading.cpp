#include "scale_builders/common/detail/field_reading.h"

#include "captions/builders.h"
#include "scale_builders/common/detail/builder_caller.h"

#include "platform/base/text_codec.h"
#include "platform/basic/vx_res.h"
#include "platform/dialogs/vx_progress.h"
#include "platform/winapi/case_map.h"

namespace {
std::wstring folded(std::string_view name)
{
    return vx_lower_w(vx::text::to_wide(std::string(name)));
}

/// A name as fields of the kind are compared by.
std::string_view compared(char const *name, field_kind kind)
{
    return kind == field_kind::usable_numeric ? vx_trimmed(name) : std::string_view(name ? name : "");
}
} // namespace

std::string_view vx_trimmed(char const *text)
{
    std::string_view rest = text ? text : "";
    auto const is_blank = [](char c) { return static_cast<unsigned char>(c) <= ' '; };
    while (!rest.empty() && is_blank(rest.front()))
        rest.remove_prefix(1);
    while (!rest.empty() && is_blank(rest.back()))
        rest.remove_suffix(1);
    return rest;
}

field_reading::field_reading(char const *name, field_kind kind, Tvx_data_events const &data, int passes)
    : f_data(data), f_opened(data, nullptr, builder_caller::get_control()), f_name(compared(name, kind)),
      f_passes(passes)
{
    if (!f_opened && kind == field_kind::usable)
        return;
    f_field = find(f_name, kind);
    f_count = f_data.get_no(nullptr);
}

field_reading::~field_reading() = default;

found_field field_reading::find(std::string const &name, field_kind kind) const
{
    auto const wanted = folded(name);
    unsigned const count = f_data.get_np(nullptr);
    for (unsigned i = 0; i < count; ++i) {
        bool is_usable = false, is_numeric = false;
        auto const *const text = f_data.get_prop(nullptr, i, is_usable, is_numeric);
        if (is_usable && (is_numeric || kind == field_kind::usable) && folded(compared(text, kind)) == wanted)
            return {static_cast<int>(i), is_numeric};
    }
    return {};
}

std::string_view field_reading::get_text(found_field const &field, unsigned object, bool &is_defined) const
{
    is_defined = false;
    if (!builder_caller::is_there())
        return {};
    return vx_trimmed(f_data.get_str(nullptr, static_cast<unsigned>(field.prop), object, is_defined));
}

bool field_reading::is_given_up() const
{
    return !builder_caller::is_there() || f_opened.is_given_up();
}

double field_reading::get_number(unsigned object, bool &is_defined) const
{
    is_defined = false;
    return builder_caller::is_there()
               ? f_data.get_val(nullptr, static_cast<unsigned>(f_field.prop), object, is_defined)
               : 0;
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
    f_is_stopped = f_is_stopped || f_progress->is_stopped() || is_given_up();
    return !f_is_stopped;
}
