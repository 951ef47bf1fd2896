#include "ui/slide/draggable_text_view.h"

#include "render/pixels/pixels.h"
#include "render/text/fonts.h"

#include <QtCore/QVariant>

#include <algorithm>
#include <cmath>

namespace mosslantern {

namespace {

constexpr double widestShare = 0.9;
constexpr double leastMagnification = 0.01;

/// As red, green and blue, whatever model the colour was given in; the opacity comes along.
RgbaColor toRgbaColor(const QColor &color)
{
    const QColor rgb = color.toRgb();
    return {rgb.redF(), rgb.greenF(), rgb.blueF(), rgb.alphaF()};
}

} // namespace

DraggableTextView::DraggableTextView(QObject *parent)
    : QObject(parent)
{
    connect(this, &DraggableTextView::positionChanged, this, &DraggableTextView::centerChanged);
    connect(this, &DraggableTextView::dragOffsetChanged, this, &DraggableTextView::centerChanged);
    connect(this, &DraggableTextView::containerSizeChanged, this, &DraggableTextView::centerChanged);
    connect(this, &DraggableTextView::scaleChanged, this, &DraggableTextView::drawnScaleChanged);
    connect(this, &DraggableTextView::currentScaleChanged, this, &DraggableTextView::drawnScaleChanged);
}

void DraggableTextView::setText(const QString &text)
{
    setLayout(m_text, text, &DraggableTextView::textChanged);
}

void DraggableTextView::setComposedText(const std::optional<QString> &text)
{
    if (m_composedText == text)
        return;
    m_composedText = text;
    m_block.reset();
    emit layoutChanged();
}

void DraggableTextView::setStyle(TextStyle style)
{
    setLayout(m_style, style, &DraggableTextView::styleChanged);
}

void DraggableTextView::setIsSubtitle(bool isSubtitle)
{
    setLayout(m_isSubtitle, isSubtitle, &DraggableTextView::isSubtitleChanged);
}

void DraggableTextView::setPosition(QPointF position)
{
    set(m_position, position, &DraggableTextView::positionChanged);
}

void DraggableTextView::setScale(double scale)
{
    set(m_scale, scale, &DraggableTextView::scaleChanged);
}

void DraggableTextView::setContainerSize(QSizeF size)
{
    setLayout(m_containerSize, size, &DraggableTextView::containerSizeChanged);
}

void DraggableTextView::setBoxColor(const RgbaColor &color)
{
    setLayout(m_boxColor, color, &DraggableTextView::boxColorChanged);
}

QColor DraggableTextView::boxQColor() const
{
    return toColor(m_boxColor);
}

void DraggableTextView::setBoxQColor(const QColor &color)
{
    setBoxColor(toRgbaColor(color));
}

void DraggableTextView::setIsEditable(bool isEditable)
{
    set(m_isEditable, isEditable, &DraggableTextView::isEditableChanged);
}

void DraggableTextView::setIsFocused(bool isFocused)
{
    if (!isFocused)
        setComposedText({});
    set(m_isFocused, isFocused, &DraggableTextView::isFocusedChanged);
}

void DraggableTextView::setEditorHeight(double height)
{
    set(m_editorHeight, height, &DraggableTextView::editorHeightChanged);
}

QVariant DraggableTextView::clickLocationOrUndefined() const
{
    return m_clickLocation ? QVariant(*m_clickLocation) : QVariant();
}

void DraggableTextView::setClickLocation(std::optional<QPointF> location)
{
    set(m_clickLocation, location, &DraggableTextView::clickLocationChanged);
}

const TextBlock &DraggableTextView::block() const
{
    if (!m_block) {
        m_block.emplace(m_composedText.value_or(m_text), m_style, m_isSubtitle, m_boxColor,
                        m_containerSize.width());
    }
    return *m_block;
}

QSizeF DraggableTextView::frameSize() const
{
    const QSizeF lines = block().size();
    return {std::max(lines.width(), widestShare * m_containerSize.width()), lines.height()};
}

QPointF DraggableTextView::center() const
{
    return {m_position.x() * m_containerSize.width() + m_dragOffset.width(),
            m_position.y() * m_containerSize.height() + m_dragOffset.height()};
}

bool DraggableTextView::contains(QPointF point) const
{
    const QSizeF frame = frameSize() * std::abs(drawnScale());
    return QRectF(center() - QPointF(frame.width(), frame.height()) / 2, frame).contains(point);
}

QFont DraggableTextView::editorFont() const
{
    return layoutFont(m_style, fontSize(m_style, m_containerSize.width()));
}

QColor DraggableTextView::textColor() const
{
    return toColor(styleLook(m_style, m_boxColor, m_isSubtitle).textColor);
}

void DraggableTextView::drag(QSizeF translation)
{
    set(m_dragOffset, translation, &DraggableTextView::dragOffsetChanged);
}

void DraggableTextView::endDrag()
{
    if (m_dragOffset.isNull())
        return;
    const QPointF end = center();
    m_dragOffset = {0, 0};
    moveTo(end);
    emit dragOffsetChanged();
}

void DraggableTextView::moveTo(QPointF points)
{
    if (m_containerSize.isEmpty())
        return;
    setPosition({std::clamp(points.x() / m_containerSize.width(), 0.0, 1.0),
                 std::clamp(points.y() / m_containerSize.height(), 0.0, 1.0)});
}

void DraggableTextView::magnify(double magnification)
{
    if (std::isfinite(magnification) && std::abs(magnification - m_currentScale) >= leastMagnification)
        set(m_currentScale, magnification, &DraggableTextView::currentScaleChanged);
}

void DraggableTextView::endMagnify()
{
    if (m_currentScale == 1)
        return;
    const double scale = drawnScale();
    m_currentScale = 1;
    setScale(scale);
    emit currentScaleChanged();
}

void DraggableTextView::nudge(double right, double down)
{
    moveTo(
        {m_position.x() * m_containerSize.width() + right, m_position.y() * m_containerSize.height() + down});
}

void DraggableTextView::doubleClick(QPointF location)
{
    if (!m_isEditable)
        return;
    setClickLocation(location);
    setIsFocused(true);
}

void DraggableTextView::startEditing()
{
    if (!m_isEditable)
        return;
    setClickLocation({});
    setIsFocused(true);
}

} // namespace mosslantern
