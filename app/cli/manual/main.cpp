// mosslantern-cli-manual WHAT: prints a manual page or a completion script; run by the build.

#include "app/cli/commands.h"
#include "app/cli/manual/completion.h"
#include "app/cli/manual/man_page.h"

#include <QtCore/QHash>

#include <cstdio>
#include <functional>

using namespace mosslantern;

int main(int count, char **words)
{
    const std::vector<Command> commands = allCommands();
    const QHash<QByteArray, std::function<QString()>> texts{
        {"mosslantern.1", windowManual},
        {"mosslantern-cli.1", [&] { return toolManual(commands); }},
        {"mosslantern-cli.bash", [&] { return bashCompletion(commands); }},
        {"_mosslantern-cli", [&] { return zshCompletion(commands); }},
        {"mosslantern-cli.fish", [&] { return fishCompletion(commands); }},
    };
    const auto text = texts.constFind(count == 2 ? words[1] : "");
    if (text == texts.cend())
        return 2;
    const QByteArray bytes = (*text)().toUtf8();
    const bool isWritten = std::fwrite(bytes.data(), 1, size_t(bytes.size()), stdout) == size_t(bytes.size());
    return isWritten && std::fflush(stdout) == 0 ? 0 : 1;
}
