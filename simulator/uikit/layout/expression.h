// Sums of variables: what the equations of a layout are made of.
#pragma once
#include "uikit/layout/short_list.h"

namespace sim {

/// A constant, and variables with coefficients; variables are numbers.
class Expression {
  public:
    struct Term {
        unsigned variable;
        double coefficient;
    };

    using Terms = ShortList<Term, 4>;

    Expression(double constant = 0) : constant_(constant) {}
    static Expression of(unsigned variable);

    /// By ascending variable; none has a coefficient of zero.
    const Terms& terms() const { return terms_; }
    double constant() const { return constant_; }
    bool is_constant() const { return terms_.empty(); }
    double coefficient_of(unsigned variable) const;

    /// Adds a multiple. What cancels out but for the last digits is gone.
    Expression& add(const Expression& other, double factor);
    Expression& operator*=(double factor);

    friend Expression operator+(Expression a, const Expression& b) { return a.add(b, 1), a; }
    friend Expression operator-(Expression a, const Expression& b) { return a.add(b, -1), a; }
    friend Expression operator*(Expression a, double factor) { return a *= factor, a; }

  private:
    Terms terms_;
    double constant_;
};

}  // namespace sim
