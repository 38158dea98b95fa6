#pragma once

#include "platform/toolkit/core/component.h"
#include "platform/toolkit/core/key_codes.h"

#include <vector>

class TActionList;
class TCustomAction;
class TCustomImageList;

/// Something that can be done, by itself: knows what runs and who shows it. A client is a control or a menu
/// item; it is linked by its own `SetAction`.
class VX_API TBasicAction : public TComponent
{
public:
    explicit TBasicAction(TComponent *owner);
    ~TBasicAction() override;

    /// Runs `OnUpdate`, then, unless the action is disabled, `OnExecute`. False if nothing was run.
    virtual bool Execute();
    /// Brings the action up to date. Runs before the action is executed and before a menu that shows it
    /// opens.
    virtual bool Update();

    /// Called by `SetAction` of the client: hands it the action's properties, now and after each change.
    void RegisterClient(TComponent *client);
    void UnRegisterClient(TComponent *client);
    [[nodiscard]] int GetClientCount() const { return static_cast<int>(f_clients.size()); }

    TNotifyEvent OnExecute;
    TNotifyEvent OnUpdate;
    TNotifyEvent OnChange;

protected:
    /// Tells all clients and the list.
    void Change();
    virtual void ChangeClient(TComponent *client);
    void Notification(TComponent *component, TOperation operation) override;

private:
    std::vector<TComponent *> f_clients;
};

/// What a client implements that shows more of an action than caption, hint, enabled and visible.
class vx_action_client
{
public:
    virtual void ActionChanged(TCustomAction const &action) = 0;

protected:
    ~vx_action_client() = default;
};

/// An action with a face.
class VX_API TCustomAction : public TBasicAction
{
public:
    explicit TCustomAction(TComponent *owner);
    ~TCustomAction() override;

    bool Execute() override;

    [[nodiscard]] UnicodeString const &GetCaption() const { return f_caption; }
    void SetCaption(UnicodeString const &caption);
    [[nodiscard]] UnicodeString const &GetHint() const { return f_hint; }
    void SetHint(UnicodeString const &hint);
    [[nodiscard]] bool GetEnabled() const { return f_enabled; }
    void SetEnabled(bool enabled);
    [[nodiscard]] bool GetVisible() const { return f_visible; }
    void SetVisible(bool visible);
    [[nodiscard]] bool GetChecked() const { return f_checked; }
    /// Among the checked actions of one list and one group above 0 only one stays.
    void SetChecked(bool checked);
    /// True: each execution turns `Checked` round.
    [[nodiscard]] bool GetAutoCheck() const { return f_auto_check; }
    void SetAutoCheck(bool value) { f_auto_check = value; }
    [[nodiscard]] int GetGroupIndex() const { return f_group_index; }
    void SetGroupIndex(int value) { f_group_index = value; }
    [[nodiscard]] int GetImageIndex() const { return f_image_index; }
    void SetImageIndex(int index);
    [[nodiscard]] TShortCut GetShortCut() const { return f_short_cut; }
    void SetShortCut(TShortCut short_cut);
    [[nodiscard]] TActionList *GetActionList() const { return f_list; }
    /// Joins the end of the list, or leaves the one it is in (null).
    void SetActionList(TActionList *list);
    /// The pictures of the list; null without one.
    [[nodiscard]] TCustomImageList *GetImages() const;

protected:
    void ChangeClient(TComponent *client) override;

private:
    friend class TActionList;

    template <class T>
    void change(T &field, T const &value);

    TActionList *f_list = nullptr;
    UnicodeString f_caption;
    UnicodeString f_hint;
    int f_image_index = -1;
    int f_group_index = 0;
    TShortCut f_short_cut = 0;
    bool f_enabled = true;
    bool f_visible = true;
    bool f_checked = false;
    bool f_auto_check = false;
};

class VX_API TAction : public TCustomAction
{
public:
    using TCustomAction::TCustomAction;
};

/// Actions that stand together. The form that the list belongs to, itself or through owners, offers it the
/// keys that are typed, so that shortcuts work while any control of the form has the focus.
class VX_API TActionList : public TComponent
{
public:
    explicit TActionList(TComponent *owner);
    ~TActionList() override;

    [[nodiscard]] int GetActionCount() const { return static_cast<int>(f_actions.size()); }
    /// From 0; null outside.
    [[nodiscard]] TCustomAction *GetActions(int index) const;
    [[nodiscard]] TCustomImageList *GetImages() const { return f_images; }
    void SetImages(TCustomImageList *images);
    /// Executes the enabled action with this shortcut; false if there is none.
    bool IsShortCut(Word key, TShiftState shift);

    /// Runs before the action's own event; `handled` true keeps that from running.
    closure<void(TBasicAction *action, bool &handled)> OnExecute;
    TNotifyEvent OnChange;

protected:
    void Notification(TComponent *component, TOperation operation) override;

private:
    friend class TCustomAction;
    void images_changed(TObject *sender);

    std::vector<TCustomAction *> f_actions;
    TCustomImageList *f_images = nullptr;
};

/// Offers a key to the action lists and menus of `root`, those of the components that it owns and those of
/// the popup menus of the controls from `focused` upward. True if one took it.
VX_API bool vx_run_short_cut(TComponent *root, TComponent *focused, Word key, TShiftState shift);
