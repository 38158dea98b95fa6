#include "data/editor_source/data_source_strategy_mngr.h"

#include "data/editor_source/attr_source_strategy.h"
#include "data/editor_source/tos_source_strategy.h"

#include "platform/layers/layer_keys.h"

namespace {
template <class Strategy>
Tvx_data_source_strategy *make()
{
    return new Strategy;
}
} // namespace

// Here, and not while the library loads, which would be work before anybody asked for it.
Tvx_data_source_strategy_mngr::Tvx_data_source_strategy_mngr()
{
    for (char const *const key : {c_lr_key_shp_pnt, c_lr_key_shp_pln, c_lr_key_shp_pgn})
        attach(key, &make<Tvx_attr_source_strategy>);
    for (char const *const key : {c_lr_key_tos_2crd, c_lr_key_tos_grid, c_lr_key_tos_slice})
        attach(key, &make<Tvx_tos_source_strategy>);
}

Tvx_data_source_strategy_mngr &Tvx_data_source_strategy_mngr::instance()
{
    static Tvx_data_source_strategy_mngr the_one;
    return the_one;
}

bool Tvx_data_source_strategy_mngr::attach(char const *key, factory make)
{
    return key && make && f_factories.emplace(key, make).second;
}

bool Tvx_data_source_strategy_mngr::detach(char const *key)
{
    return key && f_factories.erase(key) > 0;
}

bool Tvx_data_source_strategy_mngr::has_strategy(char const *key) const
{
    return key && f_factories.contains(key);
}

Tvx_data_source_strategy *Tvx_data_source_strategy_mngr::create_strategy(char const *key) const
{
    auto const found = key ? f_factories.find(key) : f_factories.end();
    return found == f_factories.end() ? nullptr : found->second();
}
