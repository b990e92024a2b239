// The compiled CIE tables against the published CSVs they were generated from, and the
// published checks on those tables.
//
// [ISO11664-1] column sums of the 1 nm 1931 table; [CIE015-2004] Table T.1 (illuminant A as a
// Planckian radiator), T.2 (daylight basis), T.3 (white points); [CVRL] locus chromaticities;
// [Robertson1968] isotemperature lines. The CSVs and their checks: data/cie/.
#include "data/cie1931_2deg_cmf_1nm.h"
#include "data/cie1931_spectral_locus_xy_1nm.h"
#include "data/cie1964_10deg_cmf_5nm.h"
#include "data/cie_daylight_basis_S0_S1_S2_5nm.h"
#include "data/cie_illuminant_A_5nm.h"
#include "data/cie_illuminant_D65_5nm.h"
#include "data/robertson_isotemperature_lines.h"

#include "cie_csv.h"
#include "tolerance.h"

#include <cmath>
#include <span>
#include <string>
#include <vector>

namespace {

std::vector<double> fields(const ColorMatchingRow &r)
{
    return {double(r.wavelength), r.xbar, r.ybar, r.zbar};
}
std::vector<double> fields(const DaylightBasisRow &r)
{
    return {double(r.wavelength), r.S0, r.S1, r.S2};
}
std::vector<double> fields(const Spectrum &s)
{
    return {double(s.wavelength), s.value};
}
std::vector<double> fields(const LocusChromaticity &r)
{
    return {double(r.wavelength), r.x, r.y};
}
std::vector<double> fields(const IsoTemperatureLine &r)
{
    return {r.mired, r.u, r.v, r.t};
}

// Every compiled row equals the CSV row, field by field, as doubles parsed with strtod.
template <typename Row, size_t N>
void expectTableEqualsCsv(const Row (&table)[N], const std::string &csvName, size_t publishedRows)
{
    SCOPED_TRACE(csvName);
    const CieCsv csv = readCieCsv(csvName);
    ASSERT_EQ(csv.rows.size(), publishedRows) << "cannot read data/cie/" << csvName;
    ASSERT_EQ(N, publishedRows);
    for (size_t i = 0; i < N; ++i) {
        const std::vector<double> compiled = fields(table[i]);
        const std::vector<std::string> &printed = csv.rows[i];
        ASSERT_EQ(printed.size(), compiled.size()) << "row " << i;
        for (size_t c = 0; c < compiled.size(); ++c)
            EXPECT_EQ(compiled[c], csvDouble(printed[c]))
                << "row " << i << " (" << printed[0] << "), column " << csv.header[c];
    }
}

TEST(CieTables, EveryCompiledRowEqualsThePublishedCsv)
{
    expectTableEqualsCsv(gCIE1931StandardObserver2deg_1nm, "cie1931_2deg_cmf_1nm.csv", 471);
    expectTableEqualsCsv(gCIE1964StandardObserver10deg_5nm, "cie1964_10deg_cmf_5nm.csv", 81);
    expectTableEqualsCsv(gSLambdaConstants, "cie_daylight_basis_S0_S1_S2_5nm.csv", 107);
    expectTableEqualsCsv(gStandardIlluminantSpectrum_A, "cie_illuminant_A_5nm.csv", 97);
    expectTableEqualsCsv(gStandardIlluminantSpectrum_D65, "cie_illuminant_D65_5nm.csv", 107);
    expectTableEqualsCsv(gCIE1931_nm_xy, "cie1931_spectral_locus_xy_1nm.csv", 471);
    expectTableEqualsCsv(gIsoTempData, "robertson_isotemperature_lines.csv", 31);
}

TEST(CieTables, ObserverColumnSumsAreThoseOfTheStandard)
{
    // [ISO11664-1] prints 106.865469489595, 106.856917101172, 106.892251278636; the ȳ sum of
    // the printed values is 106.8569171011719, 1e-13 from its rounding.
    double X = 0, Y = 0, Z = 0;
    for (const ColorMatchingRow &r : gCIE1931StandardObserver2deg_1nm) {
        X += r.xbar;
        Y += r.ybar;
        Z += r.zbar;
    }
    EXPECT_CLOSE(X, 106.865469489595, 1e-11);
    EXPECT_CLOSE(Y, 106.856917101172, 1e-11);
    EXPECT_CLOSE(Z, 106.892251278636, 1e-11);
    EXPECT_EQ(gCIE1931StandardObserver2deg_1nm[555 - 360].ybar, 1.0);
}

TEST(CieTables, PlainSumsGiveThePublishedWhitePointsOfAAndD65)
{
    // [CIE015-2004] Table T.3: the 2° white points summed at 5 nm from 380 to 780 nm.
    struct Case {
        const char *name;
        std::span<const Spectrum> spd;
        double x, y;
    };
    const Case cases[] = {
        {"A", gStandardIlluminantSpectrum_A, 0.44758, 0.40745},
        {"D65", gStandardIlluminantSpectrum_D65, 0.31272, 0.32903},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.name);
        double X = 0, Y = 0, Z = 0;
        for (const Spectrum &s : c.spd) {
            if (s.wavelength < 380 || s.wavelength > 780)
                continue;
            const ColorMatchingRow &cmf = gCIE1931StandardObserver2deg_1nm[s.wavelength - 360];
            X += s.value * cmf.xbar;
            Y += s.value * cmf.ybar;
            Z += s.value * cmf.zbar;
        }
        EXPECT_CLOSE(X / (X + Y + Z), c.x, kTolPublished5);
        EXPECT_CLOSE(Y / (X + Y + Z), c.y, kTolPublished5);
    }
}

