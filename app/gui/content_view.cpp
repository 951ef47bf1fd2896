#include "app/gui/content_view.h"

namespace mosslantern {

void ContentView::setSelectedScreen(std::optional<AppScreen> screen)
{
    if (m_selectedScreen == screen)
        return;
    m_selectedScreen = screen;
    emit selectedScreenChanged();
}

void ContentView::setSelectedIndex(int index)
{
    const bool isScreen = index >= 0 && index < static_cast<int>(allAppScreens.size());
    setSelectedScreen(isScreen ? std::optional(allAppScreens[static_cast<size_t>(index)]) : std::nullopt);
}

} // namespace mosslantern
