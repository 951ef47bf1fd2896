#pragma once

#include <QtGui/QImage>

namespace mosslantern {

/// An image with any pixels. Throws std::bad_alloc where there is no memory: Qt gives an image that must not
/// be painted on.
QImage newImage(QSize size, QImage::Format format);

/// As QImage::copy(), in the same manner.
QImage copyOf(const QImage &image, const QRect &part);

} // namespace mosslantern
