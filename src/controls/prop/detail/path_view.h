#pragma once

#include "controls/forms/misc.h"

/// Shows its text as a path: leaves out the middle of one that is too long.
class Tvx_path_view final : public Tvx_gr_ctrl
{
public:
    using Tvx_gr_ctrl::Tvx_gr_ctrl;

    void SetText(UnicodeString const &text) override;

protected:
    void Paint() override;
    void EnabledChanged() override;
};
