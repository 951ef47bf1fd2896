#include "render/export/slide_archive.h"

#include "model/folder.h"
#include "render/export/slide_file.h"

#include <QtCore/QBuffer>
#include <QtCore/QFileInfo>
#include <QtCore/QtEndian>

#include <isa-l.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <limits>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

constexpr mode_t anyone = S_IRUSR | S_IWUSR | S_IRGRP | S_IWGRP | S_IROTH | S_IWOTH;
constexpr int mostFiles = 0xFFFF;

// APPNOTE.TXT of PKWARE, 4.3: all numbers little-endian.
constexpr uint32_t fileHeader = 0x04034B50;
constexpr uint32_t directoryHeader = 0x02014B50;
constexpr uint32_t directoryEnd = 0x06054B50;
constexpr uint16_t neededVersion = 20;
constexpr uint16_t utf8Names = 1 << 11;
constexpr uint16_t firstDay = 1 << 5 | 1; // 1 January 1980: archives of the same slides are the same

template <typename T>
void put(QByteArray &to, T value)
{
    std::array<char, sizeof(T)> bytes{};
    qToLittleEndian(value, bytes.data());
    to.append(bytes.data(), bytes.size());
}

/// What both headers of a file have in common.
QByteArray description(const QByteArray &name, const QByteArray &data)
{
    const uint32_t checksum =
        crc32_gzip_refl(0, reinterpret_cast<const unsigned char *>(data.constData()), uint64_t(data.size()));
    QByteArray bytes;
    put<uint16_t>(bytes, neededVersion);
    put<uint16_t>(bytes, utf8Names);
    put<uint16_t>(bytes, 0); // stored
    put<uint16_t>(bytes, 0); // time
    put<uint16_t>(bytes, firstDay);
    put<uint32_t>(bytes, checksum);
    put<uint32_t>(bytes, uint32_t(data.size()));
    put<uint32_t>(bytes, uint32_t(data.size()));
    put<uint16_t>(bytes, uint16_t(name.size()));
    put<uint16_t>(bytes, 0); // no extra fields
    return bytes;
}

QByteArray fileOf(const EncodedSlide &slide)
{
    if (!slide.file.isEmpty())
        return slide.file;
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    return writePng(buffer, slide.size, slide.bands) ? buffer.data() : QByteArray();
}

} // namespace

SlideArchive::SlideArchive(const QString &root)
    : m_root(root)
    , m_partial(QFileInfo(root).path(), anyone)
{}

Result<std::unique_ptr<SlideArchive>> SlideArchive::create(const QString &root)
{
    const QString folder = QFileInfo(root).path();
    if (const Result<> made = makeFolder(folder); !made)
        return std::unexpected(made.error());
    removeAbandonedFiles(folder);
    std::unique_ptr<SlideArchive> archive(new SlideArchive(root));
    if (!archive->m_partial.isOpen())
        return archive->failure(qt_error_string(errno));
    if (!archive->m_file.open(archive->m_partial.descriptor(), QIODevice::WriteOnly | QIODevice::Unbuffered))
        return archive->failure(archive->m_file.errorString());
    return archive;
}

Result<> SlideArchive::prepareFolder(const QString &)
{
    return {};
}

Result<> SlideArchive::write(const QString &path, const EncodedSlide &slide)
{
    if (!slide.isDrawn())
        return notDrawn(path, slide);
    // The document of a single slideshow stands beside its folder.
    const bool isInside = path.startsWith(m_root + u'/');
    const QByteArray name = (isInside ? path.sliced(m_root.size() + 1) : QFileInfo(path).fileName()).toUtf8();
    const QByteArray data = fileOf(slide);
    constexpr qint64 most = std::numeric_limits<uint32_t>::max() - (qint64(1) << 24); // the directory's room
    if (m_count == mostFiles || m_size + data.size() > most)
        return failure(u"the archive would be too large."_s);
    const QByteArray described = description(name, data);
    QByteArray header;
    put<uint32_t>(header, fileHeader);
    header += described + name;

    put<uint32_t>(m_directory, directoryHeader);
    put<uint16_t>(m_directory, neededVersion);
    m_directory += described;
    put<uint16_t>(m_directory, 0); // no comment
    put<uint16_t>(m_directory, 0); // of the first disk
    put<uint16_t>(m_directory, 0); // attributes
    put<uint32_t>(m_directory, 0);
    put<uint32_t>(m_directory, uint32_t(m_size));
    m_directory += name;
    ++m_count;
    const Result<> begun = append(header);
    return begun ? append(data) : begun;
}

Result<> SlideArchive::finish()
{
    QByteArray end;
    put<uint32_t>(end, directoryEnd);
    put<uint16_t>(end, 0); // this disk, and that of the directory
    put<uint16_t>(end, 0);
    put<uint16_t>(end, uint16_t(m_count));
    put<uint16_t>(end, uint16_t(m_count));
    put<uint32_t>(end, uint32_t(m_directory.size()));
    put<uint32_t>(end, uint32_t(m_size));
    put<uint16_t>(end, 0); // no comment
    if (const Result<> written = append(m_directory + end); !written)
        return written;
    if (::fdatasync(m_partial.descriptor()) != 0 || !m_partial.commit(QFileInfo(path()).fileName()))
        return failure(qt_error_string(errno));
    return {};
}

Result<> SlideArchive::append(const QByteArray &bytes)
{
    for (qsizetype done = 0; done < bytes.size();) {
        const qint64 count = m_file.write(bytes.constData() + done, bytes.size() - done);
        if (count <= 0)
            return failure(m_file.errorString());
        done += count;
    }
    m_size += bytes.size();
    return {};
}

std::unexpected<Error> SlideArchive::failure(const QString &reason) const
{
    return fail(u"“%1” could not be written: %2"_s.arg(path(), reason));
}

} // namespace mosslantern
