#include "model/record_reader.h"

#include "model/collection.h"
#include "model/content_template.h"
#include "model/record_table.h"
#include "model/slide_preset.h"

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>

#include <limits>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

/// A stored value that no record can have.
struct Damage
{
    QString what;
};

/// The columns of one row, taken from left to right.
class Row
{
public:
    Row(SQLite::Statement &statement, const char *table)
        : m_statement(statement)
        , m_table(table)
    {}

    /// The place in the store's order; the last ones are left for records that follow.
    qint64 place()
    {
        const qint64 row = integer();
        if (row < 1 || row > std::numeric_limits<qint64>::max() / 2)
            throw damage(u"the impossible row %1"_s.arg(row));
        return row;
    }

    qint64 integer() { return next().getInt64(); }
    double real() { return next().getDouble(); }

    QString text()
    {
        const SQLite::Column column = next();
        const char *const bytes = column.getText();
        return QString::fromUtf8(bytes, column.getBytes());
    }

    std::optional<QString> optionalText()
    {
        if (!isNull())
            return text();
        ++m_column;
        return std::nullopt;
    }

    QString filename() { return checkedFilename(text()); }

    std::optional<QString> optionalFilename()
    {
        const std::optional<QString> name = optionalText();
        return name ? std::optional(checkedFilename(*name)) : name;
    }

    QUuid uuid()
    {
        const SQLite::Column column = next();
        if (column.getBytes() != 16)
            throw damage(u"an id that is not a UUID"_s);
        return QUuid::fromRfc4122(QByteArrayView(static_cast<const char *>(column.getBlob()), 16));
    }

    QUuid optionalUuid()
    {
        if (!isNull())
            return uuid();
        ++m_column;
        return {};
    }

    QDateTime time()
    {
        const qint64 milliseconds = integer();
        static const QDateTime epoch = QDateTime::fromMSecsSinceEpoch(0).toUTC();
        const QDateTime time = epoch.addMSecs(milliseconds);
        if (const int year = time.date().year(); year < 1 || year > 9999)
            throw damage(u"the impossible time %1"_s.arg(milliseconds));
        return time;
    }

    SlideStyle style()
    {
        SlideStyle style;
        for (double *value : {&style.textX, &style.textY, &style.subtitleX, &style.subtitleY,
                              &style.textScale, &style.subtitleScale})
            *value = real();
        const QString raw = text();
        const std::optional<TextStyle> textStyle = textStyleFromRawText(raw);
        if (!textStyle)
            throw damage(u"the unknown text style “%1”"_s.arg(raw));
        style.textStyle = *textStyle;
        style.boxColorHex = text();
        return style;
    }

    std::optional<AspectRatio> optionalAspectRatio()
    {
        const std::optional<QString> raw = optionalText();
        if (!raw)
            return std::nullopt;
        const std::optional<AspectRatio> ratio = aspectRatioFromRawText(*raw);
        if (!ratio)
            throw damage(u"the unknown canvas shape “%1”"_s.arg(*raw));
        return ratio;
    }

    /// The record that the next column points to, from records in the order of their rows.
    template <typename T, typename Records>
    T *related(const Records &records)
    {
        const qint64 row = integer();
        const auto found =
            std::lower_bound(records.begin(), records.end(), row,
                             [](const auto &record, qint64 value) { return record->row() < value; });
        if (found == records.end() || (*found)->row() != row)
            throw damage(u"a relation to a record that does not exist"_s);
        return static_cast<T *>(&**found);
    }

    template <typename T, typename Records>
    T *optionallyRelated(const Records &records)
    {
        if (!isNull())
            return related<T>(records);
        ++m_column;
        return nullptr;
    }

private:
    bool isNull() const { return m_statement.isColumnNull(m_column); }
    SQLite::Column next() { return m_statement.getColumn(m_column++); }

