#pragma once

#include "model/console.h"

#include <QtCore/QStringList>

#include <cstdio>

namespace mosslantern {

/// Collects what printLine() prints for as long as it lives.
class ConsoleCapture
{
public:
    ConsoleCapture()
        : m_file(std::tmpfile())
    {
        setConsoleStream(m_file);
    }

    ~ConsoleCapture()
    {
        setConsoleStream(stdout);
        std::fclose(m_file);
    }

    Q_DISABLE_COPY_MOVE(ConsoleCapture)

    /// Everything printed since the last call.
    QString take()
    {
        QByteArray bytes(std::ftell(m_file), Qt::Uninitialized);
        std::rewind(m_file);
        bytes.resize(
            static_cast<qsizetype>(std::fread(bytes.data(), 1, static_cast<size_t>(bytes.size()), m_file)));
        std::rewind(m_file);
        return QString::fromUtf8(bytes);
    }

    QStringList takeLines() { return take().split(u'\n', Qt::SkipEmptyParts); }

private:
    std::FILE *m_file;
};

} // namespace mosslantern
