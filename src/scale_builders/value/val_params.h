#pragma once

#include "scale_builders/value/val_statistic.h"

#include <string>

/// What the value builder is told: one record for each mode, and which of them counts. Fields are reached by
/// `get_<field>` and `set_<field>`; names of fields and files are in the system code page.

/// Modes of `Tvx_val_params`.
enum Tvx_val_builder_mode : int
{
    c_val_builder_rebuild = 0,             ///< the scale is made anew from the data
    c_val_builder_rebuild_with_legend = 1, ///< the same, from the data and a standard legend
    c_val_builder_modify = 2,              ///< the scale that is there is brought up to date
};

class VX_API Tvx_val_params_rebuild
{
public:
    virtual ~Tvx_val_params_rebuild();

    /// The field that gives the captions.
    [[nodiscard]] std::string const &get_capt_propname() const { return f_capt_propname; }
    void set_capt_propname(std::string const &name) { f_capt_propname = name; }

private:
    std::string f_capt_propname;
};

class VX_API Tvx_val_params_modify
{
public:
    virtual ~Tvx_val_params_modify();

    /// Values that the scale does not hold are added.
    [[nodiscard]] bool get_add_flag() const { return f_add_flag; }
    void set_add_flag(bool flag) { f_add_flag = flag; }
    /// Entries whose value the data do not hold go.
    [[nodiscard]] bool get_del_flag() const { return f_del_flag; }
    void set_del_flag(bool flag) { f_del_flag = flag; }
    /// Captions are read anew, from this field.
    [[nodiscard]] bool get_capt_flag() const { return f_capt_flag; }
    void set_capt_flag(bool flag) { f_capt_flag = flag; }
    [[nodiscard]] std::string const &get_capt_propname() const { return f_capt_propname; }
    void set_capt_propname(std::string const &name) { f_capt_propname = name; }

private:
    bool f_add_flag = true;
    bool f_del_flag = false;
    bool f_capt_flag = false;
    std::string f_capt_propname;
};

/// A standard legend: a dBase table with a code that occurs in the data, the code of a library symbol and up
/// to three parts of a caption. Flags say which of these parts are taken.
class VX_API Tvx_val_params_rebuild_with_legend
{
public:
    virtual ~Tvx_val_params_rebuild_with_legend();

    [[nodiscard]] std::string const &get_legdbf_filename() const { return f_legdbf_filename; }
    void set_legdbf_filename(std::string const &name) { f_legdbf_filename = name; }
    [[nodiscard]] std::string const &get_lcode_propname() const { return f_lcode_propname; }
    void set_lcode_propname(std::string const &name) { f_lcode_propname = name; }
    [[nodiscard]] std::string const &get_bcode_propname() const { return f_bcode_propname; }
    void set_bcode_propname(std::string const &name) { f_bcode_propname = name; }
    [[nodiscard]] bool get_capt1_flag() const { return f_capt_flags[0]; }
    void set_capt1_flag(bool flag) { f_capt_flags[0] = flag; }
    [[nodiscard]] bool get_capt2_flag() const { return f_capt_flags[1]; }
    void set_capt2_flag(bool flag) { f_capt_flags[1] = flag; }
    [[nodiscard]] bool get_capt3_flag() const { return f_capt_flags[2]; }
    void set_capt3_flag(bool flag) { f_capt_flags[2] = flag; }
    [[nodiscard]] std::string const &get_capt1_propname() const { return f_capt_propnames[0]; }
    void set_capt1_propname(std::string const &name) { f_capt_propnames[0] = name; }
    [[nodiscard]] std::string const &get_capt2_propname() const { return f_capt_propnames[1]; }
    void set_capt2_propname(std::string const &name) { f_capt_propnames[1] = name; }
    [[nodiscard]] std::string const &get_capt3_propname() const { return f_capt_propnames[2]; }
    void set_capt3_propname(std::string const &name) { f_capt_propnames[2] = name; }
    /// Place of the library in the list of libraries (vx_global_lib_styles.h).
    [[nodiscard]] int get_stdlib_index() const { return f_stdlib_index; }
    void set_stdlib_index(int index) { f_stdlib_index = index; }

    void assign(Tvx_val_params_rebuild_with_legend const &other) { *this = other; }

private:
    std::string f_legdbf_filename;
    std::string f_lcode_propname;
    std::string f_bcode_propname;
    bool f_capt_flags[3] = {};
    std::string f_capt_propnames[3];
    int f_stdlib_index = 0;
};

/// The mode, the manager, the values that the data hold, and the records of all modes, which belong to it.
class VX_API Tvx_val_params
{
public:
    Tvx_val_params();
    virtual ~Tvx_val_params();
    Tvx_val_params(Tvx_val_params const &) = delete;
    Tvx_val_params &operator=(Tvx_val_params const &) = delete;

    /// A `Tvx_val_builder_mode`; any other value does nothing.
    [[nodiscard]] int get_mode() const { return f_mode; }
    void set_mode(int mode) { f_mode = mode; }
    /// Not owned.
    [[nodiscard]] void *get_stl_mngr() const { return f_stl_mngr; }
    void set_stl_mngr(void *mngr) { f_stl_mngr = mngr; }

    [[nodiscard]] Tvx_val_params_rebuild *get_rebuild_params_ptr() { return &f_rebuild; }
    [[nodiscard]] Tvx_val_params_rebuild_with_legend *get_rebuild_with_legend_params_ptr()
    {
        return &f_rebuild_with_legend;
    }
    [[nodiscard]] Tvx_val_params_modify *get_modify_params_ptr() { return &f_modify; }
    [[nodiscard]] Tvx_val_statistic *get_statistic_ptr() { return &f_statistic; }

private:
    int f_mode = c_val_builder_rebuild;
    void *f_stl_mngr = nullptr;
    Tvx_val_params_rebuild f_rebuild;
    Tvx_val_params_rebuild_with_legend f_rebuild_with_legend;
    Tvx_val_params_modify f_modify;
    Tvx_val_statistic f_statistic;
};
