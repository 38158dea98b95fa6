#pragma once

#include "platform/toolkit/core/win_control.h"

enum TUDBtnType
{
    btNext,
    btPrev
};

enum TUDOrientation
{
    udHorizontal,
    udVertical
};

/// A pair of small buttons that move a number, held within `Min` and `Max` (0 to 100), by `Increment`; 17
/// by 25. The number shows in the associated control, beside which the buttons stand, and its up and down
/// keys move it too. The user's step runs `OnChanging`, which may refuse, then `OnClick`; `SetPosition` runs
/// neither.
class VX_API TCustomUpDown : public TWinControl
{
public:
    explicit TCustomUpDown(TComponent *owner);
    ~TCustomUpDown() override;

    [[nodiscard]] int GetPosition() const;
    void SetPosition(int position);
    [[nodiscard]] int GetMin() const { return f_min; }
    void SetMin(int value);
    [[nodiscard]] int GetMax() const { return f_max; }
    void SetMax(int value);
    [[nodiscard]] int GetIncrement() const { return f_increment; }
    void SetIncrement(int value) { f_increment = value; }
    [[nodiscard]] bool GetWrap() const { return f_wrap; }
    /// True: a step beyond one limit goes to the other.
    void SetWrap(bool wrap) { f_wrap = wrap; }
    [[nodiscard]] TUDOrientation GetOrientation() const { return f_orientation; }
    void SetOrientation(TUDOrientation orientation);
    [[nodiscard]] TWinControl *GetAssociate() const { return f_associate; }
    void SetAssociate(TWinControl *control);

    closure<void(TObject *sender, bool &allow_change)> OnChanging;
    closure<void(TObject *sender, TUDBtnType button)> OnClick;

protected:
    void Notification(TComponent *component, TOperation operation) override;

private:
    class buttons;
    void step(TUDBtnType button);
    void show();

    TWinControl *f_associate = nullptr;
    int f_position = 0;
    int f_min = 0;
    int f_max = 100;
    int f_increment = 1;
    TUDOrientation f_orientation = udVertical;
    bool f_wrap = false;
};

class VX_API TUpDown : public TCustomUpDown
{
public:
    using TCustomUpDown::TCustomUpDown;
};
