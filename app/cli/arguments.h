#pragma once

#include "model/error.h"

#include <QtCore/QHash>
#include <QtCore/QStringList>

#include <optional>
#include <span>

namespace mosslantern {

/// An option that a command accepts: "--name", "--name VALUE" or "--name=VALUE".
struct OptionSpec
{
    QLatin1StringView name;
    /// What its value is called in the help; empty for an option without a value.
    QLatin1StringView value;
    QLatin1StringView help;
};

/// The words of a command line, sorted into options and the rest.
class Arguments
{
public:
    /// Every option at most once. What follows an option that takes a value is that value, whatever it begins
    /// with; "-" and all that follows "--" are no options. The error says what was expected.
    static Result<Arguments> parse(const QStringList &words, std::span<const OptionSpec> options);

    bool has(QLatin1StringView option) const { return m_values.contains(option); }
    std::optional<QString> value(QLatin1StringView option) const;
    const QStringList &positionals() const { return m_positionals; }

private:
    QHash<QString, QString> m_values;
    QStringList m_positionals;
};

} // namespace mosslantern
