#pragma once

#include <string>

// The root of the source tree, without a slash at its end: where tests find kept pictures, files and scripts.
// Only this function's own file knows the place, so that the objects of all tests are the same in every
// checkout.
const std::string& sourceDir();
