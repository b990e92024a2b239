// CxF import: captions, single-precision reading with double-precision averaging, reflectance
// curves, and every one-defect document of tests/data/cxf/ applied the way the window applies an
// outcome. Expected Lab values come from the document's literals rounded to float by the
// compiler (51.23f = 51.229999542236328), averaged here in double.
#include "cxf_import.h"

#include "XMLReader.h"
#include "XMLReaderNavigation.h"
#include "sample_routing.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <set>
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

const char kConditions[] =
    "<CxF:CollectionColorSpaceSpecification><CxF:ColorSpaceSpecificationSpectrumTristimulus>"
    "<CxF:FieldOfView>FieldOfView_2_Degree</CxF:FieldOfView><CxF:IlluminationOptions>"
    "<CxF:Illuminant>Illuminant_D50</CxF:Illuminant></CxF:IlluminationOptions>"
    "</CxF:ColorSpaceSpecificationSpectrumTristimulus></CxF:CollectionColorSpaceSpecification>";

std::string document(const std::optional<std::string> &setName, const std::vector<Patch> &patches)
{
    std::string text = "<?xml version=\"1.0\"?>\n<CxF:CxF xmlns:CxF=\"urn:cxf\">\n <CxF:Palette>\n";
    text += setName ? "  <CxF:ColorSet ColorSetName=\"" + *setName + "\">\n" : "  <CxF:ColorSet>\n";
    text += std::string("   ") + kConditions + "\n";
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

std::string defect(const std::string &name)
{
    return readFile(CXF_TEST_DATA_DIR "/cxf/" + name);
}

double f(float v)
{
    return static_cast<double>(v);
}

TEST(Import, CaptionsAndTheMeanOfTheFloatValues)
{
    struct Case {
        std::optional<std::string> setName;
        std::vector<Patch> patches;
        std::string caption;
        LabColor lab;
    };
    const Case cases[] = {
        {"Untitled palette",
         {patch("Sample A", "51.23", "-3.45", "12.1")},
         "Sample A –– one patch",
         {51.229999542236328, f(-3.45f), f(12.1f), 1}},
        {"Untitled palette",
         {patch({}, "50", "0", "0")},
         "Untitled palette –– one patch",
         {50, 0, 0, 1}},
        {"P", {patch("x", "40", "1", "2")}, "P –– project with one patch", {40, 1, 2, 1}},
        {"P",
         {patch("a", "51.23", "10.1", "-7.7"), patch("b", "52.11", "10.3", "-7.9"),
          patch("c", "50.07", "9.9", "-8.3")},
         "P –– project with 3 patches averaged",
         {(f(51.23f) + f(52.11f) + f(50.07f)) / 3, (f(10.1f) + f(10.3f) + f(9.9f)) / 3,
          (f(-7.7f) + f(-7.9f) + f(-8.3f)) / 3, 1}},
        // A set without a name reads as an untitled palette.
        {{},
         {patch("X", "1", "2", "3"), patch("Y", "3", "4", "5")},
         "2 patches averaged",
         {2, 3, 4, 1}},
        // Lenient numbers, a missing component, a component with an attribute: zero.
        {"P",
         {patch("a", " 60.5 units", "abc", "8"), {"b", "<CxF:L>30</CxF:L>"}},
         "P –– project with 2 patches averaged",
         {45.25, 0, 4, 1}},
        {"Q",
         {{"a", "<CxF:L Unit=\"%\">50</CxF:L><CxF:A>1</CxF:A><CxF:B>2</CxF:B>"}},
         "Q –– project with one patch",
         {0, 1, 2, 1}},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.caption);
        const CxFImportOutcome outcome = importCxFDocument(document(c.setName, c.patches));
        ASSERT_TRUE(outcome.accepted()) << outcome.logLine;
        EXPECT_EQ(outcome.caption, c.caption);
        EXPECT_EQ(outcome.patchCount, static_cast<long>(c.patches.size()));
        // Exact: the same float roundings and the same double sums and division.
        EXPECT_EQ(outcome.lab.L, c.lab.L);
        EXPECT_EQ(outcome.lab.a, c.lab.a);
        EXPECT_EQ(outcome.lab.b, c.lab.b);
        EXPECT_EQ(outcome.lab.alpha, 1.0);
        EXPECT_TRUE(outcome.logLine.empty());
        EXPECT_FALSE(outcome.beep || outcome.alert);
    }
}