    QString checkedFilename(const QString &name) const
    {
        if (name.isEmpty() || name == "."_L1 || name == ".."_L1 || name.contains(u'/') ||
            name.contains(QChar::Null))
            throw damage(u"“%1” as the name of a file"_s.arg(name));
        return name;
    }

    Damage damage(const QString &what) const
    {
        return {u"the table “%1” holds %2"_s.arg(QLatin1StringView(m_table), what)};
    }

    SQLite::Statement &m_statement;
    const char *m_table;
    int m_column = 0;
};

} // namespace

class RecordReader
{
public:
    explicit RecordReader(SQLite::Database &database)
        : m_database(database)
    {}

    StoredRecords read()
    {
        forEach(RecordKind::collection, [this](Row &row, const StoredIdentity &identity) {
            const QString name = row.text();
            m_found.collections.push_back(std::make_unique<Collection>(identity, name, row.time()));
        });
        forEach(RecordKind::asset, [this](Row &row, const StoredIdentity &identity) {
            const QString filename = row.filename();
            const QString name = row.text();
            auto *const collection = row.optionallyRelated<Collection>(m_found.collections);
            m_found.assets.push_back(std::make_unique<Asset>(identity, filename, name, collection));
        });
        forEach(RecordKind::slideshow,
                [this](Row &row, const StoredIdentity &identity) { readSlideshow(row, identity); });
        forEach(RecordKind::slide,
                [this](Row &row, const StoredIdentity &identity) { readSlide(row, identity); });
        forEach(RecordKind::slidePreset, [this](Row &row, const StoredIdentity &identity) {
            const QString name = row.text();
            const QDateTime createdAt = row.time();
            m_found.slidePresets.push_back(
                std::make_unique<SlidePreset>(identity, row.style(), name, createdAt));
        });
        forEach(RecordKind::contentTemplate, [this](Row &row, const StoredIdentity &identity) {
            const QString name = row.text();
            const QString content = row.text();
            m_found.contentTemplates.push_back(
                std::make_unique<ContentTemplate>(identity, name, content, row.time()));
        });
        return std::move(m_found);
    }

private:
    template <typename Read>
    void forEach(RecordKind kind, const Read &read)
    {
        SQLite::Statement statement(m_database, selectStatement(kind));
        while (statement.executeStep()) {
            Row row(statement, tableOf(kind));
            const qint64 place = row.place();
            read(row, StoredIdentity(row.uuid(), place));
        }
    }

    void readSlideshow(Row &row, const StoredIdentity &identity)
    {
        const QDateTime createdAt = row.time();
        const std::optional<AspectRatio> aspectRatio = row.optionalAspectRatio();
        auto *const collection = row.optionallyRelated<Collection>(m_found.collections);
        const QUuid batchId = row.optionalUuid();
        m_found.slideshows.push_back(std::make_unique<Slideshow>(identity, createdAt, aspectRatio, collection,
                                                                 batchId, row.optionalText()));
    }

    void readSlide(Row &row, const StoredIdentity &identity)
    {
        auto *const slideshow = row.related<Slideshow>(m_found.slideshows);
        auto *const asset = row.optionallyRelated<Asset>(m_found.assets);
        const std::optional<QString> imageFilename = row.optionalFilename();
        const QString text = row.text();
        const QString subtitle = row.text();
        const qint64 order = row.integer();
        auto *const slide = new Slide(identity, row.style(), text, subtitle, order, imageFilename, asset);
        slide->setParent(slideshow);
        slideshow->m_slides.append(slide);
        m_found.slides.push_back(slide);
    }

    SQLite::Database &m_database;
    StoredRecords m_found;
};

Result<StoredRecords> readRecords(SQLite::Database &database)
{
    try {
        return RecordReader(database).read();
    } catch (const Damage &damage) {
        return fail(damage.what);
    } catch (const SQLite::Exception &exception) {
        return fail(QString::fromUtf8(exception.what()));
    }
}

} // namespace mosslantern
