#pragma once

#include "model/error.h"

#include <QtCore/QByteArrayView>
#include <QtCore/QString>

#include <iterator>
#include <optional>

namespace mosslantern {

class JsonChildren;

/// A value inside a JSON text (RFC 8259, nothing beyond it), read in place: parse() checks the whole text
/// once and copies nothing. So numbers keep their digits and members their order, whatever their size and
/// number, and a hostile text costs no more memory than its own length. The text must outlive its values.
class JsonValue
{
public:
    enum class Kind { object, array, string, number, boolean, null };

    /// Texts nested deeper than this are refused.
    static constexpr int maxDepth = 512;

    /// The value that is the whole of `utf8`; the error names what is wrong, with its line and column.
    static Result<JsonValue> parse(QByteArrayView utf8);

    Kind kind() const;

    /// The value as it is written in the text.
    QByteArrayView source() const { return m_source; }

    /// The characters of a string.
    QString text() const;

    /// The member of an object called `name`; the last one when the name is repeated.
    std::optional<JsonValue> member(QLatin1StringView name) const;

    /// The elements of an array, or the members of an object.
    JsonChildren children() const;

private:
    friend class JsonIterator;
    explicit JsonValue(QByteArrayView source)
        : m_source(source)
    {}

    bool isText(QLatin1StringView expected) const;

    QByteArrayView m_source;
};

/// "an object", "a number", … for messages.
QLatin1StringView describe(JsonValue::Kind kind);

/// An element of an array (without a name) or a member of an object.
struct JsonChild
{
    std::optional<JsonValue> name;
    JsonValue value;
};

/// Steps through the children of a container; an input iterator.
class JsonIterator
{
public:
    using difference_type = std::ptrdiff_t;
    using value_type = JsonChild;

    explicit JsonIterator(QByteArrayView container);

    const JsonChild &operator*() const { return *m_child; }
    const JsonChild *operator->() const { return &*m_child; }
    JsonIterator &operator++();
    void operator++(int) { ++*this; }
    bool operator==(std::default_sentinel_t) const { return !m_child; }

private:
    JsonValue takeValue();

    QByteArrayView m_rest;
    bool m_inObject;
    std::optional<JsonChild> m_child;
};

/// The range of a container's children.
class JsonChildren
{
public:
    explicit JsonChildren(QByteArrayView container)
        : m_container(container)
    {}

    JsonIterator begin() const { return JsonIterator(m_container); }
    static std::default_sentinel_t end() { return {}; }

private:
    QByteArrayView m_container;
};

/// `value` written out again with one member or element per line, two spaces of indentation per level, and
/// in strings only the escapes that JSON asks for; numbers, order and repeated members stay as they are.
/// Fails when that takes more than `limit` bytes: indentation can make a short text very long.
Result<QByteArray> prettyJson(const JsonValue &value, qsizetype limit = 64 << 20);

} // namespace mosslantern
