#pragma once

#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtCore/QUuid>

#include <vector>

namespace mosslantern {

class Store;

/// The record types, in the order in which they are saved: each after those that it points to.
enum class RecordKind { collection, asset, slideshow, slide, slidePreset, contentTemplate };

/// How many record types there are.
inline constexpr int recordKindCount = 6;

/// Identity of a record that is read back from its store; only the reader of the store's file makes one.
class StoredIdentity
{
    friend class Record;
    friend class RecordReader;

    StoredIdentity(const QUuid &id, qint64 row)
        : m_id(id)
        , m_row(row)
    {}

    QUuid m_id;
    qint64 m_row;
};

/// An object with identity that a Store keeps between runs. Whoever makes a record owns it until it is
/// inserted; from then on it is a child of its store (a slide: of its slideshow). A removed record leaves its
/// store at once and is destroyed when control returns to the event loop.
class Record : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QUuid id READ id CONSTANT)

public:
    ~Record() override;

    RecordKind kind() const { return m_kind; }

    /// A random UUID that never changes.
    QUuid id() const { return m_id; }

    /// The store that keeps the record; null before it is inserted and after it is removed.
    Store *store() const { return m_store; }

    /// The hash of the row in which the record was last saved; 0 before that.
    quint64 savedHash() const { return m_savedHash; }

    /// Place in the store's own order, which is that of insertion and outlives the process: ascending from 1,
    /// with gaps; 0 before the record is inserted.
    qint64 row() const { return m_row; }

signals:
    /// Any field or relation has another value; follows the signal of that field.
    void changed();

    /// The store has let go of the record. It is destroyed later in the turn.
    void removed();

protected:
    /// A signal that is still to be sent, once all records agree again.
    struct Notice
    {
        QPointer<Record> record;
        void (*announce)(Record *);
    };
    using Notices = std::vector<Notice>;

    static void announce(const Notices &notices);

    explicit Record(RecordKind kind);
    Record(RecordKind kind, const StoredIdentity &identity);

    /// Tells store and watchers that a field has another value, which is to be saved.
    void noteFieldChanged();

    /// Tells watchers that the far side of a relation has changed; nothing of this record is to be saved.
    void noteRelationChanged();

private:
    friend class RecordReader;
    friend class Store;

    /// Unties the record from all that point to it, and it from the lists that hold it.
    virtual void sever(Notices &notices);

    /// Called when the record has got its store and its row.
    virtual void entered();

    RecordKind m_kind;
    QUuid m_id;
    qint64 m_row = 0;
    quint64 m_savedHash = 0;
    Store *m_store = nullptr;
};

} // namespace mosslantern
