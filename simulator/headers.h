// What many of the simulator's files include, read once for all of them. Each includes what it needs all the
// same: the debug preset reads no more than that.
#pragma once
#include <algorithm>
#include <cmath>
#include <cstring>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "objc/class.h"
#include "platform/uikit.h"
