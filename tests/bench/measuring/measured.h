// A figure, and how far it can be trusted.
#pragma once

namespace bench {

/// The range is where the figure lies with 95 % certainty, as far as the rounds of one run can tell; the
/// figure alone where it was counted or computed.
struct Measured {
    Measured(double figure = 0) : value(figure), low(figure), high(figure) {}
    Measured(double figure, double from, double to) : value(figure), low(from), high(to) {}
    operator double() const { return value; }
    Measured scaled(double by) const { return {value * by, low * by, high * by}; }

    double value, low, high;
};

}  // namespace bench
