#pragma once

class TBitmap;

/// Fills the bitmap with a small picture of a palette, a user's one or, where that is null, the built-in one
/// of the number: its colours from the left to the right or, with `random`, as tiles in an order by chance.
void vx_palette_swatch(TBitmap &bitmap, int number, void const *palette, bool random);
