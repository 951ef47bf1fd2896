#include "ui/slide/asset_background.h"

#include "model/change.h"

namespace mosslantern {

AssetBackground::AssetBackground(QQuickItem *parent)
    : PictureBackground(parent)
{}

void AssetBackground::setAsset(Asset *asset)
{
    if (change(*this, m_asset, asset, &AssetBackground::assetChanged))
        redraw();
}

QString AssetBackground::picturePath() const
{
    return m_asset ? m_asset->fileURL().toLocalFile() : QString();
}

} // namespace mosslantern
