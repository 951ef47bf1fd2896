#include "model/record_reader.h"

#include "model/collection.h"
#include "model/content_template.h"
#include "model/record_table.h"
#include "model/slide_preset.h"

#include <QtCore/QSet>

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Exception.h>
#include <sqlite3.h>

#include <limits>
#include <set>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

/// A stored value that no record can have.
struct Damage
{
    QString what;
};

struct MissingRelation : Damage
{};

/// A query of rows, read without the cost that SQLiteCpp has for every column. Throws SQLite::Exception.
class Query
{
public:
    Query(SQLite::Database &database, const std::string &text)
        : m_database(database.getHandle())
    {
        if (const int code = sqlite3_prepare_v2(m_database, text.c_str(), -1, &m_statement, nullptr);
            code != SQLITE_OK)
            throw SQLite::Exception(m_database, code);
    }
    ~Query() { sqlite3_finalize(m_statement); }
    Q_DISABLE_COPY_MOVE(Query)

    sqlite3_stmt *statement() const { return m_statement; }

    /// Begins anew, with another parameter.
    void restart(qint64 parameter)
    {
        sqlite3_reset(m_statement);
        sqlite3_bind_int64(m_statement, 1, parameter);
    }

    /// Whether there is another row.
    bool step()
    {
        const int code = sqlite3_step(m_statement);
        if (code != SQLITE_ROW && code != SQLITE_DONE)
            throw SQLite::Exception(m_database, code);
        return code == SQLITE_ROW;
    }

private:
    sqlite3 *m_database;
    sqlite3_stmt *m_statement = nullptr;
};

/// The columns of one row, taken from left to right.
class Row
{
public:
    Row(const Query &query, RecordKind kind)
        : m_statement(query.statement())
        , m_table(tableOf(kind))
        , m_hash(kind)
    {}

    /// The place in the store's order, after that of the row before; the last ones are left for records that
    /// follow.
    qint64 place(qint64 previous)
    {
        const qint64 row = integer();
        if (row < 1 || row > std::numeric_limits<qint64>::max() / 2)
            throw damage(u"the impossible row %1"_s.arg(row));
        if (row <= previous)
            throw damage(u"rows in the wrong order"_s);
        return row;
    }

    qint64 integer()
    {
        const qint64 value = sqlite3_column_int64(m_statement, next(SQLITE_INTEGER));
        m_hash.add(value);
        return value;
    }

    double real()
    {
        const double value = sqlite3_column_double(m_statement, next(SQLITE_FLOAT));
        m_hash.add(value);
        return value;
    }

    QString text()
    {
        const QByteArrayView bytes = bytesOf(next(SQLITE_TEXT));
        m_hash.add(bytes);
        QString text = QString::fromUtf8(bytes);
        if (text.contains(QChar::ReplacementCharacter) && text.toUtf8() != bytes)
            throw damage(u"a text that is not UTF-8"_s);
        return text;
    }

    std::optional<QString> optionalText()
    {
        if (!isNull())
            return text();
        skipNull();
        return std::nullopt;
    }

    /// Of a column that came later: where there is none, it is as in files that had no such column, in the
    /// hash, too.
    QString laterText()
    {
        if (!isNull())
            return text();
        ++m_column;
        return {};
    }

    QString filename() { return checkedFilename(text()); }

    std::optional<QString> optionalFilename()
    {
        const std::optional<QString> name = optionalText();
        return name ? std::optional(checkedFilename(*name)) : name;
    }

    QUuid uuid()
    {
        const QByteArrayView bytes = bytesOf(next(SQLITE_BLOB));
        if (bytes.size() != 16)
            throw damage(u"an id that is not a UUID"_s);
        m_hash.add(bytes);
        return QUuid::fromRfc4122(bytes);
    }

