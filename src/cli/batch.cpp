#include "cli/batch.h"

#include <algorithm>
#include <atomic>
#include <cctype>
#include <exception>
#include <filesystem>
#include <map>
#include <set>
#include <system_error>
#include <thread>

#include "cli/interrupt.h"
#include "cli/render.h"
#include "platform/files.h"

namespace veloria::cli {

namespace {

#ifdef _WIN32
constexpr const char* kSeparators = "/\\:";
#else
constexpr const char* kSeparators = "/";
#endif

// Where the system does not tell letter case apart, names that differ in it alone are one.
std::string asTold(std::string path) {
#ifdef _WIN32
    std::transform(path.begin(), path.end(), path.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
#endif
    return path;
}

std::filesystem::path systemPath(const std::string& utf8) {
    return {std::u8string(utf8.begin(), utf8.end())};
}

std::string twoGive(const std::string& first, const std::string& second, const std::string& output) {
    return first + " and " + second + " would both be rendered to " + output;
}

// What all threads of a run share.
struct Batch {
    const Options& options;
    const std::vector<BatchFile>& files;
    ProgressBar bar;
    std::atomic<std::size_t> next{0};  // the first that nobody has taken
    std::vector<char> failed;          // by file; each is written by the thread that has it
};

Fault renderOne(Batch& batch, std::size_t index) {
    const BatchFile& file = batch.files[index];
    try {
        return renderFile(batch.options, file.input, file.output, {batch.bar, index});
    } catch (const std::exception&) {
        // Nothing below throws but an allocation that cannot be had.
        return {file.input, "not enough memory"};
    }
}

void report(Batch& batch, std::size_t index, const Fault& fault) {
    const BatchFile& file = batch.files[index];
    if (fault.none()) {
        printLine(batch.bar, stdout, file.input + " -> " + file.output + "\n");
    } else {
        printLine(batch.bar, stderr, faultLine(fault));
    }
}

void renderAndReport(Batch& batch, std::size_t index) {
    const Fault fault = renderOne(batch, index);
    batch.failed[index] = fault.none() ? 0 : 1;
    drawProgress(batch.bar, index, 1.0);
    report(batch, index, fault);
}

// Renders files until none is left. Lets nothing out: it would end the program from a thread.
void work(Batch& batch) {
    while (!interrupted()) {
        const std::size_t index = batch.next.fetch_add(1);
        if (index >= batch.files.size()) return;
        try {
            renderAndReport(batch, index);
        } catch (const std::exception&) {
            // No memory even for its line: the last one of the run will name it, as one that failed.
            batch.failed[index] = 1;
        }
    }
}

void workTogether(Batch& batch, std::size_t jobs) {
    std::vector<std::thread> others;
    try {
        for (std::size_t i = 1; i < jobs; ++i)
            others.emplace_back(work, std::ref(batch));
    } catch (const std::exception&) {
        // As many as the system gives; this one is always there.
    }
    work(batch);
    for (std::thread& other : others)
        other.join();
}

std::size_t jobsFor(const Options& options, std::size_t files) {
    const std::size_t cores = std::max(1u, std::thread::hardware_concurrency());
    return std::min(options.jobs > 0 ? static_cast<std::size_t>(options.jobs) : cores, files);
}

// "2 of 5 files failed: b.mid, d.mid".
std::string failureText(const Batch& batch) {
    const auto count = std::count(batch.failed.begin(), batch.failed.end(), char{1});
    if (count == 0) return {};
    std::string text = std::to_string(count) + " of " + std::to_string(batch.files.size()) + " files failed:";
    for (std::size_t i = 0; i < batch.files.size(); ++i) {
        if (batch.failed[i] != 0) text += (text.back() == ':' ? " " : ", ") + batch.files[i].input;
    }
    return text;
}

bool makeFolder(const std::string& folder) {
    std::error_code fault;
    std::filesystem::create_directories(systemPath(folder), fault);
    return std::filesystem::is_directory(systemPath(folder), fault);
}

}  // namespace

std::string outputIn(const std::string& folder, const std::string& input) {
    const std::size_t separator = input.find_last_of(kSeparators);
    std::string name = separator == std::string::npos ? input : input.substr(separator + 1);
    const std::size_t dot = name.rfind('.');
    if (dot != std::string::npos && dot != 0) name.resize(dot);
    const bool open = std::string(kSeparators).find(folder.back()) == std::string::npos;
    return folder + (open ? "/" : "") + name + ".wav";
}

std::vector<BatchFile> planBatch(const Options& options, std::string& error) {
    std::vector<BatchFile> files;
    std::map<std::string, std::string> inputOf;                           // by output
    std::map<platform::FileIdentity, std::string> inputOfOld, inputsOwn;  // by what is there already
    for (const std::string& input : options.files) {
        if (const auto identity = platform::fileIdentity(input)) inputsOwn.emplace(*identity, input);
    }
    for (const std::string& input : options.files) {
        const std::string output = outputIn(options.outDir, input);
        const auto [first, isNew] = inputOf.emplace(asTold(output), input);
        if (!isNew) {
            error = twoGive(first->second, input, output);
            return {};
        }
        files.push_back({input, output});
        const auto old = platform::fileIdentity(output);
        if (!old) continue;
        if (const auto own = inputsOwn.find(*old); own != inputsOwn.end()) {
            error = own->second + " is an input and an output at once";
            return {};
        }
        if (const auto [other, isAlone] = inputOfOld.emplace(*old, input); !isAlone) {
            error = twoGive(other->second, input, output);
            return {};
        }
    }
    return files;
}

int runBatch(const Options& options) {
    std::string error;
    const std::vector<BatchFile> files = planBatch(options, error);
    if (!error.empty()) return misused(error);
    if (!makeFolder(options.outDir)) return fail(options.outDir, "is no folder and cannot be made one");
    noteLostReaders();
    Batch batch{options, files, {options, files.size()}, {}, std::vector<char>(files.size())};
    workTogether(batch, jobsFor(options, files.size()));
    endProgress(batch.bar);
    const std::string failures = failureText(batch);
    if (!failures.empty()) std::fprintf(stderr, "veloria-cli: %s\n", failures.c_str());
    return failures.empty() ? finishOutput() : kFailed;
}

}  // namespace veloria::cli
