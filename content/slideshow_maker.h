#pragma once

#include "content/slide_content.h"
#include "model/aspect_ratio.h"
#include "model/slide_style.h"

#include <QtCore/QRandomGenerator>
#include <QtCore/QUuid>

#include <functional>
#include <vector>

namespace mosslantern {

class Asset;
class Slideshow;
class Store;

/// How many slides a slideshow has at most where nobody chooses another number.
inline constexpr int mostSlidesOfSlideshow = 5;

/// How new slideshows are made.
struct SlideshowSettings
{
    /// Slides per slideshow at most; truncated as truncatedCount() does.
    double slideCount = mostSlidesOfSlideshow;
    SlideStyle style{.boxColorHex = QStringLiteral("000000")};
    AspectRatio aspectRatio = AspectRatio::tiktok;
    /// The pictures of the first slides; null for one that is drawn by lot, as are those of all others.
    std::vector<Asset *> pictures = {};
    /// Empty for that of the content, if it has one.
    QString caption = {};
};

/// A slideshow that is to be made.
struct SlideshowPlan
{
    QString content;
    SlideshowSettings settings;
    /// Empty for that of the run.
    QString batchName = {};
};

/// Where the slides' pictures come from: each is drawn by lot, one as likely as another.
struct PictureSource
{
    std::vector<Asset *> assets;
    QRandomGenerator *random = QRandomGenerator::system();

    bool isEmpty() const { return assets.empty(); }
    /// Of a source that is not empty.
    Asset *draw() const;
};

/// What one run has made: slideshows of one id and name, but for those that were planned for other batches.
struct GeneratedBatch
{
    QUuid id = QUuid::createUuid();
    QString name;
    /// In the order in which they were made; the store owns them.
    QList<Slideshow *> slideshows;
};

/// Told after each content of a run how many are done and how many there are; false ends the run.
using GenerationProgress = std::function<bool(qsizetype done, qsizetype total)>;

/// A count from a slider: truncated toward zero, 0 for what is below and for what is no number.
qint64 truncatedCount(double count);

/// The texts of the slides that a slideshow gets from `content`, as parseSlideContent() reads it.
QList<SlideText> slideTexts(const QString &content, double slideCount);

/// Makes a slideshow from `content` and inserts it. Null when there are no entries, or when pictures have to
/// be drawn and there are none.
Slideshow *makeSlideshow(const QString &content, const SlideshowSettings &settings,
                         const PictureSource &pictures, const QUuid &batchId, const QString &batchName,
                         Store &store);

/// Makes what is planned, a batch for each name; a slideshow without entries is skipped.
GeneratedBatch makeBatch(const QString &name, const std::vector<SlideshowPlan> &plans,
                         const PictureSource &pictures, Store &store, const GenerationProgress &goesOn);

} // namespace mosslantern
