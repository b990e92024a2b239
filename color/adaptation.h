#pragma once
// Von Kries-type chromatic adaptation between two white points, and the D50 tests used on
// ICC colorant tags.

#include "color_types.h"
#include "data/adaptation_matrices.h"

// Adaptation methods of adapt_XYZ_to_XYZ, by number. 0 and 3 both select Bradford.
enum AdaptationMethod : unsigned {
    kAdaptationBradford = 0,
    kAdaptationXYZScaling = 1, // Linear_Matrix
    kAdaptationVonKries = 2,
    kAdaptationBradfordToo = 3,
};

// Von Kries-type adaptation in a cone space [Lindbloom]:
//   S = M · Ws, D = M · Wd, T = M⁻¹ · diag(D0/S0, D1/S1, D2/S2) · M, destination = T · source,
// M = Bradford_Matrix (method 0 or 3), Linear_Matrix (1) or VonKries_Matrix (2).
// source, whites: XYZ with Y of the whites normally 1. destination may alias source.
// Returns 0, or -50 for a method above 3, in which case destination is not written.
// A zero cone response of the source white gives infinities or NaN, unreported.
// Example: the D50 white (0.9642119944211994, 1, 0.8251882845188288) adapted by Bradford to
// the D65 white (0.9504285453771807, 1, 1.0889003707981277) is that D65 white; for the whites
// (0.96422, 1, 0.82521) and (0.95047, 1, 1.08883), T is [Lindbloom]'s D50→D65 Bradford matrix
// (0.9555766, −0.0230393, 0.0631636 / −0.0282895, 1.0099416, 0.0210077 /
//  0.0122982, −0.0204830, 1.3299098) to its seven decimals.
int adapt_XYZ_to_XYZ(const XYZTriple *source, const XYZTriple *sourceWhite, XYZTriple *destination,
                     const XYZTriple *destinationWhite, unsigned method);

// True when each component is within 0.001 (inclusive) of the ICC PCS white (0.9642, 1.0,
// 0.8249). NaN gives false. Example: (0.9651, 1.0009, 0.8240) true; (0.9653, 1, 0.8249) false.
bool is_XYZ_D50(XYZTriple xyz);

// True when the component-wise sum of the three (the red, green and blue colorants of a
// matrix profile) passes is_XYZ_D50.
bool are_XYZs_Adapted_to_D50(XYZTriple red, XYZTriple green, XYZTriple blue);
