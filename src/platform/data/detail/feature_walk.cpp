#include "platform/data/detail/feature_walk.h"

#include "extension/binding/feature_random_request.h"

#include "platform/basic/vx_datasource.h"

#include <algorithm>

namespace vx::attr {
namespace {
class feature_dropper final : public vx::feature_visitor_impl
{
public:
    void visit(vx::feature item) override { vx_datasource_end(item); }
};
} // namespace

feature_walk::feature_walk(vx::data_source source, std::size_t count)
    : f_source(source),
      f_request(vx_feature_forward_request_interface_specialize(vx_data_source_interface_generalize(source))),
      f_count(count)
{
}

bool feature_walk::find_place(clock::time_point end)
{
    if (f_place == c_lost) {
        vx::feature_random_request const random(
            vx_feature_random_request_interface_specialize(vx_data_source_interface_generalize(f_source)));
        if (f_taken > 0 && random && random.moveto_index(static_cast<long long>(f_taken))) {
            f_place = f_taken;
            return true;
        }
        if (!f_request.reset_reading())
            return false;
        f_place = 0;
    }
    for (feature_dropper dropper; f_place < f_taken; ++f_place) {
        if (clock::now() >= end)
            return true;
        if (!f_request.with_next_feature(dropper))
            return false;
    }
    return true;
}

feature_walk::state feature_walk::read_on(int milliseconds, vx::feature_visitor visitor)
{
    constexpr int c_most_search = 1 << 16;
    f_search_factor = f_is_in_vain ? std::min(2 * f_search_factor, c_most_search) : f_search_factor;
    f_is_in_vain = false;
    auto const begin = clock::now();
    if (!find_place(begin + std::chrono::milliseconds(milliseconds) * f_search_factor))
        return c_damaged;
    if (f_place < f_taken)
        return c_more;
    f_search_factor = 1;
    auto const end = begin + std::chrono::milliseconds(milliseconds);
    while (f_taken < f_count) {
        bool const is_read = f_request.with_next_feature(visitor);
        // It holds the complaints of its last call only.
        f_source.with_error(f_complaints);
        if (!is_read)
            break;
        f_place = ++f_taken;
        if (clock::now() >= end)
            return c_more;
    }
    // A server holds the table as it was, for whoever has not come to its end.
    feature_dropper last;
    if (f_taken == f_count)
        (void)f_request.with_next_feature(last);
    return f_complaints.f_is_heard ? c_damaged : c_end;
}
} // namespace vx::attr
