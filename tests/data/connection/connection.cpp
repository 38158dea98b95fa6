#include "data/connection/connection.h"

#include "data/connection/connection_params.h"

#include <gtest/gtest.h>
#include <random>

using namespace vx::data;

namespace {
using option_map = std::map<std::wstring, std::wstring>;

struct parsed
{
    wchar_t const *text;
    wchar_t const *source;
    option_map params;
    bool is_virtual;
    wchar_t const *again; ///< what it serialises to
};
} // namespace

TEST(connection_string, parses_and_serialises)
{
    parsed const table[] = {
        {L"a.shp", L"a.shp", {}, false, L"a.shp"},
        {L"a|b=1&c", L"a", {{L"b", L"1"}, {L"c", L""}}, false, L"a|b=1&c="},
        {L"x&y=1|z=2", L"x&y=1", {{L"z", L"2"}}, false, L"x&y=1|z=2"},
        {L"x&y=1", L"x", {{L"y", L"1"}}, false, L"x|y=1"},
        {L"a|=1&&b=2&", L"a", {{L"b", L"2"}}, false, L"a|b=2"},
        {L"a|k=1=2", L"a", {{L"k", L"1=2"}}, false, L"a|k=1=2"},
        {L"a|k=1|2", L"a", {{L"k", L"1|2"}}, false, L"a|k=1|2"},
        {L"a|k=1&k=2", L"a", {{L"k", L"2"}}, false, L"a|k=2"},
        {L"*db|k=v", L"db", {{L"k", L"v"}}, true, L"*db|k=v"},
        {L"**db", L"*db", {}, true, L"*db"},
        {L"", L"", {}, false, L""},
        {L"|", L"", {}, false, L""},
        {L"дом.shp|слой=ул. «Ю»", L"дом.shp", {{L"слой", L"ул. «Ю»"}}, false, L"дом.shp|слой=ул. «Ю»"},
    };
    for (auto const &row : table) {
        connection_params const p{std::wstring(row.text)};
        EXPECT_EQ(p.source, row.source);
        EXPECT_EQ(p.params, row.params);
        EXPECT_EQ(p.is_virtual, row.is_virtual);
        EXPECT_EQ(make_connection(p), row.again);
    }
}

TEST(connection_string, is_stable_after_one_round)
{
    std::mt19937 random(11);
    for (int i = 0; i < 5000; ++i) {
        std::wstring text;
        for (unsigned n = random() % 14; n-- > 0;)
            text += L"ab*|&=ю "[random() % 8];
        connection_params const first(text);
        connection_params const second(first.make_connection());
        // A source that itself holds a separator, or a second mark, cannot be told apart without escaping.
        if (first.source.find_first_of(L"|&*") != std::wstring::npos)
            continue;
        EXPECT_EQ(second.source, first.source);
        EXPECT_EQ(second.params, first.params);
        EXPECT_EQ(second.is_virtual, first.is_virtual);
    }
}

TEST(connection_string, vector_options)
{
    EXPECT_EQ(make_vector_connection(L"roads.shp", L"roads", geom_type::polyline),
              L"roads.shp|geom_type=polyline&layer=roads");
    EXPECT_EQ(make_vector_connection(L"a", L"", L"", geom_type::unknown, L""), L"a");
    vector_connection_params const p(std::wstring(L"*a|layer=l&geom_type=POLYGON_Z&geom=g&fid=f&enc=866"));
    EXPECT_EQ(p.layer, L"l");
    EXPECT_EQ(p.geom, L"g");
    EXPECT_EQ(p.fid, L"f");
    EXPECT_EQ(p.geom_type, geom_type::polygon_z);
    EXPECT_EQ(p.params, (option_map{{L"enc", L"866"}}));
    EXPECT_EQ(vector_connection_params(std::wstring(L"a|layer=x")).geom_type, geom_type::unknown);

    struct encoding : options
    {
        void apply(connection_params &target) const override { target.params[L"enc"] = L"866"; }
    };
    EXPECT_EQ(encoding().alter_source(L"*a"), L"*a|enc=866");
}

TEST(connection_value, opens_through_its_callback)
{
    struct call
    {
        std::wstring source;
        bool read_only = false;
        int count = 0;
    } seen;
    open_callback const record = [](wchar_t const *source, bool read_only, void *context,
                                    t_vx_data_source_interface *) {
        auto &c = *static_cast<call *>(context);
        c = {source, read_only, c.count + 1};
    };
    connection c(L"a|b=1", record, &seen);
    EXPECT_TRUE(c.valid());
    c.open(true, nullptr);
    EXPECT_EQ(seen.source, L"a|b=1");
    EXPECT_TRUE(seen.read_only);
    c.reset();
    EXPECT_FALSE(c.valid());
    c.open(false, nullptr);
    EXPECT_EQ(seen.count, 1);
    EXPECT_EQ(c.source(), L"a|b=1");
    EXPECT_EQ(c.context(), nullptr);
    EXPECT_EQ(connection(L"x").callback(), &datasource_open);
}
