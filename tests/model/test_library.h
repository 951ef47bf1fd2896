#pragma once

#include "model/asset.h"
#include "model/collection.h"
#include "model/console.h"
#include "model/slideshow.h"
#include "model/store.h"

#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>

#include <sys/resource.h>
#include <sys/stat.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>

namespace mosslantern {

inline QByteArray readFile(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
}

inline void writeFile(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write %s", qPrintable(path));
}

/// Who may do what with a file or folder; -1 when there is none.
inline int modeOf(const QString &path)
{
    struct stat status = {};
    const bool exists = ::stat(QFile::encodeName(path).constData(), &status) == 0;
    return exists ? static_cast<int>(status.st_mode & 0777) : -1;
}

/// While it exists no file of this process may grow beyond `bytes`, as if the disk were full.
class FullDisk
{
public:
    explicit FullDisk(rlim_t bytes)
    {
        ::signal(SIGXFSZ, SIG_IGN);
        ::getrlimit(RLIMIT_FSIZE, &m_original);
        const rlimit full = {bytes, m_original.rlim_max};
        if (::setrlimit(RLIMIT_FSIZE, &full) != 0)
            qFatal("cannot limit the size of files");
    }
    ~FullDisk() { ::setrlimit(RLIMIT_FSIZE, &m_original); }
    Q_DISABLE_COPY_MOVE(FullDisk)

private:
    rlimit m_original = {};
};

/// One field of each record: textsOf(slides, &Slide::text).
template <typename Records, typename Field>
QStringList textsOf(const Records &records, Field field)
{
    QStringList texts;
    for (const auto *record : records)
        texts << std::invoke(field, record);
    return texts;
}

/// A library in a temporary folder.
class TestLibrary
{
public:
    QString path(const QString &name) const { return m_folder.filePath(name); }
    LibraryLocation location() const
    {
        return LibraryLocation::inFolder(m_folder.filePath(QStringLiteral("library")));
    }
    QString storeFile() const { return location().storeFile(); }

    /// The open store; stops the test program when it cannot be opened.
    Store &store()
    {
        if (!m_store) {
            Result<std::unique_ptr<Store>> opened = Store::open(location());
            if (!opened)
                qFatal("%s", qPrintable(opened.error().message));
            m_store = std::move(*opened);
        }
        return *m_store;
    }

    void close() { m_store.reset(); }

    Store &reopen()
    {
        close();
        return store();
    }

    /// Why the library cannot be opened, or nothing when it can.
    QString openingError()
    {
        close();
        const Result<std::unique_ptr<Store>> opened = Store::open(location());
        return opened ? QString() : opened.error().message;
    }

    QString writeFile(const QString &name, const QByteArray &bytes) const
    {
        mosslantern::writeFile(path(name), bytes);
        return path(name);
    }

    Collection *addCollection(const QString &name)
    {
        return store().insert(std::make_unique<Collection>(name));
    }

    /// An asset whose file does not exist.
    Asset *addAsset(const QString &name, Collection *collection = nullptr)
    {
        return store().insert(std::make_unique<Asset>(name + QStringLiteral(".stored"), name, collection));
    }

    /// A slideshow with one slide for each text; the slides keep no images of their own.
    Slideshow *addSlideshow(Asset *asset, const QStringList &texts,
                            const std::optional<QString> &batchName = {})
    {
        std::vector<std::unique_ptr<Slide>> slides;
        std::FILE *const nowhere = std::fopen("/dev/null", "w");
        setConsoleStream(nowhere);
        for (const QString &text : texts)
            slides.push_back(
                std::make_unique<Slide>(asset, text, QString(), TextStyle::classic, slides.size()));
        setConsoleStream(stdout);
        std::fclose(nowhere);
        return store().insert(
            std::make_unique<Slideshow>(std::move(slides), AspectRatio::tiktok, QUuid(), batchName));
    }

private:
    QTemporaryDir m_folder;
    std::unique_ptr<Store> m_store;
};

/// Collects what printLine() prints while it exists.
class ConsoleCapture
{
public:
    ConsoleCapture()
        : m_stream(::open_memstream(&m_bytes, &m_size))
    {
        setConsoleStream(m_stream);
    }
    ~ConsoleCapture()
    {
        setConsoleStream(stdout);
        std::fclose(m_stream);
        std::free(m_bytes);
    }
    Q_DISABLE_COPY_MOVE(ConsoleCapture)

    QStringList lines() const
    {
        const QStringList lines = QString::fromUtf8(m_bytes, static_cast<qsizetype>(m_size)).split(u'\n');
        return lines.first(lines.size() - 1);
    }

private:
    char *m_bytes = nullptr;
    size_t m_size = 0;
    std::FILE *m_stream;
};

} // namespace mosslantern
