#include "app/cli/picture_choice.h"

#include "app/cli/picture_import.h"

namespace mosslantern {

using namespace Qt::StringLiterals;

Result<> PictureChoice::check(const RequestedSlideshow &slideshow)
{
    // Without a row there are no names, and pictures were found to be there.
    const auto objection = slideshow.name.isEmpty() ? std::nullopt : m_pictures.objection(slideshow.pictures);
    return objection ? Result<>(fail(u"%1: %2"_s.arg(slideshow.name, *objection))) : Result<>();
}

Result<std::vector<Asset *>> PictureChoice::of(const RequestedSlideshow &slideshow)
{
    if (const Result<> checked = check(slideshow); !checked)
        return std::unexpected(checked.error());
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
    const TablePictures::Found found = m_pictures.find(name).value();
    if (found.asset)
        return found.asset;
    Asset *&imported = m_imported[found.file];
    if (!imported) {
        const PictureImport import = importPictures({found.file}, m_store, m_interruption);
        if (import.assets.empty())
            return fail(u"“%1” could not be imported"_s.arg(name));
        imported = import.assets.front();
    }
    return imported;
}

} // namespace mosslantern
