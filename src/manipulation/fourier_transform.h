// The Fourier transform of a profile and back, with the numbers of the plain sums but not their loops. What
// is done with the coefficients is left to the filter.
#pragma once

#include <functional>
#include <vector>

#include "workspace/vector_width.h"
#include "workspace/workspace.h"

namespace koprax {

/// Coefficients from 1; coefficient k stands for frequency k - 1.
using CoefficientTable = std::vector<double>;

/// Hears how far a transform is: the coefficient or point reached, at each 20th.
using TellReached = std::function<void(int reached)>;

/// Coefficients 1 to `highest` of points 1 to `count`: Re(k) + i Im(k) is the sum of y(j) exp(-i a) over all
/// j with a = (j - 1)(k - 1) `step` radians. `step` is a 32-bit number near 2 pi / count but not exactly it.
/// Each agrees with the plain sum in 64 bits within 1E-12 of itself and 1E-14 of the largest. The other
/// entries of the tables stay. Every `width` that the processor has gives the same bits, here and below.
void ForwardDft(const PointTable& y, int count, float step, int highest, CoefficientTable& re,
                CoefficientTable& im, const TellReached& tell, VectorWidth width = ChosenVectors());

/// Points 1 to `count` from coefficients 1 to `highest`: y(j) is the sum over rising k of Re(1) for k = 1 and
/// 2 cos(a) Re(k) - 2 sin(a) Im(k) beyond, rounded to 32 bits after each k. All but a few points in a
/// hundred thousand are those of the plain loop to the last bit, the others off by one unit in the last place
/// of their largest partial sum: sums of 64 bits that differ in their last one tip a rounding to 32 now and
/// then. Every `width` that the processor has gives the same bits.
void InverseDft(const CoefficientTable& re, const CoefficientTable& im, int highest, float step, int count,
                PointTable& y, const TellReached& tell, VectorWidth width = ChosenVectors());

}  // namespace koprax
