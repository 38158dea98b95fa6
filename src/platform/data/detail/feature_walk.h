#pragma once

#include "extension/binding/data_source.h"
#include "extension/binding/feature_forward_request.h"
#include "extension/binding/feature_visitor.h"
#include "extension/binding/string_visitor.h"

#include <chrono>
#include <cstddef>

namespace vx::attr {
/// A walk over the features of a source, some milliseconds at a time. It finds its place again after somebody
/// else's, also by so many milliseconds at a time, and by more of them each time that it does not come so
/// far.
class feature_walk
{
public:
    enum state
    {
        c_more,
        c_end,
        c_damaged, ///< as `c_end`, and the source complained
    };
    /// Over so many features at most.
    feature_walk(vx::data_source source, std::size_t count);
    feature_walk(feature_walk const &) = delete;
    feature_walk &operator=(feature_walk const &) = delete;

    /// `visitor` ends each feature.
    [[nodiscard]] state read_on(int milliseconds, vx::feature_visitor visitor);
    [[nodiscard]] std::size_t taken() const { return f_taken; }
    /// Somebody else has walked over the features of the source.
    void lose_place()
    {
        f_is_in_vain = f_is_in_vain || f_place < f_taken;
        f_place = c_lost;
    }

private:
    class complaint_listener final : public vx::string_visitor_impl
    {
    public:
        void visit(wchar_t const *) override { f_is_heard = true; }
        bool f_is_heard = false;
    };
    static constexpr std::size_t c_lost = static_cast<std::size_t>(-1);
    using clock = std::chrono::steady_clock;

    /// Goes towards the feature that is wanted; false when it is not there.
    [[nodiscard]] bool find_place(clock::time_point end);

    vx::data_source f_source;
    vx::feature_forward_request f_request;
    std::size_t f_count;
    std::size_t f_taken = 0;
    std::size_t f_place = c_lost; ///< the feature that the source gives next
    bool f_is_in_vain = false;    ///< the place was lost again on the way to it
    int f_search_factor = 1;
    complaint_listener f_complaints;
};
} // namespace vx::attr
