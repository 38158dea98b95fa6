#include "platform/toolkit/menus/menu.h"

#include "platform/toolkit/bridge/qt_events.h"
#include "platform/toolkit/bridge/qt_graphics.h"
#include "platform/toolkit/bridge/qt_values.h"
#include "platform/toolkit/bridge/qt_widgets.h"
#include "platform/toolkit/core/form.h"
#include "platform/toolkit/graphics/bitmap.h"
#include "platform/toolkit/graphics/image_list.h"

#include <QtCore/QKeyCombination>
#include <QtCore/QPointer>
#include <QtCore/QStringLiteral>
#include <QtGui/QAction>
#include <QtGui/QActionGroup>
#include <QtGui/QIcon>
#include <QtGui/QKeySequence>
#include <QtGui/QPixmap>
#include <QtWidgets/QApplication>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QProxyStyle>
#include <QtWidgets/QStyle>

#include <algorithm>

/// The line in Qt's menus. `menu` holds the lines below; the root of a popup menu has one, the root of a menu
/// bar has `bar` in its place.
struct TMenuItem::native
{
    QAction action;
    /// Alone in a group of its own a line is drawn with a radio mark.
    std::unique_ptr<QActionGroup> radio;
    std::unique_ptr<QMenu> menu;
    QPointer<QMenuBar> bar;

    [[nodiscard]] QWidget *holder() const { return bar ? static_cast<QWidget *>(bar.data()) : menu.get(); }
};

namespace {
QString without_accelerator(UnicodeString const &caption)
{
    QString text = vx_qt_string(caption);
    text.replace(QStringLiteral("&&"), QStringLiteral("\x01"));
    text.remove(u'&');
    return text.replace(QStringLiteral("\x01"), QStringLiteral("&"));
}

constexpr char const *c_picture_width = "vx_picture_width";

/// Qt gives the pictures of a menu the room of a small square; here they get that of the widest one.
class picture_style final : public QProxyStyle
{
public:
    picture_style() : QProxyStyle(QApplication::style()->name()) {}

    int pixelMetric(PixelMetric metric, QStyleOption const *option, QWidget const *widget) const override
    {
        int const usual = QProxyStyle::pixelMetric(metric, option, widget);
        if (metric != PM_SmallIconSize || !widget)
            return usual;
        return std::max(usual, widget->property(c_picture_width).toInt());
    }
};

/// One for all menus; the application ends it.
QStyle *wide_pictures()
{
    static QPointer<QStyle> style;
    if (!style) {
        style = new picture_style;
        style->setParent(qApp);
    }
    return style;
}

void make_room(QWidget *menu, QSize const &picture)
{
    int const width = std::max(menu->property(c_picture_width).toInt(), picture.width());
    if (width <= menu->style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, menu))
        return;
    menu->setProperty(c_picture_width, width);
    menu->setStyle(wide_pictures());
}

QKeySequence to_sequence(TShortCut short_cut)
{
    Word key = 0;
    TShiftState shift;
    ShortCutToKey(short_cut, key, shift);
    if (key == 0)
        return {};
    Qt::KeyboardModifiers modifiers;
    modifiers.setFlag(Qt::ShiftModifier, shift.Contains(ssShift));
    modifiers.setFlag(Qt::ControlModifier, shift.Contains(ssCtrl));
    modifiers.setFlag(Qt::AltModifier, shift.Contains(ssAlt));
    return QKeySequence(QKeyCombination(modifiers, vx_qt_key(key)));
}
} // namespace

TMenuItem::TMenuItem(TComponent *owner) : TComponent(owner)
{
    vx_qt_ensure_application();
    f_native = std::make_unique<native>();
    // A popup menu clicks the chosen item itself, once the menu is closed; this is the way of the menu bar.
    QObject::connect(&f_native->action, &QAction::triggered, &f_native->action, [this] {
        apply();
        if (!dynamic_cast<TPopupMenu *>(GetParentMenu()))
            vx_guarded([this] {
                vx_event_scope const scope;
                Click();
            });
    });
    apply();
}

TMenuItem::~TMenuItem()
{
    if (f_action)
        f_action->UnRegisterClient(this);
    if (f_parent)
        f_parent->Remove(this);
    Clear();
}

