#pragma once

#include "app/update/spu_updater.h"

namespace mosslantern {

/// Whether the checks in the background begin with the controller.
enum class StartingUpdater { no, yes };

/// Owns the updater of the application.
class SPUStandardUpdaterController
{
public:
    /// The first check comes a few seconds later; without a feed there is none.
    SPUStandardUpdaterController(StartingUpdater startingUpdater, const UpdaterSettings &settings)
        : m_updater(settings)
    {
        if (startingUpdater == StartingUpdater::yes)
            m_updater.start();
    }

    /// Lives as long as the controller.
    SPUUpdater &updater() { return m_updater; }

private:
    SPUUpdater m_updater;
};

} // namespace mosslantern
