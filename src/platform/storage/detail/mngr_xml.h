#pragma once

#include "platform/storage/detail/xml_element.h"
#include "platform/styles/detail/mngr_model.h"

/// Style managers in files.
namespace vx::storage {
/// Writes the manager into the element, with its modes, simple style and scales. A scale that is as in a new
/// manager is left out.
void write_mngr(xml_out element, styles::stl_mngr const &mngr);
/// The manager is a new one.
void read_mngr(xml_in &element, styles::stl_mngr &mngr);
/// Writes all managers of the list into the element.
void write_mngr_list(xml_out element, styles::stl_mngr_list const &list);
/// Replaces the list's managers by those of the element; where the reading fails it holds what was read.
void read_mngr_list(xml_in &element, styles::stl_mngr_list &list);
/// True for a list as it is made, which a file need not tell.
[[nodiscard]] bool is_new(styles::stl_mngr_list const &list);

/// More managers than anybody looks at: a list that has them comes from a hand that means harm.
inline constexpr unsigned c_most_mngrs = 1000;
} // namespace vx::storage
