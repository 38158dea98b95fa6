#pragma once

#include "platform/styles/detail/scale_model.h"

#include <memory>
#include <string>
#include <vector>

/// Style managers, their lists and text settings behind the opaque pointers.
namespace vx::styles {
/// Goes with one object: what is copied into it does not change that.
class life_token
{
public:
    life_token() = default;
    life_token(life_token const &) noexcept {}
    life_token &operator=(life_token const &) noexcept { return *this; }
    ~life_token() = default;

    [[nodiscard]] std::weak_ptr<void const> watch() const
    {
        if (!f_token)
            f_token = std::make_shared<char>();
        return f_token;
    }

private:
    mutable std::shared_ptr<char const> f_token; ///< made when it is first asked for
};

struct stl_mngr
{
    explicit stl_mngr(style_kind kind) : simple(kind), values(kind), ranges(kind), rules(kind) {}

    stl_prm simple;
    val_scale values;
    rng_scale ranges;
    val_scale rules;
    unsigned mode = 0;
    std::wstring name;
    std::wstring val_prop_name;
    std::wstring rng_prop_name;
    bool need_scale = false;
    bool just_loaded = false;
    bool rotate_flag = false;
    bool rotate_spot_flag = false;
    bool rotate_hatch_flag = false;
    std::wstring rotate_prop_name;
    int rotate_start = 0;
    int rotate_dir = 0;
    life_token life;

    /// What the 8-bit getters handed out last.
    mutable std::string narrow_val_prop_name;
    mutable std::string narrow_rng_prop_name;

    friend bool operator==(stl_mngr const &a, stl_mngr const &b);
};

struct stl_mngr_list
{
    explicit stl_mngr_list(style_kind k) : kind(k) { mngrs.push_back(std::make_unique<stl_mngr>(k)); }
    stl_mngr_list(stl_mngr_list const &source) { *this = source; }
    stl_mngr_list &operator=(stl_mngr_list const &source);
    ~stl_mngr_list() = default;

    style_kind kind = style_kind::pnt;
    std::vector<std::unique_ptr<stl_mngr>> mngrs; ///< never empty
    unsigned active = 0;
    bool visible = true;
};

struct txt_settings
{
    explicit txt_settings(style_kind kind) : list(kind) { list.visible = false; }
    stl_mngr_list list;
};
} // namespace vx::styles
