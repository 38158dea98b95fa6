#pragma once

#include "platform/base/basic_obj.h"
#include "platform/base/export.h"
#include "platform/base/string_adp.h"

struct Ivx_entity;

/// Answers the pull events of editors (style_manager/api) for one kind of data. Texts that are given back
/// point into the answering object, and stay valid until its next call of the same kind. Unless a class says
/// otherwise, there is nothing: no data, no properties, no values.
class VX_API Tvx_data_source_strategy : public Tvx_basic_obj
{
public:
    ~Tvx_data_source_strategy() override;

    /// The data object behind the layer, which may be of another kind: that counts as null.
    virtual void set_data_ptr(Ivx_entity *data) = 0;
    [[nodiscard]] virtual Ivx_entity *get_data_ptr() = 0;
    /// The file to answer for, where data are known by one.
    virtual void set_filename(wchar_t const *name);
    [[nodiscard]] virtual wchar_t const *get_filename();
    [[nodiscard]] virtual bool on_data_open();
    virtual void on_data_close();
    [[nodiscard]] virtual unsigned on_data_get_np();
    [[nodiscard]] virtual unsigned on_data_get_no();
    /// These two need the data open, as do cells.
    [[nodiscard]] virtual char const *on_data_get_prop(unsigned prop, bool &usable, bool &numeric);
    [[nodiscard]] virtual char const *on_data_get_capt_prop(unsigned prop);
    /// False, with `ok` false, where nobody keeps statistics: who asks works them out then.
    virtual bool on_data_get_stat(unsigned prop, double &min, double &max, double &average, double &stddev,
                                  bool &ok);
    [[nodiscard]] virtual char const *on_data_get_str(unsigned prop, unsigned obj, bool &defined);
    [[nodiscard]] virtual double on_data_get_val(unsigned prop, unsigned obj, bool &defined);
    /// Base name of the scale files of a property; the one question that needs nothing open.
    virtual void on_data_get_prop_file_name(unsigned prop, Ivx_string_adp *out);
};
