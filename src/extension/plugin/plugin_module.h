#pragma once

#include "platform/base/basic_obj.h"
#include "platform/base/export.h"

#include <functional>
#include <memory>
#include <span>
#include <string>
#include <vector>

struct HINSTANCE__;

/// One module of plain functions that are found by their names. Its library stays loaded to the end of the
/// process.
///
/// Before a library is loaded its file is looked at, and its initialisers are tried in a copy of the process:
/// a file that is cut, or an initialiser that throws, would end it. A path may have "\" or "/" between its
/// parts; one that does not begin at the root is not loaded, since what the current folder holds is
/// anybody's.
class VX_API Tvx_plugin_module : public Tvx_basic_obj
{
public:
    explicit Tvx_plugin_module(wchar_t const *path);
    Tvx_plugin_module(Tvx_plugin_module const &) = delete;
    Tvx_plugin_module &operator=(Tvx_plugin_module const &) = delete;
    ~Tvx_plugin_module() override;

    /// The library's symbol, or null.
    [[nodiscard]] void *get_proc_address(char const *name) const;
    /// The module stays usable only if `value` is true.
    void check(bool value) { f_ok = f_ok && value; }
    [[nodiscard]] bool ok() const { return f_ok; }
    /// As it was given.
    [[nodiscard]] wchar_t const *get_path() const { return f_path.c_str(); }

protected:
    /// Loads the library only if its file says that it exports all `entries`: of other modules no code runs.
    Tvx_plugin_module(wchar_t const *path, std::span<char const *const> entries);

    /// Fetches an entry point, and checks that there is one.
    template <class Function>
    void resolve(Function *&function, char const *name)
    {
        function = reinterpret_cast<Function *>(get_proc_address(name));
        check(function != nullptr);
    }
    /// Runs code of the module. What it throws is told to the user, with the module's name; false then.
    bool run(std::function<void()> const &call) const;
    /// The module's own text, or its file's name where it has none.
    [[nodiscard]] char const *caption_or_name(char const *caption);

    std::wstring f_path;
    HINSTANCE__ *f_module = nullptr;
    bool f_ok = false;

private:
    std::string f_name;
};

class VX_API Tvx_plugin_module_factory : public Tvx_basic_obj
{
public:
    ~Tvx_plugin_module_factory() override;

    /// Null, or a module that `destroy_plugin_module` ends.
    [[nodiscard]] virtual Tvx_plugin_module *create_plugin_module(wchar_t const *path) = 0;
    virtual void destroy_plugin_module(Tvx_plugin_module *module) = 0;
};

/// The modules of one kind that a mask finds, in the order of their names. Files that are no module of the
/// kind are left out without a word, so modules of several kinds may share a folder.
class VX_API Tvx_plugin_module_set : public Tvx_basic_obj
{
public:
    /// `mask` is a folder and a pattern ("/opt/x/plugins/*.so"), from the root; null, and a mask that begins
    /// elsewhere, give an empty set. The factory outlives the set.
    Tvx_plugin_module_set(wchar_t const *mask, Tvx_plugin_module_factory *factory);
    Tvx_plugin_module_set(Tvx_plugin_module_set const &) = delete;
    Tvx_plugin_module_set &operator=(Tvx_plugin_module_set const &) = delete;
    ~Tvx_plugin_module_set() override;

    [[nodiscard]] unsigned get_plugin_count() const { return static_cast<unsigned>(f_modules.size()); }
    /// `index` is below the count.
    [[nodiscard]] Tvx_plugin_module *get_plugin(unsigned index) const { return f_modules[index]; }

protected:
    Tvx_plugin_module_factory *f_factory;
    std::vector<Tvx_plugin_module *> f_modules;
};

/// A set of modules of the class `T`, which is made of a path.
template <class T>
class Tvx_plugin_module_set_impl : public Tvx_plugin_module_set
{
public:
    class Tvx_plugin_module_factory_impl : public Tvx_plugin_module_factory
    {
    public:
        Tvx_plugin_module *create_plugin_module(wchar_t const *path) override { return new T(path); }
        void destroy_plugin_module(Tvx_plugin_module *module) override { delete module; }
    };

    explicit Tvx_plugin_module_set_impl(wchar_t const *mask) : Tvx_plugin_module_set(mask, factory()) {}

    [[nodiscard]] T *get_plugin(unsigned index) const
    {
        return static_cast<T *>(Tvx_plugin_module_set::get_plugin(index));
    }

private:
    static Tvx_plugin_module_factory *factory()
    {
        static Tvx_plugin_module_factory_impl one;
        return &one;
    }
};
