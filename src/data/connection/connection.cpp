#include "data/connection/connection.h"

#include "platform/basic/vx_datasource.h"

namespace vx::data {
void datasource_open(wchar_t const *source, bool read_only, void * /*context*/,
                     t_vx_data_source_interface *result)
{
    vx_datasource_open(source, read_only, result);
}

connection::connection(std::wstring source, Ivx_entity *metadata)
    : connection(std::move(source), metadata, &datasource_open, nullptr)
{
}

connection::connection(open_callback callback, void *context) : connection({}, nullptr, callback, context)
{
}

connection::connection(std::wstring source, open_callback callback, void *context)
    : connection(std::move(source), nullptr, callback, context)
{
}

connection::connection(std::wstring source, Ivx_entity *metadata, open_callback callback, void *context)
    : f_source(std::move(source)), f_metadata(metadata), f_callback(callback), f_context(context)
{
}

void connection::reset()
{
    set_callback(nullptr, nullptr);
}

void connection::set_callback(open_callback callback, void *context)
{
    f_callback = callback;
    f_context = context;
}

void connection::open(bool read_only, t_vx_data_source_interface *result) const
{
    if (f_callback)
        f_callback(f_source.c_str(), read_only, f_context, result);
}
} // namespace vx::data
