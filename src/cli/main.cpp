// veloria-cli: the instrument without its window, for scripts, benchmarks and tests.
#include <cstdio>
#include <exception>
#include <string>

#include "base/file_place.h"
#include "cli/arguments.h"
#include "cli/batch.h"
#include "cli/clips.h"
#include "cli/interrupt.h"
#include "cli/notes.h"
#include "cli/obj.h"
#include "cli/record.h"
#include "cli/render.h"
#include "cli/scale.h"
#include "cli/session.h"
#include "cli/walk.h"
#include "platform/files.h"

namespace {

using namespace veloria::cli;

// True when the file that would be read is the one that would be written.
bool wouldEatItsInput(const Options& options) {
    const bool oneToOne = options.command == Command::Render || options.command == Command::Record;
    if (!oneToOne || !options.outDir.empty()) return false;
    const auto input = veloria::platform::fileIdentity(options.files[0]);
    return input && input == veloria::platform::fileIdentity(options.files[1]);
}

int run(const Options& options) {
    switch (options.command) {
        case Command::Render:
            return options.outDir.empty() ? runRender(options) : runBatch(options);
        case Command::Record:
            return runRecord(options);
        case Command::Walk:
            return runWalk(options);
        case Command::Notes:
            return runNotes(options);
        case Command::Clips:
            return runClips(options);
        case Command::Scale:
            return runScale();
        case Command::Obj:
            return runObj(options);
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
    veloria::outliveFileSizeLimit();
    std::string file = "arguments";
    try {
        const ParsedArguments parsed = parseArguments({argv + 1, argv + argc});
        if (!parsed.error.empty()) return misused(parsed.error);
        if (!parsed.options.files.empty()) file = parsed.options.files[0];
        if (wouldEatItsInput(parsed.options)) return misused(file + " is the input and the output at once");
        noteInterrupts();
        const int status = run(parsed.options);
        endIfInterrupted();
        return status;
    } catch (const std::exception&) {
        // Nothing below throws but an allocation that cannot be had.
        return fail(file, "not enough memory");
    }
}
