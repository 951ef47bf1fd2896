#pragma once

#include "app/cli/batch_generation.h"
#include "content/table/table_pictures.h"

namespace mosslantern {

/// The pictures that the slideshows of a table ask for: those of the library by their names, files by their
/// paths, which are imported, each once.
class PictureChoice
{
public:
    /// As TablePictures has them.
    PictureChoice(Store &store, const QString &folder, bool canDraw, const Interruption &interruption)
        : m_store(store)
        , m_interruption(interruption)
        , m_pictures(store, folder, canDraw)
    {}

    /// Whether the slideshow has all its pictures, as far as can be told without opening files. The error
    /// says which one not.
    Result<> check(const RequestedSlideshow &slideshow);

    /// Null where the slideshow asks for none. Fails where check() does, and on a file that cannot be
    /// imported.
    Result<std::vector<Asset *>> of(const RequestedSlideshow &slideshow);

private:
    Result<Asset *> find(const QString &name);

    Store &m_store;
    const Interruption &m_interruption;
    TablePictures m_pictures;
    QHash<QString, Asset *> m_imported; // by path
};

} // namespace mosslantern