TEST(CieTables, IlluminantAIsPlanckAt2848KWithTheOldRadiationConstant)
{
    // [CIE015-2004] defines A by S(λ) = 100 (560/λ)⁵ (e^(c2/(2848·560)) − 1) / (e^(c2/(2848 λ)) −
    // 1) with c2 = 1.435e7 nm K; every printed value is that, rounded in its last digit.
    const CieCsv csv = readCieCsv("cie_illuminant_A_5nm.csv");
    ASSERT_EQ(csv.rows.size(), gNumStandardIlluminantSpectrum_A);
    const double c2 = 1.435e7;
    for (size_t i = 0; i < gNumStandardIlluminantSpectrum_A; ++i) {
        const double w = gStandardIlluminantSpectrum_A[i].wavelength;
        const double planck = 100 * std::pow(560 / w, 5) * std::expm1(c2 / (2848 * 560)) /
                              std::expm1(c2 / (2848 * w));
        SCOPED_TRACE(csv.rows[i][0] + " nm");
        EXPECT_CLOSE(gStandardIlluminantSpectrum_A[i].value, planck,
                     halfUnitOfLastDigit(csv.rows[i][1]) + 1e-9);
    }
}

TEST(CieTables, DaylightBasisAtOddFiveNanometresIsTheMeanOfItsNeighbours)
{
    // [CIE015-2004] Table T.2 prints the 5 nm rows as linear interpolations of the 10 nm ones.
    for (size_t i = 1; i + 1 < gNumSLambdaConstants; i += 2) {
        const DaylightBasisRow &a = gSLambdaConstants[i - 1], &m = gSLambdaConstants[i],
                               &b = gSLambdaConstants[i + 1];
        SCOPED_TRACE(std::to_string(m.wavelength) + " nm");
        EXPECT_CLOSE(m.S0, (a.S0 + b.S0) / 2, 1e-12);
        EXPECT_CLOSE(m.S1, (a.S1 + b.S1) / 2, 1e-12);
        EXPECT_CLOSE(m.S2, (a.S2 + b.S2) / 2, 1e-12);
    }
}

TEST(CieTables, LocusIsTheObserverChromaticityRoundedToSixDecimals)
{
    for (size_t i = 0; i < gNum_CIE1931_nm_xy; ++i) {
        const ColorMatchingRow &cmf = gCIE1931StandardObserver2deg_1nm[i];
        const double S = cmf.xbar + cmf.ybar + cmf.zbar;
        SCOPED_TRACE(std::to_string(cmf.wavelength) + " nm");
        ASSERT_EQ(gCIE1931_nm_xy[i].wavelength, cmf.wavelength);
        EXPECT_CLOSE(gCIE1931_nm_xy[i].x, cmf.xbar / S, 5e-7 + 1e-12);
        EXPECT_CLOSE(gCIE1931_nm_xy[i].y, cmf.ybar / S, 5e-7 + 1e-12);
    }
}

} // namespace
