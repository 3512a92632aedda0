#include "map/direction.h"

#include <cmath>

namespace pelk {
namespace {

constexpr double kPi = 3.14159265358979323846;

/// The Taylor polynomial of the sine, exact to about 1e-12 up to a quarter of a turn.
double sineOf(double angle) {
    double term = angle;
    double sum = angle;
    for (int power = 2; power <= 18; power += 2) {
        term *= -angle * angle / (power * (power + 1));
        sum += term;
    }
    return sum;
}

/// Returns the sine of an angle in turns.
double sineOfTurn(double turn) {
    turn -= std::floor(turn);
    const double sign = turn < 0.5 ? 1 : -1;
    turn = turn < 0.5 ? turn : turn - 0.5;
    return sign * sineOf(2 * kPi * (turn < 0.25 ? turn : 0.5 - turn));
}

}  // namespace

Point directionOf(double turn) {
    return {sineOfTurn(turn), -sineOfTurn(turn + 0.25)};
}

}  // namespace pelk
