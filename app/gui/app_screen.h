#pragma once

#include <array>

namespace mosslantern {

/// The destinations of the sidebar, in its order.
enum class AppScreen { assets, collections, slideshows };

inline constexpr std::array allAppScreens{AppScreen::assets, AppScreen::collections, AppScreen::slideshows};

} // namespace mosslantern
