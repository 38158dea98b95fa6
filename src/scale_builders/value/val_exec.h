#pragma once

#include "scale_builders/value/val_capt_statistic.h"
#include "scale_builders/value/val_params.h"
#include "style_manager/api/data_events.h"

/// Carries a record of parameters out on the value scale of its manager. The events are those of the data,
/// called with no sender. Entries get no colours here.
///
/// Reading that lasts can be stopped; the scale is then as it was.
class VX_API Tvx_val_exec : public Tvx_basic_obj
{
public:
    /// Always 0. An exception passes, with the scale as it was if it came from the data.
    static int execute(Tvx_val_params *params, Tvx_data_events const &data);
    /// The same on this object, which then knows whether it was stopped.
    int exec(Tvx_val_params *params, Tvx_data_events const &data);

    [[nodiscard]] bool is_stopped() const { return f_is_stopped; }

private:
    void do_execute();
    void do_execute_rebuild();
    void do_execute_rebuild_with_legend();
    void do_execute_modify();
    void do_modify_add();
    void do_modify_del();
    void do_modify_capt(Tvx_val_capt_statistic &captions);
    bool read(Tvx_val_capt_statistic &statistic, std::string const &capt_propname);
    [[nodiscard]] void *scale() const;
    /// The text of an entry without blanks and control characters at its ends, in the system code page.
    [[nodiscard]] std::string text_of(unsigned entry) const;

    Tvx_val_params *f_params = nullptr;
    Tvx_data_events f_data;
    Tvx_val_statistic f_present; ///< the texts that the scale holds
    bool f_is_stopped = false;
};
