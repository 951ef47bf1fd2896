#pragma once

#include "model/slideshow.h"

#include <QtCore/QPointer>
#include <QtQml/qqmlregistration.h>

namespace mosslantern {

/// What a card tells of a slideshow, following its slides.
class SlideshowSummary : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(
        mosslantern::Slideshow *slideshow READ slideshow WRITE setSlideshow NOTIFY slideshowChanged REQUIRED)
    Q_PROPERTY(int slideCount READ slideCount NOTIFY slidesChanged)
    /// As stored, whatever its `order`; null when there is none.
    Q_PROPERTY(mosslantern::Slide *firstSlide READ firstSlide NOTIFY slidesChanged)
    Q_PROPERTY(QString shapeName READ shapeName NOTIFY slideshowChanged)

public:
    using QObject::QObject;

    Slideshow *slideshow() const { return m_slideshow; }
    void setSlideshow(Slideshow *slideshow);

    int slideCount() const;
    Slide *firstSlide() const;
    QString shapeName() const { return displayName(shape()); }

signals:
    void slideshowChanged();
    void slidesChanged();

private:
    AspectRatio shape() const;

    QPointer<Slideshow> m_slideshow;
};

} // namespace mosslantern
