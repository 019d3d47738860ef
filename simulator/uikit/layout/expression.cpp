#include "uikit/layout/expression.h"

#include <algorithm>
#include <cmath>

namespace sim {

Expression Expression::of(unsigned variable) {
    Expression single;
    single.terms_.push_back({variable, 1});
    return single;
}

double Expression::coefficient_of(unsigned variable) const {
    auto found = std::lower_bound(terms_.begin(), terms_.end(), variable,
                                  [](const Term& term, unsigned wanted) { return term.variable < wanted; });
    return found != terms_.end() && found->variable == variable ? found->coefficient : 0;
}

Expression& Expression::add(const Expression& other, double factor) {
    constexpr double noise = 1e-9;
    constant_ += other.constant_ * factor;
    if (other.terms_.empty()) return *this;
    Terms sum;
    sum.reserve(terms_.size() + other.terms_.size());
    const Term* mine = terms_.begin();
    for (const Term& theirs : other.terms_) {
        while (mine != terms_.end() && mine->variable < theirs.variable) sum.push_back(*mine++);
        double coefficient = theirs.coefficient * factor;
        if (mine != terms_.end() && mine->variable == theirs.variable) coefficient += mine++->coefficient;
        if (std::fabs(coefficient) > noise) sum.push_back({theirs.variable, coefficient});
    }
    sum.append(mine, terms_.end());
    terms_ = std::move(sum);
    return *this;
}

Expression& Expression::operator*=(double factor) {
    constant_ *= factor;
    if (factor == 0) terms_.clear();
    for (Term& term : terms_) term.coefficient *= factor;
    return *this;
}

}  // namespace sim
