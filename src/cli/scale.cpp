#include "cli/scale.h"

#include <cstdio>

#include "cli/session.h"
#include "frequency/scale_table.h"

namespace veloria::cli {

int runScale() {
    std::fputs(scaleDumpText(makeScaleTable()).c_str(), stdout);
    return finishOutput();
}

}  // namespace veloria::cli
