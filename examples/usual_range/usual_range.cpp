// A style editor in C++: makes ranges of what is usual and what is not, by the mean of a field and its
// deviation.
#include "extension/plugin/vxk_plugin.h"

#include "platform/base/color.h"
#include "platform/base/text_codec.h"
#include "platform/styles/vx_rng_scale.h"
#include "platform/styles/vx_stl_mngr.h"
#include "platform/styles/vx_stl_prm.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

VXK_PLUGIN_MODULE

namespace {
template <class Text>
Text const *text_of(Text const *english, Text const *russian)
{
    return std::string_view(vxk_plugin_get_language()) == "ru" ? russian : english;
}

class editor
{
public:
    editor(void (*commit)(void *), void *host) : f_commit(commit), f_host(host)
    {
        f_read = add_button<&editor::read>(text_of("&Read the table", "&Прочитать таблицу"));
        f_field = vxk_panel_add_choice(f_panel, text_of("&Field", "&Поле"), nullptr, nullptr);
        f_width = vxk_panel_add_number(
            f_panel, text_of("Usual within (&deviations)", "Обычное в пределах (&отклонений)"), 0.1, 10,
            false, nullptr, nullptr);
        vxk_control_set_number(f_width, 2);
        f_apply = add_button<&editor::make_ranges>(text_of("Make &three ranges", "Создать &три диапазона"));
        f_result = vxk_panel_add_text(f_panel, "");
    }
    editor(editor const &) = delete;
    editor &operator=(editor const &) = delete;
    ~editor() { vxk_panel_destroy(f_panel); }

    void set_parent(vxk_window window) { vxk_panel_set_parent(f_panel, window); }

    void attach(void *manager, vxk_get_data get_data, void *data)
    {
        f_get_data = get_data;
        f_data = data;
        if (manager == f_manager)
            return;
        f_manager = manager;
        vxk_control_set_text(f_result, "");
        show_fields({});
    }

private:
    template <void (editor::*Act)()>
    vxk_control *add_button(char const *caption)
    {
        return vxk_panel_add_button(
            f_panel, caption,
            [](void *self, vxk_control * /*control*/) { (static_cast<editor *>(self)->*Act)(); }, this);
    }

    /// Only when the user wants it: a long table takes its time.
    void read()
    {
        vxk_any const *const table = f_get_data(f_data);
        std::vector<char const *> names;
        f_fields.clear();
        for (unsigned i = 0; i < vxk_data_field_count(table); ++i)
            if (vxk_data_is_number(table, i)) {
                names.push_back(vxk_data_field_name(table, i));
                f_fields.push_back(i);
            }
        vxk_control_set_text(
            f_result, names.empty() ? text_of("There is no field of numbers.", "Нет числовых полей.") : "");
        show_fields(names);
    }

    void show_fields(std::vector<char const *> const &names)
    {
        bool const has_fields = !names.empty();
        vxk_control_set_items(f_field, names.data(), static_cast<int>(names.size()));
        vxk_control_set_index(f_field, has_fields ? 0 : -1);
        vxk_control_set_visible(f_read, !has_fields);
        for (auto *const control : {f_field, f_width, f_apply})
            vxk_control_set_visible(control, has_fields);
    }

    void make_ranges()
    {
        int const line = vxk_control_get_index(f_field);
        if (line < 0 || static_cast<std::size_t>(line) >= f_fields.size())
            return;
        auto const field = f_fields[static_cast<std::size_t>(line)];
        vxk_any const *const table = f_get_data(f_data);
        std::vector<double> values;
        for (unsigned i = 0; i < vxk_data_record_count(table); ++i)
            if (double value = 0; vxk_data_get_number(table, i, field, &value))
                values.push_back(value);
        if (values.empty())
            return vxk_control_set_text(f_result,
                                        text_of("The field has no values.", "В поле нет значений."));
        double mean = 0;
        for (double const value : values)
            mean += value / static_cast<double>(values.size());
        double variance = 0;
        for (double const value : values)
            variance += (value - mean) * (value - mean) / static_cast<double>(values.size());
        double const reach = vxk_control_get_number(f_width) * std::sqrt(variance);
        double const low = mean - reach;
        double const high = mean + reach;
        auto const [least, greatest] = std::ranges::minmax(values);
        write(vx::text::to_wide(vxk_data_field_name(table, field)),
              {std::min(least, low), low, high, std::max(greatest, high)});

        auto const below = std::ranges::count_if(values, [&](double value) { return value <= low; });
        auto const above = std::ranges::count_if(values, [&](double value) { return value > high; });
        char text[300];
        std::snprintf(text, sizeof text,
                      text_of("%td low, %td high, of %zu. Usual: %.6g to %.6g.",
                              "Низких: %td, высоких: %td, всего %zu. Обычное: от %.6g до %.6g."),
                      below, above, values.size(), low, high);
        vxk_control_set_text(f_result, text);
        f_commit(f_host);
    }

