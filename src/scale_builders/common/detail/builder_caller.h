#pragma once

#include "controls/forms/panels.h"

#include <functional>
#include <memory>

/// Who calls a builder, as long as the call lasts. Events of windows are handled while data are read and
/// while the dialog is open, so that the editor, whose manager and data they are, may end meanwhile: nothing
/// of it is touched then. Calls nest; the innermost one counts.
class builder_caller
{
public:
    /// `has_mngr` tells whether the editor still has the manager; not asked once `control` has ended.
    builder_caller(TControl *control, std::function<bool()> has_mngr);
    ~builder_caller();
    builder_caller(builder_caller const &) = delete;
    builder_caller &operator=(builder_caller const &) = delete;

    /// True also when the builder was called by somebody who does not say who he is.
    [[nodiscard]] static bool is_there();
    /// Null without a caller, and when he has ended.
    [[nodiscard]] static TControl *get_control();

private:
    TControl *f_control;
    std::weak_ptr<void const> f_life;
    std::function<bool()> f_has_mngr;
    builder_caller *f_outer;
};
