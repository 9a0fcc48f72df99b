// veloria-cli: the instrument without its window, for scripts, benchmarks and tests.
#include <cstdio>
#include <exception>

#include "cli/arguments.h"
#include "cli/notes.h"
#include "cli/render.h"
#include "cli/scale.h"
#include "cli/session.h"
#include "cli/walk.h"

namespace {

using namespace veloria::cli;

int run(const Options& options) {
    switch (options.command) {
        case Command::Render:
            return runRender(options);
        case Command::Walk:
            return runWalk(options);
        case Command::Notes:
            return runNotes(options);
        case Command::Scale:
            return runScale();
        case Command::Help:
            std::fputs(helpText().c_str(), stdout);
            return finishOutput();
        case Command::Version:
            std::puts("veloria-cli " VELORIA_VERSION);
            return finishOutput();
    }
    return kMisused;
}

}  // namespace

int main(int argc, char* argv[]) {
    try {
        const ParsedArguments parsed = parseArguments({argv + 1, argv + argc});
        if (!parsed.error.empty()) {
            std::fprintf(stderr, "veloria-cli: %s (see veloria-cli --help)\n", parsed.error.c_str());
            return kMisused;
        }
        return run(parsed.options);
    } catch (const std::exception&) {
        // Nothing below throws but an allocation that cannot be had.
        std::fputs("veloria-cli: not enough memory\n", stderr);
        return kFailed;
    }
}
