#include "scale_engine/value/value_scale_append_value.h"

#include "scale_engine/model/detail/new_entry.h"

namespace vx::task {
unsigned value_scale_append_value::execute(void *scale)
{
    return detail::add_entry(scale);
}
} // namespace vx::task
