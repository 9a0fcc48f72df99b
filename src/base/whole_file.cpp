#include "base/whole_file.h"

namespace veloria {

WholeFile::WholeFile(const std::string& path) : place_(filePlace(path)) {
    switch (place_.kind) {
        case PlaceKind::None:
            return;
        case PlaceKind::Direct:
            file_ = openDirect(place_);
            return;
        case PlaceKind::Free:
        case PlaceKind::OldFile:
            file_ = openBeside(place_, beside_);
            return;
    }
}

WholeFile::~WholeFile() {
    abandon();
}

bool WholeFile::write(const void* bytes, std::size_t count) {
    if (good() && count > 0 && std::fwrite(bytes, 1, count, file_) != count) failed_ = true;
    return good();
}

bool WholeFile::canRewind() const {
    // A pipe tells no place.
    return file_ != nullptr && std::ftell(file_) >= 0;
}

bool WholeFile::rewriteStart(const void* bytes, std::size_t count) {
    if (good() && std::fseek(file_, 0, SEEK_SET) != 0) failed_ = true;
    return write(bytes, count);
}

bool WholeFile::finish() {
    if (!good()) {
        abandon();
        return false;
    }
    bool written = std::fflush(file_) == 0;
    // Where an old file is given up for it, the new one is on the disk first: else a power cut could leave
    // neither. Where nothing is lost nobody need wait for the disk.
    if (written && place_.kind == PlaceKind::OldFile) written = syncFile(file_);
    written = std::fclose(file_) == 0 && written;
    file_ = nullptr;
    if (beside_.empty()) return written;
    if (written && takePlace(beside_, place_)) return true;
    removeFile(beside_);
    return false;
}

void WholeFile::abandon() {
    if (file_ == nullptr) return;
    std::fclose(file_);
    file_ = nullptr;
    if (!beside_.empty()) removeFile(beside_);
}

bool writeWholeFile(const std::string& path, const void* bytes, std::size_t count) {
    WholeFile file(path);
    file.write(bytes, count);
    return file.finish();
}

}  // namespace veloria
