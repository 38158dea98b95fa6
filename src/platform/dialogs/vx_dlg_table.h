#pragma once

#include "platform/base/color.h"
#include "platform/base/export.h"
#include "platform/dialogs/vx_file_dialog.h"
#include "platform/dialogs/vx_msgs.h"
#include "platform/toolkit/core/types.h"

#include <cstddef>

struct Ivx_entity;
class vx_fnt_type;

/// A host's own dialogs, in place of the built-in ones. A null entry leaves the built-in dialog. Each
/// function gets `user` first and otherwise what the plain function got, with the parent filled in and
/// checked: pointers are not null. All run on the main thread; none may throw.
struct vx_dlg_table
{
    /// Of the table as the host knows it: entries behind it count as null.
    std::size_t size = sizeof(vx_dlg_table);
    void *user = nullptr;
    bool (*color)(void *user, HWND parent, int x, int y, Tvx_color *color, int format) = nullptr;
    bool (*font)(void *user, HWND parent, int x, int y, vx_fnt_type *font) = nullptr;
    bool (*charmap)(void *user, HWND parent, int x, int y, vx_fnt_type *font, int *symbol) = nullptr;
    /// Serves all file dialogs.
    bool (*file)(void *user, HWND parent, int x, int y, Tvx_file_dialog_prm *prm) = nullptr;
    void (*message)(void *user, HWND parent, Tvx_msg_kind kind, wchar_t const *text) = nullptr;
    bool (*yesno)(void *user, HWND parent, wchar_t const *text) = nullptr;
    /// These four are taken all or none. `progress_start` gives what the others then get; `level` is 0 for
    /// the first piece of work and counts those begun inside it.
    void *(*progress_start)(void *user, HWND parent, int level, wchar_t const *caption) = nullptr;
    void (*progress_set)(void *user, void *progress, int percent, wchar_t const *caption) = nullptr;
    bool (*progress_is_stopped)(void *user, void *progress) = nullptr;
    void (*progress_finish)(void *user, void *progress) = nullptr;
    /// `data` may be null.
    bool (*attr_filter)(void *user, HWND parent, void *filter, Ivx_entity *data) = nullptr;
    bool (*style_advanced)(void *user, HWND parent, void *mngr, wchar_t const *file_name) = nullptr;
    bool (*clr_palettes)(void *user, HWND parent, void *palettes, wchar_t const *title) = nullptr;
};

/// Copies the table and puts it into force; null goes back to the built-in dialogs. Gives the former one, so
/// that it can be put back. Not while a dialog is open or work with progress is going on.
VX_API vx_dlg_table vx_dlg_set_table(vx_dlg_table const *table);
