// Solves the equations and inequalities of a layout, given one after another, the most important first.
#pragma once
#include <cstddef>
#include <optional>
#include <vector>

#include "uikit/layout/expression.h"

namespace sim {

/// How an expression compares with zero.
enum class Relation { at_most = -1, equal = 0, at_least = 1 };

/// Keeps a feasible point, one value for each variable, of everything held so far. A new demand moves the
/// point as near to itself as what is held allows (the error is the objective, which the simplex method
/// lowers), and is held there from then on: lexicographic goal programming, in which what comes first is
/// never given up for what comes later.
///
/// Equations eliminate a variable: it is written in terms of the free ones from then on, so that what they
/// determine is exact. Inequalities are bounds, each with the slack that the point leaves it.
///
/// What cannot be met is a verdict, not an error. Throws nothing but std::bad_alloc.
class Solver {
  public:
    /// A new variable, which nothing holds yet.
    unsigned add_variable(double start);

    enum class Importance {
        /// What cannot be met is not held at all.
        required,
        /// What cannot be met is held as near as it gets.
        optional,
    };
    struct Verdict {
        bool met = true;
        /// The demands, by their sources, that stand against this one.
        std::vector<unsigned> against;
    };
    /// `source` is the caller's number of this demand, unlike any other's.
    Verdict hold(const Expression&, Relation, Importance, unsigned source);

    /// At the point.
    double value(Expression);
    /// Whether what is held leaves it no choice.
    bool is_determined(Expression);

  private:
    /// An expression, and of which multiples of which demands it is the sum.
    struct Row {
        Expression expression, origin;
        void add(const Row& other, double factor);
    };
    /// An expression after the point was moved towards its zero.
    struct Minimised {
        double value;
        /// The bounds, by their places, that are binding when it is not zero.
        std::vector<size_t> binding;
    };

    void reduce(Row&);
    Expression in_free_variables(Expression);
    const Row& definition_of(unsigned variable);
    double value_of_free(const Expression& reduced) const;
    void eliminate(Row);
    void add_bound(Row);
    void file_bound(size_t place);
    bool is_equation_with(const Row& bound, const Row& opposite) const;
    std::vector<size_t> bounds_around(const Expression& reduced, std::vector<unsigned>& variables) const;
    Minimised move_to_zero(const Expression& reduced);
    std::vector<unsigned> sources_of(const Row&, const std::vector<size_t>& bounds, unsigned except) const;

    /// Of the variables that are free.
    std::vector<double> point_;
    /// Of an eliminated variable: the row is zero, and the variable's coefficient in it is 1.
    std::vector<std::optional<Row>> definitions_;
    /// At least zero, in terms of free variables; a bound that nothing can violate any more has no terms.
    std::vector<Row> bounds_;
    /// The places of the bounds that mention a variable, or once did.
    std::vector<std::vector<size_t>> bounds_of_;
};

}  // namespace sim
