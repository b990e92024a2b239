#pragma once
// The rows of a CSV file under tests/data, fields as QStrings (empty fields kept); blank lines
// and lines starting with '#' are skipped.
#include <gtest/gtest.h>

#include <QFile>
#include <QStringList>

#include <vector>

inline std::vector<QStringList> qtCsvRows(const char *relativePath)
{
    QFile file(QStringLiteral(CXF_TEST_DATA_DIR "/") + QLatin1String(relativePath));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly | QIODevice::Text)) << relativePath;
    std::vector<QStringList> rows;
    while (!file.atEnd()) {
        QString line = QString::fromUtf8(file.readLine());
        if (line.endsWith(u'\n'))
            line.chop(1);
        if (!line.isEmpty() && !line.startsWith(u'#'))
            rows.push_back(line.split(u','));
    }
    return rows;
}
