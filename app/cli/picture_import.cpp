#include "app/cli/picture_import.h"

#include "app/cli/interruption.h"
#include "app/cli/output.h"
#include "app/cli/progress.h"
#include "model/asset.h"
#include "model/image_files.h"
#include "render/picture/picture_checks.h"
#include "render/picture/picture_files.h"

#include <QtCore/QFileInfo>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

/// So that little is lost when the program is killed, and saving takes little of the time.
constexpr qsizetype filesPerSave = 100;

Result<Asset *> importPicture(const QString &file, const Result<> &checked, Store &store)
{
    if (!checked)
        return std::unexpected(checked.error());
    return importAsset(QUrl::fromLocalFile(QFileInfo(file).absoluteFilePath()), store);
}

} // namespace

PictureImport importPictures(const QStringList &filesAndFolders, Store &store,
                             const Interruption &interruption)
{
    PictureImport imported;
    const auto fail = [&](const QString &problem) {
        report(problem);
        ++imported.problems;
    };
    const PictureFiles pictures = pictureFiles(filesAndFolders);
    for (const Error &problem : pictures.problems)
        fail(problem.message);

    PictureChecks checks(pictures.files);
    Progress progress(u"pictures"_s);
    for (qsizetype i = 0; i < pictures.files.size() && !interruption.isRequested(); ++i) {
        const QString &file = pictures.files[i];
        const Result<> &checked = checks.result(i);
        if (interruption.isRequested())
            break;
        if (const Result<Asset *> asset = importPicture(file, checked, store))
            imported.assets.push_back(*asset);
        else
            fail(file + u": "_s + asset.error().message);
        if (i % filesPerSave == filesPerSave - 1)
            static_cast<void>(store.flush()); // What this cannot save, the last attempt reports.
        progress.show(i + 1, pictures.files.size());
    }
    return imported;
}

} // namespace mosslantern
