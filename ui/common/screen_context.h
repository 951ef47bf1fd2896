#pragma once

#include "model/preferences.h"
#include "ui/common/running_work.h"

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
    Q_PROPERTY(mosslantern::RunningWork *work READ workPointer CONSTANT)

public:
    ScreenContext(Store &store, FilePanels &filePanels, OpenAIService &service, Preferences preferences)
        : m_store(store)
        , m_filePanels(filePanels)
        , m_service(service)
        , m_preferences(std::move(preferences))
    {}

    Store &store() const { return m_store; }                  ///< the open library
    FilePanels &filePanels() const { return m_filePanels; }   ///< the window's dialogs for files and folders
    OpenAIService &service() const { return m_service; }      ///< asks for variations of texts
    Preferences preferences() const { return m_preferences; } ///< what the user has chosen
    RunningWork &work() { return m_work; }                    ///< what the screens have under way

private:
    RunningWork *workPointer() { return &m_work; }

    Store &m_store;
    FilePanels &m_filePanels;
    OpenAIService &m_service;
    Preferences m_preferences;
    RunningWork m_work;
};

} // namespace mosslantern
