#include "platform/basic/vx_geo_column.h"

#include <memory>
#include <string>
#include <vector>

Ivx_geo_column_item::~Ivx_geo_column_item() = default;
Ivx_geo_column::~Ivx_geo_column() = default;

namespace {
class item final : public Ivx_geo_column_item
{
public:
    explicit item(wchar_t const *name) : f_name(name ? name : L"") {}

    void get_name(Ivx_string_adp *name) const override { vx_string_adp_feed(name, f_name.c_str()); }
    void set_name(wchar_t const *name) override { f_name = name ? name : L""; }
    [[nodiscard]] bool get_flag() const override { return f_flag; }
    void set_flag(bool on) override { f_flag = on; }

private:
    std::wstring f_name;
    bool f_flag = true;
};

class column final : public Ivx_geo_column
{
public:
    [[nodiscard]] int get_item_count() const override { return static_cast<int>(f_items.size()); }
    [[nodiscard]] Ivx_geo_column_item *get_item(int place) override
    {
        return holds(place) ? f_items[static_cast<std::size_t>(place)].get() : nullptr;
    }
    Ivx_geo_column_item *add_item(wchar_t const *name) override
    {
        return f_items.emplace_back(std::make_unique<item>(name)).get();
    }
    void remove_item(int place) override
    {
        if (holds(place))
            f_items.erase(f_items.begin() + place);
    }

private:
    [[nodiscard]] bool holds(int place) const { return place >= 0 && place < get_item_count(); }

    std::vector<std::unique_ptr<item>> f_items;
};
} // namespace

Ivx_geo_column *vx_geo_column_create()
{
    return new column;
}

void vx_geo_column_destroy(Ivx_geo_column *column)
{
    delete column;
}
