#include "controls/files/vcl_file_panels.h"
#include "controls/files/vcl_many_file_panel.h"
#include "controls/files/vcl_new_dir_panel.h"
#include "host/gallery/gallery_page.h"

// The panels that take the names of files and directories.

namespace {
constexpr int c_left = 16;
constexpr int c_width = 420;

template <class Panel>
Panel *add(TWinControl *page, int &top, int height)
{
    auto *const panel = new Panel(page);
    panel->SetParent(page);
    panel->create();
    panel->load_rc();
    panel->SetBounds(c_left, top, c_width, height);
    top += height + 10;
    return panel;
}

void fill(TWinControl *page)
{
    constexpr int c_row = 24;
    int top = 16;
    auto *const open = add<Tvx_vcl_file_open_panel>(page, top, c_row);
    open->set_caption(L"Legend");
    open->set_filename(L"/home/user/maps/examples/legends of the land cover/land_cover_legend.dbf");
    auto *const save = add<Tvx_vcl_file_save_panel>(page, top, c_row);
    save->set_caption(L"Save as");
    save->set_filename(L"roads.dbf");
    auto *const greyed = add<Tvx_vcl_file_open_panel>(page, top, c_row);
    greyed->set_caption(L"Disabled");
    greyed->set_filename(L"roads.dbf");
    greyed->set_enabled(false);
    auto *const directory = add<Tvx_vcl_dir_panel>(page, top, c_row);
    directory->set_caption(L"Folder");
    directory->set_dirname(L"/home/user/maps");
    auto *const made = add<Tvx_vcl_new_dir_panel>(page, top, 2 * c_row + 4);
    made->set_dircaption(L"Folder above");
    made->set_sub_dircaption(L"New folder");
    made->set_dirname(L"/home/user/maps");
    made->set_sub_dirname(L"legends");
    auto *const many = add<Tvx_vcl_many_file_panel>(page, top, 150);
    many->set_caption(L"Tables");
    TStringList names;
    for (auto const *name : {L"/maps/roads.dbf", L"/maps/rivers.dbf", L"/maps/lakes.dbf"})
        names.Add(name);
    many->set_filenames(&names);
    many->set_active_index(1);
}

gallery_page const g_page(75, L"Files", &fill);
} // namespace
