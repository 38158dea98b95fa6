#pragma once

#include "data/editor_source/data_source_strategy.h"

#include <map>
#include <memory>
#include <string>

/// Which strategy answers for which layers, by their type key. Main thread only.
class VX_API Tvx_data_source_strategy_mngr : public Tvx_basic_obj
{
public:
    using factory = Tvx_data_source_strategy *(*)();

    /// The one for all, made on first use; it knows the strategies of this module then.
    [[nodiscard]] static Tvx_data_source_strategy_mngr &instance();

    /// False where the key has a factory already, which it keeps.
    bool attach(char const *key, factory make);
    /// True if there was one.
    bool detach(char const *key);
    [[nodiscard]] bool has_strategy(char const *key) const;
    /// A new strategy, the caller's; null for null and for a key without one.
    [[nodiscard]] Tvx_data_source_strategy *create_strategy(char const *key) const;

private:
    Tvx_data_source_strategy_mngr();

    std::map<std::string, factory> f_factories;
};
