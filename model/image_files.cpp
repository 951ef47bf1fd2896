#include "model/image_files.h"

#include "model/asset.h"
#include "model/console.h"
#include "model/file_copy.h"
#include "model/store.h"

#include <QtCore/QFileInfo>

#include <climits>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

/// The copy will be on the disk before the next save of the store.
Result<QString> copyToFreshName(const QUrl &file, const QString &folder, Store &store)
{
    if (!file.isLocalFile())
        return fail(u"“%1” is not a file on this computer."_s.arg(file.toDisplayString()));
    const QString path = file.toLocalFile();
    const QString original = QFileInfo(path).fileName();
    const QString name = uniqueNameLike(original);
    if (QFile::encodeName(name).size() > NAME_MAX)
        return fail(u"The extension of “%1” is too long."_s.arg(original));
    if (const Result<> copied = copyIntoFolder(path, folder, name); !copied)
        return std::unexpected(copied.error());
    store.noteNewFile(folder + u'/' + name);
    return name;
}

} // namespace

Result<Asset *> importAsset(const QUrl &file, Store &store)
{
    const Result<QString> filename =
        store.readOnlyReason().isEmpty()
            ? copyToFreshName(file, store.location().assetFolder(), store)
            : fail(u"The library cannot be changed: %1."_s.arg(store.readOnlyReason()));
    if (!filename) {
        printLine(u"Failed to copy asset: "_s + filename.error().message);
        return std::unexpected(filename.error());
    }
    const QString name = QFileInfo(file.toLocalFile()).fileName();
    return store.insert(std::make_unique<Asset>(*filename, name, nullptr));
}

std::optional<QString> copySlideImage(const Asset &asset)
{
    const Result<QString> filename =
        asset.store()
            ? copyToFreshName(asset.fileURL(), asset.store()->location().slideImageFolder(), *asset.store())
            : fail(u"The asset “%1” is in no library."_s.arg(asset.name()));
    if (!filename) {
        printLine(u"Failed to copy slide image: "_s + filename.error().message);
        return std::nullopt;
    }
    return *filename;
}

} // namespace mosslantern
