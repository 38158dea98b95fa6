#include "platform/toolkit/core/dock_manager.h"

#include "platform/toolkit/bridge/qt_values.h"
#include "platform/toolkit/bridge/qt_widgets.h"
#include "platform/toolkit/core/win_control.h"

#include <QtCore/QPointer>
#include <QtGui/QMouseEvent>

#include <algorithm>

namespace {
constexpr int c_border = 5;
constexpr int c_least_size = 20;
} // namespace

/// A node of the division: a client, or two zones side by side.
struct TDockManager::zone
{
    zone *parent = nullptr;
    TControl *client = nullptr;
    std::unique_ptr<zone> first;
    std::unique_ptr<zone> second;
    bool side_by_side = false; ///< left and right, not above and below
    int first_size = 0;        ///< pixels that the first half has when there is room
    bool keeps_second = false; ///< the second half keeps its size when the site grows
    int second_size = 0;
    int scales_from = 0; ///< the room for which the sizes were given, if they go along with the site
    TRect rect;
    std::unique_ptr<handle> border;

    [[nodiscard]] bool visible() const
    {
        if (client)
            return client->GetVisible();
        return (first && first->visible()) || (second && second->visible());
    }
    zone *find(TControl const *control)
    {
        if (client)
            return client == control ? this : nullptr;
        for (zone *const half : {first.get(), second.get()})
            if (zone *const found = half ? half->find(control) : nullptr)
                return found;
        return nullptr;
    }
};

/// The border between two zones, which the mouse drags.
struct TDockManager::handle final : QObject
{
    handle(TDockManager *m, zone *z, QWidget *area) : manager(m), owner(z), widget(new QWidget(area))
    {
        widget->installEventFilter(this);
        widget->setCursor(z->side_by_side ? Qt::SplitHCursor : Qt::SplitVCursor);
    }
    ~handle() override { delete widget.data(); }

    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() != QEvent::MouseMove && event->type() != QEvent::MouseButtonPress)
            return false;
        auto const *const mouse = static_cast<QMouseEvent *>(event);
        QPoint const at = mouse->globalPosition().toPoint();
        if (event->type() == QEvent::MouseMove && (mouse->buttons() & Qt::LeftButton)) {
            manager->move_border(*owner, owner->side_by_side ? at.x() - last.x() : at.y() - last.y());
        }
        last = at;
        return true;
    }

    TDockManager *manager;
    zone *owner;
    QPointer<QWidget> widget;
    QPoint last;
};

TDockManager::TDockManager(TWinControl *site) : f_site(site)
{
}

TDockManager::~TDockManager() = default;

void TDockManager::InsertControl(TControl *client, TAlign side, TControl *drop_on)
{
    RemoveControl(client);
    auto added = std::make_unique<zone>();
    added->client = client;
    zone *const split = f_root && drop_on ? f_root->find(drop_on) : nullptr;
    if (!f_root) {
        f_root = std::move(added);
        ResetBounds();
        return;
    }
    // The new node takes the place of the zone that is divided.
    std::unique_ptr<zone> *slot = &f_root;
    zone *parent = nullptr;
    if (split && split->parent) {
        parent = split->parent;
        slot = parent->first.get() == split ? &parent->first : &parent->second;
    }
    auto node = std::make_unique<zone>();
    bool const comes_first = side == alLeft || side == alTop;
    node->parent = parent;
    node->side_by_side = side != alTop && side != alBottom;
    node->rect = (*slot)->rect;
    int const room = node->side_by_side ? node->rect.Width() : node->rect.Height();
    int const wanted = node->side_by_side ? client->GetUndockWidth() : client->GetUndockHeight();
    int const share = wanted > 0 && wanted < room ? wanted : room / 2;
    node->keeps_second = !comes_first;
    node->first_size = comes_first ? share : room - c_border - share;
    node->second_size = comes_first ? room - c_border - share : share;
    node->first = comes_first ? std::move(added) : std::move(*slot);
    node->second = comes_first ? std::move(*slot) : std::move(added);
    node->first->parent = node.get();
    node->second->parent = node.get();
    node->border = std::make_unique<handle>(this, node.get(), vx_qt_widget(f_site->ClientWidget()));
    *slot = std::move(node);
    ResetBounds();
}

