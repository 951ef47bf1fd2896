#pragma once

#include <QtCore/QString>

#include <expected>

namespace mosslantern {

/// What can be done about an error, where that matters to the program.
enum class ErrorKind {
    other,
    damagedLibrary, // a copy, or what can be read of it, may serve instead
};

/// What went wrong because of the user, a file or another program: one sentence fit for a screen.
struct Error
{
    QString message;
    ErrorKind kind = ErrorKind::other;

    friend bool operator==(const Error &, const Error &) = default;
};

/// The value of an operation that can fail, or the reason why it did.
template <typename T = void>
using Result = std::expected<T, Error>;

/// The result of an operation that failed for this reason.
inline std::unexpected<Error> fail(QString message, ErrorKind kind = ErrorKind::other)
{
    return std::unexpected(Error{std::move(message), kind});
}

} // namespace mosslantern
