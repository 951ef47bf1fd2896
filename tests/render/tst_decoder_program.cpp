#include "picture_samples.h"
#include "render/picture/decoder/decoder_answer.h"
#include "render/picture/decoder_program.h"
#include "render/picture/decoding_share.h"
#include "render/picture/decoding_stop.h"
#include "render/picture/supervised_decoder.h"
#include "tests/model/test_library.h"
#include "tests/table.h"

#include <QtCore/QBuffer>
#include <QtCore/QElapsedTimer>
#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>

#include <algorithm>
#include <cmath>

using namespace mosslantern;
using namespace mosslantern::samples;
using namespace Qt::StringLiterals;

namespace {

constexpr const char *damaged = "The picture is damaged.";

/// An answer with the pixels of 3 × 2 of a picture of 30 × 20.
DecoderAnswer smallAnswer()
{
    DecoderAnswer answer;
    answer.outcome = DecoderOutcome::Done;
    answer.fullWidth = 30;
    answer.fullHeight = 20;
    answer.width = 3;
    answer.height = 2;
    answer.region[2] = 30;
    answer.region[3] = 20;
    return answer;
}

QByteArray bytesOf(const DecoderAnswer &answer)
{
    QByteArray bytes(reinterpret_cast<const char *>(&answer), sizeof answer);
    for (int i = 0; i < 24; ++i)
        bytes += char(i);
    return bytes;
}

QByteArray failure(const QByteArray &reason)
{
    DecoderAnswer answer;
    answer.reasonBytes = quint32(reason.size());
    return QByteArray(reinterpret_cast<const char *>(&answer), sizeof answer) + reason;
}

MemoryFile::Mapping mapped(const QByteArray &bytes)
{
    auto file = MemoryFile::create("answer");
    return file && file->write(bytes) ? file->sealed() : MemoryFile::Mapping();
}

} // namespace

/// The process that decodes pictures, when it is not what it should be, and what is taken from it.
class DecoderProgramTest : public QObject
{
    Q_OBJECT

private slots:
    void survivesPrograms_data()
    {
        const auto row = table<QByteArray, QByteArray>({"script", "error"});
        const QByteArray notStarted = "The program that decodes pictures, ";
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
        auto answer = run(script);
        const auto picture = answer ? readDecoderAnswer(std::move(*answer)) : std::unexpected(answer.error());
        QVERIFY(!picture);
        QVERIFY2(picture.error().message.startsWith(QString::fromLatin1(error)),
                 qPrintable(picture.error().message));
    }

    void tellsTheProgramNothing()
    {
        qputenv("OPENAI_API_KEY", "secret");
        const auto answer = run("cat /proc/$$/environ; ls /proc/$$/fd");
        qunsetenv("OPENAI_API_KEY");
        QVERIFY(answer);
        const QByteArray told(reinterpret_cast<const char *>(answer->get()),
                              qsizetype(answer->get_deleter().size));
        QVERIFY2(told.startsWith("GLIBC_TUNABLES=") && told.count('=') == 4, told.constData());
        QVERIFY2(told.endsWith(QByteArray("\0000\n1\n10\n2\n", 10)), told.constData()); // 10 is the script
    }

