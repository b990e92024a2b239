#pragma once
// Reads the published CIE tables in data/cie/ (see docs/references.md) for tests that compare
// the library's compiled tables and spectra with them. The CSVs are plain: one header row,
// comma-separated numbers in decimal notation, no quoting.

#include <cmath>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

struct CieCsv {
    std::vector<std::string> header;
    std::vector<std::vector<std::string>> rows; // the fields as printed
};

inline std::vector<std::string> splitCsvLine(const std::string &line)
{
    std::vector<std::string> fields;
    std::istringstream in(line);
    std::string field;
    while (std::getline(in, field, ','))
        fields.push_back(field);
    return fields;
}

// An empty table when the file cannot be read; callers assert on the row count.
inline CieCsv readCieCsv(const std::string &fileName)
{
    CieCsv table;
    std::ifstream in(std::string(CXF_SOURCE_DIR) + "/data/cie/" + fileName);
    std::string line;
    if (!std::getline(in, line))
        return table;
    table.header = splitCsvLine(line);
    while (std::getline(in, line)) {
        if (!line.empty())
            table.rows.push_back(splitCsvLine(line));
    }
    return table;
}

// The double a field denotes, parsed as strtod does.
inline double csvDouble(const std::string &field)
{
    return std::strtod(field.c_str(), nullptr);
}

// Half a unit in the last printed digit: the rounding bound of a published figure.
inline double halfUnitOfLastDigit(const std::string &field)
{
    const auto point = field.find('.');
    const int decimals = point == std::string::npos ? 0 : int(field.size() - point - 1);
    return 0.5 * std::pow(10.0, -decimals);
}
