#include "model/record_writer.h"

#include "model/collection.h"
#include "model/content_template.h"
#include "model/record_table.h"
#include "model/slide_preset.h"

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/Transaction.h>

#include <array>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

/// Takes the values of a row from left to right, as the parameters of a statement if there is one.
class Parameters
{
public:
    Parameters(SQLite::Statement *statement, const Record &record)
        : m_statement(statement)
        , m_store(record.store())
        , m_hash(record.kind())
    {
        *this << record.row() << record.id();
    }

    Parameters &operator<<(qint64 value)
    {
        m_hash.add(value);
        return bind(static_cast<int64_t>(value));
    }

    Parameters &operator<<(double value)
    {
        m_hash.add(value);
        return bind(value);
    }

    Parameters &operator<<(const QString &value)
    {
        const std::string bytes = value.toStdString();
        m_hash.add(QByteArrayView(bytes.data(), static_cast<qsizetype>(bytes.size())));
        return bind(bytes);
    }

    Parameters &operator<<(const QDateTime &value) { return *this << value.toMSecsSinceEpoch(); }

    Parameters &operator<<(const QUuid &value)
    {
        if (value.isNull())
            return null();
        const QByteArray bytes = value.toRfc4122();
        m_hash.add(QByteArrayView(bytes));
        if (m_statement)
            m_statement->bind(++m_index, bytes.constData(), static_cast<int>(bytes.size()));
        return *this;
    }

    Parameters &operator<<(const std::optional<QString> &value) { return value ? *this << *value : null(); }

    Parameters &operator<<(const SlideStyle &style)
    {
        forEachStyleValue([&](const char *, auto value) { *this << style.*value; });
        return *this;
    }

    Parameters &operator<<(TextStyle value) { return *this << rawText(value); }

    /// The row of a related record; one that is not in the store counts as none.
    Parameters &operator<<(const Record *record)
    {
        return record && record->store() == m_store ? *this << record->row() : null();
    }

    /// Of a column that came later, as RecordReader hashes it. Empty counts as none.
    Parameters &later(const QString &value)
    {
        if (!value.isEmpty())
            return *this << value;
        if (m_statement)
            m_statement->bind(++m_index);
        return *this;
    }

    quint64 hash() const { return m_hash.value(); }

private:
    template <typename T>
    Parameters &bind(const T &value)
    {
        if (m_statement)
            m_statement->bind(++m_index, value);
        return *this;
    }

    Parameters &null()
    {
        m_hash.addNull();
        return later({});
    }

    SQLite::Statement *m_statement;
    const Store *m_store;
    RowHash m_hash;
    int m_index = 0;
};

void bindFields(Parameters &parameters, const Record &record)
{
    switch (record.kind()) {
    case RecordKind::collection: {
        const auto &collection = static_cast<const Collection &>(record);
        parameters << collection.name() << collection.createdAt();
        break;
    }
    case RecordKind::asset: {
        const auto &asset = static_cast<const Asset &>(record);
        parameters << asset.filename() << asset.name() << asset.collection();
        break;
    }
    case RecordKind::slideshow: {
        const auto &slideshow = static_cast<const Slideshow &>(record);
        const std::optional<AspectRatio> ratio = slideshow.aspectRatio();
        parameters << slideshow.createdAt() << (ratio ? std::optional(rawText(*ratio)) : std::nullopt)
                   << slideshow.collection() << slideshow.batchId() << slideshow.batchName();
        parameters.later(slideshow.caption());
        break;
    }
    case RecordKind::slide: {
        const auto &slide = static_cast<const Slide &>(record);
        parameters << qobject_cast<Slideshow *>(slide.parent()) << slide.asset() << slide.imageFilename()
                   << slide.text() << slide.subtitle() << slide.order() << slide.style();
        break;
    }
    case RecordKind::slidePreset: {
        const auto &preset = static_cast<const SlidePreset &>(record);
        parameters << preset.name() << preset.createdAt() << preset.style();
        break;
    }
    case RecordKind::contentTemplate: {
        const auto &contentTemplate = static_cast<const ContentTemplate &>(record);
        parameters << contentTemplate.name() << contentTemplate.content() << contentTemplate.createdAt();
        break;
    }
    }
}

/// Keeps one prepared statement for each kind of record.
class Statements
{
public:
    Statements(SQLite::Database &database, std::string (*text)(RecordKind))
        : m_database(database)
        , m_text(text)
    {}

    SQLite::Statement &operator[](RecordKind kind)
    {
        auto &statement = m_statements[static_cast<size_t>(kind)];
        if (statement)
            statement->reset();
        else
            statement.emplace(m_database, m_text(kind));
        return *statement;
    }

private:
    SQLite::Database &m_database;
    std::string (*m_text)(RecordKind);
    std::array<std::optional<SQLite::Statement>, recordKindCount> m_statements;
};

} // namespace

Result<SavedChanges> writeChanges(SQLite::Database &database, const UnsavedChanges &changes)
{
    try {
        SavedChanges saved{changes.tallies, {}};
        // Puts the record into the row, if there is one to write, and into its tally.
        const auto enter = [&](SQLite::Statement *statement, Record *record) {
            Parameters parameters(statement, *record);
            bindFields(parameters, *record);
            Tally &tally = saved.tallies[static_cast<size_t>(record->kind())];
            if (record->savedHash() != 0)
                tally.remove(record->savedHash());
            tally.add(parameters.hash());
            saved.hashes.emplace_back(record, parameters.hash());
        };
        Statements deletions(database, deleteStatement);
        Statements upserts(database, upsertStatement);
        SQLite::Transaction transaction(database);
        for (const auto &[kind, row] : changes.removedRows) {
            SQLite::Statement &statement = deletions[kind];
            statement.bind(1, static_cast<int64_t>(row));
            statement.exec();
        }
        for (Record *record : changes.untied)
            enter(nullptr, record);
        for (Record *record : changes.records) {
            SQLite::Statement &statement = upserts[record->kind()];
            enter(&statement, record);
            statement.exec();
        }
        writeTallies(database, saved.tallies);
        transaction.commit();
        return saved;
    } catch (const SQLite::Exception &exception) {
        return fail(u"The library could not be saved: %1"_s.arg(QString::fromUtf8(exception.what())));
    }
}

} // namespace mosslantern
