// mosslantern-decoder: reads one picture for the process that starts it, so that whatever a file does to the
// decoders happens here. decoder_answer.h says how the two talk.

#include "render/picture/decoder/decoder_answer.h"
#include "render/picture/decoder/file_decoder.h"
#include "render/picture/decoder/limits.h"
#include "render/picture/decoding_share.h"

#include <QtCore/QFile>
#include <QtCore/QThreadPool>

#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <new>
#include <optional>
#include <span>

using namespace mosslantern;

namespace {

/// Writes `bytes` at the end of the answer.
bool write(std::span<const std::byte> bytes)
{
    while (!bytes.empty()) {
        const auto written = ::write(STDOUT_FILENO, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            return false;
        bytes = bytes.subspan(size_t(written));
    }
    return true;
}

/// Ends the program. Nothing is cleaned up: that takes time, and the system does it.
[[noreturn]] void finish(const DecoderAnswer &answer, std::span<const std::byte> rest = {})
{
    ::_exit(write(std::as_bytes(std::span(&answer, 1))) && write(rest) ? EXIT_SUCCESS : EXIT_FAILURE);
}

[[noreturn]] void finish(DecoderOutcome outcome)
{
    DecoderAnswer answer;
    answer.outcome = outcome;
    finish(answer);
}

[[noreturn]] void finish(const Error &error)
{
    const QByteArray reason = error.message.toUtf8();
    DecoderAnswer answer;
    answer.reasonBytes = uint32_t(reason.size());
    finish(answer, std::as_bytes(std::span(reason)));
}

[[noreturn]] void finish(DecoderAnswer answer, const Picture &picture)
{
    const QImage &image = picture.image;
    answer.width = image.width();
    answer.height = image.height();
    answer.hasAlpha = image.hasAlphaChannel();
    picture.region.getRect(answer.region, answer.region + 1, answer.region + 2, answer.region + 3);
    finish(answer, std::as_bytes(std::span(image.constBits(), size_t(image.sizeInBytes()))));
}

struct Task
{
    bool wantsPixels;
    PictureFormat format;
    qint64 memory;
    PictureRequest request;
};

std::optional<Task> taskOf(std::span<char *const> arguments)
{
    const auto number = [&](size_t i) { return std::strtoll(arguments[i], nullptr, 10); };
    if (arguments.size() == 4 && std::strcmp(arguments[1], decoderInfoTask) == 0)
        return Task{false, PictureFormat(number(2)), number(3), {}};
    if (arguments.size() == 7 && std::strcmp(arguments[1], decoderDecodeTask) == 0) {
        const QSize cover(int(number(4)), int(number(5)));
        return Task{true, PictureFormat(number(2)), number(3), {cover, number(6) != 0}};
    }
    return std::nullopt;
}

[[noreturn]] void carryOut(const Task &task)
{
    const auto decoder = FileDecoder::of(task.format);
    decoder->load();
    QFile file;
    if (!file.open(STDIN_FILENO, QIODevice::ReadOnly) || !limitProcess(uint64_t(task.memory)))
        ::_exit(EXIT_FAILURE);
    const Result<QSize> size = decoder->open(file);
    if (!size)
        finish(size.error());
    DecoderAnswer answer;
    answer.outcome = DecoderOutcome::Done;
    answer.fullWidth = size->width();
    answer.fullHeight = size->height();
    if (!task.wantsPixels)
        finish(answer);
    if (decoder->bytesFor(task.request) > task.memory)
        finish(DecoderOutcome::NeedsMore);
    const Result<Picture> picture = decoder->decode(task.request);
    // A TIFF file may be made of strips as large as the picture; a lack of memory for them looks like damage.
    if (!picture && task.format == PictureFormat::Tiff && task.memory < mostDecodingMemory)
        finish(DecoderOutcome::NeedsMore);
    if (!picture)
        finish(picture.error());
    finish(answer, *picture);
}

} // namespace

int main(int argc, char **argv)
{
    const auto task = taskOf({argv, size_t(argc)});
    if (!task)
        return 2;
    // Decoders allocate on threads of their own, too, where nobody would catch an exception.
    std::set_new_handler([] { finish(DecoderOutcome::OutOfMemory); });
    // On a thread of the pool Qt does alone what it would share among threads elsewhere.
    QThreadPool::globalInstance()->start([&task] { carryOut(*task); });
    QThreadPool::globalInstance()->waitForDone();
    return EXIT_FAILURE;
}
