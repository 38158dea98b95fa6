#include "desk_panel.h"
#include "extension/binding/docker_visitor.h"
#include "extension/binding/dtld_editor.h"
#include "extension/binding/dtld_editor_visitor.h"
#include "extension/binding/layer_2d_editor_extension_service.h"
#include "extension/binding/layer_2d_editor_extension_service_visitor.h"
#include "extension/binding/referent_object.h"
#include "extension/binding/service_factory.h"
#include "extension/binding/style_editor.h"
#include "extension/binding/style_editor_data_source_visitor.h"
#include "extension/binding/style_editor_visitor.h"
#include "extension/binding/style_list_editor.h"
#include "extension/binding/style_list_editor_visitor.h"
#include "extension/binding/text_settings_editor.h"
#include "extension/binding/text_settings_editor_visitor.h"
#include "field_table.h"

#include "platform/base/string_adp.h"
#include "platform/basic/vx_bundle.h"
#include "platform/data/vx_attr_data.h"
#include "platform/layers/vx_lr.h"
#include "platform/layers/vx_shp_lr2d.h"
#include "platform/styles/vx_stl_mngr.h"
#include "platform/styles/vx_stl_mngr_list.h"

#include <map>
#include <string>

/// A desk beside the layer editor's own pages, for vector layers: the style over the fields that tell
/// something, labels and texts over the same fields, a shelf of styles that goes from layer to layer, and a
/// panel with what is to be known of the layer.
namespace {
/// The shelf: a list of style managers for each geometry, which lasts as long as the program.
class style_shelf
{
public:
    /// For managers like this one; null for null.
    void *list_for(void const *manager)
    {
        char const *const type = manager ? vx_stl_mngr_get_style_type(manager) : nullptr;
        if (!type)
            return nullptr;
        auto &found = f_shelves[type];
        if (!found.list)
            found.list = vx_stl_mngr_list_create(type);
        return found.list;
    }
    void put(void const *manager, std::wstring const &name)
    {
        void *const list = list_for(manager);
        if (!list)
            return;
        auto &shelf = f_shelves[vx_stl_mngr_get_style_type(manager)];
        // The first place is there from the beginning, with nothing in it.
        void *const added = shelf.is_used ? vx_stl_mngr_list_add(list) : vx_stl_mngr_list_get_mngr(list, 0);
        shelf.is_used = true;
        vx_stl_mngr_assign(added, manager);
        vx_stl_mngr_set_name_w(added, name.c_str());
        vx_stl_mngr_list_set_active_by_mngr(list, added);
    }

private:
    struct shelf
    {
        void *list = nullptr;
        bool is_used = false;
    };
    std::map<std::string, shelf> f_shelves;
};

style_shelf &the_shelf()
{
    static auto &shelf = *new style_shelf;
    return shelf;
}

class desk;

/// What the models of all tabs have alike.
template <class Impl, desk_text Caption>
class tab : public Impl
{
public:
    explicit tab(desk &owner) : f_desk(owner) {}

    void with_caption(vx::string_visitor visitor) override { visitor.visit(desk_say(Caption).c_str()); }
    void with_data_source(vx::style_editor_data_source_visitor visitor) override;
    void reattach(vx::element_view view) override { f_view = view; }
    void update() { f_view.update_data(); }

protected:
    ~tab() = default;
    desk &f_desk;

private:
    vx::element_view f_view;
};

class fields_tab final : public tab<vx::style_editor_impl, desk_text::fields>
{
public:
    using tab::tab;
    void *style_manager() override;
    void *table_data() override;
    bool use_selection_styles() override;
    bool use_rules() override { return true; }
    void commit() override;
};

class shelf_tab final : public tab<vx::style_list_editor_impl, desk_text::shelf>
{
public:
    using tab::tab;
    void *style_manager_list() override;
    void *table_data() override;
    bool use_rules() override { return true; }
};

class labels_tab final : public tab<vx::dtld_editor_impl, desk_text::labels>
{
public:
    using tab::tab;
    Ivx_layer *dtld_layer() override;
};

class texts_tab final : public tab<vx::text_settings_editor_impl, desk_text::texts>
{
public:
    using tab::tab;
    void *text_settings() override;
};

/// The service of one window of the editor. It lives as long as that holds it.
class desk final : public vx::layer_2d_editor_extension_service_impl, public vx::referent_object
{
public:
    vx::referent as_referent() override { return static_cast<vx::referent_object &>(*this); }

    /// The editor's working copy, or null. The former one is still there, and not to be touched afterwards.
    void set_layer(Ivx_layer *layer) override
    {
        f_layer = layer && vx_lr2d_is_shp(layer) ? layer : nullptr;
        f_table.set_data(f_layer ? vx_shp_lr2d_get_attr_data_ptr(f_layer) : nullptr);
        f_panel.set_visible(f_layer != nullptr);
        update_tabs();
    }
    void with_style_editor(vx::style_editor_visitor visitor) override { visitor.visit(f_fields); }
    void with_style_list_editor(vx::style_list_editor_visitor visitor) override { visitor.visit(f_shelf); }
    void with_dtld_editor(vx::dtld_editor_visitor visitor) override { visitor.visit(f_labels); }
    void with_text_settings_editor(vx::text_settings_editor_visitor visitor) override
    {
        visitor.visit(f_texts);
    }
    void with_docker(vx::docker_visitor visitor) override { visitor.visit(L"layer_desk", f_panel); }

