// Climbing a slope between walls, as far up as is asked: how the solver finds its way among inequalities.
#pragma once
#include <Eigen/Dense>
#include <vector>

namespace sim {

struct Climb {
    /// How far each variable has moved.
    Eigen::VectorXd moved;
    /// How much of the height is missing: nothing, unless the walls leave no way up.
    double missing = 0;
    /// The walls, by their rows, that are then in the way.
    std::vector<size_t> walls;
};

/// Each row of `walls` says how one more of each variable changes the distance from that wall, which is at
/// least zero; `slope` says the same of the height.
Climb climb(const Eigen::MatrixXd& walls, Eigen::VectorXd distances, const Eigen::VectorXd& slope,
            double height);

}  // namespace sim
