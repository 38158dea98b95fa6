#pragma once

#include "platform/base/closure.h"
#include "platform/base/export.h"
#include "platform/base/unicode_string.h"
#include "platform/toolkit/core/object.h"
#include "platform/toolkit/core/types.h"

class TCanvas;

/// A picture of whatever kind: knows its size and draws itself. `OnChange` runs after every change of its
/// content.
class VX_API TGraphic : public TPersistent
{
public:
    TGraphic() = default;
    TGraphic(TGraphic const &) = delete;
    TGraphic &operator=(TGraphic const &) = delete;

    [[nodiscard]] virtual bool GetEmpty() const = 0;
    [[nodiscard]] virtual int GetWidth() const = 0;
    [[nodiscard]] virtual int GetHeight() const = 0;
    virtual void SetWidth(int width) = 0;
    virtual void SetHeight(int height) = 0;
    /// Fills `rect` of the canvas with the picture, stretched where the sizes differ.
    virtual void Draw(TCanvas *canvas, TRect const &rect) = 0;
    /// False if the file cannot be read as a picture; the content then stays as it is.
    [[nodiscard]] virtual bool LoadFromFile(UnicodeString const &file_name) = 0;
    /// The suffix chooses the format. The file is written beside its place and renamed over it; false leaves
    /// an old file whole.
    [[nodiscard]] virtual bool SaveToFile(UnicodeString const &file_name) const = 0;

    [[nodiscard]] bool GetTransparent() const { return f_transparent; }
    void SetTransparent(bool transparent);
    [[nodiscard]] bool GetModified() const { return f_modified; }
    void SetModified(bool modified) { f_modified = modified; }

    closure<void(TObject *)> OnChange;

protected:
    /// Marks the picture as modified and runs `OnChange`.
    void Changed();

    bool f_transparent = false;
    bool f_modified = false;
};
