#pragma once

#include "platform/base/export.h"

#include <string>
#include <utility>

struct Ivx_entity;
struct t_vx_data_source_interface;

namespace vx::data {
/// Opens the data set `source` and writes its handle into `result`; leaves a null handle when that fails.
using open_callback = void (*)(wchar_t const *source, bool read_only, void *context,
                               t_vx_data_source_interface *result);

/// The default callback: the data set drivers of the engine. The context is not used.
VX_API void datasource_open(wchar_t const *source, bool read_only, void *context,
                            t_vx_data_source_interface *result);

/// What is needed to open one data set: a connection string and who opens it. A value; owns neither the
/// metadata nor the context.
class VX_API connection
{
public:
    explicit connection(std::wstring source, Ivx_entity *metadata = nullptr);
    connection(open_callback callback, void *context);
    connection(std::wstring source, open_callback callback, void *context);
    connection(std::wstring source, Ivx_entity *metadata, open_callback callback, void *context);

    /// Clears the callback and its context; source and metadata stay.
    void reset();
    /// Whether there is a callback.
    [[nodiscard]] bool valid() const { return f_callback != nullptr; }

    [[nodiscard]] std::wstring const &source() const { return f_source; }
    void set_source(std::wstring source) { f_source = std::move(source); }
    /// An engine object that goes with the source; handed back as it was given.
    [[nodiscard]] Ivx_entity *metadata() const { return f_metadata; }
    void set_metadata(Ivx_entity *metadata) { f_metadata = metadata; }
    [[nodiscard]] open_callback callback() const { return f_callback; }
    [[nodiscard]] void *context() const { return f_context; }
    void set_callback(open_callback callback, void *context);

    /// Runs the callback. Without one, `result` stays as it was.
    void open(bool read_only, t_vx_data_source_interface *result) const;

private:
    std::wstring f_source;
    Ivx_entity *f_metadata = nullptr;
    open_callback f_callback = nullptr;
    void *f_context = nullptr;
};
} // namespace vx::data
