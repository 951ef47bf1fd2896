#include "app/gui/qt_file_panels.h"

#include "render/export/bulk_exporter.h"
#include "render/picture/picture_files.h"

#include <QtCore/QDir>
#include <QtCore/QStandardPaths>
#include <QtGui/QDesktopServices>
#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QPushButton>
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

/// Where the panel is Qt's own, the folder is what its name field says, be it new or there already: Qt would
/// enter a folder that exists, and offer to replace a file. Without Q_OBJECT, since Qt gives the desktop's
/// panel only to what calls itself a QFileDialog.
class FolderPanel : public QFileDialog
{
public:
    explicit FolderPanel(const FolderRequest &request);

    /// Its full path.
    QString folder() const;

    void accept() override;

private:
    void replaceAcceptButton(const QString &label);

    /// Null in the desktop's panel.
    QLineEdit *nameField() const { return findChild<QLineEdit *>(u"fileNameEdit"_s); }
};

FolderPanel::FolderPanel(const FolderRequest &request)
{
    setWindowTitle(request.message);
    setAcceptMode(AcceptSave);
    setFileMode(AnyFile);
    setOptions(ShowDirsOnly | DontConfirmOverwrite);
    setLabelText(Accept, request.acceptLabel);
    setLabelText(FileName, tr("Folder:"));
    setDirectory(startFolder(QStandardPaths::DocumentsLocation));
    selectFile(batchFolderName(request.suggestedName));
    if (!nameField())
        return;
    for (const QString &name : {u"fileTypeLabel"_s, u"fileTypeCombo"_s}) {
        if (auto *const part = findChild<QWidget *>(name))
            part->hide();
    }
    replaceAcceptButton(request.acceptLabel);
}

/// Qt's button says "Open" and greys out while the name is that of a folder.
void FolderPanel::replaceAcceptButton(const QString &label)
{
    auto *const buttons = findChild<QDialogButtonBox *>(u"buttonBox"_s);
    QPushButton *const button = buttons->addButton(label, QDialogButtonBox::AcceptRole);
    // Adding a button shows all of them.
    buttons->button(QDialogButtonBox::Save)->hide();
    button->setDefault(true);
    const auto follow = [button](const QString &name) { button->setEnabled(!name.trimmed().isEmpty()); };
    connect(nameField(), &QLineEdit::textChanged, button, follow);
    follow(nameField()->text());
}

QString FolderPanel::folder() const
{
    if (!nameField())
        return selectedFiles().value(0);
    QString name = nameField()->text();
    if ((name == u"~"_s || name.startsWith(u"~/"_s)) && !directory().exists(name))
        name.replace(0, 1, QDir::homePath());
    return QDir::cleanPath(directory().absoluteFilePath(name));
}

void FolderPanel::accept()
{
    if (!nameField() || nameField()->text() == u".."_s) {
        QFileDialog::accept();
        return;
    }
    if (nameField()->text().trimmed().isEmpty())
        return;
    const QFileInfo place(folder());
    if (!place.exists() || place.isDir()) {
        QDialog::accept();
        return;
    }
    auto *const refusal =
        new QMessageBox(QMessageBox::Warning, windowTitle(),
                        tr("“%1” is a file. Choose another name for the folder.").arg(place.fileName()),
                        QMessageBox::Ok, this);
    refusal->setAttribute(Qt::WA_DeleteOnClose);
    refusal->open();
}

} // namespace

QtFilePanels::~QtFilePanels()
{
    for (const QPointer<QFileDialog> &dialog : m_shown)
        delete dialog;
}

void QtFilePanels::openImages(Picked picked)
{
    auto *const dialog = new QFileDialog;
    dialog->setWindowTitle(QFileDialog::tr("Import Images"));
    dialog->setAcceptMode(QFileDialog::AcceptOpen);
    dialog->setFileMode(QFileDialog::ExistingFiles);
    dialog->setOption(QFileDialog::HideNameFilterDetails);
    dialog->setLabelText(QFileDialog::Accept, QFileDialog::tr("Import"));
    dialog->setDirectory(startFolder(QStandardPaths::PicturesLocation));
    QStringList globs;
    for (const QString &suffix : pictureSuffixes())
        globs << u"*."_s + suffix << u"*."_s + suffix.toUpper();
    dialog->setNameFilters(
        {QFileDialog::tr("Images (%1)").arg(globs.join(u' ')), QFileDialog::tr("All files (*)")});
    QObject::connect(
        dialog, &QFileDialog::finished, &m_answers, [this, dialog, picked = std::move(picked)](int result) {
            const auto urls = result == QFileDialog::Accepted ? dialog->selectedUrls() : QList<QUrl>();
            QMetaObject::invokeMethod(
                &m_answers, [picked, urls] { picked(urls); }, Qt::QueuedConnection);
        });
    open(dialog, Qt::WindowModal);
}

void QtFilePanels::saveFolder(const FolderRequest &request, Chosen chosen)
{
    auto *const dialog = new FolderPanel(request);
    QObject::connect(
        dialog, &QFileDialog::finished, &m_answers, [this, dialog, chosen = std::move(chosen)](int result) {
            const QString folder = result == QFileDialog::Accepted ? dialog->folder() : QString();
            QMetaObject::invokeMethod(
                &m_answers, [chosen, folder] { chosen(folder); }, Qt::QueuedConnection);
        });
    open(dialog, Qt::NonModal);
}

void QtFilePanels::openFolder(const QString &folder)
{
    QDesktopServices::openUrl(QUrl::fromLocalFile(folder));
}

void QtFilePanels::open(QFileDialog *dialog, Qt::WindowModality modality)
{
    m_shown.removeAll(nullptr);
    m_shown.append(dialog);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    makeRoomForNames(*dialog);
    dialog->winId();
    dialog->windowHandle()->setTransientParent(m_window);
    dialog->setWindowModality(modality);
    dialog->show();
}

} // namespace mosslantern
