#include "app/update/appcast.h"

#include "app/update/version_order.h"

#include <QtCore/QRegularExpression>
#include <QtCore/QXmlStreamReader>
#include <QtGui/QTextDocumentFragment>

#include <algorithm>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

constexpr auto sparkle = "http://www.andymatuschak.org/xml-namespaces/sparkle"_L1;

// More than any feed has: what reads it need not stand more.
constexpr int deepestElement = 64;
constexpr qsizetype longestNotes = 64 << 10;
constexpr qsizetype longestVersion = 32;

struct Draft
{
    AppcastItem item;
    QUrl link;
    QUrl enclosure;
    bool isForOthers = false;
};

/// An element of RSS itself, which has no namespace.
bool isRss(const QXmlStreamReader &reader, QLatin1StringView name)
{
    return reader.namespaceUri().isEmpty() && reader.name() == name;
}

/// The text of the element that was just opened and of those in it, which is at most `longest` characters;
/// the rest is passed over. Nesting is an error beyond a bound: the reader's own function recurses.
QString readText(QXmlStreamReader &reader, qsizetype longest)
{
    QString text;
    for (int depth = 1; depth > 0 && !reader.atEnd();) {
        switch (reader.readNext()) {
        case QXmlStreamReader::StartElement:
            if (++depth > deepestElement)
                reader.raiseError(u"elements are nested too deep"_s);
            break;
        case QXmlStreamReader::EndElement:
            --depth;
            break;
        case QXmlStreamReader::Characters:
        case QXmlStreamReader::EntityReference:
            text += reader.text().first(std::min(reader.text().size(), longest - text.size()));
            break;
        default:
            break;
        }
    }
    return text;
}

/// A version; empty when it is longer than any.
QString readVersion(QXmlStreamReader &reader)
{
    const QString version = readText(reader, longestVersion + 1).trimmed();
    return version.size() > longestVersion ? QString() : version;
}

QString versionOf(QStringView attribute)
{
    return attribute.size() > longestVersion ? QString() : attribute.toString();
}

QUrl readUrl(QXmlStreamReader &reader)
{
    constexpr qsizetype longestUrl = 2048;
    return QUrl(readText(reader, longestUrl).trimmed());
}

QUrl httpsOnly(const QUrl &url)
{
    return url.scheme() == "https"_L1 ? url : QUrl();
}

void readEnclosure(const QXmlStreamAttributes &attributes, Draft &draft)
{
    draft.enclosure = QUrl(attributes.value("url"_L1).toString());
    if (attributes.hasAttribute(sparkle, "version"_L1))
        draft.item.version = versionOf(attributes.value(sparkle, "version"_L1));
    if (attributes.hasAttribute(sparkle, "shortVersionString"_L1))
        draft.item.shownVersion = versionOf(attributes.value(sparkle, "shortVersionString"_L1));
    const QStringView system = attributes.value(sparkle, "os"_L1);
    if (!system.isEmpty() && system != "linux"_L1)
        draft.isForOthers = true;
}

void readSparkleElement(QXmlStreamReader &reader, Draft &draft)
{
    if (reader.name() == "version"_L1)
        draft.item.version = readVersion(reader);
    else if (reader.name() == "shortVersionString"_L1)
        draft.item.shownVersion = readVersion(reader);
    else if (reader.name() == "releaseNotesLink"_L1)
        draft.item.notesPage = httpsOnly(readUrl(reader));
    else if (reader.name() == "channel"_L1) {
        draft.isForOthers = true;
        reader.skipCurrentElement();
    } else
        reader.skipCurrentElement();
}

/// The text of notes in HTML.
QString plainNotes(const QString &html)
{
    static const QRegularExpression tag(u"<[a-zA-Z]"_s);
    // The time that Qt takes for HTML grows with the square of the nesting.
    constexpr qsizetype mostTags = 2000;
    if (html.count(tag) > mostTags)
        return QString(html).remove(QRegularExpression(u"<[^>]*>"_s)).trimmed();
    return QTextDocumentFragment::fromHtml(html).toPlainText().trimmed();
}

Draft readItem(QXmlStreamReader &reader)
{
    Draft draft;
    while (reader.readNextStartElement()) {
        if (reader.namespaceUri() == sparkle) {
            readSparkleElement(reader, draft);
        } else if (isRss(reader, "enclosure"_L1)) {
            readEnclosure(reader.attributes(), draft);
            reader.skipCurrentElement();
        } else if (isRss(reader, "link"_L1)) {
            draft.link = readUrl(reader);
        } else if (isRss(reader, "description"_L1)) {
            draft.item.notes = plainNotes(readText(reader, longestNotes));
        } else {
            reader.skipCurrentElement();
        }
    }
    return draft;
}

std::optional<AppcastItem> finished(Draft draft)
{
    const QUrl page = httpsOnly(draft.link.isEmpty() ? draft.enclosure : draft.link);
    if (draft.isForOthers || draft.item.version.isEmpty() || page.isEmpty())
        return std::nullopt;
    draft.item.downloadPage = page;
    if (draft.item.shownVersion.isEmpty())
        draft.item.shownVersion = draft.item.version;
    return draft.item;
}

} // namespace

Result<QList<AppcastItem>> parseAppcast(const QByteArray &xml)
{
    QList<AppcastItem> items;
    QXmlStreamReader reader(xml);
    if (!reader.readNextStartElement() || !isRss(reader, "rss"_L1))
        return fail(u"The list of updates could not be read."_s);
    while (reader.readNextStartElement()) {
        if (!isRss(reader, "channel"_L1)) {
            reader.skipCurrentElement();
            continue;
        }
        while (reader.readNextStartElement()) {
            if (!isRss(reader, "item"_L1))
                reader.skipCurrentElement();
            else if (const std::optional<AppcastItem> item = finished(readItem(reader)))
                items.append(*item);
        }
    }
    if (reader.hasError())
        return fail(u"The list of updates could not be read."_s);
    return items;
}

std::optional<AppcastItem> newestUpdate(const QList<AppcastItem> &releases, const QString &version)
{
    const auto newest = std::ranges::max_element(releases, [](const AppcastItem &a, const AppcastItem &b) {
        return compareVersions(a.version, b.version) < 0;
    });
    if (newest == releases.cend() || compareVersions(newest->version, version) <= 0)
        return std::nullopt;
    return *newest;
}

} // namespace mosslantern
