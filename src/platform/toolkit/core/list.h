#pragma once

#include "platform/toolkit/core/component.h"

#include <memory>
#include <vector>

/// A list of plain pointers that owns nothing. Indices start at 0; a bad index throws `std::out_of_range`.
class VX_API TList : public TObject
{
public:
    int Add(void *item);
    void Insert(int index, void *item);
    void Delete(int index);
    /// Takes out the first occurrence; gives its former index, -1 if there is none.
    int Remove(void *item);
    void Exchange(int a, int b);
    void Move(int from, int to);
    void Clear();
    /// Takes out the null entries.
    void Pack();

    [[nodiscard]] int GetCount() const { return static_cast<int>(f_items.size()); }
    [[nodiscard]] void *GetItems(int index) const;
    void SetItems(int index, void *item);
    [[nodiscard]] void *operator[](int index) const { return GetItems(index); }
    [[nodiscard]] int IndexOf(void const *item) const;
    [[nodiscard]] void *First() const { return GetItems(0); }
    [[nodiscard]] void *Last() const { return GetItems(GetCount() - 1); }

private:
    std::vector<void *> f_items;
};

/// A list of components. A component that ends elsewhere leaves the list; with `OwnsObjects` the list frees
/// what is taken out of it or overwritten, and all of it at its end.
class VX_API TComponentList : public TObject
{
public:
    explicit TComponentList(bool owns_objects = true);
    ~TComponentList() override;

    int Add(TComponent *item);
    void Insert(int index, TComponent *item);
    void Delete(int index);
    int Remove(TComponent *item);
    /// Takes `item` out without freeing it; null if it is not in the list.
    TComponent *Extract(TComponent *item);
    void Clear();

    [[nodiscard]] int GetCount() const { return static_cast<int>(f_items.size()); }
    [[nodiscard]] TComponent *GetItems(int index) const;
    void SetItems(int index, TComponent *item);
    [[nodiscard]] TComponent *operator[](int index) const { return GetItems(index); }
    [[nodiscard]] int IndexOf(TComponent const *item) const;
    [[nodiscard]] bool GetOwnsObjects() const { return f_owns_objects; }
    void SetOwnsObjects(bool value) { f_owns_objects = value; }

private:
    class watcher;
    TComponent *take(int index);

    std::vector<TComponent *> f_items;
    std::unique_ptr<watcher> f_watcher;
    bool f_owns_objects;
};
