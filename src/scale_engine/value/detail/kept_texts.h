#pragma once

#include "scale_engine/value/detail/seen_texts.h"

#include <memory>
#include <set>
#include <string>

namespace vx::task::detail {
/// Different texts on their way into an ordered set. They lie side by side in blocks until all are there and
/// are sorted once then: a set that grows text by text would look for each one's place through its nodes.
class kept_texts
{
public:
    /// False when the text was there before.
    bool add(std::wstring_view text)
    {
        return f_seen.add(text, [&] { return store(text); });
    }
    [[nodiscard]] std::size_t size() { return f_seen.texts().size(); }
    /// Puts all of them into `values`, which is empty.
    void move_to(std::set<std::wstring> &values);

private:
    std::wstring_view store(std::wstring_view text);

    seen_texts f_seen;
    std::vector<std::unique_ptr<wchar_t[]>> f_blocks;
    wchar_t *f_free = nullptr;
    std::size_t f_left = 0; ///< characters behind `f_free`
};
} // namespace vx::task::detail
