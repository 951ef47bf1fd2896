#include "content/table/row_numbers.h"

#include <QtCore/QStringList>

#include <algorithm>

namespace mosslantern {

using namespace Qt::StringLiterals;

Result<RowNumbers> RowNumbers::parse(const QString &text)
{
    RowNumbers rows;
    for (const QString &part : text.split(u',')) {
        const QStringList ends = part.split(u'-');
        bool isNumber = false, isLastNumber = false;
        const qint64 first = ends.first().toLongLong(&isNumber);
        const qint64 last = ends.last().toLongLong(&isLastNumber);
        if (ends.size() > 2 || !isNumber || !isLastNumber || first < 1 || last < first)
            return fail(u"expected rows such as 1-20,35, not “%1”"_s.arg(text));
        rows.m_ranges.emplace_back(first, last);
    }
    return rows;
}

bool RowNumbers::contains(qsizetype number) const
{
    return m_ranges.empty() || std::ranges::any_of(m_ranges, [number](const auto &range) {
               return number >= range.first && number <= range.second;
           });
}

} // namespace mosslantern
