#include "platform/toolkit/core/list.h"

#include <algorithm>
#include <stdexcept>

namespace {
std::size_t checked(int index, std::size_t count)
{
    if (index < 0 || static_cast<std::size_t>(index) >= count)
        throw std::out_of_range("list index out of bounds");
    return static_cast<std::size_t>(index);
}

template <class T>
int index_of(std::vector<T *> const &items, void const *item)
{
    auto const found = std::find(items.begin(), items.end(), item);
    return found == items.end() ? -1 : static_cast<int>(found - items.begin());
}
} // namespace

int TList::Add(void *item)
{
    f_items.push_back(item);
    return GetCount() - 1;
}

void TList::Insert(int index, void *item)
{
    f_items.insert(f_items.begin() + static_cast<std::ptrdiff_t>(checked(index, f_items.size() + 1)), item);
}

void TList::Delete(int index)
{
    f_items.erase(f_items.begin() + static_cast<std::ptrdiff_t>(checked(index, f_items.size())));
}

int TList::Remove(void *item)
{
    int const index = IndexOf(item);
    if (index >= 0)
        Delete(index);
    return index;
}

void TList::Exchange(int a, int b)
{
    std::swap(f_items[checked(a, f_items.size())], f_items[checked(b, f_items.size())]);
}

void TList::Move(int from, int to)
{
    void *const item = GetItems(from);
    checked(to, f_items.size());
    Delete(from);
    Insert(to, item);
}

void TList::Clear()
{
    f_items.clear();
}

void TList::Pack()
{
    std::erase(f_items, nullptr);
}

void *TList::GetItems(int index) const
{
    return f_items[checked(index, f_items.size())];
}

void TList::SetItems(int index, void *item)
{
    f_items[checked(index, f_items.size())] = item;
}

int TList::IndexOf(void const *item) const
{
    return index_of(f_items, item);
}

/// Hears of the end of the listed components.
class TComponentList::watcher final : public TComponent
{
public:
    explicit watcher(TComponentList *list) : TComponent(nullptr), f_list(list) {}

protected:
    void Notification(TComponent *component, TOperation operation) override
    {
        if (operation == opRemove)
            std::erase(f_list->f_items, component);
        TComponent::Notification(component, operation);
    }

private:
    TComponentList *f_list;
};

TComponentList::TComponentList(bool owns_objects)
    : f_watcher(std::make_unique<watcher>(this)), f_owns_objects(owns_objects)
{
}

TComponentList::~TComponentList()
{
    Clear();
}

int TComponentList::Add(TComponent *item)
{
    Insert(GetCount(), item);
    return GetCount() - 1;
}

void TComponentList::Insert(int index, TComponent *item)
{
    f_items.insert(f_items.begin() + static_cast<std::ptrdiff_t>(checked(index, f_items.size() + 1)), item);
    if (item)
        item->FreeNotification(f_watcher.get());
}

TComponent *TComponentList::take(int index)
{
    auto const at = checked(index, f_items.size());
    TComponent *const item = f_items[at];
    f_items.erase(f_items.begin() + static_cast<std::ptrdiff_t>(at));
    if (item && IndexOf(item) < 0)
        item->RemoveFreeNotification(f_watcher.get());
    return item;
}

void TComponentList::Delete(int index)
{
    TComponent *const item = take(index);
    if (f_owns_objects)
        delete item;
}

int TComponentList::Remove(TComponent *item)
{
    int const index = IndexOf(item);
    if (index >= 0)
        Delete(index);
    return index;
}

TComponent *TComponentList::Extract(TComponent *item)
{
    int const index = IndexOf(item);
    return index < 0 ? nullptr : take(index);
}

void TComponentList::Clear()
{
    // One by one: the end of a component may take others with it.
    while (!f_items.empty())
        Delete(GetCount() - 1);
}

TComponent *TComponentList::GetItems(int index) const
{
    return f_items[checked(index, f_items.size())];
}

void TComponentList::SetItems(int index, TComponent *item)
{
    if (GetItems(index) == item)
        return;
    TComponent *const old = take(index);
    Insert(index, item);
    if (f_owns_objects)
        delete old;
}

int TComponentList::IndexOf(TComponent const *item) const
{
    return index_of(f_items, item);
}
