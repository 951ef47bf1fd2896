#include "render/film/film_writer.h"

#include <QtCore/QFileInfo>
#include <QtCore/QStandardPaths>

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace mosslantern {

using namespace Qt::StringLiterals;

namespace {

constexpr mode_t anyone = S_IRUSR | S_IWUSR | S_IRGRP | S_IWGRP | S_IROTH | S_IWOTH;

QStringList words(const QString &text)
{
    return text.split(u' ', Qt::SkipEmptyParts);
}

QString number(double value)
{
    return QString::number(value, 'f', 3);
}

QStringList musicFilters(const Music &music, double seconds)
{
    QStringList filters{u"volume="_s + number(music.volume)};
    if (music.fadeOut > 0)
        filters.append(u"afade=t=out:st=%1:d=%2"_s.arg(number(std::max(0.0, seconds - music.fadeOut)),
                                                       number(std::min(seconds, music.fadeOut))));
    return filters;
}

} // namespace

FilmWriter::FilmWriter(const QString &path, const FilmOptions &options)
    : m_path(path)
    , m_options(options)
    , m_partial(QFileInfo(path).path(), anyone)
{}

FilmWriter::~FilmWriter()
{
    if (m_process.state() == QProcess::NotRunning)
        return;
    m_process.kill();
    m_process.waitForFinished(-1);
}

Result<> FilmWriter::start(QSize size, int frames)
{
    if (!m_partial.isOpen())
        return failure(qt_error_string(errno));
    const QString program = QStandardPaths::findExecutable(u"ffmpeg"_s);
    if (program.isEmpty())
        return failure(u"films are made by the program ffmpeg, which is not installed."_s);
    m_process.setStandardOutputFile(QProcess::nullDevice());
    m_process.start(program, arguments(size, frames));
    if (!m_process.waitForStarted(-1))
        return failure(m_process.errorString());
    return {};
}

Result<> FilmWriter::write(const YuvFrame &frame)
{
    const auto *bytes = reinterpret_cast<const char *>(frame.bytes().data());
    m_process.write(bytes, qint64(frame.bytes().size()));
    while (m_process.bytesToWrite() > 0) {
        if (!m_process.waitForBytesWritten(-1))
            return programFailure();
    }
    return {};
}

Result<> FilmWriter::finish()
{
    m_process.closeWriteChannel();
    m_process.waitForFinished(-1);
    if (m_process.exitStatus() != QProcess::NormalExit || m_process.exitCode() != 0)
        return programFailure();
    if (::fdatasync(m_partial.descriptor()) != 0 || !m_partial.commit(QFileInfo(m_path).fileName()))
        return failure(qt_error_string(errno));
    return {};
}

QStringList FilmWriter::arguments(QSize size, int frames) const
{
    const bool isMp4 = m_options.format == FilmFormat::mp4;
    const double seconds = double(frames) / m_options.framesPerSecond;
    QStringList arguments =
        words(u"-hide_banner -loglevel error -y -f rawvideo -pix_fmt yuv420p -s %1x%2 -r %3 "
              "-i pipe:0"_s.arg(size.width())
                  .arg(size.height())
                  .arg(m_options.framesPerSecond));
    if (m_options.music) {
        if (m_options.music->loops)
            arguments += words(u"-stream_loop -1"_s);
        arguments += {u"-i"_s, u"file:"_s + m_options.music->file};
        arguments += words(u"-map 0:v -map 1:a:0 -ac 2 -ar 48000"_s);
        arguments += {u"-af"_s, musicFilters(*m_options.music, seconds).join(u',')};
        arguments += words(isMp4 ? u"-c:a aac -b:a 192k"_s : u"-c:a libopus -b:a 160k"_s);
    }
    arguments += words(u"-vf setparams=range=tv:colorspace=bt709:color_primaries=bt709:color_trc=bt709 "
                       "-pix_fmt yuv420p -color_range tv -colorspace bt709 -color_primaries bt709 "
                       "-color_trc bt709"_s);
    arguments +=
        words(isMp4 ? u"-c:v libx264 -preset medium -crf 18 -movflags +faststart -f mp4"_s
                    : u"-c:v libvpx-vp9 -crf 24 -b:v 0 -row-mt 1 -deadline good -cpu-used 4 -f webm"_s);
    arguments += {u"-t"_s, number(seconds), u"file:"_s + m_partial.path()};
    return arguments;
}

std::unexpected<Error> FilmWriter::failure(const QString &reason) const
{
    return fail(u"“%1” could not be written: %2"_s.arg(m_path, reason));
}

std::unexpected<Error> FilmWriter::programFailure()
{
    m_process.closeWriteChannel();
    m_process.waitForFinished(-1);
    const QStringList lines =
        QString::fromLocal8Bit(m_process.readAllStandardError()).split(u'\n', Qt::SkipEmptyParts);
    return failure(lines.isEmpty() ? u"ffmpeg ended early."_s : u"ffmpeg says: "_s + lines.last());
}

} // namespace mosslantern
