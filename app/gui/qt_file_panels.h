#pragma once

#include "ui/common/file_panels.h"

#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtGui/QWindow>

class QFileDialog;

namespace mosslantern {

/// The desktop's own panels where it has them, Qt's otherwise. They answer from the event loop, when the
/// panel is done with the key or click that closed it. Panels that are open when this ends close without an
/// answer.
class QtFilePanels : public FilePanels
{
public:
    QtFilePanels() = default;
    ~QtFilePanels() override;
    Q_DISABLE_COPY_MOVE(QtFilePanels)

    /// The window that the panels belong to.
    void setWindow(QWindow *window) { m_window = window; }

    void openImages(Picked picked) override;
    void saveFolder(const FolderRequest &request, Chosen chosen) override;
    void openFolder(const QString &folder) override;

private:
    void open(QFileDialog *dialog, Qt::WindowModality modality);

    QPointer<QWindow> m_window;
    QList<QPointer<QFileDialog>> m_shown;
    /// Answers that are still waiting go with it.
    QObject m_answers;
};

} // namespace mosslantern
