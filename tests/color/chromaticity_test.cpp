// Chromaticity diagrams and correlated colour temperature: tests/data/reference/
// chromaticity.csv, round trips, the spectral locus and Robertson's published locus points.
#include "chromaticity.h"
#include "data/robertson_isotemperature_lines.h"

#include "csv_table.h"

#include <string>

namespace {

Values upvpOfUv(const Values &v)
{
    double up = 0, vp = 0;
    uv_1960_to_upvp_1976(v[0], v[1], &up, &vp);
    return {up, vp};
}

TEST(Chromaticity, ReferenceValues)
{
    expectReferenceTable(
        "chromaticity.csv",
        {
            REFERENCE_FN(xy_from_XYZ, values(xy_from_XYZ(v[0], v[1], v[2]))),
            REFERENCE_FN(xyY_from_XYZ, values(xyY_from_XYZ(v[0], v[1], v[2]))),
            REFERENCE_FN(XYZ_from_xyY, values(XYZ_from_xyY(v[0], v[1], v[2]))),
            REFERENCE_FN(XYZ_from_xy, values(XYZ_from_xy(v[0], v[1]))),
            REFERENCE_FN(CIE_1960_uv_from_1931_xy, values(CIE_1960_uv_from_1931_xy(v[0], v[1]))),
            REFERENCE_FN(CIE_1976_upvp_from_1931_xy,
                         values(CIE_1976_upvp_from_1931_xy(v[0], v[1]))),
            REFERENCE_FN(CIE_1931_xy_from_1960_uv, values(CIE_1931_xy_from_1960_uv(v[0], v[1]))),
            REFERENCE_FN(CIE_1931_xy_from_1976_upvp,
                         values(CIE_1931_xy_from_1976_upvp(v[0], v[1]))),
            REFERENCE_FN(CIE_1976_upvp_from_1960_uv,
                         values(CIE_1976_upvp_from_1960_uv(v[0], v[1]))),
            REFERENCE_FN(CIE_1960_uv_from_1976_upvp,
                         values(CIE_1960_uv_from_1976_upvp(v[0], v[1]))),
            {"uv_1960_to_upvp_1976", upvpOfUv},
            REFERENCE_FN(xy_inside_CIE1931_locus, double(xy_inside_CIE1931_locus(v[0], v[1]))),
            REFERENCE_FN(CIE_1931_xy_from_CCT, values(CIE_1931_xy_from_CCT(v[0]))),
            REFERENCE_FN(CIE_1960_uv_from_CCT, values(CIE_1960_uv_from_CCT(v[0]))),
            REFERENCE_FN(is_temp_valid, double(is_temp_valid(v[0]))),
            REFERENCE_FN(CCT_from_XYZ, CCT_from_XYZ(v[0], v[1], v[2])),
            REFERENCE_FN(CCT_from_xy, CCT_from_xy(int(v[0]), v[1], v[2])),
        });
}

TEST(Chromaticity, DiagramsRoundTripOverAGrid)
{
    for (double x = 0.05; x < 0.75; x += 0.05)
        for (double y = 0.05; y < 0.85; y += 0.05) {
            SCOPED_TRACE("x " + std::to_string(x) + " y " + std::to_string(y));
            const xyYTriple viaXYZ =
                xyY_from_XYZ(XYZ_from_xyY(x, y, 100).X, 100, XYZ_from_xyY(x, y, 100).Z);
            const uvChromaticity uv = CIE_1960_uv_from_1931_xy(x, y);
            const xyChromaticity viaUV = CIE_1931_xy_from_1960_uv(uv.u, uv.v);
            const upvpChromaticity upvp = CIE_1976_upvp_from_1931_xy(x, y);
            const xyChromaticity viaUpVp = CIE_1931_xy_from_1976_upvp(upvp.up, upvp.vp);
            for (const xyChromaticity back : {xyChromaticity{viaXYZ.x, viaXYZ.y}, viaUV, viaUpVp}) {
                EXPECT_CLOSE(back.x, x, kTolRoundTrip);
                EXPECT_CLOSE(back.y, y, kTolRoundTrip);
            }
            EXPECT_CLOSE(CIE_1976_upvp_from_1960_uv(uv.u, uv.v).vp, upvp.vp, kTolRoundTrip);
        }
}

TEST(Chromaticity, PlanckianFitsAndRobertsonFollowThePublishedLocusPoints)
{
    for (size_t i = 0; i < gNumIsoTempData; ++i) {
        const IsoTemperatureLine &line = gIsoTempData[i];
        const double T = 1e6 / line.mired;
        const xyChromaticity published = CIE_1931_xy_from_1960_uv(line.u, line.v);
        SCOPED_TRACE(std::to_string(line.mired) + " mired");
        // The spline, over 1667 to 25000 K, within 6e-4 (5.6e-4 in x near 2667 K).
        if (line.mired >= 40 && line.mired <= 575) {
            EXPECT_CLOSE(CIE_1931_xy_from_CCT(T).x, published.x, 6e-4);
            EXPECT_CLOSE(CIE_1931_xy_from_CCT(T).y, published.y, 6e-4);
        }
        // Krystek's fit, over 1000 to 15000 K, within 1.2e-4 (1.11e-4 in v at 5000 K).
        if (line.mired >= 1e6 / 15000) {
            EXPECT_CLOSE(CIE_1960_uv_from_CCT(T).u, line.u, 1.2e-4);
            EXPECT_CLOSE(CIE_1960_uv_from_CCT(T).v, line.v, 1.2e-4);
        }
        // A point on isotherm i lands on that row's own temperature.
        const XYZTriple XYZ = XYZ_from_xy(published.x, published.y);
        if (i > 0 && i + 1 < gNumIsoTempData) {
            EXPECT_CLOSE(CCT_from_XYZ(XYZ.X, XYZ.Y, XYZ.Z), T, 1e-9 * T);
        }
    }
}

} // namespace
