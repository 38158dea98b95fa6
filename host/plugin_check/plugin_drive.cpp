#include "host/plugin_check/plugin_drive.h"

#include "extension/plugin/lr_2d_edit_plugin_module.h"
#include "extension/plugin/plugin_lr_tabsheet.h"
#include "layer_edit/page_set/lr2d_edit.h"

#include "platform/base/owned.h"
#include "platform/base/string_adp.h"
#include "platform/base/text_codec.h"
#include "platform/basic/vx_attrib_any_data.h"
#include "platform/basic/vx_bundle.h"
#include "platform/basic/vx_options.h"
#include "platform/layers/vx_shp_lr2d.h"
#include "platform/styles/vx_stl_mngr.h"
#include "platform/toolkit/core/application.h"
#include "platform/toolkit/core/form.h"
#include "platform/winapi/library.h"

#include <cstring>
#include <exception>
#include <memory>

namespace {
using owned_layer = vx::owned<Ivx_layer, &vx_lr2d_destroy>;
using owned_manager = vx::owned<void, &vx_stl_mngr_destroy>;
using owned_data = vx::owned<Tvx_attrib_any_data, &attrib_any_data_destroy>;

constexpr char const *c_layer_keys[] = {"shp_pnt_lr2d",
                                        "shp_pln_lr2d",
                                        "shp_pgn_lr2d",
                                        "rtr_lr2d",
                                        "tos_grid_lr2d",
                                        "tld_lr2d",
                                        "a key of somebody else's"};
constexpr char const *c_style_types[] = {"pnt_style", "pln_style", "pgn_style"};
constexpr TRect c_sizes[] = {{50, 50, 650, 450}, {50, 50, 250, 150}, {50, 50, 1250, 850}};

class drive
{
public:
    drive(std::wstring const &path, std::vector<std::wstring> const &files, module_report &report)
        : f_path(path), f_report(report)
    {
        Application->OnException = make_closure<&drive::on_exception>(this);
        f_form.SetBounds(50, 50, 600, 400);
        for (auto const *key : c_layer_keys)
            f_layers.emplace_back(vx_lr2d_create(key));
        for (auto const &file : files) {
            std::wstring error;
            owned_layer layer(vx_shp_lr2d_open(file.c_str(), Tvx_std_wstring_adapter(error)));
            if (layer)
                f_layers.push_back(std::move(layer));
            else
                f_report.fault("The layer cannot be opened: " + vx::text::wide_to_utf8(error));
        }
    }
    drive(drive const &) = delete;
    drive &operator=(drive const &) = delete;
    ~drive() { Application->OnException = {}; }

    void page();
    void style();
    void bundle();

private:
    void on_exception(TObject * /*sender*/, std::exception const *exception)
    {
        f_report.fault(std::string("It throws while ") + f_step + ": " +
                       (exception ? exception->what() : "no text"));
    }
    /// Says what is being done, so that a crash is known by it.
    void step(char const *what)
    {
        f_step = what;
        f_report.say(std::string("... ") + what);
        Application->ProcessMessages();
    }
    /// False where the module is left out by everybody.
    bool usable(Tvx_plugin_module const &module)
    {
        auto const *const revision = static_cast<int const *>(module.get_proc_address("vxk_plugin_revision"));
        f_report.say("It speaks revision " + std::to_string(revision ? *revision : 1) +
                     (revision ? "" : " (it does not say: VXK_PLUGIN_MODULE)") + "; the library speaks " +
                     std::to_string(vxk_plugin_get_revision()) + ".");
        if (!module.ok())
            f_report.fault("It is left out, since it is of a later revision.");
        return module.ok();
    }
    void check_caption(char const *caption)
    {
        if (!caption || !*caption)
            f_report.fault("Its tab has no text.");
        else if (vx::text::wide_to_utf8(vx::text::utf8_to_wide(caption)) != caption)
            f_report.fault("The text of its tab is no UTF-8.");
        else
            f_report.say(std::string("Its tab is called \"") + caption + "\".");
    }
    /// Asked of the module itself: its class gives the file's name where there is none.
    void ask_caption(Tvx_plugin_module &module, char const *entry)
    {
        f_step = "giving its caption";
        auto *const get = reinterpret_cast<char const *(*)()>(module.get_proc_address(entry));
        if (!get)
            return;
        try {
            check_caption(get());
        } catch (...) {
            f_report.fault("It throws while giving its caption.");
        }
    }
    void show_pages(TPageControl &pages)
    {
        pages.SetParent(&f_form);
        pages.SetAlign(alClient);
        f_form.Show();
    }
    void size_window()
    {
        for (auto const &size : c_sizes) {
            f_form.SetBounds(size.Left, size.Top, size.Width(), size.Height());
            Application->ProcessMessages();
        }
    }

