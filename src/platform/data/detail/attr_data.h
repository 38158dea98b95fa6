#pragma once

#include "platform/data/detail/attr_set.h"
#include "platform/data/detail/entity.h"

#include <memory>
#include <string>

/// The data object behind a vector layer; see vx_attr_data.h.
struct Ivx_attr_data final : Ivx_entity
{
    explicit Ivx_attr_data(std::wstring source_text) : source(std::move(source_text)) {}
    [[nodiscard]] char const *entity_type() const override { return "attr_data"; }
    [[nodiscard]] std::wstring display_name() const override { return vx::data::source_base_name(source); }

    /// The open data set; opens it if need be. Null, with the reason in `error`, when that fails.
    std::shared_ptr<vx::attr::attr_set> opened();
    /// The file part of the source.
    [[nodiscard]] std::wstring file_name() const;
    [[nodiscard]] bool is_missing() const;

    std::wstring const source;
    std::wstring error;
    std::shared_ptr<vx::attr::attr_set> set;
    int count = 1;
    bool was_file = false; ///< the file part was there when the data set was last opened
};
