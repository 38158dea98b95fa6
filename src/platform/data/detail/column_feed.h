#pragma once

#include "extension/binding/column_reading.h"
#include "extension/binding/data_source.h"

#include "platform/data/detail/cell_readers.h"
#include "platform/data/detail/feature_walk.h"

#include <memory>

namespace vx::attr {
/// Brings the cells of a field into a column, some milliseconds at a time: in runs where the driver offers
/// them so, feature by feature elsewhere. It has to end before the source.
class column_feed
{
public:
    /// Of a source that counts so many records.
    column_feed(vx::data_source source, int field, int type, std::size_t record_count);
    column_feed(column_feed const &) = delete;
    column_feed &operator=(column_feed const &) = delete;
    ~column_feed();

    /// Reads for about so long. False when there is nothing left to read.
    bool read_on(int milliseconds);
    [[nodiscard]] bool walks_features() const { return bool(f_walk); }
    /// Somebody else has walked over the features of the source.
    void lose_place()
    {
        if (f_walk)
            f_walk->lose_place();
    }
    /// How much has been read, from 0 to 1.
    [[nodiscard]] double part() const;
    /// What was read, ready for use.
    [[nodiscard]] column take();

private:
    void end_reading();
    void walk_instead();

    vx::data_source f_source;
    int f_field;
    int f_type;
    std::size_t f_record_count;
    vx::column_reading f_reading;              ///< null: feature by feature
    std::unique_ptr<column_cells> f_runs;      ///< what it gives
    std::unique_ptr<feature_walk> f_walk;      ///< null: by `f_reading`
    std::unique_ptr<feature_cells> f_features; ///< what that gives
};
} // namespace vx::attr
