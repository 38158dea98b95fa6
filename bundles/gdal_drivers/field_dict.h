#pragma once

#include "extension/binding/dict.h"

#include <string>
#include <utility>
#include <vector>

class OGRCodedFieldDomain;

namespace vx::gdal {
/// The codes of a field with their meanings, in the order of the data set. A copy: it outlives the source.
/// Ended by its `detach`.
class coded_dict final : public dict_impl
{
public:
    explicit coded_dict(OGRCodedFieldDomain const &domain);

    void detach() override { delete this; }
    void with_keys(vx::string_visitor visitor) override;
    void with_items(vx::dict_item_visitor visitor) override;
    bool get_value(wchar_t const *key, vx::string_visitor visitor) override;

private:
    ~coded_dict() = default;

    std::vector<std::pair<std::wstring, std::wstring>> f_items;
};
} // namespace vx::gdal
