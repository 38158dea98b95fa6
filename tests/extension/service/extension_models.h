#pragma once

#include "extension/vxk_extension.h"
#include "user_input/user_input.h"

#include "platform/base/owned.h"
#include "platform/basic/vx_fault.h"
#include "platform/basic/vx_service_registry.h"
#include "platform/styles/vxk_styles.h"
#include "platform/toolkit/controls/page_control.h"
#include "platform/toolkit/core/form.h"

#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

namespace input = vx::user_input;

/// Models of extensions as a module would write them, in the open for tests. What is called on one that has
/// ended counts as touched: its memory stays as long as the test.
namespace models {
inline int touched_dead = 0;

class values final : public vx::style_editor_data_source_impl, public vx::referent_object
{
public:
    vx::referent as_referent() override { return static_cast<vx::referent_object &>(*this); }
    int property_count() override { return properties; }
    int item_count() override { return 3; }
    bool property_used(int property) override { return property != 2; }
    bool property_floating(int property) override { return property == 1; }
    void with_property_name(int property, vx::string_visitor visitor) override
    {
        visitor.visit(property == 0 ? L"NAME" : property == 1 ? L"SIZE" : L"OTHER");
    }
    void with_property_caption(int property, vx::string_visitor visitor) override
    {
        visitor.visit(property == 0 ? L"Name" : L"Size");
    }
    bool item_property_defined(int item, int property) override { return property < 2 && item != 1; }
    void with_item_property_text(int item, int property, vx::string_visitor visitor) override
    {
        visitor.visit((std::to_wstring(item) + L"/" + std::to_wstring(property)).c_str());
    }
    double item_property_value(int item, int property) override { return item + property / 10.0; }
    bool property_stats(int property, double *min, double *max, double *mean, double *deviation) override
    {
        *min = 1, *max = 2, *mean = 3, *deviation = 4;
        return property == 1;
    }

    int properties = 3;
};

/// What all editors have alike.
template <class Impl>
class editor : public Impl
{
public:
    explicit editor(wchar_t const *text) : caption(text) {}

    void with_caption(vx::string_visitor visitor) override
    {
        touch();
        visitor.visit(caption.c_str());
    }
    void with_data_source(vx::style_editor_data_source_visitor visitor) override
    {
        if (source)
            visitor.visit(static_cast<vx::style_editor_data_source_impl &>(*source));
    }
    void commit() override { ++commits; }
    void reattach(vx::element_view new_view) override
    {
        touch();
        auto const old = view;
        view = new_view;
        if (on_reattach)
            on_reattach(new_view ? new_view : old);
    }
    void update() { view.update_data(); }

    std::wstring caption;
    void *shown = nullptr; ///< the manager, list or settings
    bool selection = false;
    bool dead = false;
    values *source = nullptr;
    vx::element_view view;
    std::function<void(vx::element_view)> on_reattach;
    int asked = 0;
    int commits = 0;

protected:
    ~editor() = default;
    void touch()
    {
        ++asked;
        touched_dead += dead;
    }
    void *show()
    {
        touch();
        return shown;
    }
};

class style_editor final : public editor<vx::style_editor_impl>
{
public:
    using editor::editor;
    void *style_manager() override
    {
        if (throws)
            throw std::runtime_error("no manager");
        return show();
    }
    bool use_selection_styles() override { return selection; }
    bool use_rules() override { return rules; }
    bool rules = true;
    bool throws = false;
};
class style_list_editor final : public editor<vx::style_list_editor_impl>
{
public:
    using editor::editor;
    void *style_manager_list() override { return show(); }
    bool use_selection_styles() override { return selection; }
    bool use_rules() override { return true; }
};
class dtld_editor final : public editor<vx::dtld_editor_impl>
{
public:
    using editor::editor;
    Ivx_layer *dtld_layer() override { return static_cast<Ivx_layer *>(show()); }
};
class text_settings_editor final : public editor<vx::text_settings_editor_impl>
{
public:
    using editor::editor;
    void *text_settings() override { return show(); }
    bool use_selection_styles() override { return selection; }
};

class docker final : public vx::docker_impl
{
public:
    explicit docker(wchar_t const *text) : caption(text) {}
    void with_caption(vx::string_visitor visitor) override
    {
        touched_dead += dead;
        visitor.visit(caption.c_str());
    }
    void with_element(vx::element_visitor visitor) override
    {
        touched_dead += dead;
        if (element)
            element(visitor);
    }
    bool visible() override { return shown; }
    void reattach(vx::element_view new_view) override
    {
        touched_dead += dead;
        view = new_view;
    }

    std::wstring caption;
    std::function<void(vx::element_visitor)> element;
    bool shown = true;
    bool dead = false;
    vx::element_view view;
};

class service final : public vx::layer_2d_editor_extension_service_impl, public vx::referent_object
{
public:
    explicit service(int asked_as = 1) : f_priority(asked_as) {}

