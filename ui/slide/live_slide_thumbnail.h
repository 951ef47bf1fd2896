#pragma once

#include "model/asset.h"
#include "ui/slide/static_slide.h"

namespace mosslantern {

/// A slide drawn from settings that no record holds yet.
// The base is named in full for the QML type registration, which does not look into namespaces.
class LiveSlideThumbnail : public mosslantern::StaticSlide
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QString mainText READ mainText WRITE setMainText NOTIFY settingsChanged)
    Q_PROPERTY(QString subtitle READ subtitle WRITE setSubtitle NOTIFY settingsChanged)
    /// Whose picture is shown; null for none.
    Q_PROPERTY(mosslantern::Asset *asset READ asset WRITE setAsset NOTIFY settingsChanged)
    Q_PROPERTY(mosslantern::SlideStyle style READ style WRITE setStyle NOTIFY settingsChanged)
    /// An AspectRatio as a number, or undefined.
    Q_PROPERTY(QVariant aspectRatio READ aspectRatio WRITE setAspectRatio NOTIFY settingsChanged)

public:
    explicit LiveSlideThumbnail(QQuickItem *parent = nullptr);

    QString mainText() const { return m_values.text; }
    void setMainText(const QString &text) { set(m_values.text, text); }

    QString subtitle() const { return m_values.subtitle; }
    void setSubtitle(const QString &subtitle) { set(m_values.subtitle, subtitle); }

    Asset *asset() const { return m_asset; }
    void setAsset(Asset *asset) { set(m_asset, QPointer<Asset>(asset)); }

    const SlideStyle &style() const { return m_values.style; }
    void setStyle(const SlideStyle &style) { set(m_values.style, style); }

    QVariant aspectRatio() const { return static_cast<int>(m_aspectRatio); }
    void setAspectRatio(const QVariant &ratio);

signals:
    void settingsChanged();

protected:
    Content content() const override;
    AspectRatio shape() const override { return m_aspectRatio; }

private:
    template <typename T>
    void set(T &field, const T &value)
    {
        if (field == value)
            return;
        field = value;
        redraw();
        emit settingsChanged();
    }

    SlideValues m_values;
    QPointer<Asset> m_asset;
    AspectRatio m_aspectRatio = AspectRatio::tiktok;
};

} // namespace mosslantern
