#include "ui/slide/asset_background.h"

namespace mosslantern {

AssetBackground::AssetBackground(QQuickItem *parent)
    : PictureBackground(parent)
{}

void AssetBackground::setAsset(Asset *asset)
{
    if (m_asset == asset)
        return;
    m_asset = asset;
    redraw();
    emit assetChanged();
}

QString AssetBackground::picturePath() const
{
    return m_asset ? m_asset->fileURL().toLocalFile() : QString();
}

} // namespace mosslantern