    vx::referent as_referent() override { return static_cast<vx::referent_object &>(*this); }
    int priority() override { return f_priority; }
    void set_layer(Ivx_layer *layer) override
    {
        ++layers;
        if (on_layer)
            on_layer(layer);
    }
    void with_style_editor(vx::style_editor_visitor visitor) override
    {
        for (auto &model : style_editors)
            visitor.visit(*model);
        if (after_styles)
            after_styles();
    }
    void with_style_list_editor(vx::style_list_editor_visitor visitor) override
    {
        for (auto &model : lists)
            visitor.visit(*model);
    }
    void with_dtld_editor(vx::dtld_editor_visitor visitor) override
    {
        for (auto &model : labels)
            visitor.visit(*model);
    }
    void with_text_settings_editor(vx::text_settings_editor_visitor visitor) override
    {
        for (auto &model : texts)
            visitor.visit(*model);
    }
    void with_docker(vx::docker_visitor visitor) override
    {
        for (auto &[name, model] : dockers)
            visitor.visit(name, *model);
    }
    /// The service ends, with its models.
    void die()
    {
        for (auto &model : style_editors)
            model->dead = true;
        for (auto &[name, model] : dockers)
            model->dead = true;
        invalidate_holders();
    }
    style_editor &add_style(wchar_t const *caption, void *manager = nullptr)
    {
        style_editors.push_back(std::make_unique<style_editor>(caption));
        style_editors.back()->shown = manager;
        return *style_editors.back();
    }
    docker &add_docker(wchar_t const *name, wchar_t const *caption)
    {
        dockers.emplace_back(name, std::make_unique<docker>(caption));
        return *dockers.back().second;
    }

    std::vector<std::unique_ptr<style_editor>> style_editors;
    std::vector<std::unique_ptr<style_list_editor>> lists;
    std::vector<std::unique_ptr<dtld_editor>> labels;
    std::vector<std::unique_ptr<text_settings_editor>> texts;
    std::vector<std::pair<wchar_t const *, std::unique_ptr<docker>>> dockers;
    std::function<void(Ivx_layer *)> on_layer;
    std::function<void()> after_styles;
    int layers = 0;

private:
    int f_priority;
};

class factory final : public vx::service_factory_impl
{
public:
    void with_services(vx::bundle_context, vx::service_visitor visitor) override
    {
        kept = vx_layer_2d_editor_extension_service_visitor_interface_specialize(
            vx_service_visitor_interface_generalize(visitor));
        for (auto *const offered : services)
            kept.visit(static_cast<vx::layer_2d_editor_extension_service_impl &>(*offered));
        if (after)
            after();
    }

    std::vector<service *> services;
    std::function<void()> after;
    vx::layer_2d_editor_extension_service_visitor kept;
};
} // namespace models

inline std::vector<std::wstring> told; ///< reasons that the user was told

/// A window with pages, and a registry in which services wait.
class extension_fixture : public testing::Test
{
protected:
    using manager = vx::owned<void, &vx_stl_mngr_destroy>;
    static constexpr wchar_t c_category[] = L"test/layer/2d";

    extension_fixture()
    {
        models::touched_dead = 0;
        told.clear();
        f_handler = vx_reason_set_handler([](wchar_t const *reason) { told.push_back(reason); });
        vx_service_registry_add_factory(c_category, registered);
        form.SetBounds(50, 50, 700, 500);
        pages.SetParent(&form);
        pages.SetAlign(alClient);
        form.Show();
    }
    ~extension_fixture() override
    {
        custom.reset();
        vx_service_registry_remove_factory(c_category, registered);
        EXPECT_EQ(models::touched_dead, 0);
        vx_reason_set_handler(f_handler);
    }

    void open(std::initializer_list<models::service *> services)
    {
        registered.services = services;
        custom = std::make_unique<Tvx_lr2d_edit_extensions::custom_pages>(&pages, c_category);
        input::wait_idle();
    }
    /// Captions of the tabs that are seen.
    [[nodiscard]] std::vector<std::wstring> tabs() const
    {
        std::vector<std::wstring> result;
        for (int i = 0; i < pages.GetPageCount(); ++i)
            if (pages.GetPages(i)->GetTabVisible())
                result.push_back(pages.GetPages(i)->GetCaption().c_str());
        return result;
    }
    template <class View>
    [[nodiscard]] View *view(int page) const
    {
        auto *const sheet = pages.GetPages(page);
        for (int i = 0; i < sheet->GetComponentCount(); ++i)
            if (auto *const found = dynamic_cast<View *>(sheet->GetComponents(i)))
                return found;
        return nullptr;
    }

    manager points{vx_stl_mngr_create("pnt_style")};
    manager lines{vx_stl_mngr_create("pln_style")};
    manager areas{vx_stl_mngr_create("pgn_style")};
    models::factory registered;
    TForm form{nullptr};
    TPageControl pages{&form};
    std::unique_ptr<Tvx_lr2d_edit_extensions::custom_pages> custom;

private:
    Tvx_reason_handler f_handler = nullptr;
};

using tab_list = std::vector<std::wstring>;
