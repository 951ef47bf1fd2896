#include "app/cli/commands.h"
#include "app/cli/output.h"
#include "app/cli/text_input.h"
#include "model/preferences.h"

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

constexpr auto apiKeyName = "openAiApiKey"_L1;

bool isKnown(const QString &name)
{
    return name == apiKeyName;
}

int unknownPreference(const QString &name)
{
    return wrongUsage(u"unknown preference “%1”; expected %2"_s.arg(name, apiKeyName));
}

int get(const Arguments &arguments)
{
    if (!isKnown(arguments.positionals().first()))
        return unknownPreference(arguments.positionals().first());
    writeOut(Preferences().openAiApiKey().toUtf8() + '\n');
    return done;
}

int set(const Arguments &arguments)
{
    if (!isKnown(arguments.positionals().first()))
        return unknownPreference(arguments.positionals().first());
    QString value = arguments.positionals().at(1);
    if (value == "-"_L1) {
        const Result<QString> input = readText(value);
        if (!input)
            return failedWith(input.error());
        value = input->trimmed();
    }
    const Result<> stored = Preferences().setOpenAiApiKey(value);
    return stored ? done : failedWith(stored.error());
}

} // namespace

std::vector<Command> preferencesCommands()
{
    return {
        {
            .name = "preferences get"_L1,
            .usage = "openAiApiKey"_L1,
            .fewestOperands = 1,
            .mostOperands = 1,
            .summary = "print a preference"_L1,
            .details = "Prints the key for the AI service; an empty line when there is none."_L1,
            .usesLibrary = false,
            .run = get,
        },
        {
            .name = "preferences set"_L1,
            .usage = "openAiApiKey VALUE|-"_L1,
            .fewestOperands = 2,
            .mostOperands = 2,
            .summary = "store a preference"_L1,
            .details =
                "Stores the key for the AI service in a file that only its owner can read; \"-\" reads it "
                "from standard input, where no other user can see it. An empty value removes it."_L1,
            .usesLibrary = false,
            .run = set,
        },
    };
}

} // namespace mosslantern
