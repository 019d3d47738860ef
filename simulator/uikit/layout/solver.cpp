// Elimination of equations, and the linear programs of inequalities.
#include "uikit/layout/solver.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "uikit/layout/simplex.h"

namespace sim {
namespace {

/// Points: less than this is rounding.
constexpr double tolerance = 1e-6;

/// The variable that is eliminated, or moved, for an expression's sake: the last of the largest coefficients.
Expression::Term pivot_of(const Expression& expression) {
    Expression::Term pivot = expression.terms().front();
    for (const auto& term : expression.terms())
        if (std::fabs(term.coefficient) >= std::fabs(pivot.coefficient)) pivot = term;
    return pivot;
}

}  // namespace

void Solver::Row::add(const Row& other, double factor) {
    expression.add(other.expression, factor);
    origin.add(other.origin, factor);
}

unsigned Solver::add_variable(double start) {
    point_.push_back(start);
    definitions_.emplace_back();
    bounds_of_.emplace_back();
    return static_cast<unsigned>(point_.size() - 1);
}

// ---- Elimination --------------------------------------------------------------------------------

// Brought up to date when it is asked for: it may mention variables that were eliminated later.
const Solver::Row& Solver::definition_of(unsigned variable) {
    Row& definition = *definitions_[variable];
    std::vector<unsigned> outdated;
    for (const auto& term : definition.expression.terms())
        if (term.variable != variable && definitions_[term.variable]) outdated.push_back(term.variable);
    for (unsigned other : outdated) {
        const double coefficient = definition.expression.coefficient_of(other);
        definition.add(definition_of(other), -coefficient);
    }
    return definition;
}

// Writes the row in terms of free variables.
void Solver::reduce(Row& row) {
    Expression::Terms taken;
    for (const auto& term : row.expression.terms())
        if (definitions_[term.variable]) taken.push_back(term);
    for (const auto& term : taken) row.add(definition_of(term.variable), -term.coefficient);
}

// The same of an expression alone: nobody asks where it comes from.
Expression Solver::in_free_variables(Expression expression) {
    const Expression::Terms terms = expression.terms();
    for (const auto& term : terms)
        if (definitions_[term.variable])
            expression.add(definition_of(term.variable).expression, -term.coefficient);
    return expression;
}

void Solver::eliminate(Row row) {
    if (row.expression.is_constant()) return;
    const Expression::Term pivot = pivot_of(row.expression);
    row.expression *= 1 / pivot.coefficient;
    row.origin *= 1 / pivot.coefficient;
    definitions_[pivot.variable] = std::move(row);
    for (size_t place : std::exchange(bounds_of_[pivot.variable], {})) {
        reduce(bounds_[place]);
        file_bound(place);
    }
}

double Solver::value_of_free(const Expression& reduced) const {
    double value = reduced.constant();
    for (const auto& term : reduced.terms()) value += term.coefficient * point_[term.variable];
    return value;
}

double Solver::value(Expression expression) {
    return value_of_free(in_free_variables(std::move(expression)));
}

// ---- Bounds -------------------------------------------------------------------------------------

void Solver::file_bound(size_t place) {
    for (const auto& term : bounds_[place].expression.terms()) {
        auto& filed = bounds_of_[term.variable];
        if (std::find(filed.begin(), filed.end(), place) == filed.end()) filed.push_back(place);
    }
}

// Whether the two are an equation together: each is the other's negation, without slack.
bool Solver::is_equation_with(const Row& bound, const Row& opposite) const {
    const auto &a = bound.expression.terms(), &b = opposite.expression.terms();
    if (a.empty() || a.size() != b.size()) return false;
    const double factor = -b.front().coefficient / a.front().coefficient;
    if (!(factor > 0)) return false;
    for (size_t i = 0; i < a.size(); ++i)
        if (a[i].variable != b[i].variable ||
            std::fabs(a[i].coefficient * factor + b[i].coefficient) > negligible)
            return false;
    return std::fabs(bound.expression.constant() * factor + opposite.expression.constant()) <= tolerance;
}

void Solver::add_bound(Row row) {
    if (row.expression.is_constant()) return;
    for (size_t place : bounds_of_[row.expression.terms().front().variable])
        if (is_equation_with(row, bounds_[place])) return eliminate(std::move(row));
    bounds_.push_back(std::move(row));
    file_bound(bounds_.size() - 1);
}

// The bounds that can become binding while this expression is minimised, and the variables of all of them.
std::vector<size_t> Solver::bounds_around(const Expression& reduced, std::vector<unsigned>& variables) const {
    std::vector<size_t> around;
    std::vector<bool> seen_variable(point_.size()), seen_bound(bounds_.size());
    auto visit = [&](const Expression& expression) {
        for (const auto& term : expression.terms()) {
            if (seen_variable[term.variable]) continue;
            seen_variable[term.variable] = true;
            variables.push_back(term.variable);
        }
    };
    visit(reduced);
    for (size_t next = 0; next < variables.size(); ++next)
        for (size_t place : bounds_of_[variables[next]]) {
            if (seen_bound[place] || bounds_[place].expression.coefficient_of(variables[next]) == 0) continue;
            seen_bound[place] = true;
            around.push_back(place);
            visit(bounds_[place].expression);
        }
    std::sort(around.begin(), around.end());
    return around;
}

// ---- Minimising ---------------------------------------------------------------------------------

// A linear program: the bounds are its constraints, the distance from zero is its objective. Without bounds
// one variable moves alone.
Solver::Minimised Solver::move_to_zero(const Expression& reduced) {
    using Eigen::Index, Eigen::MatrixXd, Eigen::VectorXd;
    const double value = value_of_free(reduced);
    if (reduced.is_constant() || value == 0) return {value, {}};

    std::vector<unsigned> variables;
    const std::vector<size_t> around = bounds_around(reduced, variables);
    if (around.empty()) {
        const Expression::Term alone = pivot_of(reduced);
        point_[alone.variable] -= value / alone.coefficient;
        return {0, {}};
    }

    std::vector<Index> column(point_.size());
    for (size_t i = 0; i < variables.size(); ++i) column[variables[i]] = static_cast<Index>(i);
    const auto width = static_cast<Index>(variables.size()), height = static_cast<Index>(around.size());
    MatrixXd constraints = MatrixXd::Zero(height, width);
    VectorXd slacks(height), objective = VectorXd::Zero(width);
    for (Index i = 0; i < height; ++i) {
        const Expression& bound = bounds_[around[static_cast<size_t>(i)]].expression;
        for (const auto& term : bound.terms()) constraints(i, column[term.variable]) = term.coefficient;
        slacks(i) = std::max(0.0, value_of_free(bound));
    }
    for (const auto& term : reduced.terms())
        objective(column[term.variable]) = value < 0 ? term.coefficient : -term.coefficient;

    const SimplexResult result = raise_objective(constraints, std::move(slacks), objective, std::fabs(value));
    for (size_t i = 0; i < variables.size(); ++i) point_[variables[i]] += result.step(static_cast<Index>(i));
    Minimised minimised{value < 0 ? -result.shortfall : result.shortfall, {}};
    for (size_t row : result.binding) minimised.binding.push_back(around[row]);
    return minimised;
}

// ---- Demands ------------------------------------------------------------------------------------

std::vector<unsigned> Solver::sources_of(const Row& row, const std::vector<size_t>& bounds,
                                         unsigned except) const {
    Expression all = row.origin;
    for (size_t place : bounds)
        for (const auto& term : bounds_[place].origin.terms())
            if (all.coefficient_of(term.variable) == 0) all.add(Expression::of(term.variable), 1);
    std::vector<unsigned> sources;
    for (const auto& term : all.terms())
        if (term.variable != except) sources.push_back(term.variable);
    return sources;
}

Solver::Verdict Solver::hold(const Expression& expression, Relation relation, Importance importance,
                             unsigned source) {
    Row row{expression, Expression::of(source)};
    if (relation == Relation::at_most) row.expression *= -1;
    reduce(row);
    const double before = value_of_free(row.expression);
    const bool is_bound = relation != Relation::equal;
    if (is_bound && before >= 0) return add_bound(std::move(row)), Verdict{};

    const Minimised minimised = move_to_zero(row.expression);
    if (is_bound ? minimised.value >= -tolerance : std::fabs(minimised.value) <= tolerance) {
        is_bound ? add_bound(std::move(row)) : eliminate(std::move(row));
        return {};
    }
    Verdict verdict{false, sources_of(row, minimised.binding, source)};
    if (importance == Importance::optional) {
        row.expression.add(minimised.value, -1);
        eliminate(std::move(row));
    }
    return verdict;
}

bool Solver::is_determined(Expression expression) {
    const Expression reduced = in_free_variables(std::move(expression));
    if (reduced.is_constant()) return true;
    const std::vector<double> kept = point_;
    bool moves = false;
    for (double way : {1.0, -1.0}) {
        const double goal = value_of_free(reduced) + way;
        const Minimised minimised = move_to_zero(reduced - goal);
        point_ = kept;
        moves = moves || std::fabs(minimised.value) < 1 - tolerance;
    }
    return !moves;
}

}  // namespace sim