    std::wstring f_path;
    module_report &f_report;
    char const *f_step = "being loaded";
    TForm f_form{nullptr};
    std::vector<owned_layer> f_layers;
};

void drive::page()
{
    Tvx_lr_2d_edit_plugin_module module(f_path.c_str());
    if (!usable(module))
        return;
    ask_caption(module, "plugin_lr_2d_editor_get_caption");
    TPageControl pages(&f_form);
    show_pages(pages);
    void *instances[2] = {};
    std::unique_ptr<TTabSheet> sheets[2];
    for (int i = 0; i < 2; ++i) {
        step(i == 0 ? "making an instance" : "making a second instance beside it");
        instances[i] = module.create(nullptr, this);
        if (!instances[i])
            f_report.fault("It makes no instance.");
        sheets[i] = std::make_unique<TTabSheet>(nullptr);
        sheets[i]->SetPageControl(&pages);
        module.set_parent(instances[i], sheets[i]->GetHandle());
    }
    pages.SetActivePage(sheets[0].get());
    step("being without a layer");
    module.attach(instances[0], nullptr);
    module.update(instances[0]);
    step("getting layers of each kind, and losing them");
    for (auto const &layer : f_layers) {
        owned_layer copy(vx_lr2d_clone(layer.get()));
        module.attach(instances[0], copy.get());
        module.attach(instances[1], copy.get());
        Application->ProcessMessages();
        module.update(instances[0]);
        owned_layer const next(vx_lr2d_clone(layer.get()));
        module.attach(instances[0], next.get());
        module.attach(instances[1], nullptr);
        copy.reset(); // as an editor does: the former layer ends behind the change
        Application->ProcessMessages();
        module.update(instances[0]);
        module.attach(instances[0], nullptr);
    }
    step("being sized");
    size_window();
    auto const rect = sheets[0]->GetClientRect();
    module.set_pos(instances[0], {rect.Left, rect.Top, rect.Right, rect.Bottom});
    step("being ended");
    for (int i = 0; i < 2; ++i) {
        module.destroy(instances[i]);
        Application->ProcessMessages();
        if (instances[i] && sheets[i]->GetControlCount() > 0)
            f_report.fault("It leaves controls in its window when it is ended.");
        if (i == 0)
            module.update(instances[1]);
    }
}

/// Fields of numbers and of texts, with cells that have no value.
owned_data make_data(unsigned records)
{
    owned_data data(attrib_any_data_create());
    tuple_resize(data.get(), 3);
    Tvx_any_table fields;
    table_init(&fields);
    table_resize(&fields, 2);
    for (unsigned i = 0; i < 2; ++i) {
        tuple_resize(&fields.rows[i], 2);
        any_assign_string(tuple_get(&fields.rows[i], 0), i == 0 ? "number" : "text");
        any_assign_integer(tuple_get(&fields.rows[i], 1), i == 0 ? 4 : 2);
    }
    any_assign_table(tuple_get(data.get(), 0), &fields);
    Tvx_any_table rows;
    table_init(&rows);
    table_resize(&rows, records);
    for (unsigned r = 0; r < records; ++r) {
        tuple_resize(&rows.rows[r], 2);
        if (r % 3 != 2)
            any_assign_floating(tuple_get(&rows.rows[r], 0), r * 1.5);
        if (r % 4 != 3)
            any_assign_string(tuple_get(&rows.rows[r], 1), r % 2 ? "forest" : "lake");
    }
    any_assign_table(tuple_get(data.get(), 1), &rows);
    any_assign_integer(tuple_get(data.get(), 2), 2);
    return data;
}

/// What the plug-in pulls: a new table each time, and the former is gone, as it is with an editor.
struct data_source
{
    unsigned records = 0;
    bool has_data = true;
    owned_data data;

