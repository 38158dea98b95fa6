#include "controls/prop/image_convert.h"
#include "controls/tree_view/clm_widget.h"
#include "controls/tree_view/virtual_tree_view.h"
#include "host/gallery/gallery_page.h"

#include "platform/basic/vx_geo_column.h"
#include "platform/toolkit/controls/label.h"

#include <algorithm>
#include <array>
#include <memory>
#include <string>
#include <vector>

// Trees: a catalogue of ten thousand sheets, and a list of named switches.

namespace {
constexpr int c_left = 16;
constexpr int c_picture_style = 70;
constexpr int c_picture_visible = 130;
constexpr int c_series = 20, c_maps = 25, c_sheets = 20;

struct entry
{
    std::wstring name;
    entry *parent = nullptr;
    std::vector<std::unique_ptr<entry>> entries;
    bool selected = false;
    bool shown = true;
    int scale = 0;

    entry *add(std::wstring text)
    {
        auto &made = entries.emplace_back(std::make_unique<entry>());
        made->name = std::move(text);
        made->parent = this;
        return made.get();
    }
};

/// Series, maps and sheets: names, whether they are shown, scales. An entry without a name is wrong, one that
/// is not shown slants; entries are moved among those of one parent.
class catalogue final : public Tvx_abstract_item_model
{
public:
    catalogue()
    {
        for (int s = 0; s < c_series; ++s) {
            entry *const series = f_root.add(L"Series " + std::to_wstring(s + 1));
            for (int m = 0; m < c_maps; ++m) {
                entry *const map =
                    series->add(L"Map " + std::to_wstring(s + 1) + L"." + std::to_wstring(m + 1));
                map->scale = 25'000 * (1 + m % 4);
                for (int i = 0; i < c_sheets; ++i)
                    map->add(L"Sheet " + std::to_wstring(i + 1))->shown = i % 7 != 3;
            }
        }
        f_root.entries[1]->name.clear();
        f_root.entries[2]->shown = false;
        f_active = f_root.entries[0].get();
        f_active->selected = true;
    }

    void init_index(Tvx_model_index &index, Tvx_model_index const &parent) override
    {
        index.data = of(parent).entries[static_cast<std::size_t>(index.row)].get();
    }
    void load_images(TCustomImageList *images) override
    {
        f_eye = vx_image_list_get_res(images, c_picture_visible);
        f_style = vx_image_list_get_res(images, c_picture_style);
    }
    int column_count() override { return 3; }
    bool has_children(Tvx_model_index const &index) override { return !of(index).entries.empty(); }
    int child_count(Tvx_model_index const &index) override
    {
        return static_cast<int>(of(index).entries.size());
    }
    bool selected(Tvx_model_index const &index) override { return of(index).selected; }
    void select(Tvx_model_index const &index, bool on) override { of(index).selected = on; }
    bool active(Tvx_model_index const &index) override { return &of(index) == f_active; }
    void set_active(Tvx_model_index const &index) override { f_active = &of(index); }
    void header_caption(int column, Ivx_string_adp *caption) override
    {
        static constexpr std::array c_captions{L"Name", L"", L"Scale"};
        vx_string_adp_feed(caption, c_captions[static_cast<std::size_t>(column)]);
    }
    int header_image(int column) override { return column == 1 ? f_eye : -1; }
    int header_flags(int column) override
    {
        return column == 1 ? c_header_no_margins : c_header_resizable | c_header_draggable;
    }
    int header_size(int column) override { return column == 1 ? 24 : 90; }
    bool headr_click(int column) override
    {
        if (column != 1)
            return false;
        for (auto const &series : f_root.entries)
            series->shown = !series->shown;
        return true;
    }
    void item_caption(Tvx_model_index const &index, Ivx_string_adp *caption) override
    {
        entry const &asked = of(index);
        if (index.column == 0)
            vx_string_adp_feed(caption, asked.name.c_str());
        else if (index.column == 2 && asked.scale > 0)
            vx_string_adp_feed(caption, (L"1 : " + std::to_wstring(asked.scale)).c_str());
    }
    int item_image(Tvx_model_index const &index) override
    {
        if (index.column == 0)
            return index.level == 2 ? f_style : -1;
        return index.column == 1 && of(index).shown ? f_eye : -1;
    }
    bool item_click(Tvx_model_index const &index) override
    {
        if (index.column == 1)
            of(index).shown = !of(index).shown;
        return index.column == 1;
    }
    void item_hint(Tvx_model_index const &index, Ivx_string_adp *hint) override
    {
        std::wstring path;
        for (entry const *at = &of(index); at->parent; at = at->parent)
            path = at->name + (path.empty() ? L"" : L" / ") + path;
        vx_string_adp_feed(hint, path.c_str());
    }
    bool editable(Tvx_model_index const &index) override { return index.column == 0; }
    void new_caption(Tvx_model_index const &index, wchar_t const *text) override { of(index).name = text; }
    bool moveable(Tvx_model_index const &) override { return true; }
    bool moveable(Tvx_model_index const &from, Tvx_model_index const &to) override
    {
        return of(from).parent == of(to).parent;
    }
    bool move_marked(Tvx_model_index const &to) override
    {
        auto &all = of(to).parent->entries;
        auto const place = all.begin() + std::min(to.row, static_cast<int>(all.size()));
        auto const is_other = [](auto const &e) { return !e->selected; };
        std::stable_partition(all.begin(), place, is_other);
        std::stable_partition(place, all.end(), [&](auto const &e) { return !is_other(e); });
        return true;
    }
    int valid(Tvx_model_index const &index) override { return of(index).name.empty() ? 1 : 0; }
    bool distinguish(Tvx_model_index const &index) override { return !of(index).shown; }

private:
    entry &of(Tvx_model_index const &index)
    {
        return index.data ? *static_cast<entry *>(index.data) : f_root;
    }

