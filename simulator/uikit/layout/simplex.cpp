// A tableau in Eigen's matrices. The point where it begins is feasible, so that there is no first phase.
#include "uikit/layout/simplex.h"

#include <cmath>

namespace sim {
namespace {

using Eigen::Index, Eigen::MatrixXd, Eigen::VectorXd;

constexpr Index nothing = -1;

/// At first every slack is basic and every variable non-basic. Variables have no sign to keep, and never
/// leave the basis once they are in it.
class Tableau {
  public:
    Tableau(const MatrixXd& constraints, VectorXd slacks, const VectorXd& objective)
        : constraints_(constraints.rows()),
          variables_(constraints.cols()),
          rows_(constraints_ + variables_ + 1, variables_),
          slacks_(std::move(slacks)),
          step_(VectorXd::Zero(variables_)),
          slack_of_(static_cast<size_t>(variables_), nothing) {
        rows_ << constraints, MatrixXd::Identity(variables_, variables_), objective.transpose();
    }

    SimplexResult raise(double goal) {
        while (goal > 0) {
            const Index entering = entering_column();
            if (entering == nothing) break;
            const double cost = reduced_cost(entering);
            const VectorXd direction = rows_.col(entering) * (cost < 0 ? -1 : 1);
            double length = goal / std::fabs(cost);
            const Index leaving = leaving_slack(direction, length);
            slacks_ = (slacks_ + length * direction.head(constraints_)).cwiseMax(0);
            step_ += length * direction.segment(constraints_, variables_);
            goal = leaving == nothing ? 0 : goal - length * std::fabs(cost);
            if (leaving != nothing) pivot(leaving, entering);
        }
        return {step_, goal, goal > 0 ? binding_constraints() : std::vector<size_t>{}};
    }

  private:
    double reduced_cost(Index column) const { return rows_(constraints_ + variables_, column); }
    Index slack_of(Index column) const { return slack_of_[static_cast<size_t>(column)]; }

    // A variable, by the largest coefficient and the last of equals, as long as there is one; each enters
    // once. After that the first slack that raises the objective, by Bland's rule: so no basis comes twice.
    Index entering_column() const {
        Index variable = nothing, slack = nothing;
        for (Index each = 0; each < variables_; ++each) {
            const double cost = reduced_cost(each);
            if (slack_of(each) == nothing) {
                const double best = variable == nothing ? negligible : std::fabs(reduced_cost(variable));
                if (std::fabs(cost) > negligible && std::fabs(cost) >= best) variable = each;
            } else if (cost > negligible && (slack == nothing || slack_of(each) < slack_of(slack))) {
                slack = each;
            }
        }
        return variable != nothing ? variable : slack;
    }

    // The ratio test: the slack that reaches zero first, the first of equals. Shortens the step to that.
    Index leaving_slack(const VectorXd& direction, double& length) const {
        Index leaving = nothing;
        for (Index slack = 0; slack < constraints_; ++slack) {
            if (direction(slack) >= -negligible || slacks_(slack) >= -direction(slack) * length) continue;
            length = slacks_(slack) / -direction(slack);
            leaving = slack;
        }
        return leaving;
    }

    void pivot(Index leaving, Index entering) {
        const VectorXd column = rows_.col(entering) / rows_(leaving, entering);
        Eigen::RowVectorXd row = rows_.row(leaving);
        row(entering) = 0;
        rows_.noalias() -= column * row;
        rows_.col(entering) = column;
        slack_of_[static_cast<size_t>(entering)] = leaving;
        slacks_(leaving) = 0;
    }

    std::vector<size_t> binding_constraints() const {
        std::vector<size_t> binding;
        for (Index each = 0; each < variables_; ++each)
            if (slack_of(each) != nothing && reduced_cost(each) < -negligible)
                binding.push_back(static_cast<size_t>(slack_of(each)));
        return binding;
    }

    Index constraints_, variables_;
    /// Slacks, variables and the objective in terms of what is non-basic, a column each. The last row has the
    /// reduced costs.
    MatrixXd rows_;
    VectorXd slacks_, step_;
    /// The slack that a column stands for; none for a variable.
    std::vector<Index> slack_of_;
};

}  // namespace

SimplexResult raise_objective(const MatrixXd& constraints, VectorXd slacks, const VectorXd& objective,
                              double goal) {
    return Tableau(constraints, std::move(slacks), objective).raise(goal);
}

}  // namespace sim
