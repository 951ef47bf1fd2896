#include "app/cli/commands.h"

namespace mosslantern {

std::vector<Command> allCommands()
{
    std::vector<Command> all;
    for (const auto &commands : {importCommands, collectionCommands, listCommands, exportCommands,
                                 deleteCommands, contentCommands, renderCommands}) {
        for (Command &command : commands())
            all.push_back(std::move(command));
    }
    return all;
}

} // namespace mosslantern
