#pragma once

#include "ui/common/thumbnail_loader.h"

#include <QtCore/QUrl>
#include <QtQuick/QQuickItem>

namespace mosslantern {

/// An image file, loaded in the background and scaled to fill the item, with continuous corners. Light gray
/// while it loads, and when it cannot be loaded.
class Thumbnail : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QUrl source READ source WRITE setSource NOTIFY sourceChanged REQUIRED)
    Q_PROPERTY(double radius MEMBER m_radius NOTIFY lookChanged)
    /// Black 33 % of radius 2, drawn outside the item.
    Q_PROPERTY(bool hasShadow MEMBER m_hasShadow NOTIFY lookChanged)
    Q_PROPERTY(bool isLoaded READ isLoaded NOTIFY isLoadedChanged)

public:
    explicit Thumbnail(QQuickItem *parent = nullptr);
    ~Thumbnail() override;

    QUrl source() const { return m_source; }
    void setSource(const QUrl &source);

    bool isLoaded() const { return m_isLoaded; }

signals:
    void sourceChanged();
    void lookChanged();
    void isLoadedChanged();

protected:
    void componentComplete() override;
    void itemChange(ItemChange change, const ItemChangeData &value) override;
    void geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry) override;
    QSGNode *updatePaintNode(QSGNode *node, UpdatePaintNodeData *data) override;

private:
    void load();
    void show(const ThumbnailRequest &request, const QImage &image, bool isLoaded);

    QUrl m_source;
    double m_radius = 0;
    bool m_hasShadow = false;
    bool m_isLoaded = false;
    QPointer<ThumbnailLoader> m_loader;
    ThumbnailRequest m_shown;
    QImage m_image;
};

} // namespace mosslantern
