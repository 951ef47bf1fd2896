#pragma once

#include "app/cli/arguments.h"

#include <limits>
#include <vector>

namespace mosslantern {

inline constexpr qsizetype anyNumber = std::numeric_limits<qsizetype>::max();

/// One thing that the tool can do.
struct Command
{
    /// One word, or two with a blank between them.
    QLatin1StringView name = {};
    /// What follows the name in the usage line.
    QLatin1StringView usage = {};
    /// How many words there may be that are no options.
    qsizetype fewestOperands = 0;
    qsizetype mostOperands = 0;
    /// For the list of commands: one line.
    QLatin1StringView summary = {};
    /// More for the command's own help: sentences in paragraphs, one line each.
    QLatin1StringView details = {};
    std::vector<OptionSpec> options = {};
    /// Whether --library means something to it.
    bool usesLibrary = true;
    /// Whether its operands are pictures, of which those that cannot be read are reported and left out.
    bool takesPictures = false;
    /// Whether it draws slides, which takes a QGuiApplication.
    bool draws = false;
    /// Gives the exit status.
    int (*run)(const Arguments &arguments) = nullptr;
};

// What every command understands beside its own options.
inline constexpr OptionSpec libraryOption{
    QLatin1StringView("library"), QLatin1StringView("DIR"),
    QLatin1StringView("keep everything in DIR, and not in your own library")};
inline constexpr OptionSpec helpOption{QLatin1StringView("help"), QLatin1StringView(),
                                       QLatin1StringView("show this help")};

} // namespace mosslantern
