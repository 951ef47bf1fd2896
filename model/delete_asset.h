#pragma once

namespace mosslantern {

class Asset;

/// Removes an asset from its store, after every slideshow with a slide that shows the asset's file because it
/// has no image of its own; prints "Deleting dependent slideshow: " and the id of each. Files stay.
void deleteAsset(Asset *asset);

} // namespace mosslantern