    static Tvx_attrib_any_data &get(void *self)
    {
        auto &source = *static_cast<data_source *>(self);
        source.data = source.has_data ? make_data(source.records) : owned_data(attrib_any_data_create());
        return *source.data;
    }
};

void drive::style()
{
    Tvx_style_edit_plugin module(f_path.c_str());
    if (!usable(module))
        return;
    ask_caption(module, "plugin_style_editor_get_caption");
    TPageControl pages(&f_form);
    show_pages(pages);
    step("making an instance");
    auto sheet = std::make_unique<Tvx_plugin_lr_tabsheet>(nullptr, &module);
    if (!sheet->get_edit())
        f_report.fault("It makes no instance.");
    struct counter
    {
        int commits = 0;
        void count(TObject * /*sender*/) { ++commits; }
    } reports;
    sheet->on_commit = make_closure<&counter::count>(&reports);
    sheet->SetPageControl(&pages);
    pages.SetActivePage(sheet.get());
    step("getting managers of each type and tables, and losing them");
    std::string supported;
    data_source source;
    for (auto const *type : c_style_types) {
        owned_manager manager(vx_stl_mngr_create(type));
        if (!sheet->supports(manager.get()))
            continue;
        supported += std::string(supported.empty() ? "" : ", ") + type;
        for (unsigned const records : {0U, 1U, 100U, ~0U}) {
            source.has_data = records != ~0U;
            source.records = source.has_data ? records : 0;
            owned_manager next(vx_stl_mngr_clone(manager.get()));
            sheet->attach(next.get(), &data_source::get, &source);
            manager = std::move(next); // the former ends behind the change
            sheet->update_controls();
            Application->ProcessMessages();
        }
        owned_manager const last(vx_stl_mngr_create(type));
        sheet->attach(last.get(), &data_source::get, &source);
        manager.reset();
        if (!vx_stl_mngr_equal(last.get(), owned_manager(vx_stl_mngr_create(type)).get()))
            f_report.fault(std::string("It changes a manager of ") + type + " that nobody has touched.");
        step("being sized");
        size_window();
    }
    if (supported.empty())
        f_report.fault("It supports no style manager: its tab is never seen.");
    else
        f_report.say("It supports " + supported + ".");
    if (reports.commits > 0)
        f_report.fault("It reports a change that nobody has made.");
    step("choosing");
    if (auto *const edit = sheet->get_edit())
        for (bool const forward : {true, false})
            (void)edit->select_next(forward);
    {
        TComponent owner(nullptr);
        (void)module.get_control(Application, &owner);
    }
    step("being ended");
    sheet.reset();
    Application->ProcessMessages();
}

void drive::bundle()
{
    std::wstring error;
    step("being entered");
    if (!vx_bundle_load(f_path.c_str(), Tvx_std_wstring_adapter(error)))
        return f_report.fault("It is not taken: " + vx::text::wide_to_utf8(error));
    f_report.say("The library speaks revision " + std::to_string(c_vx_bundle_version) + " of bundles.");
    vx_options_set_lr_2d_editor_plugin_mask(nullptr);
    step("making its tabs");
    auto pages = std::make_unique<Tvx_lr2d_edit>(nullptr);
    pages->SetParent(&f_form);
    pages->create();
    pages->SetAlign(alClient);
    pages->load_res();
    f_form.Show();
    int const own = pages->get_pages()->GetPageCount() - 4;
    f_report.say("It adds " + std::to_string(own) + " tabs to the editor of a layer.");
    step("getting layers of each kind, and losing them");
    for (auto const &layer : f_layers) {
        pages->set_lr2d(layer.get());
        Application->ProcessMessages();
        for (int i = 4; i < pages->get_pages()->GetPageCount(); ++i)
            if (pages->get_pages()->GetPages(i)->GetTabVisible()) {
                pages->get_pages()->SetActivePageIndex(i);
                Application->ProcessMessages();
            }
        pages->update_controls();
    }
    step("being sized");
    size_window();
    pages->set_lr2d(nullptr);
    step("being ended");
    pages.reset();
    Application->ProcessMessages();
}
} // namespace

void drive_module(std::wstring const &path, module_kind kind, std::vector<std::wstring> const &layers,
                  module_report &report)
{
    // This process is there for the module alone, so it need not be tried in a copy first.
    if (!LoadLibraryW(path.c_str()))
        return report.fault("The loader refuses it: " +
                            vx::text::wide_to_utf8(vx_library_get_fault().details));
    drive test(path, layers, report);
    if (kind == module_kind::layer_page)
        test.page();
    else if (kind == module_kind::style_editor)
        test.style();
    else
        test.bundle();
}