    [[nodiscard]] Ivx_layer *layer() const { return f_layer; }
    [[nodiscard]] void *manager() const { return f_layer ? vx_shp_lr2d_get_stl_mngr_ptr(f_layer) : nullptr; }
    [[nodiscard]] void *table_data() const { return f_layer ? vx_lr2d_get_data_ptr(f_layer) : nullptr; }
    [[nodiscard]] field_table &fields() { return f_table; }

protected:
    /// The last window that held it has gone.
    void on_unreferenced() override { delete this; }

private:
    ~desk() = default;

    void update_tabs()
    {
        f_fields.update();
        f_shelf.update();
        f_labels.update();
        f_texts.update();
        f_panel.update();
    }
    [[nodiscard]] std::wstring say(desk_text line)
    {
        if (!f_layer)
            return {};
        switch (line) {
        case desk_text::objects:
            return std::to_wstring(f_table.record_count());
        case desk_text::field_count:
            return desk_say(desk_text::telling, std::to_wstring(f_table.telling_count()),
                            std::to_wstring(f_table.field_count()));
        default:
            break;
        }
        Tvx_box_d2 box{};
        if (!vx_attr_data_get_known_extent(vx_shp_lr2d_get_attr_data_ptr(f_layer), &box))
            return {};
        return L"x: " + desk_say(desk_text::numbers, desk_number(box.min_x), desk_number(box.max_x)) +
               L", y: " + desk_say(desk_text::numbers, desk_number(box.min_y), desk_number(box.max_y));
    }
    void put_on_shelf()
    {
        if (!f_layer)
            return;
        std::wstring name;
        vx_lr2d_get_wcaption(f_layer, Tvx_std_wstring_adapter(name));
        the_shelf().put(manager(), name);
        f_shelf.update();
    }
    void take_from_shelf()
    {
        void *const list = the_shelf().list_for(manager());
        if (!list)
            return;
        vx_stl_mngr_assign(manager(), vx_stl_mngr_list_get_active_mngr(list));
        vx_lr_post_update(f_layer); // all pages show it, the desk's own too
    }

    Ivx_layer *f_layer = nullptr;
    field_table f_table;
    fields_tab f_fields{*this};
    shelf_tab f_shelf{*this};
    labels_tab f_labels{*this};
    texts_tab f_texts{*this};
    desk_panel f_panel{{
        .say = [this](desk_text line) { return say(line); },
        .get_only_telling = [this] { return f_table.get_only_telling(); },
        .set_only_telling =
            [this](bool only) {
                f_table.set_only_telling(only);
                update_tabs();
            },
        .put = [this] { put_on_shelf(); },
        .take = [this] { take_from_shelf(); },
    }};
};

template <class Impl, desk_text Caption>
void tab<Impl, Caption>::with_data_source(vx::style_editor_data_source_visitor visitor)
{
    if (f_desk.layer())
        visitor.visit(f_desk.fields());
}

void *fields_tab::style_manager()
{
    return f_desk.manager();
}
void *fields_tab::table_data()
{
    return f_desk.table_data();
}
bool fields_tab::use_selection_styles()
{
    return f_desk.layer() && vx_lr_get_own_selected_style_flag(f_desk.layer());
}
void fields_tab::commit()
{
    if (f_desk.layer())
        vx_lr_post_update(f_desk.layer()); // the page of styles shows it too
}

void *shelf_tab::style_manager_list()
{
    return the_shelf().list_for(f_desk.manager());
}
void *shelf_tab::table_data()
{
    return f_desk.table_data();
}

Ivx_layer *labels_tab::dtld_layer()
{
    return f_desk.layer() ? vx_shp_lr2d_get_text_layer_ptr(f_desk.layer()) : nullptr;
}

void *texts_tab::text_settings()
{
    return f_desk.layer() ? vx_shp_lr2d_get_txt_settings(f_desk.layer()) : nullptr;
}

/// Asked once for each window of the editor.
class desk_factory final : public vx::service_factory_impl
{
public:
    void with_services(vx::bundle_context, vx::service_visitor visitor) override
    {
        vx::layer_2d_editor_extension_service_visitor const receiver =
            vx_layer_2d_editor_extension_service_visitor_interface_specialize(
                vx_service_visitor_interface_generalize(visitor));
        if (!receiver)
            return; // an editor of another revision
        // Held while it is handed on: it ends here if nobody wanted it.
        auto *const service = new desk;
        service->retain({});
        receiver.visit(static_cast<vx::layer_2d_editor_extension_service_impl &>(*service));
        service->release({});
    }
};
} // namespace

VX_C_API bool vxk_bundle_entry(Tvx_bundle_context const *context)
{
    static desk_factory factory;
    return context && context->version == c_vx_bundle_version &&
           context->add_service_factory(context->host, L"vxk/layer/2d", factory);
}
