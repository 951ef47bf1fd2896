#include "model/delete_asset.h"

#include "model/asset.h"
#include "model/console.h"
#include "model/slideshow.h"
#include "model/store.h"

#include <algorithm>

namespace mosslantern {

using namespace Qt::StringLiterals;

void deleteAsset(Asset *asset)
{
    Store *const store = asset->store();
    Q_ASSERT(store);
    const auto dependsOnFile = [asset](const Slide *slide) {
        return slide->asset() == asset && !slide->imageFilename();
    };
    const auto isDependent = [&](const Slideshow &slideshow) {
        return std::ranges::any_of(slideshow.slides(), dependsOnFile);
    };
    for (Slideshow *slideshow : store->fetch<Slideshow>(isDependent)) {
        printLine(u"Deleting dependent slideshow: "_s +
                  slideshow->id().toString(QUuid::WithoutBraces).toUpper());
        store->remove(slideshow);
    }
    store->remove(asset);
}

} // namespace mosslantern
