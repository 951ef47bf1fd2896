#pragma once

#include "model/slide.h"
#include "ui/slide/static_slide.h"

namespace mosslantern {

/// A stored slide, as its export shows it. Follows the record.
// The base is named in full for the QML type registration, which does not look into namespaces.
class SlidePreviewView : public mosslantern::StaticSlide
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(mosslantern::Slide *slide READ slide WRITE setSlide NOTIFY slideChanged REQUIRED)
    /// The slideshow's shape, or undefined.
    Q_PROPERTY(QVariant aspectRatio READ aspectRatio WRITE setAspectRatio NOTIFY aspectRatioChanged REQUIRED)
    /// Shown instead of the slide's file, unless it is null.
    Q_PROPERTY(QImage preloadedImage READ preloadedImage WRITE setPreloadedImage NOTIFY preloadedImageChanged)

public:
    explicit SlidePreviewView(QQuickItem *parent = nullptr);

    Slide *slide() const { return m_slide; }
    void setSlide(Slide *slide);

    QVariant aspectRatio() const { return static_cast<int>(m_aspectRatio); }
    void setAspectRatio(const QVariant &aspectRatio);

    QImage preloadedImage() const { return m_preloadedImage; }
    void setPreloadedImage(const QImage &image);

signals:
    void slideChanged();
    void aspectRatioChanged();
    void preloadedImageChanged();

protected:
    Content content() const override;
    AspectRatio shape() const override { return m_aspectRatio; }

private:
    QPointer<Slide> m_slide;
    AspectRatio m_aspectRatio = AspectRatio::tiktok;
    QImage m_preloadedImage;
};

} // namespace mosslantern
