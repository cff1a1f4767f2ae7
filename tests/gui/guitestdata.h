/// The real data files, for Qt Test.
#ifndef GUITESTDATA_H
#define GUITESTDATA_H

#include "tests/testdata.h"

#include <QString>

inline QString dataFile(const char* name)
{
    return QString::fromStdString(testDataFile(name));
}

/// First line of a Qt Test that needs the real files.
#define NEEDS_TEST_DATA() \
    if (!hasTestData()) QSKIP("no real data files")

#endif
