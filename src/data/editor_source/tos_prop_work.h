#pragma once

#include "platform/base/closure.h"
#include "platform/base/export.h"
#include "platform/base/owned.h"
#include "platform/base/string_adp.h"
#include "platform/data/vx_file_tos4.h"

#include <string>

struct Ivx_layer;
struct Tvx_histogramm_data;
class TObject;

/// Answers the pull events of editors for a property file: that of a layer, or one by name. One property is
/// open at a time and stays so between questions, so that a walk over its objects costs one call a cell.
///
/// Texts stay valid until the next call of the same kind. Cells, statistics and names need the file open.
class VX_API Tvx_tos_prop_work
{
public:
    /// Where the layer comes from; may be unset.
    closure<Ivx_layer *()> on_get_tos_lr2d;
    /// Where the name of the file comes from when there is no layer; may be unset.
    closure<void(Ivx_string_adp *out)> on_get_tos_filename;

    Tvx_tos_prop_work();
    Tvx_tos_prop_work(Tvx_tos_prop_work const &) = delete;
    Tvx_tos_prop_work &operator=(Tvx_tos_prop_work const &) = delete;
    virtual ~Tvx_tos_prop_work();

    /// For reading.
    [[nodiscard]] virtual bool on_data_open(TObject *sender);
    virtual void on_data_close(TObject *sender);
    [[nodiscard]] virtual unsigned on_data_get_np(TObject *sender);
    /// Cut to 32 bits.
    [[nodiscard]] virtual unsigned on_data_get_no(TObject *sender);
    [[nodiscard]] virtual char const *on_data_get_prop(TObject *sender, unsigned prop, bool &usable,
                                                       bool &numeric);
    [[nodiscard]] virtual char const *on_data_get_capt_prop(TObject *sender, unsigned prop);
    [[nodiscard]] virtual wchar_t const *on_data_get_wprop(TObject *sender, unsigned prop, bool &usable,
                                                           bool &numeric);
    [[nodiscard]] virtual wchar_t const *on_data_get_capt_wprop(TObject *sender, unsigned prop);
    /// Statistics that the file does not have are written into it, for which it is opened for writing and
    /// stays so. False when that cannot be; the source is closed then.
    virtual bool on_data_get_stat(TObject *sender, unsigned prop, double &min, double &max, double &average,
                                  double &stddev, bool &ok);
    /// A histogram that the file does not have is worked out, and kept as the file is open.
    virtual bool on_data_get_histogramm(TObject *sender, unsigned prop, Tvx_histogramm_data *histogram);
    [[nodiscard]] virtual char const *on_data_get_str(TObject *sender, unsigned prop, unsigned obj,
                                                      bool &defined);
    /// Without a file `defined` stays as it is.
    [[nodiscard]] virtual double on_data_get_val(TObject *sender, unsigned prop, unsigned obj, bool &defined);
    /// Opens the file for the question where it is not.
    virtual void on_data_get_prop_file_name(TObject *sender, unsigned prop, Ivx_string_adp *out);

    [[nodiscard]] Ivx_layer *get_tos_lr2d() const;
    void get_tos_filename(Ivx_string_adp *out) const;
    /// Name of the property file; empty when there is none.
    [[nodiscard]] std::wstring fetch_tos_source() const;
    bool tos_open(bool read_only);
    void tos_close();
    bool data_open(unsigned prop);
    void data_close();
    /// Makes the file writable, with the same property open; false, with all closed, when it cannot be.
    bool force_update();
    [[nodiscard]] bool is_read_only() const { return f_read_only; }

private:
    /// Makes the property the open one.
    [[nodiscard]] bool need(unsigned prop);

    vx::owned<Ivx_tos4_file, &vx_tos4_file_close> f_file;
    vx::owned<Ivx_tos4_prop, &vx_tos4_prop_close> f_prop; ///< of `f_file`
    unsigned f_prop_index = 0;
    bool f_read_only = true;
    // What was given back last, one for each kind of call.
    std::string f_name;
    std::string f_caption;
    std::string f_text;
    std::wstring f_wname;
    std::wstring f_wcaption;
};
