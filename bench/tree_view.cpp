// A tree of 1,001,000 nodes, a thousand branches of a thousand each: a change of the selection, which tells
// every node, against a bare loop over the items that sets the same; what an update asks; what scrolling
// paints.

#include "controls/tree_view/virtual_tree_view.h"
#include "plain_dialog.h"

#include "platform/toolkit/bridge/qt_widgets.h"
#include "platform/toolkit/core/form.h"

#include <QApplication>
#include <QScrollBar>
#include <QTreeView>

#include <cstdio>
#include <memory>
#include <string>
#include <vector>

namespace {
constexpr int c_branches = 1000, c_leaves = 1000;

struct item
{
    int place = 0;
    bool selected = false;
    std::vector<item> items;
};

class sample final : public Tvx_abstract_item_model
{
public:
    sample()
    {
        root.items.resize(c_branches);
        for (item &branch : root.items) {
            branch.place = static_cast<int>(&branch - root.items.data());
            branch.items.resize(c_leaves);
        }
    }
    void init_index(Tvx_model_index &index, Tvx_model_index const &parent) override
    {
        ++asked;
        index.data = &of(parent).items[static_cast<std::size_t>(index.row)];
    }
    bool has_children(Tvx_model_index const &index) override { return !of(index).items.empty(); }
    int child_count(Tvx_model_index const &index) override
    {
        return static_cast<int>(of(index).items.size());
    }
    bool selected(Tvx_model_index const &index) override { return of(index).selected; }
    void select(Tvx_model_index const &index, bool on) override { of(index).selected = on; }
    void item_caption(Tvx_model_index const &index, Ivx_string_adp *caption) override
    {
        ++texts;
        vx_string_adp_feed(caption, (L"Item " + std::to_wstring(index.row)).c_str());
    }
    item &of(Tvx_model_index const &index) { return index.data ? *static_cast<item *>(index.data) : root; }

    item root;
    int asked = 0, texts = 0;
};

/// The same through the same interface, with the place of each item counted along.
void tell(Tvx_abstract_item_model *model, item &of, int level)
{
    for (std::size_t i = 0; i < of.items.size(); ++i) {
        void *const data = &of.items[i];
        model->select(Tvx_abstract_item_model::index(level, static_cast<int>(i), 0, &data),
                      of.items[i].selected);
        tell(model, of.items[i], level + 1);
    }
}
} // namespace

int main(int argc, char **argv)
{
    QApplication const application(argc, argv);
    sample model;
    TForm form(nullptr);
    form.SetBounds(50, 50, 500, 700);
    auto *const view = new Tvx_virtual_tree_view(&form);
    view->SetParent(&form);
    view->SetAlign(alClient);
    view->set_model(&model);
    view->update_controls();
    form.Show();
    QApplication::processEvents();
    TVirtualStringTree *const tree = view->get_tree();
    auto *const widget = vx_qt_as<QTreeView>(tree);
    std::printf("shown closed: asked about %d of %d items\n", model.asked, c_branches * (c_leaves + 1));
    for (int i = 0; i < c_branches; ++i)
        tree->SetExpanded(tree->GetChild(nullptr, i), true);
    QApplication::processEvents();
    model.asked = 0;
    double start = processor_ms();
    view->update_tree();
    std::printf("update of the whole tree: %.0f ms, asked about %d\n", processor_ms() - start, model.asked);

    int row = 0;
    auto const figures = medians(
        2, 15,
        [&] {
            double const begin = processor_ms();
            widget->selectionModel()->setCurrentIndex(widget->model()->index(++row, 0),
                                                      QItemSelectionModel::ClearAndSelect |
                                                          QItemSelectionModel::Rows);
            return processor_ms() - begin;
        },
        [&] {
            double const begin = processor_ms();
            tell(&model, model.root, 0);
            return processor_ms() - begin;
        });
    std::printf("a change of the selection %.2f ms, the bare loop %.2f ms, ratio %.2f, bound 2.00%s\n",
                figures[0], figures[1], figures[0] / figures[1],
                figures[0] <= 2 * figures[1] ? "" : " EXCEEDED");

    model.texts = 0;
    constexpr int c_steps = 200;
    start = processor_ms();
    for (int i = 0; i < c_steps; ++i) {
        widget->verticalScrollBar()->setValue(widget->verticalScrollBar()->value() + 20);
        QApplication::processEvents();
    }
    std::printf("%d steps of scrolling: %.2f ms and %d texts each, lines seen %d\n", c_steps,
                (processor_ms() - start) / c_steps, model.texts / c_steps,
                widget->viewport()->height() / widget->sizeHintForRow(0));
    return 0;
}
