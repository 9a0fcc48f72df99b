// A folder of a test's own, gone with all that it holds at the end of the scope.
#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

namespace veloria::test {

class ScratchFolder {
  public:
    ScratchFolder() {
        std::string pattern = (std::filesystem::temp_directory_path() / "veloria-test-XXXXXX").string();
        if (mkdtemp(pattern.data()) == nullptr) ADD_FAILURE() << "no folder to work in";
        m_path = pattern;
    }
    ~ScratchFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    [[nodiscard]] const std::string& path() const { return m_path; }
    [[nodiscard]] std::string operator/(std::string_view name) const {
        return m_path + "/" + std::string(name);
    }

    // Writes a file and returns its path.
    std::string write(std::string_view name, std::string_view bytes) const {
        const std::string path = *this / name;
        std::ofstream file(path, std::ios::binary);
        file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        if (!file) ADD_FAILURE() << "cannot write " << path;
        return path;
    }

  private:
    std::string m_path;
};

}  // namespace veloria::test
