#pragma once

#include "data/editor_source/data_source_strategy.h"

#include "platform/base/owned.h"
#include "platform/data/vx_attr_data.h"

/// Answers from the attribute table of a vector layer. Fields have no captions but their names; statistics
/// and scale files are left to the editors.
class VX_API Tvx_attr_source_strategy : public Tvx_data_source_strategy
{
public:
    ~Tvx_attr_source_strategy() override;

    /// Held as long as it is set; a table that is open stays that of the former.
    void set_attr_data(Ivx_attr_data *data);
    [[nodiscard]] Ivx_attr_data *get_attr_data() const { return f_attr_data.get(); }

    void set_data_ptr(Ivx_entity *data) override;
    [[nodiscard]] Ivx_entity *get_data_ptr() override;
    /// What is open is closed first.
    [[nodiscard]] bool on_data_open() override;
    void on_data_close() override;
    [[nodiscard]] unsigned on_data_get_np() override;
    [[nodiscard]] unsigned on_data_get_no() override;
    [[nodiscard]] char const *on_data_get_prop(unsigned prop, bool &usable, bool &numeric) override;
    [[nodiscard]] char const *on_data_get_capt_prop(unsigned prop) override;
    [[nodiscard]] char const *on_data_get_str(unsigned prop, unsigned obj, bool &defined) override;
    [[nodiscard]] double on_data_get_val(unsigned prop, unsigned obj, bool &defined) override;

private:
    vx::owned<Ivx_attr_data, &vx_attr_data_release> f_attr_data;
    vx::owned<Ivx_attr_files, &vx_attr_files_close> f_attr_files;
};
