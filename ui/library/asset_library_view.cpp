#include "ui/library/asset_library_view.h"

#include "model/console.h"
#include "model/delete_asset.h"
#include "model/image_files.h"
#include "render/picture/picture_format.h"
#include "ui/common/file_panels.h"

#include <QtCore/QDir>
#include <QtCore/QPointer>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

bool isPicture(const QString &path)
{
    constexpr qint64 enoughBytes = 128;
    QFile file(path);
    return QFileInfo(path).isFile() && file.open(QIODevice::ReadOnly) &&
           pictureFormat(file.read(enoughBytes)).has_value();
}

QStringList filesAt(const QString &path)
{
    if (!QFileInfo(path).isDir())
        return {path};
    QStringList files;
    for (const QFileInfo &file : QDir(path).entryInfoList(QDir::Files, QDir::Name | QDir::LocaleAware))
        files.append(file.filePath());
    return files;
}

} // namespace

AssetLibraryView::AssetLibraryView(QObject *parent)
    : QObject(parent)
{}

void AssetLibraryView::setContext(ScreenContext *context)
{
    Q_ASSERT(!m_context && context);
    m_context = context;
    m_assets.emplace(context->store());
    m_cells.emplace(*m_assets);
    emit contextChanged();
}

void AssetLibraryView::setIsImporterPresented(bool isPresented)
{
    if (m_isImporterPresented == isPresented)
        return;
    m_isImporterPresented = isPresented;
    emit isImporterPresentedChanged();
    if (!isPresented)
        return;
    m_context->filePanels().openImages([self = QPointer(this)](const Result<QList<QUrl>> &picked) {
        if (!self)
            return;
        self->setIsImporterPresented(false);
        self->importAssets(picked);
    });
}

void AssetLibraryView::importAssets(const Result<QList<QUrl>> &picked)
{
    if (!picked) {
        printLine(u"Error importing files: "_s + picked.error().message);
        return;
    }
    for (const QUrl &file : *picked)
        static_cast<void>(importAsset(file, m_context->store()));
}

bool AssetLibraryView::importDropped(const QList<QUrl> &dropped)
{
    QList<QUrl> pictures;
    for (const QUrl &url : dropped) {
        for (const QString &path : filesAt(url.toLocalFile())) {
            if (isPicture(path))
                pictures.append(QUrl::fromLocalFile(path));
        }
    }
    importAssets(pictures);
    return !pictures.isEmpty();
}

void AssetLibraryView::deleteAsset(Asset *asset)
{
    mosslantern::deleteAsset(asset);
}

} // namespace mosslantern
