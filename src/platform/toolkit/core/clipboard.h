#pragma once

#include "platform/toolkit/core/object.h"
#include "platform/toolkit/core/types.h"

#include <string>

class TBitmap;

/// The system's clipboard. Own formats are told apart by their names.
class VX_API TClipboard : public TPersistent
{
public:
    [[nodiscard]] UnicodeString GetAsText() const;
    void SetAsText(UnicodeString const &text);
    [[nodiscard]] bool HasText() const;
    [[nodiscard]] bool HasPicture() const;
    /// From a bitmap; another kind of source changes nothing.
    void Assign(TPersistent const *source) override;
    /// False if the clipboard holds no picture.
    bool GetPicture(TBitmap *bitmap) const;
    /// Puts `bytes` there under the format's name, in place of all else.
    void SetData(UnicodeString const &format, std::string const &bytes);
    [[nodiscard]] bool HasFormat(UnicodeString const &format) const;
    /// Empty if the clipboard has nothing in that format.
    [[nodiscard]] std::string GetData(UnicodeString const &format) const;
    void Clear();
};

/// The one clipboard.
[[nodiscard]] VX_API TClipboard *Clipboard();
