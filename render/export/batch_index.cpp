#include "render/export/batch_index.h"

#include "model/asset.h"
#include "model/slideshow.h"
#include "model/store.h"
#include "render/export/slide_destination.h"

#include <QtCore/QFileInfo>
#include <QtCore/QStringList>

#include <algorithm>
#include <utility>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

QString nameOf(const Asset *asset)
{
    if (!asset || !asset->store())
        return {};
    const auto alike =
        asset->store()->fetch<Asset>([&](const Asset &other) { return other.name() == asset->name(); });
    return alike.size() == 1 ? asset->name() : asset->id().toString(QUuid::WithoutBraces).toUpper();
}

QString quoted(QString cell)
{
    static constexpr QStringView special = u"\",;|\t\r\n";
    const bool needsQuotes = std::ranges::any_of(cell, [](QChar c) { return special.contains(c); });
    return needsQuotes ? u'"' + cell.replace(u'"', u"\"\""_s) + u'"' : cell;
}

void addRow(QByteArray &file, QStringList cells)
{
    for (QString &cell : cells)
        cell = quoted(cell);
    file += cells.join(u',').toUtf8() + "\r\n";
}

} // namespace

IndexEntry indexEntry(const Slideshow &slideshow)
{
    IndexEntry entry{.slides = {}, .caption = slideshow.caption()};
    for (const Slide *slide : slideshow.slidesInOrder())
        entry.slides.append({slide->text(), slide->subtitle(), nameOf(slide->asset())});
    return entry;
}

IndexEntry indexEntry(const std::vector<SlideJob> &jobs, const QString &caption)
{
    IndexEntry entry{.slides = {}, .caption = caption};
    for (const SlideJob &job : jobs)
        entry.slides.append({job.values.text, job.values.subtitle, QFileInfo(job.picturePath).fileName()});
    return entry;
}

QByteArray batchIndex(const std::vector<IndexEntry> &entries)
{
    qsizetype most = 0;
    for (const IndexEntry &entry : entries)
        most = std::max(most, entry.slides.size());
    QByteArray file = "\xEF\xBB\xBF";
    QStringList headings{u"folder"_s, u"slides"_s};
    for (qsizetype i = 1; i <= most; ++i)
        headings += {u"main %1"_s.arg(i), u"subtitle %1"_s.arg(i), u"image %1"_s.arg(i)};
    addRow(file, headings + QStringList{u"caption"_s});
    for (const IndexEntry &entry : entries) {
        QStringList cells{entry.folder, QString::number(entry.slides.size())};
        for (const IndexEntry::Slide &slide : entry.slides)
            cells += {slide.text, slide.subtitle, slide.picture};
        cells.resize(headings.size());
        addRow(file, cells + QStringList{entry.caption});
    }
    return file;
}

void BatchIndexes::add(const QString &folder, IndexEntry entry)
{
    const QFileInfo place(folder);
    entry.folder = place.fileName();
    m_batches[place.path()].push_back(std::move(entry));
}

Result<> BatchIndexes::write(SlideDestination &destination)
{
    for (const auto &[folder, entries] : std::exchange(m_batches, {})) {
        if (const Result<> written = destination.writeBeside(folder + u"/index.csv"_s, batchIndex(entries));
            !written)
            return written;
    }
    return {};
}

} // namespace mosslantern
