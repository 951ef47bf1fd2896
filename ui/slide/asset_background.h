#pragma once

#include "model/asset.h"
#include "ui/slide/picture_background.h"

namespace mosslantern {

/// The picture of an asset behind the live preview; nothing when there is no asset.
// The base is named in full for the QML type registration, which does not look into namespaces.
class AssetBackground : public mosslantern::PictureBackground
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(mosslantern::Asset *asset READ asset WRITE setAsset NOTIFY assetChanged REQUIRED)

public:
    explicit AssetBackground(QQuickItem *parent = nullptr);

    Asset *asset() const { return m_asset; }
    void setAsset(Asset *asset);

signals:
    void assetChanged();

protected:
    QString picturePath() const override;
    RgbaColor noPicture() const override { return {.red = 0, .green = 0, .blue = 0, .opacity = 0}; }

private:
    QPointer<Asset> m_asset;
};

} // namespace mosslantern
