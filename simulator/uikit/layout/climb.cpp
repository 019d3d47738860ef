// Climbing between walls: the simplex method, for variables that have any sign. See the header.
#include "uikit/layout/climb.h"

#include <cmath>

namespace sim {
namespace {

using Eigen::Index, Eigen::MatrixXd, Eigen::VectorXd;

constexpr double negligible = 1e-9;
constexpr Index none = -1;

/// The coordinates are variables at first; a wall that was run into takes a coordinate's place, and is then
/// kept to, or left again.
class Climber {
  public:
    Climber(const MatrixXd& walls, VectorXd distances, const VectorXd& slope)
        : walls_(walls.rows()),
          variables_(walls.cols()),
          effects_(walls_ + variables_ + 1, variables_),
          distances_(std::move(distances)),
          moved_(VectorXd::Zero(variables_)),
          wall_of_(static_cast<size_t>(variables_), none) {
        effects_ << walls, MatrixXd::Identity(variables_, variables_), slope.transpose();
    }

    Climb up(double height) {
        while (height > 0) {
            const Index chosen = way_up();
            if (chosen == none) break;
            const double gain = std::fabs(gain_of(chosen));
            const VectorXd way = effects_.col(chosen) * (gain_of(chosen) < 0 ? -1 : 1);
            double step = height / gain;
            const Index wall = first_wall_on(way, step);
            distances_ = (distances_ + step * way.head(walls_)).cwiseMax(0);
            moved_ += step * way.segment(walls_, variables_);
            height = wall == none ? 0 : height - step * gain;
            if (wall != none) keep_to(wall, chosen);
        }
        return {moved_, height, height > 0 ? walls_in_the_way() : std::vector<size_t>{}};
    }

  private:
    double gain_of(Index coordinate) const { return effects_(walls_ + variables_, coordinate); }
    Index wall_of(Index coordinate) const { return wall_of_[static_cast<size_t>(coordinate)]; }

    // The steepest variable, the last of equals; or else the first wall that it pays to leave: taking the
    // first never goes round in circles.
    Index way_up() const {
        Index steepest = none, left = none;
        for (Index each = 0; each < variables_; ++each) {
            const double gain = gain_of(each);
            if (wall_of(each) == none) {
                const double best = steepest == none ? negligible : std::fabs(gain_of(steepest));
                if (std::fabs(gain) > negligible && std::fabs(gain) >= best) steepest = each;
            } else if (gain > negligible && (left == none || wall_of(each) < wall_of(left))) {
                left = each;
            }
        }
        return steepest != none ? steepest : left;
    }

    // Shortens the step to end at that wall.
    Index first_wall_on(const VectorXd& way, double& step) const {
        Index first = none;
        for (Index wall = 0; wall < walls_; ++wall) {
            if (way(wall) >= -negligible || distances_(wall) >= -way(wall) * step) continue;
            step = distances_(wall) / -way(wall);
            first = wall;
        }
        return first;
    }

    // The distance from the wall becomes the coordinate.
    void keep_to(Index wall, Index coordinate) {
        const VectorXd column = effects_.col(coordinate) / effects_(wall, coordinate);
        Eigen::RowVectorXd row = effects_.row(wall);
        row(coordinate) = 0;
        effects_.noalias() -= column * row;
        effects_.col(coordinate) = column;
        wall_of_[static_cast<size_t>(coordinate)] = wall;
        distances_(wall) = 0;
    }

    std::vector<size_t> walls_in_the_way() const {
        std::vector<size_t> pressing;
        for (Index each = 0; each < variables_; ++each)
            if (wall_of(each) != none && gain_of(each) < -negligible)
                pressing.push_back(static_cast<size_t>(wall_of(each)));
        return pressing;
    }

    Index walls_, variables_;
    /// What a step along each coordinate does: to the distance from each wall, to each variable, to the
    /// height.
    MatrixXd effects_;
    VectorXd distances_, moved_;
    std::vector<Index> wall_of_;
};

}  // namespace

Climb climb(const MatrixXd& walls, VectorXd distances, const VectorXd& slope, double height) {
    return Climber(walls, std::move(distances), slope).up(height);
}

}  // namespace sim
