#pragma once

#include "model/rgba_color.h"
#include "model/text_style.h"

#include <QtCore/QObject>
#include <QtCore/QPointF>

#include <tuple>

namespace mosslantern {

/// How the texts of a slide look and where they stand. A position is the centre of a text block as fractions
/// of the canvas width (x) and height (y, downwards); a scale is a factor around that centre.
struct SlideStyle
{
    Q_GADGET
    Q_PROPERTY(double textX MEMBER textX)
    Q_PROPERTY(double textY MEMBER textY)
    Q_PROPERTY(double subtitleX MEMBER subtitleX)
    Q_PROPERTY(double subtitleY MEMBER subtitleY)
    Q_PROPERTY(double textScale MEMBER textScale)
    Q_PROPERTY(double subtitleScale MEMBER subtitleScale)
    Q_PROPERTY(mosslantern::TextStyle textStyle MEMBER textStyle)
    Q_PROPERTY(QString boxColorHex MEMBER boxColorHex)

public:
    double textX = 0.5;
    double textY = 0.5;
    double subtitleX = 0.5;
    double subtitleY = 0.8;
    double textScale = 1.0;
    double subtitleScale = 1.0;
    TextStyle textStyle = TextStyle::classic;
    /// In the form of hexFromColor(); any text gives a colour.
    QString boxColorHex = QStringLiteral("FFFFFF");

    [[nodiscard]] QPointF textPos() const { return {textX, textY}; }
    void setTextPos(QPointF position) { std::tie(textX, textY) = std::pair(position.x(), position.y()); }

    [[nodiscard]] QPointF subtitlePos() const { return {subtitleX, subtitleY}; }
    void setSubtitlePos(QPointF position)
    {
        std::tie(subtitleX, subtitleY) = std::pair(position.x(), position.y());
    }

    [[nodiscard]] RgbaColor boxColor() const { return colorFromHex(boxColorHex); }
    void setBoxColor(const RgbaColor &color) { boxColorHex = hexFromColor(color); }

    friend bool operator==(const SlideStyle &, const SlideStyle &) = default;
};

/// Calls `use` with the name of each value, which is that of its column and of its member in JSON, and with
/// where it is in a SlideStyle; in the order of the columns.
template <typename Use>
void forEachStyleValue(Use &&use)
{
    use("textX", &SlideStyle::textX);
    use("textY", &SlideStyle::textY);
    use("subtitleX", &SlideStyle::subtitleX);
    use("subtitleY", &SlideStyle::subtitleY);
    use("textScale", &SlideStyle::textScale);
    use("subtitleScale", &SlideStyle::subtitleScale);
    use("textStyle", &SlideStyle::textStyle);
    use("boxColorHex", &SlideStyle::boxColorHex);
}

/// `style` with what has changed from `before` to `after`.
[[nodiscard]] SlideStyle withChanges(SlideStyle style, const SlideStyle &before, const SlideStyle &after);

} // namespace mosslantern
