#pragma once

#include <QtTest/QTest>

namespace mosslantern {

/// Names the columns of a test's table of cases. What it returns adds a row: its name and a value for each
/// column.
template <typename... T>
auto table(const char *const (&columns)[sizeof...(T)])
{
    size_t column = 0;
    (QTest::addColumn<T>(columns[column++]), ...);
    return [](const char *name, const T &...values) { (QTest::newRow(name) << ... << values); };
}

} // namespace mosslantern
