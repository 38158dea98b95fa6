#include "captions/layout_elements.h"
#include "controls/prop/file_panel.h"
#include "ordered_list.h"
#include "pages.h"

#include "platform/base/owned.h"
#include "platform/basic/vx_res.h"
#include "platform/data/vx_attr_data.h"
#include "platform/dialogs/vx_msgs.h"
#include "platform/layers/vx_layout_lr2d.h"
#include "platform/toolkit/core/screen.h"

#include <algorithm>

namespace vx::layout_elements {
namespace {
constexpr int c_list_height = 220;
constexpr int c_list_margin = 6;

std::wstring source_of(Ivx_layer const *layer)
{
    std::wstring source;
    vx_lr2d_get_wfilename(layer, Tvx_std_wstring_adapter(source));
    return source;
}

/// Names of the fields; none where the data cannot be opened, with the reason.
std::vector<std::wstring> fields_of(std::wstring const &source, std::wstring &reason)
{
    std::vector<std::wstring> names;
    reason.clear();
    if (source.empty())
        return names;
    vx_wait_cursor const wait;
    vx::owned<Ivx_attr_data, &vx_attr_data_release> const data(vx_attr_data_create(source.c_str()));
    vx::owned<Ivx_attr_files, &vx_attr_files_close> const table(vx_attr_files_open(data.get(), 1, 0));
    for (unsigned i = 0; i < vx_attr_files_get_np(table.get()); ++i)
        names.emplace_back(vx_attr_files_get_field_name_w(table.get(), i));
    if (!table)
        vx_attr_data_get_werror(data.get(), Tvx_std_wstring_adapter(reason));
    return names;
}

class table_page final : public rows_page
{
public:
    using rows_page::rows_page;

    void create() override
    {
        auto *const file = new Tvx_file_panel(this);
        file->set_caption_width(c_label_width);
        file->on_changed = row_changed();
        add_row(
            file, 0,
            [file] {
                file->load_res();
                file->set_caption(vx_res_get_wstr(c_le_data_set));
                file->set_filter(vx_res_get_wstr(c_le_data_set_filter));
            },
            [this, file] { file->set_wfilename(source_of(f_lr2d).c_str()); },
            [this, file] {
                vx_lr2d_set_wfilename(f_lr2d, file->get_wfilename().c_str());
                show_others();
                if (!f_reason.empty())
                    vx_show_reason(f_reason.c_str());
            });
        add_number({c_le_records, 0, 0, false,
                    field<&vx_layout_table_lr2d_get, &vx_layout_table_lr2d_set, &Tvx_layout_table::rows>});
        auto *const group = add_group(c_le_columns_of_table, c_list_height);
        f_list = new ordered_list(this, false);
        f_list->SetParent(group);
        f_list->SetAlignWithMargins(true);
        f_list->GetMargins()->SetBounds(c_list_margin, 2, c_list_margin, c_list_margin);
        f_list->SetAlign(alClient);
        f_list->on_changed = make_closure<&table_page::on_list_changed>(this);
        add_writing();
    }
    void load_res() override
    {
        rows_page::load_res();
        f_list->load_res(c_le_columns_of_table);
    }

private:
    /// The columns in their order, those that the data have no more too, and behind them the other fields.
    void show_others() override
    {
        auto const source = source_of(f_lr2d);
        if (source != f_source) {
            f_source = source;
            f_fields = fields_of(source, f_reason);
        }
        auto const chosen = vx_layout_table_lr2d_get(f_lr2d).fields;
        std::vector<ordered_list::line> lines;
        for (auto const &name : chosen)
            lines.push_back({name, true});
        for (auto const &name : f_fields)
            if (std::ranges::find(chosen, name) == chosen.end())
                lines.push_back({name, false});
        f_list->set_lines(std::move(lines));
    }
    void on_list_changed(TObject * /*sender*/)
    {
        if (!f_lr2d)
            return;
        auto record = vx_layout_table_lr2d_get(f_lr2d);
        record.fields.clear();
        for (auto const &line : f_list->get_lines())
            if (line.is_on)
                record.fields.push_back(line.text);
        vx_layout_table_lr2d_set(f_lr2d, record);
        call_changed();
    }

    ordered_list *f_list = nullptr;
    std::wstring f_source; ///< whose fields these are
    std::vector<std::wstring> f_fields;
    std::wstring f_reason; ///< why there are none
};
} // namespace

rows_page *make_table_page(TComponent *owner)
{
    return new table_page(owner);
}
} // namespace vx::layout_elements
