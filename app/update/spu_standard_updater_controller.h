#pragma once

#include "app/update/spu_updater.h"

namespace mosslantern {

enum class StartingUpdater { no, yes };

/// Owns the updater of the application.
class SPUStandardUpdaterController
{
public:
    SPUStandardUpdaterController(StartingUpdater startingUpdater, const UpdaterSettings &settings)
        : m_updater(settings)
    {
        if (startingUpdater == StartingUpdater::yes)
            m_updater.start();
    }

    SPUUpdater &updater() { return m_updater; }

private:
    SPUUpdater m_updater;
};

} // namespace mosslantern
