#include "picture_samples.h"
#include "render/picture/heif/heif_answer.h"
#include "render/picture/heif_decoder.h"
#include "render/picture/heif_program.h"
#include "tests/table.h"

#include <QtCore/QTemporaryDir>

#include <cmath>
#include <cstring>

using namespace mosslantern;
using namespace mosslantern::samples;
using namespace Qt::StringLiterals;

namespace {

constexpr const char *damaged = "The picture is damaged.";

/// An answer with a profile of 16 bytes and a picture of 3 × 2 pixels.
HeifAnswer smallAnswer()
{
    HeifAnswer answer;
    answer.outcome = HeifOutcome::Done;
    answer.width = 3;
    answer.height = 2;
    answer.colors = HeifColors::Profile;
    answer.profileBytes = 16;
    answer.pixelsAt = 128;
    answer.stride = 16;
    return answer;
}

QByteArray bytesOf(const HeifAnswer &answer)
{
    QByteArray bytes(reinterpret_cast<const char *>(&answer), sizeof answer);
    bytes.resize(128, '\0');
    for (int i = 0; i < 32; ++i)
        bytes += char(i);
    return bytes;
}

MemoryFile::Mapping mapped(const QByteArray &bytes)
{
    auto file = MemoryFile::create("answer");
    return file && file->write(bytes) ? file->sealed() : MemoryFile::Mapping();
}

} // namespace

/// The process that decodes HEIC and AVIF pictures, when it is not what it should be.
class HeifProgramTest : public QObject
{
    Q_OBJECT

private slots:
    void survivesPrograms_data()
    {
        const auto row = table<QByteArray, QByteArray>({"script", "error"});
        const QByteArray notStarted = "The program for HEIC and AVIF pictures, ";
        row("missing", "", notStarted);
        row("without its libraries", "exit 127", notStarted);
        row("killed", "kill -KILL $$", "There is not enough memory for the picture.");
        row("crashing", "kill -SEGV $$", damaged);
        row("out of time", "kill -XCPU $$", damaged);
        row("failing", "exit 1", damaged);
        row("silent", "exit 0", damaged);
        row("babbling", "echo Hello; exec cat", damaged);
    }

    void survivesPrograms()
    {
        QFETCH(QByteArray, script);
        QFETCH(QByteArray, error);
        QTemporaryDir folder;
        QFile program(folder.filePath(u"program"_s));
        if (!script.isEmpty()) {
            QVERIFY(program.open(QIODevice::WriteOnly));
            program.write("#!/bin/sh\n" + script + '\n');
            program.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
            program.close();
        }
        auto answer = runHeifProgram(program.fileName(), heifDecodeTask, heif(painting(64, 64)), 1 << 20);
        const auto picture = answer ? readHeifAnswer(std::move(*answer)) : std::unexpected(answer.error());
        QVERIFY(!picture);
        QVERIFY2(picture.error().message.startsWith(QString::fromLatin1(error)),
                 qPrintable(picture.error().message));
    }

    void readsAnswers()
    {
        const auto picture = readHeifAnswer(mapped(bytesOf(smallAnswer())));
        QVERIFY(picture);
        QCOMPARE(picture->size, QSize(3, 2));
        QCOMPARE(picture->image.format(), QImage::Format_RGBX8888);
        QCOMPARE(picture->image.pixel(2, 1) & 0xFFFFFF, 0x18191Au);
        QVERIFY(!picture->colorSpace.isValid());
    }

    void trustsNoAnswer_data()
    {
        const auto row = table<QByteArray>({"answer"});
        const auto changed = [&](const char *name, auto HeifAnswer::*field, auto value) {
            HeifAnswer answer = smallAnswer();
            answer.*field = value;
            row(name, bytesOf(answer));
        };
        row("cut header", bytesOf(smallAnswer()).first(40));
        row("cut pixels", bytesOf(smallAnswer()).chopped(1));
        changed("another mark", &HeifAnswer::mark, 7u);
        changed("unknown outcome", &HeifAnswer::outcome, HeifOutcome(99));
        changed("too large for no reason", &HeifAnswer::outcome, HeifOutcome::TooLarge);
        changed("no width", &HeifAnswer::width, 0);
        changed("negative height", &HeifAnswer::height, -2);
        changed("wider than its rows", &HeifAnswer::width, 5);
        changed("higher than its data", &HeifAnswer::height, 3);
        changed("over 200 megapixels", &HeifAnswer::height, 65'536 * 1'024);
        changed("odd rows", &HeifAnswer::stride, uint64_t(15));
        changed("endless rows", &HeifAnswer::stride, ~uint64_t(15));
        changed("rows that overflow", &HeifAnswer::stride, uint64_t(1) << 63);
        changed("pixels in the profile", &HeifAnswer::pixelsAt, uint64_t(1));
        changed("pixels beyond the end", &HeifAnswer::pixelsAt, ~uint64_t(63));
        changed("endless profile", &HeifAnswer::profileBytes, ~uint64_t(0));
    }

    void trustsNoAnswer()
    {
        QFETCH(QByteArray, answer);
        const auto picture = readHeifAnswer(mapped(answer));
        QVERIFY(!picture);
        QVERIFY(picture.error().message.startsWith(u"The picture"));
    }

    void ignoresColorsThatAreNone()
    {
        for (const float value : {std::nanf(""), -1.0F, 2.0F}) {
            HeifAnswer answer = smallAnswer();
            answer.colors = HeifColors::Coded;
            answer.chromaticities[3] = value;
            const auto picture = readHeifAnswer(mapped(bytesOf(answer)));
            QVERIFY(picture);
            QVERIFY(!picture->colorSpace.isValid());
        }
    }
};

QTEST_GUILESS_MAIN(HeifProgramTest)
#include "tst_heif_program.moc"