    void write(std::wstring const &name, std::vector<double> const &bounds)
    {
        wchar_t const *const captions[] = {text_of(L"low", L"низкие"), text_of(L"usual", L"обычные"),
                                           text_of(L"high", L"высокие")};
        static Tvx_color const colors[] = {vx_clr_init_rgb(33, 102, 172), vx_clr_init_rgb(190, 190, 190),
                                           vx_clr_init_rgb(178, 24, 43)};
        void *const scale = vx_stl_mngr_get_rng_scale_ptr(f_manager);
        vx_stl_mngr_set_rng_prop_name_w(f_manager, name.c_str());
        vx_rng_scale_set_size(scale, 0);
        vx_rng_scale_set_size(scale, 3);
        vx_rng_scale_set_min_value(scale, bounds.front());
        vx_rng_scale_set_max_value(scale, bounds.back());
        for (unsigned i = 0; i < 3; ++i) {
            vx_rng_scale_set_min(scale, i, bounds[i]);
            vx_rng_scale_set_max(scale, i, bounds[i + 1]);
            vx_rng_scale_set_caption_w(scale, i, captions[i]);
            vx_stl_prm_set_color(vx_rng_scale_get_scale_prm_ptr(scale, i), false, colors[i]);
        }
        vx_stl_mngr_set_need_scale(f_manager, false);
        vxk_style_manager_set_mode(f_manager, c_stl_mngr_mode_range);
    }

    vxk_panel *f_panel = vxk_panel_create();
    vxk_control *f_read = nullptr;
    vxk_control *f_field = nullptr;
    vxk_control *f_width = nullptr;
    vxk_control *f_apply = nullptr;
    vxk_control *f_result = nullptr;
    void (*f_commit)(void *);
    void *f_host;
    void *f_manager = nullptr;
    vxk_get_data f_get_data = nullptr;
    void *f_data = nullptr;
    std::vector<unsigned> f_fields; ///< of the table, for each line of the choice
};

editor &of(void *instance)
{
    return *static_cast<editor *>(instance);
}
} // namespace

void *plugin_style_editor_create(vxk_window /*window*/, void (*commit)(void *), void (* /*focus*/)(void *),
                                 void *data)
{
    return new editor(commit, data);
}
char const *plugin_style_editor_get_caption()
{
    return text_of("Usual and unusual", "Обычное и необычное");
}
void *plugin_style_editor_get_control(void * /*application*/, void * /*owner*/)
{
    return nullptr;
}
void plugin_style_editor_set_parent(void *instance, vxk_window window)
{
    of(instance).set_parent(window);
}
void plugin_style_editor_destroy(void *instance)
{
    delete &of(instance);
}
bool plugin_style_editor_supports(void * /*instance*/, void *style_manager)
{
    return vxk_style_manager_get_type(style_manager) != nullptr;
}
void plugin_style_editor_attach(void *instance, void *style_manager, vxk_get_data get_data, void *data)
{
    of(instance).attach(style_manager, get_data, data);
}
void plugin_style_editor_update(void * /*instance*/)
{
    // The fields were read when the manager came.
}
void plugin_style_editor_setpos(void * /*instance*/, vxk_rect const * /*rect*/)
{
}
bool plugin_style_editor_select_next(void * /*instance*/, int /*direction*/)
{
    return false;
}