TEST(Import, BareTextColors)
{
    const std::string head = "<CxF:CxF><CxF:Palette><CxF:ColorSet ColorSetName=\"P\">" +
                             std::string(kConditions) + "<CxF:Color>stray</CxF:Color>";
    const std::string tail = "</CxF:ColorSet></CxF:Palette></CxF:CxF>";
    // Alone: the set name as caption, no patch, zero Lab.
    const auto alone = importCxFDocument(head + tail);
    ASSERT_TRUE(alone.accepted());
    EXPECT_EQ(alone.caption, "P");
    EXPECT_EQ(alone.patchCount, 0);
    EXPECT_EQ(alone.lab.L, 0);
    // In a list: a patch without values.
    const auto listed = importCxFDocument(
        head +
        "<CxF:Color><CxF:ColorSpaceCIELab><CxF:L>60</CxF:L></CxF:ColorSpaceCIELab>"
        "</CxF:Color>" +
        tail);
    ASSERT_TRUE(listed.accepted());
    EXPECT_EQ(listed.caption, "P –– project with 2 patches averaged");
    EXPECT_EQ(listed.lab.L, 30);
}

// The window's side of an outcome, as cxf_import.h prescribes it, recorded instead of shown.
struct RecordingWindow {
    std::vector<std::string> events; // "log: ...", "beep", "alert: title | message | button"
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
        swatchLabel = outcome.caption;
        storeSample(samples, slot, outcome.lab);
    }
};

TEST(Import, EveryDefectiveDocumentIsReportedExactlyAndChangesNothing)
{
    const std::vector<std::string> alert = {
        "beep", "alert: The specified Lab colors cannot be used for comparison. | "
                "The Lab colors were not specified with D50 illuminant and 2° observer. | Ok"};
    const std::vector<std::string> invalid = {"log: Invalid XML data", "beep"};
    const std::vector<std::string> noCxF = {"log: No 'CxF' key in XML data"};
    struct Case {
        std::string file;
        CxFImportStatus status;
        std::vector<std::string> events;
    };
    const Case cases[] = {
        {"wrong-illuminant.cxf", CxFImportStatus::MeasurementConditions, alert},
        {"ten-degree-observer.cxf", CxFImportStatus::MeasurementConditions, alert},
        {"no-illumination-options.cxf", CxFImportStatus::MeasurementConditions, alert},
        {"no-field-of-view.cxf", CxFImportStatus::MeasurementConditions, alert},
        {"illuminant-with-attribute.cxf", CxFImportStatus::MeasurementConditions, alert},
        {"unbalanced-tags.cxf", CxFImportStatus::InvalidXMLData, invalid},
        {"empty.cxf", CxFImportStatus::InvalidXMLData, invalid},
        {"binary.cxf", CxFImportStatus::InvalidXMLData, invalid},
        {"invalid-utf8.cxf", CxFImportStatus::InvalidXMLData, invalid},
        {"billion-laughs.cxf", CxFImportStatus::InvalidXMLData, invalid},
        {"wrong-root.cxf", CxFImportStatus::NoCxFKey, noCxF},
        {"lowercase-prefix.cxf", CxFImportStatus::NoCxFKey, noCxF},
        {"no-palette.cxf", CxFImportStatus::NoPaletteKey, {"log: No 'Palette' key in XML data"}},
        {"no-color-set.cxf",
         CxFImportStatus::NoColorSetKey,
         {"log: No 'ColorSet' key in XML data"}},
        {"no-color.cxf", CxFImportStatus::NoColor, {}},
    };
    // Two defective documents are accepted: an external entity that is never loaded (L reads as
    // the 62.5 around it) and a patch without Lab (zero).
    const std::pair<std::string, double> accepted[] = {{"external-entity.cxf", 62.5},
                                                       {"missing-lab.cxf", 0}};
    std::set<std::string> listed;
    for (const Case &c : cases) {
        SCOPED_TRACE(c.file);
        listed.insert(c.file);
        RecordingWindow window;
        window.parseXML(readFile(CXF_SOURCE_DIR "/data/samples/sample-a.cxf"), SampleSlot::First);
        const RecordingWindow before = window;
        const std::string text = defect(c.file);
        EXPECT_EQ(importCxFDocument(text).status, c.status);
        window.parseXML(text, SampleSlot::First);
        window.parseXML(text, SampleSlot::Second);
        std::vector<std::string> twice = c.events;
        twice.insert(twice.end(), c.events.begin(), c.events.end());
        EXPECT_EQ(window.events, twice);
        EXPECT_EQ(window.swatchLabel, before.swatchLabel);
        EXPECT_TRUE(window.samples.lab_1_defined);
        EXPECT_FALSE(window.samples.lab_2_defined);
        EXPECT_EQ(window.samples.lab_1.L, before.samples.lab_1.L);
        EXPECT_EQ(window.samples.lab_1.b, before.samples.lab_1.b);
    }
    for (const auto &[file, L] : accepted) {
        SCOPED_TRACE(file);
        listed.insert(file);
        const auto outcome = importCxFDocument(defect(file));
        ASSERT_TRUE(outcome.accepted());
        EXPECT_EQ(outcome.lab.L, L);
        EXPECT_EQ(outcome.caption, "Defects –– project with one patch");
    }
    for (const auto &entry : std::filesystem::directory_iterator(CXF_TEST_DATA_DIR "/cxf"))
        EXPECT_TRUE(listed.count(entry.path().filename().string())) << entry.path();
}

