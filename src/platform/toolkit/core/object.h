#pragma once

#include "platform/base/export.h"
#include "platform/base/unicode_string.h"

/// Root of the toolkit's classes. Objects have an identity: they are not copied.
class VX_API TObject
{
public:
    TObject() = default;
    TObject(TObject const &) = delete;
    TObject &operator=(TObject const &) = delete;
    virtual ~TObject();

    /// Ends an object made with `new`.
    void Free() { delete this; }
};

/// An object whose content can be taken over from another one.
class VX_API TPersistent : public TObject
{
public:
    /// Takes over what `source` holds; null or an object of a foreign kind changes nothing.
    virtual void Assign(TPersistent const *source);
};
