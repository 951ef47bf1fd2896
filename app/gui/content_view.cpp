#include "app/gui/content_view.h"

#include "model/change.h"

namespace mosslantern {

void ContentView::setSelectedScreen(std::optional<AppScreen> screen)
{
    change(*this, m_selectedScreen, screen, &ContentView::selectedScreenChanged);
}

void ContentView::setSelectedIndex(int index)
{
    const bool isScreen = index >= 0 && index < static_cast<int>(allAppScreens.size());
    setSelectedScreen(isScreen ? std::optional(allAppScreens[static_cast<size_t>(index)]) : std::nullopt);
}

} // namespace mosslantern