TEST(Import, RefusalTextsForTools)
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

TEST(Import, HundredMegabytesAreRefusedBeforeParsing)
{
    std::string text = document("P", {patch("a", "1", "2", "3")});
    text.insert(text.find("<CxF:CxF"), "<!--" + std::string(100 << 20, ' ') + "-->");
    const auto outcome = importCxFDocument(text);
    EXPECT_EQ(outcome.status, CxFImportStatus::InvalidXMLData);
    EXPECT_TRUE(outcome.beep);
    EXPECT_EQ(outcome.detail, "the document is " + std::to_string(text.size()) +
                                  " bytes, more than the limit of 67108864");
}

XMLNode treeOf(const std::string &xml)
{
    auto tree = XMLReader::dictionaryForXMLData(xml, nullptr);
    EXPECT_TRUE(tree) << xml;
    return tree ? std::move(*tree) : XMLNode();
}

TEST(ReflectanceCurve, OneEntryPerPointInDocumentOrder)
{
    const XMLNode tree = treeOf("<s><p Wavelength=\"400\">0.1</p><p Wavelength=\"410\">0.25</p>"
                                "<p Wavelength=\"-1\">x</p><p>0.5</p><p Wavelength=\"430\"/></s>");
    const XMLNode *points = tree.find("s")->find("p");
    ASSERT_EQ(reflectancePointCount(points), 5u);
    const SpectrumBuffer curve = createSpectralFromReflectancePoints(points);
    ASSERT_TRUE(curve);
    const Spectrum expected[] = {{400, f(0.1f)},
                                 {410, 0.25},
                                 {4294967295u, 0}, // −1 wraps
                                 {0, 0.5},         // no wavelength
                                 {430, 0}};
    for (std::size_t i = 0; i < 5; ++i) {
        EXPECT_EQ(curve[i].wavelength, expected[i].wavelength) << i;
        EXPECT_EQ(curve[i].value, expected[i].value) << i;
    }
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
    Patch first = patch("a", "1", "1", "1"), longer = first, shorter = first, none = first;
    first.spectral = spectral({{400, "0.2"}, {410, "0.4"}});
    longer.spectral = spectral({{400, "0.4"}, {410, "0.8"}, {420, "0.9"}});
    shorter.spectral = spectral({{400, "0.6"}});
    const auto average = [](const std::vector<Patch> &patches, std::size_t *count) {
        const XMLNode tree = treeOf(document("P", patches));
        const XMLNode *colors = retrieveForPath(tree, "CxF:CxF.CxF:Palette.CxF:ColorSet.CxF:Color");
        return colors ? averageReflectanceCurve(colors->items(), count) : SpectrumBuffer();
    };
    // Two patches: (0.2f + 0.4f) / 2 and (0.4f + 0.8f) / 2, the floats widened to double.
    const SpectrumBuffer two = average({first, longer}, nullptr);
    ASSERT_TRUE(two);
    EXPECT_EQ(two[0].value, 0.30000000447034836);
    EXPECT_EQ(two[1].value, 0.60000000894069672);

    std::size_t count = 0;
    const SpectrumBuffer four = average({first, longer, shorter, none}, &count);
    ASSERT_EQ(count, 2u);
    ASSERT_TRUE(four);
    // Four patches in the divisor; the third point of the longer patch is ignored.
    EXPECT_EQ(four[0].value, (f(0.2f) + f(0.4f) + f(0.6f)) / 4);
    EXPECT_EQ(four[1].value, (f(0.4f) + f(0.8f)) / 4);
    EXPECT_EQ(four[0].wavelength, 0u); // wavelengths are not copied
}

} // namespace
