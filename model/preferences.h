#pragma once

#include "model/error.h"

namespace mosslantern {

/// What is remembered between runs apart from the records: the user's key for the AI service, as plain text
/// under "openAiApiKey". It stands in an INI file that only its owner can read. Every operation looks at the
/// file itself, so that two programs can share it.
class Preferences
{
public:
    /// The user's own preferences, in the configuration folder of the application.
    static QString standardFile();

    /// `file` need not exist.
    explicit Preferences(const QString &file = standardFile());

    /// Empty when none is stored.
    QString openAiApiKey() const;
    Result<> setOpenAiApiKey(const QString &key);

private:
    QString m_file;
};

} // namespace mosslantern
