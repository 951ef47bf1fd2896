#pragma once

#include "app/cli/batch_generation.h"

#include <QtCore/QHash>

namespace mosslantern {

class Asset;

/// Finds the pictures that slideshows ask for: those of the library by their names, files by their paths,
/// which are imported, each once.
class PictureChoice
{
public:
    PictureChoice(Store &store, const Interruption &interruption)
        : m_store(store)
        , m_interruption(interruption)
    {}

    /// Null where the slideshow asks for none. Fails on a picture that is neither.
    Result<std::vector<Asset *>> of(const RequestedSlideshow &slideshow);

private:
    Result<Asset *> find(const QString &name);

    Store &m_store;
    const Interruption &m_interruption;
    QHash<QString, Asset *> m_imported; // by path
};

} // namespace mosslantern
