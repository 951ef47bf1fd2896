#pragma once

#include "model/error.h"

#include <QtCore/QByteArray>
#include <QtCore/QList>

#include <map>
#include <vector>

namespace mosslantern {

class SlideDestination;
class Slideshow;
struct SlideJob;

/// What the index of an exported batch says of one slideshow.
struct IndexEntry
{
    struct Slide
    {
        QString text;
        QString subtitle;
        QString picture; // as a table names it; empty for none
    };

    QList<Slide> slides;
    QString caption;
    QString folder = {}; // in that of the batch
};

/// The slides in their order, with the names of their assets, or the ids of those whose names are not theirs
/// alone.
[[nodiscard]] IndexEntry indexEntry(const Slideshow &slideshow);
/// With the names of the picture files.
[[nodiscard]] IndexEntry indexEntry(const std::vector<SlideJob> &jobs, const QString &caption);

/// The index as a CSV file (RFC 4180, UTF-8 with a mark, by which spreadsheets know it), of which slideshows
/// can be made again: folder, slides, main 1, subtitle 1, image 1, main 2, …, caption.
[[nodiscard]] QByteArray batchIndex(const std::vector<IndexEntry> &entries);

/// The indexes of one export: "index.csv" in the folder of each batch.
class BatchIndexes
{
public:
    /// Of the slideshow in `folder`.
    void add(const QString &folder, IndexEntry entry);
    /// Writes them all, and begins anew.
    [[nodiscard]] Result<> write(SlideDestination &destination);

private:
    std::map<QString, std::vector<IndexEntry>> m_batches; // by their folders
};

} // namespace mosslantern
