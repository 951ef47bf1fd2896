#include "app/cli/commands.h"

namespace mosslantern {

std::vector<Command> allCommands()
{
    std::vector<Command> all;
    for (const auto &commands :
         {makeCommands, renderCommands, importCommands, collectionCommands, generateCommands, listCommands,
          exportCommands, sheetCommands, deleteCommands, contentCommands, variationsCommands, tableCommands,
          preferencesCommands, recoverCommands}) {
        for (Command &command : commands())
            all.push_back(std::move(command));
    }
    return all;
}

} // namespace mosslantern
