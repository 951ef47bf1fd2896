#include "ui/slide/caret_line.h"

#include "render/text/emoji_runs.h"

#include <QtGui/QGlyphRun>
#include <QtGui/QRawFont>

#include <algorithm>
#include <cmath>
#include <limits>

namespace mosslantern {

namespace {

// Edges that meet are computed in different ways.
constexpr double slack = 0.5;

bool hasLettersToTheLeft(QStringView text)
{
    return std::ranges::any_of(text.toUcs4(), [](uint character) {
        switch (QChar::direction(character)) {
        case QChar::DirR:
        case QChar::DirAL:
        case QChar::DirRLE:
        case QChar::DirRLO:
        case QChar::DirRLI:
            return true;
        default:
            return false;
        }
    });
}

int endOf(const QTextLine &line, const QString &text)
{
    const int end = line.textStart() + line.textLength();
    return end > line.textStart() && text.at(end - 1) == QChar::LineSeparator ? end - 1 : end;
}

} // namespace

CaretLine::CaretLine(const QString &text, const QTextLayout &layout, const QTextLine &line)
    : m_line(line)
{
    const int end = endOf(line, text);
    if (!hasLettersToTheLeft(QStringView(text).sliced(line.textStart(), end - line.textStart())))
        return;
    const bool lineRunsLeft = layout.textOption().textDirection() == Qt::RightToLeft;
    const QList<TextRun> emoji = emojiRuns(text);
    std::vector<bool> runLeft;
    for (int start = line.textStart(); start < end;) {
        const auto whole = std::ranges::find(emoji, start, &TextRun::start);
        const int next = whole != emoji.end() ? static_cast<int>(whole->start + whole->length)
                                              : std::max(start + 1, layout.nextCursorPosition(start));
        const QList<QGlyphRun> glyphs = line.glyphRuns(start, next - start);
        // What draws nothing goes with what is before it.
        runLeft.push_back(!glyphs.isEmpty() ? glyphs.front().isRightToLeft()
                          : runLeft.empty() ? lineRunsLeft
                                            : runLeft.back());
        m_letters.push_back({.start = start, .end = std::min(next, end)});
        start = next;
    }
    for (size_t from = 0, to = 0; from < m_letters.size(); from = to) {
        for (to = from; to < m_letters.size() && runLeft[to] == runLeft[from]; ++to) {
            m_letters[to].before = line.cursorToX(m_letters[to].start);
            m_letters[to].after = line.cursorToX(m_letters[to].start, QTextLine::Trailing);
            if (to > from)
                m_letters[to - 1].after = m_letters[to].before;
        }
        if (runLeft[from] != lineRunsLeft)
            placeOpposite(from, to, runLeft[from]);
    }
}

void CaretLine::placeOpposite(size_t from, size_t to, bool runsLeft)
{
    // Only at the ends of the part Qt takes the wrong letter: there the glyphs tell.
    double left = std::numeric_limits<double>::infinity();
    double right = -left;
    for (const QGlyphRun &run :
         m_line.glyphRuns(m_letters[from].start, m_letters[to - 1].end - m_letters[from].start)) {
        const QList<QPointF> positions = run.positions();
        const QList<QPointF> advances = run.rawFont().advancesForGlyphIndexes(run.glyphIndexes());
        for (qsizetype i = 0; i < std::min(positions.size(), advances.size()); ++i) {
            left = std::min(left, positions[i].x());
            right = std::max(right, positions[i].x() + advances[i].x());
        }
    }
    if (left > right)
        return;
    m_letters[from].before = runsLeft ? right : left;
    m_letters[to - 1].after = runsLeft ? left : right;
    // The first letter's edge was another's.
    if (to - from > 1)
        m_letters[from].after = m_letters[from + 1].before;
}

double CaretLine::x(const Place &place) const
{
    const auto next = std::ranges::find(m_letters, place.position, &Letter::start);
    const auto last = std::ranges::find(m_letters, place.position, &Letter::end);
    if (next != m_letters.end() && (place.isBeforeNext || last == m_letters.end()))
        return next->before;
    return last != m_letters.end() ? last->after : m_line.cursorToX(place.position);
}

std::optional<CaretLine::Place> CaretLine::beside(const Place &place, bool toRight) const
{
    const double from = x(place);
    const Letter *passed = nullptr;
    for (const Letter &letter : m_letters) {
        if (letter.right() - letter.left() < slack)
            continue;
        if (toRight ? letter.left() > from - slack && (!passed || letter.left() < passed->left())
                    : letter.right() < from + slack && (!passed || letter.right() > passed->right()))
            passed = &letter;
    }
    if (!passed)
        return {};
    return toRight == passed->runsLeft() ? Place{passed->start, true} : Place{passed->end, false};
}

CaretLine::Place CaretLine::nearest(double x) const
{
    Place place;
    double best = std::numeric_limits<double>::infinity();
    const auto offer = [&](double edge, const Place &offered) {
        if (std::abs(edge - x) < best) {
            best = std::abs(edge - x);
            place = offered;
        }
    };
    for (const Letter &letter : m_letters) {
        // Within the letter, so that of two edges at one place that of the letter under `x` counts.
        const double inwards = std::copysign(slack / 2, letter.after - letter.before);
        offer(letter.before + inwards, {letter.start, true});
        offer(letter.after - inwards, {letter.end, false});
    }
    return place;
}

std::vector<std::pair<double, double>> CaretLine::selected(int start, int end) const
{
    if (!isMixed())
        return {{m_line.cursorToX(start), m_line.cursorToX(end)}};
    std::vector<std::pair<double, double>> parts;
    for (const Letter &letter : m_letters) {
        if (letter.start < end && letter.end > start)
            parts.emplace_back(letter.left(), letter.right());
    }
    std::ranges::sort(parts);
    std::vector<std::pair<double, double>> joined;
    for (const auto &part : parts) {
        if (!joined.empty() && part.first < joined.back().second + slack)
            joined.back().second = std::max(joined.back().second, part.second);
        else
            joined.push_back(part);
    }
    return joined;
}

} // namespace mosslantern