TMenuItem *TMenuItem::GetItems(int index) const
{
    return index >= 0 && index < GetCount() ? f_items[static_cast<std::size_t>(index)] : nullptr;
}

TMenu *TMenuItem::GetParentMenu() const
{
    TMenuItem const *item = this;
    while (item->f_parent)
        item = item->f_parent;
    return item->f_menu;
}

void TMenuItem::Insert(int index, TMenuItem *item)
{
    if (!item || item == this)
        return;
    if (item->f_parent)
        item->f_parent->Remove(item);
    index = std::clamp(index, 0, GetCount());
    if (!f_native->holder()) {
        f_native->menu = std::make_unique<QMenu>();
        f_native->action.setMenu(f_native->menu.get());
        QObject::connect(f_native->menu.get(), &QMenu::aboutToShow, &f_native->action, [this] {
            vx_guarded([this] {
                vx_event_scope const scope;
                // The root of a popup menu has told already, by OnPopup.
                if (f_parent)
                    Click();
                prepare_below();
            });
        });
    }
    QAction *const before =
        index < GetCount() ? &f_items[static_cast<std::size_t>(index)]->f_native->action : nullptr;
    f_items.insert(f_items.begin() + index, item);
    item->f_parent = this;
    // Before it stands in the menu, which lays itself out at every change of a line.
    item->apply();
    f_native->holder()->insertAction(before, &item->f_native->action);
    item->apply_below();
}

void TMenuItem::Delete(int index)
{
    if (TMenuItem *item = GetItems(index))
        drop(item);
}

void TMenuItem::Remove(TMenuItem *item)
{
    if (item && item->f_parent == this)
        drop(item);
}

void TMenuItem::drop(TMenuItem *item)
{
    std::erase(f_items, item);
    item->f_parent = nullptr;
    if (QWidget *holder = f_native->holder())
        holder->removeAction(&item->f_native->action);
}

void TMenuItem::Clear()
{
    while (!f_items.empty())
        delete f_items.back();
}

int TMenuItem::IndexOf(TMenuItem const *item) const
{
    auto const at = std::find(f_items.begin(), f_items.end(), item);
    return at == f_items.end() ? -1 : static_cast<int>(at - f_items.begin());
}

TMenuItem *TMenuItem::Find(UnicodeString const &caption) const
{
    QString const wanted = without_accelerator(caption);
    for (TMenuItem *item : f_items)
        if (without_accelerator(item->f_caption).compare(wanted, Qt::CaseInsensitive) == 0)
            return item;
    return nullptr;
}

bool TMenuItem::IsLine() const
{
    return f_caption == L"-";
}

void TMenuItem::apply()
{
    QAction &action = f_native->action;
    bool const line = IsLine();
    action.setSeparator(line);
    action.setText(line ? QString() : vx_qt_string(f_caption));
    action.setToolTip(vx_qt_string(f_hint));
    // Without a hint Qt would show the caption again.
    if (!f_hint.IsEmpty() && f_parent && f_parent->f_native->menu)
        f_parent->f_native->menu->setToolTipsVisible(true);
    action.setEnabled(f_enabled);
    action.setVisible(f_visible);
    if (f_radio_item != (f_native->radio != nullptr)) {
        f_native->radio = f_radio_item ? std::make_unique<QActionGroup>(nullptr) : nullptr;
        if (f_radio_item)
            f_native->radio->addAction(&action);
    }
    action.setCheckable(f_checked || f_radio_item || f_auto_check);
    action.setChecked(f_checked);
    if (QFont font = action.font(); font.bold() != f_default) {
        font.setBold(f_default);
        action.setFont(font);
    }
    action.setShortcut(to_sequence(f_short_cut));
    // The toolkit runs the shortcuts itself; here they are only shown.
    action.setShortcutContext(Qt::WidgetShortcut);

    TBitmap picture;
    if (f_bitmap && !f_bitmap->GetEmpty())
        picture.Assign(f_bitmap.get());
    else if (f_image_index >= 0) {
        TMenu const *menu = GetParentMenu();
        auto const *linked = dynamic_cast<TCustomAction const *>(f_action);
        TCustomImageList const *images = menu ? menu->GetImages() : nullptr;
        if (!images && linked)
            images = linked->GetImages();
        if (images)
            images->GetBitmap(f_image_index, &picture);
    }
    if (picture.GetTransparent() && picture.GetAlphaFormat() == afIgnored && !picture.GetEmpty())
        picture.Mask(picture.GetTransparentColor());
    auto const pixmap = picture.GetEmpty() ? QPixmap() : QPixmap::fromImage(vx_qt_image(picture));
    if (QMenu *const menu = f_parent ? f_parent->f_native->menu.get() : nullptr; menu && !pixmap.isNull())
        make_room(menu, pixmap.deviceIndependentSize().toSize());
    action.setIcon(pixmap.isNull() ? QIcon() : QIcon(pixmap));
    action.setIconVisibleInMenu(true);
}

