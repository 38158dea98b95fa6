#pragma once

class TObject;

/// The two fields of a table that is not there, a text and a number, for editors that ask by pull events.
struct sample_fields
{
    char const *text;
    char const *number;

    /// Binds an editor to the fields, which outlive it.
    template <class Edit>
    void bind(Edit *edit) const
    {
        auto *const self = const_cast<sample_fields *>(this);
        edit->set_on_data_open({&open, self});
        edit->set_on_data_close({&close, self});
        edit->set_on_data_get_np({&count, self});
        edit->set_on_data_get_prop({&name, self});
    }

private:
    static bool open(void *, TObject *) { return true; }
    static void close(void *, TObject *) {}
    static unsigned count(void *, TObject *) { return 2; }
    static char const *name(void *self, TObject *, unsigned field, bool &usable, bool &numeric)
    {
        usable = true;
        numeric = field == 1;
        auto const &fields = *static_cast<sample_fields const *>(self);
        return numeric ? fields.number : fields.text;
    }
};
