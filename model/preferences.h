#pragma once

#include "model/error.h"

namespace mosslantern {

/// What is remembered between runs apart from the records: the user's key for the AI service, as plain text
/// under "openAiApiKey". It stands in an INI file that only its owner can read, whoever could before. Every
/// operation looks at the file itself, so that two programs can share it.
class Preferences
{
public:
    /// The user's own preferences, in the configuration folder of the application; empty when the platform
    /// reports no such folder.
    static QString standardFile();

    /// `file` need not exist; an empty path is no place to write.
    explicit Preferences(const QString &file = standardFile());

    /// Empty when none is stored. Fails when there is a file that cannot be read.
    Result<QString> readOpenAiApiKey() const;

    /// The same, but empty on failure.
    QString openAiApiKey() const;

    /// Stores the key; lines of the file that make no sense are dropped, all else stays.
    Result<> setOpenAiApiKey(const QString &key);

private:
    QString m_file;
};

} // namespace mosslantern
