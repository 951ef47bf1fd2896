#include "render/pixels/new_image.h"

#include <new>

namespace mosslantern {

namespace {

QImage checked(QImage image, QSize size)
{
    if (image.isNull() && !size.isEmpty())
        throw std::bad_alloc();
    return image;
}

} // namespace

QImage newImage(QSize size, QImage::Format format)
{
    return checked(QImage(size, format), size);
}

QImage copyOf(const QImage &image, const QRect &part)
{
    return checked(image.copy(part), part.size());
}

} // namespace mosslantern
