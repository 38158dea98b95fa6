#include "gallery_walk.h"
#include "support/text_places.h"

using namespace vx_test;

namespace {
class gallery_texts : public testing::TestWithParam<char const *>
{
protected:
    gallery_texts() { vx_options_set_language(GetParam()); }
    ~gallery_texts() override { vx_options_set_language("en"); }
};
} // namespace

TEST_P(gallery_texts, no_text_is_cut_off_or_covered)
{
    int count = 0;
    visit_gallery([&count](shown const &view) {
        SCOPED_TRACE(view.name);
        count += expect_texts_fit(view.scope);
    });
    EXPECT_GT(count, 150);
}

INSTANTIATE_TEST_SUITE_P(languages, gallery_texts, testing::Values("en", "ru"));
