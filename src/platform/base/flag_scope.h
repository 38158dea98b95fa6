#pragma once

#include <utility>

namespace vx {
/// Gives a flag a value for the length of a block, and its former one back on every way out of it:
/// `vx::flag_scope const busy(f_busy);`
class flag_scope
{
public:
    explicit flag_scope(bool &flag, bool value = true) : f_flag(flag), f_before(std::exchange(flag, value)) {}
    flag_scope(flag_scope const &) = delete;
    flag_scope &operator=(flag_scope const &) = delete;
    ~flag_scope() { f_flag = f_before; }

private:
    bool &f_flag;
    bool f_before;
};
} // namespace vx
