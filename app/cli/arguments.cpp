#include "app/cli/arguments.h"

#include <algorithm>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

QString expectedOptions(std::span<const OptionSpec> options)
{
    QStringList names;
    for (const OptionSpec &option : options)
        names.append(u"--"_s + option.name);
    return names.join(u", "_s);
}

} // namespace

Result<Arguments> Arguments::parse(const QStringList &words, std::span<const OptionSpec> options)
{
    Arguments arguments;
    for (qsizetype i = 0; i < words.size(); ++i) {
        const QString &word = words[i];
        if (word == "--"_L1) {
            arguments.m_positionals += words.sliced(i + 1);
            break;
        }
        if (!word.startsWith(u'-') || word == "-"_L1) {
            arguments.m_positionals.append(word);
            continue;
        }
        const qsizetype equals = word.indexOf(u'=');
        const QString dashed = equals < 0 ? word : word.first(equals);
        const auto option = std::ranges::find_if(
            options, [&](const OptionSpec &known) { return dashed == u"--"_s + known.name; });
        if (option == options.end())
            return fail(u"unknown option %1; expected one of %2"_s.arg(dashed, expectedOptions(options)));
        if (arguments.has(option->name))
            return fail(u"%1 is given twice"_s.arg(dashed));
        if (option->value.isEmpty()) {
            if (equals >= 0)
                return fail(u"%1 takes no value"_s.arg(dashed));
            arguments.m_values.insert(option->name, QString());
        } else if (equals >= 0) {
            arguments.m_values.insert(option->name, word.sliced(equals + 1));
        } else if (++i < words.size()) {
            arguments.m_values.insert(option->name, words[i]);
        } else {
            return fail(u"%1 needs a value: %1 %2"_s.arg(dashed, option->value));
        }
    }
    return arguments;
}

std::optional<QString> Arguments::value(QLatin1StringView option) const
{
    const auto found = m_values.constFind(option);
    return found == m_values.cend() ? std::nullopt : std::optional(*found);
}

} // namespace mosslantern
