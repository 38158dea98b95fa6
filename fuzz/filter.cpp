#include "fuzz/memory_file.h"

#include "platform/base/owned.h"
#include "platform/base/text_codec.h"
#include "platform/calculator/vx_calc_filter.h"

namespace {
/// One object whose every field holds the same text.
class one_row final : public Ivx_calc_row
{
public:
    [[nodiscard]] int field_index(std::wstring_view name) const override
    {
        return static_cast<int>(name.size()) - 1;
    }
    [[nodiscard]] Tvx_calc_cell cell(int field, bool) override
    {
        return {field % 3 != 2, field % 3 == 1, 5, L"5 roads"};
    }
};
} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const *data, std::size_t size)
{
    using owned_filter = vx::owned<void, &vx_calc_filter_destroy>;
    owned_filter const filter(vx_calc_filter_create());
    auto const text = vx::text::utf8_to_wide({reinterpret_cast<char const *>(data), size});
    if (!vx_calc_filter_from_str(filter.get(), text.c_str()))
        return 0;
    std::wstring stored;
    std::wstring again;
    std::wstring pretty;
    Tvx_std_wstring_adapter stored_adapter(stored);
    Tvx_std_wstring_adapter again_adapter(again);
    Tvx_std_wstring_adapter pretty_adapter(pretty);
    vx_calc_filter_to_str(filter.get(), stored_adapter);
    vx_calc_filter_pretty_print(filter.get(), pretty_adapter);
    one_row row;
    bool const matches = vx_calc_filter_matches(filter.get(), row);
    owned_filter const other(vx_calc_filter_create());
    must(vx_calc_filter_from_str(other.get(), stored.c_str()));
    vx_calc_filter_to_str(other.get(), again_adapter);
    must(stored == again);
    must(matches == vx_calc_filter_matches(other.get(), row));
    return 0;
}
