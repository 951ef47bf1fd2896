#include "app/cli/help.h"

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype width = 80;

/// `text` broken into lines between words, later lines indented by `indent`; `column` characters stand
/// before it.
QString wrapped(const QString &text, qsizetype indent, qsizetype column)
{
    QString result;
    for (const QString &word : text.split(u' ')) {
        if (column + word.size() > width) {
            result.chop(1);
            result += u'\n' + QString(indent, u' ');
            column = indent;
        }
        result += word + u' ';
        column += word.size() + 1;
    }
    result.chop(1);
    return result;
}

/// `term` in the left column, `meaning` in the right one.
QString entry(const QString &term, QLatin1StringView meaning)
{
    constexpr qsizetype column = 27;
    const QString left = u"  "_s + term;
    const QString gap =
        left.size() < column - 1 ? QString(column - left.size(), u' ') : u'\n' + QString(column, u' ');
    return left + gap + wrapped(meaning, column, column) + u'\n';
}

QString entry(const OptionSpec &option)
{
    return entry(u"--"_s + option.name + (option.value.isEmpty() ? QString() : u' ' + option.value),
                 option.help);
}

QString usage(const Command &command)
{
    return u"Usage: "_s + wrapped(u"mosslantern-cli "_s + command.name + u' ' + command.usage, 7, 7) + u'\n';
}

} // namespace

QString helpText(const std::vector<Command> &commands)
{
    QString text = u"Usage: mosslantern-cli COMMAND [OPTION...] [ARGUMENT...]\n"
                   "\n"
                   "Makes slideshows of pictures with texts on them, and exports them as PNG files.\n"
                   "\n"
                   "Commands (mosslantern-cli COMMAND --help tells more):\n"_s;
    for (const Command &command : commands)
        text += entry(command.name, command.summary);
    return text + u"\nOptions:\n"_s + entry(libraryOption) + entry(helpOption) +
           entry(u"--version"_s, "show the version"_L1) +
           u"\nExit status: 0 when all is done, 1 when something failed, 2 for a wrong command line.\n"_s;
}

QString helpText(const Command &command)
{
    QString text = usage(command) + u'\n';
    for (const QString &paragraph : QString(command.details).split(u'\n'))
        text += wrapped(paragraph, 0, 0) + u'\n';
    text += u"\nOptions:\n"_s;
    for (const OptionSpec &option : command.options)
        text += entry(option);
    if (command.usesLibrary)
        text += entry(libraryOption);
    return text + entry(helpOption);
}

QString helpText(const QString &firstWord, const std::vector<Command> &commands)
{
    QString text =
        u"Usage: mosslantern-cli "_s + firstWord + u" COMMAND [OPTION...] [ARGUMENT...]\n\nCommands:\n"_s;
    for (const Command &command : commands) {
        if (command.name.startsWith(firstWord + u' '))
            text += entry(command.name.sliced(firstWord.size() + 1), command.summary);
    }
    return text;
}

} // namespace mosslantern
