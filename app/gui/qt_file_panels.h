#pragma once

#include "ui/common/file_panels.h"

class QFileDialog;
class QWindow;

namespace mosslantern {

/// The desktop's own panels where it has them, Qt's otherwise.
class QtFilePanels : public FilePanels
{
public:
    /// The window that the panels belong to.
    void setWindow(QWindow *window) { m_window = window; }

    void openImages(Picked picked) override;
    void saveFolder(const FolderRequest &request, Chosen chosen) override;
    void openFolder(const QString &folder) override;

private:
    void open(QFileDialog *dialog);

    QWindow *m_window = nullptr;
};

} // namespace mosslantern