    QUuid optionalUuid()
    {
        if (!isNull())
            return uuid();
        skipNull();
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

    void read(double &value) { value = real(); }
    void read(QString &value) { value = text(); }
    void read(TextStyle &value)
    {
        const QString raw = text();
        const std::optional<TextStyle> style = textStyleFromRawText(raw);
        if (!style)
            throw damage(u"the unknown text style “%1”"_s.arg(raw));
        value = *style;
    }

    SlideStyle style()
    {
        SlideStyle style;
        forEachStyleValue([&](const char *, auto value) { read(style.*value); });
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
            throw MissingRelation{damage(u"a relation to a record that does not exist"_s)};
        return static_cast<T *>(&**found);
    }

    template <typename T, typename Records>
    T *optionallyRelated(const Records &records)
    {
        if (!isNull())
            return related<T>(records);
        skipNull();
        return nullptr;
    }

    /// Of all values taken so far.
    quint64 hash() const { return m_hash.value(); }

private:
    bool isNull() const { return sqlite3_column_type(m_statement, m_column) == SQLITE_NULL; }

    void skipNull()
    {
        m_hash.addNull();
        ++m_column;
    }

    /// The number of the next column. Tables are strict, but not those of a damaged file.
    int next(int type)
    {
        if (sqlite3_column_type(m_statement, m_column) != type)
            throw damage(u"a value of the wrong type"_s);
        return m_column++;
    }

    QByteArrayView bytesOf(int column) const
    {
        const void *const bytes = sqlite3_column_blob(m_statement, column);
        return {static_cast<const char *>(bytes), sqlite3_column_bytes(m_statement, column)};
    }

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

    sqlite3_stmt *m_statement;
    const char *m_table;
    RowHash m_hash;
    int m_column = 0;
};

/// Goes from row to row of a table by single steps, whatever is damaged in between.
class RowFinder
{
public:
    RowFinder(SQLite::Database &database, RecordKind kind)
        : m_database(database)
        , m_table(tableOf(kind))
    {}

    std::set<qint64> find()
    {
        for (qint64 from = 0; !walk("row > ? ORDER BY row", from);) {
            const qint64 reached = m_rows.empty() ? from : std::max(from, *m_rows.rbegin());
            const std::optional<qint64> beyond = firstBeyond(reached);
            if (!beyond)
                break;
            // Back to the far side of the gap.
            walk("row <= ? ORDER BY row DESC", *beyond);
            from = *beyond;
        }
        return std::move(m_rows);
    }

private:
    /// Notes rows up to the first that is known or cannot be reached; whether it came to the end.
    bool walk(const std::string &condition, qint64 bound)
    {
        try {
            Query query(m_database, "SELECT row FROM " + m_table + " NOT INDEXED WHERE " + condition);
            query.restart(bound);
            while (query.step()) {
                if (!m_rows.insert(sqlite3_column_int64(query.statement(), 0)).second)
                    return true;
            }
            return true;
        } catch (const SQLite::Exception &) {
            return false;
        }
    }

    /// The nearest row behind a gap, which is tried in ever longer steps.
    std::optional<qint64> firstBeyond(qint64 reached)
    {
        constexpr qint64 farthest = std::numeric_limits<qint64>::max() / 2;
        for (qint64 step = 1; reached < farthest && step < farthest; step *= 2) {
            try {
                Query query(m_database,
                            "SELECT row FROM " + m_table + " NOT INDEXED WHERE row > ? ORDER BY row LIMIT 1");
                query.restart(reached + step);
                return query.step() ? std::optional(sqlite3_column_int64(query.statement(), 0))
                                    : std::nullopt;
            } catch (const SQLite::Exception &) {
                continue;
            }
        }
        return std::nullopt;
    }

    SQLite::Database &m_database;
    std::string m_table;
    std::set<qint64> m_rows;
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
        readAll();
        const Result<std::optional<Tallies>> saved = readTallies(m_database);
        if (!saved)
            throw Damage{saved.error().message};
        for (size_t i = 0; *saved && i < m_found.tallies.size(); ++i) {
            if (m_found.tallies[i] != (**saved)[i])
                throw Damage{u"the table “%1” is not as it was saved"_s.arg(
                    QLatin1StringView(tableOf(static_cast<RecordKind>(i))))};
        }
        return std::move(m_found);
    }

    ReadableRecords readReadable()
    {
        m_isTolerant = true;
        readAll();
        ReadableRecords readable;
        Result<std::optional<Tallies>> saved = std::nullopt;
        try {
            saved = readTallies(m_database);
        } catch (const SQLite::Exception &) {
            readable.isDoubtful = true;
        }
        qint64 missing = 0;
        for (size_t i = 0; saved && *saved && i < m_found.tallies.size(); ++i) {
            const Tally &before = (**saved)[i];
            const Tally &now = m_found.tallies[i];
            missing += std::max<qint64>(before.rows - now.rows, 0);
            readable.isDoubtful |= now != before;
        }
        readable.isDoubtful |= !saved;
        readable.lost = std::max(missing, m_unreadable);
        readable.records = std::move(m_found);
        return readable;
    }

private:
    void readAll()
    {
        forEach(RecordKind::collection, [this](Row &row, const StoredIdentity &identity) {
            const QString name = row.text();
            return keep(m_found.collections, std::make_unique<Collection>(identity, name, row.time()));
        });
        forEach(RecordKind::asset, [this](Row &row, const StoredIdentity &identity) {
            const QString filename = row.filename();
            const QString name = row.text();
            auto *const collection = optionallyRelated<Collection>(row, m_found.collections);
            return keep(m_found.assets, std::make_unique<Asset>(identity, filename, name, collection));
        });
        forEach(RecordKind::slideshow,
                [this](Row &row, const StoredIdentity &identity) { return readSlideshow(row, identity); });
        forEach(RecordKind::slide,
                [this](Row &row, const StoredIdentity &identity) { return readSlide(row, identity); });
        forEach(RecordKind::slidePreset, [this](Row &row, const StoredIdentity &identity) {
            const QString name = row.text();
            const QDateTime createdAt = row.time();
            return keep(m_found.slidePresets,
                        std::make_unique<SlidePreset>(identity, row.style(), name, createdAt));
        });
        forEach(RecordKind::contentTemplate, [this](Row &row, const StoredIdentity &identity) {
            const QString name = row.text();
            const QString content = row.text();
            return keep(m_found.contentTemplates,
                        std::make_unique<ContentTemplate>(identity, name, content, row.time()));
        });
    }

