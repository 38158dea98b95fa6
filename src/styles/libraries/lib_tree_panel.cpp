#include "styles/libraries/lib_tree_panel.h"

#include "captions/libraries.h"
#include "controls/forms/event_off.h"

#include "platform/basic/vx_res.h"
#include "platform/styles/vx_style_lib.h"

namespace {
/// The first node that matches, a node before its children.
template <class Matches>
TTreeNode *find_node(TTreeNode *node, Matches const &matches)
{
    if (matches(node->GetData()))
        return node;
    for (int i = 0; i < node->GetCount(); ++i)
        if (TTreeNode *found = find_node(node->GetItem(i), matches))
            return found;
    return nullptr;
}
} // namespace

Tvx_lib_tree_panel::Tvx_lib_tree_panel(TComponent *owner)
    : Tvx_panel(owner), f_tree(new Tvx_tree_view(this)),
      f_search(vx_style_item_search_str_create(), &vx_style_item_search_str_destroy)
{
    f_tree->SetParent(this);
    f_tree->SetAlign(alClient);
    f_tree->OnChange = make_closure<&Tvx_lib_tree_panel::on_tree_change>(this);
}

void Tvx_lib_tree_panel::load_res()
{
    f_tree->SetAccessibleName(vx_res_get_wstr(c_lib_tree));
}

void Tvx_lib_tree_panel::add_items(TTreeNode *parent, void *item)
{
    TTreeNode *const node = f_tree->GetItems()->AddChild(parent, vx_style_item_get_caption_w(item));
    node->SetData(item);
    void *const items = vx_style_item_get_style_items_ptr(item);
    unsigned const size = vx_style_items_get_size(items);
    for (unsigned i = 0; i < size; ++i)
        add_items(node, vx_style_items_get_style_item_ptr(items, i));
}

void Tvx_lib_tree_panel::fill_tree()
{
    vx::event_off const quiet(f_tree->OnChange);
    f_tree->GetItems()->BeginUpdate();
    f_tree->GetItems()->Clear();
    if (f_lib) {
        add_items(nullptr, vx_style_lib_get_root_item_ptr(f_lib));
        f_tree->GetItems()->GetFirstNode()->Expand(false);
    }
    f_tree->GetItems()->EndUpdate();
    f_tree->SetSelected(nullptr);
}

void Tvx_lib_tree_panel::update_controls()
{
    fill_tree();
}

void *Tvx_lib_tree_panel::search_str_first(wchar_t const *text)
{
    return vx_style_item_search_str_get_first(f_search.get(), vx_style_lib_get_root_item_ptr(f_lib), text);
}

void *Tvx_lib_tree_panel::search_str_next()
{
    return vx_style_item_search_str_get_next(f_search.get());
}

template <class Matches>
void Tvx_lib_tree_panel::select_first(Matches matches)
{
    TTreeNode *const root = f_lib ? f_tree->GetItems()->GetFirstNode() : nullptr;
    TTreeNode *const node = root ? find_node(root, matches) : nullptr;
    vx::event_off const quiet(f_tree->OnChange);
    f_tree->SetSelected(node);
    if (node)
        node->MakeVisible();
}

void Tvx_lib_tree_panel::set_style_item_selected(void *item)
{
    select_first([item](void const *data) { return data == item; });
}

void Tvx_lib_tree_panel::set_index_ver(int index, int version)
{
    select_first([=](void const *data) {
        return vx_style_item_get_index(data) == index && vx_style_item_get_version(data) == version;
    });
}

bool Tvx_lib_tree_panel::get_index_ver(int &index, int &version) const
{
    TTreeNode const *const node = f_lib ? f_tree->GetSelected() : nullptr;
    if (!node)
        return false;
    index = vx_style_item_get_index(node->GetData());
    version = vx_style_item_get_version(node->GetData());
    return true;
}

void Tvx_lib_tree_panel::on_tree_change(TObject * /*sender*/, TTreeNode * /*node*/)
{
    on_changed(this);
}
