#include "controls/item_grid/item_panels.h"
#include "host/gallery/gallery_page.h"

#include "platform/toolkit/controls/label.h"
#include "platform/toolkit/core/strings.h"

#include <algorithm>
#include <array>
#include <string>
#include <vector>

// Item grids: all types of columns, a list of files, a list whose order counts, an empty one.

namespace {
constexpr int c_left = 16;
constexpr int c_width = 800;

struct road
{
    std::string key;
    std::wstring name;
    bool drawn;
    int lanes;
    double width;
    int surface;
    std::wstring style;
    bool marked;
};

constexpr std::array c_surfaces{L"asphalt", L"concrete", L"gravel"};
constexpr std::array c_styles{L"cased", L"plain", L"dashed"};

/// A list of roads, and the grid that shows it. The page owns it.
class road_list : public TComponent
{
public:
    explicit road_list(TComponent *owner) : TComponent(owner) {}

    void show(Tvx_item_grid *grid)
    {
        f_grid = grid;
        grid->on_get_sel = make_closure<&road_list::get_sel>(this);
        grid->on_set_sel = make_closure<&road_list::set_sel>(this);
        grid->on_get_error = make_closure<&road_list::get_error>(this);
        grid->on_add_item = make_closure<&road_list::add_item>(this);
        grid->on_del_item = make_closure<&road_list::del_item>(this);
        grid->on_up_item = make_closure<&road_list::up_item>(this);
        grid->on_down_item = make_closure<&road_list::down_item>(this);
        grid->on_move_item = make_closure<&road_list::move_item>(this);
        update();
    }
    void add_columns()
    {
        f_grid->get_fixed_cols()->set_count(1);
        auto *const number = f_grid->get_fixed_cols()->get_col(0);
        number->set_col_type(c_item_col_row);
        number->set_width_type(c_item_width_fixed);
        number->set_width(0.5);
        number->set_capt_type(c_item_capt_text);
        number->set_caption("#");

        add(c_item_col_mark, "Mark", 0.6)->set_width_type(c_item_width_fixed);
        auto *const drawn = add(c_item_col_bit, "Drawn", 0.7);
        drawn->set_width_type(c_item_width_fixed);
        drawn->on_get_bit = make_closure<&road_list::get_drawn>(this);
        drawn->on_set_bit = make_closure<&road_list::set_drawn>(this);
        auto *const key = add(c_item_col_str, "Key", 1.0);
        key->on_get_str = make_closure<&road_list::get_key>(this);
        key->on_set_str = make_closure<&road_list::set_key>(this);
        auto *const name = add(c_item_col_wstr, "Name", 2.0);
        name->on_get_wstr = make_closure<&road_list::get_name>(this);
        name->on_set_wstr = make_closure<&road_list::set_name>(this);
        auto *const lanes = add(c_item_col_int, "Lanes", 0.7);
        lanes->on_get_int = make_closure<&road_list::get_lanes>(this);
        lanes->on_set_int = make_closure<&road_list::set_lanes>(this);
        auto *const width = add(c_item_col_dbl, "Width", 1.0);
        width->on_get_dbl = make_closure<&road_list::get_width>(this);
        width->on_set_dbl = make_closure<&road_list::set_width>(this);
        auto *const surface = add(c_item_col_cbx, "Surface", 1.4);
        surface->on_get_cbx = make_closure<&road_list::get_surface>(this);
        surface->on_set_cbx = make_closure<&road_list::set_surface>(this);
        auto *const style = add(c_item_col_wstr_cbx, "Style", 1.4);
        style->on_get_wstr = make_closure<&road_list::get_style>(this);
        style->on_get_correct = make_closure<&road_list::get_correct>(this);
        style->on_get_cbx = make_closure<&road_list::fill_styles>(this);
        style->on_set_cbx = make_closure<&road_list::set_style>(this);
        update();
    }
    void add_name_column()
    {
        auto *const name = add(c_item_col_wstr, "Name", 1.0);
        name->on_get_wstr = make_closure<&road_list::get_name>(this);
        name->on_set_wstr = make_closure<&road_list::set_name>(this);
        update();
    }
    void put(std::vector<road> roads)
    {
        f_roads = std::move(roads);
        update();
    }

private:
    Tvx_item_column *add(int type, char const *caption, double width)
    {
        auto *const columns = f_grid->get_columns();
        columns->set_count(columns->get_count() + 1);
        auto *const column = columns->get_col(columns->get_count() - 1);
        column->set_col_type(type);
        column->set_capt_type(c_item_capt_text);
        column->set_caption(caption);
        column->set_width(width);
        return column;
    }
    void update()
    {
        f_grid->set_item_count(static_cast<int>(f_roads.size()));
        f_grid->update_controls();
    }
    road &at(int row) { return f_roads.at(static_cast<std::size_t>(row)); }

