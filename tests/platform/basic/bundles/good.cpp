#include "extension/binding/data_source.h"

#include "platform/basic/vx_bundle.h"

#include <cwchar>
#include <string_view>

/// A bundle with one driver: a source "test bundle: N" has the driver number N.
namespace {
constexpr std::wstring_view c_prefix = L"test bundle: ";
constexpr int c_known_kind = 1;

struct source final : vx::data_source_impl
{
    explicit source(int number) : f_number(number) {}
    int driver_id() override { return f_number; }
    void detach() override { delete this; }
    int f_number;
};

bool can_open(void *, wchar_t const *text)
{
    return std::wstring_view(text).starts_with(c_prefix);
}

void open(void *, wchar_t const *text, bool, t_vx_data_source_interface *result, Ivx_string_adp *error)
{
    int const number = static_cast<int>(std::wcstol(text + c_prefix.size(), nullptr, 10));
    if (number > 0)
        *result = *new source(number);
    else
        vx_string_adp_feed(error, L"The bundle has none.");
}

void create(void *context, wchar_t const *text, int kind, t_vx_data_source_interface *result,
            Ivx_string_adp *error)
{
    if (kind == c_known_kind && can_open(context, text))
        open(context, text, false, result, error);
}

Tvx_datasource_driver const driver = {"test_bundle", 1000, nullptr, &can_open, &open, &create};
} // namespace

VX_C_API bool vxk_bundle_entry(Tvx_bundle_context const *context)
{
    return context->version == c_vx_bundle_version && context->add_driver(context->host, &driver);
}
