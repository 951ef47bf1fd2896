#pragma once

#include <QtCore/QList>
#include <QtCore/QString>

#include <span>

namespace mosslantern {

class Slideshow;

/// The slideshows that share a batch name; those without one are called "Uncategorized".
struct BatchGroup
{
    QString name;
    /// In the order of newestFirst().
    QList<Slideshow *> slideshows;
};

/// All slideshows in groups, in the order of newestFirst() of each group's newest.
QList<BatchGroup> groupedSlideshows(std::span<Slideshow *const> slideshows);

} // namespace mosslantern
