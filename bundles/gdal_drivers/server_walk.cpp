#include "gdal_errors.h"
#include "shape_walk.h"
#include "sql_answer.h"

#include <chrono>
#include <condition_variable>
#include <deque>
#include <exception>
#include <mutex>
#include <thread>

namespace vx::gdal {
namespace {
using rows = std::vector<OGRFeatureUniquePtr>;

/// The server is asked on a thread of the walk's own, which has the connection to itself, so that nobody
/// waits for an answer that is long in coming: whoever takes a step finds what has come by then.
class server_walk final : public shape_walk
{
public:
    server_walk(GDALDatasetUniquePtr connection, std::string statement, bool numbers_records)
        : f_connection(std::move(connection)), f_numbers_records(numbers_records),
          f_reader([this, statement = std::move(statement)] { read(statement); })
    {
    }
    ~server_walk() override
    {
        {
            std::lock_guard const lock(f_mutex);
            f_is_left = true;
        }
        f_room.notify_all();
        // What is asked while the server is told so would run to its end.
        constexpr auto c_between_calls = std::chrono::milliseconds(20);
        for (std::unique_lock lock(f_mutex);
             !f_news.wait_for(lock, c_between_calls, [&] { return f_is_over; });)
            f_connection->AbortSQL();
        f_reader.join();
    }

    step_result step(shape_run &run) override
    {
        constexpr auto c_patience = std::chrono::milliseconds(2);
        rows part;
        {
            std::unique_lock lock(f_mutex);
            f_news.wait_for(lock, c_patience, [&] { return f_is_over || !f_parts.empty(); });
            if (f_parts.empty())
                return !f_is_over ? c_more : f_is_broken ? c_broken : c_end;
            part = std::move(f_parts.front());
            f_parts.pop_front();
        }
        f_room.notify_all();
        for (auto const &row : part)
            run.add(row->GetGeometryRef(),
                    f_numbers_records ? static_cast<unsigned long long>(row->GetFieldAsInteger64(0)) : 0);
        return c_more;
    }

private:
    static constexpr std::size_t c_part = 128; ///< rows that are handed over at once
    static constexpr std::size_t c_most_parts = 32;

    /// On the thread of its own, which nothing leaves: want of memory is an answer that broke off.
    void read(std::string const &statement)
    {
        bool is_good = false;
        try {
            is_good = is_read_whole(statement);
        } catch (std::exception const &) {
        }
        {
            std::lock_guard const lock(f_mutex);
            f_is_over = true;
            f_is_broken = !is_good;
        }
        f_news.notify_all();
    }
    bool is_read_whole(std::string const &statement)
    {
        std::wstring reason;
        bool is_good = false;
        {
            error_guard const guard(reason);
            // A table is read in one order whatever is asked of it: from its beginning, by nobody else
            // beside.
            for (char const *const setting :
                 {"SET synchronize_seqscans = off", "SET enable_indexonlyscan = off",
                  "SET max_parallel_workers_per_gather = 0"})
                sql_answer const made(*f_connection, setting);
            sql_answer answer(*f_connection, statement);
            is_good = static_cast<bool>(answer);
            rows part;
            while (OGRFeatureUniquePtr row = answer.next()) {
                part.push_back(std::move(row));
                if (part.size() == c_part && !hand_over(part))
                    break;
            }
            (void)hand_over(part);
        }
        return is_good && reason.empty();
    }
    /// Waits for room. False when nobody wants more.
    bool hand_over(rows &part)
    {
        {
            std::unique_lock lock(f_mutex);
            f_room.wait(lock, [&] { return f_is_left || f_parts.size() < c_most_parts; });
            if (f_is_left)
                return false;
            f_parts.push_back(std::move(part));
        }
        part.clear();
        f_news.notify_all();
        return true;
    }

    GDALDatasetUniquePtr f_connection;
    bool f_numbers_records;
    std::mutex f_mutex;
    std::condition_variable f_news, f_room;
    std::deque<rows> f_parts;
    bool f_is_left = false;
    bool f_is_over = false;
    bool f_is_broken = false;
    std::thread f_reader; ///< the last: it begins when all else is there
};
} // namespace

std::unique_ptr<shape_walk> walk_server(GDALDatasetUniquePtr connection, std::string statement,
                                        bool numbers_records)
{
    return std::make_unique<server_walk>(std::move(connection), std::move(statement), numbers_records);
}
} // namespace vx::gdal
