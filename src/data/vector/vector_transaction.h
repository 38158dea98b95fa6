#pragma once

#include "data/vector/transacted_feature.h"
#include "data/vector/vector_datasource.h"

namespace vx::data {
/// Brackets changes of a source. A transaction that goes out of scope keeps its changes; going back has to be
/// asked for.
class VX_API vector_transaction
{
public:
    /// Starts the transaction.
    explicit vector_transaction(vector_datasource &source);
    vector_transaction(vector_transaction const &) = delete;
    vector_transaction &operator=(vector_transaction const &) = delete;
    /// Commits what is neither committed nor rolled back.
    ~vector_transaction();

    /// Starts a transaction on `source` if none was started yet; false otherwise, with nothing done.
    bool acquire(vector_datasource &source);
    /// False when the source refuses; the transaction then goes on, to be mended and committed again, or
    /// rolled back. The reason is the source's `error_message()`.
    bool commit();
    bool rollback();

    bool reset_reading();
    bool moveto_feature(long long i);
    bool fetch_next_feature(transacted_feature &feature);
    bool fetch_feature(long long fid, transacted_feature &feature);
    /// A new feature; without an identifier it is made with identifier 0.
    bool make_feature(transacted_feature &feature);
    bool make_feature(long long fid, transacted_feature &feature);
    bool delete_feature(long long fid);

private:
    enum state
    {
        state_none = 0,
        state_started = 1,
        state_committed = 2,
        state_rolled_back = 3
    };

    vector_datasource *f_source;
    state f_state = state_none;
};
} // namespace vx::data
