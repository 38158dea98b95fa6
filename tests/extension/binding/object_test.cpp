#include "extension/vxk_extension.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace {
using held_source = vx::ref<vx::style_editor_data_source, false, vx::reftraits<vx::style_editor_data_source>>;

/// Answers as a visitor of services of any kind and as one of editor extensions, as the page set does.
class pages final : public vx::polymorphic<vx::service_visitor_impl>,
                    public vx::polymorphic<vx::layer_2d_editor_extension_service_visitor_impl>
{
public:
    std::vector<int> priorities;
    void visit(vx::layer_2d_editor_extension_service service) override
    {
        priorities.push_back(service.priority());
    }
};

TEST(polymorphic, every_interface_leads_to_every_other)
{
    pages object;
    t_vx_service_visitor_interface const a = object;
    t_vx_layer_2d_editor_extension_service_visitor_interface const b = object;
    t_vx_interface const from_a = vx_service_visitor_interface_generalize(a);
    t_vx_interface const from_b = vx_layer_2d_editor_extension_service_visitor_interface_generalize(b);
    for (t_vx_interface const g : {from_a, from_b}) {
        EXPECT_EQ(vx_service_visitor_interface_compare(vx_service_visitor_interface_specialize(g), a), 0);
        EXPECT_EQ(vx_layer_2d_editor_extension_service_visitor_interface_compare(
                      vx_layer_2d_editor_extension_service_visitor_interface_specialize(g), b),
                  0);
        EXPECT_EQ(vx_referent_interface_is_null(vx_referent_interface_specialize(g)), 1);
    }
    auto *const part = static_cast<vx::layer_2d_editor_extension_service_visitor_impl *>(&object);
    EXPECT_EQ(b.self, part) << "self is the part of the object that has the interface";
    EXPECT_NE(a.self, b.self);
    EXPECT_EQ(vx::service_visitor_impl::from_interface(a), &object);
}

/// Notes in one list what is done to it and to its owner.
class living_source final : public vx::style_editor_data_source_impl, public vx::referent_object
{
public:
    explicit living_source(std::vector<std::string> &log) : f_log(log) {}
    vx::referent as_referent() override { return static_cast<vx::referent_object &>(*this); }
    vx::referent owner() override { return f_owner; }
    void retain(vx::referrer holder) override
    {
        f_log.push_back("retain");
        referent_object::retain(holder);
    }
    void release(vx::referrer holder) override
    {
        f_log.push_back("release");
        referent_object::release(holder);
    }
    int property_count() override { return 3; }
    vx::referent f_owner;

private:
    std::vector<std::string> &f_log;
};

class noting_owner final : public vx::referent_impl
{
public:
    explicit noting_owner(std::vector<std::string> &log) : f_log(log) {}
    void retain(vx::referrer holder) override { f_log.push_back(holder ? "owner+" : "owner retain"); }
    void release(vx::referrer holder) override { f_log.push_back(holder ? "owner-" : "owner release"); }

private:
    std::vector<std::string> &f_log;
};

TEST(ref, retains_while_attached_and_holds_the_owner_round_the_release)
{
    std::vector<std::string> log;
    noting_owner owner(log);
    living_source source(log);
    source.f_owner = owner;
    {
        held_source held{vx::style_editor_data_source(source)};
        EXPECT_EQ(source.hold_count(), 1u);
        held.attach();
        EXPECT_EQ(source.hold_count(), 1u) << "attached already";
        EXPECT_EQ(held->property_count(), 3);
    }
    EXPECT_EQ(source.hold_count(), 0u);
    EXPECT_EQ(log, (std::vector<std::string>{"retain", "owner retain", "release", "owner release"}));
}

TEST(ref, changes_what_it_holds_and_takes_null)
{
    std::vector<std::string> log;
    living_source first(log), second(log);
    held_source held{vx::style_editor_data_source(first)};
    held.hold(static_cast<vx::style_editor_data_source>(second));
    EXPECT_EQ(first.hold_count(), 0u);
    EXPECT_EQ(second.hold_count(), 1u);
    held_source const copy(held);
    EXPECT_EQ(second.hold_count(), 2u);
    held.hold({});
    EXPECT_TRUE(held.is_null());
    EXPECT_EQ(second.hold_count(), 1u);
    held.detach();
    EXPECT_EQ(held->property_count(), 0);
    EXPECT_EQ(copy->property_count(), 3);
}

TEST(ref, of_a_dead_object_holds_null)
{
    std::vector<std::string> log;
    held_source held, other;
    {
        living_source source(log);
        held.hold(static_cast<vx::style_editor_data_source>(source));
        other.hold(static_cast<vx::style_editor_data_source>(source));
        vx::referrer const live = held;
        EXPECT_TRUE(live.reachable());
    }
    EXPECT_TRUE(held.is_null() && other.is_null());
    log.clear();
    held.detach();
    EXPECT_TRUE(log.empty());
}

TEST(ref, that_was_detached_is_copied_without_a_hold)
{
    std::vector<std::string> log;
    held_source held, assigned;
    {
        living_source source(log);
        held.hold(static_cast<vx::style_editor_data_source>(source));
        held.detach();
        held_source const copy(held);
        assigned = held;
        EXPECT_EQ(source.hold_count(), 0u);
        held.attach();
        assigned = held;
        EXPECT_EQ(source.hold_count(), 2u);
    }
    EXPECT_TRUE(held.is_null() && assigned.is_null());
}

class counted final : public vx::referent_object
{
public:
    explicit counted(int &ends) : f_ends(ends) {}
    ~counted() { invalidate_holders(); }

private:
    void on_unreferenced() override
    {
        ++f_ends;
        delete this;
    }
    int &f_ends;
};

TEST(referent_object, a_counted_object_may_end_itself_with_the_last_hold)
{
    int ends = 0;
    auto *const object = new counted(ends);
    vx::referent const handle = *object;
    struct plain_holder final : vx::referrer_impl
    {
    } holder;
    handle.retain(holder);
    handle.retain({});
    handle.release(holder);
    EXPECT_EQ(ends, 0);
    handle.release(holder);
    EXPECT_EQ(ends, 0) << "a holder that is not known is ignored";
    handle.release({});
    EXPECT_EQ(ends, 1);
}

TEST(referent_object, ends_once_when_a_holder_lets_go_of_another)
{
    int ends = 0;
    auto *const object = new counted(ends);
    struct plain_holder final : vx::referrer_impl
    {
    } other;
    struct telling_holder final : vx::referrer_impl
    {
        explicit telling_holder(vx::referrer o) : f_other(o) {}
        void invalidate(vx::referent object) override { object.release(f_other); }
        vx::referrer f_other;
    } telling{other};
    vx::referent const handle = *object;
    handle.retain(other);
    handle.retain(telling);
    delete object;
    EXPECT_EQ(ends, 0);
}
} // namespace
