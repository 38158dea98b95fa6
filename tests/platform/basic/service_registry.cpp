#include "extension/vxk_extension.h"

#include "platform/basic/vx_service_registry.h"

#include <gtest/gtest.h>
#include <string>

namespace {
constexpr wchar_t c_category[] = L"test/category";

std::string calls;

struct factory final : vx::service_factory_impl
{
    explicit factory(char factory_name, void (*act_at_visit)() = nullptr)
        : name(factory_name), act(act_at_visit)
    {
    }
    void with_services(vx::bundle_context context, vx::service_visitor visitor) override
    {
        calls += name;
        EXPECT_TRUE(visitor);
        registry = vx_service_registry_interface_specialize(vx_bundle_context_interface_generalize(context));
        if (act)
            act();
    }
    char name;
    void (*act)();
    vx::service_registry registry; ///< as it is reached from what the factory got
};

struct visitor final : vx::service_visitor_impl
{
};

void visit(wchar_t const *category = c_category)
{
    visitor v;
    vx_service_registry_with_services(category, v);
}

class service_registry : public testing::Test
{
protected:
    service_registry() { calls.clear(); }
    ~service_registry() override
    {
        for (auto *const f : {&f_a, &f_b, &f_c})
            for (auto const *category : {c_category, L"other"})
                vx_service_registry_remove_factory(category, *f);
    }
    factory f_a{'a'};
    factory f_b{'b'};
    factory f_c{'c'};
};
} // namespace

TEST_F(service_registry, visits_the_factories_of_the_category_in_order)
{
    EXPECT_TRUE(vx_service_registry_add_factory(c_category, f_b));
    EXPECT_TRUE(vx_service_registry_add_factory(c_category, f_a));
    EXPECT_TRUE(vx_service_registry_add_factory(L"other", f_c));
    EXPECT_FALSE(vx_service_registry_add_factory(c_category, f_a)) << "once a category";
    EXPECT_TRUE(vx_service_registry_add_factory(L"other", f_a));
    EXPECT_EQ(2, vx_service_registry_get_factory_count(c_category));
    visit();
    EXPECT_EQ("ba", calls);
    vx_service_registry_remove_factory(c_category, f_b);
    visit();
    EXPECT_EQ("baa", calls);
    visit(L"unknown");
    EXPECT_EQ("baa", calls);
}

TEST_F(service_registry, factories_come_and_go_during_a_visit)
{
    static factory late('l');
    static factory *victim;
    victim = &f_b;
    factory changer('x', [] {
        vx_service_registry_remove_factory(c_category, *victim);
        vx_service_registry_add_factory(c_category, late);
    });
    vx_service_registry_add_factory(c_category, changer);
    vx_service_registry_add_factory(c_category, f_b);
    vx_service_registry_add_factory(c_category, f_c);
    visit();
    EXPECT_EQ("xc", calls);
    vx_service_registry_remove_factory(c_category, changer);
    visit();
    EXPECT_EQ("xccl", calls);
    vx_service_registry_remove_factory(c_category, late);
}

TEST_F(service_registry, null_is_refused)
{
    EXPECT_FALSE(vx_service_registry_add_factory(c_category, vx_service_factory_interface_null()));
    EXPECT_FALSE(vx_service_registry_add_factory(nullptr, f_a));
    vx_service_registry_remove_factory(nullptr, f_a);
    ASSERT_TRUE(vx_service_registry_add_factory(c_category, f_a));
    visit(nullptr);
    vx_service_registry_with_services(c_category, vx_service_visitor_interface_null());
    EXPECT_EQ("", calls);
    EXPECT_EQ(0, vx_service_registry_get_factory_count(nullptr));
}

TEST_F(service_registry, a_factory_reaches_the_registry_and_it_names_its_categories)
{
    vx_service_registry_add_factory(L"other", f_b);
    vx_service_registry_add_factory(c_category, f_a);
    visit();
    ASSERT_TRUE(f_a.registry);
    visitor v;
    f_a.registry.with_services(L"other", v);
    EXPECT_EQ("ab", calls);
    t_vx_service_registry_interface same;
    vx_service_registry_get(&same);
    EXPECT_EQ(vx_service_registry_interface_compare(same, f_a.registry), 0);

    struct name_list final : vx::service_category_visitor_impl
    {
        std::wstring names;
        void visit(wchar_t const *name) override { names += std::wstring(name) + L";"; }
    } names;
    vx_service_registry_with_categories(names);
    EXPECT_LT(names.names.find(L"other;"), names.names.find(L"test/category;"));
    vx_service_registry_remove_factory(L"other", f_b);
    names.names.clear();
    vx_service_registry_with_categories(names);
    EXPECT_EQ(names.names.find(L"other;"), names.names.npos);
    EXPECT_NE(names.names.find(L"test/category;"), names.names.npos);
}
