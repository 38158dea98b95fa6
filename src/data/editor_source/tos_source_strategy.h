#pragma once

#include "data/editor_source/data_source_strategy.h"
#include "data/editor_source/tos_prop_work.h"

#include "platform/data/vx_tos_data.h"

#include <string>

/// Answers from a property file: that of the data object or the one by name, whichever was set last.
class VX_API Tvx_tos_source_strategy : public Tvx_data_source_strategy
{
public:
    Tvx_tos_source_strategy();
    ~Tvx_tos_source_strategy() override;

    void set_data_ptr(Ivx_entity *data) override;
    [[nodiscard]] Ivx_entity *get_data_ptr() override;
    void set_filename(wchar_t const *name) override;
    [[nodiscard]] wchar_t const *get_filename() override;
    void get_filename_adp(Ivx_string_adp *out);
    /// For reading.
    [[nodiscard]] bool on_data_open() override;
    void on_data_close() override;
    [[nodiscard]] unsigned on_data_get_np() override;
    [[nodiscard]] unsigned on_data_get_no() override;
    [[nodiscard]] char const *on_data_get_prop(unsigned prop, bool &usable, bool &numeric) override;
    [[nodiscard]] char const *on_data_get_capt_prop(unsigned prop) override;
    bool on_data_get_stat(unsigned prop, double &min, double &max, double &average, double &stddev,
                          bool &ok) override;
    [[nodiscard]] char const *on_data_get_str(unsigned prop, unsigned obj, bool &defined) override;
    [[nodiscard]] double on_data_get_val(unsigned prop, unsigned obj, bool &defined) override;
    void on_data_get_prop_file_name(unsigned prop, Ivx_string_adp *out) override;

private:
    vx::owned<Ivx_tos_data, &vx_tos_data_release> f_tos_data;
    std::wstring f_filename;
    Tvx_tos_prop_work f_work;
};
