#pragma once

#include <QtCore/QObject>
#include <QtQml/qqmlregistration.h>

namespace mosslantern {

class FilePanels;
class Store;

/// What every screen of a window works with.
class ScreenContext : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The application makes it.")

public:
    ScreenContext(Store &store, FilePanels &filePanels)
        : m_store(store)
        , m_filePanels(filePanels)
    {}

    Store &store() const { return m_store; }
    FilePanels &filePanels() const { return m_filePanels; }

private:
    Store &m_store;
    FilePanels &m_filePanels;
};

} // namespace mosslantern
