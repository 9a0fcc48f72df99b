#include "tests/source_dir.h"

const std::string& sourceDir() {
    static const std::string root = VELORIA_SOURCE_DIR;
    return root;
}
