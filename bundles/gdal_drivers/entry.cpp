#include "database_guard.h"
#include "grid_set.h"
#include "network_guard.h"
#include "vector_set.h"

#include "platform/basic/vx_bundle.h"
#include "platform/basic/vx_res.h"

namespace vx::gdal {
namespace {
/// Above a driver that takes everything, below one that is made for a single format.
constexpr int c_priority = 10;

t_vx_data_source_interface serve(std::unique_ptr<dataset> set, std::wstring &error)
{
    if (!set)
        return {};
    if (set->awaits_grid() || (set->vector_count() == 0 && set->grid_count() > 0))
        return static_cast<t_vx_data_source_interface>(*new grid_set(std::move(set)));
    vector_set *const tables = vector_set::make(std::move(set), error);
    return tables ? static_cast<t_vx_data_source_interface>(*tables) : t_vx_data_source_interface{};
}

void open(void *, wchar_t const *source, bool read_only, t_vx_data_source_interface *result,
          Ivx_string_adp *error)
{
    std::wstring reason;
    // The tables of a database are looked at when they are counted and selected.
    opening_budget const budget;
    *result = serve(dataset::open(source ? source : L"", read_only, reason), reason);
    if (vx_data_source_interface_is_null(*result) && budget.is_spent())
        reason = reason_about(c_drv_not_opened, source, vx_res_get_wstr(c_drv_endless_view));
    if (!reason.empty())
        vx_string_adp_feed(error, reason.c_str());
}

void create(void *, wchar_t const *source, int driver_type, t_vx_data_source_interface *result,
            Ivx_string_adp *error)
{
    std::wstring reason;
    opening_budget const budget;
    *result = serve(dataset::create(source ? source : L"", driver_type, reason), reason);
    if (!reason.empty())
        vx_string_adp_feed(error, reason.c_str());
}

/// Every source is worth a try: the refusals of `open` come before anything is read, and say why.
constexpr Tvx_datasource_driver c_driver{"gdal", c_priority, nullptr, nullptr, &open, &create};
} // namespace
} // namespace vx::gdal

VX_C_API bool vxk_bundle_entry(Tvx_bundle_context const *context)
{
    if (!context || context->version != c_vx_bundle_version)
        return false;
    vx::gdal::limit_requests();
    vx::gdal::limit_features();
    GDALAllRegister();
    return context->add_driver(context->host, &vx::gdal::c_driver);
}
