#pragma once

#include "content/table/table.h"

#include <QtCore/QHash>

#include <set>

namespace mosslantern {

/// A text with fields, which the cells of a row fill: `{{city}}`, or `{{city|Berlin}}` for what stands where
/// the cell is empty.
class FieldText
{
public:
    /// Finds the fields' columns by their folded headings, and puts them into `used`. Fails when a field is
    /// not among them.
    static Result<FieldText> parse(const QString &text, const QHash<QString, qsizetype> &columns,
                                   std::set<qsizetype> &used);

    QString filled(const Table &table, qsizetype row) const;

private:
    struct Field
    {
        QString before;
        qsizetype column;
        QString otherwise;
    };
    std::vector<Field> m_fields;
    QString m_rest;
};

} // namespace mosslantern
