#include "ui/library/asset_library_view.h"

#include "model/console.h"
#include "model/delete_asset.h"
#include "model/image_files.h"
#include "render/picture/picture_files.h"
#include "ui/common/file_panels.h"
#include "ui/library/picture_intake.h"

#include <QtCore/QFileInfo>
#include <QtCore/QPointer>

namespace mosslantern {

using namespace Qt::StringLiterals;

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
    QStringList files;
    for (const QUrl &file : *picked) {
        if (file.isLocalFile())
            files.append(file.toLocalFile());
        else
            static_cast<void>(importAsset(file, m_context->store())); // which says why it cannot
    }
    PictureIntake::of(*m_context).take(files);
}

bool AssetLibraryView::importDropped(const QList<QUrl> &dropped)
{
    QStringList names;
    for (const QUrl &url : dropped) {
        if (const QString name = url.toLocalFile(); QFileInfo(name).isDir() || isLikePicture(name))
            names.append(name);
    }
    return PictureIntake::of(*m_context).takeNamed(names);
}

void AssetLibraryView::deleteAsset(Asset *asset)
{
    mosslantern::deleteAsset(asset);
}

} // namespace mosslantern