void TMenuItem::apply_below()
{
    for (TMenuItem *item : f_items) {
        item->apply();
        item->apply_below();
    }
}

void TMenuItem::prepare_below()
{
    auto const items = f_items;
    for (TMenuItem *item : items)
        if (IndexOf(item) >= 0 && item->f_action)
            item->f_action->Update();
}

void TMenuItem::SetCaption(UnicodeString const &caption)
{
    f_caption = caption;
    apply();
}

void TMenuItem::SetEnabled(bool enabled)
{
    f_enabled = enabled;
    apply();
}

void TMenuItem::SetVisible(bool visible)
{
    f_visible = visible;
    apply();
}

void TMenuItem::SetChecked(bool checked)
{
    if (f_checked == checked)
        return;
    f_checked = checked;
    if (checked && f_radio_item && f_parent)
        for (TMenuItem *other : f_parent->f_items)
            if (other != this && other->f_radio_item && other->f_group_index == f_group_index)
                other->SetChecked(false);
    apply();
}

void TMenuItem::SetAutoCheck(bool value)
{
    f_auto_check = value;
    apply();
}

void TMenuItem::SetRadioItem(bool value)
{
    f_radio_item = value;
    apply();
}

void TMenuItem::SetDefault(bool value)
{
    f_default = value;
    apply();
}

void TMenuItem::SetShortCut(TShortCut short_cut)
{
    f_short_cut = short_cut;
    apply();
}

void TMenuItem::SetHint(UnicodeString const &hint)
{
    f_hint = hint;
    apply();
}

void TMenuItem::SetImageIndex(int index)
{
    f_image_index = index;
    apply();
}

TBitmap *TMenuItem::GetBitmap()
{
    if (!f_bitmap) {
        f_bitmap = std::make_unique<TBitmap>();
        f_bitmap->OnChange = make_closure<&TMenuItem::on_bitmap_change>(this);
    }
    return f_bitmap.get();
}

void TMenuItem::SetBitmap(TBitmap const *bitmap)
{
    GetBitmap()->Assign(bitmap);
}

void TMenuItem::on_bitmap_change(TObject *)
{
    apply();
}

void TMenuItem::SetAction(TBasicAction *action)
{
    if (f_action == action)
        return;
    if (f_action) {
        f_action->UnRegisterClient(this);
        f_action->RemoveFreeNotification(this);
    }
    f_action = action;
    if (!action)
        return;
    action->FreeNotification(this);
    action->RegisterClient(this);
}

void TMenuItem::ActionChanged(TCustomAction const &action)
{
    f_caption = action.GetCaption();
    f_hint = action.GetHint();
    f_enabled = action.GetEnabled();
    f_visible = action.GetVisible();
    f_checked = action.GetChecked();
    f_image_index = action.GetImageIndex();
    f_short_cut = action.GetShortCut();
    apply();
}

void TMenuItem::Notification(TComponent *component, TOperation operation)
{
    TComponent::Notification(component, operation);
    if (operation == opRemove && component == f_action)
        f_action = nullptr;
}

void TMenuItem::Click()
{
    if (!f_enabled)
        return;
    if (f_auto_check && !f_action && (!f_checked || !f_radio_item))
        SetChecked(!f_checked);
    if (OnClick)
        OnClick(this);
    else if (f_action)
        f_action->Execute();
}

bool TMenuItem::run_short_cut(TShortCut short_cut)
{
    auto const items = f_items;
    for (TMenuItem *item : items) {
        if (item->run_short_cut(short_cut))
            return true;
        if (item->f_short_cut != short_cut)
            continue;
        if (item->f_action)
            item->f_action->Update();
        if (item->f_enabled) {
            item->Click();
            return true;
        }
    }
    return false;
}