    bool get_sel(TObject *, int row) { return at(row).marked; }
    void set_sel(TObject *, int row, bool value) { at(row).marked = value; }
    bool get_error(TObject *, int row) { return at(row).lanes < 1; }
    void add_item(TObject *)
    {
        f_roads.push_back({"", L"new road", true, 2, 0.4, 0, L"plain", false});
        f_grid->set_item_count(static_cast<int>(f_roads.size()));
    }
    void del_item(TObject *)
    {
        std::erase_if(f_roads, [](road const &r) { return r.marked; });
        f_grid->set_item_count(static_cast<int>(f_roads.size()));
    }
    void up_item(TObject *)
    {
        for (std::size_t i = 1; i < f_roads.size(); ++i) {
            if (f_roads[i].marked && !f_roads[i - 1].marked)
                std::swap(f_roads[i], f_roads[i - 1]);
        }
    }
    void down_item(TObject *)
    {
        for (std::size_t i = f_roads.size(); i-- > 1;) {
            if (f_roads[i - 1].marked && !f_roads[i].marked)
                std::swap(f_roads[i], f_roads[i - 1]);
        }
    }
    void move_item(TObject *, int from, int to)
    {
        road const moved = at(from);
        f_roads.erase(f_roads.begin() + from);
        f_roads.insert(f_roads.begin() + to, moved);
    }

    bool get_drawn(Tvx_item_column *, int row) { return at(row).drawn; }
    void set_drawn(Tvx_item_column *, int row, bool value) { at(row).drawn = value; }
    char const *get_key(Tvx_item_column *, int row) { return at(row).key.c_str(); }
    void set_key(Tvx_item_column *, int row, char const *text) { at(row).key = text; }
    wchar_t const *get_name(Tvx_item_column *, int row) { return at(row).name.c_str(); }
    void set_name(Tvx_item_column *, int row, wchar_t const *text) { at(row).name = text; }
    int get_lanes(Tvx_item_column *, int row) { return at(row).lanes; }
    void set_lanes(Tvx_item_column *, int row, int value) { at(row).lanes = value; }
    double get_width(Tvx_item_column *, int row) { return at(row).width; }
    void set_width(Tvx_item_column *, int row, double value) { at(row).width = value; }
    void get_surface(Tvx_item_column *, int row, Tvx_combo_box *combo)
    {
        combo->SetStyle(csDropDownList);
        for (wchar_t const *surface : c_surfaces)
            combo->GetItems()->Add(surface);
        combo->SetItemIndex(at(row).surface);
    }
    void set_surface(Tvx_item_column *, int row, Tvx_combo_box *combo)
    {
        at(row).surface = combo->GetItemIndex();
    }
    wchar_t const *get_style(Tvx_item_column *, int row) { return at(row).style.c_str(); }
    bool get_correct(Tvx_item_column *, int row)
    {
        return std::find(c_styles.begin(), c_styles.end(), at(row).style) != c_styles.end();
    }
    void fill_styles(Tvx_item_column *, int row, Tvx_combo_box *combo)
    {
        combo->SetStyle(csDropDown);
        for (wchar_t const *style : c_styles)
            combo->GetItems()->Add(style);
        combo->SetText(at(row).style);
    }
    void set_style(Tvx_item_column *, int row, Tvx_combo_box *combo)
    {
        at(row).style = combo->GetText().str();
    }

    Tvx_item_grid *f_grid = nullptr;
    std::vector<road> f_roads;
};

template <class Panel>
road_list *add_panel(TWinControl *page, wchar_t const *caption, TRect const &rect)
{
    auto *const label = new TLabel(page);
    label->SetParent(page);
    label->SetCaption(caption);
    label->SetLeft(rect.Left);
    label->SetTop(rect.Top);
    auto *const panel = new Panel(page);
    panel->SetParent(page);
    panel->SetBounds(rect.Left, rect.Top + 20, rect.Width(), rect.Height() - 20);
    panel->load_res();
    panel->get_item_grid()->SetAccessibleName(caption);
    auto *const roads = new road_list(page);
    roads->show(panel->get_item_grid());
    return roads;
}

void fill_page(TWinControl *page)
{
    auto *const all =
        add_panel<Tvx_item_panel_adv>(page, L"All types of columns", Bounds(c_left, 8, c_width, 210));
    all->add_columns();
    all->put({{"A7", L"Motorway north", true, 6, 1.2, 0, L"cased", false},
              {"B27", L"Federal road along the river", true, 4, 0.8, 1, L"plain", true},
              {"L1075", L"Улица Ленина", false, 2, 0.35, 0, L"dotted", false},
              {"K3", L"Forest road", true, 0, 1.0 / 3, 2, L"dashed", false},
              {"X", L"Track", false, 1, 1e300, 2, L"plain", false}});
    auto *const files = add_panel<Tvx_scn_panel>(page, L"List of files", Bounds(c_left, 230, 250, 190));
    files->add_name_column();
    files->put({{"", L"roads", true, 1, 1, 0, L"", false}, {"", L"rivers", true, 1, 1, 0, L"", true}});
    auto *const plain =
        add_panel<Tvx_item_panel>(page, L"Without items", Bounds(c_left + 275, 230, 250, 190));
    plain->add_name_column();
    auto *const many = add_panel<Tvx_item_panel>(page, L"Many items", Bounds(c_left + 550, 230, 250, 190));
    many->add_name_column();
    std::vector<road> roads;
    for (int i = 0; i < 1000; ++i)
        roads.push_back({"", L"Road " + std::to_wstring(i + 1), true, 1, 1, 0, L"", i % 5 == 2});
    many->put(std::move(roads));
}

gallery_page const g_page(32, L"Item grids", &fill_page);
} // namespace