    template <typename Read>
    void forEach(RecordKind kind, const Read &read)
    {
        if (m_isTolerant) {
            readEachAlone(kind, read);
            return;
        }
        Query query(m_database, selectStatement(kind));
        for (qint64 previous = 0; query.step();)
            previous = readRow(query, kind, previous, read);
    }

    /// Gives the place of the row.
    template <typename Read>
    qint64 readRow(const Query &query, RecordKind kind, qint64 previous, const Read &read)
    {
        Row row(query, kind);
        const qint64 place = row.place(previous);
        const QUuid id = row.uuid();
        if (m_isTolerant && m_ids.contains(id))
            throw Damage{};
        Record *const record = read(row, StoredIdentity(id, place));
        record->m_savedHash = row.hash();
        m_found.tallies[static_cast<size_t>(kind)].add(record->m_savedHash);
        if (m_isTolerant)
            m_ids.insert(id);
        return place;
    }

    template <typename Read>
    void readEachAlone(RecordKind kind, const Read &read)
    {
        std::optional<Query> query;
        for (const qint64 place : RowFinder(m_database, kind).find()) {
            try {
                if (!query)
                    query.emplace(m_database, selectOneStatement(kind));
                query->restart(place);
                if (query->step()) {
                    readRow(*query, kind, 0, read);
                    continue;
                }
            } catch (const Damage &) {
            } catch (const SQLite::Exception &) {
            }
            ++m_unreadable;
        }
    }

    /// A record that is gone is none, if that is allowed.
    template <typename T, typename Records>
    T *optionallyRelated(Row &row, const Records &records)
    {
        try {
            return row.optionallyRelated<T>(records);
        } catch (const MissingRelation &) {
            if (!m_isTolerant)
                throw;
            return nullptr;
        }
    }

    static Record *keep(std::vector<std::unique_ptr<Record>> &records, std::unique_ptr<Record> record)
    {
        records.push_back(std::move(record));
        return records.back().get();
    }

    Record *readSlideshow(Row &row, const StoredIdentity &identity)
    {
        const QDateTime createdAt = row.time();
        const std::optional<AspectRatio> aspectRatio = row.optionalAspectRatio();
        auto *const collection = optionallyRelated<Collection>(row, m_found.collections);
        const QUuid batchId = row.optionalUuid();
        auto slideshow = std::make_unique<Slideshow>(identity, createdAt, aspectRatio, collection, batchId,
                                                     row.optionalText());
        slideshow->m_caption = row.laterText();
        return keep(m_found.slideshows, std::move(slideshow));
    }

    Record *readSlide(Row &row, const StoredIdentity &identity)
    {
        auto *const slideshow = row.related<Slideshow>(m_found.slideshows);
        auto *const asset = optionallyRelated<Asset>(row, m_found.assets);
        const std::optional<QString> imageFilename = row.optionalFilename();
        const QString text = row.text();
        const QString subtitle = row.text();
        const qint64 order = row.integer();
        auto *const slide = new Slide(identity, row.style(), text, subtitle, order, imageFilename, asset);
        slide->setParent(slideshow);
        slideshow->m_slides.append(slide);
        m_found.slides.push_back(slide);
        return slide;
    }

    SQLite::Database &m_database;
    StoredRecords m_found;
    bool m_isTolerant = false;
    qint64 m_unreadable = 0; // rows
    QSet<QUuid> m_ids;       // so far, when tolerant
};

ReadableRecords readWhatCanBeRead(SQLite::Database &database)
{
    return RecordReader(database).readReadable();
}

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
