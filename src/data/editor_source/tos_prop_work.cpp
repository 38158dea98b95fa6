#include "data/editor_source/tos_prop_work.h"

#include "platform/base/shown_number.h"
#include "platform/basic/vx_histogram.h"
#include "platform/layers/vx_lr2d.h"

Tvx_tos_prop_work::Tvx_tos_prop_work() = default;
Tvx_tos_prop_work::~Tvx_tos_prop_work() = default;

// ---- file and property

Ivx_layer *Tvx_tos_prop_work::get_tos_lr2d() const
{
    return on_get_tos_lr2d ? on_get_tos_lr2d() : nullptr;
}

void Tvx_tos_prop_work::get_tos_filename(Ivx_string_adp *out) const
{
    if (on_get_tos_filename)
        on_get_tos_filename(out);
}

std::wstring Tvx_tos_prop_work::fetch_tos_source() const
{
    std::wstring name;
    Tvx_std_wstring_adapter const receiver(name);
    if (Ivx_layer *const layer = get_tos_lr2d())
        vx_lr2d_get_wfilename(layer, receiver);
    else
        get_tos_filename(receiver);
    return name;
}

bool Tvx_tos_prop_work::tos_open(bool read_only)
{
    tos_close();
    std::wstring const name = fetch_tos_source();
    if (name.empty())
        return false;
    f_file.reset(vx_tos4_file_open_w(name.c_str(), read_only));
    f_read_only = read_only;
    return f_file != nullptr;
}

void Tvx_tos_prop_work::tos_close()
{
    data_close();
    f_file.reset();
    f_read_only = true;
}

bool Tvx_tos_prop_work::data_open(unsigned prop)
{
    data_close();
    f_prop.reset(vx_tos4_prop_open(f_file.get(), prop));
    f_prop_index = prop;
    return f_prop != nullptr;
}

void Tvx_tos_prop_work::data_close()
{
    f_prop.reset();
}

bool Tvx_tos_prop_work::need(unsigned prop)
{
    return (f_prop && f_prop_index == prop) || data_open(prop);
}

bool Tvx_tos_prop_work::force_update()
{
    if (!f_read_only)
        return true;
    unsigned const prop = f_prop_index;
    if (!tos_open(false))
        return false;
    return data_open(prop);
}

// ---- events

bool Tvx_tos_prop_work::on_data_open(TObject *)
{
    return tos_open(true);
}

void Tvx_tos_prop_work::on_data_close(TObject *)
{
    tos_close();
}

unsigned Tvx_tos_prop_work::on_data_get_np(TObject *)
{
    return vx_tos4_get_prop_count(f_file.get());
}

unsigned Tvx_tos_prop_work::on_data_get_no(TObject *)
{
    return static_cast<unsigned>(vx_tos4_get_object_count_64(f_file.get()));
}

char const *Tvx_tos_prop_work::on_data_get_prop(TObject *, unsigned prop, bool &usable, bool &numeric)
{
    usable = numeric = true;
    f_name = vx_tos4_get_prop_name(f_file.get(), prop);
    return f_name.c_str();
}

char const *Tvx_tos_prop_work::on_data_get_capt_prop(TObject *, unsigned prop)
{
    f_caption = vx_tos4_get_prop_caption(f_file.get(), prop);
    return f_caption.c_str();
}

wchar_t const *Tvx_tos_prop_work::on_data_get_wprop(TObject *, unsigned prop, bool &usable, bool &numeric)
{
    usable = numeric = true;
    vx_tos4_get_prop_name_w(f_file.get(), prop, Tvx_std_wstring_adapter(f_wname));
    return f_wname.c_str();
}

wchar_t const *Tvx_tos_prop_work::on_data_get_capt_wprop(TObject *, unsigned prop)
{
    vx_tos4_get_prop_caption_w(f_file.get(), prop, Tvx_std_wstring_adapter(f_wcaption));
    return f_wcaption.c_str();
}

bool Tvx_tos_prop_work::on_data_get_stat(TObject *, unsigned prop, double &min, double &max, double &average,
                                         double &stddev, bool &ok)
{
    ok = false;
    if (!need(prop))
        return false;
    if (!vx_tos4_prop_get_statistic_exist(f_prop.get())) {
        if (!force_update()) {
            tos_close();
            return false;
        }
        (void)vx_tos4_prop_statistic_update(f_prop.get());
    }
    if (!vx_tos4_prop_get_statistic_exist(f_prop.get()))
        return true;
    min = vx_tos4_prop_get_statistic_min(f_prop.get());
    max = vx_tos4_prop_get_statistic_max(f_prop.get());
    average = vx_tos4_prop_get_statistic_average(f_prop.get());
    stddev = vx_tos4_prop_get_statistic_stddev(f_prop.get());
    ok = true;
    return true;
}

bool Tvx_tos_prop_work::on_data_get_histogramm(TObject *, unsigned prop, Tvx_histogramm_data *histogram)
{
    if (!need(prop))
        return false;
    Ivx_tos4_prop *const p = f_prop.get();
    if (!vx_tos4_prop_get_histogram_exist(p))
        (void)vx_tos4_prop_histogram_update(p);
    if (!vx_tos4_prop_get_histogram_exist(p))
        return false;
    double const low = vx_tos4_prop_get_histogram_hgbndmin(p);
    double const high = vx_tos4_prop_get_histogram_hgbndmax(p);
    unsigned const count = vx_tos4_prop_get_histogram_count(p);
    vx_histogramm_set_params(histogram, count, low, high);
    // As whole numbers the bounds are told once more, and count where they are whole.
    if (double const whole = vx_tos4_prop_get_histogram_hgmin(p); whole == low)
        vx_histogramm_set_min(histogram, whole);
    if (double const whole = vx_tos4_prop_get_histogram_hgmax(p); whole == high)
        vx_histogramm_set_max(histogram, whole);
    for (unsigned i = 0; i < count; ++i)
        vx_histogramm_set(histogram, i, static_cast<double>(vx_tos4_prop_get_histogram_value(p, i)));
    return true;
}

char const *Tvx_tos_prop_work::on_data_get_str(TObject *sender, unsigned prop, unsigned obj, bool &defined)
{
    double const value = on_data_get_val(sender, prop, obj, defined);
    vx::text::number_buffer buffer;
    f_text = defined ? vx::text::shown_number(value, buffer) : std::string_view();
    return f_text.c_str();
}

double Tvx_tos_prop_work::on_data_get_val(TObject *, unsigned prop, unsigned obj, bool &defined)
{
    if (!f_file)
        return 0;
    double value = 0;
    defined = need(prop) && vx_tos4_prop_get_value_double(f_prop.get(), obj, &value);
    return defined ? value : 0;
}

void Tvx_tos_prop_work::on_data_get_prop_file_name(TObject *sender, unsigned prop, Ivx_string_adp *out)
{
    if (f_file) {
        vx_tos4_prop_get_prop_file_name_w(f_file.get(), prop, out);
        return;
    }
    if (!on_data_open(sender))
        return;
    vx_tos4_prop_get_prop_file_name_w(f_file.get(), prop, out);
    on_data_close(sender);
}
