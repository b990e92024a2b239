#pragma once
// A generated CxF project for the benchmarks: patches with Lab values and reflectance points
// (380 nm on at 10 nm), laid out and indented like the sample documents, the same bytes every
// run. 10,000 patches with 36 points take 29.8 MiB.

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <string>

inline std::string generateProject(int patches, int points)
{
    std::string text;
    text.reserve(static_cast<std::size_t>(patches) * (static_cast<std::size_t>(points) * 80 + 400));
    text += "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
            "<CxF:CxF xmlns:CxF=\"http://colorexchangeformat.com/CxF2\">\n"
            "  <CxF:Palette>\n"
            "    <CxF:ColorSet ColorSetName=\"Press run 42\">\n"
            "      <CxF:CollectionColorSpaceSpecification>\n"
            "        <CxF:ColorSpaceSpecificationSpectrumTristimulus>\n"
            "          <CxF:FieldOfView>FieldOfView_2_Degree</CxF:FieldOfView>\n"
            "          <CxF:IlluminationOptions>\n"
            "            <CxF:Illuminant>Illuminant_D50</CxF:Illuminant>\n"
            "          </CxF:IlluminationOptions>\n"
            "        </CxF:ColorSpaceSpecificationSpectrumTristimulus>\n"
            "      </CxF:CollectionColorSpaceSpecification>\n";
    unsigned state = 12345;
    const auto next = [&state] { // a small linear congruential generator: same bytes every run
        state = state * 1103515245u + 12345u;
        return (state >> 8) % 10000;
    };
    char line[160];
    for (int p = 0; p < patches; ++p) {
        std::snprintf(line, sizeof line, "      <CxF:Color ColorName=\"Patch %d\">\n", p + 1);
        text += line;
        std::snprintf(line, sizeof line,
                      "        <CxF:ColorSpaceCIELab>\n"
                      "          <CxF:L>%u.%02u</CxF:L>\n"
                      "          <CxF:A>%d.%02u</CxF:A>\n"
                      "          <CxF:B>%d.%02u</CxF:B>\n"
                      "        </CxF:ColorSpaceCIELab>\n",
                      20 + next() % 70, next() % 100, static_cast<int>(next() % 120) - 60,
                      next() % 100, static_cast<int>(next() % 120) - 60, next() % 100);
        text += line;
        text += "        <CxF:ColorSpaceSpectral>\n";
        for (int k = 0; k < points; ++k) {
            std::snprintf(line, sizeof line,
                          "          <CxF:ReflectancePoint Wavelength=\"%d\">0.%04u"
                          "</CxF:ReflectancePoint>\n",
                          380 + 10 * k, next());
            text += line;
        }
        text += "        </CxF:ColorSpaceSpectral>\n      </CxF:Color>\n";
    }
    text += "    </CxF:ColorSet>\n  </CxF:Palette>\n</CxF:CxF>\n";
    return text;
}

// A field of this process's /proc/self/status in KiB ("VmHWM:", "VmRSS:"), -1 when absent.
inline long statusKiB(const char *field)
{
    std::ifstream status("/proc/self/status");
    std::string line;
    while (std::getline(status, line))
        if (line.rfind(field, 0) == 0)
            return std::atol(line.c_str() + std::strlen(field));
    return -1;
}
