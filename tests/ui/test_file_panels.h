#pragma once

#include "ui/common/file_panels.h"

#include <QtCore/QStringList>

#include <utility>

namespace mosslantern {

/// A file panel whose user is the test.
class TestFilePanels : public FilePanels
{
public:
    void openImages(Picked picked) override { m_picked = std::move(picked); }

    bool isShown() const { return m_picked != nullptr; }
    void answer(const Result<QList<QUrl>> &files) { std::exchange(m_picked, {})(files); }

    void saveFolder(const FolderRequest &request, Chosen chosen) override
    {
        m_request = request;
        m_chosen = std::move(chosen);
    }
    void openFolder(const QString &folder) override { m_opened.append(folder); }

    const FolderRequest &folderRequest() const { return m_request; }
    void answerFolder(const QString &folder) { std::exchange(m_chosen, {})(folder); }
    const QStringList &openedFolders() const { return m_opened; }

private:
    Picked m_picked;
    FolderRequest m_request;
    Chosen m_chosen;
    QStringList m_opened;
};

} // namespace mosslantern
