#pragma once

#include "controls/prop/data_events.h"

struct Ivx_string_adp;

/// The other pull events: objects (rows) and properties (columns) are counted from 0. Between a successful
/// open and its close the counts and the property list do not change, but for one case: reading that lasts is
/// shown to the user, inside the question for a cell, and where he stops it, or the data go, the number of
/// objects is 0 from then on and no cell has a value. Whoever walks over the objects therefore asks for their
/// number again where a cell has no value (`is_given_up` of `open_data`), and leaves everything as it was
/// when it is another.
///
/// Events of windows are handled while reading is shown.

using Tvx_data_get_no_event = closure<unsigned(TObject *sender)>;
/// Ready statistics of a numeric property: least and greatest value, mean, standard deviation, and whether
/// there are values at all. False if there are none; may be left unset.
using Tvx_data_get_stat_event = closure<bool(TObject *sender, unsigned prop, double &min, double &max,
                                             double &mean, double &deviation, bool &defined)>;
/// A cell as text, in the system code page; lives until the next call. `defined` is false for no value.
using Tvx_data_get_str_event =
    closure<char const *(TObject *sender, unsigned prop, unsigned obj, bool &defined)>;
using Tvx_data_get_val_event = closure<double(TObject *sender, unsigned prop, unsigned obj, bool &defined)>;
/// Base file name of the scale that belongs to the property; empty where scales have no files.
using Tvx_data_get_prop_file_name_event = closure<void(TObject *sender, unsigned prop, Ivx_string_adp *name)>;

/// All events by which data reach the editors of a style manager. Copied freely.
struct Tvx_data_events
{
    Tvx_data_open_event open;     ///< false means that there are no data now
    Tvx_data_close_event close;   ///< runs once for every successful open
    Tvx_data_get_np_event get_np; ///< number of properties
    Tvx_data_get_no_event get_no; ///< number of objects
    Tvx_data_get_prop_event get_prop;
    Tvx_data_get_capt_prop_event get_capt_prop;
    Tvx_data_get_stat_event get_stat;
    Tvx_data_get_str_event get_str;
    Tvx_data_get_val_event get_val;
    Tvx_data_get_prop_file_name_event get_prop_file_name;
};
