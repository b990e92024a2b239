// Illuminant and black-body spectra and the CIE tables: illuminants.csv and data/cie/.
#include "data/cie1931_2deg_cmf_1nm.h"
#include "data/cie1931_spectral_locus_xy_1nm.h"
#include "data/cie1964_10deg_cmf_5nm.h"
#include "data/cie_daylight_basis_S0_S1_S2_5nm.h"
#include "data/cie_illuminant_A_5nm.h"
#include "data/cie_illuminant_D65_5nm.h"
#include "data/robertson_isotemperature_lines.h"
#include "data/standard_illuminants.h"
#include "illuminants.h"

#include "csv_table.h"

#include <map>
#include <string>

namespace {

// Sample v[5] (v[4] for the temperature forms) of a spectrum: made or not, wavelength, value.
Values sample(const SpectrumBuffer &s, double i)
{
    return s ? Values{1, double(s[std::size_t(i)].wavelength), s[std::size_t(i)].value}
             : Values{0, 0, 0};
}

Values spectrumWhite(const Values &v)
{
    std::vector<Spectrum> samples;
    for (std::size_t i = 0; i + 1 < v.size(); i += 2)
        samples.push_back({unsigned(v[i]), v[i + 1]});
    return values(XYZ_from_spectrum(samples.data(), unsigned(samples.size())));
}

Values flatWhite(const Values &v)
{
    std::vector<Spectrum> flat(static_cast<std::size_t>(v[1]));
    for (unsigned i = 0; i < flat.size(); ++i)
        flat[i] = {unsigned(v[0]) + i, 1.0};
    return values(XYZ_from_spectrum(flat.data(), unsigned(flat.size())));
}

Values tabulatedWhite(const Values &v)
{
    const Spectrum *spd =
        (v[0] == 0 ? gStandardIlluminantSpectrum_A : gStandardIlluminantSpectrum_D65) +
        (380 - 300) / 5;
    const XYZColor XYZ = XYZ_from_spectrum(spd, 81);
    return {XYZ.X / (XYZ.X + XYZ.Y + XYZ.Z), XYZ.Y / (XYZ.X + XYZ.Y + XYZ.Z)};
}

Values columnSums(const Values &)
{
    Values sums(3);
    for (const ColorMatchingRow &r : gCIE1931StandardObserver2deg_1nm)
        sums = {sums[0] + r.xbar, sums[1] + r.ybar, sums[2] + r.zbar};
    return sums;
}

const StandardIlluminant *const kStandardIlluminants[] = {
    &gStandardIlluminant_A, &gStandardIlluminant_D50, &gStandardIlluminant_D55,
    &gStandardIlluminant_D65, &gStandardIlluminant_D75};

Values white(const StandardIlluminant &illuminant)
{
    return {illuminant.x2, illuminant.y2, illuminant.x10, illuminant.y10};
}

TEST(Illuminants, ReferenceValues)
{
    expectReferenceTable(
        "illuminants.csv",
        {
            REFERENCE_FN(xy_from_CIE_D_illuminant_temp,
                         values(xy_from_CIE_D_illuminant_temp(v[0]))),
            REFERENCE_FN(
                CIE_D_illuminant_in_range, double(xy_from_CIE_D_illuminant_temp(v[0]).x != 0),
                double(xy_from_CIE_D_illuminant_temp(v[0]).y != 0),
                double(bool(create_spectrum_for_CIE_D_illuminant_temp(300, 830, 5, v[0])))),
            REFERENCE_FN(create_spectrum_for_CIE_D_illuminant_xy,
                         sample(create_spectrum_for_CIE_D_illuminant_xy(
                                    unsigned(v[0]), unsigned(v[1]), unsigned(v[2]), v[3], v[4]),
                                v[5])),
            REFERENCE_FN(create_spectrum_for_CIE_D_illuminant_temp,
                         sample(create_spectrum_for_CIE_D_illuminant_temp(
                                    unsigned(v[0]), unsigned(v[1]), unsigned(v[2]), v[3]),
                                v[4])),
            REFERENCE_FN(create_spectrum_for_black_body_temp,
                         sample(create_spectrum_for_black_body_temp(unsigned(v[0]), unsigned(v[1]),
                                                                    unsigned(v[2]), v[3]),
                                v[4])),
            {"XYZ_from_spectrum", spectrumWhite},
            {"XYZ_from_flat_spectrum", flatWhite},
            {"xy_of_tabulated_spectrum_380_780", tabulatedWhite},
            REFERENCE_FN(XYZ_from_black_body_temp, values(XYZ_from_black_body_temp(v[0]))),
            {"observer_column_sums", columnSums},
            REFERENCE_FN(standard_illuminant, white(*kStandardIlluminants[int(v[0])])),
        });
}

// The published D65 table divided by 100: 10 nm rows within half a unit of their last printed
// digit; the 5 nm rows between (the mean of two rounded rows rounded again) within one unit.
TEST(Illuminants, DaylightBasisGivesThePublishedD65)
{
    // M1 and M2 are exactly −0.295 and −0.689 at this chromaticity, as [CIE015-2004] rounds
    // them for its table.
    const SpectrumBuffer rounded = create_spectrum_for_CIE_D_illuminant_xy(
        300, 830, 5, 0.31273218603656117, 0.3291372783929711);
    const CsvTable csv = readCsv(CXF_SOURCE_DIR "/data/cie/cie_illuminant_D65_5nm.csv");
    ASSERT_TRUE(rounded);
    ASSERT_EQ(csv.rows.size(), 107u);
    for (size_t i = 0; i < 107; ++i) {
        const std::string &printed = csv.rows[i][1];
        const double unit = 2 * halfUnitOfLastDigit(printed);
        const double tol = (rounded[i].wavelength % 10 == 0 ? unit / 2 : unit) + 1e-9;
        SCOPED_TRACE(csv.rows[i][0] + " nm");
        EXPECT_EQ(rounded[i].wavelength, unsigned(std::stoul(csv.rows[i][0])));
        EXPECT_CLOSE(rounded[i].value * 100, csvDouble(printed), tol);
    }
}

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

// Every compiled row equals the CSV row it was generated from, field by field.
template <typename Row, size_t N>
void expectTableEqualsCsv(const Row (&table)[N], const std::string &csvName)
{
    SCOPED_TRACE(csvName);
    const CsvTable csv = readCsv(CXF_SOURCE_DIR "/data/cie/" + csvName);
    ASSERT_EQ(csv.rows.size(), N) << "cannot read data/cie/" << csvName;
    for (size_t i = 0; i < N; ++i) {
        Values printed;
        for (const std::string &field : csv.rows[i])
            printed.push_back(csvDouble(field));
        EXPECT_EQ(fields(table[i]), printed) << "row " << i;
    }
}

TEST(Illuminants, CompiledTablesEqualThePublishedCsvs)
{
    expectTableEqualsCsv(gCIE1931StandardObserver2deg_1nm, "cie1931_2deg_cmf_1nm.csv");
    expectTableEqualsCsv(gCIE1964StandardObserver10deg_5nm, "cie1964_10deg_cmf_5nm.csv");
    expectTableEqualsCsv(gSLambdaConstants, "cie_daylight_basis_S0_S1_S2_5nm.csv");
    expectTableEqualsCsv(gStandardIlluminantSpectrum_A, "cie_illuminant_A_5nm.csv");
    expectTableEqualsCsv(gStandardIlluminantSpectrum_D65, "cie_illuminant_D65_5nm.csv");
    expectTableEqualsCsv(gCIE1931_nm_xy, "cie1931_spectral_locus_xy_1nm.csv");
    expectTableEqualsCsv(gIsoTempData, "robertson_isotemperature_lines.csv");
}

} // namespace
