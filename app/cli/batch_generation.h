#pragma once

#include "app/cli/design_options.h"
#include "app/cli/left_out.h"
#include "model/error.h"

#include <QtCore/QRandomGenerator>

namespace mosslantern {

class Collection;
class Interruption;
class Slideshow;
class Store;

/// One slideshow of a batch.
struct RequestedSlideshow
{
    QString content;
    SlideDesign design;
    /// For the first slides; empty for one that is drawn by lot.
    QStringList pictures = {};
    /// "row 7", for messages.
    QString name = {};
    /// Empty for that of the run.
    QString batchName = {};
    /// Empty for that of the content.
    QString caption = {};
};

/// What a batch of slideshows is to be made of.
struct BatchRequest
{
    QString content;
    qint64 count = 1;
    /// What was prepared elsewhere, by a table or as variations; then content and count mean nothing.
    std::optional<std::vector<RequestedSlideshow>> prepared;
    /// How many rows of a table had to be left out; they are reported already.
    qsizetype rowsLeftOut = 0;
    /// Where the table is.
    QString tableFolder;
    SlideDesign design;
    QString batchName; // empty: date and time
    std::optional<quint64> seed;
    bool usesAi = false;
    std::optional<QString> prompt; // none: the usual one
};

/// The options that tell a request.
std::vector<OptionSpec> batchOptions();

/// Understands them and reads the content. Reports what is wrong; the error is the exit status.
std::expected<BatchRequest, int> readBatchRequest(const Arguments &arguments);

/// The slideshows of the request, with what the AI service writes where it is asked.
Result<std::vector<RequestedSlideshow>> requestedSlideshows(const BatchRequest &request,
                                                            const Interruption &interruption);

/// Where the pictures are drawn by lot from.
QRandomGenerator randomSource(std::optional<quint64> seed);

/// Why nothing came of a request.
QString nothingMade(const BatchRequest &request);

/// What is said of rows that were left out.
QString rowsNotUsed();

/// What came of a request.
struct MadeBatch
{
    QList<Slideshow *> slideshows;
    LeftOut leftOut;
};

/// How many slideshows would be made, and how many rows left out, which are reported: without the AI service,
/// and with pictures of files as far as can be told without opening them.
struct BatchForecast
{
    qsizetype slideshows = 0;
    qsizetype rowsLeftOut = 0;
};
Result<BatchForecast> forecast(const BatchRequest &request, Collection *collection, Store &store);

/// Makes the slideshows, from the pictures of `collection` or, when it is null, from all. Shows progress,
/// stops when there is an interruption. Fails when nothing could be made, but for an interruption.
Result<MadeBatch> makeBatch(const BatchRequest &request, Collection *collection, Store &store,
                            const Interruption &interruption);

} // namespace mosslantern
