// The simplex method: raises a linear objective under inequalities, as far as is asked.
#pragma once
#include <Eigen/Dense>
#include <vector>

namespace sim {

/// Where a coefficient counts as zero.
inline constexpr double negligible = 1e-9;

struct SimplexResult {
    /// How far each variable has moved.
    Eigen::VectorXd step;
    /// What the objective lacks of its goal; 0 unless its maximum is below that.
    double shortfall = 0;
    /// At such a maximum, the rows of the binding constraints: those whose multiplier is not zero.
    std::vector<size_t> binding;
};

/// Raises `objective` * x by `goal`, or as far as `constraints` * x + `slacks` >= 0 allows. x begins at zero,
/// where each slack is at least zero, and its variables may take any sign. Throws nothing but std::bad_alloc.
SimplexResult raise_objective(const Eigen::MatrixXd& constraints, Eigen::VectorXd slacks,
                              const Eigen::VectorXd& objective, double goal);

}  // namespace sim
