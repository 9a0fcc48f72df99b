// Ending a run from outside so that nothing half done is left behind.
#pragma once

namespace veloria::cli {

// From here on the first request to end (Ctrl+C, a closed terminal, SIGTERM) is only noted, for interrupted;
// a second Ctrl+C ends the program at once.
void noteInterrupts();

// Has a reader of standard output that went away (as head does) end the run in the same way. For runs that
// write lines while files are half done; any other is ended by the first line that nobody reads.
void noteLostReaders();

// True once the run is to end. Any thread.
[[nodiscard]] bool interrupted();

// Ends the program by the signal that asked for it, so that a shell knows; returns when none did.
void endIfInterrupted();

}  // namespace veloria::cli
