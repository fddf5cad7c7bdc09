// The player of sessions as a library, for containers written in whatever language.
#pragma once

#include <unknwn.h>

extern "C" {

/// Replaces the container's control by a new one, active in place. Gives the control, with
/// a reference, and a window around it. A failure ends the playing.
using EmbedControl = HRESULT(__stdcall*)(void* context, IUnknown** control, HWND* container);

/// Plays every session of a folder and prints the outcome of each. Gives how many differ from the
/// recorded replies, or -1 when the folder has none or a control could not be embedded.
__declspec(dllexport) int __stdcall PlaySessions(const wchar_t* folder, EmbedControl embed,
                                                 void* context);
}
