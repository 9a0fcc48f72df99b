// The texts of the research pages.
#pragma once

#include "views/shared/research_page.h"

namespace veloria {

extern const ResearchPage katharaShortPage;  // in the main view
extern const ResearchPage katharaPage;       // in the KATHARA panel
extern const ResearchPage sacredPage;        // in the SACRED GEOMETRY panel

}  // namespace veloria
