// Node tables of the five-point rules, with the digits the library has
// always stored. They are not the rules' exact nodes and weights, and the
// results depend on them: the stored Gauss-Legendre weights sum to
// 2.0000000001, so a constant 3 over [1, 4] integrates to 9.00000000045.
#ifndef QELMATH_ANALYSIS_NODES_H
#define QELMATH_ANALYSIS_NODES_H

namespace qel {

constexpr int kRuleNodes = 5;

// Chebyshev's equal-weight rule on [-1, 1], seven digits.
constexpr double kChebyshevNodes[kRuleNodes] = {
    -0.8324975, -0.3745414, 0.0, 0.3745414, 0.8324975,
};

// Gauss-Legendre on [-1, 1], ten digits, in the order the terms are summed.
constexpr double kGaussNodes[kRuleNodes] = {
    -0.9061798459, -0.5384693101, 0.0, 0.5384693101, 0.9061798459,
};
constexpr double kGaussWeights[kRuleNodes] = {
    0.2369268851, 0.4786286705, 0.5688888889, 0.4786286705, 0.2369268851,
};

}  // namespace qel

#endif