TMenuItem *TMenuItem::find_chosen(void const *native_action)
{
    if (&f_native->action == native_action)
        return this;
    for (TMenuItem *item : f_items)
        if (TMenuItem *found = item->find_chosen(native_action))
            return found;
    return nullptr;
}

TMenu::TMenu(TComponent *owner) : TComponent(owner), f_items(std::make_unique<TMenuItem>(nullptr))
{
    f_items->f_menu = this;
}

TMenu::~TMenu()
{
    if (f_images)
        f_images->UnRegisterChanges(make_closure<&TMenu::images_changed>(this));
}

void TMenu::SetImages(TCustomImageList *images)
{
    if (f_images == images)
        return;
    if (f_images) {
        f_images->UnRegisterChanges(make_closure<&TMenu::images_changed>(this));
        f_images->RemoveFreeNotification(this);
    }
    f_images = images;
    if (images) {
        images->RegisterChanges(make_closure<&TMenu::images_changed>(this));
        images->FreeNotification(this);
    }
    f_items->apply_below();
}

void TMenu::images_changed(TObject *)
{
    f_items->apply_below();
}

void TMenu::Notification(TComponent *component, TOperation operation)
{
    TComponent::Notification(component, operation);
    if (operation == opRemove && component == f_images) {
        f_images = nullptr;
        f_items->apply_below();
    }
}

bool TMenu::IsShortCut(Word key, TShiftState shift)
{
    TShortCut const wanted = ShortCut(key, shift);
    return wanted != 0 && f_items->run_short_cut(wanted);
}

TPopupMenu::TPopupMenu(TComponent *owner) : TMenu(owner)
{
}

TPopupMenu::~TPopupMenu()
{
    CloseMenu();
}

void TPopupMenu::SetPopupComponent(TComponent *component)
{
    if (f_popup_component)
        f_popup_component->RemoveFreeNotification(this);
    f_popup_component = component;
    if (component)
        component->FreeNotification(this);
}

void TPopupMenu::Notification(TComponent *component, TOperation operation)
{
    TMenu::Notification(component, operation);
    if (operation == opRemove && component == f_popup_component)
        f_popup_component = nullptr;
}

void TPopupMenu::DoPopup(TObject *sender)
{
    OnPopup(sender);
}

void TPopupMenu::Popup(int x, int y)
{
    // One that is open stays so: of two loops on one menu the outer would not end.
    if (QMenu const *const open = f_items->f_native->menu.get(); open && open->isVisible())
        return;
    f_popup_point = {x, y};
    DoPopup(this);
    f_items->prepare_below();
    QMenu *const menu = f_items->f_native->menu.get();
    if (!menu)
        return;
    auto const seen = [](QAction const *action) { return action->isVisible() && !action->isSeparator(); };
    auto const actions = menu->actions();
    if (std::none_of(actions.begin(), actions.end(), seen))
        return;
    // Whoever runs while the menu is open may free it.
    QPointer<QMenu> const alive = menu;
    QAction const *chosen = menu->exec(QPoint(x, y));
    if (!alive || !chosen)
        return;
    if (TMenuItem *item = f_items->find_chosen(chosen))
        item->Click();
}

void TPopupMenu::CloseMenu()
{
    if (QMenu *menu = f_items->f_native->menu.get())
        menu->close();
}

/// A widget that the form's window may end before the menu does.
struct TMainMenu::bar
{
    QPointer<QMenuBar> widget;
    ~bar() { delete widget.data(); }
};

TMainMenu::TMainMenu(TComponent *owner) : TMenu(owner), f_bar(std::make_unique<bar>())
{
    f_bar->widget = new QMenuBar;
    // One bar in each window, also where a desktop would have a single one.
    f_bar->widget->setNativeMenuBar(false);
    f_items->f_native->bar = f_bar->widget;
    if (auto *form = dynamic_cast<TCustomForm *>(owner))
        form->SetMenu(this);
}

TMainMenu::~TMainMenu()
{
    f_items.reset();
}

vx_native_widget *TMainMenu::NativeBar()
{
    return vx_native(static_cast<QWidget *>(f_bar->widget.data()));
}
