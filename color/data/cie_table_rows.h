#pragma once
// Row records of the CIE tables in this folder. A wavelength row is an unsigned 32-bit
// wavelength in nanometres, the alignment gap, and the doubles of the columns; the sizes below
// are part of the layout the tables are published with.

#include <cstdint>

struct ColorMatchingRow {
    uint32_t wavelength; // nm
    double xbar, ybar, zbar;
};
static_assert(sizeof(ColorMatchingRow) == 32);

struct DaylightBasisRow {
    uint32_t wavelength; // nm
    double S0, S1, S2;
};
static_assert(sizeof(DaylightBasisRow) == 32);

struct LocusChromaticity {
    uint32_t wavelength; // nm
    double x, y;         // CIE 1931
};
static_assert(sizeof(LocusChromaticity) == 24);

struct IsoTemperatureLine {
    double mired; // reciprocal megakelvin, 10⁶ / T
    double u, v;  // CIE 1960 UCS of the Planckian locus point
    double t;     // slope of the isotemperature line through it
};
