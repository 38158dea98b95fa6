#pragma once

namespace vx::toolkit {
/// From now on what the window system brings along speaks the language of the captions: menus of edits and
/// scroll bars, standard buttons, the file dialog. A translator that the host installs later comes first.
/// Needs the application object; cheap when called again.
void translate_standard_texts();
} // namespace vx::toolkit
