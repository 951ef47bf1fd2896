#pragma once

#include "app/cli/command.h"

namespace mosslantern {

/// Every command, in the order in which the help lists them.
std::vector<Command> allCommands();

// The commands by file, named after it.
std::vector<Command> importCommands();
std::vector<Command> collectionCommands();
std::vector<Command> listCommands();
std::vector<Command> generateCommands();
std::vector<Command> exportCommands();
std::vector<Command> sheetCommands();
std::vector<Command> deleteCommands();
std::vector<Command> contentCommands();
std::vector<Command> variationsCommands();
std::vector<Command> tableCommands();
std::vector<Command> renderCommands();
std::vector<Command> makeCommands();
std::vector<Command> preferencesCommands();
std::vector<Command> recoverCommands();

// What "list collections" and "delete collection" do, for "collections list" and "collections delete".
int listCollections(const Arguments &arguments);
int deleteCollections(const Arguments &arguments);

} // namespace mosslantern
