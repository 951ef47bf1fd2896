#include "content/table/table.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace mosslantern {

Table Table::of(const Parts &parts, std::shared_ptr<const void> owner)
{
    Table table;
    table.m_parts = parts;
    table.m_owner = std::move(owner);
    quint32 start = 0;
    for (const quint32 end : parts.rowEnds) {
        table.m_columnCount = std::max(table.m_columnCount, qsizetype(end - start));
        start = end;
    }
    return table;
}

QByteArrayView Table::bytes(qsizetype row, qsizetype column) const
{
    if (row < 0 || column < 0 || row >= rowCount())
        return {};
    const size_t cell = firstCell(row) + size_t(column);
    if (cell >= m_parts.rowEnds[size_t(row)])
        return {};
    const size_t start = cell == 0 ? 0 : m_parts.cellEnds[cell - 1];
    return {m_parts.text.data() + start, qsizetype(m_parts.cellEnds[cell] - start)};
}

bool Table::isRowEmpty(qsizetype row) const
{
    return firstCell(row) == m_parts.rowEnds[size_t(row)];
}

QString tableTooLarge()
{
    return u"The table is too large: there may be 1,048,576 rows, 16,384 columns, 10 million cells and 128 MiB of text."_s;
}

bool TableBuilder::add(size_t column, std::string_view text)
{
    if (text.empty())
        return true;
    if (column < m_column || column >= mostColumns || m_text.size() + text.size() > mostText ||
        !endCells(column - m_column))
        return false;
    m_text.insert(m_text.end(), text.begin(), text.end());
    return endCells(1);
}

bool TableBuilder::endCells(size_t count)
{
    if (m_cellEnds.size() + count > mostCells)
        return false;
    m_cellEnds.insert(m_cellEnds.end(), count, quint32(m_text.size()));
    m_column += count;
    return true;
}

bool TableBuilder::endRow()
{
    if (m_rowEnds.size() == mostRows)
        return false;
    m_rowEnds.push_back(quint32(m_cellEnds.size()));
    m_column = 0;
    return true;
}

Table TableBuilder::finish() &&
{
    if (m_column > 0)
        m_rowEnds.push_back(quint32(m_cellEnds.size()));
    const auto filled = std::ranges::lower_bound(m_rowEnds, quint32(m_cellEnds.size()));
    m_rowEnds.erase(m_cellEnds.empty() ? m_rowEnds.begin() : std::next(filled), m_rowEnds.end());
    const auto made = std::make_shared<const TableBuilder>(std::move(*this));
    return Table::of({made->m_text, made->m_cellEnds, made->m_rowEnds}, made);
}

} // namespace mosslantern
