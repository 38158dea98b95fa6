#pragma once

class TCustomForm;

/// The form that documents stand in: the main form, else the first that takes any. Null if there is none.
[[nodiscard]] TCustomForm *vx_document_frame();
