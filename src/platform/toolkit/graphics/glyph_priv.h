#pragma once

class TBitmap;
class TCustomImageList;

/// Makes Qt icons of the toolkit's pictures and hands them to a button's widget, through which they are never
/// seen in a header. Transparent colours are taken out.
namespace vx::glyph {
/// An abstract button with the first and, for the disabled state, the second of `count` pictures side by
/// side.
void set_button(void *abstract_button, TBitmap const &glyph, int count);
/// A picture of a list; none for a number outside or a null list.
void set_button(void *abstract_button, TCustomImageList const *images, int index);
} // namespace vx::glyph
