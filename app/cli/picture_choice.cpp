#include "app/cli/picture_choice.h"

#include "app/cli/picture_import.h"
#include "app/cli/record_lookup.h"

#include <QtCore/QFileInfo>

namespace mosslantern {

using namespace Qt::StringLiterals;

Result<std::vector<Asset *>> PictureChoice::of(const RequestedSlideshow &slideshow)
{
    std::vector<Asset *> chosen;
    for (const QString &name : slideshow.pictures) {
        const Result<Asset *> asset = name.isEmpty() ? Result<Asset *>(nullptr) : find(name);
        if (!asset)
            return fail(u"%1: %2"_s.arg(slideshow.name, asset.error().message));
        chosen.push_back(*asset);
    }
    return chosen;
}

Result<Asset *> PictureChoice::find(const QString &name)
{
    if (Asset *const known = m_imported.value(name))
        return known;
    Result<Asset *> asset = findAsset(m_store, name);
    if (asset || !QFileInfo(name).isFile())
        return asset;
    const PictureImport import = importPictures({name}, m_store, m_interruption);
    if (import.assets.empty())
        return fail(u"“%1” could not be imported"_s.arg(name));
    return m_imported[name] = import.assets.front();
}

} // namespace mosslantern
