#include "app/cli/render_targets.h"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QSet>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

QString baseName(const QString &picture)
{
    const QFileInfo info(picture);
    return info.completeBaseName().isEmpty() ? info.fileName() : info.completeBaseName();
}

} // namespace

std::vector<RenderTarget> renderTargets(const QStringList &pictures, const QString &folder,
                                        const QString &ending)
{
    const QDir directory(folder);
    QSet<QString> pictureFiles;
    for (const QString &picture : pictures)
        pictureFiles.insert(QFileInfo(picture).canonicalFilePath());
    QSet<QString> taken;
    const auto isTaken = [&](const QString &name) {
        const QFileInfo existing(directory.filePath(name));
        return taken.contains(name.toCaseFolded()) ||
               (existing.exists() && pictureFiles.contains(existing.canonicalFilePath()));
    };

    std::vector<RenderTarget> targets;
    for (const QString &picture : pictures) {
        QString name = baseName(picture) + ending;
        int number = 1;
        while (isTaken(name))
            name = u"%1-%2"_s.arg(baseName(picture), QString::number(++number)) + ending;
        taken.insert(name.toCaseFolded());
        targets.push_back({directory.filePath(name), number > 1});
    }
    return targets;
}

} // namespace mosslantern
