#pragma once

#include "data/editor_source/data_source_strategy.h"

#include "platform/base/closure.h"

#include <memory>

class TObject;

/// The pull events of editors as ready closures, answered by the strategy for a kind of layer. Without one
/// there are no data. The closures are bound to this object, which has to outlive who holds them.
class VX_API Tvx_data_source : public Tvx_basic_obj
{
public:
    closure<bool(TObject *sender)> on_data_open;
    closure<void(TObject *sender)> on_data_close;
    closure<unsigned(TObject *sender)> on_data_get_np;
    closure<unsigned(TObject *sender)> on_data_get_no;
    closure<char const *(TObject *sender, unsigned prop, bool &usable, bool &numeric)> on_data_get_prop;
    closure<char const *(TObject *sender, unsigned prop)> on_data_get_capt_prop;
    closure<bool(TObject *sender, unsigned prop, double &min, double &max, double &average, double &stddev,
                 bool &ok)>
        on_data_get_stat;
    closure<char const *(TObject *sender, unsigned prop, unsigned obj, bool &defined)> on_data_get_str;
    closure<double(TObject *sender, unsigned prop, unsigned obj, bool &defined)> on_data_get_val;
    closure<void(TObject *sender, unsigned prop, Ivx_string_adp *out)> on_data_get_prop_file_name;

    Tvx_data_source();
    Tvx_data_source(Tvx_data_source const &) = delete;
    Tvx_data_source &operator=(Tvx_data_source const &) = delete;
    ~Tvx_data_source() override;

    /// Ends the strategy that it has, and takes that of the layer type key; false when there is none.
    bool initialize(char const *key);
    [[nodiscard]] bool is_valid() const { return f_strategy != nullptr; }

    void set_data_ptr(Ivx_entity *data);
    [[nodiscard]] Ivx_entity *get_data_ptr() const;
    void set_filename(wchar_t const *name);
    [[nodiscard]] wchar_t const *get_filename() const;

private:
    bool on_data_open_impl(TObject *sender);
    void on_data_close_impl(TObject *sender);
    unsigned on_data_get_np_impl(TObject *sender);
    unsigned on_data_get_no_impl(TObject *sender);
    char const *on_data_get_prop_impl(TObject *sender, unsigned prop, bool &usable, bool &numeric);
    char const *on_data_get_capt_prop_impl(TObject *sender, unsigned prop);
    bool on_data_get_stat_impl(TObject *sender, unsigned prop, double &min, double &max, double &average,
                               double &stddev, bool &ok);
    char const *on_data_get_str_impl(TObject *sender, unsigned prop, unsigned obj, bool &defined);
    double on_data_get_val_impl(TObject *sender, unsigned prop, unsigned obj, bool &defined);
    void on_data_get_prop_file_name_impl(TObject *sender, unsigned prop, Ivx_string_adp *out);

    std::unique_ptr<Tvx_data_source_strategy> f_strategy;
};
