#pragma once

#include "platform/toolkit/core/graphic_control.h"

/// An area that the program draws, 105 by 105.
class VX_API TPaintBox : public TGraphicControl
{
public:
    explicit TPaintBox(TComponent *owner);

    TNotifyEvent OnPaint;

protected:
    void Paint() override;
};