    void endsTheProgramWhenStopped()
    {
        setDecodingStop([] { return true; });
        QElapsedTimer timer;
        timer.start();
        const auto answer = run("sleep 60");
        setDecodingStop(nullptr);
        QVERIFY(!answer);
        QVERIFY(timer.elapsed() < 50'000);
    }

    /// The real program, before it has been given its file.
    void isShutOff()
    {
#ifdef __SANITIZE_ADDRESS__
        QSKIP("calls the system in ways of its own");
#endif
        QProcess program;
        program.start(decoderPath(), {QString::fromLatin1(decoderInfoTask),
                                      QString::number(int(PictureFormat::Bmp)), u"100000000"_s});
        QVERIFY(program.waitForStarted());
        const QString folder = u"/proc/%1/task"_s.arg(program.processId());
        const auto status = [&] {
            QByteArrayList all;
            for (const QString &thread : QDir(folder).entryList(QDir::Dirs | QDir::NoDotAndDotDot))
                all += readFile(folder + u'/' + thread + u"/status"_s);
            return all;
        };
        const auto isLimited = [](const QByteArray &thread) {
            return thread.contains("NoNewPrivs:\t1") && thread.contains("Seccomp:\t2");
        };
        QTRY_VERIFY(!status().isEmpty() && std::ranges::all_of(status(), isLimited));
        program.closeWriteChannel();
        QVERIFY(program.waitForFinished());
    }

    void readsAnswers()
    {
        const auto picture = readDecoderAnswer(mapped(bytesOf(smallAnswer())));
        QVERIFY2(picture, reason(picture));
        QCOMPARE(picture->fullSize, QSize(30, 20));
        QCOMPARE(picture->region, QRectF(0, 0, 30, 20));
        QCOMPARE(picture->image.format(), QImage::Format_RGBX8888);
        QCOMPARE(picture->image.pixel(2, 1) & 0xFFFFFF, 0x141516u);
        QCOMPARE(reason(readDecoderAnswer(mapped(failure("This is so.")))), "This is so."_ba);
    }

    void trustsNoAnswer_data()
    {
        const auto row = table<QByteArray>({"answer"});
        const auto changed = [&](const char *name, auto DecoderAnswer::*field, auto value) {
            DecoderAnswer answer = smallAnswer();
            answer.*field = value;
            row(name, bytesOf(answer));
        };
        row("cut header", bytesOf(smallAnswer()).first(40));
        row("cut pixels", bytesOf(smallAnswer()).chopped(1));
        row("no sentence", failure("\x1b[31mThis."));
        row("no end", failure("This is"));
        row("long", failure(QByteArray(1000, 'T') + '.'));
        changed("another mark", &DecoderAnswer::mark, 7u);
        changed("unknown outcome", &DecoderAnswer::outcome, DecoderOutcome(99));
        changed("no picture", &DecoderAnswer::fullWidth, 0);
        changed("negative height", &DecoderAnswer::height, -2);
        changed("wider than its data", &DecoderAnswer::width, 5);
        changed("higher than its data", &DecoderAnswer::height, 3);
        changed("over 200 megapixels", &DecoderAnswer::fullHeight, 65'536 * 1'024);
        changed("sides that overflow", &DecoderAnswer::width, 0x40000003);
    }

    void trustsNoAnswer()
    {
        QFETCH(QByteArray, answer);
        const auto picture = readDecoderAnswer(mapped(answer));
        QVERIFY(!picture);
        QVERIFY(picture.error().message.startsWith(u"The picture"));
    }

    void trustsNoRegion()
    {
        for (const double value : {std::nan(""), 1e300, -1e300}) {
            for (size_t i = 0; i < 4; ++i) {
                DecoderAnswer answer = smallAnswer();
                answer.region[i] = value;
                QVERIFY(!readDecoderAnswer(mapped(bytesOf(answer))));
            }
        }
    }

private:
    /// What a program, this shell script, answers; none: there is no program.
    Result<MemoryFile::Mapping> run(const QByteArray &script)
    {
        const QString path = m_folder.filePath(u"program"_s);
        QFile::remove(path);
        if (!script.isEmpty()) {
            writeFile(path, "#!/bin/sh\n" + script + '\n');
            QFile::setPermissions(path, QFile::ReadOwner | QFile::ExeOwner);
        }
        QByteArray bytes = heif(painting(64, 64));
        QBuffer file(&bytes);
        file.open(QIODevice::ReadOnly);
        return runDecoder(path, {PictureFormat::Heic, 1 << 20, PictureRequest()}, file);
    }

    QTemporaryDir m_folder;
};

QTEST_GUILESS_MAIN(DecoderProgramTest)
#include "tst_decoder_program.moc"
