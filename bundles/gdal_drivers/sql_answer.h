#pragma once

#include <ogrsf_frmts.h>

#include <string>

namespace vx::gdal {
/// The rows of one question to a database, let go in time.
class sql_answer
{
public:
    sql_answer(GDALDataset &set, std::string const &question)
        : f_set(set), f_rows(set.ExecuteSQL(question.c_str(), nullptr, nullptr))
    {
    }
    ~sql_answer()
    {
        if (f_rows)
            f_set.ReleaseResultSet(f_rows);
    }
    sql_answer(sql_answer const &) = delete;
    sql_answer &operator=(sql_answer const &) = delete;
    /// There are rows, be it none at all.
    [[nodiscard]] explicit operator bool() const { return f_rows != nullptr; }
    [[nodiscard]] OGRFeatureUniquePtr next()
    {
        return OGRFeatureUniquePtr(f_rows ? f_rows->GetNextFeature() : nullptr);
    }

private:
    GDALDataset &f_set;
    OGRLayer *f_rows;
};
} // namespace vx::gdal
