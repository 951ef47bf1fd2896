#pragma once

#include "app/gui/app_screen.h"

#include <QtCore/QObject>
#include <QtQml/qqmlregistration.h>

#include <optional>

namespace mosslantern {

/// The state of a window: which destination it shows.
class ContentView : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    /// The selected screen's place among all screens, -1 for none.
    Q_PROPERTY(int selectedIndex READ selectedIndex WRITE setSelectedIndex NOTIFY selectedScreenChanged)

public:
    explicit ContentView(QObject *parent = nullptr)
        : QObject(parent)
    {}

    /// None shows the placeholder.
    std::optional<AppScreen> selectedScreen() const { return m_selectedScreen; }
    void setSelectedScreen(std::optional<AppScreen> screen);

    int selectedIndex() const { return m_selectedScreen ? static_cast<int>(*m_selectedScreen) : -1; }
    void setSelectedIndex(int index);

signals:
    /// To another screen, or to none.
    void selectedScreenChanged();

private:
    std::optional<AppScreen> m_selectedScreen = AppScreen::assets;
};

} // namespace mosslantern
