#include "ui/library/picture_intake.h"

#include "model/console.h"
#include "model/image_files.h"
#include "render/picture/picture_files.h"
#include "ui/common/screen_context.h"

namespace mosslantern {

using namespace Qt::StringLiterals;

PictureIntake &PictureIntake::of(ScreenContext &context)
{
    if (auto *const present = context.findChild<PictureIntake *>(QString(), Qt::FindDirectChildrenOnly))
        return *present;
    return *new PictureIntake(context);
}

PictureIntake::PictureIntake(ScreenContext &context)
    : QObject(&context)
    , m_store(context.store())
{}

void PictureIntake::take(const QStringList &files)
{
    if (files.isEmpty())
        return;
    const auto comeBack = [this] {
        QMetaObject::invokeMethod(this, &PictureIntake::advance, Qt::QueuedConnection);
    };
    m_batches.push_back(std::make_unique<PictureChecks>(files, comeBack));
    comeBack(); // in case that there are no threads
}

bool PictureIntake::takeNamed(const QStringList &names)
{
    const PictureFiles pictures = pictureFiles(names);
    for (const Error &problem : pictures.problems)
        printLine(u"Failed to copy asset: "_s + problem.message);
    take(pictures.files);
    return !pictures.files.isEmpty();
}

void PictureIntake::advance()
{
    if (m_batches.empty() || !m_batches.front()->isKnown(m_next))
        return;
    PictureChecks &batch = *m_batches.front();
    const QString file = batch.files()[m_next];
    if (const Result<> &checked = batch.result(m_next); checked)
        static_cast<void>(importAsset(QUrl::fromLocalFile(file), m_store));
    else
        printLine(u"Failed to copy asset: %1: %2"_s.arg(file, checked.error().message));
    if (++m_next == batch.files().size()) {
        m_batches.pop_front();
        m_next = 0;
    }
    QMetaObject::invokeMethod(this, &PictureIntake::advance, Qt::QueuedConnection);
}

} // namespace mosslantern
