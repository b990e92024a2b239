#pragma once
// CSV tables: one header row, no quoting. Reference rows (tests/data/reference) read function,
// inputs, expected ("*": not checked), tolerance, source; numbers space-separated, nan/inf too.

#include "tolerance.h"

#include <cmath>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <functional>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <vector>

struct CsvTable {
    std::vector<std::string> header;
    std::vector<std::vector<std::string>> rows; // the fields as printed
    std::vector<int> lines;                     // the line number of each row
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
inline CsvTable readCsv(const std::string &path)
{
    CsvTable table;
    std::ifstream in(path);
    std::string line;
    if (!std::getline(in, line))
        return table;
    table.header = splitCsvLine(line);
    for (int number = 2; std::getline(in, line); ++number) {
        if (!line.empty() && line[0] != '#') {
            table.rows.push_back(splitCsvLine(line));
            table.lines.push_back(number);
        }
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

using Values = std::vector<double>;
using ReferenceFunctions = std::map<std::string, std::function<Values(const Values &)>>;

// Colour records are plain structs of doubles: a row's inputs from index i fill one, and a
// record's members in order make a result.
template <typename Record> Record record(const Values &v, std::size_t i = 0)
{
    Record r{};
    if (v.size() * sizeof(double) >= i * sizeof(double) + sizeof r)
        std::memcpy(&r, v.data() + i, sizeof r);
    else
        ADD_FAILURE() << "too few inputs";
    return r;
}

template <typename Record> Values values(const Record &r)
{
    Values v(sizeof r / sizeof(double));
    std::memcpy(v.data(), &r, sizeof r);
    return v;
}

// One entry of a ReferenceFunctions map: the name as written in the table, and the result (one
// or more doubles) as expressions of v, the row's inputs.
#define REFERENCE_FN(name, ...)                                                                    \
    {                                                                                              \
#name, [](const Values &v) -> Values { return {__VA_ARGS__}; }                             \
    }

inline Values csvNumbers(const std::string &field)
{
    Values values;
    std::istringstream in(field);
    for (std::string word; in >> word;)
        values.push_back(csvDouble(word));
    return values;
}

// Runs every row of tests/data/reference/<name> through the function it names. Each function
// must have at least one row, and each row a known function.
inline void expectReferenceTable(const std::string &name, const ReferenceFunctions &functions)
{
    const CsvTable table = readCsv(CXF_TEST_DATA_DIR "/reference/" + name);
    ASSERT_FALSE(table.rows.empty()) << "cannot read tests/data/reference/" << name;
    std::set<std::string> used;
    for (std::size_t r = 0; r < table.rows.size(); ++r) {
        const std::vector<std::string> &row = table.rows[r];
        SCOPED_TRACE(name + ":" + std::to_string(table.lines[r]) + ": " + row[0] + "(" +
                     (row.size() > 1 ? row[1] : "") + ")");
        ASSERT_GE(row.size(), 4u);
        const auto function = functions.find(row[0]);
        ASSERT_NE(function, functions.end()) << "unknown function";
        used.insert(row[0]);
        const Values actual = function->second(csvNumbers(row[1]));
        std::istringstream expected(row[2]);
        std::size_t i = 0;
        for (std::string word; expected >> word; ++i) {
            ASSERT_LT(i, actual.size());
            if (word != "*") {
                EXPECT_CLOSE(actual[i], csvDouble(word), csvDouble(row[3])) << "result " << i;
            }
        }
        EXPECT_EQ(i, actual.size());
    }
    for (const auto &entry : functions)
        EXPECT_TRUE(used.count(entry.first)) << entry.first << " has no row in " << name;
}
