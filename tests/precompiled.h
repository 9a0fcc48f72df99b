#pragma once

// What nearly every test includes, parsed once for all test programs. A test still includes what it uses
// itself, so that it can be read and moved without this header.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <functional>
#include <limits>
#include <memory>
#include <random>
#include <set>
#include <string>
#include <vector>
