// CxF import: captions, the single-precision reading and double-precision averaging of Lab
// values, reflectance curves, and every row of the failure table (one defect per document in
// tests/data/cxf/), applied the way the window applies an outcome.
//
// Expected Lab values are worked out in the test from the decimal literals of the document:
// the compiler rounds each literal to the nearest float (e.g. 51.23f = 51.229999542236328),
// which is the conversion the import must reproduce, and the mean is taken here in double.
#include "cxf_import.h"

#include "XMLReader.h"
#include "XMLReaderNavigation.h"
#include "sample_routing.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <optional>
#include <string>
#include <vector>

namespace {

struct Patch {
    std::optional<std::string> name;
    std::string lab; // the inside of CxF:ColorSpaceCIELab
    std::string spectral = {};
};

Patch patch(std::optional<std::string> name, const char *L, const char *A, const char *B)
{
    return {std::move(name), std::string("<CxF:L>") + L + "</CxF:L><CxF:A>" + A +
                                 "</CxF:A><CxF:B>" + B + "</CxF:B>"};
}

std::string conditions(const std::string &fieldOfView = "FieldOfView_2_Degree",
                       const std::string &illuminant = "Illuminant_D50")
{
    return "<CxF:CollectionColorSpaceSpecification>"
           "<CxF:ColorSpaceSpecificationSpectrumTristimulus>"
           "<CxF:FieldOfView>" +
           fieldOfView +
           "</CxF:FieldOfView>"
           "<CxF:IlluminationOptions><CxF:Illuminant>" +
           illuminant +
           "</CxF:Illuminant></CxF:IlluminationOptions>"
           "</CxF:ColorSpaceSpecificationSpectrumTristimulus>"
           "</CxF:CollectionColorSpaceSpecification>";
}

std::string document(const std::optional<std::string> &setName, const std::vector<Patch> &patches)
{
    std::string text = "<?xml version=\"1.0\"?>\n<CxF:CxF xmlns:CxF=\"urn:cxf\">\n <CxF:Palette>\n";
    text += setName ? "  <CxF:ColorSet ColorSetName=\"" + *setName + "\">\n" : "  <CxF:ColorSet>\n";
    text += "   " + conditions() + "\n";
    for (const Patch &p : patches) {
        text += p.name ? "   <CxF:Color ColorName=\"" + *p.name + "\">\n" : "   <CxF:Color>\n";
        text += "    <CxF:ColorSpaceCIELab>" + p.lab + "</CxF:ColorSpaceCIELab>\n";
        if (!p.spectral.empty())
            text += "    <CxF:ColorSpaceSpectral>" + p.spectral + "</CxF:ColorSpaceSpectral>\n";
        text += "   </CxF:Color>\n";
    }
    return text + "  </CxF:ColorSet>\n </CxF:Palette>\n</CxF:CxF>\n";
}

std::string readFile(const std::string &path)
{
    std::ifstream in(path, std::ios::binary);
    EXPECT_TRUE(in) << path;
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

std::string defect(const char *name)
{
    return readFile(std::string(CXF_TEST_DATA_DIR "/cxf/") + name);
}

// --- Accepted documents: captions and averaging --------------------------------------------

struct CaptionCase {
    const char *name;
    std::optional<std::string> setName;
    std::vector<Patch> patches;
    std::string caption;
    long patchCount;
    LabColor lab;
};

class Captions : public testing::TestWithParam<CaptionCase>
{
};

TEST_P(Captions, AndTheMeanOfTheFloatValues)
{
    const CaptionCase &c = GetParam();
    const CxFImportOutcome outcome = importCxFDocument(document(c.setName, c.patches));
    ASSERT_TRUE(outcome.accepted()) << outcome.logLine;
    EXPECT_EQ(outcome.caption, c.caption);
    EXPECT_EQ(outcome.patchCount, c.patchCount);
    // Exact: the same float roundings and the same double sums and division.
    EXPECT_EQ(outcome.lab.L, c.lab.L);
    EXPECT_EQ(outcome.lab.a, c.lab.a);
    EXPECT_EQ(outcome.lab.b, c.lab.b);
    EXPECT_EQ(outcome.lab.alpha, 1.0);
    EXPECT_TRUE(outcome.logLine.empty());
    EXPECT_FALSE(outcome.beep);
    EXPECT_FALSE(outcome.alert);
}

double f(float v)
{
    return static_cast<double>(v);
}

const CaptionCase kCaptionCases[] = {
    {"untitled_palette_one_named_patch",
     "Untitled palette",
     {patch("Sample A", "51.23", "-3.45", "12.1")},
     "Sample A –– one patch",
     1,
     {f(51.23f), f(-3.45f), f(12.1f), 1}},
    {"untitled_palette_one_unnamed_patch",
     "Untitled palette",
     {patch({}, "50", "0", "0")},
     "Untitled palette –– one patch",
     1,
     {50, 0, 0, 1}},
    {"named_set_one_patch",
     "P",
     {patch("Ignored", "40", "1", "2")},
     "P –– project with one patch",
     1,
     {40, 1, 2, 1}},
    {"named_project_three_patches",
     "P",
     {patch("a", "51.23", "10.1", "-7.7"), patch("b", "52.11", "10.3", "-7.9"),
      patch("c", "50.07", "9.9", "-8.3")},
     "P –– project with 3 patches averaged",
     3,
     {(f(51.23f) + f(52.11f) + f(50.07f)) / 3, (f(10.1f) + f(10.3f) + f(9.9f)) / 3,
      (f(-7.7f) + f(-7.9f) + f(-8.3f)) / 3, 1}},
    {"untitled_palette_four_patches_drops_the_name",
     "Untitled palette",
     {patch("a", "10", "1", "1"), patch("b", "20", "2", "2"), patch("c", "30", "3", "3"),
      patch("d", "40", "4", "5")},
     "4 patches averaged",
     4,
     {25, 2.5, 2.75, 1}},
    {"set_without_name_reads_as_untitled",
     std::nullopt,
     {patch("X", "1", "2", "3")},
     "X –– one patch",
     1,
     {1, 2, 3, 1}},
    {"set_without_name_two_patches",
     std::nullopt,
     {patch("X", "1", "2", "3"), patch("Y", "3", "4", "5")},
     "2 patches averaged",
     2,
     {2, 3, 4, 1}},
    {"lenient_numbers",
     "P",
     {patch("a", " 60.5 units", "abc", "")},
     "P –– project with one patch",
     1,
     {60.5, 0, 0, 1}},
    {"missing_component_counts_as_zero",
     "P",
     {{"a", "<CxF:L>30</CxF:L>"}, patch("b", "50", "8", "-4")},
     "P –– project with 2 patches averaged",
     2,
     {40, 4, -2, 1}},
    {"value_written_over_several_lines",
     "Untitled palette",
     {{"Wrapped", "\n      <CxF:L>\n        51.23\n      </CxF:L>\n      <CxF:A>\n   -3.45\n"
                  "      </CxF:A>\n      <CxF:B>\n        12.1\n      </CxF:B>\n"}},
     "Wrapped –– one patch",
     1,
     {f(51.23f), f(-3.45f), f(12.1f), 1}},
    {"component_with_an_attribute_reads_as_zero",
     "P",
     {{"a", "<CxF:L Unit=\"%\">50</CxF:L><CxF:A>1</CxF:A><CxF:B>2</CxF:B>"}},
     "P –– project with one patch",
     1,
     {0, 1, 2, 1}},
};

INSTANTIATE_TEST_SUITE_P(Import, Captions, testing::ValuesIn(kCaptionCases),
                         [](const auto &info) { return std::string(info.param.name); });

TEST(Averaging, ReadsSinglePrecisionAndSumsInDouble)
{
    // 51.23 enters as the nearest float, 4.6e-7 below it: the mean of three copies is that
    // float's value, not 51.23.
    const auto outcome = importCxFDocument(
        document("P", {patch("a", "51.23", "0", "0"), patch("b", "51.23", "0", "0"),
                       patch("c", "51.23", "0", "0")}));
    ASSERT_TRUE(outcome.accepted());
    EXPECT_EQ(outcome.lab.L, 51.229999542236328);
    EXPECT_NE(outcome.lab.L, 51.23);
}

TEST(Averaging, ColorThatIsABareTextKeepsTheSetNameAndZeroLab)
{
    const std::string text = "<CxF:CxF><CxF:Palette><CxF:ColorSet ColorSetName=\"P\">" +
                             conditions() +
                             "<CxF:Color>stray</CxF:Color>"
                             "</CxF:ColorSet></CxF:Palette></CxF:CxF>";
    const auto outcome = importCxFDocument(text);
    ASSERT_TRUE(outcome.accepted());
    EXPECT_EQ(outcome.caption, "P");
    EXPECT_EQ(outcome.patchCount, 0);
    EXPECT_EQ(outcome.lab.L, 0);
    EXPECT_EQ(outcome.lab.alpha, 1);
}

TEST(Averaging, BareTextEntryOfAPatchListIsAPatchWithoutValues)
{
    const std::string text = "<CxF:CxF><CxF:Palette><CxF:ColorSet ColorSetName=\"P\">" +
                             conditions() +
                             "<CxF:Color>stray</CxF:Color><CxF:Color>"
                             "<CxF:ColorSpaceCIELab><CxF:L>60</CxF:L></CxF:ColorSpaceCIELab>"
                             "</CxF:Color></CxF:ColorSet></CxF:Palette></CxF:CxF>";
    const auto outcome = importCxFDocument(text);
    ASSERT_TRUE(outcome.accepted());
    EXPECT_EQ(outcome.caption, "P –– project with 2 patches averaged");
    EXPECT_EQ(outcome.lab.L, 30);
}

TEST(Averaging, SamplesOfTheRepository)
{
    const auto single = importCxFDocument(readFile(CXF_SOURCE_DIR "/data/samples/sample-a.cxf"));
    ASSERT_TRUE(single.accepted());
    EXPECT_EQ(single.caption, "Sample A –– one patch");
    EXPECT_EQ(single.lab.L, f(49.02f));
    EXPECT_EQ(single.lab.a, f(43.20f));
    EXPECT_EQ(single.lab.b, f(36.43f));

    const auto project =
        importCxFDocument(readFile(CXF_SOURCE_DIR "/data/samples/brand-reds-project.cxf"));
    ASSERT_TRUE(project.accepted());
    EXPECT_EQ(project.caption, "Brand Reds –– project with 4 patches averaged");
    EXPECT_EQ(project.patchCount, 4);
    EXPECT_EQ(project.lab.L, (f(49.82f) + f(48.08f) + f(49.41f) + f(48.67f)) / 4);
    EXPECT_EQ(project.lab.a, (f(43.85f) + f(43.44f) + f(42.79f) + f(42.88f)) / 4);
    EXPECT_EQ(project.lab.b, (f(38.08f) + f(34.85f) + f(38.13f) + f(35.67f)) / 4);
}

// --- Refusals --------------------------------------------------------------------------------

// The window's side of an outcome, as cxf_import.h prescribes it, recorded instead of shown.
struct RecordingWindow {
    std::vector<std::string> events; // "log: ...", "beep", "alert: title | message | button"
    LabColor swatchColor{0, 0, 0, 0};
    std::string swatchLabel;
    ComparisonSamples samples;

    void parseXML(const std::string &text, SampleSlot slot)
    {
        const CxFImportOutcome outcome = importCxFDocument(text);
        if (!outcome.logLine.empty())
            events.push_back("log: " + std::string(outcome.logLine));
        if (outcome.beep)
            events.push_back("beep");
        if (outcome.alert)
            events.push_back("alert: " + std::string(outcome.alert->title) + " | " +
                             std::string(outcome.alert->message) + " | " +
                             std::string(outcome.alert->button));
        if (!outcome.accepted())
            return;
        swatchColor = outcome.lab;
        swatchLabel = outcome.caption;
        storeSample(samples, slot, outcome.lab);
    }
};

struct RefusalCase {
    const char *file;
    CxFImportStatus status;
    std::vector<std::string> events;
};

const char kAlert[] = "alert: The specified Lab colors cannot be used for comparison. | "
                      "The Lab colors were not specified with D50 illuminant and 2° observer. | Ok";

const RefusalCase kRefusals[] = {
    {"wrong-illuminant.cxf", CxFImportStatus::MeasurementConditions, {"beep", kAlert}},
    {"ten-degree-observer.cxf", CxFImportStatus::MeasurementConditions, {"beep", kAlert}},
    {"no-illumination-options.cxf", CxFImportStatus::MeasurementConditions, {"beep", kAlert}},
    {"no-field-of-view.cxf", CxFImportStatus::MeasurementConditions, {"beep", kAlert}},
    {"illuminant-with-attribute.cxf", CxFImportStatus::MeasurementConditions, {"beep", kAlert}},
    {"unbalanced-tags.cxf", CxFImportStatus::InvalidXMLData, {"log: Invalid XML data", "beep"}},
    {"empty.cxf", CxFImportStatus::InvalidXMLData, {"log: Invalid XML data", "beep"}},
    {"binary.cxf", CxFImportStatus::InvalidXMLData, {"log: Invalid XML data", "beep"}},
    {"invalid-utf8.cxf", CxFImportStatus::InvalidXMLData, {"log: Invalid XML data", "beep"}},
    {"billion-laughs.cxf", CxFImportStatus::InvalidXMLData, {"log: Invalid XML data", "beep"}},
    {"wrong-root.cxf", CxFImportStatus::NoCxFKey, {"log: No 'CxF' key in XML data"}},
    {"lowercase-prefix.cxf", CxFImportStatus::NoCxFKey, {"log: No 'CxF' key in XML data"}},
    {"no-palette.cxf", CxFImportStatus::NoPaletteKey, {"log: No 'Palette' key in XML data"}},
    {"no-color-set.cxf", CxFImportStatus::NoColorSetKey, {"log: No 'ColorSet' key in XML data"}},
    {"no-color.cxf", CxFImportStatus::NoColor, {}},
};

class Refusals : public testing::TestWithParam<RefusalCase>
{
};

TEST_P(Refusals, ReportExactlyAndLeaveEverythingAsItWas)
{
    RecordingWindow window;
    window.parseXML(readFile(CXF_SOURCE_DIR "/data/samples/sample-a.cxf"), SampleSlot::First);
    const RecordingWindow before = window;

    const std::string text = defect(GetParam().file);
    EXPECT_EQ(importCxFDocument(text).status, GetParam().status);
    window.parseXML(text, SampleSlot::First);
    window.parseXML(text, SampleSlot::Second);

    std::vector<std::string> expected = GetParam().events;
    expected.insert(expected.end(), GetParam().events.begin(), GetParam().events.end());
    EXPECT_EQ(window.events, expected);
    EXPECT_EQ(window.swatchLabel, before.swatchLabel);
    EXPECT_EQ(window.swatchColor.L, before.swatchColor.L);
    EXPECT_TRUE(window.samples.lab_1_defined);
    EXPECT_FALSE(window.samples.lab_2_defined);
    EXPECT_EQ(window.samples.lab_1.L, before.samples.lab_1.L);
    EXPECT_EQ(window.samples.lab_1.b, before.samples.lab_1.b);
}

INSTANTIATE_TEST_SUITE_P(FailureTable, Refusals, testing::ValuesIn(kRefusals),
                         [](const auto &info) {
                             std::string name = info.param.file;
                             for (char &c : name)
                                 if (c == '-' || c == '.')
                                     c = '_';
                             return name;
                         });

TEST(RefusalTexts, ForTools)
{
    EXPECT_EQ(refusalMessage(importCxFDocument(defect("empty.cxf"))), "Invalid XML data");
    EXPECT_EQ(refusalMessage(importCxFDocument(defect("wrong-illuminant.cxf"))),
              "The Lab colors were not specified with D50 illuminant and 2° observer.");
    EXPECT_EQ(refusalMessage(importCxFDocument(defect("no-color.cxf"))),
              "No 'Color' key in XML data");
    // The lines are joined before parsing: the name of the second </CxF:ColorSpaceCIELab>
    // starts at byte 758 of the one long line.
    EXPECT_EQ(importCxFDocument(defect("unbalanced-tags.cxf")).detail,
              "mismatched tag at line 1, column 758");
}

TEST(HostileDocuments, ExternalEntityIsNeverLoaded)
{
    // The reference to /etc/passwd is skipped: L reads as the 62.5 around it.
    const auto outcome = importCxFDocument(defect("external-entity.cxf"));
    ASSERT_TRUE(outcome.accepted());
    EXPECT_EQ(outcome.lab.L, 62.5);
    EXPECT_EQ(outcome.caption, "Defects –– project with one patch");
}

TEST(HostileDocuments, MissingLabCountsAsZero)
{
    const auto outcome = importCxFDocument(defect("missing-lab.cxf"));
    ASSERT_TRUE(outcome.accepted());
    EXPECT_EQ(outcome.lab.L, 0);
    EXPECT_EQ(outcome.lab.a, 0);
    EXPECT_EQ(outcome.lab.b, 0);
}

TEST(HostileDocuments, HundredMegabytesAreRefusedBeforeParsing)
{
    std::string text = document("P", {patch("a", "1", "2", "3")});
    text.insert(text.find("<CxF:CxF"), "<!--" + std::string(100 << 20, ' ') + "-->");
    const auto outcome = importCxFDocument(text);
    EXPECT_EQ(outcome.status, CxFImportStatus::InvalidXMLData);
    EXPECT_EQ(outcome.logLine, "Invalid XML data");
    EXPECT_TRUE(outcome.beep);
    EXPECT_EQ(outcome.detail, "the document is " + std::to_string(text.size()) +
                                  " bytes, more than the limit of 67108864");
}

TEST(HostileDocuments, DeeplyNestedPatchIsReadWithoutCrashing)
{
    std::string nested;
    for (int i = 0; i < 100000; ++i)
        nested += "<e>";
    nested += "x";
    for (int i = 0; i < 100000; ++i)
        nested += "</e>";
    const auto outcome = importCxFDocument(document("P", {{"deep", nested}}));
    ASSERT_TRUE(outcome.accepted());
    EXPECT_EQ(outcome.lab.L, 0);
}

// --- Reflectance curves ------------------------------------------------------------------

XMLNode treeOf(const std::string &xml)
{
    auto tree = XMLReader::dictionaryForXMLData(xml, nullptr);
    EXPECT_TRUE(tree) << xml;
    return tree ? std::move(*tree) : XMLNode();
}

const XMLNode *retrieveColors(const XMLNode &tree)
{
    return retrieveForPath(tree, "CxF:CxF.CxF:Palette.CxF:ColorSet.CxF:Color");
}

TEST(ReflectanceCurve, OneEntryPerPointInDocumentOrder)
{
    const XMLNode tree = treeOf("<s><p Wavelength=\"400\">0.1</p><p Wavelength=\"410\">0.25</p>"
                                "<p Wavelength=\"-1\">x</p><p>0.5</p><p Wavelength=\"430\"/></s>");
    const XMLNode *points = tree.find("s")->find("p");
    ASSERT_EQ(reflectancePointCount(points), 5u);
    const SpectrumBuffer curve = createSpectralFromReflectancePoints(points);
    ASSERT_TRUE(curve);
    EXPECT_EQ(curve[0].wavelength, 400u);
    EXPECT_EQ(curve[0].value, f(0.1f));
    EXPECT_EQ(curve[1].wavelength, 410u);
    EXPECT_EQ(curve[1].value, 0.25);
    EXPECT_EQ(curve[2].wavelength, 4294967295u); // −1 wraps
    EXPECT_EQ(curve[2].value, 0);
    EXPECT_EQ(curve[3].wavelength, 0u); // a bare text: no wavelength
    EXPECT_EQ(curve[3].value, 0.5);
    EXPECT_EQ(curve[4].wavelength, 430u);
    EXPECT_EQ(curve[4].value, 0);
}

TEST(ReflectanceCurve, SinglePointIsACurveOfOneAndNothingIsNull)
{
    const XMLNode tree = treeOf("<s><p Wavelength=\"550\">0.75</p></s>");
    const XMLNode *point = tree.find("s")->find("p");
    EXPECT_EQ(reflectancePointCount(point), 1u);
    const SpectrumBuffer curve = createSpectralFromReflectancePoints(point);
    ASSERT_TRUE(curve);
    EXPECT_EQ(curve[0].wavelength, 550u);
    EXPECT_EQ(curve[0].value, 0.75);

    EXPECT_FALSE(createSpectralFromReflectancePoints(nullptr));
    const XMLNode empty = XMLNode::array();
    EXPECT_FALSE(createSpectralFromReflectancePoints(&empty));
}

std::string spectral(const std::vector<std::pair<int, const char *>> &points)
{
    std::string text;
    for (const auto &[wavelength, value] : points)
        text += "<CxF:ReflectancePoint Wavelength=\"" + std::to_string(wavelength) + "\">" + value +
                "</CxF:ReflectancePoint>";
    return text;
}

TEST(ReflectanceCurve, AverageIsSizedByTheFirstPatch)
{
    Patch first = patch("a", "1", "1", "1"), longer = patch("b", "1", "1", "1"),
          shorter = patch("c", "1", "1", "1"), none = patch("d", "1", "1", "1");
    first.spectral = spectral({{400, "0.2"}, {410, "0.4"}});
    longer.spectral = spectral({{400, "0.4"}, {410, "0.8"}, {420, "0.9"}});
    shorter.spectral = spectral({{400, "0.6"}});
    const XMLNode tree = treeOf(document("P", {first, longer, shorter, none}));
    const XMLNode *colors = retrieveColors(tree);
    ASSERT_NE(colors, nullptr);
    std::size_t count = 0;
    const SpectrumBuffer average = averageReflectanceCurve(colors->items(), &count);
    ASSERT_EQ(count, 2u);
    ASSERT_TRUE(average);
    // Four patches in the divisor; the third point of the longer patch is ignored.
    EXPECT_EQ(average[0].value, (f(0.2f) + f(0.4f) + f(0.6f)) / 4);
    EXPECT_EQ(average[1].value, (f(0.4f) + f(0.8f)) / 4);
    EXPECT_EQ(average[0].wavelength, 0u); // wavelengths are not copied

    // The whole import accepts such a project.
    EXPECT_TRUE(importCxFDocument(document("P", {first, longer, shorter, none})).accepted());
}

TEST(ReflectanceCurve, HeaderExampleOfTwoPatches)
{
    Patch a = patch("a", "1", "1", "1"), b = patch("b", "1", "1", "1");
    a.spectral = spectral({{400, "0.2"}, {410, "0.4"}});
    b.spectral = spectral({{400, "0.4"}, {410, "0.8"}, {420, "0.9"}});
    const XMLNode tree = treeOf(document("P", {a, b}));
    const SpectrumBuffer average = averageReflectanceCurve(retrieveColors(tree)->items(), nullptr);
    ASSERT_TRUE(average);
    EXPECT_EQ(average[0].value, 0.30000000447034836);
    EXPECT_EQ(average[1].value, 0.60000000894069672);
}

} // namespace
