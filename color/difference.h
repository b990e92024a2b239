#pragma once
// Colour-difference formulas: CIE 1976, CIE 1994, CIEDE2000, CMC l:c, CIELUV and u'v'.
//
// The first record is the reference ("standard"), the second the sample; signed differences
// are sample minus reference. CIE 1994 and CMC weight by the reference alone, so they are not
// symmetric. Nothing reports: a negative hue radicand gives NaN (CIE 1994 alone clamps it),
// a zero l or c gives an infinite or NaN term. References: [CIE015-2004], [CIE116-1995],
// [Sharma2005], [Clarke1984] (docs/references.md).

#include "color_types.h"

double delta_E_Lab_CIE1976(LabColor lab1, LabColor lab2); // √(dL² + da² + db²)
double delta_L_Lab_CIE1976(LabColor lab1, LabColor lab2); // L2 − L1
double delta_C_Lab_CIE1976(LabColor lab1, LabColor lab2); // C2 − C1
// √(da² + db² − dC²), radicand not clamped.
double delta_H_Lab_CIE1976(LabColor lab1, LabColor lab2);

// CIE 1994: textiles (kL 2, K1 0.048, K2 0.014) when the flag is set, else graphic arts
// (kL 1, K1 0.045, K2 0.015). SC = 1 + K1·C1 and SH = 1 + K2·C1 from the reference.
double delta_E_Lab_CIE1994(bool textiles, LabColor lab1, LabColor lab2);

// CIEDE2000 with kL = kC = kH = 1. Example (Sharma 2005, pair 1):
// (50, 2.6772, −79.7751) to (50, 0, −82.7485) gives 2.0425.
double delta_E_Lab_CIE2000(LabColor lab1, LabColor lab2);

// CMC l:c from CIELAB with the exact arctangent; a reference chroma below 1e-6 counts as hue 0.
double delta_E_Lab_CMC(LabColor lab1, LabColor lab2, double l, double c);

// CMC l:c from LCh records (h in radians), split into its weighted terms.
double delta_L_LCh_CMC(LChColor lch1, LChColor lch2, double l); // (L2 − L1) / (l·SL)
double delta_C_LCh_CMC(LChColor lch1, LChColor lch2, double c); // (C2 − C1) / (c·SC)
double delta_H_LCh_CMC(LChColor lch1, LChColor lch2);           // dH / SH, radicand unclamped
double delta_E_LCh_CMC(LChColor lch1, LChColor lch2, double l, double c);

double deltaE_Luv(LuvColor luv1, LuvColor luv2); // √(dL² + du² + dv²)
double deltaE_uv(LuvColor luv1, LuvColor luv2);  // hypot(du, dv); L ignored
