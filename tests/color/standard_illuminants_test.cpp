// The table of standard illuminant white points, checked against the published spectra.
//
// [CIE015-2004]: the chromaticity of an illuminant is x = X/(X + Y + Z), y = Y/(X + Y + Z) with
// X = Σ S(λ) x̄(λ) (Y, Z alike), here at 5 nm. Illuminant A and D65 come from their tabulated
// spectra; D50, D55 and D75 from the daylight basis S0 + M1 S1 + M2 S2 at the correlated
// temperatures 5000, 5500, 7500 K × 1.4388/1.4380, with
//   xD = −4.6070e9/T³ + 2.9678e6/T² + 0.09911e3/T + 0.244063   (4000 K ≤ T ≤ 7000 K)
//   xD = −2.0064e9/T³ + 1.9018e6/T² + 0.24748e3/T + 0.237040   (7000 K < T ≤ 25000 K)
//   yD = −3.000 xD² + 2.870 xD − 0.275
//   M1 = (−1.3515 − 1.7703 xD + 5.9114 yD)/M, M2 = (0.0300 − 31.4424 xD + 30.0717 yD)/M,
//   M = 0.0241 + 0.2562 xD − 0.7341 yD, M1 and M2 rounded to three decimals.
// The 2° sums use the 1 nm CIE 1931 table sampled every 5 nm from 360 to 830 nm, the 10° sums
// the CIE 1964 5 nm table (380 to 780 nm). The F series is not checked: no spectra for it are
// in the repository.
#include "data/standard_illuminants.h"

#include "tolerance.h"

#include <cmath>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

namespace {

// The tabulated chromaticities are rounded to five decimals, and D65 (0.31271, 0.32902) is
// the commonly used pair, 1e-5 from the 5 nm sum in y.
constexpr double kTolChromaticity5 = 3e-5;

using Table = std::map<int, std::vector<double>>; // wavelength → columns after the first

Table loadTable(const std::string &name)
{
    std::ifstream in(std::string(CXF_SOURCE_DIR) + "/data/cie/" + name);
    Table table;
    std::string line;
    std::getline(in, line); // header
    while (std::getline(in, line)) {
        std::istringstream row(line);
        std::string cell;
        std::getline(row, cell, ',');
        const int wavelength = std::stoi(cell);
        while (std::getline(row, cell, ','))
            table[wavelength].push_back(std::stod(cell));
    }
    return table;
}

struct Chromaticity {
    double x, y;
};

Chromaticity chromaticityOf(const std::map<int, double> &spectrum, const Table &cmf)
{
    double X = 0, Y = 0, Z = 0;
    for (const auto &[wavelength, power] : spectrum) {
        if (wavelength % 5 != 0)
            continue;
        const auto found = cmf.find(wavelength);
        if (found == cmf.end())
            continue;
        X += power * found->second[0];
        Y += power * found->second[1];
        Z += power * found->second[2];
    }
    return {X / (X + Y + Z), Y / (X + Y + Z)};
}

std::map<int, double> tabulatedSpectrum(const std::string &name)
{
    std::map<int, double> spectrum;
    for (const auto &[wavelength, columns] : loadTable(name))
        spectrum[wavelength] = columns[0];
    return spectrum;
}

std::map<int, double> daylightSpectrum(double nominalKelvin)
{
    const double T = nominalKelvin * 1.4388 / 1.4380;
    const double xD = T <= 7000
                          ? -4.6070e9 / (T * T * T) + 2.9678e6 / (T * T) + 0.09911e3 / T + 0.244063
                          : -2.0064e9 / (T * T * T) + 1.9018e6 / (T * T) + 0.24748e3 / T + 0.237040;
    const double yD = -3.000 * xD * xD + 2.870 * xD - 0.275;
    const double M = 0.0241 + 0.2562 * xD - 0.7341 * yD;
    const double M1 = std::round((-1.3515 - 1.7703 * xD + 5.9114 * yD) / M * 1000) / 1000;
    const double M2 = std::round((0.0300 - 31.4424 * xD + 30.0717 * yD) / M * 1000) / 1000;
    std::map<int, double> spectrum;
    for (const auto &[wavelength, S] : loadTable("cie_daylight_basis_S0_S1_S2_5nm.csv"))
        spectrum[wavelength] = S[0] + M1 * S[1] + M2 * S[2];
    return spectrum;
}

TEST(StandardIlluminants, AgreeWithThePublishedSpectra)
{
    const Table observer2 = loadTable("cie1931_2deg_cmf_1nm.csv");
    const Table observer10 = loadTable("cie1964_10deg_cmf_5nm.csv");
    ASSERT_FALSE(observer2.empty());
    ASSERT_FALSE(observer10.empty());
    const struct {
        const StandardIlluminant *illuminant;
        std::map<int, double> spectrum;
    } rows[] = {
        {&gStandardIlluminant_A, tabulatedSpectrum("cie_illuminant_A_5nm.csv")},
        {&gStandardIlluminant_D50, daylightSpectrum(5000)},
        {&gStandardIlluminant_D55, daylightSpectrum(5500)},
        {&gStandardIlluminant_D65, tabulatedSpectrum("cie_illuminant_D65_5nm.csv")},
        {&gStandardIlluminant_D75, daylightSpectrum(7500)},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(row.illuminant->name);
        const Chromaticity c2 = chromaticityOf(row.spectrum, observer2);
        const Chromaticity c10 = chromaticityOf(row.spectrum, observer10);
        EXPECT_CLOSE(row.illuminant->x2, c2.x, kTolChromaticity5);
        EXPECT_CLOSE(row.illuminant->y2, c2.y, kTolChromaticity5);
        EXPECT_CLOSE(row.illuminant->x10, c10.x, kTolChromaticity5);
        EXPECT_CLOSE(row.illuminant->y10, c10.y, kTolChromaticity5);
    }
}

} // namespace
