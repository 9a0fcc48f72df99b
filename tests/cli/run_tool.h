// Runs the real veloria-cli and catches what it says.
#pragma once

#include <sys/wait.h>
#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "gtest/gtest.h"

namespace veloria::test {

struct ToolResult {
    int status;
    std::string out;
    std::string err;
};

inline std::string readText(const std::filesystem::path& path) {
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

// A folder of the running test's own, removed at its end. The same test may run in another checkout just now.
class ToolTest : public ::testing::Test {
  protected:
    void SetUp() override {
        const auto* info = ::testing::UnitTest::GetInstance()->current_test_info();
        folder = std::filesystem::path(::testing::TempDir()) /
                 (std::string("veloria_cli_") + info->test_suite_name() + "_" + info->name() + "_" +
                  std::to_string(getpid()));
        std::filesystem::remove_all(folder);
        std::filesystem::create_directories(folder);
    }
    void TearDown() override { std::filesystem::remove_all(folder); }

    std::string path(const std::string& name) const { return (folder / name).string(); }

    std::string write(const std::string& name, const std::vector<std::uint8_t>& bytes) const {
        std::ofstream stream(path(name), std::ios::binary);
        stream.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
        return path(name);
    }

    // Runs the tool in the folder with `arguments` as a shell reads them.
    ToolResult run(const std::string& arguments) const {
        const std::string command =
            "cd '" + folder.string() + "' && '" VELORIA_CLI "' " + arguments + " >out.txt 2>err.txt";
        const int status = std::system(command.c_str());
        return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, readText(folder / "out.txt"),
                readText(folder / "err.txt")};
    }

    std::filesystem::path folder;
};

}  // namespace veloria::test
