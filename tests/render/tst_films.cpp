#include "render/film/film_maker.h"
#include "render/film/film_timeline.h"
#include "render/film/yuv_frame.h"
#include "render/text/fonts.h"
#include "render/work_crew.h"
#include "tests/table.h"

#include <QtCore/QDir>
#include <QtCore/QTemporaryDir>
#include <QtGui/QImage>

#include <set>

using namespace mosslantern;
using namespace Qt::StringLiterals;

namespace {

YuvFrame plain(QSize size, QRgb color)
{
    QImage image(size, QImage::Format_RGBX8888);
    image.fill(QColor(color));
    YuvFrame frame(size);
    frame.setRows(0, size.height(), image.constBits(), size.width());
    return frame;
}

} // namespace

/// Films, with a program in ffmpeg's place that keeps the frames as they come.
class TestFilms : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QVERIFY(registerFonts());
        for (const auto &[name, color] : {std::pair("red", Qt::red), {"blue", Qt::blue}}) {
            QImage picture(90, 160, QImage::Format_RGB32);
            picture.fill(color);
            // Something that grows with the zoom.
            for (int y = 70; y < 90; ++y)
                for (int x = 35; x < 55; ++x)
                    picture.setPixel(x, y, qRgb(255, 255, 255));
            QVERIFY(picture.save(m_folder.filePath(QLatin1StringView(name) + u".png"_s)));
        }
        QVERIFY(QDir(m_folder.path()).mkpath(u"bin"_s));
        qputenv("PATH", QFile::encodeName(m_folder.filePath(u"bin"_s)) + ":/usr/bin:/bin");
    }

    void eachSlideIsSeenEquallyLong()
    {
        const FilmTimeline cut(3, {.seconds = 2, .framesPerSecond = 10});
        QCOMPARE(cut.frames(), 60);
        QCOMPARE(cut.moment(19).slide, 0);
        QCOMPARE(cut.moment(20).slide, 1);
        QCOMPARE(cut.moment(19).mix, 0.0);

        const FilmTimeline faded(
            2,
            {.seconds = 2, .transition = Transition::fade, .transitionSeconds = 0.5, .framesPerSecond = 10});
        QCOMPARE(faded.frames(), 40);
        QCOMPARE(faded.moment(14).mix, 0.0);
        QVERIFY(faded.moment(15).mix > 0 && faded.moment(19).mix < 1);
        // The zoom of a slide goes on where the transition to it has left it.
        QVERIFY(faded.moment(20).progress > faded.moment(19).nextProgress);
        QCOMPARE(faded.moment(15).nextProgress, 0.0);
        QCOMPARE(faded.moment(39).mix, 0.0);
        // A transition that is longer than the slides.
        const FilmTimeline hurried(
            2,
            {.seconds = 0.5, .transition = Transition::slide, .transitionSeconds = 9, .framesPerSecond = 10});
        QCOMPARE(hurried.frames(), 10);
        QVERIFY(hurried.moment(4).mix < 1);
    }

    void framesAreBt709()
    {
        const auto row = [](QRgb color, int y, int u, int v) {
            const YuvFrame frame = plain({4, 2}, color);
            QCOMPARE(frame.bytes(), (std::vector<uint8_t>{uint8_t(y), uint8_t(y), uint8_t(y), uint8_t(y),
                                                          uint8_t(y), uint8_t(y), uint8_t(y), uint8_t(y),
                                                          uint8_t(u), uint8_t(u), uint8_t(v), uint8_t(v)}));
        };
        // From the recommendation's own coefficients.
        row(qRgb(255, 255, 255), 235, 128, 128);
        row(qRgb(0, 0, 0), 16, 128, 128);
        row(qRgb(255, 0, 0), 63, 102, 240);
        row(qRgb(0, 255, 0), 173, 42, 26);
        row(qRgb(0, 0, 255), 32, 240, 118);

        const YuvFrame black = plain({8, 2}, qRgb(0, 0, 0));
        const YuvFrame white = plain({8, 2}, qRgb(255, 255, 255));
        YuvFrame mixed({8, 2});
        mixed.setFade(black, white, 0.5);
        QCOMPARE(int(mixed.bytes().front()), 126);
        mixed.setPush(black, white, 0.25);
        QCOMPARE(std::vector(mixed.bytes().begin(), mixed.bytes().begin() + 8),
                 (std::vector<uint8_t>{16, 16, 16, 16, 16, 16, 235, 235}));
    }

    void filmsOfSlides_data()
    {
        // Distinct frames: a slide that stands still is one.
        const auto row = table<Transition, double, int>({"transition", "zoom", "distinct"});
        row("cuts", Transition::none, 1, 2);
        row("fades", Transition::fade, 1, 2 + 5);
        row("zoom", Transition::none, 2, 40);
    }

    void filmsOfSlides()
    {
        QFETCH(const Transition, transition);
        QFETCH(const double, zoom);
        const FilmOptions options{.seconds = 2,
                                  .transition = transition,
                                  .transitionSeconds = 0.5,
                                  .zoom = zoom,
                                  .framesPerSecond = 10};
        putProgram("for last; do :; done; cat > \"${last#file:}\"");
        const auto made = make(options);
        QVERIFY2(made, made ? "" : qPrintable(made.error().message));
        QCOMPARE(made->pictureProblems, QStringList({u""_s, u""_s}));
        QFile film(path());
        QVERIFY(film.open(QIODevice::ReadOnly));
        constexpr QSize size(90, 162);
        constexpr qint64 frameBytes = qint64(size.width()) * size.height() * 3 / 2;
        QCOMPARE(film.size(), 40 * frameBytes);
        std::set<QByteArray> distinct;
        QByteArray first;
        QByteArray last;
        while (!film.atEnd()) {
            last = film.read(frameBytes);
            first = first.isEmpty() ? last : first;
            distinct.insert(last);
        }
        QTEST(int(distinct.size()), "distinct");
        QCOMPARE(int(uint8_t(first[0])), 63); // red at its corner
        QCOMPARE(int(uint8_t(last[0])), 32);  // blue
        const auto whiteOf = [&](const QByteArray &frame) { return frame.first(90 * 162).count('\xEB'); };
        QVERIFY(zoom == 1 ? whiteOf(last) == whiteOf(first) : whiteOf(last) > 3 * whiteOf(first));
    }

    void nothingIsLeftOfAFailure()
    {
        QFile::remove(path());
        putProgram("head -c 100000 > /dev/null; echo first >&2; echo 'no such codec' >&2; exit 1");
        const auto failed = make({});
        QVERIFY(!failed && failed.error().message.endsWith(u"ffmpeg says: no such codec"));
        QFile::remove(m_folder.filePath(u"bin/ffmpeg"_s));
        const QByteArray usual = qgetenv("PATH");
        qputenv("PATH", QFile::encodeName(m_folder.filePath(u"bin"_s)));
        const auto missing = make({});
        qputenv("PATH", usual);
        QVERIFY(!missing && missing.error().message.contains(u"ffmpeg, which is not installed"));
        QCOMPARE(QDir(m_folder.path()).entryList(QDir::Files | QDir::Hidden),
                 QStringList({u"blue.png"_s, u"red.png"_s}));
    }

private:
    QString path() const { return m_folder.filePath(u"film.mp4"_s); }

    void putProgram(const QByteArray &script) const
    {
        QFile program(m_folder.filePath(u"bin/ffmpeg"_s));
        QVERIFY(program.open(QIODevice::WriteOnly) && program.write("#!/bin/sh\n" + script + '\n') > 0);
        QVERIFY(program.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    }

    Result<MadeFilm> make(const FilmOptions &film) const
    {
        const ExportOptions options{.width = 91, .film = film}; // made even
        std::vector<SlideJob> jobs;
        for (const QString &name : {u"red.png"_s, u"blue.png"_s})
            jobs.push_back(exportJob({}, m_folder.filePath(name), AspectRatio::tiktok, options));
        WorkCrew crew(2);
        return makeFilm(jobs, film, path(), crew);
    }

    QTemporaryDir m_folder;
};

QTEST_MAIN(TestFilms)
#include "tst_films.moc"
