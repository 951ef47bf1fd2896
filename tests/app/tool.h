#pragma once

#include <QtCore/QDirIterator>
#include <QtCore/QFile>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>
#include <QtGui/QImage>
#include <QtTest/QTest>

#include <signal.h>

namespace mosslantern {

/// What a run of the tool has left.
struct Outcome
{
    int status = -1;
    QByteArray out;
    QByteArray err;

    QStringList lines() const { return QString::fromUtf8(out).split(QLatin1Char('\n'), Qt::SkipEmptyParts); }
    QJsonDocument json() const { return QJsonDocument::fromJson(out); }
    QString error() const { return QString::fromUtf8(err); }

    bool succeeded() const { return status == 0 && err.isEmpty(); }

    /// Whether it ended with this status and one line on standard error, with the tool's name in front, that
    /// says `text`.
    bool failed(int expected, const QString &text) const
    {
        return status == expected && err.startsWith("mosslantern-cli: ") && err.count('\n') == 1 &&
               error().count(text) == 1;
    }

    /// All of it, for a message.
    QByteArray all() const { return QByteArray::number(status) + '\n' + out + err; }
};

/// Runs mosslantern-cli in a folder of its own, which is also the user's home.
class Tool
{
public:
    QString path(const QString &name) const { return m_folder.filePath(name); }

    void setVariable(const QString &name, const QString &value) { m_variables.insert(name, value); }

    std::unique_ptr<QProcess> prepare(const QStringList &arguments) const
    {
        auto process = std::make_unique<QProcess>();
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        for (const char *const name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "XDG_RUNTIME_DIR",
                                       "XDG_CONFIG_HOME", "XDG_DATA_HOME", "OPENAI_API_KEY"})
            environment.remove(QString::fromLatin1(name));
        environment.insert(QStringLiteral("HOME"), m_folder.path());
        environment.insert(m_variables);
        process->setProcessEnvironment(environment);
        process->setWorkingDirectory(m_folder.path());
        process->setProgram(QStringLiteral(MOSSLANTERN_CLI));
        process->setArguments(arguments);
        return process;
    }

    /// The same with a line of arguments, none of which holds a space.
    std::unique_ptr<QProcess> prepare(const QString &line) const { return prepare(words(line)); }

    /// Runs it to its end; the event loop goes on meanwhile.
    Outcome run(const QStringList &arguments, const QByteArray &input = {}) const
    {
        const auto process = prepare(arguments);
        process->start();
        process->write(input);
        process->closeWriteChannel();
        return finish(*process);
    }

    Outcome run(const QString &line, const QByteArray &input = {}) const { return run(words(line), input); }

    /// Runs a line of bash, in which %1 is the tool.
    Outcome runShell(const QString &line) const
    {
        const auto process = prepare(QStringList());
        process->setProgram(QStringLiteral("bash"));
        process->setArguments({QStringLiteral("-c"), line.arg(QStringLiteral(MOSSLANTERN_CLI))});
        process->start();
        return finish(*process);
    }

    static Outcome finish(QProcess &process)
    {
        constexpr int longest = 120'000; // milliseconds
        if (!QTest::qWaitFor([&] { return process.state() == QProcess::NotRunning; }, longest))
            process.kill();
        return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
                process.readAllStandardOutput(), process.readAllStandardError()};
    }

    void write(const QString &name, const QByteArray &bytes) const
    {
        QDir(m_folder.path()).mkpath(QFileInfo(name).path());
        QFile file(path(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("cannot write %s", qPrintable(name));
    }

    QByteArray read(const QString &name) const
    {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    /// A plain picture, in the format that its name says.
    void writePicture(const QString &name, Qt::GlobalColor color, QSize size = {300, 300}) const
    {
        QDir(m_folder.path()).mkpath(QFileInfo(name).path());
        QImage picture(size, QImage::Format_RGB32);
        picture.fill(color);
        if (!picture.save(path(name)))
            qFatal("cannot write %s", qPrintable(name));
    }

    /// All files below a folder, hidden ones too, as sorted relative paths.
    QStringList files(const QString &folder) const
    {
        QStringList found;
        for (QDirIterator all(path(folder), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
             all.hasNext();)
            found.append(QDir(path(folder)).relativeFilePath(all.next()));
        found.sort();
        return found;
    }

private:
    static QStringList words(const QString &line) { return line.split(QLatin1Char(' '), Qt::SkipEmptyParts); }

    QTemporaryDir m_folder;
    QProcessEnvironment m_variables;
};

} // namespace mosslantern
