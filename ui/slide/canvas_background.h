#pragma once

#include "model/slide.h"
#include "ui/slide/picture_background.h"

namespace mosslantern {

/// What stands behind the texts of a slide: its picture, or the gray in its place.
// The base is named in full for the QML type registration, which does not look into namespaces.
class CanvasBackground : public mosslantern::PictureBackground
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(mosslantern::Slide *slide READ slide WRITE setSlide NOTIFY slideChanged REQUIRED)

public:
    explicit CanvasBackground(QQuickItem *parent = nullptr);

    Slide *slide() const { return m_slide; }
    void setSlide(Slide *slide);

signals:
    void slideChanged();

protected:
    QString picturePath() const override;
    RgbaColor noPicture() const override;

private:
    QPointer<Slide> m_slide;
};

} // namespace mosslantern
