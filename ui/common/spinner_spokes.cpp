#include "ui/common/spinner_spokes.h"

#include "ui/common/picture_node.h"

#include <QtCore/QTimerEvent>
#include <QtGui/QPainter>

#include <cmath>

namespace mosslantern {

namespace {

constexpr int spokeCount = 8;
constexpr double opacityOfLast = 0.25;
constexpr int stepMilliseconds = 110;

QImage drawSpokes(int side, const QColor &color)
{
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.translate(side / 2.0, side / 2.0);
    const double thickness = side / 10.0;
    const QRectF spoke(-thickness / 2, -side / 2.0, thickness, side * 0.28);
    for (int i = 0; i < spokeCount; ++i) {
        painter.setOpacity(1 - i * (1 - opacityOfLast) / (spokeCount - 1));
        painter.drawRoundedRect(spoke, thickness / 2, thickness / 2);
        painter.rotate(-360.0 / spokeCount);
    }
    return image;
}

/// Spinners of one look share a picture.
QImage spokes(int side, const QColor &color)
{
    thread_local QHash<std::pair<int, QRgb>, QImage> drawn;
    QImage &image = drawn[{side, color.rgba()}];
    if (image.isNull())
        image = drawSpokes(side, color);
    return image;
}

} // namespace

SpinnerSpokes::SpinnerSpokes(QQuickItem *parent)
    : QQuickItem(parent)
{
    setFlag(ItemHasContents);
    connect(this, &SpinnerSpokes::colorChanged, this, [this] { update(); });
    connect(this, &SpinnerSpokes::isSteppingChanged, this, &SpinnerSpokes::stepWhileVisible);
    stepWhileVisible();
}

void SpinnerSpokes::itemChange(ItemChange change, const ItemChangeData &value)
{
    QQuickItem::itemChange(change, value);
    if (change == ItemVisibleHasChanged)
        stepWhileVisible();
    else if (change == ItemDevicePixelRatioHasChanged)
        update();
}

void SpinnerSpokes::timerEvent(QTimerEvent *event)
{
    if (event->timerId() == m_timer.timerId())
        setRotation(std::fmod(rotation() + 360.0 / spokeCount, 360.0));
    else
        QQuickItem::timerEvent(event);
}

QSGNode *SpinnerSpokes::updatePaintNode(QSGNode *node, UpdatePaintNodeData *)
{
    const int side = static_cast<int>(std::ceil(width() * window()->effectiveDevicePixelRatio()));
    if (side <= 0) {
        delete node;
        return nullptr;
    }
    auto *pictureNode = static_cast<PictureNode *>(node);
    if (!pictureNode)
        pictureNode = new PictureNode(window(), QSGTexture::Linear);
    pictureNode->show(spokes(side, m_color), boundingRect());
    return pictureNode;
}

void SpinnerSpokes::stepWhileVisible()
{
    if (!m_isStepping || !isVisible())
        m_timer.stop();
    else if (!m_timer.isActive())
        m_timer.start(stepMilliseconds, this);
}

} // namespace mosslantern
