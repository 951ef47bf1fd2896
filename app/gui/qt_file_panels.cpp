#include "app/gui/qt_file_panels.h"

#include <QtCore/QDir>
#include <QtCore/QStandardPaths>
#include <QtGui/QDesktopServices>
#include <QtGui/QWindow>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QTreeView>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

/// The user's folder of this kind, or their home when there is none.
QString startFolder(QStandardPaths::StandardLocation kind)
{
    const QString folder = QStandardPaths::writableLocation(kind);
    return QFileInfo(folder).isDir() ? folder : QDir::homePath();
}

/// The panel that Qt draws itself is narrow, and cuts off the names of files.
void makeRoomForNames(QFileDialog &dialog)
{
    const auto *const files = dialog.findChild<QTreeView *>(u"treeView"_s);
    if (!files)
        return;
    dialog.resize(900, 560);
    QHeaderView &header = *files->header();
    for (int column = 1; column < header.count(); ++column)
        header.setSectionResizeMode(column, QHeaderView::ResizeToContents);
    header.setSectionResizeMode(0, QHeaderView::Stretch);
}

} // namespace

void QtFilePanels::openImages(Picked picked)
{
    auto *const dialog = new QFileDialog;
    dialog->setWindowTitle(QFileDialog::tr("Import Images"));
    dialog->setAcceptMode(QFileDialog::AcceptOpen);
    dialog->setFileMode(QFileDialog::ExistingFiles);
    dialog->setOption(QFileDialog::HideNameFilterDetails);
    dialog->setLabelText(QFileDialog::Accept, QFileDialog::tr("Import"));
    dialog->setDirectory(startFolder(QStandardPaths::PicturesLocation));
    const QStringList patterns{u"jpg"_s, u"jpeg"_s, u"png"_s,  u"webp"_s, u"gif"_s, u"bmp"_s,
                               u"tif"_s, u"tiff"_s, u"heic"_s, u"heif"_s, u"avif"_s};
    QStringList globs;
    for (const QString &pattern : patterns)
        globs << u"*."_s + pattern << u"*."_s + pattern.toUpper();
    dialog->setNameFilters(
        {QFileDialog::tr("Images (%1)").arg(globs.join(u' ')), QFileDialog::tr("All files (*)")});
    QObject::connect(dialog, &QFileDialog::finished, dialog,
                     [dialog, picked = std::move(picked)](int result) {
                         picked(result == QFileDialog::Accepted ? dialog->selectedUrls() : QList<QUrl>());
                     });
    open(dialog);
}

void QtFilePanels::saveFolder(const FolderRequest &request, Chosen chosen)
{
    auto *const dialog = new QFileDialog;
    dialog->setWindowTitle(request.message);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setFileMode(QFileDialog::AnyFile);
    dialog->setOption(QFileDialog::ShowDirsOnly);
    dialog->setLabelText(QFileDialog::Accept, request.acceptLabel);
    dialog->setLabelText(QFileDialog::FileName, QFileDialog::tr("Folder:"));
    dialog->setDirectory(startFolder(QStandardPaths::DocumentsLocation));
    dialog->selectFile(request.suggestedName);
    QObject::connect(
        dialog, &QFileDialog::finished, dialog, [dialog, chosen = std::move(chosen)](int result) {
            chosen(result == QFileDialog::Accepted ? dialog->selectedFiles().value(0) : QString());
        });
    open(dialog);
}

void QtFilePanels::openFolder(const QString &folder)
{
    QDesktopServices::openUrl(QUrl::fromLocalFile(folder));
}

void QtFilePanels::open(QFileDialog *dialog)
{
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    makeRoomForNames(*dialog);
    dialog->winId();
    dialog->windowHandle()->setTransientParent(m_window);
    dialog->setWindowModality(Qt::WindowModal);
    dialog->open();
}

} // namespace mosslantern
