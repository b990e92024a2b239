// A stored preference text reads as the platform's lenient float conversion reads it.
#include "preferences.h"

#include "cie_csv.h"

#include <gtest/gtest.h>

#include <cmath>

TEST(Preferences, StoredTextsReadAsTheirLeadingNumber)
{
    std::ifstream in(CXF_TEST_DATA_DIR "/reference/stored-float-text.csv");
    std::string line;
    std::getline(in, line);
    int rows = 0;
    for (; std::getline(in, line); ++rows) {
        const std::string text = line.substr(0, line.rfind(','));
        const float expected = std::strtof(line.substr(line.rfind(',') + 1).c_str(), nullptr);
        const float value = floatFromStoredText(text);
        EXPECT_TRUE(value == expected || (std::isnan(value) && std::isnan(expected)))
            << '"' << text << "\" gives " << value;
    }
    EXPECT_EQ(rows, 14);
}
