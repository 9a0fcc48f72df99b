#include "cli/interrupt.h"

#include <atomic>
#include <csignal>

namespace veloria::cli {

namespace {

std::atomic<int> g_signal{0};
static_assert(std::atomic<int>::is_always_lock_free, "it is written in a signal handler");

void note(int signal) {
    g_signal.store(signal, std::memory_order_relaxed);
    std::signal(signal, SIG_DFL);
}

// A signal that whoever started us had switched off (nohup does) stays so.
void noteOne(int signal) {
    if (std::signal(signal, note) == SIG_IGN) std::signal(signal, SIG_IGN);
}

}  // namespace

void noteInterrupts() {
    noteOne(SIGINT);
    noteOne(SIGTERM);
#ifdef SIGHUP
    noteOne(SIGHUP);
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
