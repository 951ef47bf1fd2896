#include "render/picture/picture_checks.h"

#include "render/picture/picture_loader.h"

#include <QtCore/QThread>

#include <algorithm>

namespace mosslantern {

namespace {

// Decoders that can reduce spare all work that this does not need.
constexpr QSize checkedSize(16, 16);

constexpr int mostThreads = 4;

} // namespace

PictureChecks::PictureChecks(QStringList files, std::function<void()> onChecked)
    : m_files(std::move(files))
    , m_onChecked(std::move(onChecked))
    , m_checks(size_t(m_files.size()))
    , m_crew(std::min(QThread::idealThreadCount(), mostThreads))
{
    for (qsizetype i = 0; i < m_files.size(); ++i)
        m_crew.start([this, i] { check(i); }, WorkCrew::Order::later);
}

PictureChecks::~PictureChecks()
{
    m_ends = true;
}

bool PictureChecks::isKnown(qsizetype index) const
{
    return m_checks[size_t(index)].isDone || !m_crew.hasThreads();
}

const Result<> &PictureChecks::result(qsizetype index)
{
    const Check &check = m_checks[size_t(index)];
    m_crew.waitFor(check.isDone);
    return check.result;
}

void PictureChecks::check(qsizetype index)
{
    if (m_ends)
        return;
    Check &check = m_checks[size_t(index)];
    if (const auto picture = loadPicture(m_files[index], {checkedSize, false}); !picture)
        check.result = std::unexpected(picture.error());
    check.isDone = true;
    if (m_onChecked)
        m_onChecked();
}

} // namespace mosslantern
