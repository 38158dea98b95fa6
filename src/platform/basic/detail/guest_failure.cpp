#include "platform/basic/detail/guest_failure.h"

#include "platform/base/text_codec.h"
#include "platform/basic/vx_fault.h"
#include "platform/winapi/detail/main_thread.h"

#include <exception>
#include <memory>
#include <new>
#include <utility>

namespace {
void tell(void *data)
{
    std::unique_ptr<std::wstring const> const reason(static_cast<std::wstring const *>(data));
    vx_reason_report(reason->c_str());
}
} // namespace

guest_failure vx_guest_current_failure()
{
    try {
        throw;
    } catch (std::bad_alloc const &) {
        return {true, {}};
    } catch (std::exception const &thrown) {
        return {false, vx::text::utf8_to_wide(thrown.what())};
    } catch (...) {
        return {};
    }
}

void vx_guest_tell_later(std::wstring reason)
{
    auto kept = std::make_unique<std::wstring>(std::move(reason));
    vx_main_thread_post(&tell, kept.get());
    (void)kept.release();
}
