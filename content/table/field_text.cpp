#include "content/table/field_text.h"

#include "content/table/column_meaning.h"

#include <QtCore/QRegularExpression>

namespace mosslantern {

using namespace Qt::StringLiterals;

Result<FieldText> FieldText::parse(const QString &text, const QHash<QString, qsizetype> &columns,
                                   std::set<qsizetype> &used)
{
    static const QRegularExpression field(u"\\{\\{([^{}|]*)(?:\\|([^{}]*))?\\}\\}"_s);
    FieldText parsed;
    qsizetype start = 0;
    for (auto matches = field.globalMatch(text); matches.hasNext();) {
        const QRegularExpressionMatch match = matches.next();
        const auto column = columns.constFind(foldedHeading(match.capturedView(1)));
        if (column == columns.constEnd())
            return fail(u"The table has no column for the field “%1”."_s.arg(match.captured()));
        used.insert(*column);
        parsed.m_fields.push_back(
            {text.mid(start, match.capturedStart() - start), *column, match.captured(2)});
        start = match.capturedEnd();
    }
    parsed.m_rest = text.mid(start);
    return parsed;
}

QString FieldText::filled(const Table &table, qsizetype row) const
{
    QString text;
    for (const Field &field : m_fields) {
        const QString cell = table.text(row, field.column);
        text += field.before + (cell.isEmpty() ? field.otherwise : cell);
    }
    return text + m_rest;
}

} // namespace mosslantern