    entry f_root;
    entry *f_active = nullptr;
    int f_eye = -1;
    int f_style = -1;
};

/// The page's own. The controls of a page end before its components.
class catalogue_page final : public TComponent
{
public:
    catalogue_page(TWinControl *page, TRect const &place)
        : TComponent(page), f_view(new Tvx_virtual_tree_view(page))
    {
        f_view->SetParent(page);
        f_view->SetBoundsRect(place);
        f_view->get_tree()->SetAccessibleName(L"Catalogue");
        f_view->set_model(&f_model);
        f_view->update_controls();
        PVirtualNode const third = f_view->get_tree()->GetChild(nullptr, 2);
        f_view->get_tree()->SetExpanded(third, true);
        f_view->get_tree()->SetExpanded(f_view->get_tree()->GetChild(third, 0), true);
        f_view->update_controls();
    }

private:
    catalogue f_model;
    Tvx_virtual_tree_view *f_view;
};

class strata_page final : public TComponent
{
public:
    strata_page(TWinControl *page, TRect const &place)
        : TComponent(page), f_strata(vx_geo_column_create()), f_widget(new Tvx_clm_widget(page))
    {
        for (wchar_t const *name : {L"Topsoil", L"Clay", L"Sandstone", L"Limestone", L"Granite"})
            f_strata->add_item(name);
        f_strata->get_item(2)->set_flag(false);
        f_widget->SetParent(page);
        f_widget->SetBoundsRect(place);
        f_widget->load_res();
        f_widget->get_grid()->SetAccessibleName(L"Strata");
        f_widget->set_column(f_strata);
        f_widget->update_controls();
    }
    ~strata_page() override { vx_geo_column_destroy(f_strata); }

private:
    Ivx_geo_column *f_strata;
    Tvx_clm_widget *f_widget;
};

void fill_page(TWinControl *page)
{
    auto const caption = [page](wchar_t const *text, int left) {
        auto *const label = new TLabel(page);
        label->SetParent(page);
        label->SetCaption(text);
        label->SetLeft(left);
        label->SetTop(8);
    };
    caption(L"Ten thousand sheets", c_left);
    new catalogue_page(page, Bounds(c_left, 28, 400, 390));
    caption(L"Named switches", c_left + 420);
    new strata_page(page, Bounds(c_left + 420, 28, 420, 200));
}

gallery_page const g_page(33, L"Trees", &fill_page);
} // namespace
