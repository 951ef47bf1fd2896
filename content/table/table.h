#pragma once

#include "model/error.h"

#include <QtCore/QByteArrayView>

#include <memory>
#include <span>
#include <vector>

namespace mosslantern {

/// The texts of a table, row by row, as a spreadsheet shows them. Copies share them. Rows and columns count
/// from 0; empty cells at the end of a row and empty rows at the end of the table are not there.
class Table
{
public:
    /// What a table consists of: the texts of all cells in UTF-8 one after another, where each ends there,
    /// and how many cells there are up to the end of each row.
    struct Parts
    {
        std::span<const char> text;
        std::span<const quint32> cellEnds;
        std::span<const quint32> rowEnds;
    };

    Table() = default;
    /// The parts live as long as `owner`.
    static Table of(const Parts &parts, std::shared_ptr<const void> owner);

    qsizetype rowCount() const { return qsizetype(m_parts.rowEnds.size()); }
    /// The cells of the longest row.
    qsizetype columnCount() const { return m_columnCount; }

    /// In UTF-8; empty where there is no cell.
    QByteArrayView bytes(qsizetype row, qsizetype column) const;
    QString text(qsizetype row, qsizetype column) const { return QString::fromUtf8(bytes(row, column)); }
    bool isRowEmpty(qsizetype row) const;

private:
    size_t firstCell(qsizetype row) const { return row == 0 ? 0 : m_parts.rowEnds[size_t(row) - 1]; }

    Parts m_parts;
    std::shared_ptr<const void> m_owner;
    qsizetype m_columnCount = 0;
};

/// What is said of a table that is larger than any that a TableBuilder makes.
QString tableTooLarge();

/// Makes a table cell by cell. Every operation returns whether the table is still of a bearable size:
/// 1,048,576 rows, 16,384 columns, 10 million cells and 128 MiB of text.
class TableBuilder
{
public:
    static constexpr size_t mostRows = 1'048'576;
    static constexpr size_t mostColumns = 16'384;
    static constexpr size_t mostCells = 10'000'000;
    static constexpr size_t mostText = size_t(128) << 20;

    /// Puts a text, in UTF-8, into a column of the row at hand, to the right of all that is there.
    [[nodiscard]] bool add(size_t column, std::string_view text);
    /// The row at hand is the next one from now on.
    [[nodiscard]] bool endRow();
    /// The row at hand.
    size_t row() const { return m_rowEnds.size(); }

    Table finish() &&;

private:
    bool endCells(size_t count);

    std::vector<char> m_text;
    std::vector<quint32> m_cellEnds;
    std::vector<quint32> m_rowEnds;
    size_t m_column = 0; // the next one of the row at hand
};

} // namespace mosslantern
