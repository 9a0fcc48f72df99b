#include "cli/interrupt.h"

#include <atomic>
#include <csignal>

namespace veloria::cli {

namespace {

std::atomic<int> g_signal{0};
static_assert(std::atomic<int>::is_always_lock_free, "it is written in a signal handler");

// A second Ctrl+C ends the program at once: whoever waits at a terminal may have lost patience.
void noteFirst(int signal) {
    g_signal.store(signal, std::memory_order_relaxed);
    std::signal(signal, SIG_DFL);
}

// The others come in twos: timeout tells the program and then its whole group, and of a lost reader each line
// that some thread has still to write tells again.
void noteEach(int signal) {
    g_signal.store(signal, std::memory_order_relaxed);
    std::signal(signal, noteEach);
}

// A signal that whoever started us had switched off (nohup does) stays so.
void handle(int signal, void (*handler)(int)) {
    if (std::signal(signal, handler) == SIG_IGN) std::signal(signal, SIG_IGN);
}

}  // namespace

void noteInterrupts() {
    handle(SIGINT, noteFirst);
    handle(SIGTERM, noteEach);
#ifdef SIGHUP
    handle(SIGHUP, noteEach);
#endif
}

void noteLostReaders() {
#ifdef SIGPIPE
    handle(SIGPIPE, noteEach);
#endif
}

bool interrupted() {
    return g_signal.load(std::memory_order_relaxed) != 0;
}

void endIfInterrupted() {
    if (!interrupted()) return;
    std::signal(g_signal.load(), SIG_DFL);
    std::raise(g_signal.load());
}

}  // namespace veloria::cli
