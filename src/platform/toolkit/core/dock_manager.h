#pragma once

#include "platform/toolkit/core/types.h"

#include <memory>

/// Divides the client area of a dock site among the controls docked in it: each new one takes a side of the
/// whole site, or of the control on which it was dropped, and the borders between them can be dragged.
class VX_API TDockManager
{
public:
    explicit TDockManager(TWinControl *site);
    TDockManager(TDockManager const &) = delete;
    TDockManager &operator=(TDockManager const &) = delete;
    ~TDockManager();

    /// `alNone` and `alClient` go to the right side. A client that is known already is moved.
    void InsertControl(TControl *client, TAlign side, TControl *drop_on);
    void RemoveControl(TControl *client);
    /// Lays the visible clients out in the site's client area; hidden ones take no room.
    void ResetBounds();
    /// Where the client stands, in the site's client area; empty for a control that is not docked here.
    [[nodiscard]] TRect GetControlBounds(TControl const *client) const;
    /// Moves the border beside the client on that side (alLeft, alTop, alRight, alBottom) by some pixels.
    void MoveBorder(TControl *client, TAlign side, int distance);
    /// The client and what it was put beside get the same room, and keep their shares of it when the site
    /// changes its size.
    void ShareEvenly(TControl *client);

private:
    struct zone;
    struct handle;
    void lay_out(zone &z, TRect const &rect);
    void move_border(zone &z, int distance);
    std::unique_ptr<zone> f_root;
    TWinControl *f_site;
};
