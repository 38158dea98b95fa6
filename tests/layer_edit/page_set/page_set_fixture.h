#pragma once

#include "layer_edit/page_set/lr2d_edit.h"

#include "platform/base/owned.h"
#include "platform/layers/vx_lr2d.h"
#include "platform/toolkit/core/form.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

/// What the doubles below saw, in order. One for the process, emptied by each test.
inline std::vector<std::string> page_set_log;

inline char const *name_of(vx::lr2d_page page)
{
    static constexpr char const *names[] = {"rtr",       "shp_pnt",  "shp_pln",     "shp_pgn", "tos_grid",
                                            "tos_slice", "tos_2crd", "tld",         "dtld",    "txt_pnt",
                                            "txt_pln",   "txt_pgn",  "txt_tos_2crd"};
    return names[static_cast<std::size_t>(page)];
}

/// A page that writes down what is done to it.
class test_page : public Tvx_basic_lr2d_edit
{
public:
    test_page(TComponent *owner, vx::lr2d_page place) : Tvx_basic_lr2d_edit(owner), place(place) {}

    void create() override
    {
        log("create");
        if (place == vx::lr2d_page::tos_2crd)
            coordinates = new Tvx_panel(this);
    }
    void load_res() override { log("load_res"); }
    void update_controls() override
    {
        ++updates;
        log(get_lr2d() ? (GetVisible() ? "show" : "bound while hidden")
                       : (GetVisible() ? "seen without layer" : "clear"));
        on_update(this);
    }
    void save_current_scl() override { log("save"); }
    TWinControl *get_coordinate_panel() override { return coordinates; }
    bool get_notify_host() const override { return notify; }

    vx::lr2d_page place;
    Tvx_panel *coordinates = nullptr;
    int updates = 0;
    bool notify = false;
    closure<void(TObject *)> on_update;

private:
    void log(char const *what) { page_set_log.push_back(std::string(name_of(place)) + " " + what); }
};

template <vx::lr2d_page Place>
Tvx_basic_lr2d_edit *make_test_page(TComponent *owner)
{
    return new test_page(owner, Place);
}

inline constexpr vx::lr2d_page_factory c_test_pages[] = {
    {vx::lr2d_page::rtr, &make_test_page<vx::lr2d_page::rtr>},
    {vx::lr2d_page::shp_pnt, &make_test_page<vx::lr2d_page::shp_pnt>},
    {vx::lr2d_page::shp_pln, &make_test_page<vx::lr2d_page::shp_pln>},
    {vx::lr2d_page::shp_pgn, &make_test_page<vx::lr2d_page::shp_pgn>},
    {vx::lr2d_page::tos_grid, &make_test_page<vx::lr2d_page::tos_grid>},
    {vx::lr2d_page::tos_slice, &make_test_page<vx::lr2d_page::tos_slice>},
    {vx::lr2d_page::tos_2crd, &make_test_page<vx::lr2d_page::tos_2crd>},
    {vx::lr2d_page::tld, &make_test_page<vx::lr2d_page::tld>},
    {vx::lr2d_page::dtld, &make_test_page<vx::lr2d_page::dtld>},
    {vx::lr2d_page::txt_pnt, &make_test_page<vx::lr2d_page::txt_pnt>},
    {vx::lr2d_page::txt_pln, &make_test_page<vx::lr2d_page::txt_pln>},
    {vx::lr2d_page::txt_pgn, &make_test_page<vx::lr2d_page::txt_pgn>},
    {vx::lr2d_page::txt_tos_2crd, &make_test_page<vx::lr2d_page::txt_tos_2crd>},
};

using test_layer = vx::owned<Ivx_layer, &vx_lr2d_destroy>;

inline test_layer make_layer(char const *key)
{
    return test_layer(vx_lr2d_create(key));
}
