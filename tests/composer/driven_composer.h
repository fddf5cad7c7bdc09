// The composer's window in a process of its own, led by lines on standard input, so that a test can
// kill it at any moment.
#pragma once

namespace zolt20::tests {

/// Opens the window on a catalogue and a file of rules; goes on where a composer was that was
/// killed. Takes one line after the other, also within the dialogs that come:
///
///   {"user":...}     a gesture in the innermost composer; so are {"undo":true} and {"redo":true}
///   {"reopen":true}  opens the file of rules again
///   kept             waits until all is on the disk, and says "kept"
///   state            says "state SUM", over all that can be seen of the open composers
///
/// Ends with its input.
int DriveComposer(const char* catalogue, const char* rules);

}  // namespace zolt20::tests
