#pragma once

#include "platform/storage/detail/xml_element.h"
#include "platform/styles/detail/scale_model.h"

#include <memory>
#include <optional>
#include <string>

/// Scales in files.
namespace vx::storage {
inline constexpr char const *c_value_scale = "value";
inline constexpr char const *c_range_scale = "range";
inline constexpr char const *c_rule_scale = "rule";

/// `kind` is `c_value_scale` or `c_rule_scale`. The bytes are empty when the scale is too large for a file.
[[nodiscard]] std::string scale_bytes(styles::val_scale const &scale, char const *kind);
[[nodiscard]] std::string scale_bytes(styles::rng_scale const &scale);
/// Replace the scale when all of the file is right; it says of which kind of scale it is.
[[nodiscard]] xml_fault read_scale(std::string bytes, styles::val_scale &scale, char const *kind);
[[nodiscard]] xml_fault read_scale(std::string bytes, styles::rng_scale &scale);

/// The same in an element of another file.
void write_scale(xml_out element, styles::val_scale const &scale, char const *kind);
void write_scale(xml_out element, styles::rng_scale const &scale);
[[nodiscard]] xml_fault::kind_type read_scale(xml_in &element, styles::val_scale &scale, char const *kind);
[[nodiscard]] xml_fault::kind_type read_scale(xml_in &element, styles::rng_scale &scale);

/// A composed style by itself, as its plain object.
[[nodiscard]] std::string style_bytes(styles::style_kind kind, void const *object);
[[nodiscard]] xml_fault read_style_file(std::string bytes, styles::style_kind kind, void *object);
} // namespace vx::storage
