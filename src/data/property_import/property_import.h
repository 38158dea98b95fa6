#pragma once

#include "platform/base/closure.h"
#include "platform/base/export.h"

#include <string>
#include <vector>

namespace vx::data {
/// Makes a property file (platform/data/vx_file_tos4.h) of other data.
///
/// - A raster: each channel becomes a property over its cells. One row of cells is a grid of one dimension.
/// - Several rasters of the same cells and channels: the slices of a grid, the lowest first.
/// - Points, or a table without shapes: each field of numbers becomes a property over the records, and so
///   does a field of texts that all are numbers. Points have their coordinates as properties "X" and "Y",
///   unless there are fields of that name.
///
/// Cells without a value have none. The file takes the place of a former one when it is whole; a file that is
/// no property file is not replaced.
class VX_API property_import
{
public:
    enum class outcome
    {
        done,
        failed,
        given_up, ///< by the one who was asked whether to go on
    };
    /// How much is done, from 0 to 1; false gives the work up.
    using progress = closure<bool(double done)>;

    /// `sources` are connection strings. What was there stays where the outcome is not `done`.
    [[nodiscard]] outcome execute(std::vector<std::wstring> const &sources, std::wstring const &target,
                                  progress goes_on);
    /// The same into a property file that is there, which keeps what it has: the cells have to lie where
    /// those of the file do, a table has to have as many records. A name that is taken gets a number; points
    /// whose file has properties "X" and "Y" add no coordinates.
    [[nodiscard]] outcome add(std::vector<std::wstring> const &sources, std::wstring const &target,
                              progress goes_on);
    /// The reason (platform/basic/vx_fault.h) why the last one failed.
    [[nodiscard]] std::wstring const &error() const { return f_error; }

private:
    outcome run(std::vector<std::wstring> const &sources, std::wstring const &target, bool adds,
                progress goes_on);

    std::wstring f_error;
};
} // namespace vx::data
