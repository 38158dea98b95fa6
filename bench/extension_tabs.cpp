// Tabs of extensions: 20 services of one editor each against the same editors made on the same tabs directly,
// and what services that show nothing cost when the layer changes. Measured in turn in one run, by the
// processor's time.

#include "extension/binding/layer_2d_editor_extension_service.h"
#include "extension/binding/layer_2d_editor_extension_service_visitor.h"
#include "extension/binding/service_factory.h"
#include "extension/binding/style_editor.h"
#include "extension/binding/style_editor_visitor.h"
#include "extension/service/lr2d_edit_extensions.h"
#include "plain_dialog.h"
#include "style_manager/shell/typed_stl_mngr_edits.h"

#include "platform/basic/vx_service_registry.h"
#include "platform/styles/vxk_styles.h"
#include "platform/toolkit/controls/page_control.h"
#include "platform/toolkit/core/form.h"

#include <QApplication>

#include <array>
#include <cstdio>
#include <memory>

namespace {
constexpr int c_services = 20;
constexpr int c_rounds = 15;
constexpr int c_changes = 100'000;
constexpr wchar_t c_category[] = L"bench/layer/2d";

class model final : public vx::style_editor_impl
{
public:
    void with_caption(vx::string_visitor visitor) override { visitor.visit(L"Styles"); }
    void *style_manager() override { return manager; }
    void *manager = nullptr;
};
class service final : public vx::layer_2d_editor_extension_service_impl
{
public:
    void with_style_editor(vx::style_editor_visitor visitor) override { visitor.visit(editor); }
    void set_layer(Ivx_layer *layer) override { changes += layer != nullptr; }
    model editor;
    long changes = 0;
};
class factory final : public vx::service_factory_impl
{
public:
    void with_services(vx::bundle_context, vx::service_visitor visitor) override
    {
        vx::layer_2d_editor_extension_service_visitor const receiver =
            vx_layer_2d_editor_extension_service_visitor_interface_specialize(
                vx_service_visitor_interface_generalize(visitor));
        for (auto &offered : services)
            receiver.visit(offered);
    }
    std::array<service, c_services> services;
};

struct window
{
    window()
    {
        form.SetBounds(50, 50, 480, 640);
        pages.SetParent(&form);
        pages.SetAlign(alClient);
        form.Show();
        QApplication::processEvents();
    }
    TForm form{nullptr};
    TPageControl pages{&form};
};

template <class Edit>
void add(TTabSheet *sheet, void *manager)
{
    auto *const edit = new Edit(sheet);
    edit->SetParent(sheet);
    edit->create();
    edit->load_res();
    edit->SetAlign(alClient);
    edit->SetVisible(manager != nullptr);
    edit->set_stl_mngr(manager);
    edit->enable_selection_style(false);
    edit->update_controls();
}

/// As somebody would write it who knows the editors.
double directly(void *manager)
{
    window at;
    double const start = processor_ms();
    for (int i = 0; i < c_services; ++i) {
        auto *const sheet = new TTabSheet(&at.form);
        sheet->SetPageControl(&at.pages);
        sheet->SetCaption(L"Styles");
        add<Tvx_pnt_stl_mngr_edit>(sheet, nullptr);
        add<Tvx_pln_stl_mngr_edit>(sheet, nullptr);
        add<Tvx_pgn_stl_mngr_edit>(sheet, manager);
    }
    QApplication::processEvents();
    return processor_ms() - start;
}

double by_services()
{
    window at;
    double const start = processor_ms();
    Tvx_lr2d_edit_extensions::custom_pages const tabs(&at.pages, c_category);
    QApplication::processEvents();
    return processor_ms() - start;
}

double changes_by_tabs(Tvx_lr2d_custom_pages &tabs, Ivx_layer *layer)
{
    double const start = processor_ms();
    for (int i = 0; i < c_changes; ++i)
        tabs.set_layer(layer);
    return processor_ms() - start;
}

double changes_by_hand(factory &of, Ivx_layer *layer)
{
    std::array<vx::layer_2d_editor_extension_service, c_services> handles;
    for (std::size_t i = 0; i < handles.size(); ++i)
        handles[i] = of.services[i];
    double const start = processor_ms();
    for (int i = 0; i < c_changes; ++i)
        for (auto const &handle : handles)
            handle.set_layer(layer);
    return processor_ms() - start;
}
} // namespace

int main(int argc, char **argv)
{
    QApplication const application(argc, argv);
    vx_service_registry_with_services(L"", {}); // nothing: the bundles load with the first category
    factory all;
    vx_service_registry_add_factory(c_category, all);
    void *const manager = vx_stl_mngr_create("pgn_style");
    for (auto &offered : all.services)
        offered.editor.manager = manager;
    auto const open = medians(
        2, c_rounds, [&] { return by_services(); }, [&] { return directly(manager); });
    std::printf("20 services of one editor each: %.1f ms, the editors made directly %.1f ms: %.2f\n", open[0],
                open[1], open[0] / open[1]);

    for (auto &offered : all.services)
        offered.editor.manager = nullptr;
    window at;
    Tvx_lr2d_edit_extensions::custom_pages tabs(&at.pages, c_category);
    int dummy = 0; // no service looks at it
    auto *const layer = reinterpret_cast<Ivx_layer *>(&dummy);
    auto const change = medians(
        1, c_rounds, [&] { return changes_by_tabs(tabs, layer); },
        [&] { return changes_by_hand(all, layer); });
    double const calls = static_cast<double>(c_changes) * c_services;
    std::printf("a layer change for 20 that show nothing: %.1f ns a service, bare calls %.1f ns\n",
                change[0] * 1e6 / calls, change[1] * 1e6 / calls);
    vx_service_registry_remove_factory(c_category, all);
    return 0;
}
