#pragma once

#include <QtGui/QTextLayout>

#include <optional>
#include <utility>
#include <vector>

namespace mosslantern {

/// Where a caret can stand in a laid out line whose letters run in both directions. Qt's own places are right
/// only in lines of one direction: at the first letter of a part that runs the other way they are those of
/// the part before. Positions are those of the layout's text; lengths are in its units.
class CaretLine
{
public:
    /// A caret between two letters that do not stand side by side: it stands at the edge of either.
    struct Place
    {
        int position = 0;
        bool isBeforeNext = false; // at the letter that follows it in the text, not at the one before
    };

    /// A line of `text`.
    CaretLine(const QString &text, const QTextLayout &layout, const QTextLine &line);

    /// Whether the line has letters from right to left: otherwise it has no places that differ from Qt's.
    [[nodiscard]] bool isMixed() const { return !m_letters.empty(); }

    [[nodiscard]] double x(const Place &place) const;

    /// The place beyond the letter that stands to the right of `place`, or to its left; none at the end.
    [[nodiscard]] std::optional<Place> beside(const Place &place, bool toRight) const;

    /// The place nearest to `x`.
    [[nodiscard]] Place nearest(double x) const;

    /// The left and right edges of what is selected from `start` to `end`, from left to right.
    [[nodiscard]] std::vector<std::pair<double, double>> selected(int start, int end) const;

private:
    struct Letter
    {
        int start = 0;
        int end = 0;
        double before = 0; // the edge where the letter begins, at the right where it runs to the left
        double after = 0;
        [[nodiscard]] bool runsLeft() const { return after < before; }
        [[nodiscard]] double left() const { return runsLeft() ? after : before; }
        [[nodiscard]] double right() const { return runsLeft() ? before : after; }
    };

    void placeOpposite(size_t from, size_t to, bool runsLeft);

    QTextLine m_line;
    std::vector<Letter> m_letters; // in the order of the text
};

} // namespace mosslantern
