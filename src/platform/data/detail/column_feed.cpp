#include "platform/data/detail/column_feed.h"

#include "extension/binding/codes.h"
#include "extension/binding/column_reading_visitor.h"
#include "extension/binding/column_source.h"

#include "platform/basic/vx_datasource.h"

namespace vx::attr {
namespace {
class reading_taker final : public vx::column_reading_visitor_impl
{
public:
    vx::column_reading f_reading;
    void visit(vx::column_reading item) override { f_reading = item; }
};
} // namespace

column_feed::column_feed(vx::data_source source, int field, int type, std::size_t record_count)
    : f_source(source), f_field(field), f_type(type), f_record_count(record_count)
{
    vx::column_source const columns(
        vx_column_source_interface_specialize(vx_data_source_interface_generalize(source)));
    reading_taker taker;
    if (columns && columns.read_column(field, taker))
        f_reading = taker.f_reading;
    if (f_reading)
        f_runs = std::make_unique<column_cells>(type, record_count);
    else
        walk_instead();
}

column_feed::~column_feed()
{
    end_reading();
}

void column_feed::end_reading()
{
    if (f_reading)
        vx_datasource_end(f_reading);
    f_reading = {};
}

void column_feed::walk_instead()
{
    f_runs.reset();
    f_features = std::make_unique<feature_cells>(f_record_count);
    f_features->add_field(f_field, f_type);
    f_walk = std::make_unique<feature_walk>(f_source, f_record_count);
}

bool column_feed::read_on(int milliseconds)
{
    if (f_walk)
        return f_walk->read_on(milliseconds, *f_features) == feature_walk::c_more;
    int const state = f_reading.next(milliseconds, *f_runs);
    if (state == codes::plain::reading_goes_on)
        return true;
    end_reading();
    if (state == codes::plain::reading_ended && f_runs->f_is_good)
        return false;
    walk_instead();
    return true;
}

double column_feed::part() const
{
    if (f_record_count == 0)
        return 1;
    std::size_t const read = f_runs ? f_record_count - f_runs->left() : f_features->f_size;
    return double(read) / double(f_record_count);
}

column column_feed::take()
{
    column cells = f_runs ? std::move(f_runs->f_cells) : std::move(f_features->f_cells.front());
    finish(cells);
    return cells;
}
} // namespace vx::attr
