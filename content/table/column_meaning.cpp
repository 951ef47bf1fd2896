#include "content/table/column_meaning.h"

#include <QtCore/QRegularExpression>

#include <algorithm>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

constexpr int mostNumbered = 1000;

using Kind = ColumnMeaning::Kind;

struct KnownHeading
{
    QLatin1StringView name;
    Kind kind;
};
constexpr KnownHeading known[]{
    {"main"_L1, Kind::main},         {"slide"_L1, Kind::main},    {"text"_L1, Kind::main},
    {"subtitle"_L1, Kind::subtitle}, {"sub"_L1, Kind::subtitle},  {"subtext"_L1, Kind::subtitle},
    {"image"_L1, Kind::image},       {"picture"_L1, Kind::image}, {"style"_L1, Kind::style},
    {"shape"_L1, Kind::shape},       {"batch"_L1, Kind::batch},   {"caption"_L1, Kind::caption},
};

} // namespace

QString foldedHeading(QStringView heading)
{
    QString name = heading.toString().toCaseFolded();
    name.removeIf([](QChar c) { return c.isSpace() || c == u'_'; });
    return name;
}

ColumnMeaning meaningOf(QStringView heading)
{
    static const QRegularExpression numbered(u"^([a-z]+)([0-9]{0,4})$"_s);
    const QRegularExpressionMatch match = numbered.match(foldedHeading(heading));
    const auto found = std::ranges::find(known, match.captured(1), &KnownHeading::name);
    if (!match.hasMatch() || found == std::end(known))
        return {};
    const QString digits = match.captured(2);
    if (!ColumnMeaning{found->kind}.isOfSlide())
        return digits.isEmpty() ? ColumnMeaning{found->kind} : ColumnMeaning();
    const int slide = digits.isEmpty() ? 1 : digits.toInt();
    return slide >= 1 && slide <= mostNumbered ? ColumnMeaning{found->kind, slide} : ColumnMeaning();
}

std::vector<ColumnMeaning> meaningsOf(const Table &table)
{
    std::vector<ColumnMeaning> meanings;
    for (qsizetype column = 0; column < table.columnCount(); ++column) {
        const ColumnMeaning meaning = meaningOf(table.text(0, column));
        const bool isTaken = std::ranges::find(meanings, meaning) != meanings.end();
        meanings.push_back(isTaken ? ColumnMeaning() : meaning);
    }
    return meanings;
}

} // namespace mosslantern
