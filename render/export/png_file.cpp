#include "render/export/png_file.h"

#include <QtCore/QSaveFile>

namespace mosslantern {

using namespace Qt::StringLiterals;

Result<> writePngFile(const QString &path, const EncodedSlide &slide)
{
    if (slide.bands.isEmpty())
        return fail(u"“%1” could not be written: there is not enough memory to draw the slide."_s.arg(path));
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        return fail(u"“%1” could not be written: %2"_s.arg(path, file.errorString()));
    if (const Result<> written = writePng(file, slide.size, slide.bands); !written)
        return fail(u"“%1” could not be written: %2"_s.arg(path, written.error().message));
    if (!file.commit())
        return fail(u"“%1” could not be written: %2"_s.arg(path, file.errorString()));
    return {};
}

} // namespace mosslantern
