#include "extension_models.h"

#include <dlfcn.h>

// Modules of other makers that meet us at run time only.

namespace {
struct peer
{
    explicit peer(char const *name)
        : library(dlopen((std::string(VX_TEST_EXTENSIONS "/") + name).c_str(), RTLD_NOW | RTLD_LOCAL))
    {
        EXPECT_TRUE(library) << dlerror();
        if (!library)
            return;
        factory = reinterpret_cast<decltype(factory)>(dlsym(library, "peer_factory"));
        ask = reinterpret_cast<decltype(ask)>(dlsym(library, "peer_ask"));
    }
    ~peer()
    {
        if (library)
            dlclose(library);
    }
    peer(peer const &) = delete;
    peer &operator=(peer const &) = delete;

    void *library;
    t_vx_service_factory_interface (*factory)() = nullptr;
    int (*ask)(t_vx_service_factory_interface) = nullptr;
};
} // namespace

TEST_F(extension_fixture, peers_of_another_revision_are_absent_on_both_sides)
{
    models::service ours(7);
    struct row
    {
        char const *name;
        tab_list tabs;
        int seen;
    };
    for (auto const &[name, expected, seen] :
         {row{"peer_extension.so", {L"peer"}, 7}, row{"later_extension.so", {}, 0},
          row{"other_extension.so", {L"peer"}, 7}}) {
        SCOPED_TRACE(name);
        peer const module(name);
        ASSERT_TRUE(module.factory && module.ask);
        ASSERT_TRUE(vx_service_registry_add_factory(c_category, module.factory()));
        open({});
        EXPECT_EQ(tabs(), expected);
        custom->set_layer(nullptr);
        custom.reset();
        vx_service_registry_remove_factory(c_category, module.factory());
        registered.services = {&ours};
        EXPECT_EQ(module.ask(registered), seen);
        EXPECT_EQ(ours.layers, seen / 7);
        ours.layers = 0;
        registered.services.clear();
    }
    EXPECT_TRUE(told.empty());
}
