#include "app/update/version_order.h"

#include <QtCore/QList>

namespace mosslantern {

namespace {

enum class PartKind { number, word };

struct Part
{
    PartKind kind;
    QStringView text;
};

/// Runs of digits and runs of letters; whatever else there is only separates them.
QList<Part> partsOf(QStringView version)
{
    QList<Part> parts;
    for (qsizetype i = 0; i < version.size();) {
        const auto isSame = [&](QChar c) {
            return version[i].isDigit() ? c.isDigit() : version[i].isLetter() && c.isLetter();
        };
        qsizetype end = i;
        while (end < version.size() && isSame(version[end]))
            ++end;
        if (end == i) {
            ++i;
            continue;
        }
        parts.append({version[i].isDigit() ? PartKind::number : PartKind::word, version.sliced(i, end - i)});
        i = end;
    }
    return parts;
}

std::strong_ordering compareNumbers(QStringView a, QStringView b)
{
    const auto significant = [](QStringView digits) {
        while (digits.size() > 1 && digits.front().digitValue() == 0)
            digits = digits.sliced(1);
        return digits;
    };
    const QStringView left = significant(a);
    const QStringView right = significant(b);
    if (left.size() != right.size())
        return left.size() <=> right.size();
    return left.compare(right) <=> 0;
}

std::strong_ordering compareParts(const Part &a, const Part &b)
{
    if (a.kind != b.kind)
        return a.kind == PartKind::number ? std::strong_ordering::greater : std::strong_ordering::less;
    return a.kind == PartKind::number ? compareNumbers(a.text, b.text)
                                      : a.text.compare(b.text, Qt::CaseInsensitive) <=> 0;
}

/// How a version compares with the same one cut off before `part`.
std::strong_ordering against(const Part &part)
{
    return part.kind == PartKind::word ? std::strong_ordering::less : std::strong_ordering::greater;
}

} // namespace

std::strong_ordering compareVersions(QStringView a, QStringView b)
{
    const QList<Part> left = partsOf(a);
    const QList<Part> right = partsOf(b);
    const qsizetype common = std::min(left.size(), right.size());
    for (qsizetype i = 0; i < common; ++i) {
        if (const auto order = compareParts(left[i], right[i]); order != 0)
            return order;
    }
    if (left.size() > common)
        return against(left[common]);
    if (right.size() > common)
        return 0 <=> against(right[common]);
    return std::strong_ordering::equal;
}

} // namespace mosslantern
