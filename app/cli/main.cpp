#include "app/cli/commands.h"
#include "app/cli/help.h"
#include "app/cli/output.h"
#include "app/cli/qt_messages.h"
#include "app/identity.h"
#include "model/console.h"
#include "model/text_decoding.h"
#include "render/memory.h"
#include "render/text/fonts.h"

#include <QtGui/QGuiApplication>

#include <algorithm>
#include <cstdio>
#include <new>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

/// The words of the command line up to the command's name, and the command.
struct Request
{
    const Command *command = nullptr;
    QStringList words = {}; // all but the command's name
    QString help = {};      // shown instead, when it is not empty
};

bool isHelp(const QString &word)
{
    return word == "--help"_L1 || word == "-h"_L1;
}

/// Whether --help stands among the options.
bool wantsHelp(const QStringList &words)
{
    return std::any_of(words.begin(), std::find(words.begin(), words.end(), u"--"_s), isHelp);
}

Result<Request> understand(const QStringList &words, const std::vector<Command> &commands)
{
    qsizetype at = 0;
    for (; at < words.size() && words[at].startsWith(u'-'); ++at) {
        if (isHelp(words[at]))
            return Request{.help = helpText(commands)};
        if (words[at] == "--version"_L1)
            return Request{.help = u"mosslantern-cli "_s + MOSSLANTERN_VERSION ""_L1 + u'\n'};
        if (words[at] == "--library"_L1)
            ++at;
        else if (!words[at].startsWith("--library="_L1))
            return fail(
                u"unknown option %1; expected --library, --help, --version or a command"_s.arg(words[at]));
    }
    if (at > words.size())
        return fail(u"--library needs a value: --library DIR"_s);
    if (at == words.size())
        return fail(u"a command is missing; see mosslantern-cli --help"_s);

    const QString firstWord = words[at];
    for (const qsizetype most : {2, 1}) {
        const QStringList name = words.sliced(at, std::min(most, words.size() - at));
        const auto command = std::ranges::find(commands, name.join(u' '), &Command::name);
        if (command == commands.end())
            continue;
        const QStringList rest = words.sliced(at + name.size());
        return Request{&*command, words.first(at) + rest, wantsHelp(rest) ? helpText(*command) : QString()};
    }
    QStringList related;
    for (const Command &command : commands) {
        if (command.name.startsWith(firstWord + u' '))
            related.append(command.name.sliced(firstWord.size() + 1));
    }
    if (related.isEmpty())
        return fail(u"unknown command “%1”; see mosslantern-cli --help"_s.arg(firstWord));
    if (wantsHelp(words.sliced(at + 1)))
        return Request{.help = helpText(firstWord, commands)};
    return fail(u"after “%1”, expected one of %2"_s.arg(firstWord, related.join(u", "_s)));
}

Result<Arguments> readArguments(const Command &command, const QStringList &words)
{
    std::vector<OptionSpec> options = command.options;
    options.push_back(libraryOption);
    Result<Arguments> arguments = Arguments::parse(words, options);
    if (!arguments)
        return arguments;
    const qsizetype operands = arguments->positionals().size();
    if (operands < command.fewestOperands)
        return fail(u"more is expected: %1 %2"_s.arg(command.name, command.usage));
    if (operands > command.mostOperands) {
        return fail(u"“%1” is too much; expected %2 %3"_s
                        .arg(arguments->positionals().at(command.mostOperands), command.name, command.usage)
                        .trimmed());
    }
    if (arguments->value(libraryOption.name) == u""_s)
        return fail(u"--library must not be empty"_s);
    for (const QString &word : words) {
        const bool isPicture = command.takesPictures && arguments->positionals().contains(word);
        if (!isProperText(word) && !isPicture)
            return fail(u"“%1” is not UTF-8"_s.arg(word));
    }
    return arguments;
}

int runCommand(const Command &command, const Arguments &arguments, char *program)
{
    quietQt();
    setApplicationIdentity();
    // Qt is given no arguments: it would take some of them for its own.
    int count = 1;
    char *words[] = {program, nullptr};
    if (!command.draws) {
        const QCoreApplication application(count, words);
        return command.run(arguments);
    }
    // Nothing is ever shown, so the platform must not be one that looks for a display.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(count, words);
    if (const Result<> registered = registerFonts(); !registered)
        return failedWith(registered.error());
    return command.run(arguments);
}

int runTool(int count, char **words)
{
    QStringList decodedWords;
    for (int i = 1; i < count; ++i)
        decodedWords.append(decoded(words[i]));
    const std::vector<Command> commands = allCommands();
    const Result<Request> request = understand(decodedWords, commands);
    if (!request)
        return wrongUsage(request.error().message);
    if (!request->help.isEmpty()) {
        writeOut(request->help.toUtf8());
        return done;
    }
    const Result<Arguments> arguments = readArguments(*request->command, request->words);
    if (!arguments)
        return wrongUsage(arguments.error().message);
    return runCommand(*request->command, *arguments, words[0]);
}

} // namespace

} // namespace mosslantern

int main(int argc, char **argv)
{
    mosslantern::returnLargeBlocks();
    if (!mosslantern::prepareStandardStreams())
        return mosslantern::failed;
    // Standard output is for rows.
    mosslantern::setConsoleStream(stderr);
    try {
        return mosslantern::finishOutput(mosslantern::runTool(argc, argv));
    } catch (const std::bad_alloc &) {
        std::fputs("mosslantern-cli: there is not enough memory\n", stderr);
        return mosslantern::failed;
    }
}
