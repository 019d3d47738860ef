// Measurements in processes of their own.
#pragma once
#include <functional>
#include <vector>

namespace bench {

/// The figures that `measure` answers in a process forked from this one; they are as many as that.
std::vector<double> in_child(size_t figures, const std::function<std::vector<double>()>& measure);

}  // namespace bench
