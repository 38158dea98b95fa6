#pragma once

namespace vx::dialogs {
/// From now on the parts of the toolkit's own file dialog have their texts in the language of the captions.
/// Needs the application object.
void translate_file_dialog();
} // namespace vx::dialogs