void TDockManager::RemoveControl(TControl *client)
{
    zone *const found = f_root ? f_root->find(client) : nullptr;
    if (!found)
        return;
    zone *const parent = found->parent;
    if (!parent) {
        f_root.reset();
        return;
    }
    std::unique_ptr<zone> other = std::move(parent->first.get() == found ? parent->second : parent->first);
    zone *const above = parent->parent;
    other->parent = above;
    if (!above)
        f_root = std::move(other);
    else if (above->first.get() == parent)
        above->first = std::move(other);
    else
        above->second = std::move(other);
    ResetBounds();
}

void TDockManager::ResetBounds()
{
    if (!f_root || f_site->IsDestroying())
        return;
    TRect rect = f_site->GetClientRect();
    f_site->AdjustClientRect(rect);
    lay_out(*f_root, rect);
}

void TDockManager::lay_out(zone &z, TRect const &rect)
{
    z.rect = rect;
    if (z.client) {
        if (z.client->GetVisible())
            z.client->SetBoundsRect(rect);
        return;
    }
    bool const both = z.first->visible() && z.second->visible();
    z.border->widget->setVisible(both);
    if (!both) {
        lay_out(z.first->visible() ? *z.first : *z.second, rect);
        return;
    }
    int const room = (z.side_by_side ? rect.Width() : rect.Height()) - c_border;
    int const largest = std::max(room - c_least_size, 0);
    int wanted = z.keeps_second ? room - z.second_size : z.first_size;
    if (z.scales_from > 0)
        wanted = static_cast<int>(static_cast<long long>(z.first_size) * room / z.scales_from);
    int const first = std::clamp(wanted, std::min(c_least_size, largest), largest);
    TRect a = rect;
    TRect b = rect;
    TRect border = rect;
    if (z.side_by_side) {
        a.Right = border.Left = rect.Left + first;
        b.Left = border.Right = a.Right + c_border;
    } else {
        a.Bottom = border.Top = rect.Top + first;
        b.Top = border.Bottom = a.Bottom + c_border;
    }
    z.border->widget->setGeometry(vx_qt_rect(border));
    lay_out(*z.first, a);
    lay_out(*z.second, b);
}

void TDockManager::move_border(zone &z, int distance)
{
    int const room = (z.side_by_side ? z.rect.Width() : z.rect.Height()) - c_border;
    int const now = z.side_by_side ? z.first->rect.Width() : z.first->rect.Height();
    z.first_size = std::clamp(now + distance, c_least_size, std::max(room - c_least_size, c_least_size));
    z.second_size = room - z.first_size;
    if (z.scales_from > 0)
        z.scales_from = std::max(room, 1);
    lay_out(z, z.rect);
}

TRect TDockManager::GetControlBounds(TControl const *client) const
{
    zone const *const found = f_root ? f_root->find(client) : nullptr;
    return found ? found->rect : TRect{};
}

void TDockManager::MoveBorder(TControl *client, TAlign side, int distance)
{
    zone *at = f_root ? f_root->find(client) : nullptr;
    bool const across = side == alLeft || side == alRight;
    bool const after = side == alRight || side == alBottom;
    for (; at && at->parent; at = at->parent) {
        zone *const parent = at->parent;
        if (parent->side_by_side == across && (parent->first.get() == at) == after) {
            move_border(*parent, distance);
            return;
        }
    }
}

void TDockManager::ShareEvenly(TControl *client)
{
    zone const *const found = f_root ? f_root->find(client) : nullptr;
    if (!found || !found->parent)
        return;
    zone &both = *found->parent;
    TRect const &first = both.first->rect;
    int const room = (both.side_by_side ? both.rect.Width() : both.rect.Height()) - c_border;
    both.scales_from = std::max(room, 1);
    move_border(both, room / 2 - (both.side_by_side ? first.Width() : first.Height()));
}
