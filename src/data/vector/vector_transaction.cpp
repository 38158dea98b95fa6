#include "data/vector/vector_transaction.h"

namespace vx::data {
vector_transaction::vector_transaction(vector_datasource &source) : f_source(&source)
{
    acquire(source);
}

vector_transaction::~vector_transaction()
{
    commit();
}

bool vector_transaction::acquire(vector_datasource &source)
{
    if (f_state != state_none)
        return false;
    f_source = &source;
    // A source without transactions is worked on all the same; each change is then kept at once.
    bool const started = source.start_transaction();
    f_state = state_started;
    return started;
}

bool vector_transaction::commit()
{
    // A refused commit leaves the transaction as it is: what was refused can be mended, or all rolled back.
    if (f_state != state_started || !f_source->commit_transaction())
        return false;
    f_state = state_committed;
    return true;
}

bool vector_transaction::rollback()
{
    if (f_state != state_started)
        return false;
    f_state = state_rolled_back;
    return f_source->rollback_transaction();
}

bool vector_transaction::reset_reading()
{
    return f_source->reset_reading();
}

bool vector_transaction::moveto_feature(long long i)
{
    return f_source->moveto_feature(i);
}

bool vector_transaction::fetch_next_feature(transacted_feature &feature)
{
    return f_source->fetch_next_feature(feature);
}

bool vector_transaction::fetch_feature(long long fid, transacted_feature &feature)
{
    return f_source->fetch_feature(fid, feature);
}

bool vector_transaction::make_feature(transacted_feature &feature)
{
    return make_feature(0, feature);
}

bool vector_transaction::make_feature(long long fid, transacted_feature &feature)
{
    return f_source->create_feature(fid, feature);
}

bool vector_transaction::delete_feature(long long fid)
{
    return f_source->delete_feature(fid);
}
} // namespace vx::data
