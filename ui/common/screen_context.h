#pragma once

#include "model/preferences.h"

#include <QtCore/QObject>
#include <QtQml/qqmlregistration.h>

namespace mosslantern {

class FilePanels;
class OpenAIService;
class Store;

/// What every screen of a window works with.
class ScreenContext : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The application makes it.")

public:
    ScreenContext(Store &store, FilePanels &filePanels, OpenAIService &service, Preferences preferences)
        : m_store(store)
        , m_filePanels(filePanels)
        , m_service(service)
        , m_preferences(std::move(preferences))
    {}

    Store &store() const { return m_store; }
    FilePanels &filePanels() const { return m_filePanels; }
    OpenAIService &service() const { return m_service; }
    Preferences preferences() const { return m_preferences; }

private:
    Store &m_store;
    FilePanels &m_filePanels;
    OpenAIService &m_service;
    Preferences m_preferences;
};

} // namespace mosslantern
