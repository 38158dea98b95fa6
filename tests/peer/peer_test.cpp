#include "extension/binding/polymorphic.h"
#include "extension/binding/ref.h"
#include "extension/binding/referent_object.h"
#include "extension/binding/string_visitors.h"
#include "peer.h"

#include <dlfcn.h>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace {
class own_object final : public vx::polymorphic<vx::dict_impl, vx::monitor_impl>
{
public:
    std::vector<double> reports;
    std::wstring text;
    void with_items(vx::dict_item_visitor visitor) override
    {
        visitor.visit(L"abc", L"de");
        visitor.visit(L"f", L"");
    }
    void report(double done) override { reports.push_back(done); }
    void message(wchar_t const *message) override { text = message; }
    bool has_stopped() override { return true; }
};

/// One loaded peer module.
class peer_module
{
public:
    peer_module(char const *name, int mode)
        : f_library(dlopen((std::string(VX_PEERS "/") + name).c_str(), mode))
    {
        if (!f_library)
            return;
        find(call.object, "peer_object_handle");
        find(call.consume, "peer_consume");
        find(call.report, "peer_report");
        find(call.is_own, "peer_is_own");
        find(call.make_service, "peer_make_service");
        find(call.end_service, "peer_end_service");
        find(call.hold, "peer_hold");
        find(call.held_priority, "peer_held_priority");
        find(call.is_own_holder, "peer_is_own_holder");
        find(call.table, "peer_table");
    }
    ~peer_module()
    {
        if (f_library)
            dlclose(f_library);
    }
    peer_module(peer_module const &) = delete;
    peer_module &operator=(peer_module const &) = delete;

    [[nodiscard]] bool is_loaded() const { return f_library != nullptr; }
    peer_functions call{};

private:
    template <class F>
    void find(F &target, char const *name)
    {
        target = reinterpret_cast<F>(dlsym(f_library, name));
        EXPECT_TRUE(target) << name;
    }
    void *f_library;
};

class peer : public testing::TestWithParam<int>
{
};

TEST_P(peer, is_used_and_uses_us)
{
    peer_module module("peer.so", GetParam());
    ASSERT_TRUE(module.is_loaded()) << dlerror();
    t_vx_interface const general = module.call.object();
    vx::dict const dict = vx_dict_interface_specialize(general);
    vx::monitor const monitor = vx_monitor_interface_specialize(general);
    ASSERT_TRUE(dict && monitor);
    std::vector<std::wstring> keys;
    vx::stdwstring_list_visitor visitor(keys);
    dict.with_keys(visitor);
    EXPECT_EQ(keys, (std::vector<std::wstring>{L"one", L"two"}));
    EXPECT_TRUE(dict.get_value(L"one", visitor));
    EXPECT_FALSE(dict.get_value(L"two", visitor));
    EXPECT_TRUE(monitor.has_stopped());

    own_object own;
    t_vx_interface const ours = vx_monitor_interface_generalize(own);
    EXPECT_EQ(module.call.consume(ours), 6);
    EXPECT_TRUE(module.call.report(ours, 0.5));
    EXPECT_EQ(own.reports, std::vector<double>{0.5});
    EXPECT_EQ(own.text, L"text");
}

TEST_P(peer, keeps_tables_of_its_own)
{
    peer_module module("peer.so", GetParam());
    peer_module other("later_peer.so", GetParam());
    ASSERT_TRUE(module.is_loaded() && other.is_loaded()) << dlerror();
    EXPECT_NE(module.call.table(), static_cast<void const *>(vx::dict_impl::family_table()));
    EXPECT_NE(module.call.table(), other.call.table());
    t_vx_dict_interface const theirs = vx_dict_interface_specialize(module.call.object());
    own_object own;
    EXPECT_EQ(vx::dict_impl::from_interface(theirs), nullptr);
    EXPECT_EQ(vx::dict_impl::from_interface(own), &own);
    EXPECT_TRUE(module.call.is_own(theirs));
    EXPECT_FALSE(module.call.is_own(own));
    EXPECT_FALSE(other.call.is_own(theirs));
    EXPECT_NE(vx_dict_interface_compare(theirs, own), 0);
    EXPECT_EQ(vx_dict_interface_compare(theirs, theirs), 0);
}

TEST_P(peer, of_another_revision_is_not_there)
{
    peer_module module("later_peer.so", GetParam());
    ASSERT_TRUE(module.is_loaded()) << dlerror();
    t_vx_interface const general = module.call.object();
    vx::monitor const monitor = vx_monitor_interface_specialize(general);
    EXPECT_FALSE(monitor);
    EXPECT_FALSE(monitor.has_stopped());
    monitor.report(1);
    EXPECT_TRUE(vx::dict(vx_dict_interface_specialize(general))) << "its other families are as ever";

    own_object own;
    EXPECT_FALSE(module.call.report(vx_dict_interface_generalize(own), 0.5));
    EXPECT_TRUE(own.reports.empty());
    EXPECT_EQ(module.call.consume(vx_dict_interface_generalize(own)), 6);
    EXPECT_EQ(module.call.consume({}), -1);
}

TEST_P(peer, that_ends_an_object_leaves_its_holders_empty)
{
    peer_module module("peer.so", GetParam());
    ASSERT_TRUE(module.is_loaded()) << dlerror();
    using held_service = vx::ref<vx::layer_2d_editor_extension_service, false,
                                 vx::reftraits<vx::layer_2d_editor_extension_service>>;
    held_service held{vx::layer_2d_editor_extension_service(module.call.make_service())};
    held_service const other(held);
    EXPECT_EQ(held->priority(), 7);
    module.call.end_service();
    EXPECT_TRUE(held.is_null() && other.is_null());
    EXPECT_EQ(held->priority(), 1) << "the default of a null handle";
    held.detach();
    held.hold(module.call.make_service());
    EXPECT_EQ(held->priority(), 7);
    held.detach();
    module.call.end_service();
}

/// A service of this module that knows by which handle it was held last.
class own_service final : public vx::layer_2d_editor_extension_service_impl, public vx::referent_object
{
public:
    vx::referrer holder;
    vx::referent as_referent() override { return static_cast<vx::referent_object &>(*this); }
    void retain(vx::referrer by) override
    {
        holder = by;
        referent_object::retain(by);
    }
    int priority() override { return 9; }
};

TEST_P(peer, holds_with_a_table_of_its_own_what_may_end_first)
{
    // The second module shares all names with the first one.
    peer_module first("peer.so", GetParam());
    peer_module second("later_peer.so", GetParam());
    ASSERT_TRUE(first.is_loaded() && second.is_loaded()) << dlerror();
    for (peer_functions const &call : {first.call, second.call}) {
        {
            own_service service;
            call.hold(service);
            EXPECT_EQ(call.held_priority(), 9);
            EXPECT_EQ(service.hold_count(), 1u);
            EXPECT_TRUE(call.is_own_holder(service.holder));
            EXPECT_EQ(vx::referrer_impl::from_interface(service.holder), nullptr);
        }
        EXPECT_EQ(call.held_priority(), 1) << "the default: nothing is held";
        own_service other;
        call.hold(other);
        call.hold({});
        EXPECT_EQ(other.hold_count(), 0u);
    }
}

INSTANTIATE_TEST_SUITE_P(loaded, peer, testing::Values(RTLD_NOW | RTLD_LOCAL, RTLD_NOW | RTLD_GLOBAL),
                         [](auto const &info) { return info.param & RTLD_GLOBAL ? "globally" : "locally"; });
} // namespace
