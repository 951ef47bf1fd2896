#include "ui/common/emoji_label.h"

#include "render/text/emoji_runs.h"
#include "render/text/fonts.h"
#include "render/text/line_layout.h"

#include <QtGui/QFontMetricsF>
#include <QtGui/QPainter>
#include <QtGui/QTextLayout>

#include <optional>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

/// The lines of a text in which emoji stand; all lines are as high as those of its font.
class Lines
{
public:
    Lines(const QString &text, const QFont &font, const QTextOption &option, double width)
        : m_metrics(font)
        , m_layout(text, font)
    {
        m_layout.setTextOption(option);
        m_layout.setFormats(emojiFormats(text, font.pixelSize() / layoutFactor));
        m_layout.beginLayout();
        for (QTextLine line = m_layout.createLine(); line.isValid(); line = m_layout.createLine()) {
            line.setLineWidth(width);
            line.setPosition({0, m_height + m_metrics.ascent() - line.ascent()});
            m_height += m_metrics.height();
        }
        m_layout.endLayout();
    }

    [[nodiscard]] double height() const { return m_height; }
    [[nodiscard]] double firstWidth() const { return m_layout.lineAt(0).naturalTextWidth(); }

    /// What of the first line fits into a width, with the sign of what is missing.
    [[nodiscard]] QString elided(double width) const
    {
        const QString sign = u"…"_s;
        const double room = width - m_metrics.horizontalAdvance(sign);
        const int fitting = m_layout.lineAt(0).xToCursor(std::max(0.0, room), QTextLine::CursorOnCharacter);
        return m_layout.text().first(fitting) + sign;
    }

    void draw(QPainter &painter, QPointF at) const { m_layout.draw(&painter, at); }

private:
    QFontMetricsF m_metrics;
    QTextLayout m_layout;
    double m_height = 0;
};

} // namespace

EmojiLabel::EmojiLabel(QQuickItem *parent)
    : PaintedItem(parent)
{
    setVisible(false);
}

void EmojiLabel::componentComplete()
{
    PaintedItem::componentComplete();
    m_label = parentItem();
    // Text items of Qt Quick have no public type.
    connect(m_label, SIGNAL(textChanged(QString)), this, SLOT(takeText()));
    for (const char *const change :
         {SIGNAL(fontChanged(QFont)), SIGNAL(colorChanged()), SIGNAL(truncatedChanged())})
        connect(m_label, change, this, SLOT(update()));
    connect(m_label, &QQuickItem::widthChanged, this, &EmojiLabel::takeSize);
    connect(m_label, &QQuickItem::heightChanged, this, &EmojiLabel::takeSize);
    takeText();
    takeSize();
}

void EmojiLabel::takeText()
{
    const bool hasEmoji = !emojiRuns(m_label->property("text").toString()).isEmpty();
    setVisible(hasEmoji);
    m_label->setFlag(ItemHasContents, !hasEmoji);
    m_label->update();
    update();
}

void EmojiLabel::takeSize()
{
    setSize(m_label->size());
}

void EmojiLabel::paint(QPainter *painter)
{
    const auto number = [this](const char *name) { return m_label->property(name).toDouble(); };
    const QRectF place = boundingRect().adjusted(number("leftPadding"), number("topPadding"),
                                                 -number("rightPadding"), -number("bottomPadding"));
    const QString text = m_label->property("text").toString();
    const auto font = m_label->property("font").value<QFont>();
    const auto wrapping = static_cast<QTextOption::WrapMode>(m_label->property("wrapMode").toInt());
    const auto alignment = Qt::Alignment(m_label->property("horizontalAlignment").toInt());
    QTextOption option(alignment);
    option.setWrapMode(wrapping);
    std::optional<Lines> lines(std::in_place, text, font, option, place.width());
    if (wrapping == QTextOption::NoWrap && lines->firstWidth() > place.width() &&
        m_label->property("truncated").toBool())
        lines.emplace(lines->elided(place.width()), font, option, place.width());

    const auto vertical = Qt::Alignment(m_label->property("verticalAlignment").toInt());
    const double room = place.height() - lines->height();
    const double shift = vertical & Qt::AlignBottom ? room : vertical & Qt::AlignVCenter ? room / 2 : 0;
    painter->setPen(m_label->property("color").value<QColor>());
    lines->draw(*painter, {place.left(), place.top() + std::round(shift)});
}

} // namespace mosslantern
