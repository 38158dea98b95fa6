#pragma once

#include "extension/binding/data_source.h"
#include "extension/binding/shape_reading.h"

#include "platform/data/detail/feature_walk.h"
#include "platform/data/detail/shape_set.h"

#include <memory>
#include <vector>

namespace vx::attr {
/// Brings the shapes of a data set into arrays, some milliseconds at a time: in runs where the driver offers
/// them, feature by feature elsewhere. It has to end before the source.
class shape_feed
{
public:
    /// All shapes of a source that counts so many records; those that it does not give have no geometry.
    shape_feed(vx::data_source source, std::size_t record_count);
    /// Those that meet the window, in the order of their records; null where the driver does not find them
    /// faster than it reads all.
    [[nodiscard]] static std::unique_ptr<shape_feed>
    in_window(vx::data_source source, std::size_t record_count, Tvx_box_d2 const &window);
    shape_feed(shape_feed const &) = delete;
    shape_feed &operator=(shape_feed const &) = delete;
    ~shape_feed();

    /// Reads for about so long. False when there is nothing left to read.
    bool read_on(int milliseconds);
    [[nodiscard]] bool is_over() const { return f_is_over; }
    /// The driver offers runs, and may know windows too.
    [[nodiscard]] bool has_runs() const { return bool(f_reading); }
    /// The source failed: what was read is all there is.
    void give_up();
    [[nodiscard]] bool is_broken() const { return f_is_broken; }
    [[nodiscard]] bool walks_features() const { return bool(f_walk); }
    /// Somebody else has walked over the features of the source.
    void lose_place()
    {
        if (f_walk)
            f_walk->lose_place();
    }
    [[nodiscard]] std::shared_ptr<shape_set const> const &shapes() const { return f_seen; }
    /// Numbers of the records of the shapes of a window.
    [[nodiscard]] std::shared_ptr<std::vector<unsigned> const> records() const { return f_records; }

private:
    class run_reader;
    class feature_reader;

    shape_feed(vx::data_source source, std::size_t record_count, vx::shape_reading reading);
    void read_runs(int milliseconds);
    void read_features(int milliseconds);
    void finish(bool is_damaged);
    void end_reading();

    vx::data_source f_source;
    vx::shape_reading f_reading; ///< null: feature by feature
    std::unique_ptr<feature_walk> f_walk;
    std::unique_ptr<feature_reader> f_features;
    std::size_t f_record_count;
    std::shared_ptr<shape_set> f_shapes = std::make_shared<shape_set>();
    std::shared_ptr<shape_set const> f_seen = f_shapes;
    std::shared_ptr<std::vector<unsigned>> f_records; ///< null: shape i is that of record i
    std::size_t f_taken = 0;                          ///< records that were read
    bool f_is_over = false;
    bool f_is_broken = false;
};
} // namespace vx::attr
