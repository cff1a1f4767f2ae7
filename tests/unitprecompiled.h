/// What nearly every unit test includes, compiled once; no Qt, which the lowest floor doesn't know.
#ifndef UNITPRECOMPILED_H
#define UNITPRECOMPILED_H

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <functional>
#include <limits>
#include <map>
#include <memory>
#include <numbers>
#include <random>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#endif
