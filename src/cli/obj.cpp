#include "cli/obj.h"

#include <string>

#include "cli/output.h"
#include "views/scene/geometry/obj_export.h"

namespace veloria::cli {

int runObj(const Options& options) {
    const std::string& path = options.files[0];
    return statusOf(writeFault(path, exportKatharaObj(path, options.teslaCoordinates)));
}

}  // namespace veloria::cli
