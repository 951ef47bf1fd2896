#pragma once

#include "content/openai_service.h"
#include "tests/content/test_server.h"
#include "tests/model/test_library.h"
#include "ui/generator/slideshow_generator.h"

namespace mosslantern {

/// A generator over a library of its own, with a fixed seed, clock and locale.
class Studio
{
public:
    explicit Studio(const QString &serviceUrl = QStringLiteral("invalid"))
        : service(serviceUrl)
        , generator(library.store(), service, preferences(),
                    {&m_random, [] { return QDateTime(QDate(2026, 11, 8), QTime(19, 43, 59)); },
                     QStringLiteral("de_DE.UTF-8")})
    {}

    Preferences preferences() const { return Preferences(library.path(QStringLiteral("preferences.ini"))); }

    void addAssets(int count, Collection *collection = nullptr)
    {
        for (int i = 0; i < count; ++i)
            library.addAsset(QStringLiteral("asset %1.png").arg(i), collection);
    }

    /// Runs to the end; assets have no files here, of which nothing need be said.
    Result<GeneratedBatch> generate()
    {
        ConsoleCapture quiet;
        return QCoro::waitFor(generator.generateBatch());
    }

    std::vector<Slideshow *> slideshows() { return library.store().all<Slideshow>(); }

    TestLibrary library;
    OpenAIService service;

private:
    QRandomGenerator m_random{20261108};

public:
    SlideshowGenerator generator;
};

} // namespace mosslantern
