// The player of sessions as a library, for containers written in whatever language.
#pragma once

#include <unknwn.h>

extern "C" {

/// Puts a new control into the container in the place of the one before, active in place, and gives
/// it with a reference, and a window that it lies within. A failure ends the playing.
using EmbedControl = HRESULT(__stdcall*)(void* context, IUnknown** control, HWND* container);

/// Plays every session of a folder and prints what came of each. Gives how many differ from what
/// was recorded, or -1 when there is none or a control could not be embedded.
__declspec(dllexport) int __stdcall PlaySessions(const wchar_t* folder, EmbedControl embed,
                                                 void* context);
}
