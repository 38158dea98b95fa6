#pragma once

#include "data/vector/transacted_feature.h"
#include "data/vector/vector_datasource.h"
#include "support/database_server.h"

#include "platform/base/string_adp.h"
#include "platform/base/text_codec.h"
#include "platform/basic/vx_datasource.h"

#include <gtest/gtest.h>

namespace vx_test {
/// One server for all tests of the program, with the example data in it.
class server_test : public testing::Test
{
protected:
    void SetUp() override
    {
        if (database_server::programs().empty())
            GTEST_SKIP() << "PostgreSQL with PostGIS is not installed (tools/setup.sh test)";
        server().forget();
    }
    [[nodiscard]] static database_server &server()
    {
        static database_server running;
        static bool const is_loaded = [&] {
            for (char const *name : {"nc", "world"})
                running.load(example_path(name), name, "-nlt PROMOTE_TO_MULTI");
            running.load(example_path("streets"), "streets");
            running.load(example_path("naturalearth_cities"), "cities");
            return true;
        }();
        (void)is_loaded;
        return running;
    }
    [[nodiscard]] static std::string example_path(std::string const &name)
    {
        return VX_EXAMPLE_DATA "/" + name + ".shp";
    }
    /// Opens a table; the test fails when it does not open.
    static void open(vx::data::vector_datasource &table, std::wstring const &name,
                     vx::data::access_mode mode = vx::data::access_read)
    {
        ASSERT_TRUE(table.open(server().connection(L"|layer=" + name), mode)) << last_error();
    }
    /// Why a source did not open.
    [[nodiscard]] static std::string last_error()
    {
        std::wstring text;
        Tvx_std_wstring_adapter const adapter(text);
        vx_datasource_get_error(adapter);
        return vx::text::wide_to_utf8(text);
    }
    /// What the error message of an open source says, with its details.
    [[nodiscard]] static std::string error_of(vx::data::generic_datasource const &source)
    {
        return vx::text::wide_to_utf8(source.error_message());
    }
    /// The numbers of a field by a walk over the features, which asks nothing else.
    [[nodiscard]] static std::vector<double> walked(vx::data::vector_datasource &table,
                                                    vx::data::field_index_type field)
    {
        std::vector<double> values;
        vx::data::vector_feature feature;
        table.reset_reading();
        for (bool not_null = false; table.fetch_next_feature(feature);)
            if (double const value = feature.read_numeric(field, not_null); not_null)
                values.push_back(value);
        return values;
    }
};
} // namespace vx_test
