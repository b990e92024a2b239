// CxF import: every document of tests/data/cxf/ against outcomes.csv, and reflectance curves.
#include "cxf_import.h"

#include "XMLReader.h"
#include "XMLReaderNavigation.h"
#include "csv_table.h"

#include <filesystem>
#include <iterator>
#include <set>

namespace {

std::string readFile(const std::string &path)
{
    std::ifstream in(path, std::ios::binary);
    EXPECT_TRUE(in) << path;
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

TEST(Import, EveryDocumentGivesItsListedOutcome)
{
    const CsvTable table = readCsv(CXF_TEST_DATA_DIR "/cxf/outcomes.csv");
    ASSERT_EQ(table.rows.size(), 27u);
    std::set<std::string> listed;
    for (std::vector<std::string> row : table.rows) {
        SCOPED_TRACE(row[0]);
        for (std::size_t i = 9; i < row.size(); ++i) // the detail may hold a comma
            row[8] += "," + row[i];
        row.resize(9);
        listed.insert(row[0]);
        const CxFImportOutcome outcome =
            importCxFDocument(readFile(CXF_TEST_DATA_DIR "/cxf/" + row[0]));
        EXPECT_EQ(outcome.accepted(), row[1] == "1");
        EXPECT_EQ(outcome.logLine, row[2]);
        EXPECT_EQ(outcome.beep, row[3] == "1");
        ASSERT_EQ(outcome.alert.has_value(), row[4] == "1");
        if (outcome.alert) {
            EXPECT_EQ(outcome.alert->title,
                      "The specified Lab colors cannot be used for comparison.");
            EXPECT_EQ(outcome.alert->message,
                      "The Lab colors were not specified with D50 illuminant and 2° observer.");
            EXPECT_EQ(outcome.alert->button, "Ok");
        }
        if (!row[8].empty()) {
            EXPECT_EQ(outcome.detail, row[8]);
        }
        if (!outcome.accepted())
            continue;
        EXPECT_EQ(outcome.caption, row[5]);
        EXPECT_EQ(outcome.patchCount, std::stol(row[6]));
        const Values lab = csvNumbers(row[7]); // exact: the same roundings and sums
        EXPECT_EQ(outcome.lab.L, lab[0]);
        EXPECT_EQ(outcome.lab.a, lab[1]);
        EXPECT_EQ(outcome.lab.b, lab[2]);
        EXPECT_EQ(outcome.lab.alpha, 1.0);
    }
    for (const auto &entry : std::filesystem::directory_iterator(CXF_TEST_DATA_DIR "/cxf"))
        if (entry.path().extension() == ".cxf") {
            EXPECT_TRUE(listed.count(entry.path().filename().string())) << entry.path();
        }
}

TEST(Import, HundredMegabytesAreRefusedBeforeParsing)
{
    std::string text = readFile(CXF_TEST_DATA_DIR "/cxf/accepted-project-one-patch.cxf");
    text.insert(text.find("<CxF:CxF"), "<!--" + std::string(100 << 20, ' ') + "-->");
    const auto outcome = importCxFDocument(text);
    EXPECT_EQ(outcome.logLine, "Invalid XML data");
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
    const SpectrumBuffer curve = createSpectralFromReflectancePoints(points);
    ASSERT_TRUE(curve);
    // 0.1 as a float widened; −1 wraps; no wavelength reads 0; no text reads 0.
    const Spectrum expected[] = {
        {400, double(0.1f)}, {410, 0.25}, {4294967295u, 0}, {0, 0.5}, {430, 0}};
    for (std::size_t i = 0; i < 5; ++i) {
        EXPECT_EQ(curve[i].wavelength, expected[i].wavelength) << i;
        EXPECT_EQ(curve[i].value, expected[i].value) << i;
    }
    const XMLNode empty = XMLNode::array();
    EXPECT_FALSE(createSpectralFromReflectancePoints(&empty));
}

TEST(ReflectanceCurve, AverageIsSizedByTheFirstPatch)
{
    // Four patches: 400 and 410 nm; 400, 410 and 420 nm (the third point is ignored); 400 nm
    // only; none. All four count in the divisor; wavelengths are not copied.
    std::string xml = "<s>";
    for (const char *values : {"0.2 0.4", "0.4 0.8 0.9", "0.6", ""}) {
        xml += "<c><n>patch</n><CxF:ColorSpaceSpectral>";
        for (double v : csvNumbers(values))
            xml += "<CxF:ReflectancePoint>" + std::to_string(v) + "</CxF:ReflectancePoint>";
        xml += "</CxF:ColorSpaceSpectral></c>";
    }
    const XMLNode tree = treeOf(xml + "</s>");
    std::size_t count = 0;
    const XMLNode *colors = retrieveForPath(tree, "s.c");
    ASSERT_TRUE(colors);
    const SpectrumBuffer average = averageReflectanceCurve(colors->items(), &count);
    ASSERT_TRUE(average);
    ASSERT_EQ(count, 2u);
    EXPECT_EQ(average[0].value, (double(0.2f) + double(0.4f) + double(0.6f)) / 4);
    EXPECT_EQ(average[1].value, (double(0.4f) + double(0.8f)) / 4);
    EXPECT_EQ(average[0].wavelength, 0u);
}

} // namespace
