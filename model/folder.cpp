#include "model/folder.h"

#include <QtCore/QFile>

#include <filesystem>

namespace mosslantern {

using namespace Qt::StringLiterals;

Result<> makeFolder(const QString &path)
{
    const std::filesystem::path folder(QFile::encodeName(path).toStdString());
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    if (!error && !std::filesystem::is_directory(folder, error) && !error)
        error = std::make_error_code(std::errc::not_a_directory);
    if (error)
        return fail(u"The folder “%1” could not be created: %2"_s.arg(path, qt_error_string(error.value())));
    return {};
}

} // namespace mosslantern
